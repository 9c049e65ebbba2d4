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
