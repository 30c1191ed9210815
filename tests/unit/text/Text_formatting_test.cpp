// Quantities written as text: the digits and bounds by table, and that the default text reads back
// to the same bits and the same unit.

#include "Named_constants.h"
#include "Random_numbers.h"
#include "Test_support.h"

#include <varnix/value/Text_formatting.h>
#include <varnix/value/Text_parsing.h>
#include <varnix/value/text_fmt.h>

#include <fstream>
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

Quantity Q(double value, Units const& unit) {
    return Quantity(value, unit, value, value);
}

// "FORMAT: QUANTITY = TEXT", by `Format` and by {fmt}.
TEST(Formats, Are_written_as_in_the_table) {
    std::ifstream file(VALUE_OBJECT_TEST_CASES "/formatting.txt");
    int rows = 0;
    for (std::string row; std::getline(file, row);) {
        if (row.empty() || row[0] == '#') {
            continue;
        }
        ++rows;
        SCOPED_TRACE(row);
        std::size_t const colon = row.find(": ");
        std::size_t const equals = row.find(" = ");
        ASSERT_TRUE(colon != std::string::npos && equals != std::string::npos);
        std::string const format = row.substr(0, colon);
        Quantity const quantity = Parse_quantity(row.substr(colon + 2, equals - colon - 2), {false, true});
        std::string const text = row.substr(equals + 3);
        EXPECT_EQ(Format(quantity, Read_text_format(format)), text);
        EXPECT_EQ(fmt::format(fmt::runtime("<{:" + format + "}>"), quantity), '<' + text + '>');
    }
    EXPECT_GT(rows, 50);
}

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

SI_units Power_of_ten(int exponent) {
    return static_cast<SI_units>(exponent);
}

class Unit_texts : public ::testing::TestWithParam<Unit_case> {};

TEST_P(Unit_texts, Are_explicit_where_the_plain_one_is_not) {
    EXPECT_EQ(Format_unit(GetParam().unit), GetParam().symbol);
    EXPECT_EQ(Format_unit(GetParam().unit, STR_NAME), GetParam().full_name);
}

