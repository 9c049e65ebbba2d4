// What Tray2 and Default of the Device Options page do to the lists and pictures of the other pages.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/paper_sheet.h"

namespace {

using namespace testing_support;
using testing::Contains;

constexpr char16_t DeviceOptions[] = u"Device Options Setting";
constexpr SHORT Auto = 7, Tray1 = 1, Tray2 = 2;
constexpr SHORT Plain = 0, Envelope = 2;
constexpr SHORT Letter = 1, A5 = 11, EnvelopeDL = 27;
constexpr DWORD None = 0, Installed = 0x80, InstalledAmongOthers = 0xFF;

// "7 1 *2 4": item data, with a star at the selected row.
std::string Codes(PaperSheet& sheet, int list)
{
    const auto data = sheet.ItemData(list);
    std::string codes;
    for (std::size_t row = 0; row < data.size(); ++row) {
        const bool selected = static_cast<int>(row) == sheet.Selection(list);
        codes += (row ? " " : "") + std::string(selected ? "*" : "") + std::to_string(data[row]);
    }
    return codes;
}

// Sources and media; source and media of the record.
std::string OnSetup(PaperSheet& sheet)
{
    sheet.Page(u"Setup");
    const DriverDevMode record = sheet.Settings();
    return Codes(sheet, IDC_PAPER_SOURCE) + " | " + Codes(sheet, IDC_MEDIA_TYPE) + " | " +
           std::to_string(record.dmDefaultSource) + " " + std::to_string(record.dmMediaIndex);
}

// Papers, output papers, whether custom sizes can be edited (e: not); source and paper of the record.
std::string OnPaper(PaperSheet& sheet)
{
    sheet.Page(u"Paper");
    const DriverDevMode record = sheet.Settings();
    const auto rows = [&](int list) { return std::to_string(sheet.Items(list).size()); };
    return rows(IDC_DOCUMENT_SIZE) + " " + rows(IDC_OUTPUT_SIZE) + " " + (sheet.Enabled(IDC_EDIT_CUSTOM) ? "E" : "e") +
           " | " + std::to_string(record.dmDefaultSource) + " " + std::to_string(record.dmPaperSize);
}

TEST(DeviceOptions, DefaultReachesBothPagesInEitherOrder)
{
    struct Case {
        const char* name;
        DWORD flags;
        SHORT source, media, paper;
        const char *setup, *onPaper;          // before Default
        const char *setupAfter, *paperAfter;  // and after it
    };
    // The record keeps a source that is gone from the list; any flag of the device leaves the Paper page with the
    // papers of that source.
    // clang-format off
    const Case cases[] = {
        {"not installed", None, Auto, Plain, Letter,
         "*7 1 4 | *0 1 2 3 4 | 7 0",   "16 10 E | 7 1",  "*7 1 4 | *0 1 2 3 4 | 7 0", "16 10 E | 7 1"},
        {"not chosen", Installed, Tray1, Plain, Letter,
         "7 *1 2 4 | *0 1 2 3 4 | 1 0", "16 10 E | 1 1",  "7 *1 4 | *0 1 2 3 4 | 1 0", "16 10 E | 1 1"},
        {"another paper", Installed, Auto, Plain, A5,
         "*7 1 4 | *0 1 2 3 4 | 7 0",   "16 10 E | 7 11", "*7 1 4 | *0 1 2 3 4 | 7 0", "16 10 E | 7 11"},
        {"another media", Installed, Auto, Envelope, EnvelopeDL,
         "*7 1 4 | 0 1 *2 3 4 | 7 2",   "8 10 E | 7 27",  "*7 1 4 | 0 1 *2 3 4 | 7 2", "8 10 E | 7 27"},
        {"chosen", Installed, Tray2, Plain, Letter,
         "7 1 *2 4 | *0 | 2 0",         "5 5 e | 2 1",    "*7 1 4 | *0 1 2 3 4 | 2 0", "16 10 E | 2 1"},
        {"chosen among other flags", InstalledAmongOthers, Tray2, Plain, Letter,
         "7 1 *2 4 | *0 | 2 0",         "5 5 e | 2 1",    "*7 1 4 | *0 1 2 3 4 | 2 0", "5 5 e | 2 1"},
    };
    // clang-format on
    for (const Case& one : cases) {
        for (const char16_t* first : {u"Setup", u"Paper"}) {
            SCOPED_TRACE(one.name + (", first " + platform::ToUtf8(first)));
            PaperSheet sheet([&](DriverDevMode& record) {
                record.dmDeviceFlags = one.flags;
                record.dmDefaultSource = one.source;
                record.dmMediaIndex = one.media;
                record.dmPaperSize = one.paper;
            });
            EXPECT_EQ(OnSetup(sheet), one.setup);
            EXPECT_EQ(OnPaper(sheet), one.onPaper);
            sheet.Page(DeviceOptions).Click(IDC_DEFAULT).Page(first);
            EXPECT_EQ(OnPaper(sheet), one.paperAfter);
            EXPECT_EQ(OnSetup(sheet), one.setupAfter);
            EXPECT_EQ(OnPaper(sheet), one.paperAfter);
        }
    }
}

void ExpectFigures(PaperSheet& sheet, const char* bitmap)
{
    for (const auto& [page, radio] : {
             std::pair{u"Setup",   IDC_SETUP_PRINTER_FIGURE  },
             {u"Paper",   IDC_PAPER_PRINTER_FIGURE  },
             {u"Quality", IDC_QUALITY_PRINTER_FIGURE}
    }) {
        sheet.Page(page).Drawn();
        sheet.Click(radio);
        EXPECT_THAT(sheet.Drawn(), Contains(bitmap)) << radio;
    }
}

TEST(DeviceOptions, DecidesOnTheFigureOfEveryPageOnceItHasBeenShown)
{
    constexpr char with[] = "- LoadBitmapW [1299]", without[] = "- LoadBitmapW [1298]";
    Tray2Installed = 0;
    PaperSheet sheet([](DriverDevMode& record) { record.dmDeviceFlags = Installed; });
    ExpectFigures(sheet, without);
    sheet.Page(DeviceOptions);
    ExpectFigures(sheet, with);
    sheet.Page(DeviceOptions).Click(IDC_DEFAULT);
    ExpectFigures(sheet, without);
}

}  // namespace
