// Operations on two quantities as the library has them, without those that change the physical
// kind.

#ifndef VARNIX_VALUE_TOOL_STRICT_OPERATIONS_H
#define VARNIX_VALUE_TOOL_STRICT_OPERATIONS_H

#include "Strict_rules.h"

#include <string>

namespace Varnix::Value::Tool {

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

// Both throw Refusal with a message that names the units and their kinds, also for what the library
// itself refuses.

// Sum, difference, product or quotient. A `note` is something the user should know of; it is left
// as it is where there is nothing to say.
Quantity Calculate(Quantity const& left, Operation operation, Quantity const& right, Rules rules,
                   std::string& note);

// The other operations.
bool Compare(Quantity const& left, Operation operation, Quantity const& right, Rules rules);

} // namespace Varnix::Value::Tool

#endif
