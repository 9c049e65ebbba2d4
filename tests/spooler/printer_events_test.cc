#include "spooler/printer_events.h"

#include <gmock/gmock.h>

#include <thread>

#include "platform/spooler/impersonation.h"
#include "tests/spooler/printer_fixture.h"
#include "tests/support/custom_papers.h"

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
    void StoreBlock(const Bytes& block)
    {
        machine.store->SetValue(OfficePrinter, u"PrinterDataSize", {4, DwordBytes(static_cast<DWORD>(block.size()))});
        machine.store->SetValue(OfficePrinter, u"PrinterData", {3, block});
    }
    Bytes StoredBlock()
    {
        return machine.store->Value(OfficePrinter, u"PrinterData").value_or(platform::StoredValue{}).bytes;
    }
};

struct BlockRow {
    Bytes before, after;
};

TEST_F(PrinterUpgrade, BringsTheBlockToTheCurrentForm)
{
    StorePapers(machine, {Entry(257, u"Card", 0, 1000, 2000)});
    const BlockRow Rows[] = {
        {{0x00, 0x04, 8, 0, 9, 8, 7, 6},             {0x00, 0x04, 8, 0, 9, 8, 7, 6}},
        {{0x20, 0x03, 4, 0, 9, 8, 7, 6},             {0x00, 0x04, 8, 0, 0, 0, 0, 0}},
        {{0x20, 0x03, 8, 0, 9, 8, 7, 6},             {0x00, 0x04, 8, 0, 9, 8, 7, 6}},
        {{0x20, 0x03, 0xFF, 0xFF, 9, 8, 7, 6, 5, 4}, {0x00, 0x04, 8, 0, 9, 8, 7, 6}},
    };
    for (const BlockRow& row : Rows) {
        StoreBlock(row.before);
        EXPECT_TRUE(Upgrade());
        EXPECT_EQ(StoredBlock(), row.after);
    }
}

TEST_F(PrinterUpgrade, GoesOnWithTheOldBlockWithoutMemoryForANewOne)
{
    StorePapers(machine, {Entry(257, u"Card", 0, 1000, 2000)});
    StoreBlock({0x20, 3, 10, 0, 9, 8, 7, 6, 5, 4});
    Machine::Fail("GlobalAlloc", 2);
    EXPECT_TRUE(Upgrade());
    EXPECT_EQ(StoredBlock(), (Bytes{0x20, 3, 10, 0, 9, 8, 7, 6}));
}

TEST_F(PrinterUpgrade, LeavesTheSizesWithoutABlock)
{
    StorePapers(machine, Bytes(60), 60);
    Machine::Fail("GlobalAlloc");
    EXPECT_FALSE(Upgrade());
    EXPECT_EQ(machine.store->Value(OfficePrinter, u"CustomPaperDataSize")->bytes, DwordBytes(60));
}

TEST_F(PrinterUpgrade, APrinterWithoutSizesGetsItsBlockAllTheSame)
{
    EXPECT_FALSE(Upgrade());
    EXPECT_EQ(StoredBlock(), (Bytes{0x00, 0x04, 8, 0, 0, 0, 0, 0}));
}

TEST_F(PrinterUpgrade, WritesTheSizesBackWhole)
{
    Bytes bytes = PaperBytes({Entry(257, u"Card", 0, 1000, 2000)});
    bytes.resize(60, 5);
    StorePapers(machine, bytes, 60);
    EXPECT_TRUE(Upgrade());
    EXPECT_EQ(machine.store->Value(OfficePrinter, u"CustomPaperDataSize")->bytes, DwordBytes(56));
    bytes.resize(56);
    EXPECT_EQ(machine.store->Value(OfficePrinter, u"CustomPaperData")->bytes, bytes);
}

TEST_F(PrinterUpgrade, RefusesOtherLevelsAndPrintersThatCannotBeChanged)
{
    machine.store->Add({u"Locked", u"Quillet", false});
    EXPECT_FALSE(Upgrade(2));
    EXPECT_EQ(GetLastError(), 87u);
    EXPECT_FALSE(Upgrade(1, u"Nowhere"));
    EXPECT_EQ(GetLastError(), 87u);
    EXPECT_FALSE(Upgrade(1, u"Locked"));
    EXPECT_EQ(GetLastError(), 87u);
    SetLastError(0);
    EXPECT_FALSE(DrvUpgradePrinter(1, nullptr));
    EXPECT_EQ(GetLastError(), 87u);
    EXPECT_EQ(StoredBlock(), Bytes{});
}

