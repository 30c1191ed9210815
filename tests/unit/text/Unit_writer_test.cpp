// Units beyond the core as text: how they are written, by table, and that any reads back.

#include "Test_support.h"

#include "catalogue/Prefixes.h"
#include "catalogue/Unit_rows.h"

#include <varnix/value/Engineering_units.h>
#include <varnix/value/Text_formatting.h>
#include <varnix/value/Text_parsing.h>
#include <varnix/value/Text_writing.h>
#include <varnix/value/Unit_kinds.h>
#include <varnix/value/Units_library.h>

#include <random>
#include <vector>

namespace Varnix::Value::Tests {
namespace {

SI_units Power_of_ten(int exponent) {
    return static_cast<SI_units>(exponent);
}

// ---- By table

struct Written_unit {
    char const* text;
    Units unit;
};

// clang-format off
Written_unit const written_units[] = {
    // Alone, with the prefixes of SI.
    {"N",              Unit({{NEWTON, 1}})},
    {"hPa",            Unit({{PASCAL, 1}}, HECTO)},
    {"daN",            Unit({{NEWTON, 1}}, DECA)},
    {"fF",             Unit({{FARAD, 1}}, FEMTO)},
    {"qC",             Unit({{COULOMB, 1}}, QUECTO)},
    {"RBq",            Unit({{BECQUEREL, 1}}, RONNA)},
    {"dl",             Unit({{LITER, 1}}, DECI)},
    {"k(t)",           Unit({{TONNE, 1}}, KILO)}, // "kt" are knots
    {"k(lbf)",         Unit({{POUND_FORCE, 1}}, KILO)}, // takes no prefix
    {"(kPa)^2",        Unit({{PASCAL, 2}}, MEGA)},
    {"(hPa)^2",        Unit({{PASCAL, 2}}, Power_of_ten(4))},
    {"k(Pa^2)",        Unit({{PASCAL, 2}}, KILO)},
    {"1/mol",          Unit({{MOLE, -1}})},

    // The core's units follow.
    {"N*m",            Unit({{METER, 1}, {NEWTON, 1}})},
    {"kN*m",           Unit({{METER, 1}, {NEWTON, 1}}, KILO)},
    {"lbf*ft",         Unit({{FOOT, 1}, {POUND_FORCE, 1}})},
    {"kPa*l/s",        Unit({{SECOND, -1}, {PASCAL, 1}, {LITER, 1}}, KILO)},
    {"Pa*s",           Unit({{SECOND, 1}, {PASCAL, 1}})},
    {"mPa*s",          Unit({{SECOND, 1}, {PASCAL, 1}}, MILLI)},
    {"hPa/s",          Unit({{SECOND, -1}, {PASCAL, 1}}, HECTO)},
    {"mol/l",          Unit({{MOLE, 1}, {LITER, -1}})},
    {"J/(mol*K)",      Unit({{KELVIN, -1}, {JOULE, 1}, {MOLE, -1}})},
    {"W/(sr*m^2)",     Unit({{WATT, 1}, {METER, -2}, {STERADIAN, -1}})},
    {"µmol/(m^2*s)",   Unit({{METER, -2}, {SECOND, -1}, {MOLE, 1}}, MICRO)},
    {"g/(l*m^2)",      Unit({{GRAM, 1}, {METER, -2}, {LITER, -1}})},
    {"lm/W",           Unit({{WATT, -1}, {LUMEN, 1}})},
    {"mi/gal",         Unit({{MILE, 1}, {GALLON, -1}})},
    {"km/l",           Unit({{METER, 1}, {LITER, -1}}, KILO)},
    {"ml/min",         Unit({{MINUTE, -1}, {LITER, 1}}, MILLI)},
    {"gal/min",        Unit({{MINUTE, -1}, {GALLON, 1}})},
    {"rpm",            Unit({{REVOLUTION, 1}, {MINUTE, -1}})},
    {"rev/s",          Unit({{REVOLUTION, 1}, {SECOND, -1}})},
    {"BTU_IT/lb",      Unit({{POUND, -1}, {BRITISH_THERMAL_UNIT, 1}})},

    // Per kilogram.
    {"J/(kg*K)",       Unit({{GRAM, -1}, {KELVIN, -1}, {JOULE, 1}}, MILLI)},
    {"kJ/kg",          Unit({{GRAM, -1}, {JOULE, 1}})},
    {"mol/kg",         Unit({{GRAM, -1}, {MOLE, 1}}, MILLI)},
    {"N*m^2/kg^2",     Unit({{GRAM, -2}, {METER, 2}, {NEWTON, 1}}, MICRO)},
    {"cal/g",          Unit({{GRAM, -1}, {CALORIE, 1}})}, // no prefix is chosen for the calorie
    {"kg/mol",         Unit({{GRAM, 1}, {MOLE, -1}}, KILO)},

    // With a prefix below the line.
    {"S/cm",           Unit({{METER, -1}, {SIEMENS, 1}}, HECTO)},
    {"µS/cm",          Unit({{METER, -1}, {SIEMENS, 1}}, Power_of_ten(-4))},
    {"mJ/cm^2",        Unit({{METER, -2}, {JOULE, 1}}, DECA)},
    {"kgf/cm^2",       Unit({{METER, -2}, {KILOGRAM_FORCE, 1}}, Power_of_ten(4))},
    {"dyn/cm",         Unit({{METER, -1}, {DYNE, 1}}, HECTO)},
    {"lbf/mm",         Unit({{METER, -1}, {POUND_FORCE, 1}}, KILO)},
    {"mg/dl",          Unit({{GRAM, 1}, {LITER, -1}}, CENTI)},
    {"mg/l",           Unit({{GRAM, 1}, {LITER, -1}}, MILLI)},
    {"1/ml",           Unit({{LITER, -1}}, KILO)},
    {"cm^3/mol",       Unit({{METER, 3}, {MOLE, -1}}, MICRO)},
    {"k(gal/min)",     Unit({{MINUTE, -1}, {GALLON, 1}}, KILO)}, // not per millionth of a minute

    // The core's, as ever; and with the prefixes that it has no name for.
    {"kg*m/s^2",       Unit({{GRAM, 1}, {METER, 1}, {SECOND, -2}}, KILO)},
    {"kg*m^2/s^3",     Unit({{GRAM, 1}, {METER, 2}, {SECOND, -3}}, KILO)},
    {"k(g^2*m)",       Unit({{GRAM, 2}, {METER, 1}}, KILO)},
    {"kg/(m*s^2)",     Unit({{GRAM, 1}, {METER, -1}, {SECOND, -2}}, KILO)},
    {"mg/m^3",         Unit({{GRAM, 1}, {METER, -3}}, MILLI)},
    {"mAh",            Unit({{AMP, 1}, {HOUR, 1}}, MILLI)},
    {"Ah/V",           Unit({{VOLT, -1}, {AMP, 1}, {HOUR, 1}})},
    {"µV/m",           Unit({{VOLT, 1}, {METER, -1}}, MICRO)},
    {"W/(m*K)",        Unit({{WATT, 1}, {METER, -1}, {KELVIN, -1}})},
    {"ft/min",         C_FeetPerMinute},
    {"fA",             Unit({{AMP, 1}}, FEMTO)},
    {"hm",             Unit({{METER, 1}}, HECTO)},
    {"V/cm",           Unit({{VOLT, 1}, {METER, -1}}, HECTO)},
    {"(10^-15 ft)",    Unit({{FOOT, 1}}, FEMTO)},

    // What no text stands for.
    {"(10^0 l*Pa)",    Unit({{LITER, 1}, {PASCAL, 1}})}, // out of order
    {"(10^99 N*m^-1)", Unit({{METER, -1}, {NEWTON, 1}}, Power_of_ten(99))},
};
// clang-format on

TEST(Units_beyond_core, Are_written_as_in_the_table) {
    for (Written_unit const& row : written_units) {
        EXPECT_EQ(Format_unit(row.unit), row.text);
    }
}

TEST(Units_beyond_core, Have_names) {
    EXPECT_EQ(Format_unit(Unit({{PASCAL, 1}}, HECTO), STR_NAME), "hectopascals");
    EXPECT_EQ(Format_unit(Unit({{METER, 1}, {NEWTON, 1}}), STR_NAME), "newtons*meters");
    EXPECT_EQ(Format_unit(Unit({{GRAM, -1}, {KELVIN, -1}, {JOULE, 1}}, MILLI), STR_NAME), "joules/(kilograms*kelvin)");
    EXPECT_EQ(Format_unit(Unit({{REVOLUTION, 1}, {MINUTE, -1}}), STR_NAME), "revolutions/minutes");
    EXPECT_EQ(Format_unit(Unit({{PASCAL, 1}}, KILO), STR_LOWER_CASE), "kPa");
    EXPECT_EQ(Format_unit(Unit({{PASCAL, 1}}, KILO), STR_UPPER_CASE), "kPa");
}

// ---- The prefix that is chosen

std::string With_chosen_prefix(double number, Units const& unit) {
    Writing const writing;
    Exact_numbers numbers{number, number, number};
    Units const chosen = Choose_prefix(numbers, unit, writing);
    return Write_numbers(numbers, Format_unit(chosen), writing);
}

TEST(Units_beyond_core, Have_a_prefix_chosen_where_that_is_usual) {
    struct Row {
        double number;
        Units unit;
        char const* text;
    };
    Row const rows[] = {
        {1013.25, Unit({{PASCAL, 1}}, HECTO), "101.325 kPa"},
        {0.5, Unit({{JOULE, 1}}, KILO), "500 J"},
        {2.2e-12, Unit({{FARAD, 1}}), "2.2 pF"},
        {1e-15, Unit({{FARAD, 1}}), "0.001 pF"},
        {1e28, Unit({{ELECTRONVOLT, 1}}), "10000 YeV"},
        {5, Unit({{AMP, 1}}, FEMTO), "0.005 pA"},
        {5000, Unit({{BAR, 1}}), "5000 bar"},
        {5000, Unit({{LITER, 1}}), "5000 l"},
        {5000, Unit({{CANDELA, 1}}), "5000 cd"},
        {5000, Unit({{METER, 1}, {NEWTON, 1}}), "5000 N*m"},
        {5000, Unit({{PASCAL, 2}}), "5000 Pa^2"},
    };
    for (Row const& row : rows) {
        EXPECT_EQ(With_chosen_prefix(row.number, row.unit), row.text);
    }
}

// ---- Reading back

void Expect_read_back(Units const& unit, Unit_string_type spelling) {
    std::string const text = Format_unit(unit, spelling);
    auto const read = Try_parse_unit(text);
    ASSERT_TRUE(read) << text << ": " << read.Get_fault().message;
    EXPECT_EQ(*read, unit) << text;
}

bool Takes(Units_list unit, Catalogue::Prefix_row const& prefix) {
    using Taken = Catalogue::Prefixes_taken;
    switch (Catalogue::Row_of(unit).prefixes) {
    case Taken::none:
        return false;
    case Taken::usual:
    case Taken::chosen_usual:
        return prefix.is_of_core;
    case Taken::any:
    case Taken::chosen:
        break;
    }
    return true;
}

// Prefix and unit make one word, but where that is another unit.
TEST(Units_beyond_core, Are_written_with_every_prefix_that_they_take) {
    std::vector<std::string> others;
    for (Units const& unit : All_units()) {
        for (Catalogue::Prefix_row const& prefix : Catalogue::prefix_rows) {
            Units const prefixed = Unit({unit.tuples[0]}, prefix.prefix);
            Expect_read_back(prefixed, STR_SYMBOL);
            Expect_read_back(prefixed, STR_NAME);
            std::string const symbol = prefix.is_of_core ? Units_library::Get_unit_str_si_map(Unit({}, prefix.prefix), STR_SYMBOL) : prefix.symbol;
            std::string const word = symbol + Format_unit(unit);
            std::string const text = Format_unit(prefixed);
            if ((text == word) != Takes(unit.tuples[0].unit, prefix)) {
                others.push_back(std::string(word).append(" is ").append(text));
            }
        }
    }
    // The words on the left are "quadratmeter", gauss, knots, pints, levels in decibels and other units.
    EXPECT_EQ(others, (std::vector<std::string>{"qm is (10^-30 m)", "min is milli(in)", "Min is M(in)", "nmi is n(mi)", "Gs is giga(s)",
                                                "mb is milli(b)", "db is d(b)", "mB is milli(B)", "dB is d(B)", "PS is P(S)", "dBq is d(Bq)",
                                                "pt is p(t)", "ct is c(t)", "kt is k(t)", "pu is p(u)", "dBd is d(Bd)"}));
}

template <typename Element>
Element Any_of(std::vector<Element> const& elements, std::mt19937_64& random) {
    return elements[static_cast<std::size_t>(random() % elements.size())];
}

// In canonical order, of one to five tuples.
Units Any_unit(std::mt19937_64& random) {
    static std::vector<Units> const all = All_units();
    static std::vector<SI_units> const prefixes = All_prefixes();
    Units unit = {random() % 8 == 0 ? SPL_DB : SPL_NONE, NO_PREFIX, {}};
    unit.si_prefix = random() % 2 == 0 ? Any_of(prefixes, random) : random() % 8 == 0 ? Power_of_ten(4) : NO_PREFIX;
    std::vector<Unit_tuple> tuples;
    auto const count = static_cast<std::size_t>(1 + random() % 5);
    while (tuples.size() < count) {
        Units_list const code = Any_of(all, random).tuples[0].unit;
        bool const is_new = std::none_of(tuples.begin(), tuples.end(),
                                         [&](Unit_tuple const& own) { return Catalogue::Dimension_of(own.unit) == Catalogue::Dimension_of(code); });
        int const power = static_cast<int>(random() % 6) - 3;
        if (is_new) {
            tuples.push_back({code, power >= 0 ? power / 2 + 1 : power});
        }
    }
    std::sort(tuples.begin(), tuples.end(), [](Unit_tuple const& left, Unit_tuple const& right) {
        return Catalogue::Dimension_of(left.unit) < Catalogue::Dimension_of(right.unit);
    });
    std::copy(tuples.begin(), tuples.end(), unit.tuples);
    return unit;
}

TEST(Units_beyond_core, Read_back_in_any_product) {
    std::mt19937_64 random(8);
    for (int k = 0; k < 10000 && !HasFatalFailure(); ++k) {
        Units const unit = Any_unit(random);
        SCOPED_TRACE(::testing::PrintToString(unit));
        Expect_read_back(unit, k % 2 == 0 ? STR_SYMBOL : STR_NAME);
    }
}

} // namespace
} // namespace Varnix::Value::Tests
