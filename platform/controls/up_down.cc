// The up-down control: arrows that count in the field beside them, their buddy.
#include <algorithm>

#include "platform/user/controls.h"
#include "platform/user/node.h"
#include "platform/user/numbers.h"

namespace platform::user {

namespace {

constexpr int ArrowWidth = 16;  // pixels, where the template gives none

int Limited(const UpDownState& state, int position)
{
    return std::clamp(position, std::min(state.lower, state.upper), std::max(state.lower, state.upper));
}

void ShowPosition(const Window& upDown)
{
    const UpDownState& state = *upDown.As<UpDownState>();
    if (upDown.style & UDS_SETBUDDYINT) SetText(state.buddy, FormatNumber(state.position));
}

}  // namespace

void AttachBuddy(HWND upDown, HWND buddy)
{
    Window* arrows = Get(upDown);
    Window* field = Get(buddy);
    if (!arrows || !arrows->As<UpDownState>()) return;
    arrows->As<UpDownState>()->buddy = field ? buddy : nullptr;
    if (!field || !(arrows->style & (UDS_ALIGNRIGHT | UDS_ALIGNLEFT))) return;

    // The arrows take their place out of the field's.
    const int width = std::min(arrows->Width() > 0 ? arrows->Width() : ArrowWidth, field->Width());
    arrows->rect = field->rect;
    if (arrows->style & UDS_ALIGNRIGHT)
        field->rect.right = arrows->rect.left = arrows->rect.right - width;
    else
        field->rect.left = arrows->rect.right = arrows->rect.left + width;
}

void StepUpDown(HWND upDown, bool up)
{
    const auto arrows = Keep(upDown);
    UpDownState* state = arrows ? arrows->As<UpDownState>() : nullptr;
    if (!state) return;
    if (const Window* buddy = Find(state->buddy); buddy && (arrows->style & UDS_SETBUDDYINT))
        if (const auto shown = ParseNumber(buddy->text, true)) state->position = static_cast<int>(*shown);

    // Up goes towards the upper limit, also when that is the smaller one.
    const int first = std::min(state->lower, state->upper), last = std::max(state->lower, state->upper);
    const bool more = up == (state->lower <= state->upper);
    const std::int64_t next = std::int64_t{state->position} + (more ? 1 : -1);
    if ((arrows->style & UDS_WRAP) && state->position == (more ? last : first))
        state->position = more ? first : last;
    else
        state->position = static_cast<int>(std::clamp<std::int64_t>(next, first, last));
    ShowPosition(*arrows);
}

LRESULT UpDownMessage(Window& upDown, UINT message, WPARAM wParam, LPARAM lParam)
{
    UpDownState& state = *upDown.As<UpDownState>();
    switch (message) {
        case UDM_SETRANGE:
            state.upper = static_cast<SHORT>(LowWord(static_cast<DWORD_PTR>(lParam)));
            state.lower = static_cast<SHORT>(HighWord(static_cast<DWORD_PTR>(lParam)));
            Changed(upDown.handle);
            return 0;
        case UDM_SETPOS: {
            const int before = state.position;
            state.position = Limited(state, static_cast<SHORT>(LowWord(static_cast<DWORD_PTR>(lParam))));
            ShowPosition(upDown);
            return before;
        }
        case UDM_SETBUDDY: {
            const HWND before = state.buddy;
            AttachBuddy(upDown.handle, reinterpret_cast<HWND>(wParam));
            return reinterpret_cast<LRESULT>(before);
        }
        default:
            return CommonMessage(upDown, message, wParam, lParam);
    }
}

}  // namespace platform::user
