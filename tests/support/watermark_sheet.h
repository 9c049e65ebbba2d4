// The Watermark dialog on top of the Setup page, with a printer's watermarks that are told in short lines.
#pragma once

#include <string>
#include <vector>

#include "tests/support/setup_sheet.h"
#include "tests/support/watermarks.h"
#include "watermark/watermark_list.h"

namespace testing_support {

inline void StoreWatermarks(Machine& machine, const std::vector<StoredWatermark>& rows)
{
    StoreWatermarks(machine, rows, TestPrinter);
}

class WatermarkSheet : public SetupSheet {
  public:
    // Opens on the watermark with this id; 0 is none. The rows are A, B, C ...
    explicit WatermarkSheet(std::vector<StoredWatermark> rows, SHORT chosen = 0, bool mayChange = true,
                            const Prepare& prepare = {})
        : SetupSheet(
              [=](DriverDevMode& record) {
                  record.dmWatermarkOn = chosen != 0;
                  record.dmWatermark.wmId = chosen;
                  if (prepare) prepare(record);
              },
              [=](TestMachine& machine) {
                  if (!mayChange) {
                      machine.store->Remove(TestPrinter);
                      machine.store->Add({TestPrinter, TestPrinter, false});
                  }
                  StoreWatermarks(machine, rows);
              })
    {
        Drawn();
        Click(IDC_EDIT_WATERMARK);
    }

    // The list box, the selected row in brackets; then the names in memory if these differ.
    std::string List()
    {
        std::vector<std::u16string> names;
        for (int i = 0; const WatermarkRecord* row = WatermarkRowAt(i); ++i) {
            names.emplace_back(row->wmName);
            EXPECT_EQ(names.back(), WatermarkNames[static_cast<std::size_t>(i)]) << i;
        }
        const std::string shown = Listed(Items(IDC_WM_LIST), Selection(IDC_WM_LIST));
        const std::string held = Listed(names, WatermarkIndex);
        return shown == held ? shown : shown + " | " + held;
    }
    // "NDE": New, Delete, the editor's name field, where they can be used.
    std::string Usable()
    {
        return Sheet::Usable({
            {'N', IDC_WM_NEW   },
            {'D', IDC_WM_DELETE},
            {'E', IDC_WM_NAME  }
        });
    }
    std::string Said()
    {
        std::string said;
        for (const auto& text : Machine().Desktop().messagesSeen) said += platform::ToUtf8(text) + "/";
        Machine().Desktop().messagesSeen.clear();
        return said;
    }
    std::string Names() { return StoredLines(Machine(), u"WatermarkTextName", TestPrinter); }
    std::string Texts() { return StoredLines(Machine(), u"WatermarkText", TestPrinter); }
    std::string Attributes() { return StoredLines(Machine(), u"WatermarkAttributes", TestPrinter); }
    // "35 40 -37 100 -120 Courier New BIU": shading, size, position, angle, face; bold, italic, own position.
    std::string Fields()
    {
        std::string fields;
        for (const int control : {IDC_WM_SHADING, IDC_WM_SIZE, IDC_WM_VERTICAL, IDC_WM_HORIZONTAL, IDC_WM_ANGLE})
            fields += Field(control) + " ";
        fields += Row(IDC_WM_FACE) + " ";
        if (Checked(IDC_WM_BOLD)) fields += 'B';
        if (Checked(IDC_WM_ITALIC)) fields += 'I';
        return fields + (Checked(IDC_WM_USER_POSITION) ? "U" : "");
    }
    std::string Field(int control) { return platform::ToUtf8(Text(control)); }
};

inline std::vector<StoredWatermark> Abc()
{
    return {
        {u"A", u"Alpha"},
        {u"B", u"Beta" },
        {u"C", u"Gamma"}
    };
}

}  // namespace testing_support
