// The settings record: every choice that a user or an application makes for a job or for the printer.
// 1848 bytes: the platform's public structure of 220 bytes, then the private section of 1628. It crosses
// process boundaries and is stored, so every offset, width and reserved byte is part of its format; all
// integers are little-endian. The module and the programs around it share this header.
//
// Units stand behind the fields. Wide strings end at their terminator and are zero-filled behind it.
#pragma once

#include <bit>
#include <cstddef>
#include <span>
#include <string_view>
#include <type_traits>

#include "platform/spooler.h"

static_assert(std::endian::native == std::endian::little);

inline constexpr WORD RecordSpecVersion1025 = 1025;
inline constexpr WORD RecordDriverVersion = 296;
inline constexpr WORD RecordPublicSize = 220;
inline constexpr WORD RecordPrivateSize = 1628;
inline constexpr std::size_t RecordSize = 1848;

// A record's bytes come from callers and stores, and the public part is also used as the platform's
// structure, so access to a record may alias whatever the bytes were written as.
struct [[gnu::may_alias]] WatermarkRecord {
    SHORT wmId;            // slot number; 0 is the row without a watermark
    WCHAR wmName[73];      // shown in lists
    WCHAR wmText[74];      // printed; at most 72 characters
    LONG wmRemovable;      // 0 or 1
    SHORT wmShading;       // percent, 5..100
    WCHAR wmFaceName[32];  // typeface
    SHORT wmSize;          // points, 8..200
    SHORT wmSizeLow;       // points; follows the size downwards
    SHORT wmPositionY;     // -100..100; 0 is the middle of the printable height
    SHORT wmPositionX;     // -100..100; 0 is the middle of the printable width
    WORD wmReserved;
    LONG wmItalic;          // 0 or 1
    LONG wmBold;            // 0 or 1
    SHORT wmAngle;          // degrees, counter-clockwise, -180..180
    SHORT wmAngleMode;      // 0 horizontal, 1 vertical, 2 diagonal, 3 as the angle says
    SHORT wmPositionMode;   // 0 centre, 1 as the positions say
    SHORT wmFirstPageOnly;  // 0 or 1; only in the settings record
    LONG wmListHandle;      // memory handle of the row's node in its list; without meaning elsewhere
};

struct [[gnu::may_alias]] DriverDevMode {
    // Public part: the fields of DEVMODEW, one by one.
    WCHAR dmDeviceName[32];
    WORD dmSpecVersion;
    WORD dmDriverVersion;
    WORD dmSize;
    WORD dmDriverExtra;
    DWORD dmFields;
    SHORT dmOrientation;  // 1 portrait, 2 landscape
    SHORT dmPaperSize;    // paper code; 256 custom, 257 and up the stored custom sizes
    SHORT dmPaperLength;  // dots at 300 dpi; tenths of a millimetre for code 256 and towards some applications
    SHORT dmPaperWidth;   // as dmPaperLength
    SHORT dmScale;        // percent; carried
    SHORT dmCopies;
    SHORT dmDefaultSource;  // bin code
    SHORT dmPrintQuality;   // dots per inch
    SHORT dmColor;
    SHORT dmDuplex;  // carried
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

