#include "host/script.h"

#include <algorithm>
#include <charconv>
#include <iterator>

#include "host/control_names.h"
#include "platform/kernel/unicode.h"
#include "platform/user.h"

namespace host {

namespace {

using platform::user::Key;
using platform::user::SheetButton;

constexpr int GreatestNumber = 65535;  // of controls and rows

// What may follow a step's word, in this order.
enum class Part { Control, Text, RowOrText, Row, Direction, Times, KeyName, OkOrCancel, PathOrCancel, FileName };

struct Grammar {
    std::string_view word;
    StepKind kind;
    std::vector<Part> parts;
    SheetButton button{};
};

// clang-format off
const Grammar Steps[] = {
    {"page",     StepKind::Page,        {Part::Text}},
    {"click",    StepKind::Click,       {Part::Control}},
    {"choose",   StepKind::Choose,      {Part::Control, Part::RowOrText}},
    {"row",      StepKind::Row,         {Part::Control, Part::Row}},
    {"type",     StepKind::Type,        {Part::Control, Part::Text}},
    {"append",   StepKind::Append,      {Part::Control, Part::Text}},
    {"paste",    StepKind::Paste,       {Part::Control, Part::Text}},
    {"spin",     StepKind::Spin,        {Part::Control, Part::Direction, Part::Times}},
    {"focus",    StepKind::Focus,       {Part::Control}},
    {"key",      StepKind::Key,         {Part::KeyName}},
    {"ok",       StepKind::SheetButton, {}, SheetButton::Ok},
    {"cancel",   StepKind::SheetButton, {}, SheetButton::Cancel},
    {"apply",    StepKind::SheetButton, {}, SheetButton::Apply},
    {"help",     StepKind::SheetButton, {}, SheetButton::Help},
    {"answer",   StepKind::Answer,      {Part::OkOrCancel}},
    {"file",     StepKind::File,        {Part::PathOrCancel}},
    {"dump",     StepKind::Dump,        {}},
    {"record",   StepKind::Record,      {}},
    {"snapshot", StepKind::Snapshot,    {Part::FileName}},
};
// clang-format on

struct KeyName {
    std::string_view name;
    Key key;
};
constexpr KeyName Keys[] = {
    {"TAB",   Key::Tab   },
    {"ENTER", Key::Enter },
    {"ESC",   Key::Escape},
    {"F1",    Key::F1    },
};

struct Token {
    std::string text;  // of a quoted one: what it stands for
    bool quoted = false;
};

bool IsBlank(char c) { return c == ' ' || c == '\t'; }

// Cuts a line into words and quoted texts.
class Line {
  public:
    Line(int number, std::string_view text) : number_(number), rest_(text) {}

    [[noreturn]] void Fail(const std::string& what) const { throw ScriptError(number_, what); }

    // Absent at the end of the line or at a comment.
    std::optional<Token> Next()
    {
        while (!rest_.empty() && IsBlank(rest_.front())) rest_.remove_prefix(1);
        if (rest_.empty() || rest_.front() == '#') return std::nullopt;
        return rest_.front() == '"' ? Quoted() : Word();
    }

    Token Need(const char* what)
    {
        auto token = Next();
        if (!token) Fail(std::string(what) + " is missing");
        return *token;
    }

  private:
    Token Word()
    {
        const auto end = std::ranges::find_if(rest_, [](char c) { return IsBlank(c) || c == '#' || c == '"'; });
        Token token{
            {rest_.begin(), end},
            false
        };
        rest_.remove_prefix(token.text.size());
        if (!rest_.empty() && rest_.front() == '"') Fail("a blank is missing before the text in quotes");
        return token;
    }

    Token Quoted()
    {
        Token token{{}, true};
        rest_.remove_prefix(1);
        while (!rest_.empty() && rest_.front() != '"') {
            char c = rest_.front();
            rest_.remove_prefix(1);
            if (c == '\\') c = Escaped();
            token.text += c;
        }
        if (rest_.empty()) Fail("the text has no closing quote");
        rest_.remove_prefix(1);
        if (!rest_.empty() && !IsBlank(rest_.front()) && rest_.front() != '#') {
            Fail("something stands right behind the text's closing quote");
        }
        return token;
    }

