// Conversions of numbers: what a conversion consists of, and applying it.
//
// Conversion.cpp holds the definition, which decides for any two units. Short_ways.h decides for
// those that nearly all programs convert between, and comes to the same bits.

#ifndef VARNIX_VALUE_CONVERSION_CONVERSION_H
#define VARNIX_VALUE_CONVERSION_CONVERSION_H

#include "conversion/Formulas.h"
#include "conversion/Numbers.h"
#include "units/Unit_facts.h"

namespace Varnix::Value {

// ---- Deciding

// The conversion from `from`, as it is stored, to `target`; `to` becomes the target in canonical
// order.
// @throws what `Value_object::Convert_to` throws
void Define_conversion(Conversion_steps& steps, Units const& from, Units const& target, Units& to);

// `unit` in canonical order, as the constructor of value objects has it.
// @throws what that constructor throws
Units Arranged_and_packed(Units const& unit);

// What the numbers of a conversion are multiplied with. The two are rounded separately.
struct Factors {
    double factor;       // the prefix of the source included
    double target_scale; // the reciprocal scale of the target's prefix
};

inline Factors With_prefixes(double factor, SI_units from, SI_units to) {
    return {factor * Prefix_scale(from), Reciprocal_prefix_scale(to)};
}

// What the marker and the prefixes of the two units ask for, given the factor, and the unit that
// says what the numbers are in when the rules have been applied.
inline void Define_end(Conversion_steps& steps, double factor, Units const& before,
                       Units const& from, Units const& to) {
    Factors const factors = With_prefixes(factor, from.si_prefix, to.si_prefix);
    steps.factor = factors.factor;
    steps.target_scale = factors.target_scale;
    steps.from_decibels = Is_decibel(before);
    steps.source_product = steps.from_decibels ? Exponent_product(before) : 1.0;
    steps.to_decibels = Is_decibel(to);
    steps.target_product =
        steps.to_decibels ? Exponent_product(to) * Value_object<double>::DB_CONV_FACT : 1.0;
}

// ---- Applying

// One number through all steps.
inline double After_steps(Conversion_steps const& steps, double number) {
    for (std::size_t k = 0; k < steps.rule_count; ++k) {
        number = With_formula(steps.rules[k].formula,
                              [number](auto const& formula) -> double { return formula(number); });
        number = steps.rules[k].inverts ? Value_object<double>::ONE / number : number;
    }
    if (steps.from_decibels) {
        number = Decibels_to_linear(number, steps.source_product);
    }
    number = number * steps.factor * steps.target_scale;
    return steps.to_decibels ? Linear_to_decibels(number, steps.target_product) : number;
}

// Value and bounds through all steps, with the bounds ordered wherever a value object is made,
// copied or assigned on the way.
Numbers After_steps(Conversion_steps const& steps, Numbers numbers);

// The same where factors are all there is.
inline Numbers After_factors(Factors const& factors, Numbers numbers) {
    numbers.Order(); // as three times, which is how often the definition orders them
    numbers.Transform(
        [factors](double number) { return number * factors.factor * factors.target_scale; });
    return numbers;
}

// The same where a formula and the factors are: a temperature's way.
inline Numbers After_formula(Formula formula, Factors const& factors, Numbers numbers) {
    numbers.Order();
    With_formula(formula, [&numbers](auto const& step) { numbers.Transform(step); });
    numbers.Order_as_made_and_copied(); // as four times
    numbers.Transform(
        [factors](double number) { return number * factors.factor * factors.target_scale; });
    return numbers;
}

} // namespace Varnix::Value

#endif
