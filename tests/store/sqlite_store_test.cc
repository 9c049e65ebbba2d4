// What a store keeps, and that it keeps it exactly.
#include "store/sqlite_store.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/registry.h"
#include "tests/store/temporary.h"

using platform::Bytes;
using platform::PrinterEntry;
using platform::PrinterKeyPath;
using platform::StoredValue;
using platform::StoredValues;
using platform::StoreError;
using store::SqliteStore;
using testing::ElementsAre;
using Access = platform::RegistryStore::Access;

namespace {

constexpr char16_t First[] = u"Ordana Quillet 4820E";
const StoredValue Eight{
    REG_DWORD, {8, 0, 0, 0}
};
const StoredValue Blob{
    REG_BINARY, {0, 255, 0, 1}
};

class SqliteStoreTest : public testing::Test {
  protected:
    TemporaryFolder folder;
    SqliteStore store{folder / "printers.db"};
    SqliteStore Again() { return SqliteStore(folder / "printers.db"); }
};

TEST_F(SqliteStoreTest, IsMadeWithTheOnePrinter)
{
    EXPECT_THAT(store.Printers(), ElementsAre(PrinterEntry{First, First, true}));
    EXPECT_EQ(store.Values(First), StoredValues{});
    EXPECT_EQ(store.DefaultRecord(First), Bytes{});
    EXPECT_EQ(store.KeyAccess(PrinterKeyPath(First)), Access::Full);
}

TEST_F(SqliteStoreTest, KeepsWhatItIsGiven)
{
    EXPECT_TRUE(store.Add({u"Zweiter", u"Treiber", false}));
    EXPECT_TRUE(store.SetValue(u"Zweiter", u"PrinterDataSize", Eight));
    EXPECT_TRUE(store.SetValue(u"Zweiter", u"PrinterData", Blob));
    EXPECT_TRUE(store.SetKeyValue(PrinterKeyPath(u"Zweiter"), u"tray2", Eight));
    EXPECT_TRUE(store.SetDefaultRecord(u"Zweiter", {1, 2, 3}));

    SqliteStore again = Again();
    EXPECT_EQ(again.Find(u"Zweiter"), (PrinterEntry{u"Zweiter", u"Treiber", false}));
    EXPECT_EQ(again.Values(u"Zweiter"), (StoredValues{
                                            {u"PrinterData",     Blob },
                                            {u"PrinterDataSize", Eight}
    }));
    EXPECT_EQ(again.KeyValues(PrinterKeyPath(u"Zweiter")), (StoredValues{
                                                               {u"tray2", Eight}
    }));
    EXPECT_EQ(again.DefaultRecord(u"Zweiter"), (Bytes{1, 2, 3}));
    EXPECT_EQ(again.Values(First), StoredValues{});
}

TEST_F(SqliteStoreTest, ReplacesAndDeletesValues)
{
    store.SetValue(First, u"V", Eight);
    store.SetValue(First, u"V", Blob);
    EXPECT_EQ(store.Value(First, u"V"), Blob);
    EXPECT_TRUE(store.DeleteValue(First, u"V"));
    EXPECT_FALSE(store.DeleteValue(First, u"V"));
    EXPECT_EQ(store.Value(First, u"V"), std::nullopt);
}

TEST_F(SqliteStoreTest, KeepsStoredDataAndRegistryApart)
{
    store.SetValue(First, u"V", Eight);
    store.SetKeyValue(PrinterKeyPath(First), u"V", Blob);
    EXPECT_TRUE(store.DeleteValue(First, u"V"));
    EXPECT_EQ(store.KeyValue(PrinterKeyPath(First), u"V"), Blob);
    EXPECT_TRUE(store.DeleteKeyValue(PrinterKeyPath(First), u"V"));
    EXPECT_EQ(store.KeyValue(PrinterKeyPath(First), u"V"), std::nullopt);
}

TEST_F(SqliteStoreTest, TakesEmptyValuesAndTypesOfEveryWidth)
{
    const StoredValue empty{0xFFFFFFFF, {}};
    EXPECT_TRUE(store.SetValue(First, u"", empty));
    EXPECT_EQ(store.Value(First, u""), empty);
    store.SetDefaultRecord(First, {1});
    EXPECT_TRUE(store.SetDefaultRecord(First, {}));
    EXPECT_EQ(store.DefaultRecord(First), Bytes{});
}

TEST_F(SqliteStoreTest, TellsNamesApartByEveryCodeUnit)
{
    const std::u16string names[] = {
        u"a",
        u"A",
        u"\u00e4",
        u"a\u0308",
        {u'a',    0, u'b'},
        {u'a',   0},
        {0xD800   },
        {0xDC00      },
        {0xDC00,    0xD800},
        {0xD83D, 0xDE00},
        {0xFFFF},
        {0xFFFD },
        u"%",
        u"'",
        u"a "
    };
    BYTE number = 0;
    for (const std::u16string& name : names) {
        EXPECT_TRUE(store.Add({name, name, true}));
        EXPECT_TRUE(store.SetValue(First, name, {REG_BINARY, {++number}}));
    }
    SqliteStore again = Again();
    number = 0;
    for (const std::u16string& name : names) {
        EXPECT_EQ(again.Value(First, name), (StoredValue{REG_BINARY, {++number}}));
        EXPECT_EQ(again.Find(name), (PrinterEntry{name, name, true}));
    }
    EXPECT_EQ(again.Values(First).size(), std::size(names));
}

TEST_F(SqliteStoreTest, ListsPrintersByTheirCodeUnits)
{
    store.Add({u"\uFF5E", u"", true});
    store.Add({u"\U0001F5A8", u"", true});
    const auto printers = store.Printers();
    EXPECT_EQ(printers[1].name, u"\U0001F5A8");
    EXPECT_EQ(printers[2].name, u"\uFF5E");
}

TEST_F(SqliteStoreTest, RemovesAPrinterWithAllThatItHad)
{
    store.SetValue(First, u"V", Eight);
    store.SetKeyValue(PrinterKeyPath(First), u"V", Eight);
    store.SetDefaultRecord(First, {1});
    EXPECT_TRUE(store.Remove(First));
    EXPECT_FALSE(store.Remove(First));
    EXPECT_EQ(store.KeyAccess(PrinterKeyPath(First)), Access::None);

    EXPECT_TRUE(store.Add({First, u"", true}));
    EXPECT_EQ(store.Values(First), StoredValues{});
    EXPECT_EQ(store.KeyValues(PrinterKeyPath(First)), StoredValues{});
    EXPECT_EQ(store.DefaultRecord(First), Bytes{});
}

TEST_F(SqliteStoreTest, TakesNoNameTwiceAndNoValueWithoutAPrinter)
{
    EXPECT_FALSE(store.Add({First, u"other", false}));
    EXPECT_EQ(store.Find(First)->driverName, First);
    EXPECT_FALSE(store.SetValue(u"none", u"V", Eight));
    EXPECT_FALSE(store.SetDefaultRecord(u"none", {1}));
    EXPECT_FALSE(store.SetKeyValue(PrinterKeyPath(u"none"), u"V", Eight));
}

TEST_F(SqliteStoreTest, HasNoKeysButThePrinters)
{
    const std::u16string path = PrinterKeyPath(First);
    EXPECT_EQ(store.KeyAccess(path.substr(1)), Access::None);
    EXPECT_EQ(store.KeyAccess(path + u"\\Sub"), Access::None);
    EXPECT_EQ(store.KeyAccess(u""), Access::None);
    EXPECT_FALSE(store.SetKeyValue(u"SOFTWARE", u"V", Eight));
}

TEST_F(SqliteStoreTest, GivesAReadOnlyPrintersKeyForReading)
{
    store.Add({u"Locked", u"", false});
    EXPECT_EQ(store.KeyAccess(PrinterKeyPath(u"Locked")), Access::Read);
    EXPECT_TRUE(store.SetValue(u"Locked", u"V", Eight));
}

TEST_F(SqliteStoreTest, TakesLargeValuesButNoneBeyondItsLimit)
{
    const StoredValue large{REG_BINARY, Bytes(std::size_t{8} << 20, 0x5A)};
    EXPECT_TRUE(store.SetValue(First, u"V", large));
    EXPECT_TRUE(store.Value(First, u"V") == large);
    EXPECT_THROW(store.SetValue(First, u"V", {REG_BINARY, Bytes(store::ValueLimit + 1)}), StoreError);
    EXPECT_THROW(store.SetValue(First, std::u16string(40000, u'n'), Eight), StoreError);
    EXPECT_TRUE(store.Value(First, u"V") == large);
}

}  // namespace
