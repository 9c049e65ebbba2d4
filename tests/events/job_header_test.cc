#include "events/job_header.h"

#include <set>

#include "events/language_codes.h"
#include "platform/kernel.h"
#include "tests/support/machine.h"
#include "tests/support/rendering_side.h"

namespace {

using namespace testing_support;
using platform::FixedFactValues;
using platform::OsVersion;
using testing::ElementsAre;

class JobHeader : public testing::Test {
  protected:
    std::vector<std::string> Sent(const FixedFactValues& facts = {})
    {
        Machine::UseFacts(facts);
        side.inputs.clear();
        SendJobHeader(side.job);
        return side.inputs;
    }
    // The text of a payload, up to its terminator.
    std::string Text(int escape, const FixedFactValues& facts)
    {
        return Sent(facts)[static_cast<std::size_t>(escape - ESCAPE_JOB_DATE)].c_str();
    }
    static std::string Padded(std::string text, std::size_t bytes)
    {
        text.resize(bytes);
        return text;
    }

    Machine machine;
    RenderingSide side;
};

TEST_F(JobHeader, SendsFivePayloadsToTheByte)
{
    EXPECT_THAT(Sent(), ElementsAre(Padded("20051231", 20), Padded("1745", 20),
                                    Padded("OS: Microsoft Windows XP (5.1.2600.2) ENU", 255),
                                    Padded("Username: user;App Filename: ", 255), Padded(";31/12/2005;17:45", 255)));
    EXPECT_THAT(side.Take(), ElementsAre("20736 in 20", "20737 in 20", "20738 in 255", "20739 in 255", "20740 in 255"));
}

TEST_F(JobHeader, DatesAndTimesKeepTheirPlaces)
{
    FixedFactValues facts;
    facts.time = {987, 3, 1, 2, 4, 5, 6, 7};
    EXPECT_EQ(Text(ESCAPE_JOB_DATE, facts), "09870302");
    EXPECT_EQ(Text(ESCAPE_JOB_TIME, facts), "0405");
    EXPECT_EQ(Text(ESCAPE_JOB_STAMP, facts), ";02/03/0987;04:05");
    facts.time = {65535, 65535, 0, 65535, 65535, 65535, 0, 0};
    EXPECT_EQ(Text(ESCAPE_JOB_DATE, facts), "655356553");  // the limit of 10 bytes, the last of them zero
    EXPECT_EQ(Text(ESCAPE_JOB_TIME, facts), "655356553");
}

TEST_F(JobHeader, NamesTheUserInTheNarrowCodePage)
{
    const std::string apart = ";App Filename: ";
    const std::tuple<std::u16string, UINT, std::string> rows[] = {
        {u"",                      1252,                apart },
        {                                   u"J\u00FCrgen",                    1252, "J\xFCrgen" + apart      },
        {              u"\u017B\u00F3\u0142w", 1250,                    "\xAF\xF3\xB3w" + apart},
        {        u"%s%d",                        1252,                          "%s%d" + apart               },
        { std::u16string(229,            u'u'),                               1252,                    std::string(229, 'u') + apart},
        {                                         std::u16string(230,         u'u'),     1252,           std::string(230, 'u') + ";App Filename:"},
        {                  std::u16string(255,                    u'u'),                        1252,   std::string(244, 'u')},
        {                                   std::u16string(256,                   u'u'),                1252,  apart},
    };
    for (const auto& [user, codePage, named] : rows) {
        FixedFactValues facts;
        facts.userName = user;
        facts.codePage = codePage;
        EXPECT_EQ(Text(ESCAPE_JOB_USER, facts), "Username: " + named) << user.size();
    }
}

TEST_F(JobHeader, NamesEverySystem)
{
    const std::pair<OsVersion, std::string> rows[] = {
        {{1, 4, 0, 950, 0},    "Windows 95 (4.0.950.0)"          },
        {{1, 4, 10, 1998, 0},  "Windows 98 (4.10.1998.0)"        },
        {{1, 4, 90, 3000, 0},  "Windows Millenium (4.90.3000.0)" },
        {{2, 5, 2, 3790, 1},   "Windows Server 2003 (5.2.3790.1)"},
        {{2, 5, 1, 2600, 3},   "Windows XP (5.1.2600.3)"         },
        {{2, 5, 0, 2195, 4},   "Windows 2000 (5.0.2195.4)"       },
        {{2, 4, 0, 1381, 6},   "Windows NT 4 (4.0.1381.6)"       },
        {{2, 3, 51, 1057, 5},  "Windows NT 4 (3.51.1057.5)"      },
        {{1, 4, 1, 1, 0},      "Windows (4.1.1.0)"               },
        {{1, 5, 0, 1, 0},      "Windows (5.0.1.0)"               },
        {{2, 5, 3, 1, 0},      "Windows (5.3.1.0)"               },
        {{2, 10, 0, 19045, 0}, "Windows (10.0.19045.0)"          },
        {{0, 1, 30, 159, 0},   "Win32s (1.30.159.0)"             },
        {{3, 5, 1, 1, 0},      "Win32s (5.1.1.0)"                },
    };
    FixedFactValues facts;
    for (const auto& [version, text] : rows) {
        facts.version = version;
        EXPECT_EQ(Text(ESCAPE_JOB_SYSTEM, facts), "OS: Microsoft " + text + " ENU");
    }
    Machine::Fail("GetVersionExW");  // the short query alone is answered: no service pack
    EXPECT_EQ(Text(ESCAPE_JOB_SYSTEM, {}), "OS: Microsoft Windows XP (5.1.2600.0) ENU");
}

TEST_F(JobHeader, WhatTheSystemDoesNotTellIsLeftOut)
{
    for (const char* function : {"GetVersionExW", "GetLocaleInfoW", "GetUserNameW"})
        platform::CurrentEnvironment().faults.Add(function, 1, true);
    const auto sent = Sent();
    ASSERT_EQ(sent.size(), 5u);
    EXPECT_EQ(sent[2], Padded("OS: Microsoft Windows OTH", 255));
    EXPECT_EQ(sent[3], Padded("Username: ;App Filename: ", 255));
}

TEST_F(JobHeader, NamesTheLanguageByItsFirstRow)
{
    constexpr std::pair<LANGID, const char*> rows[] = {
        {0x0000, "OTH"},
        {0x0409, "ENU"},
        {0x042A, "VIT"},
        {0x4001, "ARQ"},
        {0x040A, "ESN"},
        {0x0C0A, "OTH"},
        {0xFFFF, "OTH"},
    };
    FixedFactValues facts;
    for (const auto& [language, code] : rows) {
        facts.language = language;
        EXPECT_EQ(Text(ESCAPE_JOB_SYSTEM, facts), std::string("OS: Microsoft Windows XP (5.1.2600.2) ") + code);
    }
}

// The checksum (FNV-1a, 64 bits, over keys and codes in order) was taken from the printed list of languages.
TEST(LanguageCodes, AreThePrintedList)
{
    std::uint64_t sum = 0xCBF29CE484222325;
    std::set<std::u16string> codes, keys;
    for (const LanguageCode& row : LanguageCodeTable) {
        const std::u16string key = row.key, code = row.code;
        for (const WCHAR c : key + code) sum = (sum ^ c) * 0x100000001B3;
        // Each key finds the row in which it stands first.
        const bool first = keys.insert(key).second;
        EXPECT_EQ(LanguageCodeOf(row.key) == row.code, first) << testing::PrintToString(key);
        codes.insert(code);
    }
    EXPECT_EQ(sum, 0x80CD983F223FC083u);
    EXPECT_EQ(codes.size(), 131u);
    EXPECT_EQ(keys.size(), 127u);
}

}  // namespace
