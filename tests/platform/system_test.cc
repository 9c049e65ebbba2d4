// Locale, version, user, and paths.
#include <filesystem>

#include "platform/kernel/paths.h"
#include "platform/kernel/unicode.h"
#include "tests/platform/fresh_environment.h"

namespace platform {
namespace {

class System : public FreshEnvironment {};

// What is told of country, user and version, the job header's tests read.
TEST_F(System, AnswersAsFarAsThereIsRoom)
{
    WCHAR text[] = u"keep";
    OSVERSIONINFOW version{};
    version.dwOSVersionInfoSize = 280;
    EXPECT_FALSE(GetVersionExW(&version));
    DWORD chars = 4;
    EXPECT_EQ(Refusal(GetUserNameW(text, &chars)), ERROR_INSUFFICIENT_BUFFER);
    EXPECT_EQ(chars, 5u);
    EXPECT_EQ(Refusal(GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_ILANGUAGE, text, 4)), ERROR_INSUFFICIENT_BUFFER);
    EXPECT_EQ(Refusal(GetLocaleInfoW(LOCALE_USER_DEFAULT, 0x7777, text, 4)), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(std::u16string(text), u"keep");
    WCHAR path[MAX_PATH];
    EXPECT_EQ(GetSystemDirectoryW(path, 19), 20u);
    EXPECT_EQ(GetSystemDirectoryW(path, 20), 19u);
    EXPECT_EQ(std::u16string(path), u"C:\\WINDOWS\\system32");
}

struct PathRow {
    const char16_t* path;
    const char16_t* full;
    const char16_t* filePart;
};
constexpr PathRow AbsolutePaths[] = {
    {u"/a/b.oxl",   u"/a/b.oxl",   u"b.oxl"},
    {u"/a/./b//c",  u"/a/b/c",     u"c"    },
    {u"/a/../b",    u"/b",         u"b"    },
    {u"/../..",     u"/",          u""     },
    {u"/a/",        u"/a/",        u""     },
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
        EXPECT_EQ(std::u16string(part ? part : u""), row.filePart);
    }
    WCHAR full[4] = u"...";
    EXPECT_EQ(GetFullPathNameW(u"/abc", 4, full, nullptr), 5u);
    EXPECT_EQ(std::u16string(full), u"...");
    EXPECT_EQ(Refusal(GetFullPathNameW(u"", 4, full, nullptr)), ERROR_INVALID_NAME);
    const std::u16string here = ToWide(std::filesystem::current_path().native());
    EXPECT_EQ(FullPath(u"-New-"), here + u"/-New-");
    EXPECT_EQ(FullPath(u"."), here);
}

}  // namespace
}  // namespace platform
