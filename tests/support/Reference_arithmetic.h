// Sums and products, step by step as they are defined, on value objects and without short ways: what the operators
// are compared with. `=` is the assignment of value objects, which orders the bounds; so do `Set` and copies.

#ifndef VARNIX_VALUE_TESTS_REFERENCE_ARITHMETIC_H
#define VARNIX_VALUE_TESTS_REFERENCE_ARITHMETIC_H

#include "Test_support.h"

#include <cmath>
#include <utility>

namespace Varnix::Value::Tests {

inline bool Reference_is_bare(Units const& unit) {
    return Units_library::Compare_units(unit, C_Empty, false);
}

inline bool Reference_has_unit(Units const& unit) {
    return unit.tuples[0].unit != NO_UNIT;
}

inline Quantity Stored(Quantity const& result) {
    Quantity object;
    object.Set(result.Get_value(), result.Get_unit(), result.Get_minus_err(), result.Get_plus_err());
    return object;
}

// ---- Sums and differences: `sign` is 1 or -1

class Reference_sum {
  public:
    Reference_sum(Quantity const& left_, double sign_, Quantity const& right_)
        : left(left_), sign(sign_), right(right_), unit(left_.Get_unit()), right_unit(right_.Get_unit()) {}

    Quantity Result() {
        bool const left_decibels = unit.spl_conv == SPL_DB;
        bool const right_decibels = right_unit.spl_conv == SPL_DB;
        bool const plain = Reference_is_bare(unit) && Reference_is_bare(right_unit) && unit.si_prefix == 0 && right_unit.si_prefix == 0;
        if (left_decibels && right_decibels) {
            Of_decibels();
        } else if (!left_decibels && !right_decibels) {
            Of_linear();
        } else if (!left_decibels && !Reference_has_unit(right_unit) && !plain) {
            By_gain();
        } else {
            Of_one_in_decibels();
        }
        return Stored(result);
    }

  private:
    void Combine(Quantity& sum, Quantity const& x, Quantity const& y, Units const& sum_unit) const {
        auto const combined = [this](double first, double second) { return sign > 0 ? first + second : first - second; };
        sum.Set(combined(x.Get_value(), y.Get_value()), sum_unit, combined(x.Get_minus_err(), y.Get_minus_err()),
                combined(x.Get_plus_err(), y.Get_plus_err()));
    }

    void Of_decibels() {
        if (Reference_is_bare(unit) && Reference_is_bare(right_unit)) {
            return Combine(result, left, right, unit);
        }
        Require_units_of_both_or_none();
        if (!Units_library::Compare_units(right_unit, unit, true)) {
            right = right.Convert_to(unit);
        }
        result = Quantity::Normalize_DB(Quantity(left));
        right = Quantity::Normalize_DB(right);
        Combine(result, result, right, unit);
        result = Quantity::Apply_DB(result);
    }

    void Of_linear() {
        if (Units_library::Compare_units(right_unit, unit, true) && unit.si_prefix == 0) {
            return Combine(result, left, right, unit);
        }
        result.Set(left.Get_value(), unit, left.Get_minus_err(), left.Get_plus_err());
        Convert_or_refuse([this] {
            Quantity there;
            there = result.Convert_to(right_unit);
            Combine(there, there, right, there.Get_unit());
            result = there.Convert_to(unit);
        });
    }

    void By_gain() {
        Units level_unit = unit;
        level_unit.spl_conv = SPL_DB;
        result.Set(left.Get_value(), level_unit, left.Get_minus_err(), left.Get_plus_err());
        result = Quantity::Apply_DB(result);
        Combine(result, result, right, level_unit);
        result = Quantity::Normalize_DB(result);
        result.Set_unit(unit);
    }

    void Of_one_in_decibels() {
        Require_units_of_both_or_none();
        Units linear_unit = unit;
        linear_unit.spl_conv = SPL_NONE;
        Convert_or_refuse([&] { right = right.Convert_to(linear_unit); });
        result = Quantity::Normalize_DB(left);
        Combine(result, result, right, unit);
        result = Quantity::Apply_DB(result);
    }

    void Require_units_of_both_or_none() const {
        if (Reference_has_unit(unit) != Reference_has_unit(right_unit)) {
            throw UnitDimensionNotProper();
        }
    }

    // A difference has one failure for all.
    template <typename Convert>
    void Convert_or_refuse(Convert const& convert) {
        try {
            convert();
        } catch (Value_exception const&) {
            if (sign < 0) {
                throw UnitDimensionNotSame();
            }
            throw;
        }
    }

    Quantity const& left; // as it stands, where the other operand is a copy
    double sign;
    Quantity right;
    Units unit;
    Units right_unit;
    Quantity result;
};

// ---- Products and quotients: `sign` of the powers of the second is 1 or -1

class Reference_product {
  public:
    Reference_product(Quantity const& left_, int sign_, Quantity const& right_) : object(left_), sign(sign_), other(right_) {}

