#include "platform/kernel/format.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "platform/kernel.h"
#include "platform/kernel/code_pages.h"
#include "platform/kernel/last_error.h"

namespace platform {

namespace {

// Nothing wider than the whole text is of use; it also keeps hostile widths from overflowing.
constexpr int MostWidth = static_cast<int>(MostFormatted);

struct Field {
    bool left = false, zeros = false, prefixed = false;
    int width = 0;
    int precision = -1;  // below 0: none given
    char16_t prefix = u'\0';
};

int ReadNumber(const WCHAR*& at)
{
    int number = 0;
    for (; *at >= u'0' && *at <= u'9'; ++at) number = std::min(number * 10 + (*at - u'0'), MostWidth);
    return number;
}

Field ReadField(const WCHAR*& at)
{
    Field field;
    for (;; ++at) {
        if (*at == u'-')
            field.left = true;
        else if (*at == u'0')
            field.zeros = true;
        else if (*at == u'#')
            field.prefixed = true;
        else
            break;
    }
    field.width = ReadNumber(at);
    if (*at == u'.') field.precision = ReadNumber(++at);
    if (*at == u'h' || *at == u'l' || *at == u'w') field.prefix = *at++;
    return field;
}

std::u16string Digits(std::uintptr_t value, unsigned base, bool capitals)
{
    const char16_t* figures = capitals ? u"0123456789ABCDEF" : u"0123456789abcdef";
    std::u16string digits;
    do {
        digits.insert(digits.begin(), figures[value % base]);
        value /= base;
    } while (value != 0);
    return digits;
}

void AddPadded(std::u16string& out, const Field& field, std::u16string_view sign, std::u16string body)
{
    const std::size_t least = static_cast<std::size_t>(std::max(field.precision, 0));
    if (body.size() < least) body.insert(0, least - body.size(), u'0');
    const std::size_t used = sign.size() + body.size();
    const std::size_t padding = static_cast<std::size_t>(field.width) > used ? field.width - used : 0;
    if (!field.left && !field.zeros) out.append(padding, u' ');
    out.append(sign);
    if (!field.left && field.zeros) out.append(padding, u'0');
    out.append(body);
    if (field.left) out.append(padding, u' ');
}

void AddText(std::u16string& out, Field field, std::u16string_view text)
{
    if (field.precision >= 0) text = text.substr(0, static_cast<std::size_t>(field.precision));
    field.precision = -1;
    AddPadded(out, field, {}, std::u16string(text));
}

// A text that is cut by a precision need not be terminated.
template <class Character>
std::basic_string_view<Character> TextArgument(const Character* text, const Field& field)
{
    const std::size_t most = field.precision >= 0 ? static_cast<std::size_t>(field.precision) : MostFormatted;
    std::size_t length = 0;
    while (length < most && text[length] != Character{}) ++length;
    return {text, length};
}

}  // namespace

std::u16string FormatWide(const WCHAR* format, std::va_list arguments)
{
    std::u16string out;
    for (const WCHAR* at = format; *at != u'\0' && out.size() < MostFormatted;) {
        if (*at != u'%') {
            out.push_back(*at++);
            continue;
        }
        const WCHAR* behindPercent = ++at;
        Field field = ReadField(at);
        const char16_t conversion = *at;
        if (conversion != u'\0') ++at;
        switch (conversion) {
            case u'd':
            case u'i': {
                const std::int32_t value = va_arg(arguments, std::int32_t);
                const std::uint32_t magnitude = value < 0 ? 0u - static_cast<std::uint32_t>(value) : value;
                AddPadded(out, field, value < 0 ? u"-" : u"", Digits(magnitude, 10, false));
                break;
            }
            case u'u':
                AddPadded(out, field, {}, Digits(va_arg(arguments, std::uint32_t), 10, false));
                break;
            case u'x':
            case u'X': {
                const bool capitals = conversion == u'X';
                const std::u16string_view sign = !field.prefixed ? u"" : capitals ? u"0X" : u"0x";
                AddPadded(out, field, sign, Digits(va_arg(arguments, std::uint32_t), 16, capitals));
                break;
            }
            case u'p':
                field.precision = static_cast<int>(2 * sizeof(void*));
                AddPadded(out, field, {}, Digits(reinterpret_cast<std::uintptr_t>(va_arg(arguments, void*)), 16, true));
                break;
            case u'c':
            case u'C': {
                const int value = va_arg(arguments, int);
                const bool narrow = field.prefix == u'h' || (conversion == u'C' && field.prefix == u'\0');
                const char byte = static_cast<char>(value);
                const char16_t wide = static_cast<char16_t>(value);
                AddText(out, field, narrow ? FromNarrow(std::string_view(&byte, 1)) : std::u16string(1, wide));
                break;
            }
            case u's':
            case u'S': {
                const void* text = va_arg(arguments, const void*);
                const bool narrow = field.prefix == u'h' || (conversion == u'S' && field.prefix == u'\0');
                if (text == nullptr)
                    AddText(out, field, u"(null)");
                else if (narrow)
                    AddText(out, field, FromNarrow(TextArgument(static_cast<const CHAR*>(text), field)));
                else
                    AddText(out, field, TextArgument(static_cast<const WCHAR*>(text), field));
                break;
            }
            case u'%':
                out.push_back(u'%');
                break;
            default:  // no conversion: what stands behind the percent sign is text
                at = behindPercent;
                break;
        }
    }
    if (out.size() >= MostFormatted) out.resize(MostFormatted - 1);
    return out;
}

}  // namespace platform

extern "C" {

int wsprintfW(WCHAR* target, const WCHAR* format, ...)
{
    if (target == nullptr || format == nullptr) return 0;
    *target = u'\0';
    if (platform::Fault("wsprintfW", ERROR_NOT_ENOUGH_MEMORY)) return 0;
    std::va_list arguments;
    va_start(arguments, format);
    const std::u16string text = platform::FormatWide(format, arguments);
    va_end(arguments);
    std::ranges::copy(text, target);
    target[text.size()] = u'\0';
    return static_cast<int>(text.size());
}

}  // extern "C"
