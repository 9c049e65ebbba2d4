// Pictures of the preview as the pages show it, its frame included: 137 by 161 pixels.
#pragma once

#include <QImage>
#include <span>
#include <string>

#include "tests/preview/preview_rig.h"

namespace preview_test {

// Texts are placed and cut by the built-in fonts, and drawn by Qt.
enum class Fonts { BuiltIn, Real };
QImage Paint(const DriverDevMode& record, Fonts fonts);

// The pictures that guard the whole, by the names of their files.
struct Reference {
    const char* name;
    DriverDevMode record;
};
std::vector<Reference> References();

// Grey where both have the same pixel, red where not. Empty if the sizes differ.
QImage Difference(const QImage& before, const QImage& after);

// Every N-up count, order, booklet, binding, scaling and watermark in both orientations, on one sheet.
QImage Gallery();

}  // namespace preview_test
