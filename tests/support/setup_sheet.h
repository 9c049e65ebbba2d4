// The document sheet with the Setup page in front, and what an action of the user changes there, in short lines
// that can stand in tables.
#pragma once

#include <cstring>
#include <string>
#include <vector>

#include "platform/kernel/unicode.h"
#include "platform/user.h"
#include "resources/control_numbers.h"
#include "settings/list_rows.h"
#include "tests/support/records.h"
#include "tests/support/sheet_driver.h"

namespace testing_support {

struct NamedControl {
    int control;
    const char* name;
};
inline constexpr NamedControl SetupControls[] = {
    {IDC_NUP,                  "nup"           },
    {IDC_BORDER_LINE,          "border"        },
    {IDC_NUP_STYLE,            "style"         },
    {IDC_DUPLEX,               "duplex"        },
    {IDC_GUIDE_PAPER,          "guide"         },
    {IDC_WATERMARK,            "watermark"     },
    {IDC_WATERMARK_FIRST_PAGE, "watermarkFirst"},
    {IDC_EDIT_WATERMARK,       "editWatermark" },
    {IDC_PAPER_SOURCE,         "source"        },
    {IDC_MEDIA_TYPE,           "media"         },
    {IDC_OVERLAY,              "overlay"       },
    {IDC_OVERLAY_FIRST_PAGE,   "overlayFirst"  },
    {IDC_EDIT_OVERLAY,         "editOverlay"   },
};

class SetupSheet : public Sheet {
  public:
    explicit SetupSheet(const Prepare& prepare = {}, const Furnish& furnish = {}, int country = 1,
                        std::u16string owner = {})
        : Sheet(
              [prepare](DriverDevMode& record) {
                  SelectedPaperRow = 0;
                  if (prepare) prepare(record);
              },
              furnish, Facts(country, std::move(owner)))
    {
        Page(u"Setup");
    }

    SetupSheet& ChangeElsewhere(const Prepare& change)
    {
        Page(ElsewherePage).Change(change).Page(u"Setup");
        return *this;
    }

    // Does something, and tells what is different after it: "nup=2-up" a selected row, "duplex:3" the number of
    // rows, "+guide" enabled, "-guide" disabled, "xguide" checked, "oguide" unchecked, "dmNupOn=1" a field of the
    // record, "box" a message, "told" a word to the sheet. In the order of the page and of the record.
    std::string Difference(const std::function<void(SetupSheet&)>& action)
    {
        const std::vector<Shown> before = Show();
        const DriverDevMode old = Settings();
        const int changes = Changes();
        const std::size_t boxes = Machine().Desktop().messagesSeen.size();
        action(*this);
        std::string line;
        const auto add = [&line](const std::string& word) { line += (line.empty() ? "" : " ") + word; };
        const std::vector<Shown> after = Show();
        for (std::size_t k = 0; k < after.size(); ++k) {
            const std::string name = SetupControls[k].name;
            if (after[k].rows != before[k].rows) add(name + ":" + std::to_string(after[k].rows));
            if (after[k].text != before[k].text) add(name + "=" + after[k].text);
            if (after[k].enabled != before[k].enabled) add((after[k].enabled ? "+" : "-") + name);
            if (after[k].checked != before[k].checked) add((after[k].checked ? "x" : "o") + name);
        }
        for (const std::string& field : ChangedFields(old, Settings())) add(field);
        for (std::size_t k = boxes; k < Machine().Desktop().messagesSeen.size(); ++k) add("box");
        for (int k = changes; k < Changes(); ++k) add("told");
        return line;
    }
    // The same for a user who picks a row, or clicks where there is no text. "locked" if the control takes no
    // input, "absent" if it lacks the row.
    std::string Pick(int control, const char16_t* row)
    {
        if (!Enabled(control)) return "locked";
        if (row && !Offers(control, row)) return "absent";
        return Difference([=](SetupSheet& sheet) { row ? sheet.Choose(control, row) : sheet.Click(control); });
    }
    bool Offers(int control, std::u16string_view row)
    {
        const auto items = Items(control);
        return std::find(items.begin(), items.end(), row) != items.end();
    }
    // The selected row, empty without one.
    std::string Row(int control)
    {
        const int selection = Selection(control);
        return selection < 0 ? "" : platform::ToUtf8(Items(control)[static_cast<std::size_t>(selection)]);
    }
    // "NBS DG": N-up, border line, style, duplex and guide paper, small where they are disabled.
    std::string EnabledLetters()
    {
        std::string letters;
        for (const auto& [letter, control] : {
                 std::pair{'n', IDC_NUP        },
                 {'b', IDC_BORDER_LINE},
                 {'s', IDC_NUP_STYLE  },
                 {' ', 0              },
                 {'d', IDC_DUPLEX     },
                 {'g', IDC_GUIDE_PAPER}
        })
            letters += control != 0 && Enabled(control) ? static_cast<char>(letter - 'a' + 'A') : letter;
        return letters;
    }
    std::string Message() { return platform::ToUtf8(Machine().Desktop().messagesSeen.back()); }

  private:
    struct Shown {
        std::string text;
        std::size_t rows;
        bool enabled, checked;
    };

    static platform::FixedFactValues Facts(int country, std::u16string owner)
    {
        platform::FixedFactValues facts = testing_support::Machine::InCountry(country);
        facts.ownerModule = std::move(owner);
        return facts;
    }

    std::vector<Shown> Show()
    {
        std::vector<Shown> shown;
        for (const auto [control, name] : SetupControls)
            shown.push_back({Row(control), Items(control).size(), Enabled(control), Checked(control)});
        return shown;
    }

    static std::vector<std::string> ChangedFields(const DriverDevMode& before, const DriverDevMode& after)
    {
        std::vector<std::string> changed;
        for (const RecordField& field : RecordFields) {
            const auto at = [&field](const DriverDevMode& record) {
                return reinterpret_cast<const BYTE*>(&record) + field.offset;
            };
            if (std::memcmp(at(before), at(after), field.width) == 0) continue;
            const std::string name(field.name);
            if (field.kind == FieldKind::Nested)
                changed.push_back(name);
            else if (field.kind == FieldKind::WideText)
                changed.push_back(name + "=" + platform::ToUtf8(reinterpret_cast<const WCHAR*>(at(after))));
            else
                changed.push_back(name + "=" + std::to_string(GetField(after, field.name)));
        }
        return changed;
    }
};

}  // namespace testing_support
