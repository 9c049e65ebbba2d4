#include "watermark/watermark_load.h"

#include <gmock/gmock.h>

#include <cstring>

#include "module.h"
#include "platform/kernel/memory.h"
#include "resources/control_numbers.h"
#include "settings/defaults.h"
#include "spooler/printer_data.h"
#include "tests/platform/user_rig.h"
#include "tests/support/machine.h"
#include "watermark/placement.h"
#include "watermark/watermark_list.h"

namespace {

using namespace testing_support;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

// A dialog with the controls of the Setup page and of the Watermark dialog that show the watermarks.
class LoadedWatermarks : public testing::Test {
  protected:
    LoadedWatermarks()
    {
        if (!ModuleHandle) DllInitialize(LoadLibraryW(QD_MODULE_PATH), DLL_PROCESS_ATTACH, nullptr);
        lstrcpyW(PrinterName, OfficePrinter);
        BuildDefaultSettings(&record, nullptr, u"", 0);
        CurrentSettings = &record;
    }
    ~LoadedWatermarks() override
    {
        CurrentSettings = nullptr;
        WatermarkCurrent = nullptr;
        FreeWatermarkList();
        EXPECT_EQ(platform::memory::BlockCount(), blocks);
    }
    int Load(bool forSetupPage)
    {
        FreeWatermarkList();
        return LoadWatermarks(rig.dialog, forSetupPage);
    }
    void Store(std::u16string_view texts, std::u16string_view names, std::u16string_view attributes)
    {
        const auto put = [this](const char16_t* name, std::u16string_view text) {
            platform::Bytes bytes(3000);
            std::memcpy(bytes.data(), text.data(), text.size() * sizeof(char16_t));
            machine.store->SetValue(OfficePrinter, name, {3, bytes});
        };
        put(u"WatermarkText", texts);
        put(u"WatermarkTextName", names);
        put(u"WatermarkAttributes", attributes);
    }
    // Lists of that many rows, named "0", "1" and so on, under any count line.
    void StoreRows(std::u16string count, int rows)
    {
        std::u16string names = count + u"\r\n", attributes;
        for (int i = 0; i < rows; ++i) {
            const std::string number = std::to_string(i);
            names += std::u16string(number.begin(), number.end()) + u"\r\n";
            attributes += u"1|20|72|0|0|0|0|0|0|Arial\r\n";
        }
        Store(names, names, attributes);
    }
    std::vector<std::u16string> Items(int control, UINT count, UINT text)
    {
        std::vector<std::u16string> items;
        const LRESULT rows = SendDlgItemMessageW(rig.dialog, control, count, 0, 0);
        for (WPARAM i = 0; i < static_cast<WPARAM>(rows); ++i) {
            WCHAR item[80] = {};
            SendDlgItemMessageW(rig.dialog, control, text, i, reinterpret_cast<LPARAM>(item));
            items.emplace_back(item);
        }
        return items;
    }
    std::vector<std::u16string> Combo() { return Items(IDC_WATERMARK, CB_GETCOUNT, CB_GETLBTEXT); }
    std::vector<std::u16string> List() { return Items(IDC_WM_LIST, LB_GETCOUNT, LB_GETTEXT); }
    LRESULT Picked(int control, UINT message) { return SendDlgItemMessageW(rig.dialog, control, message, 0, 0); }
    bool Enabled(int control) { return IsWindowEnabled(GetDlgItem(rig.dialog, control)) != FALSE; }

