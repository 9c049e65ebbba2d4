// The print subsystem: printers, what is stored with them, drivers, and the documents' device settings.
#pragma once

#include "platform/types.h"

inline constexpr DWORD PRINTER_ACCESS_ADMINISTER = 0x00004;
inline constexpr DWORD PRINTER_ACCESS_USE = 0x00008;
inline constexpr DWORD PRINTER_READ = 0x20008;
inline constexpr DWORD PRINTER_ALL_ACCESS = 0xF000C;

// The public device-mode structure, 220 bytes. The paper and scale fields stand where a union of the
// platform has its printer branch.
struct DEVMODEW {
    WCHAR dmDeviceName[32];
    WORD dmSpecVersion;
    WORD dmDriverVersion;
    WORD dmSize;
    WORD dmDriverExtra;
    DWORD dmFields;
    SHORT dmOrientation;
    SHORT dmPaperSize;
    SHORT dmPaperLength;
    SHORT dmPaperWidth;
    SHORT dmScale;
    SHORT dmCopies;
    SHORT dmDefaultSource;
    SHORT dmPrintQuality;
    SHORT dmColor;
    SHORT dmDuplex;
    SHORT dmYResolution;
    SHORT dmTTOption;
    SHORT dmCollate;
    WCHAR dmFormName[32];
    WORD dmLogPixels;
    DWORD dmBitsPerPel;
    DWORD dmPelsWidth;
    DWORD dmPelsHeight;
    DWORD dmDisplayFlags;
    DWORD dmDisplayFrequency;
    DWORD dmICMMethod;
    DWORD dmICMIntent;
    DWORD dmMediaType;
    DWORD dmDitherType;
    DWORD dmReserved1;
    DWORD dmReserved2;
    DWORD dmPanningWidth;
    DWORD dmPanningHeight;
};
static_assert(sizeof(DEVMODEW) == 220);

inline constexpr DWORD DM_ORIENTATION = 0x00000001;
inline constexpr DWORD DM_PAPERSIZE = 0x00000002;
inline constexpr DWORD DM_PAPERLENGTH = 0x00000004;
inline constexpr DWORD DM_PAPERWIDTH = 0x00000008;
inline constexpr DWORD DM_SCALE = 0x00000010;
inline constexpr DWORD DM_COPIES = 0x00000100;
inline constexpr DWORD DM_DEFAULTSOURCE = 0x00000200;
inline constexpr DWORD DM_PRINTQUALITY = 0x00000400;
inline constexpr DWORD DM_COLOR = 0x00000800;
inline constexpr DWORD DM_DUPLEX = 0x00001000;
inline constexpr DWORD DM_YRESOLUTION = 0x00002000;
inline constexpr DWORD DM_TTOPTION = 0x00004000;
inline constexpr DWORD DM_COLLATE = 0x00008000;
inline constexpr DWORD DM_FORMNAME = 0x00010000;

// Modes of the document-properties calls.
inline constexpr DWORD DM_UPDATE = 0x1;
inline constexpr DWORD DM_COPY = 0x2;
inline constexpr DWORD DM_PROMPT = 0x4;
inline constexpr DWORD DM_MODIFY = 0x8;
inline constexpr DWORD DM_ADVANCED = 0x10;
inline constexpr DWORD DM_NOPERMISSION = 0x20;

// Capability codes.
inline constexpr WORD DC_FIELDS = 1;
inline constexpr WORD DC_PAPERS = 2;
inline constexpr WORD DC_PAPERSIZE = 3;
inline constexpr WORD DC_MINEXTENT = 4;
inline constexpr WORD DC_MAXEXTENT = 5;
inline constexpr WORD DC_BINS = 6;
inline constexpr WORD DC_DUPLEX = 7;
inline constexpr WORD DC_SIZE = 8;
inline constexpr WORD DC_EXTRA = 9;
inline constexpr WORD DC_VERSION = 10;
inline constexpr WORD DC_DRIVER = 11;
inline constexpr WORD DC_BINNAMES = 12;
inline constexpr WORD DC_ENUMRESOLUTIONS = 13;
inline constexpr WORD DC_FILEDEPENDENCIES = 14;
inline constexpr WORD DC_TRUETYPE = 15;
inline constexpr WORD DC_PAPERNAMES = 16;
inline constexpr WORD DC_ORIENTATION = 17;
inline constexpr WORD DC_COPIES = 18;
inline constexpr WORD DC_MEDIAREADY = 29;
inline constexpr WORD DC_STAPLE = 30;
inline constexpr WORD DC_PRINTRATEPPM = 31;
inline constexpr WORD DC_COLORDEVICE = 32;

struct PRINTER_DEFAULTSW {
    WCHAR* pDatatype;
    DEVMODEW* pDevMode;
    DWORD DesiredAccess;
};

struct PRINTER_INFO_2W {
    WCHAR* pServerName;
    WCHAR* pPrinterName;
    WCHAR* pShareName;
    WCHAR* pPortName;
    WCHAR* pDriverName;
    WCHAR* pComment;
    WCHAR* pLocation;
    DEVMODEW* pDevMode;  // null if the printer has no stored default record
    WCHAR* pSepFile;
    WCHAR* pPrintProcessor;
    WCHAR* pDatatype;
    WCHAR* pParameters;
    void* pSecurityDescriptor;
    DWORD Attributes;
    DWORD Priority;
    DWORD DefaultPriority;
    DWORD StartTime;
    DWORD UntilTime;
    DWORD Status;
    DWORD cJobs;
    DWORD AveragePPM;
};
static_assert(sizeof(void*) != 4 || sizeof(PRINTER_INFO_2W) == 84);

