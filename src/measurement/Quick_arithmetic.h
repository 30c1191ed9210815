// The most frequent operations in doubles alone: the double nearest to a result and the sign of its
// rounding error give value and bounds. Each operation answers or declines, and an answer is that
// of the enclosing arithmetic to the bit.

#ifndef VARNIX_VALUE_MEASUREMENT_QUICK_ARITHMETIC_H
#define VARNIX_VALUE_MEASUREMENT_QUICK_ARITHMETIC_H

#include <varnix/value/Measurement.h>

namespace Varnix::Value::Physics {

// The three doubles of a measurement: the value rounded to nearest, the bounds outward.
struct Rounded_numbers {
    double lower;
    double value;
    double upper;
};

Rounded_numbers Rounded_numbers_of(Measurement const& x);

// x + y. Declines what is not finite.
bool Quick_sum(Rounded_numbers const& x, Rounded_numbers const& y, Rounded_numbers& sum);

// x * y / divisor for x and y that are not negative, and a positive whole divisor.
// Declines what comes near the ends of the doubles, and what lies too close to a double to tell.
bool Quick_product(Rounded_numbers const& x, Rounded_numbers const& y, double divisor,
                   Rounded_numbers& product);

// x / y for x that is not negative and y that is positive. Declines likewise.
bool Quick_quotient(Rounded_numbers const& x, Rounded_numbers const& y, Rounded_numbers& quotient);

// x * numerator / divisor, both whole and positive. Declines likewise.
bool Quick_multiple(Rounded_numbers const& x, double numerator, double divisor,
                    Rounded_numbers& multiple);

} // namespace Varnix::Value::Physics

#endif
