#include "spooler/record_conversion.h"

#include <limits>

#include "boundary.h"
#include "module.h"
#include "resources/control_numbers.h"
#include "settings/defaults.h"
#include "settings/global_block.h"
#include "settings/merge.h"
#include "settings/record_copy.h"
#include "spooler/format_text.h"
#include "spooler/opened_printer.h"
#include "spooler/printer_data.h"

namespace {

constexpr WORD OldPublicSize = 188;
constexpr WORD OldSpecVersion = 800;
// A record's size fields end here; with less room there is no record in a buffer.
constexpr LONG SizeFieldsEnd = offsetof(DEVMODEW, dmFields);

Conversion Fail(DWORD error)
{
    SetLastError(error);
    return Conversion::Failed;
}

Conversion FailForRoom(LONG* pcbNeeded, LONG needed)
{
    *pcbNeeded = needed;
    return Fail(ERROR_INSUFFICIENT_BUFFER);
}

Conversion ConvertToCurrent(const DEVMODEW* pdmIn, DEVMODEW* pdmOut, LONG* pcbNeeded)
{
    if (!pdmOut || !pdmIn || *pcbNeeded < SizeFieldsEnd) return Fail(ERROR_INVALID_PARAMETER);
    const LONG size = static_cast<LONG>(RecordBytes(*pdmOut));
    if (*pcbNeeded < size || CopyRecordParts(pdmIn, pdmOut) <= 0) return Fail(ERROR_INVALID_PARAMETER);
    *pcbNeeded = size;
    return Conversion::Done;
}

Conversion ConvertToOld(const DEVMODEW* pdmIn, DEVMODEW* pdmOut, LONG* pcbNeeded, const RecordSizes& sizes)
{
    const LONG size = OldPublicSize + sizes.oldDriverExtra;
    if (*pcbNeeded < size || !pdmOut) return FailForRoom(pcbNeeded, size);
    pdmOut->dmSpecVersion = OldSpecVersion;
    pdmOut->dmSize = OldPublicSize;
    pdmOut->dmDriverVersion = sizes.oldDriverVersion;
    pdmOut->dmDriverExtra = sizes.oldDriverExtra;
    if (CopyRecordParts(pdmIn, pdmOut) <= 0) return Fail(ERROR_INVALID_PARAMETER);
    *pcbNeeded = size;
    return Conversion::Done;
}

Conversion AskForDefault(DEVMODEW* pdmOut, LONG* pcbNeeded, const RecordSizes& sizes)
{
    const LONG size = RecordPublicSize + sizes.currentDriverExtra;
    if (*pcbNeeded < size || !pdmOut) return FailForRoom(pcbNeeded, size);
    *pcbNeeded = size;
    return Conversion::CallerFinishes;
}

bool FillWithDefault(const WCHAR* printerName, DEVMODEW* pdmOut)
{
    const OpenedPrinter printer(printerName, 0);
    if (!printer) return false;
    const auto driver = GetDriverInfo(printer.Handle(), 2);
    if (!driver) return false;
    BuildDefaultSettings(reinterpret_cast<DriverDevMode*>(pdmOut), InfoIn<DRIVER_INFO_2W>(driver).pName, printerName,
                         0);
    return true;
}

// The limit of a message's buffer. One that no number of characters reaches says only that there is room.
int MessageRoom(DWORD limit)
{
    return limit <= DWORD{std::numeric_limits<int>::max()} ? static_cast<int>(limit) : FormatStringChars;
}

// 0 if the record of a job can be used, else the string that says why not.
UINT WhyNotPrintable(const DEVMODEW* record)
{
    const auto settings = AllocateBlock<DriverDevMode>(RecordSize);
    if (!settings) return IDS_NO_MEMORY;
    if (!BuildDefaultSettings(settings.get(), nullptr, u"", 0) || !MergeSettings(settings.get(), record))
        return IDS_INVALID_DEVMODE;
    return 0;
}

}  // namespace

Conversion ConvertRecord(const WCHAR* /*printerName*/, const DEVMODEW* pdmIn, DEVMODEW* pdmOut, LONG* pcbNeeded,
                         DWORD mode, const RecordSizes& sizes)
{
    if (!pcbNeeded) return Fail(ERROR_INVALID_PARAMETER);
    switch (mode) {
        case CDM_CONVERT:
            return ConvertToCurrent(pdmIn, pdmOut, pcbNeeded);
        case CDM_CONVERT351:
            return ConvertToOld(pdmIn, pdmOut, pcbNeeded, sizes);
        case CDM_DRIVER_DEFAULT:
            return AskForDefault(pdmOut, pcbNeeded, sizes);
        default:
            return Conversion::CallerFinishes;
    }
}

BOOL DrvConvertDevMode(const WCHAR* printerName, const DEVMODEW* pdmIn, DEVMODEW* pdmOut, LONG* pcbNeeded, DWORD mode)
{
    return AtBoundary(FALSE, [&]() -> BOOL {
        const Conversion result = ConvertRecord(printerName, pdmIn, pdmOut, pcbNeeded, mode, ConversionSizes);
        if (result == Conversion::CallerFinishes && mode == CDM_DRIVER_DEFAULT)
            return FillWithDefault(printerName, pdmOut);
        return result == Conversion::Done;
    });
}

BOOL DevQueryPrintEx(DEVQUERYPRINT_INFO* info)
{
    return AtBoundary(FALSE, [&]() -> BOOL {
        if (!info->pDevMode) return TRUE;
        const UINT message = WhyNotPrintable(info->pDevMode);
        if (!message) return TRUE;
        FormatText(ResourceHandle, info->pszErrorStr, MessageRoom(info->cchErrorStr), &info->cchNeeded, u"%!",
                   {static_cast<LONG>(message)});
        return FALSE;
    });
}
