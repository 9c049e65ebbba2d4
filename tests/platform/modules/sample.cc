// A module for the tests of loading: tells how often its entry ran, and loads itself once more at attach as
// long as the test lets it (the environment variable is how a test reaches it before it is loaded).
#include <cstdlib>

#include "platform/kernel.h"

#define SAMPLE_EXPORT __attribute__((visibility("default")))

namespace {

int Attached = 0;
int* DetachCounter = nullptr;
HMODULE Second = nullptr;

}  // namespace

extern "C" {

SAMPLE_EXPORT BOOL DllInitialize(HINSTANCE module, DWORD reason, void*)
{
    if (reason == DLL_PROCESS_DETACH) {
        if (DetachCounter != nullptr) ++*DetachCounter;
        return TRUE;
    }
    ++Attached;
    const char* wish = std::getenv("QD_SAMPLE");
    const char choice = wish == nullptr ? '\0' : *wish;
    if (choice == 'r') return FALSE;  // refuse
    if (choice == 't') {              // load twice
        WCHAR path[MAX_PATH];
        if (GetModuleFileNameW(module, path, MAX_PATH) != 0) Second = LoadLibraryW(path);
    }
    return TRUE;
}

SAMPLE_EXPORT int SampleAttached() { return Attached; }
SAMPLE_EXPORT HMODULE SampleSecondHandle() { return Second; }
SAMPLE_EXPORT void SampleWatchDetach(int* counter) { DetachCounter = counter; }

}  // extern "C"
