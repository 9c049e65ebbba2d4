#include "spooler/ui_context.h"

#include "spooler/printer_data.h"
#include "tests/spooler/printer_fixture.h"

namespace {

using namespace testing_support;

struct Closer {
    void operator()(UiContext* context) const { CloseUiContext(context); }
};
using Opened = std::unique_ptr<UiContext, Closer>;

class Context : public PrinterTest {
  protected:
    Opened Open(const DEVMODEW* input = nullptr) { return Opened(OpenUiContext(printer, u"ignored", input)); }
    void StoreDefault(const DriverDevMode& record, std::size_t bytes = sizeof(DriverDevMode))
    {
        platform::Bytes image = BytesOf(record);
        image.resize(bytes);
        machine.store->SetDefaultRecord(OfficePrinter, image);
    }
};

TEST_F(Context, LaysTheStoredRecordOverTheDefaultsAndTheCallersOverThat)
{
    DriverDevMode stored = BusyRecord(), input = BusyRecord();
    stored.dmZoom = 150;
    stored.dmFields = DM_COPIES | DM_ORIENTATION;
    stored.dmCopies = 3;
    stored.dmOrientation = 2;
    input.dmFields = DM_COPIES;
    input.dmCopies = 5;
    input.dmDriverExtra = 0;
    StoreDefault(stored);
    const Opened context = Open(PublicPart(&input));
    EXPECT_EQ(context->settings.dmZoom, 150);
    EXPECT_EQ(context->settings.dmOrientation, 2);
    EXPECT_EQ(context->settings.dmCopies, 5);
    EXPECT_EQ(context->settings.dmScale, 100);
}

struct UnusableRow {
    WORD version, size;
    std::size_t bytes;
};

TEST_F(Context, PassesOverAStoredRecordThatCannotBeUsed)
{
    constexpr UnusableRow rows[] = {
        {1024, 220, 1848},
        {1025, 188, 1848},
        {1025, 220, 40  },
        {1025, 220, 1   }
    };
    for (const UnusableRow& row : rows) {
        DriverDevMode stored = BusyRecord();
        stored.dmSpecVersion = row.version;
        stored.dmSize = row.size;
        StoreDefault(stored, row.bytes);
        EXPECT_EQ(Open()->settings.dmZoom, 100) << row.version << ' ' << row.size << ' ' << row.bytes;
    }
}

TEST_F(Context, FindsTray2InThePrintersOwnKey)
{
    machine.store->SetKeyValue(platform::PrinterKeyPath(OfficePrinter), u"tray2",
                               {
                                   1, {'1', 0, 0, 0}
    });
    EXPECT_EQ(Open()->settings.dmDeviceFlags, 128u);
}

struct BlockRow {
    platform::Bytes stored;
    platform::Bytes held;
};

TEST_F(Context, HoldsThePrintersDataAsFarAsItsSizeSays)
{
    const std::vector<BlockRow> rows = {
        {{0x20, 3, 8, 0, 1, 2, 3, 4},     {0, 4, 8, 0, 1, 2, 3, 4}},
        {{0x20, 3, 6, 0, 1, 2, 3, 4},     {0, 4, 8, 0, 1, 2, 0, 0}},
        {{0x20, 3, 0, 0, 1, 2, 3, 4},     {0, 4, 8, 0, 0, 0, 0, 0}},
        {{0x20, 3, 255, 255, 1, 2, 3, 4}, {0, 4, 8, 0, 1, 2, 3, 4}},
        {{0x20},                          {0, 4, 8, 0, 0, 0, 0, 0}},
    };
    for (const BlockRow& row : rows) {
        WritePrinterDataBlock(printer, row.stored.data(), static_cast<DWORD>(row.stored.size()));
        EXPECT_EQ(BytesOf(Open()->printerData), row.held) << testing::PrintToString(row.stored);
    }
}

struct FaultRow {
    const char* function;
    std::uint64_t call;
};

// Calls whose failure leaves no context; the fixture sees that nothing stays behind.
TEST_F(Context, IsNotOpenedByHalves)
{
    constexpr FaultRow rows[] = {
        {"HeapCreate",  1},
        {"HeapAlloc",   1},
        {"HeapAlloc",   2},
        {"GetPrinterW", 1},
        {"GetPrinterW", 2},
        {"GlobalAlloc", 1},
    };
    for (const FaultRow& row : rows) {
        platform::CurrentEnvironment().faults.Clear();
        Machine::Fail(row.function, row.call);
        EXPECT_EQ(Open(), nullptr) << row.function << row.call;
    }
    EXPECT_EQ(OpenUiContext(nullptr, u"Office", nullptr), nullptr);
}

TEST(ContextOfALongName, IsRefusedWhereTheNameDoesNotFit)
{
    for (std::size_t length : {255u, 256u}) {
        const std::u16string name(length, u'n');
        const Machine machine({}, {name, OfficeDriver});
        HANDLE printer = platform::spooler::Open(name, 0);
        const Opened context(OpenUiContext(printer, nullptr, nullptr));
        EXPECT_EQ(context != nullptr, length == 255u);
        EXPECT_EQ(std::u16string(PrinterName), std::u16string(255, u'n'));
        platform::spooler::Close(printer);
    }
}

TEST_F(Context, IsNotWholeWithABrokenGuard)
{
    const Opened context = Open();
    context->selfEnd = nullptr;
    EXPECT_FALSE(IsWholeContext(context.get()));
    context->selfEnd = context->self;
    context->self = nullptr;
    EXPECT_FALSE(IsWholeContext(context.get()));
    EXPECT_FALSE(IsWholeContext(nullptr));
}

}  // namespace
