// The catalogue, as it shows through the unit algebra, and the algebra itself.

#include "All_constants.h"
#include "Test_support.h"

#include <cmath>
#include <limits>

namespace Varnix::Value::Tests {
namespace {

constexpr std::int32_t lowest = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t highest = std::numeric_limits<std::int32_t>::max();

// The four spellings, "symbol|name|lower|upper".
std::string Spellings(Units const& unit) {
    auto const spelled = [&unit](Unit_string_type type) { return Units_library::Get_unit_string(unit, type); };
    return spelled(STR_SYMBOL) + '|' + spelled(STR_NAME) + '|' + spelled(STR_LOWER_CASE) + '|' + spelled(STR_UPPER_CASE);
}

// ---- The catalogue

// clang-format off
struct Catalogue_row { Units_list unit; int code; Dimension dimension; Units_list base; Units_list reference; double factor; char const* spellings; };
Catalogue_row const catalogue[] = {
    {METER,         1,  LENGTH,        METER,    METER,   1.0,                "m|meters|m|M"},
    {INCH,          2,  LENGTH,        METER,    METER,   0.0254,             "in|inches|in|IN"},
    {FOOT,          3,  LENGTH,        METER,    METER,   0.3048,             "ft|feet|ft|FT"},
    {YARD,          32, LENGTH,        METER,    METER,   0.9144,             "yd|yard|yd|YD"},
    {MILE,          4,  LENGTH,        METER,    METER,   1609.34,            "mi|miles|mi|MI"},
    {NAUTICAL_MILE, 25, LENGTH,        METER,    METER,   1852.0,             "n.mi|nautical_miles|n.mi|N.MI"},
    {SECOND,        5,  TIME,          SECOND,   SECOND,  1.0,                "s|seconds|s|S"},
    {MINUTE,        19, TIME,          SECOND,   SECOND,  60.0,               "min|minutes|min|MIN"},
    {HOUR,          20, TIME,          SECOND,   SECOND,  3600.0,             "h|hours|h|H"},
    {DAY,           21, TIME,          SECOND,   SECOND,  86400.0,            "dy|days|dy|DY"},
    {WEEK,          22, TIME,          SECOND,   SECOND,  604800.0,           "wk|weeks|wk|WK"},
    {MONTH,         23, TIME,          SECOND,   SECOND,  2678400.0,          "mo|months|mo|MO"},
    {YEAR,          24, TIME,          SECOND,   SECOND,  31556926.0,         "yr|years|yr|YR"},
    {RADIAN,        6,  DIMENSIONLESS, RADIAN,   PERCENT, 0.1590909 / 0.01,   "rad|radians|rad|RAD"},
    {DEGREE,        7,  DIMENSIONLESS, DEGREE,   PERCENT, 0.002777 / 0.01,    "deg|degrees|deg|DEG"},
    {DEGREE_C,      16, TEMPERATURE,   DEGREE_C, KELVIN,  1.0,                "°C|degreeCelsius|c|C"},
    {DEGREE_F,      17, TEMPERATURE,   DEGREE_C, KELVIN,  1.0,                "°F|degreeFahrenheit|f|F"},
    {KELVIN,        18, TEMPERATURE,   DEGREE_C, KELVIN,  1.0,                "K|kelvin|k|K"},
    {PERCENT,       8,  DIMENSIONLESS, PERCENT,  PERCENT, 0.01 / 0.01,        "%|percent|pct|PCT"},
    {PPM,           9,  DIMENSIONLESS, PPM,      PERCENT, 0.000001 / 0.01,    "ppm|ppm|ppm|PPM"},
    {PPB,           10, DIMENSIONLESS, PPB,      PERCENT, 0.000000001 / 0.01, "ppb|ppb|ppb|PPB"},
    {GRAM,          11, MASS,          GRAM,     GRAM,    1.0,                "g|grams|g|G"},
    {WATT,          12, POWER,         WATT,     WATT,    1.0,                "W|watts|w|W"},
    {VOLT,          13, VOLTAGE,       VOLT,     VOLT,    1.0,                "V|volts|v|V"},
    {OHM,           14, RESISTANCE,    OHM,      OHM,     1.0,                "ohm|ohms|ohm|OHM"},
    {AMP,           15, CURRENT,       AMP,      AMP,     1.0,                "A|amps|a|A"},
    {BIT,           26, DATA_SIZE,     BIT,      BIT,     1.0,                "b|bits|b|B"},
    {NYBBLE,        27, DATA_SIZE,     BIT,      BIT,     4.0,                "Nyb|nybble|n|N"},
    {BYTE,          28, DATA_SIZE,     BIT,      BIT,     8.0,                "B|bytes|b|B"},
    {OCTET,         29, DATA_SIZE,     BIT,      BIT,     8.0,                "Octets|octets|o|O"},
    {WORD,          30, DATA_SIZE,     BIT,      BIT,     16.0,               "Wrds|words|w|W"},
    {DWORD,         31, DATA_SIZE,     BIT,      BIT,     32.0,               "Dwrds|dwords|d|D"},
    {SYMBOL,        33, DIMENSIONLESS, SYMBOL,   PERCENT, 0.01 / 0.01,        "sym|symbols|sym|SYM"},
};

struct Prefix_row { SI_units prefix; char const* spellings; };
Prefix_row const prefixes[] = {
    {PICO,  "p|pico|p|P"},
    {NANO,  "n|nano|n|N"},
    {MICRO, "µ|micro|u|U"},
    {MILLI, "m|milli|m|M"},
    {CENTI, "c|centi|c|C"},
    {DECI,  "d|deci|d|D"},
    {KILO,  "k|kilo|k|K"},
    {MEGA,  "M|mega|MA|MA"},
    {GIGA,  "G|giga|G|G"},
    {TERA,  "T|tera|T|T"},
    {PETA,  "P|peta|pe|PE"},
    {EXA,   "E|exa|ex|EX"},
    {ZETTA, "Z|zetta|ze|ZE"},
    {YOTTA, "Y|yotta|yo|YO"},
    {KIBI,  "Ki|kibi|Ki|KI"},
    {MEBI,  "Mi|mebi|Mi|MI"},
    {GIBI,  "Gi|gibi|Gi|GI"},
    {TEBI,  "Ti|tebi|Ti|TI"},
    {PEBI,  "Pi|pebi|Pi|PI"},
    {EXBI,  "Ei|exbi|Ei|EI"},
    {ZEBI,  "Zi|zebi|Zi|ZI"},
    {YOBI,  "Yi|yobi|Yi|YI"},
};
// clang-format on

TEST(Catalogue, Describes_every_unit) {
    for (Catalogue_row const& row : catalogue) {
        SCOPED_TRACE(row.spellings);
        EXPECT_EQ(row.unit, row.code);
        EXPECT_EQ(Units_library::Get_dimension(row.unit), row.dimension);
        EXPECT_EQ(Units_library::Get_base_unit(Unit({{row.unit, 3}}, KILO)), Unit({{row.base, 3}}));
        EXPECT_EQ(Units_library::Get_tuple_conversion_factor({row.unit, 1}, {row.reference, 1}), row.factor);
        EXPECT_EQ(Spellings(Unit({{row.unit, 1}})), row.spellings);
    }
}

TEST(Catalogue, Spells_every_prefix) {
    for (Prefix_row const& row : prefixes) {
        SCOPED_TRACE(row.spellings);
        EXPECT_EQ(Spellings({SPL_NONE, row.prefix, {}}), row.spellings);
        bool const binary = row.prefix >= 10 && row.prefix % 10 == 0;
        EXPECT_EQ(Units_library::Get_unit_base({SPL_NONE, row.prefix, {}}), binary ? 2.0 : 10.0);
    }
    EXPECT_EQ(Units_library::Get_unit_base(C_Meter), 10.0);
    EXPECT_EQ(Units_library::Get_unit_str_si_map({SPL_NONE, static_cast<SI_units>(5), {}}, STR_NAME), "");
}

TEST(Catalogue, Names_93_constants_in_canonical_order) {
    EXPECT_EQ(std::size(all_constants), 93u);
    for (Named_unit const& row : all_constants) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(Units_library::Get_unit_string(*row.unit, STR_NAME), row.text);
        EXPECT_EQ(Units_library::Arrange_tuple(*row.unit), *row.unit);
    }
    EXPECT_EQ(C_Empty, Unit({{NO_UNIT, 1}}));
    EXPECT_EQ(C_DB, Unit({{NO_UNIT, 1}}, NO_PREFIX, SPL_DB));
}

// ---- Canonical order

TEST(Dimension_of, Unknown_codes) {
    EXPECT_EQ(Units_library::Get_dimension(NO_UNIT), NO_DIMENSION);
    for (std::int32_t const code : {34, -1, lowest, highest}) {
        auto const unit = static_cast<Units_list>(code);
        EXPECT_EQ(Failure_of([unit] { Units_library::Get_dimension(unit); }), not_defined) << code;
    }
}

TEST(Arranged, Ascends_by_dimension) {
    struct Row {
        Units from, to;
    };
    Row const rows[] = {
        {Unit({{SECOND, -1}, {METER, 1}}), Unit({{METER, 1}, {SECOND, -1}})},
        {Unit({{OHM, -1}, {VOLT, 2}}), C_Volt2PerOhms},
        {Unit({{SECOND, -1}, {RADIAN, 1}}, KILO, SPL_DB), Unit({{RADIAN, 1}, {SECOND, -1}}, KILO, SPL_DB)},
        {Unit({{SECOND, 1}, {METER, 0}}), Unit({{METER, 0}, {SECOND, 1}})},
        {Unit({{YEAR, 5}, {FOOT, 4}, {GRAM, 3}, {AMP, 2}, {BIT, 1}}), Unit({{BIT, 1}, {AMP, 2}, {GRAM, 3}, {FOOT, 4}, {YEAR, 5}})},
        {Unit({{SECOND, 1}, {METER, 1}, {NO_UNIT, 7}, {NO_UNIT, -2}}), Unit({{METER, 1}, {SECOND, 1}, {NO_UNIT, 7}, {NO_UNIT, -2}})},
        {Unit({}), Unit({})},
        // What has a gap comes back unchanged.
        {Unit({{NO_UNIT, 0}, {METER, 1}}), Unit({{NO_UNIT, 0}, {METER, 1}})},
        {Unit({{SECOND, 1}, {METER, 2}, {NO_UNIT, 0}, {BIT, 1}}), Unit({{SECOND, 1}, {METER, 2}, {NO_UNIT, 0}, {BIT, 1}})},
    };
    for (Row const& row : rows) {
        EXPECT_EQ(Units_library::Arrange_tuple(row.from), row.to);
    }
}

TEST(Arranged, Reports_the_first_fault) {
    struct Row {
        Units unit;
        std::string failure;
    };
    Row const rows[] = {
        {Unit({{METER, 1}, {METER, 2}}), not_proper},
        {Unit({{METER, 1}, {FOOT, -1}}), not_proper},
        {Unit({{RADIAN, 1}, {PERCENT, 1}}), not_proper},
        {Unit({{BIT, 1}, {VOLT, 1}, {WATT, 1}, {SECOND, 1}, {HOUR, 1}}), not_proper},
        {Unit({{unknown_unit, 1}}), not_defined},
        {Unit({{METER, 1}, {static_cast<Units_list>(-1), 1}}), not_defined},
        {Unit({{METER, 1}, {FOOT, 1}, {unknown_unit, 1}}), not_proper},
        {Unit({{SECOND, 1}, {METER, 1}, {FOOT, 1}, {unknown_unit, 1}}), not_defined},
    };
    for (Row const& row : rows) {
        EXPECT_EQ(Failure_of([&row] { Units_library::Arrange_tuple(row.unit); }), row.failure) << row.unit;
    }
}

// ---- Comparison

TEST(Comparison, Of_descriptors) {
    struct Row {
        Units first, second;
        bool tuples, with_prefix, all, reciprocal;
    };
    Row const rows[] = {
        {C_KiloWatts, C_Watts, true, false, false, false},
        {C_DBW, C_Watts, true, true, false, false},
        {C_MHz, C_Hz, true, false, false, false},
        {C_Mph, C_MilestPerHour, true, true, true, false},
        {C_MeterPerSecond, Unit({{SECOND, -1}, {METER, 1}}), false, false, false, false},
        {C_Empty, Unit({}), false, false, false, false},
        {C_Empty, C_Empty, true, true, true, false},
        {Unit({}), Unit({}), true, true, true, true},
        {C_Hz, C_Sec, false, false, false, true},
        {C_MHz, C_Sec, false, false, false, true},
        {C_Sec, C_Sec, true, true, true, false},
        {C_Sec, C_Min, false, false, false, false},
        {Unit({{SECOND, 1}}, NO_PREFIX, SPL_DB), C_Hz, false, false, false, false},
        {Unit({{SECOND, 1}, {NO_UNIT, 1}}), C_Hz, false, false, false, false},
        {Unit({{METER, 2}, {SECOND, -3}}), Unit({{METER, -2}, {SECOND, 3}}), false, false, false, true},
        // Sums of exponents wrap to 32 bits.
        {Unit({{METER, lowest}}), Unit({{METER, lowest}}), true, true, true, true},
    };
    for (Row const& row : rows) {
        SCOPED_TRACE(::testing::PrintToString(row.first) + " and " + ::testing::PrintToString(row.second));
        EXPECT_EQ(Units_library::Compare_units(row.first, row.second, false), row.tuples);
        EXPECT_EQ(Units_library::Compare_units(row.first, row.second, true), row.with_prefix);
        EXPECT_EQ(Units_library::Compare_units_DB(row.first, row.second, false), row.all);
        EXPECT_EQ(Units_library::Compare_units_DB(row.first, row.second, true), row.all);
        EXPECT_EQ(Units_library::Is_Invert_units(row.first, row.second), row.reciprocal);
    }
}

TEST(Base_unit, Of_descriptors) {
    EXPECT_EQ(Units_library::Get_base_unit(C_Mph), C_MeterPerSecond);
    EXPECT_EQ(Units_library::Get_base_unit(C_DBmW), C_DBW);
    EXPECT_EQ(Units_library::Get_base_unit(C_Empty), Unit({}));
    EXPECT_EQ(Units_library::Get_base_unit(Unit({{unknown_unit, 2}, {FOOT, 2}})), Unit({{NO_UNIT, 0}, {METER, 2}}));
}

TEST(Unitless, Dimensionless_units_and_none) {
    for (Units const& unit : {C_Percent, C_PPB, C_Radian, C_Degree, C_Empty, C_DB}) {
        EXPECT_TRUE(Units_library::Is_unitless(unit)) << unit;
    }
    for (Units const& unit : {C_Meter, C_Hz, C_RadianPerSec, Unit({{METER, 1}, {unknown_unit, 1}})}) {
        EXPECT_FALSE(Units_library::Is_unitless(unit)) << unit;
    }
    EXPECT_EQ(Failure_of([] { Units_library::Is_unitless(Unit({{RADIAN, 1}, {unknown_unit, 1}})); }), not_defined);
}

// ---- Products

TEST(Product, Of_descriptors) {
    struct Row {
        Units first, second, product, quotient;
    };
    Units const area = Unit({{METER, 2}});
    Units const five = Unit({{BIT, 1}, {AMP, -2}, {GRAM, 3}, {METER, -4}, {SECOND, 5}});
    Units const reciprocal = Unit({{BIT, -1}, {AMP, 2}, {GRAM, -3}, {METER, 4}, {SECOND, -5}});
    Units const squares = Unit({{BIT, 2}, {AMP, -4}, {GRAM, 6}, {METER, -8}, {SECOND, 10}});
    Row const rows[] = {
        {C_Meter, C_Meter, area, Unit({})},
        {C_MeterPerSecond, C_Sec, C_Meter, C_MeterPerSecondSquared},
        {C_Sec, C_MeterPerSecond, C_Meter, Unit({{SECOND, 2}, {METER, -1}})},
        {C_Volt2PerOhms, C_Volts, Unit({{VOLT, 3}, {OHM, -1}}), Unit({{VOLT, 1}, {OHM, -1}})},
        {C_Meter, C_Ft, Unit({{METER, 1}, {FOOT, 1}}), Unit({{METER, 1}, {FOOT, -1}})},
        {C_KiloWatts, C_Watts, Unit({{WATT, 2}}, KILO), Unit({}, KILO)},
        {C_Watts, C_KiloWatts, Unit({{WATT, 2}}), Unit({})},
        {C_DBW, C_Watts, Unit({{WATT, 2}}), Unit({})},
        {Unit({{METER, 0}}), C_Sec, Unit({{METER, 0}, {SECOND, 1}}), Unit({{METER, 0}, {SECOND, -1}})},
        {C_Meter, Unit({{SECOND, 0}}), Unit({{METER, 1}, {SECOND, 0}}), Unit({{METER, 1}, {SECOND, 0}})},
        {Unit({{NO_UNIT, 0}, {METER, 1}}), C_Sec, Unit({{METER, 1}, {SECOND, 1}}), C_MeterPerSecond},
        {C_Empty, C_Sec, C_Sec, C_Hz},
        {five, five, squares, Unit({})},
        {five, reciprocal, Unit({}), squares},
        {Unit({{BIT, 1}, {AMP, 1}, {GRAM, 1}, {METER, 1}}), C_Sec, Unit({{BIT, 1}, {AMP, 1}, {GRAM, 1}, {METER, 1}, {SECOND, 1}}),
         Unit({{BIT, 1}, {AMP, 1}, {GRAM, 1}, {METER, 1}, {SECOND, -1}})},
        // A unit that stands twice: the first pair that leaves a power counts.
        {Unit({{METER, 1}}), Unit({{METER, -1}, {METER, 2}}), Unit({{METER, 3}}), Unit({{METER, 2}})},
        // Exponents wrap to 32 bits.
        {Unit({{METER, highest}}), C_Meter, Unit({{METER, lowest}}), Unit({{METER, highest - 1}})},
        {C_Meter, Unit({{SECOND, lowest}}), Unit({{METER, 1}, {SECOND, lowest}}), Unit({{METER, 1}, {SECOND, lowest}})},
        {Unit({{METER, lowest}}), Unit({{METER, lowest}}), Unit({}), Unit({})},
    };
    for (Row const& row : rows) {
        SCOPED_TRACE(::testing::PrintToString(row.first) + " and " + ::testing::PrintToString(row.second));
        EXPECT_EQ(Units_library::Multiply_units(row.first, row.second), row.product);
        EXPECT_EQ(Units_library::Make_unit(row.first, row.second), row.product);
        EXPECT_EQ(Units_library::Divide_units(row.first, row.second), row.quotient);
    }
}

TEST(Product, Holds_five_tuples) {
    struct Row {
        Units first, second;
    };
    Row const rows[] = {
        {Unit({{BIT, 1}, {AMP, 1}, {GRAM, 1}, {METER, 1}, {SECOND, 1}}), C_Volts},
        {Unit({{BIT, 1}, {AMP, 1}, {GRAM, 1}, {METER, 1}}), Unit({{VOLT, 1}, {OHM, 1}})},
        {Unit({{BIT, 1}, {AMP, 1}, {GRAM, 1}}), Unit({{VOLT, 1}, {OHM, 1}, {WATT, 1}})},
    };
    for (Row const& row : rows) {
        EXPECT_EQ(Failure_of([&row] { Units_library::Multiply_units(row.first, row.second); }), too_many) << row.first;
        EXPECT_EQ(Failure_of([&row] { Units_library::Divide_units(row.first, row.second); }), too_many) << row.first;
    }
}

// ---- Conversion factors

TEST(Factor, Of_tuples) {
    struct Row {
        Unit_tuple from, to;
        double factor;
    };
    Row const rows[] = {
        {{METER, 1}, {FOOT, 1}, 3.280839895013123},
        {{INCH, 2}, {METER, 2}, 0.00064516},
        {{SECOND, -1}, {MINUTE, -1}, 60.0},
        {{PERCENT, 1}, {PPM, 1}, 10000.0},
        {{RADIAN, 1}, {DEGREE, 1}, 57.28876485415917},
        {{DEGREE_F, -1}, {KELVIN, 1}, 1.0},
        {{FOOT, 3}, {METER, 1}, 0.3048},
        {{FOOT, 1}, {METER, 0}, 1.0},
        {{FOOT, 0}, {METER, 1}, 0.3048},
        {{FOOT, 1}, {METER, -1}, 0.3048},
        {{FOOT, -1}, {METER, -2}, (1.0 / 0.3048) * (1.0 / 0.3048)},
        {{METER, 1}, {METER, lowest}, 1.0},
        {{HOUR, -1}, {SECOND, highest}, 0.0},
    };
    for (Row const& row : rows) {
        EXPECT_DOUBLE_EQ(Units_library::Get_tuple_conversion_factor(row.from, row.to), row.factor) << row.from.unit << " to " << row.to.unit;
    }
    EXPECT_EQ(Failure_of([] { Units_library::Get_tuple_conversion_factor({METER, 1}, {SECOND, 1}); }), not_same);
    EXPECT_EQ(Failure_of([] { Units_library::Get_tuple_conversion_factor({NO_UNIT, 0}, {METER, 1}); }), not_defined);
    EXPECT_EQ(Failure_of([] { Units_library::Get_tuple_conversion_factor({METER, 1}, {unknown_unit, 1}); }), not_defined);
}

TEST(Factor, Of_descriptors) {
    struct Row {
        Units target, source;
        double factor;
    };
    Row const rows[] = {
        {C_Meter, C_Ft, 0.3048},
        {C_MeterPerSecond, C_Mph, 1609.34 * (1.0 / 3600.0)},
        {C_Meter, C_KMeter, 1.0},
        {C_Meter, C_MeterPerSecond, 1.0},
        {C_MeterPerSecond, C_Meter, 1.0},
        {C_Empty, C_Empty, 1.0},
        {Unit({{METER, -2}}), Unit({{METER, 2}}), 1.0},
        {Unit({{BYTE, 1}, {FOOT, 1}, {MINUTE, -1}}), Unit({{BIT, 1}, {YARD, 1}, {HOUR, -1}}),
         0.125 * (0.9144 / 0.3048) * ((1.0 / 3600.0) / (1.0 / 60.0))},
    };
    for (Row const& row : rows) {
        EXPECT_EQ(Units_library::Get_conversion_factor(row.target, row.source), row.factor) << row.source << " to " << row.target;
    }
    // The first three slots' factors come to one but for rounding, which is dropped.
    Units const source = Unit({{MINUTE, 4}, {INCH, 2}, {PPM, 1}, {FOOT, 1}});
    Units const target = Unit({{SECOND, 4}, {YARD, 2}, {PERCENT, 1}, {METER, 1}});
    EXPECT_NE(std::pow(60.0, 4.0) * std::pow(0.0254 / 0.9144, 2.0) * (0.000001 / 0.01), 1.0);
    EXPECT_EQ(Units_library::Get_conversion_factor(target, source), 0.3048);
    EXPECT_EQ(Failure_of([] { Units_library::Get_conversion_factor(C_Meter, Unit({{METER, 2}})); }), not_same);
    EXPECT_EQ(Failure_of([] { Units_library::Get_conversion_factor(C_Meter, C_Sec); }), not_same);
    EXPECT_EQ(Failure_of([] { Units_library::Get_conversion_factor(C_Meter, Unit({{unknown_unit, 1}})); }), not_defined);
    EXPECT_EQ(Failure_of([] { Units_library::Get_conversion_factor(Unit({{METER, lowest}}), Unit({{METER, highest}})); }), not_same);
}

// ---- Texts

TEST(Text, In_each_spelling) {
    struct Row {
        Units unit;
        char const* spellings;
        char const* otherwise;
    };
    Row const rows[] = {
        {C_Meter, "m|meters|m|M", "M"},
        {C_KMeter, "km|kilometers|km|KM", "kiloM"},
        {C_MeterPerSecondSquared, "m/s^2|meters/seconds^2|m/s^2|M/S^2", "M/S^2"},
        {C_Volt2PerOhms, "V^2/ohm|volts^2/ohms|v^2/ohm|V^2/OHM", "V^2/OHM"},
        {C_Amps2Ohms, "A^2ohm|amps^2ohms|a^2ohm|A^2OHM", "A^2OHM"},
        {C_KiBytes, "KiB|kibibytes|Kib|KIB", "kibiB"},
        {C_MicroVolts, "\xC2\xB5V|microvolts|uv|UV", "microV"},
        {C_THz, "T/s|tera/seconds|T/s|T/S", "tera/S"},
        {C_DBW, "dBW|dBwatts|dBw|dBW", "dBW"},
        {C_DB, "dB|dB|dB|dB", "dB"},
        {C_DgreeC,
         "\xC2\xB0"
         "C|degreeCelsius|c|C",
         "C"},
        {C_Empty, "|||", ""},
        {C_Mph, "Mph|miles/hours|mph|MPH", "MPH"},
        {C_MilestPerHour, "Mph|miles/hours|mph|MPH", "MPH"},
        {C_Kmph, "Km/h|kilometer/hour|km/h|KMPH", "KMPH"},
        {C_Knots, "kts|Knots|kts|KTS", "KTS"},
        {C_Hz, "Hz|hertz|hz|HZ", "HZ"},
        {C_MHz, "MHz|megahertz|mhz|MHZ", "MHZ"},
        {C_KHz, "kHz|kilohertz|khz|KHZ", "KHZ"},
        {C_GHz, "GHz|gigahertz|ghz|GHZ", "GHZ"},
        {C_DBmW, "dBm|dBmilliwatts|dBm|DBM", "DBM"},
        {Unit({{SECOND, -1}}, MEGA, SPL_DB), "dBM/s|dBmega/seconds|dBMA/s|dBMA/S", "dBmega/S"},
        {Unit({{METER, 1}, {KELVIN, -1}, {SECOND, -1}}), "m/Ks|meters/kelvinseconds|m/ks|M/KS", "M/KS"},
        {Unit({{METER, 0}, {SECOND, lowest}}), "m/s^2147483648|meters/seconds^2147483648|m/s^2147483648|M/S^2147483648", "M/S^2147483648"},
        {Unit({{unknown_unit, 1}, {METER, 1}}), "m|meters|m|M", "M"},
        {Unit({{NO_UNIT, 1}, {METER, 1}}, KILO), "k|kilo|k|K", "kilo"},
        {Unit({{METER, 1}}, static_cast<SI_units>(5)), "m|meters|m|M", "M"},
    };
    for (Row const& row : rows) {
        EXPECT_EQ(Spellings(row.unit), row.spellings);
        EXPECT_EQ(Units_library::Get_unit_str(row.unit, static_cast<Unit_string_type>(7)), row.otherwise);
    }
}

TEST(Text, Of_the_parts) {
    EXPECT_EQ(Units_library::Get_unit_str_info_map(C_Hz, STR_SYMBOL), "/");
    EXPECT_EQ(Units_library::Get_unit_str_info_map(C_Hz, STR_LOWER_CASE), "/");
    EXPECT_EQ(Units_library::Get_unit_str_info_map(C_Hz, STR_NAME), "/seconds");
    EXPECT_EQ(Units_library::Get_unit_str_info_map(C_Hz, STR_UPPER_CASE), "/S");
    EXPECT_EQ(Units_library::Get_unit_str_info_map(C_DBmW, STR_SYMBOL), "");
    EXPECT_EQ(Units_library::Get_unit_str_spl_map(C_THz, STR_SYMBOL), "");
    EXPECT_EQ(Units_library::Get_unit_str_si_map(C_Meter, STR_SYMBOL), "");
}

} // namespace
} // namespace Varnix::Value::Tests
