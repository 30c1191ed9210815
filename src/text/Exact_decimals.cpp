#include "Exact_decimals.h"

#include "basics/Doubles.h"
#include "basics/Error_free.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <optional>
#include <string_view>

namespace Varnix::Value {

using namespace Basics;

namespace {

// ---- Digits as strings

constexpr int most_digits = 767; // that a double can have

using Double_text = std::array<char, most_digits + 16>;

// The number whose scientific notation is `text`, without zeros at its end.
Decimal From_scientific(std::string_view text) {
    Decimal decimal;
    decimal.is_negative = text.front() == '-';
    text.remove_prefix(decimal.is_negative ? 1 : 0);
    std::size_t const mark = text.find('e');
    decimal.digits = text.substr(0, 1);
    if (mark > 2) {
        decimal.digits.append(text.substr(2, mark - 2));
    }
    std::size_t const first = mark + (text[mark + 1] == '+' ? 2 : 1);
    int exponent = 0;
    std::from_chars(text.data() + first, text.data() + text.size(), exponent);
    std::size_t const last = decimal.digits.find_last_not_of('0');
    decimal.digits.erase(last == std::string::npos ? 0 : last + 1);
    decimal.place =
        decimal.digits.empty() ? 0 : exponent + 1 - static_cast<int>(decimal.digits.size());
    return decimal;
}

std::string Digits_of(std::uint64_t whole) {
    std::array<char, 20> text;
    char* const end = std::to_chars(text.data(), text.data() + text.size(), whole).ptr;
    return whole == 0 ? std::string() : std::string(text.data(), end);
}

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

std::string Digits_down_to(Decimal const& decimal, int place) {
    std::string digits = decimal.digits;
    return digits.empty() ? digits
                          : digits.append(static_cast<std::size_t>(decimal.place - place), '0');
}

// ---- Cutting off at a place

// What is cut off a number: nothing, less than half a unit of the place, half of one, or more.
enum class Rest { none, less, half, more };

Rest Compared_with_half(bool is_zero, bool is_less, bool is_half) {
    return is_zero ? Rest::none : is_less ? Rest::less : is_half ? Rest::half : Rest::more;
}

struct Whole_cut {
    std::uint64_t whole;
    Rest rest;
};

constexpr double whole_limit = 0x1p63;

// magnitude * 10^decimals as the sum of two doubles, of which the second is at most half an ulp of
// the first.
std::optional<Whole_cut> Cut_product(double magnitude, int decimals) {
    auto const [product, second] = Exact_product(magnitude, exact_powers_of_ten[decimals]);
    constexpr double least = 1e-200; // far from where the second would underflow
    if (product >= whole_limit || (magnitude < least && magnitude != 0.0)) {
        return std::nullopt;
    }
    auto whole = static_cast<std::uint64_t>(product);
    double const fraction = product - static_cast<double>(whole);
    if (fraction != 0.0) {
        bool const is_half = fraction == 0.5 && second == 0.0;
        bool const is_less = fraction < 0.5 || (fraction == 0.5 && second < 0.0);
        return Whole_cut{whole, Compared_with_half(false, is_less, is_half)};
    }
    double const step = std::floor(second);
    whole += static_cast<std::uint64_t>(static_cast<std::int64_t>(step));
    return Whole_cut{whole,
                     Compared_with_half(second == step, second < step + 0.5, second == step + 0.5)};
}

std::optional<Whole_cut> Cut_quotient(double magnitude, int zeros) {
    constexpr int most_zeros = 18;
    if (magnitude >= whole_limit || zeros > most_zeros) {
        return std::nullopt;
    }
    auto const whole = static_cast<std::uint64_t>(magnitude);
    bool const more = static_cast<double>(whole) != magnitude;
    // These powers of ten are exact as doubles, and so are their halves.
    auto const divisor = static_cast<std::uint64_t>(exact_powers_of_ten[zeros]);
    std::uint64_t const rest = whole % divisor;
    std::uint64_t const half = divisor / 2;
    return Whole_cut{whole / divisor,
                     Compared_with_half(rest == 0 && !more, rest < half, rest == half && !more)};
}

// magnitude * 10^decimals, where it can be had in double arithmetic.
std::optional<Whole_cut> Cut_quickly(double magnitude, int decimals) {
    if (decimals > Greatest_exact_power_of_ten) {
        return std::nullopt;
    }
    return decimals >= 0 ? Cut_product(magnitude, decimals) : Cut_quotient(magnitude, -decimals);
}

struct Cut {
    std::string digits;
    Rest rest;
};

Cut Cut_exactly(Decimal const& exact, int place) {
    int const excess = place - exact.place;
    if (excess <= 0) {
        return {Digits_down_to(exact, place), Rest::none};
    }
    auto const cut_off = static_cast<std::size_t>(excess);
    if (exact.digits.size() < cut_off) {
        return {"", exact.digits.empty() ? Rest::none : Rest::less};
    }
    std::size_t const kept = exact.digits.size() - cut_off;
    std::string_view const rest = std::string_view(exact.digits).substr(kept);
    bool const more = rest.find_first_not_of('0', 1) != std::string_view::npos;
    return {exact.digits.substr(0, kept),
            Compared_with_half(rest[0] == '0' && !more, rest[0] < '5', rest[0] == '5' && !more)};
}

bool Rounds_away(bool is_negative, bool is_odd, Rest rest, Rounding rounding) {
    if (rounding == Rounding::nearest) {
        return rest == Rest::more || (rest == Rest::half && is_odd);
    }
    return rest != Rest::none && is_negative == (rounding == Rounding::down);
}

// ---- The fewest digits

// Of at most 18 digits.
std::uint64_t Whole_at(Scaled_number const& x, int place, Rounding rounding) {
    if (auto const cut = Cut_quickly(x.number, x.power - place)) {
        return cut->whole +
               (Rounds_away(false, cut->whole % 2 != 0, cut->rest, rounding) ? 1U : 0U);
    }
    Decimal const decimal = Rounded(x, place, rounding);
    std::uint64_t whole = 0;
    std::from_chars(decimal.digits.data(), decimal.digits.data() + decimal.digits.size(), whole);
    return whole;
}

// The multiples of 10^place from the one number to the other, for the greatest place at which there
// are any.
struct Few_digits {
    std::uint64_t least;
    std::uint64_t greatest;
    int place;
};

// Of positive numbers between which a decimal of 17 digits lies.
Few_digits Fewest_digits(double least, double greatest, int power) {
    int place = Estimated_place({greatest, power}) - 16;
    std::uint64_t low = Whole_at({least, power}, place, Rounding::up);
    std::uint64_t high = Whole_at({greatest, power}, place, Rounding::down);
    auto const leave_out = [&](std::uint64_t divisor, int digits) {
        std::uint64_t const next = (low + (divisor - 1)) / divisor;
        bool const possible = next <= high / divisor;
        if (possible) {
            low = next;
            high /= divisor;
            place += digits;
        }
        return possible;
    };
    while (leave_out(10000, 4)) {
    }
    while (leave_out(10, 1)) {
    }
    return {low, high, place};
}

Decimal Negated(Decimal decimal) {
    decimal.is_negative = !decimal.is_negative;
    return decimal;
}

} // namespace

int Estimated_place(Scaled_number const& x) {
    constexpr double log_of_two = 0.30102999566398120;
    double const magnitude = std::fabs(x.number);
    int exponent = 0;
    std::frexp(magnitude, &exponent);
    int const place = static_cast<int>(std::floor((exponent - 1) * log_of_two));
    // The rest is spared where it costs no more than a comparison.
    bool const is_next = place + 1 >= 0 && place + 1 <= Greatest_exact_power_of_ten &&
                         magnitude >= exact_powers_of_ten[place + 1];
    return place + (is_next ? 1 : 0) + x.power;
}

Decimal Exactly(Scaled_number const& x) {
    Decimal exact;
    auto const whole =
        static_cast<std::uint64_t>(std::fabs(x.number) < whole_limit ? std::fabs(x.number) : 0.0);
    if (static_cast<double>(whole) == std::fabs(x.number)) {
        exact = {std::signbit(x.number), Digits_of(whole), 0};
        Remove_trailing_zeros(exact, std::numeric_limits<int>::max());
    } else {
        Double_text text;
        auto const written = std::to_chars(text.data(), text.data() + text.size(), x.number,
                                           std::chars_format::scientific, most_digits - 1);
        exact = From_scientific({text.data(), static_cast<std::size_t>(written.ptr - text.data())});
    }
    exact.place += exact.digits.empty() ? 0 : x.power;
    return exact;
}

Decimal Rounded(Scaled_number const& x, int place, Rounding rounding) {
    Decimal decimal{std::signbit(x.number), "", place};
    Cut cut;
    if (auto const quick = Cut_quickly(std::fabs(x.number), x.power - place)) {
        cut = {Digits_of(quick->whole), quick->rest};
    } else {
        cut = Cut_exactly(Exactly(x), place);
    }
    decimal.digits = std::move(cut.digits);
    bool const is_odd = !decimal.digits.empty() && (decimal.digits.back() - '0') % 2 != 0;
    if (Rounds_away(decimal.is_negative, is_odd, cut.rest, rounding)) {
        Increment(decimal.digits);
    }
    return decimal;
}

Decimal Rounded_to_digits(Scaled_number const& x, int digits, Rounding rounding) {
    if (x.number == 0.0) {
        return {std::signbit(x.number), "", 1 - digits};
    }
    int place = Estimated_place(x) + 1 - digits;
    Decimal decimal = Rounded(x, place, rounding);
    while (decimal.digits.size() > static_cast<std::size_t>(digits)) {
        decimal = Rounded(x, ++place, rounding);
    }
    return decimal;
}

Decimal Shortest(Scaled_number const& x) {
    std::array<char, 32> text;
    auto const written = std::to_chars(text.data(), text.data() + text.size(), x.number,
                                       std::chars_format::scientific);
    Decimal decimal =
        From_scientific({text.data(), static_cast<std::size_t>(written.ptr - text.data())});
    decimal.place += decimal.digits.empty() ? 0 : x.power;
    return decimal;
}

Decimal Shortest_below(Scaled_number const& x) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    double const next = std::nextafter(x.number, -infinity);
    if (x.number == 0.0 || next == 0.0) {
        return {};
    }
    if (next == -infinity) {
        return Rounded_to_digits(x, 17, Rounding::down);
    }
    if (x.number > 0.0) {
        Few_digits const few = Fewest_digits(next, x.number, x.power);
        return {false, Digits_of(few.greatest), few.place};
    }
    Few_digits const few = Fewest_digits(-x.number, -next, x.power);
    return {true, Digits_of(few.least), few.place};
}

