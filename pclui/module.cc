#include "module.h"

#include "boundary.h"

HMODULE ModuleHandle = nullptr;
HMODULE ResourceHandle = nullptr;

BOOL DllInitialize(HMODULE module, DWORD reason, void*)
{
    return AtBoundary(TRUE, [=]() -> BOOL {
        if (reason != DLL_PROCESS_ATTACH) return TRUE;
        ModuleHandle = module;
        WCHAR path[MAX_PATH];
        if (GetModuleFileNameW(module, path, MAX_PATH) != 0) ResourceHandle = LoadLibraryW(path);
        return TRUE;
    });
}
