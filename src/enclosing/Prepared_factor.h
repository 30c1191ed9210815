// Exact ratios applied to enclosed numbers.

#ifndef VARNIX_VALUE_ENCLOSING_PREPARED_FACTOR_H
#define VARNIX_VALUE_ENCLOSING_PREPARED_FACTOR_H

#include "Enclosed.h"
#include "Exact_factor.h"

namespace Varnix::Value::Physics {

// An exact ratio, ready to be applied to many numbers.
class Prepared_factor {
  public:
    explicit Prepared_factor(Exact_factor const& factor);

    // x times the factor. Exact where x is a double and the product is one, for numerators and
    // denominators of up to 128 bits.
    Enclosed operator()(Enclosed const& x) const;

    // Numerator and denominator, for a caller that multiplies with each of them: one division at
    // the end is exact more often than two.
    Enclosed Above() const;
    Enclosed Below() const;

    // Numerator and denominator as doubles, where both are whole numbers that are doubles.
    bool As_whole_numbers(double& above, double& below) const;

  private:
    Exact_factor ratio;
    Enclosed numerator;   // without powers of two; with those of pi
    Enclosed denominator; // likewise
    bool multiplies;      // whether the numerator is another number than 1
    bool divides;         // whether the denominator is
};

Enclosed operator*(Enclosed const& x, Exact_factor const& factor);

} // namespace Varnix::Value::Physics

#endif
