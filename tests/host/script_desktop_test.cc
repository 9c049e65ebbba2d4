#include "host/script_desktop.h"

#include "platform/controls/property_sheet.h"
#include "platform/seams/environment.h"
#include "platform/services.h"
#include "platform/user/windows.h"

namespace {

using namespace host;
using namespace platform;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

// Numbers of the one page's controls, and what a click on each button brings up.
constexpr int Field = 10, Greyed = 11, List = 12, AsksButton = 20, WarnsButton = 21, OpensButton = 22, SavesButton = 23;

void PickFile(HWND page, bool save)
{
    Desktop& desktop = *CurrentEnvironment().desktop;
    FileDialogRequest request{page, save, u"File", u"/forms", u"old", u"oxl", {{u"Forms (*.oxl)", u"*.oxl"}}, 2, {}};
    request.accept = [](const std::u16string& path) { return path.find(u"bad") == path.npos; };
    const auto path = desktop.PickFile(request);
    user::SetText(user::Control(page, Field), path.value_or(u"none"));
}

void AskInDialog(HWND page);

INT_PTR PageProc(HWND page, UINT message, WPARAM wParam, LPARAM)
{
    if (message != WM_COMMAND || HighWord(wParam) != BN_CLICKED) return FALSE;
    Desktop& desktop = *CurrentEnvironment().desktop;
    switch (LowWord(wParam)) {
        case AsksButton: {
            const int answer = desktop.MessageBox({page, u"Really?", u"Question", MB_OKCANCEL});
            user::SetText(user::Control(page, Field), answer == IDOK ? u"yes" : u"no");
            break;
        }
        case WarnsButton:
            desktop.MessageBox({page, u"So it is.", u"Warning", MB_OK | MB_ICONEXCLAMATION});
            break;
        case OpensButton:
            AskInDialog(page);
            break;
        case SavesButton:
            PickFile(page, true);
            break;
    }
    return TRUE;
}

INT_PTR DialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM)
{
    if (message != WM_COMMAND) return FALSE;
    if (LowWord(wParam) == IDOK || LowWord(wParam) == IDCANCEL) user::End(dialog, LowWord(wParam));
    return TRUE;
}

user::ControlTemplate Make(const char16_t* className, int id, DWORD style = 0)
{
    return {
        className, u"", 0, id, WS_CHILD | WS_VISIBLE | WS_TABSTOP | style, 0, RECT{0, 0, 50, 20}
    };
}

void AskInDialog(HWND page)
{
    user::DialogTemplate layout;
    layout.controls = {Make(u"Button", IDOK), Make(u"Button", IDCANCEL)};
    const HWND dialog = user::MakeDialog({nullptr, 2, page, DialogProc, 0}, layout);
    user::RunModal(dialog);
    const bool ok = user::Find(dialog)->As<user::DialogState>()->result == IDOK;
    user::Destroy(dialog);
    user::SetText(user::Control(page, Field), ok ? u"ended by OK" : u"ended by Cancel");
}

HWND MakePage(HWND sheet)
{
    user::DialogTemplate layout;
    layout.controls = {Make(u"Edit", Field),        Make(u"Edit", Greyed, WS_DISABLED), Make(u"ComboBox", List),
                       Make(u"Button", AsksButton), Make(u"Button", WarnsButton),       Make(u"Button", OpensButton),
                       Make(u"Button", SavesButton)};
    const HWND page = user::MakeDialog({nullptr, 1, sheet, PageProc, 0}, layout);
    user::AppendItem(user::Control(page, List), u"first", 5);
    user::AppendItem(user::Control(page, List), u"second", 6);
    return page;
}

struct Played {
    std::vector<std::string> lines;
    LONG result = 0;
    std::string trouble;
};

Played Play(const char* script, bool strict = false)
{
    Played played;
    ScriptLinks links;
    links.print = [&](const Json& line) { played.lines.push_back(ToLine(line)); };
    links.record = [] {
        return Json{
            {"dmZoom", 100}
        };
    };
    links.snapshot = [](HWND, const std::string& file) { throw std::runtime_error("no room for " + file); };
    const auto desktop = std::make_shared<ScriptDesktop>(ParseScript(script), links, strict);
    CurrentEnvironment().desktop = desktop;
    controls::SheetPlan sheet;
    sheet.pages.push_back({u"Page", false, MakePage});
    played.result = controls::RunPropertySheet(sheet);
    desktop->PlayRest();
    played.trouble = desktop->Trouble();
    CurrentEnvironment().desktop.reset();
    return played;
}

// What the field shows in the first dump among the lines.
std::string FieldIn(const Played& played)
{
    for (const std::string& line : played.lines) {
        const Json json = Json::parse(line);
        if (!json.contains("dump")) continue;
        for (const Json& control : json["dump"]["controls"]) {
            if (control["id"] == Field) return control["text"];
        }
    }
    return "no dump";
}

TEST(ScriptDesktop, EndsTheSheetAsTheScriptSays)
{
    EXPECT_EQ(Play("ok").result, CPSUI_OK);
    EXPECT_EQ(Play("cancel").result, CPSUI_CANCEL);
    EXPECT_EQ(Play("").result, CPSUI_CANCEL);
}

