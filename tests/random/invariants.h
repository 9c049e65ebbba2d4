// What always holds: between the fields of the record, between controls and what they stand for, and between lists
// and their stores. Each is a pair of numbers that agree; what the driver's own steps leave apart is told beside
// them, row by row, with its reason.
#pragma once

#include <map>
#include <string>
#include <utility>

#include "tests/random/view.h"

namespace random_use {

class Invariants {
  public:
    // What does not hold now, empty if all does. To be asked after every step, since what has its excuse keeps it
    // until it changes.
    std::string Judge(const View& view);
    void NewSheet() { excused_.clear(), held_.clear(); }

  private:
    std::map<std::string_view, std::pair<long, long>> excused_;
    std::map<std::string_view, bool> held_;
};

}  // namespace random_use
