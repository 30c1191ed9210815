// Real numbers, enclosed: the arithmetic that bounds are computed in.
//
// An `Enclosed` is a sum of two doubles, some 107 bits, with a bound on what is missing. Every
// operation adds to that bound what it leaves out, from the rounding errors themselves: for + - *
// these are doubles again (2Sum, Knuth 1969; Dekker's product with Veltkamp's splitting, 1971), and
// for quotients and roots they follow from the residual. So a result that is exact is known to be,
// with an error of zero; no analysis beforehand has to say which.
//
// The exponent stands apart, in an int, and the high part lies between 1 and 2. Nothing overflows,
// underflows or loses bits on the way; only the rounding to a double at the end, outward for bounds
// and to nearest for values, meets the limits of doubles.
//
// It takes IEEE arithmetic in the default rounding mode and nothing contracted; then the bits are
// the same everywhere. No function of the C library is called but the square root, which is exact
// to the last bit.

#ifndef VARNIX_VALUE_MEASUREMENT_ENCLOSED_H
#define VARNIX_VALUE_MEASUREMENT_ENCLOSED_H

#include "Exact_factor.h"

#include <cmath>

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

Enclosed Enclose(double number); // exact; infinite for an infinite one

// An infinite bound is a power of two that no number reaches, so that it goes through the same
// arithmetic: added to a number it stays infinite, zero times it is zero, and a number over it
// counts as zero at the end. Infinite numbers of opposite signs are never added.
Enclosed Infinite(bool negative);
bool Is_infinite(Enclosed const& x);

double
Round_down(Enclosed const& x); // the greatest double that is not above; -inf, or the least finite
double
Round_up(Enclosed const& x); // the least double that is not below; inf, or the greatest finite
double Round_to_nearest(Enclosed const& x); // of the middle; infinite beyond the doubles

// Whether all of it is negative, or all of it positive.
bool Is_negative(Enclosed const& x);
bool Is_positive(Enclosed const& x);

// Whether x is a whole number of at most four digits, exactly.
bool Is_small_whole(Enclosed const& x, int& number);

// ---- Arithmetic. A divisor does not enclose zero, and a radicand is not negative.

Enclosed operator-(Enclosed const& x);
Enclosed operator+(Enclosed const& x, Enclosed const& y);
Enclosed operator-(Enclosed const& x, Enclosed const& y);
Enclosed operator*(Enclosed const& x, Enclosed const& y);
Enclosed operator/(Enclosed const& x, Enclosed const& y);
Enclosed Square_root(Enclosed const& x);

// What encloses both, for two that overlap.
Enclosed Hull(Enclosed const& x, Enclosed const& y);

// x^exponent, by repeated squaring; for a negative one the reciprocal of that.
Enclosed Power(Enclosed const& x, int exponent);

// ---- Exact ratios

// A ratio of units, ready to be applied to many numbers.
class Prepared_factor {
  public:
    explicit Prepared_factor(Exact_factor const& factor);

    // x times the factor. Exact where x is a double and the product is one, for numerators and
    // denominators of up to 128 bits.
    Enclosed operator()(Enclosed const& x) const;

    // The numbers above and below the line, to be multiplied with apart: what is divided once is
    // exact more often than what is divided twice.
    Enclosed Above() const;
    Enclosed Below() const;

    // The ratio of two whole numbers, where it is one and both are doubles.
    bool As_whole_numbers(double& above, double& below) const;

  private:
    Exact_factor ratio;
    Enclosed numerator;   // without powers of two; with those of pi
    Enclosed denominator; // likewise
    bool multiplies;      // whether the numerator is another number than 1
    bool divides;         // likewise
};

Enclosed operator*(Enclosed const& x, Exact_factor const& factor);

// ---- Powers of ten and logarithms

Enclosed Power_of_ten(Enclosed const& x);          // 10^x; exact for whole x from 0 to 22
Enclosed Power_of_ten_less_one(Enclosed const& x); // 10^x - 1, with all digits for small x too
Enclosed Logarithm(Enclosed const& x); // log10 x of x >= 0; exact for powers of ten, -inf for zero

// log10 of a ratio of units; exact for powers of ten.
Enclosed Logarithm(Exact_factor const& factor);

} // namespace Varnix::Value::Physics

#endif
