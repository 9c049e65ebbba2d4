// The lists of papers: what they offer, and what takes the place of a paper that drops out.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "pages/paper_combo.h"
#include "platform/controls.h"
#include "tests/support/paper_sheet.h"

namespace {

using namespace testing_support;
using testing::ElementsAre;
using Codes = std::vector<LPARAM>;

const std::vector<CustomPaperEntry> Two = {Entry(257, u"Form", 0, 2100, 2970), Entry(258, u"Card", 1, 800, 1100, 8)};

constexpr SHORT Plain = 0, Transparency = 1, Envelope = 2, Postcard = 3, Thick = 4;
constexpr SHORT Auto = 7, Tray1 = 1, Tray2 = 2, Manual = 4;

Sheet::Prepare With(SHORT source, SHORT media, SHORT paper)
{
    return [=](DriverDevMode& record) {
        record.dmDefaultSource = source;
        record.dmMediaIndex = media;
        record.dmPaperSize = paper;
        record.dmDeviceFlags = 128;
    };
}

struct OfferCase {
    const char* name;
    SHORT source, media;
    bool custom;
    Codes codes;
};

class Offer : public testing::TestWithParam<OfferCase> {};
INSTANTIATE_TEST_SUITE_P(
    PaperLists, Offer,
    testing::Values(
        OfferCase{
            "Plain",
            Auto,
            Plain,
            true,
            {1, 9, 5, 7, 310, 15, 11, 214, 215, 217, 218, 219, 220, 221, 14, 222, 257, 258}
},
        OfferCase{"PlainByHand",
                  Manual,
                  Plain,
                  true,
                  {1, 9, 5, 7, 310, 15, 11, 214, 215, 217, 218, 219, 220, 221, 14, 222, 257, 258}},
        OfferCase{"Transparency", Auto, Transparency, true, {1, 9}},
        OfferCase{"Envelope", Auto, Envelope, true, {27, 37, 20, 28, 29, 13, 212, 213}},
        OfferCase{"Postcard", Tray1, Postcard, true, {216, 223}},
        OfferCase{"Thick", Tray1, Thick, true, {1, 9, 5, 7, 310, 15, 11, 214, 215, 217, 218, 219, 220, 221, 14, 222}},
        OfferCase{"MediaThatDoesNotExist",
                  Auto,
                  5,
                  true,
                  {1, 9, 5, 7, 310, 15, 11, 214, 215, 217, 218, 219, 220, 221, 14, 222, 257, 258}},
        OfferCase{"Tray2", Tray2, Plain, false, {1, 9, 5, 7, 310}},
        OfferCase{"Tray2WithAnotherMedia", Tray2, Envelope, false, {1, 9, 5, 7, 310}}),
    [](const auto& test) { return test.param.name; });

TEST_P(Offer, FollowsSourceAndMedia)
{
    const auto& [name, source, media, custom, codes] = GetParam();
    PaperSheet sheet(With(source, media, 1), Two);
    EXPECT_EQ(sheet.ItemData(IDC_DOCUMENT_SIZE), codes);
    EXPECT_EQ(sheet.Enabled(IDC_EDIT_CUSTOM), custom);
    sheet.GoAwayAndComeBack();
    EXPECT_EQ(sheet.ItemData(IDC_DOCUMENT_SIZE), codes);
    EXPECT_EQ(sheet.Enabled(IDC_EDIT_CUSTOM), custom);
}

TEST(PaperLists, NameEveryPaper)
{
    PaperSheet sheet({}, Two);
    const auto items = sheet.Items(IDC_DOCUMENT_SIZE);
    ASSERT_EQ(items.size(), 18u);
    EXPECT_EQ(items[0], u"Letter (8.5 x 11 inch)");
    EXPECT_EQ(items[15], u"16K (195 x 270 mm)");
    EXPECT_EQ(items[16], u"Form (210.0x297.0 mm)");
    EXPECT_EQ(items[17], u"Card (8.50x11.00 inch)");
}

TEST(PaperLists, ShowTheHundredthsOfAnInchWithTwoDigits)
{
    PaperSheet sheet({}, {Entry(257, u"", 1, 300, 500, 1, 15), Entry(258, u"Odd", 7, 5, 6)});
    const auto items = sheet.Items(IDC_DOCUMENT_SIZE);
    EXPECT_EQ(items[16], u" (3.06x5.94 inch)");
    EXPECT_EQ(items[17], u"Odd (0.00x0.00 inch)") << "a unit that does not exist has no size";
}

TEST(PaperLists, TakeALongNameWhole)
{
    PaperSheet sheet({}, {Entry(257, u"ABCDEFGHIJKLMNOPQRSTU", 0, 2160, 3560)});
    EXPECT_EQ(sheet.Items(IDC_DOCUMENT_SIZE)[16], u"ABCDEFGHIJKLMNOPQRSTU (216.0x356.0 mm)");
}

TEST(PaperLists, TakeAThousandStoredSizes)
{
    PaperSheet sheet([](DriverDevMode& record) { record.dmPaperSize = 1256; },
                     std::vector<CustomPaperEntry>(1000, Entry(257, u"Form", 0, 2100, 2970)));
    EXPECT_EQ(sheet.ItemData(IDC_DOCUMENT_SIZE).size(), 1016u);
    EXPECT_EQ(sheet.Selection(IDC_DOCUMENT_SIZE), 1015);
}

struct FindCase {
    int country;
    SHORT code;
    int selection, row;
    SHORT length, width;  // of the record, once the page is up
};

TEST(PaperLists, FindThePaperOfTheRecord)
{
    const FindCase cases[] = {
        {UnitedStates, 1,   0,  0,  3300, 2550},
        {UnitedStates, 222, 15, 24, 3188, 2303},
        {UnitedStates, 257, 16, 26, 3507, 2480},
        {UnitedStates, 258, 17, 27, 3300, 2550},
        {Germany,      258, 17, 27, 3300, 2550},
 // No row has these: the list shows the country's paper, the size is that of the row that was in use.
        {UnitedStates, 259, 0,  0,  3300, 2550},
        {UnitedStates, 256, 0,  0,  3300, 2550},
        {Germany,      259, 1,  0,  3300, 2550},
        {Germany,      256, 1,  0,  3300, 2550},
    };
    for (const FindCase& one : cases) {
        PaperSheet sheet(With(Auto, Plain, one.code), Two, one.country);
        EXPECT_EQ(sheet.Selection(IDC_DOCUMENT_SIZE), one.selection) << one.code;
        EXPECT_EQ(SelectedPaperRow, one.row) << one.code;
        const DriverDevMode record = sheet.Settings();
        EXPECT_EQ(record.dmPaperSize, one.code);
        EXPECT_EQ(record.dmPaperLength, one.length) << one.code;
        EXPECT_EQ(record.dmPaperWidth, one.width) << one.code;
        EXPECT_EQ(record.dmPaperLengthPriv, one.length) << one.code;
        EXPECT_EQ(record.dmPaperWidthPriv, one.width) << one.code;
    }
}

TEST(PaperLists, GiveARecordWithoutAPaperThatOfTheCountry)
{
    for (const auto& [country, code] : {
             std::pair{UnitedStates, 1},
             {Germany,      9},
             {55,           1},
             {500,          1}
    }) {
        PaperSheet sheet(With(Auto, Plain, 0), {}, country);
        EXPECT_EQ(sheet.Settings().dmPaperSize, code) << country;
        EXPECT_EQ(sheet.ItemData(IDC_DOCUMENT_SIZE).at(static_cast<std::size_t>(sheet.Selection(IDC_DOCUMENT_SIZE))),
                  code);
    }
}

TEST(PaperLists, KeepACodeThatIsGoneUntilTheUserPicks)
{
    PaperSheet sheet(With(Auto, Plain, 259), Two);
    EXPECT_EQ(sheet.GoAwayAndComeBack().Settings().dmPaperSize, 259);
    sheet.Choose(IDC_DOCUMENT_SIZE, 16);
    EXPECT_EQ(sheet.Settings().dmPaperSize, 257);
}

// Puts a paper into the record and a row into use, whatever they are.
void Use(SHORT code, int row)
{
    PaperChoice = {code, 1, 1};
    SetOption(PaperOption, PaperChoice);
    SelectedPaperRow = row;
}

struct SubstituteCase {
    int country;
    SHORT media, code;
    int row, changing;
    SHORT codeAfter;
    int rowAfter, selection;
};

TEST(PaperLists, ReplaceAPaperThatTheMediaDoesNotTake)
{
    const SubstituteCase cases[] = {
  // A custom size leaves the record.
        {UnitedStates, Transparency, 257, 26, 0, 1,   0,  0 },
        {Germany,      Transparency, 257, 26, 0, 9,   1,  1 },
        {Germany,      Transparency, 257, 26, 1, 1,   0,  1 },
        {UnitedStates, Envelope,     258, 27, 0, 27,  7,  0 },
        {Germany,      Envelope,     257, 26, 0, 37,  8,  1 },
        {Germany,      Envelope,     257, 26, 1, 27,  7,  1 },
        {UnitedStates, Postcard,     257, 26, 0, 216, 17, 0 },
        {Germany,      Postcard,     257, 26, 0, 223, 25, 1 },
        {UnitedStates, Postcard,     257, 26, 1, 216, 17, 0 },
        {Germany,      Postcard,     257, 26, 1, 216, 17, 0 },
        {UnitedStates, Thick,        257, 26, 1, 1,   0,  0 },
        {Germany,      Thick,        257, 26, 1, 9,   1,  1 },
        {Germany,      Thick,        257, 26, 0, 9,   1,  1 },
 // A row of a size that was deleted is one that is not on offer.
        {Germany,      Plain,        259, 28, 0, 9,   1,  1 },
        {Germany,      Plain,        259, 28, 1, 9,   1,  1 },
 // A built-in paper stays there.
        {UnitedStates, Transparency, 5,   2,  0, 5,   0,  0 },
        {Germany,      Transparency, 5,   2,  0, 5,   1,  1 },
        {Germany,      Transparency, 5,   2,  1, 5,   0,  1 },
        {Germany,      Envelope,     9,   1,  0, 9,   1,  1 },
        {Germany,      Envelope,     9,   1,  1, 9,   7,  1 },
        {Germany,      Postcard,     9,   1,  1, 9,   17, 1 },
        {Germany,      Thick,        27,  7,  1, 27,  1,  1 },
        {UnitedStates, Thick,        27,  7,  1, 27,  0,  0 },
        {Germany,      Plain,        27,  7,  1, 27,  0,  1 },
 // What is on offer stays.
        {Germany,      Plain,        257, 26, 1, 257, 26, 16},
        {Germany,      Envelope,     28,  10, 1, 28,  10, 3 },
    };
    for (const SubstituteCase& one : cases) {
        PaperSheet sheet({}, Two, one.country);
        sheet.OnPage([&](HWND page) {
            SelectedMedia = one.media;
            ListFilterMode = FilterByMedia;
            MediaChanging = one.changing;
            RefreshPaperRows();
            Use(one.code, one.row);
            FillPaperCombo(page, IDC_DOCUMENT_SIZE);
        });
        const std::string which = std::to_string(one.country) + " media " + std::to_string(one.media) + " paper " +
                                  std::to_string(one.code) + " changing " + std::to_string(one.changing);
        const DriverDevMode record = sheet.Settings();
        EXPECT_EQ(record.dmPaperSize, one.codeAfter) << which;
        EXPECT_EQ(SelectedPaperRow, one.rowAfter) << which;
        EXPECT_EQ(sheet.Selection(IDC_DOCUMENT_SIZE), one.selection) << which;
        EXPECT_EQ(record.dmPaperLength == 1, one.codeAfter == one.code) << which;
    }
}

TEST(PaperLists, BringABuiltInPaperBackWithItsSource)
{
    PaperSheet sheet(With(Tray1, Plain, 11));
    const auto source = [](SHORT code) {
        return [code](DriverDevMode& record) { SelectedSource = record.dmDefaultSource = code; };
    };
    sheet.ChangeElsewhere(source(Tray2));
    EXPECT_EQ(sheet.Selection(IDC_DOCUMENT_SIZE), 0);
    EXPECT_EQ(sheet.Settings().dmPaperSize, 11);
    EXPECT_EQ(sheet.Settings().dmPaperLength, 3300) << "the size is already that of the row that took over";
    sheet.ChangeElsewhere(source(Tray1));
    EXPECT_EQ(sheet.Text(IDC_DOCUMENT_SIZE), u"A5 (148 x 210 mm)");
    EXPECT_EQ(sheet.Settings().dmPaperLength, 2480);
}

TEST(PaperLists, DropACustomSizeUnderTray2)
{
    PaperSheet sheet(With(Tray1, Plain, 257), Two, Germany);
    sheet.ChangeElsewhere([](DriverDevMode& record) { SelectedSource = record.dmDefaultSource = Tray2; });
    EXPECT_EQ(sheet.Settings().dmPaperSize, 9);
    EXPECT_EQ(sheet.Settings().dmPaperWidth, 2480);
    EXPECT_EQ(sheet.Text(IDC_DOCUMENT_SIZE), u"A4 (210 x 297 mm)");
}

TEST(PaperLists, TakeComingToTheFrontForAChangeOfMedia)
{
    PaperSheet sheet(With(Auto, Plain, 257), Two, Germany);
    sheet.ChangeElsewhere([](DriverDevMode&) { SelectedMedia = Transparency; });
    EXPECT_EQ(sheet.Settings().dmPaperSize, 1);
    EXPECT_EQ(MediaChanging, 1) << "for the Setup page to clear";
}

TEST(PaperLists, FollowTheSourceBetweenTimes)
{
    const std::function<void(PaperSheet&)> ways[] = {
        [](PaperSheet&) {},
        [](PaperSheet& sheet) { sheet.Click(IDC_DEFAULT); },
        [](PaperSheet& sheet) { sheet.Click(IDC_EDIT_CUSTOM).Click(IDOK); },
    };
    for (const auto& way : ways) {
        PaperSheet sheet(With(Auto, Plain, 1), Two);
        way(sheet);
        sheet.OnPage([](HWND) { SetOption(SourceOption, Tray2); });
        EXPECT_EQ(PaperRows[4].enabled != 0, true);
        EXPECT_EQ(PaperRows[5].enabled, 0u);
    }
}

TEST(PaperLists, FindRowsByTheirPositions)
{
    struct RowCase {
        SHORT media;
        int position, row;
    };
    const RowCase cases[] = {
        {Plain,    0,  0 },
        {Plain,    6,  6 },
        {Plain,    7,  15},
        {Plain,    9,  18},
        {Plain,    15, 24},
        {Plain,    16, 26},
        {Plain,    17, 27},
        {Plain,    18, -1},
        {Envelope, 0,  7 },
        {Envelope, 7,  14},
        {Envelope, 8,  -1},
        {Plain,    -1, -1},
    };
    PaperSheet sheet({}, Two);
    for (const RowCase& one : cases) {
        sheet.OnPage([&](HWND) {
            SelectedMedia = one.media;
            ListFilterMode = FilterByMedia;
            RefreshPaperRows();
            EXPECT_EQ(PaperRowAtPosition(one.position), one.row) << one.media << ' ' << one.position;
        });
    }
}

TEST(PaperLists, TakeNoSizeFromARowThatIsNotThere)
{
    PaperSheet sheet({}, Two);
    sheet.OnPage([&](HWND) {
        PaperChoice = {1, 11, 12};
        for (const int row : {-1, 28, 1000}) TakeRowSize(row);
        EXPECT_EQ(PaperChoice.length, 11);
        TakeRowSize(27);
        EXPECT_EQ(PaperChoice.length, 3300);
        EXPECT_EQ(PaperChoice.width, 2550);
    });
}

TEST(PaperLists, ShowNoCustomSizesThatCouldNotBeLoadedAgain)
{
    {
        const PaperSheet before({}, Two);
    }
    PaperSheet sheet(
        [](DriverDevMode& record) {
            record.dmPaperSize = 257;
            Machine::Fail("OpenPrinterW");
        },
        Two);
    EXPECT_EQ(sheet.ItemData(IDC_DOCUMENT_SIZE).size(), 16u);
    EXPECT_EQ(sheet.Selection(IDC_DOCUMENT_SIZE), 0);
}

struct OutputCase {
    SHORT source;
    Codes codes;
};

TEST(PaperLists, SendToThePapersThatTheSourceTakes)
{
    const OutputCase cases[] = {
        {Auto,   {1, 9, 5, 7, 310, 15, 11, 214, 215, 222}},
        {Manual, {1, 9, 5, 7, 310, 15, 11, 214, 215, 222}},
        {Tray2,  {1, 9, 5, 7, 310}                       },
    };
    for (const OutputCase& one : cases) {
        PaperSheet sheet(With(one.source, Plain, 1), Two);
        EXPECT_EQ(sheet.ItemData(IDC_OUTPUT_SIZE), one.codes);
        // The list is filled whatever the media.
        sheet.ChangeElsewhere([](DriverDevMode&) { SelectedMedia = Envelope; });
        EXPECT_EQ(sheet.ItemData(IDC_OUTPUT_SIZE), one.codes);
    }
}

TEST(PaperLists, SendToFewerPapersOnceTheSourceIsTheSecondTray)
{
    PaperSheet sheet(With(Auto, Plain, 1));
    sheet.ChangeElsewhere([](DriverDevMode& record) { SelectedSource = record.dmDefaultSource = Tray2; });
    EXPECT_EQ(sheet.ItemData(IDC_OUTPUT_SIZE).size(), 5u);
}

TEST(PaperLists, SelectTheOutputPaperOrThatOfTheCountry)
{
    struct SelectCase {
        int country;
        SHORT source, output;
        int selection;
    };
    const SelectCase cases[] = {
        {UnitedStates, Auto,  0,   0},
        {Germany,      Auto,  0,   1},
        {Germany,      Auto,  1,   0},
        {UnitedStates, Auto,  222, 9},
        {UnitedStates, Tray2, 222, 0},
        {Germany,      Tray2, 310, 4},
        {Germany,      Auto,  27,  1},
    };
    for (const SelectCase& one : cases) {
        PaperSheet sheet(
            [&](DriverDevMode& record) {
                With(one.source, Plain, 1)(record);
                record.dmOutputPaper = one.output;
            },
            {}, one.country);
        EXPECT_EQ(sheet.Selection(IDC_OUTPUT_SIZE), one.selection) << one.output;
        EXPECT_EQ(sheet.Settings().dmOutputPaper, one.output);
    }
}

// After the dialog of custom sizes, with its result.
struct EditedCase {
    int country;
    SHORT media;
    int stored, result, row, rows;
};

TEST(PaperLists, FollowTheEditedSizes)
{
    const EditedCase cases[] = {
        {UnitedStates, Plain,        2, 1, 26, 28},
        {Germany,      Plain,        2, 2, 27, 28},
        {Germany,      Plain,        2, 0, 25, 28},
        {UnitedStates, Plain,        0, 0, 0,  26},
        {Germany,      Plain,        0, 0, 1,  26},
        {Germany,      Transparency, 2, 1, 1,  28},
        {UnitedStates, Transparency, 2, 1, 0,  28},
        {Germany,      Envelope,     2, 1, 7,  28},
        {Germany,      Envelope,     0, 0, 7,  26},
        {Germany,      Postcard,     2, 1, 17, 28},
        {Germany,      Thick,        2, 2, 1,  28},
        {UnitedStates, Thick,        0, 0, 0,  26},
    };
    for (const EditedCase& one : cases) {
        PaperSheet sheet({}, one.stored ? Two : std::vector<CustomPaperEntry>{}, one.country);
        sheet.OnPage([&](HWND) {
            SelectedMedia = one.media;
            PaperRowCount = 0;
            AfterCustomPaperEdit(one.result);
            EXPECT_EQ(SelectedPaperRow, one.row) << one.country << ' ' << one.media << ' ' << one.result;
            EXPECT_EQ(PaperRowCount, one.rows);
        });
    }
}

}  // namespace
