#include "pages/custom_paper_store.h"

#include <gtest/gtest.h>

#include "pages/custom_paper_work_list.h"
#include "settings/options.h"
#include "spooler/printer_data.h"
#include "tests/support/custom_papers.h"
#include "tests/support/failing_new.h"
#include "tests/support/records.h"

namespace {

using namespace testing_support;

class CustomPaperStore : public testing::Test {
  protected:
    CustomPaperStore()
    {
        lstrcpyW(PrinterName, OfficePrinter);
        CurrentSettings = &record;
        SelectedPaperRow = 3;
    }
    ~CustomPaperStore() override
    {
        WorkListFree();
        ReleaseRowsBehind(CustomHeadRow);
        CustomHeadRow = {};
        PaperRowCount = BuiltInPaperRows;
        CurrentSettings = nullptr;
    }
    // Number and code of the rows, as a chain.
    static std::vector<int> Codes()
    {
        std::vector<int> codes;
        for (const PaperRow* row = &CustomHeadRow; row && row->code; row = row->next.get()) codes.push_back(row->code);
        return codes;
    }
    static std::vector<int> Listed()
    {
        std::vector<int> codes;
        for (int i = 0; i < WorkListCount(); ++i) codes.push_back(WorkListEntryAt(i)->cpCode);
        return codes;
    }
    std::vector<CustomPaperEntry> Three() const
    {
        return {Entry(300, u"One", 0, 2100, 2970), Entry(301, u"Two", 1, 800, 1100, 8, 0),
                Entry(302, u"Three", 7, 100, 100)};
    }

