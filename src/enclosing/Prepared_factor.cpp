#include "Prepared_factor.h"

#include "Enclosed_parts.h"
#include "Enclosed_tables.h"
#include "Whole_number.h"
#include "basics/Doubles.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace Varnix::Value::Physics {

using namespace Basics;

namespace {

// The product of the odd primes above the line, or for sign -1 below it; 0 where it has more than
// 53 bits.
double Small_product(Exact_factor const& factor, int sign) {
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

// The same for products of any size.
Enclosed Large_product(Exact_factor const& factor, int sign) {
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
    double const small = Small_product(factor, sign);
    Enclosed const product = small != 0.0 ? Enclose(small) : Large_product(factor, sign);
    int const power_of_pi = sign * factor.Power_of_pi();
    int const power_of_ln_10 = sign * factor.Power_of_ln10();
    Enclosed const with_pi = power_of_pi > 0 ? product * Power(pi, power_of_pi) : product;
    return power_of_ln_10 > 0 ? with_pi * Power(ln_10, power_of_ln_10) : with_pi;
}

// Whether from * factor = to, for two numbers that are their high parts alone.
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
    product.exponent += product.Is_zero() ? 0 : ratio.Power_of_two();
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

} // namespace Varnix::Value::Physics
