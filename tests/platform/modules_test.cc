#include "platform/kernel/modules.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "platform/kernel/unicode.h"
#include "platform/user.h"
#include "tests/platform/fresh_environment.h"

namespace platform {
namespace {

const std::u16string SamplePath = QD_SAMPLE_PATH;

template <class Function>
Function* EntryOf(HMODULE module, const char* name)
{
    return reinterpret_cast<Function*>(modules::Entry(module, name));
}

using Modules = FreshEnvironment;

TEST_F(Modules, TheFirstLoadRunsTheEntryAndLaterOnesCount)
{
    HMODULE module = LoadLibraryW(SamplePath.c_str());
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(LoadLibraryW(SamplePath.c_str()), module);
    EXPECT_EQ(modules::LoadCount(module), 2u);
    EXPECT_EQ(EntryOf<int()>(module, "SampleAttached")(), 1);
    int detached = 0;
    EntryOf<void(int*)>(module, "SampleWatchDetach")(&detached);
    EXPECT_TRUE(FreeLibrary(module));
    EXPECT_EQ(detached, 0);
    EXPECT_TRUE(FreeLibrary(module));
    EXPECT_EQ(detached, 1);
    EXPECT_EQ(Refusal(FreeLibrary(module)), ERROR_INVALID_HANDLE);
}

TEST_F(Modules, AnotherNameOfTheSameFileIsTheSameModule)
{
    const auto link = std::filesystem::temp_directory_path() / ("qd_link_" + std::to_string(getpid()) + ".so");
    std::filesystem::create_symlink(ToUtf8(SamplePath), link);
    HMODULE module = LoadLibraryA(link.c_str());
    EXPECT_EQ(LoadLibraryW(SamplePath.c_str()), module);
    WCHAR path[MAX_PATH] = {};
    const DWORD length = GetModuleFileNameW(module, path, MAX_PATH);
    EXPECT_EQ(ToUtf8(path), link.native());
    EXPECT_EQ(length, link.native().size());
    EXPECT_EQ(GetModuleFileNameW(module, path, 5), 5u);
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
    EXPECT_EQ(ToUtf8(path), link.native().substr(0, 4));
    FreeLibrary(module);
    FreeLibrary(module);
    std::filesystem::remove(link);
}

TEST_F(Modules, AnEntryIsTheModulesOwn)
{
    HMODULE module = LoadLibraryW(SamplePath.c_str());
    EXPECT_NE(GetProcAddress(module, "DllInitialize"), nullptr);
    for (const char* name : {"malloc", "GlobalAlloc", "NoSuchEntry"})
        EXPECT_EQ(Refusal(GetProcAddress(module, name)), ERROR_PROC_NOT_FOUND) << name;
    EXPECT_EQ(GetProcAddress(module, reinterpret_cast<const char*>(1)), nullptr);
    FreeLibrary(module);
}

TEST_F(Modules, SystemLibrariesAreAnsweredByTheLayer)
{
    HMODULE spooler = LoadLibraryA("SPOOLSS.DLL");
    ASSERT_NE(spooler, nullptr);
    EXPECT_NE(GetProcAddress(spooler, "RevertToPrinterSelf"), nullptr);
    EXPECT_EQ(GetProcAddress(spooler, "CommonPropertySheetUIW"), nullptr);
    EXPECT_EQ(LoadLibraryW(u"spoolss"), spooler);
    WCHAR path[MAX_PATH] = {};
    GetModuleFileNameW(spooler, path, MAX_PATH);
    EXPECT_EQ(std::u16string(path), u"C:\\WINDOWS\\system32\\spoolss.dll");
    EXPECT_TRUE(FreeLibrary(spooler));
    EXPECT_TRUE(FreeLibrary(spooler));
    FixedFactValues values;
    values.missingLibraries = u"compstui.dll";
    UseFacts(values);
    EXPECT_EQ(Refusal(LoadLibraryA("compstui.dll")), ERROR_MOD_NOT_FOUND);
}

TEST_F(Modules, WhatIsNoModuleIsRefusedWithItsReason)
{
    const auto file = std::filesystem::temp_directory_path() / ("qd_text_" + std::to_string(getpid()));
    std::ofstream(file) << "this is a text, not a module";
    std::string why;
    EXPECT_EQ(Refusal(modules::Load(ToWide(file.native()), &why)), ERROR_BAD_EXE_FORMAT);
    EXPECT_THAT(why, ::testing::HasSubstr("not an ELF file"));
    std::filesystem::remove(file);
    EXPECT_EQ(Refusal(modules::Load(ToWide(file.native()), &why)), ERROR_MOD_NOT_FOUND);
}

TEST_F(Modules, OneWhoseEntryRefusesToStartIsForgotten)
{
    setenv("QD_SAMPLE", "refuse", 1);
    for (int i = 0; i < 2; ++i) EXPECT_EQ(Refusal(LoadLibraryW(SamplePath.c_str())), ERROR_DLL_INIT_FAILED);
    unsetenv("QD_SAMPLE");
    HMODULE module = LoadLibraryW(SamplePath.c_str());
    EXPECT_EQ(modules::LoadCount(module), 1u);
    EXPECT_TRUE(FreeLibrary(module));
}

TEST_F(Modules, StringsAreLoadedByNumberAsFarAsTheyHaveRoom)
{
    HMODULE module = LoadLibraryW(SamplePath.c_str());
    WCHAR text[32] = u"stale";
    for (const auto& [number, room, expected] : {
             std::tuple{17u,   32, u"Ma\u00DFstab"},
             {1u,    4,  u"fir"         },
             {2u,    4,  u""            },
             {4096u, 32, u"far"         },
             {9999u, 32, u""            }
    }) {
        EXPECT_EQ(LoadStringW(module, number, text, room), lstrlenW(expected)) << number;
        EXPECT_EQ(std::u16string(text), expected) << number;
    }
    FreeLibrary(module);
}

}  // namespace
}  // namespace platform
