// Conversion of value objects: the plan of the two units, applied to value and bounds.

#ifndef VARNIX_VALUE_VALUE_CONVERSION_H
#define VARNIX_VALUE_VALUE_CONVERSION_H

#include "Conversion_plan.h"
#include "Value_steps.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace Varnix::Value {

namespace {

// Value and bounds while they are converted.
struct Numbers {
    double value;
    double minus_err;
    double plus_err;

    template <typename Step>
    void Transform(Step const& step) {
        value = step(value);
        minus_err = step(minus_err);
        plus_err = step(plus_err);
    }

    // Puts the larger bound into plus_err. As everywhere, a bound that is not a number is not
    // larger, so that ordering twice leaves it where it was.
    void Order() {
        if (!(plus_err > minus_err)) {
            std::swap(minus_err, plus_err);
        }
    }
};

// A rule's function orders the bounds of the value it makes, and so does storing that value.
inline void Apply_rules(Numbers& numbers, Conversion_plan const& plan) {
    for (std::size_t k = 0; k < plan.rule_count; ++k) {
        With_formula(plan.rules[k].formula,
                     [&numbers](auto const& formula) { numbers.Transform(formula); });
        numbers.Order();
        numbers.Order();
        if (plan.rules[k].inverts) {
            numbers.Transform([](double number) { return Value_object<double>::ONE / number; });
            numbers.Order();
        }
    }
}

inline void Apply_scales(Numbers& numbers, Conversion_plan const& plan) {
    numbers.Transform([&plan](double number) { return number * plan.factor * plan.target_scale; });
}

// The bounds are ordered when the value is taken up, and with every copy that the steps to and from
// decibels make; in between they stay as computed.
inline Value_object<double> Apply_plan(Conversion_plan const& plan,
                                       Value_object<double> const& object) {
    Numbers numbers = {object.Get_value(), object.Get_minus_err(), object.Get_plus_err()};
    numbers.Order();
    Apply_rules(numbers, plan);
    numbers.Order();
    if (plan.from_decibels) {
        numbers.Transform(
            [&plan](double number) { return Decibels_to_linear(number, plan.source_product); });
    }
    Apply_scales(numbers, plan);
    if (plan.to_decibels) {
        numbers.Order();
        numbers.Transform(
            [&plan](double number) { return Linear_to_decibels(number, plan.target_product); });
    }
    return Value_numbers::Made(numbers.value, numbers.minus_err, numbers.plus_err, plan.target);
}

} // namespace

template <typename Number>
Value_object<Number> Value_object<Number>::Convert_to(Units const& target) const {
    return Apply_plan(Plan_conversion(unit, target), *this);
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
    SI_units const prefix = Value_numbers::Unit_of(source).si_prefix;
    double const scale = prefix == NO_PREFIX ? 1.0 : std::pow(10.0, static_cast<double>(prefix));
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
    Scale_numbers(result, Prefix_scale(target.si_prefix, -1));
    if (Is_decibel(target)) {
        return Apply_DB(result);
    }
    return result; // not a copy, which would order the bounds: they stay as the relation gave them
}

} // namespace Varnix::Value

#endif
