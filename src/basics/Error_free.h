// Sums and products of doubles with their exact rounding errors, which are doubles themselves.

#ifndef VARNIX_VALUE_BASICS_ERROR_FREE_H
#define VARNIX_VALUE_BASICS_ERROR_FREE_H

#include "Doubles.h"

namespace Varnix::Value::Basics {

// A rounded result, and what rounding it left out.
struct Exact_pair {
    double rounded;
    double rest;
};

// 2Sum (Knuth 1969): a + b exactly, whatever the magnitudes, where nothing overflows.
inline Exact_pair Exact_sum(double a, double b) {
    double const sum = a + b;
    double const of_b = sum - a;
    double const of_a = sum - of_b;
    return {sum, (a - of_a) + (b - of_b)};
}

// Fast2Sum (Dekker 1971): the same for |a| >= |b|, or a = 0.
inline Exact_pair Exact_sum_of_ordered(double a, double b) {
    double const sum = a + b;
    return {sum, b - (sum - a)};
}

// Veltkamp's splitting (1968): two halves of 26 bits each, so that products of halves are exact.
inline Exact_pair Split(double a) {
    constexpr double splitter = 134217729.0; // 2^27 + 1
    double const product = splitter * a;
    double const high = product - (product - a);
    return {high, a - high};
}

// Dekker's product (1971): a * b exactly, where nothing overflows and the rest does not underflow.
inline Exact_pair Exact_product(double a, double b) {
    double const product = a * b;
    Exact_pair const left = Split(a);
    Exact_pair const right = Split(b);
    double const rest = ((left.rounded * right.rounded - product) + left.rounded * right.rest +
                         left.rest * right.rounded) +
                        left.rest * right.rest;
    return {product, rest};
}

// The greatest double that is not above a result rounded to nearest, and the least that is not
// below it: the sign of the rest decides.
inline double Down(Exact_pair const& result) {
    return result.rest < 0.0 ? Neighbour(result.rounded, result.rounded < 0.0) : result.rounded;
}

inline double Up(Exact_pair const& result) {
    return result.rest > 0.0 ? Neighbour(result.rounded, result.rounded > 0.0) : result.rounded;
}

} // namespace Varnix::Value::Basics

#endif
