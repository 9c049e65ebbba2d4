// A small formatter for messages that leave the module.
#pragma once

#include <initializer_list>
#include <variant>

#include "platform/kernel.h"

// What a directive takes: a number (also a string number or a character) or a wide string.
using FormatArgument = std::variant<LONG, const WCHAR*>;

// With the terminator.
inline constexpr int FormatStringChars = 256;

// Directives: %! the string of that number from module, at most 256 characters; %s a string; %c a character;
// %d %u %x %X a number. Any other character behind a % stands for itself. Text goes to buffer as far as chars
// allows, the last character of which is always 0; buffer may be null. needed, if given, takes the full length
// with the terminator; without it the walk ends with the buffer. Gives the characters written, without the
// terminator. A directive without an argument left gives nothing.
int FormatText(HMODULE module, WCHAR* buffer, int chars, DWORD* needed, const WCHAR* format,
               std::initializer_list<FormatArgument> arguments);
