#include "Forms.h"

#include "Measurement_parts.h"

#include "catalogue/Unit_rows.h"

#include <varnix/value/Value_object.h>
#include <varnix/value/exceptions.h>

#include <algorithm>
#include <array>
#include <cstddef>

namespace Varnix::Value::Physics {

Form Form_of(Units const& unit, bool is_difference) {
    if (Is_decibel(unit)) {
        return unit.tuples[0].unit == NO_UNIT ? Form::gain : Form::level;
    }
    if (Is_neper(unit)) {
        return Form::gain;
    }
    return Is_temperature(unit) && !Is_kelvin(unit) && !is_difference ? Form::scale_point
                                                                      : Form::linear;
}

Form Form_of(Measurement const& x) {
    return Form_of(Measurement_parts::Unit_of(x), x.Is_difference());
}

bool Has_core_codes(Units const& unit) {
    return std::all_of(std::begin(unit.tuples), std::end(unit.tuples), [](Unit_tuple const& tuple) {
        return tuple.unit < Catalogue::First_code_beyond_core;
    });
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

int Power_order(Units const& unit) {
    Electrical_powers const powers = Electrical_powers_of(unit);
    int const order = powers.volts + powers.amperes;
    bool const has_convention = !powers.with_mass && powers.volts >= 0 && powers.amperes >= 0;
    return !has_convention ? 0 : order == 2 ? 10 : order == 1 ? 20 : 0;
}

namespace {

Kind Antenna_factor() {
    Kind kind;
    kind[Base::length] = -1;
    return kind;
}

} // namespace

int Level_factor(Units const& unit) {
    if (!Electrical_powers_of(unit).Are_none()) {
        return Power_order(unit);
    }
    Kind const kind = Kind_of(unit);
    if (kind == Kind()) {
        return 0;
    }
    return Is_factor_of_powers(kind) ? 10 : kind == Antenna_factor() ? 20 : 0;
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
    if (on_a_scale || Level_factor(unit) == 0) {
        throw Refusal::no_level_convention;
    }
}

// In canonical order, of units of which one is beyond the core.
Units Arranged_beyond_core(Units const& unit) {
    std::array<Unit_tuple, Catalogue::Dimension_count> places{};
    for (Unit_tuple const& tuple : unit.tuples) {
        if (tuple.unit == NO_UNIT) {
            continue;
        }
        if (!Catalogue::Is_unit(tuple.unit)) {
            throw UnitNotDefined();
        }
        Unit_tuple& place = places[Catalogue::Place_of(Catalogue::Dimension_of(tuple.unit))];
        if (place.unit != NO_UNIT) {
            throw UnitDimensionNotProper();
        }
        place = tuple;
    }
    Units arranged = {unit.spl_conv, unit.si_prefix, {}};
    std::size_t count = 0;
    for (Unit_tuple const& tuple : places) {
        if (tuple.unit != NO_UNIT) {
            arranged.tuples[count++] = tuple;
        }
    }
    return arranged;
}

} // namespace

Units Valid_unit(Units const& unit, bool is_difference) {
    Units const valid = Without_zero_powers(Arranged(unit));
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

Varnix::Value::Units Varnix::Value::Arranged(Units const& unit) {
    return Physics::Has_core_codes(unit) ? Value_object<double>(0.0, unit, 0.0, 0.0).Get_unit()
                                         : Physics::Arranged_beyond_core(unit);
}
