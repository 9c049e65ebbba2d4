#include "pages/custom_paper_store.h"

#include <gtest/gtest.h>

#include "pages/custom_paper_units.h"
#include "pages/custom_paper_work_list.h"
#include "platform/kernel/unicode.h"
#include "settings/options.h"
#include "spooler/printer_data.h"
#include "tests/support/custom_papers.h"
#include "tests/support/failing_new.h"

namespace {

using namespace testing_support;

const std::vector<CustomPaperEntry> Three = {Entry(300, u"One", 0, 2100, 2970), Entry(301, u"Two", 1, 800, 1100, 8, 0),
                                             Entry(302, u"Three", 7, 100, 100)};

class CustomPaperStore : public testing::Test {
  protected:
    CustomPaperStore()
    {
        lstrcpyW(PrinterName, OfficePrinter);
        CurrentSettings = &record;
        SelectedPaperRow = 3;
        StorePapers(machine, Three);
    }
    ~CustomPaperStore() override
    {
        WorkListFree();
        EmptyRows();
        PaperRowCount = BuiltInPaperRows;
        CurrentSettings = nullptr;
    }
    static void EmptyRows()
    {
        ReleaseRowsBehind(CustomHeadRow);
        CustomHeadRow = {};
    }
    // "257 One/258 Two/": the rows, as a chain.
    static std::string Rows()
    {
        std::string rows;
        for (const PaperRow* row = &CustomHeadRow; row && row->code; row = row->next.get()) {
            rows += std::to_string(row->code) + " " + platform::ToUtf8(row->name) + "/";
            EXPECT_NE(row->size, nullptr);
        }
        return rows;
    }
    static void List(const std::vector<CustomPaperEntry>& entries)
    {
        for (const CustomPaperEntry& entry : entries) ASSERT_TRUE(WorkListAppend(entry));
    }

