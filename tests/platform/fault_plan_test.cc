#include "platform/seams/fault_plan.h"

#include <functional>

#include "platform/registry.h"
#include "platform/spooler.h"
#include "platform/spooler/impersonation.h"
#include "platform/user.h"
#include "tests/platform/fresh_environment.h"

namespace platform {
namespace {

using ::testing::ElementsAre;
using ::testing::Pair;

std::vector<bool> FiveCalls(FaultPlan& plan)
{
    std::vector<bool> failed;
    for (int call = 0; call < 5; ++call) failed.push_back(plan.Fails("GlobalAlloc"));
    return failed;
}

TEST(FaultPlan, OneCallFails)
{
    FaultPlan plan;
    plan.Add("GlobalAlloc", 2, false);
    EXPECT_THAT(FiveCalls(plan), ElementsAre(false, true, false, false, false));
}

TEST(FaultPlan, ACallAndEveryLaterOneFail)
{
    FaultPlan plan;
    plan.Add("GlobalAlloc", 4, true);
    plan.Add("GlobalAlloc", 1, false);
    EXPECT_THAT(FiveCalls(plan), ElementsAre(true, false, false, true, true));
}

TEST(FaultPlan, AnotherFunctionsCallsDoNotCount)
{
    FaultPlan plan;
    plan.Add("GlobalAlloc", 1, false);
    EXPECT_FALSE(plan.Fails("GlobalFree"));
    EXPECT_TRUE(plan.Fails("GlobalAlloc"));
}

TEST(FaultPlan, CountsCallsWhenAsked)
{
    FaultPlan plan;
    plan.Fails("GlobalFree");
    plan.CountCalls(true);
    plan.Fails("GlobalAlloc");
    plan.Fails("GlobalAlloc");
    EXPECT_THAT(plan.Calls(), ElementsAre(Pair("GlobalAlloc", 2)));
    plan.Clear();
    plan.Fails("GlobalAlloc");
    EXPECT_TRUE(plan.Calls().empty());
}

TEST(FaultPlan, OffersWhatTheLayerExportsAndMessagesThatNeedRoom)
{
    struct Row {
        const char* name;
        bool offered;
    };
    constexpr Row Rows[] = {
        {"GlobalAlloc",     true }, //
        {"RegOpenKeyExW",   true }, //
        {"wsprintfW",       true }, //
        {"LB_INSERTSTRING", true }, //
        {"LVM_INSERTITEMW", true }, //
        {"CB_SETCURSEL",    false}, // needs no room
        {"malloc",          false}, // of a library below
        {"_fini",           false}, // of the tool chain
        {"NoSuchFunction",  false}, //
        {"Global Alloc",    false}, //
        {"",                false}, //
    };
    for (const Row& row : Rows) EXPECT_EQ(FaultPlan::Offers(row.name), row.offered) << row.name;
}

// Each function by its name, and whether a call that would succeed has failed. What a call opens it closes.
struct FaultRow {
    const char* function;
    std::function<bool()> fails;
};

class PlannedFault : public FreshEnvironment {
  protected:
    PlannedFault()
    {
        GlobalLock(block);
        GlobalLock(block);
        version.dwOSVersionInfoSize = sizeof version;
        store->SetValue(Printer, value,
                        {
                            REG_BINARY, {1, 2, 3, 4}
        });
        store->SetKeyValue(PrinterKeyPath(Printer), value,
                           {
                               REG_BINARY, {1, 2, 3, 4}
        });
        OpenPrinterW(name.data(), &printer, nullptr);
        RegOpenKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, KEY_ALL_ACCESS, &key);
    }

    static bool LoadFails(HMODULE loaded) { return loaded == nullptr || !FreeLibrary(loaded); }

    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, 8);
    HANDLE heap = HeapCreate(0, 0, 0);
    void* inHeap = HeapAlloc(heap, 0, 8);
    HMODULE spooler = LoadLibraryW(u"spoolss.dll");
    HMODULE sample = LoadLibraryW(QD_SAMPLE_PATH);
    HANDLE token = nullptr, printer = nullptr;
    HKEY key = nullptr;
    std::u16string name = Printer, path = PrinterKeyPath(Printer);
    WCHAR value[6] = u"Value", text[512] = {};
    CHAR narrow[8] = {};
    BYTE bytes[1024] = {};
    DWORD count = 0;
    OSVERSIONINFOW version{};

