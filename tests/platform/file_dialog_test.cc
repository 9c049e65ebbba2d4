#include "platform/services/file_dialog.h"

#include <filesystem>
#include <fstream>

#include "platform/kernel/unicode.h"
#include "platform/services.h"
#include "tests/platform/quiet_desktop.h"

namespace {

using namespace platform;
using testing::ElementsAre;

// What the hook saw last, and the name that it refuses.
struct HookSeen {
    std::u16string name, folder;
    std::u16string refused;
    LPARAM data = 0;
};
HookSeen seen;

UINT_PTR Hook(HWND dialog, UINT message, WPARAM, LPARAM lParam)
{
    if (message != WM_NOTIFY) return 0;
    const auto& notice = *reinterpret_cast<const OFNOTIFYW*>(lParam);
    if (notice.hdr.code != CDN_FILEOK) return 0;
    WCHAR name[8] = {}, folder[300] = {};
    SendMessageW(GetParent(dialog), CDM_GETSPEC, 8, reinterpret_cast<LPARAM>(name));
    SendMessageW(GetParent(dialog), CDM_GETFOLDERPATH, 300, reinterpret_cast<LPARAM>(folder));
    seen = {name, folder, seen.refused, notice.lpOFN->lCustData};
    if (seen.refused.empty() || seen.name != seen.refused) return 0;
    SetWindowLongW(dialog, DWL_MSGRESULT, 1);
    return 1;
}

class FileDialog : public testing::Test {
  protected:
    FileDialog() : folder_(std::filesystem::temp_directory_path() / ("forms." + std::to_string(::getpid())))
    {
        std::filesystem::create_directory(folder_);
        std::ofstream(folder_ / "old.oxl") << "x";
        folderText_ = folder_.u16string();
        dialog_.lStructSize = sizeof dialog_;
        dialog_.lpstrFile = file_;
        dialog_.nMaxFile = 262;
        dialog_.lpstrInitialDir = folderText_.c_str();
        dialog_.lpstrDefExt = u"oxl";
        dialog_.Flags = 0xA8082E;
        dialog_.lpfnHook = Hook;
        dialog_.lCustData = 5;
        seen = {};
        // The first of the offered names that is accepted.
        desktop_->pick = [this](const FileDialogRequest& request) -> std::optional<std::u16string> {
            for (const auto& name : offered_)
                if (request.accept(name)) return name;
            return std::nullopt;
        };
    }
    ~FileDialog() override { std::filesystem::remove_all(folder_); }

    BOOL Save(std::vector<std::u16string> offered)
    {
        offered_ = std::move(offered);
        return GetSaveFileNameW(&dialog_);
    }
    std::u16string Within(const char16_t* name) const { return folderText_ + u"/" + name; }

    testing_support::QuietDesktopPlugged desktop_;
    std::filesystem::path folder_;
    std::u16string folderText_;
    WCHAR file_[262] = u"new";
    OPENFILENAMEW dialog_{};
    std::vector<std::u16string> offered_;
};

TEST_F(FileDialog, GivesTheWholePathWithTheDefaultExtension)
{
    EXPECT_TRUE(Save({u"a"}));
    EXPECT_EQ(std::u16string(file_), Within(u"a.oxl"));
    EXPECT_EQ(std::u16string(file_ + dialog_.nFileOffset), u"a.oxl");
    EXPECT_EQ(std::u16string(file_ + dialog_.nFileExtension), u"oxl");
    dialog_.nMaxFile = 10;
    EXPECT_FALSE(Save({u"a"}));
    EXPECT_EQ(file_[0], Within(u"a.oxl").size() + 1) << "what the buffer would have to hold";
}

TEST_F(FileDialog, LetsTheHookRefuseWhatItIsShownCutToItsRoom)
{
    seen.refused = u"formula";
    EXPECT_FALSE(Save({u"formulary.oxl"}));
    EXPECT_EQ(seen.folder, folderText_);
    EXPECT_EQ(seen.data, 5);
    EXPECT_TRUE(Save({u"formulary.oxl", u"form.a"}));
    EXPECT_EQ(seen.name, u"form.a");
}

TEST_F(FileDialog, RefusesWhatIsNoFileOfAFolderAndAsksBeforeItReplacesOne)
{
    EXPECT_FALSE(Save({u"", u"missing/a", folderText_, u"b/", std::u16string(u"a\0b", 3), u"old.oxl"}));
    ASSERT_EQ(desktop_->boxes.size(), 6U);
    EXPECT_EQ(desktop_->boxes[5].style, MB_OKCANCEL | MB_ICONEXCLAMATION);
    desktop_->answer = IDOK;
    EXPECT_TRUE(Save({u"old.oxl"}));
}

TEST_F(FileDialog, OpensOnlyWhatExists)
{
    dialog_.Flags |= OFN_FILEMUSTEXIST;
    offered_ = {u"a.oxl"};
    EXPECT_FALSE(GetOpenFileNameW(&dialog_));
    offered_ = {u"old"};
    EXPECT_TRUE(GetOpenFileNameW(&dialog_));
    EXPECT_EQ(std::u16string(file_), Within(u"old.oxl"));
}

}  // namespace
