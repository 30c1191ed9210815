#include "Elementary_functions.h"

#include "Enclosed_parts.h"
#include "Enclosed_tables.h"
#include "Prepared_factor.h"
#include "basics/Doubles.h"
#include "basics/Error_free.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace Varnix::Value::Physics {

using namespace Basics;

// ---- Powers of ten

namespace {

constexpr int Greatest_power_of_five = 22; // that is a double

constexpr std::array<double, Greatest_power_of_five + 1> Made_powers_of_five() {
    std::array<double, Greatest_power_of_five + 1> powers{};
    double power = 1.0;
    for (double& entry : powers) {
        entry = power;
        power *= 5.0;
    }
    return powers;
}

constexpr std::array<double, Greatest_power_of_five + 1> powers_of_five = Made_powers_of_five();

// x as a double; exact for whole numbers of up to 53 bits.
double Value_of(Enclosed const& x) {
    return x.high * Two_to(std::max(x.exponent, -1000));
}

Enclosed Whole_power_of_ten(int power) {
    auto const magnitude = static_cast<std::size_t>(power < 0 ? -power : power);
    Enclosed const five = Enclose(powers_of_five[magnitude]);
    Enclosed result = power < 0 ? Enclose(1.0) / five : five;
    result.exponent += power;
    return result;
}

Enclosed With_absolute_error(Enclosed const& x, double error) {
    return With_error(x, x.exponent > 0 ? error : error * Two_to(-x.exponent));
}

// (e^x - 1) / x - 1 for |x| <= 1/128, by its Taylor series. The terms from x^4 / 120 on are
// computed in doubles: divided by x^3 they are less than 2^-13.9, so that three roundings and that
// of x leave less than 2^-64, and the terms left out are less than 2^-84. Relative to the sum that
// makes 2^-85.
Enclosed Exponential_series(Enclosed const& x) {
    double const y = Value_of(x);
    double const tail =
        y * (1.0 / 120 +
             y * (1.0 / 720 +
                  y * (1.0 / 5040 + y * (1.0 / 40320 + y * (1.0 / 362880 +
                                                            y * (1.0 / 3628800 + y / 39916800))))));
    Enclosed const last = With_absolute_error(one_24th + Enclose(tail), 0x1p-64);
    return x * (Enclose(0.5) + x * (one_6th + x * last));
}

Enclosed Exponential_less_one(Enclosed const& x) {
    return x * (Enclose(1.0) + Exponential_series(x));
}

// e^x for |x| <= 0.35: the table's entry for the nearest 64th, and the series for the rest.
Enclosed Exponential(Enclosed const& x) {
    double const step = Nearest_whole(64.0 * Value_of(x));
    Enclosed const rest = x - Enclose(step / 64.0);
    Enclosed const entry = exponentials[static_cast<int>(step) - First_exponential];
    return entry * (Enclose(1.0) + Exponential_less_one(rest));
}

// For |x| >= 2^17, 10^x lies beyond every double, whatever its unit; how far does not matter.
constexpr int Beyond_exponent = 1 << 18;

} // namespace

// 10^x = 2^k e^r with k the whole number nearest to x log2 10 (Cody and Waite 1980).
Enclosed Power_of_ten(Enclosed const& x) {
    if (x.Is_zero()) {
        return Enclose(1.0);
    }
    if (Is_infinite(x)) {
        return x.high < 0.0 ? Enclosed{} : x;
    }
    if (x.exponent >= 17) {
        return {1.0, 0.0, 0.0, x.high < 0.0 ? -Beyond_exponent : Beyond_exponent};
    }
    double const approximate = Value_of(x);
    bool const whole = x.Is_exact() && x.low == 0.0 && Nearest_whole(approximate) == approximate;
    if (whole && std::fabs(approximate) <= Greatest_power_of_five) {
        return Whole_power_of_ten(static_cast<int>(approximate));
    }
    constexpr double log2_10 = 3.321928094887362;
    double const k = Nearest_whole(approximate * log2_10);
    Enclosed power = Exponential(x * ln_10 - Enclose(k) * ln_2);
    power.exponent += static_cast<int>(k);
    return power;
}

