// Conversion of value objects: a short way where there is one, and otherwise the definition.

#include "value/Converted_value.h"

#include "conversion/Conversion_rules.h"
#include "conversion/Short_ways.h"
#include "errors/Throw.h"

#include <algorithm>
#include <cmath>

namespace Varnix::Value {

namespace {

// In registers from the value to the result.
[[gnu::noinline]] Value_object<double>
Converted_temperature(Formula formula, Value_object<double> const& value, Units const& target) {
    Factors const factors =
        With_prefixes(1.0, Value_numbers::Unit_of(value).si_prefix, target.si_prefix);
    return Value_numbers::Made(After_formula(formula, factors, Value_numbers::Of(value)), target);
}

[[gnu::noinline]] Value_object<double> Converted_by_steps(Value_object<double> const& value,
                                                          Units const& target) {
    Conversion_steps steps;
    Units storage;
    Units const& to = Decide_steps(steps, Value_numbers::Unit_of(value), target, storage);
    return Value_numbers::Made(After_steps(steps, Value_numbers::Of(value)), to);
}

} // namespace

Value_object<double> Converted_in_steps(Value_object<double> const& value, Units const& target) {
    auto const formula = Try_temperature(Value_numbers::Unit_of(value), target);
    return formula ? Converted_temperature(*formula, value, target)
                   : Converted_by_steps(value, target);
}

Units const& Decide_steps(Conversion_steps& steps, Units const& from, Units const& target,
                          Units& storage) {
    if (Try_steps(steps, from, target)) {
        return target;
    }
    Define_conversion(steps, from, target, storage);
    return storage;
}

template <typename Number>
Value_object<Number> Value_object<Number>::Convert_to(Units const& target) const {
    Factors factors;
    if (Try_factors(unit, target, factors)) {
        return Value_numbers::Made(After_factors(factors, Value_numbers::Of(*this)), target);
    }
    return Converted_in_steps(*this, target);
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

Units_spl_conv_data<double> const& Find_electrical_rule(Units_special_conv const& key) {
    auto const& rules = Units_spl_conv<double>::Unit_spl_conv_vect;
    auto const rule =
        std::find_if(rules.begin(), rules.end(), [&key](Units_spl_conv_data<double> const& row) {
            return Value_object<double>::Is_units_special_equal(row.spl_units, key);
        });
    if (rule == rules.end()) {
        Throw<NoRuleToConvert>();
    }
    return *rule;
}

// The linear value in the unit without its prefix, for which the radix is 10 even if it is a binary
// one: no electrical unit has such a prefix. The unit itself keeps prefix and marker.
Value_object<double> In_unprefixed_unit(Value_object<double> const& source) {
    Units const& unit = Value_numbers::Unit_of(source);
    Numbers numbers = Linear(Value_numbers::Of(source), unit);
    numbers.Scale(
        unit.si_prefix == NO_PREFIX ? 1.0 : std::pow(10.0, static_cast<double>(unit.si_prefix)));
    numbers.Order();
    return Value_numbers::Made(numbers, unit);
}

} // namespace

template <typename Number>
Value_object<Number> Value_object<Number>::Convert_to_with_value(Units const& target,
                                                                 Value_object const& other) const {
    Units_spl_conv_data<Number> const& rule = Find_electrical_rule({unit, target, other.unit});
    Value_object const related =
        rule.conv_fn(In_unprefixed_unit(*this), In_unprefixed_unit(other), target);
    Numbers numbers = Value_numbers::Of(related);
    numbers.Scale(Reciprocal_prefix_scale(target.si_prefix));
    // Only the way to decibels orders the bounds: otherwise they stay as the relation gave them.
    return Value_numbers::Made(Is_decibel(target) ? In_decibels(numbers, target) : numbers, target);
}

template Value_object<double> Value_object<double>::Convert_to(Units const&) const;
template Value_object<double> Value_object<double>::Convert_to(Value_object const&) const;
template bool Value_object<double>::Is_units_special_equal(Units_special_conv const&,
                                                           Units_special_conv const&) noexcept;
template Value_object<double>
Value_object<double>::Convert_to_with_value(Units const&, Value_object const&) const;

} // namespace Varnix::Value
