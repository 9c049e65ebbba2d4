#include "tests/platform/user_rig.h"

#include <gtest/gtest.h>

#include <utility>

#include "platform/seams/environment.h"

namespace user_tests {

namespace {

Rig* TheRig = nullptr;

std::string CommandLine(WPARAM wParam, LPARAM lParam)
{
    const std::string id = std::to_string(static_cast<SHORT>(LowWord(wParam)));
    if (!lParam) return "command " + id;
    constexpr std::pair<WORD, const char*> Names[] = {
        {EN_CHANGE,     "change "   },
        {EN_KILLFOCUS,  "killfocus "},
        {BN_CLICKED,    "click "    },
        {CBN_SELCHANGE, "pick "     },
    };
    for (const auto& [code, name] : Names)
        if (HighWord(wParam) == code) return name + id;
    return "code " + std::to_string(HighWord(wParam));
}

std::string NoticeLine(const NMHDR& header)
{
    if (header.code != LVN_ITEMCHANGED) return "notice " + std::to_string(header.code);
    const auto& notice = reinterpret_cast<const NMLISTVIEW&>(header);
    const bool on = notice.uNewState & LVIS_SELECTED;
    return (on ? "on " : "off ") + std::to_string(header.idFrom) + ":" + std::to_string(notice.iItem);
}

}  // namespace

void RigDesktop::Run(HWND top)
{
    if (runs.empty()) return;
    const auto next = std::move(runs.front());
    runs.erase(runs.begin());
    next(top);
}

ControlTemplate Make(std::u16string className, int id, DWORD style, std::u16string text)
{
    ControlTemplate control;
    control.className = std::move(className);
    control.id = id;
    control.style = style;
    control.text = std::move(text);
    control.rect = {10, 10, 60, 30};
    return control;
}

INT_PTR RigProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (!TheRig) return FALSE;
    auto& log = TheRig->log;
    if (message == WM_COMMAND) log.push_back(CommandLine(wParam, lParam));
    if (message == WM_NOTIFY) log.push_back(NoticeLine(*reinterpret_cast<const NMHDR*>(lParam)));
    if (message == WM_DRAWITEM)
        log.push_back("draw " + std::to_string(reinterpret_cast<const DRAWITEMSTRUCT*>(lParam)->CtlID));
    if (message == WM_HELP) log.push_back("help " + std::to_string(reinterpret_cast<const HELPINFO*>(lParam)->iCtrlId));
    for (const auto& [plain, name] : {
             std::pair{WM_INITDIALOG, "init"   },
             {WM_PAINT,      "paint"  },
             {WM_DESTROY,    "destroy"}
    })
        if (message == plain) log.push_back(name);
    return TheRig->answer ? TheRig->answer(dialog, message, wParam, lParam) : FALSE;
}

Rig::Rig(std::vector<ControlTemplate> controls, Answer given) : answer(std::move(given))
{
    auto made_ = std::make_shared<RigDesktop>();
    desktop = made_.get();
    platform::CurrentEnvironment().desktop = std::move(made_);
    platform::CurrentEnvironment().faults.Clear();
    TheRig = this;
    layout.width = 200;
    layout.height = 100;
    layout.controls = std::move(controls);
    dialog = MakeDialog({nullptr, 1, nullptr, RigProcedure, 0, true}, layout);
    EXPECT_NE(dialog, nullptr);
}

Rig::~Rig()
{
    Destroy(dialog);
    TheRig = nullptr;
    platform::CurrentEnvironment().faults.Clear();
    platform::CurrentEnvironment().desktop = nullptr;
    EXPECT_EQ(WindowCount(), 0u);
}

void Rig::Up(const std::function<void()>& body)
{
    bool ran = false;
    desktop->runs.insert(desktop->runs.begin(), [&](HWND top) {
        EXPECT_EQ(top, dialog);
        log.clear();
        body();
        ran = true;
        End(dialog, IDOK);
    });
    EXPECT_TRUE(RunModal(dialog));
    EXPECT_TRUE(ran);
}

std::u16string Rig::Text(HWND window)
{
    const Window* found = Find(window);
    return found ? found->text : u"(gone)";
}

}  // namespace user_tests
