// The typefaces that the Watermark dialog offers: every TrueType family, in the order in which the platform
// delivers them.
#pragma once

#include <string_view>
#include <vector>

#include "platform/gdi.h"
#include "settings/global_block.h"

struct FaceName {
    WCHAR text[LF_FACESIZE];  // always terminated
    const WCHAR* c_str() const { return text; }
    bool operator==(std::u16string_view other) const { return other == text; }
};
static_assert(sizeof(FaceName) == 64);

using FaceNames = std::vector<FaceName, GlobalAllocator<FaceName>>;

// Callback of EnumFontsW; parameter is the address of FaceNames. 0, which ends the enumeration, without memory.
int CollectFaceNames(const LOGFONTW* font, const TEXTMETRICW* metrics, DWORD fontType, LPARAM parameter);
