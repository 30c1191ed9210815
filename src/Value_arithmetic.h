// Arithmetic of value objects. Every operator works on copies and stores its result once, at its
// end.

#ifndef VARNIX_VALUE_VALUE_ARITHMETIC_H
#define VARNIX_VALUE_VALUE_ARITHMETIC_H

#include "Unit_facts.h"
#include "Value_steps.h"

#include <cmath>

namespace Varnix::Value {

// ---- Sums and differences

namespace {

// What addition and subtraction do differently: how two numbers combine, and what becomes of a
// conversion that fails.
struct Addition {
    static double Combine(double left, double right) { return left + right; }

    static Value_object<double> Convert(Value_object<double> const& object, Units const& target) {
        return object.Convert_to(target);
    }
};

struct Subtraction {
    static double Combine(double left, double right) { return left - right; }

    static Value_object<double> Convert(Value_object<double> const& object, Units const& target) {
        try {
            return object.Convert_to(target);
        } catch (Value_exception const&) {
            throw UnitDimensionNotSame();
        }
    }
};

// The numbers combined field by field, the bounds ordered, in the unit of `left`.
template <typename Operation>
Value_object<double> Combined(Value_object<double> const& left, Value_object<double> const& right) {
    Value_object<double> result = Value_numbers::Combined(Operation::Combine, left, right);
    result.Set_plus_minus_err(result.Get_plus_err(), result.Get_minus_err());
    result.Set_unit(left.Get_unit());
    return result;
}

inline bool Has_unit(Value_object<double> const& object) {
    return object.Get_unit().tuples[0].unit != NO_UNIT;
}

inline void Require_units_of_both_or_none(Value_object<double> const& left,
                                          Value_object<double> const& right) {
    if (Has_unit(left) != Has_unit(right)) {
        throw UnitDimensionNotProper();
    }
}

template <typename Operation>
Value_object<double> Combined_linear(Value_object<double> const& left,
                                     Value_object<double> const& right) {
    Units const unit = left.Get_unit();
    if (unit.si_prefix == NO_PREFIX && Units_library::Compare_units(right.Get_unit(), unit, true)) {
        return Combined<Operation>(left, right);
    }
    Value_object<double> const left_in_unit_of_right = Operation::Convert(left, right.Get_unit());
    return Operation::Convert(Combined<Operation>(left_in_unit_of_right, right), unit);
}

template <typename Operation>
Value_object<double> Combined_decibels(Value_object<double> const& left,
                                       Value_object<double> const& right) {
    Units const unit = left.Get_unit();
    if (Is_bare(unit) && Is_bare(right.Get_unit())) {
        return Combined<Operation>(left, right);
    }
    Require_units_of_both_or_none(left, right);
    bool const same_units = Units_library::Compare_units(right.Get_unit(), unit, true);
    Value_object<double> const right_in_unit = same_units ? right : right.Convert_to(unit);
    return Value_object<double>::Apply_DB(
        Combined<Operation>(Value_object<double>::Normalize_DB(left),
                            Value_object<double>::Normalize_DB(right_in_unit)));
}

// A linear value, scaled by a plain ratio in decibels.
template <typename Operation>
Value_object<double> Scaled_by_gain(Value_object<double> const& linear,
                                    Value_object<double> const& gain) {
    Units decibel_unit = linear.Get_unit();
    decibel_unit.spl_conv = SPL_DB;
    Value_object<double> level = linear;
    level.Set_unit(decibel_unit);
    level = Value_object<double>::Apply_DB(level);
    Value_object<double> result =
        Value_object<double>::Normalize_DB(Combined<Operation>(level, gain));
    result.Set_unit(linear.Get_unit());
    return result;
}

// The two quantities, one of them in decibels, both linear in the unit of `left`, which the result
// has again.
template <typename Operation>
Value_object<double> Combined_with_one_in_decibels(Value_object<double> const& left,
                                                   Value_object<double> const& right) {
    Require_units_of_both_or_none(left, right);
    Units linear_unit = left.Get_unit();
    linear_unit.spl_conv = SPL_NONE;
    return Value_object<double>::Apply_DB(Combined<Operation>(
        Value_object<double>::Normalize_DB(left), Operation::Convert(right, linear_unit)));
}

// The sum or the difference, in the unit of `left`.
template <typename Operation>
Value_object<double> Sum(Value_object<double> const& left, Value_object<double> const& right) {
    bool const left_in_decibels = Is_decibel(left.Get_unit());
    bool const right_in_decibels = Is_decibel(right.Get_unit());
    if (left_in_decibels && right_in_decibels) {
        return Combined_decibels<Operation>(left, right);
    }
    if (!left_in_decibels && !right_in_decibels) {
        return Combined_linear<Operation>(left, right);
    }
    if (right_in_decibels && Has_unit(left) && !Has_unit(right)) {
        return Scaled_by_gain<Operation>(left, right);
    }
    return Combined_with_one_in_decibels<Operation>(left, right);
}

} // namespace

template <typename Number>
Value_object<Number>& Value_object<Number>::operator+=(Value_object const& other) {
    return *this = Sum<Addition>(*this, Value_object(other));
}

template <typename Number>
Value_object<Number>& Value_object<Number>::operator-=(Value_object const& other) {
    return *this = Sum<Subtraction>(*this, Value_object(other));
}

// ---- Products and quotients

namespace {

struct Operands {
    Value_object<double> left;
    Value_object<double> right;
};

inline void Reject_decibels_without_unit(Units const& left, Units const& right) {
    if (Is_decibel(right) && (Is_bare(right) || Is_bare(left))) {
        throw OperationNotValid();
    }
}

inline void Remove_prefix(Value_object<double>& object) {
    Units unit = object.Get_unit();
    Scale_numbers(object, Prefix_scale(unit.si_prefix));
    unit.si_prefix = NO_PREFIX;
    object.Set_unit(unit);
}

inline Units_list Base_unit_of(Unit_tuple const& tuple) {
    return Units_library::Get_base_unit({SPL_NONE, NO_PREFIX, {tuple}}).tuples[0].unit;
}

// Expresses one slot in `base`, a unit of its dimension. The factor is that of the slot, raised to
// the slot's power once more: for reciprocal units it is the inverse of what it might seem.
inline void Express_slot_in(Units_list base, Value_object<double>& object, std::size_t slot) {
    Units unit = object.Get_unit();
    Unit_tuple& tuple = unit.tuples[slot];
    double const factor = Units_library::Get_tuple_conversion_factor(tuple, {base, 1});
    Scale_numbers(object, std::pow(factor, static_cast<double>(tuple.exponent)));
    tuple.unit = base;
    object.Set_unit(unit);
}

// Whether two slots hold different units of one dimension. Empty slots do not take part.
inline bool Need_common_unit(Units_list left, Units_list right) {
    return left != NO_UNIT && right != NO_UNIT && Dimension_of(left) == Dimension_of(right) &&
           left != right;
}

// Brings every two slots that hold different units of one dimension to the base unit. Later pairs
// see the units that earlier ones have put in place.
inline void Reconcile_slots(Operands& operands) {
    for (std::size_t i = 0; i < Tuple_count; ++i) {
        for (std::size_t j = 0; j < Tuple_count; ++j) {
            Unit_tuple const left = operands.left.Get_unit().tuples[i];
            Units_list const right = operands.right.Get_unit().tuples[j].unit;
            if (Need_common_unit(left.unit, right)) {
                Units_list const base = Base_unit_of(left);
                Express_slot_in(base, operands.left, i);
                Express_slot_in(base, operands.right, j);
            }
        }
    }
}

inline void Convert_to_base_units(Operands& operands) {
    Units const base = Units_library::Get_base_unit(operands.left.Get_unit());
    operands.left = operands.left.Convert_to(base);
    operands.right = operands.right.Convert_to(base);
}

// The operands of a product or a quotient: linear, without prefix, with one unit for a dimension.
// `stored_unit` is the left operand's unit before it was arranged.
inline Operands Made_combinable(Value_object<double> const& left, Value_object<double> const& right,
                                Units const& stored_unit) {
    Reject_decibels_without_unit(stored_unit, right.Get_unit());
    Operands operands = {Value_object<double>::Normalize_DB(left),
                         Value_object<double>::Normalize_DB(right)};
    Remove_prefix(operands.left);
    Remove_prefix(operands.right);
    if (Value_object<double>::Is_convertable_unit(stored_unit, right.Get_unit())) {
        Convert_to_base_units(operands);
    } else {
        Reconcile_slots(operands);
    }
    return operands;
}

} // namespace

template <typename Number>
Value_object<Number>& Value_object<Number>::operator*=(Value_object const& other) {
    Operands const operands = Made_combinable(Value_object(*this), Value_object(other), unit);
    Value_object product = Value_numbers::Combined(
        [](Number left, Number right) { return left * right; }, operands.left, operands.right);
    product.unit = Units_library::Multiply_units(operands.left.unit, operands.right.unit);
    return *this = product;
}

template <typename Number>
Value_object<Number>& Value_object<Number>::operator/=(Value_object const& other) {
    Value_object const arranged(value, unit, minus_err, plus_err);
    Operands const operands = Made_combinable(arranged, Value_object(other), unit);
    Value_object quotient = Value_numbers::Combined(
        [](Number left, Number right) { return left / right; }, operands.left, operands.right);
    quotient.unit = Units_library::Divide_units(operands.left.unit, operands.right.unit);
    Is_value_in_range(quotient);
    return *this = quotient;
}

// ---- Products and quotients with a number

template <typename Number>
Value_object<Number>& Value_object<Number>::operator*=(Number const& k) noexcept {
    Value_object linear = Normalize_DB(*this);
    linear.Set(linear.value * k, unit, linear.minus_err * k, linear.plus_err * k);
    return *this = Apply_DB(linear);
}

template <typename Number>
Value_object<Number>& Value_object<Number>::operator/=(Number const& k) {
    Value_object const arranged(value, unit, minus_err, plus_err);
    Value_object linear = Normalize_DB(arranged);
    Value_numbers::Transform(linear, [divisor = k](Number number) { return number / divisor; });
    Is_value_in_range(linear);
    return *this = Apply_DB(linear);
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
