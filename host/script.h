// Scripts: one step a line, what a user does with mouse and keyboard.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "platform/user/actions.h"

namespace host {

enum class StepKind {
    Page,
    Click,
    Choose,
    Row,
    Type,
    Append,
    Paste,
    Spin,
    Focus,
    Key,
    SheetButton,  // of the sheet, or of the modal dialog on top
    Answer,
    File,
    Dump,
    Record,
    Snapshot,
};

struct Step {
    StepKind kind{};
    int line = 0;                        // from 1
    int control = 0;                     // its number
    std::optional<std::u16string> text;  // title, text, path; of File absent: cancel; of Choose absent: by number
    int number = 0;                      // row, or how often
    bool up = false;                     // direction of a spin
    platform::user::Key key{};
    platform::user::SheetButton button{};
    int answer = 0;  // IDOK, IDCANCEL
};

// Names the line and what is wrong with it.
class ScriptError : public std::runtime_error {
  public:
    ScriptError(int line, const std::string& what);
};

extern const char ScriptHelp[];  // the steps and what they print, for the help text

inline constexpr int MostSpins = 100000;  // clicks of one step

// Throws ScriptError at the first line that is no step.
std::vector<Step> ParseScript(std::string_view utf8);

}  // namespace host
