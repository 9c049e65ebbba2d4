// Copies and conversions of strings in fields of a fixed length. Lengths count characters and include the
// terminator; narrow text is in the system's code page.
#pragma once

#include <string>

#include "platform/kernel.h"

// At most chars - 1 characters, and zeros up to the end of the destination: it is always terminated and
// keeps no stale characters. Nothing with chars 0.
void CopyBounded(WCHAR* destination, const WCHAR* source, std::size_t chars);

// Convert a string with its terminator. The limit is chars if that is above 0, else the length of the
// source; the last character of the limit becomes 0, and what a shorter source does not reach stays.
void NarrowToWide(WCHAR* destination, const CHAR* source, int chars);
void WideToNarrow(CHAR* destination, const WCHAR* source, int chars);

// The text with the number behind it, in decimal.
std::u16string Numbered(const WCHAR* text, int number);

// A copy from the heap's memory, or null.
WCHAR* HeapCopyString(const WCHAR* source, HANDLE heap);
