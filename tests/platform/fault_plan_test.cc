#include "platform/seams/fault_plan.h"

#include <gmock/gmock.h>

namespace platform {
namespace {

using ::testing::ElementsAre;
using ::testing::Pair;

TEST(FaultPlan, OneCallFailsOrAllFromOneOn)
{
    FaultPlan plan;
    plan.Add("HeapAlloc", 2, false);
    plan.AddAll(5);
    for (const bool fails : {false, true, false}) EXPECT_EQ(plan.Fails("HeapAlloc"), fails);
    for (const bool fails : {false, true, true}) EXPECT_EQ(plan.Fails("GlobalAlloc"), fails);
    EXPECT_TRUE(plan.Fails("GlobalFree"));
    EXPECT_THAT(plan.Failures(), ElementsAre(Pair("GlobalAlloc", 2), Pair("GlobalFree", 1), Pair("HeapAlloc", 1)));
    plan.Clear();
    EXPECT_THAT(plan.Failures(), testing::IsEmpty());
}

TEST(FaultPlan, OffersWhatTheLayerExportsAndMessagesThatNeedRoom)
{
    struct Row {
        const char* name;
        bool offered;
    };
    constexpr Row Rows[] = {
        {"GlobalAlloc",     true }, //
        {"RegOpenKeyExW",   true }, //
        {"wsprintfW",       true }, //
        {"LB_INSERTSTRING", true }, //
        {"LVM_INSERTITEMW", true }, //
        {"CB_SETCURSEL",    false}, // needs no room
        {"malloc",          false}, // of a library below
        {"_fini",           false}, // of the tool chain
        {"NoSuchFunction",  false}, //
        {"Global Alloc",    false}, //
        {"",                false}, //
    };
    for (const Row& row : Rows) EXPECT_EQ(FaultPlan::Offers(row.name), row.offered) << row.name;
}

}  // namespace
}  // namespace platform
