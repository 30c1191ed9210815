// Units beyond the core where values of the core are read.

#ifndef VARNIX_VALUE_TEXT_CORE_UNITS_H
#define VARNIX_VALUE_TEXT_CORE_UNITS_H

#include <varnix/value/Text_parsing.h>

#include <optional>

namespace Varnix::Value {

// Why a value of the core cannot have the unit, which stands at `position`, and what to write in the core's
// units where that is the same; nothing if it can.
std::optional<Text_fault> Beyond_core_fault(Units const& unit, std::size_t position);

} // namespace Varnix::Value

#endif
