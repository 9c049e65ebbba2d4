#include "watermark/overlay_list.h"

#include "platform/kernel/unicode.h"
#include "tests/support/overlays.h"
#include "tests/support/printer_fixture.h"

namespace {

using namespace testing_support;

class OverlayStore : public PrinterTest {
  protected:
    OverlayStore() { StoreOverlays(machine, OfficePrinter, three); }
    ~OverlayStore() override
    {
        FreeOverlayEntries(OverlayList);
        OverlayList = OverlaySelected = OverlayEditing = nullptr;
        OverlayIndex = 0;
    }
    static int Load(int index)
    {
        FreeOverlayEntries(OverlayList);
        OverlayIndex = index;
        return LoadOverlayList(OverlayList, OverlaySelected, OverlayEditing, OverlayIndex);
    }
    // "<NONE>/A/B", the selected row in brackets.
    static std::string Names()
    {
        std::string names;
        for (const OverlayEntry* row = OverlayList; row; row = NextOverlay(row)) {
            const std::string name = platform::ToUtf8(row->ovName);
            names += (row == OverlayList ? "" : "/") + (row == OverlaySelected ? "[" + name + "]" : name);
        }
        EXPECT_EQ(OverlayEditing, OverlaySelected);
        return names;
    }
    static OverlayEntry* RowAt(int index)
    {
        OverlayEntry* row = OverlayList;
        while (index-- > 0) row = NextOverlay(row);
        return row;
    }

    const std::vector<OverlayEntry> three = {Overlay(u"A", u"/a.oxl"), Overlay(u"B", u"/b.oxl", 1),
                                             Overlay(u"C", u"/c.oxl", 7)};
};

TEST_F(OverlayStore, LoadsTheHeadAndTheRowsInOrder)
{
    EXPECT_EQ(Load(2), 1);
    EXPECT_EQ(Names(), "<NONE>/A/[B]/C");
    EXPECT_EQ(platform::ToUtf8(OverlayList->ovPath), "<NONE>");
    EXPECT_EQ(platform::ToUtf8(OverlaySelected->ovPath), "/b.oxl");
    EXPECT_EQ(RowAt(3)->ovPending, 7u);
    EXPECT_EQ(RowAt(3)->ovNext, 0u);
    EXPECT_EQ(FindPendingOverlay(OverlayList), RowAt(2));
    OverlayEntry* moved = RowAt(3);
    UnlinkOverlay(moved);
    LinkOverlay(OverlayList, moved);
    EXPECT_EQ(Names(), "<NONE>/C/A/[B]");
    ReleaseOverlay(RowAt(3));
    EXPECT_EQ(Names(), "[<NONE>]/C/A");
    EXPECT_EQ(FindPendingOverlay(OverlayList), nullptr);
    EXPECT_EQ(FindPendingOverlay(nullptr), nullptr);
    for (const int index : {0, 4, -1}) {
        Load(index);
        EXPECT_EQ(Names(), "[<NONE>]/A/B/C") << "no row has the index " << index;
        EXPECT_EQ(OverlayIndex, index);
    }
}

TEST_F(OverlayStore, EndsTextsThatAreNotEndedWhereTheirFieldsEnd)
{
    StoreOverlays(machine, OfficePrinter, {Overlay(std::u16string(262, u'n'), std::u16string(262, u'p'))});
    Load(1);
    EXPECT_EQ(Names(), "<NONE>/[" + std::string(261, 'n') + "]");
    EXPECT_EQ(platform::ToUtf8(OverlaySelected->ovPath), std::string(261, 'p'));
    ReleaseOverlay(RowAt(1));
    EXPECT_EQ(SaveOverlayChoice(), 1);
    EXPECT_EQ(OverlaysOf(machine, OfficePrinter).size, 0u) << "the head alone is saved as nothing";
    EXPECT_EQ(Load(1), 1);
    EXPECT_EQ(Names(), "[<NONE>]");
}

TEST_F(OverlayStore, HasTheHeadAloneWithoutThePrinter)
{
    lstrcpyW(PrinterName, u"Elsewhere");
    SetLastError(0);
    EXPECT_EQ(Load(1), 0);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
    EXPECT_EQ(Names(), "[<NONE>]");
    EXPECT_EQ(SaveOverlayChoice(), 0);
}

TEST_F(OverlayStore, SavesTheIndexAndTheRowsBehindTheHead)
{
    Load(3);
    ReleaseOverlay(RowAt(1));
    for (const char* function : {"GlobalAlloc", "GlobalLock"}) {
        machine.Fail(function);
        EXPECT_EQ(SaveOverlayChoice(), 0) << function;
        EXPECT_EQ(OverlaysOf(machine, OfficePrinter).rows.size(), 3u);
    }
    EXPECT_EQ(SaveOverlayChoice(), 1);
    const StoredOverlays stored = OverlaysOf(machine, OfficePrinter);
    EXPECT_EQ(stored.size, 4u + 2 * 1060);
    EXPECT_EQ(stored.index, 3u);
    ASSERT_EQ(stored.rows.size(), 2u);
    EXPECT_EQ(platform::ToUtf8(stored.rows[0].ovPath), "/b.oxl");
    EXPECT_EQ(stored.rows[0].ovPending, 1u);
    EXPECT_EQ(platform::ToUtf8(stored.rows[1].ovName), "C");
}

TEST_F(OverlayStore, LoadsWhatThereIsMemoryFor)
{
    std::uint64_t call = 0;
    for (const char* names : {"", "[<NONE>]", "[<NONE>]/A", "[<NONE>]/A/B"}) {
        machine.Fail("GlobalLock", ++call);
        EXPECT_EQ(Load(0), 1);
        EXPECT_EQ(Names(), names);
        platform::CurrentEnvironment().faults.Clear();
    }
}

}  // namespace
