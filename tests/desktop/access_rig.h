// Every page and dialog in its main states, in real windows without a screen, for tests that look at each control as
// Qt shows it and work it by keys. Each failure names dialog and control.
#pragma once

#include <gtest/gtest.h>

#include <QString>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "desktop/top_window.h"
#include "host/pictures.h"
#include "platform/user.h"
#include "platform/user/window.h"
#include "tests/support/sheet_fixture.h"

namespace accessibility {

using host::Picture;
using platform::user::Kind;

// A control of the dialog that shows.
struct Place {
    HWND handle;
    QWidget* widget;  // null: shows in the picture alone
    const platform::user::Window& Control() const { return *platform::user::Find(handle); }
    std::string Name() const;
};

desktop::TopWindow* WindowOf(HWND top);
std::vector<Place> Places(HWND top);  // in the order of the dialog's template

bool IsField(const platform::user::Window& window);
bool TakesFocus(const platform::user::Window& window);
bool IsWorkable(const platform::user::Window& window);  // by a user, now

// What a widget shows, with the mark of its letter.
QString TextOf(const QWidget* widget);

// The controls that the dialog under test has been told of since the set was last cleared.
std::set<int>& Heard();

HWND FocusedControl(HWND top);
std::string FocusName(HWND top);  // that of a control, or of one of the sheet's own parts

void ShowForKeys(HWND top);
void Press(Qt::Key key, Qt::KeyboardModifiers with = Qt::NoModifier);  // where the focus is
// By the Tab key alone, and by arrows to a radio button that is not its group's stop.
bool Reach(HWND top, HWND control);

class Access : public testing_support::SheetFixture {
  protected:
    Access();
    static void SetUpTestSuite() { qputenv("QT_QPA_PLATFORM", "offscreen"); }

    // Plays the way to a dialog on the real desktop and looks at it there.
    void Visit(const Picture& picture, const std::function<void(HWND top)>& look);
    void VisitAll(const std::function<void(const Picture&, HWND top)>& look);
    // Looks once at each control that is wanted somewhere, each time in a dialog that is newly open.
    void VisitControls(const std::function<bool(const Place&)>& wanted,
                       const std::function<void(HWND top, const Place&)>& look);
};

}  // namespace accessibility
