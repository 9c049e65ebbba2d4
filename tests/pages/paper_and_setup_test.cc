// The Setup and the Paper page together: each keeps to what the other has chosen.
#include <gtest/gtest.h>

#include "tests/support/paper_sheet.h"

namespace {

using namespace testing_support;

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
void TwoProofs(PaperSheet& sheet) { sheet.Type(IDC_COPIES, u"2").Click(IDC_COLLATED).Click(IDC_PROOF_PRINT); }

// What the user does on one page, and what both show afterwards.
TEST(BothPages, KeepInTune)
{
    struct Both {
        const char* name;
        void (*onPaper)(PaperSheet& sheet);
        void (*onSetup)(PaperSheet& sheet);
        const char *fit, *copies;
        bool nup;            // can be chosen on the Setup page, afterwards
        std::size_t duplex;  // rows of its list
    };
    const Both cases[] = {
        {"booklet",        Nothing,   Booklet, "-fos 100 | 0 100", "n 1 ru p- | 1 0 0", false, 5},
        {"scaled duplex",  Scaled,    Duplex,  "-foS 150 | 1 150", "N 1 ru p- | 1 0 0", false, 3},
        {"fitted",         Fitted,    Nothing, "xFOs 100 | 2 100", "N 1 ru p- | 1 0 0", false, 3},
        {"copies N-up",    TwoCopies, Nup,     "-fos 100 | 0 100", "N 2 Ru p- | 2 0 0", true,  3},
        {"proofs",         TwoProofs, Nothing, "-FoS 100 | 0 100", "N 2 Rc Px | 2 1 1", true,  5},
 // Duplex takes collation away, and with it the booklets from the list.
        {"proofs duplex",  TwoProofs, Duplex,  "-FoS 100 | 0 100", "N 2 ru p- | 2 0 0", true,  3},
        {"proofs booklet", TwoProofs, Booklet, "-fos 100 | 0 100", "n 1 ru p- | 1 0 0", false, 5},
    };
    for (const Both& both : cases) {
        SCOPED_TRACE(both.name);
        PaperSheet sheet;
        both.onPaper(sheet);
        sheet.Page(u"Setup");
        both.onSetup(sheet);
        sheet.Page(u"Paper");
        EXPECT_EQ(sheet.Fit(), both.fit);
        EXPECT_EQ(sheet.Copies(), both.copies);
        sheet.Page(u"Setup");
        EXPECT_EQ(sheet.Enabled(IDC_NUP), both.nup);
        EXPECT_EQ(sheet.Items(IDC_DUPLEX).size(), both.duplex);
    }
}

TEST(BothPages, ABookletTakesTheImageShift)
{
    PaperSheet sheet;
    sheet.Click(IDC_SHIFT_ON).Type(IDC_SHIFT_X, u"5").Page(u"Setup");
    Booklet(sheet);
    EXPECT_EQ(sheet.Settings().dmImageShiftX, 0);
    EXPECT_EQ(sheet.Settings().dmImageShiftOn, 1);
}

TEST(BothPages, AMediaBringsItsPaper)
{
    struct MediaCase {
        int media;
        SHORT code;
        std::size_t papers;
    };
    for (const MediaCase& one : {
             MediaCase{0, 9,   18},
             MediaCase{1, 9,   2 },
             MediaCase{2, 27,  8 },
             MediaCase{3, 216, 2 },
             MediaCase{4, 9,   16}
    }) {
        PaperSheet sheet(Fields("dmPaperSize=258"), FormAndCard, Germany);
        sheet.Page(u"Setup").Choose(IDC_MEDIA_TYPE, one.media).Page(u"Paper");
        EXPECT_EQ(sheet.Settings().dmPaperSize, one.code) << one.media;
        EXPECT_EQ(sheet.Code(IDC_DOCUMENT_SIZE), one.code) << one.media;
        EXPECT_EQ(sheet.Items(IDC_DOCUMENT_SIZE).size(), one.papers) << one.media;
    }
}

TEST(BothPages, TheSecondTrayIsOfferedForItsPapersAlone)
{
    for (const auto& [paper, offered] : {
             std::pair{u"B5 (JIS) (182 x 257 mm)",    true },
             {u"Statement (5.5 x 8.5 inch)", false},
             {u"Form (210.0x297.0 mm)",      false}
    }) {
        PaperSheet sheet(Fields("dmDeviceFlags=128"), FormAndCard);
        sheet.Choose(IDC_DOCUMENT_SIZE, paper).Page(u"Setup");
        EXPECT_EQ(sheet.Items(IDC_PAPER_SOURCE).size(), offered ? 4u : 3u);
    }
}

}  // namespace
