// The device sheet: as the service calls it, phase by phase, and as a user works it.
#include "spooler/device_sheet.h"

#include <gmock/gmock.h>

#include "pages/about_dialog.h"
#include "platform/registry.h"
#include "platform/registry/keys.h"
#include "platform/services/sheet_service.h"
#include "spooler/document_sheet.h"
#include "spooler/option_sheet.h"
#include "tests/spooler/printer_fixture.h"
#include "tests/support/idle_desktop.h"

namespace {

using namespace testing_support;
using platform::Bytes;
using platform::StoredValue;
using testing::AnyOf;
using testing::ElementsAre;
using user_action = std::function<void(HWND sheet)>;
namespace user = platform::user;

constexpr int ShowButton = 100;  // of the service's page

const Bytes NotInstalled = {'0', 0, 0, 0}, Installed = {'1', 0, 0, 0};

class DeviceSheet : public PrinterTest {
  protected:
    DeviceSheet()
    {
        platform::CurrentEnvironment().facts = platform::MakeFixedFacts(Machine::InCountry(1));
        Play([](HWND sheet) { user::PressButton(sheet, user::SheetButton::Ok); });
        header.cbSize = sizeof header;
        header.hPrinter = printer;
        header.pszPrinterName = name.data();
    }
    ~DeviceSheet() override
    {
        EXPECT_EQ(user::WindowCount(), 0u);
        EXPECT_EQ(platform::registry::OpenCount(), 0u);
        EXPECT_EQ(DeviceSheetOpen, 0);
        EXPECT_EQ(DeviceSettings, nullptr);
    }
    static void Play(user_action script)
    {
        platform::CurrentEnvironment().desktop = std::make_shared<ScriptedDesktop>(std::move(script));
    }
    LONG Run()
    {
        return platform::services::RunCommonSheet(nullptr, DrvDevicePropertySheets, reinterpret_cast<LPARAM>(&header),
                                                  &result);
    }
    void StoreTray2(const StoredValue& value)
    {
        machine.store->SetKeyValue(platform::PrinterKeyPath(OfficePrinter), u"tray2", value);
    }
    std::optional<StoredValue> Tray2()
    {
        return machine.store->KeyValue(platform::PrinterKeyPath(OfficePrinter), u"tray2");
    }

    std::u16string name = OfficePrinter;
    DEVICEPROPERTYHEADER header{};
    DWORD result = 99;
};

const struct {
    const char* what;
    std::optional<StoredValue> stored;
    bool installed;
} Tray2Rows[] = {
    {"none",                   std::nullopt,                                  false},
    {"wide 1",                 StoredValue{REG_BINARY, {'1', 0, 0, 0}},       true },
    {"wide 0",                 StoredValue{REG_BINARY, {'0', 0, 0, 0}},       false},
    {"one byte",               StoredValue{REG_BINARY, {'1'}},                true },
    {"no bytes",               StoredValue{REG_BINARY, {}},                   false},
    {"four digits",            StoredValue{REG_BINARY, {'0', '0', '1', '0'}}, true },
    {"below zero",             StoredValue{REG_BINARY, {'-', '1'}},           true },
    {"more than four bytes",   StoredValue{REG_BINARY, {'1', 0, 0, 0, 0}},    false},
    {"text of another type",   StoredValue{1, {'1', 0, 0, 0}},                true },
    {"number of another type", StoredValue{REG_DWORD, {1, 0, 0, 0}},          false},
};

TEST_F(DeviceSheet, ReadsTray2AndWritesItBackForEveryResult)
{
    // Whose flags tell of the tray, which is not what counts.
    machine.store->SetDefaultRecord(OfficePrinter, BytesOf(BusyRecord()));
    for (const auto button : {user::SheetButton::Ok, user::SheetButton::Cancel}) {
        for (const auto& row : Tray2Rows) {
            machine.store->DeleteKeyValue(platform::PrinterKeyPath(OfficePrinter), u"tray2");
            if (row.stored) StoreTray2(*row.stored);
            DWORD flags = 99;
            Play([&](HWND sheet) {
                flags = DeviceSettings->dmDeviceFlags;
                user::PressButton(sheet, button);
            });
            EXPECT_GT(Run(), 0);
            EXPECT_EQ(result, button == user::SheetButton::Ok ? 1u : 0u);
            EXPECT_EQ(flags, row.installed ? 0x80u : 0u) << row.what;
            EXPECT_EQ(Tray2(), (StoredValue{REG_BINARY, row.installed ? Installed : NotInstalled})) << row.what;
        }
    }
}

TEST_F(DeviceSheet, IsOneAtATime)
{
    LONG second = 99;
    Play([&](HWND sheet) {
        second = Run();
        EXPECT_EQ(DeviceSheetOpen, 1);
        user::PressButton(sheet, user::SheetButton::Ok);
    });
    EXPECT_GT(Run(), 0);
    EXPECT_EQ(second, -1);
    EXPECT_GT(Run(), 0);
}

TEST_F(DeviceSheet, ShowsTheOptionAndAbout)
{
    std::vector<std::u16string> titles;
    Play([&](HWND sheet) {
        for (const auto& page : user::Find(sheet)->As<user::SheetState>()->pages) titles.push_back(page.title);
        EXPECT_EQ(user::Find(sheet)->text, u"Office Properties");
        ShowPage(sheet, u"About");
        const HWND page = user::DialogOf(sheet);
        EXPECT_FALSE(user::Find(user::Control(page, IDOK))->visible);
        EXPECT_FALSE(user::Find(user::Control(page, IDOK))->enabled);
        user::Press(sheet, user::Key::Escape);
    });
    Run();
    EXPECT_THAT(titles, ElementsAre(u"Device Settings", u"About"));
    EXPECT_EQ(result, 0u);
}

// The service's place taken by the test, which keeps what it is given.
const COMPROPSHEETUI* given = nullptr;
LONG_PTR TakeSheet(HANDLE sheet, UINT function, LPARAM param1, LPARAM param2)
{
    EXPECT_EQ(sheet, reinterpret_cast<HANDLE>(7));
    EXPECT_EQ(function, CPSFUNC_ADD_PCOMPROPSHEETUIW);
    EXPECT_NE(param2, 0);
    given = reinterpret_cast<const COMPROPSHEETUI*>(param1);
    return 1;
}

class DeviceSheetPhases : public DeviceSheet {
  protected:
    DeviceSheetPhases()
    {
        info.cbSize = sizeof info;
        info.hComPropSheet = reinterpret_cast<HANDLE>(7);
        info.pfnComPropSheet = TakeSheet;
        info.lParamInit = reinterpret_cast<LPARAM>(&header);
        info.Result = 99;
    }
    LONG Call(WORD reason, LPARAM lParam = 0)
    {
        info.Reason = reason;
        return DrvDevicePropertySheets(&info, lParam);
    }
    UiContext& Context() { return *reinterpret_cast<UiContext*>(info.UserData); }