    // clang-format off
    const FaultRow rows[31] = {
        {"GlobalAlloc", [] { HGLOBAL made = GlobalAlloc(GPTR, 8); return made == nullptr || GlobalFree(made) != nullptr; }},
        {"GlobalLock", [this] { return GlobalLock(block) == nullptr; }},
        {"GlobalUnlock", [this] { return !GlobalUnlock(block); }},
        {"GlobalFree", [this] { return GlobalFree(block) != nullptr; }},
        {"HeapCreate", [] { HANDLE made = HeapCreate(0, 0, 0); return made == nullptr || !HeapDestroy(made); }},
        {"HeapAlloc", [this] { return HeapAlloc(heap, 0, 8) == nullptr; }},
        {"HeapFree", [this] { return !HeapFree(heap, 0, inHeap); }},
        {"HeapDestroy", [this] { return !HeapDestroy(heap); }},
        {"RtlMultiByteToUnicodeN", [this] { return RtlMultiByteToUnicodeN(text, 8, nullptr, "ab", 2) < 0; }},
        {"RtlUnicodeToMultiByteN", [this] { return RtlUnicodeToMultiByteN(narrow, 8, nullptr, u"ab", 4) < 0; }},
        {"wsprintfW", [this] { return wsprintfW(text, u"%d", 5) == 0; }},
        {"GetLocaleInfoW", [this] { return GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_ICOUNTRY, text, 9) == 0; }},
        {"GetVersionExW", [this] { return !GetVersionExW(&version); }},
        {"GetUserNameW", [this] { return count = 260, !GetUserNameW(text, &count); }},
        {"GetSystemDirectoryW", [this] { return GetSystemDirectoryW(text, 260) == 0; }},
        {"GetFullPathNameW", [this] { return GetFullPathNameW(u"/a", 260, text, nullptr) == 0; }},
        {"LoadLibraryW", [] { return LoadFails(LoadLibraryW(u"spoolss.dll")); }},
        {"LoadLibraryA", [] { return LoadFails(LoadLibraryA("spoolss.dll")); }},
        {"GetProcAddress", [this] { return GetProcAddress(spooler, "RevertToPrinterSelf") == nullptr; }},
        {"GetModuleFileNameW", [this] { return GetModuleFileNameW(spooler, text, 260) == 0; }},
        {"LoadStringW", [this] { return LoadStringW(sample, 1, text, 260) == 0; }},
        {"RevertToPrinterSelf", [this] { return (token = RevertToPrinterSelf()) == nullptr; }},
        {"ImpersonatePrinterClient", [this] { return !ImpersonatePrinterClient(token); }},
        {"RegQueryValueExW", [this] { return count = 4, RegQueryValueExW(key, value, nullptr, nullptr, bytes, &count) != 0; }},
        {"RegSetValueExW", [this] { return RegSetValueExW(key, value, 0, REG_BINARY, bytes, 4) != 0; }},
        {"GetPrinterDataW", [this] { return GetPrinterDataW(printer, value, nullptr, bytes, 4, &count) != 0; }},
        {"SetPrinterDataW", [this] { return SetPrinterDataW(printer, value, REG_BINARY, bytes, 4) != 0; }},
        {"GetPrinterW", [this] { return !GetPrinterW(printer, 2, bytes, sizeof bytes, &count); }},
        {"GetPrinterDriverW", [this] { return !GetPrinterDriverW(printer, nullptr, 3, bytes, sizeof bytes, &count); }},
        {"GetPrinterDriverDirectoryW", [this] { return !GetPrinterDriverDirectoryW(nullptr, nullptr, 1, bytes, 255, &count); }},
        {"ClosePrinter", [this] { return !ClosePrinter(printer); }},
    };
    // clang-format on
};

TEST_F(PlannedFault, MakesTheNamedCallFailAndNoOther)
{
    for (const FaultRow& row : rows) {
        FaultPlan& faults = CurrentEnvironment().faults;
        faults.Clear();
        faults.Add(row.function, 1, false);
        EXPECT_TRUE(row.fails()) << row.function;
        EXPECT_FALSE(row.fails()) << row.function;
        EXPECT_TRUE(FaultPlan::Offers(row.function)) << row.function;
    }
    EXPECT_EQ(RegCloseKey(key), 0);
    EXPECT_TRUE(FreeLibrary(spooler));
    EXPECT_TRUE(FreeLibrary(sample));
}

// What opens and closes by an out parameter or an error code: the first call fails, the second does not.
TEST_F(PlannedFault, MakesOpeningAndClosingFail)
{
    FaultPlan& faults = CurrentEnvironment().faults;
    for (const char* function : {"OpenPrinterW", "RegOpenKeyExW", "RegCloseKey", "FreeLibrary"})
        faults.Add(function, 1, false);
    HANDLE second = nullptr;
    EXPECT_FALSE(OpenPrinterW(name.data(), &second, nullptr));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PRINTER_NAME);
    HKEY secondKey = nullptr;
    EXPECT_NE(RegOpenKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, KEY_READ, &secondKey), 0);
    EXPECT_NE(RegCloseKey(key), 0);
    EXPECT_FALSE(FreeLibrary(spooler));
    EXPECT_EQ(secondKey, nullptr);

    EXPECT_TRUE(ClosePrinter(printer));
    EXPECT_EQ(RegCloseKey(key), 0);
    EXPECT_TRUE(FreeLibrary(spooler));
    EXPECT_TRUE(FreeLibrary(sample));
    EXPECT_TRUE(HeapDestroy(heap));
    EXPECT_EQ(GlobalFree(block), nullptr);
}

}  // namespace
}  // namespace platform
