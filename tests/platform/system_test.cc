// Locale, version, user, and paths.
#include <filesystem>

#include "platform/kernel/paths.h"
#include "platform/kernel/unicode.h"
#include "platform/seams/locale_table.h"
#include "tests/platform/fresh_environment.h"

namespace platform {
namespace {

class System : public FreshEnvironment {};

// What is told of country, user and version, the job header's tests read.
TEST_F(System, AnswersAsFarAsThereIsRoom)
{
    WCHAR text[] = u"keep";
    OSVERSIONINFOW version{};
    version.dwOSVersionInfoSize = 280;
    EXPECT_FALSE(GetVersionExW(&version));
    DWORD chars = 4;
    EXPECT_EQ(Refusal(GetUserNameW(text, &chars)), ERROR_INSUFFICIENT_BUFFER);
    EXPECT_EQ(chars, 5u);
    EXPECT_EQ(Refusal(GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_ILANGUAGE, text, 4)), ERROR_INSUFFICIENT_BUFFER);
    EXPECT_EQ(Refusal(GetLocaleInfoW(LOCALE_USER_DEFAULT, 0x7777, text, 4)), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(std::u16string(text), u"keep");
    WCHAR path[MAX_PATH];
    EXPECT_EQ(GetSystemDirectoryW(path, 19), 20u);
    EXPECT_EQ(GetSystemDirectoryW(path, 20), 19u);
    EXPECT_EQ(std::u16string(path), u"C:\\WINDOWS\\system32");
}

struct PathRow {
    const char16_t* path;
    const char16_t* full;
    const char16_t* filePart;
};
constexpr PathRow AbsolutePaths[] = {
    {u"/a/b.oxl",   u"/a/b.oxl",   u"b.oxl"},
    {u"/a/./b//c",  u"/a/b/c",     u"c"    },
    {u"/a/../b",    u"/b",         u"b"    },
    {u"/../..",     u"/",          u""     },
    {u"/a/",        u"/a/",        u""     },
    {u"/a/b/..",    u"/a",         u"a"    },
    {u"/a\\b/c\\d", u"/a\\b/c\\d", u"c\\d" },
};

TEST_F(System, PathsAreMadeWholeAndCutAtTheLastSlash)
{
    for (const PathRow& row : AbsolutePaths) {
        WCHAR full[MAX_PATH];
        WCHAR* part = full;
        EXPECT_EQ(GetFullPathNameW(row.path, MAX_PATH, full, &part), std::u16string_view(row.full).size());
        EXPECT_EQ(std::u16string(full), row.full);
        EXPECT_EQ(std::u16string(part ? part : u""), row.filePart);
    }
    WCHAR full[4] = u"...";
    EXPECT_EQ(GetFullPathNameW(u"/abc", 4, full, nullptr), 5u);
    EXPECT_EQ(std::u16string(full), u"...");
    EXPECT_EQ(Refusal(GetFullPathNameW(u"", 4, full, nullptr)), ERROR_INVALID_NAME);
    const std::u16string here = ToWide(std::filesystem::current_path().native());
    EXPECT_EQ(FullPath(u"-New-"), here + u"/-New-");
    EXPECT_EQ(FullPath(u"."), here);
}

struct LocaleRow {
    const char* locale;
    int country;
    LANGID language;
};
constexpr LocaleRow Rows[] = {
    {"C",                     1,   0x0409},
    {"",                      1,   0x0409},
    {"xx_QQ.UTF-8",           1,   0x0409},
    {"de_DE.UTF-8",           49,  0x0407},
    {"de",                    49,  0x0407},
    {"de_AT.ISO-8859-1@euro", 43,  0x0C07},
    {"fr_CA.UTF-8",           1,   0x0C0C},
    {"zh_TW.UTF-8",           886, 0x0404},
    {"de_NL.UTF-8",           31,  0x0407}, // a territory without a row of its own in that language
    {"sr_RS.UTF-8",           381, 0x0C1A},
    {"sr_RS.UTF-8@latin",     381, 0x081A},
    {"en_AX.UTF-8",           358, 0x0409},
};

TEST(LocaleTable, GivesCountryAndLanguageOfALocaleName)
{
    for (const LocaleRow& row : Rows) {
        EXPECT_EQ(TelephoneCountry(row.locale), row.country) << row.locale;
        EXPECT_EQ(LanguageIdentifier(row.locale), row.language) << row.locale;
    }
}

TEST(LocaleVariables, DecideInTheirOrder)
{
    constexpr const char* Names[] = {"LC_ALL", "LC_PAPER", "LC_MESSAGES", "LANG"};
    const struct {
        const char* values[4];
        int country;
        LANGID language;
    } rows[] = {
        {{"it_IT", "de_DE", "de_DE", nullptr},             39, 0x0410},
        {{nullptr, "de_DE.UTF-8", "en_GB", "fr_FR.UTF-8"}, 49, 0x0809},
        {{"", nullptr, nullptr, "fr_FR.UTF-8"},            33, 0x040C},
        {{nullptr, nullptr, nullptr, nullptr},             1,  0x0409},
    };
    for (const auto& row : rows) {
        for (std::size_t i = 0; i < std::size(Names); ++i)
            row.values[i] ? setenv(Names[i], row.values[i], 1) : unsetenv(Names[i]);
        EXPECT_EQ(MakeMachineFacts()->Country(), row.country);
        EXPECT_EQ(MakeMachineFacts()->Language(), row.language) << row.country;
    }
}

TEST(MachineFacts, TellTheTimeOfTheClock)
{
    const SYSTEMTIME now = MakeMachineFacts()->LocalTime();
    EXPECT_GE(now.wYear, 2024);
    EXPECT_TRUE(now.wMonth >= 1 && now.wMonth <= 12);
}

}  // namespace
}  // namespace platform
