// Construction, setters, getters and predicates of value objects.

#include <varnix/value/Value_object.h>

#include "conversion/Conversion.h"
#include "units/Tuples.h"
#include "units/Unit_facts.h"

#include <cmath>

namespace Varnix::Value {

template <typename Number>
Value_object<Number>::Value_object() noexcept
    : minus_err(0.0), plus_err(0.0), value(0.0), unit(C_Empty) {}

template <typename Number>
Value_object<Number>::Value_object(Number const& new_value, Units const& new_unit,
                                   Number const& new_minus_err, Number const& new_plus_err) {
    // Nearly all units are in canonical order already, and need no copy.
    if (Canonical_dimensions(new_unit) != Not_canonical) {
        Set(new_value, new_unit, new_minus_err, new_plus_err);
    } else {
        Set(new_value, Arranged_and_packed(new_unit), new_minus_err, new_plus_err);
    }
}

template <typename Number>
Value_object<Number>::Value_object(Value_object const& other) noexcept {
    Set(other.value, other.unit, other.minus_err, other.plus_err);
}

template <typename Number>
Value_object<Number>& Value_object<Number>::operator=(Value_object const& other) noexcept {
    Set(other.value, other.unit, other.minus_err, other.plus_err);
    return *this;
}

template <typename Number>
void Value_object<Number>::Set(Number const& new_value, Units const& new_unit,
                               Number const& new_minus_err, Number const& new_plus_err) noexcept {
    // The arguments may refer to this object's numbers: read them all before the first is written.
    Number const stored_value = new_value;
    Set_plus_minus_err(new_plus_err, new_minus_err);
    value = stored_value;
    unit = new_unit;
}

template <typename Number>
void Value_object<Number>::Set_plus_minus_err(Number const& new_plus_err,
                                              Number const& new_minus_err) noexcept {
    bool const in_order = new_plus_err > new_minus_err; // false for a bound that is not a number
    Number const upper = in_order ? new_plus_err : new_minus_err;
    Number const lower = in_order ? new_minus_err : new_plus_err;
    plus_err = upper;
    minus_err = lower;
}

template <typename Number>
Number Value_object<Number>::Magnitude() const noexcept {
    return std::fabs(value);
}

template <typename Number>
bool Value_object<Number>::Is_valid_unit(Units const& descriptor) noexcept {
    return Is_packed(descriptor);
}

template <typename Number>
bool Value_object<Number>::Is_convertable_unit(Units const& first, Units const& second) {
    for (std::size_t k = 0; k < Value_detail::Tuple_count; ++k) {
        Unit_tuple const& left = first.tuples[k];
        Unit_tuple const& right = second.tuples[k];
        if (left.unit == NO_UNIT || right.unit == NO_UNIT) {
            continue;
        }
        if (Dimension_of(left.unit) != Dimension_of(right.unit) || left.unit == right.unit ||
            left.exponent != right.exponent) {
            return false;
        }
    }
    return true;
}

template <typename Number>
void Value_object<Number>::Is_value_in_range(Value_object const& v) {
    Require_finite(Value_numbers::Of(v));
}

// ---- The instantiation: of what is defined here and of what the header defines within the class,
// which a program that is built without optimisation calls in the library. Other members have
// theirs beside them.

template class Value_object<double>;

} // namespace Varnix::Value
