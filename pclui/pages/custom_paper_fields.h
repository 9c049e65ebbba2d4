// The limits of the number fields in which a custom size is edited: what a typed number makes of the size, while
// the user types and when the field is left. A size within its limits stays within them once every field has
// been left. Units as in custom_paper_units.h.
#pragma once

#include <span>

#include "spooler/stored_records.h"

struct NumberField {
    int control, spin;
    int characters;       // that can be typed
    int least, greatest;  // of the arrows
    // Whether a limit bit, so that the field shows something else than the size.
    bool (*take)(CustomPaperEntry& entry, int typed);
    bool (*leave)(CustomPaperEntry& entry, int typed);
    int (*shown)(const CustomPaperEntry& entry);  // the number that stands for the size
};

// Fields of millimetres, then fields of inches.
std::span<const NumberField> NumberFields();
std::span<const NumberField> NumberFieldsOf(int unit);  // empty for a unit that is neither

// Converts a size to the other unit. False, with nothing changed, if it is in that unit already.
bool ConvertToInches(CustomPaperEntry& entry);
bool ConvertToMillimetres(CustomPaperEntry& entry);
