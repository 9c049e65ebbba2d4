#include "host/job_paper.h"

#include <algorithm>
#include <optional>

#include "host/entries.h"

namespace host {

namespace {

constexpr int CustomCode = 256, FirstStoredCode = 257, LastStoredCode = 306;
constexpr int Margin = 50;
constexpr int FallbackResolution = 600;
constexpr int LeastSide = 10, MostSide = 60000;  // what a PDF page may be

struct Size {
    int width, height;  // dots
};
constexpr Size Letter{2550, 3300};

int Truncated(int tenths) { return static_cast<int>(std::int64_t{tenths} * 300 / 254); }

// The dots that tenths of a millimetre were truncated from.
int Restored(int tenths) { return static_cast<int>((std::int64_t{tenths} * 300 + 253) / 254); }

std::optional<Size> ListedSize(Context& context, HANDLE printer, std::u16string& name, int code)
{
    const AsideFromFaults aside;
    const auto ask = context.Entry<DeviceCapabilitiesEntry>("DrvDeviceCapabilities");
    // No more is read than all three answers agree on.
    const LONG rows = ask(printer, name.data(), DC_PAPERS, nullptr, nullptr);
    std::vector<WORD> codes(static_cast<std::size_t>(std::max<LONG>(rows, 0)) + MostSizesStoredMeanwhile);
    std::vector<LONG> sizes(codes.size() * 2);
    const LONG listed = ask(printer, name.data(), DC_PAPERS, codes.data(), nullptr);
    const LONG sized = ask(printer, name.data(), DC_PAPERSIZE, sizes.data(), nullptr);
    const LONG known = std::min({rows, listed, sized});
    if (known <= 0)
        throw Failure("cannot get the printer's papers: DrvDeviceCapabilities answered " + std::to_string(known));
    codes.resize(static_cast<std::size_t>(known));
    std::optional<Size> found;
    const bool stored = code >= FirstStoredCode;
    for (std::size_t row = 0; row < codes.size(); ++row) {
        if (codes[row] != code) continue;
        const auto dots = stored ? Truncated : Restored;
        found = Size{dots(sizes[2 * row]), dots(sizes[2 * row + 1])};
        if (!stored) break;  // of stored sizes with the same code the last one holds
    }
    return found;
}

int Resolution(const DriverDevMode& record)
{
    if (record.dmPrintQuality >= 0) return record.dmPrintQuality;
    return record.dmResolution > 0 ? record.dmResolution : FallbackResolution;
}

bool Possible(const Size& size)
{
    const auto possible = [](int side) { return side >= LeastSide && side <= MostSide; };
    return possible(size.width) && possible(size.height);
}

}  // namespace

platform::gdi::JobDevice JobPaper::Device() const
{
    platform::gdi::JobDevice device;
    device.dotsPerInchX = device.dotsPerInchY = 300 * scale;
    device.physicalWidth = width * scale;
    device.physicalHeight = height * scale;
    device.offsetX = device.offsetY = margin * scale;
    device.printableWidth = (width - 2 * margin) * scale;
    device.printableHeight = (height - 2 * margin) * scale;
    return device;
}

JobPaper PaperOf(Context& context, HANDLE printer, std::u16string name, const JobRecord& record)
{
    const DriverDevMode& settings = record.Settings();
    const int code = settings.dmPaperSize;
    Size size = Letter;
    if (code == CustomCode) {
        size = {Truncated(settings.dmPaperWidth), Truncated(settings.dmPaperLength)};
    } else if (code <= LastStoredCode) {
        size = ListedSize(context, printer, name, code).value_or(Letter);
    }
    if (!Possible(size)) size = Letter;
    // What is neither is upright for the printer's own papers and across for custom ones.
    const bool across =
        code >= CustomCode && code <= LastStoredCode ? settings.dmOrientation != 1 : settings.dmOrientation == 2;
    if (across) size = {size.height, size.width};
    const int resolution = Resolution(settings);
    const int scale = resolution == 600 ? 2 : resolution == 1200 ? 4 : 1;
    // Paper that is all margin is printed to its edge.
    const int margin = size.width > 2 * Margin && size.height > 2 * Margin ? Margin : 0;
    return {size.width, size.height, margin, scale};
}

}  // namespace host
