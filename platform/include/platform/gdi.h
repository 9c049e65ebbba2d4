// Drawing services: device contexts, their state and mapping, objects, shapes, text, block transfers, escapes.
// Coordinates are logical units of the context; colours are 0x00BBGGRR.
#pragma once

#include "platform/types.h"

constexpr COLORREF RGB(int red, int green, int blue)
{
    return static_cast<COLORREF>((red & 0xFF) | (green & 0xFF) << 8 | (blue & 0xFF) << 16);
}

inline constexpr int PS_SOLID = 0;
inline constexpr int PS_DASH = 1;
inline constexpr int PS_DOT = 2;
inline constexpr int PS_NULL = 5;

inline constexpr int WHITE_BRUSH = 0;
inline constexpr int LTGRAY_BRUSH = 1;
inline constexpr int GRAY_BRUSH = 2;
inline constexpr int DKGRAY_BRUSH = 3;
inline constexpr int BLACK_BRUSH = 4;
inline constexpr int NULL_BRUSH = 5;
inline constexpr int WHITE_PEN = 6;
inline constexpr int BLACK_PEN = 7;
inline constexpr int NULL_PEN = 8;
inline constexpr int OEM_FIXED_FONT = 10;
inline constexpr int ANSI_FIXED_FONT = 11;
inline constexpr int ANSI_VAR_FONT = 12;
inline constexpr int SYSTEM_FONT = 13;
inline constexpr int DEVICE_DEFAULT_FONT = 14;
inline constexpr int DEFAULT_PALETTE = 15;
inline constexpr int SYSTEM_FIXED_FONT = 16;
inline constexpr int DEFAULT_GUI_FONT = 17;

inline constexpr int TRANSPARENT = 1;
inline constexpr int OPAQUE = 2;
inline constexpr int R2_BLACK = 1;
inline constexpr int R2_COPYPEN = 13;
inline constexpr int R2_WHITE = 16;

inline constexpr int MM_TEXT = 1;
inline constexpr int MM_ISOTROPIC = 7;
inline constexpr int MM_ANISOTROPIC = 8;

inline constexpr UINT TA_LEFT = 0;
inline constexpr UINT TA_TOP = 0;
inline constexpr UINT TA_UPDATECP = 1;
inline constexpr UINT TA_RIGHT = 2;
inline constexpr UINT TA_CENTER = 6;
inline constexpr UINT TA_BOTTOM = 8;
inline constexpr UINT TA_BASELINE = 24;
inline constexpr UINT GDI_ERROR = 0xFFFFFFFF;

inline constexpr UINT ETO_OPAQUE = 0x0002;
inline constexpr UINT ETO_CLIPPED = 0x0004;

inline constexpr DWORD SRCCOPY = 0x00CC0020;
inline constexpr DWORD SRCAND = 0x008800C6;
inline constexpr DWORD SRCINVERT = 0x00660046;
inline constexpr DWORD SRCPAINT = 0x00EE0086;

inline constexpr COLORREF CLR_INVALID = 0xFFFFFFFF;
inline constexpr int ERROR_REGION = 0;
inline constexpr int NULLREGION = 1;
inline constexpr int SIMPLEREGION = 2;
inline constexpr int COMPLEXREGION = 3;

inline constexpr int HORZRES = 8;
inline constexpr int VERTRES = 10;
inline constexpr int BITSPIXEL = 12;
inline constexpr int LOGPIXELSX = 88;
inline constexpr int LOGPIXELSY = 90;
inline constexpr int PHYSICALWIDTH = 110;
inline constexpr int PHYSICALHEIGHT = 111;
inline constexpr int PHYSICALOFFSETX = 112;
inline constexpr int PHYSICALOFFSETY = 113;

inline constexpr int LF_FACESIZE = 32;
struct LOGFONTW {
    LONG lfHeight;  // below 0: height of the characters; above: of the cell; logical units
    LONG lfWidth;
    LONG lfEscapement;  // tenths of a degree, counter-clockwise
    LONG lfOrientation;
    LONG lfWeight;
    BYTE lfItalic;
    BYTE lfUnderline;
    BYTE lfStrikeOut;
    BYTE lfCharSet;
    BYTE lfOutPrecision;
    BYTE lfClipPrecision;
    BYTE lfQuality;
    BYTE lfPitchAndFamily;
    WCHAR lfFaceName[LF_FACESIZE];
};
static_assert(sizeof(LOGFONTW) == 92);

