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

// "cannot OPERATION: REASON; WAY OUT", with the way out that is usual for the reason.
[[noreturn]] void Refuse(Refusal reason, std::string const& operation);
[[noreturn]] void Refuse(Refusal reason, std::string const& operation, Way_out way_out);

// The same for the usual forms, with the way out for these operands: "add X and Y", "VERB X",
// "convert FROM to U".
[[noreturn]] void Refuse(Refusal reason, char const* verb, Measurement const& x,
                         char const* conjunction, Measurement const& y);
[[noreturn]] void Refuse(Refusal reason, char const* verb, Measurement const& x);
[[noreturn]] void Refuse_conversion(Refusal reason, std::string const& from_text, Units const& from,
                                    Units const& to);

} // namespace Varnix::Value::Physics

#endif
