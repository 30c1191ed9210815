// A quantity in other units of its kind.

#ifndef VARNIX_VALUE_MEASUREMENT_CONVERSIONS_H
#define VARNIX_VALUE_MEASUREMENT_CONVERSIONS_H

#include "Forms.h"
#include "Kept_decimals.h"
#include "Measured_bands.h"

#include <varnix/value/Measurement.h>

namespace Varnix::Value::Physics {

// What electrical relations are between: of circuits, or of fields, where voltage and current are per metre
// and power is per square metre.
enum class Electrical { none, voltage, current, power, resistance };

struct Electrical_quantity {
    Electrical quantity;
    bool is_field; // resistances are of both
};

Electrical_quantity Electrical_of(Kind kind);

// Whether a relation can join the two.
bool Are_related(Electrical_quantity first, Electrical_quantity second);

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

// For numbers that are counted in a power of ten of the unit.
Scale_formula Formula_between_scales(Units const& from, Units const& to, int power_of_ten = 0);

// Each side says whether it is a difference where it is a temperature alone.
// @throws Refusal kinds_differ, needs_impedance, no_fixed_length, gain_is_ambiguous,
// gain_is_no_quantity, no_level_of_zero, temperature_role
Band Converted(Scaled_band const& x, Units const& from, bool is_difference, Units const& to,
               bool to_difference);

inline Band Converted(Measurement const& x, Units const& to, bool to_difference) {
    return Converted(Scaled_numbers_of(x), x.Get_unit(), x.Is_difference(), to, to_difference);
}

// The mark is kept.
inline Band Converted(Measurement const& x, Units const& to) {
    return Converted(x, to, x.Is_difference());
}

// ---- Decimals

inline bool Keep_decimals(Measurement const& x, Measurement const& y) {
    return (x.Get_decimal_code() | y.Get_decimal_code()) != 0;
}

// The decimals of a measurement in another unit, where they stay decimals. Nothing where they do
// not, and where the units do not convert.
Maybe_decimals Decimals_in(Measurement const& x, bool is_difference, Units const& to);

// The sum, or difference for sign -1, of two measurements of which one keeps decimals, in a unit
// that has the numbers of the first's; the second counts as a difference, or not. Nothing where it
// is no decimal.
std::optional<Measurement> Decimal_sum(Measurement const& x, int sign, Measurement const& y,
                                       bool y_is_difference, Units const& unit,
                                       bool is_difference = false);

// The sum of decimals and a shift in decibels that is one whole number.
std::optional<Measurement> Shifted_decimals(Maybe_decimals const& x, Band const& shift,
                                            Units const& unit);

} // namespace Varnix::Value::Physics

#endif
