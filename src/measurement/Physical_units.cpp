// The rows of the catalogue as kinds and exact factors, made at compile time.

#include "Physical_units.h"

#include "catalogue/Prefixes.h"
#include "catalogue/Sizes.h"

namespace Varnix::Value::Physics {

constexpr Prime_numbers made_primes = Catalogue::Primes_of_all_sizes();
Prime_numbers const primes = made_primes;

namespace {

// ---- Tables by the places of quantities and units

template <typename Element, std::size_t Count>
struct Table {
    std::array<Element, Count> elements{};
};

constexpr auto Made_kinds() {
    Table<Kind, std::size(Catalogue::quantity_rows)> made;
    for (std::size_t k = 0; k < made.elements.size(); ++k) {
        made.elements[k] = Catalogue::As_physics_has_it(Catalogue::quantity_rows[k].kind);
    }
    return made;
}

constexpr void Multiply(Exact_factor& factor, std::uint64_t number, int sign) {
    for (std::size_t k = 0; k < made_primes.count; ++k) {
        for (; number % made_primes.numbers[k] == 0; number /= made_primes.numbers[k]) {
            factor.powers[k] = static_cast<std::int16_t>(factor.powers[k] + sign);
        }
    }
}

constexpr Exact_factor Factored(Catalogue::Size const& size) {
    Exact_factor factor = Powers_of_ten(size.tens);
    Multiply(factor, size.above, 1);
    Multiply(factor, size.below, -1);
    factor.powers[Exact_factor::Place_of_pi] = static_cast<std::int16_t>(size.pi);
    factor.powers[Exact_factor::Place_of_ln10] = static_cast<std::int16_t>(size.ln10);
    return factor;
}

constexpr auto Made_sizes() {
    Table<Exact_factor, Catalogue::Unit_count> made;
    for (std::size_t k = 0; k < made.elements.size(); ++k) {
        made.elements[k] = Factored(Catalogue::Read_size(Catalogue::unit_rows[k].size));
    }
    return made;
}

constexpr auto kinds = Made_kinds();
constexpr auto sizes = Made_sizes();

Catalogue::Quantity Quantity_of(Units_list unit) {
    return Catalogue::Row_of(unit).quantity;
}

Kind const& Kind_of(Catalogue::Quantity quantity) {
    return kinds.elements[static_cast<std::size_t>(quantity)];
}

Exact_factor const& Size_of(Units_list unit) {
    return sizes.elements[Catalogue::Place_of(unit)];
}

} // namespace

// ---- Kinds

Kind Kind_of(Units const& unit) {
    Kind kind;
    for (Unit_tuple const& tuple : unit.tuples) {
        if (tuple.unit == NO_UNIT) {
            break;
        }
        Multiply(kind, Kind_of(Quantity_of(tuple.unit)), tuple.exponent);
    }
    return kind;
}

Kind Combined(Kind left, int sign, Kind const& right) {
    Multiply(left, right, sign);
    return left;
}

Kind Comparable_kind(Kind kind) {
    Kind const& given = kind;
    if (given[Base::angle] == 1 && given[Base::voltage] == 1 && given[Base::current] == 1) {
        kind[Base::angle] = 0;
    }
    return kind;
}

namespace {

// Mass, and what is made of masses: force, pressure, energy and the like, volts times amperes times a power of
// time. They have no convention for decibels, though volts and amperes are in their kinds.
bool Is_made_of_masses(Catalogue::Quantity quantity) {
    Kind const& kind = Kind_of(quantity);
    return kind[Base::voltage] != 0 && kind[Base::voltage] == kind[Base::current] &&
           kind[Base::time] != 0;
}

} // namespace

Electrical_powers Electrical_powers_of(Units const& unit) {
    Electrical_powers powers;
    for (Unit_tuple const& tuple : unit.tuples) {
        if (tuple.unit == NO_UNIT) {
            break;
        }
        Catalogue::Quantity const quantity = Quantity_of(tuple.unit);
        if (Is_made_of_masses(quantity)) {
            powers.with_mass = true;
            continue;
        }
        Kind const& kind = Kind_of(quantity);
        powers.volts += kind[Base::voltage] * tuple.exponent;
        powers.amperes += kind[Base::current] * tuple.exponent;
    }
    return powers;
}

// ---- Sizes

Exact_factor Size_of(Units const& unit) {
    Exact_factor size = unit.si_prefix == NO_PREFIX ? Exact_factor() : Size_of(unit.si_prefix);
    for (Unit_tuple const& tuple : unit.tuples) {
        if (tuple.unit == NO_UNIT) {
            break;
        }
        size = size * Power(Size_of(tuple.unit), tuple.exponent);
    }
    return size;
}

bool Is_binary_prefix(SI_units prefix) {
    return Catalogue::Is_binary(prefix);
}

bool Is_known_prefix(SI_units prefix) {
    return Is_binary_prefix(prefix) || (prefix >= -40 && prefix <= 40);
}

Exact_factor Size_of(SI_units prefix) {
    return Is_binary_prefix(prefix) ? Power_of_two(prefix) : Powers_of_ten(prefix);
}

} // namespace Varnix::Value::Physics
