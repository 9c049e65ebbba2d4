#include "settings/user_locale.h"

#include <string_view>

#include "settings/global_block.h"
#include "settings/narrow_number.h"

bool LocaleUsesA4()
{
    const int length = GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_ICOUNTRY, nullptr, 0);
    if (length <= 0) return false;
    const auto chars = static_cast<ULONG>(length);
    const auto wide = AllocateBlock<WCHAR[]>(chars * sizeof(WCHAR));
    const auto narrow = AllocateBlock<CHAR[]>(chars);
    if (!wide || !narrow) return false;
    if (GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_ICOUNTRY, wide.get(), length) <= 0) return false;
    ULONG written = 0;
    if (RtlUnicodeToMultiByteN(narrow.get(), chars, &written, wide.get(), chars * sizeof(WCHAR)) < 0) return false;

    const int country = DecimalNumber(std::string_view(narrow.get(), written));
    return country != 1 && country != 2 && !(country >= 50 && country <= 59) && !(country >= 500 && country <= 599);
}
