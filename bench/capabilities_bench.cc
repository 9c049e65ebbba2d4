// What an application asks before it prints: all capabilities of a printer with 50 custom sizes, against libcups
// on a description of the same printer that is written from the same answers. Cold: the store or the description
// is opened for the questions. Warm: it is open.
#include <benchmark/benchmark.h>

// libcups marks what it would rather have moved to a print server's protocol; a file needs no server.
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
#include <cups/ppd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "host/entries.h"
#include "platform/kernel.h"
#include "platform/kernel/unicode.h"
#include "platform/seams/environment.h"
#include "platform/seams/system_facts.h"
#include "platform/spooler/printers.h"
#include "store/sqlite_store.h"
#include "tests/support/custom_papers.h"

namespace {

constexpr char16_t Printer[] = u"Ordana Quillet 4820E";
constexpr int CustomSizes = 50;
constexpr WORD Capabilities[] = {
    DC_FIELDS,       DC_PAPERS,      DC_PAPERSIZE,  DC_MINEXTENT,       DC_MAXEXTENT,
    DC_BINS,         DC_DUPLEX,      DC_SIZE,       DC_EXTRA,           DC_VERSION,
    DC_DRIVER,       DC_BINNAMES,    DC_TRUETYPE,   DC_PAPERNAMES,      DC_ORIENTATION,
    DC_COPIES,       DC_STAPLE,      DC_MEDIAREADY, DC_ENUMRESOLUTIONS, DC_FILEDEPENDENCIES,
    DC_PRINTRATEPPM, DC_COLORDEVICE,
};

struct Answers {
    WCHAR names[128][64];
    LONG sizes[128][2];
    std::uint8_t other[8192];
};

struct Fixture {
    std::filesystem::path folder;
    host::DeviceCapabilitiesEntry* ask = nullptr;

