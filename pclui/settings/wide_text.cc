#include "settings/wide_text.h"

#include <algorithm>
#include <string>
#include <string_view>

void CopyBounded(WCHAR* destination, const WCHAR* source, std::size_t chars)
{
    if (chars == 0) return;
    std::size_t length = 0;
    for (; length < chars - 1 && source[length] != 0; ++length) destination[length] = source[length];
    std::fill(destination + length, destination + chars, u'\0');
}

void NarrowToWide(WCHAR* destination, const CHAR* source, int chars)
{
    const auto length = static_cast<ULONG>(std::string_view(source).size() + 1);
    const ULONG limit = chars > 0 ? static_cast<ULONG>(chars) : length;
    ULONG written = 0;
    RtlMultiByteToUnicodeN(destination, limit * sizeof(WCHAR), &written, source, length);
    destination[limit - 1] = 0;
}

void WideToNarrow(CHAR* destination, const WCHAR* source, int chars)
{
    const auto length = static_cast<ULONG>(std::u16string_view(source).size() + 1);
    const ULONG limit = chars > 0 ? static_cast<ULONG>(chars) : length;
    ULONG written = 0;
    RtlUnicodeToMultiByteN(destination, limit, &written, source, length * sizeof(WCHAR));
    destination[limit - 1] = 0;
}

std::u16string Numbered(const WCHAR* text, int number)
{
    const std::string digits = std::to_string(number);
    std::u16string numbered;
    numbered.append(text).append(digits.begin(), digits.end());
    return numbered;
}

WCHAR* HeapCopyString(const WCHAR* source, HANDLE heap)
{
    const std::size_t chars = std::u16string_view(source).size() + 1;
    auto* copy = static_cast<WCHAR*>(HeapAlloc(heap, 0, chars * sizeof(WCHAR)));
    if (copy) std::copy_n(source, chars, copy);
    return copy;
}
