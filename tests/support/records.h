// Records for tests, made and read by the names of their fields.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <functional>
#include <sstream>
#include <string_view>
#include <vector>

#include "driver_dev_mode.h"

namespace testing_support {

using RecordImage = std::vector<std::uint8_t>;

template <class T>
RecordImage BytesOf(const T& value)
{
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(&value);
    return {bytes, bytes + sizeof value};
}

// A field of the record, or of the watermark in it.
inline RecordField FieldOf(std::string_view name)
{
    for (const RecordField& field : RecordFields)
        if (field.name == name) return field;
    for (const RecordField& field : WatermarkFields)
        if (field.name == name)
            return {name, offsetof(DriverDevMode, dmWatermark) + field.offset, field.width, field.kind};
    throw std::invalid_argument("no field " + std::string(name));
}

inline void SetField(DriverDevMode& record, std::string_view name, std::int64_t value)
{
    const RecordField field = FieldOf(name);
    std::memcpy(reinterpret_cast<std::uint8_t*>(&record) + field.offset, &value, field.width);
}

inline std::int64_t GetField(const DriverDevMode& record, std::string_view name)
{
    const RecordField field = FieldOf(name);
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(&record) + field.offset;
    std::int64_t value = 0;
    std::memcpy(&value, bytes, field.width);
    const bool negative = field.kind == FieldKind::Signed && (bytes[field.width - 1] & 0x80) != 0;
    return negative ? value - (std::int64_t{1} << (8 * field.width)) : value;
}

// Writes fields, as in "dmNupOn=1 dmNupCount=4".
inline void SetFields(DriverDevMode& record, const std::string& line)
{
    std::istringstream words(line);
    for (std::string word; words >> word;) {
        const std::size_t at = word.find('=');
        SetField(record, word.substr(0, at), std::stoll(word.substr(at + 1), nullptr, 0));
    }
}
inline std::function<void(DriverDevMode&)> Fields(std::string line)
{
    return [line = std::move(line)](DriverDevMode& record) { SetFields(record, line); };
}

// A legal record that differs from the default one in every field that a merge may touch.
inline DriverDevMode BusyRecord()
{
    DriverDevMode record{};
    SetFields(record,
              "dmSpecVersion=1025 dmDriverVersion=296 dmSize=220 dmDriverExtra=1628 dmFields=0x9000 "
              "dmOrientation=2 dmPaperSize=11 dmPaperLength=2480 dmPaperWidth=1748 dmScale=50 dmCopies=7 "
              "dmDefaultSource=2 dmPrintQuality=1200 dmColor=2 dmDuplex=3 dmYResolution=5 dmTTOption=2 dmCollate=1 "
              "dmPrivSignature=77 dmPrivReserved=78 dmModelParam1=1 dmModelParam2=2 dmModelParam3=3 "
              "dmModelParam4=4 dmModelParam5=5 dmModelParam6=6 dmFitToPaper=1 dmMediaIndex=3 dmZoom=250 "
              "dmOutputPaper=5 dmCollateMode=1 dmPaperWidthPriv=1000 dmPaperLengthPriv=2000 dmNupOn=1 dmNupCount=9 "
              "dmNupVertical=1 dmNupDescending=1 dmNupBorder=1 dmNupModelByte=7 dmNupModelValue1=8 "
              "dmNupModelValue2=9 dmWatermarkOn=1 dmImageShiftX=10 dmImageShiftY=-10 dmBookletPaper=9 dmDuplexOn=1 "
              "dmGuidePaper=0 dmDuplexBinding=3 dmTonerSave=1 dmAllRaster=1 dmGraphicsMode=0 dmTextMode=1 "
              "dmPrinterTrueType=0 dmSmoothtone=1 dmResolution=1200 dmFixedResolution=1 dmProofPrint=1 "
              "dmTonerDensity=6 dmAvailableMemory=1 dmTotalMemory=144 dmDeviceFlags=128 dmPercent=60 dmModelFlag=1 "
              "dmConstantFlag=9 dmBookletRight=1 dmImageShiftOn=1 dmImageRotated=1 dmPreviewMode=1 "
              "dmResolutionChoice=1200 dmOverlayState=1 dmOverlayFirstPage=1 dmOverlayIndex=4");
    record.dmDeviceName[0] = u'B';
    record.dmFormName[0] = u'F';
    record.dmWatermark.wmText[0] = u'W';
    record.dmWatermark.wmSize = 72;
    record.dmOverlayFile[0] = u'o';
    record.dmOverlayReserved[0] = u'r';
    return record;
}

}  // namespace testing_support