    Quantity Result() {
        Quantity left = sign > 0 ? Quantity(object) : Quantity(object.Get_value(), object.Get_unit(), object.Get_minus_err(), object.Get_plus_err());
        Quantity right(other);
        if (other.Get_unit().spl_conv == SPL_DB && (Reference_is_bare(other.Get_unit()) || Reference_is_bare(object.Get_unit()))) {
            throw OperationNotValid();
        }
        left = Quantity::Normalize_DB(left);
        right = Quantity::Normalize_DB(right);
        Remove_prefix(left);
        Remove_prefix(right);
        if (Quantity::Is_convertable_unit(object.Get_unit(), right.Get_unit())) {
            Units const base = Units_library::Get_base_unit(left.Get_unit());
            left = left.Convert_to(base);
            right = right.Convert_to(base);
        } else {
            Reconcile_slots(left, right);
        }
        return Combined(left, right);
    }

  private:
    // Multiplies the numbers where they stand. `Set` exchanges two bounds of which neither is larger.
    static void Scale(Quantity& quantity, double factor, Units const& unit) {
        double const minus_err = quantity.Get_minus_err() * factor;
        double const plus_err = quantity.Get_plus_err() * factor;
        bool const stays = plus_err > minus_err;
        quantity.Set(quantity.Get_value() * factor, unit, stays ? minus_err : plus_err, stays ? plus_err : minus_err);
    }

    static void Remove_prefix(Quantity& quantity) {
        Units unit = quantity.Get_unit();
        if (unit.si_prefix != NO_PREFIX) {
            double const scale = std::pow(Units_library::Get_unit_base(unit), static_cast<double>(unit.si_prefix));
            unit.si_prefix = NO_PREFIX;
            Scale(quantity, scale, unit);
        }
    }

    static void Express_slot(Quantity& quantity, std::size_t slot, Units_list base) {
        Units unit = quantity.Get_unit();
        Unit_tuple& tuple = unit.tuples[slot];
        double const factor = Units_library::Get_tuple_conversion_factor(tuple, {base, 1});
        tuple.unit = base;
        Scale(quantity, std::pow(factor, static_cast<double>(tuple.exponent)), unit);
    }

    static void Reconcile_slots(Quantity& left, Quantity& right) {
        for (std::size_t i = 0; i < Value_detail::Tuple_count; ++i) {
            for (std::size_t j = 0; j < Value_detail::Tuple_count; ++j) {
                Unit_tuple const own = left.Get_unit().tuples[i];
                Units_list const other = right.Get_unit().tuples[j].unit;
                if (own.unit != NO_UNIT && other != NO_UNIT && own.unit != other &&
                    Units_library::Get_dimension(own.unit) == Units_library::Get_dimension(other)) {
                    Units_list const base = Units_library::Get_base_unit(Unit({own})).tuples[0].unit;
                    Express_slot(left, i, base);
                    Express_slot(right, j, base);
                }
            }
        }
    }

    Quantity Combined(Quantity const& left, Quantity const& right) const {
        auto const combined = [this](double x, double y) { return sign > 0 ? x * y : x / y; };
        Units const unit = sign > 0 ? Units_library::Multiply_units(left.Get_unit(), right.Get_unit())
                                    : Units_library::Divide_units(left.Get_unit(), right.Get_unit());
        Quantity result;
        result.Set(combined(left.Get_value(), right.Get_value()), unit, combined(left.Get_minus_err(), right.Get_minus_err()),
                   combined(left.Get_plus_err(), right.Get_plus_err()));
        if (sign < 0) {
            Quantity::Is_value_in_range(result);
        }
        return result;
    }

    Quantity const& object;
    int sign;
    Quantity const& other;
};

// The product with a number, or the quotient.
inline Quantity Reference_scaled(Quantity const& object, int sign, double number) {
    Units const unit = object.Get_unit();
    Quantity result = sign > 0 ? Quantity(object) : Quantity(object.Get_value(), unit, object.Get_minus_err(), object.Get_plus_err());
    result = Quantity::Normalize_DB(result);
    auto const scaled = [&](double x) { return sign > 0 ? x * number : x / number; };
    double const minus_err = scaled(result.Get_minus_err());
    double const plus_err = scaled(result.Get_plus_err());
    result.Set(scaled(result.Get_value()), result.Get_unit(), minus_err, plus_err);
    if (sign < 0) {
        Quantity::Is_value_in_range(result);
    }
    if (unit.spl_conv == SPL_DB) {
        result = Quantity::Apply_DB(result);
    }
    return sign > 0 ? Stored(result) : Quantity(std::move(result)); // a quotient was not stored before, but for `Set` here
}

} // namespace Varnix::Value::Tests

#endif
