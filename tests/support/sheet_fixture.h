// A printer, the module and a desktop of the test's choice: the document sheet as an application opens it.
#pragma once

#include <gtest/gtest.h>

#include "driver_dev_mode.h"
#include "platform/kernel/modules.h"
#include "platform/services/sheet_service.h"
#include "platform/spooler/printers.h"
#include "tests/support/machine.h"

namespace testing_support {

class SheetFixture : public testing::Test {
  protected:
    static constexpr char16_t Printer[] = u"Ordana Quillet 4820E";

    explicit SheetFixture(std::u16string_view modulePath)
    {
        std::string why;
        module = platform::modules::Load(std::u16string(modulePath), &why);
        EXPECT_TRUE(module) << why;
    }

    ~SheetFixture() override { platform::modules::Unload(module); }

    // Shows the sheet on the printer's defaults; the record that comes out.
    DriverDevMode Show(DWORD* result)
    {
        DriverDevMode out{};
        DOCUMENTPROPERTYHEADER header{};
        header.pszPrinterName = const_cast<WCHAR*>(Printer);
        header.pdmOut = PublicPart(&out);
        header.cbOut = sizeof out;
        header.fMode = DM_COPY;
        ShowSheets("DrvDocumentPropertySheets", header, result);
        return out;
    }

    void ShowDevice(DWORD* result)
    {
        DEVICEPROPERTYHEADER header{};
        header.pszPrinterName = const_cast<WCHAR*>(Printer);
        ShowSheets("DrvDevicePropertySheets", header, result);
    }

    Machine machine{
        {       },
        { Printer, Printer}
    };
    HMODULE module = nullptr;

  private:
    template <class Header>
    void ShowSheets(const char* entry, Header header, DWORD* result)
    {
        header.cbSize = sizeof header;
        header.hPrinter = platform::spooler::Open(Printer, 0);
        const auto sheets = reinterpret_cast<PFNPROPSHEETUI>(platform::modules::Entry(module, entry));
        EXPECT_GT(platform::services::RunCommonSheet(nullptr, sheets, reinterpret_cast<LPARAM>(&header), result), 0);
        platform::spooler::Close(header.hPrinter);
    }
};

}  // namespace testing_support
