// Arithmetic of value objects. Every operator works on the numbers of its operands and stores its
// result once, at its end.

#ifndef VARNIX_VALUE_VALUE_ARITHMETIC_H
#define VARNIX_VALUE_VALUE_ARITHMETIC_H

#include "Throw.h"
#include "Tuples.h"
#include "Unit_facts.h"
#include "Value_conversion.h"
#include "Value_steps.h"

#include <cmath>

namespace Varnix::Value {

// ---- Sums and differences

namespace {

// An operand or a result: numbers, and the unit they are in, which lies elsewhere.
struct Quantity {
    Numbers numbers;
    Units const& unit;
};

// Converts the quantity's numbers into `target`, and returns that unit in canonical order: itself,
// or an arranged copy in `storage`.
inline Units const& Convert(Numbers& numbers, Units const& from, Units const& target,
                            Units& storage) {
    Conversion_steps steps;
    Units const& arranged = Plan_conversion(steps, from, target, storage);
    numbers = Converted(numbers, steps);
    return arranged;
}

// What addition and subtraction do differently: how two numbers combine, and what becomes of a
// conversion that fails.
struct Addition {
    static double Combine(double left, double right) { return left + right; }

    static Units const& Convert_or_fail(Numbers& numbers, Units const& from, Units const& target,
                                        Units& storage) {
        return Convert(numbers, from, target, storage);
    }
};

struct Subtraction {
    static double Combine(double left, double right) { return left - right; }