    char Escaped()
    {
        const char c = rest_.empty() ? '\0' : rest_.front();
        if (c != '"' && c != '\\' && c != 'n') Fail("a backslash stands for nothing but \\\", \\\\ and \\n");
        rest_.remove_prefix(1);
        return c == 'n' ? '\n' : c;
    }

    int number_;
    std::string_view rest_;
};

std::optional<int> ToNumber(std::string_view text, int most)
{
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || value < 0 || value > most) return std::nullopt;
    return value;
}

int NeedNumber(const Line& line, const Token& token, const char* what, int least, int most)
{
    const auto value = token.quoted ? std::nullopt : ToNumber(token.text, most);
    if (!value || *value < least) {
        line.Fail("\"" + token.text + "\" is no " + what + " (" + std::to_string(least) + " to " +
                  std::to_string(most) + ")");
    }
    return *value;
}

int NeedControl(const Line& line, const Token& token)
{
    if (!token.quoted) {
        if (const auto number = ToNumber(token.text, GreatestNumber)) return *number;
        if (const auto number = ControlNumber(token.text)) return *number;
    }
    line.Fail("\"" + token.text + "\" is neither a control's number nor its IDC_ name");
}

std::u16string NeedText(const Line& line, const Token& token)
{
    if (!token.quoted) line.Fail("\"" + token.text + "\" is no text in double quotes");
    return platform::ToWide(token.text);
}

template <class Value>
Value NeedOneOf(const Line& line, const Token& token, std::initializer_list<std::pair<std::string_view, Value>> choices)
{
    std::string all;
    for (const auto& [word, value] : choices) {
        if (!token.quoted && token.text == word) return value;
        all += (all.empty() ? "" : ", ") + std::string(word);
    }
    line.Fail("\"" + token.text + "\" is none of " + all);
}

Key NeedKey(const Line& line, const Token& token)
{
    const auto found = std::ranges::find(Keys, std::string_view(token.text), &KeyName::name);
    if (token.quoted || found == std::end(Keys)) line.Fail("\"" + token.text + "\" is none of TAB, ENTER, ESC, F1");
    return found->key;
}

void Read(Line& line, Part part, Step& step)
{
    switch (part) {
        case Part::Control:
            step.control = NeedControl(line, line.Need("the control"));
            return;
        case Part::Text:
            step.text = NeedText(line, line.Need("the text in double quotes"));
            return;
        case Part::Row:
            step.number = NeedNumber(line, line.Need("the row"), "row", 0, GreatestNumber);
            return;
        case Part::RowOrText: {
            const Token token = line.Need("the row or its text");
            if (token.quoted) {
                step.text = platform::ToWide(token.text);
            } else {
                step.number = NeedNumber(line, token, "row", 0, GreatestNumber);
            }
            return;
        }
        case Part::Direction:
            step.up = NeedOneOf<bool>(line, line.Need("the direction"),
                                      {
                                          {"up",   true },
                                          {"down", false}
            });
            return;
        case Part::Times: {
            const auto token = line.Next();
            step.number = token ? NeedNumber(line, *token, "number of clicks", 1, MostSpins) : 1;
            return;
        }
        case Part::KeyName:
            step.key = NeedKey(line, line.Need("the key"));
            return;
        case Part::OkOrCancel:
            step.answer = NeedOneOf<int>(line, line.Need("the answer"),
                                         {
                                             {"ok",     IDOK    },
                                             {"cancel", IDCANCEL}
            });
            return;
        case Part::PathOrCancel: {
            const Token token = line.Need("the path in double quotes, or cancel,");
            if (!token.quoted && token.text == "cancel") return;
            step.text = NeedText(line, token);
            return;
        }
        case Part::FileName:
            step.text = platform::ToWide(line.Need("the file").text);
            if (step.text->empty()) line.Fail("a file is wanted");
            return;
    }
}

std::optional<Step> ParseLine(int number, std::string_view text)
{
    Line line(number, text);
    const auto word = line.Next();
    if (!word) return std::nullopt;
    const auto grammar = std::ranges::find(Steps, std::string_view(word->text), &Grammar::word);
    if (word->quoted || grammar == std::end(Steps)) line.Fail("\"" + word->text + "\" is no step");
    Step step;
    step.kind = grammar->kind;
    step.line = number;
    step.button = grammar->button;
    for (const Part part : grammar->parts) Read(line, part, step);
    if (const auto more = line.Next()) line.Fail("\"" + more->text + "\" is too much behind " + word->text);
    return step;
}

void CheckCharacters(int number, std::string_view text)
{
    if (platform::ToUtf8(platform::ToWide(text)) != text) throw ScriptError(number, "the line is not UTF-8");
    const auto control = [](char c) { return (static_cast<unsigned char>(c) < 0x20 && c != '\t') || c == 0x7F; };
    if (std::ranges::any_of(text, control)) throw ScriptError(number, "there is a control character in the line");
}

}  // namespace

