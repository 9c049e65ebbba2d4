// What the print subsystem tells about a printer and its driver.
#include <algorithm>
#include <cstring>

#include "platform/kernel/last_error.h"
#include "platform/kernel/system.h"
#include "platform/spooler/handles.h"
#include "platform/spooler/info_block.h"

namespace platform::spooler {

namespace {

constexpr std::u16string_view Environment = u"Windows NT x86";
constexpr DWORD DriverVersion = 3;  // drivers that run with the caller's rights, in folder "3"
constexpr DWORD LocalPrinter = 0x40;

std::u16string DriverDirectory() { return SystemDirectory() + u"\\spool\\DRIVERS\\W32X86"; }

// A record may be stored shorter than it says, or than the public structure; who reads it goes by its own
// size fields, so what is missing is there as zeros.
Bytes WholeRecord(Bytes record)
{
    DEVMODEW header{};
    std::memcpy(&header, record.data(), std::min(record.size(), sizeof header));
    const std::size_t claimed = std::size_t{header.dmSize} + header.dmDriverExtra;
    record.resize(std::max({record.size(), claimed, sizeof header}));
    return record;
}

DWORD PrinterInfo(HANDLE printer, DWORD level, BYTE* target, DWORD room, DWORD* needed)
{
    const Stored stored = Look(printer);
    if (stored.error != ERROR_SUCCESS) return stored.error;
    if (level != 2) return ERROR_INVALID_LEVEL;
    if (needed == nullptr) return ERROR_INVALID_PARAMETER;

    PRINTER_INFO_2W info{};
    InfoBlock block(target, sizeof info);
    const Bytes record = stored.store->DefaultRecord(stored.entry.name);
    if (!record.empty()) {
        const Bytes whole = WholeRecord(record);
        info.pDevMode = reinterpret_cast<DEVMODEW*>(block.Append(whole.data(), whole.size(), alignof(void*)));
    }
    info.pPrinterName = block.Add(stored.entry.name);
    info.pShareName = block.Add(u"");
    info.pPortName = block.Add(u"LPT1:");
    info.pDriverName = block.Add(stored.entry.driverName);
    info.pComment = block.Add(u"");
    info.pLocation = block.Add(u"");
    info.pSepFile = block.Add(u"");
    info.pPrintProcessor = block.Add(u"WinPrint");
    info.pDatatype = block.Add(u"RAW");
    info.pParameters = block.Add(u"");
    info.Attributes = LocalPrinter;
    info.Priority = 1;
    info.DefaultPriority = 1;
    return block.Deliver(info, room, needed);
}

bool KnownEnvironment(const WCHAR* environment)
{
    return environment == nullptr || *environment == u'\0' || environment == Environment;
}

// The fields that both levels of driver information have.
template <class Info>
void FillDriver(Info& info, InfoBlock& block, const Stored& stored)
{
    const std::u16string folder = DriverDirectory() + u"\\3\\";
    info.cVersion = DriverVersion;
    info.pName = block.Add(stored.entry.driverName);
    info.pEnvironment = block.Add(Environment);
    info.pDriverPath = block.Add(folder + u"qd480.dll");
    info.pDataFile = block.Add(folder + u"qd480.dat");
    info.pConfigFile = block.Add(folder + u"qd480ui.dll");
}

DWORD DriverInfo(HANDLE printer, const WCHAR* environment, DWORD level, BYTE* target, DWORD room, DWORD* needed)
{
    const Stored stored = Look(printer);
    if (stored.error != ERROR_SUCCESS) return stored.error;
    if (level != 2 && level != 3) return ERROR_INVALID_LEVEL;
    if (!KnownEnvironment(environment)) return ERROR_INVALID_ENVIRONMENT;
    if (needed == nullptr) return ERROR_INVALID_PARAMETER;

    if (level == 2) {
        DRIVER_INFO_2W info{};
        InfoBlock block(target, sizeof info);
        FillDriver(info, block, stored);
        return block.Deliver(info, room, needed);
    }
    DRIVER_INFO_3W info{};
    InfoBlock block(target, sizeof info);
    FillDriver(info, block, stored);
    info.pDependentFiles = block.Add(std::u16string(1, u'\0'));  // a list of texts, and it is empty
    info.pMonitorName = block.Add(u"");
    info.pDefaultDataType = block.Add(u"RAW");
    return block.Deliver(info, room, needed);
}

DWORD DriverDirectoryInfo(const WCHAR* server, const WCHAR* environment, DWORD level, BYTE* target, DWORD room,
                          DWORD* needed)
{
    if (level != 1) return ERROR_INVALID_LEVEL;
    if (!KnownEnvironment(environment)) return ERROR_INVALID_ENVIRONMENT;
    if (server != nullptr && *server != u'\0') return ERROR_INVALID_NAME;  // no other machine can be reached
    if (needed == nullptr) return ERROR_INVALID_PARAMETER;
    const std::u16string directory = DriverDirectory();
    *needed = static_cast<DWORD>((directory.size() + 1) * sizeof(WCHAR));
    if (room < *needed || target == nullptr) return ERROR_INSUFFICIENT_BUFFER;
    std::memcpy(target, directory.c_str(), *needed);
    return ERROR_SUCCESS;
}

}  // namespace

}  // namespace platform::spooler

using namespace platform;

extern "C" {

BOOL GetPrinterW(HANDLE printer, DWORD level, BYTE* info, DWORD bytes, DWORD* needed)
{
    if (Fault("GetPrinterW", ERROR_GEN_FAILURE)) return FALSE;
    return spooler::Succeeded(
        spooler::Guarded([&] { return spooler::PrinterInfo(printer, level, info, bytes, needed); }));
}

BOOL GetPrinterDriverW(HANDLE printer, WCHAR* environment, DWORD level, BYTE* info, DWORD bytes, DWORD* needed)
{
    if (Fault("GetPrinterDriverW", ERROR_GEN_FAILURE)) return FALSE;
    return spooler::Succeeded(
        spooler::Guarded([&] { return spooler::DriverInfo(printer, environment, level, info, bytes, needed); }));
}

BOOL GetPrinterDriverDirectoryW(WCHAR* server, WCHAR* environment, DWORD level, BYTE* path, DWORD bytes, DWORD* needed)
{
    if (Fault("GetPrinterDriverDirectoryW", ERROR_GEN_FAILURE)) return FALSE;
    return spooler::Succeeded(spooler::DriverDirectoryInfo(server, environment, level, path, bytes, needed));
}

}  // extern "C"
