#include "pages/custom_paper_dialog.h"

#include "boundary.h"
#include "pages/control_state.h"
#include "pages/custom_paper_editor.h"
#include "pages/custom_paper_fields.h"
#include "pages/custom_paper_store.h"
#include "pages/custom_paper_units.h"
#include "pages/custom_paper_work_list.h"
#include "pages/page_framework.h"
#include "platform/controls.h"
#include "resources/control_numbers.h"
#include "settings/user_locale.h"
#include "settings/wide_text.h"

int CustomPaperAccepted = 0;

namespace {

constexpr DWORD ListHelp = 1221, EditorHelp = 1222, DialogHelp = 1202;
constexpr HelpPair Help[] = {
    {IDC_CP_NAME_HEADER,            ListHelp  },
    {IDC_CP_SIZE_HEADER,            ListHelp  },
    {IDC_CP_LIST,                   ListHelp  },
    {IDC_CP_NEW,                    ListHelp  },
    {IDC_CP_DELETE,                 ListHelp  },
    {IDC_CP_NAME_LABEL,             EditorHelp},
    {IDC_CP_HEIGHT_LABEL,           EditorHelp},
    {IDC_CP_WIDTH_LABEL,            EditorHelp},
    {IDC_CP_NAME,                   EditorHelp},
    {IDC_CP_WIDTH_MM,               EditorHelp},
    {IDC_CP_WIDTH_MM_SPIN,          EditorHelp},
    {IDC_CP_HEIGHT_MM,              EditorHelp},
    {IDC_CP_HEIGHT_MM_SPIN,         EditorHelp},
    {IDC_CP_UNIT_MM,                EditorHelp},
    {IDC_CP_UNIT_INCH,              EditorHelp},
    {IDC_CP_WIDTH_MM_RANGE,         EditorHelp},
    {IDC_CP_HEIGHT_MM_RANGE,        EditorHelp},
    {IDC_CP_WIDTH_SLASH16,          EditorHelp},
    {IDC_CP_HEIGHT_SLASH16,         EditorHelp},
    {IDC_CP_WIDTH_INCH_RANGE,       EditorHelp},
    {IDC_CP_HEIGHT_INCH_RANGE,      EditorHelp},
    {IDC_CP_WIDTH_SIXTEENTHS,       EditorHelp},
    {IDC_CP_WIDTH_SIXTEENTHS_SPIN,  EditorHelp},
    {IDC_CP_HEIGHT_SIXTEENTHS,      EditorHelp},
    {IDC_CP_HEIGHT_SIXTEENTHS_SPIN, EditorHelp},
    {IDC_CP_UNIT_GROUP,             EditorHelp},
    {IDC_CP_WIDTH_INCH,             EditorHelp},
    {IDC_CP_WIDTH_INCH_SPIN,        EditorHelp},
    {IDC_CP_HEIGHT_INCH,            EditorHelp},
    {IDC_CP_HEIGHT_INCH_SPIN,       EditorHelp},
    {0,                             0         },
};

constexpr int ColumnWidths[] = {234, 134};  // pixels: name, size
constexpr int NameLimit = 19;               // characters that can be typed
constexpr int NoRow = MostCustomPapers + 1;
constexpr int NameChars = 21;

void PrepareControls(HWND dialog)
{
    for (int column = 0; column < static_cast<int>(std::size(ColumnWidths)); ++column) {
        LVCOLUMNW layout{};
        layout.mask = LVCF_FMT | LVCF_SUBITEM;
        layout.fmt = LVCFMT_LEFT;
        layout.iSubItem = column;
        const auto place = static_cast<WPARAM>(column);
        SendDlgItemMessageW(dialog, IDC_CP_LIST, LVM_INSERTCOLUMNW, place, reinterpret_cast<LPARAM>(&layout));
        SendDlgItemMessageW(dialog, IDC_CP_LIST, LVM_SETCOLUMNWIDTH, place, ColumnWidths[column]);
    }
    const LRESULT style = SendDlgItemMessageW(dialog, IDC_CP_LIST, LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0);
    SendDlgItemMessageW(dialog, IDC_CP_LIST, LVM_SETEXTENDEDLISTVIEWSTYLE, 0, style | LVS_EX_FULLROWSELECT);

    SendDlgItemMessageW(dialog, IDC_CP_NAME, EM_LIMITTEXT, NameLimit, 0);
    for (const NumberField& field : NumberFields()) {
        SendDlgItemMessageW(dialog, field.control, EM_LIMITTEXT, static_cast<WPARAM>(field.characters), 0);
        SendDlgItemMessageW(dialog, field.spin, UDM_SETRANGE, 0,
                            MakeLong(static_cast<DWORD>(field.greatest), static_cast<DWORD>(field.least)));
    }
}

void ShowNoSizes(HWND dialog)
{
    const EditorWrites writes;
    const CustomPaperEntry usual = DefaultCustomPaper(LocaleUsesA4());
    ShowCustomPaperNumbers(dialog, usual);
    ShowCustomPaperUnit(dialog, usual.cpUnit);
    EnableCustomPaperEditor(dialog, EditorEmpty, false);
}

void ShowSelected(HWND dialog, const CustomPaperEntry& entry)
{
    const EditorWrites writes;
    ShowCustomPaperUnit(dialog, entry.cpUnit);
    ShowCustomPaperEntry(dialog, entry);
}

// A stored unit that is neither counts as millimetres, in which it can be put right.
CustomPaperEntry EntryOf(const PaperRow& row)
{
    CustomPaperEntry entry = row.size ? EntryFromRowSize(*row.size) : CustomPaperEntry{};
    if (entry.cpUnit != UnitInches) entry.cpUnit = UnitMillimetres;
    CopyBounded(entry.cpName, row.name, NameChars);
    return entry;
}

// A row in the list view and an entry in the working list, or neither.
bool AddSize(HWND dialog, int position, const CustomPaperEntry& entry)
{
    if (!InsertCustomPaperRow(dialog, position, entry)) return false;
    if (WorkListAppend(entry)) return true;
    SendDlgItemMessageW(dialog, IDC_CP_LIST, LVM_DELETEITEM, static_cast<WPARAM>(position), 0);
    return false;
}

// A dialog that does not end keeps its sizes: an empty list that is saved later would take the printer's.
void End(HWND dialog, bool accepted, INT_PTR result)
{
    CustomPaperAccepted = accepted ? 1 : 0;
    if (EndDialog(dialog, result)) WorkListFree();
}

// The dialog's OK stores what is listed, so that a list that has no room for every size is not edited at all.
void ListSizes(HWND dialog)
{
    EnableCustomPaperEditor(dialog, EditorNormal, true);
    PaperChoice = GetOption<PaperPayload>(PaperOption);
    SendDlgItemMessageW(dialog, IDC_CP_LIST, WM_SETREDRAW, FALSE, 0);
    SendDlgItemMessageW(dialog, IDC_CP_LIST, LVM_DELETEALLITEMS, 0, 0);
    int selected = 0, count = 0;
    for (const PaperRow* row = &CustomHeadRow; row; row = row->next.get()) {
        if (!AddSize(dialog, count, EntryOf(*row))) return End(dialog, false, 0);
        if (row->code == PaperChoice.code) selected = count;
        ++count;
    }
    SendDlgItemMessageW(dialog, IDC_CP_LIST, WM_SETREDRAW, TRUE, 0);
    SelectCustomPaper(dialog, selected);
    if (const CustomPaperEntry* entry = WorkListEntryAt(selected)) ShowSelected(dialog, *entry);
    if (count >= MostCustomPapers) EnableControl(dialog, IDC_CP_NEW, false);
}

void Initialise(HWND dialog)
{
    WorkListFree();
    PrepareControls(dialog);
    if (CustomHeadRow.code == 0)
        ShowNoSizes(dialog);
    else
        ListSizes(dialog);
}

void OnNotified(HWND dialog, const NMHDR& notification)
{
    if (notification.idFrom != IDC_CP_LIST || notification.code != LVN_ITEMCHANGED || EditorUpdates == 0) return;
    const auto& change = reinterpret_cast<const NMLISTVIEW&>(notification);
    if (!(change.uNewState & LVIS_SELECTED) || change.iItem < 0) return;
    if (const CustomPaperEntry* entry = WorkListEntryAt(change.iItem)) ShowSelected(dialog, *entry);
}

// The first free one of "New Paper0", "New Paper1" and so on; as many rows take as many names at most.
void GiveNewName(HWND dialog, CustomPaperEntry& entry, int rows)
{
    for (int i = 0; i <= rows; ++i) {
        CopyBounded(entry.cpName, Numbered(LoadResString(IDS_NEW_PAPER, 0), i).c_str(), NameChars);
        if (CustomPaperNameTaken(entry.cpName, dialog, rows, NoRow) == 0) return;
    }
}

void OnNew(HWND dialog)
{
    const int rows = WorkListCount();
    if (rows >= MostCustomPapers) return;
    if (rows == 0) EnableCustomPaperEditor(dialog, EditorNormal, true);
    CustomPaperEntry entry = DefaultCustomPaper(LocaleUsesA4());
    GiveNewName(dialog, entry, rows);
    {
        const EditorWrites writes;
        if (!AddSize(dialog, rows, entry)) {
            if (rows == 0) EnableCustomPaperEditor(dialog, EditorEmpty, false);
            return;
        }
        SelectCustomPaper(dialog, rows);
        ShowCustomPaperUnit(dialog, entry.cpUnit);
        ShowCustomPaperEntry(dialog, entry);
    }
    const bool full = rows + 1 == MostCustomPapers;
    if (full) SetFocus(GetDlgItem(dialog, IDC_CP_DELETE));
    EnableControl(dialog, IDC_CP_NEW, !full);
}

void OnDelete(HWND dialog)
{
    const int rows = WorkListCount();
    int selected = SelectedCustomPaper(dialog);
    // A row that the list view keeps keeps its entry.
    if (selected < 0 || !SendDlgItemMessageW(dialog, IDC_CP_LIST, LVM_DELETEITEM, static_cast<WPARAM>(selected), 0))
        return;
    WorkListRemoveAt(selected);
    if (rows == 1) {
        SetFocus(GetDlgItem(dialog, IDC_CP_NEW));
        const EditorWrites writes;
        EnableCustomPaperEditor(dialog, EditorEmpty, false);
        return;
    }
    if (selected > 0) --selected;
    if (const CustomPaperEntry* entry = WorkListEntryAt(selected)) ShowSelected(dialog, *entry);
    SelectCustomPaper(dialog, selected);
    EnableControl(dialog, IDC_CP_DELETE, true);
    if (rows == MostCustomPapers) EnableControl(dialog, IDC_CP_NEW, true);
}

// The Enter key ends the dialog without leaving the field that it is pressed in.
void LeaveField(HWND dialog) { SetFocus(GetDlgItem(dialog, IDOK)); }

INT_PTR OnOk(HWND dialog)
{
    LeaveField(dialog);
    const int selected = SelectedCustomPaper(dialog);
    const bool saved = SaveCustomPapers(WorkListCount());
    End(dialog, saved, saved ? selected + 1 : 0);
    return saved ? TRUE : FALSE;
}

void OnCancel(HWND dialog) { End(dialog, false, 0); }
void OnHelp(HWND dialog) { ShowHelpContext(dialog, DialogHelp); }

template <int Field>
void OnTyped(HWND dialog)
{
    OnCustomPaperNumber(dialog, Field, false);
}
template <int Field>
void OnLeft(HWND dialog)
{
    OnCustomPaperNumber(dialog, Field, true);
}

void OnMillimetres(HWND dialog) { OnCustomPaperUnit(dialog, UnitMillimetres); }
void OnInches(HWND dialog) { OnCustomPaperUnit(dialog, UnitInches); }

constexpr Command Commands[] = {
    {IDC_CP_NEW,               AnyCode,      OnNew            },
    {IDC_CP_DELETE,            AnyCode,      OnDelete         },
    {IDC_CP_NAME,              EN_CHANGE,    OnCustomPaperName},
    {IDC_CP_WIDTH_MM,          EN_CHANGE,    OnTyped<0>       },
    {IDC_CP_WIDTH_MM,          EN_KILLFOCUS, OnLeft<0>        },
    {IDC_CP_HEIGHT_MM,         EN_CHANGE,    OnTyped<1>       },
    {IDC_CP_HEIGHT_MM,         EN_KILLFOCUS, OnLeft<1>        },
    {IDC_CP_WIDTH_INCH,        EN_CHANGE,    OnTyped<2>       },
    {IDC_CP_WIDTH_INCH,        EN_KILLFOCUS, OnLeft<2>        },
    {IDC_CP_HEIGHT_INCH,       EN_CHANGE,    OnTyped<3>       },
    {IDC_CP_HEIGHT_INCH,       EN_KILLFOCUS, OnLeft<3>        },
    {IDC_CP_WIDTH_SIXTEENTHS,  EN_CHANGE,    OnTyped<4>       },
    {IDC_CP_WIDTH_SIXTEENTHS,  EN_KILLFOCUS, OnLeft<4>        },
    {IDC_CP_HEIGHT_SIXTEENTHS, EN_CHANGE,    OnTyped<5>       },
    {IDC_CP_HEIGHT_SIXTEENTHS, EN_KILLFOCUS, OnLeft<5>        },
    {IDC_CP_UNIT_MM,           AnyCode,      OnMillimetres    },
    {IDC_CP_UNIT_INCH,         AnyCode,      OnInches         },
    {IDCANCEL,                 AnyCode,      OnCancel         },
    {IDC_HELP,                 AnyCode,      OnHelp           },
};
constexpr ModalDialog Dialog = {Help, Commands, Initialise, OnNotified};

}  // namespace

INT_PTR CustomPaper_DlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_COMMAND && LowWord(wParam) == IDOK)
        return AtBoundary<INT_PTR>(FALSE, [&] { return OnOk(dialog); });
    return AnswerDialogMessage(Dialog, dialog, message, wParam, lParam);
}
