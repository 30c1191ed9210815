// The exact sizes of units, read from their rows at compile time, and the prime numbers they are made of.

#ifndef VARNIX_VALUE_CATALOGUE_SIZES_H
#define VARNIX_VALUE_CATALOGUE_SIZES_H

#include "catalogue/Unit_rows.h"
#include "enclosing/Exact_factor.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace Varnix::Value::Catalogue {

// above / below * 10^tens * pi^pi * ln(10)^ln10.
struct Size {
    std::uint64_t above = 1;
    std::uint64_t below = 1;
    int tens = 0;
    int pi = 0;
    int ln10 = 0;
};

struct Decimal {
    std::uint64_t digits = 0;
    int tens = 0;
};

constexpr bool Is_digit(char character) {
    return character >= '0' && character <= '9';
}

// "-19"; moves the text behind it.
constexpr int Read_whole(char const*& text) {
    bool const negative = *text == '-';
    text += negative ? 1 : 0;
    int number = 0;
    for (; Is_digit(*text); ++text) {
        number = number * 10 + (*text - '0');
    }
    return negative ? -number : number;
}

// "0.45359237", "1.602176634e-19".
constexpr Decimal Read_decimal(char const*& text) {
    Decimal decimal;
    bool behind_point = false;
    for (; Is_digit(*text) || *text == '.'; ++text) {
        if (*text == '.') {
            behind_point = true;
            continue;
        }
        decimal.digits = decimal.digits * 10 + static_cast<std::uint64_t>(*text - '0');
        decimal.tens -= behind_point ? 1 : 0;
    }
    if (*text == 'e') {
        decimal.tens += Read_whole(++text);
    }
    return decimal;
}

// Multiplies by what stands at the text, or divides by it for sign -1: a decimal, "pi", "ln10".
constexpr void Multiply_by_text(Size& size, char const*& text, int sign) {
    if (*text == 'p') {
        text += 2;
        size.pi += sign;
    } else if (*text == 'l') {
        text += 4;
        size.ln10 += sign;
    } else {
        Decimal const decimal = Read_decimal(text);
        (sign > 0 ? size.above : size.below) *= decimal.digits;
        size.tens += sign * decimal.tens;
    }
}

constexpr Size Read_size(char const* text) {
    Size size;
    int sign = 1;
    while (*text != '\0') {
        if (*text == '/') {
            sign = -1;
            ++text;
        }
        Multiply_by_text(size, text, sign);
    }
    return size;
}

// ---- Prime numbers

using Physics::Prime_numbers;

constexpr void Add(Prime_numbers& primes, std::uint64_t prime) {
    primes.numbers[primes.count++] =
        static_cast<std::uint32_t>(prime); // a compile error beyond the limit
}

// Those of a number that are not known yet.
constexpr void Add_primes_of(Prime_numbers& primes, std::uint64_t number) {
    for (std::size_t k = 0; k < primes.count; ++k) {
        while (number % primes.numbers[k] == 0) {
            number /= primes.numbers[k];
        }
    }
    for (std::uint64_t divisor = 7; divisor * divisor <= number; divisor += 2) {
        if (number % divisor == 0) {
            Add(primes, divisor);
            while (number % divisor == 0) {
                number /= divisor;
            }
        }
    }
    if (number > 1) {
        Add(primes, number);
    }
}

constexpr Prime_numbers Primes_of_all_sizes() {
    Prime_numbers primes;
    for (Unit_row const& row : unit_rows) {
        Size const size = Read_size(row.size);
        Add_primes_of(primes, size.above);
        Add_primes_of(primes, size.below);
    }
    return primes;
}

} // namespace Varnix::Value::Catalogue

#endif
