// What the table of cases cannot say of measurements: construction, failures, value objects, many numbers, laws.

#include "Unknown_unit.h"

#include <varnix/value/Levels.h>
#include <varnix/value/Measurement.h>
#include <varnix/value/Measurement_converter.h>
#include <varnix/value/Measurement_text.h>
#include <varnix/value/Radio_formulas.h>
#include <varnix/value/Unit_kinds.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <random>
#include <sstream>
#include <type_traits>
#include <vector>

namespace Varnix::Value::Tests {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double not_a_number = std::numeric_limits<double>::quiet_NaN();

template <typename Left, typename Right, typename = void>
struct Is_comparable : std::false_type {};
template <typename Left, typename Right>
struct Is_comparable<Left, Right, std::void_t<decltype(std::declval<Left>() == std::declval<Right>())>> : std::true_type {};
static_assert(!Is_comparable<Measurement const&, Measurement const&>::value);

template <typename Action>
std::string Refusal_of(Action const& action) {
    try {
        action();
    } catch (MeasurementRefused const& refused) {
        std::string const text = refused.what();
        return text.substr(text.find("cannot"));
    }
    return "not refused";
}

// ---- Construction

TEST(Measurement, Takes_bounds_that_are_in_order) {
    EXPECT_EQ(Format(Measurement::Between(1.0, 4.0, C_Volts)), "2.5 V [1, 4]");
    EXPECT_EQ(Measurement::Between(-infinity, 4.0, C_Volts).Get_value(), 4.0);
    EXPECT_EQ(Measurement::Between(1.0, infinity, C_Volts).Get_value(), 1.0);
    EXPECT_EQ(Measurement::Between(1e308, 1.5e308, C_Volts).Get_value(), 1.25e308);
    EXPECT_FALSE(std::signbit(Measurement(-0.0, C_Volts).Get_value()));
    for (double const bad : {infinity, -infinity, not_a_number}) {
        EXPECT_THROW(Measurement(bad, C_Volts), MeasurementRefused);
        EXPECT_THROW(Measurement(1.0, C_Volts) * bad, MeasurementRefused);
    }
    EXPECT_THROW(Measurement(1.0, C_Volts, infinity, infinity), MeasurementRefused);
    EXPECT_THROW(Measurement(1.0, C_Volts, 0.0, not_a_number), MeasurementRefused);
    EXPECT_THROW(Measurement::Between(-infinity, infinity, C_Volts), MeasurementRefused);
    EXPECT_THROW(Measurement::Between(4.0, 1.0, C_Volts), MeasurementRefused);
    EXPECT_THROW(Measurement::Between(not_a_number, 1.0, C_Volts), MeasurementRefused);
}

TEST(Measurement, Takes_units_that_mean_something) {
    Measurement const speed(1.0, {SPL_NONE, NO_PREFIX, {{SECOND, -1}, {METER, 1}}});
    EXPECT_EQ(speed.Get_unit(), C_MeterPerSecond);
    EXPECT_EQ(Measurement(5.0, Parse_unit("cm^2")).Convert_to(Parse_unit("m^2")).Get_value(), 5e-4);
    EXPECT_THROW(Measurement(1.0, {SPL_NONE, NO_PREFIX, {{METER, 1}, {FOOT, 1}}}), UnitDimensionNotProper);
    EXPECT_THROW(Measurement(1.0, {SPL_NONE, NO_PREFIX, {{unknown_unit, 1}}}), UnitNotDefined);
    Units const meter = C_Meter;
    for (int const prefix : {-41, 41, 90, 1000}) {
        Units unit = meter;
        unit.si_prefix = static_cast<SI_units>(prefix);
        EXPECT_THROW(Measurement(1.0, unit), MeasurementRefused) << prefix;
    }
    for (std::int32_t const power : {65, -65, std::numeric_limits<std::int32_t>::max(), std::numeric_limits<std::int32_t>::min()}) {
        EXPECT_THROW(Measurement(1.0, {SPL_NONE, NO_PREFIX, {{METER, power}}}), MeasurementRefused) << power;
    }
    EXPECT_EQ(Measurement(1.0, {SPL_NONE, NO_PREFIX, {{VOLT, 0}}}).Get_unit(), C_Empty);
    EXPECT_EQ(Measurement(1.0, {SPL_NONE, KILO, {{METER, 0}, {SECOND, 1}}}).Get_unit(), Parse_unit("ks"));
    EXPECT_EQ(Format(Measurement::Difference(5.0, Parse_unit("m°F"), 4.0, 6.0)), "5 Δm°F [4, 6]");
    EXPECT_THROW(Measurement::Difference(5.0, C_Volts, 5.0, 5.0), MeasurementRefused);
    EXPECT_THROW(Measurement::Difference(5.0, C_DgreeC, 6.0, 7.0), MeasurementRefused);
    Units kilo_nothing = C_Empty;
    kilo_nothing.si_prefix = KILO;
    EXPECT_THROW(Measurement(1.0, kilo_nothing), MeasurementRefused);
    EXPECT_THROW(Measurement(1.0, {SPL_NONE, NO_PREFIX, {{METER, 65}}}), MeasurementRefused);
}

// ---- Operators with themselves and with numbers

TEST(Measurement, Changes_in_place_or_not_at_all) {
    Measurement x(6.0, C_Volts, 5.0, 7.0);
    x += Measurement(1.0, C_Volts);
    x -= Measurement(3.0, C_Volts);
    x *= Measurement(3.0, C_Empty);
    x /= Measurement(2.0, C_Empty);
    x *= 4.0;
    x /= 8.0;
    EXPECT_EQ(Format(x), "3 V [2.25, 3.75]");
    EXPECT_THROW(x += Measurement(1.0, C_Amps), MeasurementRefused);
    EXPECT_THROW(x /= 0.0, MeasurementRefused);
    EXPECT_EQ(Format(x), "3 V [2.25, 3.75]");
    x = x - x;
    EXPECT_EQ(Format(x), "0 V [-1.5, 1.5]");
    EXPECT_EQ(Format(2.0 * Measurement(3.0, C_Meter) / 4.0), "1.5 m");
    EXPECT_EQ(Format(1.0 / Measurement(4.0, C_Sec)), "0.25 Hz");
}

// ---- Refusals

TEST(Measurement, Says_what_is_in_the_way_and_the_way_out) {
    Measurement const level(10.0, C_DBmW);
    EXPECT_EQ(Refusal_of([&] { level + level; }), "cannot add 10 dBm (power) and 10 dBm (power): levels do not add; Power_sum adds the powers");
    EXPECT_EQ(Refusal_of([&] { level.Convert_to(C_Volts); }),
              "cannot convert 10 dBm (power) to V (voltage): the two are related by a third quantity; "
              "convert with a resistance (Convert_to(unit, with))");
    EXPECT_EQ(Refusal_of([] { Power_sum(nullptr, 0); }), "cannot add the powers of no levels: there is nothing to add");
    EXPECT_EQ(Refusal_of([] { Cascade_noise(nullptr, 0); }), "cannot take the noise of such a chain: there is nothing to add");
    EXPECT_EQ(Refusal_of([&] {
                  Cascade_noise({{level, Measurement(1.0, C_DB)}});
              }),
              "cannot take the noise of a chain with a gain of 10 dBm (power): this needs a gain in dB");
    EXPECT_EQ(Refusal_of([&] { Power_sum({level, Measurement(1e300, C_DBmW, -infinity, infinity)}); }), "not refused");
    MeasurementRefused refused(Refusal::not_a_gain, "cannot");
    refused = MeasurementRefused(Refusal::odd_power, "cannot at all");
    MeasurementRefused const copy(refused);
    EXPECT_EQ(copy.Get_reason(), Refusal::odd_power);
    EXPECT_STREQ(copy.what(), refused.what());
    OperationNotValid const& base = copy;
    EXPECT_NE(std::string(base.what()).find("cannot at all"), std::string::npos);
}

// ---- Value objects

TEST(Measurement, Goes_to_value_objects_and_back) {
    Value_object<double> const power(30.0, C_DBmW, 29.0, 31.0);
    EXPECT_EQ(Format(Measurement::From(power)), "30 dBm [29, 31]");
    EXPECT_EQ(Measurement::From(power).To_value_object().Get_plus_err(), 31.0);
    Value_object<double> const field(20.0, Parse_unit("dBV"), 20.0, 20.0);
    EXPECT_THROW(Measurement::From(field), MeasurementRefused);
    Measurement const displayed = Measurement::From(field, Levels::as_displayed);
    EXPECT_EQ(displayed.Convert_to(C_Volts).Get_value(), 10.0);
    EXPECT_THROW((void)displayed.To_value_object(), MeasurementRefused);
    EXPECT_EQ(displayed.To_value_object(Levels::as_displayed).Get_value(), 20.0);
    // The bounds of a conversion with a second value may be inverted.
    EXPECT_THROW(
        Measurement::From(Value_object<double>(10.0, C_Watts, 9.0, 11.0).Convert_to_with_value(C_Volts, Value_object<double>(2.0, C_Amps, 1.0, 4.0))),
        MeasurementRefused);
}

// ---- Texts

TEST(Measurement, Says_where_a_text_is_none) {
    EXPECT_EQ(Try_parse_measurement("5 V [6, 7]").Get_fault().position, 4U);
    EXPECT_EQ(Try_parse_measurement("5 dBohm").Get_fault().position, 2U);
    EXPECT_EQ(Try_parse_measurement("5 x").Get_fault().position, 2U);
    EXPECT_EQ(Try_parse_measurement("5 q").Get_fault().position, 3U); // a prefix without unit
    EXPECT_EQ(Try_parse_measurement("q").Get_fault().position, 0U);
    EXPECT_THROW(Parse_measurement("5 q"), TextNotValid);
    EXPECT_THROW(Parse_measurement("5 dBohm"), MeasurementRefused);
    EXPECT_EQ(Parse_measurement("0x1.8p1 V [0x1p-1, 0x1.0000000000001p2]", {true, true}).Get_upper(), 0x1.0000000000001p2);
    EXPECT_EQ(Parse_measurement("0x1.8p3 V [0x1p0, 0x1p4]", {true, false}).Get_value(), 12.0);
    EXPECT_FALSE(Try_parse_measurement("0x10 V"));
    EXPECT_FALSE(Try_parse_measurement("5 ± inf V", {true, false}));
    EXPECT_EQ(Parse_measurement("5 ± inf V").Get_lower(), -infinity);
}

TEST(Measurement, Is_written_in_each_format) {
    struct Row {
        char const* format;
        char const* quantity;
        char const* text;
    };
    Row const rows[] = {
        {"", "0.1 V", "0.1 V"},
        {"~", "5 V [4, 7]", "5 V"},
        {"p", "5 V [4.5, 5.5]", "5 ± 0.5 V"},
        {"p", "5 V [4.5, 6]", "5 V [4.5, 6]"},
        {"p", "5 V [4, inf]", "5 V [4, inf]"},
        {".3", "999.96 m [999, 1000.5]", "1.00e+03 m [999, 1.01e+03]"},
        {".2", "0 m [-0.011, 0.011]", "0.0 m [-0.011, 0.011]"},
        {".1f", "-2.26 V [-2.31, -2.2]", "-2.3 V [-2.4, -2.2]"},
        {".1fp", "2.25 V [2.15, 2.35]", "2.2 V [2.1, 2.4]"},
        {"b", "12345678 V [12300000, 12400000]", "12346000 V [12300000, 12400000]"},
        {"b", "1.25e-30 V [1e-30, 2e-30]", "1.25e-30 V [9.9e-31, 2.01e-30]"},
        {"b", "2.5e-12 V [1.25e-12, 3e-12]", "2.50e-12 V [1.25e-12, 3.00e-12]"},
        {"b", "0.00002 V [0.000009, 0.00003]", "0.000020 V [0.000009, 0.000030]"},
        {"b", "5 V [4, 5.999999999999999]", "5.0 V [4.0, 6.0]"},
        {".3", "2.5e-6 V [9e-7, 0.00012]", "2.50e-06 V [9.00e-07, 0.000120]"},
        {"bp", "9.996 V [9.986, 10.006]", "9.996 ± 0.010 V"},
        {"bk", "1234567 V [1200000, 1300000]", "1.235 MV [1.200, 1.300]"},
        {"k", "20 Δ°C [19, 21]", "20 Δ°C [19, 21]"},
        {"b", "5 V [2.25, inf]", "5 V [2.25, inf]"},
        {".3k", "999.9990234375 V", "1.00 kV"},
        {".3k", "999.996 V [999.5, 1000.5]", "1.00 kV [0.999, 1.01]"},
        {".0fk", "600 V [500, 700]", "600 V [500, 700]"},
        {"p", "0 V [0, 0x1p-1074]", "0 V [0, 5e-324]"},
        {"", "5 V [0x1.3ffffffffffffp2, 5]", "5 V [4.999999999999999, 5]"},
        {"b", "0 V [0, 0x1p-1074]", "0e+00 V [0e+00, 5.0e-324]"},
        {"b", "0 V [-0x1p-1074, 0x1p-1074]", "0e+00 V [-5.0e-324, 5.0e-324]"},
        {".1", "0x1.fffffffffffffp1023 V", "2e+308 V"},
        {"", "1 V [0, 0x1.fffffffffffffp1023]", "1 V [0, 1.7976931348623158e+308]"},
        {"", "0x1.7d52c1ef68d6ap62 V", "6869309377635265000 V"},
    };
    for (Row const& row : rows) {
        EXPECT_EQ(Format(Parse_measurement(row.quantity, {true, true}), Read_text_format(row.format)), row.text)
            << row.format << ": " << row.quantity;
    }
    Text_format names;
    names.unit = STR_NAME;
    EXPECT_EQ(Format(Parse_measurement("5 ΔK"), names), "5 delta_kelvin");
    std::ostringstream stream;
    stream << Measurement(5.0, C_Volts, 4.0, 6.0);
    EXPECT_EQ(stream.str(), "5 V [4, 6]");
}

// ---- Many numbers

TEST(Measurement_converter, Gives_the_nearest_number) {
    EXPECT_EQ(Measurement_converter(C_DgreeC, C_Kelvin).Convert_number(-40.0), 233.15);
    EXPECT_EQ(Measurement_converter(C_DgreeF, C_DgreeC).Convert_number(98.6), 37.0);
    EXPECT_EQ(Measurement_converter(C_Ft, C_Meter).Convert_number(5e-324), 0.0);
    EXPECT_EQ(Measurement_converter(C_KMeter, C_Meter).Convert_number(1e308), infinity);
    EXPECT_EQ(Measurement_converter(C_Watts, C_DBmW).Convert_number(0.0), -infinity);
    EXPECT_TRUE(std::isnan(Measurement_converter(C_Watts, C_DBmW).Convert_number(-1.0)));
    EXPECT_TRUE(std::isnan(Measurement_converter(C_Ft, C_Meter).Convert_number(not_a_number)));
    EXPECT_EQ(Measurement_converter(C_DBmW, C_Watts).Convert_number(5000.0), infinity);
    EXPECT_EQ(Measurement_converter(C_DBmW, C_DBW).Convert_number(20.0), -10.0);
    EXPECT_THROW(Measurement_converter(C_Meter, C_Sec), MeasurementRefused);
    EXPECT_THROW(Measurement_converter(Parse_unit("dBohm"), C_Ohms), MeasurementRefused);
    Measurement_converter const converter(C_Ft, C_Meter);
    EXPECT_EQ(Format(converter.Convert(Measurement(10.0, C_Yard))), "9.144 m");
    EXPECT_EQ(converter.Get_from(), C_Ft);
    EXPECT_EQ(converter.Get_to(), C_Meter);
    EXPECT_EQ(Measurement_converter(C_Ft, C_Ft).Convert_number(0.1), 0.1);
}

// As the value of a measurement, or, of levels, next to it; in arrays as alone, whatever lies between.
TEST(Measurement_converter, Agrees_with_measurements) {
    std::mt19937_64 random(5);
    std::uniform_real_distribution<double> draw(0.001, 300.0);
    Units const pairs[][2] = {{C_Miles, C_KMeter},  {C_Kmph, C_Knots},      {C_DgreeF, C_Kelvin},  {C_Ft, C_Meter},
                              {C_Radian, C_Degree}, {C_DBmW, C_MilliWatts}, {C_MilliWatts, C_DBmW}};
    // The first lies in the middle of two doubles when it is in metres.
    double const rare[] = {625.0 * (0x1p45 + 1.0), 1e300, 1e-300, 5e-324, 0.0, infinity, not_a_number};
    for (Units const(&pair)[2] : pairs) {
        Measurement_converter const converter(pair[0], pair[1]);
        bool const of_level = pair[0].spl_conv != pair[1].spl_conv;
        std::vector<double> numbers(std::begin(rare), std::end(rare));
        std::generate_n(std::back_inserter(numbers), 2000, [&] { return draw(random); });
        std::vector<double> converted = numbers;
        converter.Convert_numbers(converted.data(), converted.data(), converted.size());
        for (std::size_t k = 0; k < numbers.size(); ++k) {
            double const alone = converter.Convert_number(numbers[k]);
            EXPECT_TRUE(converted[k] == alone || std::isnan(numbers[k])) << numbers[k];
            if (std::isfinite(alone) && (!of_level || k >= std::size(rare))) {
                double const value = Measurement(numbers[k], pair[0]).Convert_to(pair[1]).Get_value();
                double const room = of_level ? std::max(std::fabs(value) * 4 * 0x1p-52, 1e-13) : 0.0;
                EXPECT_LE(std::fabs(converted[k] - value), room) << value;
            }
        }
    }
}

// As the core has them, whose factors of the mile, the radian and the degree are rounded ones. Of any two units of
// a dimension one is converted into the other.
TEST(Measurement, Takes_the_factors_of_the_catalogue) {
    int compared = 0;
    for (Units const& from : Catalogue_units()) {
        for (Units const& to : Catalogue_units()) {
            Units_list const unit = from.tuples[0].unit;
            bool const converts = Same_kind(from, to) && unit != DEGREE_C && unit != DEGREE_F && unit != KELVIN;
            if (!converts || (unit == MONTH) != (to.tuples[0].unit == MONTH) || (unit == YEAR) != (to.tuples[0].unit == YEAR)) {
                continue;
            }
            bool const is_symbol = (unit == SYMBOL) != (to.tuples[0].unit == SYMBOL);
            bool const is_angle = (unit == RADIAN || unit == DEGREE) != (to.tuples[0].unit == RADIAN || to.tuples[0].unit == DEGREE);
            if (is_symbol || is_angle) {
                EXPECT_THROW(Measurement(1.0, from).Convert_to(to), MeasurementRefused);
                continue;
            }
            double const value = Measurement(1.0, from).Convert_to(to).Get_value();
            double const of_core = Value_object<double>(1.0, from, 1.0, 1.0).Convert_to(to).Get_value();
            EXPECT_NEAR(value / of_core, 1.0, 0.0005) << Format_unit(from) << " to " << Format_unit(to);
            ++compared;
        }
    }
    EXPECT_GT(compared, 80);
}

// ---- Laws

bool Encloses(Measurement const& outer, Measurement const& inner) {
    return outer.Get_lower() <= inner.Get_lower() && outer.Get_upper() >= inner.Get_upper();
}

// Of a band within another, every result lies within that of the other; and the way there and back encloses.
TEST(Measurement, Keeps_what_lies_within_within) {
    std::mt19937_64 random(6);
    auto const draw = [&random](double least, double greatest) { return std::uniform_real_distribution<double>(least, greatest)(random); };
    for (int round = 0; round < 3000; ++round) {
        double const a = draw(1.0, 9.0);
        Measurement const outer(a, C_Volts, a - 0.5, a + 0.5);
        Measurement const inner(a, C_Volts, a - draw(0.0, 0.5), a + draw(0.0, 0.5));
        Measurement const other(2.0, C_Ohms, 1.0, 3.0);
        EXPECT_TRUE(Encloses(outer / other, inner / other));
        EXPECT_TRUE(Encloses(outer * outer, inner * inner));
        EXPECT_TRUE(Encloses(Pow(outer, 3), Pow(inner, 3)));
        EXPECT_TRUE(Encloses(outer.Convert_to(C_DBmW, other), inner.Convert_to(C_DBmW, other)));
        EXPECT_TRUE(Encloses(Hull(inner, outer), outer));
        EXPECT_TRUE(Encloses(Intersection(outer, inner), inner));
        for (char const* const unit : {"mV", "dBV", "dBuV"}) {
            EXPECT_TRUE(Encloses(inner.Convert_to(Parse_unit(unit)).Convert_to(C_Volts), inner)) << unit;
        }
        Measurement const level(draw(-100.0, 100.0), C_DBmW);
        EXPECT_NEAR((Power_sum({level, level}) - level).Get_value(), 3.010299956639812, 1e-13);
        EXPECT_TRUE(Encloses(Power_difference(Power_sum({level, level}), level), level));
    }
}

} // namespace
} // namespace Varnix::Value::Tests
