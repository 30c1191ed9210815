// What a unit stands for: a linear quantity, a point of a temperature scale, a level or a gain; and
// which units a measurement may have.

#ifndef VARNIX_VALUE_MEASUREMENT_FORMS_H
#define VARNIX_VALUE_MEASUREMENT_FORMS_H

#include "Physical_units.h"

#include <varnix/value/Engineering_units.h>
#include <varnix/value/Measurement.h>

namespace Varnix::Value::Physics {

enum class Form {
    linear,      // a quantity that adds and multiplies; differences of temperatures too
    scale_point, // a point in °C or °F, which does neither
    level,       // decibels relative to one of a unit
    gain,        // decibels without a unit
};

Form Form_of(Units const& unit, bool is_difference);
Form Form_of(Measurement const& x);

inline bool Is_decibel(Units const& unit) {
    return unit.spl_conv == SPL_DB;
}

// Nepers alone, which are a gain as decibels without a unit are.
inline bool Is_neper(Units const& unit) {
    return unit.tuples[0].unit == NEPER && unit.tuples[0].exponent == 1 &&
           unit.tuples[1].unit == NO_UNIT;
}

inline bool Is_gain(Units const& unit) {
    return Is_decibel(unit) ? unit.tuples[0].unit == NO_UNIT : Is_neper(unit);
}

// Whether the unit is one of a level or a gain, whose numbers add where quantities multiply.
inline bool Is_logarithmic(Units const& unit) {
    return Is_decibel(unit) || Is_neper(unit);
}

// What the decibels of a level are relative to, or the unit itself.
inline Units Without_decibels(Units unit) {
    unit.spl_conv = SPL_NONE;
    return unit;
}

// Whether all codes are of the core, known there or not, and none is beyond it.
bool Has_core_codes(Units const& unit);

// Whether the unit is one temperature to the first power and linear; whether that is kelvin, whose
// zero is that of the quantity.
bool Is_temperature(Units const& unit);
bool Is_kelvin(Units const& unit);

// c in "c log10 of the quantity": 10 for powers and what powers are multiplied with, 20 for root-power
// quantities and for antenna factors, 0 where there is no convention. It goes by the electrical units that are
// written: a watt has one, a kg m^2/s^3 has none.
int Level_factor(Units const& unit);

// 10 for powers, 20 for root-power quantities, 0 for all else.
int Power_order(Units const& unit);

// The unit in canonical order, without units exactly C_Empty or C_DB.
// @throws Refusal::unit_not_valid, exponent_out_of_range, no_level_convention,
// prefix_on_temperature
// @throws what Value_object throws for a malformed descriptor
Units Valid_unit(Units const& unit, bool is_difference = false);

} // namespace Varnix::Value::Physics

#endif
