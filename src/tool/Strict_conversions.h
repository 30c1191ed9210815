// Conversions as the library has them, without those that change the physical kind.

#ifndef VARNIX_VALUE_TOOL_STRICT_CONVERSIONS_H
#define VARNIX_VALUE_TOOL_STRICT_CONVERSIONS_H

#include "Strict_rules.h"

#include <varnix/value/Value_converter.h>

#include <string>

namespace Varnix::Value::Tool {

// What a note says of levels of volts and amperes.
inline constexpr char const* Levels_note =
    "a level is 10 log10 here, of volts and amperes too: 20 dBV is 100 V";

// Each of these throws Refusal with a message that names the units and their kinds, also for what
// the library itself refuses. A `note` is something the user should know of; it is left as it is
// where there is nothing to say.

// Prepares the conversion of numbers.
Value_converter<double> Prepare(Units const& from, Units const& to, Rules rules, std::string& note);

// By the relations of volt, ampere, watt and ohm.
Quantity Convert_with(Quantity const& quantity, Units const& to, Quantity const& with, Rules rules,
                      std::string& note);

// The strict rules for a conversion, and for what brings two quantities into one unit.
void Check_conversion(Units const& from, Units const& to, Wording const& what);

// Throws where `result` is infinite or not a number; `input` is what it comes from.
void Require_finite(double result, std::string const& input, Units const& unit);

// The same for number and bounds of `result`, unless the library's rules are asked for.
void Require_finite(Quantity const& result, Wording const& input, Rules rules);

} // namespace Varnix::Value::Tool

#endif
