// The command line: what is accepted where, and how the program ends.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/program/program.h"

using testing::HasSubstr;
using testing::StartsWith;

namespace {

std::vector<std::string> Platform(const std::string& value) { return {"--platform", value, "printer", "list"}; }

TEST(Options, ThatAreWrongAreToldWithStatusTwo)
{
    const std::pair<std::vector<std::string>, const char*> rows[] = {
        {{},                                   "qd480: A subcommand is required"                                       },
        {{"prnter"},                           "qd480: there is no command \"prnter\""                                 },
        {{"record", "shw"},                    "qd480: there is no command \"shw\""                                    },
        {{"record", "show", ""},               "qd480: FILE: a file is wanted"                                         },
        {{"printer", "list", "--colour"},      "qd480: The following argument was not expected: --colour"              },
        {{"printer", "list", "x"},             "qd480: The following argument was not expected: x"                     },
        {{"printer", "show"},                  "qd480: NAME is required"                                               },
        {{"--store", "", "printer", "list"},   "qd480: --store: a file is wanted"                                      },
        {{"printer", "show", "\xff"},          "qd480: the printer's name is not UTF-8"                                },
        {Platform("country"),                  "qd480: --platform country: KEY=VALUE is wanted"                        },
        {Platform("contry=1"),                 "qd480: --platform contry=1: no key \"contry\"; there are country,"     },
        {Platform("country=DE"),
         "qd480: --platform country=DE: country wants a telephone country code from 1 to 99999"                        },
        {Platform("country=0"),                "qd480: --platform country=0: "                                         },
        {Platform("language=409"),             "qd480: --platform language=409: language wants four hexadecimal digits"},
        {Platform("language=040g"),            "qd480: --platform language=040g: "                                     },
        {Platform("codepage=65536"),           "qd480: --platform codepage=65536: "                                    },
        {Platform("user="),                    "qd480: --platform user=: user wants a user's name"                     },
        {Platform("time=2005-02-29T00:00:00"), "qd480: --platform time=2005-02-29T00:00:00: time wants"                },
        {Platform("time=2005-02-28T24:00:00"), "qd480: --platform time="                                               },
        {Platform("time=2005-02-28 23:00:00"), "qd480: --platform time="                                               },
        {Platform("os=2.5.1.2600"),            "qd480: --platform os=2.5.1.2600: os wants PLATFORM.MAJOR.MINOR"        },
        {Platform("os=2.5.1.2600.65536"),      "qd480: --platform os=2.5.1.2600.65536: "                               },
        {Platform("fonts=mine"),               "qd480: --platform fonts=mine: fonts wants system or builtin"           },
        {Platform("fail=GetPrinterX"),
         "qd480: --platform fail=GetPrinterX: the platform layer has no function \"GetPrinterX\""                      },
        {Platform("fail=malloc"),              "qd480: --platform fail=malloc: the platform layer has no"              },
        {Platform("fail=GetPrinterW:0"),       "qd480: --platform fail=GetPrinterW:0: fail wants FUNCTION,"            },
        {Platform("fail=GetPrinterW:1x"),      "qd480: --platform fail=GetPrinterW:1x: "                               },
    };
    for (const auto& [words, message] : rows) {
        const Result run = Program()(words);
        EXPECT_EQ(run.status, 2) << message;
        EXPECT_EQ(run.out, "");
        EXPECT_THAT(run.err, StartsWith(message));
    }
}

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

}  // namespace
