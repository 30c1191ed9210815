// A unit is taken apart into one tuple a dimension, worked on there, and put together in canonical
// order.

#include "Result_units.h"

#include "Physical_units.h"
#include "catalogue/Prefixes.h"
#include "catalogue/Unit_rows.h"

#include <array>
#include <cstdlib>

namespace Varnix::Value::Physics {

namespace {

constexpr std::size_t Slot_count = Catalogue::Dimension_count;
constexpr int Largest_power = 64;

// A tuple for each dimension; NO_UNIT where there is none. The order of the dimensions is
// canonical.
using Slots = std::array<Unit_tuple, Slot_count>;

Slots Taken_apart(Units const& unit) {
    Slots slots{};
    for (Unit_tuple const& tuple : unit.tuples) {
        if (tuple.unit == NO_UNIT) {
            break;
        }
        slots[Catalogue::Place_of(Catalogue::Dimension_of(tuple.unit))] = tuple;
    }
    return slots;
}

Result_unit Put_together(Slots const& slots) {
    Result_unit result;
    std::size_t count = 0;
    for (Unit_tuple const& tuple : slots) {
        if (tuple.unit == NO_UNIT || tuple.exponent == 0) {
            continue;
        }
        if (std::abs(tuple.exponent) > Largest_power) {
            result.refusal = Refusal::exponent_out_of_range;
            return result;
        }
        if (count == Value_detail::Tuple_count) {
            result.refusal = Refusal::too_many_units;
            return result;
        }
        result.unit.tuples[count++] = tuple;
    }
    if (count == 0) {
        result.unit = C_Empty;
    }
    return result;
}

bool Is_ratio(Units_list unit) {
    return unit != NO_UNIT && Catalogue::Row_of(unit).quantity == Catalogue::Quantity::RATIO;
}

bool Is_electrical(std::size_t dimension) {
    return dimension == VOLTAGE || dimension == POWER || dimension == CURRENT ||
           dimension == RESISTANCE;
}

bool Has_electrical(Slots const& slots) {
    for (std::size_t k = 0; k < Slot_count; ++k) {
        if (Is_electrical(k) && slots[k].unit != NO_UNIT) {
            return true;
        }
    }
    return false;
}

// Volts and amperes of these powers, as one unit where one will do.
void Write_electrical(Slots& slots, int volts, int amperes) {
    for (std::size_t k = 0; k < Slot_count; ++k) {
        slots[k] = Is_electrical(k) ? Unit_tuple{} : slots[k];
    }
    if (volts == amperes) {
        slots[POWER] = {WATT, volts};
    } else if (volts == -amperes) {
        slots[RESISTANCE] = {OHM, volts};
    } else {
        slots[VOLTAGE] = {VOLT, volts};
        slots[CURRENT] = {AMP, amperes};
    }
}

void Write_electrical(Slots& slots, Kind const& kind) {
    Write_electrical(slots, kind[Base::voltage], kind[Base::current]);
}

void Drop_ratios(Slots& slots) {
    if (Is_ratio(slots[DIMENSIONLESS].unit)) {
        slots[DIMENSIONLESS] = {};
    }
}

// Why two units of one dimension do not go into one.
Refusal Why_not_joined(Kind const& left, Kind const& right) {
    return left[Base::calendar] != 0 || right[Base::calendar] != 0 ? Refusal::no_fixed_length
                                                                   : Refusal::units_do_not_mix;
}

bool Is_plain(Units const& unit) {
    return unit.tuples[0].unit == NO_UNIT;
}

Units Without_prefix(Units unit) {
    unit.si_prefix = NO_PREFIX;
    return unit;
}

} // namespace

namespace {

// The unit that is written first: of those above the line the first beyond the core, or else the first.
Unit_tuple First_written(Units const& unit) {
    Unit_tuple first{};
    for (Unit_tuple const& tuple : unit.tuples) {
        bool const comes_before =
            first.unit == NO_UNIT ||
            (Catalogue::Is_unit_of_core(first.unit) && !Catalogue::Is_unit_of_core(tuple.unit));
        if (tuple.unit != NO_UNIT && tuple.exponent > 0 && comes_before) {
            first = tuple;
        }
    }
    return first;
}

// Whether the unit that has the prefix of a factor cancels in the product, so that the prefix would go over to a
// unit that had none: 500 km over 450 kn are no kilohours.
bool Cancels_with_prefix(Units const& factor, Slots const& product) {
    Unit_tuple const written = First_written(factor);
    Units_list const carrier = written.unit != NO_UNIT ? written.unit : factor.tuples[0].unit;
    return factor.si_prefix != NO_PREFIX && carrier != NO_UNIT &&
           product[Catalogue::Place_of(Catalogue::Dimension_of(carrier))].exponent == 0;
}

// The prefix of a product: that of both, where it has a name and is a power of 1000.
SI_units Prefix_of_product(SI_units left, int sign, SI_units right) {
    int const power = left + sign * right;
    bool const has_name = !Is_binary_prefix(left) && !Is_binary_prefix(right) && power % 3 == 0 &&
                          Catalogue::Find_prefix(power) != nullptr && !Catalogue::Is_binary(power);
    return has_name ? static_cast<SI_units>(power) : NO_PREFIX;
}

} // namespace

Result_unit Unit_of_product(Units const& left, int sign, Units const& right) {
    Kind const left_kind = Kind_of(left);
    Kind const right_kind = Kind_of(right);
    if (right_kind == Kind() && (!Is_plain(left) || Is_plain(right))) {
        return {left, std::nullopt};
    }
    if (left_kind == Kind() && sign > 0) {
        return {right, std::nullopt};
    }
    Slots slots = Taken_apart(left);
    Slots others = Taken_apart(right);
    Drop_ratios(slots);
    Drop_ratios(others);
    bool const electrical = Has_electrical(slots) && Has_electrical(others);
    for (std::size_t k = 0; k < Slot_count; ++k) {
        slots[k].unit = slots[k].unit == NO_UNIT ? others[k].unit : slots[k].unit;
        slots[k].exponent += sign * others[k].exponent;
    }
    Kind const kind = Combined(left_kind, sign, right_kind);
    bool const keeps_prefix =
        !Is_plain(left) && !Cancels_with_prefix(left, slots) && !Cancels_with_prefix(right, slots);
    if (electrical) {
        Write_electrical(slots, kind);
    }
    Result_unit result = Put_together(slots);
    if (!result.refusal && Kind_of(result.unit) != kind) {
        result.refusal = Why_not_joined(left_kind, right_kind);
    }
    if (keeps_prefix && !result.refusal && First_written(result.unit).exponent == 1) {
        result.unit.si_prefix = Prefix_of_product(left.si_prefix, sign, right.si_prefix);
    }
    return result;
}

Result_unit Unit_of_power(Units const& unit, int power) {
    if (power == 1) {
        return {unit, std::nullopt};
    }
    Slots slots = Taken_apart(unit);
    Drop_ratios(slots);
    for (Unit_tuple& tuple : slots) {
        tuple.exponent *= power;
    }
    return Put_together(slots);
}

Result_unit Unit_of_root(Units const& unit) {
    Slots slots = Taken_apart(unit);
    Drop_ratios(slots);
    auto const all_even = [](Slots const& those) {
        for (Unit_tuple const& tuple : those) {
            if (tuple.exponent % 2 != 0) {
                return false;
            }
        }
        return true;
    };
    if (!all_even(slots) && Has_electrical(slots)) {
        Write_electrical(slots, Kind_of(unit));
    }
    if (!all_even(slots)) {
        return {Without_prefix(unit), Refusal::odd_power};
    }
    for (Unit_tuple& tuple : slots) {
        tuple.exponent /= 2;
    }
    return Put_together(slots);
}

} // namespace Varnix::Value::Physics
