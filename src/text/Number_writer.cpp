// The one writer: where numbers end, how they are rounded there, and the forms of their bounds.

#include <varnix/value/Text_writing.h>

#include "Exact_decimals.h"

#include "catalogue/Prefixes.h"
#include "catalogue/Unit_rows.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

namespace Varnix::Value {

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

// Zeros of both signs are two numbers here.
bool Same_bits(double left, double right) {
    return left == right && std::signbit(left) == std::signbit(right);
}

// ---- One number

enum class Which { value, lower, upper };

double Number(Exact_numbers const& numbers, Which which) {
    return which == Which::value   ? numbers.value
           : which == Which::lower ? numbers.lower
                                   : numbers.upper;
}

Scaled_number Scaled(Exact_numbers const& numbers, Which which) {
    return {Number(numbers, which), numbers.power_of_ten};
}

Rounding Rounding_of(Which which, Writing const& writing) {
    if (which == Which::value || writing.bounds == Bound_rounding::nearest) {
        return Rounding::nearest;
    }
    return which == Which::lower ? Rounding::down : Rounding::up;
}

// Measurements have no zero with a sign.
Decimal With_sign_of_zero(Decimal decimal, Writing const& writing) {
    decimal.is_negative = decimal.is_negative &&
                          (!decimal.digits.empty() || writing.bounds == Bound_rounding::nearest);
    return decimal;
}

bool Lies_within_bounds(Exact_numbers const& numbers) {
    return numbers.lower < numbers.upper && std::isfinite(numbers.lower) &&
           std::isfinite(numbers.upper);
}

// With the digits of Digits::shortest.
Decimal Short_decimal(Exact_numbers const& numbers, Which which, Writing const& writing) {
    Scaled_number const x = Scaled(numbers, which);
    if (which == Which::value && writing.within_bounds && Lies_within_bounds(numbers)) {
        return Shortest_within(numbers.lower, numbers.upper, x);
    }
    if (numbers.are_decimal) {
        return Exactly(x);
    }
    switch (Rounding_of(which, writing)) {
    case Rounding::nearest:
        break;
    case Rounding::down:
        return Shortest_below(x);
    case Rounding::up:
        return Shortest_above(x);
    }
    return Shortest(x);
}

// Strictly: a decimal that is one of the two says nothing of the other.
bool Is_between(Decimal const& decimal, Exact_numbers const& numbers) {
    Decimal const below = Rounded(Scaled(numbers, Which::lower), decimal.place, Rounding::down);
    Decimal const above = Rounded(Scaled(numbers, Which::upper), decimal.place, Rounding::up);
    auto const is_positive = [](Decimal const& difference) {
        return !difference.is_negative && !difference.digits.empty();
    };
    return is_positive(Difference(decimal, below)) && is_positive(Difference(above, decimal));
}

// Of which one has to lie between them to be as wide as they are.
bool Are_neighbours(Exact_numbers const& numbers) {
    return !numbers.are_decimal && std::isfinite(numbers.lower) && std::isfinite(numbers.upper) &&
           numbers.upper == std::nextafter(numbers.lower, infinity);
}

// ---- Where numbers end

constexpr int count_limit = 100;

int Digit_count(Text_format const& format) {
    return std::clamp(format.count, format.digits == Digits::decimals ? 0 : 1, count_limit);
}

// At the digit of 10^place, written out or with an exponent.
struct Ending {
    int place;
    Notation notation;
};

// Zeros do not stand for digits that are not meant.
Ending Significant_ending(Decimal const& decimal, int count) {
    int const leading = decimal.digits.empty() ? 0 : Leading_place(decimal);
    bool const fixed = leading >= -5 && leading < count;
    return {decimal.place, fixed ? Notation::fixed : Notation::with_exponent};
}

// Half the distance of the bounds; where it would lose its last bit, as ten times its tenth.
Scaled_number Half_distance(Exact_numbers const& numbers) {
    constexpr double few_bits = 1e-290;
    double const distance = numbers.upper - numbers.lower;
    return distance < few_bits
               ? Scaled_number{distance * 5.0, numbers.power_of_ten - 1}
               : Scaled_number{numbers.upper / 2 - numbers.lower / 2, numbers.power_of_ten};
}

// The second digit, unless the format has another count.
constexpr int usual_count_by_bounds = 2;

// Of a number other than zero.
int Exact_leading_place(Scaled_number const& x) {
    return Rounded_to_digits({std::fabs(x.number), x.power}, 1, Rounding::down).place;
}

Notation Notation_by_bounds(Scaled_number const& half, Scaled_number const& value) {
    int const estimated = Estimated_place(half);
    int const larger =
        value.number == 0.0 ? estimated : std::max(estimated, Estimated_place(value));
    Notation const notation = Readable_notation(larger);
    if (notation == Readable_notation(larger + 1)) {
        return notation;
    }
    return Readable_notation(value.number == 0.0
                                 ? Exact_leading_place(half)
                                 : std::max(Exact_leading_place(half), Exact_leading_place(value)));
}

// What is larger, the value or half the distance, decides whether there is an exponent.
// Nothing where the shortest digits alone are as wide.
std::optional<Ending> Ending_by_bounds(Exact_numbers const& numbers, Writing const& writing) {
    Scaled_number const half = Half_distance(numbers);
    if (!std::isfinite(half.number) || half.number <= 0.0 || !std::isfinite(numbers.value) ||
        (writing.bounds == Bound_rounding::outward && Are_neighbours(numbers) &&
         Is_between(Short_decimal(numbers, Which::value, writing), numbers))) {
        return std::nullopt;
    }
    int const count =
        writing.format.count > 0 ? Digit_count(writing.format) : usual_count_by_bounds;
    int const place = Rounded_to_digits(half, count, Rounding::nearest).place;
    return Ending{place, Notation_by_bounds(half, Scaled(numbers, Which::value))};
}

// Where the value ends; nothing for the shortest digits.
std::optional<Ending> Ending_of(Exact_numbers const& numbers, Writing const& writing) {
    Text_format const& format = writing.format;
    switch (format.digits) {
    case Digits::significant:
        if (std::isfinite(numbers.value)) {
            int const count = Digit_count(format);
            return Significant_ending(
                Rounded_to_digits(Scaled(numbers, Which::value), count, Rounding::nearest), count);
        }
        break;
    case Digits::decimals:
        return Ending{-Digit_count(format), Notation::fixed};
    case Digits::by_bounds:
        return Ending_by_bounds(numbers, writing);
    case Digits::shortest:
        break;
    }
    return std::nullopt;
}

// With an exponent, a number of a quantity keeps its first digit, however small it is.
Decimal Rounded_at(Scaled_number const& x, Ending const& ending, Rounding rounding,
                   Writing const& writing) {
    Decimal decimal = Rounded(x, ending.place, rounding);
    bool const keeps_first = writing.bounds == Bound_rounding::nearest &&
                             ending.notation == Notation::with_exponent && x.number != 0.0;
    if (keeps_first && decimal.digits.size() <= 1) {
        decimal = Rounded_to_digits(x, 1, rounding);
    }
    return With_sign_of_zero(std::move(decimal), writing);
}

// ---- One number as text

// Room for the shortest digits of any double.
using Short_text = std::array<char, 32>;

void Append_shortest(std::string& text, double number) {
    if (std::isnan(number)) {
        text += "nan"; // a sign would say nothing and could not be read back
        return;
    }
    Short_text digits;
    text.append(digits.data(),
                std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr);
}

void Append_rounded(std::string& text, Decimal decimal, Notation notation, Writing const& writing) {
    if (!writing.trailing_zeros) {
        constexpr int anywhere = std::numeric_limits<int>::max();
        Remove_trailing_zeros(decimal, notation == Notation::fixed ? 0 : anywhere);
        notation = decimal.digits.empty() ? Notation::fixed : notation;
    }
    Append(text, decimal, notation);
}

void Append_short(std::string& text, Exact_numbers const& numbers, Which which,
                  Writing const& writing) {
    // Whole numbers beyond this are written by std::to_chars with digits that are not the shortest.
    constexpr double whole_limit = 0x1p53;
    bool const is_plain = numbers.power_of_ten == 0 && !numbers.are_decimal &&
                          !writing.within_bounds &&
                          (writing.bounds == Bound_rounding::nearest ||
                           (which == Which::value && std::fabs(numbers.value) < whole_limit));
    if (is_plain) {
        Append_shortest(text, Number(numbers, which));
        return;
    }
    Decimal const decimal = With_sign_of_zero(Short_decimal(numbers, which, writing), writing);
    Append(text, decimal,
           writing.within_bounds ? Readable_notation(Leading_place(decimal))
                                 : Shorter_notation(decimal));
}

// A number by itself: significant digits are counted in each number from its own first one.
void Append_number(std::string& text, Exact_numbers const& numbers, Which which,
                   std::optional<Ending> const& ending, Writing const& writing) {
    if (!std::isfinite(Number(numbers, which))) {
        Append_shortest(text, Number(numbers, which));
        return;
    }
    if (!ending) {
        Append_short(text, numbers, which, writing);
        return;
    }
    Scaled_number const x = Scaled(numbers, which);
    Rounding const rounding = Rounding_of(which, writing);
    if (writing.format.digits == Digits::significant) {
        int const count = Digit_count(writing.format);
        Decimal const decimal = Rounded_to_digits(x, count, rounding);
        Append_rounded(text, decimal, Significant_ending(decimal, count).notation, writing);
        return;
    }
    Append_rounded(text, Rounded_at(x, *ending, rounding, writing), ending->notation, writing);
}

// ---- Whether there are bounds to show

// The value as it is written.
Decimal Value_decimal(Exact_numbers const& numbers, std::optional<Ending> const& ending,
                      Writing const& writing) {
    return ending ? Rounded_at(Scaled(numbers, Which::value), *ending, Rounding::nearest, writing)
                  : Short_decimal(numbers, Which::value, writing);
}

bool Has_bounds(Exact_numbers const& numbers, std::optional<Ending> const& ending,
                Writing const& writing) {
    double const value = numbers.value;
    if (writing.bounds == Bound_rounding::nearest) {
        bool const nothing =
            std::isnan(value) && std::isnan(numbers.lower) && std::isnan(numbers.upper);
        return !nothing && !(Same_bits(value, numbers.lower) && Same_bits(value, numbers.upper));
    }
    return numbers.lower != numbers.upper &&
           !(Are_neighbours(numbers) &&
             Is_between(Value_decimal(numbers, ending, writing), numbers));
}

// ---- ± of quantities, which are read back in double arithmetic

// The double that is read from the shortest digits.
double As_read(Scaled_number const& x) {
    if (x.power == 0 || !std::isfinite(x.number)) {
        return x.number;
    }
    Decimal const decimal = Shortest(x);
    std::string const text = decimal.digits + 'e' + std::to_string(decimal.place);
    double read = decimal.digits.empty() ? 0.0 : infinity;
    std::from_chars(text.data(), text.data() + text.size(), read);
    return std::copysign(read, x.number);
}

// The shortest distance that gives exactly the bounds when it is taken from and added to the value.
std::optional<std::string> Exact_distance(double value, double lower, double upper) {
    double const distance = upper - value;
    if (!std::isfinite(distance) || !(distance > 0.0)) {
        return std::nullopt;
    }
    for (int decimals = 0; decimals <= 16; ++decimals) {
        Short_text digits;
        auto const end = std::to_chars(digits.data(), digits.data() + digits.size(), distance,
                                       std::chars_format::scientific, decimals);
        double candidate = 0.0;
        std::from_chars(digits.data(), end.ptr, candidate);
        if (Same_bits(value - candidate, lower) && Same_bits(value + candidate, upper)) {
            std::string text;
            Append_shortest(text, candidate);
            return text;
        }
    }
    return std::nullopt;
}

// The distance that stands after ±; nothing where the two differ or the value is outside.
std::optional<std::string> Nearest_distance(Exact_numbers const& numbers,
                                            std::optional<Ending> const& ending,
                                            Writing const& writing) {
    double const value = As_read(Scaled(numbers, Which::value));
    double const lower = As_read(Scaled(numbers, Which::lower));
    double const upper = As_read(Scaled(numbers, Which::upper));
    if (!ending) {
        return Exact_distance(value, lower, upper);
    }
    double const below = value - lower;
    double const above = upper - value;
    if (!std::isfinite(below) || !std::isfinite(above) || below < 0.0 || above < 0.0) {
        return std::nullopt;
    }
    auto const written = [&](double distance) {
        std::string text;
        Append_rounded(text, Rounded_at({distance, 0}, *ending, Rounding::nearest, writing),
                       ending->notation, writing);
        return text;
    };
    std::string distance = written(above);
    return distance == written(below) ? std::optional(std::move(distance)) : std::nullopt;
}

// ---- ± of measurements, which encloses

// The place to which the value and both bounds are short.
int Short_place(Exact_numbers const& numbers, Decimal const& value, Writing const& writing) {
    return std::min({value.place, Short_decimal(numbers, Which::lower, writing).place,
                     Short_decimal(numbers, Which::upper, writing).place});
}

std::optional<std::string> Outward_distance(Exact_numbers const& numbers,
                                            std::optional<Ending> const& ending,
                                            Writing const& writing) {
    if (!std::isfinite(numbers.lower) || !std::isfinite(numbers.upper)) {
        return std::nullopt;
    }
    Decimal const value = Value_decimal(numbers, ending, writing);
    int const place = ending ? ending->place : Short_place(numbers, value, writing);
    Decimal const lower = Rounded(Scaled(numbers, Which::lower), place, Rounding::down);
    Decimal const upper = Rounded(Scaled(numbers, Which::upper), place, Rounding::up);
    Decimal below = Difference(value, lower);
    if (below.is_negative || !Are_equal(below, Difference(upper, value))) {
        return std::nullopt;
    }
    std::string text;
    if (ending) {
        Append_rounded(text, below, ending->notation, writing);
    } else {
        Remove_trailing_zeros(below, std::numeric_limits<int>::max());
        int const leading = std::max(Leading_place(lower), Leading_place(upper));
        Append(text, below, Readable_notation(leading));
    }
    return text;
}

std::optional<std::string> Distance(Exact_numbers const& numbers,
                                    std::optional<Ending> const& ending, Writing const& writing) {
    return writing.bounds == Bound_rounding::nearest ? Nearest_distance(numbers, ending, writing)
                                                     : Outward_distance(numbers, ending, writing);
}

// The value where a distance follows, which ends where that does.
void Append_value(std::string& text, Exact_numbers const& numbers,
                  std::optional<Ending> const& ending, Writing const& writing) {
    if (!ending || !std::isfinite(numbers.value)) {
        Append_number(text, numbers, Which::value, std::nullopt, writing);
    } else {
        Append_rounded(text, Value_decimal(numbers, ending, writing), ending->notation, writing);
    }
}

} // namespace