    // Private section.
    DWORD dmPrivSignature;  // "PRIV"
    LONG dmPrivReserved;
    BYTE dmReserved228[24];
    SHORT dmModelParam1;
    SHORT dmModelParam2;
    SHORT dmModelIndex;  // row of the model table
    SHORT dmModelParam3;
    SHORT dmModelParam4;
    BYTE dmFitToPaper;  // 0 no scaling, 1 by dmZoom, 2 fit to dmOutputPaper
    BYTE dmReserved263;
    SHORT dmMediaIndex;      // row of the media table
    SHORT dmZoom;            // percent, 20..400
    SHORT dmOutputPaper;     // paper code
    SHORT dmCollateMode;     // 0 uncollated, 1 collated
    SHORT dmPaperWidthPriv;  // in the unit that dmPaperWidth had when it was last chosen
    SHORT dmPaperLengthPriv;
    BYTE dmNupOn;
    BYTE dmReserved277;
    SHORT dmNupCount;      // pages per sheet
    BYTE dmNupVertical;    // 0 rows first, 1 columns first
    BYTE dmNupDescending;  // 0 ascending, 1 descending
    BYTE dmNupBorder;
    BYTE dmReserved283;  // travels with dmNupCount
    BYTE dmNupModelByte;
    BYTE dmReserved285;
    SHORT dmNupModelValue1;
    SHORT dmNupModelValue2;
    WORD dmReserved290;
    DWORD dmWatermarkOn;
    WatermarkRecord dmWatermark;
    SHORT dmImageShiftX;    // points, -50..50
    SHORT dmImageShiftY;    // points, -25..25
    SHORT dmBookletPaper;   // paper code that a booklet is laid out on; 0 no booklet
    SHORT dmDuplexOn;       // two-sided printing
    DWORD dmGuidePaper;     // 0 or 1
    SHORT dmDuplexBinding;  // 3 short edge, 1 long edge, 0 neither
    BYTE dmTonerSave;
    BYTE dmAllRaster;
    BYTE dmGraphicsMode;     // 0, 1, 2
    BYTE dmTextMode;         // 0, 1, 2
    BYTE dmPrinterTrueType;  // 0 or 1
    BYTE dmSmoothtone;       // 0 off, 1 light, 2 medium, 3 dark
    SHORT dmResolution;      // dots per inch
    SHORT dmModelParam5;
    SHORT dmFixedResolution;  // 1 locks the resolution to the first of the list
    SHORT dmProofPrint;
    SHORT dmTonerDensity;     // 0 lightest to 6 darkest
    SHORT dmAvailableMemory;  // kilobytes, low 16 bits
    SHORT dmTotalMemory;      // megabytes
    WORD dmReserved726;
    DWORD dmDeviceFlags;  // bit 7: Tray2 is installed
    SHORT dmPercent;
    SHORT dmModelParam6;
    BYTE dmModelFlag;
    BYTE dmConstantFlag;
    BYTE dmReserved738[26];
    SHORT dmBookletRight;  // 0 left binding, 1 right binding
    BYTE dmReserved766[20];
    SHORT dmImageShiftOn;
    SHORT dmImageRotated;
    SHORT dmPreviewMode;       // 0 page layout, 1 printer figure
    SHORT dmResolutionChoice;  // 600, 2 (1200 x 600), 1200
    SHORT dmOverlayState;      // 0 none, 1 chosen, 2 this job makes one
    WCHAR dmOverlayFile[262];  // "0": never chosen
    SHORT dmOverlayFirstPage;  // 0 or 1
    WCHAR dmOverlayReserved[262];
    SHORT dmOverlayIndex;  // row of the overlay list; 0 is the row without an overlay
};

inline DEVMODEW* PublicPart(DriverDevMode* record) { return reinterpret_cast<DEVMODEW*>(record); }
inline const DEVMODEW* PublicPart(const DriverDevMode* record) { return reinterpret_cast<const DEVMODEW*>(record); }

enum class FieldKind { Signed, Unsigned, WideText, Nested };

// A field of a record; offset and width in bytes. The fields of a nested one are WatermarkFields.
struct RecordField {
    std::string_view name;
    std::size_t offset, width;
    FieldKind kind;
};

template <class T>
constexpr FieldKind KindOf()
{
    if (std::is_array_v<T>) return FieldKind::WideText;
    if (std::is_class_v<T>) return FieldKind::Nested;
    return std::is_signed_v<T> ? FieldKind::Signed : FieldKind::Unsigned;
}

// One row of a table below: the name, where the compiler has put the field, and where its format has it.
// The two must agree, in place, width and kind.
template <auto Member>
struct MemberType;
template <class Record, class T, T Record::*Member>
struct MemberType<Member> {
    using Type = T;
};

template <auto Member>
constexpr RecordField Field(std::string_view name, std::size_t placed, std::size_t offset, std::size_t width,
                            FieldKind kind)
{
    using T = typename MemberType<Member>::Type;
    if (placed != offset || sizeof(T) != width || KindOf<T>() != kind) throw "the record is not laid out as its format";
    return {name, offset, width, kind};
}

