// Quantities as text.
//
// Every number is written by std::to_chars, which rounds from the exact value and knows no locale.
// What is decided here is the decimal place at which a number ends, and in which notation; the two
// distances of a ± are written to the place and in the notation of the value.

#include <varnix/value/Text_formatting.h>

#include <varnix/value/Units_library.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <optional>
#include <ostream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

namespace Varnix::Value {

namespace {

using Quantity = Value_object<double>;

// Zeros of both signs are two numbers here.
bool Same_bits(double left, double right) {
    return left == right && std::signbit(left) == std::signbit(right);
}

// The three numbers of a quantity, whose bounds a copy has put into ascending order.
struct Shown_numbers {
    explicit Shown_numbers(Quantity const& quantity)
        : value(quantity.Get_value()), lower(quantity.Get_minus_err()),
          upper(quantity.Get_plus_err()) {}

    double value;
    double lower;
    double upper;
};

bool Has_bounds(Shown_numbers const& numbers) {
    bool const nothing =
        std::isnan(numbers.value) && std::isnan(numbers.lower) && std::isnan(numbers.upper);
    return !nothing &&
           !(Same_bits(numbers.value, numbers.lower) && Same_bits(numbers.value, numbers.upper));
}

// ---- Shown_numbers

constexpr int count_limit = 100;

// The longest text: the 309 digits of the largest number, a sign, a point and the decimals.
using Number_text = std::array<char, 320 + count_limit>;

std::string Shortest(double number) {
    if (std::isnan(number)) {
        return "nan"; // a sign would say nothing and could not be read back
    }
    Number_text text;
    return {text.data(), std::to_chars(text.data(), text.data() + text.size(), number).ptr};
}

std::string Written(double number, std::chars_format notation, int decimals) {
    Number_text text;
    return {text.data(), std::to_chars(text.data(), text.data() + text.size(), number, notation,
                                       std::clamp(decimals, 0, count_limit))
                             .ptr};
}

// The exponent of a number in scientific notation, whose mark is at `mark`.
int Exponent_behind(std::string_view text, std::size_t mark) {
    std::size_t const first = mark + (text[mark + 1] == '+' ? 2 : 1);
    int exponent = 0;
    std::from_chars(text.data() + first, text.data() + text.size(), exponent);
    return exponent;
}

// The power of ten of the first digit, once `number` is rounded to `digits` significant ones.
int Exponent_of(double number, int digits) {
    std::string const text = Written(number, std::chars_format::scientific, digits - 1);
    return Exponent_behind(text, text.find('e'));
}

// Enough digits not to round a number up to the next power of ten.
constexpr int exact_digits = 17;

// Where a number ends: at the digit of 10^place, written out or with an exponent.
struct Ending {
    int place;
    bool with_exponent;
};

// Shown_numbers are written out, without an exponent, from the one power of ten to the other; with
// zeros for the places that are not shown, for which the upper one is.
constexpr int lowest_written_exponent = -5;
constexpr int highest_written_exponent = 14;

// Down to the digit of 10^place. Where rounding carries to a further digit, that is one more behind
// the point.
std::string Written_with_exponent(double number, int place) {
    int const exponent = number == 0.0 ? place : Exponent_of(number, exact_digits);
    std::string text = Written(number, std::chars_format::scientific, exponent - place);
    bool const carried =
        exponent >= place && Exponent_behind(text, text.find('e')) > exponent && number != 0.0;
    return carried ? Written(number, std::chars_format::scientific, exponent + 1 - place) : text;
}

std::string Written(double number, Ending const& ending) {
    if (ending.with_exponent) {
        return Written_with_exponent(number, ending.place);
    }
    if (ending.place <= 0) {
        return Written(number, std::chars_format::fixed, -ending.place);
    }
    // 10^place is exact up to 22, so that the quotient is rounded once.
    std::string const text =
        Written(number / std::pow(10.0, ending.place), std::chars_format::fixed, 0);
    bool const zero = text == "0" || text == "-0";
    return zero ? text : text + std::string(static_cast<std::size_t>(ending.place), '0');
}

Ending Significant_ending(double number, int count) {
    int const exponent = number == 0.0 ? 0 : Exponent_of(number, count);
    return {exponent - (count - 1), exponent < lowest_written_exponent || exponent >= count};
}

// Down to the second significant digit of half the distance of the bounds. What is larger, the
// value or that half, decides whether there is an exponent.
std::optional<Ending> Ending_by_bounds(Shown_numbers const& numbers) {
    double const half = numbers.upper / 2 - numbers.lower / 2;
    if (!std::isfinite(half) || half <= 0.0 || !std::isfinite(numbers.value)) {
        return std::nullopt;
    }
    int const exponent = Exponent_of(std::max(std::abs(numbers.value), half), exact_digits);
    return Ending{Exponent_of(half, 2) - 1,
                  exponent < lowest_written_exponent || exponent > highest_written_exponent};
}

// Where the value ends; nothing for the shortest digits.
std::optional<Ending> Ending_of(Shown_numbers const& numbers, Text_format const& format) {
    switch (format.digits) {
    case Digits::significant:
        return std::isfinite(numbers.value)
                   ? std::optional(Significant_ending(numbers.value,
                                                      std::clamp(format.count, 1, count_limit)))
                   : std::nullopt;
    case Digits::decimals:
        return Ending{-std::clamp(format.count, 0, count_limit), false};
    case Digits::by_bounds:
        return Ending_by_bounds(numbers);
    case Digits::shortest:
        break;
    }
    return std::nullopt;
}

// A number by itself: significant digits are counted in each number from its own first one.
std::string Written_alone(double number, std::optional<Ending> const& ending,
                          Text_format const& format) {
    if (!ending || !std::isfinite(number)) {
        return Shortest(number);
    }
    if (format.digits == Digits::significant) {
        return Written(number,
                       Significant_ending(number, std::clamp(format.count, 1, count_limit)));
    }
    return Written(number, *ending);
}

// ---- Bounds

// The shortest distance that gives exactly the bounds when it is taken from and added to the value.
std::optional<std::string> Exact_distance(Shown_numbers const& numbers) {
    double const distance = numbers.upper - numbers.value;
    if (!std::isfinite(distance) || !(distance > 0.0)) {
        return std::nullopt;
    }
    for (int decimals = 0; decimals <= 16; ++decimals) {
        std::string const rounded = Written(distance, std::chars_format::scientific, decimals);
        double candidate = 0.0;
        std::from_chars(rounded.data(), rounded.data() + rounded.size(), candidate);
        if (Same_bits(numbers.value - candidate, numbers.lower) &&
            Same_bits(numbers.value + candidate, numbers.upper)) {
            return Shortest(candidate);
        }
    }
    return std::nullopt;
}

// The distance that stands after ±; nothing where the two differ or the value is outside.
std::optional<std::string> Distance(Shown_numbers const& numbers,
                                    std::optional<Ending> const& ending) {
    if (!ending) {
        return Exact_distance(numbers);
    }
    double const below = numbers.value - numbers.lower;
    double const above = numbers.upper - numbers.value;
    if (!std::isfinite(below) || !std::isfinite(above) || below < 0.0 || above < 0.0) {
        return std::nullopt;
    }
    std::string distance = Written(above, *ending);
    return distance == Written(below, *ending) ? std::optional(std::move(distance)) : std::nullopt;
}

// ---- The prefix

// The units that are written with the prefixes of powers of 1000.
constexpr Units_list prefixed_units[] = {METER, SECOND, GRAM, WATT, VOLT, AMP, OHM, BIT, BYTE};

constexpr SI_units engineering_prefixes[] = {PICO, NANO, MICRO, MILLI, NO_PREFIX, KILO, MEGA,
                                             GIGA, TERA, PETA,  EXA,   ZETTA,     YOTTA};

// Prefixes of which differences are no greater than an int. Those of the catalogue go to 24.
constexpr int greatest_prefix = 1000;

bool Takes_prefix(Units unit) {
    bool const decimal = unit.si_prefix == NO_PREFIX ||
                         (Units_library::Get_unit_base(unit) == 10.0 &&
                          unit.si_prefix >= -greatest_prefix && unit.si_prefix <= greatest_prefix);
    unit.si_prefix = NO_PREFIX;
    if (!decimal || unit.spl_conv == SPL_DB) {
        return false;
    }
    Unit_tuple const& first = unit.tuples[0];
    bool const alone = unit == Units{SPL_NONE, NO_PREFIX, {first}};
    bool const listed = std::find(std::begin(prefixed_units), std::end(prefixed_units),
                                  first.unit) != std::end(prefixed_units);
    return unit == C_Hz || (alone && listed && first.exponent == 1);
}

bool All_finite(Quantity const& quantity) {
    return std::isfinite(quantity.Get_value()) && std::isfinite(quantity.Get_minus_err()) &&
           std::isfinite(quantity.Get_plus_err());
}

// A number as it will be read: rounding may carry 999.99 to 1000.
double As_shown(double number, Shown_numbers const& numbers, Text_format const& format) {
    std::string const text = Written_alone(number, Ending_of(numbers, format), format);
    double shown = 0.0;
    std::from_chars(text.data(), text.data() + text.size(), shown);
    return std::abs(shown);
}

// What the prefix is chosen by: the value, or where the bounds set the digits and are wider, half
// of their distance.
double Leading_number(Shown_numbers const& numbers, Text_format const& format) {
    double const half = numbers.upper / 2 - numbers.lower / 2;
    return format.digits == Digits::by_bounds && half > std::abs(numbers.value) ? half
                                                                                : numbers.value;
}

// `number` times 10^exponent as a decimal number is shifted: 2.4e9 becomes 2.4, which a product
// would miss by a bit.
double Shifted(double number, int exponent) {
    Number_text text;
    auto const end = std::to_chars(text.data(), text.data() + text.size(), number,
                                   std::chars_format::scientific);
    std::string_view const written(text.data(), static_cast<std::size_t>(end.ptr - text.data()));
    std::size_t const mark = written.find('e');
    std::string const shifted = std::string(written.substr(0, mark + 1)) +
                                std::to_string(Exponent_behind(written, mark) + exponent);
    // What cannot be read is out of range, and stays infinite: With_engineering_prefix leaves it
    // out.
    double result = std::copysign(number == 0.0 ? 0.0 : HUGE_VAL, number);
    std::from_chars(shifted.data(), shifted.data() + shifted.size(), result);
    return result;
}

Quantity With_prefix(Quantity const& quantity, SI_units prefix) {
    Units unit = quantity.Get_unit();
    int const exponent = unit.si_prefix - prefix;
    unit.si_prefix = prefix;
    return Quantity(Shifted(quantity.Get_value(), exponent), unit,
                    Shifted(quantity.Get_minus_err(), exponent),
                    Shifted(quantity.Get_plus_err(), exponent));
}

// The quantity with the largest prefix that leaves at least 1 before the point.
Quantity With_engineering_prefix(Quantity const& quantity, Text_format const& format) {
    if (!All_finite(quantity) || Leading_number(Shown_numbers(quantity), format) == 0.0 ||
        !Takes_prefix(quantity.Get_unit())) {
        return quantity;
    }
    Quantity best = quantity;
    bool found = false;
    for (SI_units const prefix : engineering_prefixes) {
        Quantity const candidate = With_prefix(quantity, prefix);
        Shown_numbers const numbers(candidate);
        if (All_finite(candidate) &&
            (!found || As_shown(Leading_number(numbers, format), numbers, format) >= 1.0)) {
            best = candidate;
            found = true;
        }
    }
    return best;
}

// The value, the unit, and the bounds, each as the format has it.
std::string Write_out(Quantity const& quantity, Text_format const& format) {
    Shown_numbers const numbers(quantity);
    std::optional<Ending> const ending = Ending_of(numbers, format);
    std::string const unit_text = Format_unit(quantity.Get_unit(), format.unit);
    std::string const unit = unit_text.empty() ? "" : ' ' + unit_text;
    if (format.bounds == Bounds_style::hidden || !Has_bounds(numbers)) {
        return Written_alone(numbers.value, ending, format) + unit;
    }
    if (format.bounds == Bounds_style::symmetric) {
        if (auto const distance = Distance(numbers, ending)) {
            std::string const value =
                ending ? Written(numbers.value, *ending) : Shortest(numbers.value);
            return value + " ± " + *distance + unit;
        }
    }
    return Written_alone(numbers.value, ending, format) + unit + " [" +
           Written_alone(numbers.lower, ending, format) + ", " +
           Written_alone(numbers.upper, ending, format) + ']';
}

} // namespace

std::string Format(Value_object<double> const& quantity, Text_format const& format) {
    return Write_out(
        format.engineering_prefix ? With_engineering_prefix(quantity, format) : quantity, format);
}

std::string Format_number(double number, Text_format const& format) {
    Shown_numbers const numbers(Quantity(number, C_Empty, number, number));
    return Written_alone(number, Ending_of(numbers, format), format);
}

std::ostream& operator<<(std::ostream& stream, Value_object<double> const& quantity) {
    return stream << Format(quantity);
}

void Throw_format_not_valid() {
    throw std::invalid_argument("a format is [.N | .Nf | b][p | ~][k], with up to 100 digits");
}

} // namespace Varnix::Value