    PROPSHEETUI_INFO info{};
};

TEST_F(DeviceSheetPhases, DescribeTheSheet)
{
    ASSERT_EQ(Call(PROPSHEETUI_REASON_INIT), 1);
    EXPECT_EQ(info.Result, 0u);
    EXPECT_EQ(AboutIsPage, 1);
    EXPECT_EQ(given->cbSize, sizeof *given);
    EXPECT_EQ(given->Flags, 1);
    EXPECT_EQ(given->hInstCaller, ModuleHandle);
    EXPECT_EQ(std::u16string(given->pCallerName), u"PCL DRIVER");
    EXPECT_EQ(given->UserData, info.UserData);
    EXPECT_EQ(std::u16string(given->pHelpFile), u"C:\\WINDOWS\\system32\\spool\\DRIVERS\\W32X86\\pscript.hlp");
    EXPECT_EQ(given->IconID, 64062u);
    EXPECT_EQ(std::u16string(given->pOptItemName), OfficeDriver);
    EXPECT_EQ(given->CallerVersion, 1024);
    EXPECT_EQ(given->OptItemVersion, 0);

    ASSERT_EQ(given->cOptItem, 1);
    const OPTITEM& item = *given->pOptItem;
    const OPTTYPE& type = *item.pOptType;
    const OPTPARAM& param = *type.pOptParam;
    const DLGPAGE& page = *given->pDlgPage;
    EXPECT_THAT((std::vector<DWORD_PTR>{item.cbSize, type.cbSize, param.cbSize, page.cbSize}),
                ElementsAre(sizeof item, sizeof type, sizeof param, sizeof page));
    EXPECT_THAT((std::vector<DWORD_PTR>{item.Level, item.Flags, reinterpret_cast<DWORD_PTR>(item.pName),
                                        item.UserItemID, type.Type, type.Count, param.Style, param.IconID}),
                ElementsAre(1, 4, 64792, 1, 8, 1, 2, 64047));
    WORD adjustment[12];
    std::memcpy(adjustment, param.pData, sizeof adjustment);
    EXPECT_THAT(adjustment, ElementsAre(24, 0, 0, 10000, 10000, 10000, 0, 10000, 0, 0, 0, 0));
    EXPECT_EQ(given->cDlgPage, 1);
    EXPECT_EQ(page.DlgProc, About);
    EXPECT_EQ(std::u16string(page.pTabName), u"About");
    EXPECT_EQ(page.DlgTemplateID, 1288);
    EXPECT_EQ(Call(PROPSHEETUI_REASON_DESTROY), 1);
}

TEST_F(DeviceSheetPhases, NameAndEndTheSheet)
{
    ASSERT_EQ(Call(PROPSHEETUI_REASON_INIT), 1);
    PROPSHEETUI_INFO_HEADER title{};
    EXPECT_EQ(Call(PROPSHEETUI_REASON_GET_INFO_HEADER, reinterpret_cast<LPARAM>(&title)), 1);
    EXPECT_EQ(std::tuple(title.Flags, title.pTitle, title.hInst, title.IconID),
              std::tuple(4, name.data(), ModuleHandle, 64082u));
    SETRESULT_INFO end{};
    end.Result = 5;
    EXPECT_EQ(Call(PROPSHEETUI_REASON_SET_RESULT, reinterpret_cast<LPARAM>(&end)), 1);
    EXPECT_EQ(info.Result, 5u);
    EXPECT_EQ(DeviceSheetOpen, 0);  // another one may open now
    EXPECT_EQ(Call(PROPSHEETUI_REASON_DESTROY), 1);
}

TEST_F(DeviceSheetPhases, AnswerTheCallback)
{
    struct Row {
        WORD reason, flags;
        LONG action;
    };
    for (const Row& row : {
             Row{CPSUICB_REASON_PUSHBUTTON, 0,                0                           },
             {CPSUICB_REASON_APPLYNOW,   DPS_NOPERMISSION, 0                           },
             {CPSUICB_REASON_APPLYNOW,   0,                CPSUICB_ACTION_ITEMS_APPLIED},
    }) {
        header.Flags = row.flags;
        ASSERT_EQ(Call(PROPSHEETUI_REASON_INIT), 1);
        CPSUICBPARAM params{};
        params.Reason = row.reason;
        params.hDlg = reinterpret_cast<HWND>(12);
        params.UserData = given->UserData;
        params.Result = 99;
        EXPECT_EQ(given->pfnCallBack(&params), row.action);
        EXPECT_EQ(params.Result, row.action ? static_cast<ULONG_PTR>(CPSUI_OK) : 99u);
        EXPECT_EQ(Stored(u"PrinterData").size(), row.action ? 8u : 0u);
        EXPECT_EQ(Context().sheetWindow, reinterpret_cast<HWND>(12));
        Call(PROPSHEETUI_REASON_DESTROY);
    }
}

TEST_F(DeviceSheet, PrinterPropertiesTestsTheRightsAndSaysHowItEnded)
{
    struct Row {
        user::SheetButton button;
        std::string fault;
        bool answer, stores;
    };
    StoreTray2({REG_BINARY, Installed});
    for (const Row& row : {
             Row{user::SheetButton::Ok,     "",                true,  true },
             {user::SheetButton::Cancel, "",                false, false},
             {user::SheetButton::Ok,     "SetPrinterDataW", true,  false},
             {user::SheetButton::Cancel, "LoadLibraryA",    true,  false},
             {user::SheetButton::Cancel, "HeapCreate",      true,  false},
    }) {
        for (const char16_t* value : {u"Permission", u"PrinterData"}) machine.store->DeleteValue(OfficePrinter, value);
        Machine::Fail(row.fault);
        Play([&](HWND sheet) { user::PressButton(sheet, row.button); });
        EXPECT_EQ(PrinterProperties(nullptr, printer) != FALSE, row.answer);
        EXPECT_EQ(!Stored(u"PrinterData").empty(), row.stores);
        EXPECT_EQ(Stored(u"Permission"), row.fault == "SetPrinterDataW" ? Bytes() : LittleEndian(1));
    }
    EXPECT_EQ(Tray2()->bytes, Installed);  // no name, no key
}

// Every platform call of a sheet with both pages, failing one at a time; calls that give back fail by leaving it.
TEST_F(DeviceSheet, SurvivesTheFailureOfAnyCall)
{
    platform::FaultPlan& faults = platform::CurrentEnvironment().faults;
    Play([](HWND sheet) {
        user::Click(user::Control(user::DialogOf(sheet), ShowButton));
        ShowPage(sheet, u"About");
        user::PressButton(sheet, user::SheetButton::Ok);
    });
    faults.CountCalls(true);
    EXPECT_GT(Run(), 0);
    auto calls = faults.Calls();
    for (const char* back : {"HeapDestroy", "GlobalFree", "RegCloseKey", "ReleaseDC", "DeleteDC", "DeleteObject"})
        calls.erase(back);
    ASSERT_GT(calls.size(), 24u);
    for (const auto& [function, count] : calls) {
        for (std::uint64_t call = 1; call <= count; ++call) {
            Machine::Fail(function, call);
            const GivenOut start;
            EXPECT_THAT(Run(), AnyOf(1, -1)) << function << ' ' << call;
            EXPECT_EQ(GivenOut(), start) << function << ' ' << call;
            EXPECT_EQ(DeviceSheetOpen, 0) << function << ' ' << call;
        }
    }
}

}  // namespace
