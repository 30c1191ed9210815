// What lies between two bounds, and the value among it, in enclosing arithmetic. Each operation
// takes its operands as free to be anything within their bounds, independently.
//
// Where an operation has no result, it throws the reason alone; the operations on measurements add
// the words.

#ifndef VARNIX_VALUE_MEASUREMENT_BANDS_H
#define VARNIX_VALUE_MEASUREMENT_BANDS_H

#include "Enclosed.h"
#include "Exact_factor.h"
#include "Kept_decimals.h"
#include "Short_ways.h"

#include <varnix/value/Measurement.h>

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

Band Band_of(Measurement const& x);

// The numbers of a measurement without any rounding, times a power of ten: those of decimals are
// whole.
struct Scaled_band {
    Band numbers;
    int tens = 0;

    Exact_factor Scale() const { return Powers_of_ten(tens); }
};

Scaled_band Scaled_numbers_of(Measurement const& x);

// The whole numbers of decimals, without their power of ten.
Band Whole_band(Decimal_numbers const& decimals);

// The measurement, each bound rounded outward. @throws Refusal::out_of_range
Measurement Rounded(Band const& band, Units const& unit, bool is_difference = false);

// The measurement with numbers that are rounded already. @throws as above
Measurement Made_of(Numbers const& numbers, Units const& unit, bool is_difference = false);

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
Band operator/(Band const& x, Band const& y); // @throws Refusal::division_by_zero
Band operator*(Band const& x, Exact_factor const& factor);

// first^first_power * second^second_power * factor. Everything that is divided by is brought
// together and divided by once, so that what is exact stays so: 1 V through 1000 ohm is 1 mA.
// @throws Refusal::division_by_zero
Band Product_of_powers(Band const& first, int first_power, Band const& second, int second_power,
                       Exact_factor const& factor);

Band Absolute(Band const& x);
Band Power(Band const& x, int exponent); // @throws Refusal::division_by_zero
Band Square_root(Band const& x);         // @throws Refusal::root_of_negative

// step * log10(x * factor), from -inf for a lower bound of zero.
// @throws Refusal::no_level_of_zero for a lower bound below zero, and for a value of zero
Band Scaled_logarithm(int step, Band const& x, Exact_factor const& factor);

// 10^(x / step) times the factor; powers of ten go into the factor.
Band Scaled_power_of_ten(Band const& x, int step, Exact_factor const& factor);

} // namespace Varnix::Value::Physics

#endif
