// Pictures of the preview as the pages show it, its frame included.
#pragma once

#include <QImage>

#include "tests/preview/preview_rig.h"

namespace preview_test {

inline constexpr int FrameWidth = 137, FrameHeight = 161;  // pixels

// Texts are placed and cut by the built-in fonts, and drawn by Qt.
enum class Fonts { BuiltIn, Real };
QImage Paint(const DriverDevMode& record, Fonts fonts);

// The pictures that guard the whole, by the names of their files.
std::vector<std::pair<const char*, DriverDevMode>> References();

}  // namespace preview_test
