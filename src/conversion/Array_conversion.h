// Conversion of single numbers and of arrays by a steps.

#ifndef VARNIX_VALUE_ARRAY_CONVERSION_H
#define VARNIX_VALUE_ARRAY_CONVERSION_H

#include "conversion/Number_formulas.h"

#include <cstddef>

namespace Varnix::Value {

// One number through all steps of the steps.
inline double Convert_number(Conversion_steps const& steps, double number) {
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

// `count` numbers from `in` to `out`, which are equal or do not overlap.
void Convert_array(Conversion_steps const& steps, double const* in, double* out,
                   std::size_t count) noexcept;

} // namespace Varnix::Value

#endif
