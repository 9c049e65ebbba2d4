// Editing the custom sizes from the Paper page: what comes back from the dialog.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/paper_sheet.h"

namespace {

using namespace testing_support;

const std::vector<CustomPaperEntry> Forms = {Entry(257, u"Form", 0, 2100, 2970), Entry(258, u"Card", 1, 800, 1100, 8)};

// How the list ends.
std::string Shown(PaperSheet& sheet)
{
    const DriverDevMode record = sheet.Settings();
    return sheet.Shown(IDC_DOCUMENT_SIZE) + " | " + std::to_string(record.dmPaperSize) + " " +
           std::to_string(record.dmPaperWidth) + "x" + std::to_string(record.dmPaperLength) + " of " +
           std::to_string(sheet.Items(IDC_DOCUMENT_SIZE).size());
}

struct EditCase {
    const char* name;
    int country;
    SHORT media, code;
    bool stored;
    std::function<void(PaperSheet&)> edit;  // in the dialog
    const char* line;
};

void Accept(PaperSheet& sheet) { sheet.Click(IDOK); }
void MakeOne(PaperSheet& sheet)
{
    sheet.Click(IDC_CP_NEW);
    Accept(sheet);
}
void DeleteAll(PaperSheet& sheet)
{
    sheet.Click(IDC_CP_DELETE).Click(IDC_CP_DELETE);
    Accept(sheet);
}
void PickSecond(PaperSheet& sheet)
{
    sheet.Row(IDC_CP_LIST, 1);
    Accept(sheet);
}
void DeleteFirst(PaperSheet& sheet)
{
    sheet.Row(IDC_CP_LIST, 0).Click(IDC_CP_DELETE);
    Accept(sheet);
}
void Widen(PaperSheet& sheet)
{
    sheet.Type(IDC_CP_WIDTH_MM, u"216");
    Accept(sheet);
}
void GiveUp(PaperSheet& sheet) { sheet.Click(IDC_CP_NEW).Click(IDCANCEL); }
void CloseIt(PaperSheet& sheet) { sheet.Click(IDC_CP_NEW).CloseDialog(); }

class EditCustom : public testing::TestWithParam<EditCase> {};
INSTANTIATE_TEST_SUITE_P(
    PaperPage, EditCustom,
    testing::Values(
        EditCase{"TheFirst", Germany, 0, 9, false, MakeOne, "New Paper0 (210.0x297.0 mm) | 257 2480x3507 of 17"},
        EditCase{"TheFirstInInches", UnitedStates, 0, 1, false, MakeOne,
                 "New Paper0 (8.50x11.00 inch) | 257 2550x3300 of 17"},
        EditCase{"AThird", Germany, 0, 9, true, MakeOne, "New Paper0 (210.0x297.0 mm) | 259 2480x3507 of 19"},
        EditCase{"AnotherChoice", Germany, 0, 257, true, PickSecond, "Card (8.50x11.00 inch) | 258 2550x3300 of 18"},
        EditCase{"TheSameChoice", Germany, 0, 258, true, Accept, "Card (8.50x11.00 inch) | 258 2550x3300 of 18"},
        EditCase{"AnotherSize", Germany, 0, 257, true, Widen, "Form (216.0x297.0 mm) | 257 2551x3507 of 18"},
        EditCase{"OneMovedUp", Germany, 0, 258, true, DeleteFirst, "Card (8.50x11.00 inch) | 257 2550x3300 of 17"},
        EditCase{"NoneLeft", Germany, 0, 258, true, DeleteAll, "A4 (210 x 297 mm) | 9 2480x3507 of 16"},
        EditCase{"NoneLeftInAmerica", UnitedStates, 0, 258, true, DeleteAll,
                 "Letter (8.5 x 11 inch) | 1 2550x3300 of 16"},
        EditCase{"Cancelled", Germany, 0, 11, true, GiveUp, "A5 (148 x 210 mm) | 11 1748x2480 of 18"},
        EditCase{"Closed", Germany, 0, 257, true, CloseIt, "Form (210.0x297.0 mm) | 257 2480x3507 of 18"},
        // Custom sizes are for plain paper alone.
        EditCase{"OnTransparencies", Germany, 1, 1, true, PickSecond, "A4 (210 x 297 mm) | 9 2480x3507 of 2"},
        EditCase{"OnEnvelopes", Germany, 2, 28, true, PickSecond, "Envelope DL (110 x 220 mm) | 27 1299x2598 of 8"},
        EditCase{"OnPostcards", Germany, 3, 223, true, PickSecond,
                 "Japanese Postcard (100 x 148 mm) | 216 1181x1748 of 2"},
        EditCase{"OnThickPaper", UnitedStates, 4, 11, true, MakeOne, "Letter (8.5 x 11 inch) | 1 2550x3300 of 16"},
        EditCase{"NoneLeftOnEnvelopes", Germany, 2, 28, true, DeleteAll,
                 "Envelope DL (110 x 220 mm) | 27 1299x2598 of 8"}),
    [](const auto& test) { return test.param.name; });

TEST_P(EditCustom, GivesThePaper)
{
    const EditCase& one = GetParam();
    PaperSheet sheet(
        [&](DriverDevMode& record) {
            record.dmMediaIndex = one.media;
            record.dmPaperSize = one.code;
        },
        one.stored ? Forms : std::vector<CustomPaperEntry>{}, one.country);
    const int before = sheet.Changes();
    sheet.Click(IDC_EDIT_CUSTOM);
    EXPECT_EQ(sheet.Template(), IDD_CUSTOM_PAPER);
    one.edit(sheet);
    EXPECT_EQ(sheet.Template(), IDD_PAPER);
    EXPECT_EQ(Shown(sheet), one.line);
    EXPECT_EQ(sheet.Changes(), before + 1);
    EXPECT_EQ(Shown(sheet.GoAwayAndComeBack()), one.line);
}

TEST(PaperPageEditCustom, GivesABookletItsPaper)
{
    PaperSheet sheet([](DriverDevMode& record) { record.dmBookletPaper = 1; }, Forms);
    sheet.Click(IDC_EDIT_CUSTOM).Row(IDC_CP_LIST, 1).Click(IDOK);
    EXPECT_EQ(sheet.Settings().dmBookletPaper, 258);
}

TEST(PaperPageEditCustom, ChangesNothingIfTheDialogCannotBeShown)
{
    PaperSheet sheet([](DriverDevMode& record) { record.dmPaperSize = 5; }, Forms);
    sheet.Click(IDC_EDIT_CUSTOM).Row(IDC_CP_LIST, 1).Click(IDOK);
    sheet.Choose(IDC_DOCUMENT_SIZE, u"Legal (8.5 x 14 inch)");
    sheet.Machine().Fail("DialogBoxParamW");
    sheet.Click(IDC_EDIT_CUSTOM);
    EXPECT_EQ(Shown(sheet), "Legal (8.5 x 14 inch) | 5 2550x4200 of 18");
}

TEST(PaperPageEditCustom, ChangesNothingIfThePrinterCannotBeWritten)
{
    PaperSheet sheet({}, Forms);
    sheet.Click(IDC_EDIT_CUSTOM).Row(IDC_CP_LIST, 1).Click(IDC_CP_DELETE);
    sheet.Machine().Fail("OpenPrinterW");
    sheet.Click(IDOK);
    EXPECT_EQ(Shown(sheet), "Letter (8.5 x 11 inch) | 1 2550x3300 of 18");
}

TEST(PaperPageEditCustom, ShowsItsChoiceInTheNextSheetToo)
{
    DriverDevMode record{};
    const auto stored = std::make_shared<platform::MemoryStore>();
    {
        PaperSheet sheet;
        sheet.Click(IDC_EDIT_CUSTOM).Click(IDC_CP_NEW).Type(IDC_CP_WIDTH_INCH, u"5").Click(IDOK);
        record = sheet.Ok();
        for (const auto& [name, value] : sheet.Machine().store->Values(TestPrinter)) {
            stored->Add({TestPrinter, TestPrinter});
            stored->SetValue(TestPrinter, name, value);
        }
    }
    EXPECT_EQ(record.dmPaperSize, 257);
    EXPECT_EQ(record.dmPaperWidth, 1650);
    Sheet next(
        [&](DriverDevMode& settings) {
            settings = record;
            StandInForSetup(settings);
        },
        [&](TestMachine& machine) {
            for (const auto& [name, value] : stored->Values(TestPrinter))
                machine.store->SetValue(TestPrinter, name, value);
        });
    next.Page(u"Paper");
    EXPECT_EQ(next.Text(IDC_DOCUMENT_SIZE), u"New Paper0 (5.50x11.00 inch)");
}

}  // namespace
