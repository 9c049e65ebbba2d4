// Locale, version, user, and paths.
#include <filesystem>

#include "platform/kernel/paths.h"
#include "platform/kernel/unicode.h"
#include "tests/platform/fresh_environment.h"

namespace platform {
namespace {

class System : public FreshEnvironment {};

std::u16string LocaleText(LCTYPE type)
{
    WCHAR text[16] = {};
    const int length = GetLocaleInfoW(LOCALE_USER_DEFAULT, type, text, 16);
    EXPECT_EQ(length, GetLocaleInfoW(LOCALE_USER_DEFAULT, type, nullptr, 0));
    EXPECT_EQ(length, lstrlenW(text) + 1);
    return text;
}

TEST_F(System, TellsCountryAndLanguage)
{
    EXPECT_EQ(LocaleText(LOCALE_ICOUNTRY), u"1");
    EXPECT_EQ(LocaleText(LOCALE_ILANGUAGE), u"0409");
    FixedFactValues values;
    values.country = 886;
    values.language = 0x0C0A;
    UseFacts(values);
    EXPECT_EQ(LocaleText(LOCALE_ICOUNTRY), u"886");
    EXPECT_EQ(LocaleText(LOCALE_ILANGUAGE), u"0c0a");
}

TEST_F(System, LocaleQuestionsThatCannotBeAnsweredFail)
{
    WCHAR text[] = u"keep";
    EXPECT_EQ(GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_ILANGUAGE, text, 4), 0);
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
    EXPECT_EQ(GetLocaleInfoW(LOCALE_USER_DEFAULT, 0x7777, text, 4), 0);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(std::u16string(text), u"keep");
}

TEST_F(System, TellsTheVersionInBothForms)
{
    OSVERSIONINFOEXW info{};
    auto* asked = reinterpret_cast<OSVERSIONINFOW*>(&info);
    info.dwOSVersionInfoSize = 284;
    ASSERT_TRUE(GetVersionExW(asked));
    EXPECT_EQ(info.dwMajorVersion, 5u);
    EXPECT_EQ(info.dwBuildNumber, 2600u);
    EXPECT_EQ(info.wServicePackMajor, 2);
    EXPECT_EQ(std::u16string(info.szCSDVersion), u"Service Pack 2");

    info = {};
    info.dwOSVersionInfoSize = 276;
    ASSERT_TRUE(GetVersionExW(asked));
    EXPECT_EQ(info.dwPlatformId, 2u);
    EXPECT_EQ(info.wServicePackMajor, 0);

    info.dwOSVersionInfoSize = 280;
    EXPECT_FALSE(GetVersionExW(asked));
}

TEST_F(System, TheUsersNameNeedsRoomForItsTerminator)
{
    FixedFactValues values;
    values.userName = u"anna";
    UseFacts(values);
    WCHAR name[8];
    DWORD chars = 4;
    EXPECT_FALSE(GetUserNameW(name, &chars));
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
    EXPECT_EQ(chars, 5u);
    EXPECT_TRUE(GetUserNameW(name, &chars));
    EXPECT_EQ(std::u16string(name), u"anna");
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
