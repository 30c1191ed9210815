#include "Level_arithmetic.h"

#include "Conversions.h"
#include "Measurement_parts.h"
#include "Result_units.h"
#include "catalogue/Prefixes.h"
#include "enclosing/Elementary_functions.h"
#include "enclosing/Prepared_factor.h"

#include <optional>

namespace Varnix::Value::Physics {

// ---- Levels of products and quotients

namespace {

// The prefix of a product of references, where it has a name.
SI_units Prefix_of_product(SI_units left, int sign, SI_units right) {
    if (right == NO_PREFIX) {
        return left;
    }
    bool const binary = Is_binary_prefix(left) || Is_binary_prefix(right);
    int const power = left + sign * right;
    return !binary && Catalogue::Find_prefix(power) != nullptr ? static_cast<SI_units>(power)
                                                               : NO_PREFIX;
}

// The reference of the level of a product, or quotient, of two references.
Units Reference_of_product(Units const& left, int sign, Units const& right) {
    Units plain_left = Without_decibels(left);
    Units plain_right = Without_decibels(right);
    plain_left.si_prefix = plain_right.si_prefix = NO_PREFIX;
    Result_unit const result = Unit_of_product(plain_left, sign, plain_right);
    if (result.refusal) {
        throw *result.refusal;
    }
    Units unit = result.unit;
    if (unit == C_Empty) {
        return C_DB;
    }
    unit.si_prefix = Prefix_of_product(left.si_prefix, sign, right.si_prefix);
    unit.spl_conv = SPL_DB;
    return Valid_unit(unit);
}

// Why the levels of two kinds have no sum, or no difference; nothing where they have: both are c log10 with one
// c, and of a sum at most one is a power or a root-power quantity.
std::optional<Refusal> Why_no_product(Units const& left, int sign, Units const& right) {
    int const factor = Level_factor(left);
    bool const fit = factor != 0 && factor == Level_factor(right);
    if (sign < 0) {
        return fit ? std::nullopt : std::optional(Why_kinds_differ(Kind_of(left), Kind_of(right)));
    }
    bool const of_two_quantities = Power_order(left) != 0 && Power_order(right) != 0;
    return fit && !of_two_quantities ? std::nullopt : std::optional(Refusal::levels_do_not_add);
}

// Levels add like the quantities multiply.
Measurement Level_of_product(Measurement const& x, int sign, Measurement const& y) {
    Units const left = x.Get_unit();
    Units const right = y.Get_unit();
    if (std::optional<Refusal> const reason = Why_no_product(left, sign, right)) {
        throw *reason;
    }
    int const factor = Level_factor(left);
    Units const unit = Reference_of_product(left, sign, right);
    if (unit != C_DB && Level_factor(unit) != factor) {
        throw Refusal::no_level_convention;
    }
    Exact_factor const rest = Size_of(left) * Physics::Power(Size_of(right), sign) / Size_of(unit);
    Band const second = sign > 0 ? Band_of(y) : -Band_of(y);
    Band const shift = Single(Enclose(factor) * Logarithm(rest));
    if (Keep_decimals(x, y)) {
        Maybe_decimals const sum = Sum(Decimals_of(x), sign, Decimals_of(y));
        if (auto const decimals = Shifted_decimals(sum, shift, unit)) {
            return *decimals;
        }
    }
    return Rounded(Band_of(x) + second + shift, unit);
}

// A level, or a gain, and a gain, which counts in the decibels or nepers of the first.
Measurement Shifted(Measurement const& level, int sign, Measurement const& gain) {
    Units const unit = level.Get_unit();
    Units const counted_in = Is_decibel(unit) ? C_DB : unit;
    if (Keep_decimals(level, gain)) {
        Maybe_decimals const sum =
            Sum(Decimals_of(level), sign, Decimals_in(gain, false, counted_in));
        if (auto const decimals = Made_of_decimals(sum, unit)) {
            return *decimals;
        }
    }
    Band const shift = gain.Get_unit() == counted_in ? Band_of(gain) : Converted(gain, counted_in);
    return Rounded(Band_of(level) + (sign > 0 ? shift : -shift), unit);
}

Measurement Level_sum(Measurement const& x, int sign, Measurement const& y) {
    if (Kind_of(x.Get_unit()) != Kind_of(y.Get_unit())) {
        return Level_of_product(x, sign, y);
    }
    if (sign > 0) {
        throw Refusal::levels_do_not_add;
    }
    if (auto const decimals = Decimal_sum(x, -1, y, false, C_DB)) {
        return *decimals;
    }
    return Rounded(Band_of(x) - Converted(y, x.Get_unit()), C_DB);
}

} // namespace

Measurement Decibel_sum(Measurement const& x, int sign, Measurement const& y) {
    if (Form_of(y) == Form::gain) {
        return Shifted(x, sign, y);
    }
    if (Form_of(x) == Form::level) {
        return Level_sum(x, sign, y);
    }
    if (sign < 0) {
        throw Refusal::gain_minus_level;
    }
    return Shifted(y, 1, x);
}

// ---- Gains

Band Gain_band(Measurement const& x) {
    if (Form_of(x) != Form::gain) {
        throw Refusal::not_a_gain;
    }
    return Is_decibel(x.Get_unit()) ? Band_of(x) : Converted(x, C_DB);
}

namespace {

Units Amplifiable(Measurement const& x) {
    Units const unit = x.Get_unit();
    if (Kind_of(unit) == Kind()) {
        throw Refusal::gain_is_ambiguous;
    }
    if (Form_of(x) == Form::scale_point || Level_factor(unit) == 0) {
        throw Refusal::no_level_convention;
    }
    return unit;
}

// A number times 10^(decibels / step). Whole powers of ten go into the scale, exactly.
Enclosed Amplified_number(Enclosed const& number, Enclosed const& decibels, int step,
                          Exact_factor const& scale) {
    Enclosed const exponent = decibels / Enclose(step);
    int tens = 0;
    return Is_small_whole(exponent, tens) ? number * (scale * Powers_of_ten(tens))
                                          : number * Power_of_ten(exponent) * scale;
}

// The four corners, of which the signs of the ends choose two.
Band Amplified_band(Scaled_band const& x, Band const& gain, int step) {
    auto const amplified = [&](Enclosed const& number, Enclosed const& decibels) {
        return Amplified_number(number, decibels, step, x.Scale());
    };
    Band const& numbers = x.numbers;
    if (numbers.is_single && gain.is_single) {
        return Single(amplified(numbers.value, gain.value));
    }
    return {amplified(numbers.lower, Is_below_zero(numbers.lower) ? gain.upper : gain.lower),
            amplified(numbers.value, gain.value),
            amplified(numbers.upper, Is_below_zero(numbers.upper) ? gain.lower : gain.upper),
            false};
}

} // namespace

Measurement Amplified(Measurement const& x, int sign, Measurement const& gain) {
    Band const gain_band = Gain_band(gain);
    if (Is_decibel(x.Get_unit())) {
        return Shifted(x, sign, gain);
    }
    Units const unit = Amplifiable(x);
    Band const decibels = sign > 0 ? gain_band : -gain_band;
    int const step = Level_factor(unit);
    return Rounded(Amplified_band(Scaled_numbers_of(x), decibels, step), unit, x.Is_difference());
}

// ---- Densities

namespace {

// What a product with hertz makes of the unit of a density: its time has one power less.
Units Unit_over_time(Units const& unit, int sign) {
    Units per_time = C_Hz;
    for (Unit_tuple const& tuple : unit.tuples) {
        if (tuple.unit != NO_UNIT &&
            Kind_of({SPL_NONE, NO_PREFIX, {{tuple.unit, 1}}})[Base::time] != 0) {
            per_time.tuples[0].unit = tuple.unit;
        }
    }
    per_time.spl_conv = SPL_DB;
    return Reference_of_product(unit, sign, per_time);
}

} // namespace

bool Is_frequency(Measurement const& x) {
    Units const unit = x.Get_unit();
    return !Is_decibel(unit) && Kind_of(unit) == Kind_of(C_Hz);
}

Measurement Widened(Measurement const& x, int sign, Measurement const& bandwidth) {
    Units const unit = x.Get_unit();
    bool const fits = Form_of(x) == Form::level && Level_factor(unit) == 10 &&
                      (sign < 0 || (Power_order(unit) == 10 && Kind_of(unit)[Base::time] >= 1));
    if (!fits || !Is_frequency(bandwidth)) {
        throw Refusal::not_a_density;
    }
    Scaled_band const scaled = Scaled_numbers_of(bandwidth);
    Band const& width = scaled.numbers;
    if (Is_below_zero(width.lower)) {
        throw Refusal::negative_quantity;
    }
    if (sign < 0 && May_be_zero(width)) {
        throw Refusal::division_by_zero;
    }
    Units const result = Unit_over_time(unit, sign);
    if (result != C_DB && Level_factor(result) != 10) {
        throw Refusal::no_level_convention;
    }
    // The ratio of the references, bandwidth counted in its own unit, goes into the logarithm.
    Exact_factor const rest = Size_of(unit) / Size_of(result);
    Exact_factor const size = scaled.Scale() * Size_of(bandwidth.Get_unit());
    Band const decibels = Scaled_logarithm(10, width, sign > 0 ? size * rest : size / rest);
    Band const shift = sign > 0 ? decibels : -decibels;
    if (auto const sum = Shifted_decimals(Kept_decimals(x), shift, result)) {
        return *sum;
    }
    return Rounded(Band_of(x) + shift, result);
}

} // namespace Varnix::Value::Physics
