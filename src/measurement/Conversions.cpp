#include "Conversions.h"

#include "Measurement_parts.h"
#include "enclosing/Elementary_functions.h"
#include "enclosing/Prepared_factor.h"

#include <algorithm>

namespace Varnix::Value::Physics {

namespace {

Electrical Electrical_of_powers(int volts, int amperes) {
    switch (volts) {
    case 0:
        return amperes == 1 ? Electrical::current : Electrical::none;
    case 1:
        return amperes == 0    ? Electrical::voltage
               : amperes == 1  ? Electrical::power
               : amperes == -1 ? Electrical::resistance
                               : Electrical::none;
    default:
        return Electrical::none;
    }
}

} // namespace

Electrical_quantity Electrical_of(Kind kind) {
    int const lengths = kind[Base::length];
    Electrical const quantity = Electrical_of_powers(kind[Base::voltage], kind[Base::current]);
    kind[Base::voltage] = kind[Base::current] = kind[Base::length] = 0;
    int const of_field = quantity == Electrical::resistance ? 0
                         : quantity == Electrical::power    ? -2
                                                            : -1;
    if (kind != Kind() || (lengths != 0 && lengths != of_field)) {
        return {Electrical::none, false};
    }
    return {quantity, lengths != 0};
}

bool Are_related(Electrical_quantity first, Electrical_quantity second) {
    bool const of_one_sort = first.is_field == second.is_field ||
                             first.quantity == Electrical::resistance ||
                             second.quantity == Electrical::resistance;
    return first.quantity != Electrical::none && second.quantity != Electrical::none && of_one_sort;
}

Refusal Why_kinds_differ(Kind const& first, Kind const& second) {
    if (Are_related(Electrical_of(first), Electrical_of(second))) {
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

// kelvins = (factor * x + offset) / divisor.
struct Temperature_scale {
    Units_list unit;
    Whole_formula formula;
};

// clang-format off
constexpr Temperature_scale scales[] = {
    {KELVIN,   {  1,     0,   1}},
    {DEGREE_C, {100, 27315, 100}}, // 0 °C is 273.15 K
    {DEGREE_F, {100, 45967, 180}}, // 0 °F is 459.67 * 5 / 9 K
};
// clang-format on

Temperature_scale const& Scale_of(Units const& unit) {
    return *std::find_if(
        std::begin(scales), std::end(scales) - 1,
        [&](Temperature_scale const& scale) { return scale.unit == unit.tuples[0].unit; });
}

// From the one scale to kelvin, and back to the other: ((f x + o) / d * D - O) / F with the source's
// small letters and the target's capitals. All numbers are whole, so that what is exact stays so.
Whole_formula Formula_between(Temperature_scale const& from, Temperature_scale const& to) {
    Whole_formula const& source = from.formula;
    Whole_formula const& target = to.formula;
    return {source.factor * target.divisor,
            source.offset * target.divisor - target.offset * source.divisor,
            source.divisor * target.factor};
}

Enclosed Whole(std::int64_t number, Exact_factor const& factor) {
    return Enclose(static_cast<double>(number)) * factor;
}

// A power of ten or two as a whole number above the line, and one below it.
struct Fraction {
    Exact_factor above;
    Exact_factor below;
};

Fraction Fraction_of(SI_units prefix, int power_of_ten) {
    Exact_factor const size = Size_of(prefix) * Powers_of_ten(power_of_ten);
    return size.Power_of_two() < 0 ? Fraction{{}, Physics::Power(size, -1)} : Fraction{size, {}};
}

} // namespace

Scale_formula Formula_between_scales(Units const& from, Units const& to, int power_of_ten) {
    Whole_formula const formula = Formula_between(Scale_of(from), Scale_of(to));
    Fraction const source_size = Fraction_of(from.si_prefix, power_of_ten);
    Fraction const target_size = Fraction_of(to.si_prefix, 0);
    return {Whole(formula.factor, source_size.above * target_size.below),
            Whole(formula.offset, source_size.below * target_size.below),
            Whole(formula.divisor, source_size.below * target_size.above)};
}

// ---- Levels

namespace {

void Check_gain(Units const& from, Units const& to) {
    auto const is_gain_or_plain = [](Units const& unit) {
        return Kind_of(unit) == Kind() || Is_gain(unit);
    };
    if (is_gain_or_plain(from) && is_gain_or_plain(to)) {
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
Band Converted_point(Scaled_band const& x, Units const& from, Units const& to) {
    Units const source = Without_decibels(from);
    Units const target = Without_decibels(to);
    if (!Is_temperature(source) || !Is_temperature(target)) {
        throw Refusal::temperature_role;
    }
    int const factor = Level_factor(source);
    Scaled_band const quantity =
        Is_decibel(from) ? Scaled_band{Scaled_power_of_ten(x.numbers * x.Scale(), factor, {}), {}}
                         : x;
    Band const converted =
        Increasing(quantity.numbers, Formula_between_scales(source, target, quantity.tens));
    return Is_decibel(to) ? Scaled_logarithm(factor, converted, {}) : converted;
}

} // namespace

Band Converted(Scaled_band const& scaled, Units const& from, bool is_difference, Units const& to,
               bool to_difference) {
    Form const form = Form_of(from, is_difference);
    Form const target_form = Form_of(to, to_difference);
    Band const& x = scaled.numbers;
    if (form == Form::gain && target_form == Form::gain) {
        return x * (scaled.Scale() * Size_of(from) / Size_of(to));
    }
    if (form == Form::gain || target_form == Form::gain) {
        Check_gain(from, to);
    }
    Kind const kind = Comparable_kind_of(from);
    Kind const target_kind = Comparable_kind_of(to);
    if (kind != target_kind) {
        throw Why_kinds_differ(kind, target_kind);
    }
    if (form == Form::scale_point || target_form == Form::scale_point) {
        return Converted_point(scaled, from, to);
    }
    Exact_factor const ratio = Size_of(from) / Size_of(to);
    int const factor = Level_factor(form == Form::level ? from : to);
    if (form == Form::level) {
        Band const level = x * scaled.Scale();
        return target_form == Form::level ? Converted_level(level, ratio, factor)
                                          : Scaled_power_of_ten(level, factor, ratio);
    }
    return target_form == Form::level ? Scaled_logarithm(factor, x, scaled.Scale() * ratio)
                                      : x * (scaled.Scale() * ratio);
}

// ---- Decimals

namespace {

// Prefixes of kelvin are powers of ten of the numbers.
Maybe_decimals Decimals_between_scales(Maybe_decimals numbers, Units const& from, Units const& to) {
    bool const are_decimal = !Is_binary_prefix(from.si_prefix) && !Is_binary_prefix(to.si_prefix);
    if (!numbers || !are_decimal || !Is_temperature(from) || !Is_temperature(to)) {
        return std::nullopt;
    }
    numbers->power += from.si_prefix;
    Maybe_decimals result = By_formula(numbers, Formula_between(Scale_of(from), Scale_of(to)));
    if (result) {
        result->power -= to.si_prefix;
    }
    return result;
}

Maybe_decimals Decimals_of_level(Maybe_decimals const& numbers, Exact_factor const& ratio,
                                 int factor) {
    int const tens = Tens_in(ratio);
    if (ratio != Powers_of_ten(tens)) {
        return std::nullopt;
    }
    double const shift = factor * tens;
    return Sum(numbers, 1, Decimal_numbers{shift, shift, shift, 0});
}

} // namespace

Maybe_decimals Decimals_in(Measurement const& x, bool is_difference, Units const& to) {
    Units const& from = Measurement_parts::Unit_of(x);
    if (from == to) {
        return Decimals_of(x);
    }
    if (Is_decibel(from) != Is_decibel(to)) {
        return std::nullopt;
    }
    Maybe_decimals const numbers = Decimals_of(x);
    if (!numbers || Comparable_kind_of(from) != Comparable_kind_of(to)) {
        return std::nullopt;
    }
    Form const form = Form_of(from, is_difference);
    if (form == Form::scale_point || Form_of(to, is_difference) == Form::scale_point) {
        return Decimals_between_scales(numbers, from, to);
    }
    Exact_factor const ratio = Size_of(from) / Size_of(to);
    return form == Form::level ? Decimals_of_level(numbers, ratio, Level_factor(from))
                               : Product(numbers, ratio);
}

std::optional<Measurement> Decimal_sum(Measurement const& x, int sign, Measurement const& y,
                                       bool y_is_difference, Units const& unit,
                                       bool is_difference) {
    if (!Keep_decimals(x, y)) {
        return std::nullopt;
    }
    Maybe_decimals const second = Decimals_in(y, y_is_difference, x.Get_unit());
    return Made_of_decimals(Sum(Decimals_of(x), sign, second), unit, is_difference);
}

std::optional<Measurement> Shifted_decimals(Maybe_decimals const& x, Band const& shift,
                                            Units const& unit) {
    int whole = 0;
    if (!x || !shift.is_single || !Is_small_whole(shift.value, whole)) {
        return std::nullopt;
    }
    double const decibels = whole;
    return Made_of_decimals(Sum(x, 1, Decimal_numbers{decibels, decibels, decibels, 0}), unit);
}

} // namespace Varnix::Value::Physics