std::string Write_numbers(Exact_numbers const& numbers, std::string_view unit_text,
                          Writing const& writing) {
    std::optional<Ending> const ending = Ending_of(numbers, writing);
    std::string text;
    auto const append_unit = [&] {
        text += unit_text.empty() ? "" : " ";
        text += unit_text;
    };
    bool const has_bounds =
        writing.format.bounds != Bounds_style::hidden && Has_bounds(numbers, ending, writing);
    if (has_bounds && writing.format.bounds == Bounds_style::symmetric) {
        if (auto const distance = Distance(numbers, ending, writing)) {
            Append_value(text, numbers, ending, writing);
            text.append(" ± ") += *distance;
            append_unit();
            return text;
        }
    }
    Append_number(text, numbers, Which::value, ending, writing);
    append_unit();
    if (has_bounds) {
        text += " [";
        Append_number(text, numbers, Which::lower, ending, writing);
        text += ", ";
        Append_number(text, numbers, Which::upper, ending, writing);
        text += ']';
    }
    return text;
}

// ---- The prefix

namespace {

// Whether the unit is written with the prefixes of powers of 1000.
bool Has_chosen_prefix(Units_list unit) {
    if (!Catalogue::Is_unit(unit)) {
        return false;
    }
    Catalogue::Prefixes_taken const prefixes = Catalogue::Row_of(unit).prefixes;
    return prefixes == Catalogue::Prefixes_taken::chosen ||
           prefixes == Catalogue::Prefixes_taken::chosen_usual;
}

constexpr int least_engineering_prefix = PICO;
constexpr int greatest_engineering_prefix = YOTTA;

// Prefixes of which differences are no greater than an int. Those of the catalogue go to 27.
constexpr int greatest_prefix = 1000;

bool Takes_prefix(Units unit) {
    bool const decimal = unit.si_prefix == NO_PREFIX ||
                         (!Catalogue::Is_binary(unit.si_prefix) &&
                          unit.si_prefix >= -greatest_prefix && unit.si_prefix <= greatest_prefix);
    unit.si_prefix = NO_PREFIX;
    if (!decimal || unit.spl_conv == SPL_DB) {
        return false;
    }
    Unit_tuple const& first = unit.tuples[0];
    bool const alone = unit == Units{SPL_NONE, NO_PREFIX, {first}};
    return unit == C_Hz || (alone && Has_chosen_prefix(first.unit) && first.exponent == 1);
}

bool All_finite(Exact_numbers const& numbers) {
    return std::isfinite(numbers.value) && std::isfinite(numbers.lower) &&
           std::isfinite(numbers.upper);
}

// What the prefix is chosen by, as it is written: the value, or where the bounds set the digits and
// are wider, half of their distance.
Decimal Leading_decimal(Exact_numbers const& numbers, Writing const& writing) {
    std::optional<Ending> const ending = Ending_of(numbers, writing);
    if (ending && writing.format.digits == Digits::by_bounds) {
        Scaled_number const half = Half_distance(numbers);
        Scaled_number const value = Scaled(numbers, Which::value);
        bool const is_wider = numbers.upper / 2 - numbers.lower / 2 > std::abs(numbers.value);
        return Rounded(is_wider ? half : value, ending->place, Rounding::nearest);
    }
    return Value_decimal(numbers, ending, writing);
}

// The largest that leaves at least 1 before the point of what is 10^exponent without a prefix.
SI_units Prefix_for(int exponent) {
    int const steps = std::clamp(exponent, least_engineering_prefix, greatest_engineering_prefix) -
                      least_engineering_prefix;
    return static_cast<SI_units>(least_engineering_prefix + steps / 3 * 3);
}

void Set_prefix(Exact_numbers& numbers, Units& unit, SI_units prefix) {
    numbers.power_of_ten += static_cast<int>(unit.si_prefix) - static_cast<int>(prefix);
    unit.si_prefix = prefix;
}

} // namespace

