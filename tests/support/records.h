// Records for tests, made and read by the names of their fields.
#pragma once

#include <gtest/gtest.h>

#include <cstring>
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

inline const RecordField& FieldOf(std::string_view name)
{
    for (const RecordField& field : RecordFields) {
        if (field.name == name) return field;
    }
    throw std::invalid_argument("no field " + std::string(name));
}

inline void SetField(DriverDevMode& record, std::string_view name, std::int64_t value)
{
    const RecordField& field = FieldOf(name);
    std::memcpy(reinterpret_cast<std::uint8_t*>(&record) + field.offset, &value, field.width);
}

inline std::int64_t GetField(const DriverDevMode& record, std::string_view name)
{
    const RecordField& field = FieldOf(name);
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(&record) + field.offset;
    std::int64_t value = 0;
    std::memcpy(&value, bytes, field.width);
    const bool negative = field.kind == FieldKind::Signed && (bytes[field.width - 1] & 0x80) != 0;
    return negative ? value - (std::int64_t{1} << (8 * field.width)) : value;
}

// A legal record that differs from the default one in every field that a merge may touch.
inline DriverDevMode BusyRecord()
{
    DriverDevMode record{};
    record.dmDeviceName[0] = u'B';
    record.dmSpecVersion = 1025;
    record.dmDriverVersion = 296;
    record.dmSize = 220;
    record.dmDriverExtra = 1628;
    record.dmFields = DM_DUPLEX | DM_COLLATE;
    record.dmOrientation = 2;
    record.dmPaperSize = 11;
    record.dmPaperLength = 2480;
    record.dmPaperWidth = 1748;
    record.dmScale = 50;
    record.dmCopies = 7;
    record.dmDefaultSource = 2;
    record.dmPrintQuality = 1200;
    record.dmColor = 2;
    record.dmDuplex = 3;
    record.dmYResolution = 5;
    record.dmTTOption = 2;
    record.dmCollate = 1;
    record.dmFormName[0] = u'F';
    record.dmPrivSignature = 77;
    record.dmPrivReserved = 78;
    record.dmModelParam1 = 1;
    record.dmModelParam2 = 2;
    record.dmModelParam3 = 3;
    record.dmModelParam4 = 4;
    record.dmModelParam5 = 5;
    record.dmModelParam6 = 6;
    record.dmFitToPaper = 1;
    record.dmMediaIndex = 3;
    record.dmZoom = 250;
    record.dmOutputPaper = 5;
    record.dmCollateMode = 1;
    record.dmPaperWidthPriv = 1000;
    record.dmPaperLengthPriv = 2000;
    record.dmNupOn = 1;
    record.dmNupCount = 9;
    record.dmNupVertical = 1;
    record.dmNupDescending = 1;
    record.dmNupBorder = 1;
    record.dmNupModelByte = 7;
    record.dmNupModelValue1 = 8;
    record.dmNupModelValue2 = 9;
    record.dmWatermarkOn = 1;
    record.dmWatermark.wmText[0] = u'W';
    record.dmWatermark.wmSize = 72;
    record.dmImageShiftX = 10;
    record.dmImageShiftY = -10;
    record.dmBookletPaper = 9;
    record.dmDuplexOn = 1;
    record.dmGuidePaper = 0;
    record.dmDuplexBinding = 3;
    record.dmTonerSave = 1;
    record.dmAllRaster = 1;
    record.dmGraphicsMode = 0;
    record.dmTextMode = 1;
    record.dmPrinterTrueType = 0;
    record.dmSmoothtone = 1;
    record.dmResolution = 1200;
    record.dmFixedResolution = 1;
    record.dmProofPrint = 1;
    record.dmTonerDensity = 6;
    record.dmAvailableMemory = 1;
    record.dmTotalMemory = 144;
    record.dmDeviceFlags = 128;
    record.dmPercent = 60;
    record.dmModelFlag = 1;
    record.dmConstantFlag = 9;
    record.dmBookletRight = 1;
    record.dmImageShiftOn = 1;
    record.dmImageRotated = 1;
    record.dmPreviewMode = 1;
    record.dmResolutionChoice = 1200;
    record.dmOverlayState = 1;
    record.dmOverlayFile[0] = u'o';
    record.dmOverlayFirstPage = 1;
    record.dmOverlayReserved[0] = u'r';
    record.dmOverlayIndex = 4;
    return record;
}

}  // namespace testing_support
