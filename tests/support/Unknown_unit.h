// The one name of a code that the catalogue does not have, whichever units it has got.

#ifndef VARNIX_VALUE_TESTS_UNKNOWN_UNIT_H
#define VARNIX_VALUE_TESTS_UNKNOWN_UNIT_H

#include <varnix/value/Units.h>

namespace Varnix::Value::Tests {

constexpr Units_list unknown_unit = static_cast<Units_list>(Value_detail::Unit_code_limit);

} // namespace Varnix::Value::Tests

#endif
