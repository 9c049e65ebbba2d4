// A module for the tests of loading: tells how often its entry ran, and refuses to start as long as the environment
// variable QD_SAMPLE is there, which is how a test reaches it before it is loaded.
#include <cstdlib>

#include "platform/kernel.h"

#define SAMPLE_EXPORT __attribute__((visibility("default")))

namespace {

int Attached = 0;
int* DetachCounter = nullptr;

}  // namespace

extern "C" {

SAMPLE_EXPORT BOOL DllInitialize(HINSTANCE, DWORD reason, void*)
{
    if (reason == DLL_PROCESS_DETACH) {
        if (DetachCounter != nullptr) ++*DetachCounter;
        return TRUE;
    }
    ++Attached;
    return std::getenv("QD_SAMPLE") == nullptr;
}

SAMPLE_EXPORT int SampleAttached() { return Attached; }
SAMPLE_EXPORT void SampleWatchDetach(int* counter) { DetachCounter = counter; }

}  // extern "C"
