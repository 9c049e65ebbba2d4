// Which faces and styles exist, their description, and the extent of a text.
#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "platform/gdi.h"

namespace platform {

struct FontDescription {
    LOGFONTW font{};
    TEXTMETRICW metrics{};
    DWORD type = TRUETYPE_FONTTYPE;
};

class QD_API FontService {
  public:
    virtual ~FontService() = default;
    virtual std::vector<FontDescription> Families() = 0;                        // each family once
    virtual std::vector<FontDescription> Styles(std::u16string_view face) = 0;  // regular, bold, italic, both
    // Width and height of the text in the units of font.lfHeight, without regard to escapement.
    virtual SIZE Extent(const LOGFONTW& font, std::u16string_view text) = 0;
};

// Fixed metrics, the same on every machine: Times New Roman, Arial, Courier New; n characters at height h
// are n * (|h| / 2) wide and |h| * 9 / 8 high.
QD_API std::shared_ptr<FontService> MakeBuiltinFonts();

}  // namespace platform
