// The device sheet: as the service calls it, phase by phase, and as a user works it.
#include "spooler/device_sheet.h"

#include <gmock/gmock.h>

#include "pages/about_dialog.h"
#include "platform/registry.h"
#include "platform/registry/keys.h"
#include "platform/services/sheet_service.h"
#include "spooler/option_sheet.h"
#include "tests/support/idle_desktop.h"
#include "tests/support/printer_fixture.h"

namespace {

using namespace testing_support;
using platform::Bytes;
using platform::StoredValue;
using testing::ElementsAre;
namespace user = platform::user;
using user::SheetButton;

constexpr int ShowButton = 100;  // of the service's page

const StoredValue NotInstalled{
    REG_BINARY, {'0', 0, 0, 0}
},
    Installed{REG_BINARY, {'1', 0, 0, 0}};

class DeviceSheet : public PrinterTest {
  protected:
    DeviceSheet()
    {
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
    // The user does something before the sheet is ended with the button.
    static void Play(
        SheetButton button, std::function<void(HWND sheet)> script = [](HWND) {})
    {
        platform::CurrentEnvironment().desktop = std::make_shared<ScriptedDesktop>([=](HWND sheet) {
            script(sheet);
            user::PressButton(sheet, button);
        });
    }
    LONG Run()
    {
        return platform::services::RunCommonSheet(nullptr, DrvDevicePropertySheets, reinterpret_cast<LPARAM>(&header),
                                                  &result);
    }

    const std::u16string key = platform::PrinterKeyPath(OfficePrinter);
    std::u16string name = OfficePrinter;
    DEVICEPROPERTYHEADER header{};
    DWORD result = 99;
};

TEST_F(DeviceSheet, ReadsTray2AndWritesItBackForEveryResult)
{
    const std::tuple<const char*, std::optional<StoredValue>, bool> rows[] = {
        {"none",                   std::nullopt,                                  false},
        {"wide 1",                 Installed,                                     true },
        {"wide 0",                 NotInstalled,                                  false},
        {"one byte",               StoredValue{REG_BINARY, {'1'}},                true },
        {"no bytes",               StoredValue{REG_BINARY, {}},                   false},
        {"four digits",            StoredValue{REG_BINARY, {'0', '0', '1', '0'}}, true },
        {"below zero",             StoredValue{REG_BINARY, {'-', '1'}},           true },
        {"more than four bytes",   StoredValue{REG_BINARY, {'1', 0, 0, 0, 0}},    false},
        {"text of another type",   StoredValue{REG_SZ, {'1', 0, 0, 0}},           true },
        {"number of another type", StoredValue{REG_DWORD, {1, 0, 0, 0}},          false},
    };
    // Whose flags tell of the tray, which is not what counts.
    machine.store->SetDefaultRecord(OfficePrinter, BytesOf(BusyRecord()));
    for (const auto button : {SheetButton::Ok, SheetButton::Cancel}) {
        for (const auto& [what, stored, installed] : rows) {
            machine.store->DeleteKeyValue(key, u"tray2");
            if (stored) machine.store->SetKeyValue(key, u"tray2", *stored);
            DWORD flags = 99;
            Play(button, [&](HWND) { flags = DeviceSettings->dmDeviceFlags; });
            EXPECT_GT(Run(), 0);
            EXPECT_EQ(result, button == SheetButton::Ok ? 1u : 0u);
            EXPECT_EQ(flags, installed ? 0x80u : 0u) << what;
            EXPECT_EQ(machine.store->KeyValue(key, u"tray2"), installed ? Installed : NotInstalled) << what;
        }
    }
}

TEST_F(DeviceSheet, IsOneAtATime)
{
    LONG second = 99;
    Play(SheetButton::Ok, [&](HWND) {
        second = Run();
        EXPECT_EQ(DeviceSheetOpen, 1);
    });
    EXPECT_GT(Run(), 0);
    EXPECT_EQ(second, -1);
    EXPECT_GT(Run(), 0);
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

TEST_F(DeviceSheet, IsDescribedNamedAndEndedPhaseByPhase)
{
    PROPSHEETUI_INFO info{};
    info.cbSize = sizeof info;
    info.hComPropSheet = reinterpret_cast<HANDLE>(7);
    info.pfnComPropSheet = TakeSheet;
    info.lParamInit = reinterpret_cast<LPARAM>(&header);
    info.Result = 99;
    const auto call = [&info](WORD reason, void* lParam) {
        info.Reason = reason;
        return DrvDevicePropertySheets(&info, reinterpret_cast<LPARAM>(lParam));
    };
    ASSERT_EQ(call(PROPSHEETUI_REASON_INIT, nullptr), 1);
    EXPECT_EQ(info.Result, 0u);
    EXPECT_EQ(AboutIsPage, 1);
    const OPTITEM& item = *given->pOptItem;
    const OPTTYPE& type = *item.pOptType;
    const OPTPARAM& param = *type.pOptParam;
    const DLGPAGE& page = *given->pDlgPage;
    EXPECT_THAT((std::vector<DWORD_PTR>{given->cbSize, item.cbSize, type.cbSize, param.cbSize, page.cbSize}),
                ElementsAre(sizeof *given, sizeof item, sizeof type, sizeof param, sizeof page));
    EXPECT_THAT((std::vector<DWORD_PTR>{given->Flags, given->UserData, given->IconID, given->CallerVersion,
                                        given->OptItemVersion, given->cOptItem, given->cDlgPage}),
                ElementsAre(1, info.UserData, 64062, 1024, 0, 1, 1));
    EXPECT_EQ(given->hInstCaller, ModuleHandle);
    EXPECT_THAT((std::vector<std::u16string>{given->pCallerName, given->pHelpFile, given->pOptItemName, page.pTabName}),
                ElementsAre(u"PCL DRIVER", u"C:\\WINDOWS\\system32\\spool\\DRIVERS\\W32X86\\pscript.hlp", OfficeDriver,
                            u"About"));
    EXPECT_THAT((std::vector<DWORD_PTR>{item.Level, item.Flags, reinterpret_cast<DWORD_PTR>(item.pName),
                                        item.UserItemID, type.Type, type.Count, param.Style, param.IconID}),
                ElementsAre(1, 4, 64792, 1, 8, 1, 2, 64047));
    WORD adjustment[12];
    std::memcpy(adjustment, param.pData, sizeof adjustment);
    EXPECT_THAT(adjustment, ElementsAre(24, 0, 0, 10000, 10000, 10000, 0, 10000, 0, 0, 0, 0));
    EXPECT_EQ(page.DlgProc, About);
    EXPECT_EQ(page.DlgTemplateID, 1288);

    CPSUICBPARAM params{};
    params.Reason = CPSUICB_REASON_PUSHBUTTON;
    params.hDlg = reinterpret_cast<HWND>(12);
    params.UserData = given->UserData;
    EXPECT_EQ(given->pfnCallBack(&params), 0) << "nothing is applied";
    EXPECT_EQ(reinterpret_cast<UiContext*>(info.UserData)->sheetWindow, params.hDlg);
    PROPSHEETUI_INFO_HEADER title{};
    EXPECT_EQ(call(PROPSHEETUI_REASON_GET_INFO_HEADER, &title), 1);
    EXPECT_EQ(std::tuple(title.Flags, title.pTitle, title.hInst, title.IconID),
              std::tuple(4, name.data(), ModuleHandle, 64082u));
    SETRESULT_INFO end{};
    end.Result = 5;
    EXPECT_EQ(call(PROPSHEETUI_REASON_SET_RESULT, &end), 1);
    EXPECT_EQ(info.Result, 5u);
    EXPECT_EQ(DeviceSheetOpen, 0);  // another one may open now
    EXPECT_EQ(call(PROPSHEETUI_REASON_DESTROY, nullptr), 1);
}

TEST_F(DeviceSheet, PrinterPropertiesTestsTheRightsAndSaysHowItEnded)
{
    const std::tuple<SheetButton, const char*, bool, bool> rows[] = {
        {SheetButton::Ok,     "",                true,  true },
        {SheetButton::Cancel, "",                false, false},
        {SheetButton::Ok,     "SetPrinterDataW", true,  false},
        {SheetButton::Cancel, "LoadLibraryA",    true,  false},
        {SheetButton::Cancel, "HeapCreate",      true,  false},
    };
    machine.store->SetKeyValue(key, u"tray2", Installed);
    for (const auto& [button, fault, answer, stores] : rows) {
        for (const char16_t* value : {u"Permission", u"PrinterData"}) machine.store->DeleteValue(OfficePrinter, value);
        Machine::Fail(fault);
        Play(button);
        EXPECT_EQ(PrinterProperties(nullptr, printer), answer) << fault;
        EXPECT_EQ(!Stored(u"PrinterData").empty(), stores) << fault;
        EXPECT_EQ(Stored(u"Permission"), fault == std::string("SetPrinterDataW") ? Bytes() : DwordBytes(1));
    }
    EXPECT_EQ(machine.store->KeyValue(key, u"tray2"), Installed);  // no name, no key
}

// Every platform call of a sheet with both pages, failing one at a time; calls that give back fail by leaving it.
TEST_F(DeviceSheet, SurvivesTheFailureOfAnyCall)
{
    platform::FaultPlan& faults = platform::CurrentEnvironment().faults;
    Play(SheetButton::Ok, [](HWND sheet) {
        user::Click(user::Control(user::DialogOf(sheet), ShowButton));
        ShowPage(sheet, u"About");
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
            const auto start = GivenOut();
            EXPECT_THAT(Run(), testing::AnyOf(1, -1)) << function << ' ' << call;
            EXPECT_EQ(GivenOut(), start) << function << ' ' << call;
            EXPECT_EQ(DeviceSheetOpen, 0) << function << ' ' << call;
        }
    }
}

}  // namespace