    Machine machine;
    DriverDevMode record{};
};

TEST_F(CustomPaperStore, LoadsRowsWithCodesByPlace)
{
    constexpr std::pair<SHORT, DWORD> rows[] = {
        {256, 0xFFFF},
        {257, 0     },
        {259, 2     },
        {260, 0xFFFF},
        {258, 1     },
    };
    for (const auto& [code, place] : rows) {
        record.dmPaperSize = code;
        EXPECT_EQ(LoadCustomPaperRows(), 3u << 16 | place);
    }
    EXPECT_EQ(Rows(), "257 One/258 Two/259 Three/");
    EXPECT_EQ(CustomHeadRow.size->psWidthDots, 2480);
    EXPECT_EQ(CustomHeadRow.next->size->psWidth, 850);
    EXPECT_EQ(CustomHeadRow.next->next->size->psWidth, 0);
    LoadCustomPaperList();
    EXPECT_EQ(PaperRowCount, 29);
    EXPECT_EQ(SelectedPaperRow, 27);
    record.dmPaperSize = 260;
    LoadCustomPaperList();
    EXPECT_EQ(SelectedPaperRow, 27) << "a size that is gone selects nothing";
    Machine::Fail("OpenPrinterW");
    LoadCustomPaperList();
    EXPECT_EQ(GetLastError(), 87u);
    EXPECT_EQ(PaperRowCount, 26);
    EXPECT_EQ(Rows(), "257 One/258 Two/259 Three/") << "a printer that cannot be read leaves the rows";
}

// The head needs a size, each row behind it itself and a size.
TEST_F(CustomPaperStore, WithoutMemoryTheRowsEndEarly)
{
    for (const auto& [allocation, loaded, rows] : {
             std::tuple{1, 0, ""                },
             {3, 1, "257 One/"        },
             {5, 2, "257 One/258 Two/"}
    }) {
        EmptyRows();
        FailNew(allocation);
        EXPECT_EQ(HighWord(LoadCustomPaperRows()), loaded);
        FailNew(0);
        EXPECT_EQ(Rows(), rows) << allocation;
    }
}

TEST_F(CustomPaperStore, ARowIsStoredInTheChainOrAtItsEnd)
{
    EXPECT_EQ(StoreCustomPaperRow(CustomHeadRow, Three[0], 1), 1) << "the head is there from the start";
    CustomHeadRow.code = 257;
    FailNew(1);
    EXPECT_EQ(StoreCustomPaperRow(CustomHeadRow, Three[0], 2), 0);
    FailNew(0);
    EXPECT_EQ(StoreCustomPaperRow(CustomHeadRow, Three[0], 3), 0) << "no row before it";
    EXPECT_EQ(StoreCustomPaperRow(CustomHeadRow, Three[0], 2), 1);
    EXPECT_EQ(StoreCustomPaperRow(CustomHeadRow, Three[1], 1), 1);
    EXPECT_EQ(StoreCustomPaperRow(CustomHeadRow, Three[2], 0), 1);
    EXPECT_EQ(Rows(), "257 Three/258 Two/259 One/");
}

TEST_F(CustomPaperStore, OnlyAsManyAreSavedAsTheCountSays)
{
    List(Three);
    EXPECT_TRUE(SaveCustomPapers(2));
    EXPECT_EQ(Rows(), "257 One/258 Two/");
    StorePapers(machine, platform::Bytes(55, 1), 55);
    LoadCustomPaperRows();
    EXPECT_EQ(Rows(), "") << "no whole one is stored";
}

TEST_F(CustomPaperStore, ManyRowsAreReleasedByTheNextLoad)
{
    StorePapers(machine, std::vector<CustomPaperEntry>(70000, Three[0]));
    EXPECT_EQ(HighWord(LoadCustomPaperRows()), 65534);
    StorePapers(machine, {Three[1]});
    LoadCustomPaperRows();
    EXPECT_EQ(Rows(), "257 Two/");
}

TEST_F(CustomPaperStore, AFailedSaveLeavesWhatIsStored)
{
    machine.store->Add({u"Locked", OfficeDriver, false});
    StorePapers(machine, Three, u"Locked");
    List({Entry(0, u"New", 0, 1000, 1000)});
    for (const auto& [printer, function, error, saved] : {
             std::tuple{OfficePrinter, "OpenPrinterW",    87u, false},
             {OfficePrinter, "GlobalAlloc",     0u,  false},
             {u"Locked",     "",                87u, false},
             {OfficePrinter, "SetPrinterDataW", 0u,  true },
    }) {
        lstrcpyW(PrinterName, printer);
        platform::CurrentEnvironment().faults.Clear();
        LoadCustomPaperList();
        Machine::Fail(function);
        SetLastError(0);
        EXPECT_EQ(SaveCustomPapers(1), saved) << function;
        EXPECT_TRUE(error == 0 || GetLastError() == error) << function;
        EXPECT_EQ(Rows(), saved ? "257 New/" : "257 One/258 Two/259 Three/");
        EXPECT_EQ(PaperBytes(PapersOf(machine, printer)), PaperBytes(Three));
    }
}

TEST_F(CustomPaperStore, TheWorkingListIsAddressedByPlace)
{
    List(Three);
    EXPECT_EQ(WorkListEntryAt(-5)->cpCode, 300);
    EXPECT_EQ(WorkListEntryAt(3), nullptr);
    EXPECT_EQ(WorkListStoreAt(3, Three[0]), nullptr);
    ASSERT_NE(WorkListStoreAt(1, Three[2]), nullptr);
    EXPECT_EQ(WorkListEntryAt(1)->cpCode, 302);
    for (const int place : {7, 1, 1, -1}) WorkListRemoveAt(place);
    EXPECT_EQ(WorkListCount(), 0);
}

TEST(CustomPaperUnits, HundredthsOfSixteenthsComeBackAsTheSixteenths)
{
    const SHORT hundredths[16] = {0, 6, 13, 19, 25, 31, 38, 44, 50, 56, 63, 69, 75, 81, 88, 94};
    for (SHORT sixteenths = 0; sixteenths < 16; ++sixteenths) {
        const CustomPaperEntry entry = Entry(0, u"", UnitInches, 300, 500, sixteenths, sixteenths);
        const PaperSizeRecord size = RowSize(entry);
        EXPECT_EQ(size.psWidth, 300 + hundredths[sixteenths]);
        EXPECT_EQ(size.psLength, 500 + hundredths[sixteenths]);
        EXPECT_EQ(PaperBytes({EntryFromRowSize(size)}), PaperBytes({entry}));
    }
    EXPECT_EQ(RowSize(Entry(257, u"", 2, 800, 1300)).psWidth, 0) << "of a unit that is unknown";
    EXPECT_EQ(RowSize(Entry(257, u"", 2, 800, 1300)).psUnit, 2);
}

TEST(CustomPaperUnits, SixteenthsRoundToTheNearestAndTiesGoUp)
{
    constexpr std::pair<int, int> Rounded[] = {
        {3,  0 },
        {4,  1 },
        {9,  1 },
        {10, 2 },
        {96, 15},
        {97, 16}
    };
    for (const auto& [hundredths, sixteenths] : Rounded)
        EXPECT_EQ(HundredthsToSixteenths(hundredths), sixteenths) << hundredths;
}

TEST(CustomPaperUnits, MillimetresAndInchesRound)
{
    for (const auto& [tenths, inches, back] : {
             std::tuple{760,  InchLength{300, 0},   760 },
             {770,  InchLength{300, 1},   780 },
             {2100, InchLength{800, 4},   2100},
             {2160, InchLength{800, 8},   2160},
             {2970, InchLength{1100, 11}, 2970},
             {3550, InchLength{1400, 0},  3560},
             {3560, InchLength{1400, 0},  3560},
    }) {
        EXPECT_EQ(InchesFromTenths(tenths), inches) << tenths;
        EXPECT_EQ(TenthsFromInches(inches), back) << tenths;
    }
    EXPECT_EQ(TenthsFromInches({300, 9}), 910);
}

}  // namespace
