// The Help buttons and F1 open the help at the topic of what asks.
#include <QtTest>
#include <QtWidgets>

#include "desktop/help_window.h"
#include "pclui/resources/control_numbers.h"
#include "tests/desktop/access_rig.h"

namespace accessibility {
namespace {

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
}  // namespace accessibility
