#include "Exact_comparison.h"

#include "Whole_number.h"
#include "basics/Doubles.h"

#include <algorithm>

namespace Varnix::Value::Physics {

namespace {

using Long_number = Whole_number<32>; // 1024 bits

// A whole number times a power of two.
struct Scaled_whole {
    Long_number whole;
    int exponent;
};

// Both with the lesser of their exponents.
void Bring_together(Scaled_whole& x, Scaled_whole& y) {
    int const exponent = std::min(x.exponent, y.exponent);
    for (Scaled_whole* number : {&x, &y}) {
        number->whole.Multiply_by_two(number->exponent - exponent);
        number->exponent = exponent;
    }
}

// The magnitude of a double that is neither zero nor denormal.
Scaled_whole Magnitude_of(double number, int exponent) {
    return {Long_number(Basics::Significand_of(number)),
            Basics::Exponent_of(number) - 52 + exponent};
}

// The magnitude of an exact number, which is not zero.
Scaled_whole Magnitude_of(Enclosed const& x) {
    Scaled_whole whole = Magnitude_of(x.high, x.exponent);
    if (x.low != 0.0) {
        Scaled_whole low = Magnitude_of(x.low, x.exponent);
        Bring_together(whole, low);
        whole.whole.Add((x.high < 0.0) == (x.low < 0.0) ? 1 : -1, low.whole);
    }
    return whole;
}

// Times the part of the ratio above the line, or for sign -1 below it.
void Multiply(Scaled_whole& x, Exact_factor const& ratio, int sign) {
    x.whole.Multiply(ratio, sign);
    x.exponent += std::max(sign * ratio.Power_of_two(), 0);
}

int Sign_of(Enclosed const& x) {
    return x.high < 0.0 ? -1 : x.high > 0.0 ? 1 : 0;
}

} // namespace

std::optional<int> Sign_of_difference(Enclosed const& x, Exact_factor const& ratio,
                                      Enclosed const& y) {
    bool const are_exact = x.Is_exact() && y.Is_exact() && !Is_infinite(x) && !Is_infinite(y);
    if (!are_exact || !ratio.Is_rational()) {
        return std::nullopt;
    }
    int const sign = Sign_of(x);
    if (sign != Sign_of(y) || sign == 0) {
        return sign > Sign_of(y) ? 1 : sign < Sign_of(y) ? -1 : 0;
    }
    Scaled_whole left = Magnitude_of(x);
    Scaled_whole right = Magnitude_of(y);
    Multiply(left, ratio, 1);
    Multiply(right, ratio, -1);
    Bring_together(left, right);
    bool const too_long = left.whole.Is_too_long() || right.whole.Is_too_long();
    return too_long ? std::nullopt : std::optional<int>(sign * left.whole.Compare(right.whole));
}

} // namespace Varnix::Value::Physics
