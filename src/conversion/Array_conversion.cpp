// Loops over arrays of numbers, one for each kind of conversion, so that those without decibels and
// inversions become vector instructions. A multiplication by 1.0 changes no number and is left out.

#include "conversion/Array_conversion.h"

#include "conversion/Conversion.h"

namespace Varnix::Value {

namespace {

// In place, or from one array to another: told apart here so that the compiler need not.
template <typename Step>
void For_each(double const* in, double* out, std::size_t count, Step const& step) {
    if (in == out) {
        for (std::size_t k = 0; k < count; ++k) {
            out[k] = step(out[k]);
        }
        return;
    }
    double const* __restrict const source = in;
    double* __restrict const target = out;
    for (std::size_t k = 0; k < count; ++k) {
        target[k] = step(source[k]);
    }
}

// The formula, then the factors that are not 1.0.
template <typename Number_formula>
void Convert_by_formula(Conversion_steps const& steps, double const* in, double* out,
                        std::size_t count, Number_formula const& formula) {
    double const factor = steps.factor;
    double const target_scale = steps.target_scale;
    if (target_scale != 1.0) {
        For_each(in, out, count, [formula, factor, target_scale](double number) {
            return formula(number) * factor * target_scale;
        });
    } else if (factor != 1.0) {
        For_each(in, out, count,
                 [formula, factor](double number) { return formula(number) * factor; });
    } else {
        For_each(in, out, count, [formula](double number) -> double { return formula(number); });
    }
}

bool Is_formula_and_factors(Conversion_steps const& steps) {
    bool const decibels = steps.from_decibels || steps.to_decibels;
    bool const inverts = steps.rule_count > 0 && steps.rules[0].inverts;
    return !decibels && !inverts && steps.rule_count <= 1;
}

} // namespace

void Convert_array(Conversion_steps const& steps, double const* in, double* out,
                   std::size_t count) noexcept {
    if (!Is_formula_and_factors(steps)) {
        For_each(in, out, count, [&steps](double number) { return After_steps(steps, number); });
        return;
    }
    Formula const formula = steps.rule_count == 0 ? Formula::identity : steps.rules[0].formula;
    With_formula(formula, [&steps, in, out, count](auto const& number_formula) {
        Convert_by_formula(steps, in, out, count, number_formula);
    });
}

} // namespace Varnix::Value
