// What is written, read as exact fractions and not by a reader of the library: values are nearest, bounds are
// never narrower and at most one step wider, and a deviation encloses both. Over all formats, and bands from
// one step of a double to the greatest one.

#include "Random_numbers.h"

#include <varnix/value/Measurement_text.h>

#include <gmp.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <optional>
#include <random>
#include <string>

namespace Varnix::Value::Tests {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

// ---- Fractions

class Fraction {
  public:
    Fraction() { mpq_init(number); }
    explicit Fraction(double value) : Fraction() { mpq_set_d(number, value); }
    Fraction(Fraction const& other) : Fraction() { mpq_set(number, other.number); }
    Fraction& operator=(Fraction const& other) {
        mpq_set(number, other.number);
        return *this;
    }
    ~Fraction() { mpq_clear(number); }

    static Fraction Power_of_ten(int exponent) {
        Fraction power;
        mpz_ui_pow_ui(mpq_numref(power.number), 10, static_cast<unsigned long>(std::abs(exponent)));
        if (exponent < 0) {
            mpq_inv(power.number, power.number);
        }
        return power;
    }

    friend Fraction operator+(Fraction left, Fraction const& right) {
        mpq_add(left.number, left.number, right.number);
        return left;
    }
    friend Fraction operator-(Fraction left, Fraction const& right) {
        mpq_sub(left.number, left.number, right.number);
        return left;
    }
    friend Fraction operator*(Fraction left, Fraction const& right) {
        mpq_mul(left.number, left.number, right.number);
        return left;
    }
    friend bool operator<=(Fraction const& left, Fraction const& right) { return mpq_cmp(left.number, right.number) <= 0; }
    friend bool operator==(Fraction const& left, Fraction const& right) { return mpq_equal(left.number, right.number) != 0; }
    friend Fraction Size(Fraction x) {
        mpq_abs(x.number, x.number);
        return x;
    }
    // The least multiple of `unit` that is not below this.
    Fraction Next_multiple(Fraction const& unit) const {
        Fraction multiple;
        mpq_div(multiple.number, number, unit.number);
        mpz_cdiv_q(mpq_numref(multiple.number), mpq_numref(multiple.number), mpq_denref(multiple.number));
        mpz_set_ui(mpq_denref(multiple.number), 1);
        return multiple * unit;
    }
    void Set_whole(std::string const& digits) { mpz_set_str(mpq_numref(number), digits.c_str(), 10); }

