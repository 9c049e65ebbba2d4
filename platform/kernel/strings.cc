#include <algorithm>
#include <string_view>

#include "platform/kernel.h"

namespace {

std::u16string_view View(const WCHAR* text) { return text == nullptr ? std::u16string_view() : text; }

}  // namespace

extern "C" {

int lstrlenW(const WCHAR* text) { return static_cast<int>(View(text).size()); }

WCHAR* lstrcpyW(WCHAR* target, const WCHAR* source)
{
    if (target == nullptr || source == nullptr) return nullptr;
    const std::u16string_view text = source;
    std::ranges::copy(text, target);
    target[text.size()] = u'\0';
    return target;
}

WCHAR* lstrcpynW(WCHAR* target, const WCHAR* source, int chars)
{
    if (target == nullptr || source == nullptr) return nullptr;
    if (chars <= 0) return target;
    // The source may be longer than memory that can be read, so no more of it is looked at than fits.
    WCHAR* end = target;
    while (--chars > 0 && *source != u'\0') *end++ = *source++;
    *end = u'\0';
    return target;
}

WCHAR* lstrcatW(WCHAR* target, const WCHAR* source)
{
    if (target == nullptr || source == nullptr) return nullptr;
    lstrcpyW(target + View(target).size(), source);
    return target;
}

int lstrcmpW(const WCHAR* a, const WCHAR* b)
{
    if (a == nullptr || b == nullptr) return (a != nullptr) - (b != nullptr);
    const int order = std::u16string_view(a).compare(b);
    return (order > 0) - (order < 0);
}

}  // extern "C"