    Machine machine;
    DriverDevMode record{};
};

TEST_F(CustomPaperStore, LoadsRowsWithCodesByPlace)
{
    StorePapers(machine, Three());
    record.dmPaperSize = 258;
    EXPECT_EQ(LoadCustomPaperRows(), 3u << 16 | 1u);
    EXPECT_EQ(Codes(), (std::vector{257, 258, 259}));
    EXPECT_EQ(CustomHeadRow.size->psWidthDots, 2480);
    EXPECT_EQ(CustomHeadRow.next->size->psWidth, 850);
    EXPECT_EQ(CustomHeadRow.next->next->size->psWidth, 0);
    EXPECT_EQ(std::u16string(CustomHeadRow.next->next->name), u"Three");
    LoadCustomPaperList();
    EXPECT_EQ(PaperRowCount, 29);
    EXPECT_EQ(SelectedPaperRow, 27);
    record.dmPaperSize = 260;
    LoadCustomPaperList();
    EXPECT_EQ(SelectedPaperRow, 27) << "a size that is gone selects nothing";
}

TEST_F(CustomPaperStore, CountsWholeRecordsOnly)
{
    struct LengthRow {
        DWORD length;
        std::size_t bytes;
        DWORD loaded;
    };
    for (const LengthRow& row : {
             LengthRow{112, 112, 2u << 16 | 0xFFFF},
             LengthRow{113, 113, 2u << 16 | 0xFFFF},
             LengthRow{55,  55,  0xFFFF           },
             LengthRow{0,   56,  0xFFFF           },
             LengthRow{112, 113, 0xFFFF           }
    }) {
        StorePapers(machine, platform::Bytes(row.bytes, 1), row.length);
        EXPECT_EQ(LoadCustomPaperRows(), row.loaded) << row.length << " of " << row.bytes;
        EXPECT_EQ(CustomHeadRow.code, row.loaded == 0xFFFF ? 0 : 257);
    }
}

TEST_F(CustomPaperStore, APrinterThatCannotBeReadLeavesTheRows)
{
    StorePapers(machine, Three());
    LoadCustomPaperList();
    Machine::Fail("OpenPrinterW");
    EXPECT_EQ(LoadCustomPaperRows(), 0xFFFFu);
    EXPECT_EQ(GetLastError(), 87u);
    EXPECT_EQ(Codes().size(), 3u);
    platform::CurrentEnvironment().faults.Clear();
    Machine::Fail("OpenPrinterW");
    LoadCustomPaperList();
    EXPECT_EQ(PaperRowCount, 26);
}

struct MemoryRow {
    int allocation;  // that fails
    std::vector<int> codes;
};

// The head needs a size, each row behind it itself and a size.
TEST_F(CustomPaperStore, WithoutMemoryTheRowsEndEarly)
{
    const MemoryRow rows[] = {
        {1, {}             },
        {2, {257}          },
        {3, {257}          },
        {5, {257, 258}     },
        {6, {257, 258, 259}}
    };
    StorePapers(machine, Three());
    for (const CustomPaperEntry& entry : Three()) ASSERT_TRUE(WorkListAppend(entry));
    for (const MemoryRow& row : rows) {
        for (const bool saved : {false, true}) {
            ReleaseRowsBehind(CustomHeadRow);
            CustomHeadRow = {};
            DWORD count = static_cast<DWORD>(row.codes.size());
            FailNew(row.allocation);
            if (saved)
                EXPECT_TRUE(SaveCustomPapers(3));
            else
                count = HighWord(LoadCustomPaperRows());
            FailNew(0);
            EXPECT_EQ(Codes(), row.codes) << row.allocation << saved;
            EXPECT_EQ(count, row.codes.size());
            for (const PaperRow* at = CustomHeadRow.next.get(); at; at = at->next.get()) EXPECT_NE(at->size, nullptr);
        }
    }
    EXPECT_EQ(machine.store->Value(OfficePrinter, u"CustomPaperDataSize")->bytes, DwordBytes(168));
}

TEST_F(CustomPaperStore, ARowIsStoredInTheChainOrAtItsEnd)
{
    const CustomPaperEntry entry = Three()[0];
    EXPECT_EQ(StoreCustomPaperRow(CustomHeadRow, entry, 1), 1) << "the head is there from the start";
    CustomHeadRow.code = 257;
    FailNew(1);
    EXPECT_EQ(StoreCustomPaperRow(CustomHeadRow, entry, 2), 0);
    FailNew(0);
    EXPECT_EQ(StoreCustomPaperRow(CustomHeadRow, entry, 3), 0) << "no row before it";
    EXPECT_EQ(Codes(), (std::vector{257, 258}));
    EXPECT_EQ(StoreCustomPaperRow(CustomHeadRow, entry, 2), 1);
    EXPECT_EQ(StoreCustomPaperRow(CustomHeadRow, Three()[1], 1), 1);
    EXPECT_EQ(Codes(), (std::vector{257, 258, 259}));
    EXPECT_EQ(std::u16string(CustomHeadRow.next->name), u"Two");
}

TEST_F(CustomPaperStore, ManyRowsAreReleasedByTheNextLoad)
{
    StorePapers(machine, std::vector<CustomPaperEntry>(70000, Entry(1, u"x", 0, 1000, 1000)));
    EXPECT_EQ(HighWord(LoadCustomPaperRows()), 65534);
    for (int i = 0; i < 65534; ++i) ASSERT_TRUE(WorkListAppend(Entry(1, u"x", 0, 1000, 1000)));
    ASSERT_TRUE(SaveCustomPapers(65534));
    EXPECT_EQ(Codes().size(), 65534u);
    StorePapers(machine, {Entry(257, u"y", 0, 1000, 1000)});
    LoadCustomPaperRows();
    EXPECT_EQ(Codes(), std::vector{257});
}

TEST_F(CustomPaperStore, SavingNumbersTheListAndCutsTheRows)
{
    StorePapers(machine, Three());
    LoadCustomPaperList();
    for (const CustomPaperEntry& entry : Three()) ASSERT_TRUE(WorkListAppend(entry));
    WorkListRemoveAt(1);
    ASSERT_TRUE(SaveCustomPapers(2));
    const auto stored = machine.store->Value(OfficePrinter, u"CustomPaperData")->bytes;
    EXPECT_EQ(stored, PaperBytes({Entry(257, u"One", 0, 2100, 2970), Entry(258, u"Three", 7, 100, 100)}));
    EXPECT_EQ(machine.store->Value(OfficePrinter, u"CustomPaperDataSize")->bytes, DwordBytes(112));
    EXPECT_EQ(Codes(), (std::vector{257, 258}));
    EXPECT_EQ(std::u16string(CustomHeadRow.next->name), u"Three");
}

TEST_F(CustomPaperStore, SavingNothingEmptiesStoreAndRows)
{
    StorePapers(machine, Three());
    LoadCustomPaperList();
    ASSERT_TRUE(SaveCustomPapers(0));
    EXPECT_EQ(machine.store->Value(OfficePrinter, u"CustomPaperDataSize")->bytes, DwordBytes(0));
    EXPECT_TRUE(Codes().empty());
    EXPECT_EQ(CustomHeadRow.next, nullptr);
}

TEST_F(CustomPaperStore, AFailedSaveChangesNothing)
{
    machine.store->Add({u"Locked", OfficeDriver, false});
    WorkListAppend(Entry(0, u"New", 0, 1000, 1000));
    for (const auto& [printer, function, error] : {
             std::tuple{OfficePrinter, "OpenPrinterW", 87u},
             {OfficePrinter, "GlobalAlloc",  0u },
             {u"Locked",     "",             87u}
    }) {
        StorePapers(machine, Three(), printer);
        lstrcpyW(PrinterName, printer);
        platform::CurrentEnvironment().faults.Clear();
        LoadCustomPaperList();
        Machine::Fail(function);
        SetLastError(0);
        EXPECT_FALSE(SaveCustomPapers(1)) << function;
        EXPECT_TRUE(error == 0 || GetLastError() == error) << function;
        EXPECT_EQ(Codes().size(), 3u);
        EXPECT_EQ(machine.store->Value(printer, u"CustomPaperData")->bytes, PaperBytes(Three()));
    }
}

TEST_F(CustomPaperStore, AFailedWriteLeavesTheOldListStoredAndTheRowsNew)
{
    StorePapers(machine, Three());
    LoadCustomPaperList();
    WorkListAppend(Entry(0, u"New", 0, 1000, 1000));
    Machine::Fail("SetPrinterDataW");
    EXPECT_TRUE(SaveCustomPapers(1));
    EXPECT_EQ(Codes(), std::vector{257});
    EXPECT_EQ(std::u16string(CustomHeadRow.name), u"New");
    EXPECT_EQ(machine.store->Value(OfficePrinter, u"CustomPaperData")->bytes, PaperBytes(Three()));
}

TEST_F(CustomPaperStore, TheWorkingListIsAddressedByPlace)
{
    for (const CustomPaperEntry& entry : Three()) WorkListAppend(entry);
    EXPECT_EQ(WorkListEntryAt(-5)->cpCode, 300);
    EXPECT_EQ(WorkListEntryAt(3), nullptr);
    EXPECT_EQ(WorkListStoreAt(3, Entry(9, u"", 0, 1, 1)), nullptr);
    ASSERT_NE(WorkListStoreAt(1, Entry(9, u"", 0, 1, 1)), nullptr);
    EXPECT_EQ(Listed(), (std::vector{300, 9, 302}));
    WorkListRemoveAt(1);
    EXPECT_EQ(Listed(), (std::vector{300, 302}));
    WorkListRemoveAt(7);
    WorkListRemoveAt(1);
    WorkListAppend(Entry(10, u"", 0, 1, 1));
    EXPECT_EQ(Listed(), (std::vector{300, 10}));
    WorkListRemoveAt(-1);
    WorkListRemoveAt(0);
    WorkListAppend(Entry(11, u"", 0, 1, 1));
    EXPECT_EQ(Listed(), std::vector{11});
}

}  // namespace
