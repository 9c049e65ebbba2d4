#include "host/script.h"

#include "platform/user.h"

namespace {

using namespace host;
using platform::user::Key;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;
using testing::ThrowsMessage;

Step Only(std::string_view line)
{
    const auto steps = ParseScript(line);
    EXPECT_THAT(steps, SizeIs(1)) << line;
    return steps.empty() ? Step{} : steps.front();
}

// What the steps do, program tests tell.
TEST(Script, TellsANumberFromATextAndABlankFromAWord)
{
    EXPECT_EQ(Only("choose 1060 2").text, std::nullopt);
    EXPECT_EQ(Only("choose 1060 \"2\"").text, u"2");
    EXPECT_EQ(Only("file cancel").text, std::nullopt);
    EXPECT_EQ(Only("file \"cancel\"").text, u"cancel");
    EXPECT_EQ(Only("type 1097 \"\"").text, u"");
    EXPECT_EQ(Only("\tspin  1098 down 20\t").number, 20);
    EXPECT_EQ(Only("spin 1098 up").number, 1);
    EXPECT_EQ(Only("key ENTER").key, Key::Enter);
    EXPECT_EQ(Only("key ESC").key, Key::Escape);
}

TEST(Script, KeepsEveryCharacterOfAText)
{
    EXPECT_EQ(Only(R"(type 1 "say \"a\\b\"\n# no comment")").text, u"say \"a\\b\"\n# no comment");
    EXPECT_EQ(Only("page \"\xC3\x9C\xF0\x9D\x84\x9E\"").text, u"\u00DC\U0001D11E");
    EXPECT_EQ(Only("\xEF\xBB\xBF"
                   "spin 1 up")
                  .control,
              1)
        << "behind the mark of an editor";
}

TEST(Script, CountsLinesAndLeavesOutCommentsAndBlankOnes)
{
    const auto steps = ParseScript("# a walk\r\n\n  ok # and out\n\t\nsnapshot out/a.png#b\ndump");
    ASSERT_THAT(steps, SizeIs(3));
    EXPECT_EQ(steps[0].line, 3);
    EXPECT_EQ(steps[1].text, u"out/a.png");
    EXPECT_EQ(steps[2].line, 6);
}

TEST(Script, IsRefusedWithLineAndReason)
{
    const std::pair<std::string_view, const char*> rows[] = {
        {"ok\njump 3",              "line 2 of the script: \"jump\" is no step"                      },
        {"click",                   "line 1 of the script: the control is missing"                   },
        {"click # 1060",            "the control is missing"                                         },
        {"click IDC_NOTHING",       "\"IDC_NOTHING\" is neither a control's number nor its IDC_ name"},
        {"click -1",                "neither a control's number"                                     },
        {"click 65536",             "neither a control's"                                            },
        {"click 0x10",              "neither a control's number"                                     },
        {"click \"5\"",             "neither a control's"                                            },
        {"page Paper",              "\"Paper\" is no text in double quotes"                          },
        {"page \"Paper",            "the text has no closing quote"                                  },
        {"page \"a\\t\"",           "a backslash stands for nothing but"                             },
        {"page \"a\\",              "a backslash stands for nothing but"                             },
        {"page \"a\"b",             "right behind the text's closing quote"                          },
        {"page\"a\"",               "a blank is missing before"                                      },
        {"row 1123 \"0\"",          "\"0\" is no row"                                                },
        {"row 1123 -1",             "\"-1\" is no row"                                               },
        {"choose 1060 two",         "\"two\" is no row"                                              },
        {"choose 1060 99999999999", "is no row (0 to 65535)"                                         },
        {"spin 1098 left",          "\"left\" is none of up, down"                                   },
        {"spin 1098 up 0",          "\"0\" is no number of clicks (1 to 100000)"                     },
        {"key enter",               "\"enter\" is none of TAB, ENTER, ESC, F1"                       },
        {"answer yes",              "\"yes\" is none of ok, cancel"                                  },
        {"file",                    "the path in double quotes, or cancel, is missing"               },
        {"ok now",                  "\"now\" is too much behind ok"                                  },
        {"\"ok\"",                  "\"ok\" is no step"                                              },
        {"ok\n\xFF",                "line 2 of the script: the line is not UTF-8"                    },
        {"dump\x01",                "there is a control character in the line"                       },
        {{"page \"a\0b\"", 10},     "control character"                                              },
    };
    for (const auto& [text, complaint] : rows)
        EXPECT_THAT([script = text] { ParseScript(script); }, ThrowsMessage<ScriptError>(HasSubstr(complaint))) << text;
}

}  // namespace
