// Numbers of the conversions' text formats. A number is written in the
// shortest form that reads back to the same double (or, for a file of 4-byte
// records, the same float), so that a data file survives a trip through text
// bit for bit. Not-a-number keeps its sign and payload: "nan", "-nan" or
// "nan(0x...)" with the 52 fraction bits when they are not the default quiet
// pattern; infinities are "inf" and "-inf".
#pragma once

#include <cstddef>

// Longest text conv_FormatNumber writes: "-nan(0x" + 13 hex digits + ")".
inline constexpr std::size_t kNumberTextMax = 32;

// Writes v into out (at least kNumberTextMax bytes); returns the length.
// single: v is a widened float and is written as the float it came from.
std::size_t conv_FormatNumber(char* out, double v, bool single);

// Reads a number at p (before end): an optional sign, then digits with an
// optional point and exponent, "inf", "infinity" or "nan" with an optional
// "(0x...)" payload, letters in any case. single rounds the decimal once, to
// the nearest float, and widens it. Returns the first character after the
// number, or null when there is none or it is out of range.
const char* conv_ParseNumber(const char* p, const char* end, bool single, double* out);
