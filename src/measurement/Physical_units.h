// What a unit is to physics: the kind of quantity that it measures, and its size as an exact
// number.
//
// The size is a product of powers of primes and of pi, so that units multiply, divide and cancel
// without rounding; only enclosing arithmetic turns it into numbers. It does not always agree with
// the core's factor, which keeps a mile, a radian and a degree rounded: no enclosure that starts
// from 1609.34 m would contain the mile.

#ifndef VARNIX_VALUE_MEASUREMENT_PHYSICAL_UNITS_H
#define VARNIX_VALUE_MEASUREMENT_PHYSICAL_UNITS_H

#include "catalogue/Kinds.h"
#include "enclosing/Exact_factor.h"

#include <varnix/value/Units.h>

#include <cstddef>

namespace Varnix::Value::Physics {

using Catalogue::Base;
using Catalogue::Kind;

// left times right, or left over right for sign -1.
Kind Combined(Kind left, int sign, Kind const& right);

// The kind of a unit whose codes have rows; prefix and marker do not count.
Kind Kind_of(Units const& unit);

// The kind that decides what converts into what: that of the unit, without the angle of torque times angle,
// which is work. 3000 rpm * 2 N*m is a power, and a radian counts as 1 there. Angles elsewhere stay: rad/s is
// no Hz, W/sr no W.
Kind Comparable_kind(Kind kind);
inline Kind Comparable_kind_of(Units const& unit) {
    return Comparable_kind(Kind_of(unit));
}

// The electrical units that are written in a unit, as powers of volt and ampere: W as V A, ohm as V/A.
struct Electrical_powers {
    int volts = 0;
    int amperes = 0;
    bool with_mass = false; // beside a mass, force, pressure or energy

    bool Are_none() const { return volts == 0 && amperes == 0 && !with_mass; }
};
Electrical_powers Electrical_powers_of(Units const& unit);

// One of the unit in the coherent units of its kind (V, A, m, s, K, rad, ...), its prefix included. A
// temperature counts as a difference.
Exact_factor Size_of(Units const& unit);

// The scale of a prefix.
Exact_factor Size_of(SI_units prefix);

// Whether a prefix code is one that a measurement may have: the catalogue's, none, or another power
// of ten from -40 to 40.
bool Is_known_prefix(SI_units prefix);
bool Is_binary_prefix(SI_units prefix);

} // namespace Varnix::Value::Physics

#endif
