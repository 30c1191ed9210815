#include "Conversions.h"

#include <algorithm>

namespace Varnix::Value::Physics {

Electrical Electrical_of(Kind kind) {
    int const volts = kind[Base::voltage];
    int const amperes = kind[Base::current];
    kind[Base::voltage] = kind[Base::current] = 0;
    if (kind != Kind() || volts < 0 || volts > 1) {
        return Electrical::none;
    }
    if (volts == 0) {
        return amperes == 1 ? Electrical::current : Electrical::none;
    }
    return amperes == 0    ? Electrical::voltage
           : amperes == 1  ? Electrical::power
           : amperes == -1 ? Electrical::resistance
                           : Electrical::none;
}

Refusal Why_kinds_differ(Kind const& first, Kind const& second) {
    if (Electrical_of(first) != Electrical::none && Electrical_of(second) != Electrical::none) {
        return Refusal::needs_impedance;
    }
    Kind joined_first = first;
    Kind joined_second = second;
    for (Kind* kind : {&joined_first, &joined_second}) {
        (*kind)[Base::time] =
            static_cast<std::int16_t>((*kind)[Base::time] + (*kind)[Base::calendar]);
        (*kind)[Base::calendar] = 0;
    }
    return joined_first == joined_second ? Refusal::no_fixed_length : Refusal::kinds_differ;
}

// ---- Temperature scales

namespace {

// kelvins = (factor * x + offset) / divisor, all whole.
struct Scale {
    Units_list unit;
    double factor;
    double offset;
    double divisor;
};

// clang-format off
constexpr Scale scales[] = {
    {KELVIN,     1.0,     0.0,   1.0},
    {DEGREE_C, 100.0, 27315.0, 100.0}, // 0 °C is 273.15 K
    {DEGREE_F, 100.0, 45967.0, 180.0}, // 0 °F is 459.67 * 5 / 9 K
};
// clang-format on

Scale const& Scale_of(Units const& unit) {
    return *std::find_if(std::begin(scales), std::end(scales) - 1,
                         [&](Scale const& scale) { return scale.unit == unit.tuples[0].unit; });
}

Enclosed Whole(double number, Exact_factor const& factor) {
    return Enclose(number) * factor;
}

// A prefix as a whole number above the line, and one below it.
struct Fraction {
    Exact_factor above;
    Exact_factor below;
};

Fraction Fraction_of(SI_units prefix) {
    Exact_factor const size = Size_of(prefix);
    return prefix < 0 ? Fraction{{}, Physics::Power(size, -1)} : Fraction{size, {}};
}

} // namespace

// From the one scale to kelvin, and back to the other. All numbers are whole, so that what is exact
// stays so.
Scale_formula Formula_between_scales(Units const& from, Units const& to) {
    Scale const& source = Scale_of(from);
    Scale const& target = Scale_of(to);
    Fraction const source_size = Fraction_of(from.si_prefix);
    Fraction const target_size = Fraction_of(to.si_prefix);
    // ((f x a/b + o) / d * D - O) / F * B/A with the source's small letters and the target's
    // capitals, over the common denominator.
    double const factor = source.factor * target.divisor;
    double const offset = source.offset * target.divisor - target.offset * source.divisor;
    double const divisor = source.divisor * target.factor;
    return {Whole(factor, source_size.above * target_size.below),
            Whole(offset, source_size.below * target_size.below),
            Whole(divisor, source_size.below * target_size.above)};
}

// ---- Levels

namespace {

void Check_gain(Units const& from, Units const& to) {
    if (Kind_of(from) == Kind() && Kind_of(to) == Kind()) {
        throw Refusal::gain_is_ambiguous;
    }
    throw Refusal::gain_is_no_quantity;
}

// Both sides in decibels of one kind: the numbers are shifted by the ratio of the references.
Band Converted_level(Band const& x, Exact_factor const& ratio, int factor) {
    if (ratio.Is_one()) {
        return x;
    }
    Enclosed const shift = Enclose(factor) * Logarithm(ratio);
    return Increasing(x, [&](Enclosed const& number) { return number + shift; });
}

// With a point in °C or °F on one side. The other is kelvin, another scale, or a level of kelvin,
// which goes by way of it; %*K and its kin are no scales.
Band Converted_point(Band const& x, Units const& from, Units const& to) {
    Units const source = Without_decibels(from);
    Units const target = Without_decibels(to);
    if (!Is_temperature(source) || !Is_temperature(target)) {
        throw Refusal::temperature_role;
    }
    int const factor = Level_factor(Kind_of(source));
    Band const quantity = Is_decibel(from) ? Scaled_power_of_ten(x, factor, {}) : x;
    Band const converted = Increasing(quantity, Formula_between_scales(source, target));
    return Is_decibel(to) ? Scaled_logarithm(factor, converted, {}) : converted;
}

} // namespace

Band Converted(Band const& x, Units const& from, bool is_difference, Units const& to,
               bool to_difference) {
    Form const form = Form_of(from, is_difference);
    Form const target_form = Form_of(to, to_difference);
    if (form == Form::gain && target_form == Form::gain) {
        return x;
    }
    if (form == Form::gain || target_form == Form::gain) {
        Check_gain(from, to);
    }
    Kind const kind = Kind_of(from);
    Kind const target_kind = Kind_of(to);
    if (kind != target_kind) {
        throw Why_kinds_differ(kind, target_kind);
    }
    if (form == Form::scale_point || target_form == Form::scale_point) {
        return Converted_point(x, from, to);
    }
    Exact_factor const ratio = Size_of(from) / Size_of(to);
    int const factor = Level_factor(kind);
    if (form == Form::level) {
        return target_form == Form::level ? Converted_level(x, ratio, factor)
                                          : Scaled_power_of_ten(x, factor, ratio);
    }
    return target_form == Form::level ? Scaled_logarithm(factor, x, ratio) : x * ratio;
}

} // namespace Varnix::Value::Physics
