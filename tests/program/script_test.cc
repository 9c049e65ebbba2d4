// What a script's steps do to a sheet, and what is printed of it.
#include "tests/program/program.h"

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

class ScriptedSheet : public ProgramTest {
  protected:
    // What is printed before the line that tells the end.
    std::string Play(const std::string& script) const
    {
        const Result result = run("sheet NAME --platform country=1 --script -", script);
        EXPECT_EQ(result.err, "");
        return result.out.substr(0, result.out.find("{\"end\""));
    }
};

TEST_F(ScriptedSheet, RefusesAStepAndGoesOn)
{
    const std::pair<const char*, const char*> rows[] = {
        {"click 4711",           R"(4711, "reason": "absent")"     },
        {"click IDC_NUP_STYLE",  R"(1004, "reason": "disabled")"   },
        {"click IDC_NUP",        R"(1003, "reason": "unsuited")"   },
        {"choose 1003 6",        R"(1003, "reason": "no such row")"},
        {"choose 1003 \"3-up\"", R"(1003, "reason": "no such row")"},
        {"apply",                R"(null, "reason": "disabled")"   },
        {"page \"Colour\"",      R"(null, "reason": "absent")"     },
        {"answer ok",            R"(null, "reason": "absent")"     },
        {"file cancel",          R"(null, "reason": "absent")"     },
    };
    for (const auto& [step, refused] : rows)
        EXPECT_EQ(run("sheet NAME --script -", std::string("# a walk\n") + step + "\nok"),
                  Answered(std::string(R"({"refused": {"line": 2, "control": )") + refused + "}}\n" +
                           R"({"end": {"result": 1}})"));
}

TEST_F(ScriptedSheet, DumpsThePageInFront)
{
    const std::string dump = Play("choose 1003 \"2-up\"\nclick 1005\ndump");
    EXPECT_THAT(dump,
                StartsWith(R"({"dump": {"template": 1001, "title": "Setup", "focus": 1005, "applyEnabled": true, )"
                           R"("changes": 2, "controls": [{"id": 9523, "class": "Button", "text": "Easy Set", )"));
    for (
        const char* control : {
            R"({"id": 1003, "class": "ComboBox", "text": "2-up", "enabled": true, "visible": true, )"
            R"("items": ["Off", "2-up", "4-up", "6-up", "9-up", "16-up"], "data": [0, 1, 2, 3, 4, 5], "selection": 1})",
            R"({"id": 1303, "class": "Button", "text": "Gu&ide Paper", "enabled": false, "visible": true, "checked": )",
            R"({"id": 1107, "class": "ComboBox", "text": "<NONE>", "enabled": true, "visible": true, )"
            R"("items": ["<NONE>"], "data": null, "selection": 0})",
        })
        EXPECT_THAT(dump, HasSubstr(control));
}

// From 8 8/16 by 11 inches to 6 by 11 1/16; what is left open is cancelled.
TEST_F(ScriptedSheet, PlaysOnInTheDialogThatAStepOpened)
{
    const std::string played = Play(
        "page \"Paper\"\nclick IDC_EDIT_CUSTOM\npage \"Setup\"\nclick IDC_CP_NEW\ntype IDC_CP_NAME \"A\"\n"
        "append IDC_CP_NAME \"b\"\npaste IDC_CP_WIDTH_SIXTEENTHS \"\"\nspin IDC_CP_WIDTH_INCH_SPIN down 2\n"
        "spin IDC_CP_HEIGHT_SIXTEENTHS_SPIN up\nfocus IDC_CP_NAME\nkey TAB\nrow IDC_CP_LIST 0\ndump");
    EXPECT_THAT(played, StartsWith(R"({"refused": {"line": 3, "control": null, "reason": "absent"}})"
                                   "\n"
                                   R"({"dump": {"template": 1120, "title": "Custom Paper", "focus": 1123, )"
                                   R"("applyEnabled": null, "changes": null, )"));
    EXPECT_THAT(played, HasSubstr(R"("rows": [["Ab", "[6 0/16 x 11 1/16 inch]"]], "selection": 0, "mark": 0})"));
}

TEST_F(ScriptedSheet, GivesAnAnswerToTheBoxOfTheStepBefore)
{
    const std::string overwrite = "click IDC_EDIT_WATERMARK\nclick IDC_WM_NEW\ntype IDC_WM_NAME \"DRAFT\"\nok\n",
                      message =
                          "{\"beep\": 1}\n"
                          R"({"message": {"caption": "Warning", "text": "The watermark name is already registered.)"
                          R"(\nOverwrite it?", "style": 49, "answer": ")";
    EXPECT_EQ(Play(overwrite + "answer ok"), message + "ok\"}}\n");
    EXPECT_EQ(Play(overwrite + "answer cancel"), message + "cancel\"}}\n");
    EXPECT_EQ(Play(overwrite), message + "cancel\"}}\n");
    EXPECT_THAT(Play("choose IDC_DUPLEX \"Long Edge Binding\"\nanswer cancel"),
                HasSubstr(R"("style": 48, "answer": "ok"}})"))
        << "a box that has only OK";
}

TEST_F(ScriptedSheet, OffersTheNextPathWhenOneIsRefused)
{
    const std::string browse = "click IDC_EDIT_OVERLAY\nclick IDC_OVL_NEW\nclick IDC_OVL_BROWSE\n",
                      bad = "file \"/" + std::string(256, 'n') + "\"\n",
                      dialog = R"x({"fileDialog": {"kind": "save", "title": "File", "directory": ")x" +
                               run.Path(".").parent_path().string() +
                               R"x(", "name": "", "filters": ["Palette Files (*.oxl)", "All Files (*.*)"], )x"
                               R"x("flags": 11012142, "result": )x";
    EXPECT_THAT(Play(browse + bad + "file \"/srv/good\""), EndsWith(dialog + "\"/srv/good.oxl\"}}\n"));
    for (const std::string& none : {bad, std::string("file cancel"), std::string()})
        EXPECT_THAT(Play(browse + none), EndsWith(dialog + "null}}\n")) << none;
}

TEST_F(ScriptedSheet, TellsWhichHelpIsAskedFor)
{
    const std::string help =
        R"({"help": {"file": "C:\\WINDOWS\\system32\\spool\\DRIVERS\\W32X86\\3\\4820drv.HLP", "command": )";
    EXPECT_EQ(Play("focus IDC_NUP\nkey F1\nhelp"), help + "12, \"data\": 1114}}\n" + help + "1, \"data\": 1101}}\n");
}

TEST_F(ScriptedSheet, ShowsTheRecordAfterTheSheetHasGone)
{
    EXPECT_THAT(Play("ok\nrecord\nclick 10"),
                AllOf(StartsWith(R"({"record": {"dmDeviceName": )"),
                      EndsWith(R"({"refused": {"line": 3, "control": 10, "reason": "absent"}})"
                               "\n")));
}

}  // namespace
