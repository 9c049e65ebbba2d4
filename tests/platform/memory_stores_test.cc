#include "platform/seams/memory_stores.h"

namespace platform {
namespace {

const StoredValue Number{
    4, {1, 2, 3, 4}
};

TEST(MemoryStore, KeepsWhatPrintersThatExistHave)
{
    MemoryStore store;
    const std::u16string key = PrinterKeyPath(u"A");
    EXPECT_EQ(key, u"SYSTEM\\CurrentControlSet\\Control\\Print\\Printers\\A\\PrinterDriverData");
    EXPECT_FALSE(store.SetValue(u"A", u"v", Number));
    EXPECT_FALSE(store.SetDefaultRecord(u"A", {1}));
    EXPECT_TRUE(store.Add({u"B", u"", true}));
    EXPECT_TRUE(store.Add({u"A", u"", true}));
    EXPECT_FALSE(store.Add({u"A", u"other", false}));
    EXPECT_EQ(store.Printers().at(0), (PrinterEntry{u"A", u"", true}));
    EXPECT_TRUE(store.SetValue(u"A", u"v", Number));
    EXPECT_TRUE(store.DeleteValue(u"A", u"v"));
    EXPECT_FALSE(store.DeleteValue(u"A", u"v"));
    EXPECT_TRUE(store.SetKeyValue(key, u"tray2", Number));
    store.Remove(u"A");
    store.Add({u"A", u"", true});
    EXPECT_EQ(store.KeyValue(key, u"tray2"), std::nullopt);
}

}  // namespace
}  // namespace platform