TEST(ScriptDesktop, ReportsARefusedStepAndGoesOn)
{
    const Played played = Play("type 11 \"x\"\nclick 99\nclick 10\nchoose 12 2\nchoose 12 \"third\"\napply\nok");
    EXPECT_THAT(played.lines, ElementsAre(R"({"refused": {"line": 1, "control": 11, "reason": "disabled"}})",
                                          R"({"refused": {"line": 2, "control": 99, "reason": "absent"}})",
                                          R"({"refused": {"line": 3, "control": 10, "reason": "unsuited"}})",
                                          R"({"refused": {"line": 4, "control": 12, "reason": "no such row"}})",
                                          R"({"refused": {"line": 5, "control": 12, "reason": "no such row"}})",
                                          R"({"refused": {"line": 6, "control": null, "reason": "disabled"}})"));
    EXPECT_EQ(played.result, CPSUI_OK);
    EXPECT_EQ(played.trouble, "");
}

TEST(ScriptDesktop, StopsAtTheFirstRefusalWhenStrict)
{
    const Played played = Play("click 99\ndump\nok", true);
    EXPECT_THAT(played.lines, ElementsAre(HasSubstr("refused")));
    EXPECT_EQ(played.result, CPSUI_CANCEL);
    EXPECT_THAT(played.trouble, HasSubstr("line 1 of the script was refused: control 99 is absent"));
    EXPECT_THAT(Play("choose 12 2", true).trouble, HasSubstr("control 12 has no such row"));
}

TEST(ScriptDesktop, GivesAnAnswerToTheBoxOfTheStepBefore)
{
    EXPECT_EQ(FieldIn(Play("click 20\nanswer ok\ndump")), "yes");
    EXPECT_EQ(FieldIn(Play("click 20\nanswer cancel\ndump")), "no");
    EXPECT_EQ(FieldIn(Play("click 20\ndump")), "no");
    // A box that has only OK gets its OK.
    EXPECT_THAT(
        Play("click 21\nanswer cancel\nok").lines,
        ElementsAre(R"({"message": {"caption": "Warning", "text": "So it is.", "style": 48, "answer": "ok"}})"));
}

TEST(ScriptDesktop, RefusesAnAnswerToNothing)
{
    EXPECT_THAT(Play("answer ok\nfile cancel").lines,
                ElementsAre(R"({"refused": {"line": 1, "control": null, "reason": "absent"}})",
                            R"({"refused": {"line": 2, "control": null, "reason": "absent"}})"));
}

TEST(ScriptDesktop, PlaysOnInTheDialogThatAStepOpened)
{
    const Played played = Play("click 22\npage \"Page\"\nok\ndump");
    EXPECT_THAT(played.lines.front(), R"({"refused": {"line": 2, "control": null, "reason": "absent"}})");
    EXPECT_EQ(FieldIn(played), "ended by OK");
}

TEST(ScriptDesktop, CancelsEveryDialogAtItsEnd) { EXPECT_EQ(Play("click 22").result, CPSUI_CANCEL); }

TEST(ScriptDesktop, OffersTheNextPathWhenOneIsRefused)
{
    const Played played = Play("click 23\nfile \"bad\"\nfile \"/srv/good\"\ndump");
    EXPECT_EQ(played.lines.front(),
              R"x({"fileDialog": {"kind": "save", "title": "File", "directory": "/forms", "name": "old", )x"
              R"x("filters": ["Forms (*.oxl)"], "flags": 2, "result": "/srv/good.oxl"}})x");
    EXPECT_EQ(FieldIn(played), "/srv/good.oxl");
}

TEST(ScriptDesktop, CancelsAFileDialogThatGetsNoGoodPath)
{
    EXPECT_EQ(FieldIn(Play("click 23\nfile \"bad\"\ndump")), "none");
    EXPECT_EQ(FieldIn(Play("click 23\nfile cancel\ndump")), "none");
    EXPECT_EQ(FieldIn(Play("click 23\ndump")), "none");
}

TEST(ScriptDesktop, DumpsTheActivePage)
{
    const Played played = Play("type 10 \"a\"\nchoose 12 \"second\"\ndump\nok");
    const Json dump = Json::parse(played.lines.front())["dump"];
    EXPECT_EQ(dump["template"], 1);
    EXPECT_EQ(dump["title"], "Page");
    EXPECT_EQ(dump["focus"], List);
    EXPECT_EQ(dump["applyEnabled"], false);
    EXPECT_EQ(dump["changes"], 0);
    EXPECT_THAT(std::vector<Json>(dump["controls"].begin(), dump["controls"].end()),
                Contains(Json::parse(R"({"id": 12, "class": "ComboBox", "text": "second", "enabled": true,
                    "visible": true, "items": ["first", "second"], "data": [5, 6], "selection": 1})")));
}

TEST(ScriptDesktop, StopsWithTheReasonWhenAPictureCannotBeWritten)
{
    const Played played = Play("snapshot a.png\nok");
    EXPECT_EQ(played.trouble, "no room for a.png");
    EXPECT_EQ(played.result, CPSUI_CANCEL);
}

TEST(ScriptDesktop, ShowsTheRecordAfterTheSheetHasGone)
{
    EXPECT_THAT(Play("ok\nrecord\nclick 10").lines,
                ElementsAre(R"({"record": {"dmZoom": 100}})",
                            R"({"refused": {"line": 3, "control": 10, "reason": "absent"}})"));
}

}  // namespace
