// Conversion of value objects.
//
// A conversion is looked for in three places: the rules for whole units, then the rules for single
// slots, then the catalogue's factor. The common end makes decibels linear, applies the prefixes
// and turns the result into decibels where the target asks for it. Rules are compared with the
// source's unit as it is stored; the numbers are worked on in canonical order.

#ifndef VARNIX_VALUE_VALUE_CONVERSION_H
#define VARNIX_VALUE_VALUE_CONVERSION_H

#include "Conversion_rules.h"
#include "Tuples.h"
#include "Value_steps.h"

#include <algorithm>
#include <utility>

namespace Varnix::Value {

namespace {

// Puts 1 / x in place of value and bounds; the bounds are ordered again.
inline void Invert_numbers(Value_object<double>& object) {
    constexpr double one = Value_object<double>::ONE;
    object.Set(one / object.Get_value(), object.Get_unit(), one / object.Get_minus_err(),
               one / object.Get_plus_err());
}

// ---- Rules for whole units

enum class Rule_match {
    none,
    direct,   // both units are those of the rule, or both are their reciprocals
    inverted, // one is, the other is the reciprocal
};

inline Rule_match Match_rule(Units_conversion<double> const& rule, Units const& from,
                             Units const& to) {
    bool const from_matches = Units_library::Compare_units(from, rule.from_unit, false);
    if (!from_matches && !Units_library::Is_Invert_units(from, rule.from_unit)) {
        return Rule_match::none;
    }
    if (Units_library::Compare_units(to, rule.to_unit, false)) {
        return from_matches ? Rule_match::direct : Rule_match::inverted;
    }
    if (Units_library::Is_Invert_units(to, rule.to_unit)) {
        return from_matches ? Rule_match::inverted : Rule_match::direct;
    }
    return Rule_match::none;
}

// Applies the first rule that matches both units; false if there is none. The rule's function has
// then put `result` into the target unit, marker included.
inline bool Apply_whole_unit_rule(Value_object<double>& result, Units const& from,
                                  Units const& to) {
    for (Units_conversion<double> const& rule : Units_conv<double>::Unit_conv_vect) {
        Rule_match const match = Match_rule(rule, from, to);
        if (match == Rule_match::none) {
            continue;
        }
        result = rule.conv_fn(result, to);
        if (match == Rule_match::inverted) {
            Invert_numbers(result);
        }
        return true;
    }
    return false;
}

// ---- Rules for single slots

inline bool Rule_names_units(Units_conversion<double> const& rule, Units_list from, Units_list to) {
    return rule.from_unit.tuples[0].unit == from && rule.to_unit.tuples[0].unit == to;
}

inline void Apply_slot_rule(Units_conversion<double> const& rule, Value_object<double>& result,
                            std::size_t slot, Units const& to) {
    Units descriptor = result.Get_unit();
    descriptor.tuples[slot].unit = to.tuples[slot].unit;
    result = rule.conv_fn(result, to);
    result.Set_unit(descriptor);
    if (to.tuples[slot].exponent < 0) {
        Invert_numbers(result);
    }
}

// Applies, slot by slot, every rule for the slot's two units: volts to watts are named by two
// rules, and both are applied.
inline void Apply_slot_rules(Value_object<double>& result, Units const& from, Units const& to) {
    for (std::size_t slot = 0; slot < Tuple_count; ++slot) {
        Unit_tuple const& source = from.tuples[slot];
        Unit_tuple const& target = to.tuples[slot];
        if (source.unit == NO_UNIT || target.unit == NO_UNIT) {
            continue;
        }
        if (Powers_differ_in_magnitude(source, target)) {
            throw UnitDimensionNotSame();
        }
        for (Units_conversion<double> const& rule : Units_conv<double>::Unit_conv_vect) {
            if (Rule_names_units(rule, source.unit, target.unit)) {
                Apply_slot_rule(rule, result, slot, to);
            }
        }
    }
}

// ---- The common end

// The result in the form that its unit asks for. A linear one is passed on as it is: the copy that
// Apply_DB makes would order bounds that are to stay as computed.
inline Value_object<double> In_decibels_if_marked(Value_object<double>&& result) {
    return Is_decibel(result.Get_unit()) ? Value_object<double>::Apply_DB(result)
                                         : std::move(result);
}

inline Value_object<double> Finish_conversion(Value_object<double> const& converted, double factor,
                                              Units const& from, Units const& to) {
    Value_object<double> result = Value_object<double>::Normalize_DB(converted);
    // The target's prefix is a multiplication of its own: the two are rounded separately.
    Scale_numbers(result,
                  factor * Prefix_scale(Units_library::Get_unit_base(from), from.si_prefix));
    Scale_numbers(result, Prefix_scale(Units_library::Get_unit_base(to), to.si_prefix, -1));
    result.Set_unit(to);
    return In_decibels_if_marked(std::move(result));
}

} // namespace

template <typename Number>
Value_object<Number> Value_object<Number>::Convert_to(Units const& target) const {
    Units const arranged_target = Units_library::Arrange_tuple(target);
    Value_object result(value, unit, minus_err, plus_err);
    Number factor = 1.0;
    if (!Apply_whole_unit_rule(result, unit, arranged_target)) {
        Apply_slot_rules(result, unit, arranged_target);
        factor = Units_library::Get_conversion_factor(arranged_target, result.unit);
    }
    return Finish_conversion(result, factor, unit, arranged_target);
}

template <typename Number>
Value_object<Number> Value_object<Number>::Convert_to(Value_object const& other) const {
    return Convert_to(other.unit);
}

// ---- Conversion with a second value

template <typename Number>
bool Value_object<Number>::Is_units_special_equal(Units_special_conv const& first,
                                                  Units_special_conv const& second) noexcept {
    return Units_library::Compare_units(first.from_unit, second.from_unit, false) &&
           Units_library::Compare_units(first.to_unit, second.to_unit, false) &&
           Units_library::Compare_units(first.with_unit, second.with_unit, false);
}

namespace {

inline Units_spl_conv_data<double> const& Find_electrical_rule(Units_special_conv const& key) {
    auto const& rules = Units_spl_conv<double>::Unit_spl_conv_vect;
    auto const rule =
        std::find_if(rules.begin(), rules.end(), [&key](Units_spl_conv_data<double> const& row) {
            return Value_object<double>::Is_units_special_equal(row.spl_units, key);
        });
    if (rule == rules.end()) {
        throw NoRuleToConvert();
    }
    return *rule;
}

// The linear numbers in the unit without its prefix, for which the radix is 10 even if it is a
// binary one: no electrical unit has such a prefix. The unit itself keeps prefix and marker.
inline Value_object<double> In_unprefixed_unit(Value_object<double> const& source) {
    Value_object<double> result = Value_object<double>::Normalize_DB(source);
    double const scale = Prefix_scale(10.0, source.Get_unit().si_prefix);
    result.Set(scale * result.Get_value(), result.Get_unit(), scale * result.Get_minus_err(),
               scale * result.Get_plus_err());
    return result;
}

} // namespace

template <typename Number>
Value_object<Number> Value_object<Number>::Convert_to_with_value(Units const& target,
                                                                 Value_object const& other) const {
    Units_spl_conv_data<Number> const& rule = Find_electrical_rule({unit, target, other.unit});
    Value_object result =
        rule.conv_fn(In_unprefixed_unit(*this), In_unprefixed_unit(other), target);
    Scale_numbers(result, Prefix_scale(Units_library::Get_unit_base(target), target.si_prefix, -1));
    return In_decibels_if_marked(std::move(result));
}

} // namespace Varnix::Value

#endif
