// Whether the keyboard alone reaches each control, in order, and works it.
#include <gmock/gmock.h>

#include <QtTest>
#include <QtWidgets>
#include <optional>

#include "desktop/control_sync.h"
#include "pclui/resources/control_numbers.h"
#include "tests/desktop/access_rig.h"

namespace accessibility {
namespace {

using desktop::HeldRow;
using desktop::IsRadio;
using desktop::ShownRow;
using platform::user::Find;
using platform::user::Window;

// All that can be worked, a radio group being one stop, and then the sheet's own.
std::vector<std::string> ExpectedStops(HWND top)
{
    std::vector<std::string> stops;
    std::optional<std::size_t> group;  // the stop of the radio group
    for (const Place& place : Places(top)) {
        const Window& control = place.Control();
        if (control.style & WS_GROUP) group.reset();
        if (!IsWorkable(control)) continue;
        const bool checked = IsRadio(control) && control.As<platform::user::ButtonState>()->check;
        if (IsRadio(control) && group) {
            if (checked) stops[*group] = place.Name();
            continue;
        }
        if (IsRadio(control)) group = stops.size();
        stops.push_back(place.Name());
    }
    if (const auto* sheet = Find(top)->As<platform::user::SheetState>()) {
        for (const char* button : {"button OK", "button Cancel"}) stops.push_back(button);
        if (sheet->applyEnabled) stops.push_back("button Apply");
        if (sheet->helpEnabled) stops.push_back("button Help");
        stops.push_back("tabs");
    }
    return stops;
}

TEST_F(Access, TabGoesThroughAllThatCanBeWorkedInOrderAndBackAgain)
{
    VisitAll([](const Picture&, HWND top) {
        ShowForKeys(top);
        std::vector<std::string> expected = ExpectedStops(top);
        const auto walk = [&](Qt::Key key, Qt::KeyboardModifiers with) {
            std::vector<std::string> stops;
            const QWidget* first = QApplication::focusWidget();
            do {
                stops.push_back(FocusName(top));
                Press(key, with);
            } while (QApplication::focusWidget() != first && stops.size() < 60);
            const auto start = std::ranges::find(expected, stops.front());
            EXPECT_NE(start, expected.end()) << stops.front() << " has the focus";
            if (start != expected.end()) std::rotate(expected.begin(), start, expected.end());
            EXPECT_EQ(stops, expected);
        };
        walk(Qt::Key_Tab, Qt::NoModifier);
        std::ranges::reverse(expected);
        walk(Qt::Key_Backtab, Qt::ShiftModifier);
    });
}

std::size_t RowCount(const Window& control)
{
    if (const auto* list = control.As<platform::user::ListState>()) return list->items.size();
    if (const auto* tree = control.As<platform::user::TreeState>()) return tree->rows.size();
    return control.As<platform::user::ListViewState>()->rows.size();
}

void WorkList(const Place& place)
{
    const auto check = [&](const char* key) {
        EXPECT_EQ(ShownRow(place.widget), HeldRow(place.Control())) << "after " << key;
    };
    const std::pair<Qt::Key, const char*> keys[] = {
        {Qt::Key_End,  "End" },
        {Qt::Key_Home, "Home"},
        {Qt::Key_Down, "Down"},
        {Qt::Key_Up,   "Up"  }
    };
    for (const auto& [key, name] : keys) {
        Press(key);
        check(name);
    }
    if (const auto* list = place.Control().As<platform::user::ListState>(); list && !list->items.empty()) {
        QTest::keyClick(place.widget, char(list->items.back().text.front()));
        check("the letter of the last row");
    }
}

void WorkEdit(const Place& place)
{
    if (place.Control().style & ES_READONLY) return;
    QTest::keyClick(place.widget, '9');
    EXPECT_EQ(place.Control().text, u"9") << "typing does not take the place of what was there";
    Press(Qt::Key_Up);
    const Window* dialog = Find(place.Control().parent);
    for (const HWND child : dialog->children)
        if (const auto* arrows = Find(child)->As<platform::user::UpDownState>();
            arrows && arrows->buddy == place.handle) {
            EXPECT_NE(place.Control().text, u"9") << "the arrow keys do not count";
        }
}

// All but the second tray, which only the printer's own sheet would change, are open somewhere.
TEST_F(Access, EveryControlIsOpenInSomeState)
{
    std::set<int> locked, open;
    VisitAll([&](const Picture&, HWND top) {
        for (const Place& place : Places(top))
            if (TakesFocus(place.Control())) (IsWorkable(place.Control()) ? open : locked).insert(place.Control().id);
    });
    for (const int control : open) locked.erase(control);
    EXPECT_THAT(locked, testing::ElementsAre(IDC_TRAY2));
    EXPECT_GT(open.size(), 90u);
}

TEST_F(Access, EveryControlIsWorkedByTheKeyboardAlone)
{
    VisitControls([](const Place& place) { return IsWorkable(place.Control()); },
                  [](HWND top, const Place& place) {
                      ASSERT_TRUE(Reach(top, place.handle)) << "not reached; the focus is on " << FocusName(top);
                      const int number = place.Control().id;
                      const bool edit = place.Control().kind == Kind::Edit;
                      if (!IsRadio(place.Control())) Heard().clear();
                      if (edit)
                          WorkEdit(place);
                      else if (IsField(place.Control()))
                          WorkList(place);
                      else
                          Press(Qt::Key_Space);
                      const bool oneRow = IsField(place.Control()) && !edit && RowCount(place.Control()) < 2;
                      const bool readOnly = edit && place.Control().style & ES_READONLY;
                      EXPECT_TRUE(oneRow || readOnly || Heard().contains(number)) << "the dialog hears nothing of it";
                  });
}

}  // namespace
}  // namespace accessibility
