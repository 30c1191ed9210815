// Comparison of value objects.

#ifndef VARNIX_VALUE_VALUE_COMPARISON_H
#define VARNIX_VALUE_VALUE_COMPARISON_H

#include "conversion/Array_conversion.h"
#include "conversion/Conversion_plan.h"
#include "value/Value_conversion.h"

namespace Varnix::Value {

namespace {

// Only the value is converted.
[[gnu::noinline]] inline double Value_converted_to(Units const& unit,
                                                   Value_object<double> const& object) {
    Conversion_steps steps;
    Units storage;
    Plan_conversion(steps, Value_numbers::Unit_of(object), unit, storage);
    return Convert_number(steps, object.Get_value());
}

// The value of `object` in `unit`, as it stands if that is its unit.
inline double Value_in(Units const& unit, Value_object<double> const& object) {
    return unit == Value_numbers::Unit_of(object) ? object.Get_value()
                                                  : Value_converted_to(unit, object);
}

} // namespace

template <typename Number>
bool Value_object<Number>::operator==(Value_object const& other) const {
    return Value_in(other.unit, *this) == other.value;
}

template <typename Number>
bool Value_object<Number>::operator!=(Value_object const& other) const {
    return !(*this == other);
}

template <typename Number>
bool Value_object<Number>::operator<(Value_object const& other) const {
    return Value_in(other.unit, *this) < other.value;
}

template <typename Number>
bool Value_object<Number>::operator<=(Value_object const& other) const {
    return Value_in(other.unit, *this) <= other.value;
}

template <typename Number>
bool Value_object<Number>::operator>(Value_object const& other) const {
    return Value_in(other.unit, *this) > other.value;
}

template <typename Number>
bool Value_object<Number>::operator>=(Value_object const& other) const {
    return Value_in(other.unit, *this) >= other.value;
}

} // namespace Varnix::Value

#endif
