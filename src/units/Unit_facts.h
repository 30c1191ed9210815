// What conversions ask of the catalogue for every number, laid out for it: one entry a unit code.
// It is derived from the catalogue while the library loads, and says nothing of its own.

#ifndef VARNIX_VALUE_UNIT_FACTS_H
#define VARNIX_VALUE_UNIT_FACTS_H

#include "errors/Throw.h"
#include "units/Tuples.h"

#include <varnix/value/Units.h>
#include <varnix/value/exceptions.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace Varnix::Value {

// Sets of dimensions, a bit for each.
using Dimension_set = std::uint32_t;
static_assert(Value_detail::Dimension_limit <= 31,
              "a set of all dimensions has a bit left, for Not_canonical");

constexpr Dimension_set Set_of(Dimension dimension) {
    return Dimension_set{1} << static_cast<std::uint32_t>(dimension);
}

struct Unit_facts {
    Dimension_set dimension_set; // that of the unit alone; empty for a code without a catalogue row
    Dimension dimension;
    double scale;            // of one unit in the reference unit of its dimension
    double reciprocal_scale; // 1.0 / scale, as it rounds
};

// One entry for each code from NO_UNIT to the highest.
using Unit_facts_table = std::array<Unit_facts, Value_detail::Unit_code_limit>;

[[gnu::visibility("hidden")]] extern Unit_facts_table const unit_facts;

// The facts of `unit`; those of a code without a row are those of NO_UNIT, which has none.
inline Unit_facts const& Facts_of(Units_list unit) {
    auto const index = static_cast<std::uint32_t>(unit); // a negative code becomes a large one
    return unit_facts[index < unit_facts.size() ? index : 0];
}

inline Unit_facts const& Require_facts(Units_list unit) {
    Unit_facts const& facts = Facts_of(unit);
    if (facts.dimension_set == 0) {
        Throw<UnitNotDefined>();
    }
    return facts;
}

inline Dimension Dimension_of(Units_list unit) {
    return unit == NO_UNIT ? NO_DIMENSION : Require_facts(unit).dimension;
}

// How many dimensions a set has. Of a unit in canonical order, those below its own tell a tuple's
// slot.
inline std::size_t Count_of(Dimension_set set) {
    std::size_t count = 0;
    for (; set != 0; set &= set - 1) {
        ++count;
    }
    return count;
}

// What is returned for a unit that is not in canonical order.
constexpr Dimension_set Not_canonical = ~Dimension_set{0};

// The dimensions of a unit in canonical order, which arranging leaves as it is; Not_canonical for
// any other. Unknown codes are not in order.
[[gnu::noinline]] inline Dimension_set Canonical_dimensions(Units const& unit) {
    Dimension_set dimensions = 0;
    bool at_end = false;
#pragma GCC unroll 5
    for (std::size_t k = 0; k < Value_detail::Tuple_count; ++k) {
        Units_list const code = unit.tuples[k].unit;
        if (code == NO_UNIT) {
            at_end = true;
            continue;
        }
        Dimension_set const own = Facts_of(code).dimension_set;
        if (at_end || own <= dimensions) { // not beyond all before it, or unknown
            return Not_canonical;
        }
        dimensions |= own;
    }
    return dimensions;
}

// ---- Factors. Units_library's functions of these names say what they are.

// The size of one of the unit, or of its reciprocal for a negative power.
inline double Scale(Unit_facts const& facts, std::int32_t exponent) {
    return exponent < 0 ? facts.reciprocal_scale : facts.scale;
}

// from / to. Most conversions are into a reference unit, and a division by 1.0 changes nothing.
inline double Ratio(double from, double to) {
    return to == 1.0 ? from : from / to;
}

// base^power. The two powers that almost all units have need no pow, which gives them exactly.
inline double Power(double base, std::int64_t power) {
    return power == 1 ? base : power == 0 ? 1.0 : std::pow(base, static_cast<double>(power));
}

// What one of the first unit is worth in the second, raised to the power of `to`. No factor of the
// catalogue is zero, so that the ratio is finite; it is looked at all the same.
inline double Factor_between(Unit_facts const& from_facts, std::int32_t from_exponent,
                             Unit_facts const& to_facts, std::int32_t to_exponent) {
    double const ratio = Ratio(Scale(from_facts, from_exponent), Scale(to_facts, to_exponent));
    if (!std::isfinite(ratio)) {
        Throw_out_of_range(); // GCOV_EXCL_LINE
    }
    return Power(ratio, Exponent_magnitude(to_exponent));
}

// The product of the factors of the slots before and of the next. A factor of almost one is
// rounding from the slots before, and is dropped.
inline double Combined_factor(double before, double next) {
    return std::fabs(before - 1.0) < 1e-10 ? next : before * next;
}

// ---- Prefixes

// The scales of the prefixes from PICO to YOBI, computed once, and their reciprocals.
struct Prefix_scales {
    std::array<double, YOBI - PICO + 1> scales;
    std::array<double, YOBI - PICO + 1> reciprocal_scales;
};

[[gnu::visibility("hidden")]] extern Prefix_scales const prefix_scales;

// radix^(sign * exponent); the radix is 2 for a binary prefix and otherwise 10.
double Compute_prefix_scale(SI_units prefix, int sign);

// The entry of a prefix, which may be any 32-bit code, or what it computes to.
inline double Find_prefix_scale(std::array<double, YOBI - PICO + 1> const& scales, SI_units prefix,
                                int sign) {
    if (prefix == NO_PREFIX) {
        return 1.0;
    }
    auto const index = static_cast<std::uint32_t>(std::int64_t{prefix} - PICO);
    return index < scales.size() ? scales[index] : Compute_prefix_scale(prefix, sign);
}

// The scale of the prefix of a source.
inline double Prefix_scale(SI_units prefix) {
    return Find_prefix_scale(prefix_scales.scales, prefix, 1);
}

// The reciprocal scale of the prefix of a target.
inline double Reciprocal_prefix_scale(SI_units prefix) {
    return Find_prefix_scale(prefix_scales.reciprocal_scales, prefix, -1);
}

} // namespace Varnix::Value

#endif
