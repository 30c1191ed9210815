// What the reader of units has read so far: powers of units, and of ten and two. Only the end
// decides whether that is a descriptor.

#ifndef VARNIX_VALUE_TEXT_UNIT_PRODUCT_H
#define VARNIX_VALUE_TEXT_UNIT_PRODUCT_H

#include "catalogue/Prefixes.h"
#include "catalogue/Unit_rows.h"

#include <varnix/value/Text_parsing.h>
#include <varnix/value/Units.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace Varnix::Value {

// The powers of ten that a descriptor holds, above and below.
constexpr std::int64_t Largest_scale = 40;

struct Factor {
    Units_list unit;
    std::int64_t power;
    std::size_t position; // where the unit first stands
};

class Unit_product {
  public:
    // No sum overflows: a text has less than 2^16 factors of powers up to 2^31.
    void Multiply(Factor const& factor) {
        auto const last = factors.begin() + count;
        auto const same = std::find_if(factors.begin(), last,
                                       [&](Factor const& own) { return own.unit == factor.unit; });
        if (same == last) {
            factors[static_cast<std::size_t>(count++)] = factor;
            return;
        }
        if ((same->power < 0) != (factor.power < 0) && !cancelling) {
            cancelling = factor;
        }
        same->power += factor.power;
    }

    void Multiply(SI_units prefix, std::int64_t power, std::size_t position) {
        if (prefix != NO_PREFIX) {
            (Catalogue::Is_binary(prefix) ? twos : tens) += prefix * power;
            prefix_position = position;
        }
    }

    void Multiply(Unit_product const& other, std::int64_t power);
    void Multiply_by_power_of_ten(std::int64_t power, std::size_t position);

    // Whether every power is one that can be written, so that it can be multiplied again.
    bool Is_in_range() const;

    // Whether the unit stands above the line.
    bool Has_above(Units_list unit) const;

    // The descriptor, in canonical order; or why there is none, and what to write instead.
    Parse_result<Units> Descriptor(Special_conversion marker) const;

  private:
    Factor const* begin() const { return factors.data(); }
    Factor const* end() const { return factors.data() + count; }

    std::optional<Text_fault> Place_units(Units& unit) const;
    bool Holds_scale() const;
    Text_fault Cancelling_fault() const;
    Text_fault Scale_fault(Units const& unit) const;
    std::string Remaining_text() const;

    std::array<Factor, Catalogue::Unit_count> factors; // of each unit one at most
    int count = 0;
    std::int64_t tens = 0; // the exponents of the prefixes
    std::int64_t twos = 0;
    std::size_t prefix_position = 0;
    std::optional<Factor> cancelling; // the first unit to stand above and below, where it does so
};

} // namespace Varnix::Value

#endif
