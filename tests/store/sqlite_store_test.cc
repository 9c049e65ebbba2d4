// What a store keeps, and that it keeps it exactly.
#include "store/sqlite_store.h"

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
using testing::IsEmpty;
using testing::Pair;
using Access = platform::RegistryStore::Access;

namespace {

constexpr char16_t First[] = u"Ordana Quillet 4820E";
const std::u16string FirstKey = PrinterKeyPath(First);
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

    void ExpectNothingStored()
    {
        EXPECT_THAT(store.Values(First), IsEmpty());
        EXPECT_THAT(store.KeyValues(FirstKey), IsEmpty());
        EXPECT_THAT(store.DefaultRecord(First), IsEmpty());
    }
};

TEST_F(SqliteStoreTest, IsMadeWithTheOnePrinter)
{
    EXPECT_THAT(store.Printers(), ElementsAre(PrinterEntry{First, First, true}));
    ExpectNothingStored();
    EXPECT_EQ(store.KeyAccess(FirstKey), Access::Full);
}

TEST_F(SqliteStoreTest, KeepsWhatItIsGiven)
{
    const PrinterEntry second{u"Zweiter", u"Treiber", false};
    EXPECT_TRUE(store.Add(second));
    EXPECT_TRUE(store.SetValue(second.name, u"PrinterDataSize", Eight));
    EXPECT_TRUE(store.SetValue(second.name, u"PrinterData", Blob));
    EXPECT_TRUE(store.SetKeyValue(PrinterKeyPath(second.name), u"tray2", Eight));
    EXPECT_TRUE(store.SetDefaultRecord(second.name, {1, 2, 3}));

    SqliteStore again = Again();
    EXPECT_EQ(again.Find(second.name), second);
    EXPECT_THAT(again.Values(second.name), ElementsAre(Pair(u"PrinterData", Blob), Pair(u"PrinterDataSize", Eight)));
    EXPECT_THAT(again.KeyValues(PrinterKeyPath(second.name)), ElementsAre(Pair(u"tray2", Eight)));
    EXPECT_EQ(again.DefaultRecord(second.name), (Bytes{1, 2, 3}));
    ExpectNothingStored();
}

TEST_F(SqliteStoreTest, ReplacesAndDeletesStoredDataApartFromTheRegistry)
{
    store.SetValue(First, u"V", Eight);
    store.SetValue(First, u"V", Blob);
    store.SetKeyValue(FirstKey, u"V", Eight);
    EXPECT_EQ(store.Value(First, u"V"), Blob);
    EXPECT_TRUE(store.DeleteValue(First, u"V"));
    EXPECT_FALSE(store.DeleteValue(First, u"V"));
    EXPECT_EQ(store.Value(First, u"V"), std::nullopt);
    EXPECT_EQ(store.KeyValue(FirstKey, u"V"), Eight);
    EXPECT_TRUE(store.DeleteKeyValue(FirstKey, u"V"));
    EXPECT_EQ(store.KeyValue(FirstKey, u"V"), std::nullopt);
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
    std::vector<std::u16string> names = {u"a\u0308", u"a ", u"\xDC00\xD800", u"\xD83D\xDE00"};
    for (const char16_t unit : u"aA\u00e4\xD800\xDC00\xFFFF\xFFFD%'") names.emplace_back(1, unit);  // 0, too
    names.emplace_back(u"a\0b", 3);
    for (std::size_t k = 0; k < names.size(); ++k) {
        EXPECT_TRUE(store.Add({names[k], names[k], true}));
        EXPECT_TRUE(store.SetValue(First, names[k], {static_cast<DWORD>(k), {}}));
    }
    SqliteStore again = Again();
    for (std::size_t k = 0; k < names.size(); ++k) {
        EXPECT_EQ(again.Value(First, names[k])->type, k);
        EXPECT_EQ(again.Find(names[k]), (PrinterEntry{names[k], names[k], true}));
    }
    EXPECT_EQ(again.Values(First).size(), names.size());
}

TEST_F(SqliteStoreTest, ListsPrintersByTheirCodeUnits)
{
    const PrinterEntry last{u"\uFF5E", u"", true}, middle{u"\U0001F5A8", u"", true};
    store.Add(last);
    store.Add(middle);
    EXPECT_THAT(store.Printers(), ElementsAre(PrinterEntry{First, First, true}, middle, last));
}

TEST_F(SqliteStoreTest, RemovesAPrinterWithAllThatItHad)
{
    store.SetValue(First, u"V", Eight);
    store.SetKeyValue(FirstKey, u"V", Eight);
    store.SetDefaultRecord(First, {1});
    EXPECT_TRUE(store.Remove(First));
    EXPECT_FALSE(store.Remove(First));
    EXPECT_EQ(store.KeyAccess(FirstKey), Access::None);
    EXPECT_TRUE(store.Add({First, u"", true}));
    ExpectNothingStored();
}

TEST_F(SqliteStoreTest, TakesNoNameTwiceAndNoValueWithoutAPrinter)
{
    EXPECT_FALSE(store.Add({First, u"other", false}));
    EXPECT_EQ(store.Find(First)->driverName, First);
    EXPECT_FALSE(store.SetValue(u"none", u"V", Eight));
    EXPECT_FALSE(store.SetDefaultRecord(u"none", {1}));
    EXPECT_FALSE(store.SetKeyValue(PrinterKeyPath(u"none"), u"V", Eight));
    EXPECT_FALSE(store.SetKeyValue(u"SOFTWARE", u"V", Eight));
}

TEST_F(SqliteStoreTest, HasNoKeysButThePrintersAndAReadOnlyOnesForReading)
{
    for (const std::u16string& path :
         {FirstKey.substr(1), FirstKey + u"\\Sub", FirstKey.substr(0, FirstKey.size() - 1) + u"x"})
        EXPECT_EQ(store.KeyAccess(path), Access::None);
    store.Add({u"Locked", u"", false});
    EXPECT_EQ(store.KeyAccess(PrinterKeyPath(u"Locked")), Access::Read);
    EXPECT_TRUE(store.SetValue(u"Locked", u"V", Eight));
}

TEST_F(SqliteStoreTest, TakesLargeValuesButNoneBeyondItsLimit)
{
    const StoredValue large{REG_BINARY, Bytes(std::size_t{8} << 20, 0x5A)};
    EXPECT_TRUE(store.SetValue(First, u"V", large));
    EXPECT_THROW(store.SetValue(First, u"V", {REG_BINARY, Bytes(store::ValueLimit + 1)}), StoreError);
    EXPECT_THROW(store.SetValue(First, std::u16string(40000, u'n'), Eight), StoreError);
    EXPECT_TRUE(store.Value(First, u"V") == large);
}

}  // namespace
