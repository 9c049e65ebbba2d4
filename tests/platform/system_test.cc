// Locale, version, user, and paths.
#include <filesystem>

#include "platform/kernel/paths.h"
#include "platform/kernel/unicode.h"
#include "tests/platform/fresh_environment.h"

namespace platform {
namespace {

class System : public FreshEnvironment {};

// What is told of country, user and version, the job header's tests read.
TEST_F(System, QuestionsThatCannotBeAnsweredFail)
{
    WCHAR text[] = u"keep";
    OSVERSIONINFOW version{};
    version.dwOSVersionInfoSize = 280;
    EXPECT_FALSE(GetVersionExW(&version));
    DWORD chars = 4;
    EXPECT_FALSE(GetUserNameW(text, &chars));
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
    EXPECT_EQ(chars, 5u);
    EXPECT_EQ(GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_ILANGUAGE, text, 4), 0);
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
    EXPECT_EQ(GetLocaleInfoW(LOCALE_USER_DEFAULT, 0x7777, text, 4), 0);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(std::u16string(text), u"keep");
}

TEST_F(System, TheSystemDirectorySaysWhatRoomItNeeds)
{
    WCHAR path[MAX_PATH];
    EXPECT_EQ(GetSystemDirectoryW(path, 19), 20u);
    EXPECT_EQ(GetSystemDirectoryW(path, 20), 19u);
    EXPECT_EQ(std::u16string(path), u"C:\\WINDOWS\\system32");
}

struct PathRow {
    const char16_t* path;
    const char16_t* full;
    const char16_t* filePart;  // null: nothing follows the last slash
};
constexpr PathRow AbsolutePaths[] = {
    {u"/a/b.oxl",   u"/a/b.oxl",   u"b.oxl"},
    {u"/a/./b//c",  u"/a/b/c",     u"c"    },
    {u"/a/../b",    u"/b",         u"b"    },
    {u"/../..",     u"/",          nullptr },
    {u"/a/",        u"/a/",        nullptr },
    {u"/a/b/..",    u"/a",         u"a"    },
    {u"/a\\b/c\\d", u"/a\\b/c\\d", u"c\\d" },
};

TEST_F(System, PathsAreMadeWholeAndCutAtTheLastSlash)
{
    for (const PathRow& row : AbsolutePaths) {
        WCHAR full[MAX_PATH];
        WCHAR* part = full;
        EXPECT_EQ(GetFullPathNameW(row.path, MAX_PATH, full, &part), std::u16string_view(row.full).size());
        EXPECT_EQ(std::u16string(full), row.full);
        if (row.filePart == nullptr)
            EXPECT_EQ(part, nullptr) << ToUtf8(row.path);
        else
            EXPECT_EQ(std::u16string(part), row.filePart);
    }
    WCHAR full[4] = u"...";
    EXPECT_EQ(GetFullPathNameW(u"/abc", 4, full, nullptr), 5u);
    EXPECT_EQ(std::u16string(full), u"...");
    EXPECT_EQ(GetFullPathNameW(u"", 4, full, nullptr), 0u);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_NAME);
}

TEST_F(System, ARelativePathStartsInTheCurrentDirectory)
{
    const std::u16string here = ToWide(std::filesystem::current_path().native());
    EXPECT_EQ(FullPath(u"-New-"), here + u"/-New-");
    EXPECT_EQ(FullPath(u"."), here);
}

}  // namespace
}  // namespace platform
