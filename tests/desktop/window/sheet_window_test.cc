// The sheet in a real window: a user presses keys and clicks through the X server.
#include <gtest/gtest.h>

#include <QtWidgets>
#include <cstdlib>
#include <filesystem>
#include <thread>

#include "desktop/dialog_view.h"
#include "desktop/qt_desktop.h"
#include "desktop/qt_fonts.h"
#include "pclui/resources/control_numbers.h"
#include "tests/support/sheet_fixture.h"

namespace {

constexpr int OptionTree = 99, OptionButton = 100;  // of the option page of the common sheet

// What the user does goes through the X server, from a thread of its own, while the windows run.
class User {
  public:
    explicit User(std::function<void(User&)> walk) : thread_([this, walk = std::move(walk)] { walk(*this); }) {}
    ~User() { thread_.join(); }

    void Press(const std::string& key) { Do("key " + key); }
    void Type(const std::string& text) { Do("type " + text); }
    // Types over what is in a field.
    void Enter(int control, const std::string& text)
    {
        Click(control);
        Press("ctrl+a");
        Do("type " + text);
    }
    // Picks a row of a list, counted from its top.
    void Pick(int list, int row)
    {
        Click(list);
        Press("Home");
        for (int k = 0; k < row; ++k) Press("Down");
        Press("Return");
    }
    void Click(int control)
    {
        ClickAt([control] { return ControlWidget(control); });
    }
    void ClickButton(const QString& text)
    {
        ClickAt([text]() -> QWidget* {
            for (QWidget* widget : QApplication::allWidgets())
                if (auto* button = qobject_cast<QAbstractButton*>(widget);
                    button && button->isVisible() && button->text().remove('&') == text)
                    return button;
            return nullptr;
        });
    }

    void ShowPage(const QString& title)
    {
        ClickPlace([title] {
            for (QWidget* widget : QApplication::allWidgets())
                if (auto* bar = qobject_cast<QTabBar*>(widget); bar && bar->isVisible())
                    for (int tab = 0; tab < bar->count(); ++tab)
                        if (bar->tabText(tab) == title) return bar->mapToGlobal(bar->tabRect(tab).center());
            return QPoint();
        });
    }

    bool IsEnabled(int control)
    {
        return InWindows<bool>([control] {
            const QWidget* widget = ControlWidget(control);
            return widget && widget->isEnabled();
        });
    }
    bool IsUp(const QString& title)
    {
        return InWindows<bool>([title] {
            const auto windows = QApplication::topLevelWidgets();
            return std::ranges::any_of(
                windows, [&](const QWidget* widget) { return widget->isVisible() && widget->windowTitle() == title; });
        });
    }

  private:
    static QWidget* ControlWidget(int control)
    {
        for (QWidget* widget : QApplication::allWidgets())
            if (auto* view = dynamic_cast<desktop::DialogView*>(widget); view && view->isVisible())
                for (QWidget* child : view->findChildren<QWidget*>())
                    if (const HWND handle = view->ControlOf(child))
                        if (platform::user::Find(handle)->id == control) return child;
        return nullptr;
    }

    template <class T>
    static T InWindows(const std::function<T()>& question)
    {
        T answer{};
        QMetaObject::invokeMethod(
            qApp, [&] { answer = question(); }, Qt::BlockingQueuedConnection);
        return answer;
    }

    void ClickAt(const std::function<QWidget*()>& find)
    {
        ClickPlace([find] {
            QWidget* widget = find();
            if (!widget || !widget->isEnabled()) return QPoint();
            // A radio button or check box answers to its mark and text, which stand at its left.
            const bool mark = qobject_cast<QRadioButton*>(widget) || qobject_cast<QCheckBox*>(widget);
            return widget->mapToGlobal(QPoint(mark ? 8 : widget->width() / 2, widget->height() / 2));
        });
    }

    // Waits for the place to be there, and clicks it. A place of no coordinates is not there yet.
    void ClickPlace(const std::function<QPoint()>& find)
    {
        for (int attempt = 0; attempt < 100; ++attempt) {
            const QPoint place = InWindows<QPoint>([&] { return find() * qApp->devicePixelRatio(); });
            if (!place.isNull()) {
                Do("mousemove " + std::to_string(place.x()) + " " + std::to_string(place.y()) + " click 1");
                return;
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(100));
        }
        ADD_FAILURE() << "the widget did not show";
    }

    static void Do(const std::string& command)
    {
        EXPECT_EQ(std::system(("xdotool " + command).c_str()), 0) << command;
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
    }

    std::thread thread_;
};

class SheetWindow : public testing_support::SheetFixture {
  protected:
    using Walk = std::function<void(User&)>;

    SheetWindow() : SheetFixture(QD_MODULE_PATH)
    {
        platform::CurrentEnvironment().desktop = desktop::MakeQtDesktop();
        platform::CurrentEnvironment().fonts = desktop::MakeQtFonts();
    }

