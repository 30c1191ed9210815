// Products and quotients of value objects. Every operator works on the numbers of its operands and
// stores its result once, at its end.

#include "errors/Throw.h"
#include "units/Tuples.h"
#include "units/Unit_facts.h"
#include "value/Term.h"

#include <cmath>

namespace Varnix::Value {

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

void Reject_decibels_without_unit(Units const& left, Units const& right) {
    if (Is_decibel(right) && (Is_bare(right) || Is_bare(left))) {
        Throw<OperationNotValid>();
    }
}

Numbers Linear_without_prefix(Term const& quantity) {
    Numbers numbers = Assigned_linear(quantity.numbers, quantity.unit);
    if (quantity.unit.si_prefix != NO_PREFIX) {
        numbers.Scale(Prefix_scale(quantity.unit.si_prefix));
    }
    return numbers;
}

Units Without_prefix(Units unit) {
    unit.si_prefix = NO_PREFIX;
    return unit;
}

Units_list Base_unit_of(Unit_tuple const& tuple) {
    return Units_library::Get_base_unit({SPL_NONE, NO_PREFIX, {tuple}}).tuples[0].unit;
}

// Expresses one slot in `base`, a unit of its dimension. The factor is that of the slot, raised to
// the slot's power once more: for reciprocal units it is the inverse of what it might seem.
void Express_slot_in(Units_list base, Operand& operand, Unit_tuple& tuple) {
    double const factor = Units_library::Get_tuple_conversion_factor(tuple, {base, 1});
    operand.numbers.Scale(std::pow(factor, static_cast<double>(tuple.exponent)));
    tuple.unit = base;
}

// Whether the slots hold different units of one dimension. An empty one does not take part.
bool Need_common_unit(Units_list left, Units_list right) {
    return right != NO_UNIT && Dimension_of(left) == Dimension_of(right) && left != right;
}

// Brings every two slots that hold different units of one dimension to the base unit. Later pairs
// see the units that earlier ones have put in place.
void Reconcile_slots(Operand& left, Operand& right) {
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

void Convert_operand(Operand& operand, Units const& target) {
    Units storage;
    Units const own_unit = operand.unit;
    operand.unit = Convert(operand.numbers, own_unit, target, storage);
}

// Gives the operands one unit for a dimension. `stored_unit` is the left operand's unit before it
// was arranged, with its prefix.
[[gnu::cold, gnu::noinline]] void Make_combinable(Operand& left, Operand& right,
                                                  Units const& stored_unit) {
    if (Value_object<double>::Is_convertable_unit(stored_unit, right.unit)) {
        Units const base = Units_library::Get_base_unit(left.unit);
        Convert_operand(left, base);
        Convert_operand(right, base);
    } else {
        Reconcile_slots(left, right);
    }
}

// ---- A short way

// Whether all slots from `first` on are empty.
bool Is_empty_from(std::size_t first, Units const& unit) {
    std::int32_t occupied = 0;
    for (std::size_t k = first; k < Value_detail::Tuple_count; ++k) {
        occupied |= unit.tuples[k].unit;
    }
    return occupied == NO_UNIT;
}

// Closes the gaps that cancelled tuples have left.
void Pack(Units& unit) {
    std::size_t count = 0;
    for (Unit_tuple const tuple : unit.tuples) {
        if (tuple.unit != NO_UNIT) {
            unit.tuples[count++] = tuple;
        }
    }
    for (; count < Value_detail::Tuple_count; ++count) {
        unit.tuples[count] = {};
    }
}

// Copies the tuples of a unit in canonical order to an empty one, and tells its dimensions; none
// for any other unit.
Dimension_set Take_tuples(Units const& from, Units& to) {
    Dimension_set dimensions = 0;
    std::size_t k = 0;
    for (; k < Value_detail::Tuple_count && from.tuples[k].unit != NO_UNIT; ++k) {
        Dimension_set const own = Facts_of(from.tuples[k].unit).dimension_set;
        if (own <= dimensions) {
            return 0;
        }
        dimensions |= own;
        to.tuples[k] = from.tuples[k];
    }
    return Is_empty_from(k, from) ? dimensions : 0;
}

// The unit of the product or the quotient of two, without prefix and marker, where both are in
// canonical order and hold the same unit in each dimension that they share: then there is nothing
// to make combinable. False for all others, and for what would not fit before tuples that cancel
// are dropped.
bool Try_joined_unit(Units const& left, std::int32_t sign_of_powers, Units const& right,
                     Units& joined) {
    Dimension_set const of_left = Take_tuples(left, joined);
    Dimension_set of_right = 0;
    std::size_t count = Count_of(of_left);
    bool gaps = false;
    std::size_t k = 0;
    for (; k < Value_detail::Tuple_count && right.tuples[k].unit != NO_UNIT; ++k) {
        Unit_tuple const& tuple = right.tuples[k];
        Dimension_set const own = Facts_of(tuple.unit).dimension_set;
        bool const shared = (own & of_left) != 0;
        if (own <= of_right || (!shared && count == Value_detail::Tuple_count)) {
            return false;
        }
        of_right |= own;
        Unit_tuple& place = joined.tuples[shared ? Count_of(of_left & (own - 1)) : count++];
        if (shared && place.unit != tuple.unit) {
            return false; // to be brought to a common unit first
        }
        place.exponent = Combined_exponent(place.exponent, sign_of_powers, tuple.exponent);
        bool const cancels = shared && place.exponent == 0;
        place.unit = cancels ? NO_UNIT : tuple.unit;
        gaps = gaps || cancels;
    }
    if (gaps) {
        Pack(joined);
    }
    return of_left != 0 && of_right != 0 && Is_empty_from(k, right);
}

// ---- The product

struct Operands {
    Operand left;
    Operand right;
};

// The two, linear and without prefix, with one unit for a dimension. `stored_unit` is the unit of
// `left` before it was arranged.
[[gnu::cold, gnu::noinline]] Operands In_common_units(Term const& left, Term const& right,
                                                      Units const& stored_unit) {
    Operands operands = {{Linear_without_prefix(left), Without_prefix(left.unit)},
                         {Linear_without_prefix(right), Without_prefix(right.unit)}};
    Make_combinable(operands.left, operands.right, stored_unit);
    return operands;
}

// The product or the quotient, its bounds as they come. `stored_unit` is the unit of `left` before
// it was arranged.
template <typename Operation>
Operand Product(Term const& left, Term const& right, Units const& stored_unit) {
    Units joined = {};
    if (Try_joined_unit(left.unit, Operation::sign_of_powers, right.unit, joined)) {
        return {Combined(Linear_without_prefix(left), Linear_without_prefix(right),
                         Operation::Of_numbers),
                joined};
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
    Value_numbers::Store(*this, product.numbers, product.unit);
    return *this;
}

template <typename Number>
Value_object<Number>& Value_object<Number>::operator/=(Value_object const& other) {
    bool const canonical = Canonical_dimensions(unit) != Not_canonical;
    Units const arranged = canonical ? unit : Arranged_and_packed(unit);
    Reject_decibels_without_unit(unit, other.unit);
    Operand const quotient = Product<Division>({Value_numbers::Of_copy(*this), arranged},
                                               {Value_numbers::Of_copy(other), other.unit}, unit);
    Require_finite(quotient.numbers);
    Value_numbers::Store(*this, quotient.numbers, quotient.unit);
    return *this;
}

// ---- Products and quotients with a number

template <typename Number>
Value_object<Number>& Value_object<Number>::operator*=(Number const& k) noexcept {
    Numbers numbers = Assigned_linear(Value_numbers::Of_copy(*this), unit);
    numbers.Scale(k);
    numbers.Order();
    numbers = Assigned_in_decibels(numbers, unit);
    Value_numbers::Store(*this, numbers, unit);
    return *this;
}

template <typename Number>
Value_object<Number>& Value_object<Number>::operator/=(Number const& k) {
    Value_object const arranged(value, unit, minus_err, plus_err);
    Numbers numbers = Assigned_linear(Value_numbers::Of(arranged), arranged.unit);
    numbers.Transform([divisor = k](Number number) { return number / divisor; });
    Require_finite(numbers);
    numbers = Assigned_in_decibels(numbers, arranged.unit);
    Value_numbers::Store(*this, numbers, arranged.unit);
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

// ---- The instantiations

template Value_object<double>& Value_object<double>::operator*=(Value_object const&);
template Value_object<double>& Value_object<double>::operator/=(Value_object const&);
template Value_object<double>& Value_object<double>::operator*=(double const&) noexcept;
template Value_object<double>& Value_object<double>::operator/=(double const&);
template Value_object<double> Value_object<double>::operator*(double const&) const noexcept;
template Value_object<double> Value_object<double>::operator/(double const&) const;

} // namespace Varnix::Value