Units Choose_prefix(Exact_numbers& numbers, Units const& given, Writing const& writing) {
    Units unit = given;
    if (!All_finite(numbers) || !Takes_prefix(unit)) {
        return unit;
    }
    Decimal const first = writing.format.digits == Digits::decimals
                              ? Shortest(Scaled(numbers, Which::value))
                              : Leading_decimal(numbers, writing);
    if (first.digits.empty()) {
        return unit;
    }
    Set_prefix(numbers, unit, Prefix_for(Leading_place(first) + unit.si_prefix));
    // Decimals are counted from the point, so that they round elsewhere with each prefix.
    Decimal const shown = Leading_decimal(numbers, writing);
    if (!shown.digits.empty() && Leading_place(shown) >= 3) {
        Set_prefix(numbers, unit, Prefix_for(Leading_place(shown) + unit.si_prefix));
    }
    return unit;
}

// ---- Doubles

namespace {

// The greatest double whose shortest digits are not above the number.
double Enclosing_below(Scaled_number const& x) {
    if (!std::isfinite(x.number)) {
        return x.number;
    }
    double bound = As_read(x);
    auto const is_above = [&] {
        if (std::isinf(bound)) {
            return bound > 0.0;
        }
        Decimal const shown = Shortest({bound, 0});
        Decimal const difference = Difference(Rounded(x, shown.place, Rounding::down), shown);
        return difference.is_negative && !difference.digits.empty();
    };
    while (is_above()) {
        bound = std::nextafter(bound, -infinity);
    }
    return bound;
}

} // namespace

Exact_numbers Enclosing_doubles(Exact_numbers const& numbers) {
    auto const [value, lower, upper, power, are_decimal] = numbers;
    return {As_read({value, power}), Enclosing_below({lower, power}),
            -Enclosing_below({-upper, power}) + 0.0, 0, false};
}

} // namespace Varnix::Value
