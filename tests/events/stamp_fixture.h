// A printer, a rendering side behind a job's context, and a record whose watermark is COPY in 72 points of Arial at
// 300 dots per inch.
#pragma once

#include "events/document_event.h"
#include "events/stamping.h"
#include "settings/defaults.h"
#include "tests/support/printer_fixture.h"
#include "tests/support/rendering_side.h"
#include "watermark/watermark_list.h"

namespace testing_support {

class StampTest : public PrinterTest {
  protected:
    StampTest()
    {
        BuildDefaultSettings(&record, nullptr, u"", 0);
        SetFields(record, "dmPrintQuality=300 dmWatermarkOn=1 wmSize=72 wmShading=20");
        CopyToField(record.dmWatermark.wmFaceName, 32, u"Arial");
        CopyToField(record.dmWatermark.wmText, 73, u"COPY");
        StampPageCount = 0;
        StampReady = StampRepeat = false;
    }
    int Event(int code, ULONG inputBytes = 0, const void* input = nullptr, ULONG room = 0, void* output = nullptr)
    {
        return DrvDocumentEvent(printer, side.job, code, inputBytes, const_cast<void*>(input), room, output);
    }

    RenderingSide side;
    DriverDevMode record{};
};

}  // namespace testing_support
