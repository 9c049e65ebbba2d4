// System services: memory, strings and their conversions, locale, time, version, last error, modules.
// Lengths of wide strings are in characters, sizes of memory in bytes. A call that fails sets the
// thread's last error.
#pragma once

#include "platform/types.h"

// Memory. A fixed block is its address; a movable one is a small handle that GlobalLock turns into an
// address. GlobalFree takes both and gives null on success, its argument on failure.
inline constexpr UINT GMEM_FIXED = 0x0000;
inline constexpr UINT GMEM_MOVEABLE = 0x0002;
inline constexpr UINT GMEM_ZEROINIT = 0x0040;
inline constexpr UINT GPTR = GMEM_FIXED | GMEM_ZEROINIT;
inline constexpr UINT GHND = GMEM_MOVEABLE | GMEM_ZEROINIT;
inline constexpr DWORD HEAP_ZERO_MEMORY = 0x0008;

// Locale and version.
inline constexpr LCID LOCALE_USER_DEFAULT = 0x0400;
inline constexpr LCTYPE LOCALE_ILANGUAGE = 0x0001;
inline constexpr LCTYPE LOCALE_ICOUNTRY = 0x0005;

struct SYSTEMTIME {
    WORD wYear, wMonth, wDayOfWeek, wDay, wHour, wMinute, wSecond, wMilliseconds;
};
static_assert(sizeof(SYSTEMTIME) == 16);

struct OSVERSIONINFOW {
    DWORD dwOSVersionInfoSize;
    DWORD dwMajorVersion;
    DWORD dwMinorVersion;
    DWORD dwBuildNumber;
    DWORD dwPlatformId;
    WCHAR szCSDVersion[128];
};
static_assert(sizeof(OSVERSIONINFOW) == 276);

struct OSVERSIONINFOEXW {
    DWORD dwOSVersionInfoSize;
    DWORD dwMajorVersion;
    DWORD dwMinorVersion;
    DWORD dwBuildNumber;
    DWORD dwPlatformId;
    WCHAR szCSDVersion[128];
    WORD wServicePackMajor;
    WORD wServicePackMinor;
    WORD wSuiteMask;
    BYTE wProductType;
    BYTE wReserved;
};
static_assert(sizeof(OSVERSIONINFOEXW) == 284);

inline constexpr DWORD DLL_PROCESS_ATTACH = 1;
inline constexpr DWORD DLL_PROCESS_DETACH = 0;

extern "C" {

QD_API HGLOBAL GlobalAlloc(UINT flags, SIZE_T bytes);
QD_API HGLOBAL GlobalFree(HGLOBAL block);
QD_API void* GlobalLock(HGLOBAL block);   // null for what is no block; a fixed block gives itself
QD_API BOOL GlobalUnlock(HGLOBAL block);  // not 0 while locks are left

QD_API HANDLE HeapCreate(DWORD options, SIZE_T initialBytes, SIZE_T maximumBytes);
QD_API void* HeapAlloc(HANDLE heap, DWORD flags, SIZE_T bytes);
QD_API BOOL HeapFree(HANDLE heap, DWORD flags, void* block);
QD_API BOOL HeapDestroy(HANDLE heap);  // frees every block of the heap

QD_API DWORD GetLastError();
QD_API void SetLastError(DWORD code);

// Narrow text is in the system's code page. Sizes are in bytes on both sides; what does not fit is cut
// and *written says how many bytes came out. A character without a counterpart becomes '?'.
QD_API NTSTATUS RtlMultiByteToUnicodeN(WCHAR* wide, ULONG wideBytes, ULONG* written, const CHAR* narrow,
                                       ULONG narrowBytes);
QD_API NTSTATUS RtlUnicodeToMultiByteN(CHAR* narrow, ULONG narrowBytes, ULONG* written, const WCHAR* wide,
                                       ULONG wideBytes);

QD_API int lstrlenW(const WCHAR* text);  // 0 for null
QD_API WCHAR* lstrcpyW(WCHAR* target, const WCHAR* source);
QD_API WCHAR* lstrcpynW(WCHAR* target, const WCHAR* source, int chars);
QD_API WCHAR* lstrcatW(WCHAR* target, const WCHAR* source);
QD_API int lstrcmpW(const WCHAR* a, const WCHAR* b);  // case counts

// Formats %d %i %u %x %X %c %s %% with '-', '0', width, precision and the prefixes l and h into at most
// 1024 characters with the terminator; gives the number of characters without it. %ld, %lu, %lx read 32 bits.
QD_API int wsprintfW(WCHAR* target, const WCHAR* format, ...);

// The value with its terminator into text; gives its length in characters, terminator included, also
// when chars is 0 and nothing is written. 0 on failure.
QD_API int GetLocaleInfoW(LCID locale, LCTYPE type, WCHAR* text, int chars);
QD_API UINT GetACP();
QD_API void GetLocalTime(SYSTEMTIME* time);
QD_API BOOL GetVersionExW(OSVERSIONINFOW* info);           // dwOSVersionInfoSize is 276 or 284
QD_API BOOL GetUserNameW(WCHAR* name, DWORD* chars);       // *chars: room, then length with terminator
QD_API UINT GetSystemDirectoryW(WCHAR* path, UINT chars);  // "C:\WINDOWS\system32"

// Absolute form of a path; *filePart points at what follows the last separator, null if nothing does.
QD_API DWORD GetFullPathNameW(const WCHAR* path, DWORD chars, WCHAR* full, WCHAR** filePart);

// Modules. Loading one that is loaded counts only; the first load runs its DllInitialize. System libraries
// ("compstui.dll", "spoolss.dll") are answered by the layer itself.
QD_API HMODULE LoadLibraryW(const WCHAR* path);
QD_API HMODULE LoadLibraryA(const CHAR* path);
QD_API BOOL FreeLibrary(HMODULE module);
QD_API FARPROC GetProcAddress(HMODULE module, const CHAR* name);
QD_API DWORD GetModuleFileNameW(HMODULE module, WCHAR* path, DWORD chars);  // characters without terminator

}  // extern "C"
