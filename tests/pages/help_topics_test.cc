// Every help number that a dialog can ask for has a topic, and every topic is asked for.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <set>

#include "pclui/resources/control_numbers.h"
#include "platform/user/window.h"
#include "tests/support/records.h"
#include "tests/support/sheet_driver.h"

namespace testing_support {

namespace {

namespace user = platform::user;

std::set<DWORD> Topics()
{
    std::set<DWORD> topics;
    std::ifstream in(QD_HELP_TOPICS);
    for (std::string line; std::getline(in, line);)
        if (line.starts_with("## ")) {
            EXPECT_TRUE(topics.insert(std::stoul(line.substr(3))).second) << line;
        }
    EXPECT_FALSE(topics.empty()) << QD_HELP_TOPICS;
    return topics;
}

// Asks for help on each control of the dialog on top, and by its Help button.
void AskEverywhere(Sheet& sheet)
{
    sheet.Try([&](HWND dialog) {
        const std::vector<HWND> children = user::Find(dialog)->children;
        for (const HWND child : children)
            if (user::Find(child)->id > 0) user::ContextHelp(child);
        return user::Click(user::Control(dialog, IDC_HELP));
    });
}

// A page and the button on it that opens a dialog, 0 for the page itself; and the button in that dialog that
// opens another.
struct Place {
    const char16_t* page;
    int button, second;
};
constexpr Place Places[] = {
    {u"Setup",                  0,                  0          },
    {u"Setup",                  IDC_NUP_STYLE,      0          },
    {u"Setup",                  IDC_EDIT_OVERLAY,   0          },
    {u"Setup",                  IDC_EDIT_OVERLAY,   IDC_OVL_NEW},
    {u"Paper",                  0,                  0          },
    {u"Paper",                  IDC_EDIT_CUSTOM,    0          },
    {u"Quality",                0,                  0          },
    {u"Device Options Setting", 0,                  0          },
    {u"Setup",                  IDC_EDIT_WATERMARK, 0          },
};

}  // namespace

TEST(HelpTopics, AreOneForEachNumberThatADialogAsksFor)
{
    std::set<DWORD> asked;
    for (const Place& place : Places) {
        Sheet sheet(Fields("dmNupOn=1 dmNupCount=2"));
        sheet.Page(place.page);
        if (!place.button) sheet.PressHelp();
        if (place.button) sheet.Click(place.button);
        if (place.second) sheet.Click(place.second);
        AskEverywhere(sheet);
        for (const DWORD context : sheet.HelpContexts()) asked.insert(context);
    }
    asked.erase(0);
    EXPECT_EQ(asked, Topics());
}

}  // namespace testing_support
