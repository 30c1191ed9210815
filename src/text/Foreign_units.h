// Well-known units that are not in the catalogue, and other words that people write for units.

#ifndef VARNIX_VALUE_TEXT_FOREIGN_UNITS_H
#define VARNIX_VALUE_TEXT_FOREIGN_UNITS_H

#include <optional>
#include <string>
#include <string_view>

namespace Varnix::Value {

// The message for a well-known unit that the catalogue does not have: what it measures, and what to
// write where there is a way. "mH" and "kPa" are known with their prefixes.
std::optional<std::string> Foreign_unit_message(std::string_view word);

// The unit that is meant by a text not near to it, "NM" for the nautical mile; or empty.
std::string Unit_by_another_name(std::string_view word);

} // namespace Varnix::Value

#endif
