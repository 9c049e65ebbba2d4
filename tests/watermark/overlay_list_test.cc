#include "watermark/overlay_list.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "module.h"
#include "platform/kernel/memory.h"
#include "spooler/printer_data.h"
#include "tests/support/overlays.h"

namespace {

using namespace testing_support;
using testing::ElementsAre;

class OverlayStore : public testing::Test {
  protected:
    OverlayStore()
    {
        if (!ModuleHandle) DllInitialize(LoadLibraryW(QD_MODULE_PATH), DLL_PROCESS_ATTACH, nullptr);
        lstrcpyW(PrinterName, OfficePrinter);
        blocks = platform::memory::BlockCount();
    }
    ~OverlayStore() override
    {
        FreeOverlayEntries(OverlayList);
        OverlayList = OverlaySelected = OverlayEditing = nullptr;
        OverlayIndex = 0;
        EXPECT_EQ(platform::memory::BlockCount(), blocks);
    }
    int Load(int index)
    {
        OverlayIndex = index;
        return LoadOverlayList(OverlayList, OverlaySelected, OverlayEditing, OverlayIndex);
    }
    static std::vector<std::u16string> Names()
    {
        std::vector<std::u16string> names;
        for (const OverlayEntry* row = OverlayList; row; row = NextOverlay(row)) names.emplace_back(row->ovName);
        return names;
    }
    static OverlayEntry* RowAt(int index)
    {
        OverlayEntry* row = OverlayList;
        while (index-- > 0) row = NextOverlay(row);
        return row;
    }

    std::size_t blocks = 0;
    Machine machine;
    const std::vector<OverlayEntry> three = {Overlay(u"A", u"/a.oxl"), Overlay(u"B", u"/b.oxl", 1),
                                             Overlay(u"C", u"/c.oxl", 7)};
};

TEST_F(OverlayStore, LoadsTheHeadAndTheRowsInOrder)
{
    StoreOverlays(machine, OfficePrinter, three);
    EXPECT_EQ(Load(2), 1);
    EXPECT_THAT(Names(), ElementsAre(u"<NONE>", u"A", u"B", u"C"));
    EXPECT_EQ(std::u16string(OverlayList->ovPath), u"<NONE>");
    EXPECT_EQ(OverlaySelected, RowAt(2));
    EXPECT_EQ(OverlayEditing, RowAt(2));
    EXPECT_EQ(std::u16string(OverlaySelected->ovPath), u"/b.oxl");
    EXPECT_EQ(RowAt(3)->ovPending, 7u);
    EXPECT_EQ(RowAt(3)->ovNext, 0u);
    OverlayEntry* moved = RowAt(3);
    UnlinkOverlay(moved);
    LinkOverlay(OverlayList, moved);
    EXPECT_THAT(Names(), ElementsAre(u"<NONE>", u"C", u"A", u"B"));
    for (const int index : {0, 4, -1}) {
        FreeOverlayEntries(OverlayList);
        Load(index);
        EXPECT_EQ(OverlaySelected, OverlayList) << "no row has the index " << index;
        EXPECT_EQ(OverlayIndex, index);
    }
}

TEST_F(OverlayStore, TakesWholeRowsOfWhatIsStored)
{
    for (const std::size_t bytes : {0u, 1u, 3u, 4u, 4u + 1059, 4u + 1060, 4u + 1061, 4u + 2120}) {
        StoreOverlays(machine, OfficePrinter, three, bytes);
        EXPECT_EQ(Load(0), 1);
        EXPECT_EQ(Names().size(), (bytes < 4 + 1060 ? 0u : bytes < 4 + 2120 ? 1u : 2u) + 1) << bytes;
        FreeOverlayEntries(OverlayList);
    }
    OverlayList = nullptr;
}

TEST_F(OverlayStore, EndsTextsThatAreNotEndedWhereTheirFieldsEnd)
{
    StoreOverlays(machine, OfficePrinter, {Overlay(std::u16string(262, u'n'), std::u16string(262, u'p'))});
    Load(1);
    EXPECT_EQ(std::u16string(OverlaySelected->ovName), std::u16string(261, u'n'));
    EXPECT_EQ(std::u16string(OverlaySelected->ovPath), std::u16string(261, u'p'));
}

TEST_F(OverlayStore, HasTheHeadAloneWithoutThePrinter)
{
    lstrcpyW(PrinterName, u"Elsewhere");
    SetLastError(0);
    EXPECT_EQ(Load(1), 0);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
    EXPECT_THAT(Names(), ElementsAre(u"<NONE>"));
    EXPECT_EQ(OverlaySelected, OverlayList);
    EXPECT_EQ(SaveOverlayChoice(), 0);
}

TEST_F(OverlayStore, SavesTheIndexAndTheRowsBehindTheHead)
{
    StoreOverlays(machine, OfficePrinter, three);
    Load(3);
    ReleaseOverlay(RowAt(1));
    EXPECT_EQ(SaveOverlayChoice(), 1);
    const StoredOverlays stored = OverlaysOf(machine, OfficePrinter);
    EXPECT_EQ(stored.size, 4u + 2 * 1060);
    EXPECT_EQ(stored.index, 3u);
    ASSERT_EQ(stored.rows.size(), 2u);
    EXPECT_EQ(std::u16string(stored.rows[0].ovPath), u"/b.oxl");
    EXPECT_EQ(stored.rows[0].ovPending, 1u);
    EXPECT_EQ(std::u16string(stored.rows[1].ovName), u"C");
}

TEST_F(OverlayStore, SavesTheHeadAloneAsNothing)
{
    StoreOverlays(machine, OfficePrinter, {three[0]});
    Load(1);
    ReleaseOverlay(RowAt(1));
    EXPECT_EQ(OverlaySelected, OverlayList);
    EXPECT_EQ(OverlayEditing, OverlayList);
    EXPECT_EQ(SaveOverlayChoice(), 1);
    EXPECT_EQ(OverlaysOf(machine, OfficePrinter).size, 0u);
    FreeOverlayEntries(OverlayList);
    EXPECT_EQ(Load(1), 1);
    EXPECT_THAT(Names(), ElementsAre(u"<NONE>"));
}

TEST_F(OverlayStore, LeavesTheStoredListWithoutMemory)
{
    StoreOverlays(machine, OfficePrinter, three);
    Load(0);
    ReleaseOverlay(RowAt(1));
    for (const char* function : {"GlobalAlloc", "GlobalLock"}) {
        machine.Fail(function);
        EXPECT_EQ(SaveOverlayChoice(), 0) << function;
        EXPECT_EQ(OverlaysOf(machine, OfficePrinter).rows.size(), 3u);
    }
}

TEST_F(OverlayStore, LoadsWhatThereIsMemoryFor)
{
    StoreOverlays(machine, OfficePrinter, three);
    for (std::size_t rows = 0; rows <= 3; ++rows) {
        platform::CurrentEnvironment().faults.Clear();
        machine.Fail("GlobalLock", rows + 1);
        EXPECT_EQ(Load(0), 1);
        EXPECT_EQ(Names().size(), rows);
        FreeOverlayEntries(OverlayList);
    }
    OverlayList = nullptr;
}

TEST_F(OverlayStore, FindsTheFirstPendingRow)
{
    StoreOverlays(machine, OfficePrinter, three);
    Load(0);
    EXPECT_EQ(FindPendingOverlay(OverlayList), RowAt(2));
    ReleaseOverlay(RowAt(2));
    EXPECT_EQ(FindPendingOverlay(OverlayList), nullptr);
    EXPECT_EQ(FindPendingOverlay(nullptr), nullptr);
}

}  // namespace
