// Words that people write for units, and that are refused with a reason, or go by another name here.

#ifndef VARNIX_VALUE_TEXT_FOREIGN_UNITS_H
#define VARNIX_VALUE_TEXT_FOREIGN_UNITS_H

#include <optional>
#include <string>
#include <string_view>

namespace Varnix::Value {

// Why a well-known word is no unit here, and what to write where there is a way: "ton", "mVrms".
std::optional<std::string> Foreign_unit_message(std::string_view word);

// The unit that is meant by a text not near to it, "NM" for the nautical mile; or empty.
std::string Unit_by_another_name(std::string_view word);

} // namespace Varnix::Value

#endif