// clang-format off
Unit_case const unit_cases[] = {
    {"Speed",        C_Kmph,                                         "km/h",            "kilometer/hour"}, // the core's symbol is "Km/h"
    {"Product",      Unit({{METER, 1}, {SECOND, 1}}),                "m*s",             "meters*seconds"}, // "ms" are milliseconds
    {"Denominators", Unit({{METER, 1}, {KELVIN, -1}, {SECOND, -1}}), "m/Ks",            "meters/kelvinseconds"},
    {"TwoProducts",  Unit({{AMP, 1}, {METER, 1}, {KELVIN, -1}, {MINUTE, -1}}), "Am/Kmin", "ampsmeters/kelvinminutes"},
    {"KiloArea",     Unit({{METER, 2}}, KILO),                       "k(m^2)",          "kilo(meters^2)"}, // a thousand square metres
    {"LevelOfMeter", Unit({{METER, 1}}, NO_PREFIX, SPL_DB),          "dB(m)",           "dBmeters"}, // "dBm" has watts
    {"MilliInch",    Unit({{INCH, 1}}, MILLI),                       "milli(in)",       "milliinches"}, // "min" is the minute, "m(in)" a metre
    {"MilliPerBit",  Unit({{BIT, -1}}, MILLI),                       "milli(1/b)",      "milli/bits"}, // "m/b" has metres
    {"PerSecond",    Unit({{SECOND, -1}}, CENTI),                    "cHz",             "centihertz"},
    {"PerTera",      C_THz,                                          "THz",             "terahertz"}, // the core has no name for it
    {"SquareKilo",   Unit({{METER, 2}}, MEGA),                       "(km)^2",          "(kilometers)^2"},
    {"SquareCenti",  Unit({{METER, 2}}, Power_of_ten(-4)),           "(cm)^2",          "(centimeters)^2"}, // no prefix has 10^-4
    {"SquareKibi",   Unit({{BYTE, 2}}, MEBI),                        "(KiB)^2",         "(kibibytes)^2"},
    {"PerCenti",     Unit({{VOLT, 1}, {METER, -1}}, Power_of_ten(2)), "V/cm",           "volts/centimeters"},
    {"Exposure",     Unit({{WATT, 1}, {METER, -2}}, Power_of_ten(1)), "mW/cm^2",       "milliwatts/centimeters^2"},
    {"NoPrefix",     Unit({{METER, 1}}, Power_of_ten(5)),            "(10^5 m)",        "(10^5 meters)"},
    {"SmallNoPrefix", Unit({{METER, 2}, {SECOND, -1}}, Power_of_ten(-7)), "(10^-7 m^2/s)", "(10^-7 meters^2/seconds)"},
    {"PerHertz",     Unit({{WATT, 1}, {SECOND, 1}}, MILLI, SPL_DB),  "dBm/Hz",          "dBmilliwatts/hertz"},
    {"PerKilohertz", Unit({{WATT, 1}, {SECOND, 1}}, MICRO, SPL_DB),  "dBm/kHz",         "dBmicrowatts/hertz"},
    {"WattsPerHertz", Unit({{WATT, 1}, {SECOND, 1}}, NO_PREFIX, SPL_DB), "dBW/Hz",      "dBwatts/hertz"},
    {"Linear",       Unit({{WATT, 1}, {SECOND, 1}}),                 "Ws",              "wattsseconds"},
    {"Hertz",        Unit({{SECOND, -1}}, NO_PREFIX, SPL_DB),        "dB-Hz",           "dBhertz"},
    {"Area",         Unit({{METER, 2}}, NO_PREFIX, SPL_DB),          "dBsm",            "dBmeters^2"},
    {"PerKelvin",    Unit({{KELVIN, -1}}, NO_PREFIX, SPL_DB),        "dB/K",            "dB(/kelvin)"},
    {"Unknown",      Unit({{unknown_unit, 1}}),                      "",                ""},
    {"NoSuchPrefix", Unit({{VOLT, 1}}, Power_of_ten(99)),            "(10^99 V)",       "(10^99 volts)"}, // refused: "V" is another unit
    {"LeastPrefix",  Unit({{VOLT, -1}}, Power_of_ten(INT32_MIN)),    "(10^-2147483648 V^-1)", "(10^-2147483648 volts^-1)"},
    {"ZeroPower",    Unit({{VOLT, 0}}),                              "(10^0 V^0)",      "(10^0 volts^0)"},
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
    auto const count = static_cast<std::size_t>(1 + random() % 5);
    std::size_t used = 0;
    for (int dimension = DIMENSIONLESS; dimension < Value_detail::Dimension_limit && used < count; ++dimension) {
        auto const code = static_cast<Units_list>(1 + random() % (Value_detail::Unit_code_limit - 1));
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
    stream << Quantity(12345.678, C_Meter, 12345, 12346);
    EXPECT_EQ(stream.str(), "12345.678 m [12345, 12346]");
}

TEST(Formats, Print_bounds_in_ascending_order) {
    Quantity const power(10.0, C_Watts, 9.0, 11.0);
    EXPECT_EQ(Format(power.Convert_to_with_value(C_Volts, Quantity(2.0, C_Amps, 1.0, 4.0))), "5 V [2.75, 9]");
}

TEST(Formats, Print_numbers_that_are_not_finite) {
    EXPECT_EQ(Format_number(HUGE_VAL, Read_text_format(".3")), "inf");
    EXPECT_EQ(Format(Quantity(-HUGE_VAL, C_Volts, -HUGE_VAL, 1.0), Read_text_format(".2f")), "-inf V [-inf, 1.00]");
}

} // namespace
} // namespace Varnix::Value::Tests
