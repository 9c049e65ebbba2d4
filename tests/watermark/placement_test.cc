#include "watermark/placement.h"

#include <gmock/gmock.h>

#include <array>

#include "platform/gdi/job.h"
#include "tests/support/machine.h"
#include "tests/support/records.h"
#include "watermark/face_list.h"
#include "watermark/geometry.h"
#include "watermark/watermark_list.h"

namespace {

using namespace testing_support;

TEST(ArcTan, GivesTenthsOfADegree)
{
    constexpr LONG Rows[][3] = {
        {1,    1,    450 },
        {100,  0,    0   },
        {0,    100,  900 },
        {-100, 0,    1800},
        {100,  -100, 3150},
        {3,    4,    531 },
        {4,    3,    369 },
        {0,    0,    0   },
    };
    for (const auto& [x, y, tenths] : Rows) EXPECT_EQ(ArcTanTenths(x, y), tenths) << x << ", " << y;
}

// Half width 300, half height 100, centre (1000, 2000).
TEST(Rotation, TurnsTheCornerAboutTheCentre)
{
    constexpr SHORT Rows[][3] = {
        {0,    700,  1900},
        {90,   900,  2300},
        {180,  1300, 2100},
        {-180, 1300, 2100},
        {-90,  1100, 1700},
        {30,   690,  2063},
        {150,  1209, 2236},
        {-150, 1309, 1936},
        {-30,  790,  1763},
        {390,  690,  2063},
    };
    for (const auto& [angle, x, y] : Rows) {
        const POINT origin = RotateOrigin(300, angle, 100, 1000, 2000);
        EXPECT_EQ(origin.x, x) << angle;
        EXPECT_EQ(origin.y, y) << angle;
    }
}

class Placement : public testing::Test {
  protected:
    Placement()
    {
        watermark.wmSize = 72;
        CopyToField(watermark.wmFaceName, 32, u"Times New Roman");
        CopyToField(watermark.wmText, 73, u"DRAFT");
    }
    ~Placement() override
    {
        EXPECT_EQ(platform::gdi::ContextCount(), 0u);
        EXPECT_EQ(platform::gdi::ObjectCount(), 0u);
    }
    bool Place(LONG resolution = 300)
    {
        const LONG factor = resolution == 600 ? 2 : resolution == 1200 ? 4 : 1;
        return ComputeWatermarkPlacement(
                   watermark, {3300 * factor, 2550 * factor, resolution, 50 * factor, 50 * factor}, placed) == 1;
    }

    Machine machine;
    DriverDevMode record{};
    WatermarkRecord& watermark = record.dmWatermark;
    WatermarkPlacement placed{};
};

// The built-in metrics make DRAFT at height 300 a text of 750 by 337, centred on the printable area.
TEST_F(Placement, TheFontGrowsWithTheResolutionsOfThePrinter)
{
    for (const LONG resolution : {600, 1200, 400, 900, 300}) {
        ASSERT_TRUE(Place(resolution));
        EXPECT_EQ(placed.font.lfHeight, resolution == 600 ? -600 : resolution == 1200 ? -1200 : -300) << resolution;
    }
}

TEST_F(Placement, PositionStyleAndAngleAreThoseOfTheRow)
{
    // x, y, weight, italic, escapement
    const std::pair<const char*, std::array<LONG, 5>> rows[] = {
        {"wmPositionX=0",                       {825, 1450, 400, 0, 0}   },
        {"wmPositionX=1",                       {825, 1450, 400, 0, 0}   },
        {"wmPositionX=-1",                      {825, 1450, 400, 0, 0}   },
        {"wmPositionX=100",                     {2013, 1450, 400, 0, 0}  },
        {"wmPositionX=-100",                    {-363, 1450, 400, 0, 0}  },
        {"wmPositionX=50",                      {1413, 1450, 400, 0, 0}  },
        {"wmPositionX=0 wmPositionY=50",        {825, 2234, 400, 0, 0}   },
        {"wmPositionY=0 wmBold=1 wmItalic=257", {825, 1450, 700, 1, 0}   },
        {"wmAngle=90",                          {1050, 1975, 700, 1, 900}},
        {"wmAngleMode=2",                       {854, 1809, 700, 1, 530} },
    };
    for (const auto& [fields, expected] : rows) {
        SetFields(record, fields);
        ASSERT_TRUE(Place());
        const LOGFONTW& font = placed.font;
        EXPECT_EQ(
            (std::array<LONG, 5>{placed.origin.x, placed.origin.y, font.lfWeight, font.lfItalic, font.lfEscapement}),
            expected)
            << fields;
    }
    EXPECT_EQ(watermark.wmAngle, 53) << "the diagonal follows the page";
    EXPECT_EQ(DiagonalAngle, 53);
    EXPECT_EQ(placed.font.lfOutPrecision, 7);
}

TEST(FaceList, TakesTrueTypeFaces)
{
    const Machine machine;
    FaceNames faces;
    LOGFONTW font{};
    CopyToField(font.lfFaceName, 32, u"Arial");
    const auto collect = [&](DWORD type) {
        return CollectFaceNames(&font, nullptr, type, reinterpret_cast<LPARAM>(&faces));
    };
    EXPECT_EQ(collect(2), 1);
    for (int face = 0; face < 3; ++face) EXPECT_EQ(collect(4), 1);
    machine.Fail("GlobalAlloc");
    EXPECT_EQ(collect(4), 0);
    EXPECT_THAT(faces, testing::ElementsAre(u"Arial", u"Arial", u"Arial"));
}

}  // namespace
