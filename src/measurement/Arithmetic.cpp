// Sums, products, powers and roots of measurements.

#include "Conversions.h"
#include "Level_arithmetic.h"
#include "Measurement_parts.h"
#include "Refusals.h"
#include "Result_units.h"
#include "enclosing/Prepared_factor.h"

#include <varnix/value/Levels.h>
#include <varnix/value/Measurement.h>

#include <cmath>
#include <optional>
#include <utility>

namespace Varnix::Value {

using namespace Physics;

// ---- Sums and differences

namespace {

// Of 20 °C and 5 K the second may be meant as a difference, or as a point near absolute zero.
bool Is_point_beside_kelvins(Measurement const& x, Measurement const& y) {
    return Form_of(x) == Form::scale_point && Is_kelvin(y.Get_unit()) && !y.Is_difference();
}

// What the sum or difference of two temperatures is, or why there is none.
struct Temperature_sum {
    bool is_difference;    // the result
    bool second_as_points; // whether the second is converted as a point of the scale of the first
};

Temperature_sum Temperatures_added(Measurement const& x, Measurement const& y) {
    bool const both_kelvin = Is_kelvin(x.Get_unit()) && Is_kelvin(y.Get_unit());
    if (x.Is_difference() && y.Is_difference()) {
        return {true, false};
    }
    if (x.Is_difference() || y.Is_difference()) {
        return {false, x.Is_difference()};
    }
    if (Is_point_beside_kelvins(x, y) || Is_point_beside_kelvins(y, x)) {
        throw Refusal::temperature_role;
    }
    if (!both_kelvin) {
        throw Refusal::temperature_points_add;
    }
    return {false, false};
}

Temperature_sum Temperatures_subtracted(Measurement const& x, Measurement const& y) {
    bool const both_kelvin = Is_kelvin(x.Get_unit()) && Is_kelvin(y.Get_unit());
    if (x.Is_difference() && !y.Is_difference() && !both_kelvin) {
        throw Refusal::temperature_role;
    }
    if (Is_point_beside_kelvins(x, y)) {
        throw Refusal::temperature_role;
    }
    bool const both_points = !x.Is_difference() && !y.Is_difference();
    return {both_points || x.Is_difference(), both_points};
}

Measurement Temperature_sum_of(Measurement const& x, int sign, Measurement const& y) {
    Units const unit = x.Get_unit();
    Temperature_sum const roles =
        sign > 0 ? Temperatures_added(x, y) : Temperatures_subtracted(x, y);
    bool const to_point = !roles.is_difference && x.Is_difference();
    if (to_point && !Is_kelvin(unit) && unit.si_prefix != NO_PREFIX) {
        throw Refusal::prefix_on_temperature;
    }
    bool const as_differences = !roles.second_as_points;
    if (auto const decimals = Decimal_sum(x, sign, y, as_differences, unit, roles.is_difference)) {
        return *decimals;
    }
    Band const second =
        Converted(Scaled_numbers_of(y), y.Get_unit(), as_differences, unit, as_differences);
    return Rounded(Band_of(x) + (sign > 0 ? second : -second), unit, roles.is_difference);
}

Rounded_numbers Negated(Rounded_numbers const& x) {
    return {-x.upper, -x.value, -x.lower};
}

Measurement Linear_sum(Measurement const& x, int sign, Measurement const& y) {
    Units const& unit = Measurement_parts::Unit_of(x);
    Units const& other = Measurement_parts::Unit_of(y);
    if (Is_temperature(unit) && Is_temperature(other)) {
        return Temperature_sum_of(x, sign, y);
    }
    if (auto const decimals = Decimal_sum(x, sign, y, y.Is_difference(), unit, x.Is_difference())) {
        return *decimals;
    }
    Rounded_numbers numbers{};
    if (unit == other && !Keep_decimals(x, y) &&
        Quick_sum(Rounded_numbers_of(x),
                  sign > 0 ? Rounded_numbers_of(y) : Negated(Rounded_numbers_of(y)), numbers)) {
        return Made_of(numbers, unit, x.Is_difference());
    }
    Band const second = unit == other ? Band_of(y) : Converted(y, unit, x.Is_difference());
    return Rounded(Band_of(x) + (sign > 0 ? second : -second), unit, x.Is_difference());
}

Measurement Sum(Measurement const& x, int sign, Measurement const& y) {
    bool const x_is_logarithmic = Is_logarithmic(Measurement_parts::Unit_of(x));
    bool const y_is_logarithmic = Is_logarithmic(Measurement_parts::Unit_of(y));
    if (x_is_logarithmic != y_is_logarithmic) {
        throw Refusal::level_and_linear;
    }
    return x_is_logarithmic ? Decibel_sum(x, sign, y) : Linear_sum(x, sign, y);
}

} // namespace

Measurement operator+(Measurement const& x, Measurement const& y) {
    try {
        return Sum(x, 1, y);
    } catch (Refusal reason) {
        Refuse(reason, "add", x, "and", y);
    }
}

Measurement operator-(Measurement const& x, Measurement const& y) {
    try {
        return Sum(x, -1, y);
    } catch (Refusal reason) {
        Refuse(reason, "take", y, "from", x);
    }
}

// ---- Products and quotients

namespace {

void Check_factor(Measurement const& x) {
    switch (Form_of(x)) {
    case Form::linear:
        return;
    case Form::scale_point:
        throw Refusal::temperature_point_as_factor;
    case Form::level:
        throw Refusal::level_as_factor;
    case Form::gain:
        throw Refusal::gain_is_no_quantity;
    }
}

bool Is_plain(Measurement const& x) {
    Units const& unit = Measurement_parts::Unit_of(x);
    return !Is_decibel(unit) && Kind_of(unit) == Kind();
}

// Whether a product or quotient is a temperature difference: what is only counted keeps its mark,
// and what comes of other units is one, 100 ppm over 10 ppm/°C too.
bool Product_is_difference(Measurement const& x, int sign, Measurement const& y,
                           Units const& unit) {
    if (!Is_temperature(unit)) {
        return false;
    }
    if (Is_plain(y)) {
        return x.Is_difference();
    }
    return sign < 0 || !Is_plain(x) || y.Is_difference();
}

// Units of one size, or of one that is only divided by.
bool Quick_product_of(Measurement const& x, int sign, Measurement const& y,
                      Prepared_factor const& factor, Rounded_numbers& numbers) {
    double above = 0.0;
    double below = 0.0;
    if (!factor.As_whole_numbers(above, below) || above != 1.0) {
        return false;
    }
    return sign > 0 ? Quick_product(Rounded_numbers_of(x), Rounded_numbers_of(y), below, numbers)
                    : below == 1.0 &&
                          Quick_quotient(Rounded_numbers_of(x), Rounded_numbers_of(y), numbers);
}

// The product of decimals, in units whose sizes have a decimal ratio.
std::optional<Measurement> Decimal_product(Measurement const& x, Measurement const& y,
                                           Exact_factor const& factor, Units const& unit,
                                           bool is_difference) {
    if (!Keep_decimals(x, y)) {
        return std::nullopt;
    }
    return Made_of_decimals(
        Physics::Product(Physics::Product(Decimals_of(x), Decimals_of(y)), factor), unit,
        is_difference);
}

// The product or quotient, counted in a unit that is so many times smaller.
Measurement Scaled_product(Measurement const& x, int sign, Measurement const& y,
                           Exact_factor const& factor, Units const& unit, bool is_difference) {
    if (sign > 0) {
        if (auto const decimals = Decimal_product(x, y, factor, unit, is_difference)) {
            return *decimals;
        }
    }
    Scaled_band const left = Scaled_numbers_of(x);
    Scaled_band const right = Scaled_numbers_of(y);
    Exact_factor const scale = left.Scale() * Physics::Power(right.Scale(), sign) * factor;
    return Rounded(Product_of_powers(left.numbers, 1, right.numbers, sign, scale), unit,
                   is_difference);
}

Measurement Linear_product(Measurement const& x, int sign, Measurement const& y) {
    Check_factor(x);
    Check_factor(y);
    Units const& left = Measurement_parts::Unit_of(x);
    Units const& right = Measurement_parts::Unit_of(y);
    Result_unit const result = Unit_of_product(left, sign, right);
    if (result.refusal) {
        throw *result.refusal;
    }
    bool const is_difference = Product_is_difference(x, sign, y, result.unit);
    Exact_factor const factor =
        Size_of(left) * Physics::Power(Size_of(right), sign) / Size_of(result.unit);
    Rounded_numbers numbers{};
    if (!Keep_decimals(x, y) && Quick_product_of(x, sign, y, Prepared_factor(factor), numbers)) {
        return Made_of(numbers, result.unit, is_difference);
    }
    return Scaled_product(x, sign, y, factor, result.unit, is_difference);
}

// A gain counted: 0.2 dB * 12.5.
Measurement Counted_gain(Measurement const& gain, int sign, Measurement const& number) {
    Exact_factor const size = Physics::Power(Size_of(number.Get_unit()), sign);
    return Scaled_product(gain, sign, number, size, gain.Get_unit(), false);
}

Measurement Product(Measurement const& x, Measurement const& y) {
    if (!Is_logarithmic(Measurement_parts::Unit_of(x)) &&
        !Is_logarithmic(Measurement_parts::Unit_of(y))) {
        return Linear_product(x, 1, y);
    }
    Form const left = Form_of(x);
    Form const right = Form_of(y);
    if (left == Form::gain && Is_plain(y)) {
        return Counted_gain(x, 1, y);
    }
    if (right == Form::gain && Is_plain(x)) {
        return Counted_gain(y, 1, x);
    }
    if (right == Form::gain && left == Form::linear) {
        return Amplified(x, 1, y);
    }
    if (left == Form::gain && right == Form::linear) {
        return Amplified(y, 1, x);
    }
    if (left == Form::level && Is_frequency(y)) {
        return Widened(x, 1, y);
    }
    return right == Form::level && Is_frequency(x) ? Widened(y, 1, x) : Linear_product(x, 1, y);
}

Measurement Quotient(Measurement const& x, Measurement const& y) {
    if (!Is_logarithmic(Measurement_parts::Unit_of(x)) &&
        !Is_logarithmic(Measurement_parts::Unit_of(y))) {
        return Linear_product(x, -1, y);
    }
    Form const left = Form_of(x);
    if (left == Form::gain && Is_plain(y)) {
        return Counted_gain(x, -1, y);
    }
    if (left == Form::linear && Form_of(y) == Form::gain && !Is_plain(x)) {
        return Amplified(x, -1, y);
    }
    return left == Form::level && Is_frequency(y) ? Widened(x, -1, y) : Linear_product(x, -1, y);
}

Measurement Plain(double number) {
    return {number, C_Empty};
}

} // namespace

Measurement operator*(Measurement const& x, Measurement const& y) {
    try {
        return Product(x, y);
    } catch (Refusal reason) {
        Refuse(reason, "multiply", x, "by", y);
    }
}

Measurement operator/(Measurement const& x, Measurement const& y) {
    try {
        return Quotient(x, y);
    } catch (Refusal reason) {
        Refuse(reason, "divide", x, "by", y);
    }
}

Measurement operator*(Measurement const& x, double factor) {
    return x * Plain(factor);
}

Measurement operator*(double factor, Measurement const& x) {
    return Plain(factor) * x;
}

Measurement operator/(Measurement const& x, double divisor) {
    return x / Plain(divisor);
}

Measurement operator/(double number, Measurement const& x) {
    return Plain(number) / x;
}

Measurement& operator+=(Measurement& x, Measurement const& y) {
    return x = x + y;
}

Measurement& operator-=(Measurement& x, Measurement const& y) {
    return x = x - y;
}

Measurement& operator*=(Measurement& x, Measurement const& y) {
    return x = x * y;
}

Measurement& operator/=(Measurement& x, Measurement const& y) {
    return x = x / y;
}

Measurement& operator*=(Measurement& x, double factor) {
    return x = x * factor;
}

Measurement& operator/=(Measurement& x, double divisor) {
    return x = x / divisor;
}

// ---- Functions of one measurement

namespace {

// Of gains the sign can be turned, as of linear quantities.
void Check_sign_counts(Measurement const& x) {
    if (Form_of(x) != Form::gain) {
        Check_factor(x);
    }
}

// With other decimals of the same magnitude, which therefore fit.
Measurement Made_again(Decimal_numbers const& decimals, Measurement const& x) {
    return *Made_of_decimals(decimals, x.Get_unit(), x.Is_difference());
}

constexpr int Largest_exponent = 64;

Measurement Raised(Measurement const& x, int exponent) {
    if (exponent < -Largest_exponent || exponent > Largest_exponent) {
        throw Refusal::exponent_out_of_range;
    }
    Check_factor(x);
    Units const unit = x.Get_unit();
    Result_unit const result = Unit_of_power(unit, exponent);
    if (result.refusal) {
        throw *result.refusal;
    }
    Exact_factor const factor = Physics::Power(Size_of(unit), exponent) / Size_of(result.unit);
    bool const is_difference = Is_temperature(result.unit) && (exponent != 1 || x.Is_difference());
    if (exponent > 0 && x.Get_decimal_code() != 0) {
        Maybe_decimals const power = Physics::Power(Kept_decimals(x), exponent);
        if (auto const decimals =
                Made_of_decimals(Physics::Product(power, factor), result.unit, is_difference)) {
            return *decimals;
        }
    }
    Scaled_band const base = Scaled_numbers_of(x);
    Exact_factor const scale = Physics::Power(base.Scale(), exponent) * factor;
    return Rounded(Product_of_powers(base.numbers, exponent, Single(Enclose(1.0)), 0, scale),
                   result.unit, is_difference);
}

Measurement Root(Measurement const& x) {
    Check_factor(x);
    Units const unit = x.Get_unit();
    Result_unit const result = Unit_of_root(unit);
    if (result.refusal) {
        throw *result.refusal;
    }
    Exact_factor const factor = Size_of(unit) / Physics::Power(Size_of(result.unit), 2);
    Scaled_band const square = Scaled_numbers_of(x);
    return Rounded(Square_root(square.numbers * (square.Scale() * factor)), result.unit,
                   Is_temperature(result.unit));
}

} // namespace

Measurement operator-(Measurement const& x) {
    try {
        Check_sign_counts(x);
        if (Maybe_decimals const decimals = Kept_decimals(x)) {
            return Made_again(-*decimals, x);
        }
        return Rounded(-Band_of(x), x.Get_unit(), x.Is_difference());
    } catch (Refusal reason) {
        Refuse(reason, "negate", x);
    }
}

Measurement Abs(Measurement const& x) {
    try {
        Check_sign_counts(x);
        if (Maybe_decimals const decimals = Kept_decimals(x)) {
            return Made_again(Absolute(*decimals), x);
        }
        return Rounded(Absolute(Band_of(x)), x.Get_unit(), x.Is_difference());
    } catch (Refusal reason) {
        Refuse(reason, "take the absolute value of", x);
    }
}

Measurement Pow(Measurement const& x, int exponent) {
    try {
        return Raised(x, exponent);
    } catch (Refusal reason) {
        Refuse(reason, "raise", x, "to", Plain(exponent));
    }
}

Measurement Sqrt(Measurement const& x) {
    try {
        return Root(x);
    } catch (Refusal reason) {
        Refuse(reason, "take the square root of", x);
    }
}

} // namespace Varnix::Value
