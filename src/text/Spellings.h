// The spellings of single units and prefixes: the core's where it has them, those of the catalogue's rows
// elsewhere.

#ifndef VARNIX_VALUE_TEXT_SPELLINGS_H
#define VARNIX_VALUE_TEXT_SPELLINGS_H

#include <varnix/value/Units.h>

#include <cstdint>
#include <string>

namespace Varnix::Value {

// A unit without prefix and power; empty for a code without a row. Units beyond the core have a symbol and a
// name, and the symbol for the other spellings.
std::string Unit_text(Units_list unit, Unit_string_type spelling);

// A prefix; empty for none, and for a power of ten that has no name.
std::string Prefix_text(std::int64_t prefix, Unit_string_type spelling);

// A unit with its power, "s^2", "s^-1".
std::string Power_of_unit_text(Unit_tuple const& tuple, Unit_string_type spelling);

// Whether all units of the descriptor are the core's, so that the core's functions know them.
bool Is_of_core(Units const& unit);

} // namespace Varnix::Value

#endif
