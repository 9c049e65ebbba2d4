// Every page and dialog in its main states, in real windows without a screen: what assistive programs are told
// of each control, and whether the keyboard alone reaches and works it. Each failure names dialog and control.
#include <QAccessible>
#include <QtTest>
#include <QtWidgets>
#include <map>
#include <set>

#include "desktop/control_sync.h"
#include "desktop/help_window.h"
#include "desktop/qt_desktop.h"
#include "desktop/qt_fonts.h"
#include "desktop/qt_runtime.h"
#include "desktop/qt_surface.h"
#include "desktop/top_window.h"
#include "host/pictures.h"
#include "host/script_desktop.h"
#include "pclui/resources/control_numbers.h"
#include "platform/user.h"
#include "tests/support/sheet_fixture.h"

namespace {

using desktop::DialogView;
using desktop::HeldRow;
using desktop::IsGroupBox;
using desktop::IsOwnerDrawn;
using desktop::IsRadio;
using desktop::ShownRow;
using desktop::TopWindow;
using host::Picture;
using platform::user::Find;
using platform::user::Kind;
using platform::user::Window;

constexpr Picture DeviceWays[] = {
    {"device-sheet",       ""                },
    {"device-sheet-about", "page \"About\"\n"},
};

// What the dialog under test has been told since the list was last cleared.
std::set<int> heard;
DLGPROC heardBy = nullptr;

INT_PTR Listen(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_COMMAND) heard.insert(int(wParam & 0xFFFF));
    if (message == WM_NOTIFY) heard.insert(int(reinterpret_cast<const NMHDR*>(lParam)->idFrom));
    return heardBy(dialog, message, wParam, lParam);
}

using Look = std::function<void(HWND top)>;

// Plays the way to a dialog on the real desktop and looks at it there. What comes up while it is looked at is
// cancelled at once.
class Walker : public host::ScriptDesktop {
  public:
    Walker(const Picture& picture, const Look& look)
        : ScriptDesktop(host::ParseScript(std::string(picture.way) + "snapshot \"" + picture.name + "\"\n"),
                        {[](const host::Json&) {}, [] { return host::Json(); },
                         [this, look](HWND top, const std::string&) { LookAt(top, look); }},
                        true)
    {
    }
    bool Looked() const { return looked_; }

    void Opened(HWND top) override { qt_->Opened(top); }
    void Closed(HWND top) override { qt_->Closed(top); }
    void Changed(HWND window) override { qt_->Changed(window); }
    void Help(const platform::HelpRequest& request) override { qt_->Help(request); }
    std::shared_ptr<platform::Surface> MakePicture(HWND dialog, int width, int height) override
    {
        return qt_->MakePicture(dialog, width, height);
    }
    void Run(HWND top) override
    {
        if (looking_)
            platform::user::Close(top);
        else
            ScriptDesktop::Run(top);
    }

  private:
    void LookAt(HWND top, const Look& look)
    {
        const HWND dialog = platform::user::DialogOf(top);
        heardBy = reinterpret_cast<DLGPROC>(SetWindowLongW(dialog, DWL_DLGPROC, reinterpret_cast<LONG_PTR>(Listen)));
        heard.clear();
        looking_ = looked_ = true;
        look(top);
        looking_ = false;
        if (Find(dialog)) SetWindowLongW(dialog, DWL_DLGPROC, reinterpret_cast<LONG_PTR>(heardBy));
    }

    std::shared_ptr<platform::Desktop> qt_ = desktop::MakeQtDesktop();
    bool looking_ = false, looked_ = false;
};

TopWindow* WindowOf(HWND top)
{
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (auto* window = dynamic_cast<TopWindow*>(widget); window && window->isVisible() && window->Handle() == top)
            return window;
    return nullptr;
}

struct Place {
    HWND handle;
    QWidget* widget;  // null: shows in the picture alone
    const Window& Control() const { return *Find(handle); }
    std::string Name() const
    {
        return "control " + std::to_string(Control().id) + " \"" + desktop::ToQString(Control().text).toStdString() +
               '"';
    }
};

// The controls of the dialog that shows, in the order of its template.
std::vector<Place> Places(HWND top)
{
    std::vector<Place> places;
    const HWND dialog = platform::user::DialogOf(top);
    for (QWidget* child : WindowOf(top)->findChildren<QWidget*>()) {
        auto* view = dynamic_cast<DialogView*>(child);
        if (!view || view->Dialog() != dialog) continue;
        for (const HWND handle : Find(dialog)->children) {
            Place place{handle, nullptr};
            for (QWidget* widget : view->findChildren<QWidget*>())
                if (view->ControlOf(widget) == handle) place.widget = widget;
            places.push_back(place);
        }
    }
    return places;
}