const char ScriptHelp[] =
    "A script is one step a line. # outside a text begins a comment. Texts stand in double quotes, with\n"
    "\\\", \\\\ and \\n inside. CONTROL is a number or an IDC_ name; rows count from 0.\n"
    "  page \"TITLE\"                click the tab\n"
    "  click CONTROL               click a button, check box or radio button\n"
    "  choose CONTROL N|\"TEXT\"     pick a row of a combo box or list box\n"
    "  row CONTROL N               pick a row of a list view\n"
    "  type CONTROL \"TEXT\"         type over what is there, character by character; \"\" deletes it\n"
    "  append CONTROL \"TEXT\"       type at the end\n"
    "  paste CONTROL \"TEXT\"        put the text in the place of what is there, at once\n"
    "  spin CONTROL up|down [N]    click an up-down arrow N times\n"
    "  focus CONTROL               move the focus\n"
    "  key TAB|ENTER|ESC|F1        press a key\n"
    "  ok, cancel, apply, help     the buttons of the sheet, or of the dialog on top of it\n"
    "  answer ok|cancel            answer the message box that the step before brings up\n"
    "  file \"PATH\"|cancel          answer the file dialog that the step before brings up\n"
    "  dump                        print the dialog on top\n"
    "  record                      print the record that the sheet last published by Apply or OK\n"
    "  snapshot FILE               write the dialog on top as a PNG\n"
    "Steps go to the dialog on top; one that a user could not do is refused, which is printed. A box without\n"
    "an answer is cancelled, or gets OK where that is all it has; a file dialog without a path, and a dialog\n"
    "that is up at the script's end, are cancelled. After Cancel the status is 1, also where Apply has published\n"
    "before. What happens is printed as JSON, one object a line: message, fileDialog, help, beep, refused, dump,\n"
    "record, and end with what the module's entry answered.";

ScriptError::ScriptError(int line, const std::string& what)
    : std::runtime_error("line " + std::to_string(line) + " of the script: " + what)
{
}

std::vector<Step> ParseScript(std::string_view utf8)
{
    constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";  // as some editors put it before UTF-8
    if (utf8.starts_with(ByteOrderMark)) utf8.remove_prefix(ByteOrderMark.size());
    std::vector<Step> steps;
    for (int number = 1; !utf8.empty(); ++number) {
        const std::size_t length = std::min(utf8.find('\n'), utf8.size());
        std::string_view text = utf8.substr(0, length);
        utf8.remove_prefix(std::min(length + 1, utf8.size()));
        if (text.ends_with('\r')) text.remove_suffix(1);
        CheckCharacters(number, text);
        if (auto step = ParseLine(number, text)) steps.push_back(std::move(*step));
    }
    return steps;
}

}  // namespace host
