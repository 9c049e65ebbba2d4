// The lists of papers: what they offer, and what takes the place of a paper that drops out.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "pages/paper_combo.h"
#include "platform/controls.h"
#include "tests/support/paper_sheet.h"

namespace {

using namespace testing_support;
using Codes = std::vector<LPARAM>;

constexpr SHORT Plain = 0, Transparency = 1, Envelope = 2, Postcard = 3, Thick = 4;
constexpr SHORT Auto = 7, Tray1 = 1, Tray2 = 2;

Sheet::Prepare With(SHORT source, SHORT media, SHORT paper)
{
    return [=](DriverDevMode& record) {
        record.dmDefaultSource = source;
        record.dmMediaIndex = media;
        record.dmPaperSize = paper;
        record.dmDeviceFlags = 128;
    };
}
// Of the Setup page.
Sheet::Prepare Source(SHORT code)
{
    return [code](DriverDevMode& record) { SelectedSource = record.dmDefaultSource = code; };
}
void UseMedia(SHORT media)
{
    SelectedMedia = media;
    ListFilterMode = FilterByMedia;
    RefreshPaperRows();
}

TEST(PaperLists, OfferWhatSourceAndMediaTake)
{
    const Codes all = {1, 9, 5, 7, 310, 15, 11, 214, 215, 217, 218, 219, 220, 221, 14, 222, 257, 258};
    // clang-format off
    const std::tuple<SHORT, SHORT, Codes> rows[] = {
        {Auto,  Plain,        all},
        {Auto,  Transparency, {1, 9}},
        {Auto,  Envelope,     {27, 37, 20, 28, 29, 13, 212, 213}},
        {Tray1, Postcard,     {216, 223}},
        {Tray1, Thick,        Codes(all.begin(), all.end() - 2)},
        {Auto,  5,            all},  // a media that there is not
        {Tray2, Envelope,     {1, 9, 5, 7, 310}},
    };
    // clang-format on
    for (const auto& [source, media, codes] : rows) {
        PaperSheet sheet(With(source, media, 1), FormAndCard);
        EXPECT_EQ(sheet.ItemData(IDC_DOCUMENT_SIZE), codes) << source << " " << media;
        EXPECT_EQ(sheet.Enabled(IDC_EDIT_CUSTOM), source != Tray2);
    }
}

TEST(PaperLists, NameEveryPaper)
{
    PaperSheet sheet({}, {Entry(257, u"Form", 0, 2100, 2970), Entry(258, u"Card", 1, 800, 1100, 8),
                          Entry(259, u"", 1, 300, 500, 1, 15), Entry(260, u"Odd", 7, 5, 6),
                          Entry(261, u"ABCDEFGHIJKLMNOPQRSTU", 0, 2160, 3560)});
    auto items = sheet.Items(IDC_DOCUMENT_SIZE);
    EXPECT_EQ(items.at(0), u"Letter (8.5 x 11 inch)");
    items.erase(items.begin(), items.begin() + 15);
    EXPECT_THAT(items, testing::ElementsAre(u"16K (195 x 270 mm)", u"Form (210.0x297.0 mm)", u"Card (8.50x11.00 inch)",
                                            u" (3.06x5.94 inch)", u"Odd (0.00x0.00 inch)",
                                            u"ABCDEFGHIJKLMNOPQRSTU (216.0x356.0 mm)"));
}

TEST(PaperLists, FindThePaperOfTheRecord)
{
    // Country, code, its place in the list and among the rows, length and width of the record once the page is up.
    for (const auto& [country, code, selection, row, length, width] : {
             std::tuple{UnitedStates, SHORT{222}, 15, 24, 3188, 2303},
             {Germany,      SHORT{258}, 17, 27, 3300, 2550},
 // No row has these: the list shows the country's paper, the size is that of the row that was in use.
             {UnitedStates, SHORT{256}, 0,  0,  3300, 2550},
             {Germany,      SHORT{259}, 1,  0,  3300, 2550},
    }) {
        PaperSheet sheet(With(Auto, Plain, code), FormAndCard, country);
        EXPECT_EQ(sheet.Selection(IDC_DOCUMENT_SIZE), selection) << code;
        EXPECT_EQ(SelectedPaperRow, row) << code;
        const DriverDevMode record = sheet.Settings();
        EXPECT_EQ(record.dmPaperSize, code);
        EXPECT_EQ(record.dmPaperLengthPriv, length) << code;
        EXPECT_EQ(record.dmPaperWidth, width) << code;
    }
}

TEST(PaperLists, GiveARecordWithoutAPaperThatOfTheCountry)
{
    EXPECT_EQ(PaperSheet(With(Auto, Plain, 0), {}, Germany).Settings().dmPaperSize, 9);
    EXPECT_EQ(PaperSheet(With(Auto, Plain, 0)).Settings().dmPaperSize, 1);
}

TEST(PaperLists, ReplaceAPaperThatTheMediaDoesNotTake)
{
    // Country, media, code and row of the paper, whether the media changes; code, row and selection then.
    // clang-format off
    const std::tuple<int, SHORT, SHORT, int, int, SHORT, int, int> rows[] = {
        // A custom size leaves the record.
        {UnitedStates, Transparency, 257, 26, 0, 1,   0,  0},
        {Germany,      Transparency, 257, 26, 0, 9,   1,  1},
        {Germany,      Transparency, 257, 26, 1, 1,   0,  1},
        {Germany,      Envelope,     257, 26, 0, 37,  8,  1},
        {Germany,      Envelope,     257, 26, 1, 27,  7,  1},
        {Germany,      Postcard,     257, 26, 0, 223, 25, 1},
        {Germany,      Postcard,     257, 26, 1, 216, 17, 0},
        // A row of a size that was deleted is one that is not on offer.
        {Germany,      Plain,        259, 28, 0, 9,   1,  1},
        // A built-in paper stays there.
        {UnitedStates, Transparency, 5,   2,  0, 5,   0,  0},
        {Germany,      Envelope,     9,   1,  1, 9,   7,  1},
        {Germany,      Thick,        27,  7,  1, 27,  1,  1},
        // What is on offer stays.
        {Germany,      Envelope,     28,  10, 1, 28,  10, 3},
    };
    // clang-format on
    for (const auto& [country, media, code, row, changing, codeAfter, rowAfter, selection] : rows) {
        PaperSheet sheet({}, FormAndCard, country);
        sheet.Try([&, media = media, code = code, row = row, changing = changing](HWND page) {
            UseMedia(media);
            MediaChanging = changing;
            // Whatever paper and row they are.
            PaperChoice = {code, 1, 1};
            SetOption(PaperOption, PaperChoice);
            SelectedPaperRow = row;
            FillPaperCombo(page, IDC_DOCUMENT_SIZE);
            return user::Outcome::Done;
        });
        const DriverDevMode record = sheet.Settings();
        EXPECT_EQ(record.dmPaperSize, codeAfter) << country << " media " << media << " paper " << code;
        EXPECT_EQ(SelectedPaperRow, rowAfter) << country << " media " << media << " paper " << code;
        EXPECT_EQ(sheet.Selection(IDC_DOCUMENT_SIZE), selection);
        EXPECT_EQ(record.dmPaperLength == 1, codeAfter == code);
    }
}

TEST(PaperLists, BringABuiltInPaperBackWithItsSource)
{
    PaperSheet sheet(With(Tray1, Plain, 11));
    sheet.ChangeElsewhere(Source(Tray2));
    EXPECT_EQ(sheet.Selection(IDC_DOCUMENT_SIZE), 0);
    EXPECT_EQ(sheet.Settings().dmPaperSize, 11);
    EXPECT_EQ(sheet.Settings().dmPaperLength, 3300) << "the size is already that of the row that took over";
    sheet.ChangeElsewhere(Source(Tray1));
    EXPECT_EQ(sheet.Text(IDC_DOCUMENT_SIZE), u"A5 (148 x 210 mm)");
    EXPECT_EQ(sheet.Settings().dmPaperLength, 2480);
}

TEST(PaperLists, TakeComingToTheFrontForAChangeOfMedia)
{
    PaperSheet sheet(With(Auto, Plain, 257), FormAndCard, Germany);
    sheet.ChangeElsewhere([](DriverDevMode&) { SelectedMedia = Transparency; });
    EXPECT_EQ(sheet.Settings().dmPaperSize, 1);
    EXPECT_EQ(MediaChanging, 1) << "for the Setup page to clear";
}

TEST(PaperLists, SelectTheOutputPaperOrThatOfTheCountry)
{
    for (const auto& [country, fields, selection] : {
             std::tuple{UnitedStates, "dmOutputPaper=0",                                       0},
             {Germany,      "dmOutputPaper=0",                                       1},
             {UnitedStates, "dmOutputPaper=222 dmDefaultSource=2 dmDeviceFlags=128", 0},
             {Germany,      "dmOutputPaper=27",                                      1},
    })
        EXPECT_EQ(PaperSheet(Fields(fields), {}, country).Selection(IDC_OUTPUT_SIZE), selection) << fields;
}

}  // namespace
