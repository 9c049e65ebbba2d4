// The Custom Paper dialog on top of a sheet.
#include "pages/custom_paper_dialog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "module.h"
#include "pages/custom_paper_store.h"
#include "pages/custom_paper_work_list.h"
#include "platform/kernel/memory.h"
#include "platform/kernel/unicode.h"
#include "platform/services.h"
#include "platform/user/window.h"
#include "resources/control_numbers.h"
#include "tests/support/custom_papers.h"
#include "tests/support/failing_places.h"
#include "tests/support/sheet_driver.h"

namespace {

using namespace testing_support;
using platform::user::Key;
using testing::ElementsAre;
using Cells = std::vector<std::vector<std::u16string>>;
using Entries = std::vector<CustomPaperEntry>;

constexpr int Germany = 49, UnitedStates = 1;

const Entries Three = {Entry(257, u"Card", 0, 1000, 1500), Entry(258, u"Form", 1, 800, 1100, 8, 0),
                       Entry(259, u"Poster", 0, 2160, 3560)};

// A printer with as many sizes, "Size0" and so on.
Entries Many(int count)
{
    Entries entries;
    for (int i = 0; i < count; ++i)
        entries.push_back(Entry(static_cast<SHORT>(257 + i),
                                u"Size" + std::u16string(1, u'0' + i / 10) + std::u16string(1, u'0' + i % 10), 0, 1000,
                                1500));
    return entries;
}

constexpr int MillimetreControls[] = {IDC_CP_WIDTH_MM,       IDC_CP_WIDTH_MM_SPIN,  IDC_CP_HEIGHT_MM,
                                      IDC_CP_HEIGHT_MM_SPIN, IDC_CP_WIDTH_MM_RANGE, IDC_CP_HEIGHT_MM_RANGE};
constexpr int InchControls[] = {
    IDC_CP_WIDTH_SLASH16,    IDC_CP_HEIGHT_SLASH16,        IDC_CP_WIDTH_INCH_RANGE,  IDC_CP_HEIGHT_INCH_RANGE,
    IDC_CP_WIDTH_SIXTEENTHS, IDC_CP_WIDTH_SIXTEENTHS_SPIN, IDC_CP_HEIGHT_SIXTEENTHS, IDC_CP_HEIGHT_SIXTEENTHS_SPIN,
    IDC_CP_WIDTH_INCH,       IDC_CP_WIDTH_INCH_SPIN,       IDC_CP_HEIGHT_INCH,       IDC_CP_HEIGHT_INCH_SPIN};

class CustomPaperDialog : public testing::Test {
  protected:
    ~CustomPaperDialog() override { Close(); }
    Sheet& Open(const Entries& entries, int country = Germany, SHORT paper = 9)
    {
        Close();
        sheet_ = std::make_unique<Sheet>([=](DriverDevMode& record) { record.dmPaperSize = paper; },
                                         [&](TestMachine& machine) { Store(machine, entries); },
                                         Machine::InCountry(country));
        return Again();
    }
    Sheet& Again()
    {
        result_ = -2;
        CustomPaperAccepted = -2;
        sheet_->Try([this](HWND page) {
            LoadCustomPaperList();
            result_ = DialogBoxParamW(ResourceHandle, ResourceName(IDD_CUSTOM_PAPER), page, CustomPaper_DlgProc, 0);
            return platform::user::Outcome::Done;
        });
        return *sheet_;
    }
    void Close()
    {
        sheet_.reset();
        EXPECT_EQ(CustomPaperWorkList, nullptr);
        ReleaseRowsBehind(CustomHeadRow);
        CustomHeadRow = {};
        PaperRowCount = BuiltInPaperRows;
    }
    static void Store(Machine& machine, const Entries& entries)
    {
        const platform::Bytes bytes = PaperBytes(entries);
        machine.store->SetValue(TestPrinter, u"CustomPaperDataSize", {4, DwordBytes(static_cast<DWORD>(bytes.size()))});
        machine.store->SetValue(TestPrinter, u"CustomPaperData", {3, bytes});
    }
    Sheet& Dialog() { return *sheet_; }
    Entries Stored()
    {
        const auto size = Dialog().Machine().store->Value(TestPrinter, u"CustomPaperDataSize");
        const auto value = Dialog().Machine().store->Value(TestPrinter, u"CustomPaperData");
        DWORD length = 0;
        std::memcpy(&length, size->bytes.data(), 4);
        Entries entries(length / sizeof(CustomPaperEntry));
        EXPECT_TRUE(length == 0 || value->bytes.size() == length);
        if (!entries.empty()) std::memcpy(entries.data(), value->bytes.data(), length);
        return entries;
    }
    std::vector<std::u16string> StoredNames()
    {
        std::vector<std::u16string> names;
        for (const CustomPaperEntry& entry : Stored()) names.emplace_back(entry.cpName);
        return names;
    }
    Cells Listed() { return Dialog().Rows(IDC_CP_LIST); }
    std::u16string Size(int row = 0) { return Listed().at(static_cast<std::size_t>(row)).at(1); }
    bool Visible(int control) { return platform::user::Find(Dialog().Handle(control))->visible; }
    // As a script sees it: which of the two sets of fields is there.
    int UnitShown()
    {
        const bool inches = Visible(IDC_CP_WIDTH_INCH);
        for (const int control : MillimetreControls) EXPECT_NE(Visible(control), inches) << control;
        for (const int control : InchControls) EXPECT_EQ(Visible(control), inches) << control;
        EXPECT_NE(Dialog().Checked(IDC_CP_UNIT_MM), inches);
        EXPECT_EQ(Dialog().Checked(IDC_CP_UNIT_INCH), inches);
        return inches;
    }
    // The numbers in the fields of a unit.
    std::vector<std::u16string> Numbers(int unit)
    {
        if (unit == 0) return {Dialog().Text(IDC_CP_WIDTH_MM), Dialog().Text(IDC_CP_HEIGHT_MM)};
        return {Dialog().Text(IDC_CP_WIDTH_INCH), Dialog().Text(IDC_CP_WIDTH_SIXTEENTHS),
                Dialog().Text(IDC_CP_HEIGHT_INCH), Dialog().Text(IDC_CP_HEIGHT_SIXTEENTHS)};
    }
    // New, Delete, list, name, number, OK as letters, those that can be used.
    std::string Usable()
    {
        std::string usable;
        for (const auto& [control, letter] :
             {std::pair(IDC_CP_NEW, 'N'), std::pair(IDC_CP_DELETE, 'D'), std::pair(IDC_CP_LIST, 'l'),
              std::pair(IDC_CP_NAME, 'n'), std::pair(IDC_CP_UNIT_MM, 'u'), std::pair(IDOK, 'O'),
              std::pair(IDCANCEL, 'C'), std::pair(IDC_HELP, 'H')})
            if (Dialog().Enabled(control)) usable += letter;
        return usable;
    }
    HWND FocusNow() { return GetFocus(); }