  private:
    mpq_t number;
};

// A number as it is written, and one unit of its last place.
struct Written_number {
    Fraction number;
    Fraction unit;
    std::size_t digits = 0;   // that are significant
    std::size_t decimals = 0; // behind the point
};

Written_number Read(std::string text) {
    Written_number read;
    std::size_t const mark = text.find('e');
    int place = mark == std::string::npos ? 0 : std::stoi(text.substr(mark + 1));
    text.erase(std::min(mark, text.size()));
    std::size_t const point = text.find('.');
    if (point != std::string::npos) {
        read.decimals = text.size() - point - 1;
        place -= static_cast<int>(read.decimals);
        text.erase(point, 1);
    }
    EXPECT_EQ(text.find_first_not_of("0123456789", text[0] == '-' ? 1 : 0), std::string::npos) << text;
    std::size_t const first = text.find_first_of("123456789");
    read.digits = first == std::string::npos ? 0 : text.size() - first;
    read.number.Set_whole(text);
    read.unit = Fraction::Power_of_ten(place);
    read.number = read.number * read.unit;
    return read;
}

// "VALUE UNIT [LOWER, UPPER]", "VALUE ± DEVIATION UNIT" or "VALUE UNIT".
struct Written_quantity {
    std::string value;
    std::string lower;
    std::string upper;
    std::string deviation;
    std::string unit;
};

Written_quantity Taken_apart(std::string const& text) {
    Written_quantity parts;
    std::size_t end = text.find(' ');
    parts.value = text.substr(0, end);
    std::string rest = text.substr(end + 1);
    std::string const sign = "± ";
    if (rest.compare(0, sign.size(), sign) == 0) {
        end = rest.find(' ', sign.size());
        parts.deviation = rest.substr(sign.size(), end - sign.size());
        rest.erase(0, end + 1);
    }
    std::size_t const bracket = rest.find(" [");
    parts.unit = rest.substr(0, bracket);
    if (bracket != std::string::npos) {
        std::size_t const comma = rest.find(", ");
        parts.lower = rest.substr(bracket + 2, comma - bracket - 2);
        parts.upper = rest.substr(comma + 2, rest.size() - comma - 3);
    }
    return parts;
}

// ---- What has to hold

// By which prefix of the volt a text is scaled.
int Power_of(std::string const& unit) {
    std::string const prefixes[] = {"p", "n", "µ", "m", "", "k", "M", "G", "T", "P", "E", "Z", "Y"};
    for (int k = 0; k < 13; ++k) {
        if (unit == prefixes[k] + 'V') {
            return 3 * k - 12;
        }
    }
    ADD_FAILURE() << "no prefix: " << unit;
    return 0;
}

// One unit of the second digit of half the distance; nothing where that has none.
std::optional<Fraction> Unit_by_bounds(double lower, double upper) {
    bool const is_tiny = upper - lower < 1e-290;
    double const half = is_tiny ? (upper - lower) * 5.0 : upper / 2 - lower / 2;
    if (!std::isfinite(half) || half == 0.0) {
        return std::nullopt;
    }
    return Fraction::Power_of_ten(static_cast<int>(std::floor(std::log10(half / 9.949))) - (is_tiny ? 1 : 0));
}

// One unit of the last place, or one step of a double where the digits are the shortest. By bounds, both are
// possible.
Fraction Room(double bound, Fraction const& unit, Text_format const& format) {
    Fraction const step = Size(Fraction(bound) - Fraction(std::nextafter(bound, std::fabs(bound) < 1.0 ? 2.0 : 0.0))) +
                          Fraction(std::numeric_limits<double>::denorm_min());
    bool const is_larger = format.digits == Digits::by_bounds && unit <= step;
    return format.digits == Digits::shortest || is_larger ? step : unit;
}

void Expect_bound(double bound, std::string const& text, int sign, Text_format const& format, Fraction const& scale,
                  std::optional<Fraction> const& unit) {
    if (std::isinf(bound)) {
        EXPECT_EQ(text, bound < 0.0 ? "-inf" : "inf");
        return;
    }
    Written_number const written = Read(text);
    Fraction const outward = (written.number * scale - Fraction(bound)) * Fraction(sign);
    EXPECT_TRUE(Fraction() <= outward) << "is narrower";
    EXPECT_TRUE(outward <= Room(bound, unit ? *unit : written.unit * scale, format)) << "is wider than need be";
}

void Expect_value(double value, std::string const& text, Text_format const& format, Fraction const& scale, std::optional<Fraction> const& unit) {
    Written_number const written = Read(text);
    if (format.digits == Digits::shortest && scale == Fraction(1.0)) {
        EXPECT_EQ(std::strtod(text.c_str(), nullptr), value);
        return;
    }
    Fraction const off = Size(written.number * scale - Fraction(value)) * Fraction(2.0);
    EXPECT_TRUE(off <= Room(value, unit ? *unit : written.unit * scale, format)) << "is not nearest";
    if (format.digits == Digits::significant && value != 0.0) {
        EXPECT_EQ(written.digits, static_cast<std::size_t>(format.count));
    } else if (format.digits == Digits::decimals) {
        EXPECT_EQ(written.decimals, static_cast<std::size_t>(format.count));
    }
}

bool Are_neighbours(double lower, double upper) {
    return upper == std::nextafter(lower, infinity);
}

void Expect_encloses(double value, double lower, double upper, Text_format const& format) {
    std::string const text = Format(Measurement(value, C_Volts, lower, upper), format);
    SCOPED_TRACE(text);
    Written_quantity const written = Taken_apart(text);
    Fraction const scale = Fraction::Power_of_ten(Power_of(written.unit));
    std::optional<Fraction> const unit = format.digits == Digits::by_bounds ? Unit_by_bounds(lower, upper) : std::nullopt;
    Expect_value(value, written.value, format, scale, unit);
    Fraction const shown = Read(written.value).number * scale;
    if (!written.deviation.empty()) {
        Fraction const deviation = Read(written.deviation).number * scale;
        EXPECT_TRUE(shown - deviation <= Fraction(lower) && Fraction(upper) <= shown + deviation) << "± is too narrow";
    } else if (!written.lower.empty()) {
        Expect_bound(lower, written.lower, -1, format, scale, unit);
        Expect_bound(upper, written.upper, 1, format, scale, unit);
    } else if (lower != upper && format.bounds != Bounds_style::hidden) {
        EXPECT_TRUE(Are_neighbours(lower, upper) && !(shown <= Fraction(lower)) && !(Fraction(upper) <= shown)) << "bounds are left out";
    }
    if (format.engineering_prefix && value != 0.0 && std::isfinite(upper - lower) && format.digits != Digits::by_bounds) {
        Fraction const size = Size(Read(written.value).number);
        EXPECT_TRUE(written.unit == "YV" || !(Fraction(1000.0) <= size)) << "a higher prefix";
        EXPECT_TRUE(written.unit == "pV" || Fraction(1.0) <= size || format.digits == Digits::decimals) << "a lower prefix";
    }
}

// ---- Numbers

// Numbers that are typed, any doubles, and the ends of their range.
double Hard_number(std::mt19937_64& random) {
    double const ends[] = {0.0, 5e-324, -5e-324, 2.2250738585072014e-308, 1.7976931348623157e308, -1.7976931348623157e308, 999.999, 0.9995, 9.5,
                           1.0, 1e22,   1e23};
    switch (random() % 4) {
    case 0:
        return Any_number(random);
    case 1:
        return ends[random() % std::size(ends)];
    case 2:
        return static_cast<double>(random() % 2000001) * 1e-3 - 1000.0;
    default:
        return std::ldexp(static_cast<double>(static_cast<std::int64_t>(random() >> 11U)), static_cast<int>(random() % 120) - 100);
    }
}

double Moved(double number, std::mt19937_64& random, double direction) {
    switch (random() % 6) {
    case 0:
        return number;
    case 1:
        return direction;
    case 2:
        return number + std::copysign(std::fabs(number) / static_cast<double>(1 + random() % 1000), direction);
    case 3:
        return std::copysign(std::max(std::fabs(Any_number(random)), std::fabs(number)), direction);
    default:
        for (std::uint64_t steps = 1 + random() % 40; steps > 0; --steps) {
            number = std::nextafter(number, direction);
        }
        return number;
    }
}

Text_format Any_format(std::mt19937_64& random) {
    Text_format format;
    format.digits = static_cast<Digits>(random() % 4);
    format.count = format.digits == Digits::by_bounds ? 0 : static_cast<int>(1 + random() % (random() % 4 == 0 ? 40 : 8));
    format.bounds = static_cast<Bounds_style>(random() % 3);
    format.engineering_prefix = random() % 3 == 0;
    return format;
}

TEST(Written_numbers, Enclose_for_every_reader) {
    std::mt19937_64 random(21);
    for (int k = 0; k < 60000 && !::testing::Test::HasFailure(); ++k) {
        double const value = Hard_number(random);
        double const lower = Moved(value, random, -infinity);
        double const upper = Moved(value, random, infinity);
        SCOPED_TRACE(::testing::Message() << std::hexfloat << value << " [" << lower << ", " << upper << "], case " << k);
        Expect_encloses(value, lower, upper, Any_format(random));
    }
}

// ---- Decimals, and the doubles of other formats

TEST(Written_numbers, Are_written_as_they_were_typed) {
    struct Row {
        char const* format;
        Exact_numbers numbers;
        char const* text;
    };
    Row const rows[] = {
        {"", {50, 49, 51, -1, true}, "5 V [4.9, 5.1]"},
        {"", {51, 51, 51, -1, true}, "5.1 V"},
        {".17", {51, 51, 51, -1, true}, "5.1000000000000000 V"},
        {"p", {500, 490, 510, -2, true}, "5 ± 0.1 V"},
        {"p", {515, 505, 525, -2, true}, "5.15 ± 0.1 V"},
        {"bp", {9996, 9986, 10006, -3, true}, "9.996 ± 0.010 V"},
        {"b", {125, 100, 200, -32, true}, "1.25e-30 V [1.00e-30, 2.00e-30]"},
        {".1f", {-226, -231, -220, -2, true}, "-2.3 V [-2.4, -2.2]"},
        {".3pk", {1234567, 1224567, 1244567, 0, true}, "1.23 MV [1.22, 1.25]"},
        {"k", {999999, 999999, 999999, -6, true}, "999.999 mV"},
        {"",
         {9007199254740992, 9007199254740991, 9007199254740992, -22, true},
         "9.007199254740992e-07 V [9.007199254740991e-07, 9.007199254740992e-07]"},
        {"~", {0, -1, 1, 22, true}, "0 V"},
    };
    for (Row const& row : rows) {
        Writing writing;
        writing.format = Read_text_format(row.format);
        writing.bounds = Bound_rounding::outward;
        Exact_numbers numbers = row.numbers;
        Units const unit = writing.format.engineering_prefix ? Choose_prefix(numbers, C_Volts, writing) : C_Volts;
        EXPECT_EQ(Write_numbers(numbers, Format_unit(unit), writing), row.text) << row.format;
    }
}

TEST(Written_numbers, Are_as_short_as_their_bounds_allow) {
    std::mt19937_64 random(22);
    Writing writing;
    writing.format.bounds = Bounds_style::hidden;
    writing.bounds = Bound_rounding::outward;
    writing.within_bounds = true;
    for (int k = 0; k < 20000 && !::testing::Test::HasFailure(); ++k) {
        double const value = Hard_number(random);
        bool const is_least = k % 3 == 0;
        double const lower = is_least ? value : std::nextafter(value, -infinity);
        double const upper = !is_least && k % 3 == 1 ? value : std::nextafter(value, infinity);
        if (std::isinf(lower) || std::isinf(upper)) {
            continue;
        }
        std::string const text = Write_numbers({value, lower, upper}, "", writing);
        SCOPED_TRACE(text);
        Fraction const shown = Read(text).number;
        EXPECT_TRUE(Fraction(lower) <= shown && shown <= Fraction(upper));
        Fraction const coarser = Read(text).unit * Fraction(10.0);
        bool const ends_in_zeros = text[std::min(text.find('e'), text.size()) - 1] == '0';
        EXPECT_TRUE(ends_in_zeros || !(Fraction(lower).Next_multiple(coarser) <= Fraction(upper))) << "a digit less would do";
    }
}

TEST(Written_numbers, Enclose_as_doubles_with_the_shortest_digits) {
    std::mt19937_64 random(23);
    for (int k = 0; k < 20000 && !::testing::Test::HasFailure(); ++k) {
        double const value = Hard_number(random);
        Exact_numbers const doubles = Enclosing_doubles({value, value, value});
        SCOPED_TRACE(::testing::PrintToString(value));
        EXPECT_EQ(doubles.value, value);
        EXPECT_TRUE(doubles.lower == -infinity || Read(Format_number(doubles.lower)).number <= Fraction(value));
        EXPECT_TRUE(doubles.upper == infinity || Fraction(value) <= Read(Format_number(doubles.upper)).number);
        EXPECT_GE(doubles.lower, std::nextafter(value, -infinity));
        EXPECT_LE(doubles.upper, std::nextafter(value, infinity));
    }
}

} // namespace
} // namespace Varnix::Value::Tests
