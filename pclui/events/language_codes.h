// Three-letter codes of the languages that a job's header names, by the system's language identifier as four
// lower-case hexadecimal digits.
#pragma once

#include "platform/types.h"

struct LanguageCode {
    WCHAR key[8];
    WCHAR code[8];
};
static_assert(sizeof(LanguageCode) == 32);

// The first row with a key counts; row 0 stands for every language that has none.
extern const LanguageCode LanguageCodeTable[131];

// The code of a key; that of row 0 if no row has it.
const WCHAR* LanguageCodeOf(const WCHAR* key);
