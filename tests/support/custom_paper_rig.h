// The Custom Paper dialog on top of a sheet, on the sizes that a test stores with the printer.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "module.h"
#include "pages/custom_paper_dialog.h"
#include "pages/custom_paper_store.h"
#include "pages/custom_paper_work_list.h"
#include "platform/kernel/memory.h"
#include "platform/kernel/unicode.h"
#include "platform/services.h"
#include "platform/user/window.h"
#include "resources/control_numbers.h"
#include "tests/support/custom_papers.h"
#include "tests/support/sheet_driver.h"

namespace testing_support {

using Cells = std::vector<std::vector<std::u16string>>;
using Entries = std::vector<CustomPaperEntry>;

inline constexpr int Germany = 49, UnitedStates = 1;

inline const Entries Three = {Entry(257, u"Card", 0, 1000, 1500), Entry(258, u"Form", 1, 800, 1100, 8, 0),
                              Entry(259, u"Poster", 0, 2160, 3560)};

// A printer with as many sizes, "Size0" and so on.
inline Entries Many(int count)
{
    Entries entries;
    for (int i = 0; i < count; ++i)
        entries.push_back(Entry(static_cast<SHORT>(257 + i),
                                u"Size" + std::u16string(1, u'0' + i / 10) + std::u16string(1, u'0' + i % 10), 0, 1000,
                                1500));
    return entries;
}

// One size of either unit, in the numbers of its fields.
inline CustomPaperEntry Mm(SHORT width, SHORT height) { return Entry(257, u"A", 0, width, height); }
inline CustomPaperEntry Inch(SHORT width, SHORT widthSixteenths, SHORT height, SHORT heightSixteenths)
{
    return Entry(257, u"A", 1, static_cast<SHORT>(width * 100), static_cast<SHORT>(height * 100), widthSixteenths,
                 heightSixteenths);
}

inline constexpr int MillimetreControls[] = {IDC_CP_WIDTH_MM,       IDC_CP_WIDTH_MM_SPIN,  IDC_CP_HEIGHT_MM,
                                             IDC_CP_HEIGHT_MM_SPIN, IDC_CP_WIDTH_MM_RANGE, IDC_CP_HEIGHT_MM_RANGE};
inline constexpr int InchControls[] = {
    IDC_CP_WIDTH_SLASH16,    IDC_CP_HEIGHT_SLASH16,        IDC_CP_WIDTH_INCH_RANGE,  IDC_CP_HEIGHT_INCH_RANGE,
    IDC_CP_WIDTH_SIXTEENTHS, IDC_CP_WIDTH_SIXTEENTHS_SPIN, IDC_CP_HEIGHT_SIXTEENTHS, IDC_CP_HEIGHT_SIXTEENTHS_SPIN,
    IDC_CP_WIDTH_INCH,       IDC_CP_WIDTH_INCH_SPIN,       IDC_CP_HEIGHT_INCH,       IDC_CP_HEIGHT_INCH_SPIN};

class CustomPaperRig : public testing::Test {
  protected:
    ~CustomPaperRig() override { Close(); }
    Sheet& Open(const Entries& entries, int country = Germany, SHORT paper = 9)
    {
        Close();
        sheet_ = std::make_unique<Sheet>([=](DriverDevMode& record) { record.dmPaperSize = paper; },
                                         [&](TestMachine& machine) { Store(machine, entries); },
                                         Machine::InCountry(country));
        return Again();
    }
    Sheet& Again()
    {
        result_ = -2;
        CustomPaperAccepted = -2;
        sheet_->Try([this](HWND page) {
            LoadCustomPaperList();
            result_ = DialogBoxParamW(ResourceHandle, ResourceName(IDD_CUSTOM_PAPER), page, CustomPaper_DlgProc, 0);
            return platform::user::Outcome::Done;
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
    static void Store(Machine& machine, const Entries& entries)
    {
        const platform::Bytes bytes = PaperBytes(entries);
        machine.store->SetValue(TestPrinter, u"CustomPaperDataSize", {4, DwordBytes(static_cast<DWORD>(bytes.size()))});
        machine.store->SetValue(TestPrinter, u"CustomPaperData", {3, bytes});
    }
    Sheet& Dialog() { return *sheet_; }
    Entries Stored()
    {
        const auto size = Dialog().Machine().store->Value(TestPrinter, u"CustomPaperDataSize");
        const auto value = Dialog().Machine().store->Value(TestPrinter, u"CustomPaperData");
        DWORD length = 0;
        std::memcpy(&length, size->bytes.data(), 4);
        Entries entries(length / sizeof(CustomPaperEntry));
        EXPECT_TRUE(length == 0 || value->bytes.size() == length);
        if (!entries.empty()) std::memcpy(entries.data(), value->bytes.data(), length);
        return entries;
    }
    std::vector<std::u16string> StoredNames()
    {
        std::vector<std::u16string> names;
        for (const CustomPaperEntry& entry : Stored()) names.emplace_back(entry.cpName);
        return names;
    }
    Cells Listed() { return Dialog().Rows(IDC_CP_LIST); }
    std::u16string Size(int row = 0) { return Listed().at(static_cast<std::size_t>(row)).at(1); }
    bool Visible(int control) { return platform::user::Find(Dialog().Handle(control))->visible; }
    // As a script sees it: which of the two sets of fields is there.
    int UnitShown()
    {
        const bool inches = Visible(IDC_CP_WIDTH_INCH);
        for (const int control : MillimetreControls) EXPECT_NE(Visible(control), inches) << control;
        for (const int control : InchControls) EXPECT_EQ(Visible(control), inches) << control;
        EXPECT_NE(Dialog().Checked(IDC_CP_UNIT_MM), inches);
        EXPECT_EQ(Dialog().Checked(IDC_CP_UNIT_INCH), inches);
        return inches;
    }
    // The numbers in the fields of a unit.
    std::vector<std::u16string> Numbers(int unit)
    {
        if (unit == 0) return {Dialog().Text(IDC_CP_WIDTH_MM), Dialog().Text(IDC_CP_HEIGHT_MM)};
        return {Dialog().Text(IDC_CP_WIDTH_INCH), Dialog().Text(IDC_CP_WIDTH_SIXTEENTHS),
                Dialog().Text(IDC_CP_HEIGHT_INCH), Dialog().Text(IDC_CP_HEIGHT_SIXTEENTHS)};
    }
    // New, Delete, list, name, number, OK as letters, those that can be used.
    std::string Usable()
    {
        std::string usable;
        for (const auto& [control, letter] :
             {std::pair(IDC_CP_NEW, 'N'), std::pair(IDC_CP_DELETE, 'D'), std::pair(IDC_CP_LIST, 'l'),
              std::pair(IDC_CP_NAME, 'n'), std::pair(IDC_CP_UNIT_MM, 'u'), std::pair(IDOK, 'O'),
              std::pair(IDCANCEL, 'C'), std::pair(IDC_HELP, 'H')})
            if (Dialog().Enabled(control)) usable += letter;
        return usable;
    }
    HWND FocusNow() { return GetFocus(); }

    INT_PTR result_ = -2;

  private:
    std::unique_ptr<Sheet> sheet_;
};

}  // namespace testing_support
