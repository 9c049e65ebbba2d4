#include "tests/random/steps.h"

#include <sstream>

#include "platform/kernel/unicode.h"

namespace random_use {

namespace {

constexpr std::string_view Pages[] = {"Setup", "Paper", "Quality", "Device Options Setting"};

std::string Quoted(std::u16string_view text)
{
    std::string quoted = "\"";
    for (const char character : platform::ToUtf8(text)) {
        if (character == '"' || character == '\\') quoted += '\\';
        if (character == '\n')
            quoted += "\\n";
        else
            quoted += character;
    }
    return quoted + '"';
}

std::string LineOf(const Step& step)
{
    const auto value = static_cast<std::size_t>(step.value);
    const std::string on = " " + std::to_string(step.control);
    switch (step.action) {
        case Action::Page:
            return "page \"" + std::string(Pages[value]) + '"';
        case Action::Click:
            return "click" + on;
        case Action::Choose:
            return "choose" + on + " " + std::to_string(value);
        case Action::Type:
            return "type" + on + " " + Quoted(Texts[value]);
        case Action::Append:
            return "append" + on + " " + Quoted(Texts[value]);
        case Action::Paste:
            return "paste" + on + " " + Quoted(Texts[value]);
        case Action::Spin:
            return "spin" + on + (step.value ? " up" : " down");
        case Action::Row:
            return "row" + on + " " + std::to_string(value);
        case Action::Focus:
            return "focus" + on;
        case Action::Key:
            return "key " + std::string(Keys[value]);
        case Action::Ok:
            return "ok";
        case Action::Cancel:
            return "cancel";
        case Action::Apply:
            return "apply";
        case Action::Help:
            return "help";
    }
    return "?";
}

}  // namespace

std::string ScriptOf(const Step& step, int boxes, int files)
{
    std::string script = LineOf(step) + '\n';
    // A path that is refused leaves the dialog up, which is then cancelled.
    if (files > 0) script += step.file ? "file " + Quoted(Files[step.file]) + '\n' : "file cancel\n";
    for (; boxes > 0; --boxes) script += step.ok ? "answer ok\n" : "answer cancel\n";
    return script;
}

std::string WordOf(const std::vector<Step>& steps)
{
    std::string word;
    for (const Step& step : steps)
        for (const int number :
             {static_cast<int>(step.action), step.ok + 0, step.file + 0, step.control + 0, step.value + 0})
            word += std::to_string(number) + ",";
    return word;
}

std::vector<Step> StepsOf(const std::string& word)
{
    std::vector<Step> steps;
    std::istringstream numbers(word);
    const auto next = [&numbers] {
        int number = 0;
        numbers >> number;
        numbers.ignore(1, ',');
        return static_cast<std::int16_t>(number);
    };
    while (numbers.peek() != EOF) {
        const auto action = static_cast<Action>(next());
        const bool ok = next() != 0;
        const auto file = static_cast<std::uint8_t>(next());
        const std::int16_t control = next();
        steps.push_back({action, ok, file, control, next()});
    }
    return steps;
}

}  // namespace random_use