bool IsField(const Window& window)
{
    return window.kind == Kind::Edit || window.kind == Kind::ComboBox || window.kind == Kind::ListBox ||
           window.kind == Kind::ListView || window.kind == Kind::TreeView;
}
// Whether a user may work it now.
bool IsWorkable(const Window& window)
{
    const bool takesFocus =
        IsField(window) || (window.kind == Kind::Button && !IsGroupBox(window) && !IsOwnerDrawn(window));
    return takesFocus && window.visible && window.enabled;
}

// What has Qt's focus: a control, or the text of one of the sheet's own buttons.
HWND FocusedControl(HWND top)
{
    for (const Place& place : Places(top))
        if (place.widget && place.widget == QApplication::focusWidget()) return place.handle;
    return nullptr;
}
std::string FocusName(HWND top)
{
    for (const Place& place : Places(top))
        if (place.widget && place.widget == QApplication::focusWidget()) return place.Name();
    if (const auto* button = qobject_cast<QAbstractButton*>(QApplication::focusWidget()))
        return "button " + button->text().remove('&').toStdString();
    return qobject_cast<QTabBar*>(QApplication::focusWidget()) ? "tabs"
           : QApplication::focusWidget()                       ? QApplication::focusWidget()->metaObject()->className()
                                                               : "nothing";
}

void Press(Qt::Key key, Qt::KeyboardModifiers with = Qt::NoModifier)
{
    if (QWidget* focused = QApplication::focusWidget()) QTest::keyClick(focused, key, with);
    QCoreApplication::processEvents();
}

void ShowForKeys(HWND top)
{
    TopWindow* window = WindowOf(top);
    window->activateWindow();
    for (int wait = 0; wait < 100 && !window->isActiveWindow(); ++wait) QTest::qWait(10);
    ASSERT_TRUE(window->isActiveWindow());
    QCoreApplication::processEvents();
}

// By the Tab key alone, and by arrows to a radio button that is not its group's stop.
bool Reach(HWND top, HWND control)
{
    for (int stop = 0; stop < 60 && FocusedControl(top) != control; ++stop) {
        if (const HWND focused = FocusedControl(top); focused && IsRadio(*Find(focused)) && IsRadio(*Find(control)))
            for (int arrow = 0; arrow < 4 && FocusedControl(top) != control; ++arrow) Press(Qt::Key_Down);
        if (FocusedControl(top) != control) Press(Qt::Key_Tab);
    }
    return FocusedControl(top) == control;
}

class Access : public testing_support::SheetFixture {
  protected:
    Access() : SheetFixture(QD_MODULE_PATH) {}
    static void SetUpTestSuite() { qputenv("QT_QPA_PLATFORM", "offscreen"); }

    void Visit(const Picture& picture, const Look& look)
    {
        SCOPED_TRACE(picture.name);
        const auto walker = std::make_shared<Walker>(picture, look);
        platform::CurrentEnvironment().desktop = walker;
        platform::CurrentEnvironment().fonts = desktop::MakeQtFonts();
        DWORD result = 99;
        if (std::string_view(picture.name).starts_with("device-sheet"))
            ShowDevice(&result);
        else
            Show(&result);
        EXPECT_TRUE(walker->Looked()) << walker->Trouble();
        platform::CurrentEnvironment().desktop = nullptr;
    }
    void VisitAll(const std::function<void(const Picture& picture, HWND top)>& look)
    {
        for (const Picture& picture : host::Pictures) Visit(picture, [&](HWND top) { look(picture, top); });
        for (const Picture& picture : DeviceWays) Visit(picture, [&](HWND top) { look(picture, top); });
    }
    // Looks once at each control that can be worked somewhere, each time in a dialog that is newly open.
    void VisitControls(const std::function<bool(const Place&)>& wanted,
                       const std::function<void(HWND top, const Place&)>& look)
    {
        struct Row {
            const Picture* picture;
            std::size_t place;
        };
        std::map<std::pair<int, int>, Row> rows;
        VisitAll([&](const Picture& picture, HWND top) {
            const auto* dialog = Find(platform::user::DialogOf(top))->As<platform::user::DialogState>();
            const std::vector<Place> places = Places(top);
            for (std::size_t i = 0; i < places.size(); ++i)
                if (wanted(places[i])) rows.try_emplace({dialog->templateNumber, int(i)}, Row{&picture, i});
        });
        ASSERT_GT(rows.size(), 20u);
        for (const auto& [key, row] : rows)
            Visit(*row.picture, [&, place = row.place](HWND top) {
                const Place control = Places(top)[place];
                SCOPED_TRACE(control.Name());
                ShowForKeys(top);
                look(top, control);
            });
    }
};

