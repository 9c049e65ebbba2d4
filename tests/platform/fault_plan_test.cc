#include "platform/seams/fault_plan.h"

#include <gmock/gmock.h>

namespace platform {
namespace {

using ::testing::ElementsAre;
using ::testing::Pair;

std::vector<bool> FiveCalls(FaultPlan& plan)
{
    std::vector<bool> failed;
    for (int call = 0; call < 5; ++call) failed.push_back(plan.Fails("GlobalAlloc"));
    return failed;
}

TEST(FaultPlan, OneCallFails)
{
    FaultPlan plan;
    plan.Add("GlobalAlloc", 2, false);
    EXPECT_THAT(FiveCalls(plan), ElementsAre(false, true, false, false, false));
}

TEST(FaultPlan, AllCallsFromOneOnFail)
{
    FaultPlan plan;
    plan.AddAll(4);
    EXPECT_FALSE(plan.Fails("GlobalFree"));
    EXPECT_THAT(FiveCalls(plan), ElementsAre(false, false, true, true, true));
    EXPECT_TRUE(plan.Fails("GlobalFree"));
    EXPECT_THAT(plan.Failures(), ElementsAre(Pair("GlobalAlloc", 3), Pair("GlobalFree", 1)));
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
