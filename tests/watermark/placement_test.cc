#include "watermark/placement.h"

#include <gmock/gmock.h>

#include "platform/gdi/job.h"
#include "platform/seams/fonts.h"
#include "tests/support/machine.h"
#include "watermark/face_list.h"
#include "watermark/watermark_list.h"

namespace {

using namespace testing_support;

class Placement : public testing::Test {
  protected:
    Placement()
    {
        platform::CurrentEnvironment().fonts = platform::MakeBuiltinFonts();
        watermark.wmSize = 72;
        watermark.wmShading = 20;
        CopyToField(watermark.wmFaceName, 32, u"Times New Roman");
        CopyToField(watermark.wmText, 73, u"DRAFT");
    }
    ~Placement() override
    {
        EXPECT_EQ(platform::gdi::ContextCount(), 0u);
        EXPECT_EQ(platform::gdi::ObjectCount(), 0u);
        platform::CurrentEnvironment().fonts = nullptr;
    }
    bool Place(LONG resolution = 300)
    {
        const LONG factor = resolution == 600 ? 2 : resolution == 1200 ? 4 : 1;
        return ComputeWatermarkPlacement(
                   watermark, {3300 * factor, 2550 * factor, resolution, 50 * factor, 50 * factor}, placed) == 1;
    }

    Machine machine;
    WatermarkRecord watermark{};
    WatermarkPlacement placed{};
};

// The built-in metrics make DRAFT at height 300 a text of 750 by 337, centred on the printable area.
TEST_F(Placement, TheFontGrowsWithTheResolutionsOfThePrinter)
{
    for (const LONG resolution : {600, 1200, 400, 900, 300}) {
        ASSERT_TRUE(Place(resolution));
        EXPECT_EQ(placed.font.lfHeight, resolution == 600 ? -600 : resolution == 1200 ? -1200 : -300) << resolution;
    }
    EXPECT_EQ(placed.origin.x, 1200 - 375);
    EXPECT_EQ(placed.origin.y, 1600 - 150);
    EXPECT_EQ(placed.font.lfWeight, 400);
    EXPECT_EQ(placed.font.lfOutPrecision, 7);
}

TEST_F(Placement, PositionsGoInStepsAndNeverReachTheEdge)
{
    constexpr std::pair<SHORT, LONG> Rows[] = {
        {0,    1200},
        {1,    1200},
        {-1,   1200},
        {100,  2388},
        {-100, 12  },
        {50,   1788},
    };
    for (const auto& [position, middle] : Rows) {
        watermark.wmPositionX = position;
        ASSERT_TRUE(Place());
        EXPECT_EQ(placed.origin.x + 375, middle) << position;
    }
}

TEST_F(Placement, StyleAndAngleGoIntoTheFont)
{
    watermark.wmBold = 1;
    watermark.wmItalic = 0x101;
    watermark.wmAngle = 45;
    ASSERT_TRUE(Place());
    EXPECT_EQ(placed.font.lfWeight, 700);
    EXPECT_EQ(placed.font.lfItalic, 1);
    EXPECT_EQ(placed.font.lfEscapement, 450);
}

TEST_F(Placement, TheDiagonalFollowsThePage)
{
    watermark.wmAngleMode = 2;
    watermark.wmAngle = 10;
    ASSERT_TRUE(Place());
    EXPECT_EQ(watermark.wmAngle, 53);
    EXPECT_EQ(DiagonalAngle, 53);
    EXPECT_EQ(placed.font.lfEscapement, 530);
}

TEST_F(Placement, AnyFailingCallLeavesNoPlaceAndNothingBehind)
{
    for (const char* function : {"GetDC", "EnumFontsW", "CreateFontIndirectW", "GetTextExtentPointW"}) {
        platform::CurrentEnvironment().faults.Clear();
        Machine::Fail(function);
        EXPECT_FALSE(Place()) << function;
    }
}

TEST_F(Placement, FieldsWithoutTerminatorEndWithTheRecord)
{
    std::fill(std::begin(watermark.wmText), std::end(watermark.wmText), u'M');
    watermark.wmAngle = 32767;
    watermark.wmSize = 32767;
    watermark.wmPositionX = -32768;
    EXPECT_TRUE(Place(1200));
    std::fill(std::begin(watermark.wmFaceName), std::end(watermark.wmFaceName), u'F');
    EXPECT_FALSE(Place());
}

TEST_F(Placement, OnlyTrueTypeFacesAreOffered)
{
    FaceNames faces;
    LOGFONTW font{};
    CopyToField(font.lfFaceName, 32, u"Arial");
    EXPECT_EQ(CollectFaceNames(&font, nullptr, 2, reinterpret_cast<LPARAM>(&faces)), 1);
    EXPECT_EQ(CollectFaceNames(&font, nullptr, 4, reinterpret_cast<LPARAM>(&faces)), 1);
    EXPECT_EQ(CollectFaceNames(&font, nullptr, 4, reinterpret_cast<LPARAM>(&faces)), 1);
    EXPECT_EQ(CollectFaceNames(&font, nullptr, 4, reinterpret_cast<LPARAM>(&faces)), 1);
    EXPECT_THAT(faces, testing::ElementsAre(u"Arial", u"Arial", u"Arial"));
    Machine::Fail("GlobalAlloc");
    EXPECT_EQ(CollectFaceNames(&font, nullptr, 4, reinterpret_cast<LPARAM>(&faces)), 0);
    EXPECT_THAT(faces, testing::ElementsAre(u"Arial", u"Arial", u"Arial"));
}

}  // namespace
