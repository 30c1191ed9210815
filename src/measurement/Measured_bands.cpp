#include "Measured_bands.h"

#include "Measurement_parts.h"
#include "enclosing/Elementary_functions.h"
#include "enclosing/Prepared_factor.h"

#include <algorithm>
#include <cmath>

namespace Varnix::Value::Physics {

// ---- In and out

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

Measurement Made_of(Rounded_numbers const& numbers, Units const& unit, bool is_difference) {
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

// ---- Operations that some bands have no result of

Band operator/(Band const& x, Band const& y) {
    if (May_be_zero(y)) {
        throw Refusal::division_by_zero;
    }
    return Quotient(x, y);
}

Band Square_root(Band const& x) {
    if (Is_below_zero(x.lower)) {
        throw Refusal::root_of_negative;
    }
    return Increasing(x, [](Enclosed const& number) { return Physics::Square_root(number); });
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

} // namespace Varnix::Value::Physics