namespace record_tables {

using enum FieldKind;
using R = DriverDevMode;
using W = WatermarkRecord;

// clang-format off
inline constexpr RecordField Watermark[] = {
    Field<&W::wmId>("wmId", offsetof(W, wmId), 0, 2, Signed),
    Field<&W::wmName>("wmName", offsetof(W, wmName), 2, 146, WideText),
    Field<&W::wmText>("wmText", offsetof(W, wmText), 148, 148, WideText),
    Field<&W::wmRemovable>("wmRemovable", offsetof(W, wmRemovable), 296, 4, Signed),
    Field<&W::wmShading>("wmShading", offsetof(W, wmShading), 300, 2, Signed),
    Field<&W::wmFaceName>("wmFaceName", offsetof(W, wmFaceName), 302, 64, WideText),
    Field<&W::wmSize>("wmSize", offsetof(W, wmSize), 366, 2, Signed),
    Field<&W::wmSizeLow>("wmSizeLow", offsetof(W, wmSizeLow), 368, 2, Signed),
    Field<&W::wmPositionY>("wmPositionY", offsetof(W, wmPositionY), 370, 2, Signed),
    Field<&W::wmPositionX>("wmPositionX", offsetof(W, wmPositionX), 372, 2, Signed),
    Field<&W::wmItalic>("wmItalic", offsetof(W, wmItalic), 376, 4, Signed),
    Field<&W::wmBold>("wmBold", offsetof(W, wmBold), 380, 4, Signed),
    Field<&W::wmAngle>("wmAngle", offsetof(W, wmAngle), 384, 2, Signed),
    Field<&W::wmAngleMode>("wmAngleMode", offsetof(W, wmAngleMode), 386, 2, Signed),
    Field<&W::wmPositionMode>("wmPositionMode", offsetof(W, wmPositionMode), 388, 2, Signed),
    Field<&W::wmFirstPageOnly>("wmFirstPageOnly", offsetof(W, wmFirstPageOnly), 390, 2, Signed),
    Field<&W::wmListHandle>("wmListHandle", offsetof(W, wmListHandle), 392, 4, Signed),
};

inline constexpr RecordField Record[] = {
    Field<&R::dmDeviceName>("dmDeviceName", offsetof(R, dmDeviceName), 0, 64, WideText),
    Field<&R::dmSpecVersion>("dmSpecVersion", offsetof(R, dmSpecVersion), 64, 2, Unsigned),
    Field<&R::dmDriverVersion>("dmDriverVersion", offsetof(R, dmDriverVersion), 66, 2, Unsigned),
    Field<&R::dmSize>("dmSize", offsetof(R, dmSize), 68, 2, Unsigned),
    Field<&R::dmDriverExtra>("dmDriverExtra", offsetof(R, dmDriverExtra), 70, 2, Unsigned),
    Field<&R::dmFields>("dmFields", offsetof(R, dmFields), 72, 4, Unsigned),
    Field<&R::dmOrientation>("dmOrientation", offsetof(R, dmOrientation), 76, 2, Signed),
    Field<&R::dmPaperSize>("dmPaperSize", offsetof(R, dmPaperSize), 78, 2, Signed),
    Field<&R::dmPaperLength>("dmPaperLength", offsetof(R, dmPaperLength), 80, 2, Signed),
    Field<&R::dmPaperWidth>("dmPaperWidth", offsetof(R, dmPaperWidth), 82, 2, Signed),
    Field<&R::dmScale>("dmScale", offsetof(R, dmScale), 84, 2, Signed),
    Field<&R::dmCopies>("dmCopies", offsetof(R, dmCopies), 86, 2, Signed),
    Field<&R::dmDefaultSource>("dmDefaultSource", offsetof(R, dmDefaultSource), 88, 2, Signed),
    Field<&R::dmPrintQuality>("dmPrintQuality", offsetof(R, dmPrintQuality), 90, 2, Signed),
    Field<&R::dmColor>("dmColor", offsetof(R, dmColor), 92, 2, Signed),
    Field<&R::dmDuplex>("dmDuplex", offsetof(R, dmDuplex), 94, 2, Signed),
    Field<&R::dmYResolution>("dmYResolution", offsetof(R, dmYResolution), 96, 2, Signed),
    Field<&R::dmTTOption>("dmTTOption", offsetof(R, dmTTOption), 98, 2, Signed),
    Field<&R::dmCollate>("dmCollate", offsetof(R, dmCollate), 100, 2, Signed),
    Field<&R::dmFormName>("dmFormName", offsetof(R, dmFormName), 102, 64, WideText),
    Field<&R::dmLogPixels>("dmLogPixels", offsetof(R, dmLogPixels), 166, 2, Unsigned),
    Field<&R::dmBitsPerPel>("dmBitsPerPel", offsetof(R, dmBitsPerPel), 168, 4, Unsigned),
    Field<&R::dmPelsWidth>("dmPelsWidth", offsetof(R, dmPelsWidth), 172, 4, Unsigned),
    Field<&R::dmPelsHeight>("dmPelsHeight", offsetof(R, dmPelsHeight), 176, 4, Unsigned),
    Field<&R::dmDisplayFlags>("dmDisplayFlags", offsetof(R, dmDisplayFlags), 180, 4, Unsigned),
    Field<&R::dmDisplayFrequency>("dmDisplayFrequency", offsetof(R, dmDisplayFrequency), 184, 4, Unsigned),
    Field<&R::dmICMMethod>("dmICMMethod", offsetof(R, dmICMMethod), 188, 4, Unsigned),
    Field<&R::dmICMIntent>("dmICMIntent", offsetof(R, dmICMIntent), 192, 4, Unsigned),
    Field<&R::dmMediaType>("dmMediaType", offsetof(R, dmMediaType), 196, 4, Unsigned),
    Field<&R::dmDitherType>("dmDitherType", offsetof(R, dmDitherType), 200, 4, Unsigned),
    Field<&R::dmReserved1>("dmReserved1", offsetof(R, dmReserved1), 204, 4, Unsigned),
    Field<&R::dmReserved2>("dmReserved2", offsetof(R, dmReserved2), 208, 4, Unsigned),
    Field<&R::dmPanningWidth>("dmPanningWidth", offsetof(R, dmPanningWidth), 212, 4, Unsigned),
    Field<&R::dmPanningHeight>("dmPanningHeight", offsetof(R, dmPanningHeight), 216, 4, Unsigned),
    Field<&R::dmPrivSignature>("dmPrivSignature", offsetof(R, dmPrivSignature), 220, 4, Unsigned),
    Field<&R::dmPrivReserved>("dmPrivReserved", offsetof(R, dmPrivReserved), 224, 4, Signed),
    Field<&R::dmModelParam1>("dmModelParam1", offsetof(R, dmModelParam1), 252, 2, Signed),
    Field<&R::dmModelParam2>("dmModelParam2", offsetof(R, dmModelParam2), 254, 2, Signed),
    Field<&R::dmModelIndex>("dmModelIndex", offsetof(R, dmModelIndex), 256, 2, Signed),
    Field<&R::dmModelParam3>("dmModelParam3", offsetof(R, dmModelParam3), 258, 2, Signed),
    Field<&R::dmModelParam4>("dmModelParam4", offsetof(R, dmModelParam4), 260, 2, Signed),
    Field<&R::dmFitToPaper>("dmFitToPaper", offsetof(R, dmFitToPaper), 262, 1, Unsigned),
    Field<&R::dmMediaIndex>("dmMediaIndex", offsetof(R, dmMediaIndex), 264, 2, Signed),
    Field<&R::dmZoom>("dmZoom", offsetof(R, dmZoom), 266, 2, Signed),
    Field<&R::dmOutputPaper>("dmOutputPaper", offsetof(R, dmOutputPaper), 268, 2, Signed),
    Field<&R::dmCollateMode>("dmCollateMode", offsetof(R, dmCollateMode), 270, 2, Signed),
    Field<&R::dmPaperWidthPriv>("dmPaperWidthPriv", offsetof(R, dmPaperWidthPriv), 272, 2, Signed),
    Field<&R::dmPaperLengthPriv>("dmPaperLengthPriv", offsetof(R, dmPaperLengthPriv), 274, 2, Signed),
    Field<&R::dmNupOn>("dmNupOn", offsetof(R, dmNupOn), 276, 1, Unsigned),
    Field<&R::dmNupCount>("dmNupCount", offsetof(R, dmNupCount), 278, 2, Signed),
    Field<&R::dmNupVertical>("dmNupVertical", offsetof(R, dmNupVertical), 280, 1, Unsigned),
    Field<&R::dmNupDescending>("dmNupDescending", offsetof(R, dmNupDescending), 281, 1, Unsigned),
    Field<&R::dmNupBorder>("dmNupBorder", offsetof(R, dmNupBorder), 282, 1, Unsigned),
    Field<&R::dmNupModelByte>("dmNupModelByte", offsetof(R, dmNupModelByte), 284, 1, Unsigned),
    Field<&R::dmNupModelValue1>("dmNupModelValue1", offsetof(R, dmNupModelValue1), 286, 2, Signed),
    Field<&R::dmNupModelValue2>("dmNupModelValue2", offsetof(R, dmNupModelValue2), 288, 2, Signed),
    Field<&R::dmWatermarkOn>("dmWatermarkOn", offsetof(R, dmWatermarkOn), 292, 4, Unsigned),
    Field<&R::dmWatermark>("dmWatermark", offsetof(R, dmWatermark), 296, 396, Nested),
    Field<&R::dmImageShiftX>("dmImageShiftX", offsetof(R, dmImageShiftX), 692, 2, Signed),
    Field<&R::dmImageShiftY>("dmImageShiftY", offsetof(R, dmImageShiftY), 694, 2, Signed),
    Field<&R::dmBookletPaper>("dmBookletPaper", offsetof(R, dmBookletPaper), 696, 2, Signed),
    Field<&R::dmDuplexOn>("dmDuplexOn", offsetof(R, dmDuplexOn), 698, 2, Signed),
    Field<&R::dmGuidePaper>("dmGuidePaper", offsetof(R, dmGuidePaper), 700, 4, Unsigned),
    Field<&R::dmDuplexBinding>("dmDuplexBinding", offsetof(R, dmDuplexBinding), 704, 2, Signed),
    Field<&R::dmTonerSave>("dmTonerSave", offsetof(R, dmTonerSave), 706, 1, Unsigned),
    Field<&R::dmAllRaster>("dmAllRaster", offsetof(R, dmAllRaster), 707, 1, Unsigned),
    Field<&R::dmGraphicsMode>("dmGraphicsMode", offsetof(R, dmGraphicsMode), 708, 1, Unsigned),
    Field<&R::dmTextMode>("dmTextMode", offsetof(R, dmTextMode), 709, 1, Unsigned),
    Field<&R::dmPrinterTrueType>("dmPrinterTrueType", offsetof(R, dmPrinterTrueType), 710, 1, Unsigned),
    Field<&R::dmSmoothtone>("dmSmoothtone", offsetof(R, dmSmoothtone), 711, 1, Unsigned),
    Field<&R::dmResolution>("dmResolution", offsetof(R, dmResolution), 712, 2, Signed),
    Field<&R::dmModelParam5>("dmModelParam5", offsetof(R, dmModelParam5), 714, 2, Signed),
    Field<&R::dmFixedResolution>("dmFixedResolution", offsetof(R, dmFixedResolution), 716, 2, Signed),
    Field<&R::dmProofPrint>("dmProofPrint", offsetof(R, dmProofPrint), 718, 2, Signed),
    Field<&R::dmTonerDensity>("dmTonerDensity", offsetof(R, dmTonerDensity), 720, 2, Signed),
    Field<&R::dmAvailableMemory>("dmAvailableMemory", offsetof(R, dmAvailableMemory), 722, 2, Signed),
    Field<&R::dmTotalMemory>("dmTotalMemory", offsetof(R, dmTotalMemory), 724, 2, Signed),
    Field<&R::dmDeviceFlags>("dmDeviceFlags", offsetof(R, dmDeviceFlags), 728, 4, Unsigned),
    Field<&R::dmPercent>("dmPercent", offsetof(R, dmPercent), 732, 2, Signed),
    Field<&R::dmModelParam6>("dmModelParam6", offsetof(R, dmModelParam6), 734, 2, Signed),
    Field<&R::dmModelFlag>("dmModelFlag", offsetof(R, dmModelFlag), 736, 1, Unsigned),
    Field<&R::dmConstantFlag>("dmConstantFlag", offsetof(R, dmConstantFlag), 737, 1, Unsigned),
    Field<&R::dmBookletRight>("dmBookletRight", offsetof(R, dmBookletRight), 764, 2, Signed),
    Field<&R::dmImageShiftOn>("dmImageShiftOn", offsetof(R, dmImageShiftOn), 786, 2, Signed),
    Field<&R::dmImageRotated>("dmImageRotated", offsetof(R, dmImageRotated), 788, 2, Signed),
    Field<&R::dmPreviewMode>("dmPreviewMode", offsetof(R, dmPreviewMode), 790, 2, Signed),
    Field<&R::dmResolutionChoice>("dmResolutionChoice", offsetof(R, dmResolutionChoice), 792, 2, Signed),
    Field<&R::dmOverlayState>("dmOverlayState", offsetof(R, dmOverlayState), 794, 2, Signed),
    Field<&R::dmOverlayFile>("dmOverlayFile", offsetof(R, dmOverlayFile), 796, 524, WideText),
    Field<&R::dmOverlayFirstPage>("dmOverlayFirstPage", offsetof(R, dmOverlayFirstPage), 1320, 2, Signed),
    Field<&R::dmOverlayReserved>("dmOverlayReserved", offsetof(R, dmOverlayReserved), 1322, 524, WideText),
    Field<&R::dmOverlayIndex>("dmOverlayIndex", offsetof(R, dmOverlayIndex), 1846, 2, Signed),
};

inline constexpr std::size_t PlatformOffsets[] = {
    offsetof(DEVMODEW, dmDeviceName),
    offsetof(DEVMODEW, dmSpecVersion),
    offsetof(DEVMODEW, dmDriverVersion),
    offsetof(DEVMODEW, dmSize),
    offsetof(DEVMODEW, dmDriverExtra),
    offsetof(DEVMODEW, dmFields),
    offsetof(DEVMODEW, dmOrientation),
    offsetof(DEVMODEW, dmPaperSize),
    offsetof(DEVMODEW, dmPaperLength),
    offsetof(DEVMODEW, dmPaperWidth),
    offsetof(DEVMODEW, dmScale),
    offsetof(DEVMODEW, dmCopies),
    offsetof(DEVMODEW, dmDefaultSource),
    offsetof(DEVMODEW, dmPrintQuality),
    offsetof(DEVMODEW, dmColor),
    offsetof(DEVMODEW, dmDuplex),
    offsetof(DEVMODEW, dmYResolution),
    offsetof(DEVMODEW, dmTTOption),
    offsetof(DEVMODEW, dmCollate),
    offsetof(DEVMODEW, dmFormName),
    offsetof(DEVMODEW, dmLogPixels),
    offsetof(DEVMODEW, dmBitsPerPel),
    offsetof(DEVMODEW, dmPelsWidth),
    offsetof(DEVMODEW, dmPelsHeight),
    offsetof(DEVMODEW, dmDisplayFlags),
    offsetof(DEVMODEW, dmDisplayFrequency),
    offsetof(DEVMODEW, dmICMMethod),
    offsetof(DEVMODEW, dmICMIntent),
    offsetof(DEVMODEW, dmMediaType),
    offsetof(DEVMODEW, dmDitherType),
    offsetof(DEVMODEW, dmReserved1),
    offsetof(DEVMODEW, dmReserved2),
    offsetof(DEVMODEW, dmPanningWidth),
    offsetof(DEVMODEW, dmPanningHeight),
};
// clang-format on

}  // namespace record_tables

