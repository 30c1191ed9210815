#include "Level_arithmetic.h"

#include "Conversions.h"
#include "Measurement_parts.h"
#include "Result_units.h"

namespace Varnix::Value::Physics {

// ---- Levels of products and quotients

namespace {

bool Is_catalogue_prefix(int power) {
    return power == -2 || power == -1 || (power >= -12 && power <= 24 && power % 3 == 0);
}

// The prefix of a product of references, where the catalogue has it.
SI_units Prefix_of_product(SI_units left, int sign, SI_units right) {
    if (right == NO_PREFIX) {
        return left;
    }
    bool const binary = Is_binary_prefix(left) || Is_binary_prefix(right);
    int const power = left + sign * right;
    return !binary && Is_catalogue_prefix(power) ? static_cast<SI_units>(power) : NO_PREFIX;
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

bool Is_power(Kind const& kind) {
    return Power_order(kind) == 10;
}

// Levels add like the quantities multiply, where both are 10 log10 and the result is as well.
Measurement Level_of_product(Measurement const& x, int sign, Measurement const& y) {
    Units const left = x.Get_unit();
    Units const right = y.Get_unit();
    Kind const left_kind = Kind_of(left);
    Kind const right_kind = Kind_of(right);
    bool const both_ten = Level_factor(left_kind) == 10 && Level_factor(right_kind) == 10;
    if (!both_ten || (sign > 0 && Is_power(left_kind) && Is_power(right_kind))) {
        throw sign > 0 ? Refusal::levels_do_not_add : Why_kinds_differ(left_kind, right_kind);
    }
    Units const unit = Reference_of_product(left, sign, right);
    if (unit != C_DB && Level_factor(Kind_of(unit)) != 10) {
        throw Refusal::no_level_convention;
    }
    Exact_factor const rest = Size_of(left) * Physics::Power(Size_of(right), sign) / Size_of(unit);
    Band const second = sign > 0 ? Band_of(y) : -Band_of(y);
    Band const shift = Single(Enclose(10.0) * Logarithm(rest));
    return Rounded(Band_of(x) + second + shift, unit);
}

Measurement Shifted(Measurement const& level, int sign, Measurement const& gain) {
    Band const shift = sign > 0 ? Band_of(gain) : -Band_of(gain);
    return Rounded(Band_of(level) + shift, level.Get_unit());
}

Measurement Level_sum(Measurement const& x, int sign, Measurement const& y) {
    if (Kind_of(x.Get_unit()) != Kind_of(y.Get_unit())) {
        return Level_of_product(x, sign, y);
    }
    if (sign > 0) {
        throw Refusal::levels_do_not_add;
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

namespace {

Units Amplifiable(Measurement const& x) {
    Units const unit = x.Get_unit();
    if (Kind_of(unit) == Kind()) {
        throw Refusal::gain_is_ambiguous;
    }
    if (Form_of(x) == Form::scale_point || Level_factor(Kind_of(unit)) == 0) {
        throw Refusal::no_level_convention;
    }
    return unit;
}

} // namespace

Measurement Amplified(Measurement const& x, int sign, Measurement const& gain) {
    if (Form_of(gain) != Form::gain) {
        throw Refusal::not_a_gain;
    }
    if (Is_decibel(x.Get_unit())) {
        return Shifted(x, sign, gain);
    }
    Units const unit = Amplifiable(x);
    Band const decibels = sign > 0 ? Band_of(gain) : -Band_of(gain);
    int const factor = Level_factor(Kind_of(unit));
    int steps = 0;
    if (decibels.is_single && Is_small_whole(decibels.value / Enclose(factor), steps)) {
        return Rounded(Band_of(x) * Powers_of_ten(steps), unit, x.Is_difference());
    }
    return Rounded(Band_of(x) * Scaled_power_of_ten(decibels, factor, {}), unit, x.Is_difference());
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
    Kind const kind = Kind_of(unit);
    bool const fits = Form_of(x) == Form::level && Level_factor(kind) == 10 &&
                      (sign < 0 || (Power_order(kind) == 10 && kind[Base::time] >= 1));
    if (!fits || !Is_frequency(bandwidth)) {
        throw Refusal::not_a_density;
    }
    Band const width = Band_of(bandwidth);
    if (Is_below_zero(width.lower)) {
        throw Refusal::negative_quantity;
    }
    if (sign < 0 && May_be_zero(width)) {
        throw Refusal::division_by_zero;
    }
    Units const result = Unit_over_time(unit, sign);
    if (result != C_DB && Level_factor(Kind_of(result)) != 10) {
        throw Refusal::no_level_convention;
    }
    // The ratio of the references, bandwidth counted in its own unit, goes into the logarithm.
    Exact_factor const rest = Size_of(unit) / Size_of(result);
    Exact_factor const size = Size_of(bandwidth.Get_unit());
    Band const decibels = Scaled_logarithm(10, width, sign > 0 ? size * rest : size / rest);
    return Rounded(Band_of(x) + (sign > 0 ? decibels : -decibels), result);
}

} // namespace Varnix::Value::Physics
