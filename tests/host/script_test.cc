#include "host/script.h"

#include "platform/user.h"

namespace {

using namespace host;
using platform::user::Key;
using platform::user::SheetButton;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;

Step Only(std::string_view line)
{
    const auto steps = ParseScript(line);
    EXPECT_THAT(steps, SizeIs(1)) << line;
    return steps.empty() ? Step{} : steps.front();
}

std::string Complaint(std::string_view script)
{
    try {
        ParseScript(script);
    } catch (const ScriptError& error) {
        return error.what();
    }
    return "none";
}

struct ControlRow {
    const char* line;
    StepKind kind;
    int control;
    std::optional<std::u16string> text;
    int number;
};
constexpr int Unset = 0;

class ControlStep : public testing::TestWithParam<ControlRow> {};

TEST_P(ControlStep, IsRead)
{
    const Step step = Only(GetParam().line);
    EXPECT_EQ(step.kind, GetParam().kind);
    EXPECT_EQ(step.control, GetParam().control);
    EXPECT_EQ(step.text, GetParam().text);
    EXPECT_EQ(step.number, GetParam().number);
}

INSTANTIATE_TEST_SUITE_P(Script, ControlStep,
                         testing::Values(ControlRow{"click 1060", StepKind::Click, 1060, {}, Unset},
                                         ControlRow{"click IDC_RESOLUTION", StepKind::Click, 1060, {}, Unset},
                                         ControlRow{"choose 1060 2", StepKind::Choose, 1060, {}, 2},
                                         ControlRow{"choose 1060 \"2\"", StepKind::Choose, 1060, u"2", Unset},
                                         ControlRow{"row 1123 0", StepKind::Row, 1123, {}, 0},
                                         ControlRow{"type 1097 \"\"", StepKind::Type, 1097, u"", Unset},
                                         ControlRow{"append 1097 \"5\"", StepKind::Append, 1097, u"5", Unset},
                                         ControlRow{"paste 1097 \"a b\"", StepKind::Paste, 1097, u"a b", Unset},
                                         ControlRow{"spin 1098 up", StepKind::Spin, 1098, {}, 1},
                                         ControlRow{"spin 1098 down 20", StepKind::Spin, 1098, {}, 20},
                                         ControlRow{"\tfocus  1097\t", StepKind::Focus, 1097, {}, Unset}));

TEST(Script, TellsUpFromDown)
{
    EXPECT_TRUE(Only("spin 1 up").up);
    EXPECT_FALSE(Only("spin 1 down").up);
}

TEST(Script, KnowsTheKeysAndTheButtons)
{
    EXPECT_EQ(Only("key TAB").key, Key::Tab);
    EXPECT_EQ(Only("key ESC").key, Key::Escape);
    EXPECT_EQ(Only("key F1").key, Key::F1);
    EXPECT_EQ(Only("apply").button, SheetButton::Apply);
    EXPECT_EQ(Only("help").button, SheetButton::Help);
}

TEST(Script, TellsAnAnswerFromItsOpposite)
{
    EXPECT_EQ(Only("answer ok").answer, IDOK);
    EXPECT_EQ(Only("answer cancel").answer, IDCANCEL);
    EXPECT_EQ(Only("file cancel").text, std::nullopt);
    EXPECT_EQ(Only("file \"cancel\"").text, u"cancel");
}

TEST(Script, UnfoldsWhatABackslashStandsFor)
{
    EXPECT_EQ(Only(R"(type 1 "say \"a\\b\"\n# no comment")").text, u"say \"a\\b\"\n# no comment");
}

TEST(Script, KeepsTextBeyondAscii) { EXPECT_EQ(Only("page \"\xC3\x9C\xF0\x9D\x84\x9E\"").text, u"\u00DC\U0001D11E"); }

TEST(Script, PassesOverTheMarkOfAnEditor)
{
    EXPECT_EQ(Only("\xEF\xBB\xBF"
                   "apply")
                  .button,
              SheetButton::Apply);
}

TEST(Script, CountsLinesAndLeavesOutCommentsAndBlankOnes)
{
    const auto steps = ParseScript("# a walk\r\n\n  ok # and out\n\t\nsnapshot out/a.png#b\ndump");
    ASSERT_THAT(steps, SizeIs(3));
    EXPECT_EQ(steps[0].line, 3);
    EXPECT_EQ(steps[1].text, u"out/a.png");
    EXPECT_EQ(steps[2].line, 6);
}

struct BadRow {
    const char* script;
    const char* complaint;
};

class BadScript : public testing::TestWithParam<BadRow> {};

TEST_P(BadScript, IsRefusedWithLineAndReason)
{
    EXPECT_THAT(Complaint(GetParam().script), HasSubstr(GetParam().complaint));
}

INSTANTIATE_TEST_SUITE_P(
    Script, BadScript,
    testing::Values(BadRow{"ok\njump 3", "line 2 of the script: \"jump\" is no step"},
                    BadRow{"click", "line 1 of the script: the control is missing"},
                    BadRow{"click # 1060", "the control is missing"},
                    BadRow{"click IDC_NOTHING", "\"IDC_NOTHING\" is neither a control's number nor its IDC_ name"},
                    BadRow{"click -1", "neither a control's number"}, BadRow{"click 65536", "neither a control's"},
                    BadRow{"click 0x10", "neither a control's number"}, BadRow{"click \"5\"", "neither a control's"},
                    BadRow{"page Paper", "\"Paper\" is no text in double quotes"},
                    BadRow{"page \"Paper", "the text has no closing quote"},
                    BadRow{"page \"a\\t\"", "a backslash stands for nothing but"},
                    BadRow{"page \"a\\", "a backslash stands for nothing but"},
                    BadRow{"page \"a\"b", "right behind the text's closing quote"},
                    BadRow{"page\"a\"", "a blank is missing before"}, BadRow{"row 1123 \"0\"", "\"0\" is no row"},
                    BadRow{"row 1123 -1", "\"-1\" is no row"}, BadRow{"choose 1060 two", "\"two\" is no row"},
                    BadRow{"choose 1060 99999999999", "is no row (0 to 65535)"},
                    BadRow{"spin 1098 left", "\"left\" is none of up, down"},
                    BadRow{"spin 1098 up 0", "\"0\" is no number of clicks (1 to 100000)"},
                    BadRow{"key enter", "\"enter\" is none of TAB, ENTER, ESC, F1"},
                    BadRow{"answer yes", "\"yes\" is none of ok, cancel"},
                    BadRow{"file", "the path in double quotes, or cancel, is missing"},
                    BadRow{"ok now", "\"now\" is too much behind ok"}, BadRow{"\"ok\"", "\"ok\" is no step"},
                    BadRow{"ok\n\xFF", "line 2 of the script: the line is not UTF-8"},
                    BadRow{"dump\x01", "there is a control character in the line"}));

TEST(Script, RefusesANulInAText)
{
    EXPECT_THAT(Complaint(std::string_view("page \"a\0b\"", 10)), HasSubstr("control character"));
}

}  // namespace
