// Refusals, and the words of their messages. Composing a message is the one thing that allocates.

#ifndef VARNIX_VALUE_MEASUREMENT_REFUSALS_H
#define VARNIX_VALUE_MEASUREMENT_REFUSALS_H

#include <varnix/value/Measurement.h>

#include <string>

namespace Varnix::Value::Physics {

// "10 dBm (power)", "5 m [4, 6] (length)", "3 (plain number)".
std::string Described(Measurement const& x);
std::string Described(double value, double lower, double upper, Units const& unit);

// "km/h (length/time)".
std::string Described(Units const& unit);

// "WHAT: WHY; WAY OUT", where why and way out follow from the reason.
[[noreturn]] void Refuse(Refusal reason, std::string const& what);

// The same for the usual forms: "cannot add X and Y", "cannot convert X to U", "cannot VERB X".
[[noreturn]] void Refuse(Refusal reason, char const* verb, Measurement const& x,
                         char const* conjunction, Measurement const& y);
[[noreturn]] void Refuse(Refusal reason, char const* verb, Measurement const& x,
                         char const* conjunction, Units const& unit);
[[noreturn]] void Refuse(Refusal reason, char const* verb, Units const& first,
                         char const* conjunction, Units const& second);
[[noreturn]] void Refuse(Refusal reason, char const* verb, Measurement const& x);

} // namespace Varnix::Value::Physics

#endif
