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
        {"GlobalAlloc",     true }, // clang-format: keep one row a line
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

// Each function by its name, with arguments by which it would succeed, and whether the call has failed.
struct FaultRow {
    const char* function;
    std::function<bool()> fails;
};

class PlannedFault : public FreshEnvironment {};

TEST_F(PlannedFault, MakesEveryFunctionFailInItsOwnWay)
{
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, 8);
    HANDLE heap = HeapCreate(0, 0, 0);
    void* inHeap = HeapAlloc(heap, 0, 8);
    HMODULE module = LoadLibraryW(u"spoolss.dll");
    std::u16string name = Printer;
    HANDLE printer = nullptr;
    ASSERT_TRUE(OpenPrinterW(name.data(), &printer, nullptr));
    HKEY key = nullptr;
    ASSERT_EQ(RegOpenKeyExW(HKEY_LOCAL_MACHINE, PrinterKeyPath(name).c_str(), 0, KEY_ALL_ACCESS, &key), 0);
    WCHAR value[] = u"Value";
    WCHAR text[512] = {};
    CHAR narrow[8] = {};
    BYTE bytes[1024] = {};
    DWORD count = sizeof bytes;
    OSVERSIONINFOW version{};
    version.dwOSVersionInfoSize = sizeof version;
    ASSERT_EQ(SetPrinterDataW(printer, value, REG_BINARY, bytes, 4), 0u);
    ASSERT_EQ(RegSetValueExW(key, value, 0, REG_BINARY, bytes, 4), 0);

    const FaultRow rows[] = {
        {"GlobalAlloc",                [] { return GlobalAlloc(GPTR, 8) == nullptr; }                                      },
        {"GlobalLock",                 [&] { return GlobalLock(block) == nullptr; }                                        },
        {"GlobalFree",                 [&] { return GlobalFree(block) == block; }                                          },
        {"HeapCreate",                 [] { return HeapCreate(0, 0, 0) == nullptr; }                                       },
        {"HeapAlloc",                  [&] { return HeapAlloc(heap, 0, 8) == nullptr; }                                    },
        {"HeapFree",                   [&] { return !HeapFree(heap, 0, inHeap); }                                          },
        {"HeapDestroy",                [&] { return !HeapDestroy(heap); }                                                  },
        {"RtlMultiByteToUnicodeN",     [&] { return RtlMultiByteToUnicodeN(text, 8, nullptr, "ab", 2) < 0; }               },
        {"RtlUnicodeToMultiByteN",     [&] { return RtlUnicodeToMultiByteN(narrow, 8, nullptr, u"ab", 4) < 0; }            },
        {"wsprintfW",                  [&] { return wsprintfW(text, u"%d", 5) == 0 && text[0] == u'\0'; }                  },
        {"GetLocaleInfoW",             [&] { return GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_ICOUNTRY, text, 9) == 0; }  },
        {"GetVersionExW",              [&] { return !GetVersionExW(&version); }                                            },
        {"GetUserNameW",               [&] { return !GetUserNameW(text, &count); }                                         },
        {"GetSystemDirectoryW",        [&] { return GetSystemDirectoryW(text, 260) == 0; }                                 },
        {"GetFullPathNameW",           [&] { return GetFullPathNameW(u"/a", 260, text, nullptr) == 0; }                    },
        {"LoadLibraryW",               [] { return LoadLibraryW(u"spoolss.dll") == nullptr; }                              },
        {"LoadLibraryA",               [] { return LoadLibraryA("spoolss.dll") == nullptr; }                               },
        {"GetProcAddress",             [&] { return GetProcAddress(module, "RevertToPrinterSelf") == nullptr; }            },
        {"GetModuleFileNameW",         [&] { return GetModuleFileNameW(module, text, 260) == 0; }                          },
        {"FreeLibrary",                [&] { return !FreeLibrary(module); }                                                },
        {"RevertToPrinterSelf",        [] { return RevertToPrinterSelf() == nullptr; }                                     },
        {"ImpersonatePrinterClient",   [] { return !ImpersonatePrinterClient(nullptr); }                                   },
        {"RegOpenKeyExW",              [&] { return RegOpenKeyExW(HKEY_LOCAL_MACHINE, u"", 0, KEY_READ, &key) != 0; }      },
        {"RegQueryValueExW",           [&] { return RegQueryValueExW(key, value, nullptr, nullptr, bytes, &count) != 0; }  },
        {"RegSetValueExW",             [&] { return RegSetValueExW(key, value, 0, REG_BINARY, bytes, 4) != 0; }            },
        {"RegCloseKey",                [&] { return RegCloseKey(key) != 0; }                                               },
        {"OpenPrinterW",               [&] { return !OpenPrinterW(name.data(), &printer, nullptr); }                       },
        {"GetPrinterDataW",            [&] { return GetPrinterDataW(printer, value, nullptr, bytes, 4, &count) != 0; }     },
        {"SetPrinterDataW",            [&] { return SetPrinterDataW(printer, value, REG_BINARY, bytes, 4) != 0; }          },
        {"GetPrinterW",                [&] { return !GetPrinterW(printer, 2, bytes, sizeof bytes, &count); }               },
        {"GetPrinterDriverW",          [&] { return !GetPrinterDriverW(printer, nullptr, 3, bytes, sizeof bytes, &count); }},
        {"GetPrinterDriverDirectoryW",
         [&] { return !GetPrinterDriverDirectoryW(nullptr, nullptr, 1, bytes, sizeof bytes, &count); }                     },
        {"ClosePrinter",               [&] { return !ClosePrinter(printer); }                                              },
    };
    for (const FaultRow& row : rows) {
        CurrentEnvironment().faults.Clear();
        CurrentEnvironment().faults.Add(row.function, 1, false);
        EXPECT_TRUE(row.fails()) << row.function;
        EXPECT_TRUE(FaultPlan::Offers(row.function)) << row.function;
    }
    CurrentEnvironment().faults.Clear();
    EXPECT_TRUE(ClosePrinter(printer));
    EXPECT_EQ(RegCloseKey(key), 0);
    EXPECT_TRUE(FreeLibrary(module));
    EXPECT_TRUE(HeapDestroy(heap));
    EXPECT_EQ(GlobalFree(block), nullptr);
}

}  // namespace
}  // namespace platform
