// What a walk notes for the process that waits for it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "tests/random/player.h"

namespace random_use {

inline constexpr std::size_t MostTemplates = 20;

// In memory that outlives the walk.
struct Ledger {
    int count;
    bool finished;
    int seen[MostTemplates];
    Step steps[MostSteps];
    std::uint8_t boxes[MostSteps], files[MostSteps];
    char failure[2000], story[500];
};

template <std::size_t Room>
void Note(char (&field)[Room], const std::string& text)
{
    if (field[0] == 0) field[text.copy(field, Room - 1)] = 0;
}

// Plays in this process.
void PlayHere(Ledger& ledger, std::uint64_t seed, const std::optional<std::vector<Step>>& steps);

}  // namespace random_use
