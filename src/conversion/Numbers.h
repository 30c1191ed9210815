// Value and bounds as they are worked on, and what conversions and arithmetic ask of a unit.
//
// Nothing here is kept by anyone: an algorithm takes the numbers out of its operands, works on
// them, and makes or stores the result at its end.

#ifndef VARNIX_VALUE_CONVERSION_NUMBERS_H
#define VARNIX_VALUE_CONVERSION_NUMBERS_H

#include "conversion/Formulas.h"
#include "errors/Throw.h"

#include <varnix/value/Units_library.h>
#include <varnix/value/Value_object.h>

#include <cmath>
#include <utility>

namespace Varnix::Value {

// Value and bounds while they are worked on. Every step treats the three alike; only `Order` looks
// at the bounds.
struct Numbers {
    double value;
    double minus_err;
    double plus_err;

    Numbers(double value_, double minus_err_, double plus_err_)
        : value(value_), minus_err(minus_err_), plus_err(plus_err_) {}

    // Number by number: a copy of the whole would load 16 bytes at once, and wait where 8 of them
    // have just been stored.
    Numbers(Numbers const& other) : Numbers(other.value, other.minus_err, other.plus_err) {}
    Numbers& operator=(Numbers const& other) {
        value = other.value;
        minus_err = other.minus_err;
        plus_err = other.plus_err;
        return *this;
    }
    ~Numbers() = default;

    // Puts step(x) in place of each number x.
    template <typename Step>
    void Transform(Step const& step) {
        value = step(value);
        minus_err = step(minus_err);
        plus_err = step(plus_err);
    }

    // The same for a step that takes long: bounds that equal the value need not go through it.
    // Zeros of either sign do, since they are equal and their results may not be.
    template <typename Step>
    void Transform_equal_ones_once(Step const& step) {
        double const before = value;
        bool const reusable = before != 0.0;
        value = step(value);
        minus_err = reusable && minus_err == before ? value : step(minus_err);
        plus_err = reusable && plus_err == before ? value : step(plus_err);
    }

    void Scale(double factor) {
        Transform([factor](double number) { return number * factor; });
    }

    // Puts the larger bound into plus_err, as storing, copying and assigning a value do. Where
    // neither is larger, as where one is not a number, the two are exchanged.
    void Order() {
        if (!(plus_err > minus_err)) {
            std::swap(minus_err, plus_err);
        }
    }

    // As ordering twice, which is what becomes of a value that is made and then stored: two bounds
    // of which neither is larger are where they were.
    void Order_as_made_and_copied() {
        if (minus_err > plus_err) {
            std::swap(minus_err, plus_err);
        }
    }
};

// The result of combine(x, y) for each number and its counterpart.
template <typename Combine>
Numbers Combined(Numbers const& left, Numbers const& right, Combine const& combine) {
    return {combine(left.value, right.value), combine(left.minus_err, right.minus_err),
            combine(left.plus_err, right.plus_err)};
}

// The way into a value object and out of it, with the bounds as they stand. The public members
// order them.
struct Value_numbers {
    static Numbers Of(Value_object<double> const& object) {
        return {object.value, object.minus_err, object.plus_err};
    }

    // As a copy of the object has them.
    static Numbers Of_copy(Value_object<double> const& object) {
        Numbers numbers = Of(object);
        numbers.Order();
        return numbers;
    }

    static Value_object<double> Made(Numbers const& numbers, Units const& unit) {
        return Value_object<double>(numbers.value, numbers.minus_err, numbers.plus_err, unit);
    }

    // As `Set`, with the unit that the object has.
    static void Store(Value_object<double>& object, Numbers numbers) {
        numbers.Order();
        object.value = numbers.value;
        object.minus_err = numbers.minus_err;
        object.plus_err = numbers.plus_err;
    }

    // As `Set`.
    static void Store(Value_object<double>& object, Numbers const& numbers, Units const& unit) {
        Store(object, numbers);
        object.unit = unit;
    }

    // The unit itself; Get_unit copies it.
    static Units const& Unit_of(Value_object<double> const& object) { return object.unit; }
};

namespace {

inline void Require_finite(Numbers const& numbers) {
    if (!std::isfinite(numbers.value) || !std::isfinite(numbers.plus_err) ||
        !std::isfinite(numbers.minus_err)) {
        Throw_out_of_range();
    }
}

// ---- Questions about a unit

inline bool Is_decibel(Units const& unit) {
    return unit.spl_conv == SPL_DB;
}

inline bool Has_unit(Units const& unit) {
    return unit.tuples[0].unit != NO_UNIT;
}

// Whether the tuples are those of C_Empty; prefix and marker are not looked at.
inline bool Is_bare(Units const& unit) {
    return !Has_unit(unit) && Units_library::Compare_units(unit, C_Empty, false);
}

// ---- To decibels and back

// The product of the exponents up to the first empty slot, by which decibels count; 1 without unit.
[[gnu::noinline]] inline double Exponent_product(Units const& unit) {
    double product = 1.0;
    for (Unit_tuple const& tuple : unit.tuples) {
        if (tuple.unit == NO_UNIT) {
            break;
        }
        product *= static_cast<double>(tuple.exponent);
    }
    return product;
}

// Not in line, as the powers and logarithms are long beside any call.
[[gnu::noinline]] inline Numbers Made_linear(Numbers numbers, double product) {
    numbers.Transform_equal_ones_once(
        [product](double decibels) { return Decibels_to_linear(decibels, product); });
    return numbers;
}

[[gnu::noinline]] inline Numbers Made_decibels(Numbers numbers, double multiplier) {
    numbers.Transform_equal_ones_once(
        [multiplier](double linear) { return Linear_to_decibels(linear, multiplier); });
    return numbers;
}

// As Normalize_DB: the numbers of a copy of the value, made linear if it is in decibels.
inline Numbers Linear(Numbers numbers, Units const& unit) {
    numbers.Order();
    return Is_decibel(unit) ? Made_linear(numbers, Exponent_product(unit)) : numbers;
}

// As Apply_DB: the numbers of a copy of the value, turned into decibels if its unit asks for them.
inline Numbers In_decibels(Numbers numbers, Units const& unit) {
    numbers.Order();
    return Is_decibel(unit)
               ? Made_decibels(numbers, Exponent_product(unit) * Value_object<double>::DB_CONV_FACT)
               : numbers;
}

// The same two, assigned to a value, which orders the bounds: a negative product of exponents has
// turned them round.
inline Numbers Assigned_linear(Numbers const& numbers, Units const& unit) {
    Numbers linear = Linear(numbers, unit);
    linear.Order();
    return linear;
}

inline Numbers Assigned_in_decibels(Numbers const& numbers, Units const& unit) {
    Numbers decibels = In_decibels(numbers, unit);
    decibels.Order();
    return decibels;
}

} // namespace

} // namespace Varnix::Value

#endif
