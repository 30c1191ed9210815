// The bands of measurements: into enclosing arithmetic and out of it, and the operations that have
// no result for some bands.
//
// Such an operation throws the reason alone; the operations on measurements add the words.

#ifndef VARNIX_VALUE_MEASUREMENT_MEASURED_BANDS_H
#define VARNIX_VALUE_MEASUREMENT_MEASURED_BANDS_H

#include "Kept_decimals.h"
#include "Quick_arithmetic.h"
#include "enclosing/Bands.h"
#include "enclosing/Exact_factor.h"

#include <varnix/value/Measurement.h>

namespace Varnix::Value::Physics {

// ---- In and out

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
Measurement Made_of(Rounded_numbers const& numbers, Units const& unit, bool is_difference = false);

// ---- Operations that some bands have no result of

Band operator/(Band const& x, Band const& y); // @throws Refusal::division_by_zero
Band Square_root(Band const& x);              // @throws Refusal::root_of_negative

// first^first_power * second^second_power * factor. All divisors are multiplied first and divided
// by once, so that what is exact stays so: 1 V through 1000 ohm is 1 mA.
// @throws Refusal::division_by_zero
Band Product_of_powers(Band const& first, int first_power, Band const& second, int second_power,
                       Exact_factor const& factor);

// step * log10(x * factor), from -inf for a lower bound of zero.
// @throws Refusal::no_level_of_zero for a lower bound below zero, and for a value of zero
Band Scaled_logarithm(int step, Band const& x, Exact_factor const& factor);

} // namespace Varnix::Value::Physics

#endif
