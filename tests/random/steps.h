// What a random user does, as data: it can be drawn, played, left out one by one, and told in the language of
// `qd480 sheet --script`.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <random>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace random_use {

// The same numbers on every machine: the standard's distributions leave theirs open, its generator does not.
class Random {
  public:
    explicit Random(std::uint64_t seed) : engine_(seed) {}
    std::uint64_t Next() { return engine_(); }
    int Below(std::size_t limit) { return static_cast<int>(engine_() % limit); }
    bool Chance(int one, int in) { return Below(static_cast<std::size_t>(in)) < one; }
    template <class Table>
    const auto& From(const Table& table)
    {
        return std::data(table)[Below(std::size(table))];
    }

  private:
    std::mt19937_64 engine_;
};

// Plain bytes: steps are noted in memory that outlives the process that takes them.
enum class Action : std::uint8_t { Page, Click, Choose, Type, Append, Paste, Spin, Row, Focus, Key, Button };
struct Step {
    Action action = Action::Page;
    bool ok = true;         // the answer to the boxes that come up in this step
    std::uint8_t file = 0;  // the answer to its file dialog, a row of Files; 0 cancels
    std::int16_t control = 0;
    std::int16_t value = 0;  // a page, a row of a list, of Texts, of Keys or of Buttons, 1 for upwards
};

// What is put into fields.
inline const std::array Texts = {
    std::u16string(u""),         std::u16string(u"1"),      std::u16string(u"2"),
    std::u16string(u"5"),        std::u16string(u"14"),     std::u16string(u"20"),
    std::u16string(u"50"),       std::u16string(u"99"),     std::u16string(u"100"),
    std::u16string(u"100"),      std::u16string(u"150"),    std::u16string(u"210"),
    std::u16string(u"400"),      std::u16string(u"999"),    std::u16string(u"99999999999"),
    std::u16string(u"-5"),       std::u16string(u"-"),      std::u16string(u"--3"),
    std::u16string(u"x"),        std::u16string(u" "),      std::u16string(u"COPY"),
    std::u16string(u"Form"),     std::u16string(u"<NONE>"), std::u16string(u"New Paper0"),
    std::u16string(u"a|b\r\nc"), std::u16string(400, u'W'),
};
// Where file dialogs end. The first is no path: the dialog is cancelled. The second is
// a file on every machine; the driver takes its path and opens nothing.
inline const std::array Files = {
    std::u16string(),
    std::u16string(u"/etc/os-release"),
    std::u16string(u"/etc/not-there.oxl"),
    std::u16string(u"/nowhere/a.oxl"),
    u"/etc/" + std::u16string(300, u'f') + u".oxl",
};

// All of the steps in one word, and back: to play them again.
std::string WordOf(const std::vector<Step>& steps);
std::vector<Step> StepsOf(const std::string& word);

}  // namespace random_use
