// The compiled form of a dialog, plain or extended. Coordinates in it are dialog units; those of the result
// are pixels, by base units of 6 x 13 pixels.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/types.h"

namespace platform::user {

struct ControlTemplate {
    std::u16string className;  // "Button", "Edit", ...
    std::u16string text;
    int resource = 0;  // number that stands in the place of a text; 0: none
    int id = -1;
    DWORD style = 0, exStyle = 0;
    RECT rect{};
};

struct DialogTemplate {
    std::u16string title;
    DWORD style = 0, exStyle = 0;
    int width = 0, height = 0;
    std::u16string font;
    int pointSize = 0;
    std::vector<ControlTemplate> controls;
};

// x of 4 units are 6 pixels, y of 8 units 13; halves away from zero.
QD_API int PixelsAcross(int units);
QD_API int PixelsDown(int units);

// Absent when the bytes are no whole template; *why then says what is wrong and where.
QD_API std::optional<DialogTemplate> ParseDialogTemplate(std::span<const std::uint8_t> bytes, std::string* why);

}  // namespace platform::user
