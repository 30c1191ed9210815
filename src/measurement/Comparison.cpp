// Order, limits, and what two measurements allow together.

#include "Conversions.h"
#include "Measurement_parts.h"
#include "Refusals.h"

#include <varnix/value/Measurement.h>

#include <algorithm>

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

// Two measurements in one unit.
struct Pair {
    Band first;
    Band second;
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
    return {In_unit(x, common, x.Is_difference()), In_unit(y, common, x.Is_difference())};
}

Order Order_of(Pair const& pair) {
    if (Is_negative(pair.first.upper - pair.second.lower)) {
        return Order::less;
    }
    if (Is_positive(pair.first.lower - pair.second.upper)) {
        return Order::greater;
    }
    bool const both_numbers = Is_one_number(pair.first) && Is_one_number(pair.second);
    return both_numbers && (pair.first.value - pair.second.value).Is_zero() ? Order::equal
                                                                            : Order::undecided;
}

// Whether the difference is certainly not positive.
bool Is_at_most(Enclosed const& x, Enclosed const& y) {
    return Round_up(x - y) <= 0.0;
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
    return Compared(
        x, y, [](Pair const& pair) { return !Is_at_most(pair.second.upper, pair.first.lower); });
}

bool Certainly_equal(Measurement const& x, Measurement const& y) {
    return Compare(x, y) == Order::equal;
}

bool Possibly_equal(Measurement const& x, Measurement const& y) {
    Order const order = Compare(x, y);
    return order == Order::equal || order == Order::undecided;
}

Verdict Check_limits(Measurement const& x, Measurement const& low, Measurement const& high) {
    if (!Compared(low, high, [](Pair const& pair) {
            return Is_at_most(pair.first.upper, pair.second.lower);
        })) {
        Refuse(Refusal::bounds_inverted,
               "take " + Described(low) + " as a limit below " + Described(high), Way_out::none);
    }
    auto const below = [&](Pair const& pair) {
        return Is_at_most(pair.second.upper, pair.first.lower) ? Verdict::pass
               : Order_of(pair) == Order::less                 ? Verdict::fail
                                                               : Verdict::undecided;
    };
    auto const above = [&](Pair const& pair) {
        return Is_at_most(pair.first.upper, pair.second.lower) ? Verdict::pass
               : Order_of(pair) == Order::greater              ? Verdict::fail
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
    Band band = Band_of(y);
    band.value = band.upper;
    Band const converted =
        Converted(band, y.Get_unit(), y.Is_difference(), x.Get_unit(), x.Is_difference());
    return {Round_down(converted.lower), Round_up(converted.upper)};
}

} // namespace

Measurement Hull(Measurement const& x, Measurement const& y) {
    try {
        Bounds const other = Bounds_in_unit_of(x, y);
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
