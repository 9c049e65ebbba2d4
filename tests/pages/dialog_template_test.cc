// The resources of the module. Of every dialog: nothing outside, nothing on top of something else, nothing clipped,
// measured in pixels at 96 dots per inch.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "platform/kernel/modules.h"
#include "platform/kernel/unicode.h"
#include "platform/user.h"
#include "platform/user/dialog_template.h"
#include "settings/model_tables.h"
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
// What other controls may lie on.
bool IsContainer(const ControlTemplate& control)
{
    return IsButton(control, BS_GROUPBOX) ||
           (IsA(control, u"Static") && (control.style & SS_TYPEMASK) == SS_WHITEFRAME);
}
RECT Seen(const ControlTemplate& control)
{
    RECT box = control.rect;
    if (IsA(control, u"ComboBox") && (control.style & CBS_DROPDOWNLIST) == CBS_DROPDOWNLIST)
        box.bottom = box.top + ClosedListHeight;
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

// Every dialog that the module has, by its number.
std::map<int, DialogTemplate> Dialogs()
{
    const testing_support::TestMachine machine;
    std::map<int, DialogTemplate> dialogs;
    for (int number = 1; number < 5000; ++number) {
        const auto bytes = platform::modules::Resource(machine.Module(), platform::modules::DialogResource, number);
        if (bytes.empty()) continue;
        std::string why;
        const auto layout = platform::user::ParseDialogTemplate(bytes, &why);
        EXPECT_TRUE(layout) << number << ": " << why;
        if (layout) dialogs[number] = *layout;
    }
    return dialogs;
}

TEST(DialogTemplates, KeepTheirControlsInsideAndNothingOnSomethingElse)
{
    for (const auto& [number, layout] : Dialogs()) {
        for (std::size_t i = 0; i < layout.controls.size(); ++i) {
            EXPECT_TRUE(Contains({0, 0, layout.width, layout.height}, Seen(layout.controls[i])))
                << number << ": " << NameOf(layout.controls[i]);
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

TEST(DialogTemplates, GiveTextsRoom)
{
    for (const auto& [number, layout] : Dialogs()) {
        for (const ControlTemplate& control : layout.controls) {
            if (control.text.empty() || IsA(control, u"ComboBox")) continue;
            const int characters = LongestLine(control.text) - std::ranges::count(control.text, u'&');
            int room = control.rect.right - control.rect.left;
            if (IsButton(control, BS_AUTORADIOBUTTON) || IsButton(control, BS_AUTOCHECKBOX)) room -= CheckMarkWidth;
            if (IsButton(control, BS_PUSHBUTTON) || IsButton(control, BS_GROUPBOX)) room -= 2 * ButtonMargin;
            EXPECT_LE(characters * PixelsPerCharacter * 6 / 5, room) << number << ": " << NameOf(control);
        }
    }
}

TEST(StringTable, NamesEveryRowOfTheModel)
{
    const testing_support::TestMachine machine;
    const auto named = [&](DWORD number) { return !platform::modules::String(machine.Module(), number).empty(); };
    for (const PaperEntry& paper : PaperTable) EXPECT_TRUE(named(paper.nameString)) << paper.code;
    for (const BinEntry& bin : BinTable) EXPECT_TRUE(named(bin.nameString)) << bin.code;
    for (const MediaEntry& media : MediaTable) EXPECT_TRUE(named(media.nameString)) << media.index;
    EXPECT_EQ(platform::modules::String(machine.Module(), 707), u"Invalid DEVMODE structure.");
}

}  // namespace
