// A script, as text, played on the document sheet of the module.
#include "host/script_desktop.h"
#include "platform/kernel/modules.h"
#include "platform/seams/fonts.h"
#include "platform/services/sheet_service.h"
#include "tests/support/machine.h"

namespace {

using testing_support::Machine;
using testing_support::OfficePrinter;

// Many clicks of an arrow show nothing that a few do not.
constexpr int MostClicks = 20;

std::vector<host::Step> Parse(std::string_view text)
{
    try {
        return host::ParseScript(text);
    } catch (const host::ScriptError&) {
        return {};
    }
}

// The module as the host loads it.
PFNPROPSHEETUI SheetEntry()
{
    static const HMODULE module = platform::modules::Load(QD_MODULE_PATH, nullptr);
    return reinterpret_cast<PFNPROPSHEETUI>(platform::modules::Entry(module, "DrvDocumentPropertySheets"));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    auto steps = Parse({reinterpret_cast<const char*>(data), size});
    if (steps.empty()) return 0;
    for (host::Step& step : steps)
        if (step.kind == host::StepKind::Spin) step.number = std::min(step.number, MostClicks);

    const Machine machine;
    platform::Environment& environment = platform::CurrentEnvironment();
    environment.fonts = platform::MakeBuiltinFonts();
    host::ScriptLinks links{[](const host::Json& line) { host::ToLine(line); }, [] { return host::Json(); },
                            [](HWND, const std::string&) {}};
    const auto desktop = std::make_shared<host::ScriptDesktop>(std::move(steps), std::move(links), false);
    environment.desktop = desktop;

    HANDLE printer = nullptr;
    OpenPrinterW(const_cast<WCHAR*>(OfficePrinter), &printer, nullptr);
    std::vector<std::uint8_t> out(4096);
    DOCUMENTPROPERTYHEADER header{};
    header.cbSize = sizeof header;
    header.hPrinter = printer;
    header.pszPrinterName = const_cast<WCHAR*>(OfficePrinter);
    header.pdmOut = reinterpret_cast<DEVMODEW*>(out.data());
    header.fMode = DM_COPY | DM_PROMPT;
    DWORD result = 0;
    platform::services::RunCommonSheet(nullptr, SheetEntry(), reinterpret_cast<LPARAM>(&header), &result);
    desktop->PlayRest();
    ClosePrinter(printer);
    environment.desktop = nullptr;
    environment.fonts = nullptr;
    return 0;
}
