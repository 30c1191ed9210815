#include "Forms.h"

#include "Measurement_parts.h"

#include <varnix/value/Value_object.h>

#include <cstddef>

namespace Varnix::Value::Physics {

Form Form_of(Units const& unit, bool is_difference) {
    if (Is_decibel(unit)) {
        return unit.tuples[0].unit == NO_UNIT ? Form::gain : Form::level;
    }
    return Is_temperature(unit) && !Is_kelvin(unit) && !is_difference ? Form::scale_point
                                                                      : Form::linear;
}

Form Form_of(Measurement const& x) {
    return Form_of(Measurement_parts::Unit_of(x), x.Is_difference());
}

bool Is_temperature(Units const& unit) {
    Unit_tuple const& first = unit.tuples[0];
    bool const one = first.exponent == 1 && unit.tuples[1].unit == NO_UNIT && !Is_decibel(unit);
    return one && (first.unit == KELVIN || first.unit == DEGREE_C || first.unit == DEGREE_F);
}

bool Is_kelvin(Units const& unit) {
    return Is_temperature(unit) && unit.tuples[0].unit == KELVIN;
}

namespace {

// Hertz, kelvins and squares of lengths: what powers are divided by and multiplied with.
bool Is_factor_of_powers(Kind kind) {
    bool const even_length = kind[Base::length] % 2 == 0;
    kind[Base::time] = kind[Base::temperature] = kind[Base::length] = 0;
    return even_length && kind == Kind();
}

} // namespace

int Power_order(Kind const& kind) {
    int const volts = kind[Base::voltage];
    int const amperes = kind[Base::current];
    int const order = volts + amperes;
    return volts < 0 || amperes < 0 || order > 2 ? 0 : order == 2 ? 10 : order == 1 ? 20 : 0;
}

int Level_factor(Kind const& kind) {
    if (kind[Base::voltage] != 0 || kind[Base::current] != 0) {
        return Power_order(kind);
    }
    return kind != Kind() && Is_factor_of_powers(kind) ? 10 : 0;
}

namespace {

constexpr int Largest_power = 64;

// A unit to the power of zero is none: what a quantity is measured in are the others.
Units Without_zero_powers(Units const& unit) {
    Units kept = {unit.spl_conv, unit.si_prefix, {}};
    std::size_t count = 0;
    for (Unit_tuple const& tuple : unit.tuples) {
        if (tuple.unit != NO_UNIT && tuple.exponent != 0) {
            kept.tuples[count++] = tuple;
        }
    }
    return kept;
}

void Check_powers(Units const& unit) {
    for (Unit_tuple const& tuple : unit.tuples) {
        if (tuple.exponent > Largest_power || tuple.exponent < -Largest_power) {
            throw Refusal::exponent_out_of_range;
        }
    }
}

void Check_level(Units const& unit) {
    bool const on_a_scale = unit.tuples[1].unit == NO_UNIT && unit.tuples[0].exponent == 1 &&
                            (unit.tuples[0].unit == DEGREE_C || unit.tuples[0].unit == DEGREE_F);
    if (on_a_scale || Level_factor(Kind_of(unit)) == 0) {
        throw Refusal::no_level_convention;
    }
}

} // namespace

Units Valid_unit(Units const& unit, bool is_difference) {
    Units const valid = Without_zero_powers(Value_object<double>(0.0, unit, 0.0, 0.0).Get_unit());
    if (!Is_known_prefix(valid.si_prefix)) {
        throw Refusal::unit_not_valid;
    }
    if (valid.tuples[0].unit == NO_UNIT) {
        if (valid.si_prefix != NO_PREFIX) {
            throw Refusal::unit_not_valid;
        }
        return Is_decibel(valid) ? C_DB : C_Empty;
    }
    Check_powers(valid);
    if (Is_decibel(valid)) {
        Check_level(valid);
    } else if (Form_of(valid, is_difference) == Form::scale_point && valid.si_prefix != NO_PREFIX) {
        throw Refusal::prefix_on_temperature;
    }
    return valid;
}

} // namespace Varnix::Value::Physics