TEST_F(PrinterUpgrade, EventsOpenThePrinterAndChangeNothing)
{
    for (const int event : {0, 1, 3, 5, 6}) {
        auto& faults = platform::CurrentEnvironment().faults;
        faults.Clear();
        faults.CountCalls(true);
        EXPECT_TRUE(DrvPrinterEvent(OfficePrinter, event, 0, 0));
        const auto& calls = faults.Calls();
        const auto opened = calls.find("OpenPrinterW");
        EXPECT_EQ(opened == calls.end() ? 0 : opened->second, event == 3 || event == 5 ? 1 : 0) << "event " << event;
        EXPECT_TRUE(DrvPrinterEvent(u"Nowhere", event, 0, 0));
    }
    EXPECT_TRUE(machine.store->Values(OfficePrinter).empty());
}

// The platform calls of an event in their order: one that fails with all behind it has the ones in front of it
// succeed.
std::vector<std::string> CallsOf(int event, const WCHAR* printer)
{
    std::vector<std::string> order;
    auto& faults = platform::CurrentEnvironment().faults;
    platform::FaultPlan::Counters before;
    for (std::uint64_t failing = 1;; ++failing) {
        faults.Clear();
        faults.AddAll(failing);
        // A thread of its own, which has its client's rights.
        std::thread([=] { DrvPrinterEvent(printer, event, 0, 0); }).join();
        auto now = faults.Calls();
        for (const auto& [name, times] : faults.Failures()) now[name] -= times;
        for (const auto& [name, times] : now)
            if (times > before[name]) order.push_back(name);
        if (faults.Failures().empty()) return order;
        before = now;
    }
}

TEST(PrinterEvents, OpenAndCloseInTheRightsThatTheyNeed)
{
    Machine machine;
    machine.store->Add({u"Locked", OfficeDriver, false});
    EXPECT_THAT(CallsOf(PRINTER_EVENT_INITIALIZE, OfficePrinter), testing::ElementsAre("OpenPrinterW", "ClosePrinter"));
    EXPECT_THAT(CallsOf(PRINTER_EVENT_INITIALIZE, u"Locked"), testing::ElementsAre("OpenPrinterW"));
    EXPECT_THAT(CallsOf(PRINTER_EVENT_CACHE_REFRESH, u"Locked"),
                testing::ElementsAre("LoadLibraryW", "GetProcAddress", "GetProcAddress", "RevertToPrinterSelf",
                                     "OpenPrinterW", "ClosePrinter", "ImpersonatePrinterClient", "FreeLibrary"));
}

TEST(PrinterEvents, ARefreshGivesTheClientsRightsBackIfItHadThem)
{
    const Machine machine(Machine::InCountry(1), {u"Locked", OfficeDriver, false});
    auto& faults = platform::CurrentEnvironment().faults;
    faults.CountCalls(true);
    EXPECT_TRUE(DrvPrinterEvent(u"Locked", PRINTER_EVENT_CACHE_REFRESH, 0, 0));
    EXPECT_FALSE(platform::spooler::ActsAsSubsystem());
    EXPECT_EQ(faults.Calls().at("ImpersonatePrinterClient"), 1u);
    Machine::Fail("RevertToPrinterSelf", 2);
    EXPECT_TRUE(DrvPrinterEvent(u"Locked", PRINTER_EVENT_CACHE_REFRESH, 0, 0));
    EXPECT_EQ(faults.Calls().at("ImpersonatePrinterClient"), 1u);
    EXPECT_EQ(faults.Calls().at("ClosePrinter"), 2u) << "opened to be used, not to be changed";
}

TEST(PrinterEvents, ARefreshNeedsBothOfTheSubsystemsHelpers)
{
    platform::FixedFactValues facts;
    facts.missingLibraries = u"spoolss.dll";
    const Machine machine(facts);
    EXPECT_FALSE(DrvPrinterEvent(OfficePrinter, PRINTER_EVENT_CACHE_REFRESH, 0, 0));
    EXPECT_TRUE(DrvPrinterEvent(OfficePrinter, PRINTER_EVENT_INITIALIZE, 0, 0));
    platform::CurrentEnvironment().facts = platform::MakeFixedFacts({});
    Machine::Fail("GetProcAddress", 2);
    EXPECT_FALSE(DrvPrinterEvent(OfficePrinter, PRINTER_EVENT_CACHE_REFRESH, 0, 0));
}

}  // namespace
