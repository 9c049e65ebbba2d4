#include "platform/kernel/unicode.h"

namespace platform {

namespace {

constexpr char32_t Replacement = 0xFFFD;

// Reads one character and moves position behind it. Surrogates written as three bytes are let through, so
// that lone ones come back.
char32_t NextCharacter(std::string_view text, std::size_t& position)
{
    const auto lead = static_cast<unsigned char>(text[position++]);
    if (lead < 0x80) return lead;
    const int more = lead >= 0xF0 && lead <= 0xF4 ? 3 : lead >= 0xE0 && lead < 0xF0 ? 2 : lead >= 0xC2 && lead < 0xE0;
    if (more == 0) return Replacement;
    char32_t character = lead & (0x3F >> more);
    for (int i = 0; i < more; ++i) {
        if (position == text.size()) return Replacement;
        const auto next = static_cast<unsigned char>(text[position]);
        const bool tooLong = i == 0 && ((lead == 0xE0 && next < 0xA0) || (lead == 0xF0 && next < 0x90));
        const bool tooGreat = i == 0 && lead == 0xF4 && next > 0x8F;
        if ((next & 0xC0) != 0x80 || tooLong || tooGreat) return Replacement;
        character = character << 6 | (next & 0x3F);
        ++position;
    }
    return character;
}

}  // namespace

std::u16string ToWide(std::string_view utf8)
{
    std::u16string wide;
    wide.reserve(utf8.size());
    for (std::size_t i = 0; i < utf8.size();) {
        const char32_t character = NextCharacter(utf8, i);
        if (character < 0x10000) {
            wide.push_back(static_cast<char16_t>(character));
        } else {
            wide.push_back(static_cast<char16_t>(0xD7C0 + (character >> 10)));
            wide.push_back(static_cast<char16_t>(0xDC00 + (character & 0x3FF)));
        }
    }
    return wide;
}

std::string ToUtf8(std::u16string_view wide)
{
    std::string utf8;
    utf8.reserve(wide.size());
    auto add = [&utf8](char32_t bits) { utf8.push_back(static_cast<char>(bits)); };
    for (std::size_t i = 0; i < wide.size(); ++i) {
        char32_t character = wide[i];
        const bool high = character >= 0xD800 && character < 0xDC00;
        if (high && i + 1 < wide.size() && wide[i + 1] >= 0xDC00 && wide[i + 1] < 0xE000)
            character = 0x10000 + ((character - 0xD800) << 10) + (wide[++i] - 0xDC00u);
        if (character < 0x80) {
            add(character);
        } else if (character < 0x800) {
            add(0xC0 | character >> 6);
            add(0x80 | (character & 0x3F));
        } else if (character < 0x10000) {
            add(0xE0 | character >> 12);
            add(0x80 | (character >> 6 & 0x3F));
            add(0x80 | (character & 0x3F));
        } else {
            add(0xF0 | character >> 18);
            add(0x80 | (character >> 12 & 0x3F));
            add(0x80 | (character >> 6 & 0x3F));
            add(0x80 | (character & 0x3F));
        }
    }
    return utf8;
}

}  // namespace platform
