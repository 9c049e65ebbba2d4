// The Setup and the Paper page together: each keeps to what the other has chosen, and what the Paper page shows is
// what the record holds.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "platform/user/window.h"
#include "tests/support/paper_sheet.h"

namespace {

using namespace testing_support;
namespace user = platform::user;
using testing::IsEmpty;

const std::vector<CustomPaperEntry> Forms = {Entry(257, u"Form", 0, 2100, 2970), Entry(258, u"Card", 1, 800, 1100, 8)};

constexpr int SetupLists[] = {IDC_NUP, IDC_DUPLEX, IDC_PAPER_SOURCE, IDC_MEDIA_TYPE};
constexpr int PaperLists[] = {IDC_DOCUMENT_SIZE, IDC_OUTPUT_SIZE};
constexpr int PaperButtons[] = {IDC_FIT_TO_PAPER, IDC_UNCOLLATED, IDC_COLLATED, IDC_PROOF_PRINT, IDC_PORTRAIT,
                                IDC_LANDSCAPE,    IDC_ROTATED,    IDC_SHIFT_ON, IDC_SHIFT_OFF,   IDC_DEFAULT};
constexpr int PaperFields[] = {IDC_SCALING, IDC_COPIES, IDC_SHIFT_X, IDC_SHIFT_Y};
constexpr int PaperArrows[] = {IDC_SCALING_SPIN, IDC_COPIES_SPIN, IDC_SHIFT_X_SPIN, IDC_SHIFT_Y_SPIN};
constexpr const char16_t* Texts[] = {u"",    u"1",   u"2",  u"20", u"50", u"100", u"100",
                                     u"150", u"999", u"-5", u"-",  u"x",  u"0"};

class Walker {
  public:
    Walker(PaperSheet& sheet, unsigned seed) : sheet_(sheet), random_(seed) {}

    void OnSetup()
    {
        sheet_.Page(u"Setup");
        did_ += " | Setup";
        for (int steps = Below(3); steps >= 0; --steps) {
            if (Below(12) == 0) {
                Click(IDC_DEFAULT);
            } else {
                Pick(SetupLists[Below(std::size(SetupLists))]);
            }
        }
        sheet_.Page(u"Paper");
        did_ += " | Paper";
    }
    void OnPaper()
    {
        switch (Below(8)) {
            case 0:
            case 1:
                return Pick(PaperLists[Below(std::size(PaperLists))]);
            case 2:
            case 3:
                return Type(PaperFields[Below(std::size(PaperFields))]);
            case 4: {
                const int arrows = PaperArrows[Below(std::size(PaperArrows))];
                did_ += " spin " + std::to_string(arrows);
                sheet_.Try([&](HWND page) { return user::Spin(user::Control(page, arrows), Below(2) == 0); });
                return;
            }
            default:
                return Click(PaperButtons[Below(std::size(PaperButtons))]);
        }
    }
    const std::string& Did() const { return did_; }

  private:
    int Below(std::size_t limit) { return static_cast<int>(random_() % limit); }
    void Click(int control)
    {
        did_ += " click " + std::to_string(control);
        sheet_.Try([&](HWND page) { return user::Click(user::Control(page, control)); });
    }
    void Pick(int control)
    {
        const auto items = sheet_.Items(control);
        if (items.empty()) return;
        const int row = Below(items.size());
        did_ += " pick " + std::to_string(control) + "=" + std::to_string(row);
        sheet_.Try([&](HWND page) { return user::Pick(user::Control(page, control), row); });
    }
    // And leaves the field.
    void Type(int control)
    {
        const std::u16string text = Texts[Below(std::size(Texts))];
        did_ += " type " + std::to_string(control) + "=" + platform::ToUtf8(text);
        sheet_.Try([&](HWND page) { return user::Type(user::Control(page, control), text); });
        sheet_.Focus(IDC_DOCUMENT_SIZE);
    }

    PaperSheet& sheet_;
    std::mt19937 random_;
    std::string did_;
};

long Data(PaperSheet& sheet, int list)
{
    const int selection = sheet.Selection(list);
    return selection < 0 ? -1 : static_cast<long>(sheet.ItemData(list).at(static_cast<std::size_t>(selection)));
}

// What of the page does not show what the record holds.
std::vector<std::string> Disagreements(PaperSheet& sheet)
{
    const DriverDevMode record = sheet.Settings();
    std::vector<std::string> found;
    const auto check = [&](const char* what, long shown, long held) {
        if (shown != held)
            found.push_back(std::string(what) + " shows " + std::to_string(shown) + " for " + std::to_string(held));
    };
    const auto number = [&](int control) { return std::strtol(sheet.Shown(control).c_str(), nullptr, 10); };
    check("paper", Data(sheet, IDC_DOCUMENT_SIZE), record.dmPaperSize);
    check("fit", sheet.Checked(IDC_FIT_TO_PAPER), record.dmFitToPaper == 2);
    if (record.dmFitToPaper == 2) check("output", Data(sheet, IDC_OUTPUT_SIZE), record.dmOutputPaper);
    check("scaling", number(IDC_SCALING), record.dmZoom);
    check("scaled", record.dmFitToPaper == 1, record.dmZoom != 100 && sheet.Enabled(IDC_SCALING));
    check("copies", number(IDC_COPIES), record.dmCopies);
    check("collation", sheet.Checked(IDC_COLLATED), record.dmCollateMode);
    check("proof", sheet.Checked(IDC_PROOF_PRINT), record.dmProofPrint);
    check("landscape", sheet.Checked(IDC_LANDSCAPE), record.dmOrientation == 2);
    check("rotated", sheet.Checked(IDC_ROTATED), record.dmImageRotated);
    check("shift", sheet.Checked(IDC_SHIFT_ON), record.dmImageShiftOn);
    const int row = SelectedPaperRow;
    if (const PaperRow* paper = PaperRowAt(row)) {
        check("row", paper->code, record.dmPaperSize);
        check("length", record.dmPaperLength, paper->size->psLengthDots);
    }
    return found;
}

class PaperAgreement : public testing::TestWithParam<unsigned> {};
INSTANTIATE_TEST_SUITE_P(Pages, PaperAgreement, testing::Range(1u, 13u));

TEST_P(PaperAgreement, HoldsAfterEveryStep)
{
    const unsigned seed = GetParam();
    PaperSheet sheet([&](DriverDevMode& record) { record.dmDeviceFlags = seed % 2 ? 128 : 0; }, Forms,
                     seed % 3 ? Germany : UnitedStates);
    Walker walker(sheet, seed);
    for (int round = 0; round < 12; ++round) {
        walker.OnSetup();
        ASSERT_THAT(Disagreements(sheet), IsEmpty()) << walker.Did();
        for (int step = 0; step < 5; ++step) {
            walker.OnPaper();
            ASSERT_THAT(Disagreements(sheet), IsEmpty()) << walker.Did();
        }
    }
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
