// What lies between two bounds, and the value among it, in enclosing arithmetic. Each operation
// takes its operands as free to be anything within their bounds, independently.

#ifndef VARNIX_VALUE_ENCLOSING_BANDS_H
#define VARNIX_VALUE_ENCLOSING_BANDS_H

#include "Enclosed.h"
#include "Exact_factor.h"

namespace Varnix::Value::Physics {

// A band that is a single number says so, and is computed once.
struct Band {
    Enclosed lower;
    Enclosed value;
    Enclosed upper;
    bool is_single;
};

inline Band Single(Enclosed const& number) {
    return {number, number, number, true};
}

// The band of three doubles; a single number where the bounds are equal.
Band Band_of(double lower, double value, double upper);

// The band of a function that goes up throughout.
template <typename Function>
Band Increasing(Band const& x, Function function) {
    return x.is_single ? Single(function(x.value))
                       : Band{function(x.lower), function(x.value), function(x.upper), false};
}

bool Is_below_zero(Enclosed const& x); // or may be
bool May_be_zero(Band const& x);       // an end at zero included

Band operator-(Band const& x);
Band operator+(Band const& x, Band const& y);
Band operator-(Band const& x, Band const& y);
Band operator*(Band const& x, Band const& y);
Band operator*(Band const& x, Exact_factor const& factor);

// x over y, which cannot be zero: the caller has asked May_be_zero.
Band Quotient(Band const& x, Band const& y);

Band Absolute(Band const& x);
Band Power(Band const& x, int exponent); // of at least 0

// 10^(x / step) times the factor; powers of ten go into the factor.
Band Scaled_power_of_ten(Band const& x, int step, Exact_factor const& factor);

} // namespace Varnix::Value::Physics

#endif
