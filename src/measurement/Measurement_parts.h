// The way into a measurement for the sources that make them.

#ifndef VARNIX_VALUE_MEASUREMENT_MEASUREMENT_PARTS_H
#define VARNIX_VALUE_MEASUREMENT_MEASUREMENT_PARTS_H

#include <varnix/value/Measurement.h>

#include <cstdint>

namespace Varnix::Value {

struct Measurement_parts {
    // Numbers that are known to be in order, in a unit that is known to be valid. Zero has no sign.
    // The code says which decimals they stand for, or is 0.
    static Measurement Made(double value, double lower, double upper, Units const& unit,
                            bool is_difference, std::int32_t decimal_code = 0) {
        Measurement made;
        made.value = value + 0.0;
        made.lower = lower + 0.0;
        made.upper = upper + 0.0;
        made.unit = unit;
        made.difference = is_difference;
        made.decimal_code = decimal_code;
        return made;
    }

    static Units const& Unit_of(Measurement const& x) { return x.unit; }
};

} // namespace Varnix::Value

#endif
