// Order, limits, and what two measurements allow together.

#include "Conversions.h"
#include "Measurement_parts.h"
#include "Refusals.h"
#include "enclosing/Exact_comparison.h"

#include <varnix/value/Measurement.h>

#include <algorithm>
#include <optional>

namespace Varnix::Value {

using namespace Physics;

namespace {

// Temperatures compare as points, or as differences; of kelvin alone it does not matter. A level
// counts as the kelvins that it is relative to.
void Check_roles(Measurement const& x, Measurement const& y) {
    Units const first = Without_decibels(x.Get_unit());
    Units const second = Without_decibels(y.Get_unit());
    bool const both_kelvin = Is_kelvin(first) && Is_kelvin(second);
    bool const both_temperatures = Is_temperature(first) && Is_temperature(second);
    if (both_temperatures && !both_kelvin && x.Is_difference() != y.Is_difference()) {
        throw Refusal::temperature_role;
    }
}

// Two measurements in one unit, and as they are, for decimals that enclosures do not tell apart.
struct Pair {
    Band first;
    Band second;
    Measurement const& x;
    Measurement const& y;
};

Band In_unit(Measurement const& x, Units const& unit, bool is_difference) {
    return x.Get_unit() == unit ? Band_of(x) : Converted(x, unit, is_difference);
}

// In the unit of the first; a level beside a linear quantity becomes linear, as that may be zero.
Pair Brought_together(Measurement const& x, Measurement const& y) {
    Check_roles(x, y);
    Units const unit = x.Get_unit();
    bool const x_is_level = Form_of(x) == Form::level;
    bool const y_is_level = Form_of(y) == Form::level;
    Units const common = x_is_level && !y_is_level ? Without_decibels(unit) : unit;
    return {In_unit(x, common, x.Is_difference()), In_unit(y, common, x.Is_difference()), x, y};
}

// ---- Two ends of the bands

using End = Enclosed Band::*;

// The sign of an exact difference.
int Sign_of(Enclosed const& difference) {
    return Is_negative(difference) ? -1 : Is_positive(difference) ? 1 : 0;
}

// Levels and gains by their decimals.
std::optional<int> Sign_of_decibels(Pair const& pair, End of_x, End of_y) {
    auto const decimals = With_one_power(
        Decimals_of(pair.x), Decimals_in(pair.y, pair.y.Is_difference(), pair.x.Get_unit()));
    return decimals ? std::optional<int>(Sign_of(Whole_band(decimals->first).*of_x -
                                                 Whole_band(decimals->second).*of_y))
                    : std::nullopt;
}

// Decimals as exact rational numbers, through the ratio of the units or the formula between two
// scales of temperature.
std::optional<int> Exact_sign(Pair const& pair, End of_x, End of_y) {
    Units const unit = pair.x.Get_unit();
    Units const other = pair.y.Get_unit();
    if (Is_decibel(unit) != Is_decibel(other)) {
        return std::nullopt;
    }
    if (Is_decibel(unit)) {
        return Sign_of_decibels(pair, of_x, of_y);
    }
    auto const [first, tens] = Scaled_numbers_of(pair.x);
    auto const [second, other_tens] = Scaled_numbers_of(pair.y);
    bool const by_scale =
        Form_of(pair.x) == Form::scale_point || Form_of(pair.y) == Form::scale_point;
    if (by_scale) {
        Scale_formula const formula = Formula_between_scales(unit, other, tens);
        return Sign_of_difference(formula.factor * first.*of_x + formula.offset,
                                  Powers_of_ten(-other_tens), formula.divisor * second.*of_y);
    }
    return Sign_of_difference(first.*of_x,
                              Powers_of_ten(tens - other_tens) * Size_of(unit) / Size_of(other),
                              second.*of_y);
}

// The sign of the difference of two ends: -1, 0 or 1; nothing where it is not certain.
std::optional<int> Sign_of_difference(Pair const& pair, End of_x, End of_y) {
    Enclosed const difference = pair.first.*of_x - pair.second.*of_y;
    if (Is_negative(difference)) {
        return -1;
    }
    if (Is_positive(difference)) {
        return 1;
    }
    if (difference.Is_zero()) {
        return 0;
    }
    return Keep_decimals(pair.x, pair.y) ? Exact_sign(pair, of_x, of_y) : std::nullopt;
}

// ---- Order

Order Order_of(Pair const& pair) {
    if (Sign_of_difference(pair, &Band::upper, &Band::lower) == -1) {
        return Order::less;
    }
    if (Sign_of_difference(pair, &Band::lower, &Band::upper) == 1) {
        return Order::greater;
    }
    bool const both_single = pair.first.is_single && pair.second.is_single;
    return both_single && Sign_of_difference(pair, &Band::value, &Band::value) == 0
               ? Order::equal
               : Order::undecided;
}

// Whether all of the first is certainly at most all of the second.
bool First_is_at_most(Pair const& pair) {
    return Round_up(pair.first.upper - pair.second.lower) <= 0.0 ||
           Sign_of_difference(pair, &Band::upper, &Band::lower).value_or(1) <= 0;
}

bool Second_is_at_most(Pair const& pair) {
    return Round_up(pair.second.upper - pair.first.lower) <= 0.0 ||
           Sign_of_difference(pair, &Band::lower, &Band::upper).value_or(-1) >= 0;
}

template <typename Work>
auto Compared(Measurement const& x, Measurement const& y, Work work) {
    try {
        return work(Brought_together(x, y));
    } catch (Refusal reason) {
        Refuse(reason, "compare", x, "with", y);
    }
}

} // namespace

Order Compare(Measurement const& x, Measurement const& y) {
    return Compared(x, y, Order_of);
}

bool Certainly_less(Measurement const& x, Measurement const& y) {
    return Compare(x, y) == Order::less;
}

bool Possibly_less(Measurement const& x, Measurement const& y) {
    return Compared(x, y, [](Pair const& pair) { return !Second_is_at_most(pair); });
}

bool Certainly_equal(Measurement const& x, Measurement const& y) {
    return Compare(x, y) == Order::equal;
}

bool Possibly_equal(Measurement const& x, Measurement const& y) {
    Order const order = Compare(x, y);
    return order == Order::equal || order == Order::undecided;
}

Verdict Check_limits(Measurement const& x, Measurement const& low, Measurement const& high) {
    if (!Compared(low, high, First_is_at_most)) {
        Refuse(Refusal::bounds_inverted,
               "take " + Described(low) + " as a limit below " + Described(high), Way_out::none);
    }
    auto const below = [&](Pair const& pair) {
        return Second_is_at_most(pair)         ? Verdict::pass
               : Order_of(pair) == Order::less ? Verdict::fail
                                               : Verdict::undecided;
    };
    auto const above = [&](Pair const& pair) {
        return First_is_at_most(pair)             ? Verdict::pass
               : Order_of(pair) == Order::greater ? Verdict::fail
                                                  : Verdict::undecided;
    };
    Verdict const from_low = Compared(x, low, below);
    Verdict const from_high = Compared(x, high, above);
    if (from_low == Verdict::fail || from_high == Verdict::fail) {
        return Verdict::fail;
    }
    return from_low == Verdict::pass && from_high == Verdict::pass ? Verdict::pass
                                                                   : Verdict::undecided;
}

// ---- Both, or either

namespace {

struct Bounds {
    double lower;
    double upper;
};

// Those of the second in the unit of the first, rounded outward. Its value does not count: it may
// be too large there, or have no level.
Bounds Bounds_in_unit_of(Measurement const& x, Measurement const& y) {
    Check_roles(x, y);
    if (x.Get_unit() == y.Get_unit()) {
        return {y.Get_lower(), y.Get_upper()};
    }
    Scaled_band band = Scaled_numbers_of(y);
    band.numbers.value = band.numbers.upper;
    Band const converted =
        Converted(band, y.Get_unit(), y.Is_difference(), x.Get_unit(), x.Is_difference());
    return {Round_down(converted.lower), Round_up(converted.upper)};
}

// The decimals of both in the unit of the first, where one of them keeps any.
std::optional<Decimal_pair> Decimals_together(Measurement const& x, Measurement const& y) {
    return Keep_decimals(x, y)
               ? With_one_power(Decimals_of(x), Decimals_in(y, y.Is_difference(), x.Get_unit()))
               : std::nullopt;
}

Decimal_numbers Hull_of(Decimal_pair const& pair) {
    auto const& [first, second] = pair;
    return {std::min(first.lower, second.lower), first.value, std::max(first.upper, second.upper),
            first.power};
}

Decimal_numbers Intersection_of(Decimal_pair const& pair) {
    auto const& [first, second] = pair;
    double const lower = std::max(first.lower, second.lower);
    double const upper = std::min(first.upper, second.upper);
    if (lower > upper) {
        throw Refusal::contradiction;
    }
    return {lower, std::min(std::max(first.value, lower), upper), upper, first.power};
}

std::optional<Measurement> With_decimals(std::optional<Decimal_pair> const& pair,
                                         Decimal_numbers (*joined)(Decimal_pair const&),
                                         Measurement const& x) {
    return pair ? Made_of_decimals(joined(*pair), x.Get_unit(), x.Is_difference()) : std::nullopt;
}

} // namespace

Measurement Hull(Measurement const& x, Measurement const& y) {
    try {
        Bounds const other = Bounds_in_unit_of(x, y);
        if (auto const hull = With_decimals(Decimals_together(x, y), Hull_of, x)) {
            return *hull;
        }
        return Measurement_parts::Made(x.Get_value(), std::min(x.Get_lower(), other.lower),
                                       std::max(x.Get_upper(), other.upper), x.Get_unit(),
                                       x.Is_difference());
    } catch (Refusal reason) {
        Refuse(reason, "join", x, "with", y);
    }
}

Measurement Intersection(Measurement const& x, Measurement const& y) {
    try {
        Order const order = Order_of(Brought_together(x, y));
        if (order == Order::less || order == Order::greater) {
            throw Refusal::contradiction;
        }
        Bounds const other = Bounds_in_unit_of(x, y);
        if (auto const common = With_decimals(Decimals_together(x, y), Intersection_of, x)) {
            return *common;
        }
        double const lower = std::max(x.Get_lower(), other.lower);
        double const upper = std::min(x.Get_upper(), other.upper);
        if (lower > upper) {
            throw Refusal::contradiction;
        }
        double const value = std::min(std::max(x.Get_value(), lower), upper);
        return Measurement_parts::Made(value, lower, upper, x.Get_unit(), x.Is_difference());
    } catch (Refusal reason) {
        Refuse(reason, "intersect", x, "with", y);
    }
}

} // namespace Varnix::Value
