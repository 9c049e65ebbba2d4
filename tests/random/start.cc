#include "tests/random/start.h"

#include <algorithm>
#include <cstring>
#include <type_traits>

#include "settings/defaults.h"
#include "tests/support/custom_papers.h"
#include "tests/support/overlays.h"
#include "tests/support/records.h"
#include "tests/support/watermark_sheet.h"

namespace random_use {

namespace {

using namespace testing_support;
using platform::Bytes;

constexpr int Countries[] = {1, 49, 81, 54, 502};  // the fourth and fifth, like the first, use Letter
constexpr int Edges[] = {0,   1,   2,   3,   4,   5,   7,   9,    11, 16,  50,    99,    100,
                         128, 255, 256, 257, 306, 400, 600, 1200, -1, -50, 32767, -32768};

// What applications put into a record, each value legal by itself.
struct LegalValues {
    const char* field;
    std::vector<int> values;
};
const LegalValues Legal[] = {
    {"dmOrientation",      {1, 2}                                      },
    {"dmPaperSize",        {1, 9, 11, 27, 216, 222, 256, 257, 258, 300}},
    {"dmCopies",           {1, 2, 999}                                 },
    {"dmDefaultSource",    {1, 1, 2, 4, 7}                             },
    {"dmPrintQuality",     {600, 1200}                                 },
    {"dmFitToPaper",       {0, 1, 2}                                   },
    {"dmMediaIndex",       {0, 1, 2, 3, 4}                             },
    {"dmZoom",             {20, 99, 100, 100, 400}                     },
    {"dmOutputPaper",      {1, 9, 11, 215}                             },
    {"dmCollateMode",      {0, 1}                                      },
    {"dmNupOn",            {0, 1}                                      },
    {"dmNupCount",         {1, 2, 4, 6, 9, 16}                         },
    {"dmNupVertical",      {0, 1}                                      },
    {"dmNupBorder",        {0, 1}                                      },
    {"dmWatermarkOn",      {0, 1}                                      },
    {"dmImageShiftX",      {-50, 0, 7}                                 },
    {"dmImageShiftY",      {-25, 0, 7}                                 },
    {"dmBookletPaper",     {0, 9}                                      },
    {"dmDuplexOn",         {0, 1}                                      },
    {"dmGuidePaper",       {0, 1}                                      },
    {"dmDuplexBinding",    {0, 1, 3}                                   },
    {"dmTonerSave",        {0, 1}                                      },
    {"dmAllRaster",        {0, 1}                                      },
    {"dmPrinterTrueType",  {0, 1}                                      },
    {"dmSmoothtone",       {0, 3}                                      },
    {"dmFixedResolution",  {0, 0, 1}                                   },
    {"dmProofPrint",       {0, 1}                                      },
    {"dmTonerDensity",     {0, 6}                                      },
    {"dmTotalMemory",      {16, 64, 144}                               },
    {"dmDeviceFlags",      {0, 128}                                    },
    {"dmBookletRight",     {0, 1}                                      },
    {"dmImageShiftOn",     {0, 1}                                      },
    {"dmImageRotated",     {0, 1}                                      },
    {"dmResolutionChoice", {600, 2, 1200}                              },
    {"dmOverlayState",     {0, 1}                                      },
    {"dmOverlayIndex",     {0, 1, 2}                                   },
};

DriverDevMode BuiltRecord()
{
    DriverDevMode record;
    BuildDefaultSettings(&record, TestPrinter, TestPrinter, 0);
    return record;
}

DriverDevMode LegalRecord(Random& random)
{
    DriverDevMode record = BuiltRecord();
    for (const LegalValues& one : Legal)
        if (random.Chance(1, 3)) SetField(record, one.field, random.From(one.values));
    record.dmWatermark.wmId = static_cast<SHORT>(random.Below(10));
    return record;
}

DriverDevMode HostileRecord(Random& random)
{
    DriverDevMode record = BuiltRecord();
    auto* bytes = reinterpret_cast<BYTE*>(&record);
    if (random.Chance(1, 2)) {
        for (std::size_t k = 0; k < sizeof record; ++k) bytes[k] = static_cast<BYTE>(random.Next());
    } else {
        for (const RecordField& field : RecordFields)
            if (field.width <= 4 && random.Chance(1, 2)) SetField(record, field.name, random.From(Edges));
    }
    record.dmSpecVersion = 1025;
    record.dmDriverVersion = 296;
    record.dmSize = 220;
    record.dmDriverExtra = 1628;
    if (random.Chance(1, 6)) record.dmSize = static_cast<WORD>(random.Next());
    if (random.Chance(1, 6)) record.dmDriverExtra = static_cast<WORD>(random.Next());
    return record;
}

std::vector<BYTE> WithItsRoom(const DriverDevMode& record)
{
    std::vector<BYTE> room(std::max<std::size_t>(sizeof record, std::size_t{record.dmSize} + record.dmDriverExtra));
    std::memcpy(room.data(), &record, sizeof record);
    return room;
}

Bytes RandomBytes(Random& random, std::size_t most)
{
    Bytes bytes(static_cast<std::size_t>(random.Below(most)));
    for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(random.Next());
    return bytes;
}

void StorePapersAtRandom(Random& random, Start& start)
{
    switch (random.Below(6)) {
        case 0:
        case 1:
        case 2:
            return StorePapers(*start.machine,
                               {Entry(257, u"Form", 0, 2100, 2970), Entry(258, u"Card", 1, 800, 1100, 8)}, TestPrinter);
        case 3: {
            std::vector<CustomPaperEntry> full;
            for (int k = 0; k < 50 - random.Below(3); ++k) {
                const std::string name = "Size " + std::to_string(k);
                full.push_back(
                    Entry(static_cast<SHORT>(257 + k), std::u16string(name.begin(), name.end()), 0, 760, 3560));
            }
            return StorePapers(*start.machine, full, TestPrinter);
        }
        case 4: {
            start.soundPapers = start.asBuilt = false;
            start.story += ", hostile papers";
            const Bytes bytes = RandomBytes(random, 60 * 56);
            return StorePapers(*start.machine, bytes,
                               static_cast<DWORD>(random.Chance(1, 2) ? bytes.size() : random.Next() % 5000),
                               TestPrinter);
        }
        default:
            return;
    }
}

void StoreWatermarksAtRandom(Random& random, Start& start)
{
    const int kind = random.Below(6);
    if (kind < 3) return;  // the ready-made rows
    std::vector<StoredWatermark> rows;
    const int count = random.From(std::array{0, 2, 3, 29, 30});
    for (int k = 0; k < count; ++k) {
        const std::string number = std::to_string(k);
        rows.push_back({u"Mark " + std::u16string(number.begin(), number.end()), u"TEXT"});
        if (kind == 4) rows.back().attributes = u"1|5|200|1|-100|100|3|3|-180|Courier New";
    }
    StoreWatermarks(*start.machine, rows);
    if (kind < 5) return;
    start.asBuilt = false;
    start.story += ", hostile watermarks";
    for (const char16_t* name : {u"WatermarkText", u"WatermarkTextName", u"WatermarkAttributes"}) {
        auto value = start.machine->store->Value(TestPrinter, name);
        if (random.Chance(1, 4)) {
            value->bytes = RandomBytes(random, 4000);
        } else {
            for (int k = random.Below(20); k > 0 && !value->bytes.empty(); --k)
                value->bytes[static_cast<std::size_t>(random.Below(value->bytes.size() / 20))] =
                    static_cast<std::uint8_t>(random.Below(128));
        }
        start.machine->store->SetValue(TestPrinter, name, *value);
    }
}

void StoreOverlaysAtRandom(Random& random, Start& start)
{
    const std::vector<OverlayEntry> rows = {Overlay(u"Letterhead", u"/srv/a.oxl"), Overlay(u"Ground", u"/srv/b.oxl"),
                                            Overlay(u"Order", u"/srv/c.oxl", 1)};
    switch (random.Below(6)) {
        case 0:
        case 1:
            return StoreOverlays(*start.machine, TestPrinter, {rows[0], rows[1]});
        case 2:
            return StoreOverlays(*start.machine, TestPrinter, rows);
        case 3:
            start.asBuilt = false;
            start.story += ", hostile overlays";
            if (random.Chance(1, 2))
                return StoreOverlays(*start.machine, TestPrinter, {rows[2], rows[0], rows[2]},
                                     static_cast<std::size_t>(random.Below(4000)));
            start.machine->store->SetValue(TestPrinter, u"OverlayData", {3, RandomBytes(random, 5000)});
            start.machine->store->SetValue(TestPrinter, u"OverlayDataSize",
                                           {4, DwordBytes(static_cast<DWORD>(random.Next() % 5000))});
            return;
        default:
            return;
    }
}

}  // namespace

Start MakeStart(Random& random)
{
    Start start;
    platform::FixedFactValues facts;
    facts.country = random.From(Countries);
    start.story = "country " + std::to_string(facts.country);
    if (random.Chance(1, 8)) facts.windows = u"VWClass500";
    if (random.Chance(1, 8)) facts.ownerModule = u"C:\\WINDOWS\\system32\\SHELL32.dll";
    start.service = !random.Chance(1, 40);
    if (!start.service) facts.missingLibraries = u"compstui.dll";
    start.mayChange = !random.Chance(1, 6);
    start.machine = std::make_unique<Machine>(facts, platform::PrinterEntry{TestPrinter, TestPrinter, start.mayChange});
    start.mode = DM_PROMPT | DM_COPY;
    if (random.Chance(1, 10)) start.mode |= DM_NOPERMISSION;
    for (const auto& [what, given] : {
             std::pair{facts.windows,     ", a window that wants sizes"},
             {facts.ownerModule, ", from the shell"           }
    })
        if (!what.empty()) start.story += given;
    if (!start.mayChange || start.mode & DM_NOPERMISSION) start.story += ", without rights";

    start.twoSheets = random.Chance(1, 15);
    if (start.twoSheets) start.story += ", two sheets at once";

    const int kind = random.Below(4);
    if (kind > 0) {
        start.asBuilt = false;
        start.input = WithItsRoom(kind == 1 ? HostileRecord(random) : LegalRecord(random));
        start.story += kind == 1 ? ", hostile record" : ", legal record";
    }
    if (random.Chance(1, 4)) {
        start.asBuilt = false;
        const bool hostile = random.Chance(1, 2);
        const std::vector<BYTE> stored = WithItsRoom(hostile ? HostileRecord(random) : LegalRecord(random));
        start.machine->store->SetDefaultRecord(
            TestPrinter,
            {stored.begin(), stored.begin() + (hostile ? random.Below(stored.size()) : sizeof(DriverDevMode))});
        start.story += hostile ? ", hostile stored record" : ", legal stored record";
    }
    if (random.Chance(1, 2)) {
        const platform::StoredValue tray2 = {
            3, random.Chance(1, 4) ? RandomBytes(random, 9) : Bytes{'1', 0, 0, 0}
        };
        start.machine->store->SetKeyValue(platform::PrinterKeyPath(TestPrinter), u"tray2", tray2);
    }
    StorePapersAtRandom(random, start);
    StoreWatermarksAtRandom(random, start);
    StoreOverlaysAtRandom(random, start);
    const platform::StoredValues values = start.machine->store->Values(TestPrinter);
    if (!values.empty() && random.Chance(1, 12)) {
        const std::u16string& name = std::next(values.begin(), random.Below(values.size()))->first;
        start.machine->store->DeleteValue(TestPrinter, name);
        start.asBuilt = start.soundPapers = false;
        start.story += ", without " + platform::ToUtf8(name);
    }
    return start;
}

}  // namespace random_use
