// The command line: what is accepted where, and how the program ends.
#include "tests/program/program.h"

using testing::AllOf;
using testing::HasSubstr;

namespace {

using Options = ProgramTest;

TEST_F(Options, ThatAreWrongAreToldWithStatusTwo)
{
    const std::vector<Refusal> rows = {
        {"",                        "A subcommand is required"                         },
        {"prnter",                  R"(there is no command "prnter")"                  },
        {"record shw",              R"(there is no command "shw")"                     },
        {"record show ''",          "FILE: a file is wanted"                           },
        {"printer list --colour",   "The following argument was not expected: --colour"},
        {"printer list x",          "The following argument was not expected: x"       },
        {"printer show",            "NAME is required"                                 },
        {"--store '' printer list", "--store: a file is wanted"                        },
        {"printer show \xff",       "the printer's name is not UTF-8"                  },
    };
    ExpectRefused(run, 2, "", rows);
}

TEST_F(Options, OfThePlatformThatAreWrongAreToldByTheirKeys)
{
    const std::pair<std::string, const char*> rows[] = {
        {"country",                  "KEY=VALUE is wanted"                                   },
        {"contry=1",                 R"(no key "contry"; there are country,)"                },
        {"country=DE",               "country wants a telephone country code from 1 to 99999"},
        {"country=0",                ""                                                      },
        {"language=409",             "language wants four hexadecimal digits"                },
        {"language=040g",            ""                                                      },
        {"codepage=65536",           ""                                                      },
        {"user=",                    "user wants a user's name"                              },
        {"time=2005-02-29T00:00:00", "time wants"                                            },
        {"time=2005-02-28T24:00:00", ""                                                      },
        {"time=2005-02-28 23:00:00", ""                                                      },
        {"os=2.5.1.2600",            "os wants PLATFORM.MAJOR.MINOR"                         },
        {"os=2.5.1.2600.65536",      ""                                                      },
        {"fonts=mine",               "fonts wants system or builtin"                         },
        {"fail=GetPrinterX",         R"(the platform layer has no function "GetPrinterX")"   },
        {"fail=malloc",              "the platform layer has no"                             },
        {"fail=GetPrinterW:0",       "fail wants FUNCTION,"                                  },
        {"fail=GetPrinterW:1x",      ""                                                      },
    };
    for (const auto& [value, message] : rows)
        ExpectRefused(run, 2, "printer list --platform ",
                      {
                          {"'" + value + "'", "--platform " + value + ": " + message}
        });
}

TEST_F(Options, StandBeforeAndBehindTheCommand)
{
    EXPECT_EQ(run("--store a printer add A"), Done());
    EXPECT_EQ(run("printer --store=a add B"), Done());
    EXPECT_EQ(run("printer show A --store a --platform country=49").status, 0);
    EXPECT_EQ(run("printer show B --platform=fail=GetPrinterW:2+ --store a").status, 0);
    EXPECT_FALSE(std::filesystem::exists(run.Path("qd480")));
    EXPECT_EQ(run("printer show A").status, 3);
    EXPECT_TRUE(std::filesystem::exists(run.Path("qd480/printers.db")));  // the default store
}

TEST_F(Options, HelpTellsEverythingAndNeedsNothing)
{
    const Result help = run("--help");
    EXPECT_EQ(help.status, 0);
    for (const char* word :
         {"printer", "record", "document-properties", "--store", "--platform", "country", "fail", "status", "N-up"})
        EXPECT_THAT(help.out, HasSubstr(word));
    EXPECT_THAT(run("printer data --help").out, AllOf(HasSubstr("--dword"), HasSubstr("--store")));
    EXPECT_THAT(run("sheet --help").out, AllOf(HasSubstr("spin CONTROL up|down [N]"), HasSubstr("answer ok|cancel")));
    EXPECT_FALSE(std::filesystem::exists(run.Path("qd480")));
}

TEST_F(Options, AStoreThatIsRefusedIsNamed)
{
    run.Put("letter", "Dear Sir or Madam,\n");
    EXPECT_EQ(run("--store letter printer list"), Failed("letter is no printers' store: it is no SQLite file"));
}

}  // namespace
