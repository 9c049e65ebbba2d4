#include <algorithm>

#include "platform/user/controls.h"
#include "platform/user/node.h"

namespace platform::user {

namespace {

constexpr std::size_t GreatestLimit = 0x7FFFFFFE;

struct Selection {
    std::size_t begin, length;
};

Selection SelectionOf(const Window& edit)
{
    const EditState& state = *edit.As<EditState>();
    const std::size_t size = edit.text.size();
    const std::size_t begin = std::min({state.anchor, state.caret, size});
    return {begin, std::min(std::max(state.anchor, state.caret), size) - begin};
}

// Puts text over the selection; the caret stands behind it.
void Put(Window& edit, std::u16string_view text)
{
    const auto [begin, length] = SelectionOf(edit);
    edit.text.replace(begin, length, text);
    EditState& state = *edit.As<EditState>();
    state.caret = state.anchor = begin + text.size();
    Touch(edit);
    NotifyParent(edit.handle, EN_CHANGE);
}

std::size_t Room(const Window& edit, std::size_t kept)
{
    const std::size_t limit = edit.As<EditState>()->limit;
    return kept < limit ? limit - kept : 0;
}

bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }
bool IsControlCharacter(char16_t c) { return c < 0x20 || c == 0x7F; }

bool KeyAccepted(const Window& edit, char16_t c)
{
    return !IsControlCharacter(c) && (!(edit.style & ES_NUMBER) || IsDigit(c));
}

std::shared_ptr<Window> KeepEdit(HWND edit)
{
    auto window = Keep(edit);
    return window && window->kind == Kind::Edit ? window : nullptr;
}

}  // namespace

void SelectText(HWND edit, std::size_t anchor, std::size_t caret)
{
    const auto window = KeepEdit(edit);
    if (!window) return;
    EditState& state = *window->As<EditState>();
    state.anchor = std::min(anchor, window->text.size());
    state.caret = std::min(caret, window->text.size());
    Changed(edit);
}

bool TypeCharacter(HWND edit, char16_t character)
{
    const auto window = KeepEdit(edit);
    if (!window || !KeyAccepted(*window, character)) return false;
    if (Room(*window, window->text.size() - SelectionOf(*window).length) == 0) return false;
    Put(*window, std::u16string_view(&character, 1));
    return true;
}

void DeleteSelection(HWND edit)
{
    const auto window = KeepEdit(edit);
    if (window && SelectionOf(*window).length > 0) Put(*window, {});
}

void PasteText(HWND edit, std::u16string_view text)
{
    const auto window = KeepEdit(edit);
    if (!window) return;
    // A line is all that fits into one line.
    text = text.substr(0, text.find_first_of(u"\r\n"));
    Put(*window, text.substr(0, Room(*window, window->text.size() - SelectionOf(*window).length)));
}

void ReplaceText(HWND edit, std::u16string_view text, std::size_t caret)
{
    const auto window = KeepEdit(edit);
    if (!window) return;
    const std::u16string before = window->text;

    // What stands between the common beginning and the common end is what the user has put in.
    const std::size_t shorter = std::min(before.size(), text.size());
    std::size_t head = 0, tail = 0;
    while (head < shorter && before[head] == text[head]) ++head;
    while (tail < shorter - head && before[before.size() - 1 - tail] == text[text.size() - 1 - tail]) ++tail;
    const std::u16string_view typed = text.substr(head, text.size() - head - tail);
    std::u16string accepted;
    for (char16_t c : typed)
        if (KeyAccepted(*window, c)) accepted += c;
    accepted.resize(std::min(accepted.size(), Room(*window, head + tail)));

    if (accepted.empty() && head + tail == before.size()) {
        Changed(edit);  // nothing came of it; the desktop shows the field as it is
        return;
    }
    SelectText(edit, head, before.size() - tail);
    const bool whole = accepted.size() == typed.size();
    window->text.replace(head, before.size() - head - tail, accepted);
    SelectText(edit, whole ? caret : head + accepted.size(), whole ? caret : head + accepted.size());
    Touch(*window);
    NotifyParent(edit, EN_CHANGE);
}

LRESULT EditMessage(Window& edit, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
        case EM_LIMITTEXT:
            edit.As<EditState>()->limit = wParam == 0 ? GreatestLimit : wParam;
            return 0;
        case EM_SETSEL: {
            // From -1 nothing is selected, up to -1 all that follows is.
            const auto from = static_cast<LPARAM>(wParam);
            const std::size_t caret = edit.As<EditState>()->caret;
            SelectText(edit.handle, from < 0 ? caret : static_cast<std::size_t>(from),
                       from < 0 ? caret : static_cast<std::size_t>(lParam));
            return 1;
        }
        default:
            return CommonMessage(edit, message, wParam, lParam);
    }
}

}  // namespace platform::user
