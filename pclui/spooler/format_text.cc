#include "spooler/format_text.h"

#include <span>

#include "platform/user.h"

namespace {

// Takes characters one by one: writes what fits and counts all.
class Output {
  public:
    Output(WCHAR* buffer, int chars) : buffer_(buffer), room_(buffer && chars > 0 ? chars - 1 : 0) {}
    void Put(WCHAR character)
    {
        if (written_ < room_) buffer_[written_++] = character;
        ++length_;
    }
    void Put(const WCHAR* text)
    {
        while (text && *text) Put(*text++);
    }
    bool Full() const { return written_ == room_; }
    int Written() const { return written_; }
    DWORD Length() const { return length_; }

  private:
    WCHAR* buffer_;
    int room_;
    int written_ = 0;
    DWORD length_ = 0;
};

class Arguments {
  public:
    explicit Arguments(std::span<const FormatArgument> arguments) : rest_(arguments) {}
    template <class T>
    T Next()
    {
        if (rest_.empty()) return T{};
        const T* value = std::get_if<T>(&rest_.front());
        rest_ = rest_.subspan(1);
        return value ? *value : T{};
    }

  private:
    std::span<const FormatArgument> rest_;
};

void PutNumber(Output& output, const WCHAR* format, LONG number)
{
    WCHAR text[16] = {};
    wsprintfW(text, format, number);
    output.Put(text);
}

void PutDirective(Output& output, HMODULE module, WCHAR directive, Arguments& arguments)
{
    switch (directive) {
        case u'!': {
            WCHAR text[FormatStringChars] = {};
            LoadStringW(module, static_cast<UINT>(arguments.Next<LONG>()), text, FormatStringChars);
            output.Put(text);
            break;
        }
        case u's':
            output.Put(arguments.Next<const WCHAR*>());
            break;
        case u'c':
            output.Put(static_cast<WCHAR>(arguments.Next<LONG>()));
            break;
        case u'd':
            PutNumber(output, u"%ld", arguments.Next<LONG>());
            break;
        case u'u':
            PutNumber(output, u"%lu", arguments.Next<LONG>());
            break;
        case u'x':
            PutNumber(output, u"%lx", arguments.Next<LONG>());
            break;
        case u'X':
            PutNumber(output, u"%lX", arguments.Next<LONG>());
            break;
        default:
            output.Put(directive);
    }
}

}  // namespace

int FormatText(HMODULE module, WCHAR* buffer, int chars, DWORD* needed, const WCHAR* format,
               std::initializer_list<FormatArgument> arguments)
{
    Output output(buffer, chars);
    Arguments rest({arguments.begin(), arguments.size()});
    for (; *format && (needed || !output.Full()); ++format) {
        if (*format != u'%')
            output.Put(*format);
        else if (format[1])
            PutDirective(output, module, *++format, rest);
    }
    if (buffer && chars > 0) {
        buffer[output.Written()] = 0;
        buffer[chars - 1] = 0;
    }
    if (needed) *needed = output.Length() + 1;
    return output.Written();
}
