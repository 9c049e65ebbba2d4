// Painting the page layout with 16 pages and a watermark on each, against a painter that draws as many shapes on
// the same kind of picture; and a change of page with all that a user sees of it.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <functional>
#include <memory>
#include <stdexcept>

#include "desktop/qt_fonts.h"
#include "desktop/qt_runtime.h"
#include "desktop/qt_surface.h"
#include "desktop/top_window.h"
#include "module.h"
#include "platform/kernel/modules.h"
#include "platform/seams/desktop.h"
#include "platform/services/sheet_service.h"
#include "platform/spooler/printers.h"
#include "platform/user/window.h"
#include "preview/page_preview.h"
#include "resources/control_numbers.h"
#include "settings/options.h"
#include "spooler/document_sheet.h"
#include "tests/support/machine.h"

namespace {

namespace user = platform::user;

constexpr WCHAR Printer[] = u"Ordana Quillet 4820E";
constexpr int QualityPage = 2, Pages = 16;

// A desktop whose pictures are those of real windows, and whose user is the benchmark.
class BenchDesktop : public platform::Desktop {
  public:
    explicit BenchDesktop(std::function<void(HWND sheet)> work) : work_(std::move(work)) {}
    void Opened(HWND) override {}
    void Closed(HWND) override {}
    void Run(HWND top) override
    {
        work_(top);
        user::Close(top);
    }
    void Changed(HWND) override {}
    std::shared_ptr<platform::Surface> MakePicture(HWND, int width, int height) override
    {
        return std::make_shared<desktop::ImageSurface>(width, height, 1.0);
    }
    int MessageBox(const platform::MessageBoxRequest&) override { return IDOK; }
    std::optional<std::u16string> PickFile(const platform::FileDialogRequest&) override { return std::nullopt; }
    void Help(const platform::HelpRequest&) override {}
    void Beep(UINT) override {}

  private:
    std::function<void(HWND sheet)> work_;
};

void SixteenMarked(DriverDevMode& record)
{
    record.dmNupOn = 1;
    record.dmNupCount = Pages;
    record.dmWatermarkOn = 1;
    WatermarkRecord& mark = record.dmWatermark;
    std::u16string_view(u"CONFIDENTIAL").copy(mark.wmText, 72);
    std::u16string_view(u"Times New Roman").copy(mark.wmFaceName, 31);
    mark.wmSize = 150;  // high enough to be drawn as a text
    mark.wmShading = 20;
    mark.wmAngleMode = 2;
}

// Runs the document sheet; work has it as a user has it on the screen.
void OnSheet(const std::function<void(HWND sheet)>& work)
{
    desktop::EnsureApplication();
    const testing_support::Machine machine({}, {Printer, Printer});
    platform::Environment& environment = platform::CurrentEnvironment();
    environment.fonts = desktop::MakeQtFonts();
    environment.desktop = std::make_shared<BenchDesktop>(work);
    std::string why;
    static const HMODULE module = platform::modules::Load(QD_MODULE_PATH, &why);
    if (!module) throw std::runtime_error("the module cannot be loaded: " + why);
    ModuleHandle = ResourceHandle = module;

    const HANDLE printer = platform::spooler::Open(Printer, 0);
    std::u16string name = Printer;
    DriverDevMode published{};
    DOCUMENTPROPERTYHEADER header{};
    header.cbSize = sizeof header;
    header.hPrinter = printer;
    header.pszPrinterName = name.data();
    header.pdmOut = reinterpret_cast<DEVMODEW*>(&published);
    header.cbOut = sizeof published;
    header.fMode = DM_COPY | DM_PROMPT;
    DWORD result = 0;
    platform::services::RunCommonSheet(nullptr, DrvDocumentPropertySheets, reinterpret_cast<LPARAM>(&header), &result);
    platform::spooler::Close(printer);
    environment.desktop = nullptr;
    environment.fonts = nullptr;
}

void PaintPreview(benchmark::State& state)
{
    OnSheet([&](HWND sheet) {
        user::ShowPage(sheet, QualityPage);
        SixteenMarked(*CurrentSettings);
        const HWND page = user::DialogOf(sheet);
        DRAWITEMSTRUCT item{};
        item.CtlType = ODT_BUTTON;
        item.CtlID = IDC_QUALITY_PREVIEW;
        item.hwndItem = user::Control(page, IDC_QUALITY_PREVIEW);
        if (!item.hwndItem) state.SkipWithError("the picture is not there");
        for (auto _ : state) DrawPagePreview(page, item);
    });
}
BENCHMARK(PaintPreview)->Unit(benchmark::kMillisecond);

// The same shapes where Qt alone places them: per page a number, a turned text, two bars and a dotted frame.
void PlainPainting(benchmark::State& state)
{
    desktop::EnsureApplication();
    QImage picture(510, 354, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&picture);
    QFont number("Liberation Serif"), mark("Liberation Serif");
    number.setPixelSize(17);
    mark.setPixelSize(7);
    QPen dotted(Qt::black, 1);
    dotted.setDashPattern({1, 2});
    for (auto _ : state) {
        painter.fillRect(20, 20, 119, 154, Qt::white);
        for (int page = 0; page < Pages; ++page) {
            const int x = 20 + page % 4 * 29, y = 20 + page / 4 * 38;
            painter.setFont(number);
            painter.setPen(Qt::black);
            painter.drawText(x + 3, y + 15, QString::number(page + 1));
            painter.save();
            painter.setClipRect(x, y, 27, 37);
            painter.translate(x + 5, y + 30);
            painter.rotate(-53);
            painter.setFont(mark);
            painter.setPen(QColor(0xCC, 0xCC, 0xCC));
            painter.drawText(0, 0, "CONFIDENTIAL");
            painter.restore();
            for (int bar = 0; bar < 2; ++bar) painter.fillRect(x + 4, y + 20 + bar * 8, 20, 4, Qt::black);
            painter.setPen(dotted);
            painter.setBrush(Qt::NoBrush);
            painter.drawRect(x + 1, y + 1, 25, 35);
        }
        benchmark::DoNotOptimize(picture.constBits());
    }
}
BENCHMARK(PlainPainting)->Unit(benchmark::kMillisecond);

// From one page to the next, with the preview above, until its window has been drawn.
void ChangePage(benchmark::State& state)
{
    OnSheet([&](HWND sheet) {
        SixteenMarked(*CurrentSettings);
        desktop::TopWindow window(sheet, [](const std::function<void()>& action) { action(); });
        window.setAttribute(Qt::WA_DontShowOnScreen);
        window.show();
        const int pages = static_cast<int>(user::Find(sheet)->As<user::SheetState>()->pages.size());
        const auto show = [&](int page) {
            if (user::ShowPage(sheet, page) != user::Outcome::Done) state.SkipWithError("a page is not shown");
            window.Sync();
            benchmark::DoNotOptimize(window.grab());
        };
        for (int page = 0; page < pages; ++page) show(page);
        int page = 0;
        for (auto _ : state) show(page = (page + 1) % pages);
    });
}
BENCHMARK(ChangePage)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
