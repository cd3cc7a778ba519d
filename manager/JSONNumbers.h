// JSONNumbers.h: the integer readings the document format relies on. Integers
// are 32-bit: the parser may hold wider values, of which the low 32 bits
// count, both when read and when written as text.
#ifndef ZELT_MANAGER_JSONNUMBERS_H
#define ZELT_MANAGER_JSONNUMBERS_H

#include <cstdint>

struct json_object;

// The 32-bit value of an integer node.
std::int32_t IntegerValue(json_object* integer);

// The integer reading of any node: an integer its value, a boolean 0 or 1, a
// double cut toward zero (INT32_MIN when out of range, as x86 does), a
// string the number at its start ("12abc" gives 12, none gives 0), anything
// else 0.
std::int32_t IntegerReading(json_object* node);

#endif  // ZELT_MANAGER_JSONNUMBERS_H
