// The Setup and the Paper page together: each keeps to what the other has chosen.
#include <gtest/gtest.h>

#include "tests/support/paper_sheet.h"

namespace {

using namespace testing_support;

const std::vector<CustomPaperEntry> Forms = {Entry(257, u"Form", 0, 2100, 2970), Entry(258, u"Card", 1, 800, 1100, 8)};

long Data(PaperSheet& sheet, int list)
{
    const int selection = sheet.Selection(list);
    return selection < 0 ? -1 : static_cast<long>(sheet.ItemData(list).at(static_cast<std::size_t>(selection)));
}

// What the user does on one page, and what both show afterwards.
struct Both {
    const char* name;
    std::function<void(PaperSheet&)> onPaper, onSetup;
    const char *fit, *copies;
    bool nup;    // can be chosen on the Setup page, afterwards
    int duplex;  // rows of its list
};
void Nothing(PaperSheet&) {}
void Nup(PaperSheet& sheet) { sheet.Choose(IDC_NUP, u"4-up"); }
void Duplex(PaperSheet& sheet) { sheet.Choose(IDC_PAPER_SOURCE, u"Tray1").Choose(IDC_DUPLEX, u"Long Edge Binding"); }
void Booklet(PaperSheet& sheet)
{
    sheet.Choose(IDC_PAPER_SOURCE, u"Tray1").Choose(IDC_DUPLEX, u"Booklet Left Binding");
}
void Scaled(PaperSheet& sheet) { sheet.Type(IDC_SCALING, u"150"); }
void Fitted(PaperSheet& sheet) { sheet.Click(IDC_FIT_TO_PAPER); }
void TwoCopies(PaperSheet& sheet) { sheet.Type(IDC_COPIES, u"2"); }
void TwoCollated(PaperSheet& sheet)
{
    TwoCopies(sheet);
    sheet.Click(IDC_COLLATED).Click(IDC_PROOF_PRINT);
}

class BothPages : public testing::TestWithParam<Both> {};
INSTANTIATE_TEST_SUITE_P(
    Pages, BothPages,
    testing::Values(Both{"Nothing", Nothing, Nothing, "-FoS 100 | 0 100", "N 1 ru p- | 1 0 0", true, 5},
                    Both{"Nup", Nothing, Nup, "-fos 100 | 0 100", "N 1 ru p- | 1 0 0", true, 5},
                    Both{"Duplex", Nothing, Duplex, "-FoS 100 | 0 100", "N 1 ru p- | 1 0 0", true, 5},
                    Both{"Booklet", Nothing, Booklet, "-fos 100 | 0 100", "n 1 ru p- | 1 0 0", false, 5},
                    Both{"Scaled", Scaled, Nothing, "-foS 150 | 1 150", "N 1 ru p- | 1 0 0", false, 3},
                    Both{"ScaledDuplex", Scaled, Duplex, "-foS 150 | 1 150", "N 1 ru p- | 1 0 0", false, 3},
                    Both{"Fitted", Fitted, Nothing, "xFOs 100 | 2 100", "N 1 ru p- | 1 0 0", false, 3},
                    Both{"TwoCopies", TwoCopies, Nothing, "-FoS 100 | 0 100", "N 2 Ru p- | 2 0 0", true, 3},
                    Both{"TwoCopiesNup", TwoCopies, Nup, "-fos 100 | 0 100", "N 2 Ru p- | 2 0 0", true, 3},
                    Both{"TwoCollated", TwoCollated, Nothing, "-FoS 100 | 0 100", "N 2 Rc Px | 2 1 1", true, 5},
                    // Duplex takes collation away, and with it the booklets from the list.
                    Both{"TwoCollatedDuplex", TwoCollated, Duplex, "-FoS 100 | 0 100", "N 2 ru p- | 2 0 0", true, 3},
                    Both{"TwoCollatedBooklet", TwoCollated, Booklet, "-fos 100 | 0 100", "n 1 ru p- | 1 0 0", false,
                         5}),
    [](const auto& test) { return test.param.name; });

TEST_P(BothPages, KeepInTune)
{
    const Both& both = GetParam();
    PaperSheet sheet;
    both.onPaper(sheet);
    sheet.Page(u"Setup");
    both.onSetup(sheet);
    sheet.Page(u"Paper");
    EXPECT_EQ(sheet.Fit(), both.fit);
    EXPECT_EQ(sheet.Copies(), both.copies);
    sheet.Page(u"Setup");
    EXPECT_EQ(sheet.Enabled(IDC_NUP), both.nup);
    EXPECT_EQ(sheet.Items(IDC_DUPLEX).size(), static_cast<std::size_t>(both.duplex));
}

TEST(BothPages, ABookletTakesTheImageShift)
{
    PaperSheet sheet;
    sheet.Click(IDC_SHIFT_ON).Type(IDC_SHIFT_X, u"5").Page(u"Setup");
    Booklet(sheet);
    EXPECT_EQ(sheet.Settings().dmImageShiftX, 0);
    EXPECT_EQ(sheet.Settings().dmImageShiftOn, 1);
}

struct MediaCase {
    int media;
    SHORT code;
    std::size_t papers;
};

TEST(BothPages, AMediaBringsItsPaper)
{
    const MediaCase cases[] = {
        {0, 9,   18},
        {1, 9,   2 },
        {2, 27,  8 },
        {3, 216, 2 },
        {4, 9,   16}
    };
    for (const MediaCase& one : cases) {
        PaperSheet sheet([](DriverDevMode& record) { record.dmPaperSize = 258; }, Forms, Germany);
        sheet.Page(u"Setup").Choose(IDC_MEDIA_TYPE, one.media).Page(u"Paper");
        EXPECT_EQ(sheet.Settings().dmPaperSize, one.code) << one.media;
        EXPECT_EQ(Data(sheet, IDC_DOCUMENT_SIZE), one.code) << one.media;
        EXPECT_EQ(sheet.Items(IDC_DOCUMENT_SIZE).size(), one.papers) << one.media;
    }
}

TEST(BothPages, TheSecondTrayIsOfferedForItsPapersAlone)
{
    for (const auto& [paper, offered] : {
             std::pair{u"Letter (8.5 x 11 inch)", true },
             {u"A5 (148 x 210 mm)",      false},
             {u"Form (210.0x297.0 mm)",  false}
    }) {
        PaperSheet sheet([](DriverDevMode& record) { record.dmDeviceFlags = 128; }, Forms);
        sheet.Choose(IDC_DOCUMENT_SIZE, paper).Page(u"Setup");
        EXPECT_EQ(sheet.Items(IDC_PAPER_SOURCE).size(), offered ? 4u : 3u);
        if (!offered) continue;
        sheet.Choose(IDC_PAPER_SOURCE, u"Tray2").Page(u"Paper");
        EXPECT_EQ(sheet.Items(IDC_DOCUMENT_SIZE).size(), 5u);
        EXPECT_EQ(sheet.Items(IDC_OUTPUT_SIZE).size(), 5u);
        EXPECT_FALSE(sheet.Enabled(IDC_EDIT_CUSTOM));
    }
}

}  // namespace
