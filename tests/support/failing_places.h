// Where platform calls fail in tests that walk through a page over and over, each time with other calls that fail.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace testing_support {

using FailingPlace = std::pair<std::string, std::uint64_t>;  // a function and which of its calls, from 1

// Of the calls that a walk makes, about one in every so many: one of each function at least, in the order of the
// functions, at other numbers with each function. All of them if QD480_EVERY_FAILURE is in the environment.
inline std::vector<FailingPlace> FailingPlaces(const std::map<std::string, std::uint64_t>& calls, std::uint64_t every)
{
    if (std::getenv("QD480_EVERY_FAILURE")) every = 1;
    std::vector<FailingPlace> places;
    std::uint64_t turn = 0;
    for (const auto& [function, count] : calls) {
        // Both short and long rows of calls start anywhere.
        const std::uint64_t first = turn++ % (count < every ? count : every);
        for (std::uint64_t call = first; call < count; call += every) places.emplace_back(function, call + 1);
    }
    return places;
}

}  // namespace testing_support
