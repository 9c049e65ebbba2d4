// What --platform overrides; what it refuses is told by the program's tests.
#include "host/platform_options.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/errors.h"
#include "platform/seams/fonts.h"

namespace {

host::PlatformOptions Taken(std::initializer_list<const char*> values)
{
    host::PlatformOptions options;
    for (const char* value : values) options.Take(value);
    return options;
}

TEST(PlatformOptions, OverrideTheMachinesFacts)
{
    const auto facts =
        host::MakeFacts(Taken({"country=49", "language=0407", "codepage=1250", "user=J\u00f6rg",
                               "time=2005-12-31T17:45:09", "os=1.4.10.2222.0", "owner-module=word.exe"}));
    EXPECT_EQ(facts->Country(), 49);
    EXPECT_EQ(facts->Language(), 0x0407);
    EXPECT_EQ(facts->CodePage(), 1250u);
    EXPECT_EQ(facts->UserName(), u"J\u00f6rg");
    EXPECT_EQ(facts->OwnerModule(), u"word.exe");

    const SYSTEMTIME time = facts->LocalTime();
    EXPECT_EQ(std::vector<int>({time.wYear, time.wMonth, time.wDayOfWeek, time.wDay, time.wHour, time.wMinute,
                                time.wSecond, time.wMilliseconds}),
              std::vector<int>({2005, 12, 6, 31, 17, 45, 9, 0}));

    const platform::OsVersion version = facts->Version();
    EXPECT_EQ(std::vector<DWORD>({version.platform, version.major, version.minor, version.build, version.servicePack}),
              std::vector<DWORD>({1, 4, 10, 2222, 0}));
}

TEST(PlatformOptions, LeaveTheRestToTheMachine)
{
    const auto facts = host::MakeFacts({}), machine = platform::MakeMachineFacts();
    EXPECT_EQ(facts->Country(), machine->Country());
    EXPECT_EQ(facts->UserName(), machine->UserName());
    EXPECT_EQ(facts->CodePage(), 1252u);
    EXPECT_EQ(facts->Version().build, 2600u);
    EXPECT_TRUE(facts->LibraryLoadable(u"compstui.dll"));
    EXPECT_FALSE(facts->WindowExists(u"VWClass500"));
}

TEST(PlatformOptions, AddUpLibrariesWindowsAndFaults)
{
    const auto options = Taken({"missing=compstui.dll", "missing=spoolss.dll", "window=VWClass500", "window=Other",
                                "fail=GetPrinterW", "fail=GetPrinterW:3", "fail=LB_INSERTSTRING:2+"});
    const auto facts = host::MakeFacts(options);
    EXPECT_FALSE(facts->LibraryLoadable(u"CompStUI.DLL"));
    EXPECT_FALSE(facts->LibraryLoadable(u"spoolss.dll"));
    EXPECT_TRUE(facts->LibraryLoadable(u"comdlg32.dll"));
    EXPECT_TRUE(facts->WindowExists(u"VWClass500"));
    EXPECT_TRUE(facts->WindowExists(u"Other"));

    ASSERT_EQ(options.faults.size(), 3u);
    EXPECT_EQ(options.faults[0].call, 1u);
    EXPECT_FALSE(options.faults[1].andLater);
    EXPECT_EQ(options.faults[2].function, "LB_INSERTSTRING");
    EXPECT_EQ(options.faults[2].call, 2u);
    EXPECT_TRUE(options.faults[2].andLater);
}

TEST(PlatformOptions, TakeTheLaterOfTwoValues)
{
    EXPECT_EQ(Taken({"country=49", "country=81"}).country, 81);
    EXPECT_FALSE(Taken({"fonts=builtin", "fonts=system"}).builtinFonts);
}

TEST(PlatformOptions, GiveTheBuiltinFonts)
{
    const auto fonts = host::MakeFonts(Taken({"fonts=builtin"}));
    LOGFONTW font{};
    font.lfHeight = -300;
    const SIZE size = fonts->Extent(font, u"CONFIDENTIAL");
    EXPECT_EQ(size.cx, 1800);
    EXPECT_EQ(size.cy, 337);
}

}  // namespace
