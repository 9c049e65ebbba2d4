#include "spooler/paper_sizes.h"

#include "spooler/printer_data.h"
#include "tests/spooler/printer_fixture.h"

namespace {

using namespace testing_support;

class PaperSizes : public PrinterTest {
  protected:
    void StorePapers(const std::vector<CustomPaperEntry>& papers)
    {
        EXPECT_TRUE(WritePrinterBlob(printer, papers.data(), static_cast<DWORD>(56 * papers.size()), CustomPaperSlot));
    }
};

struct SizeRow {
    int code;
    LONG width, length;
};

TEST_F(PaperSizes, OfTheTableAreTruncatedTenths)
{
    constexpr SizeRow rows[] = {
        {1,   2159, 2794},
        {9,   2099, 2969},
        {310, 1819, 2569},
        {11,  1479, 2099},
        {37,  983,  1905},
        {29,  1139, 1619},
        {213, 899,  2049},
        {216, 999,  1479},
        {14,  2099, 3299},
        {223, 1479, 1999},
    };
    for (const SizeRow& row : rows) {
        for (int orientation : {1, 2}) {
            PaperExtent size{};
            EXPECT_EQ(PaperSizeTenths(printer, row.code, 0, orientation, &size), 1);
            EXPECT_EQ(size, (PaperExtent{row.width, row.length})) << row.code;
        }
    }
}

struct StoredRow {
    SHORT height, width, heightSixteenths, widthSixteenths, unit;
    PaperExtent size;
};

TEST_F(PaperSizes, OfStoredPapersAreTruncatedToMillimetres)
{
    constexpr StoredRow rows[] = {
        {2000, 1000, 0,  0, 0, {1000, 2000}},
        {1400, 800,  0,  8, 1, {2150, 3550}}, // 215.9 by 355.6 mm
        {500,  300,  15, 1, 1, {770, 1500} }, // 77.8 by 150.8 mm
        {599,  399,  0,  0, 1, {760, 1270} }, // whole inches only
        {-5,   -7,   0,  0, 0, {-7, -5}    },
    };
    for (const StoredRow& row : rows) {
        CustomPaperEntry paper{};
        paper.cpHeight = row.height;
        paper.cpWidth = row.width;
        paper.cpHeightSixteenths = row.heightSixteenths;
        paper.cpWidthSixteenths = row.widthSixteenths;
        paper.cpUnit = row.unit;
        EXPECT_EQ(StoredPaperTenths(paper), row.size) << row.width << ' ' << row.height;
    }
}

TEST_F(PaperSizes, AreFoundAmongTheStoredPapersByCode)
{
    StorePapers({
        {257, 2000, 1000, 0, 0, 0, 0, {}},
        {258, 2100, 1100, 0, 0, 0, 0, {}},
        {258, 9,    9,    0, 0, 0, 0, {}},
        {9,   2000, 1000, 0, 0, 0, 0, {}},
        {256, 2000, 1000, 0, 0, 0, 0, {}}
    });
    PaperExtent size{};
    EXPECT_EQ(PaperSizeTenths(printer, 258, 0, 1, &size), 1);
    EXPECT_EQ(size, (PaperExtent{1100, 2100}));
    EXPECT_EQ(PaperSizeTenths(printer, 9, 0, 1, &size), 1);
    EXPECT_EQ(size, (PaperExtent{2099, 2969})) << "a built-in code";
    for (int code : {256, 259, 306, 100, 0, -1}) EXPECT_EQ(PaperSizeTenths(printer, code, 0, 1, &size), 0) << code;
    EXPECT_EQ(size, (PaperExtent{2099, 2969}));
}

}  // namespace
