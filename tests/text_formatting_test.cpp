// Quantities written as text: the digits and bounds by table, and that the default text reads back
// to the same bits and the same unit.

#include "Named_constants.h"
#include "Test_support.h"

#include <varnix/value/Text_formatting.h>
#include <varnix/value/Text_parsing.h>
#include <varnix/value/text_fmt.h>

#include <clocale>
#include <limits>
#include <locale>
#include <random>
#include <sstream>

namespace Varnix::Value::Tests {
namespace {

using Limits = std::numeric_limits<double>;

static_assert(Read_text_format("").digits == Digits::shortest);
static_assert(Read_text_format(".2f~k").count == 2 && Read_text_format(".2f~k").engineering_prefix);

// ---- By table

struct Format_case {
    char const* name;
    Quantity quantity;
    char const* format;
    char const* text;
};

class Formats : public ::testing::TestWithParam<Format_case> {};

// Every row by `Format`, by {fmt}, and by {fmt} with the format at run time.
TEST_P(Formats, Are_written) {
    Format_case const& row = GetParam();
    EXPECT_EQ(Format(row.quantity, Read_text_format(row.format)), row.text);
    EXPECT_EQ(fmt::format(fmt::runtime("<{:" + std::string(row.format) + "}>"), row.quantity), '<' + std::string(row.text) + '>');
}

Quantity Q(double value, Units const& unit) {
    return Quantity(value, unit, value, value);
}

Quantity Q(double value, double lower, double upper, Units const& unit) {
    return Quantity(value, unit, lower, upper);
}

// clang-format off
Format_case const format_cases[] = {
    // Shortest digits.
    {"Level",               Q(30, 29, 31, C_DBmW),                    "",      "30 dBm [29, 31]"},
    {"ExactBounds",         Q(5, C_Volts),                            "",      "5 V"},
    {"OneBound",            Q(5, 5, 6, C_Volts),                      "",      "5 V [5, 6]"},
    {"ShortestDigits",      Q(0.1 + 0.2, C_Watts),                    "",      "0.30000000000000004 W"},
    {"SmallestNumber",      Q(Limits::denorm_min(), C_Watts),         "",      "5e-324 W"},
    {"LargestNumber",       Q(Limits::max(), C_Watts),                "",      "1.7976931348623157e+308 W"},
    {"NegativeZero",        Q(-0.0, C_Watts),                         "",      "-0 W"},
    {"NotFinite",           Q(Limits::quiet_NaN(), -Limits::infinity(), Limits::infinity(), C_Watts), "", "nan W [-inf, inf]"},
    {"NegativeNotANumber",  Q(-Limits::quiet_NaN(), C_Watts),         "",      "nan W"},
    {"NoUnit",              Q(3, 2, 4, C_Empty),                      "",      "3 [2, 4]"},
    {"PlainDecibels",       Q(3, C_DB),                               "",      "3 dB"},
    {"Celsius",             Q(-40, C_DgreeC),                         "",      "-40 °C"},

    // Significant digits keep their zeros; decimals may leave none.
    {"Significant",         Q(5, 4.9, 5.15, C_Volts),                 ".3",    "5.00 V [4.90, 5.15]"},
    {"SignificantCarry",    Q(9.996, C_Volts),                        ".3",    "10.0 V"},
    {"SignificantLarge",    Q(123456, C_Volts),                       ".3",    "1.23e+05 V"},
    {"SignificantWhole",    Q(123, C_Volts),                          ".3",    "123 V"},
    {"SignificantSmall",    Q(0.0000123456, C_Volts),                 ".3",    "0.0000123 V"},
    {"SignificantTiny",     Q(0.00000123456, C_Volts),                ".3",    "1.23e-06 V"},
    {"SignificantZero",     Q(0, C_Volts),                            ".2",    "0.0 V"},
    {"SignificantNotFinite", Q(-Limits::infinity(), C_Volts),         ".2",    "-inf V"},
    {"Decimals",            Q(1234.567, C_Volts),                     ".1f",   "1234.6 V"},
    {"NoDecimals",          Q(2.5, C_Volts),                          ".0f",   "2 V"}, // to the even one
    {"MoreThanThereAre",    Q(0.1, C_Volts),                          ".20f",  "0.10000000000000000555 V"},

    // Digits set by the bounds: two of half the band.
    {"ByBounds",            Q(1.23456, 1.2, 1.26, C_Watts),           "b",     "1.235 W [1.200, 1.260]"},
    {"ByBoundsCarry",       Q(1.23456, 1.135, 1.3349, C_Watts),       "b",     "1.23 W [1.14, 1.33]"}, // half of 0.1999 is 0.10
    {"ByBoundsWide",        Q(56789, 55555, 58023, C_Watts),          "b",     "56800 W [55600, 58000]"},
    {"ByBoundsOutside",     Q(3, 1e3, 5e3, C_Watts),                  "b",     "0 W [1000, 5000]"},
    {"ByBoundsHuge",        Q(1.2346e20, 1.2e20, 1.3e20, C_Watts),    "b",     "1.235e+20 W [1.200e+20, 1.300e+20]"},
    {"ByBoundsNoBand",      Q(1.23456, C_Watts),                      "b",     "1.23456 W"},
    {"ByBoundsInfinite",    Q(1.5, 1, Limits::infinity(), C_Watts),   "b",     "1.5 W [1, inf]"},
    {"ByBoundsOverflow",    Q(1, -Limits::max(), Limits::max(), C_Watts), "b", "1e+00 W [-1.8e+308, 1.8e+308]"},

    // ± where it says the same.
    {"Symmetric",           Q(5, 4.9, 5.1, C_Volts),                  "p",     "5 ± 0.1 V"},
    {"AlmostSymmetric",     Q(5, 4.9, 5.1000000000000005, C_Volts),   "p",     "5 V [4.9, 5.1000000000000005]"},
    {"SymmetricWhenRounded", Q(5, 4.9, 5.1000000000000005, C_Volts),  ".2fp",  "5.00 ± 0.10 V"},
    {"NotSymmetric",        Q(5, 4.9, 5.2, C_Volts),                  "p",     "5 V [4.9, 5.2]"},
    {"OutsideItsBounds",    Q(5, 6, 4, C_Volts),                      "p",     "5 ± 1 V"}, // the constructor orders them
    {"BelowItsBounds",      Q(3, 4, 5, C_Volts),                      "bp",    "3.00 V [4.00, 5.00]"},
    {"SymmetricByBounds",   Q(30, 29, 31, C_DBmW),                    "bp",    "30.0 ± 1.0 dBm"},
    {"SymmetricExponent",   Q(1234567, 1224567, 1244567, C_Volts),    ".3p",   "1.23e+06 ± 1e+04 V"},
    {"Hidden",              Q(30, 29, 31, C_DBmW),                    "~",     "30 dBm"},
    {"HiddenByBounds",      Q(30, 29, 31, C_DBmW),                    "b~",    "30.0 dBm"},

    // Prefixes, where they are usual.
    {"Kilo",                Q(1234.5, 1234, 1235, C_Meter),           "bpk",   "1.23450 ± 0.00050 km"},
    {"Micro",               Q(2e-6, C_Amps),                          "k",     "2 µA"},
    {"FromCenti",           Q(250, C_CentiMeter),                     "k",     "2.5 m"},
    {"FromKilo",            Q(0.5, C_KiloWatts),                      "k",     "500 W"},
    {"CarriedOver",         Q(999.9996, C_Watts),                     ".3k",   "1.00 kW"},
    {"Negative",            Q(-4700, C_Ohms),                         "k",     "-4.7 kohm"},
    {"BelowPico",           Q(1e-15, C_Sec),                          "k",     "0.001 ps"},
    {"Frequency",           Q(2.4e9, C_Hz),                           "k",     "2.4 GHz"},
    {"ZeroStays",           Q(0, C_KMeter),                           "k",     "0 km"},
    {"FeetStay",            Q(5280, C_Ft),                            "k",     "5280 ft"},
    {"SpeedsStay",          Q(5000, C_MeterPerSecond),                "k",     "5000 m/s"},
    {"AreasStay",           Q(5000, Unit({{METER, 2}})),              "k",     "5000 m^2"},
    {"LevelsStay",          Q(5000, C_DBW),                           "k",     "5000 dBW"},
    {"BinaryStays",         Q(5000, C_KiBytes),                       "k",     "5000 KiB"},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Text, Formats, ::testing::ValuesIn(format_cases), [](auto const& row) { return std::string(row.param.name); });

TEST(Formats, Refuse_what_they_do_not_know) {
    for (char const* const text : {".", ".f", ".0", ".101", ".99999999999", "x", "bb", "pb", "p~", "kp", ".3 ", "b.3"}) {
        Text_format format;
        format.count = -7;
        EXPECT_FALSE(Try_read_text_format(text, format)) << text;
        EXPECT_EQ(format.count, -7) << text;
        EXPECT_THROW(Read_text_format(text), std::invalid_argument) << text;
        EXPECT_THROW(static_cast<void>(fmt::format(fmt::runtime("{:" + std::string(text) + '}'), Quantity())), fmt::format_error) << text;
    }
}

TEST(Formats, Take_counts_beyond_as_the_nearest) {
    Text_format format;
    format.digits = Digits::significant;
    format.count = -5;
    EXPECT_EQ(Format_number(2.5, format), "2");
    format.count = std::numeric_limits<int>::max();
    EXPECT_EQ(Format_number(1, format).size(), 101U);
    format.digits = Digits::decimals;
    EXPECT_EQ(Format_number(-Limits::max(), format).size(), 1U + 309 + 1 + 100);
}

// ---- Units

struct Unit_case {
    char const* name;
    Units unit;
    char const* symbol;
    char const* full_name;
};

class Unit_texts : public ::testing::TestWithParam<Unit_case> {};

TEST_P(Unit_texts, Are_explicit_where_the_plain_one_is_not) {
    EXPECT_EQ(Format_unit(GetParam().unit), GetParam().symbol);
    EXPECT_EQ(Format_unit(GetParam().unit, STR_NAME), GetParam().full_name);
}

// clang-format off
Unit_case const unit_cases[] = {
    {"Speed",        C_Kmph,                                         "Km/h",            "kilometer/hour"},
    {"Product",      Unit({{METER, 1}, {SECOND, 1}}),                "m*s",             "meters*seconds"}, // "ms" are milliseconds
    {"Denominators", Unit({{METER, 1}, {KELVIN, -1}, {SECOND, -1}}), "m/Ks",            "meters/kelvinseconds"},
    {"TwoProducts",  Unit({{AMP, 1}, {METER, 1}, {KELVIN, -1}, {MINUTE, -1}}), "Am/Kmin", "ampsmeters/kelvinminutes"},
    {"KiloArea",     Unit({{METER, 2}}, KILO),                       "km^2",            "kilometers^2"}, // a thousand square metres
    {"LevelOfMeter", Unit({{METER, 1}}, NO_PREFIX, SPL_DB),          "dB(m)",           "dBmeters"}, // "dBm" has watts
    {"MilliInch",    Unit({{INCH, 1}}, MILLI),                       "milliinches",     "milliinches"}, // "min" is the minute, "m(in)" a metre
    {"MilliPerBit",  Unit({{BIT, -1}}, MILLI),                       "milli/bits",      "milli/bits"}, // "m/b" has metres
    {"PerSecond",    Unit({{SECOND, -1}}, CENTI),                    "c/s",             "centi/seconds"},
    {"Unknown",      Unit({{unknown_unit, 1}}),                      "",                ""},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Text, Unit_texts, ::testing::ValuesIn(unit_cases), [](auto const& row) { return std::string(row.param.name); });

// ---- Printing and reading

void Expect_round_trip(Quantity const& quantity, Unit_string_type spelling = STR_SYMBOL) {
    Text_format format;
    format.unit = spelling;
    for (Bounds_style const style : {Bounds_style::interval, Bounds_style::symmetric}) {
        format.bounds = style;
        std::string const text = Format(quantity, format);
        auto const read = Try_parse_quantity(text, {false, true});
        ASSERT_TRUE(read) << text << ": " << read.Get_fault().message;
        EXPECT_TRUE(Is(*read, quantity.Get_value(), quantity.Get_minus_err(), quantity.Get_plus_err(), quantity.Get_unit())) << text;
    }
}

// A number of any size, with all its bits.
double Any_number(std::mt19937_64& random) {
    double number = 0.0;
    do {
        std::uint64_t const bits = random();
        std::memcpy(&number, &bits, sizeof number);
    } while (!std::isfinite(number));
    return number;
}

TEST(Round_trip, Gives_back_the_bits_in_every_named_unit) {
    std::mt19937_64 random(5);
    for (Named_constant const& named : named_constants) {
        SCOPED_TRACE(named.name);
        for (int k = 0; k < 50; ++k) {
            double const value = Any_number(random);
            Expect_round_trip(Quantity(value, *named.unit, Any_number(random), Any_number(random)), STR_NAME);
            double const distance = std::abs(value) / static_cast<double>(k + 2);
            Expect_round_trip(Quantity(value, *named.unit, value - distance, value + distance));
        }
    }
}

// A canonical unit of one to five tuples.
Units Any_unit(std::mt19937_64& random) {
    Units unit = {random() % 4 == 0 ? SPL_DB : SPL_NONE, NO_PREFIX, {}};
    if (random() % 2 == 0) {
        constexpr SI_units prefixes[] = {PICO, MILLI, CENTI, DECI, KILO, MEGA, YOTTA, KIBI, YOBI};
        unit.si_prefix = prefixes[random() % std::size(prefixes)];
    }
    std::size_t const count = 1 + random() % 5;
    std::size_t used = 0;
    for (int dimension = DIMENSIONLESS; dimension <= TIME && used < count; ++dimension) {
        auto const code = static_cast<Units_list>(1 + random() % 33);
        if (Units_library::Get_dimension(code) == dimension) {
            int const exponent = static_cast<int>(random() % 6) - 3;
            unit.tuples[used++] = {code, exponent >= 0 ? exponent + 1 : exponent};
        }
    }
    return used == 0 ? Any_unit(random) : unit;
}

TEST(Round_trip, Gives_back_any_canonical_unit) {
    std::mt19937_64 random(6);
    for (int k = 0; k < 20000; ++k) {
        Units const unit = Any_unit(random);
        SCOPED_TRACE(::testing::PrintToString(unit));
        Expect_round_trip(Q(1, unit), k % 2 == 0 ? STR_SYMBOL : STR_NAME);
        if (HasFatalFailure()) {
            return;
        }
    }
}

// ---- Streams

// A locale with decimal commas and grouped thousands, which must change nothing.
struct Commas : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    std::string do_grouping() const override { return "\3"; }
};

TEST(Streams, Write_the_same_in_every_locale) {
    std::ostringstream stream;
    stream.imbue(std::locale(std::locale::classic(), new Commas));
    stream.precision(2);
    stream << Q(12345.678, 12345, 12346, C_Meter);
    EXPECT_EQ(stream.str(), "12345.678 m [12345, 12346]");
}

} // namespace
} // namespace Varnix::Value::Tests
