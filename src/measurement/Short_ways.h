// Short ways for the operations that occur most: the double nearest to a result and the sign of
// what rounding left out say all three numbers at once. Each answers or declines, and where it
// answers, the answer is that of the enclosing arithmetic to the bit.

#ifndef VARNIX_VALUE_MEASUREMENT_SHORT_WAYS_H
#define VARNIX_VALUE_MEASUREMENT_SHORT_WAYS_H

#include <varnix/value/Measurement.h>

namespace Varnix::Value::Physics {

struct Numbers {
    double lower;
    double value;
    double upper;
};

Numbers Numbers_of(Measurement const& x);

// x + y. Declines what is not finite.
bool Short_sum(Numbers const& x, Numbers const& y, Numbers& sum);

// x * y / divisor for x and y that are not negative, and a positive whole divisor.
// Declines what comes near the ends of the doubles, and what lies too close to a double to tell.
bool Short_product(Numbers const& x, Numbers const& y, double divisor, Numbers& product);

// x / y for x that is not negative and y that is positive. Declines likewise.
bool Short_quotient(Numbers const& x, Numbers const& y, Numbers& quotient);

// x * numerator / divisor, both whole and positive. Declines likewise.
bool Short_multiple(Numbers const& x, double numerator, double divisor, Numbers& multiple);

} // namespace Varnix::Value::Physics

#endif
