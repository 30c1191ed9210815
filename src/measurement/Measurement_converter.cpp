#include <varnix/value/Measurement_converter.h>

#include "Conversions.h"
#include "Error_free.h"
#include "Refusals.h"

#include <cmath>
#include <limits>

namespace Varnix::Value {

using namespace Physics;

namespace {

Units Checked(Units const& unit) {
    try {
        return Valid_unit(unit);
    } catch (Refusal reason) {
        Refuse(reason, "cannot measure in " + Described(unit));
    }
}

// What a number becomes, as factor and offset.
struct Linear_rule {
    Enclosed factor = {1.0, 0.0, 0.0, 0};
    Enclosed offset = {};
};

Linear_rule Rule_between(Units const& from, Units const& to) {
    Form const form = Form_of(from, false);
    Exact_factor const ratio = Size_of(from) / Size_of(to);
    if (form == Form::scale_point || Form_of(to, false) == Form::scale_point) {
        Scale_formula const formula = Formula_between_scales(from, to);
        return {formula.factor / formula.divisor, formula.offset / formula.divisor};
    }
    if (form == Form::level && Is_decibel(to)) {
        return {{1.0, 0.0, 0.0, 0}, Enclose(Level_factor(Kind_of(from))) * Logarithm(ratio)};
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
      factor_low(0.0), offset_high(0.0), offset_low(0.0) {
    try {
        Converted(Single(Enclose(1.0)), source, false, target);
    } catch (Refusal reason) {
        Refuse(reason, "cannot convert " + Described(from) + " to " + Described(to));
    }
    if (source == target) {
        return;
    }
    bool const crosses = Is_decibel(source) != Is_decibel(target);
    way = !crosses ? Way::linear : Is_decibel(source) ? Way::level_to_linear : Way::linear_to_level;
    step = Level_factor(Kind_of(source));
    Linear_rule const rule = Rule_between(source, target);
    Exact_pair const factor = Two_parts(rule.factor);
    Exact_pair const offset = Two_parts(rule.offset);
    factor_high = factor.rounded;
    factor_low = factor.rest;
    offset_high = offset.rounded;
    offset_low = offset.rest;
}

Measurement Measurement_converter::Convert(Measurement const& x) const {
    return x.Convert_to(target);
}

// ---- Numbers

namespace {

// Where no part of the sum of two doubles underflows or overflows.
constexpr double Least_magnitude = 1e-250;
constexpr double Greatest_magnitude = 1e250;

bool Is_in_reach(double number) {
    double const magnitude = std::fabs(number);
    return magnitude == 0.0 || (magnitude > Least_magnitude && magnitude < Greatest_magnitude);
}

} // namespace

// The sum of two doubles, some 100 bits, says which double is nearest unless it lies next to the
// middle of two; then, and beyond its reach, the enclosing arithmetic does.
double Measurement_converter::Nearest(double number) const noexcept {
    if (!std::isfinite(number)) {
        return number;
    }
    if (Is_in_reach(number) && Is_in_reach(factor_high)) {
        Exact_pair const product = Exact_product(number, factor_high);
        Exact_pair const sum = Exact_sum(product.rounded, offset_high);
        double const rest = sum.rest + (product.rest + number * factor_low + offset_low);
        double const error = (std::fabs(product.rounded) + std::fabs(offset_high)) * 0x1p-95;
        double const nearest = sum.rounded + (rest + error);
        if (nearest == sum.rounded + (rest - error) && Is_in_reach(nearest)) {
            return nearest + 0.0;
        }
    }
    return Round_to_nearest(Converted(Single(Enclose(number)), source, false, target).value);
}

double Measurement_converter::Convert_number(double number) const noexcept {
    switch (way) {
    case Way::same:
        return number;
    case Way::linear:
        return Nearest(number);
    case Way::level_to_linear: {
        // The whole powers of ten apart, so that the power to be taken of ten is small.
        double const tens = std::nearbyint(number / step);
        double const rest = std::pow(10.0, (number - tens * step) / step);
        return std::fabs(tens) <= 300.0 ? rest * (std::pow(10.0, tens) * factor_high)
                                        : std::pow(10.0, number / step) * factor_high;
    }
    case Way::linear_to_level:
        return number == 0.0 ? -std::numeric_limits<double>::infinity()
                             : step * std::log10(number * factor_high);
    }
    return number;
}

void Measurement_converter::Convert_numbers(double const* from, double* to,
                                            std::size_t count) const noexcept {
    for (std::size_t k = 0; k < count; ++k) {
        to[k] = Convert_number(from[k]);
    }
}

} // namespace Varnix::Value
