#include "host/json.h"

#include "platform/kernel/unicode.h"

namespace host {

namespace {

constexpr char Digits[] = "0123456789abcdef";

void AppendEscape(std::string& line, char16_t unit)
{
    line += "\\u";
    for (int shift = 12; shift >= 0; shift -= 4) line += Digits[unit >> shift & 15];
}

void AppendString(std::string& line, const std::string& text)
{
    line += '"';
    for (std::size_t i = 0; i < text.size(); ++i) {
        const unsigned char byte = static_cast<unsigned char>(text[i]);
        switch (byte) {
            case '"':
                line += "\\\"";
                continue;
            case '\\':
                line += "\\\\";
                continue;
            case '\n':
                line += "\\n";
                continue;
            case '\r':
                line += "\\r";
                continue;
            case '\t':
                line += "\\t";
                continue;
            case '\b':
                line += "\\b";
                continue;
            case '\f':
                line += "\\f";
                continue;
            default:
                break;
        }
        if (byte < 0x20) {
            AppendEscape(line, byte);
        } else if (byte == 0xED && i + 2 < text.size() && static_cast<unsigned char>(text[i + 1]) >= 0xA0) {
            AppendEscape(line, static_cast<char16_t>(0xD000 | (text[i + 1] & 0x3F) << 6 | (text[i + 2] & 0x3F)));
            i += 2;
        } else {
            line += static_cast<char>(byte);
        }
    }
    line += '"';
}

void Append(std::string& line, const Json& json)
{
    const char* separator = "";
    switch (json.type()) {
        case Json::value_t::object:
            line += '{';
            for (const auto& [name, value] : json.items()) {
                line += separator;
                AppendString(line, name);
                line += ": ";
                Append(line, value);
                separator = ", ";
            }
            line += '}';
            break;
        case Json::value_t::array:
            line += '[';
            for (const Json& value : json) {
                line += separator;
                Append(line, value);
                separator = ", ";
            }
            line += ']';
            break;
        case Json::value_t::string:
            AppendString(line, json.get_ref<const std::string&>());
            break;
        default:
            line += json.dump();
            break;
    }
}

int DigitValue(char digit)
{
    if (digit >= '0' && digit <= '9') return digit - '0';
    if (digit >= 'a' && digit <= 'f') return digit - 'a' + 10;
    if (digit >= 'A' && digit <= 'F') return digit - 'A' + 10;
    return -1;
}

}  // namespace

std::string ToLine(const Json& json)
{
    std::string line;
    Append(line, json);
    return line;
}

Json Text(std::u16string_view text) { return platform::ToUtf8(text); }

std::u16string UpToTerminator(std::u16string_view text) { return std::u16string(text.substr(0, text.find(u'\0'))); }

std::string Hex(std::span<const std::uint8_t> bytes)
{
    std::string text;
    text.reserve(bytes.size() * 2);
    for (const std::uint8_t byte : bytes) {
        text += Digits[byte >> 4];
        text += Digits[byte & 15];
    }
    return text;
}

std::optional<std::vector<std::uint8_t>> FromHex(std::string_view text)
{
    if (text.size() % 2 != 0) return std::nullopt;
    std::vector<std::uint8_t> bytes;
    bytes.reserve(text.size() / 2);
    for (std::size_t i = 0; i < text.size(); i += 2) {
        const int high = DigitValue(text[i]), low = DigitValue(text[i + 1]);
        if (high < 0 || low < 0) return std::nullopt;
        bytes.push_back(static_cast<std::uint8_t>(high << 4 | low));
    }
    return bytes;
}

}  // namespace host
