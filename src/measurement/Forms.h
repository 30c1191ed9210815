// What a unit stands for: a linear quantity, a point of a temperature scale, a level or a gain; and
// which units a measurement may have.

#ifndef VARNIX_VALUE_MEASUREMENT_FORMS_H
#define VARNIX_VALUE_MEASUREMENT_FORMS_H

#include "Physical_units.h"

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

// What the decibels of a level are relative to, or the unit itself.
inline Units Without_decibels(Units unit) {
    unit.spl_conv = SPL_NONE;
    return unit;
}

// Whether the unit is one temperature to the first power and linear; whether that is kelvin, whose
// zero is that of the quantity.
bool Is_temperature(Units const& unit);
bool Is_kelvin(Units const& unit);

// c in "c log10 of the quantity": 10 for powers and what powers are multiplied with, 20 for
// root-power quantities, 0 where there is no convention.
int Level_factor(Kind const& kind);

// 10 for powers, 20 for root-power quantities, 0 for all else.
int Power_order(Kind const& kind);

// The unit in canonical order, without units exactly C_Empty or C_DB.
// @throws Refusal::unit_not_valid, exponent_out_of_range, no_level_convention,
// prefix_on_temperature
// @throws what Value_object throws for a malformed descriptor
Units Valid_unit(Units const& unit, bool is_difference = false);

} // namespace Varnix::Value::Physics

#endif
