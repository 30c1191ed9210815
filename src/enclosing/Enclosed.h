// Real numbers, enclosed: the arithmetic that bounds are computed in.
//
// An `Enclosed` is a sum of two doubles, some 107 bits, with a bound on what is missing. Every
// operation adds to that bound what it leaves out, computed from the rounding errors themselves:
// for + - * these are doubles again (2Sum, Knuth 1969; Dekker's product with Veltkamp's splitting,
// 1971), and for quotients and roots they follow from the residual. So an error of zero says that a
// result is exact; no analysis beforehand is needed.
//
// The exponent is a separate int, and the high part lies between 1 and 2. So nothing overflows,
// underflows or loses bits on the way. Only the rounding to a double at the end, outward for bounds
// and to nearest for values, meets the limits of doubles.
//
// The arithmetic needs IEEE doubles in the default rounding mode and no contraction; then the bits
// are the same everywhere. The one function of the C library that it calls is the square root,
// which is correctly rounded.

#ifndef VARNIX_VALUE_ENCLOSING_ENCLOSED_H
#define VARNIX_VALUE_ENCLOSING_ENCLOSED_H

#include "basics/Doubles.h"

#include <cmath>
#include <cstdint>
#include <limits>

namespace Varnix::Value::Physics {

// The numbers from (high + low - error) to (high + low + error), times 2^exponent. `high` is the
// sum of the two parts, rounded; between 1 and 2 in magnitude, or zero. `error` is not negative.
struct Enclosed {
    double high = 0.0;
    double low = 0.0;
    double error = 0.0;
    int exponent = 0;

    bool Is_exact() const { return error == 0.0; }
    bool Is_zero() const { return high == 0.0 && error == 0.0; } // and nothing else
};

// ---- In and out

// An infinite bound is a power of two that no number reaches, so that it goes through the same
// arithmetic: added to a number it stays infinite, zero times it is zero, and a number over it
// counts as zero at the end. Infinite numbers of opposite signs are never added.
Enclosed Infinite(bool negative);
bool Is_infinite(Enclosed const& x);

// Exact; infinite for an infinite one.
inline Enclosed Enclose(double number) {
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
    int const own = Basics::Exponent_of(number);
    std::uint64_t const bits = Basics::Bits_of(number) & 0x800fffffffffffffULL;
    return {Basics::Double_of(bits | 0x3ff0000000000000ULL), 0.0, 0.0, exponent + own};
}

// The greatest double that is not above; -inf, or the least finite double.
double Round_down(Enclosed const& x);

// The least double that is not below; inf, or the greatest finite double.
double Round_up(Enclosed const& x);

// The double nearest to the middle; infinite beyond the doubles.
double Round_to_nearest(Enclosed const& x);

// Whether all of it is negative, or all of it positive.
bool Is_negative(Enclosed const& x);
bool Is_positive(Enclosed const& x);

// Whether x is a whole number of at most four digits, exactly.
bool Is_small_whole(Enclosed const& x, int& number);

// ---- Arithmetic. A divisor does not enclose zero, and a radicand is not negative.

inline Enclosed operator-(Enclosed const& x) {
    return {-x.high, -x.low, x.error, x.exponent};
}

Enclosed operator+(Enclosed const& x, Enclosed const& y);
Enclosed operator-(Enclosed const& x, Enclosed const& y);
Enclosed operator*(Enclosed const& x, Enclosed const& y);
Enclosed operator/(Enclosed const& x, Enclosed const& y);
Enclosed Square_root(Enclosed const& x);

// What encloses both, for two that overlap.
Enclosed Hull(Enclosed const& x, Enclosed const& y);

// x^exponent, by repeated squaring; for a negative one the reciprocal of that.
Enclosed Power(Enclosed const& x, int exponent);

} // namespace Varnix::Value::Physics

#endif
