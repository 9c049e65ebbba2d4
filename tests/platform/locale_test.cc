#include <cstdlib>

#include "platform/seams/locale_table.h"
#include "platform/seams/system_facts.h"
#include "tests/platform/fresh_environment.h"

namespace platform {
namespace {

struct LocaleRow {
    const char* locale;
    int country;
    LANGID language;
};
constexpr LocaleRow Rows[] = {
    {"C",                     1,   0x0409},
    {"",                      1,   0x0409},
    {"xx_QQ.UTF-8",           1,   0x0409},
    {"en_GB",                 44,  0x0809},
    {"de_DE.UTF-8",           49,  0x0407},
    {"de",                    49,  0x0407},
    {"de_AT.ISO-8859-1@euro", 43,  0x0C07},
    {"fr_CA.UTF-8",           1,   0x0C0C},
    {"zh_TW.UTF-8",           886, 0x0404},
    {"es_MX.UTF-8",           52,  0x080A},
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

class LocaleVariables : public FreshEnvironment {
  protected:
    ~LocaleVariables() override
    {
        for (const char* name : Names) unsetenv(name);
    }
    static void Set(const char* name, const char* value) { value ? setenv(name, value, 1) : unsetenv(name); }

    static constexpr const char* Names[] = {"LC_ALL", "LC_PAPER", "LC_MESSAGES", "LANG"};
};

TEST_F(LocaleVariables, DecideInTheirOrder)
{
    const struct {
        const char *all, *paper, *messages, *lang;
        int country;
        LANGID language;
    } rows[] = {
        {nullptr, nullptr,       nullptr, nullptr,       1,  0x0409},
        {nullptr, "de_DE.UTF-8", "en_GB", "fr_FR.UTF-8", 49, 0x0809},
        {"",      nullptr,       nullptr, "fr_FR.UTF-8", 33, 0x040C},
        {"it_IT", "de_DE",       "de_DE", nullptr,       39, 0x0410},
    };
    for (const auto& row : rows) {
        const char* values[] = {row.all, row.paper, row.messages, row.lang};
        for (std::size_t i = 0; i < std::size(Names); ++i) Set(Names[i], values[i]);
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

TEST(FixedFacts, ListsNameLibrariesAndWindowsWithoutRegardToCase)
{
    FixedFactValues values;
    values.missingLibraries = u"compstui.dll\nspoolss.dll";
    values.windows = u"VWClass500";
    const auto facts = MakeFixedFacts(values);
    EXPECT_FALSE(facts->LibraryLoadable(u"COMPSTUI.DLL"));
    EXPECT_FALSE(facts->LibraryLoadable(u"spoolss.dll"));
    EXPECT_TRUE(facts->LibraryLoadable(u"stui.dll"));
    EXPECT_TRUE(facts->WindowExists(u"vwclass500"));
    EXPECT_FALSE(facts->WindowExists(u""));
}

}  // namespace
}  // namespace platform
