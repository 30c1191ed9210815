// What a unit is to physics: the kind of quantity that it measures, and its size as an exact
// number.
//
// The size is a product of powers of a few primes and of pi, so that units multiply, divide and
// cancel without rounding; only Enclosing arithmetic turns it into numbers. It does not always
// agree with the catalogue, which keeps a mile, a radian and a degree rounded: no enclosure that
// starts from 1609.34 m would contain the mile.

#ifndef VARNIX_VALUE_MEASUREMENT_PHYSICAL_UNITS_H
#define VARNIX_VALUE_MEASUREMENT_PHYSICAL_UNITS_H

#include "enclosing/Exact_factor.h"

#include <varnix/value/Units.h>

#include <array>
#include <cstddef>
#include <cstdint>

namespace Varnix::Value::Physics {

// What quantities are measured in. Power is voltage times current and resistance voltage over
// current; ratios are plain numbers and have none.
enum class Base : std::size_t {
    voltage,     // V
    current,     // A
    mass,        // g
    length,      // m
    temperature, // K, as a difference
    time,        // s
    calendar,    // months, which have no fixed length in days
    data,        // bits
    angle,       // revolutions
    symbols,     // sym
};

// A kind of quantity: the powers of what it is measured in. There is room for sixteen, so that
// compilers take eight of them in one step.
struct Kind {
    std::array<std::int16_t, 16> powers{};

    std::int16_t& operator[](Base base) { return powers[static_cast<std::size_t>(base)]; }
    int operator[](Base base) const { return powers[static_cast<std::size_t>(base)]; }

    friend bool operator==(Kind const& first, Kind const& second) {
        return first.powers == second.powers;
    }
    friend bool operator!=(Kind const& first, Kind const& second) { return !(first == second); }
};

// left times right, or left over right for sign -1.
Kind Combined(Kind left, int sign, Kind const& right);

// The dimension that the catalogue has for a unit.
Dimension Dimension_of(Units_list unit);

// The kind of a unit whose codes are in the catalogue; prefix and marker do not count.
Kind Kind_of(Units const& unit);

// One of the unit in volts, amperes, grams ... of its kind, its prefix included. A temperature
// counts as a difference.
Exact_factor Size_of(Units const& unit);

// The scale of a prefix.
Exact_factor Size_of(SI_units prefix);

// Whether a prefix code is one that a measurement may have: the catalogue's, none, or another power
// of ten from -40 to 40.
bool Is_known_prefix(SI_units prefix);
bool Is_binary_prefix(SI_units prefix);

} // namespace Varnix::Value::Physics

#endif
