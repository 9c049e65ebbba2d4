// Which paper sources and media types are offered, and which paper a media brings.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "pages/source_lists.h"
#include "settings/options.h"
#include "tests/support/setup_sheet.h"

namespace {

using namespace testing_support;
using testing::ElementsAre;

constexpr DWORD Tray2Flag = 0x80;

// The rules alone, on a record of their own.
class SourceLists : public testing::Test {
  protected:
    SourceLists()
    {
        CurrentSettings = &record;
        record.dmPaperSize = 1;
        record.dmDefaultSource = 7;
        record.dmDeviceFlags = Tray2Flag;
        SelectedSource = 7;
        SelectedMedia = 0;
        SelectedPaperRow = 0;
        FitChoice = {};
        ListFilterMode = FilterByMedia;
    }
    ~SourceLists() override { CurrentSettings = nullptr; }

    std::string Offered()
    {
        RefreshSourceRows();
        std::string line;
        for (const ListRow& row : SourceRows) line += row.enabled ? std::to_string(row.code) : "-";
        return line;
    }

    TestMachine machine;
    DriverDevMode record{};
};

TEST_F(SourceLists, Tray2GoesByMediaPaperAndOutput)
{
    struct Tray2Case {
        SHORT media;
        int paperRow, filterMode;
        BYTE fit;
        SHORT outputPaper;
        DWORD flags;
        const char* offered;
    };
    const Tray2Case cases[] = {
        {0,  0, 1, 0, 11,  Tray2Flag, "7124"},
        {0,  5, 1, 0, 11,  Tray2Flag, "71-4"}, // a paper that it does not take
        {0,  5, 0, 0, 11,  Tray2Flag, "7124"}, // lists by source know no media
        {1,  0, 1, 0, 11,  Tray2Flag, "71-4"},
        {4,  0, 2, 0, 11,  Tray2Flag, "71-4"},
        {-1, 5, 1, 0, 11,  Tray2Flag, "7124"}, // neither plain nor another
        {0,  0, 1, 0, 11,  0,         "71-4"}, // not installed
        {0,  0, 1, 0, 11,  0xFF,      "7124"},
        {0,  0, 1, 2, 11,  Tray2Flag, "71-4"},
        {0,  0, 1, 2, 15,  Tray2Flag, "71-4"},
        {0,  0, 1, 2, 215, Tray2Flag, "71-4"},
        {0,  0, 1, 2, 216, Tray2Flag, "7124"},
        {0,  0, 1, 1, 11,  Tray2Flag, "7124"}, // scaled, not fitted
    };
    for (const Tray2Case& one : cases) {
        SelectedMedia = one.media;
        SelectedPaperRow = one.paperRow;
        ListFilterMode = one.filterMode;
        FitChoice = {one.fit, 0, one.outputPaper};
        record.dmDeviceFlags = one.flags;
        EXPECT_EQ(Offered(), one.offered) << "case " << &one - cases;
    }
}

TEST_F(SourceLists, OtherSourcesGoByThePaper)
{
    for (const SHORT code : {SHORT{1}, SHORT{27}, SHORT{216}, SHORT{256}, SHORT{300}}) {
        record.dmPaperSize = code;
        EXPECT_EQ(Offered(), "7124") << code;
    }
    record.dmPaperSize = 100;  // no paper of ours
    EXPECT_EQ(Offered(), "--2-") << "Tray2 has rules of its own";
}

TEST_F(SourceLists, Tray2TakesPlainPaperAlone)
{
    for (const auto& [source, flags, offered, media] : {
             std::tuple{SHORT{7}, Tray2Flag, "+++++", 3},
             {SHORT{2}, Tray2Flag, "+----", 0},
             {SHORT{2}, DWORD{0},  "+++++", 3}, // a tray that there is not restricts nothing
    }) {
        MediaIndex = 3;
        record.dmMediaIndex = 3;
        SelectedSource = source;
        record.dmDeviceFlags = flags;
        RestrictMediaRows();
        std::string shown;
        for (const ListRow& row : MediaRows) shown += row.enabled ? "+" : "-";
        EXPECT_EQ(shown, offered);
        EXPECT_EQ(MediaIndex, media);
        EXPECT_EQ(record.dmMediaIndex, media);
    }
}

TEST(MediaPapers, EveryMediaBringsItsPaper)
{
    for (const auto& [media, orientation, country, code, length, width] : {
             std::tuple<SHORT, SHORT, int, SHORT, SHORT, SHORT>{2, 1, 1,  27,  2598, 1299},
             {3, 2, 49, 216, 1181, 1748},
             {0, 1, 1,  1,   3300, 2550},
             {1, 2, 49, 9,   2480, 3507},
             {9, 1, 49, 9,   3507, 2480},
    }) {
        const TestMachine machine(Machine::InCountry(country));
        DriverDevMode record{};
        CurrentSettings = &record;
        record.dmOrientation = orientation;
        SelectedMedia = media;
        ForcePaperByMedia();
        EXPECT_EQ(PaperChoice.code, code) << media;
        EXPECT_EQ(PaperChoice.length, length) << media;
        EXPECT_EQ(PaperChoice.width, width) << media;
        EXPECT_EQ(record.dmPaperSize, 0) << "the record does not change";
        CurrentSettings = nullptr;
    }
}

TEST(SourceCombo, Tray2SendsShortOutputPaperAway)
{
    for (const auto& [country, before, after] : {
             std::tuple{1,  11, 1 },
             {49, 11, 9 },
             {49, 15, 15}
    }) {
        SetupSheet sheet(Fields("dmDeviceFlags=128 dmOutputPaper=" + std::to_string(before)), {}, country);
        sheet.Choose(IDC_PAPER_SOURCE, u"Manual Feed");
        EXPECT_EQ(sheet.Settings().dmOutputPaper, before);
        sheet.Choose(IDC_PAPER_SOURCE, u"Tray2");
        EXPECT_EQ(sheet.Settings().dmOutputPaper, after);
    }
}

TEST(SourceCombo, TellsThePaperPageHowToFilterItsPapers)
{
    SetupSheet sheet(Fields("dmDeviceFlags=128"));
    EXPECT_EQ(ListFilterMode, 1);
    sheet.Choose(IDC_PAPER_SOURCE, u"Tray2");
    EXPECT_EQ(ListFilterMode, 0);
    sheet.Choose(IDC_PAPER_SOURCE, u"Auto").Choose(IDC_MEDIA_TYPE, u"Envelope");
    EXPECT_EQ(ListFilterMode, 0);
    EXPECT_EQ(MediaChanging, 0);
    sheet.ChangeElsewhere([](DriverDevMode&) {});
    EXPECT_EQ(ListFilterMode, 1);
}

}  // namespace
