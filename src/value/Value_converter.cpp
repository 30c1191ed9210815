// Prepared conversions.

#include <varnix/value/Value_converter.h>

#include "conversion/Array_conversion.h"
#include "conversion/Conversion.h"
#include "errors/Throw.h"
#include "value/Converted_value.h"

namespace Varnix::Value {

template <typename Number>
Value_converter<Number>::Value_converter(Units const& from, Units const& to) : source(from) {
    Units storage;
    target = Decide_steps(steps, from, to, storage);
}

template <typename Number>
Number Value_converter<Number>::Convert(Number value) const noexcept {
    return After_steps(steps, value);
}

namespace {

// Without decibels, which are no business of factors and formulas.
bool Are_linear(Conversion_steps const& steps) {
    return !steps.from_decibels && !steps.to_decibels;
}

Numbers Converted(Conversion_steps const& steps, Numbers const& numbers) {
    Factors const factors = {steps.factor, steps.target_scale};
    if (Are_linear(steps) && steps.rule_count == 0) {
        return After_factors(factors, numbers);
    }
    if (Are_linear(steps) && steps.rule_count == 1 && !steps.rules[0].inverts) {
        return After_formula(steps.rules[0].formula, factors, numbers);
    }
    return After_steps(steps, numbers);
}

} // namespace

template <typename Number>
Value_object<Number> Value_converter<Number>::Convert(Value_object<Number> const& value) const {
    if (Value_numbers::Unit_of(value) != source) {
        Throw<UnitDimensionNotSame>();
    }
    return Value_numbers::Made(Converted(steps, Value_numbers::Of(value)), target);
}

template <typename Number>
void Value_converter<Number>::Convert(Number const* in, Number* out,
                                      std::size_t count) const noexcept {
    Convert_array(steps, in, out, count);
}

// ---- The instantiations

template class Value_converter<double>;

} // namespace Varnix::Value
