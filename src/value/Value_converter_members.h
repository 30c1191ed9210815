// Prepared conversions.

#ifndef VARNIX_VALUE_VALUE_CONVERTER_MEMBERS_H
#define VARNIX_VALUE_VALUE_CONVERTER_MEMBERS_H

#include "conversion/Array_conversion.h"
#include "conversion/Conversion_plan.h"
#include "errors/Throw.h"
#include "value/Value_conversion.h"

namespace Varnix::Value {

template <typename Number>
Value_converter<Number>::Value_converter(Units const& from, Units const& to) : source(from) {
    Units storage;
    target = Plan_conversion(steps, from, to, storage);
}

template <typename Number>
Number Value_converter<Number>::Convert(Number value) const noexcept {
    return Convert_number(steps, value);
}

template <typename Number>
Value_object<Number> Value_converter<Number>::Convert(Value_object<Number> const& value) const {
    if (Value_numbers::Unit_of(value) != source) {
        Throw<UnitDimensionNotSame>();
    }
    return Converted(value, steps, target);
}

template <typename Number>
void Value_converter<Number>::Convert(Number const* in, Number* out,
                                      std::size_t count) const noexcept {
    Convert_array(steps, in, out, count);
}

} // namespace Varnix::Value

#endif
