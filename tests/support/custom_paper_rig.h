// The Custom Paper dialog on top of a sheet, on the sizes that a test stores with the printer, and what it shows in
// short lines that can stand in tables.
#pragma once

#include <gtest/gtest.h>

#include "module.h"
#include "pages/custom_paper_dialog.h"
#include "pages/custom_paper_store.h"
#include "pages/custom_paper_work_list.h"
#include "platform/kernel/unicode.h"
#include "platform/services.h"
#include "platform/user/window.h"
#include "resources/control_numbers.h"
#include "tests/support/custom_papers.h"
#include "tests/support/sheet_driver.h"

namespace testing_support {

using Entries = std::vector<CustomPaperEntry>;

inline const Entries Three = {Entry(257, u"Card", 0, 1000, 1500), Entry(258, u"Form", 1, 800, 1100, 8, 0),
                              Entry(259, u"Poster", 0, 2160, 3560)};

// A printer with as many sizes, "Size10" and so on.
inline Entries Many(int count)
{
    Entries entries;
    for (int i = 0; i < count; ++i)
        entries.push_back(
            Entry(static_cast<SHORT>(257 + i), platform::ToWide("Size" + std::to_string(10 + i)), 0, 1000, 1500));
    return entries;
}

// One size of either unit, in the numbers of its fields.
inline CustomPaperEntry Mm(SHORT width, SHORT height) { return Entry(257, u"A", 0, width, height); }
inline CustomPaperEntry Inch(SHORT width, SHORT widthSixteenths, SHORT height, SHORT heightSixteenths)
{
    return Entry(257, u"A", 1, static_cast<SHORT>(width * 100), static_cast<SHORT>(height * 100), widthSixteenths,
                 heightSixteenths);
}

class CustomPaperRig : public testing::Test {
  protected:
    ~CustomPaperRig() override { Close(); }
    Sheet& Open(const Entries& entries, int country = Germany, SHORT paper = 9)
    {
        Close();
        sheet_ = std::make_unique<Sheet>([=](DriverDevMode& record) { record.dmPaperSize = paper; },
                                         [&](TestMachine& machine) { StorePapers(machine, entries, TestPrinter); },
                                         Machine::InCountry(country));
        return Again();
    }
    Sheet& Again()
    {
        result_ = CustomPaperAccepted = -2;
        sheet_->Try([this](HWND page) {
            LoadCustomPaperList();
            const WCHAR* const layout = ResourceName(IDD_CUSTOM_PAPER);
            result_ = static_cast<int>(DialogBoxParamW(ResourceHandle, layout, page, CustomPaper_DlgProc, 0));
            return user::Outcome::Done;
        });
        return *sheet_;
    }
    void Close()
    {
        sheet_.reset();
        EXPECT_EQ(CustomPaperWorkList, nullptr);
        ReleaseRowsBehind(CustomHeadRow);
        CustomHeadRow = {};
        PaperRowCount = BuiltInPaperRows;
    }
    Sheet& Dialog() { return *sheet_; }
    Entries Stored() { return PapersOf(Dialog().Machine(), TestPrinter); }
    std::string StoredNames()
    {
        std::string names;
        for (const CustomPaperEntry& entry : Stored()) names += platform::ToUtf8(entry.cpName) + "/";
        return names;
    }
    // "Card/*Form/Poster/", the selected one marked. Each is an entry of the working list as well.
    std::string Names()
    {
        std::string names;
        int row = 0;
        for (const auto& cells : Dialog().Rows(IDC_CP_LIST))
            names += (row++ == Dialog().SelectedRow(IDC_CP_LIST) ? "*" : "") + platform::ToUtf8(cells[0]) + "/";
        EXPECT_EQ(WorkListCount(), row);
        return names;
    }
    std::string Size(int row = 0)
    {
        return platform::ToUtf8(Dialog().Rows(IDC_CP_LIST).at(static_cast<std::size_t>(row)).at(1));
    }
    // "Form: 8 8 11 0": the name, and the numbers of the unit whose fields are there.
    std::string Editor()
    {
        const bool inches = Dialog().Checked(IDC_CP_UNIT_INCH);
        std::string shown = platform::ToUtf8(Dialog().Text(IDC_CP_NAME)) + ":";
        std::vector fields = {IDC_CP_WIDTH_MM, IDC_CP_HEIGHT_MM};
        if (inches) fields = {IDC_CP_WIDTH_INCH, IDC_CP_WIDTH_SIXTEENTHS, IDC_CP_HEIGHT_INCH, IDC_CP_HEIGHT_SIXTEENTHS};
        for (const int field : fields) shown += " " + platform::ToUtf8(Dialog().Text(field));
        return shown;
    }
    // New, Delete, list, name, unit, OK as letters, those that can be used.
    std::string Usable()
    {
        return Dialog().Usable({
            {'N', IDC_CP_NEW    },
            {'D', IDC_CP_DELETE },
            {'l', IDC_CP_LIST   },
            {'n', IDC_CP_NAME   },
            {'u', IDC_CP_UNIT_MM},
            {'O', IDOK          }
        });
    }

    int result_ = -2;

  private:
    std::unique_ptr<Sheet> sheet_;
};

}  // namespace testing_support
