// The whole document sheet as a user goes through it: every page and every dialog, with changes, Apply and OK.
#include <gtest/gtest.h>

#include <cstring>

#include "module.h"
#include "pages/custom_paper_store.h"
#include "pages/custom_paper_work_list.h"
#include "platform/kernel.h"
#include "platform/seams/fonts.h"
#include "platform/spooler/printers.h"
#include "platform/user/actions.h"
#include "platform/user/window.h"
#include "resources/control_numbers.h"
#include "settings/defaults.h"
#include "settings/list_rows.h"
#include "settings/merge.h"
#include "spooler/document_properties.h"
#include "spooler/document_sheet.h"
#include "tests/faults/every_place.h"
#include "tests/faults/stored_lists.h"
#include "tests/support/idle_desktop.h"
#include "tests/support/records.h"

namespace testing_support {
namespace {

namespace user = platform::user;

enum class Do { Page, Click, Pick, Type, Append, Row, Spin, Help, Apply, Ok };
struct Step {
    int dialog;  // the modal dialog that it is for; 0: the sheet
    Do what;
    int control = 0;
    int row = 0;
    const char16_t* text = u"";
};

constexpr int Sheet = 0;
// clang-format off
constexpr Step Script[] = {
    {Sheet,            Do::Pick,   IDC_NUP, 3},
    {Sheet,            Do::Click,  IDC_BORDER_LINE},
    {Sheet,            Do::Click,  IDC_NUP_STYLE},
    {IDD_NUP_STYLE,    Do::Click,  IDC_VERT_DESCENDING},
    {IDD_NUP_STYLE,    Do::Click,  IDOK},
    {Sheet,            Do::Pick,   IDC_PAPER_SOURCE, 0},
    {Sheet,            Do::Pick,   IDC_MEDIA_TYPE, 1},
    {Sheet,            Do::Pick,   IDC_MEDIA_TYPE, 0},
    {Sheet,            Do::Pick,   IDC_PAPER_SOURCE, 1},
    {Sheet,            Do::Pick,   IDC_DUPLEX, 1},
    {Sheet,            Do::Click,  IDC_GUIDE_PAPER},
    {Sheet,            Do::Pick,   IDC_DUPLEX, 3},
    {Sheet,            Do::Click,  IDC_DEFAULT},

    {Sheet,            Do::Pick,   IDC_WATERMARK, 2},
    {Sheet,            Do::Click,  IDC_WATERMARK_FIRST_PAGE},
    {Sheet,            Do::Click,  IDC_EDIT_WATERMARK},
    {IDD_WATERMARK,    Do::Type,   IDC_WM_NAME, 0, u"Gone"},
    {IDD_WATERMARK,    Do::Click,  IDOK},
    {IDD_WATERMARK,    Do::Type,   IDC_WM_SIZE, 0, u"300"},
    {IDD_WATERMARK,    Do::Pick,   IDC_WM_ANGLE_MODE, 3},
    {IDD_WATERMARK,    Do::Type,   IDC_WM_ANGLE, 0, u"x"},
    {IDD_WATERMARK,    Do::Pick,   IDC_WM_FACE, 1},
    {IDD_WATERMARK,    Do::Click,  IDC_WM_USER_POSITION},
    {IDD_WATERMARK,    Do::Type,   IDC_WM_VERTICAL, 0, u"-7"},
    {IDD_WATERMARK,    Do::Spin,   IDC_WM_SHADING_SPIN},
    {IDD_WATERMARK,    Do::Click,  IDC_WM_CENTER},
    {IDD_WATERMARK,    Do::Click,  IDC_WM_BOLD},
    {IDD_WATERMARK,    Do::Click,  IDC_WM_NEW},
    {IDD_WATERMARK,    Do::Type,   IDC_WM_TEXT, 0, u"T"},
    {IDD_WATERMARK,    Do::Pick,   IDC_WM_LIST, 3},
    {IDD_WATERMARK,    Do::Click,  IDC_WM_DELETE},
    {IDD_WATERMARK,    Do::Click,  IDOK},
    {IDD_WATERMARK,    Do::Click,  IDOK},

    {Sheet,            Do::Click,  IDC_EDIT_WATERMARK},
    {IDD_WATERMARK,    Do::Click,  IDC_WM_DELETE},
    {IDD_WATERMARK,    Do::Click,  IDC_WM_NEW},
    {IDD_WATERMARK,    Do::Click,  IDCANCEL},

    {Sheet,            Do::Pick,   IDC_OVERLAY, 1},
    {Sheet,            Do::Click,  IDC_OVERLAY_FIRST_PAGE},
    {Sheet,            Do::Click,  IDC_EDIT_OVERLAY},
    {IDD_OVERLAY_LIST, Do::Pick,   IDC_OVL_LIST, 2},
    {IDD_OVERLAY_LIST, Do::Click,  IDC_OVL_EDIT},
    {IDD_OVERLAY_EDIT, Do::Type,   IDC_OVL_NAME, 0, u"Bill"},
    {IDD_OVERLAY_EDIT, Do::Click,  IDC_OVL_BROWSE},
    {IDD_OVERLAY_EDIT, Do::Click,  IDC_HELP},
    {IDD_OVERLAY_EDIT, Do::Click,  IDOK},
    {IDD_OVERLAY_LIST, Do::Pick,   IDC_OVL_LIST, 3},
    {IDD_OVERLAY_LIST, Do::Click,  IDC_OVL_DELETE},
    {IDD_OVERLAY_LIST, Do::Click,  IDC_OVL_NEW},
    {IDD_OVERLAY_EDIT, Do::Click,  IDOK},
    {IDD_OVERLAY_EDIT, Do::Click,  IDC_OVL_BROWSE},
    {IDD_OVERLAY_EDIT, Do::Click,  IDOK},
    {IDD_OVERLAY_LIST, Do::Pick,   IDC_OVL_LIST, 1},
    {IDD_OVERLAY_LIST, Do::Click,  IDOK},
    {Sheet,            Do::Click,  IDC_EDIT_OVERLAY},
    {IDD_OVERLAY_LIST, Do::Click,  IDC_OVL_DELETE},
    {IDD_OVERLAY_LIST, Do::Click,  IDCANCEL},
    {Sheet,            Do::Click,  IDC_SETUP_PRINTER_FIGURE},

    {Sheet,            Do::Page,   2},
    {Sheet,            Do::Pick,   IDC_RESOLUTION, 0},
    {Sheet,            Do::Click,  IDC_TONER_SAVE_ON},
    {Sheet,            Do::Click,  IDC_TONER_SAVE_OFF},
    {Sheet,            Do::Click,  IDC_ALL_RASTER_ON},
    {Sheet,            Do::Pick,   IDC_SMOOTHTONE, 1},
    {Sheet,            Do::Pick,   IDC_RESOLUTION, 1},
    {Sheet,            Do::Pick,   IDC_TONER_DENSITY, 1},
    {Sheet,            Do::Click,  IDC_ALL_RASTER_OFF},
    {Sheet,            Do::Click,  IDC_PRINTER_TRUETYPE},

    {Sheet,            Do::Page,   3},
    {Sheet,            Do::Pick,   IDC_TOTAL_MEMORY, 1},
    {Sheet,            Do::Click,  IDC_ABOUT},
    {DLG_ABOUT,        Do::Click,  IDOK},
    {Sheet,            Do::Page,   1},
    {Sheet,            Do::Pick,   IDC_DOCUMENT_SIZE, 17},
    {Sheet,            Do::Type,   IDC_SCALING, 0, u"150"},
    {Sheet,            Do::Spin,   IDC_SCALING_SPIN},
    {Sheet,            Do::Type,   IDC_SCALING, 0, u"100"},
    {Sheet,            Do::Click,  IDC_FIT_TO_PAPER},
    {Sheet,            Do::Pick,   IDC_OUTPUT_SIZE, 4},
    {Sheet,            Do::Click,  IDC_SHIFT_ON},
    {Sheet,            Do::Type,   IDC_SHIFT_X, 0, u"51"},
    {Sheet,            Do::Type,   IDC_SHIFT_Y, 0, u"-x"},
    {Sheet,            Do::Type,   IDC_COPIES, 0, u"7"},
    {Sheet,            Do::Click,  IDC_COLLATED},
    {Sheet,            Do::Click,  IDC_PROOF_PRINT},
    {Sheet,            Do::Click,  IDC_LANDSCAPE},
    {Sheet,            Do::Click,  IDC_ROTATED},
    {Sheet,            Do::Click,  IDC_EDIT_CUSTOM},
    {IDD_CUSTOM_PAPER, Do::Row,    IDC_CP_LIST, 0},
    {IDD_CUSTOM_PAPER, Do::Type,   IDC_CP_WIDTH_INCH, 0, u"9"},
    {IDD_CUSTOM_PAPER, Do::Click,  IDC_CP_UNIT_MM},
    {IDD_CUSTOM_PAPER, Do::Type,   IDC_CP_NAME, 0, u"Gone"},
    {IDD_CUSTOM_PAPER, Do::Append, IDC_CP_NAME, 0, u"2"},
    {IDD_CUSTOM_PAPER, Do::Click,  IDC_CP_NEW},
    {IDD_CUSTOM_PAPER, Do::Click,  IDC_HELP},
    {IDD_CUSTOM_PAPER, Do::Row,    IDC_CP_LIST, 1},
    {IDD_CUSTOM_PAPER, Do::Click,  IDC_CP_DELETE},
    {IDD_CUSTOM_PAPER, Do::Click,  IDOK},
    {IDD_CUSTOM_PAPER, Do::Click,  IDOK},
    {Sheet,            Do::Click,  IDC_EDIT_CUSTOM},
    {IDD_CUSTOM_PAPER, Do::Click,  IDC_CP_DELETE},
    {IDD_CUSTOM_PAPER, Do::Click,  IDCANCEL},
    {Sheet,            Do::Apply},

    {Sheet,            Do::Help},
    {Sheet,            Do::Page,   0},
    {Sheet,            Do::Ok},
};
// clang-format on

user::Outcome Take(const Step& step, HWND top)
{
    const HWND control = user::Control(user::DialogOf(top), step.control);
    switch (step.what) {
        case Do::Page:
            return user::ShowPage(top, step.control);
        case Do::Click:
            return user::Click(control);
        case Do::Pick:
            return user::Pick(control, step.row);
        case Do::Type:
            return user::Type(control, step.text);
        case Do::Append:
            return user::Append(control, step.text);
        case Do::Row:
            return user::SelectRow(control, step.row);
        case Do::Spin:
            return user::Spin(control, true);
        case Do::Help:
            return user::PressButton(top, user::SheetButton::Help);
        case Do::Apply:
            return user::PressButton(top, user::SheetButton::Apply);
        case Do::Ok:
            return user::PressButton(top, user::SheetButton::Ok);
    }
    return user::Outcome::Unsuited;
}

int ModalDialog(HWND top)
{
    const user::Window* window = user::Find(top);
    const auto* dialog = window ? window->As<user::DialogState>() : nullptr;
    return dialog ? dialog->templateNumber : Sheet;
}

// A dialog, while it comes up.
constexpr int OpeningOf(int dialog) { return -dialog; }

// Takes the steps in the dialogs that they are for. A dialog that has not come up loses its steps; one that stays
// when it should have gone is cancelled, and so is what is left at the end.
class ScriptUser : public IdleDesktop {
  public:
    explicit ScriptUser(Attempt& attempt) : attempt_(attempt) {}
    void Opened(HWND) override { shown = true; }
    void Run(HWND top) override
    {
        const int here = ModalDialog(top);
        const auto place = [top] { return ModalDialog(user::DialogOf(top)); };  // the page in front, or the dialog
        attempt_.Note({place(), OpeningOf(here)});
        while (!user::Ended(top) && next_ < std::size(Script)) {
            const Step& step = Script[next_];
            if (step.dialog == here) {
                ++next_;
                const int before = place();
                const user::Outcome outcome = Take(step, top);
                attempt_.Note({before, place()});
                if (attempt_.Clean()) {
                    EXPECT_EQ(outcome, user::Outcome::Done) << "step " << &step - Script;
                }
            } else if (IsOpen(step.dialog)) {
                break;
            } else {
                ++next_;
            }
        }
        if (attempt_.Clean()) {
            EXPECT_TRUE(user::Ended(top)) << here;
        }
        if (!user::Ended(top)) user::Close(top);
        if (user::Ended(top)) return;
        attempt_.End();  // as long as it cannot be ended it stays
        user::Close(top);
        EXPECT_TRUE(user::Ended(top)) << here;
    }
    std::optional<std::u16string> PickFile(const platform::FileDialogRequest& request) override
    {
        const std::u16string path = QD_MODULE_PATH;
        if (request.accept && !request.accept(path)) return std::nullopt;
        return path;
    }

