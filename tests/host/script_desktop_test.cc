#include "host/script_desktop.h"

#include "platform/controls/property_sheet.h"
#include "platform/seams/environment.h"
#include "platform/services.h"
#include "platform/user/windows.h"

namespace {

using namespace host;
using namespace platform;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

// Numbers of the one page's controls, and what a click on each button brings up.
constexpr int Field = 10, Greyed = 11, List = 12, AsksButton = 20, WarnsButton = 21, OpensButton = 22, SavesButton = 23;

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

const char16_t* AskInDialog(HWND page)
{
    user::DialogTemplate layout;
    layout.controls = {Make(u"Button", IDOK), Make(u"Button", IDCANCEL)};
    const HWND dialog = user::MakeDialog({nullptr, 2, page, DialogProc, 0}, layout);
    user::RunModal(dialog);
    const bool ok = user::Find(dialog)->As<user::DialogState>()->result == IDOK;
    user::Destroy(dialog);
    return ok ? u"ended by OK" : u"ended by Cancel";
}

std::u16string AnswerTo(int button, HWND page)
{
    Desktop& desktop = *CurrentEnvironment().desktop;
    FileDialogRequest file{page, true, u"File", u"/forms", u"old", u"oxl", {{u"Forms (*.oxl)", u"*.oxl"}}, 2, {}};
    file.accept = [](const std::u16string& path) { return path.find(u"bad") == path.npos; };
    switch (button) {
        case AsksButton:
            return desktop.MessageBox({page, u"Really?", u"Question", MB_OKCANCEL}) == IDOK ? u"yes" : u"no";
        case WarnsButton:
            return desktop.MessageBox({page, u"So it is.", u"Warning", MB_OK | MB_ICONEXCLAMATION}) == IDOK ? u"ok"
                                                                                                            : u"";
        case OpensButton:
            return AskInDialog(page);
        default:
            return desktop.PickFile(file).value_or(u"none");
    }
}

INT_PTR PageProc(HWND page, UINT message, WPARAM wParam, LPARAM)
{
    if (message != WM_COMMAND || HighWord(wParam) != BN_CLICKED) return FALSE;
    user::SetText(user::Control(page, Field), AnswerTo(LowWord(wParam), page));
    return TRUE;
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

Played Play(const std::string& script, bool strict = false)
{
    Played played;
    ScriptLinks links;
    links.print = [&](const Json& line) { played.lines.push_back(ToLine(line)); };
    links.record = [] { return Json::parse(R"({"dmZoom": 100})"); };
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

// What the field shows at the end of the script.
std::string FieldAfter(const std::string& script)
{
    const Json dump = Json::parse(Play(script + "\ndump").lines.back())["dump"];
    return dump["controls"][0]["text"];
}

TEST(ScriptDesktop, EndsTheSheetAsTheScriptSays)
{
    EXPECT_EQ(Play("ok").result, CPSUI_OK);
    EXPECT_EQ(Play("cancel").result, CPSUI_CANCEL);
    EXPECT_EQ(Play("").result, CPSUI_CANCEL);
    EXPECT_EQ(Play("click 22").result, CPSUI_CANCEL) << "with the dialog over it";
}

TEST(ScriptDesktop, ReportsARefusedStepAndGoesOn)
{
    const std::pair<const char*, const char*> rows[] = {
        {"type 11 \"x\"",       R"(11, "reason": "disabled")"   },
        {"click 99",            R"(99, "reason": "absent")"     },
        {"click 10",            R"(10, "reason": "unsuited")"   },
        {"choose 12 2",         R"(12, "reason": "no such row")"},
        {"choose 12 \"third\"", R"(12, "reason": "no such row")"},
        {"apply",               R"(null, "reason": "disabled")" },
        {"answer ok",           R"(null, "reason": "absent")"   },
        {"file cancel",         R"(null, "reason": "absent")"   },
    };
    for (const auto& [step, refused] : rows) {
        const Played played = Play(std::string("focus 10\n") + step + "\nok");
        EXPECT_THAT(played.lines, ElementsAre(std::string(R"({"refused": {"line": 2, "control": )") + refused + "}}"));
        EXPECT_EQ(played.result, CPSUI_OK);
        EXPECT_EQ(played.trouble, "");
    }
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
    EXPECT_EQ(FieldAfter("click 20\nanswer ok"), "yes");
    EXPECT_EQ(FieldAfter("click 20\nanswer cancel"), "no");
    EXPECT_EQ(FieldAfter("click 20"), "no");
    // A box that has only OK gets its OK.
    EXPECT_THAT(
        Play("click 21\nanswer cancel\nok").lines,
        ElementsAre(R"({"message": {"caption": "Warning", "text": "So it is.", "style": 48, "answer": "ok"}})"));
}

TEST(ScriptDesktop, PlaysOnInTheDialogThatAStepOpened)
{
    EXPECT_THAT(Play("click 22\npage \"Page\"").lines,
                ElementsAre(R"({"refused": {"line": 2, "control": null, "reason": "absent"}})"));
    EXPECT_EQ(FieldAfter("click 22\nok"), "ended by OK");
}

TEST(ScriptDesktop, OffersTheNextPathWhenOneIsRefused)
{
    EXPECT_THAT(
        Play("click 23\nfile \"bad\"\nfile \"/srv/good\"").lines,
        ElementsAre(R"x({"fileDialog": {"kind": "save", "title": "File", "directory": "/forms", "name": "old", )x"
                    R"x("filters": ["Forms (*.oxl)"], "flags": 2, "result": "/srv/good.oxl"}})x"));
    EXPECT_EQ(FieldAfter("click 23\nfile \"bad\"\nfile \"/srv/good\""), "/srv/good.oxl");
    for (const char* answer : {"file \"bad\"", "file cancel", ""})
        EXPECT_EQ(FieldAfter(std::string("click 23\n") + answer), "none") << answer;
}

TEST(ScriptDesktop, DumpsTheActivePage)
{
    const Json dump = Json::parse(Play("type 10 \"a\"\nchoose 12 \"second\"\ndump\nok").lines.front())["dump"];
    EXPECT_THAT(ToLine(dump), StartsWith(R"({"template": 1, "title": "Page", "focus": 12, "applyEnabled": false, )"
                                         R"("changes": 0, "controls": [{"id": 10, "class": "Edit", "text": "a")"));
    EXPECT_EQ(ToLine(dump["controls"][2]),
              R"({"id": 12, "class": "ComboBox", "text": "second", "enabled": true, "visible": true, )"
              R"("items": ["first", "second"], "data": [5, 6], "selection": 1})");
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