// e^r - 1 by its series, where r is small; elsewhere little cancels.
Enclosed Power_of_ten_less_one(Enclosed const& x) {
    Enclosed const rest = x * ln_10;
    bool const is_small = rest.exponent < -7;
    return is_small ? Exponential_less_one(rest) : Power_of_ten(x) - Enclose(1.0);
}

// ---- Logarithms

namespace {

// Whether x is 10^n, for n from 0 to 22.
bool Is_whole_power_of_ten(Enclosed const& x, int& power) {
    if (!x.Is_exact() || x.low != 0.0) {
        return false;
    }
    Odd_number const number = Odd_number_of(x.high, x.exponent);
    power = number.exponent;
    return power >= 0 && power <= Greatest_power_of_five &&
           static_cast<double>(number.odd) == powers_of_five[static_cast<std::size_t>(power)];
}

// The series of the inverse hyperbolic tangent: 2 artanh(s) / (s ln 10), from the square of s, for
// |s| <= 2^-8. The terms from s^4 / 5 on are computed in doubles: divided by s^2 they are less than
// 2^-18.5, so that four roundings and that of s^2 leave less than 2^-69, and the terms left out are
// less than 2^-100. Relative to the sum that makes 2^-85.
Enclosed Artanh_series(Enclosed const& square) {
    constexpr double factor = 0.8685889638065037; // 2 / ln 10
    double const y = Value_of(square);
    double const tail =
        factor * y *
        (1.0 / 5 + y * (1.0 / 7 + y * (1.0 / 9 + y * (1.0 / 11 + y * (1.0 / 13 + y / 15)))));
    return two_over_ln_10 + square * With_absolute_error(two_over_3_ln_10 + Enclose(tail), 0x1p-69);
}

// x / y where the quotient is not exact anyway. As in the division of enclosed numbers, two digits
// of a long division; the remainder is bounded, at some 2^-104 of the quotient, and not computed.
Enclosed Inexact_quotient(Enclosed const& x, Enclosed const& y) {
    Enclosed const first = Enclose(x.high / y.high, x.exponent - y.exponent);
    Enclosed const residual = x - first * y;
    double const digit = residual.high / y.high;
    Exact_pair const product = Exact_product(digit, y.high);
    double const rest = std::fabs((residual.high - product.rounded) - product.rest) +
                        std::fabs(residual.low) + residual.error +
                        std::fabs(digit) * (std::fabs(y.low) + y.error);
    double const least_divisor = std::fabs(y.high) - std::fabs(y.low) - y.error;
    return first +
           Normalised(digit, 0.0, Grown(rest / least_divisor), residual.exponent - y.exponent);
}

// log10 of a number from 90/128 to 182/128: the logarithm of a number beside it, from the table,
// and that of their quotient 1 + z, which is 2 artanh(z / (2 + z)) / ln 10.
Enclosed Logarithm_near_one(Enclosed const& x) {
    Logarithm_entry const& entry =
        logarithms[static_cast<int>(Value_of(x) * 128.0) - First_logarithm];
    Enclosed const z = x * Enclose(entry.reciprocal) - Enclose(1.0);
    Enclosed const s = z.Is_zero() ? z : Inexact_quotient(z, Enclose(2.0) + z);
    return s * Artanh_series(s * s) + entry.logarithm;
}

} // namespace

Enclosed Logarithm(Enclosed const& x) {
    bool const is_zero = x.high == 0.0 || Is_over_infinite(x);
    if (is_zero || Is_infinite(x)) {
        return Infinite(is_zero);
    }
    int power = 0;
    if (Is_whole_power_of_ten(x, power)) {
        return Enclose(power);
    }
    int const exponent = x.high >= 1.40625 ? x.exponent + 1 : x.exponent; // 180 / 128
    Enclosed const mantissa = {x.high, x.low, x.error, x.exponent - exponent};
    return Logarithm_near_one(mantissa) + Enclose(exponent) * log10_2;
}

Enclosed Logarithm(Exact_factor const& factor) {
    int const tens = Tens_in(factor);
    return Logarithm(Enclose(1.0) * (factor / Powers_of_ten(tens))) + Enclose(tens);
}

} // namespace Varnix::Value::Physics
