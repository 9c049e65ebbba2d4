#include "platform/user/dialog_template.h"

namespace platform::user {

namespace {

constexpr int BaseAcross = 6, BaseDown = 13;  // pixels of 4 and of 8 units
constexpr int GreatestSide = 4000;            // units; a dialog beyond that fits no screen
constexpr DWORD DS_SETFONT = 0x40;
constexpr WORD ExtendedMark = 0xFFFF, NumberFollows = 0xFFFF;

struct ClassAtom {
    WORD atom;
    const char16_t* name;
};
constexpr ClassAtom ClassAtoms[] = {
    {0x80, u"Button"   },
    {0x81, u"Edit"     },
    {0x82, u"Static"   },
    {0x83, u"ListBox"  },
    {0x84, u"ScrollBar"},
    {0x85, u"ComboBox" },
};

int Scale(int units, int pixels, int base)
{
    const int product = units * pixels;
    return product < 0 ? -((-product + base / 2) / base) : (product + base / 2) / base;
}

// Reads forward through the bytes; behind the first fault everything reads as 0.
class Reader {
  public:
    explicit Reader(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

    bool Good() const { return fault_.empty(); }
    const std::string& Fault() const { return fault_; }
    std::size_t Position() const { return position_; }
    void Fail(const std::string& what)
    {
        if (Good()) fault_ = what + " at byte " + std::to_string(position_);
    }

    WORD Word()
    {
        if (!Good()) return 0;
        if (bytes_.size() - position_ < 2) {
            Fail("the template ends within a value");
            return 0;
        }
        const WORD value = static_cast<WORD>(bytes_[position_] | bytes_[position_ + 1] << 8);
        position_ += 2;
        return value;
    }
    DWORD Long()
    {
        const DWORD low = Word();
        return low | static_cast<DWORD>(Word()) << 16;
    }
    int Short() { return static_cast<SHORT>(Word()); }
    void Skip(std::size_t count)
    {
        if (!Good()) return;
        if (bytes_.size() - position_ < count)
            Fail("the template ends within data that it skips");
        else
            position_ += count;
    }
    void AlignTo4()
    {
        if (position_ % 4 != 0) Skip(4 - position_ % 4);
    }
    std::u16string Text()
    {
        std::u16string text;
        for (WORD unit = Word(); Good() && unit != 0; unit = Word()) text += static_cast<char16_t>(unit);
        return text;
    }
    // A text, or the mark and a number.
    std::u16string TextOrNumber(int* number)
    {
        *number = 0;
        const std::size_t start = position_;
        if (Word() == NumberFollows) {
            *number = Word();
            return {};
        }
        if (Good()) position_ = start;
        return Text();
    }

  private:
    std::span<const std::uint8_t> bytes_;
    std::size_t position_ = 0;
    std::string fault_;
};

std::u16string ClassName(Reader& reader)
{
    int atom = 0;
    std::u16string name = reader.TextOrNumber(&atom);
    if (atom == 0) {
        if (name.empty()) reader.Fail("a control without a class");
        return name;
    }
    for (const ClassAtom& row : ClassAtoms)
        if (row.atom == atom) return row.name;
    reader.Fail("an unknown control class " + std::to_string(atom));
    return {};
}

ControlTemplate ReadControl(Reader& reader, bool extended)
{
    ControlTemplate control;
    if (extended) {
        reader.Long();  // help number
        control.exStyle = reader.Long();
        control.style = reader.Long();
    } else {
        control.style = reader.Long();
        control.exStyle = reader.Long();
    }
    const int x = reader.Short(), y = reader.Short(), width = reader.Short(), height = reader.Short();
    if (reader.Good() && (width < 0 || height < 0)) reader.Fail("a control of negative size");
    control.rect = {PixelsAcross(x), PixelsDown(y), PixelsAcross(x) + PixelsAcross(width),
                    PixelsDown(y) + PixelsDown(height)};
    // What is written as -1 comes out as 16 or as 32 bits of ones.
    const DWORD id = extended ? reader.Long() : reader.Word();
    control.id = id == 0xFFFF ? -1 : static_cast<int>(id);

    control.className = ClassName(reader);
    control.text = reader.TextOrNumber(&control.resource);

    // Creation data: extended templates give what follows, plain ones count the word itself.
    const std::size_t extra = reader.Word();
    if (extended)
        reader.Skip(extra);
    else if (extra == 1)
        reader.Fail("creation data shorter than its own length");
    else if (extra > 2)
        reader.Skip(extra - 2);
    return control;
}

}  // namespace

int PixelsAcross(int units) { return Scale(units, BaseAcross, 4); }
int PixelsDown(int units) { return Scale(units, BaseDown, 8); }

std::optional<DialogTemplate> ParseDialogTemplate(std::span<const std::uint8_t> bytes, std::string* why)
{
    Reader reader(bytes);
    DialogTemplate result;

    const WORD first = reader.Word(), second = reader.Word();
    const bool extended = second == ExtendedMark;
    if (extended) {
        if (first != 1) reader.Fail("an extended template of an unknown version " + std::to_string(first));
        reader.Long();  // help number
        result.exStyle = reader.Long();
        result.style = reader.Long();
    } else {
        result.style = MakeLong(first, second);
        result.exStyle = reader.Long();
    }
    const std::size_t controls = reader.Word();
    reader.Short();  // where it stands is for the desktop to choose
    reader.Short();
    const int width = reader.Short(), height = reader.Short();
    if (reader.Good() && (width < 0 || height < 0 || width > GreatestSide || height > GreatestSide))
        reader.Fail("a dialog of " + std::to_string(width) + " x " + std::to_string(height) + " units");
    result.width = PixelsAcross(width);
    result.height = PixelsDown(height);

    int number = 0;
    reader.TextOrNumber(&number);  // menu
    reader.TextOrNumber(&number);  // window class
    result.title = reader.Text();
    if (result.style & DS_SETFONT) {
        result.pointSize = reader.Word();
        if (extended) reader.Long();  // weight, italic, character set
        result.font = reader.Text();
    }

    for (std::size_t i = 0; i < controls && reader.Good(); ++i) {
        reader.AlignTo4();
        result.controls.push_back(ReadControl(reader, extended));
        if (!reader.Good()) {
            if (why) *why = "control " + std::to_string(i) + ": " + reader.Fault();
            return std::nullopt;
        }
    }
    if (!reader.Good()) {
        if (why) *why = reader.Fault();
        return std::nullopt;
    }
    return result;
}

}  // namespace platform::user
