#include "Decimals.h"
#include "enclosing/Prepared_factor.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>

namespace Varnix::Value::Physics {

namespace {

// mantissa * base^power, of which nothing has been rounded for up to some thirty digits.
struct Scaled_number {
    Enclosed mantissa;
    int power = 0;
    int base = 10;
};

int Digit_value(char character) {
    return character <= '9' ? character - '0' : (character | 0x20) - 'a' + 10;
}

// Beyond every double it is -100000; what reads the text has refused numbers that are too large.
int Exponent_in(std::string_view text) {
    text.remove_prefix(!text.empty() && text[0] == '+' ? 1 : 0);
    int exponent = 0;
    auto const result = std::from_chars(text.data(), text.data() + text.size(), exponent);
    bool const too_long = result.ec == std::errc::result_out_of_range;
    return too_long ? -100000 : std::max(exponent, -100000);
}

// Digits that make a whole number without rounding, and the power of the base that has as many.
struct Digit_block {
    double number = 0.0;
    double size = 1.0;
};

Enclosed With_block(Enclosed const& mantissa, Digit_block const& block) {
    Enclosed const number = Enclose(block.number);
    return mantissa.Is_zero() ? number : mantissa * Enclose(block.size) + number;
}

// "0x1.8p3" has hexadecimal digits, and its exponent counts powers of two.
Scaled_number Read_digits(std::string_view text) {
    bool const hexadecimal =
        text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X');
    text.remove_prefix(hexadecimal ? 2 : 0);
    std::size_t const end = std::min(text.size(), text.find_first_of(hexadecimal ? "pP" : "eE"));
    double const base = hexadecimal ? 16.0 : 10.0;
    Scaled_number read = {{}, 0, hexadecimal ? 2 : 10};
    Digit_block block;
    bool behind_point = false;
    for (char const character : text.substr(0, end)) {
        if (character == '.') {
            behind_point = true;
            continue;
        }
        if (block.size > 0x1p48) {
            read.mantissa = With_block(read.mantissa, block);
            block = {};
        }
        block.number = block.number * base + Digit_value(character);
        block.size *= base;
        read.power -= !behind_point ? 0 : hexadecimal ? 4 : 1;
    }
    read.mantissa = With_block(read.mantissa, block);
    if (end < text.size()) {
        read.power += Exponent_in(text.substr(end + 1));
    }
    return read;
}

Enclosed Times_power(Enclosed const& number, int base, int power) {
    return number * (base == 10 ? Powers_of_ten(power) : Power_of_two(power));
}

Scaled_number Scaled_number_of(Decimal_text const& text) {
    Scaled_number number = Read_digits(text.digits);
    number.power += text.power_of_ten;
    number.mantissa = text.negative ? -number.mantissa : number.mantissa;
    return number;
}

} // namespace

Enclosed Number_of(Decimal_text const& text) {
    Scaled_number const number = Scaled_number_of(text);
    return Times_power(number.mantissa, number.base, number.power);
}

// Both as whole numbers of the lesser place.
Enclosed Sum_of(Decimal_text const& first, int sign, Decimal_text const& second) {
    Scaled_number const left = Scaled_number_of(first);
    Scaled_number const right = Scaled_number_of(second);
    if (left.base != right.base || std::abs(left.power - right.power) > 40) {
        Enclosed const addend = Number_of(second);
        return Number_of(first) + (sign > 0 ? addend : -addend);
    }
    int const place = std::min(left.power, right.power);
    Enclosed const addend = Times_power(right.mantissa, right.base, right.power - place);
    Enclosed const sum =
        Times_power(left.mantissa, left.base, left.power - place) + (sign > 0 ? addend : -addend);
    return Times_power(sum, left.base, place);
}

namespace {

// Digits as a whole number, in which zeros at the end count only once another digit follows.
struct Whole_digits {
    std::uint64_t whole = 0;
    int zeros = 0;
    bool fits = true;

    void Add(int digit) {
        if (digit == 0) {
            zeros += whole == 0 ? 0 : 1;
            return;
        }
        for (; zeros > 0 && fits; --zeros) {
            Append(0);
        }
        Append(static_cast<unsigned>(digit));
    }

  private:
    void Append(unsigned digit) {
        whole = fits ? whole * 10 + digit : 0;
        fits = fits && whole <= std::uint64_t{1} << 53;
    }
};

constexpr int Greatest_kept_exponent = 1000; // far beyond the decimals that are kept

} // namespace

std::optional<Whole_decimal> Whole_of(Decimal_text const& text) {
    if (!std::isfinite(text.nearest) || text.digits.substr(0, 2) == "0x" ||
        text.digits.substr(0, 2) == "0X") {
        return std::nullopt;
    }
    Whole_digits digits;
    int decimals = 0;
    bool behind_point = false;
    std::size_t end = 0;
    for (; end < text.digits.size() && (text.digits[end] | 0x20) != 'e'; ++end) {
        if (text.digits[end] == '.') {
            behind_point = true;
            continue;
        }
        digits.Add(text.digits[end] - '0');
        decimals += behind_point ? 1 : 0;
    }
    int const exponent = end < text.digits.size() ? Exponent_in(text.digits.substr(end + 1)) : 0;
    int const power = exponent + text.power_of_ten + digits.zeros - decimals;
    if (!digits.fits || std::abs(exponent) > Greatest_kept_exponent) {
        return std::nullopt;
    }
    double const whole = static_cast<double>(digits.whole);
    return Whole_decimal{text.negative ? -whole : whole, digits.whole == 0 ? 0 : power};
}

} // namespace Varnix::Value::Physics