Decimal Shortest_above(Scaled_number const& x) {
    return Negated(Shortest_below({-x.number, x.power}));
}

Decimal Shortest_within(double least, double greatest, Scaled_number const& x) {
    if (least <= 0.0 && greatest >= 0.0) {
        return {};
    }
    if (greatest < 0.0) {
        return Negated(Shortest_within(-greatest, -least, {-x.number, x.power}));
    }
    Few_digits const few = Fewest_digits(least, greatest, x.power);
    std::uint64_t const nearest =
        few.least == few.greatest ? few.least : Whole_at(x, few.place, Rounding::nearest);
    return {false, Digits_of(std::clamp(nearest, few.least, few.greatest)), few.place};
}

Decimal Difference(Decimal const& first, Decimal const& second) {
    int const place = std::min(first.place, second.place);
    std::string const left = Digits_down_to(first, place);
    std::string const right = Digits_down_to(second, place);
    if (first.is_negative != second.is_negative) {
        return {first.is_negative, Combined(left, right, 1), place};
    }
    bool const turned = Is_less(left, right);
    return {first.is_negative != turned, Combined(turned ? right : left, turned ? left : right, -1),
            place};
}

bool Are_equal(Decimal const& first, Decimal const& second) {
    return Difference(first, second).digits.empty();
}

