// What the unit algebra and the value objects both ask of a descriptor's tuples. Exponents are
// computed in 64 bits, so that every 32-bit number will do; a sum that is stored wraps to 32 bits.

#ifndef VARNIX_VALUE_TUPLES_H
#define VARNIX_VALUE_TUPLES_H

#include <varnix/value/Units.h>

#include <cstdint>

namespace Varnix::Value {

// first + sign * second, wrapped to 32 bits; `sign` is 1 or -1.
inline std::int32_t Combined_exponent(std::int32_t first, std::int32_t sign, std::int32_t second) {
    std::int64_t const sum = std::int64_t{first} + std::int64_t{sign} * std::int64_t{second};
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(sum));
}

// The absolute value, which for the most negative exponent needs more than 32 bits.
inline std::int64_t Exponent_magnitude(std::int32_t exponent) {
    std::int64_t const wide = exponent;
    return wide < 0 ? -wide : wide;
}

// Whether two units differ in power other than by its sign.
inline bool Powers_differ_in_magnitude(Unit_tuple const& first, Unit_tuple const& second) {
    return first.exponent != second.exponent &&
           Exponent_magnitude(first.exponent) != Exponent_magnitude(second.exponent);
}

// Whether the tuples are equal slot by slot, empty slots included.
inline bool Have_equal_tuples(Units const& first, Units const& second) {
    return Value_detail::Difference_of_tuples(first, second) == 0;
}

// Whether no occupied slot follows an empty one.
inline bool Is_packed(Units const& unit) {
    for (std::size_t k = 1; k < Value_detail::Tuple_count; ++k) {
        if (unit.tuples[k].unit != NO_UNIT && unit.tuples[k - 1].unit == NO_UNIT) {
            return false;
        }
    }
    return true;
}

} // namespace Varnix::Value

#endif
