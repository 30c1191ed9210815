#include "Bands.h"

#include "Measurement_parts.h"
#include "Physical_units.h"

#include <algorithm>
#include <cmath>

namespace Varnix::Value::Physics {

namespace {

Band Band_of(double lower, double value, double upper) {
    if (lower == upper) {
        return Single(Enclose(value));
    }
    return {Enclose(lower), Enclose(value), Enclose(upper), false};
}

} // namespace

Band Whole_band(Decimal_numbers const& decimals) {
    return Band_of(decimals.lower, decimals.value, decimals.upper);
}

Scaled_band Scaled_numbers_of(Measurement const& x) {
    if (Maybe_decimals const decimals = Kept_decimals(x)) {
        return {Whole_band(*decimals), decimals->power};
    }
    return {Band_of(x.Get_lower(), x.Get_value(), x.Get_upper())};
}

Band Band_of(Measurement const& x) {
    Scaled_band const scaled = Scaled_numbers_of(x);
    return scaled.numbers * scaled.Scale();
}

namespace {

bool Is_normal_double(Enclosed const& x) {
    return x.Is_exact() && x.low == 0.0 && x.exponent >= -1022 && x.exponent <= 1023;
}

} // namespace

Measurement Made_of(Numbers const& numbers, Units const& unit, bool is_difference) {
    if (std::isinf(numbers.value)) {
        throw Refusal::out_of_range;
    }
    double const value = std::min(std::max(numbers.value, numbers.lower), numbers.upper);
    return Measurement_parts::Made(value, numbers.lower, numbers.upper, unit, is_difference);
}

Measurement Rounded(Band const& band, Units const& unit, bool is_difference) {
    double const nearest = Round_to_nearest(band.value);
    if (band.is_single && Is_normal_double(band.value)) {
        return Made_of({nearest, nearest, nearest}, unit, is_difference);
    }
    return Made_of({Round_down(band.lower), nearest, Round_up(band.upper)}, unit, is_difference);
}

bool Is_below_zero(Enclosed const& x) {
    return !Is_positive(x) && !x.Is_zero();
}

bool May_be_zero(Band const& x) {
    return !Is_positive(x.lower) && !Is_negative(x.upper);
}

Band operator-(Band const& x) {
    return {-x.upper, -x.value, -x.lower, x.is_single};
}

Band operator+(Band const& x, Band const& y) {
    if (x.is_single && y.is_single) {
        return Single(x.value + y.value);
    }
    return {x.lower + y.lower, x.value + y.value, x.upper + y.upper, false};
}

Band operator-(Band const& x, Band const& y) {
    return x + -y;
}

namespace {

// The lesser of two. Where they overlap, one that encloses it.
Enclosed Lesser(Enclosed const& x, Enclosed const& y) {
    Enclosed const difference = x - y;
    if (Is_negative(difference) || difference.Is_zero()) {
        return x;
    }
    return Is_positive(difference) ? y : Hull(x, y);
}

Enclosed Greater(Enclosed const& x, Enclosed const& y) {
    return -Lesser(-x, -y);
}

// x times y, of which no number is negative.
Band Product_with_positive(Band const& x, Band const& y) {
    return {x.lower * (Is_below_zero(x.lower) ? y.upper : y.lower), x.value * y.value,
            x.upper * (Is_below_zero(x.upper) ? y.lower : y.upper), false};
}

} // namespace

Band operator*(Band const& x, Band const& y) {
    if (x.is_single && y.is_single) {
        return Single(x.value * y.value);
    }
    if (!Is_below_zero(y.lower)) {
        return Product_with_positive(x, y);
    }
    if (!Is_below_zero(x.lower)) {
        return Product_with_positive(y, x);
    }
    if (!Is_below_zero(-y.upper)) {
        return -Product_with_positive(x, -y);
    }
    if (!Is_below_zero(-x.upper)) {
        return -Product_with_positive(y, -x);
    }
    return {Lesser(x.lower * y.upper, x.upper * y.lower), x.value * y.value,
            Greater(x.lower * y.lower, x.upper * y.upper), false};
}

namespace {

// x over y, of which all numbers are positive.
Band Quotient_by_positive(Band const& x, Band const& y) {
    return {x.lower / (Is_below_zero(x.lower) ? y.lower : y.upper), x.value / y.value,
            x.upper / (Is_below_zero(x.upper) ? y.upper : y.lower), false};
}

} // namespace

Band operator/(Band const& x, Band const& y) {
    if (May_be_zero(y)) {
        throw Refusal::division_by_zero;
    }
    if (x.is_single && y.is_single) {
        return Single(x.value / y.value);
    }
    return Is_positive(y.lower) ? Quotient_by_positive(x, y) : -Quotient_by_positive(x, -y);
}

Band operator*(Band const& x, Exact_factor const& factor) {
    if (factor.Is_one()) {
        return x;
    }
    Prepared_factor const prepared(factor);
    return Increasing(x, prepared);
}

Band Product_of_powers(Band const& first, int first_power, Band const& second, int second_power,
                       Exact_factor const& factor) {
    Band const above =
        Power(first, std::max(first_power, 0)) * Power(second, std::max(second_power, 0));
    if (first_power >= 0 && second_power >= 0) {
        return above * factor;
    }
    Prepared_factor const prepared(factor);
    Band const below =
        Power(first, std::max(-first_power, 0)) * Power(second, std::max(-second_power, 0));
    return above * Single(prepared.Above()) / (below * Single(prepared.Below()));
}

Band Absolute(Band const& x) {
    if (!Is_below_zero(x.lower)) {
        return x;
    }
    if (!Is_below_zero(-x.upper)) {
        return -x;
    }
    return {Enclosed{}, Is_below_zero(x.value) ? -x.value : x.value, Greater(-x.lower, x.upper),
            false};
}

Band Power(Band const& x, int exponent) {
    if (exponent == 0) {
        return Single(Enclose(1.0));
    }
    if (exponent < 0) {
        return Single(Enclose(1.0)) / Power(x, -exponent);
    }
    auto const raise = [exponent](Enclosed const& number) {
        return Physics::Power(number, exponent);
    };
    return Increasing(exponent % 2 == 0 ? Absolute(x) : x, raise);
}

Band Square_root(Band const& x) {
    if (Is_below_zero(x.lower)) {
        throw Refusal::root_of_negative;
    }
    return Increasing(x, [](Enclosed const& number) { return Physics::Square_root(number); });
}

Band Scaled_logarithm(int step, Band const& x, Exact_factor const& factor) {
    if (Is_below_zero(x.lower) || !Is_positive(x.value)) {
        throw Refusal::no_level_of_zero;
    }
    Enclosed const steps = Enclose(step);
    Enclosed const tens = Enclose(Tens_in(factor));
    Prepared_factor const rest(factor / Powers_of_ten(Tens_in(factor)));
    return Increasing(
        x, [&](Enclosed const& number) { return steps * (Logarithm(rest(number)) + tens); });
}

Band Scaled_power_of_ten(Band const& x, int step, Exact_factor const& factor) {
    Enclosed const steps = Enclose(step);
    Prepared_factor const prepared(factor);
    return Increasing(x, [&](Enclosed const& number) {
        Enclosed const exponent = number / steps;
        int tens = 0;
        return Is_small_whole(exponent, tens) ? Enclose(1.0) * (factor * Powers_of_ten(tens))
                                              : prepared(Power_of_ten(exponent));
    });
}

} // namespace Varnix::Value::Physics
