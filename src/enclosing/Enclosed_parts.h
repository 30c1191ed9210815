// What the sources of the enclosing arithmetic share: how errors grow, and how numbers are
// normalised.

#ifndef VARNIX_VALUE_ENCLOSING_ENCLOSED_PARTS_H
#define VARNIX_VALUE_ENCLOSING_ENCLOSED_PARTS_H

#include "Enclosed.h"
#include "basics/Doubles.h"
#include "basics/Error_free.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace Varnix::Value::Physics {

// ---- Errors

// A sum of up to sixteen magnitudes, each rounded, made larger by more than they can have lost.
// Unless it is zero it stays well away from underflow, so that no product with it vanishes.
inline double Grown(double error) {
    return error == 0.0 ? 0.0 : std::max(error * (1.0 + 0x1p-48), 0x1p-800);
}

inline Enclosed With_error(Enclosed const& x, double error) {
    return {x.high, x.low, Grown(x.error + error), x.exponent};
}

// ---- Normalisation

// Smaller low parts are counted as an error, so that no product or shift of them underflows.
constexpr double Least_low = 0x1p-500;

// high + low + [-error, error], times 2^exponent, with its high part between 1 and 2. An error that
// is a sum has grown already.
inline Enclosed Normalised(double high, double low, double error, int exponent) {
    Basics::Exact_pair sum = Basics::Exact_sum(high, low);
    if (sum.rounded == 0.0) {
        return {0.0, 0.0, error, error == 0.0 ? 0 : exponent};
    }
    int const shift = Basics::Exponent_of(sum.rounded);
    if (shift != 0) {
        double const scale = Basics::Two_to(-shift);
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

// A double times 2^exponent, exactly.
inline Enclosed Enclose(double number, int exponent) {
    Enclosed scaled = Enclose(number);
    scaled.exponent += scaled.high == 0.0 ? 0 : exponent;
    return scaled;
}

// ---- Infinite numbers

// Doubles, sizes of units and powers of them stay within 2^18. The root of the infinite number lies
// beyond the limit too, and the exponent of its 64th power still fits an int.
constexpr int Infinite_exponent = 1 << 23;
constexpr int Infinite_limit = 1 << 21;

// Whether x is a number over an infinite one, which counts as zero.
inline bool Is_over_infinite(Enclosed const& x) {
    return x.exponent < -Infinite_limit;
}

// ---- Exact numbers

// A double as an odd number times a power of two; it is not zero.
struct Odd_number {
    std::uint64_t odd;
    int exponent;
};

inline Odd_number Odd_number_of(double mantissa, int exponent) {
    std::uint64_t odd = Basics::Significand_of(mantissa);
    exponent -= 52;
    for (; (odd & 1U) == 0; odd >>= 1) {
        ++exponent;
    }
    return {odd, exponent};
}

} // namespace Varnix::Value::Physics

#endif
