// What the strict rules ask of a unit.

#ifndef VARNIX_VALUE_TOOL_UNIT_QUESTIONS_H
#define VARNIX_VALUE_TOOL_UNIT_QUESTIONS_H

#include <varnix/value/Units.h>

namespace Varnix::Value::Tool {

bool Has_unit(Units const& unit, Units_list code);

// The tuple of a dimension; NO_UNIT where there is none.
Unit_tuple Tuple_of(Units const& unit, Dimension dimension);

bool Has_units(Units const& unit);

// With the marker of decibels.
bool Is_marked(Units const& unit);

// Decibels alone.
bool Is_gain(Units const& unit);

bool Has_binary_prefix(Units const& unit);

// Whether two units are the same in any arrangement.
bool Same_unit(Units const& first, Units const& second);

// Whether two units are equal in every field.
bool Same_descriptor(Units const& first, Units const& second);

// A level of volts or amperes alone: by common practice those are 20 log10.
bool Is_field_level(Units const& unit);

// Power written as V^2/ohm, VA or A^2 ohm.
bool Is_product_power(Units const& unit);

// What a unit without dimension counts: angles, symbols and ratios do not convert into one another.
enum class Counting { nothing, angle, symbol, ratio };

Counting Counting_of(Units const& unit);

} // namespace Varnix::Value::Tool

#endif
