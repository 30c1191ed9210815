// What the algorithms of value objects share: questions about a unit, and steps that treat value
// and bounds alike.

#ifndef VARNIX_VALUE_VALUE_STEPS_H
#define VARNIX_VALUE_VALUE_STEPS_H

#include <varnix/value/Units_library.h>
#include <varnix/value/Value_object.h>

namespace Varnix::Value {

// Writes value and bounds as computed, which no public member does: those order the bounds.
struct Value_numbers {
    // Puts formula(x) in place of each of the three numbers x.
    template <typename Formula>
    static void Transform(Value_object<double>& object, Formula const& formula) {
        object.value = formula(object.value);
        object.minus_err = formula(object.minus_err);
        object.plus_err = formula(object.plus_err);
    }

    // An object without unit, each number of which is formula(x, y) of its counterparts.
    template <typename Formula>
    static Value_object<double> Combined(Formula const& formula, Value_object<double> const& first,
                                         Value_object<double> const& second) {
        Value_object<double> result;
        result.value = formula(first.value, second.value);
        result.minus_err = formula(first.minus_err, second.minus_err);
        result.plus_err = formula(first.plus_err, second.plus_err);
        return result;
    }

    // An object with these numbers, as computed.
    static Value_object<double> Made(double value, double minus_err, double plus_err,
                                     Units const& unit) {
        return Value_object<double>(value, minus_err, plus_err, unit);
    }

    // The unit itself; Get_unit copies it.
    static Units const& Unit_of(Value_object<double> const& object) { return object.unit; }
};

namespace {

// Multiplies value and bounds by `factor`.
inline void Scale_numbers(Value_object<double>& object, double factor) {
    Value_numbers::Transform(object, [factor](double number) { return number * factor; });
}

inline bool Is_decibel(Units const& unit) {
    return unit.spl_conv == SPL_DB;
}

// Whether the tuples are those of C_Empty; prefix and marker are not looked at.
inline bool Is_bare(Units const& unit) {
    return Units_library::Compare_units(unit, C_Empty, false);
}

} // namespace

} // namespace Varnix::Value

#endif
