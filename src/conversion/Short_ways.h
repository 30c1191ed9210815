// Short ways: nearly all conversions, decided in one look at the two units.
//
// Each function here answers or declines, and what it answers is what the definition in
// Conversion.cpp comes to, bit by bit. tests/unit/conversion/Value_converter_test.cpp compares
// conversions with the definition, written a second time in tests/support/Reference_conversion.h;
// Short_ways_test.cpp beside it compares sums and products with tests/support/Reference_arithmetic.h.

#ifndef VARNIX_VALUE_CONVERSION_SHORT_WAYS_H
#define VARNIX_VALUE_CONVERSION_SHORT_WAYS_H

#include "conversion/Conversion.h"
#include "units/Tuples.h"
#include "units/Unit_facts.h"

#include <optional>

namespace Varnix::Value {

namespace {

// ---- Factors

// Walks over two units in canonical order that agree in dimension and power slot by slot, and that
// no rule joins: rules join two units of one dimension only where these are temperatures. Hands the
// facts of the units that differ, and their power, to `use`, and calls `skip` for those that do
// not. False for all other pairs.
template <typename Use, typename Skip>
[[gnu::always_inline]] inline bool Walk_by_factors(Units const& from, Units const& to,
                                                   Use const& use, Skip const& skip) {
    Dimension_set last = 0;
    std::size_t k = 0;
    for (; k < Value_detail::Tuple_count && from.tuples[k].unit != NO_UNIT; ++k) {
        Unit_tuple const& source = from.tuples[k];
        Unit_tuple const& target = to.tuples[k];
        Unit_facts const& source_facts = Facts_of(source.unit);
        Dimension_set const own = source_facts.dimension_set;
        if (own <= last) {
            return false;
        }
        last = own;
        if (source == target) {
            skip();
            continue;
        }
        Unit_facts const& target_facts = Facts_of(target.unit);
        if (own != target_facts.dimension_set || own == Set_of(TEMPERATURE) ||
            source.exponent != target.exponent) {
            return false;
        }
        use(source_facts, target_facts, source.exponent);
    }
    // Without a branch for every slot: what follows is hardly ever occupied.
    std::int32_t occupied = 0;
    for (; k < Value_detail::Tuple_count; ++k) {
        occupied |= from.tuples[k].unit | to.tuples[k].unit;
    }
    return occupied == NO_UNIT;
}

// A running product of factors, from slot to slot.
struct Running_factor {
    double product = 1.0;

    void Multiply(Unit_facts const& from, Unit_facts const& to, std::int32_t power) {
        product = Combined_factor(product, Factor_between(from, power, to, power));
    }
    void Skip() { product = Combined_factor(product, 1.0); }
};

// The factor, prefixes apart, where that is all that a conversion takes.
[[gnu::always_inline]] inline bool Try_factor(Units const& from, Units const& to, double& factor) {
    Running_factor running;
    bool const found = Walk_by_factors(
        from, to,
        [&running](Unit_facts const& source, Unit_facts const& target, std::int32_t power) {
            running.Multiply(source, target, power);
        },
        [&running] { running.Skip(); });
    factor = running.product;
    return found;
}

inline bool Are_linear(Units const& from, Units const& to) {
    return (from.spl_conv | to.spl_conv) == SPL_NONE;
}

// The factors of a conversion between linear units.
[[gnu::always_inline]] inline bool Try_factors(Units const& from, Units const& to,
                                               Factors& factors) {
    double factor = 1.0;
    if (!Are_linear(from, to) || !Try_factor(from, to, factor)) {
        return false;
    }
    factors = With_prefixes(factor, from.si_prefix, to.si_prefix);
    return true;
}

// The factors of the way from one unit to the other, and of the way back.
struct Factors_of_both_ways {
    Factors there;
    Factors back;
};

// The two ways between linear units, found in one walk.
inline std::optional<Factors_of_both_ways> Try_factors_of_both_ways(Units const& from,
                                                                    Units const& to) {
    Running_factor there;
    Running_factor back;
    bool const found = Walk_by_factors(
        from, to,
        [&](Unit_facts const& source, Unit_facts const& target, std::int32_t power) {
            there.Multiply(source, target, power);
            back.Multiply(target, source, power);
        },
        [&] {
            there.Skip();
            back.Skip();
        });
    if (!found || !Are_linear(from, to)) {
        return std::nullopt;
    }
    return Factors_of_both_ways{With_prefixes(there.product, from.si_prefix, to.si_prefix),
                                With_prefixes(back.product, to.si_prefix, from.si_prefix)};
}

// ---- Temperatures

static_assert(DEGREE_F == DEGREE_C + 1 && KELVIN == DEGREE_C + 2, "the table goes by these codes");

// By the codes of the two temperatures, from DEGREE_C. On the diagonal there is no rule.
inline constexpr Formula temperature_formulas[3][3] = {
    // to    °C                              °F                              K
    {Formula::identity, Formula::celsius_to_fahrenheit, Formula::celsius_to_kelvin},    // from °C
    {Formula::fahrenheit_to_celsius, Formula::identity, Formula::fahrenheit_to_kelvin}, // from °F
    {Formula::kelvin_to_celsius, Formula::kelvin_to_fahrenheit, Formula::identity},     // from K
};

// The code of the one unit from DEGREE_C on; beyond the table for other units. Unsigned,
// since a code may be any number.
inline std::uint32_t Temperature_index(Units const& unit) {
    return static_cast<std::uint32_t>(unit.tuples[0].unit) - static_cast<std::uint32_t>(DEGREE_C);
}

// Whether each has one tuple, of the first power. The slots behind it are zero where a unit has no
// others.
inline bool Have_one_simple_tuple(Units const& first, Units const& second) {
    std::uint64_t occupied = 0;
    for (Units const* const unit : {&first, &second}) {
        occupied |= Value_detail::Difference(unit->tuples[1], {}) |
                    Value_detail::Difference(unit->tuples[2], {}) |
                    Value_detail::Difference(unit->tuples[3], {}) |
                    Value_detail::Difference(unit->tuples[4], {});
    }
    return occupied == 0 && first.tuples[0].exponent == 1 && second.tuples[0].exponent == 1;
}

// The formula between two linear temperatures in different units.
inline std::optional<Formula> Try_temperature(Units const& from, Units const& to) {
    std::uint32_t const source = Temperature_index(from);
    std::uint32_t const target = Temperature_index(to);
    if (source > 2 || target > 2 || source == target || !Are_linear(from, to) ||
        !Have_one_simple_tuple(from, to)) {
        return std::nullopt;
    }
    return temperature_formulas[source][target];
}

// ---- All of them

// The steps of a conversion that one of the ways above answers for, levels included. The target is
// then in canonical order.
inline bool Try_steps(Conversion_steps& steps, Units const& from, Units const& target) {
    steps.rule_count = 0;
    if (auto const formula = Try_temperature(from, target)) {
        steps.rules[steps.rule_count++] = {*formula, false};
        Define_end(steps, 1.0, target, from, target);
        return true;
    }
    double factor = 1.0;
    if (Try_factor(from, target, factor)) {
        Define_end(steps, factor, from, from, target);
        return true;
    }
    return false;
}

} // namespace

} // namespace Varnix::Value

#endif
