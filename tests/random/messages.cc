#include "tests/random/messages.h"

#include <algorithm>

#include "resources/control_numbers.h"
#include "settings/list_rows.h"
#include "watermark/overlay_list.h"
#include "watermark/watermark_list.h"
#include "watermark/watermark_values.h"

namespace random_use {

namespace {

struct Message {
    std::u16string_view beginning;
    int dialog;
    bool (*reason)(const View&);   // as it comes up
    bool (*refused)(const View&);  // after the step
};
using V = const View&;
bool StillUp(V) { return true; }
bool Told(V) { return true; }  // without refusing anything, or by the platform's own file dialog

bool DuplexFromElsewhere(V v) { return SelectedSource != 1 && (v.record.dmDuplexOn || v.Selection(IDC_DUPLEX) > 0); }
bool DuplexOfTransparency(V v) { return v.record.dmDuplexOn && SelectedMedia == 1; }
bool NameIsBlank(V v) { return v.Text(IDC_WM_NAME).find_first_not_of(u' ') == std::u16string::npos; }
bool NameIsTaken(V v)
{
    const std::u16string name = v.Text(IDC_WM_NAME).substr(0, WatermarkNameChars - 1);
    const auto is = [&](int row) {  // as it is shown or as it is
        const WatermarkRecord* record = WatermarkRowAt(row);
        return v.Item(IDC_WM_LIST, row) == name || (record && record->wmName == name);
    };
    for (int row = 0; row < v.Count(IDC_WM_LIST); ++row)
        if (row != WatermarkIndex && is(row)) return true;
    return false;
}
bool NameIsRefused(V v) { return NameIsBlank(v) || NameIsTaken(v); }
bool NoPath(V v) { return v.Text(IDC_OVL_PATH).empty(); }
bool NewRow(V) { return OverlayIsNew != 0; }
bool LongFile(V v) { return v.file.size() >= 260; }
bool AnyFile(V v) { return !v.file.empty(); }
bool NoRoom(V) { return CountWatermarksWithoutRoom() != 0; }

// clang-format off
constexpr Message Messages[] = {
    {u"Selected paper source can't work with duplex printing.\nOnly Tray1 is supported.", IDD_SETUP, DuplexFromElsewhere,
     [](V v) { return !v.record.dmDuplexOn || v.record.dmDefaultSource == v.before.dmDefaultSource; }},
    {u"Transparency can't work with duplex printing,\nPlease choose other Media Type.",   IDD_SETUP, DuplexOfTransparency,
     [](V v) { return v.record.dmMediaIndex == 0 && v.record.dmDuplexOn; }},
    {u"You cannot add a blank name.",                              IDD_WATERMARK,    NameIsBlank, StillUp},
    {u"The watermark name is already registered.\nOverwrite it?",  IDD_WATERMARK,    NameIsTaken, StillUp},
    {u"The specific file is not found in this directory.",         IDD_OVERLAY_EDIT, NoPath,      StillUp},
    {u"The path you entered, '",                                   IDD_OVERLAY_EDIT, LongFile,    StillUp},
    {u"\a",                                                        IDD_WATERMARK,    NameIsRefused, Told}, // a beep, as the field is left
    {u"The printer has no room to store all watermarks.",          IDD_WATERMARK,    NoRoom,      Told},
    {u"Close the open dialogs with OK and print the form",         IDD_OVERLAY_EDIT, NewRow,      Told},
    {u"/",                                                         IDD_OVERLAY_EDIT, AnyFile,     Told},
};
// clang-format on

}  // namespace

std::string MessageWithoutReason(const View& view, std::u16string_view text)
{
    for (const Message& message : Messages)
        if (text.starts_with(message.beginning))
            return message.reason(view) ? "" : platform::ToUtf8(text) + " comes without its reason";
    return "an unknown message: " + platform::ToUtf8(text);
}

std::string WrongMessage(const View& view, std::u16string_view text)
{
    const auto* row = std::ranges::find_if(Messages, [&](const Message& m) { return text.starts_with(m.beginning); });
    const bool good =
        row->dialog == view.dialogBefore &&
        (row->refused == Told || (row->refused == StillUp ? view.dialog == view.dialogBefore : row->refused(view)));
    return good ? "" : platform::ToUtf8(text) + " goes with no refusal by control " + std::to_string(view.touched);
}

}  // namespace random_use