    // The record that comes out of the sheet when the user has walked through it.
    DriverDevMode Play(Walk walk, DWORD expected = 1)
    {
        DWORD result = 99;
        const User user(std::move(walk));
        const DriverDevMode record = Show(&result);
        EXPECT_EQ(result, expected);
        return record;
    }
};

TEST_F(SheetWindow, ChoosesTheLowestResolutionAndTonerSaveByMouseAndKeyboard)
{
    const DriverDevMode record = Play([](User& user) {
        user.ShowPage("Quality");
        user.Pick(IDC_RESOLUTION, 0);
        user.Click(IDC_TONER_SAVE_ON);
        user.ClickButton("OK");
    });
    EXPECT_EQ(record.dmResolutionChoice, 600);
    EXPECT_EQ(record.dmTonerSave, 1);
}

TEST_F(SheetWindow, PrintsABookletFromTray1UnderANewWatermark)
{
    const DriverDevMode record = Play([](User& user) {
        user.Pick(IDC_PAPER_SOURCE, 1);
        user.Pick(IDC_DUPLEX, 3);
        user.Click(IDC_EDIT_WATERMARK);
        user.Click(IDC_WM_NEW);
        user.Enter(IDC_WM_TEXT, "Mine");
        user.Click(IDOK);
        user.ClickButton("OK");
    });
    EXPECT_EQ(record.dmDefaultSource, 1);
    EXPECT_EQ(record.dmDuplexOn, 1);
    EXPECT_NE(record.dmBookletPaper, 0);
    EXPECT_EQ(record.dmNupCount, 2);
    EXPECT_EQ(record.dmWatermarkOn, 1u);
    EXPECT_EQ(std::u16string(record.dmWatermark.wmText), u"Mine");
}

TEST_F(SheetWindow, EscapeCancels)
{
    Play(
        [](User& user) {
            user.ShowPage("Quality");
            user.Click(IDC_SMOOTHTONE);
            user.Press("Escape");  // closes the list
            user.Press("Escape");
        },
        0);
}

TEST_F(SheetWindow, MakesACustomSizeInInches)
{
    const DriverDevMode record = Play([](User& user) {
        user.ShowPage("Paper");
        user.Click(IDC_EDIT_CUSTOM);
        user.Click(IDC_CP_NEW);
        user.Click(IDC_CP_UNIT_INCH);
        user.Enter(IDC_CP_WIDTH_INCH, "5");
        user.Enter(IDC_CP_WIDTH_SIXTEENTHS, "12");
        user.Enter(IDC_CP_HEIGHT_INCH, "9");
        user.Enter(IDC_CP_HEIGHT_SIXTEENTHS, "0");
        user.Click(IDOK);
        user.ClickButton("OK");
    });
    EXPECT_EQ(record.dmPaperSize, 257);
    EXPECT_EQ(record.dmPaperWidth, 1725);
    EXPECT_EQ(record.dmPaperLength, 2700);
}

// The file dialog is Qt's own; a path that is refused leaves it up.
TEST_F(SheetWindow, NamesTheFileOfANewOverlayInAFileDialogThatStaysUntilThePathFits)
{
    const std::filesystem::path file = std::filesystem::temp_directory_path() / "contract.oxl";
    bool refused = false, stayed = false, gone = false;
    const DriverDevMode record = Play([&](User& user) {
        user.Click(IDC_EDIT_OVERLAY);
        user.Click(IDC_OVL_NEW);
        user.Enter(IDC_OVL_NAME, "Contract");
        user.Click(IDC_OVL_BROWSE);
        user.Type(std::string(255, 'n'));
        user.Press("Return");
        refused = user.IsUp("Error");
        user.Press("Return");
        stayed = user.IsUp("File") && !user.IsUp("Error");
        user.Press("ctrl+a");
        user.Type(file.string());
        user.Press("Return");
        gone = !user.IsUp("File");
        user.Click(IDC_OVL_NAME);
        user.Press("Return");
        user.Press("Return");  // what a new overlay needs
        user.Click(IDOK);
        user.ClickButton("OK");
    });
    EXPECT_TRUE(refused);
    EXPECT_TRUE(stayed);
    EXPECT_TRUE(gone);
    EXPECT_EQ(record.dmOverlayState, 2);
    EXPECT_EQ(std::u16string(record.dmOverlayFile), file.u16string());
}

TEST_F(SheetWindow, TheDeviceSheetIsWorkedByKeyboardAlone)
{
    DWORD result = 99;
    bool rootHasNoButton = false, boxShown = false;
    {
        const User walk([&](User& user) {
            user.Click(OptionTree);
            user.Press("Up");
            rootHasNoButton = !user.IsEnabled(OptionButton);
            user.Press("Down");
            user.Press("Tab");
            user.Press("space");
            boxShown = user.IsUp("Halftone Color Adjustment");
            user.Press("Return");
            user.ShowPage("About");
            user.Press("Return");
        });
        ShowDevice(&result);
    }
    EXPECT_TRUE(rootHasNoButton);
    EXPECT_TRUE(boxShown);
    EXPECT_EQ(result, 1u);
    EXPECT_TRUE(machine.store->Value(Printer, u"PrinterData"));
}

}  // namespace
