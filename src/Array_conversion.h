// Conversion of single numbers and of arrays by a plan.

#ifndef VARNIX_VALUE_ARRAY_CONVERSION_H
#define VARNIX_VALUE_ARRAY_CONVERSION_H

#include "Number_formulas.h"

#include <cstddef>

namespace Varnix::Value {

// One number through all steps of the plan.
inline double Convert_number(Conversion_plan const& plan, double number) {
    for (std::size_t k = 0; k < plan.rule_count; ++k) {
        number = With_formula(plan.rules[k].formula,
                              [number](auto const& formula) -> double { return formula(number); });
        number = plan.rules[k].inverts ? Value_object<double>::ONE / number : number;
    }
    if (plan.from_decibels) {
        number = Decibels_to_linear(number, plan.source_product);
    }
    number = number * plan.factor * plan.target_scale;
    return plan.to_decibels ? Linear_to_decibels(number, plan.target_product) : number;
}

// `count` numbers from `in` to `out`, which are equal or do not overlap.
void Convert_array(Conversion_plan const& plan, double const* in, double* out,
                   std::size_t count) noexcept;

} // namespace Varnix::Value

#endif
