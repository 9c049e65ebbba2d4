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
};

TEST_F(Context, LaysTheStoredRecordOverTheDefaultsAndTheCallersOverThat)
{
    DriverDevMode stored = BusyRecord(), input = BusyRecord();
    SetFields(stored, "dmZoom=150 dmFields=0x101 dmCopies=3 dmOrientation=2");
    SetFields(input, "dmFields=0x100 dmCopies=5 dmDriverExtra=0");
    machine.store->SetDefaultRecord(OfficePrinter, BytesOf(stored));
    const Opened context = Open(PublicPart(&input));
    const DriverDevMode& r = context->settings;
    EXPECT_EQ(std::tuple(r.dmZoom, r.dmOrientation, r.dmCopies, r.dmScale), std::tuple(150, 2, 5, 100));
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

}  // namespace
