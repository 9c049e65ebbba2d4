#include "platform/seams/fault_plan.h"

namespace platform {
namespace {

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
