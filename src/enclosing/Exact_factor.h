// An exact ratio: a product of integer powers of a few primes, and of pi. Products, quotients and
// powers of such ratios are exact, whatever the powers.

#ifndef VARNIX_VALUE_ENCLOSING_EXACT_FACTOR_H
#define VARNIX_VALUE_ENCLOSING_EXACT_FACTOR_H

#include <algorithm>
#include <array>
#include <cstddef>

namespace Varnix::Value::Physics {

struct Exact_factor {
    // The bases of the powers; that of pi comes last.
    static constexpr std::array<int, 7> primes = {2, 3, 5, 7, 11, 127, 463};

    std::array<int, primes.size() + 1> powers{};

    int Power_of_two() const { return powers[0]; }
    int Power_of_pi() const { return powers.back(); }
    bool Is_one() const { return *this == Exact_factor(); }

    friend bool operator==(Exact_factor const& first, Exact_factor const& second) {
        return first.powers == second.powers;
    }
    friend bool operator!=(Exact_factor const& first, Exact_factor const& second) {
        return !(first == second);
    }
};

inline Exact_factor Power(Exact_factor factor, int exponent) {
    for (int& power : factor.powers) {
        power *= exponent;
    }
    return factor;
}

inline Exact_factor operator*(Exact_factor const& first, Exact_factor const& second) {
    Exact_factor product = first;
    for (std::size_t k = 0; k < product.powers.size(); ++k) {
        product.powers[k] += second.powers[k];
    }
    return product;
}

inline Exact_factor operator/(Exact_factor const& first, Exact_factor const& second) {
    return first * Power(second, -1);
}

inline Exact_factor Powers_of_ten(int exponent) {
    return Exact_factor{{exponent, 0, exponent}};
}

// The power of ten that a ratio contains: positive above the line, negative below it.
inline int Tens_in(Exact_factor const& factor) {
    int const twos = factor.powers[0];
    int const fives = factor.powers[2];
    if (twos > 0 && fives > 0) {
        return std::min(twos, fives);
    }
    return twos < 0 && fives < 0 ? std::max(twos, fives) : 0;
}

} // namespace Varnix::Value::Physics

#endif
