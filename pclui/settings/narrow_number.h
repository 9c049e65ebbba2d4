// Decimal numbers in narrow text that comes from outside.
#pragma once

#include <string_view>

// Ends at the first character that is no digit; a leading '-' negates. 0 if there is no number, and where it
// does not fit 32 bits.
int DecimalNumber(std::string_view text);
