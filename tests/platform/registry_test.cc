#include "platform/registry.h"

#include "tests/platform/fresh_environment.h"

namespace platform {
namespace {

class Registry : public FreshEnvironment {
  protected:
    DWORD Open(const std::u16string& printer, REGSAM access)
    {
        return static_cast<DWORD>(RegOpenKeyExW(HKEY_LOCAL_MACHINE, PrinterKeyPath(printer).c_str(), 0, access, &key));
    }
    DWORD Set(const WCHAR* name) { return static_cast<DWORD>(RegSetValueExW(key, name, 0, REG_BINARY, Four, 4)); }
    DWORD Query(const WCHAR* name, BYTE* data)
    {
        return static_cast<DWORD>(RegQueryValueExW(key, name, nullptr, &type, data, &bytes));
    }
    DWORD Close() { return static_cast<DWORD>(RegCloseKey(key)); }

    HKEY key = nullptr;
    DWORD type = 0, bytes = 0;
    static constexpr BYTE Four[] = {1, 2, 3, 4};
};

TEST_F(Registry, KeepsAValueOfAPrintersKeyAndReadsItWithinItsRoom)
{
    ASSERT_EQ(Open(Printer, KEY_ALL_ACCESS), 0u);
    EXPECT_EQ(Set(u"tray2"), 0u);
    EXPECT_EQ(Close(), 0u);
    EXPECT_EQ(Close(), ERROR_INVALID_HANDLE);
    ASSERT_EQ(Open(Printer, KEY_READ), 0u);
    EXPECT_EQ(Set(u"tray3"), ERROR_ACCESS_DENIED);
    EXPECT_EQ(Query(u"tray3", nullptr), ERROR_FILE_NOT_FOUND);
    BYTE data[] = {9, 9, 9, 9};
    bytes = 3;
    EXPECT_EQ(Query(u"tray2", data), ERROR_MORE_DATA);
    EXPECT_EQ(bytes, 4u);
    EXPECT_EQ(data[0], 9);
    EXPECT_EQ(Query(u"tray2", data), 0u);
    EXPECT_EQ(type, REG_BINARY);
    EXPECT_EQ(data[3], 4);
    bytes = 0;
    EXPECT_EQ(Query(u"tray2", nullptr), 0u);
    EXPECT_EQ(bytes, 4u);
    EXPECT_EQ(Close(), 0u);
}

TEST_F(Registry, RightsToAKeyAreThoseToItsPrinter)
{
    EXPECT_EQ(Open(LockedPrinter, KEY_ALL_ACCESS), ERROR_ACCESS_DENIED);
    EXPECT_EQ(Open(u"Nowhere", KEY_READ), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(key, nullptr);
    EXPECT_EQ(Open(LockedPrinter, KEY_READ), 0u);
    EXPECT_EQ(Close(), 0u);
}

TEST(MemoryStore, KeepsWhatPrintersThatExistHave)
{
    const StoredValue four{
        REG_DWORD, {1, 2, 3, 4}
    };
    MemoryStore store;
    const std::u16string key = PrinterKeyPath(u"A");
    EXPECT_EQ(key, u"SYSTEM\\CurrentControlSet\\Control\\Print\\Printers\\A\\PrinterDriverData");
    EXPECT_FALSE(store.SetValue(u"A", u"v", four));
    EXPECT_FALSE(store.SetDefaultRecord(u"A", {1}));
    EXPECT_TRUE(store.Add({u"B", u"", true}));
    EXPECT_TRUE(store.Add({u"A", u"", true}));
    EXPECT_FALSE(store.Add({u"A", u"other", false}));
    EXPECT_EQ(store.Printers().at(0), (PrinterEntry{u"A", u"", true}));
    EXPECT_TRUE(store.SetValue(u"A", u"v", four));
    EXPECT_TRUE(store.DeleteValue(u"A", u"v"));
    EXPECT_FALSE(store.DeleteValue(u"A", u"v"));
    EXPECT_TRUE(store.SetKeyValue(key, u"tray2", four));
    store.Remove(u"A");
    store.Add({u"A", u"", true});
    EXPECT_EQ(store.KeyValue(key, u"tray2"), std::nullopt);
}

}  // namespace
}  // namespace platform
