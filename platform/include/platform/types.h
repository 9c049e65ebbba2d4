// Basic types of the platform. Wide characters are UTF-16 code units, DWORD and LONG are 32 bits in
// every build, and whatever carries a reference is as wide as the machine's words.
#pragma once

#include <cstddef>
#include <cstdint>

#define QD_API __attribute__((visibility("default")))

using BYTE = std::uint8_t;
using CHAR = char;
using WCHAR = char16_t;
using WORD = std::uint16_t;
using SHORT = std::int16_t;
using DWORD = std::uint32_t;
using LONG = std::int32_t;
using INT = std::int32_t;
using UINT = std::uint32_t;
using ULONG = std::uint32_t;
using BOOL = std::int32_t;
using ATOM = WORD;
using LANGID = WORD;
using LCID = DWORD;
using LCTYPE = DWORD;
using COLORREF = DWORD;  // 0x00BBGGRR
using NTSTATUS = LONG;   // negative: failure

using INT_PTR = std::intptr_t;
using UINT_PTR = std::uintptr_t;
using LONG_PTR = std::intptr_t;
using ULONG_PTR = std::uintptr_t;
using DWORD_PTR = std::uintptr_t;
using SIZE_T = std::size_t;
using WPARAM = std::uintptr_t;
using LPARAM = std::intptr_t;
using LRESULT = std::intptr_t;

// Handles are opaque: small numbers that the layer looks up, never addresses to follow.
using HANDLE = void*;
using HGLOBAL = void*;
using HWND = struct HWND__*;
using HDC = struct HDC__*;
using HGDIOBJ = void*;
using HPEN = struct HPEN__*;
using HBRUSH = struct HBRUSH__*;
using HFONT = struct HFONT__*;
using HBITMAP = struct HBITMAP__*;
using HRGN = struct HRGN__*;
using HICON = struct HICON__*;
using HINSTANCE = struct HINSTANCE__*;
using HMODULE = HINSTANCE;
using HKEY = struct HKEY__*;

using FARPROC = void (*)();

inline constexpr BOOL FALSE = 0;
inline constexpr BOOL TRUE = 1;
inline constexpr int MAX_PATH = 260;

struct POINT {
    LONG x, y;
};
struct SIZE {
    LONG cx, cy;
};
struct RECT {
    LONG left, top, right, bottom;
};

constexpr WORD LowWord(DWORD_PTR value) { return static_cast<WORD>(value & 0xFFFF); }
constexpr WORD HighWord(DWORD_PTR value) { return static_cast<WORD>((value >> 16) & 0xFFFF); }
constexpr DWORD MakeLong(DWORD low, DWORD high) { return (low & 0xFFFF) | (high & 0xFFFF) << 16; }

// Error codes of SetLastError and of the functions that return one.
inline constexpr DWORD ERROR_SUCCESS = 0;
inline constexpr DWORD ERROR_FILE_NOT_FOUND = 2;
inline constexpr DWORD ERROR_ACCESS_DENIED = 5;
inline constexpr DWORD ERROR_INVALID_HANDLE = 6;
inline constexpr DWORD ERROR_NOT_ENOUGH_MEMORY = 8;
inline constexpr DWORD ERROR_OUTOFMEMORY = 14;
inline constexpr DWORD ERROR_GEN_FAILURE = 31;
inline constexpr DWORD ERROR_NOT_SUPPORTED = 50;
inline constexpr DWORD ERROR_INVALID_PARAMETER = 87;
inline constexpr DWORD ERROR_INSUFFICIENT_BUFFER = 122;
inline constexpr DWORD ERROR_INVALID_NAME = 123;
inline constexpr DWORD ERROR_INVALID_LEVEL = 124;
inline constexpr DWORD ERROR_MOD_NOT_FOUND = 126;
inline constexpr DWORD ERROR_PROC_NOT_FOUND = 127;
inline constexpr DWORD ERROR_NOT_LOCKED = 158;
inline constexpr DWORD ERROR_BUSY = 170;
inline constexpr DWORD ERROR_BAD_EXE_FORMAT = 193;
inline constexpr DWORD ERROR_MORE_DATA = 234;
inline constexpr DWORD ERROR_DLL_INIT_FAILED = 1114;
inline constexpr DWORD ERROR_INVALID_WINDOW_HANDLE = 1400;
inline constexpr DWORD ERROR_RESOURCE_TYPE_NOT_FOUND = 1813;
inline constexpr DWORD ERROR_RESOURCE_NAME_NOT_FOUND = 1814;
inline constexpr DWORD ERROR_INVALID_PRINTER_NAME = 1801;
inline constexpr DWORD ERROR_INVALID_ENVIRONMENT = 1805;
