// A quantity in other units of its kind.

#ifndef VARNIX_VALUE_MEASUREMENT_CONVERSIONS_H
#define VARNIX_VALUE_MEASUREMENT_CONVERSIONS_H

#include "Bands.h"
#include "Forms.h"

#include <varnix/value/Measurement.h>

namespace Varnix::Value::Physics {

// What electrical relations are between.
enum class Electrical { none, voltage, current, power, resistance };

Electrical Electrical_of(Kind kind);

// Why two units that are not of one kind are not: @return kinds_differ, needs_impedance or
// no_fixed_length
Refusal Why_kinds_differ(Kind const& first, Kind const& second);

// The formula between two temperature scales, prefixes of kelvin included: (factor * x + offset) /
// divisor.
struct Scale_formula {
    Enclosed factor;
    Enclosed offset;
    Enclosed divisor;

    Enclosed operator()(Enclosed const& x) const { return (factor * x + offset) / divisor; }
};

Scale_formula Formula_between_scales(Units const& from, Units const& to);

// Each side says whether it is a difference where it is a temperature alone.
// @throws Refusal kinds_differ, needs_impedance, no_fixed_length, gain_is_ambiguous,
// gain_is_no_quantity, no_level_of_zero, temperature_role
Band Converted(Band const& x, Units const& from, bool is_difference, Units const& to,
               bool to_difference);

inline Band Converted(Measurement const& x, Units const& to, bool to_difference) {
    return Converted(Band_of(x), x.Get_unit(), x.Is_difference(), to, to_difference);
}

// The mark is kept.
inline Band Converted(Measurement const& x, Units const& to) {
    return Converted(x, to, x.Is_difference());
}

} // namespace Varnix::Value::Physics

#endif
