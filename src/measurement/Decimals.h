// Decimal texts and doubles: which numbers a text encloses, and which decimals enclose a double.

#ifndef VARNIX_VALUE_MEASUREMENT_DECIMALS_H
#define VARNIX_VALUE_MEASUREMENT_DECIMALS_H

#include "Enclosed.h"

#include <varnix/value/Text_parsing.h>

#include <optional>
#include <string>

namespace Varnix::Value::Physics {

// ---- Reading

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

// ---- Writing

// A decimal number that ends at a place: digits times 10^place.
struct Decimal {
    bool is_negative = false;
    std::string digits; // without leading zeros; empty for zero
    int place = 0;

    friend bool operator==(Decimal const& first, Decimal const& second) {
        return first.place == second.place && first.digits == second.digits &&
               (first.digits.empty() || first.is_negative == second.is_negative);
    }
};

// All digits of a double, and none behind the last that is not zero.
Decimal Exactly(double number);

Decimal Nearest_at(double number, int place); // ties to even

// The greatest decimal of a place that reads as the number or below it, and the least that reads as
// it or above it: decimals between two doubles read as the outer one.
Decimal Decimal_below(double number, int place);
Decimal Decimal_above(double number, int place);

// first - second, for decimals of one place.
Decimal Difference(Decimal const& first, Decimal const& second);

// The place of the leading digit of a number other than zero.
int Leading_place(double number);

// With all digits: "12.50", "-0.3", "1200", where places above the units are filled with zeros; or
// "1.25e-12", "1.2e+03".
enum class Notation { fixed, with_exponent };
std::string Text_of(Decimal const& decimal, Notation notation);

// How a number is easiest to read whose leading digit is at that place.
Notation Notation_at(int leading_place);

} // namespace Varnix::Value::Physics

#endif
