// Prepared conversions.

#ifndef VARNIX_VALUE_VALUE_CONVERTER_MEMBERS_H
#define VARNIX_VALUE_VALUE_CONVERTER_MEMBERS_H

#include "Array_conversion.h"
#include "Conversion_plan.h"
#include "Value_conversion.h"

namespace Varnix::Value {

template <typename Number>
Value_converter<Number>::Value_converter(Units const& source, Units const& target)
    : plan(Plan_conversion(source, target)) {}

template <typename Number>
Number Value_converter<Number>::Convert(Number value) const noexcept {
    return Convert_number(plan, value);
}

template <typename Number>
Value_object<Number> Value_converter<Number>::Convert(Value_object<Number> const& value) const {
    if (!Units_library::Compare_units_DB(Value_numbers::Unit_of(value), plan.source, true)) {
        throw UnitDimensionNotSame();
    }
    return Apply_plan(plan, value);
}

template <typename Number>
void Value_converter<Number>::Convert(Number const* in, Number* out,
                                      std::size_t count) const noexcept {
    Convert_array(plan, in, out, count);
}

} // namespace Varnix::Value

#endif
