// What the tool does with quantities: conversions and operations as the library has them, with
// what would change the physical kind refused.
//
// The library's rules let some units pass that differ in kind (a slot that is empty on one side is
// ignored, volts are relabelled as watts). A program that knows its units may count on them; a text
// typed by a person is more likely to be a mistake. Rules::as_the_library skips all of it.

#ifndef VARNIX_VALUE_TOOL_STRICT_RULES_H
#define VARNIX_VALUE_TOOL_STRICT_RULES_H

#include <varnix/value/Units.h>
#include <varnix/value/Value_converter.h>
#include <varnix/value/Value_object.h>

#include <string>

namespace Varnix::Value::Tool {

using Quantity = Value_object<double>;

enum class Rules { strict, as_the_library };

enum class Operation {
    sum,
    difference,
    product,
    quotient,
    less,
    less_or_equal,
    greater,
    greater_or_equal,
    equal,
    not_equal,
};

// Each of these throws Refusal with a message that names the units and their kinds, also for what
// the library itself refuses. A `note` is something the user should know of; it is left as it is
// where there is nothing to say.

// Prepares the conversion of numbers.
Value_converter<double> Prepare(Units const& from, Units const& to, Rules rules, std::string& note);

// By the relations of volt, ampere, watt and ohm.
Quantity Convert_with(Quantity const& quantity, Units const& to, Quantity const& with, Rules rules,
                      std::string& note);

// Sum, difference, product or quotient.
Quantity Calculate(Quantity const& left, Operation operation, Quantity const& right, Rules rules,
                   std::string& note);

// The other operations.
bool Compare(Quantity const& left, Operation operation, Quantity const& right, Rules rules);

// Throws where `result` is infinite or not a number; `input` is what it comes from.
void Require_finite(double result, std::string const& input, Units const& unit);

// The same for number and bounds of `result`, unless the library's rules are asked for.
void Require_finite(Quantity const& result, Quantity const& input, Rules rules);

} // namespace Varnix::Value::Tool

#endif
