// Doubles by their bits, and the whole numbers and powers of ten among them.

#ifndef VARNIX_VALUE_BASICS_DOUBLES_H
#define VARNIX_VALUE_BASICS_DOUBLES_H

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace Varnix::Value::Basics {

inline std::uint64_t Bits_of(double number) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, &number, sizeof bits);
    return bits;
}

inline double Double_of(std::uint64_t bits) {
    double number = 0.0;
    std::memcpy(&number, &bits, sizeof number);
    return number;
}

// 2^exponent, for a normal double.
inline double Two_to(int exponent) {
    return Double_of(static_cast<std::uint64_t>(exponent + 1023) << 52);
}

// The power of two below a normal double.
inline int Exponent_of(double number) {
    return static_cast<int>(Bits_of(number) >> 52 & 0x7ff) - 1023;
}

// The significand of a normal double as a whole number of 53 bits: 2^52 is its power of two.
inline std::uint64_t Significand_of(double number) {
    return (Bits_of(number) & 0x000fffffffffffffULL) | 0x0010000000000000ULL;
}

// The next double away from zero, or towards it, of one that is not zero.
inline double Neighbour(double number, bool away) {
    return Double_of(Bits_of(number) + (away ? 1U : ~std::uint64_t{0}));
}

// The whole number nearest to a double of magnitude below 2^51, ties to even.
inline double Nearest_whole(double number) {
    constexpr double shift = 0x1.8p52;
    return (number + shift) - shift;
}

// The powers of ten that are doubles.
constexpr int Greatest_exact_power_of_ten = 22;

constexpr double exact_powers_of_ten[Greatest_exact_power_of_ten + 1] = {
    1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
    1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

} // namespace Varnix::Value::Basics

#endif