    std::size_t blocks = platform::memory::BlockCount();
    Machine machine;
    user_tests::Rig rig{
        {user_tests::Make(u"ComboBox", IDC_WATERMARK, user_tests::Stop | 0x3),
         user_tests::Make(u"Button", IDC_WATERMARK_FIRST_PAGE, user_tests::Stop | 0x3),
         user_tests::Make(u"ListBox", IDC_WM_LIST, user_tests::Stop),
         user_tests::Make(u"Button", IDC_WM_NEW, user_tests::Stop)}
    };
    DriverDevMode record{};
};

struct SetupRow {
    DWORD on;
    SHORT id, firstPageOnly;
    int index;
    DWORD onAfter;
};

TEST_F(LoadedWatermarks, TheSetupPageShowsTheJobsRow)
{
    constexpr SetupRow Rows[] = {
        {0, 3, 0, 0, 0},
        {1, 3, 1, 3, 1},
        {1, 7, 0, 7, 1},
        {1, 8, 1, 0, 0}, // no such row
        {1, 0, 0, 0, 0},
        {5, 2, 0, 2, 1},
    };
    for (const SetupRow& row : Rows) {
        record.dmWatermarkOn = row.on;
        record.dmWatermark.wmId = row.id;
        record.dmWatermark.wmFirstPageOnly = row.firstPageOnly;
        EXPECT_EQ(Load(true), 1);
        EXPECT_THAT(Combo(), ElementsAre(u"<NONE>", u"CONFIDENTIAL", u"TOP SECRET", u"COPY", u"DO NOT COPY", u"DRAFT",
                                         u"FINAL", u"PROOF"));
        EXPECT_EQ(Picked(IDC_WATERMARK, CB_GETCURSEL), row.index) << row.on << ", " << row.id;
        EXPECT_EQ(WatermarkIndex, row.index);
        EXPECT_EQ(WatermarkOption.on, row.onAfter);
        EXPECT_EQ(Enabled(IDC_WATERMARK_FIRST_PAGE), row.index != 0);
        EXPECT_EQ(IsDlgButtonChecked(rig.dialog, IDC_WATERMARK_FIRST_PAGE), static_cast<UINT>(row.firstPageOnly));
        EXPECT_EQ(WatermarkCurrent, WatermarkRowAt(row.index));
        EXPECT_EQ(WatermarkCount, 7);
    }
    EXPECT_THAT(List(), IsEmpty());
}

TEST_F(LoadedWatermarks, TheDialogShowsTheStoredRows)
{
    StoreRows(u"3", 3);
    record.dmWatermarkOn = 1;
    record.dmWatermark.wmId = 2;
    EXPECT_EQ(Load(false), 1);
    EXPECT_THAT(List(), ElementsAre(u"<NONE>", u"0", u"1", u"2"));
    EXPECT_EQ(Picked(IDC_WM_LIST, LB_GETCURSEL), 2);
    EXPECT_EQ(std::u16string(WatermarkEdit.wmName), u"1");
    EXPECT_TRUE(Enabled(IDC_WM_NEW));
    EXPECT_THAT(Combo(), IsEmpty());
    EXPECT_EQ(WatermarkOption.on, 1u);
}

TEST_F(LoadedWatermarks, ThirtyRowsAreTheMost)
{
    const struct {
        const char16_t* count;
        int lines, rows;
    } stored[] = {
        {u"29",  29, 29},
        {u"30",  30, 30},
        {u"31",  31, 30},
        {u"999", 40, 30},
        {u"999", 12, 12},
        {u"12x", 12, 0 },
    };
    for (const auto& row : stored) {
        StoreRows(row.count, row.lines);
        SendDlgItemMessageW(rig.dialog, IDC_WM_LIST, LB_RESETCONTENT, 0, 0);
        EnableWindow(GetDlgItem(rig.dialog, IDC_WM_NEW), TRUE);
        EXPECT_EQ(Load(false), 1);
        EXPECT_THAT(List(), SizeIs(static_cast<std::size_t>(row.rows) + 1)) << row.lines;
        EXPECT_EQ(WatermarkCount, row.rows);
        EXPECT_EQ(WatermarkRowAt(row.rows + 1), nullptr);
        EXPECT_EQ(Enabled(IDC_WM_NEW), row.rows < 30) << row.rows;
        EXPECT_EQ(std::ranges::count(WatermarkSlots, 1), row.rows + 1);
    }
}

TEST_F(LoadedWatermarks, TheDiagonalIsThatOfTheChosenPaper)
{
    constexpr SHORT Rows[][3] = {
        {1, 1, 53},
        {1, 2, 37},
        {9, 1, 55},
        {9, 2, 35},
    };
    for (const auto& [code, orientation, angle] : Rows) {
        record.dmPaperSize = code;
        record.dmOrientation = orientation;
        PaperSizeDots(code);
        ASSERT_EQ(Load(true), 1);
        EXPECT_EQ(DiagonalAngle, angle) << code << ", " << orientation;
        EXPECT_EQ(WatermarkRowAt(5)->wmAngle, angle);
        EXPECT_EQ(WatermarkEdit.wmAngle, angle);
    }
}

TEST_F(LoadedWatermarks, AnEditedRowTakesTheDiagonalOfNow)
{
    ASSERT_EQ(Load(true), 1);
    DiagonalAngle = 12;
    LoadWatermarkEdit();
    EXPECT_EQ(WatermarkEdit.wmAngle, 12);
    WatermarkCurrent->wmAngleMode = 3;
    LoadWatermarkEdit();
    EXPECT_EQ(WatermarkEdit.wmAngle, 53);
}

TEST_F(LoadedWatermarks, WithoutMemoryTheLoadIsGivenUp)
{
    // A head and eight rows.
    for (std::uint64_t call = 1; call <= 9; ++call) {
        FreeWatermarkList();
        Machine::Fail("GlobalAlloc", call);
        EXPECT_EQ(LoadWatermarks(rig.dialog, true), 0) << call;
        platform::CurrentEnvironment().faults.Clear();
    }
    EXPECT_THAT(Combo(), IsEmpty());
    EXPECT_EQ(Load(true), 1);
}

TEST_F(LoadedWatermarks, AStoredRowWithoutMemoryIsMissingEverywhere)
{
    StoreRows(u"3", 3);
    Machine::Fail("GlobalAlloc", 4);  // behind the head, <NONE> and the first row
    EXPECT_EQ(Load(true), 1);
    EXPECT_THAT(Combo(), ElementsAre(u"<NONE>", u"0", u"2"));
    EXPECT_EQ(std::u16string(WatermarkRowAt(2)->wmName), u"2");
    EXPECT_EQ(WatermarkCount, 2);
}

}  // namespace
