// The document sheet with one page in front, and what an action of the user changes there, in short lines that can
// stand in tables.
#pragma once

#include <algorithm>
#include <cstring>
#include <span>
#include <string>
#include <vector>

#include "platform/kernel/unicode.h"
#include "resources/control_numbers.h"
#include "tests/support/records.h"
#include "tests/support/sheet_driver.h"

namespace testing_support {

struct NamedControl {
    int control;
    const char* name;
};

// "<NONE> [A] B": the selected one in brackets.
inline std::string Listed(const std::vector<std::u16string>& names, int selected)
{
    std::string text;
    for (const std::u16string& name : names) {
        text += (text.empty() ? "" : " ") + platform::ToUtf8(selected == 0 ? u"[" + name + u"]" : name);
        --selected;
    }
    return text;
}

class WatchedSheet : public Sheet {
  public:
    WatchedSheet(const char16_t* page, std::span<const NamedControl> controls, const Prepare& prepare,
                 const Furnish& furnish = {}, const platform::FixedFactValues& facts = {})
        : Sheet(prepare, furnish, facts), page_(page), controls_(controls)
    {
        Page(page);
    }

    // Another page makes a change, and the user comes back.
    WatchedSheet& ChangeElsewhere(const Prepare& change)
    {
        Page(ElsewherePage).Change(change).Page(page_);
        return *this;
    }
    WatchedSheet& GoAwayAndComeBack()
    {
        Page(ElsewherePage).Page(page_);
        return *this;
    }

    // Does something, and tells what is different after it: "nup=2-up" a selected row, "duplex:3" the number of
    // rows, "+guide" enabled, "-guide" disabled, "xguide" checked, "oguide" unchecked, "dmNupOn=1" a field of the
    // record, "box" a message, "told" a word to the sheet. In the order of the page and of the record.
    template <class Action>
    std::string Difference(const Action& action)
    {
        const std::vector<Shown> before = Show();
        const DriverDevMode old = Settings();
        const int changes = Changes();
        const std::size_t boxes = Machine().Desktop().messagesSeen.size();
        action();
        std::string line;
        const auto add = [&line](const std::string& word) { line += (line.empty() ? "" : " ") + word; };
        const std::vector<Shown> after = Show();
        for (std::size_t k = 0; k < after.size(); ++k) {
            const std::string name = controls_[k].name;
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
    std::string Pick(int control, const char16_t* row = nullptr)
    {
        if (!Enabled(control)) return "locked";
        if (row && !Offers(control, row)) return "absent";
        return Difference([=, this] { row ? Choose(control, row) : Click(control); });
    }
    bool Offers(int control, std::u16string_view row)
    {
        const auto items = Items(control);
        return std::ranges::find(items, row) != items.end();
    }
    using Sheet::Row;
    // The selected row, empty without one.
    std::string Row(int control)
    {
        const int selection = Selection(control);
        return selection < 0 ? "" : platform::ToUtf8(Items(control)[static_cast<std::size_t>(selection)]);
    }

  private:
    struct Shown {
        std::string text;
        std::size_t rows;
        bool enabled, checked;
    };

    std::vector<Shown> Show()
    {
        std::vector<Shown> shown;
        for (const auto [control, name] : controls_)
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
            changed.emplace_back(field.name);
            if (field.kind == FieldKind::Nested) continue;
            const bool text = field.kind == FieldKind::WideText;
            changed.back() += "=" + (text ? platform::ToUtf8(reinterpret_cast<const WCHAR*>(at(after)))
                                          : std::to_string(GetField(after, field.name)));
        }
        return changed;
    }

    const char16_t* page_;
    std::span<const NamedControl> controls_;
};

}  // namespace testing_support
