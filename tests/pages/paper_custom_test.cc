// Editing the custom sizes from the Paper page: what comes back from the dialog.
#include <gtest/gtest.h>

#include "tests/support/paper_sheet.h"

namespace {

using namespace testing_support;

// How the list ends.
std::string Paper(PaperSheet& sheet)
{
    const DriverDevMode record = sheet.Settings();
    return sheet.Shown(IDC_DOCUMENT_SIZE) + " | " + std::to_string(record.dmPaperSize) + " " +
           std::to_string(record.dmPaperWidth) + "x" + std::to_string(record.dmPaperLength) + " of " +
           std::to_string(sheet.Items(IDC_DOCUMENT_SIZE).size());
}

// Ways to use the dialog.
void MakeOne(PaperSheet& sheet) { sheet.Click(IDC_CP_NEW).Click(IDOK); }
void DeleteAll(PaperSheet& sheet) { sheet.Click(IDC_CP_DELETE).Click(IDC_CP_DELETE).Click(IDOK); }
void PickSecond(PaperSheet& sheet) { sheet.Row(IDC_CP_LIST, 1).Click(IDOK); }
void DeleteFirst(PaperSheet& sheet) { sheet.Row(IDC_CP_LIST, 0).Click(IDC_CP_DELETE).Click(IDOK); }
void Widen(PaperSheet& sheet) { sheet.Type(IDC_CP_WIDTH_MM, u"216").Click(IDOK); }
void GiveUp(PaperSheet& sheet) { sheet.Click(IDC_CP_NEW).Click(IDCANCEL); }
void FailToSave(PaperSheet& sheet)
{
    sheet.Click(IDC_CP_DELETE);
    sheet.Machine().Fail("OpenPrinterW");
    sheet.Click(IDOK);
    platform::CurrentEnvironment().faults.Clear();
}

TEST(PaperCustom, TheSizeThatWasSelectedBecomesThePaper)
{
    const std::vector<CustomPaperEntry> none;
    struct EditCase {
        const char* name;
        int country;
        SHORT media, code;
        std::vector<CustomPaperEntry> stored;
        void (*edit)(PaperSheet& sheet);
        const char* line;
    };
    // Custom sizes are for plain paper alone: another media brings a paper of its own.
    // clang-format off
    const EditCase cases[] = {
        {"first",            Germany,      0, 9,   none,        MakeOne,     "New Paper0 (210.0x297.0 mm) | 257 2480x3507 of 17"},
        {"first in inches",  UnitedStates, 0, 1,   none,        MakeOne,     "New Paper0 (8.50x11.00 inch) | 257 2550x3300 of 17"},
        {"another choice",   Germany,      0, 257, FormAndCard, PickSecond,  "Card (8.50x11.00 inch) | 258 2550x3300 of 18"},
        {"another size",     Germany,      0, 257, FormAndCard, Widen,       "Form (216.0x297.0 mm) | 257 2551x3507 of 18"},
        {"moved up",         Germany,      0, 258, FormAndCard, DeleteFirst, "Card (8.50x11.00 inch) | 257 2550x3300 of 17"},
        {"none left",        Germany,      0, 258, FormAndCard, DeleteAll,   "A4 (210 x 297 mm) | 9 2480x3507 of 16"},
        {"cancelled",        Germany,      0, 11,  FormAndCard, GiveUp,      "A5 (148 x 210 mm) | 11 1748x2480 of 18"},
        {"not saved",        Germany,      0, 11,  FormAndCard, FailToSave,  "A5 (148 x 210 mm) | 11 1748x2480 of 18"},
        {"envelope",         Germany,      2, 28,  FormAndCard, PickSecond,  "Envelope DL (110 x 220 mm) | 27 1299x2598 of 8"},
        {"thick paper",      UnitedStates, 4, 11,  FormAndCard, MakeOne,     "Letter (8.5 x 11 inch) | 1 2550x3300 of 16"},
    };
    // clang-format on
    for (const EditCase& one : cases) {
        SCOPED_TRACE(one.name);
        PaperSheet sheet(
            [&](DriverDevMode& record) {
                record.dmMediaIndex = one.media;
                record.dmPaperSize = one.code;
            },
            one.stored, one.country);
        const int before = sheet.Changes();
        sheet.Click(IDC_EDIT_CUSTOM);
        EXPECT_EQ(sheet.Template(), IDD_CUSTOM_PAPER);
        one.edit(sheet);
        EXPECT_EQ(sheet.Template(), IDD_PAPER);
        EXPECT_EQ(Paper(sheet), one.line);
        EXPECT_EQ(sheet.Changes(), before + 1);
        EXPECT_EQ(Paper(sheet.GoAwayAndComeBack()), one.line);
    }
}

TEST(PaperCustom, ADialogThatCannotBeShownChangesNothing)
{
    PaperSheet sheet(Fields("dmPaperSize=5"), FormAndCard);
    sheet.Click(IDC_EDIT_CUSTOM).Row(IDC_CP_LIST, 1).Click(IDOK);
    sheet.Choose(IDC_DOCUMENT_SIZE, u"Legal (8.5 x 14 inch)");
    sheet.Machine().Fail("DialogBoxParamW");
    sheet.Click(IDC_EDIT_CUSTOM);
    EXPECT_EQ(Paper(sheet), "Legal (8.5 x 14 inch) | 5 2550x4200 of 18");
}

}  // namespace
