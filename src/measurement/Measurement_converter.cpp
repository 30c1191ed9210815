#include <varnix/value/Measurement_converter.h>

#include "Conversions.h"
#include "Kept_decimals.h"
#include "Measurement_parts.h"
#include "Number_blocks.h"
#include "Quick_power.h"
#include "Refusals.h"
#include "basics/Error_free.h"
#include "enclosing/Elementary_functions.h"
#include "enclosing/Prepared_factor.h"

#include <cmath>
#include <limits>

namespace Varnix::Value {

using namespace Physics;

namespace {

Units Checked(Units const& unit) {
    try {
        return Valid_unit(unit);
    } catch (Refusal reason) {
        Refuse(reason, "measure in " + Described(unit));
    }
}

bool Is_point_in(Units const& unit) {
    return Form_of(unit, false) == Form::scale_point;
}

bool Is_level_in(Units const& unit) {
    return Form_of(unit, false) == Form::level;
}

// What a number becomes, as factor and offset.
struct Linear_rule {
    Enclosed factor = {1.0, 0.0, 0.0, 0};
    Enclosed offset = {};
};

Linear_rule Rule_between(Units const& from, Units const& to) {
    Exact_factor const ratio = Size_of(from) / Size_of(to);
    if (Is_point_in(from) || Is_point_in(to)) {
        Scale_formula const formula = Formula_between_scales(from, to);
        return {formula.factor / formula.divisor, formula.offset / formula.divisor};
    }
    if (Is_level_in(from) && Is_level_in(to)) {
        return {{1.0, 0.0, 0.0, 0}, Enclose(Level_factor(from)) * Logarithm(ratio)};
    }
    return {Enclose(1.0) * ratio, {}};
}

// An enclosed number as the sum of two doubles.
Exact_pair Two_parts(Enclosed const& number) {
    double const high = Round_to_nearest(number);
    return {high, Round_to_nearest(number - Enclose(high))};
}

} // namespace

Measurement_converter::Measurement_converter(Units const& from, Units const& to)
    : source(Checked(from)), target(Checked(to)), way(Way::same), step(0), factor_high(1.0),
      factor_low(0.0), offset_high(0.0), offset_low(0.0), decimal_whole(0.0), decimal_power(0) {
    try {
        Converted({Single(Enclose(1.0))}, source, false, target, false);
    } catch (Refusal reason) {
        Refuse_conversion(reason, Described(from), from, to);
    }
    if (source == target) {
        return;
    }
    bool const crosses = Is_level_in(source) != Is_level_in(target);
    if (crosses && (Is_point_in(source) || Is_point_in(target))) {
        way = Way::by_kelvins;
        return;
    }
    way = !crosses              ? Way::linear
          : Is_level_in(source) ? Way::level_to_linear
                                : Way::linear_to_level;
    step = Level_factor(Is_level_in(source) ? source : target);
    Linear_rule const rule = Rule_between(source, target);
    Exact_pair const factor = Two_parts(rule.factor);
    Exact_pair const offset = Two_parts(rule.offset);
    factor_high = factor.rounded;
    factor_low = factor.rest;
    offset_high = offset.rounded;
    offset_low = offset.rest;
    Prepare_measurements();
}

// ---- Measurements

// Decimals that stay decimals, and levels whose reference is a power of ten of the target.
void Measurement_converter::Prepare_measurements() noexcept {
    Exact_factor const ratio = Size_of(source) / Size_of(target);
    bool const by_factor =
        way == Way::linear && !Is_level_in(source) && !Is_point_in(source) && !Is_point_in(target);
    bool const by_power = way == Way::level_to_linear && ratio == Powers_of_ten(Tens_in(ratio));
    if (!by_factor && !by_power) {
        return;
    }
    if (std::optional<Decimal_factor> const decimal = As_decimal(ratio)) {
        decimal_whole = decimal->whole;
        decimal_power = decimal->power;
    }
}

namespace {

std::optional<Measurement> Converted_decimals(Measurement const& x, Decimal_factor const& factor,
                                              Units const& target) {
    return Made_of_decimals(Product(Kept_decimals(x), factor), target,
                            x.Is_difference() && Is_temperature(target));
}

} // namespace

Measurement Measurement_converter::Convert(Measurement const& x) const {
    bool const is_prepared = decimal_whole != 0.0 && Measurement_parts::Unit_of(x) == source;
    if (is_prepared && way == Way::linear && x.Get_decimal_code() != 0) {
        if (auto const converted = Converted_decimals(x, {decimal_whole, decimal_power}, target)) {
            return *converted;
        }
    }
    Rounded_numbers numbers{};
    if (is_prepared && way == Way::level_to_linear &&
        Quick_power(x, step, decimal_power, numbers)) {
        return Made_of(numbers, target);
    }
    return x.Convert_to(target);
}

// ---- Numbers

// Where the quick answer is in doubt, the enclosing arithmetic gives it.
double Measurement_converter::Nearest(double number) const noexcept {
    if (!std::isfinite(number)) {
        return number;
    }
    double const quick = Quick_answer(number, {factor_high, factor_low}, {offset_high, offset_low});
    return std::isnan(quick) ? Nearest_of_enclosed(number) : quick;
}

double Measurement_converter::Nearest_of_enclosed(double number) const noexcept {
    return std::isfinite(number)
               ? Round_to_nearest(
                     Converted({Single(Enclose(number))}, source, false, target, false).value)
               : number;
}

double Measurement_converter::Quantity_of(double level) const noexcept {
    if (!std::isfinite(level)) {
        return std::pow(10.0, level) * factor_high;
    }
    // The whole powers of ten apart, so that the power to be taken of ten is small.
    double const tens = std::nearbyint(level / step);
    double const rest = std::pow(10.0, (level - tens * step) / step);
    if (std::fabs(tens) <= 250.0) {
        return rest * (std::pow(10.0, tens) * factor_high);
    }
    // In two halves, which are doubles where the whole may be none.
    double const half = std::nearbyint(tens / 2.0);
    return rest * std::pow(10.0, half) * factor_high * std::pow(10.0, tens - half);
}

double Measurement_converter::Level_of(double number) const noexcept {
    if (!std::isfinite(number)) {
        return step * std::log10(number);
    }
    double const size = std::fabs(number);
    if (size > 1e-200 && size < 1e200) {
        return step * std::log10(number * factor_high);
    }
    // The product may lie beyond the doubles, or where they have fewer digits.
    int exponent = 0;
    double const digits = std::frexp(number, &exponent) * factor_high;
    return step * (std::log10(digits) + exponent * std::log10(2.0));
}

namespace {

// From a scale to a level of kelvin, or back: enclosed, as digits cancel near 0 K and near 0 °C.
double Converted_by_kelvins(double number, Units const& from, Units const& to) {
    if (std::isnan(number)) {
        return number;
    }
    if (Is_decibel(from)) {
        return Round_to_nearest(Converted({Single(Enclose(number))}, from, false, to, false).value);
    }
    Enclosed const kelvins = Formula_between_scales(from, Without_decibels(to))(Enclose(number));
    return Is_below_zero(kelvins) ? std::numeric_limits<double>::quiet_NaN()
                                  : Round_to_nearest(Enclose(10.0) * Logarithm(kelvins));
}

} // namespace

double Measurement_converter::Convert_number(double number) const noexcept {
    switch (way) {
    case Way::same:
        return number;
    case Way::linear:
        return Nearest(number);
    case Way::level_to_linear:
        return Quantity_of(number);
    case Way::linear_to_level:
        return number == 0.0 ? -std::numeric_limits<double>::infinity() : Level_of(number);
    case Way::by_kelvins:
        return Converted_by_kelvins(number, source, target);
    }
    return number;
}

void Measurement_converter::Convert_numbers(double const* from, double* to,
                                            std::size_t count) const noexcept {
    std::size_t done = 0;
    for (; way == Way::linear && count - done >= Block_size; done += Block_size) {
        double answers[Block_size];
        Quick_answers(from + done, answers, {factor_high, factor_low}, {offset_high, offset_low});
        for (std::size_t k = 0; k < Block_size; ++k) {
            to[done + k] =
                std::isnan(answers[k]) ? Nearest_of_enclosed(from[done + k]) : answers[k];
        }
    }
    for (; done < count; ++done) {
        to[done] = Convert_number(from[done]);
    }
}

} // namespace Varnix::Value
