// Decimal texts: which numbers they enclose.

#ifndef VARNIX_VALUE_MEASUREMENT_DECIMALS_H
#define VARNIX_VALUE_MEASUREMENT_DECIMALS_H

#include "enclosing/Enclosed.h"

#include <varnix/value/Text_parsing.h>

#include <optional>

namespace Varnix::Value::Physics {

// The number that a text stands for, which is finite: "inf" and "nan" have no digits to read.
Enclosed Number_of(Decimal_text const& text);

// The number of one text plus (or for sign -1 minus) that of another, exact where it is a double.
// Both are finite.
Enclosed Sum_of(Decimal_text const& first, int sign, Decimal_text const& second);

// All digits of a text as a whole number of at most 2^53 times a power of ten, or nothing.
struct Whole_decimal {
    double whole;
    int power;
};

std::optional<Whole_decimal> Whole_of(Decimal_text const& text);

} // namespace Varnix::Value::Physics

#endif
