#include "gdi_fixture.h"

namespace gdi_test {
namespace {

struct MappingRow {
    int mode;
    POINT windowOrigin;
    SIZE window;
    POINT viewportOrigin;
    SIZE viewport;
    SIZE adjusted;  // the viewport's extent as it then is
    POINT logical;
    const char* device;
};

constexpr int Far = 2147483647;

// Every context starts with 1024 by 768 pixels at 96 dots per inch; a job as the fixture makes it.
const MappingRow MappingRows[] = {
    {MM_TEXT,        {5, 6},  {9, 9},        {2, 3},   {7, 7},        {1, 1},        {10, 20},     "7,17"                },
    {MM_ANISOTROPIC, {0, 0},  {10, 10},      {0, 0},   {5, 5},        {5, 5},        {3, 5},       "2,3"                 },
    {MM_ANISOTROPIC, {0, 0},  {2, 2},        {0, 0},   {1, 1},        {1, 1},        {-1, -3},     "0,-1"                },
    {MM_ANISOTROPIC, {0, 0},  {100, 200},    {0, 0},   {10, 100},     {10, 100},     {50, 50},     "5,25"                },
    {MM_ANISOTROPIC, {10, 0}, {10, 10},      {100, 7}, {20, 20},      {20, 20},      {11, 1},      "102,9"               },
    {MM_ISOTROPIC,   {0, 0},  {4898, -6398}, {0, 0},   {4898, -6398}, {4898, -6398}, {100, 200},   "100,200"             },
    {MM_ISOTROPIC,   {0, 0},  {100, 100},    {0, 0},   {50, -50},     {50, -50},     {10, 10},     "5,-5"                },
    {MM_ISOTROPIC,   {0, 0},  {100, 100},    {0, 0},   {300, 50},     {50, 50},      {10, 10},     "5,5"                 },
    {MM_ISOTROPIC,   {0, 0},  {5100, -6600}, {0, 0},   {77, -101},    {77, -100},    {5100, 6600}, "77,100"              },
    {MM_ISOTROPIC,   {0, 0},  {1, 1000},     {0, 0},   {100, 10},     {1, 10},       {5, 5},       "5,0"                 },
    {MM_ANISOTROPIC, {0, 0},  {1, 1},        {0, 0},   {Far, -Far},   {Far, -Far},   {Far, Far},   "134217727,-134217727"},
};

using Mapping = Drawing;

TEST_F(Mapping, TurnsUnitsIntoPixels)
{
    for (const MappingRow& row : MappingRows) {
        const HDC job = Job();
        SetMapMode(job, row.mode);
        SetWindowOrgEx(job, row.windowOrigin.x, row.windowOrigin.y, nullptr);
        SetViewportOrgEx(job, row.viewportOrigin.x, row.viewportOrigin.y, nullptr);
        EXPECT_TRUE(SetWindowExtEx(job, row.window.cx, row.window.cy, nullptr));
        EXPECT_TRUE(SetViewportExtEx(job, row.viewport.cx, row.viewport.cy, nullptr));
        SIZE adjusted{};
        SetViewportExtEx(job, row.viewport.cx, row.viewport.cy, &adjusted);
        EXPECT_EQ(adjusted.cx, row.adjusted.cx) << row.device;
        EXPECT_EQ(adjusted.cy, row.adjusted.cy) << row.device;
        MoveToEx(job, row.logical.x, row.logical.y, nullptr);
        LineTo(job, row.logical.x, row.logical.y);
        EXPECT_THAT(page->Take(), testing::ElementsAre(testing::StartsWith("line " + std::string(row.device) + " to")));
    }
}

TEST_F(Mapping, IsotropicStartsWithTenthsOfMillimetresAndYRunningUp)
{
    const HDC screen = Context(nullptr);
    EXPECT_EQ(SetMapMode(screen, MM_ISOTROPIC), MM_TEXT);
    SIZE window{}, viewport{};
    SetViewportExtEx(screen, 1, 1, &viewport);
    SetWindowExtEx(screen, 1, 1, &window);
    EXPECT_EQ(window.cx, 2709);
    EXPECT_EQ(window.cy, 2032);
    EXPECT_EQ(viewport.cx, 1024);
    EXPECT_EQ(viewport.cy, -768);
}

}  // namespace
}  // namespace gdi_test