// The fields in the order of the record, reserved bytes left out.
inline constexpr std::span<const RecordField> RecordFields = record_tables::Record;
inline constexpr std::span<const RecordField> WatermarkFields = record_tables::Watermark;

constexpr bool InOrderWithoutOverlap(std::span<const RecordField> fields, std::size_t size)
{
    std::size_t end = 0;
    for (const RecordField& field : fields) {
        if (field.offset < end) return false;
        end = field.offset + field.width;
    }
    return end <= size;
}

constexpr bool PublicPartIsThePlatforms()
{
    std::size_t row = 0;
    for (std::size_t offset : record_tables::PlatformOffsets) {
        if (RecordFields[row++].offset != offset) return false;
    }
    return RecordFields[row].offset == sizeof(DEVMODEW);
}

template <class Record>
inline constexpr bool IsPlainBytes = std::is_standard_layout_v<Record>&& std::is_trivial_v<Record> &&
                                     alignof(Record) == alignof(DWORD);

static_assert(sizeof(WatermarkRecord) == 396 && IsPlainBytes<WatermarkRecord>);
static_assert(sizeof(DriverDevMode) == RecordSize && IsPlainBytes<DriverDevMode>);
static_assert(RecordSize == RecordPublicSize + RecordPrivateSize && sizeof(DEVMODEW) == RecordPublicSize);
static_assert(InOrderWithoutOverlap(RecordFields, sizeof(DriverDevMode)));
static_assert(InOrderWithoutOverlap(WatermarkFields, sizeof(WatermarkRecord)));
static_assert(PublicPartIsThePlatforms());