// --- What assistive programs are told.

struct FieldName {
    int control;
    const char* name;
};
constexpr FieldName FieldNames[] = {
    {IDC_NUP,                  "N-up"                  },
    {IDC_DUPLEX,               "Duplex/Booklet"        },
    {IDC_WATERMARK,            "Watermark"             },
    {IDC_PAPER_SOURCE,         "Paper Source"          },
    {IDC_MEDIA_TYPE,           "Media Type"            },
    {IDC_OVERLAY,              "Form Overlay"          },
    {IDC_DOCUMENT_SIZE,        "Original Document Size"},
    {IDC_OUTPUT_SIZE,          "Output Paper Size"     },
    {IDC_SCALING,              "Scaling"               },
    {IDC_SHIFT_X,              "X"                     },
    {IDC_SHIFT_Y,              "Y"                     },
    {IDC_COPIES,               "Copies"                },
    {IDC_RESOLUTION,           "Resolution"            },
    {IDC_SMOOTHTONE,           "Smoothtone"            },
    {IDC_TONER_DENSITY,        "Toner Density"         },
    {IDC_TOTAL_MEMORY,         "Total Memory"          },
    {IDC_WM_LIST,              "Watermark"             },
    {IDC_WM_NAME,              "Name"                  },
    {IDC_WM_TEXT,              "String"                },
    {IDC_WM_FACE,              "Typeface"              },
    {IDC_WM_SIZE,              "Size"                  },
    {IDC_WM_SHADING,           "Shading"               },
    {IDC_WM_ANGLE_MODE,        "Angle"                 },
    {IDC_WM_ANGLE,             "User Setting"          },
    {IDC_WM_HORIZONTAL,        "Horizontal"            },
    {IDC_WM_VERTICAL,          "Vertical"              },
    {IDC_OVL_LIST,             "Form Overlay"          },
    {IDC_OVL_NAME,             "Form Overlay Name"     },
    {IDC_OVL_PATH,             "Form Overlay File Path"},
    {IDC_CP_LIST,              "Paper Name"            },
    {IDC_CP_NAME,              "Name"                  },
    {IDC_CP_WIDTH_MM,          "Width"                 },
    {IDC_CP_WIDTH_INCH,        "Width"                 },
    {IDC_CP_WIDTH_SIXTEENTHS,  "Width"                 },
    {IDC_CP_HEIGHT_MM,         "Height"                },
    {IDC_CP_HEIGHT_INCH,       "Height"                },
    {IDC_CP_HEIGHT_SIXTEENTHS, "Height"                },
    {99,                       "Device Settings"       },
};

struct KindRoles {
    Kind kind;
    std::vector<QAccessible::Role> roles;
};
const KindRoles Roles[] = {
    {Kind::Button,
     {QAccessible::PushButton, QAccessible::CheckBox, QAccessible::RadioButton, QAccessible::Grouping,
      QAccessible::Graphic}                                                            },
    {Kind::Static,   {QAccessible::StaticText}                                         },
    {Kind::Edit,     {QAccessible::EditableText}                                       },
    {Kind::ComboBox, {QAccessible::ComboBox}                                           },
    {Kind::ListBox,  {QAccessible::List}                                               },
    {Kind::ListView, {QAccessible::Tree, QAccessible::Table}                           },
    {Kind::TreeView, {QAccessible::Tree}                                               },
    {Kind::UpDown,   {QAccessible::SpinBox, QAccessible::Grouping, QAccessible::Client}},
};

std::string AccessibleName(QWidget* widget)
{
    QAccessibleInterface* told = QAccessible::queryAccessibleInterface(widget);
    if (!told) return "";
    // A drop-down list's own name is what it shows; what it is for, its label tells.
    if (told->role() == QAccessible::ComboBox) {
        const auto labels = told->relations(QAccessible::Label);
        told = labels.isEmpty() ? nullptr : labels.front().first;
    }
    return told ? told->text(QAccessible::Name).remove(':').toStdString() : "";
}

