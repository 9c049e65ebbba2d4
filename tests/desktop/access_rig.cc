#include "tests/desktop/access_rig.h"

#include <QtTest>
#include <QtWidgets>
#include <map>

#include "desktop/control_sync.h"
#include "desktop/qt_desktop.h"
#include "desktop/qt_fonts.h"
#include "desktop/qt_surface.h"
#include "host/script_desktop.h"
#include "tests/support/overlays.h"

namespace accessibility {

using desktop::DialogView;
using desktop::IsGroupBox;
using desktop::IsOwnerDrawn;
using desktop::IsRadio;
using desktop::TopWindow;
using platform::user::Find;
using platform::user::Window;

namespace {

// Beside the pictures of the document sheet: what these leave locked, and the printer's own sheet.
constexpr Picture MoreWays[] = {
    {"overlay",            "page \"Setup\"\nchoose IDC_OVERLAY \"Letterhead\"\n"                         },
    {"overlay-row",        "page \"Setup\"\nclick IDC_EDIT_OVERLAY\nchoose IDC_OVL_LIST \"Letterhead\"\n"},
    {"collated",           "page \"Paper\"\ntype IDC_COPIES \"2\"\nclick IDC_COLLATED\n"                 },
    {"toner-save",         "page \"Quality\"\nchoose IDC_RESOLUTION 0\n"                                 },
    {"device-sheet",       ""                                                                            },
    {"device-sheet-about", "page \"About\"\n"                                                            },
};

DLGPROC heardBy = nullptr;

INT_PTR Listen(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_COMMAND) Heard().insert(int(wParam & 0xFFFF));
    if (message == WM_NOTIFY) Heard().insert(int(reinterpret_cast<const NMHDR*>(lParam)->idFrom));
    return heardBy(dialog, message, wParam, lParam);
}

using Look = std::function<void(HWND top)>;

// What comes up while a dialog is looked at is cancelled at once.
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
        Heard().clear();
        looking_ = looked_ = true;
        WindowOf(top)->Sync();  // with what the steps have changed, which else shows at the next turn of the event loop
        QCoreApplication::processEvents();
        look(top);
        looking_ = false;
        if (Find(dialog)) SetWindowLongW(dialog, DWL_DLGPROC, reinterpret_cast<LONG_PTR>(heardBy));
    }

    std::shared_ptr<platform::Desktop> qt_ = desktop::MakeQtDesktop();
    bool looking_ = false, looked_ = false;
};

}  // namespace

std::set<int>& Heard()
{
    static std::set<int> heard;
    return heard;
}

std::string Place::Name() const
{
    return "control " + std::to_string(Control().id) + " \"" + desktop::ToQString(Control().text).toStdString() + '"';
}

TopWindow* WindowOf(HWND top)
{
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (auto* window = dynamic_cast<TopWindow*>(widget); window && window->isVisible() && window->Handle() == top)
            return window;
    return nullptr;
}

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

bool TakesFocus(const Window& window)
{
    return IsField(window) || (window.kind == Kind::Button && !IsGroupBox(window) && !IsOwnerDrawn(window));
}
bool IsWorkable(const Window& window) { return TakesFocus(window) && window.visible && window.enabled; }

QString TextOf(const QWidget* widget)
{
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) return button->text();
    if (const auto* frame = qobject_cast<const QGroupBox*>(widget)) return frame->title();
    const auto* label = qobject_cast<const QLabel*>(widget);
    return label ? label->text() : QString();
}

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

void Press(Qt::Key key, Qt::KeyboardModifiers with)
{
    if (QWidget* focused = QApplication::focusWidget()) QTest::keyClick(focused, key, with);
    QCoreApplication::processEvents();
}

void ShowForKeys(HWND top)
{
    TopWindow* window = WindowOf(top);
    window->activateWindow();
    for (int wait = 0; wait < 500 && !window->isActiveWindow(); ++wait) QTest::qWait(10);
    ASSERT_TRUE(window->isActiveWindow());
    QCoreApplication::processEvents();
}

bool Reach(HWND top, HWND control)
{
    for (int stop = 0; stop < 60 && FocusedControl(top) != control; ++stop) {
        if (const HWND focused = FocusedControl(top); focused && IsRadio(*Find(focused)) && IsRadio(*Find(control)))
            for (int arrow = 0; arrow < 4 && FocusedControl(top) != control; ++arrow) Press(Qt::Key_Down);
        if (FocusedControl(top) != control) Press(Qt::Key_Tab);
    }
    return FocusedControl(top) == control;
}

Access::Access() : SheetFixture(QD_MODULE_PATH)
{
    testing_support::StoreOverlays(machine, Printer, {testing_support::Overlay(u"Letterhead", u"/letterhead.oxl")});
}

void Access::Visit(const Picture& picture, const Look& look)
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

void Access::VisitAll(const std::function<void(const Picture&, HWND top)>& look)
{
    for (const Picture& picture : host::Pictures) Visit(picture, [&](HWND top) { look(picture, top); });
    for (const Picture& picture : MoreWays) Visit(picture, [&](HWND top) { look(picture, top); });
}

void Access::VisitControls(const std::function<bool(const Place&)>& wanted,
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
        EXPECT_FALSE(places.empty()) << picture.name;
        for (std::size_t i = 0; i < places.size(); ++i)
            if (wanted(places[i])) rows.try_emplace({dialog->templateNumber, int(i)}, Row{&picture, i});
    });
    ASSERT_FALSE(rows.empty());
    for (const auto& [key, row] : rows)
        Visit(*row.picture, [&, place = row.place](HWND top) {
            const Place control = Places(top).at(place);
            SCOPED_TRACE(control.Name());
            ShowForKeys(top);
            look(top, control);
        });
}

}  // namespace accessibility
