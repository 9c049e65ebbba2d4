#include "platform/registry.h"

#include "platform/registry/keys.h"
#include "tests/platform/fresh_environment.h"

namespace platform {
namespace {

class Registry : public FreshEnvironment {
  protected:
    static LONG Open(const std::u16string& printer, REGSAM access, HKEY* key)
    {
        return RegOpenKeyExW(HKEY_LOCAL_MACHINE, PrinterKeyPath(printer).c_str(), 0, access, key);
    }
    static constexpr BYTE Four[] = {1, 2, 3, 4};
};

TEST_F(Registry, KeepsAValueOfAPrintersKeyAndReadsItWithinItsRoom)
{
    HKEY key = nullptr;
    ASSERT_EQ(Open(Printer, KEY_ALL_ACCESS, &key), 0);
    EXPECT_EQ(RegSetValueExW(key, u"tray2", 0, REG_BINARY, Four, 4), 0);
    EXPECT_EQ(RegCloseKey(key), 0);
    EXPECT_EQ(registry::OpenCount(), 0u);
    EXPECT_EQ(RegCloseKey(key), static_cast<LONG>(ERROR_INVALID_HANDLE));

    ASSERT_EQ(Open(Printer, KEY_READ, &key), 0);
    EXPECT_EQ(RegSetValueExW(key, u"tray3", 0, REG_BINARY, Four, 4), static_cast<LONG>(ERROR_ACCESS_DENIED));
    DWORD type = 0, bytes = 3;
    BYTE data[] = {9, 9, 9, 9};
    EXPECT_EQ(RegQueryValueExW(key, u"tray2", nullptr, &type, data, &bytes), static_cast<LONG>(ERROR_MORE_DATA));
    EXPECT_EQ(bytes, 4u);
    EXPECT_EQ(data[0], 9);
    EXPECT_EQ(RegQueryValueExW(key, u"tray2", nullptr, &type, data, &bytes), 0);
    EXPECT_EQ(type, REG_BINARY);
    EXPECT_EQ(data[3], 4);
    bytes = 0;
    EXPECT_EQ(RegQueryValueExW(key, u"tray2", nullptr, nullptr, nullptr, &bytes), 0);
    EXPECT_EQ(bytes, 4u);
    EXPECT_EQ(RegQueryValueExW(key, u"tray3", nullptr, nullptr, nullptr, &bytes),
              static_cast<LONG>(ERROR_FILE_NOT_FOUND));
    RegCloseKey(key);
}

TEST_F(Registry, RightsToAKeyAreThoseToItsPrinter)
{
    HKEY key = nullptr;
    EXPECT_EQ(Open(LockedPrinter, KEY_ALL_ACCESS, &key), static_cast<LONG>(ERROR_ACCESS_DENIED));
    EXPECT_EQ(Open(u"Nowhere", KEY_READ, &key), static_cast<LONG>(ERROR_FILE_NOT_FOUND));
    EXPECT_EQ(key, nullptr);
    EXPECT_EQ(Open(LockedPrinter, KEY_READ, &key), 0);
    RegCloseKey(key);
}

}  // namespace
}  // namespace platform
