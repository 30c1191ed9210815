// An exact ratio: a product of integer powers of prime numbers, of pi and of the natural logarithm of ten.
// Products, quotients and powers of such ratios are exact, whatever the powers.

#ifndef VARNIX_VALUE_ENCLOSING_EXACT_FACTOR_H
#define VARNIX_VALUE_ENCLOSING_EXACT_FACTOR_H

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace Varnix::Value::Physics {

// What the powers are of: 2, 3 and 5 first, and as many others as the ratios need.
struct Prime_numbers {
    static constexpr std::size_t Limit = 38;

    std::array<std::uint32_t, Limit> numbers{2, 3, 5};
    std::size_t count = 3;
};

// Those of all ratios; whoever has these defines them.
extern Prime_numbers const primes;

struct Exact_factor {
    static constexpr std::size_t Place_of_pi = Prime_numbers::Limit;
    static constexpr std::size_t Place_of_ln10 = Place_of_pi + 1;

    std::array<std::int16_t, Place_of_ln10 + 1> powers{};

    int Power_of_two() const { return powers[0]; }
    int Power_of_pi() const { return powers[Place_of_pi]; }
    int Power_of_ln10() const { return powers[Place_of_ln10]; }
    bool Is_rational() const { return Power_of_pi() == 0 && Power_of_ln10() == 0; }
    bool Is_one() const { return *this == Exact_factor(); }

    friend bool operator==(Exact_factor const& first, Exact_factor const& second) {
        return first.powers == second.powers;
    }
    friend bool operator!=(Exact_factor const& first, Exact_factor const& second) {
        return !(first == second);
    }
};

inline Exact_factor Power(Exact_factor factor, int exponent) {
    if (exponent != 1) {
        auto const times = static_cast<std::int16_t>(exponent);
        for (std::int16_t& power : factor.powers) {
            power = static_cast<std::int16_t>(power * times);
        }
    }
    return factor;
}

inline Exact_factor operator*(Exact_factor const& first, Exact_factor const& second) {
    Exact_factor product = first;
    for (std::size_t k = 0; k < product.powers.size(); ++k) {
        product.powers[k] = static_cast<std::int16_t>(product.powers[k] + second.powers[k]);
    }
    return product;
}

inline Exact_factor operator/(Exact_factor const& first, Exact_factor const& second) {
    Exact_factor quotient = first;
    for (std::size_t k = 0; k < quotient.powers.size(); ++k) {
        quotient.powers[k] = static_cast<std::int16_t>(quotient.powers[k] - second.powers[k]);
    }
    return quotient;
}

constexpr Exact_factor Power_of_two(int exponent) {
    Exact_factor factor;
    factor.powers[0] = static_cast<std::int16_t>(exponent);
    return factor;
}

constexpr Exact_factor Powers_of_ten(int exponent) {
    Exact_factor factor = Power_of_two(exponent);
    factor.powers[2] = factor.powers[0];
    return factor;
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
