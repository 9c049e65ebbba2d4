#include "host/script_desktop.h"

#include <algorithm>

#include "host/dump.h"
#include "platform/kernel/unicode.h"
#include "platform/seams/surface.h"
#include "platform/services/file_dialog.h"
#include "platform/user/window.h"

namespace host {

namespace {

namespace user = platform::user;
using user::Outcome;
using user::SheetButton;

constexpr int HelpButton = 4;  // of a modal dialog, beside IDOK and IDCANCEL

const char* Reason(Outcome outcome)
{
    switch (outcome) {
        case Outcome::Absent:
            return "absent";
        case Outcome::Hidden:
            return "hidden";
        case Outcome::Disabled:
            return "disabled";
        case Outcome::Unsuited:
            return "unsuited";
        case Outcome::NoRow:
            return "no such row";
        case Outcome::ReadOnly:
            return "read-only";
        case Outcome::Done:
            break;
    }
    return "done";
}

bool OnControl(StepKind kind)
{
    switch (kind) {
        case StepKind::Click:
        case StepKind::Choose:
        case StepKind::Row:
        case StepKind::Type:
        case StepKind::Append:
        case StepKind::Paste:
        case StepKind::Spin:
        case StepKind::Focus:
            return true;
        default:
            return false;
    }
}

const user::SheetState* SheetOf(HWND top)
{
    const user::Window* window = user::Find(top);
    return window ? window->As<user::SheetState>() : nullptr;
}

// The first row with this text; a row past the end when there is none.
int RowOf(HWND list, const std::u16string& text)
{
    const user::Window* window = user::Find(list);
    const auto* state = window ? window->As<user::ListState>() : nullptr;
    if (!state) return 0;
    return static_cast<int>(std::ranges::find(state->items, text, &user::ListItem::text) - state->items.begin());
}

Outcome ShowTitled(HWND top, const std::u16string& title)
{
    const user::SheetState* sheet = SheetOf(top);
    if (!sheet) return Outcome::Absent;
    const auto page = std::ranges::find(sheet->pages, title, &user::SheetPage::title);
    if (page == sheet->pages.end()) return Outcome::Absent;
    return user::ShowPage(top, static_cast<int>(page - sheet->pages.begin()));
}

Outcome PressOn(HWND top, SheetButton button)
{
    if (SheetOf(top)) return user::PressButton(top, button);
    switch (button) {
        case SheetButton::Ok:
            return user::Click(user::Control(top, IDOK));
        case SheetButton::Cancel:
            return user::Click(user::Control(top, IDCANCEL));
        case SheetButton::Help:
            return user::Click(user::Control(top, HelpButton));
        case SheetButton::Apply:
            break;
    }
    return Outcome::Absent;
}

Outcome SpinOften(HWND upDown, bool up, int times)
{
    for (int i = 0; i < times; ++i) {
        if (const Outcome outcome = user::Spin(upDown, up); outcome != Outcome::Done) return outcome;
    }
    return Outcome::Done;
}

// What a step is about, for a message.
std::string Target(const Step& step)
{
    switch (step.kind) {
        case StepKind::Page:
            return "the page \"" + platform::ToUtf8(*step.text) + "\"";
        case StepKind::Key:
            return "what the key goes to";
        case StepKind::SheetButton:
            return "the button";
        case StepKind::Answer:
            return "the message box";
        case StepKind::File:
            return "the file dialog";
        default:
            return OnControl(step.kind) ? "control " + std::to_string(step.control) : "the dialog";
    }
}

bool HasOnlyOk(UINT style) { return (style & 0x0F) == MB_OK; }

}  // namespace

ScriptDesktop::ScriptDesktop(std::vector<Step> steps, ScriptLinks links, bool strict)
    : steps_(std::move(steps)), links_(std::move(links)), strict_(strict)
{
}

void ScriptDesktop::PlayRest()
{
    while (!Stopped() && next_ < steps_.size()) Play(steps_[next_++]);
}

void ScriptDesktop::Run(HWND top)
{
    while (!user::Ended(top) && !Stopped() && next_ < steps_.size()) Play(steps_[next_++]);
    if (!user::Ended(top)) user::Close(top);
}

std::shared_ptr<platform::Surface> ScriptDesktop::MakePicture(HWND, int, int)
{
    return std::make_shared<platform::RecordingSurface>();
}

int ScriptDesktop::MessageBox(const platform::MessageBoxRequest& request)
{
    const Step* given = TakeNext(StepKind::Answer);
    const int answer = HasOnlyOk(request.style) ? IDOK : given ? given->answer : IDCANCEL;
    Print("message", {
                         {"caption", Text(request.caption)           },
                         {"text",    Text(request.text)              },
                         {"style",   request.style                   },
                         {"answer",  answer == IDOK ? "ok" : "cancel"}
    });
    return answer;
}

std::optional<std::u16string> ScriptDesktop::PickFile(const platform::FileDialogRequest& request)
{
    std::optional<std::u16string> result;
    while (!result) {
        const Step* given = TakeNext(StepKind::File);
        if (!given || !given->text) break;
        const std::u16string path = platform::services::CompletePath(request, *given->text);
        if (!request.accept || request.accept(path)) result = path;
    }
    Json filters = Json::array();
    for (const platform::FileFilter& filter : request.filters) filters.push_back(Text(filter.name));
    Print("fileDialog", {
                            {"kind",      request.save ? "save" : "open" },
                            {"title",     Text(request.title)            },
                            {"directory", Text(request.directory)        },
                            {"name",      Text(request.name)             },
                            {"filters",   std::move(filters)             },
                            {"flags",     request.flags                  },
                            {"result",    result ? Text(*result) : Json()}
    });
    return result;
}

void ScriptDesktop::Help(const platform::HelpRequest& request)
{
    Print("help", {
                      {"file",    Text(request.file)},
                      {"command", request.command   },
                      {"data",    request.context   }
    });
}

void ScriptDesktop::Beep(UINT style) { Print("beep", style); }

void ScriptDesktop::Play(const Step& step)
{
    Guarded([&] {
        const Outcome outcome = OnControl(step.kind) ? DoOnControl(step) : Do(step);
        if (outcome != Outcome::Done) Refuse(step, outcome);
    });
}

Outcome ScriptDesktop::Do(const Step& step)
{
    if (step.kind == StepKind::Record) {
        Print("record", links_.record());
        return Outcome::Done;
    }
    const HWND top = user::TopWindow();
    if (!top) return Outcome::Absent;
    switch (step.kind) {
        case StepKind::Page:
            return ShowTitled(top, *step.text);
        case StepKind::Key:
            return user::Press(top, step.key);
        case StepKind::SheetButton:
            return PressOn(top, step.button);
        case StepKind::Dump:
            Print("dump", Dump(top));
            return Outcome::Done;
        case StepKind::Snapshot:
            links_.snapshot(top, platform::ToUtf8(*step.text));
            return Outcome::Done;
        default:
            return Outcome::Absent;  // an answer to what has not come up
    }
}

Outcome ScriptDesktop::DoOnControl(const Step& step)
{
    const HWND control = user::Control(user::DialogOf(user::TopWindow()), step.control);
    if (!control) return Outcome::Absent;
    switch (step.kind) {
        case StepKind::Click:
            return user::Click(control);
        case StepKind::Choose:
            return user::Pick(control, step.text ? RowOf(control, *step.text) : step.number);
        case StepKind::Row:
            return user::SelectRow(control, step.number);
        case StepKind::Type:
            return user::Type(control, *step.text);
        case StepKind::Append:
            return user::Append(control, *step.text);
        case StepKind::Paste:
            return user::Paste(control, *step.text);
        case StepKind::Spin:
            return SpinOften(control, step.up, step.number);
        default:
            return user::Focus(control);
    }
}

void ScriptDesktop::Refuse(const Step& step, Outcome outcome)
{
    Print("refused", {
                         {"line",    step.line                                         },
                         {"control", OnControl(step.kind) ? Json(step.control) : Json()},
                         {"reason",  Reason(outcome)                                   }
    });
    if (!strict_ || Stopped()) return;
    trouble_ = "line " + std::to_string(step.line) + " of the script was refused: " + Target(step) +
               (outcome == Outcome::NoRow ? " has " : " is ") + Reason(outcome);
}

const Step* ScriptDesktop::TakeNext(StepKind kind)
{
    if (Stopped() || next_ >= steps_.size() || steps_[next_].kind != kind) return nullptr;
    return &steps_[next_++];
}

void ScriptDesktop::Print(const char* name, Json content)
{
    Guarded([&] {
        links_.print(Json{
            {name, std::move(content)}
        });
    });
}

// The module lies between a step and what it brings about, and lets no exception through.
void ScriptDesktop::Guarded(const std::function<void()>& work)
{
    try {
        work();
    } catch (const std::exception& error) {
        if (!Stopped()) trouble_ = error.what();
    }
}

}  // namespace host
