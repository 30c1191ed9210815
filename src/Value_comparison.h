// Comparison of value objects.

#ifndef VARNIX_VALUE_VALUE_COMPARISON_H
#define VARNIX_VALUE_VALUE_COMPARISON_H

#include <varnix/value/Value_object.h>

namespace Varnix::Value {

namespace {

// The value of `object` in `unit`, as it stands if that is its unit.
inline double Value_in(Units const& unit, Value_object<double> const& object) {
    return Units_library::Compare_units_DB(unit, object.Get_unit(), true)
               ? object.Get_value()
               : object.Convert_to(unit).Get_value();
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
