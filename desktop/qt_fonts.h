// Fonts from the machine. Metric-compatible families stand in for the common faces.
#pragma once

#include <QFont>
#include <memory>

#include "platform/seams/fonts.h"

namespace desktop {

// Starts Qt (without a screen, if none is up) when it is first asked.
std::shared_ptr<platform::FontService> MakeQtFonts();

// lfHeight in pixels: below 0 the characters' height, above 0 the cell's, 0 a default of 12.
QFont ToQFont(const LOGFONTW& font);

}  // namespace desktop
