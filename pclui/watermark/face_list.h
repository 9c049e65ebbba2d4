// The typefaces that the Watermark dialog offers: every TrueType family, in the order in which the platform
// delivers them.
#pragma once

#include <string>
#include <vector>

#include "platform/gdi.h"

using FaceNames = std::vector<std::u16string>;

// Callback of EnumFontsW; parameter is the address of FaceNames. 0, which ends the enumeration, without memory.
int CollectFaceNames(const LOGFONTW* font, const TEXTMETRICW* metrics, DWORD fontType, LPARAM parameter);
