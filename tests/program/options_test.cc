// The command line: what is accepted where, and how the program ends.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/program/program.h"

using testing::HasSubstr;
using testing::StartsWith;

namespace {

struct Wrong {
    const char* name;
    std::vector<std::string> words;
    const char* message;  // how standard error begins
};
class WrongUsage : public testing::TestWithParam<Wrong> {};

TEST_P(WrongUsage, IsToldWithStatusTwo)
{
    const Result run = Program()(GetParam().words);
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_THAT(run.err, StartsWith(GetParam().message));
}

std::vector<std::string> Platform(const std::string& value) { return {"--platform", value, "printer", "list"}; }

INSTANTIATE_TEST_SUITE_P(
    Options, WrongUsage,
    testing::Values(
        Wrong{
            "Nothing", {},
             "qd480: A subcommand is required"
},
        Wrong{"UnknownCommand", {"prnter"}, "qd480: "},
        Wrong{"UnknownOption",
              {"printer", "list", "--colour"},
              "qd480: The following argument was not expected: --colour"},
        Wrong{"OneWordTooMany", {"printer", "list", "x"}, "qd480: The following argument was not expected: x"},
        Wrong{"MissingName", {"printer", "show"}, "qd480: NAME is required"},
        Wrong{"EmptyStore", {"--store", "", "printer", "list"}, "qd480: --store: a file is wanted"},
        Wrong{"NameNotUtf8", {"printer", "show", "\xff"}, "qd480: the printer's name is not UTF-8"},
        Wrong{"NoKey", Platform("country"), "qd480: --platform country: KEY=VALUE is wanted"},
        Wrong{"UnknownKey", Platform("contry=1"), "qd480: --platform contry=1: no key \"contry\"; there are country,"},
        Wrong{"Country", Platform("country=DE"),
              "qd480: --platform country=DE: country wants a telephone country code from 1 to 99999"},
        Wrong{"CountryZero", Platform("country=0"), "qd480: --platform country=0: "},
        Wrong{"Language", Platform("language=409"),
              "qd480: --platform language=409: language wants four hexadecimal digits"},
        Wrong{"LanguageDigits", Platform("language=040g"), "qd480: --platform language=040g: "},
        Wrong{"CodePage", Platform("codepage=65536"), "qd480: --platform codepage=65536: "},
        Wrong{"User", Platform("user="), "qd480: --platform user=: user wants a user's name"},
        Wrong{"NoSuchDay", Platform("time=2005-02-29T00:00:00"),
              "qd480: --platform time=2005-02-29T00:00:00: time wants"},
        Wrong{"NoSuchHour", Platform("time=2005-02-28T24:00:00"), "qd480: --platform time="},
        Wrong{"TimeForm", Platform("time=2005-02-28 23:00:00"), "qd480: --platform time="},
        Wrong{"OsParts", Platform("os=2.5.1.2600"), "qd480: --platform os=2.5.1.2600: os wants PLATFORM.MAJOR.MINOR"},
        Wrong{"OsPack", Platform("os=2.5.1.2600.65536"), "qd480: --platform os=2.5.1.2600.65536: "},
        Wrong{"Fonts", Platform("fonts=mine"), "qd480: --platform fonts=mine: fonts wants system or builtin"},
        Wrong{"NoSuchFunction", Platform("fail=GetPrinterX"),
              "qd480: --platform fail=GetPrinterX: the platform layer has no function \"GetPrinterX\""},
        Wrong{"NotOfTheLayer", Platform("fail=malloc"), "qd480: --platform fail=malloc: the platform layer has no"},
        Wrong{"FailZero", Platform("fail=GetPrinterW:0"), "qd480: --platform fail=GetPrinterW:0: fail wants FUNCTION,"},
        Wrong{"FailText", Platform("fail=GetPrinterW:1x"), "qd480: --platform fail=GetPrinterW:1x: "}),
    [](const auto& instance) { return instance.param.name; });

TEST(Options, StandBeforeAndBehindTheCommand)
{
    Program run;
    EXPECT_EQ(run({"--store", "{}/a", "printer", "add", "A"}), Done());
    EXPECT_EQ(run({"printer", "--store={}/a", "add", "B"}), Done());
    EXPECT_EQ(run({"printer", "show", "A", "--store", "{}/a", "--platform", "country=49"}).status, 0);
    EXPECT_EQ(run({"printer", "show", "B", "--platform=fail=GetPrinterW:2+", "--store", "{}/a"}).status, 0);
    EXPECT_EQ(run({"printer", "show", "A"}).status, 3);  // the default store
}

TEST(Options, TheDefaultStoreStandsUnderTheDataFolder)
{
    Program run;
    EXPECT_EQ(run({"printer", "list"}).status, 0);
    EXPECT_TRUE(std::filesystem::exists(run.Path("qd480/printers.db")));
}

TEST(Options, HelpTellsEverythingAndNeedsNothing)
{
    Program run;
    const Result help = run({"--help"});
    EXPECT_EQ(help.status, 0);
    for (const char* word :
         {"printer", "record", "document-properties", "--store", "--platform", "country", "fail", "status", "N-up"}) {
        EXPECT_THAT(help.out, HasSubstr(word));
    }
    EXPECT_THAT(run({"printer", "data", "--help"}).out, testing::AllOf(HasSubstr("--dword"), HasSubstr("--store")));
    EXPECT_THAT(run({"sheet", "--help"}).out,
                testing::AllOf(HasSubstr("spin CONTROL up|down [N]"), HasSubstr("answer ok|cancel")));
    EXPECT_FALSE(std::filesystem::exists(run.Path("qd480")));
}

TEST(Options, AStoreThatIsRefusedIsNamed)
{
    Program run;
    run.Put("letter", "Dear Sir or Madam,\n");
    const Result list = run({"--store", "letter", "printer", "list"});
    EXPECT_EQ(list, (Result{3, "", "qd480: letter is no printers' store: it is no SQLite file\n"}));
    EXPECT_EQ(run.Contents("letter"), "Dear Sir or Madam,\n");
}

TEST(Options, OutputThatCannotBeWrittenIsAFailure)
{
    if (!std::filesystem::exists("/dev/full")) GTEST_SKIP();
    Program run;
    run.Put("r", std::string(80, '\0'));
    EXPECT_EQ(run({"record", "set", "r", "dmFields=1", "-o", "/dev/full"}),
              (Result{3, "", "qd480: cannot write /dev/full: No space left on device\n"}));
}

}  // namespace
