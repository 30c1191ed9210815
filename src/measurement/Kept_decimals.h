// The decimals that a measurement keeps: three whole numbers, times one power of ten.
//
// A measurement that was read from a text is exact in decimals, which doubles seldom are. Its three
// doubles stay what the getters say, the value rounded to nearest and the bounds outward. A code
// beside them says the power of ten, and by how much each whole number differs from the one that
// its double suggests, which is 0 for nearly all of up to 15 digits.
//
// Every operation here is exact, or answers nothing, and the enclosing arithmetic takes over.

#ifndef VARNIX_VALUE_MEASUREMENT_KEPT_DECIMALS_H
#define VARNIX_VALUE_MEASUREMENT_KEPT_DECIMALS_H

#include "Quick_arithmetic.h"
#include "basics/Error_free.h"
#include "enclosing/Exact_factor.h"

#include <varnix/value/Measurement.h>

#include <cstdint>
#include <optional>

namespace Varnix::Value::Physics {

using Basics::Exact_pair;

// Each number is whole and at most 2^53 in magnitude; a bound may be infinite. In a result that is
// not put into a measurement yet, the power of ten may be any.
struct Decimal_numbers {
    double lower;
    double value;
    double upper;
    int power;
};

inline bool Is_single(Decimal_numbers const& x) {
    return x.lower == x.upper;
}

// ---- In and out of measurements

using Maybe_decimals = std::optional<Decimal_numbers>;

// Those of a measurement that keeps decimals.
Maybe_decimals Kept_decimals(Measurement const& x);

// Those of a measurement that keeps decimals, or has doubles that are decimals of few digits.
Maybe_decimals Decimals_of(Measurement const& x);

// The measurement, nothing where the numbers do not fit. The unit is known to be valid.
std::optional<Measurement> Made_of_decimals(Maybe_decimals const& numbers, Units const& unit,
                                            bool is_difference = false);

// The code of three doubles that are meant as such decimals, or 0 where they are others.
std::int32_t Checked_code(Rounded_numbers const& numbers, std::int32_t code);

// whole * 10^power as the sum of two doubles, to 2^-105 of it.
Exact_pair As_sum(double whole, int power);

// Whether the three numbers are exactly what the getters say.
bool Are_doubles(Measurement const& x);

// ---- Arithmetic

Decimal_numbers operator-(Decimal_numbers const& x);
Maybe_decimals Sum(Maybe_decimals const& x, int sign, Maybe_decimals const& y); // x - y for sign -1
Maybe_decimals Product(Maybe_decimals const& x, Maybe_decimals const& y);
Maybe_decimals Product(Maybe_decimals const& x, Exact_factor const& factor); // a decimal one

// A whole number times a power of ten, and a ratio as one, where it is.
struct Decimal_factor {
    double whole;
    int power;
};

std::optional<Decimal_factor> As_decimal(Exact_factor const& factor);
Maybe_decimals Product(Maybe_decimals const& x, Decimal_factor const& factor);
Maybe_decimals Power(Maybe_decimals const& x, int exponent); // of at least 1
Decimal_numbers Absolute(Decimal_numbers const& x);

// (factor * x + offset) / divisor. The factor and the divisor are positive.
struct Whole_formula {
    std::int64_t factor;
    std::int64_t offset;
    std::int64_t divisor;
};

Maybe_decimals By_formula(Maybe_decimals const& x, Whole_formula const& formula);

// Both with the lesser of their powers of ten.
struct Decimal_pair {
    Decimal_numbers first;
    Decimal_numbers second;
};

std::optional<Decimal_pair> With_one_power(Maybe_decimals const& x, Maybe_decimals const& y);

} // namespace Varnix::Value::Physics

#endif
