#include "platform/seams/memory_stores.h"

namespace platform {
namespace {

using Access = RegistryStore::Access;

const StoredValue Number{
    4, {1, 2, 3, 4}
};

TEST(MemoryStore, KeepsWhatPrintersThatExistHave)
{
    MemoryStore store;
    EXPECT_FALSE(store.SetValue(u"A", u"v", Number));
    EXPECT_FALSE(store.SetDefaultRecord(u"A", {1}));
    EXPECT_TRUE(store.Add({u"B", u"", true}));
    EXPECT_TRUE(store.Add({u"A", u"", true}));
    EXPECT_FALSE(store.Add({u"A", u"other", false}));
    EXPECT_EQ(store.Printers().at(0).name, u"A");
    EXPECT_EQ(store.Printers().at(0).driverName, u"");
    EXPECT_TRUE(store.SetValue(u"A", u"v", Number));
    EXPECT_EQ(store.Value(u"A", u"v"), Number);
    EXPECT_TRUE(store.DeleteValue(u"A", u"v"));
    EXPECT_FALSE(store.DeleteValue(u"A", u"v"));
    EXPECT_TRUE(store.SetDefaultRecord(u"A", {1, 2}));
    EXPECT_EQ(store.DefaultRecord(u"A"), (Bytes{1, 2}));
}

TEST(MemoryStore, APrintersKeyExistsAsLongAsThePrinter)
{
    MemoryStore store;
    const std::u16string path = PrinterKeyPath(u"A");
    EXPECT_EQ(path, u"SYSTEM\\CurrentControlSet\\Control\\Print\\Printers\\A\\PrinterDriverData");
    EXPECT_EQ(store.KeyAccess(path), Access::None);
    store.Add({u"A", u"", true});
    EXPECT_EQ(store.KeyAccess(path), Access::Full);
    EXPECT_TRUE(store.SetKeyValue(path, u"tray2", Number));
    store.Remove(u"A");
    EXPECT_EQ(store.KeyAccess(path), Access::None);
    store.Add({u"A", u"", false});
    EXPECT_EQ(store.KeyAccess(path), Access::Read);
    EXPECT_EQ(store.KeyValue(path, u"tray2"), std::nullopt);
}

}  // namespace
}  // namespace platform
