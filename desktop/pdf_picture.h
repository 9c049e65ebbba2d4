// A drawing as vectors: texts stay texts, with the part of their font that they need embedded.
#pragma once

#include <QByteArray>

#include "platform/seams/surface.h"

namespace desktop {

// A PDF of one page whose upper left corner is the drawing's origin, at least as large as the given dots. Empty
// when the drawing cannot be written.
QByteArray PdfPicture(const platform::RecordingSurface& drawing, int width, int height, int dotsPerInch);

}  // namespace desktop
