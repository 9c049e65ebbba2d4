// What --platform overrides; what it refuses is told by the program's tests.
#include "host/platform_options.h"

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
    const SYSTEMTIME t = facts->LocalTime();
    EXPECT_THAT((std::vector{t.wYear, t.wMonth, t.wDayOfWeek, t.wDay, t.wHour, t.wMinute, t.wSecond, t.wMilliseconds}),
                testing::ElementsAre(2005, 12, 6, 31, 17, 45, 9, 0));
    const platform::OsVersion v = facts->Version();
    EXPECT_THAT((std::vector<DWORD>{v.platform, v.major, v.minor, v.build, v.servicePack}),
                testing::ElementsAre(1, 4, 10, 2222, 0));
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

TEST(PlatformOptions, AddUpLibrariesWindowsAndFaultsAndTakeTheLaterOfOtherValues)
{
    const auto options =
        Taken({"missing=compstui.dll", "missing=spoolss.dll", "window=VWClass500", "window=Other", "fail=GetPrinterW",
               "fail=GetPrinterW:3", "fail=LB_INSERTSTRING:2+", "country=49", "country=81"});
    const auto facts = host::MakeFacts(options);
    EXPECT_EQ(facts->Country(), 81);
    EXPECT_FALSE(facts->LibraryLoadable(u"CompStUI.DLL"));
    EXPECT_FALSE(facts->LibraryLoadable(u"spoolss.dll"));
    EXPECT_TRUE(facts->LibraryLoadable(u"comdlg32.dll"));
    EXPECT_TRUE(facts->WindowExists(u"VWClass500"));
    EXPECT_TRUE(facts->WindowExists(u"Other"));

    std::string faults;
    for (const auto& fault : options.faults)
        faults += fault.function + ":" + std::to_string(fault.call) + (fault.andLater ? "+ " : " ");
    EXPECT_EQ(faults, "GetPrinterW:1 GetPrinterW:3 LB_INSERTSTRING:2+ ");
}

TEST(PlatformOptions, GiveTheBuiltinFonts)
{
    LOGFONTW font{};
    font.lfHeight = -300;
    const SIZE size = host::MakeFonts(Taken({"fonts=system", "fonts=builtin"}))->Extent(font, u"CONFIDENTIAL");
    EXPECT_EQ(size.cx, 1800);
    EXPECT_EQ(size.cy, 337);
    EXPECT_FALSE(Taken({"fonts=builtin", "fonts=system"}).builtinFonts);
}

}  // namespace