TEST_F(Access, EveryControlTellsItsNameAndRole)
{
    VisitAll([](const Picture&, HWND top) {
        for (const Place& place : Places(top)) {
            const Window& control = place.Control();
            if (!control.visible || (control.kind == Kind::Static && control.text.empty())) continue;
            SCOPED_TRACE(place.Name());
            if (!place.widget) {
                EXPECT_EQ(control.kind, Kind::Static) << "nothing tells of it";
                continue;
            }
            const auto roles = std::ranges::find(Roles, control.kind, &KindRoles::kind)->roles;
            const auto role = QAccessible::queryAccessibleInterface(place.widget)->role();
            EXPECT_TRUE(std::ranges::count(roles, role)) << "its role is " << role;
            const std::string name = AccessibleName(place.widget);
            EXPECT_FALSE(name.empty() && !IsGroupBox(control)) << "has no name";
            for (QToolButton* arrow : place.widget->findChildren<QToolButton*>())
                EXPECT_NE(AccessibleName(arrow), "") << "an arrow has no name";
            if (!IsField(control)) continue;
            const auto* row = std::ranges::find(FieldNames, control.id, &FieldName::control);
            ASSERT_NE(row, std::end(FieldNames)) << "is called \"" << name << '"';
            EXPECT_EQ(name, row->name);
        }
        for (QAbstractButton* button : WindowOf(top)->findChildren<QAbstractButton*>())
            EXPECT_TRUE(!button->isVisible() || AccessibleName(button) != "") << button->metaObject()->className();
    });
}

// --- Reaching.

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

// --- Working.

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

TEST_F(Access, EveryControlIsWorkedByTheKeyboardAlone)
{
    VisitControls([](const Place& place) { return IsWorkable(place.Control()); },
                  [](HWND top, const Place& place) {
                      ASSERT_TRUE(Reach(top, place.handle)) << "not reached; the focus is on " << FocusName(top);
                      const int number = place.Control().id;
                      const bool edit = place.Control().kind == Kind::Edit;
                      if (!IsRadio(place.Control())) heard.clear();
                      if (edit)
                          WorkEdit(place);
                      else if (IsField(place.Control()))
                          WorkList(place);
                      else
                          Press(Qt::Key_Space);
                      const bool oneRow = IsField(place.Control()) && !edit && RowCount(place.Control()) < 2;
                      const bool readOnly = edit && place.Control().style & ES_READONLY;
                      EXPECT_TRUE(oneRow || readOnly || heard.contains(number)) << "the dialog hears nothing of it";
                  });
}

// --- Letters.

// The letter that a text underlines; 0: none.
char Letter(const QString& text)
{
    for (qsizetype i = 0; i + 1 < text.size(); ++i) {
        if (text[i] != '&') continue;
        if (text[i + 1] != '&') return text[i + 1].toUpper().toLatin1();
        ++i;
    }
    return 0;
}

QString TextOf(const QWidget* widget)
{
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) return button->text();
    if (const auto* frame = qobject_cast<const QGroupBox*>(widget)) return frame->title();
    const auto* label = qobject_cast<const QLabel*>(widget);
    return label && label->buddy() ? label->text() : QString();
}

TEST_F(Access, NoLetterStandsForTwoThingsThatShow)
{
    VisitAll([](const Picture&, HWND top) {
        std::map<char, std::string> letters;
        TopWindow* window = WindowOf(top);
        for (const QWidget* widget : window->findChildren<QWidget*>())
            if (const char letter = Letter(TextOf(widget)); letter && widget->isVisible()) {
                const auto* label = qobject_cast<const QLabel*>(widget);
                EXPECT_TRUE(!label || label->buddy()->isVisible())
                    << TextOf(label).toStdString() << " leads to nothing";
                EXPECT_TRUE(letters.emplace(letter, TextOf(widget).toStdString()).second)
                    << TextOf(widget).toStdString() << " and " << letters[letter];
            }
    });
}

// Behind the mark and within the frame of a button.
QImage TextPixels(QWidget* widget)
{
    const bool marked = qobject_cast<QRadioButton*>(widget) || qobject_cast<QCheckBox*>(widget);
    return widget->grab(widget->rect().adjusted(marked ? 20 : 4, 4, -4, -4)).toImage();
}

