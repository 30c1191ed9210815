// What conversions ask of the catalogue for every number, laid out for it: one entry a unit code.
// It is derived from the catalogue while the library loads, and says nothing of its own.

#ifndef VARNIX_VALUE_UNIT_FACTS_H
#define VARNIX_VALUE_UNIT_FACTS_H

#include <varnix/value/Units.h>
#include <varnix/value/exceptions.h>

#include <array>
#include <cstddef>
#include <cstdint>

namespace Varnix::Value {

struct Unit_facts {
    Dimension dimension;
    bool known;              // false for a code without a catalogue row
    double scale;            // of one unit in the reference unit of its dimension
    double reciprocal_scale; // 1.0 / scale, as it rounds
};

// One entry for each code from NO_UNIT to the highest.
using Unit_facts_table = std::array<Unit_facts, SYMBOL + 1>;

[[gnu::visibility("hidden")]] extern Unit_facts_table const unit_facts;

// The facts of `unit`, or nullptr if it has no row.
inline Unit_facts const* Find_facts(Units_list unit) {
    auto const index = static_cast<std::uint32_t>(unit); // a negative code becomes a large one
    return index < unit_facts.size() && unit_facts[index].known ? &unit_facts[index] : nullptr;
}

inline Unit_facts const& Require_facts(Units_list unit) {
    Unit_facts const* const facts = Find_facts(unit);
    if (facts == nullptr) {
        throw UnitNotDefined();
    }
    return *facts;
}

inline Dimension Dimension_of(Units_list unit) {
    return unit == NO_UNIT ? NO_DIMENSION : Require_facts(unit).dimension;
}

// Whether `unit` is in canonical order: what arranging would leave as it is. Unknown codes are not.
inline bool Is_canonical(Units const& unit) {
    Dimension last = NO_DIMENSION;
    std::size_t k = 0;
    for (; k < Tuple_count && unit.tuples[k].unit != NO_UNIT; ++k) {
        Unit_facts const* const facts = Find_facts(unit.tuples[k].unit);
        if (facts == nullptr || facts->dimension <= last) {
            return false;
        }
        last = facts->dimension;
    }
    for (; k < Tuple_count; ++k) {
        if (unit.tuples[k].unit != NO_UNIT) {
            return false;
        }
    }
    return true;
}

// The scale of a prefix, radix^exponent, or for the sign -1 its reciprocal, radix^-exponent; the
// radix is 2 for a binary prefix and otherwise 10.
double Prefix_scale(SI_units prefix, int sign = 1);

} // namespace Varnix::Value

#endif
