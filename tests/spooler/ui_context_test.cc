#include "spooler/ui_context.h"

#include "spooler/printer_data.h"
#include "tests/support/printer_fixture.h"

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
    SetFields(stored, "dmZoom=150 dmFields=0x101 dmCopies=3 dmOrientation=2");
    SetFields(input, "dmFields=0x100 dmCopies=5 dmDriverExtra=0");
    StoreDefault(stored);
    const Opened context = Open(PublicPart(&input));
    EXPECT_EQ(context->settings.dmZoom, 150);
    EXPECT_EQ(context->settings.dmOrientation, 2);
    EXPECT_EQ(context->settings.dmCopies, 5);
    EXPECT_EQ(context->settings.dmScale, 100);
}

TEST_F(Context, PassesOverAStoredRecordThatCannotBeUsed)
{
    for (const auto& [fields, bytes] : {
             std::pair{"dmSpecVersion=1024", 1848u},
             {"dmSize=188",         1848u},
             {"dmSize=220",         40u  },
             {"dmSize=220",         1u   },
    }) {
        DriverDevMode stored = BusyRecord();
        SetFields(stored, fields);
        StoreDefault(stored, bytes);
        EXPECT_EQ(Open()->settings.dmZoom, 100) << fields << ' ' << bytes;
    }
}

TEST_F(Context, HoldsThePrintersDataAsFarAsItsSizeSays)
{
    const std::vector<std::pair<platform::Bytes, platform::Bytes>> rows = {
        {{0x20, 3, 8, 0, 1, 2, 3, 4},     {0, 4, 8, 0, 1, 2, 3, 4}},
        {{0x20, 3, 6, 0, 1, 2, 3, 4},     {0, 4, 8, 0, 1, 2, 0, 0}},
        {{0x20, 3, 0, 0, 1, 2, 3, 4},     {0, 4, 8, 0, 0, 0, 0, 0}},
        {{0x20, 3, 255, 255, 1, 2, 3, 4}, {0, 4, 8, 0, 1, 2, 3, 4}},
        {{0x20},                          {0, 4, 8, 0, 0, 0, 0, 0}},
    };
    for (const auto& [stored, held] : rows) {
        WritePrinterDataBlock(printer, stored.data(), static_cast<DWORD>(stored.size()));
        EXPECT_EQ(BytesOf(Open()->printerData), held) << testing::PrintToString(stored);
    }
}

// Calls whose failure leaves no context; the fixture sees that nothing stays behind.
TEST_F(Context, IsNotOpenedByHalves)
{
    for (const auto& [function, call] : {
             std::pair{"HeapCreate",  1u},
             {"HeapAlloc",   1u},
             {"HeapAlloc",   2u},
             {"GetPrinterW", 1u},
             {"GetPrinterW", 2u},
             {"GlobalAlloc", 1u},
    }) {
        Machine::Fail(function, call);
        EXPECT_EQ(Open(), nullptr) << function << call;
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
    std::swap(context->self, context->selfEnd);
    EXPECT_FALSE(IsWholeContext(context.get()));
    EXPECT_FALSE(IsWholeContext(nullptr));
}

}  // namespace