struct DRIVER_INFO_2W {
    DWORD cVersion;
    WCHAR* pName;
    WCHAR* pEnvironment;
    WCHAR* pDriverPath;
    WCHAR* pDataFile;
    WCHAR* pConfigFile;
};
static_assert(sizeof(void*) != 4 || sizeof(DRIVER_INFO_2W) == 24);

struct DRIVER_INFO_3W {
    DWORD cVersion;
    WCHAR* pName;
    WCHAR* pEnvironment;
    WCHAR* pDriverPath;
    WCHAR* pDataFile;
    WCHAR* pConfigFile;
    WCHAR* pHelpFile;  // null if the driver has none
    WCHAR* pDependentFiles;
    WCHAR* pMonitorName;
    WCHAR* pDefaultDataType;
};
static_assert(sizeof(void*) != 4 || sizeof(DRIVER_INFO_3W) == 40);

struct DOCUMENTPROPERTYHEADER {
    WORD cbSize;
    WORD Reserved;
    HANDLE hPrinter;
    WCHAR* pszPrinterName;
    DEVMODEW* pdmIn;
    DEVMODEW* pdmOut;
    DWORD cbOut;  // bytes that pdmOut has room for
    DWORD fMode;
};
static_assert(sizeof(void*) != 4 || sizeof(DOCUMENTPROPERTYHEADER) == 28);

struct DEVICEPROPERTYHEADER {
    WORD cbSize;
    WORD Flags;
    HANDLE hPrinter;
    WCHAR* pszPrinterName;
};
static_assert(sizeof(void*) != 4 || sizeof(DEVICEPROPERTYHEADER) == 12);
inline constexpr WORD DPS_NOPERMISSION = 0x0001;

struct DEVQUERYPRINT_INFO {
    WORD cbSize;
    WORD Level;
    HANDLE hPrinter;
    DEVMODEW* pDevMode;
    WCHAR* pszErrorStr;
    DWORD cchErrorStr;
    DWORD cchNeeded;
};
static_assert(sizeof(void*) != 4 || sizeof(DEVQUERYPRINT_INFO) == 24);

// Modes of the device-mode conversion.
inline constexpr DWORD CDM_CONVERT = 1;
inline constexpr DWORD CDM_CONVERT351 = 2;
inline constexpr DWORD CDM_DRIVER_DEFAULT = 4;

struct DRIVER_UPGRADE_INFO_1W {
    WCHAR* pPrinterName;
    WCHAR* pOldDriverDirectory;
};
static_assert(sizeof(void*) != 4 || sizeof(DRIVER_UPGRADE_INFO_1W) == 8);

// Printer events.
inline constexpr int PRINTER_EVENT_CONFIGURATION_CHANGE = 0;
inline constexpr int PRINTER_EVENT_ADD_CONNECTION = 1;
inline constexpr int PRINTER_EVENT_DELETE_CONNECTION = 2;
inline constexpr int PRINTER_EVENT_INITIALIZE = 3;
inline constexpr int PRINTER_EVENT_DELETE = 4;
inline constexpr int PRINTER_EVENT_CACHE_REFRESH = 5;
inline constexpr int PRINTER_EVENT_CACHE_DELETE = 6;

// Document events and their results.
inline constexpr int DOCUMENTEVENT_CREATEDCPRE = 1;
inline constexpr int DOCUMENTEVENT_CREATEDCPOST = 2;
inline constexpr int DOCUMENTEVENT_RESETDCPRE = 3;
inline constexpr int DOCUMENTEVENT_RESETDCPOST = 4;
inline constexpr int DOCUMENTEVENT_STARTDOC = 5;
inline constexpr int DOCUMENTEVENT_STARTPAGE = 6;
inline constexpr int DOCUMENTEVENT_ENDPAGE = 7;
inline constexpr int DOCUMENTEVENT_ENDDOC = 8;
inline constexpr int DOCUMENTEVENT_ABORTDOC = 9;
inline constexpr int DOCUMENTEVENT_DELETEDC = 10;
inline constexpr int DOCUMENTEVENT_ESCAPE = 11;
inline constexpr int DOCUMENTEVENT_SUCCESS = 1;
inline constexpr int DOCUMENTEVENT_UNSUPPORTED = 0;
inline constexpr int DOCUMENTEVENT_FAILURE = -1;

extern "C" {

QD_API BOOL OpenPrinterW(WCHAR* name, HANDLE* printer, PRINTER_DEFAULTSW* defaults);
QD_API BOOL ClosePrinter(HANDLE printer);

// Stored values. Both give an error code, 0 on success. A read with too little room gives ERROR_MORE_DATA
// and the needed bytes, a value that is not there ERROR_FILE_NOT_FOUND.
QD_API DWORD GetPrinterDataW(HANDLE printer, WCHAR* name, DWORD* type, BYTE* data, DWORD bytes, DWORD* needed);
QD_API DWORD SetPrinterDataW(HANDLE printer, WCHAR* name, DWORD type, BYTE* data, DWORD bytes);

// One block with all strings behind the structure. Too little room: FALSE, error 122, *needed set.
QD_API BOOL GetPrinterW(HANDLE printer, DWORD level, BYTE* info, DWORD bytes, DWORD* needed);  // level 2
QD_API BOOL GetPrinterDriverW(HANDLE printer, WCHAR* environment, DWORD level, BYTE* info, DWORD bytes,
                              DWORD* needed);  // levels 2 and 3
QD_API BOOL GetPrinterDriverDirectoryW(WCHAR* server, WCHAR* environment, DWORD level, BYTE* path, DWORD bytes,
                                       DWORD* needed);  // level 1: the path as a wide string

}  // extern "C"
