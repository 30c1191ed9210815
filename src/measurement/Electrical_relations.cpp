// Of volts, amperes, watts and ohms any two give any third; and of field strengths likewise.

#include "Conversions.h"
#include "Measurement_parts.h"
#include "Refusals.h"
#include "enclosing/Elementary_functions.h"

#include <varnix/value/Measurement.h>

namespace Varnix::Value {

using namespace Physics;

namespace {

// target^2 = first^a * second^b. Of a target that takes no root, a and b are even.
struct Relation {
    Electrical target;
    Electrical first;
    Electrical second;
    int first_power;
    int second_power;
};

constexpr Electrical voltage = Electrical::voltage;
constexpr Electrical current = Electrical::current;
constexpr Electrical power = Electrical::power;
constexpr Electrical resistance = Electrical::resistance;

// clang-format off
constexpr Relation relations[] = {
    // target    first    second       a   b
    {voltage,    power,   current,     2, -2}, // W / A
    {voltage,    current, resistance,  2,  2}, // A ohm
    {voltage,    power,   resistance,  1,  1}, // sqrt(W ohm)
    {current,    power,   voltage,     2, -2}, // W / V
    {current,    voltage, resistance,  2, -2}, // V / ohm
    {current,    power,   resistance,  1, -1}, // sqrt(W / ohm)
    {power,      voltage, current,     2,  2}, // V A
    {power,      voltage, resistance,  4, -2}, // V^2 / ohm
    {power,      current, resistance,  4,  2}, // A^2 ohm
    {resistance, voltage, current,     2, -2}, // V / A
    {resistance, voltage, power,       4, -2}, // V^2 / W
    {resistance, power,   current,     2, -4}, // W / A^2
};
// clang-format on

// A relation with its operands in its order.
struct Ordered_relation {
    Relation relation;
    Measurement const& first;
    Measurement const& second;
};

Ordered_relation Relation_of(Units const& target, Measurement const& x, Measurement const& y) {
    Electrical_quantity const of_target = Electrical_of(Kind_of(target));
    Electrical_quantity const of_x = Electrical_of(Kind_of(x.Get_unit()));
    Electrical_quantity const of_y = Electrical_of(Kind_of(y.Get_unit()));
    if (!Are_related(of_target, of_x) || !Are_related(of_target, of_y) ||
        !Are_related(of_x, of_y)) {
        throw Refusal::no_electrical_relation;
    }
    Electrical const wanted = of_target.quantity;
    Electrical const left = of_x.quantity;
    Electrical const right = of_y.quantity;
    for (Relation const& row : relations) {
        if (row.target == wanted && row.first == left && row.second == right) {
            return {row, x, y};
        }
        if (row.target == wanted && row.first == right && row.second == left) {
            return {row, y, x};
        }
    }
    throw Refusal::no_electrical_relation;
}

// ---- By the quantities themselves

Scaled_band Linear_numbers(Measurement const& x) {
    return Is_decibel(x.Get_unit()) ? Scaled_band{Converted(x, Without_decibels(x.Get_unit()))}
                                    : Scaled_numbers_of(x);
}

// In the target's unit without decibels. The sizes of the units go in before the root is taken.
Band Related(Ordered_relation const& of, Units const& target) {
    int const a = of.relation.first_power;
    int const b = of.relation.second_power;
    bool const is_root = a % 2 != 0;
    int const share = is_root ? 1 : 2;
    Scaled_band const first = Linear_numbers(of.first);
    Scaled_band const second = Linear_numbers(of.second);
    Exact_factor const sizes =
        Physics::Power(first.Scale() * Size_of(of.first.Get_unit()), a / share) *
        Physics::Power(second.Scale() * Size_of(of.second.Get_unit()), b / share) /
        Physics::Power(Size_of(target), is_root ? 2 : 1);
    Band const related =
        Product_of_powers(first.numbers, a / share, second.numbers, b / share, sizes);
    return is_root ? Square_root(related) : related;
}

// ---- By levels, whose numbers add

// 20 log10 of a quantity in V, A, W or ohm.
Band Twenty_log(Measurement const& x) {
    Units const unit = x.Get_unit();
    if (!Is_decibel(unit)) {
        Scaled_band const numbers = Scaled_numbers_of(x);
        return Scaled_logarithm(20, numbers.numbers, numbers.Scale() * Size_of(unit));
    }
    Band const shift = Single(Enclose(20.0) * Logarithm(Size_of(unit)));
    bool const of_power = Level_factor(unit) == 10;
    return Band_of(x) * (of_power ? Power_of_two(1) : Exact_factor{}) + shift;
}

// times power over 2, which is a power of two or twice one.
Band Times_half(Band const& x, int half_powers) {
    Exact_factor const magnitude = Power_of_two(half_powers % 4 == 0   ? 1
                                                : half_powers % 2 == 0 ? 0
                                                                       : -1);
    return half_powers < 0 ? -(x * magnitude) : x * magnitude;
}

Band Related_level(Ordered_relation const& of, Units const& target) {
    Band const twenty_log = Times_half(Twenty_log(of.first), of.relation.first_power) +
                            Times_half(Twenty_log(of.second), of.relation.second_power);
    Band const of_units = Single(Enclose(20.0) * Logarithm(Size_of(target)));
    Band const level = twenty_log - of_units;
    return Level_factor(target) == 10 ? level * Power_of_two(-1) : level;
}

Measurement By_relation(Measurement const& x, Measurement const& with, Units const& target) {
    Ordered_relation const of = Relation_of(target, x, with);
    bool const from_level = Is_decibel(x.Get_unit()) || Is_decibel(with.Get_unit());
    if (!Is_decibel(target)) {
        return Rounded(Related(of, target), target);
    }
    Measurement const& divisor = of.second;
    if (of.relation.second_power < 0 && !Is_decibel(divisor.Get_unit()) &&
        May_be_zero(Band_of(divisor))) {
        throw Refusal::division_by_zero;
    }
    return Rounded(from_level ? Related_level(of, target)
                              : Scaled_logarithm(Level_factor(target),
                                                 Related(of, Without_decibels(target)), {}),
                   target);
}

} // namespace

Measurement Measurement::Convert_to(Units const& target, Measurement const& with) const {
    try {
        return By_relation(*this, with, Valid_unit(target));
    } catch (Refusal reason) {
        Refuse(reason, "convert " + Described(*this) + " with " + Described(with) + " to " +
                           Described(target));
    }
}

} // namespace Varnix::Value
