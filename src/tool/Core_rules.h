// What the rules of the library's value objects make of quantities, for --by-the-rules: nothing is
// checked but what they refuse themselves.

#ifndef VARNIX_VALUE_TOOL_CORE_RULES_H
#define VARNIX_VALUE_TOOL_CORE_RULES_H

#include "Reports.h"

#include <varnix/value/Value_converter.h>
#include <varnix/value/Value_object.h>

#include <string_view>

namespace Varnix::Value::Tool {

using Quantity = Value_object<double>;

// Each of these throws Refusal with a message that names the units and their kinds.

Value_converter<double> Prepare_by_the_rules(Units const& from, Units const& to);

// By the relations of volt, ampere, watt and ohm.
Quantity Convert_by_the_rules(Quantity const& quantity, Units const& to, Quantity const& with);

// `sign` is "+", "-", "*" or "/".
Quantity Calculate_by_the_rules(Quantity const& left, std::string_view sign, Quantity const& right);

// `sign` is "<", "<=", ">", ">=", "==" or "!=".
bool Compare_by_the_rules(Quantity const& left, std::string_view sign, Quantity const& right);

} // namespace Varnix::Value::Tool

#endif
