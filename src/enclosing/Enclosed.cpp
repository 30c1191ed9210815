#include "Enclosed.h"

#include "Enclosed_parts.h"
#include "basics/Doubles.h"
#include "basics/Error_free.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
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

// Of an operand of a sum that is smaller by more binary places, only the sign counts.
constexpr int Longest_shift = 400;

// x * 2^-shift, with the exponent of x. A number that is shifted too far becomes the interval
// between zero and a number of greater magnitude, so that its sign stays certain.
Enclosed Shifted_right(Enclosed const& x, int shift) {
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

Enclosed Infinite(bool negative) {
    return {negative ? -1.0 : 1.0, 0.0, 0.0, Infinite_exponent};
}

bool Is_infinite(Enclosed const& x) {
    return x.exponent > Infinite_limit;
}

namespace {

// The double nearest to number * 2^exponent.
double Nearest_double(double number, int exponent) {
    int const own = number == 0.0 ? 0 : Exponent_of(number) + exponent;
    if (own > Greatest_exponent) {
        return number * Two_to(Greatest_exponent) * 2.0; // infinite
    }
    if (own >= Least_exponent) {
        // In two steps, since 2^exponent itself may be beyond the normal doubles.
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
double Double_below(double number, double rest, int exponent) {
    double const scaled = Nearest_double(number, exponent);
    if (std::isinf(scaled)) {
        return scaled > 0.0 ? std::numeric_limits<double>::max() : scaled;
    }
    bool above = rest < 0.0;
    if (std::fabs(scaled) < std::numeric_limits<double>::min() * 2.0) {
        // Rounded to fewer places: what that lost counts first. Scaling back up is exact.
        double const back = Enclose(scaled).high;
        int const back_exponent = Enclose(scaled).exponent;
        double const lost =
            scaled == 0.0 ? number : number - Nearest_double(back, back_exponent - exponent);
        above = lost < 0.0 || (lost == 0.0 && rest < 0.0);
    }
    return above ? Next_below(scaled) : scaled;
}

} // namespace

double Round_down(Enclosed const& x) {
    if (Is_over_infinite(x)) {
        return 0.0;
    }
    Exact_pair const end = Exact_sum(x.low, -x.error);
    // Of what is left out here only the sign counts.
    double const low = end.rest < 0.0 ? Next_below(end.rounded) : end.rounded;
    Exact_pair const sum = Exact_sum(x.high, low);
    return Double_below(sum.rounded, sum.rest, x.exponent) + 0.0;
}

double Round_up(Enclosed const& x) {
    return -Round_down(-x) + 0.0;
}

namespace {

// The nearer of two neighbours among the denormal doubles; the even one of two that are as near.
double Nearest_denormal(Enclosed const& x) {
    double const lower = Round_down(x);
    double const upper = Round_up(x);
    Enclosed const beyond_middle = x + x - (Enclose(lower) + Enclose(upper));
    bool const at_middle = beyond_middle.Is_zero();
    return Is_positive(beyond_middle) || (at_middle && (Bits_of(upper) & 1U) == 0) ? upper : lower;
}

} // namespace

double Round_to_nearest(Enclosed const& x) {
    double const nearest = Nearest_double(x.high, x.exponent) + 0.0;
    // A denormal double is rounded a second time, to fewer places than the high part has.
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
    // A single error is not rounded, so that an interval that ends at zero still does.
    bool const alone = left_out == 0.0 && (x.error == 0.0 || y.error == 0.0);
    double const error = alone ? x.error + y.error : Grown(left_out + x.error + y.error);
    return Normalised(top.rounded, low.rounded, error, x.exponent);
}

} // namespace

Enclosed operator+(Enclosed const& x, Enclosed const& y) {
    if (x.Is_zero() || y.Is_zero()) {
        return x.Is_zero() ? y : x;
    }
    return x.exponent >= y.exponent ? Sum_of_aligned(x, Shifted_right(y, x.exponent - y.exponent))
                                    : Sum_of_aligned(y, Shifted_right(x, y.exponent - x.exponent));
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
    return Normalised(highs.rounded, low, Grown(left_out), x.exponent + y.exponent);
}

// ---- Quotients

namespace {

// x over divisor * 2^exponent, for a divisor between 1 and 2 in magnitude.
Enclosed Divided(Enclosed const& x, double divisor, int exponent) {
    double const first = x.high / divisor;
    Exact_pair const product = Exact_product(first, divisor);
    // The two are close, so that their difference is a double (Sterbenz).
    Exact_pair const residual = Exact_sum((x.high - product.rounded) - product.rest, x.low);
    double const second = residual.rounded / divisor;
    Exact_pair const again = Exact_product(second, divisor);
    double const rest = (residual.rounded - again.rounded) - again.rest;
    double const left_out = std::fabs(rest) + std::fabs(residual.rest) + x.error;
    return Normalised(first, second, Grown(left_out / std::fabs(divisor)), x.exponent - exponent);
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

} // namespace

// Two digits of a long division, each a double. The remainder over the divisor is the error.
Enclosed operator/(Enclosed const& x, Enclosed const& y) {
    if (x.Is_zero()) {
        return x;
    }
    if (y.low == 0.0 && y.error == 0.0) {
        return Divided(x, y.high, y.exponent);
    }
    double const least_divisor = std::fabs(y.high) - std::fabs(y.low) - y.error;
    Enclosed const first = Enclose(x.high / y.high, x.exponent - y.exponent);
    Enclosed const residual = x - first * y;
    Enclosed const second = Enclose(residual.high / y.high, residual.exponent - y.exponent);
    Enclosed const rest = residual - second * y;
    Enclosed const quotient = first + second;
    return With_error(quotient,
                      Magnitude_over(rest, least_divisor, y.exponent + quotient.exponent));
}

Enclosed Hull(Enclosed const& x, Enclosed const& y) {
    return With_error(x, Magnitude_over(x - y, 1.0, x.exponent));
}

// ---- Roots

// The root of the high part, and one step of Newton's method. What then remains of the radicand,
// over twice the root, is the error. It is divided by 1.5 times the root instead, as the root
// itself is only known approximately.
Enclosed Square_root(Enclosed const& x) {
    if (x.high == 0.0) {
        // From zero to the root of the error.
        double const most = x.error == 0.0 ? 0.0 : std::sqrt(2.0 * x.error) * (1.0 + 0x1p-40);
        return x.error == 0.0 ? Enclosed{} : Enclosed{0.0, 0.0, most, x.exponent >> 1};
    }
    bool const odd = (x.exponent & 1) != 0;
    double const first = std::sqrt(odd ? 2.0 * x.high : x.high);
    Enclosed const root = Enclose(first, (x.exponent - (odd ? 1 : 0)) / 2);
    Enclosed const residual = x - root * root;
    if (residual.Is_zero()) {
        return root;
    }
    Enclosed const step =
        Enclose(residual.high / (2.0 * root.high), residual.exponent - root.exponent);
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

} // namespace Varnix::Value::Physics
