// Makes dialogs and their controls from templates.
#include <algorithm>

#include "platform/kernel/last_error.h"
#include "platform/kernel/modules.h"
#include "platform/seams/desktop.h"
#include "platform/seams/environment.h"
#include "platform/user/controls.h"
#include "platform/user/node.h"

namespace platform::user {

namespace {

constexpr DWORD ERROR_CANNOT_FIND_WND_CLASS = 1407;
constexpr DWORD SS_CENTERIMAGE = 0x200, SS_REALSIZECONTROL = 0x040;
constexpr int IconSide = 32;  // pixels

struct ClassRow {
    const char16_t* name;
    Kind kind;
};
constexpr ClassRow Classes[] = {
    {u"Button",          Kind::Button  },
    {u"Edit",            Kind::Edit    },
    {u"Static",          Kind::Static  },
    {u"ListBox",         Kind::ListBox },
    {u"ComboBox",        Kind::ComboBox},
    {u"SysListView32",   Kind::ListView},
    {u"msctls_updown32", Kind::UpDown  },
    {u"SysTreeView32",   Kind::TreeView},
};

bool SameName(std::u16string_view a, std::u16string_view b)
{
    auto lower = [](char16_t c) { return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + 32) : c; };
    return std::ranges::equal(a, b, {}, lower, lower);
}

const ClassRow* ClassOf(std::u16string_view name)
{
    const auto found = std::ranges::find_if(Classes, [&](const ClassRow& row) { return SameName(row.name, name); });
    return found == std::end(Classes) ? nullptr : found;
}

void GiveState(Node& control, const ControlTemplate& layout)
{
    switch (control.kind) {
        case Kind::Button:
            control.state = ButtonState{};
            break;
        case Kind::Static:
            control.state = StaticState{layout.resource};
            break;
        case Kind::Edit:
            control.state = EditState{};
            break;
        case Kind::ComboBox:
            control.text.clear();
            [[fallthrough]];
        case Kind::ListBox:
            control.state = ListState{};
            break;
        case Kind::UpDown:
            control.state = UpDownState{};
            break;
        case Kind::ListView:
            control.state = ListViewState{};
            break;
        case Kind::TreeView:
            control.state = TreeState{};
            break;
        case Kind::Dialog:
        case Kind::Sheet:
        case Kind::Owner:
            break;
    }
    // An icon gives its control its own size, whatever the template says.
    if (control.kind == Kind::Static && (control.style & SS_TYPEMASK) == SS_ICON &&
        (control.style & (SS_CENTERIMAGE | SS_REALSIZECONTROL)) == 0) {
        control.rect.right = control.rect.left + IconSide;
        control.rect.bottom = control.rect.top + IconSide;
    }
}

void MakeControl(Node& dialog, const ControlTemplate& layout, Kind kind)
{
    const auto control = AddNode(kind, layout.className, dialog.handle);
    control->text = layout.text;
    control->style = layout.style;
    control->exStyle = layout.exStyle;
    control->id = layout.id;
    control->rect = layout.rect;
    control->visible = (layout.style & WS_VISIBLE) != 0;
    control->enabled = (layout.style & WS_DISABLED) == 0;
    GiveState(*control, layout);
    const HWND before = dialog.children.empty() ? nullptr : dialog.children.back();
    dialog.children.push_back(control->handle);
    if (kind == Kind::UpDown && (control->style & UDS_AUTOBUDDY)) AttachBuddy(control->handle, before);
}

}  // namespace

HWND MakeDialog(const DialogPlan& plan, const DialogTemplate& layout)
{
    for (const ControlTemplate& control : layout.controls)
        if (!ClassOf(control.className)) {
            SetError(ERROR_CANNOT_FIND_WND_CLASS);
            return nullptr;
        }

    Node* sheet = NodeOf(plan.parent);
    if (sheet && (sheet->kind != Kind::Sheet || plan.modal)) sheet = nullptr;
    const auto dialog = AddNode(Kind::Dialog, u"#32770", sheet ? plan.parent : TopLevelOf(plan.parent));
    const HWND handle = dialog->handle;
    dialog->text = layout.title;
    dialog->style = layout.style;
    dialog->exStyle = layout.exStyle;
    dialog->id = 0;
    dialog->rect = {0, 0, layout.width, layout.height};
    dialog->visible = false;
    if (sheet) sheet->children.push_back(handle);

    DialogState& state = dialog->state.emplace<DialogState>();
    state.module = plan.module;
    state.templateNumber = plan.templateNumber;
    state.procedure = plan.procedure;
    state.modal = !sheet;
    if (const auto desktop = CurrentEnvironment().desktop)
        state.picture = desktop->MakePicture(handle, layout.width, layout.height);
    for (const ControlTemplate& control : layout.controls)
        MakeControl(*dialog, control, ClassOf(control.className)->kind);

    const HWND first = NextTabStop(*dialog, nullptr, false);
    const LRESULT setDefault = Send(handle, WM_INITDIALOG, reinterpret_cast<WPARAM>(first), plan.parameter);
    if (!NodeOf(handle)) return nullptr;
    // The procedure may have disabled or hidden what was first.
    if (setDefault || !state.focus) state.focus = NextTabStop(*dialog, nullptr, false);
    return handle;
}

HWND MakeDialog(const DialogPlan& plan)
{
    const auto bytes = modules::Resource(plan.module, modules::DialogResource, plan.templateNumber);
    if (bytes.empty()) {
        SetError(ERROR_RESOURCE_NAME_NOT_FOUND);
        return nullptr;
    }
    const auto layout = ParseDialogTemplate(bytes, nullptr);
    if (!layout) {
        SetError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    return MakeDialog(plan, *layout);
}

}  // namespace platform::user
