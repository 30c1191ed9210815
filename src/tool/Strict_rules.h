// What the tool does with quantities is what the library does, with what would change the physical
// kind refused; and the words in which it is.
//
// The library's rules let some units pass that differ in kind (a slot that is empty on one side is
// ignored, volts are relabelled as watts). A program that knows its units may count on them; a text
// typed by a person is more likely to be a mistake. Rules::as_the_library skips all of it.

#ifndef VARNIX_VALUE_TOOL_STRICT_RULES_H
#define VARNIX_VALUE_TOOL_STRICT_RULES_H

#include "Reports.h"

#include <varnix/value/Units.h>
#include <varnix/value/Value_object.h>
#include <varnix/value/exceptions.h>

#include <functional>
#include <stdexcept>
#include <string>

namespace Varnix::Value::Tool {

using Quantity = Value_object<double>;

enum class Rules { strict, as_the_library };

// What is asked for, in words that are composed only where it is refused.
using Wording = std::function<std::string()>;

// "km/h (length/time)".
std::string Described(Units const& unit);

// Refuses what is asked for, with the option that skips the check.
[[noreturn]] void Refuse(Wording const& what, std::string const& reason);

// What the library says of a failure, without the names of its exception classes.
std::string Reason(std::exception const& failure);

// Runs `action`; what the library throws becomes a refusal that starts with `what`.
template <typename Action>
auto Telling(Wording const& what, Action const& action) {
    try {
        return action();
    } catch (Value_exception const& failure) {
        throw Refusal(what() + ": the library has no rule for it (" + Reason(failure) + ')');
    } catch (std::out_of_range const&) {
        throw Refusal(what() + ": the result is infinite or not a number");
    }
}

} // namespace Varnix::Value::Tool

#endif
