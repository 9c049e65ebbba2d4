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
    for (const char* name : {"GlobalAlloc", "RegOpenKeyExW", "wsprintfW", "LB_INSERTSTRING", "LVM_INSERTITEMW"})
        EXPECT_TRUE(FaultPlan::Offers(name)) << name;
    // Needs no room, is of a library below, of the tool chain, and unknown.
    for (const char* name : {"CB_SETCURSEL", "malloc", "_fini", "NoSuchFunction", "Global Alloc", ""})
        EXPECT_FALSE(FaultPlan::Offers(name)) << name;
}

}  // namespace
}  // namespace platform