    INT_PTR result_ = -2;

  private:
    std::unique_ptr<Sheet> sheet_;
};

struct CountryRow {
    int country;
    int unit;
    std::vector<std::u16string> numbers;
    std::u16string size;
};
// clang-format off
const CountryRow Countries[] = {
    {Germany,      0, {u"210", u"297"},            u"[210 x 297 mm]"         },
    {UnitedStates, 1, {u"8", u"8", u"11", u"0"}, u"[8 8/16 x 11 0/16 inch]"},
};
// clang-format on

TEST_F(CustomPaperDialog, OpensEmptyWithoutSizes)
{
    for (const CountryRow& row : Countries) {
        Open({}, row.country);
        EXPECT_EQ(Dialog().Template(), IDD_CUSTOM_PAPER);
        EXPECT_EQ(Dialog().Text(IDC_CP_NAME), u"No Paper Selected");
        EXPECT_EQ(Usable(), "NOCH");
        EXPECT_TRUE(Listed().empty());
        EXPECT_EQ(UnitShown(), row.unit);
        EXPECT_EQ(Numbers(row.unit), row.numbers);
    }
}

TEST_F(CustomPaperDialog, SavesAnEmptyListAsNothing)
{
    Open({});
    Dialog().Click(IDOK);
    EXPECT_EQ(result_, 0);
    EXPECT_EQ(CustomPaperAccepted, 1);
    EXPECT_TRUE(Stored().empty());
}

TEST_F(CustomPaperDialog, MakesANewSizeOfTheCountrysPaper)
{
    for (const CountryRow& row : Countries) {
        Open({}, row.country);
        Dialog().Click(IDC_CP_NEW);
        EXPECT_EQ(Listed(), (Cells{
                                {u"New Paper0", row.size}
        }));
        EXPECT_EQ(Usable(), "NDlnuOCH");
        EXPECT_EQ(Dialog().SelectedRow(IDC_CP_LIST), 0);
        EXPECT_EQ(Dialog().Text(IDC_CP_NAME), u"New Paper0");
        EXPECT_EQ(UnitShown(), row.unit);
        EXPECT_EQ(Numbers(row.unit), row.numbers);
        Dialog().Click(IDOK);
        EXPECT_EQ(result_, 1);
        ASSERT_EQ(Stored().size(), 1u);
        EXPECT_EQ(Stored()[0].cpCode, 257);
        EXPECT_EQ(Stored()[0].cpUnit, row.unit);
    }
}

TEST_F(CustomPaperDialog, GivesTheFirstFreeNumber)
{
    Open({});
    Dialog().Click(IDC_CP_NEW).Click(IDC_CP_NEW).Click(IDC_CP_NEW);
    Dialog().Row(IDC_CP_LIST, 1).Type(IDC_CP_NAME, u"Mine").Click(IDC_CP_NEW);
    EXPECT_EQ(Listed().back().at(0), u"New Paper1");
    EXPECT_EQ(Dialog().SelectedRow(IDC_CP_LIST), 3);
}

TEST_F(CustomPaperDialog, ListsTheSizesOfThePrinter)
{
    Open(Three);
    EXPECT_EQ(
        Listed(),
        (Cells{
            {u"Card",   u"[100 x 150 mm]"         },
            {u"Form",   u"[8 8/16 x 11 0/16 inch]"},
            {u"Poster", u"[216 x 356 mm]"         }
    }));
    EXPECT_EQ(Usable(), "NDlnuOCH");
    const auto* list = platform::user::Find(Dialog().Handle(IDC_CP_LIST))->As<platform::user::ListViewState>();
    ASSERT_EQ(list->columns.size(), 2u);
    EXPECT_EQ(list->columns[0].width, 234);
    EXPECT_EQ(list->columns[1].width, 134);
    EXPECT_EQ(list->extendedStyle, DWORD{LVS_EX_FULLROWSELECT});
}

struct PaperRowOfRecord {
    SHORT paper;
    int selected;
};

TEST_F(CustomPaperDialog, SelectsThePaperOfTheRecordElseTheFirst)
{
    for (const PaperRowOfRecord& row : {
             PaperRowOfRecord{9,   0},
             PaperRowOfRecord{257, 0},
             PaperRowOfRecord{259, 2},
             PaperRowOfRecord{260, 0}
    }) {
        Open(Three, Germany, row.paper);
        EXPECT_EQ(Dialog().SelectedRow(IDC_CP_LIST), row.selected) << row.paper;
        EXPECT_EQ(Dialog().Text(IDC_CP_NAME), Three[static_cast<std::size_t>(row.selected)].cpName);
        Dialog().Click(IDOK);
        EXPECT_EQ(result_, row.selected + 1);
    }
}

TEST_F(CustomPaperDialog, ShowsTheSelectedSizeInItsUnit)
{
    Open(Three);
    EXPECT_EQ(UnitShown(), 0);
    EXPECT_THAT(Numbers(0), ElementsAre(u"100", u"150"));
    Dialog().Row(IDC_CP_LIST, 1);
    EXPECT_EQ(UnitShown(), 1);
    EXPECT_THAT(Numbers(1), ElementsAre(u"8", u"8", u"11", u"0"));
    EXPECT_EQ(Dialog().Text(IDC_CP_NAME), u"Form");
    Dialog().Row(IDC_CP_LIST, 2);
    EXPECT_EQ(UnitShown(), 0);
    EXPECT_THAT(Numbers(0), ElementsAre(u"216", u"356"));
    // What was looked at only is as it was.
    Dialog().Click(IDOK);
    EXPECT_EQ(PaperBytes(Stored()), PaperBytes(Three));
}

// What is typed into a field; the list while the focus stays; then list and fields when it has left.
struct TypingRow {
    CustomPaperEntry start;
    int field;
    std::u16string typed;
    std::u16string while_, left;
    std::vector<std::u16string> numbers;
};

CustomPaperEntry Mm(SHORT width, SHORT height) { return Entry(257, u"A", 0, width, height); }
CustomPaperEntry Inch(SHORT width, SHORT widthSixteenths, SHORT height, SHORT heightSixteenths)
{
    return Entry(257, u"A", 1, static_cast<SHORT>(width * 100), static_cast<SHORT>(height * 100), widthSixteenths,
                 heightSixteenths);
}

// clang-format off
const TypingRow Typing[] = {
    {Mm(1000, 1500), IDC_CP_WIDTH_MM, u"75", u"[76 x 150 mm]", u"[76 x 150 mm]", {u"76", u"150"}},
    {Mm(1000, 1500), IDC_CP_WIDTH_MM, u"76", u"[76 x 150 mm]", u"[76 x 150 mm]", {u"76", u"150"}},
    {Mm(1000, 1500), IDC_CP_WIDTH_MM, u"216", u"[216 x 150 mm]", u"[216 x 150 mm]", {u"216", u"150"}},
    {Mm(1000, 1500), IDC_CP_WIDTH_MM, u"217", u"[216 x 150 mm]", u"[216 x 150 mm]", {u"216", u"150"}},
    {Mm(1000, 1500), IDC_CP_WIDTH_MM, u"3000", u"[216 x 150 mm]", u"[216 x 150 mm]", {u"216", u"150"}},
    {Mm(1000, 1500), IDC_CP_WIDTH_MM, u"", u"[76 x 150 mm]", u"[76 x 150 mm]", {u"76", u"150"}},
    {Mm(1000, 1500), IDC_CP_HEIGHT_MM, u"126", u"[100 x 127 mm]", u"[100 x 127 mm]", {u"100", u"127"}},
    {Mm(1000, 1500), IDC_CP_HEIGHT_MM, u"127", u"[100 x 127 mm]", u"[100 x 127 mm]", {u"100", u"127"}},
    {Mm(1000, 1500), IDC_CP_HEIGHT_MM, u"356", u"[100 x 356 mm]", u"[100 x 356 mm]", {u"100", u"356"}},
    {Mm(1000, 1500), IDC_CP_HEIGHT_MM, u"357", u"[100 x 356 mm]", u"[100 x 356 mm]", {u"100", u"356"}},
    {Inch(5, 3, 7, 5), IDC_CP_WIDTH_INCH, u"2", u"[3 3/16 x 7 5/16 inch]", u"[3 3/16 x 7 5/16 inch]", {u"3", u"3", u"7", u"5"}},
    {Inch(5, 3, 7, 5), IDC_CP_WIDTH_INCH, u"3", u"[3 3/16 x 7 5/16 inch]", u"[3 3/16 x 7 5/16 inch]", {u"3", u"3", u"7", u"5"}},
    {Inch(5, 8, 7, 5), IDC_CP_WIDTH_INCH, u"8", u"[8 8/16 x 7 5/16 inch]", u"[8 8/16 x 7 5/16 inch]", {u"8", u"8", u"7", u"5"}},
    {Inch(5, 9, 7, 5), IDC_CP_WIDTH_INCH, u"8", u"[8 8/16 x 7 5/16 inch]", u"[8 8/16 x 7 5/16 inch]", {u"8", u"8", u"7", u"5"}},
    {Inch(8, 4, 7, 5), IDC_CP_WIDTH_INCH, u"9", u"[8 4/16 x 7 5/16 inch]", u"[8 8/16 x 7 5/16 inch]", {u"8", u"8", u"7", u"5"}},
    {Inch(7, 15, 7, 5), IDC_CP_WIDTH_INCH, u"9", u"[8 15/16 x 7 5/16 inch]", u"[8 8/16 x 7 5/16 inch]", {u"8", u"8", u"7", u"5"}},
    {Inch(5, 3, 7, 5), IDC_CP_HEIGHT_INCH, u"2", u"[5 3/16 x 5 5/16 inch]", u"[5 3/16 x 5 5/16 inch]", {u"5", u"3", u"5", u"5"}},
    {Inch(5, 3, 7, 5), IDC_CP_HEIGHT_INCH, u"13", u"[5 3/16 x 13 5/16 inch]", u"[5 3/16 x 13 5/16 inch]", {u"5", u"3", u"13", u"5"}},
    {Inch(5, 3, 13, 15), IDC_CP_HEIGHT_INCH, u"14", u"[5 3/16 x 14 0/16 inch]", u"[5 3/16 x 14 0/16 inch]", {u"5", u"3", u"14", u"0"}},
    {Inch(5, 3, 13, 15), IDC_CP_HEIGHT_INCH, u"15", u"[5 3/16 x 14 0/16 inch]", u"[5 3/16 x 14 0/16 inch]", {u"5", u"3", u"14", u"0"}},
    {Inch(7, 3, 7, 5), IDC_CP_WIDTH_SIXTEENTHS, u"15", u"[7 15/16 x 7 5/16 inch]", u"[7 15/16 x 7 5/16 inch]", {u"7", u"15", u"7", u"5"}},
    {Inch(7, 3, 7, 5), IDC_CP_WIDTH_SIXTEENTHS, u"16", u"[7 15/16 x 7 5/16 inch]", u"[7 15/16 x 7 5/16 inch]", {u"7", u"15", u"7", u"5"}},
    {Inch(8, 3, 7, 5), IDC_CP_WIDTH_SIXTEENTHS, u"8", u"[8 8/16 x 7 5/16 inch]", u"[8 8/16 x 7 5/16 inch]", {u"8", u"8", u"7", u"5"}},
    {Inch(8, 3, 7, 5), IDC_CP_WIDTH_SIXTEENTHS, u"9", u"[8 8/16 x 7 5/16 inch]", u"[8 8/16 x 7 5/16 inch]", {u"8", u"8", u"7", u"5"}},
    {Inch(8, 3, 7, 5), IDC_CP_WIDTH_SIXTEENTHS, u"", u"[8 0/16 x 7 5/16 inch]", u"[8 0/16 x 7 5/16 inch]", {u"8", u"", u"7", u"5"}},
    {Inch(8, 3, 7, 5), IDC_CP_HEIGHT_SIXTEENTHS, u"99", u"[8 3/16 x 7 15/16 inch]", u"[8 3/16 x 7 15/16 inch]", {u"8", u"3", u"7", u"15"}},
    {Inch(8, 3, 14, 0), IDC_CP_HEIGHT_SIXTEENTHS, u"5", u"[8 3/16 x 14 0/16 inch]", u"[8 3/16 x 14 0/16 inch]", {u"8", u"3", u"14", u"0"}},
    {Inch(8, 3, 14, 0), IDC_CP_HEIGHT_SIXTEENTHS, u"", u"[8 3/16 x 14 0/16 inch]", u"[8 3/16 x 14 0/16 inch]", {u"8", u"3", u"14", u"0"}},
};
// clang-format on

TEST_F(CustomPaperDialog, LimitsWhatIsTypedAtOnceAndItsTextWhenTheFieldIsLeft)
{
    for (const TypingRow& row : Typing) {
        SCOPED_TRACE("field " + std::to_string(row.field) + " \"" + platform::ToUtf8(row.typed) + '"');
        const int unit = row.start.cpUnit;
        Open({row.start}, Germany);
        Dialog().Type(row.field, row.typed);
        EXPECT_EQ(Size(), row.while_);
        Dialog().Focus(IDC_CP_NAME);
        EXPECT_EQ(Size(), row.left);
        EXPECT_EQ(Numbers(unit), row.numbers);
        EXPECT_EQ(UnitShown(), unit);
    }
}

TEST_F(CustomPaperDialog, FollowsEveryDigit)
{
    Open({Mm(1000, 1500)});
    Dialog().Type(IDC_CP_WIDTH_MM, u"2");
    EXPECT_EQ(Size(), u"[76 x 150 mm]");
    EXPECT_EQ(Dialog().Text(IDC_CP_WIDTH_MM), u"2");
    Dialog().Append(IDC_CP_WIDTH_MM, u"1");
    EXPECT_EQ(Size(), u"[76 x 150 mm]");
    Dialog().Append(IDC_CP_WIDTH_MM, u"0");
    EXPECT_EQ(Size(), u"[210 x 150 mm]");
    Dialog().Append(IDC_CP_WIDTH_MM, u"9");
    EXPECT_EQ(Dialog().Text(IDC_CP_WIDTH_MM), u"210");
}

struct PastedRow {
    CustomPaperEntry start;
    int field;
    std::u16string pasted, size, left;
};

// Digits are all that the keyboard gives; the clipboard gives anything.
TEST_F(CustomPaperDialog, TakesPastedTextsAsTheNumbersThatTheyAre)
{
    // clang-format off
    const PastedRow Rows[] = {
        {Mm(1000, 1500),    IDC_CP_WIDTH_MM,          u"-99",  u"[76 x 150 mm]",          u"76" },
        {Mm(1000, 1500),    IDC_CP_WIDTH_MM,          u"abc",  u"[76 x 150 mm]",          u"76" },
        {Mm(1000, 1500),    IDC_CP_WIDTH_MM,          u"2100", u"[210 x 150 mm]",         u"210"},
        {Inch(5, 3, 7, 5),  IDC_CP_WIDTH_INCH,        u"-",    u"[3 3/16 x 7 5/16 inch]", u"3"  },
        {Inch(5, 3, 7, 5),  IDC_CP_HEIGHT_INCH,       u"-9",   u"[5 3/16 x 5 5/16 inch]", u"5"  },
        {Inch(5, 3, 7, 5),  IDC_CP_WIDTH_SIXTEENTHS,  u"-5",   u"[5 0/16 x 7 5/16 inch]", u"0"  },
        {Inch(5, 3, 7, 5),  IDC_CP_HEIGHT_SIXTEENTHS, u"-1",   u"[5 3/16 x 7 0/16 inch]", u"0"  },
        {Inch(8, 3, 14, 0), IDC_CP_HEIGHT_SIXTEENTHS, u"-1",   u"[8 3/16 x 14 0/16 inch]", u"0" },
    };
    // clang-format on
    for (const PastedRow& row : Rows) {
        Open({row.start});
        Dialog().Paste(row.field, row.pasted);
        EXPECT_EQ(Size(), row.size) << platform::ToUtf8(row.pasted);
        Dialog().Focus(IDC_CP_NAME);
        EXPECT_EQ(Size(), row.size);
        EXPECT_EQ(Dialog().Text(row.field), row.left);
    }
}

struct SpinRow {
    CustomPaperEntry start;
    int spin, field;
    bool up;
    std::u16string shown, size;
};

TEST_F(CustomPaperDialog, CountsWithTheArrowsUpToTheirEnds)
{
    // clang-format off
    const SpinRow Rows[] = {
        {Mm(770, 1500),      IDC_CP_WIDTH_MM_SPIN,          IDC_CP_WIDTH_MM,          false, u"76",  u"[76 x 150 mm]"          },
        {Mm(760, 1500),      IDC_CP_WIDTH_MM_SPIN,          IDC_CP_WIDTH_MM,          false, u"76",  u"[76 x 150 mm]"          },
        {Mm(2160, 1500),     IDC_CP_WIDTH_MM_SPIN,          IDC_CP_WIDTH_MM,          true,  u"216", u"[216 x 150 mm]"         },
        {Mm(1000, 1270),     IDC_CP_HEIGHT_MM_SPIN,         IDC_CP_HEIGHT_MM,         false, u"127", u"[100 x 127 mm]"         },
        {Mm(1000, 3560),     IDC_CP_HEIGHT_MM_SPIN,         IDC_CP_HEIGHT_MM,         true,  u"356", u"[100 x 356 mm]"         },
        {Inch(8, 8, 11, 0),  IDC_CP_WIDTH_INCH_SPIN,        IDC_CP_WIDTH_INCH,        false, u"7",   u"[7 8/16 x 11 0/16 inch]"},
        {Inch(8, 8, 11, 0),  IDC_CP_WIDTH_INCH_SPIN,        IDC_CP_WIDTH_INCH,        true,  u"8",   u"[8 8/16 x 11 0/16 inch]"},
        {Inch(3, 8, 11, 0),  IDC_CP_WIDTH_INCH_SPIN,        IDC_CP_WIDTH_INCH,        false, u"3",   u"[3 8/16 x 11 0/16 inch]"},
        {Inch(8, 8, 5, 1),   IDC_CP_HEIGHT_INCH_SPIN,       IDC_CP_HEIGHT_INCH,       false, u"5",   u"[8 8/16 x 5 1/16 inch]" },
        {Inch(8, 8, 13, 15), IDC_CP_HEIGHT_INCH_SPIN,       IDC_CP_HEIGHT_INCH,       true,  u"14",  u"[8 8/16 x 14 0/16 inch]"},
        {Inch(8, 8, 11, 0),  IDC_CP_WIDTH_SIXTEENTHS_SPIN,  IDC_CP_WIDTH_SIXTEENTHS,  true,  u"9",   u"[8 8/16 x 11 0/16 inch]"},
        {Inch(7, 15, 11, 0), IDC_CP_WIDTH_SIXTEENTHS_SPIN,  IDC_CP_WIDTH_SIXTEENTHS,  true,  u"15",  u"[7 15/16 x 11 0/16 inch]"},
        {Inch(8, 8, 11, 0),  IDC_CP_HEIGHT_SIXTEENTHS_SPIN, IDC_CP_HEIGHT_SIXTEENTHS, false, u"0",   u"[8 8/16 x 11 0/16 inch]"},
        {Inch(8, 8, 11, 15), IDC_CP_HEIGHT_SIXTEENTHS_SPIN, IDC_CP_HEIGHT_SIXTEENTHS, true,  u"15",  u"[8 8/16 x 11 15/16 inch]"},
    };
    // clang-format on
    for (const SpinRow& row : Rows) {
        Open({row.start});
        Dialog().Spin(row.spin, row.up);
        EXPECT_EQ(Dialog().Text(row.field), row.shown) << row.spin;
        EXPECT_EQ(Size(), row.size) << row.spin;
    }
}

// A limit of the whole inches takes the sixteenths with it, and their field follows when the inches are left.
TEST_F(CustomPaperDialog, KeepsTheFieldOfTheSixteenthsInTuneWithTheSize)
{
    Open({Inch(7, 15, 13, 15)});
    Dialog().Type(IDC_CP_HEIGHT_INCH, u"14").Type(IDC_CP_HEIGHT_INCH, u"13").Focus(IDC_CP_NAME);
    EXPECT_EQ(Size(), u"[7 15/16 x 13 0/16 inch]");
    EXPECT_EQ(Dialog().Text(IDC_CP_HEIGHT_SIXTEENTHS), u"0");
    Dialog().Type(IDC_CP_WIDTH_INCH, u"8").Type(IDC_CP_WIDTH_INCH, u"7").Focus(IDC_CP_NAME);
    EXPECT_EQ(Size(), u"[7 8/16 x 13 0/16 inch]");
    EXPECT_EQ(Dialog().Text(IDC_CP_WIDTH_SIXTEENTHS), u"8");
}

TEST_F(CustomPaperDialog, LeavesTheFieldThatTheEnterKeyIsPressedIn)
{
    Open({Inch(7, 15, 7, 5)});
    Dialog().Type(IDC_CP_WIDTH_INCH, u"9").Press(Key::Enter);
    ASSERT_EQ(Stored().size(), 1u);
    EXPECT_EQ(Stored()[0].cpWidth, 800);
    EXPECT_EQ(Stored()[0].cpWidthSixteenths, 8);
}

struct ConversionRow {
    CustomPaperEntry start;
    std::u16string converted, back;
};

TEST_F(CustomPaperDialog, ConvertsBetweenTheUnits)
{
    // clang-format off
    const ConversionRow Rows[] = {
        {Mm(760, 1270),        u"[3 0/16 x 5 0/16 inch]",   u"[76 x 127 mm]"         },
        {Mm(2160, 3560),       u"[8 8/16 x 14 0/16 inch]",  u"[216 x 356 mm]"        },
        {Mm(2100, 2970),       u"[8 4/16 x 11 11/16 inch]", u"[210 x 297 mm]"        },
        {Mm(770, 3550),        u"[3 1/16 x 14 0/16 inch]",  u"[78 x 356 mm]"         },
        {Inch(3, 0, 5, 0),     u"[76 x 127 mm]",            u"[3 0/16 x 5 0/16 inch]"},
        {Inch(8, 8, 14, 0),    u"[216 x 356 mm]",           u"[8 8/16 x 14 0/16 inch]"},
        {Inch(3, 9, 11, 0),    u"[91 x 279 mm]",            u"[3 9/16 x 11 0/16 inch]"},
    };
    // clang-format on
    for (const ConversionRow& row : Rows) {
        const bool inches = row.start.cpUnit == 1;
        Open({row.start});
        Dialog().Click(inches ? IDC_CP_UNIT_INCH : IDC_CP_UNIT_MM);
        EXPECT_EQ(UnitShown(), inches);
        Dialog().Click(inches ? IDC_CP_UNIT_MM : IDC_CP_UNIT_INCH);
        EXPECT_EQ(UnitShown(), !inches);
        EXPECT_EQ(Size(), row.converted);
        Dialog().Click(inches ? IDC_CP_UNIT_INCH : IDC_CP_UNIT_MM);
        EXPECT_EQ(Size(), row.back);
    }
}

TEST_F(CustomPaperDialog, ShowsTheNumbersOfTheOtherUnit)
{
    Open({Mm(2100, 2970)});
    Dialog().Click(IDC_CP_UNIT_INCH);
    EXPECT_THAT(Numbers(1), ElementsAre(u"8", u"4", u"11", u"11"));
    Dialog().Type(IDC_CP_WIDTH_SIXTEENTHS, u"5").Click(IDC_CP_UNIT_MM);
    EXPECT_THAT(Numbers(0), ElementsAre(u"211", u"297"));
    Dialog().Click(IDOK);
    EXPECT_EQ(Stored()[0].cpWidth, 2110);
    EXPECT_EQ(Stored()[0].cpWidthSixteenths, 0);
}

TEST_F(CustomPaperDialog, StopsAtFiftySizes)
{
    Open(Many(49));
    Dialog().Click(IDC_CP_NEW);
    EXPECT_FALSE(Dialog().Enabled(IDC_CP_NEW));
    EXPECT_EQ(FocusNow(), Dialog().Handle(IDC_CP_DELETE));
    Dialog().Type(IDC_CP_NAME, u"Last");
    EXPECT_FALSE(Dialog().Enabled(IDC_CP_NEW));
    Dialog().Send(WM_COMMAND, IDC_CP_NEW, 0);
    EXPECT_EQ(Listed().size(), 50u);
    Dialog().Click(IDC_CP_DELETE);
    EXPECT_TRUE(Dialog().Enabled(IDC_CP_NEW));
    Dialog().Click(IDC_CP_NEW).Click(IDOK);
    EXPECT_EQ(result_, 50);
    ASSERT_EQ(Stored().size(), 50u);
    EXPECT_EQ(Stored()[49].cpCode, 306);
    Again();
    EXPECT_FALSE(Dialog().Enabled(IDC_CP_NEW));
}

struct NameRow {
    std::u16string typed;
    bool good;
};

TEST_F(CustomPaperDialog, WaitsForAGoodName)
{
    for (const NameRow& row : {
             NameRow{u"Form",   false},
             NameRow{u"",       false},
             NameRow{u"form",   true },
             NameRow{u"Poster", true },
             NameRow{u"Forms",  true }
    }) {
        Open(Three);
        Dialog().Row(IDC_CP_LIST, 2).Type(IDC_CP_NAME, row.typed);
        EXPECT_EQ(Listed()[2][0], row.typed);
        EXPECT_EQ(Usable(), row.good ? "NDlnuOCH" : "nCH") << platform::ToUtf8(row.typed);
        if (row.good) continue;
        EXPECT_FALSE(Dialog().Enabled(IDC_CP_WIDTH_MM));
        EXPECT_EQ(Dialog().Try([](HWND page) { return platform::user::Press(page, Key::Enter); }),
                  platform::user::Outcome::Disabled);
        Dialog().Append(IDC_CP_NAME, u"x");
        EXPECT_EQ(Usable(), "NDlnuOCH");
        Dialog().Click(IDOK);
        EXPECT_EQ(StoredNames().back(), row.typed + u"x");
    }
}

TEST_F(CustomPaperDialog, DoesNotTakeASizesOwnNameForAnothers)
{
    Open(Three);
    Dialog().Row(IDC_CP_LIST, 2).Paste(IDC_CP_NAME, u"Poster");
    EXPECT_EQ(Usable(), "NDlnuOCH");
}

TEST_F(CustomPaperDialog, KeepsTheLastGoodNameWhileTheTypedOneIsTaken)
{
    Open(Three);
    Dialog().Row(IDC_CP_LIST, 2).Type(IDC_CP_NAME, u"Form");
    EXPECT_EQ(std::u16string(WorkListEntryAt(2)->cpName), u"For");
    Dialog().Append(IDC_CP_NAME, u"s");
    EXPECT_EQ(std::u16string(WorkListEntryAt(2)->cpName), u"Forms");
    Dialog().Type(IDC_CP_NAME, u"1234567890123456789012");
    EXPECT_EQ(Dialog().Text(IDC_CP_NAME), u"1234567890123456789");
}

struct DeletedRow {
    int deleted, selected;
};

TEST_F(CustomPaperDialog, SelectsTheSizeBeforeADeletedOne)
{
    for (const DeletedRow& row : {
             DeletedRow{2, 1},
             DeletedRow{0, 0},
             DeletedRow{4, 3}
    }) {
        Open(Many(5));
        Dialog().Row(IDC_CP_LIST, row.deleted).Click(IDC_CP_DELETE);
        EXPECT_EQ(Dialog().SelectedRow(IDC_CP_LIST), row.selected);
        EXPECT_EQ(Dialog().Text(IDC_CP_NAME), Listed()[static_cast<std::size_t>(row.selected)][0]);
        EXPECT_EQ(Listed().size(), 4u);
    }
}

TEST_F(CustomPaperDialog, NumbersTheSizesBehindADeletedOneAnew)
{
    Open(Three);
    Dialog().Row(IDC_CP_LIST, 1).Click(IDC_CP_DELETE).Click(IDOK);
    EXPECT_EQ(result_, 1);
    ASSERT_EQ(Stored().size(), 2u);
    EXPECT_EQ(Stored()[1].cpCode, 258);
    EXPECT_EQ(StoredNames(), (std::vector<std::u16string>{u"Card", u"Poster"}));
}

TEST_F(CustomPaperDialog, IsEmptyWhenTheOnlySizeIsDeleted)
{
    Open({Three[1]}, UnitedStates);
    Dialog().Click(IDC_CP_DELETE);
    EXPECT_EQ(Usable(), "NOCH");
    EXPECT_EQ(Dialog().Text(IDC_CP_NAME), u"No Paper Selected");
    EXPECT_EQ(FocusNow(), Dialog().Handle(IDC_CP_NEW));
    EXPECT_EQ(UnitShown(), 1);
    Dialog().Click(IDC_CP_NEW);
    EXPECT_EQ(Usable(), "NDlnuOCH");
    Dialog().Click(IDC_CP_DELETE).Click(IDOK);
    EXPECT_EQ(result_, 0);
    EXPECT_EQ(CustomPaperAccepted, 1);
    EXPECT_TRUE(Stored().empty());
    EXPECT_EQ(CustomHeadRow.code, 0);
}

TEST_F(CustomPaperDialog, ChangesNothingWhenCancelled)
{
    Open(Three);
    Dialog().Type(IDC_CP_WIDTH_MM, u"200").Type(IDC_CP_NAME, u"Other").Click(IDC_CP_NEW);
    Dialog().Row(IDC_CP_LIST, 1).Click(IDC_CP_DELETE).Click(IDCANCEL);
    EXPECT_EQ(result_, 0);
    EXPECT_EQ(CustomPaperAccepted, 0);
    EXPECT_EQ(PaperBytes(Stored()), PaperBytes(Three));
    EXPECT_EQ(std::u16string(CustomHeadRow.name), u"Card");
    EXPECT_EQ(CustomHeadRow.size->psWidth, 1000);
}

TEST_F(CustomPaperDialog, EndsAsIfCancelledWhenThePrinterCannotBeWritten)
{
    Open(Three);
    Dialog().Click(IDC_CP_NEW);
    Dialog().Machine().Fail("OpenPrinterW");
    EXPECT_EQ(Dialog().Send(WM_COMMAND, IDOK, 0), FALSE);
    EXPECT_EQ(result_, 0);
    EXPECT_EQ(CustomPaperAccepted, 0);
    EXPECT_EQ(PaperBytes(Stored()), PaperBytes(Three));
}

// A store may hold anything: units that there are not, names twice or without an end, more sizes than fit.
TEST_F(CustomPaperDialog, PutsHostileSizesRight)
{
    CustomPaperEntry odd = Entry(257, std::u16string(21, u'n'), 7, -5, 30000, 77, -8);
    Open({odd, Inch(99, 200, 1, -3), Three[0], Three[0]});
    EXPECT_EQ(Listed()[0][1], u"[0 x 0 mm]");
    EXPECT_EQ(UnitShown(), 0);
    Dialog().Focus(IDC_CP_WIDTH_MM).Focus(IDC_CP_HEIGHT_MM).Focus(IDC_CP_NAME);
    EXPECT_EQ(Listed()[0][1], u"[76 x 127 mm]");
    Dialog().Row(IDC_CP_LIST, 1);
    for (const int field :
         {IDC_CP_WIDTH_INCH, IDC_CP_WIDTH_SIXTEENTHS, IDC_CP_HEIGHT_INCH, IDC_CP_HEIGHT_SIXTEENTHS, IDC_CP_NAME})
        Dialog().Focus(field);
    EXPECT_EQ(Listed()[1][1], u"[8 8/16 x 5 13/16 inch]");
    Dialog().Click(IDOK);
    EXPECT_EQ(std::u16string(Stored()[0].cpName), std::u16string(20, u'n'));
    EXPECT_EQ(Stored()[0].cpUnit, 0);

    Open(Many(60));
    EXPECT_FALSE(Dialog().Enabled(IDC_CP_NEW));
    Dialog().Click(IDC_CP_DELETE);
    EXPECT_FALSE(Dialog().Enabled(IDC_CP_NEW));
}

TEST_F(CustomPaperDialog, AnswersWithHelp)
{
    Open(Three);
    Dialog().Click(IDC_HELP).HelpOn(IDC_CP_NEW).HelpOn(IDC_CP_HEIGHT_LABEL);
    std::vector<std::tuple<int, UINT, DWORD>> seen;
    for (const HelpSeen& one : Dialog().HelpSeenSoFar()) seen.emplace_back(one.control, one.command, one.context);
    EXPECT_THAT(seen, ElementsAre(std::tuple(0, HELP_CONTEXT, 1202), std::tuple(IDC_CP_NEW, HELP_WM_HELP, 1221),
                                  std::tuple(IDC_CP_HEIGHT_LABEL, HELP_WM_HELP, 1222)));
}

TEST_F(CustomPaperDialog, AnswersCommandsAndNotices)
{
    Open(Three);
    EXPECT_EQ(Dialog().Notice(IDC_CP_NAME, EN_KILLFOCUS), TRUE);
    EXPECT_EQ(Dialog().Notice(IDC_CP_WIDTH_MM, EN_SETFOCUS), TRUE);
    EXPECT_EQ(Dialog().Notice(9999, 0), FALSE);
    NMLISTVIEW other{};
    other.hdr = {nullptr, IDC_CP_LIST, LVN_ITEMCHANGED};
    other.iItem = 17;
    other.uNewState = LVIS_SELECTED;
    EXPECT_EQ(Dialog().Send(WM_NOTIFY, IDC_CP_LIST, reinterpret_cast<LPARAM>(&other)), FALSE);
    EXPECT_EQ(Dialog().Text(IDC_CP_NAME), u"Card");
}

// Every call of every platform function fails once, over a walk through the dialog: list view and working list
// hold the same sizes, nothing is left over, and what is stored was in the list.
TEST_F(CustomPaperDialog, SurvivesEveryCallThatFails)
{
    const auto walk = [&] {
        const auto act = [&](auto action) { Dialog().Try([action](HWND page) { return action(page); }); };
        using platform::user::Control;
        const auto click = [&](int control) {
            act([=](HWND page) { return platform::user::Click(Control(page, control)); });
        };
        act([](HWND page) { return platform::user::SelectRow(Control(page, IDC_CP_LIST), 1); });
        act([](HWND page) { return platform::user::Type(Control(page, IDC_CP_WIDTH_INCH), u"9"); });
        click(IDC_CP_UNIT_MM);
        act([](HWND page) { return platform::user::Type(Control(page, IDC_CP_NAME), u"Poster"); });
        act([](HWND page) { return platform::user::Append(Control(page, IDC_CP_NAME), u"2"); });
        click(IDC_CP_NEW);
        click(IDC_HELP);
        act([](HWND page) { return platform::user::SelectRow(Control(page, IDC_CP_LIST), 0); });
        click(IDC_CP_DELETE);
        if (result_ == -2 && Dialog().Template() == IDD_CUSTOM_PAPER) {
            EXPECT_EQ(static_cast<int>(Listed().size()), WorkListCount());
        }
        for (int i = 0; i < 2 && result_ == -2; ++i) click(IDOK);
    };
    auto& faults = platform::CurrentEnvironment().faults;
    Open(Three);
    Dialog().CloseDialog();
    faults.Clear();
    faults.CountCalls(true);
    Again();
    walk();
    EXPECT_EQ(StoredNames(), (std::vector<std::u16string>{u"Poster2", u"Poster", u"New Paper0"}));
    const auto calls = faults.Calls();
    const auto places = testing_support::FailingPlaces({calls.begin(), calls.end()}, 20);
    EXPECT_GT(places.size(), 50u);
    for (const auto& [function, call] : places) {
        SCOPED_TRACE(function + " " + std::to_string(call));
        Store(Dialog().Machine(), Three);
        faults.Clear();
        faults.Add(function, call, false);
        Again();
        walk();
        faults.Clear();
        if (result_ == -2) Dialog().CloseDialog();
        EXPECT_EQ(CustomPaperWorkList, nullptr);
        // What could not be loaded or shown is not there to be saved.
        const bool incomplete =
            function == "GetPrinterDataW" || function == "GlobalAlloc" || function == "LVM_INSERTITEMW";
        if (!incomplete) {
            EXPECT_GE(Stored().size(), 2u);
        }
        for (const CustomPaperEntry& entry : Stored()) EXPECT_GE(entry.cpCode, 257);
    }
}

}  // namespace
