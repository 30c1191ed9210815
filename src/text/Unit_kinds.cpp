// The kinds of units: by their powers whether two are the same, and by their dimensions in words.
//
// Power and resistance are products of voltage and current, so that a power is the same in watts, in
// volts times amperes and in volts squared per ohm. The text undoes this where the result is a power
// or a resistance again.

#include <varnix/value/Unit_kinds.h>

#include "Spellings.h"

#include "catalogue/Unit_rows.h"

#include <varnix/value/Units_library.h>

#include <array>
#include <cstdint>

namespace Varnix::Value {

namespace {

// Whether the slot holds a unit. Throws for a code without a row.
bool Holds_unit(Unit_tuple const& tuple) {
    if (tuple.unit == NO_UNIT) {
        return false;
    }
    if (!Catalogue::Is_unit(tuple.unit)) {
        static_cast<void>(Units_library::Get_dimension(tuple.unit)); // throws
    }
    return true;
}

// In neither view.
Catalogue::Wide_kind Kind_of(Units const& unit) {
    Catalogue::Wide_kind kind;
    for (Unit_tuple const& tuple : unit.tuples) {
        if (Holds_unit(tuple)) {
            Catalogue::Unit_row const& row = Catalogue::Row_of(tuple.unit);
            Catalogue::Multiply(kind, Catalogue::Row_of(row.quantity).kind, tuple.exponent);
        }
    }
    return kind;
}

// ---- In words

// The power of each dimension. Exponents are 32-bit, so that sums of them fit.
struct Dimension_powers {
    std::array<std::int64_t, Catalogue::Dimension_count> powers{};

    std::int64_t& operator[](Dimension dimension) { return powers[Catalogue::Place_of(dimension)]; }
    std::int64_t operator[](Dimension dimension) const {
        return powers[Catalogue::Place_of(dimension)];
    }
};

// Voltage and current of equal or opposite powers are powers or resistances.
void Give_electrical_names(Dimension_powers& powers) {
    std::int64_t const voltage = powers[VOLTAGE] + powers[POWER] + powers[RESISTANCE];
    std::int64_t const current = powers[CURRENT] + powers[POWER] - powers[RESISTANCE];
    powers[POWER] = voltage == current ? voltage : 0;
    powers[RESISTANCE] = voltage == -current ? voltage : 0;
    bool const is_named = powers[POWER] != 0 || powers[RESISTANCE] != 0;
    powers[VOLTAGE] = is_named ? 0 : voltage;
    powers[CURRENT] = is_named ? 0 : current;
}

Dimension_powers Dimension_powers_of(Units const& unit) {
    Dimension_powers powers;
    for (Unit_tuple const& tuple : unit.tuples) {
        if (Holds_unit(tuple)) {
            powers[Catalogue::Dimension_of(tuple.unit)] += tuple.exponent;
        }
    }
    Give_electrical_names(powers);
    return powers;
}

bool Has_angle(Units const& unit) {
    for (Unit_tuple const& tuple : unit.tuples) {
        if (tuple.unit != NO_UNIT &&
            Catalogue::Row_of(tuple.unit).quantity == Catalogue::Quantity::ANGLE) {
            return true;
        }
    }
    return false;
}

// The first row of a dimension has its usual name.
char const* Name_of(Dimension dimension, Units const& unit) {
    if (dimension == DIMENSIONLESS && Has_angle(unit)) {
        return Catalogue::Row_of(Catalogue::Quantity::ANGLE).name;
    }
    for (Catalogue::Quantity_row const& row : Catalogue::quantity_rows) {
        if (row.dimension == dimension) {
            return row.name;
        }
    }
    return "";
}

// The dimensions in the order in which their units are written: those beyond the core first.
std::array<Dimension, Catalogue::Dimension_count> Dimensions_as_written() {
    constexpr int beyond = Catalogue::Dimension_count - Value_detail::Dimension_limit;
    std::array<Dimension, Catalogue::Dimension_count> dimensions{};
    for (int k = 0; k < Catalogue::Dimension_count; ++k) {
        dimensions[static_cast<std::size_t>(k)] =
            static_cast<Dimension>(k < beyond ? FORCE + k : k - beyond);
    }
    return dimensions;
}

// The dimensions with a power of the sign `sign`, as a product.
std::string Product_text(Dimension_powers const& powers, int sign, Units const& unit, int& count) {
    std::string text;
    for (Dimension const dimension : Dimensions_as_written()) {
        std::int64_t const power = sign * powers[dimension];
        if (power > 0) {
            text += (count == 0 ? "" : "*") + std::string(Name_of(dimension, unit));
            text += power == 1 ? "" : '^' + std::to_string(power);
            ++count;
        }
    }
    return text;
}

} // namespace

namespace {

// Decibels without a unit are a gain, as nepers are.
Catalogue::Wide_kind Physical_kind_of(Units const& unit) {
    bool const is_gain = unit.spl_conv == SPL_DB && unit.tuples[0].unit == NO_UNIT;
    Catalogue::Wide_kind kind = Catalogue::As_physics_has_it(Kind_of(unit));
    kind[Catalogue::Base::gain] += is_gain ? 1 : 0;
    return kind;
}

} // namespace

bool Same_kind(Units const& first, Units const& second) {
    return Is_of_core(first) && Is_of_core(second)
               ? Catalogue::As_the_core_has_it(Kind_of(first)) ==
                     Catalogue::As_the_core_has_it(Kind_of(second))
               : Physical_kind_of(first) == Physical_kind_of(second);
}

std::string Kind_name(Units const& unit) {
    Dimension_powers const powers = Dimension_powers_of(unit);
    int above = 0;
    int below = 0;
    std::string numerator = Product_text(powers, 1, unit, above);
    std::string const denominator = Product_text(powers, -1, unit, below);
    if (above == 0 && below == 0) {
        return unit.spl_conv == SPL_DB ? "plain ratio" : "plain number";
    }
    if (below == 0) {
        return numerator;
    }
    return (above == 0 ? "1" : numerator) + '/' +
           (below == 1 ? denominator : '(' + denominator + ')');
}

} // namespace Varnix::Value
