// Which paper sources are offered, and what the choice of one does on the Paper page.
#include <gtest/gtest.h>

#include "pages/source_lists.h"
#include "settings/options.h"
#include "tests/support/setup_sheet.h"

namespace {

using namespace testing_support;

// Media, row of the paper, filter, fit, output paper, flags of the device.
TEST(SourceLists, Tray2GoesByMediaPaperAndOutputAndOthersByThePaper)
{
    const TestMachine machine;
    DriverDevMode record{};
    CurrentSettings = &record;
    const auto offered = [] {
        RefreshSourceRows();
        std::string line;
        for (const ListRow& row : SourceRows) line += row.enabled ? std::to_string(row.code) : "-";
        return line;
    };
    for (const auto& [media, paperRow, filterMode, fit, outputPaper, flags, expected] : {
             std::tuple<SHORT, int, int, BYTE, SHORT, DWORD, const char*>{0,  5, 1, 0, 11,  0x80, "71-4"},
             {0,  5, 0, 0, 11,  0x80, "7124"}, // lists by source know no media
             {4,  0, 2, 0, 11,  0x80, "71-4"},
             {-1, 5, 1, 0, 11,  0x80, "7124"}, // neither plain nor another
             {0,  0, 1, 0, 11,  0xFF, "7124"},
             {0,  0, 1, 2, 215, 0x80, "71-4"},
             {0,  0, 1, 2, 216, 0x80, "7124"},
    }) {
        record.dmPaperSize = 256;
        SelectedMedia = media;
        SelectedPaperRow = paperRow;
        ListFilterMode = filterMode;
        FitChoice = {fit, 0, outputPaper};
        record.dmDeviceFlags = flags;
        EXPECT_EQ(offered(), expected) << media << filterMode << outputPaper;
    }
    record.dmPaperSize = 100;  // no paper of ours
    EXPECT_EQ(offered(), "--2-") << "Tray2 has rules of its own";
    CurrentSettings = nullptr;
}

TEST(SourceCombo, Tray2SendsShortOutputPaperAway)
{
    for (const auto& [country, before, after] : {
             std::tuple{1,  11, 1 },
             {49, 11, 9 },
             {49, 15, 15}
    }) {
        SetupSheet sheet(Fields("dmDeviceFlags=128 dmOutputPaper=" + std::to_string(before)), {}, country);
        EXPECT_EQ(sheet.Choose(IDC_PAPER_SOURCE, u"Manual Feed").Settings().dmOutputPaper, before);
        EXPECT_EQ(sheet.Choose(IDC_PAPER_SOURCE, u"Tray2").Settings().dmOutputPaper, after);
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
    sheet.GoAwayAndComeBack();
    EXPECT_EQ(ListFilterMode, 1);
}

}  // namespace
