// Where a random user starts: the machine, the rights, the records and what is stored with the printer. All of it
// follows from the seed.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "driver_dev_mode.h"
#include "tests/random/steps.h"
#include "tests/support/machine.h"

namespace random_use {

struct Start {
    std::unique_ptr<testing_support::Machine> machine;
    bool mayChange = true;    // the user's right to the printer
    bool service = true;      // the sheet service can be loaded
    DWORD mode = 0;           // DM_ flags of the call
    std::vector<BYTE> input;  // the caller's record, with the room that its sizes tell; empty: none
    bool asBuilt = true;      // the record is the model's own and the stores are sound: every rule holds at once
    bool twoSheets = false;   // another one opens while the first one is up
    bool soundPapers = true;  // the stored sizes are as the module itself stores them
    std::string story;        // in words, for a report
};

Start MakeStart(Random& random);

}  // namespace random_use