int Leading_place(Decimal const& decimal) {
    return decimal.digits.empty() ? decimal.place
                                  : decimal.place + static_cast<int>(decimal.digits.size()) - 1;
}

void Remove_trailing_zeros(Decimal& decimal, int last_place) {
    if (decimal.digits.empty()) {
        decimal.place = std::max(decimal.place, std::min(last_place, 0));
        return;
    }
    while (decimal.place < last_place && decimal.digits.back() == '0') {
        decimal.digits.pop_back();
        ++decimal.place;
    }
}

namespace {

void Append_fixed(std::string& text, std::string const& digits, int place) {
    if (place >= 0) {
        text += digits.empty() ? "0" : digits;
        text.append(digits.empty() ? 0 : static_cast<std::size_t>(place), '0');
        return;
    }
    auto const decimals = static_cast<std::size_t>(-place);
    if (digits.size() <= decimals) {
        text += "0.";
        text.append(decimals - digits.size(), '0') += digits;
    } else {
        std::size_t const whole = digits.size() - decimals;
        text.append(digits, 0, whole) += '.';
        text.append(digits, whole, std::string::npos);
    }
}

void Append_with_exponent(std::string& text, std::string const& digits, int exponent) {
    text += digits.empty() ? '0' : digits[0];
    if (digits.size() > 1) {
        text += '.';
        text.append(digits, 1, std::string::npos);
    }
    text += exponent < 0 ? "e-" : "e+";
    text += std::abs(exponent) < 10 ? "0" : "";
    text += std::to_string(std::abs(exponent));
}

} // namespace

void Append(std::string& text, Decimal const& decimal, Notation notation) {
    text += decimal.is_negative ? "-" : "";
    if (notation == Notation::fixed) {
        Append_fixed(text, decimal.digits, decimal.place);
    } else {
        Append_with_exponent(text, decimal.digits,
                             decimal.digits.empty() ? 0 : Leading_place(decimal));
    }
}

Notation Shorter_notation(Decimal const& decimal) {
    if (decimal.digits.empty()) {
        return Notation::fixed;
    }
    int const digits = static_cast<int>(decimal.digits.size());
    int const leading = Leading_place(decimal);
    int const fixed = decimal.place >= 0 ? digits + decimal.place
                      : leading >= 0     ? digits + 1
                                         : 2 - decimal.place;
    int const with_exponent = digits + (digits > 1 ? 1 : 0) + (std::abs(leading) < 100 ? 4 : 5);
    return with_exponent < fixed ? Notation::with_exponent : Notation::fixed;
}

Notation Readable_notation(int leading_place) {
    bool const fixed = leading_place >= -5 && leading_place <= 14;
    return fixed ? Notation::fixed : Notation::with_exponent;
}

} // namespace Varnix::Value
