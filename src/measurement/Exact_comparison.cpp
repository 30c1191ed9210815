#include "Exact_comparison.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace Varnix::Value::Physics {

namespace {

// A whole number of up to 1024 bits; the least digit comes first.
class Whole_number {
  public:
    static constexpr int Most_bits = 1024;

    explicit Whole_number(std::uint64_t number = 0)
        : digits{static_cast<std::uint32_t>(number), static_cast<std::uint32_t>(number >> 32)} {}

    void Multiply(std::uint32_t factor) {
        std::uint64_t carry = 0;
        for (std::uint32_t& digit : digits) {
            carry += std::uint64_t{digit} * factor;
            digit = static_cast<std::uint32_t>(carry);
            carry >>= 32;
        }
        too_long = too_long || carry != 0;
    }

    void Multiply_by_two(int times) {
        too_long = too_long || times > Most_bits;
        for (; times > 0 && !too_long; times -= 31) {
            Multiply(std::uint32_t{1} << std::min(times, 31));
        }
    }

    // Plus the other, or for sign -1 minus it, which is not greater.
    void Add(int sign, Whole_number const& other) {
        std::int64_t carry = 0;
        for (std::size_t k = 0; k < digits.size(); ++k) {
            carry += std::int64_t{digits[k]} + sign * std::int64_t{other.digits[k]};
            digits[k] = static_cast<std::uint32_t>(carry);
            carry = carry < 0 ? -1 : carry >> 32;
        }
        too_long = too_long || other.too_long || carry != 0;
    }

    bool Is_too_long() const { return too_long; }

    int Compare(Whole_number const& other) const { // -1, 0 or 1
        for (std::size_t k = digits.size(); k-- > 0;) {
            if (digits[k] != other.digits[k]) {
                return digits[k] < other.digits[k] ? -1 : 1;
            }
        }
        return 0;
    }

  private:
    std::array<std::uint32_t, Most_bits / 32> digits{};
    bool too_long = false;
};

// A whole number times a power of two.
struct Scaled_whole {
    Whole_number whole;
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
    std::uint64_t bits = 0;
    std::memcpy(&bits, &number, sizeof bits);
    std::uint64_t const mantissa = (bits & 0x000fffffffffffffULL) | 0x0010000000000000ULL;
    int const power = static_cast<int>((bits >> 52) & 0x7ff) - 1075;
    return {Whole_number(mantissa), power + exponent};
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
    for (std::size_t k = 1; k < Exact_factor::primes.size(); ++k) {
        for (int left = sign * ratio.powers[k]; left > 0 && !x.whole.Is_too_long(); --left) {
            x.whole.Multiply(static_cast<std::uint32_t>(Exact_factor::primes[k]));
        }
    }
    x.exponent += std::max(sign * ratio.Power_of_two(), 0);
}

int Sign_of(Enclosed const& x) {
    return x.high < 0.0 ? -1 : x.high > 0.0 ? 1 : 0;
}

} // namespace

std::optional<int> Sign_of_difference(Enclosed const& x, Exact_factor const& ratio,
                                      Enclosed const& y) {
    bool const are_exact = x.Is_exact() && y.Is_exact() && !Is_infinite(x) && !Is_infinite(y);
    if (!are_exact || ratio.Power_of_pi() != 0) {
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
