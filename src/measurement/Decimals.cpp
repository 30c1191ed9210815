#include "Decimals.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace Varnix::Value::Physics {

// ---- Reading

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

// ---- Writing

namespace {

constexpr int Most_digits = 767; // that a double can have

void Increment(std::string& digits) {
    std::size_t place = digits.size();
    while (place > 0 && digits[place - 1] == '9') {
        digits[--place] = '0';
    }
    if (place == 0) {
        digits.insert(digits.begin(), '1');
    } else {
        ++digits[place - 1];
    }
}

void Decrement(std::string& digits) {
    std::size_t place = digits.size();
    while (digits[place - 1] == '0') {
        digits[--place] = '9';
    }
    --digits[place - 1];
    digits.erase(0, digits.find_first_not_of('0'));
}

// One unit of its place up or down.
Decimal Stepped(Decimal decimal, int direction) {
    if (decimal.digits.empty()) {
        decimal.digits = "1";
        decimal.is_negative = direction < 0;
    } else if ((direction < 0) == decimal.is_negative) {
        Increment(decimal.digits);
    } else {
        Decrement(decimal.digits);
    }
    return decimal;
}

// A decimal cut off at a place, and what was cut off: nothing, less than half a unit, half, or
// more.
struct Cut {
    Decimal decimal;
    int halves; // 0, 1, 2 or 3
};

Cut Cut_at(Decimal const& exact, int place) {
    Cut cut = {{exact.is_negative, exact.digits, place}, 0};
    int const excess = place - exact.place;
    if (excess <= 0) {
        cut.decimal.digits.append(exact.digits.empty() ? 0 : static_cast<std::size_t>(-excess),
                                  '0');
        return cut;
    }
    std::string const padding(
        static_cast<std::size_t>(std::max(0, excess - static_cast<int>(exact.digits.size()))), '0');
    std::string const all = padding + exact.digits;
    std::size_t const kept = all.size() - static_cast<std::size_t>(excess);
    std::string_view const rest = std::string_view(all).substr(kept);
    bool const more = rest.find_first_not_of('0', 1) != std::string_view::npos;
    cut.halves = rest[0] > '5' || (rest[0] == '5' && more) ? 3
                 : rest[0] == '5'                          ? 2
                 : rest[0] != '0' || more                  ? 1
                                                           : 0;
    cut.decimal.digits = all.substr(0, kept);
    return cut;
}

// The greatest decimal of a place below the number, which it does not reach.
Decimal Strictly_below(double number, int place) {
    Cut const cut = Cut_at(Exactly(number), place);
    bool const next = cut.halves == 0 || cut.decimal.is_negative;
    return next ? Stepped(cut.decimal, -1) : cut.decimal;
}

} // namespace

Decimal Exactly(double number) {
    std::array<char, Most_digits + 16> text{};
    auto const written = std::to_chars(text.data(), text.data() + text.size(), std::fabs(number),
                                       std::chars_format::scientific, Most_digits - 1);
    std::string_view const all(text.data(), static_cast<std::size_t>(written.ptr - text.data()));
    std::size_t const mark = all.find('e');
    Decimal exact;
    exact.digits = std::string(all.substr(0, 1)) + std::string(all.substr(2, mark - 2));
    std::size_t const first = mark + (all[mark + 1] == '+' ? 2 : 1);
    int exponent = 0;
    std::from_chars(all.data() + first, all.data() + all.size(), exponent);
    std::size_t const last = exact.digits.find_last_not_of('0');
    exact.digits.erase(last == std::string::npos ? 0 : last + 1);
    exact.place = exact.digits.empty() ? 0 : exponent + 1 - static_cast<int>(exact.digits.size());
    exact.is_negative = std::signbit(number) && !exact.digits.empty();
    return exact;
}

Decimal Nearest_at(double number, int place) {
    Cut cut = Cut_at(Exactly(number), place);
    bool const odd = !cut.decimal.digits.empty() && (cut.decimal.digits.back() - '0') % 2 != 0;
    if (cut.halves == 3 || (cut.halves == 2 && odd)) {
        return Stepped(cut.decimal, cut.decimal.is_negative ? -1 : 1);
    }
    return cut.decimal;
}

Decimal Decimal_below(double number, int place) {
    return Strictly_below(std::nextafter(number, std::numeric_limits<double>::infinity()), place);
}

Decimal Decimal_above(double number, int place) {
    Decimal above = Decimal_below(-number, place);
    above.is_negative = !above.is_negative && !above.digits.empty();
    return above;
}

namespace {

// first + second of two magnitudes, or first - second where the first is not less.
std::string Combined(std::string first, std::string second, int sign) {
    std::size_t const size = std::max(first.size(), second.size()) + 1;
    first.insert(0, size - first.size(), '0');
    second.insert(0, size - second.size(), '0');
    int carry = 0;
    for (std::size_t k = size; k-- > 0;) {
        int const digit = first[k] - '0' + sign * (second[k] - '0') + carry;
        carry = digit < 0 ? -1 : digit / 10;
        first[k] = static_cast<char>('0' + (digit + 10) % 10);
    }
    return first.erase(0, std::min(first.find_first_not_of('0'), size));
}

bool Is_less(std::string const& first, std::string const& second) {
    return first.size() != second.size() ? first.size() < second.size() : first < second;
}

} // namespace

Decimal Difference(Decimal const& first, Decimal const& second) {
    if (first.is_negative != second.is_negative) {
        return {first.is_negative, Combined(first.digits, second.digits, 1), first.place};
    }
    bool const turned = Is_less(first.digits, second.digits);
    std::string const& more = turned ? second.digits : first.digits;
    std::string const& less = turned ? first.digits : second.digits;
    return {first.is_negative != turned, Combined(more, less, -1), first.place};
}

int Leading_place(double number) {
    Decimal const exact = Exactly(number);
    return exact.place + static_cast<int>(exact.digits.size()) - 1;
}

namespace {

// Of numbers that are written without an exponent, as quantities are.
constexpr int Greatest_fixed_place = 14;
constexpr int Least_fixed_place = -5;

std::string Fixed(std::string digits, int place) {
    if (place >= 0) {
        return digits.append(static_cast<std::size_t>(place), '0');
    }
    auto const decimals = static_cast<std::size_t>(-place);
    if (digits.size() <= decimals) {
        digits.insert(0, decimals + 1 - digits.size(), '0');
    }
    return digits.insert(digits.size() - decimals, 1, '.');
}

std::string With_exponent(std::string digits, int place) {
    int const exponent = place + static_cast<int>(digits.size()) - 1;
    if (digits.size() > 1) {
        digits.insert(1, 1, '.');
    }
    std::string const magnitude = std::to_string(std::abs(exponent));
    return digits + (exponent < 0 ? "e-" : "e+") + (magnitude.size() < 2 ? "0" : "") + magnitude;
}

} // namespace

std::string Text_of(Decimal const& decimal, Notation notation) {
    bool const fixed = notation == Notation::fixed;
    if (decimal.digits.empty()) {
        return fixed && decimal.place < 0 ? Fixed("0", decimal.place) : "0";
    }
    return (decimal.is_negative ? "-" : "") + (fixed
                                                   ? Fixed(decimal.digits, decimal.place)
                                                   : With_exponent(decimal.digits, decimal.place));
}

Notation Notation_at(int leading_place) {
    bool const fixed = leading_place >= Least_fixed_place && leading_place <= Greatest_fixed_place;
    return fixed ? Notation::fixed : Notation::with_exponent;
}

} // namespace Varnix::Value::Physics
