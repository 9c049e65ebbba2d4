#include "events/document_event.h"

#include <cstddef>
#include <cstring>

#include "boundary.h"
#include "driver_dev_mode.h"
#include "events/job_header.h"
#include "events/overlay_pending.h"
#include "events/stamping.h"
#include "settings/global_block.h"
#include "settings/record_copy.h"

namespace {

constexpr int ESCAPE_GET_SETTINGS = 5001;
constexpr SHORT FallbackQuality = 600;

// The input of the creation: references, the last of which is a flag.
struct CreationInput {
    const WCHAR* driver;
    const WCHAR* device;
    DriverDevMode* record;
    ULONG_PTR informationContext;
};
static_assert(sizeof(void*) != 4 || sizeof(CreationInput) == 16);

struct Event {
    HANDLE printer;
    HDC context;
    ULONG inputBytes;
    const void* input;
    ULONG outputBytes;
    void* output;
};

void GiveQuality(DriverDevMode& record)
{
    if (record.dmPrintQuality >= 0) return;
    record.dmPrintQuality = record.dmResolution > 0 ? record.dmResolution : FallbackQuality;
}

void PrepareStamp(HANDLE printer, DriverDevMode& record)
{
    StampReady = false;
    if (record.dmWatermarkOn == 1) PrepareWatermark(printer, record);
}

// A record that another driver or an older program made may end before the private section, or within it: it
// has neither a resolution nor a watermark, and nothing behind its end is touched.
void TakeShortRecord(DEVMODEW& record)
{
    constexpr std::size_t QualityEnd = offsetof(DEVMODEW, dmPrintQuality) + sizeof(record.dmPrintQuality);
    if (RecordBytes(record) >= QualityEnd && record.dmPrintQuality < 0) record.dmPrintQuality = FallbackQuality;
}

// A record that says nothing of its size is taken as whole.
bool IsShort(const DEVMODEW& record)
{
    const bool says = record.dmSize != 0 || record.dmDriverExtra != 0;
    return says && RecordBytes(record) < RecordSize;
}

// A record that comes with a context: it is the output, too, and made ready for the job in place.
void TakeRecord(const Event& event, DriverDevMode* record)
{
    StampReady = false;
    if (event.output && event.outputBytes >= sizeof(record)) std::memcpy(event.output, &record, sizeof(record));
    if (!record) return;
    if (IsShort(*PublicPart(record))) return TakeShortRecord(*PublicPart(record));
    GiveQuality(*record);
    PrepareStamp(event.printer, *record);
}

int OnCreate(const Event& event)
{
    StampRepeat = false;
    CreationInput input;
    if (event.inputBytes != sizeof(input) || !event.input) return DOCUMENTEVENT_UNSUPPORTED;
    std::memcpy(&input, event.input, sizeof(input));
    if (input.informationContext) return DOCUMENTEVENT_UNSUPPORTED;
    TakeRecord(event, input.record);
    return DOCUMENTEVENT_SUCCESS;
}

int OnReset(const Event& event)
{
    StampRepeat = false;
    DriverDevMode* record = nullptr;
    if (event.inputBytes != sizeof(record) || !event.input) return DOCUMENTEVENT_SUCCESS;
    std::memcpy(&record, event.input, sizeof(record));
    TakeRecord(event, record);
    return DOCUMENTEVENT_SUCCESS;
}

int OnStartOfDocument(const Event& event)
{
    SendJobHeader(event.context);
    StampPageCount = 0;
    return DOCUMENTEVENT_SUCCESS;
}

// The page is stamped from the record that the rendering side holds at this moment.
int OnEndOfPage(const Event& event)
{
    const auto record = AllocateBlock<DriverDevMode>(RecordSize);
    if (!record) return DOCUMENTEVENT_UNSUPPORTED;
    const int answer =
        ExtEscape(event.context, ESCAPE_GET_SETTINGS, 0, nullptr, RecordSize, reinterpret_cast<CHAR*>(record.get()));
    if (answer == 0) return DOCUMENTEVENT_SUCCESS;
    GiveQuality(*record);
    PrepareStamp(event.printer, *record);
    if (StampReady) StampPage(event.context);
    return DOCUMENTEVENT_SUCCESS;
}

int OnEndOfDocument(const Event&)
{
    ResetOverlayPending();
    StampPageCount = 0;
    return DOCUMENTEVENT_SUCCESS;
}

int OnNothingToDo(const Event&) { return DOCUMENTEVENT_SUCCESS; }

struct Handler {
    int event;
    int (*handle)(const Event&);
};
constexpr Handler Handlers[] = {
    {DOCUMENTEVENT_CREATEDCPRE,  OnCreate         },
    {DOCUMENTEVENT_CREATEDCPOST, OnNothingToDo    },
    {DOCUMENTEVENT_RESETDCPRE,   OnReset          },
    {DOCUMENTEVENT_RESETDCPOST,  OnNothingToDo    },
    {DOCUMENTEVENT_STARTDOC,     OnStartOfDocument},
    {DOCUMENTEVENT_STARTPAGE,    OnNothingToDo    },
    {DOCUMENTEVENT_ENDPAGE,      OnEndOfPage      },
    {DOCUMENTEVENT_ENDDOC,       OnEndOfDocument  },
};

}  // namespace

int DrvDocumentEvent(HANDLE hPrinter, HDC hdc, int iEsc, ULONG cbIn, void* pvIn, ULONG cbOut, void* pvOut)
{
    return AtBoundary(DOCUMENTEVENT_UNSUPPORTED, [&]() -> int {
        const int code = LowWord(static_cast<DWORD>(iEsc));
        for (const Handler& row : Handlers)
            if (row.event == code) return row.handle({hPrinter, hdc, cbIn, pvIn, cbOut, pvOut});
        return DOCUMENTEVENT_UNSUPPORTED;
    });
}
