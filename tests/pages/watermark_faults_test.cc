// The Watermark dialog where the platform refuses: no memory, no fonts, and every call failing once.
#include <gtest/gtest.h>

#include <cstdlib>
#include <set>

#include "platform/gdi/job.h"
#include "platform/kernel/memory.h"
#include "platform/user/window.h"
#include "tests/support/failing_places.h"
#include "tests/support/watermark_sheet.h"

namespace {

using namespace testing_support;

// Opens the dialog of a sheet that is up with one call to fail.
void Reopen(WatermarkSheet& sheet, const char* function, std::uint64_t call = 1)
{
    sheet.Click(IDCANCEL);
    sheet.Machine().Fail(function, call);
    sheet.Click(IDC_EDIT_WATERMARK);
}

TEST(WatermarkFaults, HalfAListIsNotStored)
{
    WatermarkSheet sheet(Abc(), 1);
    Reopen(sheet, "GlobalAlloc");
    EXPECT_EQ(sheet.Template(), IDD_SETUP);
    EXPECT_EQ(sheet.Names(), "3/A/B/C/");
    EXPECT_EQ(sheet.Row(IDC_WATERMARK), "A");
}

TEST(WatermarkFaults, WithoutFontsTheDialogStaysAsItsTemplate)
{
    for (const char* function : {"EnumFontsW", "GetDC"}) {
        WatermarkSheet sheet(Abc(), 1);
        Reopen(sheet, function);
        EXPECT_EQ(sheet.Template(), IDD_WATERMARK) << function;
        EXPECT_EQ(sheet.List(), "<NONE> [A] B C");
        EXPECT_EQ(sheet.Field(IDC_WM_NAME), "");
        sheet.Click(IDOK);
        EXPECT_EQ(sheet.Said(), "You cannot add a blank name./");
        sheet.Click(IDCANCEL);
        EXPECT_EQ(sheet.Names(), "3/A/B/C/");
    }
}

TEST(WatermarkFaults, NewEndsWithoutMemory)
{
    WatermarkSheet sheet(Abc(), 1);
    sheet.Try([](HWND) {
        platform::CurrentEnvironment().faults.Add("GlobalAlloc", 1, true);
        return platform::user::Outcome::Done;
    });
    sheet.Click(IDC_WM_NEW);
    sheet.Try([](HWND) {
        platform::CurrentEnvironment().faults.Clear();
        return platform::user::Outcome::Done;
    });
    EXPECT_EQ(sheet.List(), "<NONE> [A] B C");
    EXPECT_EQ(sheet.Field(IDC_WM_NAME), "A");
    sheet.Click(IDC_WM_NEW).Click(IDOK);
    EXPECT_EQ(sheet.Names(), "4/A/B/C/Watermark/");
}

TEST(WatermarkFaults, TheListBoxStaysInStep)
{
    WatermarkSheet sheet(Abc(), 2);
    Reopen(sheet, "LB_INSERTSTRING", 2);
    EXPECT_EQ(sheet.List(), "<NONE> A [B] C");
    sheet.Machine().Fail("LB_INSERTSTRING");
    sheet.Type(IDC_WM_NAME, u"X").Focus(IDC_WM_TEXT);
    EXPECT_EQ(sheet.List(), "<NONE> A [X] C");
}

TEST(WatermarkFaults, APrinterThatCannotBeWrittenKeepsItsList)
{
    WatermarkSheet sheet(Abc(), 1);
    sheet.Type(IDC_WM_NAME, u"X");
    sheet.Machine().Fail("OpenPrinterW");
    sheet.Click(IDOK);
    EXPECT_EQ(sheet.Names(), "3/A/B/C/");
    EXPECT_EQ(sheet.Row(IDC_WATERMARK), "X");
}

// Calls of every function fail, one in a walk over a walk: nothing stays, and a list that is stored can be read again.
TEST(WatermarkFaults, SurviveEveryCallThatFails)
{
    auto& faults = platform::CurrentEnvironment().faults;
    const auto walk = [&](const char* function, std::uint64_t call) {
        WatermarkSheet sheet(Abc(), 1);
        const auto act = [&](auto action, int control, auto... more) {
            sheet.Try([=](HWND page) { return action(platform::user::Control(page, control), more...); });
        };
        sheet.Click(IDCANCEL);
        faults.Clear();
        function ? faults.Add(function, call, false) : faults.CountCalls(true);
        act(platform::user::Click, IDC_EDIT_WATERMARK);
        act(platform::user::Type, IDC_WM_NAME, u"C");
        act(platform::user::Click, IDOK);
        act(platform::user::Type, IDC_WM_SIZE, u"300");
        act(platform::user::Type, IDC_WM_ANGLE, u"x");
        act(platform::user::Pick, IDC_WM_ANGLE_MODE, 3);
        act(platform::user::Pick, IDC_WM_FACE, 1);
        act(platform::user::Click, IDC_WM_USER_POSITION);
        act(platform::user::Type, IDC_WM_VERTICAL, u"-7");
        act(platform::user::Click, IDC_WM_CENTER);
        act(platform::user::Click, IDC_WM_BOLD);
        act(platform::user::Pick, IDC_WM_LIST, 2);
        act(platform::user::Click, IDC_WM_DELETE);
        act(platform::user::Click, IDC_WM_NEW);
        act(platform::user::Type, IDC_WM_TEXT, u"T");
        for (int i = 0; i < 3 && sheet.Template() == IDD_WATERMARK; ++i) act(platform::user::Click, IDOK);
        const auto calls = faults.Calls();
        faults.Clear();
        if (sheet.Template() == IDD_WATERMARK) sheet.Click(IDCANCEL);
        const std::string names = sheet.Names();
        // Each name once, and as many as the count says.
        std::multiset<std::string> lines;
        for (std::size_t at = names.find('/') + 1; at < names.size(); at = names.find('/', at) + 1)
            lines.insert(names.substr(at, names.find('/', at) - at));
        EXPECT_EQ(std::to_string(lines.size()), names.substr(0, names.find('/'))) << names;
        EXPECT_EQ(std::set<std::string>(lines.begin(), lines.end()).size(), lines.size()) << names;
        if (!function) {
            EXPECT_EQ(names, "2/C/Watermark/");
        }
        sheet.Cancel();
        return calls;
    };
    const auto calls = walk(nullptr, 0);
    const std::size_t blocks = platform::memory::BlockCount();
    const auto places = testing_support::FailingPlaces({calls.begin(), calls.end()}, 100);
    EXPECT_GT(places.size(), 50u);
    std::size_t kept = 0;
    for (const auto& [function, call] : places) {
        SCOPED_TRACE(function + " " + std::to_string(call));
        walk(function.c_str(), call);
        if (function == "GlobalFree" && platform::memory::BlockCount() == blocks + kept + 1) ++kept;
        EXPECT_EQ(platform::memory::BlockCount(), blocks + kept);
        EXPECT_EQ(platform::gdi::ContextCount(), 0u);
        EXPECT_EQ(platform::gdi::ObjectCount(), 0u);
    }
}

}  // namespace
