// Option access: the pages read and write the record that is being edited by (group, key) and do not know
// its layout. Most keys are the number of the dialog control that shows the option. Nothing is checked
// here: the pages hold the ranges, and a merge repairs what a stored record brings.
#pragma once

#include "driver_dev_mode.h"

// The record that the pages edit. Written at every entry of the document sheet; null before the first one,
// and valid only while a sheet runs.
extern DriverDevMode* CurrentSettings;

inline constexpr int OptionGroupQuality = 1031;
inline constexpr int OptionGroupLayout = 1032;
inline constexpr int OptionGroupDevice = 1033;
inline constexpr int OptionGroupPaper = 3013;

struct OptionKey {
    int group, key;
    bool operator==(const OptionKey&) const = default;
};

inline constexpr OptionKey TonerSaveOption = {OptionGroupQuality, 1022};
inline constexpr OptionKey ResolutionOption = {OptionGroupQuality, 1024};  // 600, 2 (1200 x 600), 1200
inline constexpr OptionKey SmoothtoneOption = {OptionGroupQuality, 1026};
inline constexpr OptionKey AllRasterOption = {OptionGroupQuality, 1030};
inline constexpr OptionKey GraphicsModeOption = {OptionGroupQuality, 1032};
inline constexpr OptionKey TextModeOption = {OptionGroupQuality, 1035};
inline constexpr OptionKey TonerDensityOption = {OptionGroupQuality, 1062};
inline constexpr OptionKey PrinterTrueTypeOption = {OptionGroupQuality, 2073};
inline constexpr OptionKey FixedResolutionOption = {OptionGroupQuality, 2109};
inline constexpr OptionKey NupOption = {OptionGroupLayout, 1014};               // NupPayload
inline constexpr OptionKey JobWatermarkOption = {OptionGroupLayout, 1016};      // WatermarkPayload
inline constexpr OptionKey LayoutImageShiftOption = {OptionGroupLayout, 1017};  // ImageShiftPayload
inline constexpr OptionKey DuplexOption = {OptionGroupLayout, 1304};            // DuplexPayload
inline constexpr OptionKey Tray2Option = {OptionGroupDevice, 1152};             // DWORD; a write only sets bit 7
inline constexpr OptionKey TotalMemoryOption = {OptionGroupDevice, 1155};       // megabytes
inline constexpr OptionKey ImageShiftOption = {OptionGroupPaper, 1017};         // ImageShiftPayload
inline constexpr OptionKey PreviewModeOption = {OptionGroupPaper, 1067};
inline constexpr OptionKey PaperOption = {OptionGroupPaper, 1082};  // PaperPayload
inline constexpr OptionKey FitOption = {OptionGroupPaper, 1087};    // FitPayload
inline constexpr OptionKey OrientationOption = {OptionGroupPaper, 1089};
inline constexpr OptionKey SourceOption = {OptionGroupPaper, 1093};  // a write filters PaperRows anew
inline constexpr OptionKey MediaOption = {OptionGroupPaper, 1095};
inline constexpr OptionKey ZoomOption = {OptionGroupPaper, 1097};  // percent
inline constexpr OptionKey CopiesOption = {OptionGroupPaper, 1100};
inline constexpr OptionKey CollateOption = {OptionGroupPaper, 1103};
inline constexpr OptionKey ProofPrintOption = {OptionGroupPaper, 1213};
inline constexpr OptionKey ImageShiftOnOption = {OptionGroupPaper, 9505};
inline constexpr OptionKey ImageRotatedOption = {OptionGroupPaper, 9507};

// What the buffer of a structured option holds. Spare bytes are neither read nor written.
struct NupPayload {
    BYTE on, spare1;
    SHORT count;
    BYTE vertical, descending, border, spare2;
    BYTE modelByte, spare3;
    SHORT modelValue1, modelValue2;
};
static_assert(sizeof(NupPayload) == 14);

struct WatermarkPayload {
    DWORD on;
    WatermarkRecord watermark;
};
static_assert(sizeof(WatermarkPayload) == 400);

struct ImageShiftPayload {
    SHORT x, y;  // points
};
static_assert(sizeof(ImageShiftPayload) == 4);

struct DuplexPayload {
    LONG on;  // a write takes the low 16 bits
    SHORT binding, bookletPaper;
    DWORD guidePaper;
};
static_assert(sizeof(DuplexPayload) == 12);

struct PaperPayload {
    SHORT code, length, width;
};
static_assert(sizeof(PaperPayload) == 6);

struct FitPayload {
    BYTE fit, spare;
    SHORT outputPaper;
};
static_assert(sizeof(FitPayload) == 4);

// Copies an option between the current record and a buffer: 16 bits for most keys, the payload for
// structured ones. Always 1; a key that does not exist, or no current record, leaves both as they were.
int GetOption(int group, int key, void* out);
int SetOption(int group, int key, const void* in);

// The same for callers that name the option; the payload's type is the caller's to choose rightly.
template <class Payload>
Payload GetOption(OptionKey option, Payload start = {})
{
    GetOption(option.group, option.key, &start);
    return start;
}
template <class Payload>
void SetOption(OptionKey option, const Payload& payload)
{
    SetOption(option.group, option.key, &payload);
}

// The portrait size of a built-in paper in dots, width in the low and length in the high 16 bits. Stores the
// size in the current record, which must exist, and for code 0 or an unknown one the code of the fallback
// paper too: A4 or Letter, as is used in the user's country. Not for codes from 256 up.
DWORD PaperSizeDots(int paperCode);
