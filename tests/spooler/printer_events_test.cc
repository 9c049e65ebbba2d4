#include "spooler/printer_events.h"

#include <thread>

#include "platform/registry.h"
#include "platform/spooler/impersonation.h"
#include "tests/support/custom_papers.h"
#include "tests/support/printer_fixture.h"

namespace {

using namespace testing_support;
using platform::Bytes;

class PrinterUpgrade : public PrinterTest {
  protected:
    BOOL Upgrade(DWORD level = 1, const WCHAR* name = OfficePrinter)
    {
        DRIVER_UPGRADE_INFO_1W info{const_cast<WCHAR*>(name), nullptr};
        SetLastError(0);
        return DrvUpgradePrinter(level, &info);
    }
};

TEST_F(PrinterUpgrade, BringsTheBlockToTheCurrentForm)
{
    StorePapers(machine, {Entry(257, u"Card", 0, 1000, 2000)});
    const std::pair<Bytes, Bytes> rows[] = {
        {{0x00, 0x04, 8, 0, 9, 8, 7, 6},             {0x00, 0x04, 8, 0, 9, 8, 7, 6}},
        {{0x20, 0x03, 4, 0, 9, 8, 7, 6},             {0x00, 0x04, 8, 0, 0, 0, 0, 0}},
        {{0x20, 0x03, 8, 0, 9, 8, 7, 6},             {0x00, 0x04, 8, 0, 9, 8, 7, 6}},
        {{0x20, 0x03, 0xFF, 0xFF, 9, 8, 7, 6, 5, 4}, {0x00, 0x04, 8, 0, 9, 8, 7, 6}},
    };
    for (const auto& [old, current] : rows) {
        Store(u"PrinterData", old);
        EXPECT_TRUE(Upgrade());
        EXPECT_EQ(Stored(u"PrinterData"), current);
    }
    Store(u"PrinterData", {0x20, 3, 10, 0, 9, 8, 7, 6, 5, 4});
    Machine::Fail("GlobalAlloc", 2);
    EXPECT_TRUE(Upgrade());
    EXPECT_EQ(Stored(u"PrinterData"), (Bytes{0x20, 3, 10, 0, 9, 8, 7, 6})) << "the old one without memory";
}

TEST_F(PrinterUpgrade, WritesTheSizesBackWholeBehindTheBlock)
{
    Bytes bytes = PaperBytes({Entry(257, u"Card", 0, 1000, 2000)});
    bytes.resize(60, 5);
    StorePapers(machine, bytes, 60);
    Machine::Fail("GlobalAlloc");
    EXPECT_FALSE(Upgrade()) << "no block";
    EXPECT_EQ(Stored(u"CustomPaperDataSize"), DwordBytes(60));
    EXPECT_TRUE(Upgrade());
    EXPECT_EQ(Stored(u"CustomPaperDataSize"), DwordBytes(56));
    bytes.resize(56);
    EXPECT_EQ(Stored(u"CustomPaperData"), bytes);
    machine.store->DeleteValue(OfficePrinter, u"CustomPaperData");
    machine.store->DeleteValue(OfficePrinter, u"PrinterData");
    EXPECT_FALSE(Upgrade()) << "no sizes";
    EXPECT_EQ(Stored(u"PrinterData"), (Bytes{0x00, 0x04, 8, 0, 0, 0, 0, 0}));
}

TEST_F(PrinterUpgrade, RefusesOtherLevelsAndPrintersThatCannotBeChanged)
{
    machine.store->Add({u"Locked", u"Quillet", false});
    const auto refused = [](BOOL answer) { return !answer && GetLastError() == ERROR_INVALID_PARAMETER; };
    EXPECT_TRUE(refused(Upgrade(2)));
    EXPECT_TRUE(refused(Upgrade(1, u"Nowhere")));
    EXPECT_TRUE(refused(Upgrade(1, u"Locked")));
    SetLastError(0);
    EXPECT_TRUE(refused(DrvUpgradePrinter(1, nullptr)));
    EXPECT_EQ(Stored(u"PrinterData"), Bytes{});
}

TEST_F(PrinterUpgrade, EventsOpenThePrinterAndChangeNothing)
{
    auto& faults = platform::CurrentEnvironment().faults;
    for (const int event : {0, 1, 3, 5, 6}) {
        faults.Clear();
        faults.CountCalls(true);
        EXPECT_TRUE(DrvPrinterEvent(OfficePrinter, event, 0, 0));
        EXPECT_EQ(faults.Calls().contains("OpenPrinterW"), event == 3 || event == 5) << "event " << event;
        EXPECT_TRUE(DrvPrinterEvent(u"Nowhere", event, 0, 0));
    }
    EXPECT_TRUE(machine.store->Values(OfficePrinter).empty());
}

TEST_F(PrinterUpgrade, ARefreshOpensThePrinterInTheSubsystemsRights)
{
    auto& faults = platform::CurrentEnvironment().faults;
    const auto failing = [&](std::uint64_t from) {
        faults.Clear();
        faults.AddAll(from);
        // A thread of its own, which has its client's rights.
        std::thread([] { DrvPrinterEvent(OfficePrinter, PRINTER_EVENT_CACHE_REFRESH, 0, 0); }).join();
        std::string names;
        for (const auto& [name, times] : faults.Failures()) names += name + " ";
        return names;
    };
    // Ahead of these are the library, its two functions and the rights.
    EXPECT_EQ(failing(5), "FreeLibrary ImpersonatePrinterClient OpenPrinterW ");
    EXPECT_EQ(failing(7), "FreeLibrary ImpersonatePrinterClient ");
    EXPECT_EQ(failing(8), "FreeLibrary ");
}

TEST_F(PrinterUpgrade, ARefreshGivesTheClientsRightsBackIfItHadThem)
{
    machine.store->Add({u"Locked", OfficeDriver, false});
    auto& faults = platform::CurrentEnvironment().faults;
    faults.CountCalls(true);
    EXPECT_TRUE(DrvPrinterEvent(u"Locked", PRINTER_EVENT_CACHE_REFRESH, 0, 0));
    EXPECT_FALSE(platform::spooler::ActsAsSubsystem());
    EXPECT_EQ(faults.Calls().at("ClosePrinter"), 1u) << "opened to be used, not to be changed";
    faults.Add("RevertToPrinterSelf", 2, false);
    EXPECT_TRUE(DrvPrinterEvent(u"Locked", PRINTER_EVENT_CACHE_REFRESH, 0, 0));
    EXPECT_EQ(faults.Calls().at("ImpersonatePrinterClient"), 1u);
}

TEST_F(PrinterUpgrade, ARefreshNeedsBothOfTheSubsystemsHelpers)
{
    for (const auto& [helper, call] : {std::pair("GetProcAddress", 2u), std::pair("LoadLibraryW", 1u)}) {
        Machine::Fail(helper, call);
        EXPECT_FALSE(DrvPrinterEvent(OfficePrinter, PRINTER_EVENT_CACHE_REFRESH, 0, 0)) << helper;
    }
    EXPECT_TRUE(DrvPrinterEvent(OfficePrinter, PRINTER_EVENT_INITIALIZE, 0, 0));
}

}  // namespace
