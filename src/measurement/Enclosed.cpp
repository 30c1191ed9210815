#include "Enclosed.h"

#include "Enclosed_tables.h"
#include "Whole_number.h"
#include "basics/Doubles.h"
#include "basics/Error_free.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>

namespace Varnix::Value::Physics {

using namespace Basics;

namespace {

// ---- Doubles as numbers with an exponent

constexpr int Least_exponent = -1022; // of a normal double
constexpr int Greatest_exponent = 1023;

// The next double towards -inf.
double Next_below(double number) {
    if (number == 0.0) {
        return -std::numeric_limits<double>::denorm_min();
    }
    std::uint64_t const bits = Bits_of(number);
    return Double_of(number > 0.0 ? bits - 1 : bits + 1);
}

// ---- Errors

// A sum of up to sixteen magnitudes, each rounded, made larger by more than they can have lost.
// What is not zero stays well away from underflow, so that no product with it vanishes.
double Grown(double error) {
    return error == 0.0 ? 0.0 : std::max(error * (1.0 + 0x1p-48), 0x1p-800);
}

// Smaller parts are counted as an error, so that no product or shift of them underflows.
constexpr double Least_low = 0x1p-500;

// high + low + [-error, error], times 2^exponent, with its parts where they belong. The error has
// grown already, if it is a sum.
Enclosed Made(double high, double low, double error, int exponent) {
    Exact_pair sum = Exact_sum(high, low);
    if (sum.rounded == 0.0) {
        return {0.0, 0.0, error, error == 0.0 ? 0 : exponent};
    }
    int const shift = Exponent_of(sum.rounded);
    if (shift != 0) {
        double const scale = Two_to(-shift);
        sum.rounded *= scale;
        sum.rest *= scale;
        error *= scale;
    }
    if (std::fabs(sum.rest) < Least_low && sum.rest != 0.0) {
        error = Grown(error + std::fabs(sum.rest));
        sum.rest = 0.0;
    }
    return {sum.rounded, sum.rest, error, exponent + shift};
}

// Beyond this many binary places the smaller operand of a sum only counts by its sign.
constexpr int Longest_shift = 400;

// x * 2^-shift, its exponent left as it is. What is shifted too far becomes all between zero and a
// number that it does not reach, so that its sign stays certain.
Enclosed Shifted(Enclosed const& x, int shift) {
    if (shift <= Longest_shift) {
        double const scale = Two_to(-shift);
        double const error = x.error == 0.0 ? 0.0 : std::max(x.error * scale, 0x1p-800);
        return {x.high * scale, x.low * scale, error, x.exponent};
    }
    double const least = Two_to(-Longest_shift);
    double const error = x.error > 1.0 ? x.error * least : 0.0;
    double const sign = x.high < 0.0 ? -1.0 : x.high > 0.0 ? 1.0 : 0.0;
    return {sign * least, 0.0, error + least, x.exponent};
}

} // namespace

// ---- In and out

namespace {

// Doubles, sizes of units and powers of them stay within 2^18; a root halves the infinite one and a
// 64th power of it still fits an int.
constexpr int Infinite_exponent = 1 << 23;
constexpr int Infinite_limit = 1 << 21;

} // namespace

Enclosed Infinite(bool negative) {
    return {negative ? -1.0 : 1.0, 0.0, 0.0, Infinite_exponent};
}

bool Is_infinite(Enclosed const& x) {
    return x.exponent > Infinite_limit;
}

Enclosed Enclose(double number) {
    if (number == 0.0) {
        return {};
    }
    if (std::isinf(number)) {
        return Infinite(number < 0.0);
    }
    int exponent = 0;
    if (std::fabs(number) < std::numeric_limits<double>::min()) {
        number *= 0x1p54; // a denormal becomes normal
        exponent = -54;
    }
    int const own = Exponent_of(number);
    std::uint64_t const bits = Bits_of(number) & 0x800fffffffffffffULL;
    return {Double_of(bits | 0x3ff0000000000000ULL), 0.0, 0.0, exponent + own};
}

namespace {

// The double nearest to number * 2^exponent.
double Scaled(double number, int exponent) {
    int const own = number == 0.0 ? 0 : Exponent_of(number) + exponent;
    if (own > Greatest_exponent) {
        return number * Two_to(Greatest_exponent) * 2.0; // infinite
    }
    if (own >= Least_exponent) {
        // In two steps, for an exponent that is none of a normal double by itself.
        int const half = exponent / 2;
        return number * Two_to(half) * Two_to(exponent - half);
    }
    if (own < Least_exponent - 60) {
        return std::copysign(0.0, number);
    }
    // Exact down to a double of least exponent, and rounded once from there.
    double const least = number * Two_to(Least_exponent - Exponent_of(number));
    return least * Two_to(own - Least_exponent);
}

// The greatest double that is not above (number + rest) * 2^exponent; |rest| is at most half a
// place.
double Scaled_down(double number, double rest, int exponent) {
    double const scaled = Scaled(number, exponent);
    if (std::isinf(scaled)) {
        return scaled > 0.0 ? std::numeric_limits<double>::max() : scaled;
    }
    bool above = rest < 0.0;
    if (std::fabs(scaled) < std::numeric_limits<double>::min() * 2.0) {
        // Rounded to fewer places: what was lost counts first. Going back up is exact.
        double const back = Enclose(scaled).high;
        int const back_exponent = Enclose(scaled).exponent;
        double const lost =
            scaled == 0.0 ? number : number - Scaled(back, back_exponent - exponent);
        above = lost < 0.0 || (lost == 0.0 && rest < 0.0);
    }
    return above ? Next_below(scaled) : scaled;
}

} // namespace

double Round_down(Enclosed const& x) {
    if (x.exponent < -Infinite_limit) {
        return 0.0; // a number over an infinite one
    }
    Exact_pair const end = Exact_sum(x.low, -x.error);
    // The rest of the rest counts by its sign alone.
    double const low = end.rest < 0.0 ? Next_below(end.rounded) : end.rounded;
    Exact_pair const sum = Exact_sum(x.high, low);
    return Scaled_down(sum.rounded, sum.rest, x.exponent) + 0.0;
}

double Round_up(Enclosed const& x) {
    return -Round_down(-x) + 0.0;
}

namespace {

// Of two neighbours among the denormal doubles the nearer; of two as near the even one.
double Nearest_denormal(Enclosed const& x) {
    double const lower = Round_down(x);
    double const upper = Round_up(x);
    Enclosed const beyond_middle = x + x - (Enclose(lower) + Enclose(upper));
    bool const at_middle = beyond_middle.Is_zero();
    return Is_positive(beyond_middle) || (at_middle && (Bits_of(upper) & 1U) == 0) ? upper : lower;
}

} // namespace

double Round_to_nearest(Enclosed const& x) {
    double const nearest = Scaled(x.high, x.exponent) + 0.0;
    // Rounded a second time there, to fewer places than the high part has.
    bool const is_denormal = std::fabs(nearest) < 2.0 * std::numeric_limits<double>::min();
    return is_denormal && x.low != 0.0 ? Nearest_denormal({x.high, x.low, 0.0, x.exponent})
                                       : nearest;
}

bool Is_negative(Enclosed const& x) {
    return x.high + x.error < 0.0 && x.high < 0.0;
}

bool Is_positive(Enclosed const& x) {
    return x.high - x.error > 0.0 && x.high > 0.0;
}

bool Is_small_whole(Enclosed const& x, int& number) {
    if (!x.Is_exact() || x.low != 0.0 || x.exponent > 13 || x.exponent < -1) {
        return false;
    }
    double const magnitude = x.high * Two_to(x.exponent);
    number = static_cast<int>(magnitude);
    return number == magnitude;
}

// ---- Sums

Enclosed operator-(Enclosed const& x) {
    return {-x.high, -x.low, x.error, x.exponent};
}

namespace {

// x + y, where y has been brought to the exponent of x. What the two roundings leave out is the
// error.
Enclosed Sum_of_aligned(Enclosed const& x, Enclosed const& y) {
    Exact_pair const highs = Exact_sum(x.high, y.high);
    Exact_pair const lows = Exact_sum(x.low, y.low);
    Exact_pair const middle = Exact_sum(highs.rest, lows.rounded);
    Exact_pair const top = Exact_sum(highs.rounded, middle.rounded);
    Exact_pair const rest = Exact_sum(middle.rest, lows.rest);
    Exact_pair const low = Exact_sum(top.rest, rest.rounded);
    double const left_out = std::fabs(low.rest) + std::fabs(rest.rest);
    // One error alone is not rounded: what ends at zero goes on doing so.
    bool const alone = left_out == 0.0 && (x.error == 0.0 || y.error == 0.0);
    double const error = alone ? x.error + y.error : Grown(left_out + x.error + y.error);
    return Made(top.rounded, low.rounded, error, x.exponent);
}

} // namespace

Enclosed operator+(Enclosed const& x, Enclosed const& y) {
    if (x.Is_zero() || y.Is_zero()) {
        return x.Is_zero() ? y : x;
    }
    return x.exponent >= y.exponent ? Sum_of_aligned(x, Shifted(y, x.exponent - y.exponent))
                                    : Sum_of_aligned(y, Shifted(x, y.exponent - x.exponent));
}

Enclosed operator-(Enclosed const& x, Enclosed const& y) {
    return x + -y;
}

// ---- Products

Enclosed operator*(Enclosed const& x, Enclosed const& y) {
    Exact_pair const highs = Exact_product(x.high, y.high);
    double low = highs.rest;
    double left_out = 0.0;
    if (x.low != 0.0 || y.low != 0.0) {
        Exact_pair const first = Exact_product(x.high, y.low);
        Exact_pair const second = Exact_product(x.low, y.high);
        Exact_pair const cross = Exact_sum(first.rounded, second.rounded);
        Exact_pair const sum = Exact_sum(highs.rest, cross.rounded);
        low = sum.rounded;
        left_out = std::fabs(sum.rest) + std::fabs(cross.rest) + std::fabs(first.rest) +
                   std::fabs(second.rest) + std::fabs(x.low * y.low);
    }
    if (x.error != 0.0 || y.error != 0.0) {
        if (x.Is_zero() || y.Is_zero()) {
            return {};
        }
        left_out += x.error * (std::fabs(y.high) + 0x1p-50 + y.error) +
                    y.error * (std::fabs(x.high) + 0x1p-50);
    }
    return Made(highs.rounded, low, Grown(left_out), x.exponent + y.exponent);
}

// ---- Quotients

namespace {

// x over a double between 1 and 2 in magnitude.
Enclosed Divided(Enclosed const& x, double divisor, int exponent) {
    double const first = x.high / divisor;
    Exact_pair const product = Exact_product(first, divisor);
    // The two are close, so that their difference is a double (Sterbenz).
    Exact_pair const residual = Exact_sum((x.high - product.rounded) - product.rest, x.low);
    double const second = residual.rounded / divisor;
    Exact_pair const again = Exact_product(second, divisor);
    double const rest = (residual.rounded - again.rounded) - again.rest;
    double const left_out = std::fabs(rest) + std::fabs(residual.rest) + x.error;
    return Made(first, second, Grown(left_out / std::fabs(divisor)), x.exponent - exponent);
}

// The greatest magnitude of all that x encloses, over divisor * 2^exponent.
double Magnitude_over(Enclosed const& x, double divisor, int exponent) {
    if (x.Is_zero()) {
        return 0.0;
    }
    double const magnitude = (std::fabs(x.high) + std::fabs(x.low) + x.error) / divisor;
    int const shift = std::max(x.exponent - exponent, -800);
    return shift > 800 ? std::numeric_limits<double>::infinity() : magnitude * Two_to(shift);
}

// A double times 2^exponent.
Enclosed Scaled_double(double number, int exponent) {
    Enclosed scaled = Enclose(number);
    scaled.exponent += scaled.high == 0.0 ? 0 : exponent;
    return scaled;
}

Enclosed With_error(Enclosed const& x, double error) {
    return {x.high, x.low, Grown(x.error + error), x.exponent};
}

} // namespace

// Two digits of a long division, each a double. What then remains, over the divisor, is the error.
Enclosed operator/(Enclosed const& x, Enclosed const& y) {
    if (x.Is_zero()) {
        return x;
    }
    if (y.low == 0.0 && y.error == 0.0) {
        return Divided(x, y.high, y.exponent);
    }
    double const least_divisor = std::fabs(y.high) - std::fabs(y.low) - y.error;
    Enclosed const first = Scaled_double(x.high / y.high, x.exponent - y.exponent);
    Enclosed const residual = x - first * y;
    Enclosed const second = Scaled_double(residual.high / y.high, residual.exponent - y.exponent);
    Enclosed const rest = residual - second * y;
    Enclosed const quotient = first + second;
    return With_error(quotient,
                      Magnitude_over(rest, least_divisor, y.exponent + quotient.exponent));
}

Enclosed Hull(Enclosed const& x, Enclosed const& y) {
    return With_error(x, Magnitude_over(x - y, 1.0, x.exponent));
}

// ---- Roots

// The root of the high part, and one step of Newton's from there. What then remains of the
// radicand, over twice the root, is the error, and a little more, as the root itself is not known
// better.
Enclosed Square_root(Enclosed const& x) {
    if (x.high == 0.0) {
        // From zero to the root of the error.
        double const most = x.error == 0.0 ? 0.0 : std::sqrt(2.0 * x.error) * (1.0 + 0x1p-40);
        return x.error == 0.0 ? Enclosed{} : Enclosed{0.0, 0.0, most, x.exponent >> 1};
    }
    bool const odd = (x.exponent & 1) != 0;
    double const first = std::sqrt(odd ? 2.0 * x.high : x.high);
    Enclosed const root = Scaled_double(first, (x.exponent - (odd ? 1 : 0)) / 2);
    Enclosed const residual = x - root * root;
    if (residual.Is_zero()) {
        return root;
    }
    Enclosed const step =
        Scaled_double(residual.high / (2.0 * root.high), residual.exponent - root.exponent);
    Enclosed const better = root + step;
    Enclosed const rest = x - better * better;
    return With_error(better,
                      Magnitude_over(rest, 1.5 * std::fabs(better.high), 2 * better.exponent));
}

// ---- Powers

Enclosed Power(Enclosed const& x, int exponent) {
    Enclosed power = Enclose(1.0);
    Enclosed square = x;
    for (unsigned left = static_cast<unsigned>(exponent < 0 ? -exponent : exponent); left != 0;) {
        if ((left & 1U) != 0) {
            power = power * square;
        }
        left >>= 1;
        if (left != 0) {
            square = square * square;
        }
    }
    return exponent < 0 ? Enclose(1.0) / power : power;
}

// ---- Exact ratios

namespace {

// A product of odd primes, or nothing where it has more than 53 bits.
double Short_product(Exact_factor const& factor, int sign) {
    double product = 1.0;
    for (std::size_t k = 1; k < primes.count; ++k) {
        for (int left = sign * factor.powers[k]; left > 0; --left) {
            product *= primes.numbers[k];
            if (product > 0x1p53) {
                return 0.0;
            }
        }
    }
    return product;
}

Enclosed Long_product(Exact_factor const& factor, int sign) {
    Enclosed product = Enclose(1.0);
    for (std::size_t k = 1; k < primes.count; ++k) {
        if (sign * factor.powers[k] > 0) {
            product = product * Power(Enclose(primes.numbers[k]), sign * factor.powers[k]);
        }
    }
    return product;
}

// The part of the ratio above the line, or for sign -1 below it; without powers of two.
Enclosed Odd_part(Exact_factor const& factor, int sign) {
    double const brief = Short_product(factor, sign);
    Enclosed const product = brief != 0.0 ? Enclose(brief) : Long_product(factor, sign);
    int const power_of_pi = sign * factor.Power_of_pi();
    int const power_of_ln10 = sign * factor.Power_of_ln10();
    Enclosed const with_pi = power_of_pi > 0 ? product * Power(pi, power_of_pi) : product;
    return power_of_ln10 > 0 ? with_pi * Power(ln_10, power_of_ln10) : with_pi;
}

// A double as an odd number times a power of two.
struct Odd_number {
    std::uint64_t odd;
    int exponent;
};

Odd_number Odd_number_of(double mantissa, int exponent) {
    std::uint64_t odd = Significand_of(mantissa);
    exponent -= 52;
    for (; (odd & 1U) == 0; odd >>= 1) {
        ++exponent;
    }
    return {odd, exponent};
}

// Whether from * factor = to, for two doubles as mantissa and exponent.
bool Is_product(Enclosed const& from, Exact_factor const& factor, Enclosed const& to) {
    Odd_number const source = Odd_number_of(from.high, from.exponent);
    Odd_number const target = Odd_number_of(to.high, to.exponent);
    if (source.exponent + factor.Power_of_two() != target.exponent) {
        return false;
    }
    constexpr std::size_t digits = 6; // a double times 128 bits
    Whole_number<digits> left(source.odd);
    Whole_number<digits> right(target.odd);
    left.Multiply(factor, 1);
    right.Multiply(factor, -1);
    return !left.Is_too_long() && !right.Is_too_long() && left.Compare(right) == 0;
}

} // namespace

Prepared_factor::Prepared_factor(Exact_factor const& factor)
    : ratio(factor), numerator(Odd_part(factor, 1)), denominator(Odd_part(factor, -1)) {
    auto const one = [](Enclosed const& part) {
        return part.high == 1.0 && part.Is_exact() && part.low == 0.0 && part.exponent == 0;
    };
    multiplies = !one(numerator);
    divides = !one(denominator);
}

Enclosed Prepared_factor::operator()(Enclosed const& x) const {
    Enclosed product = multiplies ? x * numerator : x;
    product = divides ? product / denominator : product;
    product.exponent += product.high == 0.0 && product.error == 0.0 ? 0 : ratio.Power_of_two();
    bool const may_be_double = !product.Is_exact() && x.low == 0.0 && x.Is_exact() &&
                               ratio.Is_rational() && std::fabs(product.low) <= product.error;
    if (may_be_double && product.high != 0.0) {
        Enclosed const candidate = {product.high, 0.0, 0.0, product.exponent};
        return Is_product(x, ratio, candidate) ? candidate : product;
    }
    return product;
}

Enclosed Prepared_factor::Above() const {
    Enclosed above = numerator;
    above.exponent += std::max(ratio.Power_of_two(), 0);
    return above;
}

Enclosed Prepared_factor::Below() const {
    Enclosed below = denominator;
    below.exponent -= std::min(ratio.Power_of_two(), 0);
    return below;
}

bool Prepared_factor::As_whole_numbers(double& above, double& below) const {
    int const twos = ratio.Power_of_two();
    bool const are_doubles = numerator.low == 0.0 && numerator.Is_exact() &&
                             denominator.low == 0.0 && denominator.Is_exact() &&
                             ratio.Is_rational() && twos > -300 && twos < 300;
    if (are_doubles) {
        above = numerator.high * Two_to(numerator.exponent + (twos > 0 ? twos : 0));
        below = denominator.high * Two_to(denominator.exponent - (twos < 0 ? twos : 0));
    }
    return are_doubles;
}

Enclosed operator*(Enclosed const& x, Exact_factor const& factor) {
    return Prepared_factor(factor)(x);
}

// ---- Powers of ten

namespace {

constexpr int Greatest_power_of_five = 22; // in a double

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

// e^x - 1 over x, less 1, for |x| <= 1/128, by its Taylor series. The terms from x^4 / 120 on are
// computed in doubles: over x^3 they are less than 2^-13.9, so that three roundings and that of x
// leave less than 2^-64, and what is left out less than 2^-84. Of the whole that makes 2^-85.
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

// 10^x of |x| >= 2^17 is beyond every double, whatever unit it goes to; how far does not matter
// then.
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

// 2 artanh(s) / ln 10 over s, for |s| <= 2^-8 and the square of s. The terms from s^4 / 5 on are
// computed in doubles: over s^2 they are less than 2^-18.5, so that four roundings and that of s^2
// leave less than 2^-69, and what is left out less than 2^-100. Of the whole that makes 2^-85.
Enclosed Area_tangent_series(Enclosed const& square) {
    constexpr double factor = 0.8685889638065037; // 2 / ln 10
    double const y = Value_of(square);
    double const tail =
        factor * y *
        (1.0 / 5 + y * (1.0 / 7 + y * (1.0 / 9 + y * (1.0 / 11 + y * (1.0 / 13 + y / 15)))));
    return two_over_ln_10 + square * With_absolute_error(two_over_3_ln_10 + Enclose(tail), 0x1p-69);
}

// x / y for what is not exact anyway: a long division as above, but of what remains after its
// second digit only a bound, some 2^-104 of the quotient.
Enclosed Quick_quotient(Enclosed const& x, Enclosed const& y) {
    Enclosed const first = Scaled_double(x.high / y.high, x.exponent - y.exponent);
    Enclosed const residual = x - first * y;
    double const digit = residual.high / y.high;
    Exact_pair const product = Exact_product(digit, y.high);
    double const rest = std::fabs((residual.high - product.rounded) - product.rest) +
                        std::fabs(residual.low) + residual.error +
                        std::fabs(digit) * (std::fabs(y.low) + y.error);
    double const least_divisor = std::fabs(y.high) - std::fabs(y.low) - y.error;
    return first + Made(digit, 0.0, Grown(rest / least_divisor), residual.exponent - y.exponent);
}

// log10 of a number from 90/128 to 182/128: that of the table's number beside it, and 2 artanh(z /
// (2 + z)) for the rest 1 + z.
Enclosed Logarithm_near_one(Enclosed const& x) {
    Logarithm_entry const& entry =
        logarithms[static_cast<int>(Value_of(x) * 128.0) - First_logarithm];
    Enclosed const z = x * Enclose(entry.reciprocal) - Enclose(1.0);
    Enclosed const s = z.Is_zero() ? z : Quick_quotient(z, Enclose(2.0) + z);
    return s * Area_tangent_series(s * s) + entry.logarithm;
}

} // namespace

Enclosed Logarithm(Enclosed const& x) {
    bool const is_zero = x.high == 0.0 || x.exponent < -Infinite_limit; // over an infinite one
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
