// What always holds: between the fields of the record, between controls and what they stand for, and between lists
// and their stores. Each is a pair of numbers that agree; what the driver's own steps leave apart is told beside
// them, row by row, with its reason.
#pragma once

#include <map>
#include <set>
#include <span>
#include <string>

#include "tests/random/view.h"

namespace random_use {

// What is shown, or what there is, and what it has to be.
struct Pair {
    long shown, held;
    template <class Shown, class Held>
    Pair(Shown a, Held b) : shown(static_cast<long>(a)), held(static_cast<long>(b))
    {
    }
    bool operator==(const Pair&) const = default;
};

// Since when a row holds. OnceHeld: an application's record or store may break it, until a control has put it right.
enum Since { Always, OnceHeld };
inline constexpr int AnyPage = 0;

struct Invariant {
    const char* name;
    int dialog;
    Since since;
    Pair (*ask)(const View&);
};
extern const std::span<const Invariant> PageInvariants, DialogInvariants;

// Where the driver itself leaves a control and the record apart. The excuse counts from the moment that the two part,
// and until one of them changes or another page comes to the front.
struct Exception {
    const char* invariant;
    bool (*when)(const View&);
    const char* reason;
    bool lasts = false;  // also when another page comes to the front, which puts nothing right
};
extern const std::span<const Exception> PageExceptions, DialogExceptions;

class Judge {
  public:
    // What does not hold now, empty if all does. To be asked after every step of one sheet.
    std::string Wrong(const View& view);

  private:
    bool Excused(const Invariant& row, const Pair& now, const View& view);

    struct Excuse {
        Pair pair;
        bool lasts;
    };
    std::map<std::string_view, Excuse> excused_;
    std::set<std::string_view> held_;
    HWND page_ = nullptr;  // in front
};

}  // namespace random_use
