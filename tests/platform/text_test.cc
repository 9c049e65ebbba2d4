// Strings, formats, code pages and UTF-8.
#include <cstdarg>

#include "platform/kernel/code_pages.h"
#include "platform/kernel/unicode.h"
#include "tests/platform/fresh_environment.h"

namespace platform {
namespace {

class Text : public FreshEnvironment {};

template <class... Arguments>
std::u16string Formatted(const WCHAR* format, Arguments... arguments)
{
    WCHAR text[1024];
    const int length = wsprintfW(text, format, arguments...);
    EXPECT_EQ(static_cast<std::size_t>(length), std::u16string_view(text).size());
    return text;
}

TEST_F(Text, IsFormatted)
{
    EXPECT_EQ(Formatted(u"%d|%i|%u", -5, 7, 0xFFFFFFFFu), u"-5|7|4294967295");
    EXPECT_EQ(Formatted(u"%ld|%lu|%lx", -5, 7u, 0xABCDu), u"-5|7|abcd");
    EXPECT_EQ(Formatted(u"%x|%X|%04x|%#x", 0xAu, 0xAu, 0xBu, 0xCu), u"a|A|000b|0xc");
    EXPECT_EQ(Formatted(u"%5d|%-5d|%05d|%.3d", 42, 42, -42, 7), u"   42|42   |-0042|007");
    EXPECT_EQ(Formatted(u"%d", INT32_MIN), u"-2147483648");
    EXPECT_EQ(Formatted(u"%02d/%02d/%04d", 1, 12, 2005), u"01/12/2005");
    EXPECT_EQ(Formatted(u"[%s]", u"wide"), u"[wide]");
    EXPECT_EQ(Formatted(u"[%6s|%-6s|%.2s]", u"abc", u"abc", u"abc"), u"[   abc|abc   |ab]");
    EXPECT_EQ(Formatted(u"[%s]", static_cast<const WCHAR*>(nullptr)), u"[(null)]");
    EXPECT_EQ(Formatted(u"[%hs|%S|%ls]", "a\x80", "n", u"w"), u"[a\u20AC|n|w]");
    EXPECT_EQ(Formatted(u"%c%hc%C", u'x', 'y', 'z'), u"xyz");
    EXPECT_EQ(Formatted(u"100%%|%q|%", 0), u"100%|q|");
    EXPECT_EQ(Formatted(u"%-5y"), u"-5y");
    // A text ends at 1024 characters with its terminator.
    const std::u16string wide(3000, u'w');
    EXPECT_EQ(Formatted(u"%s", wide.c_str()).size(), 1023u);
    EXPECT_EQ(Formatted(u"%99999999999d", 1).size(), 1023u);
    EXPECT_EQ(Formatted(wide.c_str()).size(), 1023u);
}

TEST_F(Text, IsCopiedJoinedAndComparedAndMayBeNull)
{
    WCHAR text[8] = u"ab";
    EXPECT_EQ(lstrlenW(nullptr), 0);
    EXPECT_EQ(lstrcpyW(text, nullptr), nullptr);
    EXPECT_EQ(lstrcatW(nullptr, u"x"), nullptr);
    EXPECT_EQ(lstrcpynW(nullptr, u"x", 2), nullptr);
    EXPECT_EQ(lstrcmpW(nullptr, nullptr), 0);
    EXPECT_LT(lstrcmpW(nullptr, u""), 0);
    EXPECT_EQ(std::u16string(text), u"ab");
    EXPECT_EQ(std::u16string(lstrcpynW(text, u"abcdef", 4)), u"abc");
    EXPECT_EQ(std::u16string(lstrcatW(text, u"de")), u"abcde");
    EXPECT_EQ(lstrlenW(text), 5);
    EXPECT_EQ(lstrcmpW(u"Abc", u"abc"), -1);
    EXPECT_EQ(lstrcmpW(u"abc", u"abc"), 0);
    EXPECT_EQ(lstrcmpW(u"abd", u"abc"), 1);
}

struct PageRow {
    UINT page;
    const char* narrow;
    const char16_t* wide;
};
constexpr PageRow PageRows[] = {
    {1250,  "\xA3\xF5",                 u"\u0141\u0151"             },
    {1251,  "\xC6\xFF",                 u"\u0416\u044F"             },
    {1252,  "A\x80\x9F\xE9\x81",        u"A\u20AC\u0178\u00E9\u0081"},
    {1253,  "\xC1\xF9",                 u"\u0391\u03C9"             },
    {1254,  "\xDE\xFD",                 u"\u015E\u0131"             },
    {1257,  "\xC0\xFE",                 u"\u0104\u017E"             },
    {65001, "\xC3\xA9\xF0\x9F\x98\x80", u"\u00E9\U0001F600"         },
};

TEST_F(Text, CodePagesGoBothWays)
{
    for (const PageRow& row : PageRows) {
        EXPECT_EQ(FromNarrow(row.page, row.narrow), row.wide) << row.page;
        EXPECT_EQ(ToNarrow(row.page, row.wide), row.narrow) << row.page;
    }
}

TEST_F(Text, AConversionIsCutToItsRoomButNotWithinACharacter)
{
    WCHAR wide[] = u"....";
    ULONG written = 0;
    EXPECT_EQ(RtlMultiByteToUnicodeN(wide, 5, &written, "abc", 3), 0);
    EXPECT_EQ(written, 4u);
    EXPECT_EQ(std::u16string(wide), u"ab..");
    for (const auto& [page, text, cut] : {
             std::tuple{1252u,  u"abc",     "ab.."},
             std::tuple{65001u, u"a\u00E9", "a..."}
    }) {
        FixedFactValues values;
        values.codePage = page;
        UseFacts(values);
        EXPECT_EQ(GetACP(), page);
        CHAR narrow[] = "....";
        EXPECT_EQ(RtlUnicodeToMultiByteN(narrow, 2, &written, text, 4), 0);
        EXPECT_EQ(written, std::string_view(cut).find('.'));
        EXPECT_STREQ(narrow, cut);
    }
}

TEST(Unicode, BrokenUtf8BecomesReplacementCharactersAndLoneSurrogatesComeBack)
{
    struct Row {
        const char* utf8;
        const char16_t* wide;
    };
    constexpr Row Rows[] = {
        {"\xFF",             u"\uFFFD"                  }, // no lead
        {"\xC3",             u"\uFFFD"                  }, // cut off
        {"\xC0\xAF",         u"\uFFFD\uFFFD"            }, // overlong
        {"\xE0\x80\xAF",     u"\uFFFD\uFFFD\uFFFD"      }, // overlong
        {"a\xE2\x82z",       u"a\uFFFDz"                }, // the next character is kept
        {"\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"}, // beyond the last character
    };
    for (const Row& row : Rows) EXPECT_EQ(ToWide(row.utf8), row.wide);
    for (const std::u16string lone : {u"\xD800", u"a\xDFFF b"}) EXPECT_EQ(ToWide(ToUtf8(lone)), lone);
}

}  // namespace
}  // namespace platform
