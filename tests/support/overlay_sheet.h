// The Setup page over a printer's form overlays, with its two dialogs and a folder for their files.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "platform/kernel/memory.h"
#include "tests/support/overlays.h"
#include "tests/support/setup_sheet.h"
#include "watermark/overlay_list.h"

namespace testing_support {

using Names = std::vector<std::u16string>;

// What a test allocates is released at its end.
struct NoBlocksLeft {
    std::size_t blocks = platform::memory::BlockCount();
    ~NoBlocksLeft() { EXPECT_EQ(platform::memory::BlockCount(), blocks); }
};

class FormsFolder {
  public:
    FormsFolder() { std::filesystem::create_directories(path_); }
    ~FormsFolder() { std::filesystem::remove_all(path_); }
    FormsFolder(const FormsFolder&) = delete;
    FormsFolder& operator=(const FormsFolder&) = delete;
    std::u16string Folder() const { return path_.u16string(); }
    std::u16string Path(std::u16string_view name) const { return Folder() + u"/" + std::u16string(name); }
    void MakeFile(const char* name) const { std::ofstream(path_ / name) << "x"; }

  private:
    std::filesystem::path path_ = std::filesystem::temp_directory_path() / ("overlays." + std::to_string(::getpid()));
};

inline const std::vector<OverlayEntry> ThreeForms = {Overlay(u"Letterhead", u"/forms/letterhead.oxl"),
                                                     Overlay(u"Invoice", u"/forms/invoice.oxl"),
                                                     Overlay(u"Draft", u"/forms/draft.oxl")};

class OverlaySheet : private NoBlocksLeft, public FormsFolder, public SetupSheet {
  public:
    explicit OverlaySheet(const std::vector<OverlayEntry>& rows = ThreeForms, int index = 0)
        : SetupSheet([=](DriverDevMode& record) { record.dmOverlayIndex = static_cast<SHORT>(index); },
                     [=](TestMachine& machine) { StoreOverlays(machine, TestPrinter, rows); })
    {
    }
    // In the list dialog: a new row with a file of the folder.
    OverlaySheet& Add(const std::u16string& name, std::u16string_view file)
    {
        Machine().Desktop().fileAnswers.push_back(Path(file));
        Click(IDC_OVL_NEW).Type(IDC_OVL_NAME, name).Click(IDC_OVL_BROWSE).Click(IDOK);
        return *this;
    }
    StoredOverlays Stored() { return OverlaysOf(Machine(), TestPrinter); }
    Names StoredNames()
    {
        Names names;
        for (const OverlayEntry& row : Stored().rows) names.emplace_back(row.ovName);
        return names;
    }
    // "NED": New, Edit and Delete, where they can be used.
    std::string Usable()
    {
        return Sheet::Usable({
            {'N', IDC_OVL_NEW   },
            {'E', IDC_OVL_EDIT  },
            {'D', IDC_OVL_DELETE}
        });
    }
    std::u16string File() { return Settings().dmOverlayFile; }
};

}  // namespace testing_support