TEST_F(Access, EveryTextStandsOutOnADarkDesktop)
{
    desktop::EnsureApplication();
    const QPalette usual = QApplication::palette();
    QApplication::setPalette(QPalette(QColor(49, 54, 59)));
    VisitAll([](const Picture&, HWND top) {
        for (QWidget* widget : WindowOf(top)->findChildren<QWidget*>()) {
            const QString text = TextOf(widget).trimmed();
            const bool shows = qobject_cast<QLabel*>(widget) || qobject_cast<QAbstractButton*>(widget);
            if (text.isEmpty() || !shows || !widget->isVisible() || !widget->isEnabled()) continue;
            const QImage pixels = TextPixels(widget);
            int least = 255, most = 0;
            for (int y = 0; y < pixels.height(); ++y)
                for (int x = 0; x < pixels.width(); ++x) {
                    least = std::min(least, qGray(pixels.pixel(x, y)));
                    most = std::max(most, qGray(pixels.pixel(x, y)));
                }
            EXPECT_GT(most - least, 120) << text.toStdString();
            EXPECT_LT(least, 100) << text.toStdString();
        }
    });
    QApplication::setPalette(usual);
}

// A button's letter presses it; a label's or frame's goes to the field behind it.
TEST_F(Access, EveryLetterWorks)
{
    const auto hasLetter = [](const Place& place) {
        const Window& control = place.Control();
        return place.widget && control.visible && control.enabled && Letter(TextOf(place.widget));
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
        heard.clear();
        Press(Qt::Key(Letter(TextOf(place.widget))), Qt::AltModifier);
        // A button goes down and up before it tells of itself.
        for (int wait = 0; presses && wait < 50 && !heard.contains(number); ++wait) QTest::qWait(10);
        EXPECT_TRUE(!presses || heard.contains(number)) << "the dialog hears nothing of it";
        EXPECT_TRUE(presses || locked || FocusedControl(top) == next->handle) << "the focus is on " << FocusName(top);
        const auto* field = qobject_cast<QLineEdit*>(next->widget);
        EXPECT_TRUE(locked || !field || field->selectedText() == field->text()) << "does not select what is there";
    });
}

// --- Help.

struct HelpRow {
    Picture picture;
    int control;  // 0: of what is the sheet's own, its Help button or its tabs
    Qt::Key key;
    const char* topic;
};

TEST_F(Access, HelpOpensAtTheTopicOfWhatAsks)
{
    const Picture sheet = {"setup", ""}, paper = {"paper", "page \"Paper\"\n"},
                  nup = {"nup", "choose IDC_NUP 2\nclick IDC_NUP_STYLE\n"},
                  watermark = {"watermark", "choose IDC_WATERMARK \"DRAFT\"\nclick IDC_EDIT_WATERMARK\n"},
                  custom = {"custom", "page \"Paper\"\nclick IDC_EDIT_CUSTOM\nclick IDC_CP_NEW\n"};
    const HelpRow rows[] = {
        {sheet,     0,           Qt::Key_Space, "Setup"               },
        {sheet,     0,           Qt::Key_F1,    "Setup"               },
        {paper,     IDC_COPIES,  Qt::Key_F1,    "Copies"              },
        {nup,       IDC_HELP,    Qt::Key_Space, "N-up Style"          },
        {watermark, IDC_WM_NAME, Qt::Key_F1,    "Changing a watermark"},
        {watermark, IDC_HELP,    Qt::Key_Space, "Watermarks"          },
        {custom,    IDC_CP_NAME, Qt::Key_F1,    "Name and size"       },
        {custom,    IDC_HELP,    Qt::Key_Space, "Custom Paper"        },
        {custom,    IDOK,        Qt::Key_F1,    ""                    }, // no topic, and no other one in its place
    };
    for (const HelpRow& row : rows)
        Visit(row.picture, [&](HWND top) {
            SCOPED_TRACE(row.topic);
            ShowForKeys(top);
            if (row.control) {
                ASSERT_TRUE(Reach(top, platform::user::Control(platform::user::DialogOf(top), row.control)));
                Press(row.key);
            } else if (row.key == Qt::Key_F1) {
                QTest::keyClick(WindowOf(top)->findChild<QTabBar*>(), row.key);
            } else {
                for (auto* button : WindowOf(top)->findChildren<QPushButton*>())
                    if (button->text() == "Help") QTest::keyClick(button, row.key);
            }
            desktop::HelpWindow* help = nullptr;
            for (QObject* child : WindowOf(top)->children())
                if (auto* window = dynamic_cast<desktop::HelpWindow*>(child)) help = window;
            ASSERT_TRUE(help && help->isVisible());
            const QListWidgetItem* item = help->findChild<QListWidget*>()->currentItem();
            EXPECT_EQ(item ? item->text().toStdString() : "", row.topic);
        });
}

}  // namespace
