// Whole numbers of many digits, for products of the primes of exact ratios.

#ifndef VARNIX_VALUE_ENCLOSING_WHOLE_NUMBER_H
#define VARNIX_VALUE_ENCLOSING_WHOLE_NUMBER_H

#include "Exact_factor.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace Varnix::Value::Physics {

// A whole number that is not negative, of up to Digit_count digits of 32 bits; the least digit
// comes first. One that becomes too long stays so.
template <std::size_t Digit_count>
class Whole_number {
  public:
    explicit Whole_number(std::uint64_t number)
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

    // Times the odd primes of a ratio above the line, or for sign -1 those below it.
    void Multiply(Exact_factor const& ratio, int sign) {
        for (std::size_t k = 1; k < primes.count; ++k) {
            for (int left = sign * ratio.powers[k]; left > 0 && !too_long; --left) {
                Multiply(primes.numbers[k]);
            }
        }
    }

    void Multiply_by_two(int times) {
        too_long = too_long || times > static_cast<int>(32 * Digit_count);
        for (; times > 0 && !too_long; times -= 31) {
            Multiply(std::uint32_t{1} << std::min(times, 31));
        }
    }

    // Plus the other; for sign -1 minus it, and then the other is not greater.
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

    // -1, 0 or 1 for less, equal or greater; neither is too long.
    int Compare(Whole_number const& other) const {
        for (std::size_t k = digits.size(); k-- > 0;) {
            if (digits[k] != other.digits[k]) {
                return digits[k] < other.digits[k] ? -1 : 1;
            }
        }
        return 0;
    }

  private:
    std::array<std::uint32_t, Digit_count> digits{};
    bool too_long = false;
};

} // namespace Varnix::Value::Physics

#endif
