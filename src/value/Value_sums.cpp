// Sums and differences of value objects. Every operator works on the numbers of its operands and
// stores its result once, at its end.

#include "conversion/Short_ways.h"
#include "errors/Throw.h"
#include "units/Tuples.h"
#include "units/Unit_facts.h"
#include "value/Term.h"

#include <cmath>

namespace Varnix::Value {

namespace {

enum class Sign { plus, minus };

// Converts an operand or a result of the sum or the difference; a difference reports every failure
// as one of the dimensions.
Units const& Convert_for(Sign sign, Numbers& numbers, Units const& from, Units const& target,
                         Units& storage) {
    if (sign == Sign::plus) {
        return Convert(numbers, from, target, storage);
    }
    try {
        return Convert(numbers, from, target, storage);
    } catch (Value_exception const&) {
        throw UnitDimensionNotSame();
    }
}

// The numbers combined field by field, the bounds ordered.
Numbers Sum_of_numbers(Sign sign, Numbers const& left, Numbers const& right) {
    Numbers sum = sign == Sign::plus
                      ? Combined(left, right, [](double x, double y) { return x + y; })
                      : Combined(left, right, [](double x, double y) { return x - y; });
    sum.Order();
    return sum;
}

void Require_units_of_both_or_none(Units const& left, Units const& right) {
    if (Has_unit(left) != Has_unit(right)) {
        Throw<UnitDimensionNotProper>();
    }
}

// Equal tuples and prefixes; the markers are not looked at.
bool Are_same_units(Units const& left, Units const& right) {
    return left.si_prefix == right.si_prefix && Have_equal_tuples(left, right);
}

// The sum forms in the unit of `right` and is brought back into that of `left`, arranged.
[[gnu::cold, gnu::noinline]] Term Sum_in_unit_of_right(Sign sign, Term const& left,
                                                       Term const& right, Units& storage) {
    Units right_storage;
    Numbers sum = left.numbers;
    sum.Order();
    Units const& right_unit = Convert_for(sign, sum, left.unit, right.unit, right_storage);
    sum = Sum_of_numbers(sign, sum, right.numbers);
    Units const& left_unit = Convert_for(sign, sum, right_unit, left.unit, storage);
    return {sum, left_unit};
}

[[gnu::noinline]] Term Sum_of_decibels(Sign sign, Term const& left, Term const& right) {
    if (Is_bare(left.unit) && Is_bare(right.unit)) {
        return {Sum_of_numbers(sign, left.numbers, right.numbers), left.unit};
    }
    Require_units_of_both_or_none(left.unit, right.unit);
    Numbers right_in_unit = right.numbers;
    if (!Are_same_units(left.unit, right.unit)) {
        Units storage;
        Convert(right_in_unit, right.unit, left.unit, storage);
    }
    Numbers copy =
        left.numbers; // as `right` is one: a bound that is not a number is compared with its copy
    copy.Order();
    Numbers const sum = Sum_of_numbers(sign, Assigned_linear(copy, left.unit),
                                       Assigned_linear(right_in_unit, left.unit));
    return {Assigned_in_decibels(sum, left.unit), left.unit};
}

bool Is_plain(Units const& unit) {
    return Is_bare(unit) && unit.si_prefix == NO_PREFIX;
}

// Whether a ratio in decibels scales a linear value. Only a plain number and a plain ratio, neither
// with a prefix, are both quantities.
bool Is_gain(Units const& linear, Units const& ratio) {
    bool const both_plain = Is_plain(linear) && Is_plain(ratio);
    return !Is_decibel(linear) && Is_decibel(ratio) && !Has_unit(ratio) && !both_plain;
}

// A linear value, scaled by a ratio in decibels.
Term Scaled_by_gain(Sign sign, Term const& linear, Term const& gain) {
    Units decibel_unit = linear.unit;
    decibel_unit.spl_conv = SPL_DB;
    Numbers level = linear.numbers;
    level.Order();
    level = Assigned_in_decibels(level, decibel_unit);
    Numbers const sum = Sum_of_numbers(sign, level, gain.numbers);
    return {Assigned_linear(sum, decibel_unit), linear.unit};
}

// The two quantities, one of them in decibels, both linear in the unit of `left`, which the result
// has again.
Term Sum_with_one_in_decibels(Sign sign, Term const& left, Term const& right) {
    Require_units_of_both_or_none(left.unit, right.unit);
    Units linear_unit = left.unit;
    linear_unit.spl_conv = SPL_NONE;
    Units storage;
    Numbers right_in_unit = right.numbers;
    Convert_for(sign, right_in_unit, right.unit, linear_unit, storage);
    Numbers const sum =
        Sum_of_numbers(sign, Assigned_linear(left.numbers, left.unit), right_in_unit);
    return {Assigned_in_decibels(sum, left.unit), left.unit};
}

// The sum or the difference of which at least one operand is in decibels.
[[gnu::noinline]] Term Sum_with_decibels(Sign sign, Term const& left, Term const& right) {
    if (Is_decibel(left.unit) && Is_decibel(right.unit)) {
        return Sum_of_decibels(sign, left, right);
    }
    if (Is_gain(left.unit, right.unit)) {
        return Scaled_by_gain(sign, left, right);
    }
    return Sum_with_one_in_decibels(sign, left, right);
}

// The sum or the difference, in the unit of `left`; `storage` holds that unit if it has to be
// arranged.
Term Sum(Sign sign, Term const& left, Term const& right, Units& storage) {
    return Is_decibel(left.unit) || Is_decibel(right.unit)
               ? Sum_with_decibels(sign, left, right)
               : Sum_in_unit_of_right(sign, left, right, storage);
}

// ---- Short ways

// The sum of linear values in one unit without prefix, which needs no conversion. False for all
// others.
bool Try_sum_in_one_unit(Sign sign, Value_object<double>& object,
                         Value_object<double> const& other) {
    Units const& unit = Value_numbers::Unit_of(object);
    Units const& other_unit = Value_numbers::Unit_of(other);
    if (!Are_linear(unit, other_unit) || unit.si_prefix != NO_PREFIX ||
        !Are_same_units(unit, other_unit)) {
        return false;
    }
    Value_numbers::Store(
        object, Sum_of_numbers(sign, Value_numbers::Of(object), Value_numbers::Of_copy(other)));
    return true;
}

// The numbers, converted by factors and assigned.
Numbers Assigned_after_factors(Factors const& factors, Numbers const& numbers) {
    Numbers converted = After_factors(factors, numbers);
    converted.Order();
    return converted;
}

// The sum of linear values where factors are all that the way there and back takes; the unit stays
// as it is. False for all others.
bool Try_sum_by_factors(Sign sign, Value_object<double>& object,
                        Value_object<double> const& other) {
    auto const factors =
        Try_factors_of_both_ways(Value_numbers::Unit_of(object), Value_numbers::Unit_of(other));
    if (!factors) {
        return false;
    }
    Numbers const there = Assigned_after_factors(factors->there, Value_numbers::Of_copy(object));
    Numbers const sum = Sum_of_numbers(sign, there, Value_numbers::Of_copy(other));
    Value_numbers::Store(object, Assigned_after_factors(factors->back, sum));
    return true;
}

[[gnu::noinline]] void Add_in_different_units(Sign sign, Value_object<double>& object,
                                              Value_object<double> const& other) {
    if (Try_sum_by_factors(sign, object, other)) {
        return;
    }
    Units storage;
    Term const sum = Sum(sign, {Value_numbers::Of(object), Value_numbers::Unit_of(object)},
                         {Value_numbers::Of_copy(other), Value_numbers::Unit_of(other)}, storage);
    Value_numbers::Store(object, sum.numbers, sum.unit);
}

void Add(Sign sign, Value_object<double>& object, Value_object<double> const& other) {
    if (!Try_sum_in_one_unit(sign, object, other)) {
        Add_in_different_units(sign, object, other);
    }
}

} // namespace

template <typename Number>
Value_object<Number>& Value_object<Number>::operator+=(Value_object const& other) {
    Add(Sign::plus, *this, other);
    return *this;
}

template <typename Number>
Value_object<Number>& Value_object<Number>::operator-=(Value_object const& other) {
    Add(Sign::minus, *this, other);
    return *this;
}

// ---- The instantiations

template Value_object<double>& Value_object<double>::operator+=(Value_object const&);
template Value_object<double>& Value_object<double>::operator-=(Value_object const&);

} // namespace Varnix::Value
