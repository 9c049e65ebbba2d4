// The layout of every dialog of the module: nothing outside, nothing on top of something else, nothing
// clipped, every control to be reached by keyboard. Measured in pixels at 96 dots per inch.
#include <gtest/gtest.h>

#include <map>

#include "platform/kernel/modules.h"
#include "platform/kernel/unicode.h"
#include "platform/user.h"
#include "platform/user/dialog_template.h"
#include "resources/control_numbers.h"
#include "tests/support/sheet_driver.h"

namespace {

using platform::user::ControlTemplate;
using platform::user::DialogTemplate;

// Fonts differ from machine to machine: a character counts 6 pixels, and a fifth is left over.
constexpr int PixelsPerCharacter = 6;
constexpr int ClosedListHeight = 21;  // of a drop-down list, whose template height is that of the open list
constexpr int CheckMarkWidth = 17;    // of check boxes and radio buttons
constexpr int ButtonMargin = 8;

bool IsA(const ControlTemplate& control, std::u16string_view className) { return control.className == className; }
bool IsButton(const ControlTemplate& control, DWORD type)
{
    return IsA(control, u"Button") && (control.style & BS_TYPEMASK) == type;
}
bool IsStatic(const ControlTemplate& control, DWORD type)
{
    return IsA(control, u"Static") && (control.style & SS_TYPEMASK) == type;
}
bool IsRadio(const ControlTemplate& control) { return IsButton(control, BS_AUTORADIOBUTTON); }
// What other controls may lie on.
bool IsContainer(const ControlTemplate& control)
{
    return IsButton(control, BS_GROUPBOX) || IsStatic(control, SS_WHITEFRAME);
}
bool IsDropDown(const ControlTemplate& control)
{
    return IsA(control, u"ComboBox") && (control.style & CBS_DROPDOWNLIST) == CBS_DROPDOWNLIST;
}
bool TakesFocus(const ControlTemplate& control)
{
    return IsRadio(control) || (control.style & (WS_TABSTOP | WS_DISABLED)) == WS_TABSTOP;
}

RECT Seen(const ControlTemplate& control)
{
    RECT box = control.rect;
    if (IsDropDown(control)) box.bottom = box.top + ClosedListHeight;
    return box;
}

bool Overlap(const RECT& a, const RECT& b)
{
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

bool Contains(const RECT& outer, const RECT& inner)
{
    return outer.left <= inner.left && outer.top <= inner.top && inner.right <= outer.right &&
           inner.bottom <= outer.bottom;
}

// 0 if there is none.
char16_t Mnemonic(std::u16string_view text)
{
    for (std::size_t i = 0; i + 1 < text.size(); ++i) {
        if (text[i] != u'&') continue;
        if (text[i + 1] != u'&') return text[i + 1] >= u'a' && text[i + 1] <= u'z' ? text[i + 1] - 32 : text[i + 1];
        ++i;
    }
    return 0;
}

int LongestLine(std::u16string_view text)
{
    const std::size_t end = text.find(u'\n');
    if (end == text.npos) return static_cast<int>(text.size());
    return std::max(static_cast<int>(end), LongestLine(text.substr(end + 1)));
}

std::string NameOf(const ControlTemplate& control)
{
    return std::to_string(control.id) + " \"" + platform::ToUtf8(control.text) + '"';
}

struct Dialog {
    int number;
    DialogTemplate layout;
};

// Every dialog that the module has, by its number.
std::vector<Dialog> Dialogs()
{
    const testing_support::TestMachine machine;
    std::vector<Dialog> dialogs;
    for (int number = 1; number < 5000; ++number) {
        const auto bytes = platform::modules::Resource(machine.Module(), platform::modules::DialogResource, number);
        if (bytes.empty()) continue;
        std::string why;
        auto layout = platform::user::ParseDialogTemplate(bytes, &why);
        EXPECT_TRUE(layout) << number << ": " << why;
        if (layout) dialogs.push_back({number, *layout});
    }
    return dialogs;
}

TEST(DialogTemplates, StandUnderTheirNumbers)
{
    std::vector<int> numbers;
    for (const Dialog& dialog : Dialogs()) numbers.push_back(dialog.number);
    EXPECT_EQ(numbers, (std::vector{IDD_SETUP, IDD_NUP_STYLE, IDD_QUALITY, IDD_PAPER, IDD_CUSTOM_PAPER,
                                    IDD_DEVICE_OPTIONS, IDD_WATERMARK, DLG_ABOUT, IDD_OVERLAY_LIST, IDD_OVERLAY_EDIT}));
}

TEST(DialogTemplates, KeepTheirControlsInside)
{
    for (const auto& [number, layout] : Dialogs())
        for (const ControlTemplate& control : layout.controls)
            EXPECT_TRUE(Contains({0, 0, layout.width, layout.height}, Seen(control)))
                << number << ": " << NameOf(control);
}

TEST(DialogTemplates, LetNothingLieOnSomethingElse)
{
    for (const auto& [number, layout] : Dialogs()) {
        for (std::size_t i = 0; i < layout.controls.size(); ++i) {
            for (std::size_t k = i + 1; k < layout.controls.size(); ++k) {
                const ControlTemplate &a = layout.controls[i], &b = layout.controls[k];
                // Two sets of fields may take turns at one place.
                if ((a.style ^ b.style) & WS_VISIBLE) continue;
                const bool framed =
                    (IsContainer(a) && Contains(a.rect, Seen(b))) || (IsContainer(b) && Contains(b.rect, Seen(a)));
                EXPECT_TRUE(framed || !Overlap(Seen(a), Seen(b)))
                    << number << ": " << NameOf(a) << " and " << NameOf(b);
            }
        }
    }
}

TEST(DialogTemplates, UseEachMnemonicOnce)
{
    for (const auto& [number, layout] : Dialogs()) {
        std::map<char16_t, std::string> used;
        for (const ControlTemplate& control : layout.controls) {
            const char16_t key = Mnemonic(control.text);
            if (!key) continue;
            EXPECT_TRUE(used.emplace(key, NameOf(control)).second)
                << number << ": " << NameOf(control) << " and " << used[key];
        }
    }
}

TEST(DialogTemplates, LeadFromLabelsToControls)
{
    for (const auto& [number, layout] : Dialogs()) {
        for (std::size_t i = 0; i < layout.controls.size(); ++i) {
            const ControlTemplate& label = layout.controls[i];
            if (!Mnemonic(label.text) || TakesFocus(label) || IsButton(label, BS_AUTOCHECKBOX)) continue;
            std::size_t next = i + 1;
            while (next < layout.controls.size() && IsStatic(layout.controls[next], SS_ICON)) ++next;
            EXPECT_TRUE(next < layout.controls.size() && TakesFocus(layout.controls[next]))
                << number << ": " << NameOf(label) << " has nothing to lead to";
        }
    }
}

TEST(DialogTemplates, GiveTextsRoom)
{
    for (const auto& [number, layout] : Dialogs()) {
        for (const ControlTemplate& control : layout.controls) {
            if (control.text.empty() || IsA(control, u"ComboBox")) continue;
            const int characters = LongestLine(control.text) - (Mnemonic(control.text) ? 1 : 0);
            int room = control.rect.right - control.rect.left;
            if (IsRadio(control) || IsButton(control, BS_AUTOCHECKBOX)) room -= CheckMarkWidth;
            if (IsButton(control, BS_PUSHBUTTON) || IsButton(control, BS_GROUPBOX)) room -= 2 * ButtonMargin;
            EXPECT_LE(characters * PixelsPerCharacter * 6 / 5, room) << number << ": " << NameOf(control);
        }
    }
}

// Tab order is the order of the template: down each panel, the left one first.
TEST(DialogTemplates, StartEveryRadioRunWithAGroup)
{
    for (const auto& [number, layout] : Dialogs()) {
        const ControlTemplate* before = nullptr;
        for (const ControlTemplate& control : layout.controls) {
            const bool runs = before && IsRadio(*before);
            if (IsRadio(control) && !runs) {
                EXPECT_EQ(control.style & (WS_GROUP | WS_TABSTOP), WS_GROUP | WS_TABSTOP)
                    << number << ": " << NameOf(control);
            }
            if (!IsRadio(control) && runs && TakesFocus(control)) {
                EXPECT_TRUE(control.style & WS_GROUP) << number << ": " << NameOf(control) << " joins the radio run";
            }
            before = &control;
        }
    }
}

struct PanelNumbers {
    int dialog;
    std::vector<int> controls;
};

TEST(DialogTemplates, PutTheLeftPanelAtTheSamePlaceOnEveryPage)
{
    const PanelNumbers pages[] = {
        {IDD_SETUP,
         {IDC_EASY_SET, IDC_DEFAULT, IDC_SETUP_FRAME, IDC_SETUP_PREVIEW, IDC_SETUP_PAGE_LAYOUT,
          IDC_SETUP_PRINTER_FIGURE}  },
        {IDD_PAPER,
         {IDC_EASY_SET, IDC_DEFAULT, IDC_PAPER_FRAME, IDC_PAPER_PREVIEW, IDC_PAPER_PAGE_LAYOUT,
          IDC_PAPER_PRINTER_FIGURE}  },
        {IDD_QUALITY,
         {IDC_EASY_SET, IDC_DEFAULT, IDC_QUALITY_FRAME, IDC_QUALITY_PREVIEW, IDC_QUALITY_PAGE_LAYOUT,
          IDC_QUALITY_PRINTER_FIGURE}},
        {IDD_DEVICE_OPTIONS,
         {IDC_EASY_SET, IDC_DEFAULT, IDC_DEVICE_FRAME, IDC_DEVICE_PREVIEW, IDC_DEVICE_PAGE_LAYOUT,
          IDC_DEVICE_PRINTER_FIGURE} },
    };
    // The frame is as large as the printer figure, so that the figure is not distorted.
    struct Place {
        int left, top, width, height;
        bool operator==(const Place&) const = default;
    };
    const Place places[] = {
        {11, 11,  158, 332},
        {41, 304, 98,  23 },
        {21, 39,  137, 161},
        {24, 42,  131, 154},
        {24, 216, 129, 16 },
        {24, 242, 129, 16 },
    };
    for (const Dialog& dialog : Dialogs()) {
        for (const PanelNumbers& page : pages) {
            if (page.dialog != dialog.number) continue;
            EXPECT_EQ(dialog.layout.width, 510);
            EXPECT_EQ(dialog.layout.height, 354);
            for (std::size_t i = 0; i < page.controls.size(); ++i) {
                bool found = false;
                for (const ControlTemplate& control : dialog.layout.controls) {
                    if (control.id != page.controls[i]) continue;
                    found = true;
                    const auto [left, top, right, bottom] = control.rect;
                    EXPECT_EQ((Place{left, top, right - left, bottom - top}), places[i]) << NameOf(control);
                }
                EXPECT_TRUE(found) << page.controls[i];
            }
        }
    }
}

}  // namespace
