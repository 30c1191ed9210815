// The units of products, quotients and roots of linear quantities.

#ifndef VARNIX_VALUE_MEASUREMENT_RESULT_UNITS_H
#define VARNIX_VALUE_MEASUREMENT_RESULT_UNITS_H

#include "Refusals.h"

#include <varnix/value/Units.h>

#include <optional>

namespace Varnix::Value::Physics {

// A unit, or why there is none.
struct Result_unit {
    Units unit{};
    std::optional<Refusal> refusal;
};

// The unit of left times right, or of left over right for sign -1. A plain number leaves unit and
// prefix of the other; a reciprocal loses the prefix. Otherwise the prefix is the product of both where that has a
// name and is a power of 1000, the units that had the prefixes are still there, and the unit that is written first
// has the power 1; a dimension on both sides goes
// by the left unit, ratios are counted in, and where both sides are electrical, V^p A^q is written as watts, ohms,
// volts or amperes alone where one of these will do.
Result_unit Unit_of_product(Units const& left, int sign, Units const& right);

// The unit raised to a power, without prefix; for power 1 the unit as it is.
Result_unit Unit_of_power(Units const& unit, int power);

// The unit whose square it is, without prefix.
Result_unit Unit_of_root(Units const& unit);

} // namespace Varnix::Value::Physics

#endif