    static Units const& Convert_or_fail(Numbers& numbers, Units const& from, Units const& target,
                                        Units& storage) {
        try {
            return Convert(numbers, from, target, storage);
        } catch (Value_exception const&) {
            throw UnitDimensionNotSame();
        }
    }
};

// The numbers combined field by field, the bounds ordered.
template <typename Operation>
Numbers Sum_of_numbers(Numbers const& left, Numbers const& right) {
    Numbers sum = Combined(left, right, Operation::Combine);
    sum.Order();
    return sum;
}

inline void Require_units_of_both_or_none(Units const& left, Units const& right) {
    if (Has_unit(left) != Has_unit(right)) {
        Throw<UnitDimensionNotProper>();
    }
}

// Equal tuples and prefixes; the markers are not looked at.
inline bool Are_same_units(Units const& left, Units const& right) {
    return left.si_prefix == right.si_prefix && Have_equal_tuples(left, right);
}

// The sum forms in the unit of `right` and is brought back into that of `left`, arranged.
template <typename Operation>
Quantity Sum_in_unit_of_right(Quantity const& left, Quantity const& right, Units& storage) {
    Units right_storage;
    Numbers sum = left.numbers;
    Units const& right_unit = Operation::Convert_or_fail(sum, left.unit, right.unit, right_storage);
    sum = Sum_of_numbers<Operation>(sum, right.numbers);
    Units const& left_unit = Operation::Convert_or_fail(sum, right_unit, left.unit, storage);
    return {sum, left_unit};
}

template <typename Operation>
Quantity Sum_of_linear(Quantity const& left, Quantity const& right, Units& storage) {
    if (left.unit.si_prefix == NO_PREFIX && Are_same_units(left.unit, right.unit)) {
        return {Sum_of_numbers<Operation>(left.numbers, right.numbers), left.unit};
    }
    return Sum_in_unit_of_right<Operation>(left, right, storage);
}

template <typename Operation>
[[gnu::noinline]] Quantity Sum_of_decibels(Quantity const& left, Quantity const& right) {
    if (Is_bare(left.unit) && Is_bare(right.unit)) {
        return {Sum_of_numbers<Operation>(left.numbers, right.numbers), left.unit};
    }
    Require_units_of_both_or_none(left.unit, right.unit);
    Numbers right_in_unit = right.numbers;
    if (!Are_same_units(left.unit, right.unit)) {
        Units storage;
        Convert(right_in_unit, right.unit, left.unit, storage);
    }
    Numbers copy = left.numbers; // as `right` is one: a bound that is not a number meets its like
    copy.Order();
    Numbers const sum =
        Sum_of_numbers<Operation>(Linear(copy, left.unit), Linear(right_in_unit, left.unit));
    return {In_decibels(sum, left.unit), left.unit};
}

// A linear value, scaled by a plain ratio in decibels.
template <typename Operation>
Quantity Scaled_by_gain(Quantity const& linear, Quantity const& gain) {
    Units decibel_unit = linear.unit;
    decibel_unit.spl_conv = SPL_DB;
    Numbers level = linear.numbers;
    level.Order();
    level = In_decibels(level, decibel_unit);
    level.Order();
    Numbers const sum = Sum_of_numbers<Operation>(level, gain.numbers);
    return {Linear(sum, decibel_unit), linear.unit};
}

// The two quantities, one of them in decibels, both linear in the unit of `left`, which the result
// has again.
template <typename Operation>
Quantity Sum_with_one_in_decibels(Quantity const& left, Quantity const& right) {
    Require_units_of_both_or_none(left.unit, right.unit);
    Units linear_unit = left.unit;
    linear_unit.spl_conv = SPL_NONE;
    Units storage;
    Numbers right_in_unit = right.numbers;
    Operation::Convert_or_fail(right_in_unit, right.unit, linear_unit, storage);
    Numbers const sum = Sum_of_numbers<Operation>(Linear(left.numbers, left.unit), right_in_unit);
    return {In_decibels(sum, left.unit), left.unit};
}

// The sum or the difference, in the unit of `left`; `storage` holds that unit if it has to be
// arranged.
template <typename Operation>
Quantity Sum(Quantity const& left, Quantity const& right, Units& storage) {
    bool const left_in_decibels = Is_decibel(left.unit);
    bool const right_in_decibels = Is_decibel(right.unit);
    if (left_in_decibels && right_in_decibels) {
        return Sum_of_decibels<Operation>(left, right);
    }
    if (!left_in_decibels && !right_in_decibels) {
        return Sum_of_linear<Operation>(left, right, storage);
    }
    if (right_in_decibels && Has_unit(left.unit) && !Has_unit(right.unit)) {
        return Scaled_by_gain<Operation>(left, right);
    }
    return Sum_with_one_in_decibels<Operation>(left, right);
}

template <typename Operation>
void Add(Value_object<double>& object, Value_object<double> const& other) {
    Units storage;
    Quantity const sum =
        Sum<Operation>({Value_numbers::Of(object), Value_numbers::Unit_of(object)},
                       {Value_numbers::Of_copy(other), Value_numbers::Unit_of(other)}, storage);
    object.Set(sum.numbers.value, sum.unit, sum.numbers.minus_err, sum.numbers.plus_err);
}

} // namespace

template <typename Number>
Value_object<Number>& Value_object<Number>::operator+=(Value_object const& other) {
    Add<Addition>(*this, other);
    return *this;
}

template <typename Number>
Value_object<Number>& Value_object<Number>::operator-=(Value_object const& other) {
    Add<Subtraction>(*this, other);
    return *this;
}

// ---- Products and quotients

namespace {

struct Operand {
    Numbers numbers;
    Units unit;
};

inline void Reject_decibels_without_unit(Units const& left, Units const& right) {
    if (Is_decibel(right) && (Is_bare(right) || Is_bare(left))) {
        Throw<OperationNotValid>();
    }
}

// The marker stays in the unit.
inline void Make_linear_without_prefix(Operand& operand) {
    operand.numbers = Linear(operand.numbers, operand.unit);
    if (operand.unit.si_prefix != NO_PREFIX) {
        operand.numbers.Scale(Prefix_scale(operand.unit.si_prefix));
        operand.unit.si_prefix = NO_PREFIX;
    }
}

inline Units_list Base_unit_of(Unit_tuple const& tuple) {
    return Units_library::Get_base_unit({SPL_NONE, NO_PREFIX, {tuple}}).tuples[0].unit;
}

// Expresses one slot in `base`, a unit of its dimension. The factor is that of the slot, raised to
// the slot's power once more: for reciprocal units it is the inverse of what it might seem.
inline void Express_slot_in(Units_list base, Operand& operand, Unit_tuple& tuple) {
    double const factor = Units_library::Get_tuple_conversion_factor(tuple, {base, 1});
    operand.numbers.Scale(std::pow(factor, static_cast<double>(tuple.exponent)));
    tuple.unit = base;
}

// Whether the slots hold different units of one dimension. An empty one does not take part.
inline bool Need_common_unit(Units_list left, Units_list right) {
    return right != NO_UNIT && Dimension_of(left) == Dimension_of(right) && left != right;
}

// Brings every two slots that hold different units of one dimension to the base unit. Later pairs
// see the units that earlier ones have put in place.
inline void Reconcile_slots(Operand& left, Operand& right) {
    for (Unit_tuple& left_tuple : left.unit.tuples) {
        if (left_tuple.unit == NO_UNIT) {
            continue;
        }
        for (Unit_tuple& right_tuple : right.unit.tuples) {
            if (Need_common_unit(left_tuple.unit, right_tuple.unit)) {
                Units_list const base = Base_unit_of(left_tuple);
                Express_slot_in(base, left, left_tuple);
                Express_slot_in(base, right, right_tuple);
            }
        }
    }
}

inline void Convert_operand(Operand& operand, Units const& target) {
    Units storage;
    Units const own_unit = operand.unit;
    operand.unit = Convert(operand.numbers, own_unit, target, storage);
    operand.numbers.Order();
}

// Makes the operands of a product or a quotient combinable: linear, without prefix, with one unit
// for a dimension. `stored_unit` is the left operand's unit before it was arranged.
[[gnu::noinline]] inline void Make_combinable(Operand& left, Operand& right,
                                              Units const& stored_unit) {
    Make_linear_without_prefix(left);
    Make_linear_without_prefix(right);
    if (Value_object<double>::Is_convertable_unit(stored_unit, right.unit)) {
        Units const base = Units_library::Get_base_unit(left.unit);
        Convert_operand(left, base);
        Convert_operand(right, base);
    } else {
        Reconcile_slots(left, right);
    }
}

} // namespace

template <typename Number>
Value_object<Number>& Value_object<Number>::operator*=(Value_object const& other) {
    Reject_decibels_without_unit(unit, other.unit);
    Operand left = {Value_numbers::Of_copy(*this), unit};
    Operand right = {Value_numbers::Of_copy(other), other.unit};
    Make_combinable(left, right, unit);
    Numbers const product =
        Combined(left.numbers, right.numbers, [](Number x, Number y) { return x * y; });
    Set(product.value, Units_library::Multiply_units(left.unit, right.unit), product.minus_err,
        product.plus_err);
    return *this;
}

template <typename Number>
Value_object<Number>& Value_object<Number>::operator/=(Value_object const& other) {
    Value_object const arranged(value, unit, minus_err, plus_err);
    Reject_decibels_without_unit(unit, other.unit);
    Operand left = {Value_numbers::Of(arranged), arranged.unit};
    Operand right = {Value_numbers::Of_copy(other), other.unit};
    Make_combinable(left, right, unit);
    Value_object const quotient = Value_numbers::Made(
        Combined(left.numbers, right.numbers, [](Number x, Number y) { return x / y; }),
        Units_library::Divide_units(left.unit, right.unit));
    Is_value_in_range(quotient);
    return *this = quotient;
}

// ---- Products and quotients with a number

template <typename Number>
Value_object<Number>& Value_object<Number>::operator*=(Number const& k) noexcept {
    Numbers numbers = Linear(Value_numbers::Of(*this), unit);
    numbers.Scale(k);
    numbers.Order();
    numbers = In_decibels(numbers, unit);
    Set(numbers.value, unit, numbers.minus_err, numbers.plus_err);
    return *this;
}

template <typename Number>
Value_object<Number>& Value_object<Number>::operator/=(Number const& k) {
    Value_object const arranged(value, unit, minus_err, plus_err);
    Numbers numbers = Linear(Value_numbers::Of(arranged), arranged.unit);
    numbers.Transform([divisor = k](Number number) { return number / divisor; });
    Is_value_in_range(Value_numbers::Made(numbers, arranged.unit));
    numbers = In_decibels(numbers, arranged.unit);
    Set(numbers.value, arranged.unit, numbers.minus_err, numbers.plus_err);
    return *this;
}

template <typename Number>
Value_object<Number> Value_object<Number>::operator*(Number const& k) const noexcept {
    Value_object result = *this;
    result *= k;
    return result;
}

template <typename Number>
Value_object<Number> Value_object<Number>::operator/(Number const& k) const {
    Value_object result = *this;
    result /= k;
    return result;
}

} // namespace Varnix::Value

#endif
