#include "spooler/paper_sizes.h"

#include "tests/support/custom_papers.h"
#include "tests/support/printer_fixture.h"

namespace {

using namespace testing_support;

using PaperSizes = PrinterTest;

TEST_F(PaperSizes, OfTheTableAreTruncatedTenths)
{
    constexpr LONG rows[][3] = {
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
    for (const auto& [code, width, length] : rows) {
        for (int orientation : {1, 2}) {
            PaperExtent size{};
            EXPECT_EQ(PaperSizeTenths(printer, static_cast<int>(code), 0, orientation, &size), 1);
            EXPECT_EQ(size, (PaperExtent{width, length})) << code;
        }
    }
}

TEST_F(PaperSizes, OfStoredPapersAreTruncatedToMillimetres)
{
    for (const auto& [paper, size] : {
             std::pair{Entry(257,                u"", 0,     1000, 2000),            PaperExtent{1000, 2000}    },
             {Entry(257,                u"", 1,     800,  1400,             8,                           0), PaperExtent{2150, 3550}}, // 215.9 by 355.6 mm
             {Entry(257, u"",    1, 300,  500,              1,                                      15), PaperExtent{770, 1500}}, // 77.8 by 150.8 mm
             {Entry(257,                       u"",                       1,      399,          599),     PaperExtent{760, 1270}}, // whole inches only
             {Entry(257,                     u"",                    0,-7,-5),PaperExtent{-7, -5}                               },
    })
        EXPECT_EQ(StoredPaperTenths(paper), size) << paper.cpWidth << ' ' << paper.cpHeight;
}

TEST_F(PaperSizes, AreFoundAmongTheStoredPapersByCode)
{
    StorePapers(machine, {Entry(257, u"", 0, 1000, 2000), Entry(258, u"", 0, 1100, 2100), Entry(258, u"", 0, 9, 9),
                          Entry(9, u"", 0, 1000, 2000), Entry(256, u"", 0, 1000, 2000)});
    PaperExtent size{};
    EXPECT_EQ(PaperSizeTenths(printer, 258, 0, 1, &size), 1);
    EXPECT_EQ(size, (PaperExtent{1100, 2100}));
    EXPECT_EQ(PaperSizeTenths(printer, 9, 0, 1, &size), 1);
    EXPECT_EQ(size, (PaperExtent{2099, 2969})) << "a built-in code";
    for (int code : {256, 259, 306, 100, 0, -1}) EXPECT_EQ(PaperSizeTenths(printer, code, 0, 1, &size), 0) << code;
    EXPECT_EQ(size, (PaperExtent{2099, 2969}));
}

}  // namespace
