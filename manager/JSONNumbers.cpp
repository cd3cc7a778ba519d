#include "manager/JSONNumbers.h"

#include <json-c/json.h>

#include <cctype>
#include <cmath>
#include <limits>

namespace {
std::int32_t LowBits(std::uint64_t value) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(value & 0xFFFFFFFFu));
}

std::int32_t DoubleReading(double value) {
    // Out of range (and NaN) gives the x86 "integer indefinite" value.
    const double truncated = std::trunc(value);
    if (!(truncated >= std::numeric_limits<std::int32_t>::min() &&
          truncated <= std::numeric_limits<std::int32_t>::max()))
        return std::numeric_limits<std::int32_t>::min();
    return static_cast<std::int32_t>(truncated);
}

// The decimal number at the start of text, after white space and an optional
// sign; its magnitude saturates at 64 bits, of which the low 32 count.
std::int32_t LeadingNumber(const char* text) {
    const unsigned char* p = reinterpret_cast<const unsigned char*>(text);
    while (std::isspace(*p)) ++p;
    const bool negative = *p == '-';
    if (*p == '-' || *p == '+') ++p;
    std::uint64_t magnitude = 0;
    bool saturated = false;
    for (; std::isdigit(*p); ++p) {
        const unsigned digit = *p - '0';
        if (magnitude > (std::numeric_limits<std::uint64_t>::max() - digit) / 10) saturated = true;
        if (!saturated) magnitude = magnitude * 10 + digit;
    }
    const std::uint64_t limit = negative ? std::uint64_t{1} << 63 : (std::uint64_t{1} << 63) - 1;
    if (saturated || magnitude > limit) magnitude = limit;
    return LowBits(negative ? ~magnitude + 1 : magnitude);
}
}  // namespace

std::int32_t IntegerValue(json_object* integer) {
    // A value held as unsigned above INT64_MAX reads as INT64_MAX, whose low
    // bits give -1, as for any positive overflow.
    return LowBits(static_cast<std::uint64_t>(json_object_get_int64(integer)));
}

std::int32_t IntegerReading(json_object* node) {
    switch (json_object_get_type(node)) {
        case json_type_int:
            return IntegerValue(node);
        case json_type_boolean:
            return json_object_get_boolean(node) ? 1 : 0;
        case json_type_double:
            return DoubleReading(json_object_get_double(node));
        case json_type_string:
            return LeadingNumber(json_object_get_string(node));
        default:
            return 0;
    }
}
