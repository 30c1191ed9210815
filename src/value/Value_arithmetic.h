// Arithmetic of value objects. Every operator works on the numbers of its operands and stores its
// result once, at its end.

#ifndef VARNIX_VALUE_VALUE_ARITHMETIC_H
#define VARNIX_VALUE_VALUE_ARITHMETIC_H

#include "conversion/Value_steps.h"
#include "errors/Throw.h"
#include "units/Tuples.h"
#include "units/Unit_facts.h"
#include "value/Value_conversion.h"

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
[[gnu::noinline]] inline Units const& Convert(Numbers& numbers, Units const& from,
                                              Units const& target, Units& storage) {
    Conversion_steps steps;
    Units const& arranged = Plan_conversion(steps, from, target, storage);
    numbers = Value_numbers::Of(Converted(Value_numbers::Made(numbers, from), steps, arranged));
    return arranged;
}

enum class Sign { plus, minus };

// Converts an operand or a result of the sum or the difference; a difference reports every failure
// as one of the dimensions.
inline Units const& Convert_for(Sign sign, Numbers& numbers, Units const& from, Units const& target,
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
inline Numbers Sum_of_numbers(Sign sign, Numbers const& left, Numbers const& right) {
    Numbers sum = sign == Sign::plus
                      ? Combined(left, right, [](double x, double y) { return x + y; })
                      : Combined(left, right, [](double x, double y) { return x - y; });
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
[[gnu::cold, gnu::noinline]] inline Quantity
Sum_in_unit_of_right(Sign sign, Quantity const& left, Quantity const& right, Units& storage) {
    Units right_storage;
    Numbers sum = left.numbers;
    Units const& right_unit = Convert_for(sign, sum, left.unit, right.unit, right_storage);
    sum = Sum_of_numbers(sign, sum, right.numbers);
    Units const& left_unit = Convert_for(sign, sum, right_unit, left.unit, storage);
    return {sum, left_unit};
}

// The same where factors are all that the two conversions take.
inline Quantity Sum_by_factors(Sign sign, Quantity const& left, Quantity const& right,
                               Factors_of_both_ways const& factors) {
    Numbers const sum =
        Sum_of_numbers(sign, After_factors(left.numbers, factors.there), right.numbers);
    return {After_factors(sum, factors.back), left.unit};
}

[[gnu::noinline]] inline Quantity Sum_of_different_units(Sign sign, Quantity const& left,
                                                         Quantity const& right, Units& storage) {
    auto const factors = Find_factors_of_both_ways(left.unit, right.unit);
    return factors ? Sum_by_factors(sign, left, right, *factors)
                   : Sum_in_unit_of_right(sign, left, right, storage);
}

inline Quantity Sum_of_linear(Sign sign, Quantity const& left, Quantity const& right,
                              Units& storage) {
    if (left.unit.si_prefix == NO_PREFIX && Are_same_units(left.unit, right.unit)) {
        return {Sum_of_numbers(sign, left.numbers, right.numbers), left.unit};
    }
    return Sum_of_different_units(sign, left, right, storage);
}

[[gnu::noinline]] inline Quantity Sum_of_decibels(Sign sign, Quantity const& left,
                                                  Quantity const& right) {
    if (Is_bare(left.unit) && Is_bare(right.unit)) {
        return {Sum_of_numbers(sign, left.numbers, right.numbers), left.unit};
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
        Sum_of_numbers(sign, Linear(copy, left.unit), Linear(right_in_unit, left.unit));
    return {In_decibels(sum, left.unit), left.unit};
}

// Whether a plain ratio in decibels scales a linear value. It does so for every unit of that value
// but one: without unit and without a prefix on either side, both are quantities.
inline bool Is_gain(Units const& linear, Units const& ratio) {
    bool const both_plain =
        Is_bare(linear) && linear.si_prefix == NO_PREFIX && ratio.si_prefix == NO_PREFIX;
    return !Is_decibel(linear) && Is_decibel(ratio) && !Has_unit(ratio) && !both_plain;
}

// A linear value, scaled by a plain ratio in decibels.
inline Quantity Scaled_by_gain(Sign sign, Quantity const& linear, Quantity const& gain) {
    Units decibel_unit = linear.unit;
    decibel_unit.spl_conv = SPL_DB;
    Numbers level = linear.numbers;
    level.Order();
    level = In_decibels(level, decibel_unit);
    level.Order();
    Numbers const sum = Sum_of_numbers(sign, level, gain.numbers);
    return {Linear(sum, decibel_unit), linear.unit};
}

// The two quantities, one of them in decibels, both linear in the unit of `left`, which the result
// has again.
inline Quantity Sum_with_one_in_decibels(Sign sign, Quantity const& left, Quantity const& right) {
    Require_units_of_both_or_none(left.unit, right.unit);
    Units linear_unit = left.unit;
    linear_unit.spl_conv = SPL_NONE;
    Units storage;
    Numbers right_in_unit = right.numbers;
    Convert_for(sign, right_in_unit, right.unit, linear_unit, storage);
    Numbers const sum = Sum_of_numbers(sign, Linear(left.numbers, left.unit), right_in_unit);
    return {In_decibels(sum, left.unit), left.unit};
}

// The sum or the difference of which at least one operand is in decibels.
[[gnu::noinline]] inline Quantity Sum_with_decibels(Sign sign, Quantity const& left,
                                                    Quantity const& right) {
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
inline Quantity Sum(Sign sign, Quantity const& left, Quantity const& right, Units& storage) {
    return Is_decibel(left.unit) || Is_decibel(right.unit)
               ? Sum_with_decibels(sign, left, right)
               : Sum_of_linear(sign, left, right, storage);
}

inline void Add(Sign sign, Value_object<double>& object, Value_object<double> const& other) {
    Units storage;
    Quantity const sum =
        Sum(sign, {Value_numbers::Of(object), Value_numbers::Unit_of(object)},
            {Value_numbers::Of_copy(other), Value_numbers::Unit_of(other)}, storage);
    object.Set(sum.numbers.value, sum.unit, sum.numbers.minus_err, sum.numbers.plus_err);
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

// ---- Products and quotients

namespace {

struct Operand {
    Numbers numbers;
    Units unit;
};

// What a product and a quotient do differently.
struct Multiplication {
    static constexpr std::int32_t sign_of_powers = 1;
    static double Of_numbers(double left, double right) { return left * right; }
    static Units Of_units(Units const& left, Units const& right) {
        return Units_library::Multiply_units(left, right);
    }
};

struct Division {
    static constexpr std::int32_t sign_of_powers = -1;
    static double Of_numbers(double left, double right) { return left / right; }
    static Units Of_units(Units const& left, Units const& right) {
        return Units_library::Divide_units(left, right);
    }
};

inline void Reject_decibels_without_unit(Units const& left, Units const& right) {
    if (Is_decibel(right) && (Is_bare(right) || Is_bare(left))) {
        Throw<OperationNotValid>();
    }
}

inline Numbers Linear_without_prefix(Quantity const& quantity) {
    Numbers numbers = Linear(quantity.numbers, quantity.unit);
    if (quantity.unit.si_prefix != NO_PREFIX) {
        numbers.Scale(Prefix_scale(quantity.unit.si_prefix));
    }
    return numbers;
}

inline Units Without_prefix(Units unit) {
    unit.si_prefix = NO_PREFIX;
    return unit;
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

// Gives the operands one unit for a dimension. `stored_unit` is the left operand's unit before it
// was arranged, with its prefix.
[[gnu::cold, gnu::noinline]] inline void Make_combinable(Operand& left, Operand& right,
                                                         Units const& stored_unit) {
    if (Value_object<double>::Is_convertable_unit(stored_unit, right.unit)) {
        Units const base = Units_library::Get_base_unit(left.unit);
        Convert_operand(left, base);
        Convert_operand(right, base);
    } else {
        Reconcile_slots(left, right);
    }
}

// Whether both are units in canonical order and no dimension of one is one of the other: then there
// is nothing to make combinable.
inline bool Share_no_dimension(Units const& left, Units const& right) {
    Dimension_set const of_left = Canonical_dimensions(left);
    Dimension_set const of_right = Canonical_dimensions(right);
    return of_left != 0 && of_right != 0 && (of_left & of_right) == 0;
}

// The unit of the product or the quotient of such two, without prefix and marker: what combining
// them comes to.
inline Units Joined_unit(Units const& left, std::int32_t sign_of_powers, Units const& right) {
    Units joined = {};
    std::size_t count = 0;
    for (; count < Tuple_count && left.tuples[count].unit != NO_UNIT; ++count) {
        joined.tuples[count] = left.tuples[count];
    }
    for (Unit_tuple const& tuple : right.tuples) {
        if (tuple.unit == NO_UNIT) {
            break;
        }
        if (count == Tuple_count) {
            Throw<OperationExceedingAllowedTuples>();
        }
        joined.tuples[count++] = {tuple.unit, Combined_exponent(0, sign_of_powers, tuple.exponent)};
    }
    return joined;
}

struct Operands {
    Operand left;
    Operand right;
};

// The two, linear and without prefix, with one unit for a dimension. `stored_unit` is the unit of
// `left` before it was arranged.
[[gnu::cold, gnu::noinline]] inline Operands
In_common_units(Quantity const& left, Quantity const& right, Units const& stored_unit) {
    Operands operands = {{Linear_without_prefix(left), Without_prefix(left.unit)},
                         {Linear_without_prefix(right), Without_prefix(right.unit)}};
    Make_combinable(operands.left, operands.right, stored_unit);
    return operands;
}

// The product or the quotient, its bounds as they come. `stored_unit` is the unit of `left` before
// it was arranged.
template <typename Operation>
Operand Product(Quantity const& left, Quantity const& right, Units const& stored_unit) {
    if (Share_no_dimension(left.unit, right.unit)) {
        return {Combined(Linear_without_prefix(left), Linear_without_prefix(right),
                         Operation::Of_numbers),
                Joined_unit(left.unit, Operation::sign_of_powers, right.unit)};
    }
    Operands const operands = In_common_units(left, right, stored_unit);
    return {Combined(operands.left.numbers, operands.right.numbers, Operation::Of_numbers),
            Operation::Of_units(operands.left.unit, operands.right.unit)};
}

} // namespace

template <typename Number>
Value_object<Number>& Value_object<Number>::operator*=(Value_object const& other) {
    Reject_decibels_without_unit(unit, other.unit);
    Operand const product = Product<Multiplication>(
        {Value_numbers::Of_copy(*this), unit}, {Value_numbers::Of_copy(other), other.unit}, unit);
    Set(product.numbers.value, product.unit, product.numbers.minus_err, product.numbers.plus_err);
    return *this;
}

template <typename Number>
Value_object<Number>& Value_object<Number>::operator/=(Value_object const& other) {
    Units storage;
    Units const& arranged = Arranged_source(unit, storage);
    Reject_decibels_without_unit(unit, other.unit);
    Operand const quotient = Product<Division>({Value_numbers::Of_copy(*this), arranged},
                                               {Value_numbers::Of_copy(other), other.unit}, unit);
    Require_finite(quotient.numbers);
    Set(quotient.numbers.value, quotient.unit, quotient.numbers.minus_err,
        quotient.numbers.plus_err);
    return *this;
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
    Require_finite(numbers);
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
