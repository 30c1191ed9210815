// Decimals of texts are exact: random ones, against rational numbers.

#include <varnix/value/Measurement.h>
#include <varnix/value/Measurement_text.h>

#include <gmpxx.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <optional>
#include <random>
#include <string>

namespace Varnix::Value::Tests {
namespace {

std::mt19937_64& Random() {
    static std::mt19937_64 random(16);
    return random;
}

int Between(int least, int greatest) {
    return std::uniform_int_distribution<int>(least, greatest)(Random());
}

// ---- Decimals as texts and as rational numbers

struct Decimal {
    std::string text;
    mpq_class number;
};

mpq_class Ten_to(int power) {
    mpz_class magnitude;
    mpz_ui_pow_ui(magnitude.get_mpz_t(), 10, static_cast<unsigned long>(std::abs(power)));
    return power < 0 ? mpq_class(1, magnitude) : mpq_class(magnitude);
}

Decimal Random_decimal(int most_digits, int most_places) {
    mpz_class whole = 0;
    for (int left = Between(1, most_digits); left > 0; --left) {
        whole = whole * 10 + Between(0, 9);
    }
    whole = Between(0, 2) == 0 ? mpz_class(-whole) : whole;
    int const places = Between(0, most_places);
    return {whole.get_str() + "e-" + std::to_string(places), mpq_class(whole) * Ten_to(-places)};
}

// ---- Doubles about a rational number

double Toward_zero(mpq_class const& number) {
    return mpq_get_d(number.get_mpq_t());
}

double Rounded_down(mpq_class const& number) {
    double const near = Toward_zero(number);
    return mpq_class(near) > number ? std::nextafter(near, -std::numeric_limits<double>::infinity()) : near;
}

double Rounded_up(mpq_class const& number) {
    return -Rounded_down(-number);
}

double Rounded_to_nearest(mpq_class const& number) {
    double const below = Rounded_down(number);
    double const above = Rounded_up(number);
    mpq_class const twice = 2 * number - mpq_class(below) - mpq_class(above);
    if (twice == 0 && below != above) {
        return std::fmod(std::fabs(below) / (above - below), 2.0) == 0.0 ? below : above; // the even one
    }
    return twice <= 0 ? below : above;
}

// ---- What is asked of a measurement that stands for one rational number

void Expect_number(Measurement const& x, mpq_class const& number, std::string const& where) {
    EXPECT_EQ(x.Get_lower(), Rounded_down(number)) << where;
    EXPECT_EQ(x.Get_value(), Rounded_to_nearest(number)) << where;
    EXPECT_EQ(x.Get_upper(), Rounded_up(number)) << where;
}

// The code goes to a copy with the same doubles, as through a C struct, and to no others.
void Expect_code_carries(Measurement const& x, std::string const& where) {
    Measurement const plain(x.Get_value(), x.Get_unit(), x.Get_lower(), x.Get_upper());
    EXPECT_EQ(Compare(plain.With_decimal_code(x.Get_decimal_code()), x), Order::equal) << where;
    if (x.Get_decimal_code() != 0) {
        Measurement const other(x.Get_value(), x.Get_unit(), x.Get_lower() - 1.0, x.Get_upper());
        EXPECT_NE(other.With_decimal_code(x.Get_decimal_code()).Get_lower(), x.Get_lower()) << where;
        EXPECT_EQ(x.With_decimal_code(0).Get_decimal_code(), 0) << where;
    }
}

bool Fits(mpq_class const& number) { // in a whole number of at most 2^53 over a power of ten
    for (int places = 0; places <= 22; ++places) {
        mpq_class const scaled = number * Ten_to(places);
        if (scaled.get_den() == 1) {
            return abs(scaled.get_num()) <= mpz_class(1) << 53;
        }
    }
    return false;
}

Measurement Read(Decimal const& decimal, std::string const& unit) {
    return Parse_measurement(decimal.text + ' ' + unit);
}

constexpr int Rounds = 3000;

TEST(Decimals, Are_read_exactly) {
    for (int round = 0; round < Rounds; ++round) {
        Decimal const decimal = Random_decimal(16, 22);
        Measurement const x = Read(decimal, "V");
        Expect_number(x, decimal.number, decimal.text);
        if (Fits(decimal.number)) {
            Expect_code_carries(x, decimal.text);
            EXPECT_EQ(Compare(x, Read(decimal, "V")), Order::equal) << decimal.text;
        }
    }
}

struct Operation {
    char const* name;
    Measurement (*result)(Measurement const&, Measurement const&);
    mpq_class (*truth)(mpq_class const&, mpq_class const&);
    char const* left;
    char const* right;
};

// clang-format off
Operation const operations[] = {
    {"sum",             [](auto const& x, auto const& y) { return x + y; }, [](mpq_class const& x, mpq_class const& y) { return mpq_class(x + y); },                "V",    "V"},
    {"difference",      [](auto const& x, auto const& y) { return x - y; }, [](mpq_class const& x, mpq_class const& y) { return mpq_class(x - y); },                "V",    "V"},
    {"units apart",     [](auto const& x, auto const& y) { return x - y; }, [](mpq_class const& x, mpq_class const& y) { return mpq_class(x - y / 1000); },         "km",   "m"},
    {"levels and gain", [](auto const& x, auto const& y) { return x - y; }, [](mpq_class const& x, mpq_class const& y) { return mpq_class(x - y); },                "dBm",  "dB"},
    {"levels apart",    [](auto const& x, auto const& y) { return x - y; }, [](mpq_class const& x, mpq_class const& y) { return mpq_class(x - y - 30); },           "dBm",  "dBW"},
    {"scales",          [](auto const& x, auto const& y) { return x + y; }, [](mpq_class const& x, mpq_class const& y) { return mpq_class(x + y * mpq_class(18, 10)); }, "°F", "Δ°C"},
    {"product",         [](auto const& x, auto const& y) { return x * y; }, [](mpq_class const& x, mpq_class const& y) { return mpq_class(x * y); },                "V",    "A"},
    {"counted",         [](auto const& x, auto const& y) { return x * y; }, [](mpq_class const& x, mpq_class const& y) { return mpq_class(x * y / 100); },          "V",    "%"},
    {"pressures apart", [](auto const& x, auto const& y) { return x - y; }, [](mpq_class const& x, mpq_class const& y) { return mpq_class(x - y * 10); },           "hPa",  "kPa"},
    {"torque",          [](auto const& x, auto const& y) { return x * y; }, [](mpq_class const& x, mpq_class const& y) { return mpq_class(x * y); },                "kN",   "mm"},
    {"mass flow",       [](auto const& x, auto const& y) { return x * y; }, [](mpq_class const& x, mpq_class const& y) { return mpq_class(x * y * 60); },           "kg/min", "h"},
    {"nepers",          [](auto const& x, auto const& y) { return x + y; }, [](mpq_class const& x, mpq_class const& y) { return mpq_class(x + y); },                "Np",   "Np"},
};
// clang-format on

TEST(Decimals, Stay_exact_as_long_as_they_fit) {
    for (Operation const& operation : operations) {
        int exact = 0;
        for (int round = 0; round < Rounds; ++round) {
            Decimal const left = Random_decimal(8, 6);
            Decimal const right = Random_decimal(8, 6);
            mpq_class const truth = operation.truth(left.number, right.number);
            Measurement const result = operation.result(Read(left, operation.left), Read(right, operation.right));
            std::string const where = std::string(operation.name) + ": " + left.text + ", " + right.text;
            Expect_number(result, truth, where);
            if (Fits(truth)) {
                ++exact;
                Expect_code_carries(result, where);
            }
        }
        EXPECT_GT(exact, Rounds / 2) << operation.name;
    }
}

struct Ratio {
    char const* left;
    char const* right;
    mpq_class factor; // of the one to the other
    mpq_class offset; // behind it
};

TEST(Decimals, Are_compared_exactly_through_rational_factors) {
    Ratio const ratios[] = {
        {"V", "mV", 1000, 0},
        {"ft", "m", mpq_class(3048, 10000), 0},
        {"yd", "ft", 3, 0},
        {"m", "ft", mpq_class(10000, 3048), 0},
        {"mi", "km", mpq_class(1609344, 1000000), 0},
        {"km/h", "m/s", mpq_class(10, 36), 0},
        {"n.mi", "mi", mpq_class(1852000, 1609344), 0},
        {"Torr", "kPa", mpq_class(101325, 760000), 0},
        {"Pa", "Torr", mpq_class(760, 101325), 0},
        {"psi", "kPa", mpq_class("44482216152605/6451600000000"), 0},
        {"lb", "oz", 16, 0},
        {"gal", "l", mpq_class("3785411784/1000000000"), 0},
        {"kcal", "Wh", mpq_class(4184, 3600), 0},
        {"N*m", "J", 1, 0},
        {"kg*m/s^2", "dyn", 100000, 0},
        {"dBW", "dBm", 1, 30},
        {"°C", "K", 1, mpq_class(27315, 100)},
        {"°C", "°F", mpq_class(18, 10), 32},
        {"°F", "°C", mpq_class(5, 9), mpq_class(-160, 9)},
    };
    for (Ratio const& ratio : ratios) {
        for (int round = 0; round < Rounds / 5; ++round) {
            Decimal const left = Random_decimal(7, 5);
            mpq_class const same = left.number * ratio.factor + ratio.offset;
            // Cut off at the eighth place: the same number, or one less than 1e-8 away.
            mpq_class const scaled = same * Ten_to(8);
            mpz_class const whole = scaled.get_num() / scaled.get_den();
            Decimal const right = {whole.get_str() + "e-8", mpq_class(whole) * Ten_to(-8)};
            int const sign = cmp(same, right.number);
            Order const order = Compare(Read(left, ratio.left), Read(right, ratio.right));
            Order const expected = sign < 0 ? Order::less : sign > 0 ? Order::greater : Order::equal;
            EXPECT_EQ(order, expected) << left.text << ' ' << ratio.left << " and " << right.text << ' ' << ratio.right;
        }
    }
}

// Whatever a struct of C holds beside three numbers, it does not change them.
TEST(Decimals, Take_no_code_that_does_not_fit_the_numbers) {
    for (int round = 0; round < 100000; ++round) {
        Decimal const decimal = Random_decimal(16, 22);
        Measurement const x = Read(decimal, "V").With_decimal_code(0);
        auto const code = static_cast<std::int32_t>(Random()());
        Measurement const y = x.With_decimal_code(round % 2 == 0 ? code : (code & 0xfffff));
        EXPECT_EQ(y.Get_value(), x.Get_value());
        Measurement const zero = y - y;
        EXPECT_TRUE(zero.Get_lower() <= 0.0 && zero.Get_upper() >= 0.0) << decimal.text << ' ' << code;
    }
}

} // namespace
} // namespace Varnix::Value::Tests
