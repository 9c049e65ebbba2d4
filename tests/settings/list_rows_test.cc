#include "settings/list_rows.h"

#include <numeric>

#include "tests/support/printer_fixture.h"

namespace {

using namespace testing_support;

// The lists as the pages load them, with two custom sizes, and back to their start at the end.
class ListRows : public PrinterTest {
  protected:
    ListRows()
    {
        CurrentSettings = &record;
        constexpr int bins[] = {7, 1, 2, 4};
        for (int k = 0; k < 4; ++k) SourceRows[k].code = bins[k];
        CustomHeadRow.code = 257;
        CustomHeadRow.next = std::make_unique<PaperRow>();
        PaperRowCount = 28;
    }
    ~ListRows() override
    {
        for (ListRow& row : SourceRows) row = {};
        for (ListRow& row : MediaRows) row = {};
        for (PaperRow& row : PaperRows) row = {};
        PaperRowCount = BuiltInPaperRows;
        SelectedMedia = 0;
        MediaIndex = 0;
        ListFilterMode = FilterBySource;
    }
    // The numbers of the enabled paper rows.
    static std::vector<int> Enabled()
    {
        EXPECT_EQ(RefreshPaperRows(), 1);
        std::vector<int> rows;
        for (int k = 0; k < PaperRowCount; ++k) {
            if (PaperRowAt(k)->enabled != 0) rows.push_back(k);
        }
        return rows;
    }

    DriverDevMode record = BusyRecord();
};

TEST_F(ListRows, BySourceTray2TakesTheFirstFivePapersAndEveryOtherBinAll)
{
    record.dmDefaultSource = 2;
    EXPECT_THAT(Enabled(), testing::ElementsAre(0, 1, 2, 3, 4));
    std::vector<int> all(28);
    std::iota(all.begin(), all.end(), 0);
    for (SHORT source : {7, 1, 4, 3, 99}) {
        record.dmDefaultSource = source;
        EXPECT_EQ(Enabled(), all) << source;
    }
    PaperRowCount = 40;
    EXPECT_EQ(RefreshPaperRows(), 1) << "up to the end of the chain";
    EXPECT_EQ(PaperRowAt(28), nullptr);
    EXPECT_EQ(PaperRowAt(-1), nullptr);
}

TEST_F(ListRows, ByMedia)
{
    const std::vector<int> plain = {0, 1, 2, 3, 4, 5, 6, 15, 16, 18, 19, 20, 21, 22, 23, 24, 26, 27};
    const std::vector<std::pair<SHORT, std::vector<int>>> rows = {
        {0,  plain                                                    },
        {1,  {0, 1}                                                   },
        {2,  {7, 8, 9, 10, 11, 12, 13, 14}                            },
        {3,  {17, 25}                                                 },
        {4,  {0, 1, 2, 3, 4, 5, 6, 15, 16, 18, 19, 20, 21, 22, 23, 24}},
        {5,  plain                                                    },
        {-1, plain                                                    },
    };
    record.dmDefaultSource = 2;
    for (int mode : {1, 2}) {
        ListFilterMode = mode;
        for (const auto& [media, enabled] : rows) {
            SelectedMedia = media;
            EXPECT_EQ(Enabled(), enabled) << media;
        }
    }
}

TEST_F(ListRows, MediaAreLoadedWithNamesAndCodes)
{
    SelectedMedia = 3;
    RefreshMediaRows();

    std::vector<std::u16string> names;
    for (const ListRow& row : MediaRows) names.push_back(row.name);
    EXPECT_THAT(names, testing::ElementsAre(u"Plain Paper", u"Transparency", u"Envelope", u"Postcard", u"Thick Paper"));
    EXPECT_EQ(std::tuple(MediaRows[4].code, MediaRows[4].position, MediaRows[4].enabled != 0), std::tuple(4, 4, true));
    EXPECT_EQ(MediaIndex, 3);

    WCHAR name[RowNameChars] = u"before";
    EXPECT_EQ(LoadRowName(65000, name), 1);
    EXPECT_EQ(std::u16string(name), u"") << "a name that is missing";
}

}  // namespace