    bool shown = false;

  private:
    static bool IsOpen(int dialog)
    {
        const auto open = user::OpenWindows();
        return std::ranges::any_of(open, [dialog](HWND window) { return ModalDialog(window) == dialog; });
    }
    Attempt& attempt_;
    std::size_t next_ = 0;
};

// The printer's lists before the walk: one row that no step touches, one that is changed, one that goes.
void Furnish(Machine& machine)
{
    machine.store->SetValue(TestPrinter, u"PrinterDataSize", {4, DwordBytes(8)});
    machine.store->SetValue(TestPrinter, u"PrinterData",
                            {
                                3, {0, 4, 8, 0, 1, 0, 0, 0}
    });
    StoreWatermarks(machine, {
                                 {u"Kept",    u"K"},
                                 {u"Changed", u"C"},
                                 {u"Gone",    u"G"},
                                 {u"Last",    u"L"}
    });
    StorePapers(machine,
                {Entry(257, u"Changed", 1, 800, 1100, 8), Entry(258, u"Gone", 0, 2160, 3560),
                 Entry(259, u"Kept", 0, 1000, 1500)},
                TestPrinter);
    StoreOverlays(machine, TestPrinter,
                  {Overlay(u"Kept", u"/k.oxl"), Overlay(u"Changed", u"/c.oxl"), Overlay(u"Gone", u"/g.oxl")});
}

// What cannot be read, or is not in its list for want of room or of an answer, is not there to be saved.
constexpr std::initializer_list<const char*> Loaders = {"OpenPrinterW",       "GetPrinterDataW", "GlobalAlloc",
                                                        "GlobalLock",         "LB_INSERTSTRING", "CB_INSERTSTRING",
                                                        "SendDlgItemMessageW"};

// A list that its page loads and its dialogs load, edit and save.
struct EditedList {
    const char* what;
    int page, dialog, editor;
    RowNames before, whole;  // the walk, and after it
};

// A failure elsewhere leaves the list as the walk makes it. A row that no step touches is lost only if it could not
// be loaded.
void CheckList(const EditedList& list, const RowNames& names, const Attempt& attempt, bool shown)
{
    const bool elsewhere =
        attempt.Single() && shown && !attempt.FailedAt({OpeningOf(Sheet), list.page, list.dialog, list.editor});
    if (attempt.Clean() || elsewhere) {
        EXPECT_EQ(names, list.whole) << list.what;
    }
    // For want of memory half a list is not edited.
    if (attempt.Single() && attempt.FailedAt({OpeningOf(list.dialog)}) && names != list.before &&
        !attempt.Failed({"OpenPrinterW", "GetPrinterDataW", "LB_INSERTSTRING", "SendDlgItemMessageW"})) {
        EXPECT_EQ(names, list.whole) << list.what << " opened";
    }
    if (attempt.Failed(Loaders) == 0 || !attempt.FailedAt({list.page, OpeningOf(list.dialog)})) {
        EXPECT_EQ(std::count(names.begin(), names.end(), u"Kept"), 1) << list.what;
    }
}

void CheckStore(Machine& machine, const Attempt& attempt, bool shown)
{
    const bool mayDiffer = attempt.Failed({"SetPrinterDataW"}) > 0;
    // clang-format off
    const EditedList watermarks = {"watermarks", IDD_SETUP, IDD_WATERMARK, IDD_WATERMARK,
                                   {u"Kept", u"Changed", u"Gone", u"Last"}, {u"Kept", u"Gone", u"Watermark"}};
    const EditedList papers = {"papers", IDD_PAPER, IDD_CUSTOM_PAPER, IDD_CUSTOM_PAPER,
                               {u"Changed", u"Gone", u"Kept"}, {u"Gone2", u"Kept", u"New Paper0"}};
    const EditedList overlays = {"overlays", IDD_SETUP, IDD_OVERLAY_LIST, IDD_OVERLAY_EDIT,
                                 {u"Kept", u"Changed", u"Gone"}, {u"Kept", u"Bill", u"Form Overlay-3-"}};
    // clang-format on
    CheckList(watermarks, WatermarkNamesStored(machine, mayDiffer), attempt, shown);
    // A size's name is held against what the list shows, which may no longer tell it.
    const bool mayRepeat = !attempt.Single() && attempt.Failed({"SendDlgItemMessageW"}) > 0;
    CheckList(papers, PaperNames(machine, mayDiffer, mayRepeat), attempt, shown);
    CheckList(overlays, OverlayNames(machine, mayDiffer), attempt, shown);
    EXPECT_EQ(machine.store->Value(TestPrinter, u"PrinterData")->bytes, (platform::Bytes{0, 4, 8, 0, 1, 0, 0, 0}));
    EXPECT_EQ(machine.store->Values(TestPrinter).size(), 9u);
    EXPECT_TRUE(machine.store->DefaultRecord(TestPrinter).empty());
}

// The record is one that any other sheet would take as it is.
void CheckRecord(const DriverDevMode& record)
{
    DriverDevMode merged = record;
    BuildDefaultSettings(&merged, TestPrinter, TestPrinter, 0);
    ASSERT_EQ(MergeSettings(&merged, PublicPart(&record)), 1);
    for (const RecordField& field : RecordFields) {
        if (field.name == "dmAvailableMemory") continue;  // follows the memory when the record is next merged
        // The number in a row whose text could not be loaded, which the next merge puts right.
        if (field.name == "dmTotalMemory" && record.dmTotalMemory == 0) continue;
        const auto at = [&](const DriverDevMode& one) {
            return RecordImage(reinterpret_cast<const BYTE*>(&one) + field.offset,
                               reinterpret_cast<const BYTE*>(&one) + field.offset + field.width);
        };
        EXPECT_EQ(at(merged), at(record)) << field.name;
    }
}

void WalkTheSheet(Attempt& attempt)
{
    Machine machine(Machine::InCountry(49), {TestPrinter, TestPrinter});
    Furnish(machine);
    platform::Environment& environment = platform::CurrentEnvironment();
    environment.fonts = platform::MakeBuiltinFonts();
    const auto who = std::make_shared<ScriptUser>(attempt);
    environment.desktop = who;
    DriverDevMode input, output;
    BuildDefaultSettings(&input, TestPrinter, TestPrinter, 0);
    std::memset(&output, 0xA5, sizeof output);
    const DriverDevMode untouched = output;
    HANDLE printer = platform::spooler::Open(TestPrinter, 0);
    std::u16string name = TestPrinter;

    attempt.Begin();
    const LONG result = DrvDocumentProperties(nullptr, printer, name.data(), PublicPart(&output), PublicPart(&input),
                                              DM_PROMPT | DM_COPY | DM_MODIFY);
    attempt.End();

    platform::spooler::Close(printer);
    const bool published = BytesOf(output) != BytesOf(untouched);
    EXPECT_EQ(result < 0, !who->shown) << result;
    if (result == IDOK) {
        EXPECT_TRUE(published);
    } else if (result != IDCANCEL) {
        EXPECT_EQ(result, -1);
        EXPECT_FALSE(published);
    }
    if (attempt.Clean() || (attempt.Single() && who->shown)) {
        EXPECT_EQ(result, IDOK);
        if (!attempt.Failed({"GetDlgItemInt"})) {
            EXPECT_EQ(output.dmCopies, 7);
        }
    }
    if (published) CheckRecord(output);
    CheckStore(machine, attempt, who->shown);
    EXPECT_EQ(CustomPaperWorkList, nullptr);
    EXPECT_EQ(DocumentSheetCount, 0);
    ReleaseRowsBehind(CustomHeadRow);
    CustomHeadRow = {};
    PaperRowCount = BuiltInPaperRows;
    environment.desktop = nullptr;
    environment.fonts = nullptr;
}

class TheSheetAndTheStore : public FailingCalls {};
TEST_P(TheSheetAndTheStore, StayWhole)
{
    if (!ModuleHandle) DllInitialize(LoadLibraryW(QD_MODULE_PATH), DLL_PROCESS_ATTACH, nullptr);
    TryEveryPlace("the sheet", GetParam(), 150, WalkTheSheet);
}
INSTANTIATE_TEST_SUITE_P(EveryCallThatFails, TheSheetAndTheStore, testing::ValuesIn(EveryWay), NameOfWay);

}  // namespace
}  // namespace testing_support
