#include "Decimals.h"

#include <algorithm>
#include <charconv>
#include <cmath>
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

// "0x1.8p3" has hexadecimal digits, and its exponent counts powers of two.
Scaled_number Read_digits(std::string_view text) {
    bool const hexadecimal =
        text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X');
    text.remove_prefix(hexadecimal ? 2 : 0);
    std::size_t const end = std::min(text.size(), text.find_first_of(hexadecimal ? "pP" : "eE"));
    Enclosed const base = Enclose(hexadecimal ? 16.0 : 10.0);
    Scaled_number read = {{}, 0, hexadecimal ? 2 : 10};
    bool behind_point = false;
    for (char const character : text.substr(0, end)) {
        if (character == '.') {
            behind_point = true;
            continue;
        }
        read.mantissa = read.mantissa * base + Enclose(Digit_value(character));
        read.power -= !behind_point ? 0 : hexadecimal ? 4 : 1;
    }
    if (end < text.size()) {
        std::string_view exponent_text = text.substr(end + 1);
        exponent_text.remove_prefix(!exponent_text.empty() && exponent_text[0] == '+' ? 1 : 0);
        int exponent = 0;
        auto const result = std::from_chars(exponent_text.data(),
                                            exponent_text.data() + exponent_text.size(), exponent);
        // Beyond every double; what reads the text has refused numbers that are too large.
        bool const too_long = result.ec == std::errc::result_out_of_range;
        read.power += too_long ? -100000 : std::max(exponent, -100000);
    }
    return read;
}

Enclosed Times_power(Enclosed const& number, int base, int power) {
    return number * (base == 10 ? Powers_of_ten(power) : Exact_factor{{power}});
}

Scaled_number Scaled(Decimal_text const& text) {
    Scaled_number number = Read_digits(text.digits);
    number.power += text.power_of_ten;
    number.mantissa = text.negative ? -number.mantissa : number.mantissa;
    return number;
}

} // namespace

Enclosed Number_of(Decimal_text const& text) {
    Scaled_number const number = Scaled(text);
    return Times_power(number.mantissa, number.base, number.power);
}

// Both as whole numbers of the lesser place.
Enclosed Sum_of(Decimal_text const& first, int sign, Decimal_text const& second) {
    Scaled_number const left = Scaled(first);
    Scaled_number const right = Scaled(second);
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

} // namespace Varnix::Value::Physics
