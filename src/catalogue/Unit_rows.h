// All units, the core's and those beyond: what they measure, how large they are, and which prefixes they take.

#ifndef VARNIX_VALUE_CATALOGUE_UNIT_ROWS_H
#define VARNIX_VALUE_CATALOGUE_UNIT_ROWS_H

#include "catalogue/Quantities.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>

namespace Varnix::Value::Catalogue {

// Which prefixes are read before a unit, and whether one is chosen for it where texts are to have one.
enum class Prefixes_taken : std::uint8_t {
    none,
    usual,        // those of the core: "kft"; others would make "ah" of an ampere hour attohours
    any,          // all of SI
    chosen,       // all of SI; and chosen in steps of 1000
    chosen_usual, // those of the core; and chosen in steps of 1000
};

// In the order of reading, whatever room that takes.
struct Unit_row { // NOLINT(clang-analyzer-optin.performance.Padding)
    Units_list unit;
    Quantity quantity;
    char const*
        size; // in the coherent unit of the quantity; see <varnix/value/Engineering_units.def>
    Prefixes_taken prefixes;
};

inline constexpr Unit_row unit_rows[] = {
#define VARNIX_VALUE_CORE_UNIT(constant, factor, dimension, base, symbol, name, lower, upper,      \
                               by_formula, quantity, size, characters, symbols, names, suffixes,   \
                               prefixes, source)                                                   \
    {constant, Quantity::quantity, size, Prefixes_taken::prefixes},
#include "catalogue/core_units.def"
#define VARNIX_VALUE_UNIT(code, constant, quantity, size, symbol, name, symbols, names, suffix,    \
                          prefixes, source)                                                        \
    {constant, Quantity::quantity, size, Prefixes_taken::prefixes},
#include <varnix/value/Engineering_units.def>
};

constexpr std::size_t Unit_count = std::size(unit_rows);
constexpr std::size_t Core_unit_count = Value_detail::Unit_code_limit - 1;
constexpr int First_code_beyond_core = 1001;

// The places of the core's units, by their codes.
struct Core_places {
    std::array<std::uint8_t, Value_detail::Unit_code_limit> of_codes{};
};

constexpr Core_places Made_core_places() {
    Core_places places;
    for (std::size_t k = 0; k < Core_unit_count; ++k) {
        places.of_codes[static_cast<std::size_t>(unit_rows[k].unit)] = static_cast<std::uint8_t>(k);
    }
    return places;
}

inline constexpr Core_places core_places = Made_core_places();

// The place of a unit in the table; Unit_count for a code without a row.
constexpr std::size_t Place_of(Units_list unit) {
    int const code = unit;
    if (code > 0 && code < Value_detail::Unit_code_limit) {
        return core_places.of_codes[static_cast<std::size_t>(code)];
    }
    bool const beyond =
        code >= First_code_beyond_core &&
        code < First_code_beyond_core + static_cast<int>(Unit_count - Core_unit_count);
    return beyond ? static_cast<std::size_t>(code - First_code_beyond_core) + Core_unit_count
                  : Unit_count;
}

constexpr bool Have_their_places() {
    for (std::size_t k = 0; k < Unit_count; ++k) {
        if (Place_of(unit_rows[k].unit) != k) {
            return false;
        }
    }
    return true;
}
static_assert(Have_their_places(),
              "every unit has one row, those beyond the core in the order of their codes");

constexpr bool Is_unit(Units_list unit) {
    return Place_of(unit) < Unit_count;
}

constexpr bool Is_unit_of_core(Units_list unit) {
    return Place_of(unit) < Core_unit_count;
}

// The row of a unit that has one.
constexpr Unit_row const& Row_of(Units_list unit) {
    return unit_rows[Place_of(unit)];
}

constexpr Dimension Dimension_of(Units_list unit) {
    return Row_of(Row_of(unit).quantity).dimension;
}

} // namespace Varnix::Value::Catalogue

#endif
