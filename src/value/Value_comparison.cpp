// Comparison of value objects.

#include "conversion/Short_ways.h"
#include "value/Converted_value.h"

namespace Varnix::Value {

namespace {

// Only the value is converted.
[[gnu::noinline]] double Value_converted_to(Units const& unit, Value_object<double> const& object) {
    Units const& own = Value_numbers::Unit_of(object);
    Factors factors;
    if (Try_factors(own, unit, factors)) {
        return object.Get_value() * factors.factor * factors.target_scale;
    }
    Conversion_steps steps;
    Units storage;
    Decide_steps(steps, own, unit, storage);
    return After_steps(steps, object.Get_value());
}

// The value of `object` in `unit`, as it stands if that is its unit.
double Value_in(Units const& unit, Value_object<double> const& object) {
    return Value_numbers::Unit_of(object) == unit ? object.Get_value()
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

// ---- The instantiations

template bool Value_object<double>::operator==(Value_object const&) const;
template bool Value_object<double>::operator!=(Value_object const&) const;
template bool Value_object<double>::operator<(Value_object const&) const;
template bool Value_object<double>::operator<=(Value_object const&) const;
template bool Value_object<double>::operator>(Value_object const&) const;
template bool Value_object<double>::operator>=(Value_object const&) const;

} // namespace Varnix::Value