struct TEXTMETRICW {
    LONG tmHeight, tmAscent, tmDescent, tmInternalLeading, tmExternalLeading, tmAveCharWidth, tmMaxCharWidth;
    LONG tmWeight, tmOverhang, tmDigitizedAspectX, tmDigitizedAspectY;
    WCHAR tmFirstChar, tmLastChar, tmDefaultChar, tmBreakChar;
    BYTE tmItalic, tmUnderlined, tmStruckOut, tmPitchAndFamily, tmCharSet;
};

inline constexpr DWORD RASTER_FONTTYPE = 1;
inline constexpr DWORD DEVICE_FONTTYPE = 2;
inline constexpr DWORD TRUETYPE_FONTTYPE = 4;
// Called once per family (no face given) or per style (a face given); 0 ends the enumeration.
using FONTENUMPROCW = int (*)(const LOGFONTW* font, const TEXTMETRICW* metrics, DWORD fontType, LPARAM parameter);

struct BITMAP {
    LONG bmType;
    LONG bmWidth;
    LONG bmHeight;
    LONG bmWidthBytes;
    WORD bmPlanes;
    WORD bmBitsPixel;
    void* bmBits;
};

extern "C" {

QD_API HDC CreateCompatibleDC(HDC context);  // null: compatible with the screen
QD_API BOOL DeleteDC(HDC context);
QD_API int GetDeviceCaps(HDC context, int index);

QD_API HPEN CreatePen(int style, int width, COLORREF color);
QD_API HBRUSH CreateSolidBrush(COLORREF color);
QD_API HFONT CreateFontIndirectW(const LOGFONTW* font);
QD_API HRGN CreateRectRgn(int left, int top, int right, int bottom);
QD_API HBITMAP CreateBitmap(int width, int height, UINT planes, UINT bitsPerPixel, const void* bits);
QD_API HGDIOBJ GetStockObject(int index);
QD_API HGDIOBJ SelectObject(HDC context, HGDIOBJ object);  // the object before; for regions the kind
QD_API BOOL DeleteObject(HGDIOBJ object);
QD_API int GetObjectW(HGDIOBJ object, int bytes, void* description);  // BITMAP or LOGFONTW; bytes written

// Each gives the value before, 0 (CLR_INVALID, GDI_ERROR) on failure.
QD_API int SetBkMode(HDC context, int mode);
QD_API COLORREF SetBkColor(HDC context, COLORREF color);
QD_API COLORREF SetTextColor(HDC context, COLORREF color);
QD_API UINT SetTextAlign(HDC context, UINT align);
QD_API UINT GetTextAlign(HDC context);
QD_API int SetROP2(HDC context, int mode);
QD_API int SetMapMode(HDC context, int mode);
// *before may be null. Extents matter in MM_ISOTROPIC and MM_ANISOTROPIC only; in other modes setting
// them is ignored and reported as done.
QD_API BOOL SetWindowOrgEx(HDC context, int x, int y, POINT* before);
QD_API BOOL SetViewportOrgEx(HDC context, int x, int y, POINT* before);
QD_API BOOL SetWindowExtEx(HDC context, int x, int y, SIZE* before);
QD_API BOOL SetViewportExtEx(HDC context, int x, int y, SIZE* before);
QD_API int SelectClipRgn(HDC context, HRGN region);  // device units; null: no clip

QD_API BOOL Rectangle(HDC context, int left, int top, int right, int bottom);
QD_API BOOL Polygon(HDC context, const POINT* points, int count);
QD_API BOOL MoveToEx(HDC context, int x, int y, POINT* before);
QD_API BOOL LineTo(HDC context, int x, int y);
QD_API BOOL Arc(HDC context, int left, int top, int right, int bottom, int startX, int startY, int endX, int endY);
QD_API BOOL FillRgn(HDC context, HRGN region, HBRUSH brush);
QD_API BOOL PaintRgn(HDC context, HRGN region);
QD_API COLORREF GetPixel(HDC context, int x, int y);  // memory contexts

QD_API BOOL TextOutW(HDC context, int x, int y, const WCHAR* text, int length);
QD_API BOOL ExtTextOutW(HDC context, int x, int y, UINT options, const RECT* rectangle, const WCHAR* text, UINT length,
                        const INT* advances);
QD_API BOOL GetTextExtentPointW(HDC context, const WCHAR* text, int length, SIZE* extent);  // logical units
QD_API int EnumFontsW(HDC context, const WCHAR* face, FONTENUMPROCW callback, LPARAM parameter);

QD_API BOOL StretchBlt(HDC target, int x, int y, int width, int height, HDC source, int sourceX, int sourceY,
                       int sourceWidth, int sourceHeight, DWORD operation);

// Above 0: done; 0: not supported; below 0: failed. Only a job's context takes escapes.
QD_API int ExtEscape(HDC context, int code, int inputBytes, const CHAR* input, int outputBytes, CHAR* output);

}  // extern "C"
