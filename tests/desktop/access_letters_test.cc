// The underlined letters: none stands for two things, and each does what it stands for.
#include <QtTest>
#include <QtWidgets>
#include <map>

#include "desktop/control_sync.h"
#include "tests/desktop/access_rig.h"

namespace accessibility {
namespace {

using desktop::IsGroupBox;
using desktop::IsRadio;
using desktop::TopWindow;
using platform::user::Window;

// The letter that a widget underlines; 0: none. A label does for its field alone.
char Letter(const QWidget* widget)
{
    const auto* label = qobject_cast<const QLabel*>(widget);
    const QString text = label && !label->buddy() ? QString() : TextOf(widget);
    for (qsizetype i = 0; i + 1 < text.size(); ++i) {
        if (text[i] != '&') continue;
        if (text[i + 1] != '&') return text[i + 1].toUpper().toLatin1();
        ++i;
    }
    return 0;
}

TEST_F(Access, NoLetterStandsForTwoThingsThatShow)
{
    VisitAll([](const Picture&, HWND top) {
        std::map<char, std::string> letters;
        TopWindow* window = WindowOf(top);
        for (const QWidget* widget : window->findChildren<QWidget*>())
            if (const char letter = Letter(widget); letter && widget->isVisible()) {
                const auto* label = qobject_cast<const QLabel*>(widget);
                EXPECT_TRUE(!label || label->buddy()->isVisible())
                    << TextOf(label).toStdString() << " leads to nothing";
                EXPECT_TRUE(letters.emplace(letter, TextOf(widget).toStdString()).second)
                    << TextOf(widget).toStdString() << " and " << letters[letter];
            }
    });
}

// A button's letter presses it; a label's or frame's goes to the field behind it.
TEST_F(Access, EveryLetterWorks)
{
    const auto hasLetter = [](const Place& place) {
        const Window& control = place.Control();
        return place.widget && control.visible && control.enabled && Letter(place.widget);
    };
    VisitControls(hasLetter, [](HWND top, const Place& place) {
        const bool presses = place.Control().kind == Kind::Button && !IsGroupBox(place.Control());
        const std::vector<Place> places = Places(top);
        auto next = std::ranges::find(places, place.handle, &Place::handle);
        while (!presses && next != places.end() && !(IsField(next->Control()) && next->Control().visible) &&
               !(IsRadio(next->Control()) && next->Control().As<platform::user::ButtonState>()->check))
            ++next;
        ASSERT_NE(next, places.end()) << "leads nowhere";
        const bool locked = !next->Control().enabled;
        const int number = next->Control().id;
        Heard().clear();
        Press(Qt::Key(Letter(place.widget)), Qt::AltModifier);
        // A button goes down and up before it tells of itself.
        for (int wait = 0; presses && wait < 500 && !Heard().contains(number); ++wait) QTest::qWait(10);
        EXPECT_TRUE(!presses || Heard().contains(number)) << "the dialog hears nothing of it";
        EXPECT_TRUE(presses || locked || FocusedControl(top) == next->handle) << "the focus is on " << FocusName(top);
        const auto* field = qobject_cast<QLineEdit*>(next->widget);
        EXPECT_TRUE(locked || !field || field->selectedText() == field->text()) << "does not select what is there";
    });
}

}  // namespace
}  // namespace accessibility