    std::filesystem::path Store() const { return folder / "printers.db"; }
    std::string Description() const { return (folder / "printer.ppd").string(); }
};
Fixture fixture;

[[noreturn]] void Give(const std::string& why)
{
    std::cerr << "bench_capabilities: " << why << '\n';
    std::exit(3);
}

void OpenStore()
{
    const auto store = std::make_shared<store::SqliteStore>(fixture.Store());
    platform::CurrentEnvironment().printers = store;
    platform::CurrentEnvironment().registry = store;
}

void AskAll(HANDLE printer, Answers& answers)
{
    for (const WORD capability : Capabilities) {
        void* output = capability == DC_PAPERNAMES  ? static_cast<void*>(answers.names)
                       : capability == DC_PAPERSIZE ? static_cast<void*>(answers.sizes)
                                                    : answers.other;
        benchmark::DoNotOptimize(fixture.ask(printer, Printer, capability, output, nullptr));
    }
}

std::vector<CustomPaperEntry> ManySizes()
{
    std::vector<CustomPaperEntry> entries;
    for (int k = 0; k < CustomSizes; ++k) {
        const std::u16string name = u"Label " + platform::ToWide(std::to_string(k));
        const auto code = static_cast<SHORT>(FirstStoredPaperCode + k);
        entries.push_back(k % 2 == 0 ? testing_support::Entry(code, name, 0, static_cast<SHORT>(1000 + 10 * k), 2000)
                                     : testing_support::Entry(code, name, 1, 700, 1100, static_cast<SHORT>(k % 16)));
    }
    return entries;
}

std::string Keyword(std::size_t row) { return "Size" + std::to_string(row); }

// A PPD file of version 4.3: sizes, bins, media, resolutions, in points.
void WriteDescription(const Answers& answers, LONG papers)
{
    std::ofstream out(fixture.Description());
    out << "*PPD-Adobe: \"4.3\"\n*FormatVersion: \"4.3\"\n*FileVersion: \"1.0\"\n*LanguageVersion: English\n"
           "*LanguageEncoding: ISOLatin1\n*PCFileName: \"QUILLET.PPD\"\n*Manufacturer: \"Ordana\"\n"
           "*Product: \"(Quillet 4820E)\"\n*ModelName: \"Ordana Quillet 4820E\"\n"
           "*ShortNickName: \"Ordana Quillet 4820E\"\n*NickName: \"Ordana Quillet 4820E\"\n*PSVersion: \"(3010.000) "
           "0\"\n"
           "*ColorDevice: False\n*DefaultColorSpace: Gray\n*Throughput: \"20\"\n*LanguageLevel: \"3\"\n";
    const auto list = [&](const char* keyword, const char* title, const std::vector<std::string>& rows) {
        out << "*OpenUI *" << keyword << "/" << title << ": PickOne\n*Default" << keyword << ": " << rows[0] << "\n";
        for (const std::string& row : rows) out << "*" << keyword << " " << row << ": \"\"\n";
        out << "*CloseUI: *" << keyword << "\n";
    };
    std::vector<std::string> sizes;
    for (LONG k = 0; k < papers; ++k) {
        const std::string name = platform::ToUtf8(std::u16string(answers.names[k]));
        sizes.push_back(Keyword(k) + "/" + (name.empty() ? "Custom" : name));
    }
    list("PageSize", "Paper", sizes);
    list("PageRegion", "Paper", sizes);
    for (const char* keyword : {"ImageableArea", "PaperDimension"}) {
        out << "*Default" << keyword << ": Size0\n";
        for (LONG k = 0; k < papers; ++k) {
            const double width = answers.sizes[k][0] * 72 / 254.0, height = answers.sizes[k][1] * 72 / 254.0;
            out << "*" << keyword << " " << Keyword(k) << ": \"" << (*keyword == 'I' ? "12 12 " : "") << width << " "
                << height << "\"\n";
        }
    }
    list("InputSlot", "Paper Source", {"Auto/Auto", "Tray1/Tray1", "Tray2/Tray2", "Manual/Manual Feed"});
    list("MediaType", "Media Type",
         {"Plain/Plain Paper", "Film/Transparency", "Envelope/Envelope", "Card/Postcard", "Thick/Thick Paper"});
    list("Resolution", "Resolution", {"600dpi/600 x 600", "1200dpi/1200 x 1200"});
    list("Duplex", "Duplex", {"None/Off", "DuplexTumble/Short Edge Binding", "DuplexNoTumble/Long Edge Binding"});
}

// The same questions to libcups: names and sizes of all media, bins, media types, resolutions, duplex, colour,
// speed. How many media there are.
int ListMedia(ppd_file_t* description)
{
    int media = 0;
    for (const char* keyword : {"PageSize", "InputSlot", "MediaType", "Resolution", "Duplex"}) {
        const ppd_option_t* option = ppdFindOption(description, keyword);
        for (int k = 0; option && k < option->num_choices; ++k) {
            benchmark::DoNotOptimize(option->choices[k].text);
            if (option->choices[k].choice[0] == 'S' && keyword[0] == 'P') {
                const ppd_size_t* size = ppdPageSize(description, option->choices[k].choice);
                benchmark::DoNotOptimize(size);
                media += size != nullptr;
            }
        }
    }
    benchmark::DoNotOptimize(description->color_device + description->throughput);
    return media;
}

void CapabilitiesCold(benchmark::State& state)
{
    Answers answers;
    for (auto _ : state) {
        OpenStore();
        HANDLE printer = platform::spooler::Open(Printer, 0);
        AskAll(printer, answers);
        platform::spooler::Close(printer);
    }
}
BENCHMARK(CapabilitiesCold);

void CapabilitiesWarm(benchmark::State& state)
{
    Answers answers;
    OpenStore();
    HANDLE printer = platform::spooler::Open(Printer, 0);
    for (auto _ : state) AskAll(printer, answers);
    platform::spooler::Close(printer);
}
BENCHMARK(CapabilitiesWarm);

void CupsCold(benchmark::State& state)
{
    for (auto _ : state) {
        ppd_file_t* description = ppdOpenFile(fixture.Description().c_str());
        ppdMarkDefaults(description);
        benchmark::DoNotOptimize(ListMedia(description));
        ppdClose(description);
    }
}
BENCHMARK(CupsCold);

void CupsWarm(benchmark::State& state)
{
    ppd_file_t* description = ppdOpenFile(fixture.Description().c_str());
    ppdMarkDefaults(description);
    for (auto _ : state) benchmark::DoNotOptimize(ListMedia(description));
    ppdClose(description);
}
BENCHMARK(CupsWarm);

void Prepare()
{
    std::string pattern = (std::filesystem::temp_directory_path() / "qd480-bench-XXXXXX").string();
    if (!mkdtemp(pattern.data())) Give("no temporary folder");
    fixture.folder = pattern;
    platform::CurrentEnvironment().facts = platform::MakeFixedFacts({});
    OpenStore();
    const platform::Bytes papers = testing_support::PaperBytes(ManySizes());
    auto& store = *platform::CurrentEnvironment().printers;
    store.SetValue(Printer, u"CustomPaperDataSize",
                   {4, testing_support::DwordBytes(static_cast<DWORD>(papers.size()))});
    store.SetValue(Printer, u"CustomPaperData", {3, papers});

    HMODULE module = LoadLibraryW(QD_MODULE_PATH);
    if (!module) Give("the module cannot be loaded");
    fixture.ask = reinterpret_cast<host::DeviceCapabilitiesEntry*>(GetProcAddress(module, "DrvDeviceCapabilities"));
    if (!fixture.ask) Give("the module has no DrvDeviceCapabilities");

    Answers answers{};
    HANDLE printer = platform::spooler::Open(Printer, 0);
    AskAll(printer, answers);
    const LONG papersListed = fixture.ask(printer, Printer, DC_PAPERS, nullptr, nullptr);
    platform::spooler::Close(printer);
    WriteDescription(answers, papersListed);
    ppd_file_t* description = ppdOpenFile(fixture.Description().c_str());
    if (!description || ListMedia(description) != papersListed || papersListed != 27 + CustomSizes)
        Give("the description does not answer as the printer does");
    ppdClose(description);
}

}  // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    Prepare();
    benchmark::RunSpecifiedBenchmarks();
    platform::CurrentEnvironment().printers = nullptr;
    platform::CurrentEnvironment().registry = nullptr;
    std::filesystem::remove_all(fixture.folder);
}
