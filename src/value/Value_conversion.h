// Conversion of value objects: the plan of the two units, applied to value and bounds.

#ifndef VARNIX_VALUE_VALUE_CONVERSION_H
#define VARNIX_VALUE_VALUE_CONVERSION_H

#include "conversion/Conversion_plan.h"
#include "conversion/Value_steps.h"
#include "errors/Throw.h"

#include <algorithm>
#include <cmath>

namespace Varnix::Value {

namespace {

// A rule's function orders the bounds of the value it makes, and so does storing that value.
inline void Apply_rules(Numbers& numbers, Conversion_steps const& steps) {
    for (std::size_t k = 0; k < steps.rule_count; ++k) {
        With_formula(steps.rules[k].formula,
                     [&numbers](auto const& formula) { numbers.Transform(formula); });
        numbers.Order();
        numbers.Order();
        if (steps.rules[k].inverts) {
            numbers.Transform([](double number) { return Value_object<double>::ONE / number; });
            numbers.Order();
        }
    }
}

inline void Apply_factors(Numbers& numbers, Factors const& factors) {
    numbers.Transform(
        [factors](double number) { return number * factors.factor * factors.target_scale; });
}

// The bounds are ordered when the value is taken up, and with every copy that the steps to and from
// decibels make; in between they stay as computed.
inline Numbers After_all_steps(Numbers numbers, Conversion_steps const& steps) {
    numbers.Order();
    Apply_rules(numbers, steps);
    numbers.Order();
    if (steps.from_decibels) {
        numbers = Made_linear(numbers, steps.source_product);
    }
    Apply_factors(numbers, {steps.factor, steps.target_scale});
    if (steps.to_decibels) {
        numbers.Order();
        numbers = Made_decibels(numbers, steps.target_product);
    }
    return numbers;
}

// The numbers after a conversion that has no other steps than the factors.
inline Numbers After_factors(Numbers numbers, Factors const& factors) {
    numbers.Order();
    numbers.Order(); // twice, as on the way through all steps
    Apply_factors(numbers, factors);
    return numbers;
}

[[gnu::noinline]] inline Value_object<double>
Converted_by_all_steps(Value_object<double> const& value, Conversion_steps const& steps,
                       Units const& unit) {
    return Value_numbers::Made(After_all_steps(Value_numbers::Of(value), steps), unit);
}

// A temperature's way: one formula, and the factors. In registers from the value to the result.
[[gnu::noinline]] inline Value_object<double>
Converted_by_formula(Value_object<double> const& value, Conversion_steps const& steps,
                     Units const& unit) {
    Numbers numbers = Value_numbers::Of(value);
    numbers.Order();
    With_formula(steps.rules[0].formula,
                 [&numbers](auto const& formula) { numbers.Transform(formula); });
    numbers.Order(); // as three times, which is how often the rule's way orders them
    Apply_factors(numbers, {steps.factor, steps.target_scale});
    return Value_numbers::Made(numbers, unit);
}

inline bool Are_one_formula(Conversion_steps const& steps) {
    return steps.rule_count == 1 && !steps.rules[0].inverts && !steps.from_decibels &&
           !steps.to_decibels;
}

// The value after the steps, in `unit`. Most conversions have no other steps than the factors.
inline Value_object<double> Converted(Value_object<double> const& value,
                                      Conversion_steps const& steps, Units const& unit) {
    if (steps.rule_count != 0 || steps.from_decibels || steps.to_decibels) {
        return Are_one_formula(steps) ? Converted_by_formula(value, steps, unit)
                                      : Converted_by_all_steps(value, steps, unit);
    }
    return Value_numbers::Made(
        After_factors(Value_numbers::Of(value), {steps.factor, steps.target_scale}), unit);
}

} // namespace

template <typename Number>
Value_object<Number> Value_object<Number>::Convert_to(Units const& target) const {
    Conversion_steps steps;
    Units storage;
    Units const& arranged = Plan_conversion(steps, unit, target, storage);
    return Converted(*this, steps, arranged);
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
        Throw<NoRuleToConvert>();
    }
    return *rule;
}

// The linear value in the unit without its prefix, for which the radix is 10 even if it is a binary
// one: no electrical unit has such a prefix. The unit itself keeps prefix and marker.
inline Value_object<double> In_unprefixed_unit(Value_object<double> const& source) {
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

} // namespace Varnix::Value

#endif
