// Value objects: construction, formulas, conversions, arithmetic and comparison.

#include "All_constants.h"
#include "Test_support.h"

#include <cmath>
#include <functional>
#include <limits>
#include <type_traits>

namespace Varnix::Value::Tests {
namespace {

constexpr double inf = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double largest = std::numeric_limits<double>::max();

static_assert(sizeof(Quantity) == 72 && std::is_standard_layout_v<Quantity>);
static_assert(std::is_nothrow_default_constructible_v<Quantity> && std::is_nothrow_copy_constructible_v<Quantity> &&
              std::is_nothrow_move_constructible_v<Quantity> && std::is_nothrow_copy_assignable_v<Quantity>);
static_assert(Quantity::ONE == 1.0 && Quantity::FAHR_TO_CELCIUS_CONV_FACT == 1.8 && Quantity::FAHR_CELCIUS_CONST == 32.0 &&
              Quantity::KELVIN_CONST == 273.15 && Quantity::DB_CONV_FACT == 10.0);

Units const unarranged = Unit({{SECOND, -1}, {METER, 1}});
Units const gapped = Unit({{NO_UNIT, 0}, {METER, 1}, {NO_UNIT, 0}, {SECOND, 1}});
Units const db_per_second = Unit({{SECOND, -1}}, NO_PREFIX, SPL_DB);
Units const square_db_watts = Unit({{WATT, 2}}, NO_PREFIX, SPL_DB);

// An object whose bounds are not ordered; only what is computed and moved can be one.
Quantity Unordered(double value, Units const& unit, double minus_err, double plus_err) {
    return Quantity::Volt_amp_to_watt(Quantity(value, C_Empty, -1.0, plus_err), Quantity(1.0, C_Empty, -minus_err, 1.0), unit);
}

// ---- Core

TEST(Core, Default_object) {
    Quantity const object;
    EXPECT_TRUE(Is(object, 0.0, 0.0, 0.0, C_Empty));
    EXPECT_TRUE(Is(Quantity(object), 0.0, 0.0, 0.0, C_Empty));
}

TEST(Core, Orders_the_bounds) {
    struct Row {
        double first, second, minus_err, plus_err;
    };
    Row const rows[] = {
        {-0.1, 0.2, -0.1, 0.2}, {0.2, -0.1, -0.1, 0.2}, {nan, 0.5, 0.5, nan},   {0.5, nan, nan, 0.5},
        {0.0, -0.0, -0.0, 0.0}, {-0.0, 0.0, 0.0, -0.0}, {inf, -inf, -inf, inf},
    };
    for (Row const& row : rows) {
        SCOPED_TRACE(std::to_string(row.first) + ", " + std::to_string(row.second));
        EXPECT_TRUE(Is(Quantity(5.0, C_Meter, row.first, row.second), 5.0, row.minus_err, row.plus_err, C_Meter));
        Quantity object;
        object.Set(5.0, C_Meter, row.first, row.second);
        EXPECT_TRUE(Is(object, 5.0, row.minus_err, row.plus_err, C_Meter));
        object.Set_plus_minus_err(row.second, row.first);
        EXPECT_TRUE(Is(object, 5.0, row.minus_err, row.plus_err, C_Meter));
    }
    Quantity unordered = Unordered(5.0, C_Meter, 6.0, 4.0);
    EXPECT_TRUE(Is(unordered, 5.0, 6.0, 4.0, C_Meter));
    EXPECT_TRUE(Is(Quantity(unordered), 5.0, 4.0, 6.0, C_Meter));
    Quantity assigned;
    EXPECT_TRUE(Is(assigned = unordered, 5.0, 4.0, 6.0, C_Meter));
    EXPECT_TRUE(Is(Quantity(std::move(unordered)), 5.0, 6.0, 4.0, C_Meter));
}

TEST(Core, Takes_arguments_from_itself) {
    Quantity object(1.0, C_Meter, 2.0, 3.0);
    object.Set(object.Get_plus_err(), object.Get_unit(), object.Get_value(), object.Get_minus_err());
    EXPECT_TRUE(Is(object, 3.0, 1.0, 2.0, C_Meter));
    object.Set_plus_minus_err(object.Get_plus_err(), object.Get_minus_err());
    EXPECT_TRUE(Is(object, 3.0, 1.0, 2.0, C_Meter));
    Quantity const& same = object;
    object = same;
    EXPECT_TRUE(Is(object, 3.0, 1.0, 2.0, C_Meter));
    object *= object.Get_minus_err() + object.Get_minus_err();
    object *= object.Get_value();
    EXPECT_TRUE(Is(object, 36.0, 12.0, 24.0, C_Meter));
    object /= object.Get_value();
    EXPECT_TRUE(Is(object, 1.0, 12.0 / 36.0, 24.0 / 36.0, C_Meter));
}

TEST(Core, Arranges_in_the_constructor_alone) {
    EXPECT_EQ(Quantity(1.0, unarranged, 1.0, 1.0).Get_unit(), C_MeterPerSecond);
    Quantity object;
    object.Set_unit(unarranged);
    EXPECT_EQ(object.Get_unit(), unarranged);
    object.Set(-3.5, gapped, 0.0, 0.0);
    EXPECT_TRUE(Is(Quantity(object), -3.5, 0.0, 0.0, gapped));
    EXPECT_EQ(object.Magnitude(), 3.5);
    object.Set_value(4.0);
    EXPECT_TRUE(Is(object, 4.0, 0.0, 0.0, gapped));
    EXPECT_EQ(Failure_of([] { Quantity(1.0, gapped, 1.0, 1.0); }), not_valid);
    EXPECT_EQ(Failure_of([] { Quantity(1.0, Unit({{NO_UNIT, 0}, {METER, 1}}), 1.0, 1.0); }), not_valid);
    EXPECT_EQ(Failure_of([] { Quantity(1.0, Unit({{METER, 1}, {FOOT, 1}}), 1.0, 1.0); }), not_proper);
    EXPECT_EQ(Failure_of([] { Quantity(1.0, Unit({{unknown_unit, 1}}), 1.0, 1.0); }), not_defined);
}

TEST(Core, Predicates) {
    EXPECT_TRUE(Quantity::Is_valid_unit(C_Empty));
    EXPECT_TRUE(Quantity::Is_valid_unit(C_Amps2Ohms));
    EXPECT_FALSE(Quantity::Is_valid_unit(gapped));
    EXPECT_FALSE(Quantity::Is_valid_unit(Unit({{METER, 1}, {SECOND, 1}, {BIT, 1}, {NO_UNIT, 0}, {WATT, 1}})));

    struct Row {
        Units first, second;
        bool convertable;
    };
    Row const rows[] = {
        {C_Meter, C_Ft, true},
        {C_Meter, C_Meter, false},
        {C_Meter, C_Sec, false},
        {C_Mph, C_Kmph, false},
        {C_Empty, C_Meter, true},
        {C_Meter, C_Empty, true},
        {C_Hz, C_Sec, false},
        {C_Hz, Unit({{MINUTE, -1}}), true},
        {C_Hz, C_Min, false},
        {C_MeterPerSecond, Unit({{FOOT, 1}, {HOUR, -1}}), true},
        {C_MeterPerSecond, Unit({{FOOT, 1}, {HOUR, -2}}), false},
    };
    for (Row const& row : rows) {
        EXPECT_EQ(Quantity::Is_convertable_unit(row.first, row.second), row.convertable) << row.first << row.second;
    }
    EXPECT_EQ(Failure_of([] { Quantity::Is_convertable_unit(Unit({{unknown_unit, 1}}), C_Meter); }), not_defined);

    EXPECT_NO_THROW(Quantity::Is_value_in_range(Quantity(largest, C_Meter, -largest, largest)));
    for (double const bad : {inf, -inf, nan}) {
        EXPECT_EQ(Failure_of([bad] { Quantity::Is_value_in_range(Quantity(bad, C_Meter, 0.0, 0.0)); }), out_of_range);
        EXPECT_EQ(Failure_of([bad] { Quantity::Is_value_in_range(Quantity(0.0, C_Meter, bad, 0.0)); }), out_of_range);
        EXPECT_EQ(Failure_of([bad] { Quantity::Is_value_in_range(Quantity(0.0, C_Meter, 0.0, bad)); }), out_of_range);
    }
}

// ---- Formulas

TEST(Formula, Temperatures) {
    using Formula = Quantity (*)(Quantity const&, Units const&);
    struct Row {
        Formula formula;
        double from, to;
    };
    Row const rows[] = {
        {Quantity::Convert_degreeC_to_degreeF, 100.0, 212.0},
        {Quantity::Convert_degreeC_to_degreeF, -40.0, -40.0},
        {Quantity::Convert_degreeF_to_degreeC, 212.0, 100.0},
        {Quantity::Convert_degreeF_to_degreeC, 98.6, 36.99999999999999},
        {Quantity::Convert_degreeC_to_kelvin, 25.0, 298.15},
        {Quantity::Convert_degreeF_to_kelvin, 32.0, 273.15},
        {Quantity::Convert_kelvin_to_degreeC, 300.0, 26.850000000000023},
        {Quantity::Convert_kelvin_to_degreeF, 0.0, -459.66999999999996},
        {Quantity::Power_conversion, 5.0, 5.0},
    };
    for (Row const& row : rows) {
        SCOPED_TRACE(row.to);
        // The whole formula applies to each bound; the unit of the source is not looked at.
        EXPECT_TRUE(Is(row.formula(Quantity(row.from, C_Sec, row.from, row.from), C_Meter), row.to, row.to, row.to, C_Meter));
        bool const arranges = row.formula != Formula(Quantity::Convert_degreeC_to_degreeF);
        EXPECT_EQ(row.formula(Quantity(), unarranged).Get_unit(), arranges ? C_MeterPerSecond : unarranged);
        EXPECT_EQ(Failure_of([&row] { row.formula(Quantity(), gapped); }), arranges ? not_valid : "no failure");
    }
    Quantity const band = Quantity::Convert_degreeC_to_degreeF(Quantity(20.0, C_DgreeC, 19.0, 21.0), C_DgreeF);
    EXPECT_TRUE(Is(band, 68.0, 19.0 * 1.8 + 32.0, 21.0 * 1.8 + 32.0, C_DgreeF));
}

TEST(Formula, Electrical_relations) {
    using Formula = Quantity (*)(Quantity const&, Quantity const&, Units const&);
    struct Row {
        Formula formula;
        Numbers first, second;
        Numbers result;
    };
    Row const rows[] = {
        {Quantity::Volt_watt_amp_with_master_watt, {10, 8, 12}, 2, {5, 4, 6}},
        {Quantity::Volt_watt_amp_with_spl_watt, 2, {10, 8, 12}, {5, 4, 6}},
        {Quantity::Volt_amp_to_watt, {3, 0, 0}, {2, 0, 0}, {6, 0, 0}},
        {Quantity::Volt_ohm_to_watt, 10, 5, 20},
        {Quantity::Volt_ohm_to_watt, {1, -2, 1}, 1, {1, 4, 1}},
        {Quantity::Watt_ohm_to_volt, {20, 0, 0}, {5, 0, 0}, {10, 0, 0}},
    };
    for (Row const& row : rows) {
        Quantity const result = row.formula(row.first.In(C_Empty), row.second.In(C_Empty), unarranged);
        EXPECT_TRUE(Is(result, row.result.value, row.result.minus_err, row.result.plus_err, unarranged));
    }
    Quantity const one(1.0, C_Empty, 1.0, 1.0);
    Quantity const zero;
    Quantity const huge(largest, C_Empty, 0.0, 0.0);
    EXPECT_EQ(Failure_of([&] { Quantity::Volt_watt_amp_with_master_watt(zero, zero, C_Volts); }), out_of_range);
    EXPECT_EQ(Failure_of([&] { Quantity::Volt_watt_amp_with_spl_watt(zero, one, C_Volts); }), out_of_range);
    EXPECT_EQ(Failure_of([&] { Quantity::Volt_amp_to_watt(huge, huge, C_Watts); }), out_of_range);
    EXPECT_EQ(Failure_of([&] { Quantity::Volt_ohm_to_watt(one, zero, C_Watts); }), out_of_range);
    EXPECT_EQ(Failure_of([&] { Quantity::Watt_ohm_to_volt(Quantity(-20.0, C_Empty, 0.0, 0.0), one, C_Volts); }), out_of_range);
}

TEST(Formula, Decibels) {
    struct Row {
        Units unit;
        double decibels, linear;
    };
    Row const rows[] = {
        {C_DBW, 20.0, 100.0},
        {C_DBmW, 20.0, 100.0},
        {C_DB, 3.0, 1.9952623149688795},
        {Unit({}, KILO, SPL_DB), 10.0, 10.0},
        {square_db_watts, 20.0, 200.0},
        {db_per_second, 10.0, -10.0},
        {Unit({{VOLT, 2}, {METER, -3}, {SECOND, 2}, {NO_UNIT, 5}}, NO_PREFIX, SPL_DB), 10.0, -120.0},
    };
    for (Row const& row : rows) {
        Quantity const level(row.decibels, row.unit, row.decibels, row.decibels);
        EXPECT_TRUE(Is(Quantity::Normalize_DB(level), row.linear, row.linear, row.linear, row.unit));
    }
    EXPECT_TRUE(Is(Quantity::Apply_DB(Quantity(100.0, C_DBW, 10.0, 1000.0)), 20.0, 10.0, 30.0, C_DBW));
    EXPECT_TRUE(Is(Quantity::Apply_DB(Quantity(100.0, square_db_watts, 1.0, 1.0)), 40.0, 0.0, 0.0, square_db_watts));
    EXPECT_TRUE(Is(Quantity::Apply_DB(Quantity(2.0, C_DB, 1.0, 0.0)), 3.010299956639812, -inf, 0.0, C_DB));
    EXPECT_TRUE(std::isnan(Quantity::Apply_DB(Quantity(-1.0, C_DB, 1.0, 1.0)).Get_value()));
    for (auto const transform : {Quantity::Normalize_DB, Quantity::Apply_DB}) {
        EXPECT_TRUE(Is(transform(Unordered(20.0, C_Watts, 21.0, 19.0)), 20.0, 19.0, 21.0, C_Watts));
    }
    // A negative product of exponents turns the bounds round; they are stored as computed.
    EXPECT_TRUE(Is(Quantity::Normalize_DB(Quantity(10.0, db_per_second, 0.0, 20.0)), -10.0, -1.0, -100.0, db_per_second));
}

// ---- Conversion

TEST(Conversion, Of_value_and_bounds) {
    Units const per_minute = Unit({{MINUTE, -1}});
    Units const per_celsius = Unit({{DEGREE_C, -1}});
    Units const per_fahrenheit = Unit({{DEGREE_F, -1}});
    Units const celsius_per_second = Unit({{DEGREE_C, 1}, {SECOND, -1}});
    Units const fahrenheit_per_second = Unit({{DEGREE_F, 1}, {SECOND, -1}});
    Units const kilo_celsius = Unit({{DEGREE_C, 1}}, KILO);
    Units const per_watt = Unit({{WATT, -1}});
    Units const volts_per_second = Unit({{VOLT, 1}, {SECOND, -1}});
    Units const watts_per_second = Unit({{WATT, 1}, {SECOND, -1}});
    Units const db_fahrenheit = Unit({{DEGREE_F, 1}}, NO_PREFIX, SPL_DB);
    auto const linear = [](double decibels) { return std::pow(10.0, decibels / 10.0); };
    double const foot = 1.0 / 0.3048;

    struct Row {
        Numbers from;
        Units unit;
        Units target;
        Numbers to;
    };
    Row const rows[] = {
        {{1, 0.9, 1.1}, C_Ft, C_Meter, {0.3048, 0.9 * 0.3048, 1.1 * 0.3048}},
        {{1, 0, 2}, C_Meter, C_Ft, {3.280839895013123, 0, 2 * foot}},
        {{2, 1, 3}, C_Hz, per_minute, {120, 60, 180}},
        {36, C_Kmph, C_MeterPerSecond, 36 * (1.0 / 3600 * 1000)},
        {{1, 2, 3}, C_MeterPerSecond, unarranged, {1, 2, 3}},
        // Prefixes: the source's joins the factor, the target's is a multiplication of its own.
        {1, C_KiloWatts, C_Watts, 1000},
        {3, C_KiBytes, C_KiloBit, 3 * (8.0 * 1024) * 0.001},
        {7, C_MegaBytes, C_MeBytes, 7e6 * std::pow(2.0, -20.0)},
        // Decibels.
        {{30, 29, 31}, C_DBmW, C_Watts, {1.0, 0.7943282347242813, 1.2589254117941675}},
        {{1, 1, 10}, C_Watts, C_DBmW, {30, 30, 40}},
        {{0, -1, 1}, C_Watts, C_DBW, {-inf, nan, 0}},
        {{20, 10, 30}, square_db_watts, Unit({{WATT, 2}}), {200, 20, 2000}},
        {{10, 0, 20}, db_per_second, C_Hz, {-10, -1, -100}},
        {3, C_DB, C_Percent, linear(3)},
        // Whole-unit rules.
        {{25, 24, 26}, C_DgreeC, C_DgreeF, {77, 24 * 1.8 + 32, 26 * 1.8 + 32}},
        {300, C_Kelvin, C_DgreeC, 26.850000000000023},
        {77, C_DgreeF, C_Kelvin, 298.15},
        {273.15, C_Kelvin, C_DgreeF, 32},
        {{5, 4, 6}, C_Volt2PerOhms, C_Watts, {5, 4, 6}},
        {{5, 4, 6}, C_VoltAmps, C_KiloWatts, {0.005, 4 * 0.001, 6 * 0.001}},
        {{5, 4, 6}, C_Amps2Ohms, C_Watts, {5, 4, 6}},
        {2, kilo_celsius, C_DgreeF, 35600},
        {{0.5, 0, 1}, per_celsius, C_DgreeF, {0.030395136778115502, 1 / 33.8, 1 / 32.0}},
        {{0.5, 0, 1}, per_celsius, per_fahrenheit, {0.5 * 1.8 + 32, 32, 33.8}},
        {{25, 24, 26}, C_DgreeC, per_fahrenheit, {1 / 77.0, 1 / (26 * 1.8 + 32), 1 / (24 * 1.8 + 32)}},
        {{4, 2, 5}, C_VoltAmps, per_watt, {0.25, 0.2, 0.5}},
        {{0, 0, 2}, C_VoltAmps, per_watt, {inf, 0.5, inf}},
        // The rule's function has set the target's marker before the common end: the number in
        // degrees Fahrenheit is taken for decibels and turned linear and back.
        {-40, C_DgreeC, db_fahrenheit, -40},
        // Slot rules.
        {{2, 1, 3}, celsius_per_second, fahrenheit_per_second, {35.6, 33.8, 37.4}},
        {{2, 1, 3}, Unit({{METER, 1}, {DEGREE_C, -1}}), Unit({{METER, 1}, {KELVIN, -1}}), {1 / 275.15, 1 / 276.15, 1 / 274.15}},
        {{6, 5, 7}, volts_per_second, watts_per_second, {6, 5, 7}},
        {{6, 5, 7}, Unit({{AMP, 1}, {METER, 1}}), Unit({{WATT, 1}, {FOOT, 1}}), {6 * foot, 5 * foot, 7 * foot}},
        {{4, 2, 5}, Unit({{VOLT, -1}, {METER, 1}}), Unit({{WATT, -1}, {METER, 1}}), {4, 2, 5}},
        {{4, 2, 5}, Unit({{AMP, -1}, {METER, 1}}), Unit({{WATT, -1}, {METER, 1}}), {0.25, 0.2, 0.5}},
        // Surprising, and the rule.
        {5, C_Meter, C_MeterPerSecond, 5},
        {5, C_Volts, C_Watts, 5},
        {5, C_Amps, C_MilliWatts, 5000},
        {4, C_Hz, C_Sec, 4},
        {4, C_Empty, C_Meter, 4},
    };
    for (Row const& row : rows) {
        SCOPED_TRACE(::testing::PrintToString(row.unit) + " to " + ::testing::PrintToString(row.target));
        Quantity const from = row.from.In(row.unit);
        Quantity const to = from.Convert_to(row.target);
        EXPECT_TRUE(Is_close(to, row.to, Units_library::Arrange_tuple(row.target)));
        Quantity other;
        other.Set_unit(row.target);
        EXPECT_TRUE(Is(from.Convert_to(other), to.Get_value(), to.Get_minus_err(), to.Get_plus_err(), to.Get_unit()));
    }
}

TEST(Conversion, Rounds_each_operation_in_its_order) {
    // Digits that another order of the operations, or a contracted one, would change.
    EXPECT_EQ(Quantity(0.1, C_KMeter, 0.0, 0.0).Convert_to(C_Ft).Get_value(), 0.1 * ((1.0 / 0.3048) * 1000.0));
    EXPECT_EQ(Quantity(0.7, C_Ft, 0.0, 0.0).Convert_to(C_KMeter).Get_value(), (0.7 * 0.3048) * std::pow(10.0, -3.0));
    EXPECT_EQ(Quantity(29.3, C_DBmW, 29.3, 29.3).Convert_to(C_MicroWatts).Get_value(),
              std::pow(10.0, 29.3 / 10.0) * std::pow(10.0, -3.0) * std::pow(10.0, 6.0));
    EXPECT_EQ(Quantity(0.3, C_Kmph, 0.0, 0.0).Convert_to(C_MeterPerSecond).Get_value(), 0.3 * ((1.0 / 3600.0) * 1000.0));
    EXPECT_EQ(Quantity(37.7, C_DgreeC, 0.0, 0.0).Convert_to(C_DgreeF).Get_value(), 37.7 * 1.8 + 32.0);
}

TEST(Conversion, Is_refused) {
    Units const squares = Unit({{METER, 2}});
    struct Row {
        Units unit, target;
        std::string failure;
    };
    Row const rows[] = {
        {C_Meter, C_Sec, not_same},
        {squares, C_Meter, not_same},
        {C_Volt2PerOhms, C_Volts, not_same},
        {C_Meter, Unit({{METER, 1}, {FOOT, 1}}), not_proper},
        {C_Meter, Unit({{unknown_unit, 1}}), not_defined},
        {gapped, C_Meter, not_valid},
        {Unit({{METER, 1}, {FOOT, 1}}), C_Meter, not_proper},
        {Unit({{unknown_unit, 1}}), C_Meter, not_defined},
        {C_Kelvin, Unit({{DEGREE_C, 1}, {NO_UNIT, 0}, {METER, 1}}), not_valid},
        {Unit({{METER, 2}, {KELVIN, 1}}), Unit({{METER, 1}, {DEGREE_C, 1}, {NO_UNIT, 0}, {SECOND, 1}}), not_same},
    };
    for (Row const& row : rows) {
        Quantity object;
        object.Set(1.0, row.unit, 1.0, 1.0);
        EXPECT_EQ(Failure_of([&] { (void)object.Convert_to(row.target); }), row.failure) << row.unit << " to " << row.target;
    }
}

TEST(Conversion, With_a_second_value) {
    Units const kilo_db_watts = Unit({{WATT, 1}}, KILO, SPL_DB);
    Units const kibi_watts = Unit({{WATT, 1}}, KIBI);
    struct Row {
        Numbers from;
        Units unit, target;
        Numbers with;
        Units with_unit;
        Numbers to;
    };
    Row const rows[] = {
        {2, C_Amps, C_Volts, {10, 8, 12}, C_Watts, {5, 4, 6}},
        {{10, 8, 12}, C_Watts, C_Volts, 2, C_Amps, {5, 4, 6}},
        {{10, 8, 12}, C_Watts, C_Amps, 2, C_Volts, {5, 4, 6}},
        {{3, 0, 0}, C_Volts, C_Watts, {2, 0, 0}, C_Amps, {6, 0, 0}},
        {2, C_Volts, C_Amps, {10, 8, 12}, C_Watts, {5, 4, 6}},
        {{3, 2, 4}, C_Amps, C_Watts, {2, 1, 3}, C_Volts, {6, 2, 12}},
        {10, C_Volts, C_Watts, 5, C_Ohms, 20},
        {{20, 0, 0}, C_Watts, C_Volts, {5, 0, 0}, C_Ohms, {10, 0, 0}},
        // The bounds are not ordered,
        {{10, 9, 11}, C_Watts, C_Volts, {2, 1, 4}, C_Amps, {5, 9, 2.75}},
        // unless decibels are asked for.
        {{10, 1, 1000}, C_Volts, kilo_db_watts, 100, C_Amps, {0, -10, 20}},
        // Prefixes of all three, a binary one with the radix 10 on the way in.
        {1, C_KiloWatts, C_MilliVolts, 10, C_Amps, 100000},
        {{10, 8, 12}, C_Watts, C_Volts, 2000, C_MilliAmps, {5, 4, 6}},
        {1, kibi_watts, C_Volts, 1, C_Amps, 1e10},
        {10, C_Volts, kibi_watts, 1024, C_Amps, 10},
        {{40, 30, 50}, C_DBmW, C_Volts, 2, C_Amps, {5, 0.5, 50}},
        {2, C_Amps, C_Volts, {40, 30, 50}, C_DBmW, {5, 0.5, 50}},
    };
    for (Row const& row : rows) {
        SCOPED_TRACE(::testing::PrintToString(row.unit) + " with " + ::testing::PrintToString(row.with_unit));
        Quantity const result = row.from.In(row.unit).Convert_to_with_value(row.target, row.with.In(row.with_unit));
        EXPECT_TRUE(Is(result, row.to.value, row.to.minus_err, row.to.plus_err, row.target));
    }
}

TEST(Conversion, With_a_second_value_is_refused) {
    struct Row {
        double value;
        Units unit, target;
        double with, with_bounds;
        Units with_unit;
        std::string failure;
    };
    Row const rows[] = {
        {10, C_Watts, C_Ohms, 2, 2, C_Volts, no_rule},       {10, C_Watts, C_Amps, 2, 2, C_Amps, no_rule},
        {10, C_Watts, C_Volts, 0, 1, C_Amps, out_of_range},  {0, C_Watts, C_Volts, 2, 0, C_Amps, out_of_range},
        {-20, C_Watts, C_Volts, 5, 5, C_Ohms, out_of_range},
    };
    for (Row const& row : rows) {
        Quantity const with(row.with, row.with_unit, row.with_bounds, row.with_bounds);
        EXPECT_EQ(Failure_of([&] { (void)Quantity(row.value, row.unit, row.value, row.value).Convert_to_with_value(row.target, with); }),
                  row.failure);
    }
    using Key = Units_special_conv;
    Key const key = {C_Watts, C_Volts, C_Amps};
    EXPECT_TRUE(Quantity::Is_units_special_equal(key, Key{C_KiloWatts, C_Volts, C_Amps}));
    EXPECT_TRUE(Quantity::Is_units_special_equal(key, Key{C_DBmW, C_Volts, C_Amps}));
    EXPECT_FALSE(Quantity::Is_units_special_equal(key, Key{C_Amps, C_Volts, C_Amps}));
    EXPECT_FALSE(Quantity::Is_units_special_equal(key, Key{C_Watts, C_Amps, C_Amps}));
    EXPECT_FALSE(Quantity::Is_units_special_equal(key, Key{C_Watts, C_Volts, C_Watts}));
}

// ---- Arithmetic

enum Operator { plus, minus, times, over };

void Apply(Quantity& left, Operator op, Quantity const& right) {
    switch (op) {
    case plus:
        left += right;
        break;
    case minus:
        left -= right;
        break;
    case times:
        left *= right;
        break;
    case over:
        left /= right;
        break;
    }
}

TEST(Arithmetic, Of_two_quantities) {
    Units const square_meters = Unit({{METER, 2}});
    Units const db_millivolts = Unit({{VOLT, 1}}, MILLI, SPL_DB);
    double const gain = std::pow(10.0, 0.3);
    double const hundredth = std::pow(10.0, -2.0);
    auto const decibels = [](double linear) { return 10.0 * std::log10(linear); };

    struct Row {
        Numbers left;
        Units unit;
        Operator op;
        Numbers right;
        Units right_unit;
        Numbers to;
        Units result_unit;
    };
    Row const rows[] = {
        {{3, 2.9, 3.1}, C_Meter, plus, {2, 1.8, 2.2}, C_Meter, {5, 2.9 + 1.8, 3.1 + 2.2}, C_Meter},
        {{5, 4.9, 5.1}, C_Meter, minus, {2, 1.8, 2.2}, C_Meter, {3, 5.1 - 2.2, 4.9 - 1.8}, C_Meter},
        {{1, 0.5, 2}, C_KMeter, plus, {500, 400, 600}, C_Meter, {1.5, 0.9, 2.6}, C_KMeter},
        {{1, 0.5, 2}, C_KMeter, minus, {500, 400, 600}, C_Meter, {0.5, 0.1, 1.4}, C_KMeter},
        {1, C_KMeter, plus, 2, C_KMeter, 3, C_KMeter},
        {20, C_DgreeC, plus, 50, C_DgreeF, (20 * 1.8 + 32 + 50 - 32) / 1.8, C_DgreeC},
        // A value without unit joins any other.
        {2, C_Meter, plus, 3, C_Empty, 5, C_Meter},
        // Decibels and decibels.
        {{3, 2, 4}, C_DB, plus, {3, 2, 4}, C_DB, {6, 4, 8}, C_DB},
        {{3, 2, 4}, C_DB, minus, 1, C_DB, {2, 1, 3}, C_DB},
        {10, C_DBmW, plus, {10, 0, 20}, C_DBmW, {decibels(20), decibels(11), decibels(110)}, C_DBmW},
        {20, C_DBmW, minus, 10, C_DBmW, decibels(90), C_DBmW},
        {10, C_DBmW, plus, -20, C_DBW, decibels(20), C_DBmW},
        {10, square_db_watts, plus, 10, square_db_watts, 20 * std::log10(40), square_db_watts},
        // A plain ratio in decibels scales a linear value.
        {2, C_Watts, plus, 3, C_DB, 2 * gain, C_Watts},
        {2, C_KiloWatts, minus, 3, C_DB, 2 / gain, C_KiloWatts},
        // One in decibels otherwise: the quantities combine in this object's unit.
        {1, C_Watts, plus, {30, 20, 40}, C_DBmW, {2, 1.1, 11}, C_Watts},
        {10, C_DBmW, plus, 10, C_MilliWatts, decibels(20), C_DBmW},
        {20, C_DBmW, minus, 0.01, C_Watts, decibels(90), C_DBmW},
        {5, C_MilliVolts, plus, 10, db_millivolts, 15, C_MilliVolts},
        {2, C_Empty, plus, 3, C_DB, 2 + gain, C_Empty},
        {3, C_DB, plus, 2, C_Empty, decibels(2 + gain), C_DB},
        {10, C_DB, plus, 1, Unit({{NO_UNIT, 1}}, KILO), decibels(1010), C_DB},
        // Products.
        {{2, 1, 3}, C_Meter, times, {3, 2, 4}, C_Meter, {6, 2, 12}, square_meters},
        {2, C_Meter, times, 3, C_Ft, 2 * (3 * 0.3048), square_meters},
        {2, C_KMeter, times, 3, C_Meter, 6000, square_meters},
        {2, C_Meter, times, 3, C_KiBytes, 6144, Unit({{METER, 1}, {BYTE, 1}})},
        {2, C_Meter, times, 3, C_Sec, 6, Unit({{METER, 1}, {SECOND, 1}})},
        {{2, -3, 4}, C_Meter, times, {1, -5, 1}, C_Sec, {2, 4, 15}, Unit({{METER, 1}, {SECOND, 1}})},
        {20, C_DBW, times, 3, C_Sec, 300, Unit({{WATT, 1}, {SECOND, 1}})},
        {3, C_Sec, times, 20, C_DBmW, 3 * (100 * 0.001), Unit({{SECOND, 1}, {WATT, 1}})},
        {10, C_DgreeC, times, 50, C_DgreeF, 100, Unit({{DEGREE_C, 2}})},
        {2, C_MeterPerSecond, times, 3, Unit({{FOOT, -1}, {HOUR, 1}}), 2 * (3 * 0.3048 * 3600), Unit({})},
        // Surprising, and the rule.
        {60, C_Mph, times, 2, C_Sec, 432000, C_Miles},
        {2, C_Meter, times, 3, C_Empty, 6, square_meters},
        {2, C_Empty, times, 3, C_Meter, 6, Unit({})},
        // Quotients.
        {{6, 3, 12}, C_Meter, over, {3, 3, 4}, C_Sec, {2, 1, 3}, C_MeterPerSecond},
        {{6, 8, 9}, C_Meter, over, {2, 1, 9}, C_Meter, {3, 1, 8}, Unit({})},
        {6, C_KMeter, over, 3, C_Inch, 6000 / (3 * 0.0254), Unit({})},
        {20, C_DBW, over, 20, C_Sec, 5, Unit({{WATT, 1}, {SECOND, -1}})},
        {5, C_CentiMeter, over, 10, C_DBW, 5 * hundredth / 10, Unit({{METER, 1}, {WATT, -1}})},
    };
    for (Row const& row : rows) {
        SCOPED_TRACE(::testing::PrintToString(row.unit) + " op " + std::to_string(row.op) + ' ' + ::testing::PrintToString(row.right_unit));
        Quantity object = row.left.In(row.unit);
        Apply(object, row.op, row.right.In(row.right_unit));
        EXPECT_TRUE(Is_close(object, row.to, row.result_unit));
    }
}

TEST(Arithmetic, Failure_leaves_the_object_alone) {
    Units const five = Unit({{BIT, 1}, {AMP, 1}, {GRAM, 1}, {METER, 1}, {SECOND, 1}});
    Units const six = Unit({{VOLT, 1}});
    Units const clash = Unit({{METER, 1}, {FOOT, 1}});
    struct Row {
        Units unit;
        Operator op;
        double right, bounds;
        Units right_unit;
        std::string failure;
    };
    Row const rows[] = {
        {C_Meter, plus, 3, 3, C_Sec, not_same},
        {C_Meter, minus, 3, 3, C_Sec, not_same},
        {C_Meter, plus, 3, 3, clash, not_proper},
        {C_Meter, minus, 3, 3, clash, not_same},
        {C_Meter, plus, 3, 3, Unit({{unknown_unit, 1}}), not_defined},
        {C_Meter, minus, 3, 3, Unit({{unknown_unit, 1}}), not_same},
        {C_DBmW, plus, 3, 3, C_DB, not_proper},
        {C_DB, minus, 3, 3, C_DBmW, not_proper},
        {C_DB, plus, 3, 3, C_Watts, not_proper},
        {C_Empty, minus, 3, 3, C_DBW, not_proper},
        {C_DBW, minus, 3, 3, C_Empty, not_proper},
        {C_DBW, plus, 3, 3, db_per_second, not_same},
        {C_DBW, minus, 3, 3, Unit({{WATT, 1}, {VOLT, 1}, {VOLT, 1}}, NO_PREFIX, SPL_DB), not_proper},
        {C_DBW, plus, 3, 3, clash, not_proper},
        {C_DBW, minus, 3, 3, clash, not_same},
        {C_Watts, minus, 3, 3, db_per_second, not_same},
        {C_Meter, times, 3, 3, C_DB, not_valid},
        {C_Empty, times, 3, 3, C_DBW, not_valid},
        {C_Empty, over, 3, 3, C_DBW, not_valid},
        {five, times, 3, 3, six, too_many},
        {five, over, 3, 3, six, too_many},
        {five, over, 0, 0, six, too_many},
        {C_Meter, over, 0, 1, C_Sec, out_of_range},
        {C_Meter, over, 1, 0, C_Sec, out_of_range},
        {C_Meter, times, 3, 3, Unit({{METER, 1}, {unknown_unit, 1}}), not_defined},
        {C_Meter, times, 3, 3, Unit({{unknown_unit, 1}}), not_defined},
        {clash, over, 3, 3, C_DB, not_proper},
        {gapped, over, 3, 3, C_Sec, not_valid},
        {clash, times, 3, 3, C_DB, not_valid},
    };
    for (Row const& row : rows) {
        SCOPED_TRACE(::testing::PrintToString(row.unit) + " op " + std::to_string(row.op) + ' ' + ::testing::PrintToString(row.right_unit));
        Quantity object;
        object.Set(2.0, row.unit, 1.0, 3.0);
        Quantity right;
        right.Set(row.right, row.right_unit, row.bounds, row.bounds);
        EXPECT_EQ(Failure_of([&] { Apply(object, row.op, right); }), row.failure);
        EXPECT_TRUE(Is(object, 2.0, 1.0, 3.0, row.unit));
    }
}

TEST(Arithmetic, With_itself) {
    Quantity sum(2.5, C_Watts, 2.0, 3.0);
    Quantity const& same = sum;
    sum += same;
    EXPECT_TRUE(Is(sum, 5.0, 4.0, 6.0, C_Watts));
    sum *= same;
    EXPECT_TRUE(Is(sum, 25.0, 16.0, 36.0, Unit({{WATT, 2}})));
    sum /= same;
    EXPECT_TRUE(Is(sum, 1.0, 1.0, 1.0, Unit({})));
    sum -= same;
    EXPECT_TRUE(Is(sum, 0.0, 0.0, 0.0, Unit({})));
}

TEST(Arithmetic, With_a_number) {
    Quantity const five(5.0, C_KMeter, 4.0, 6.0);
    EXPECT_TRUE(Is(five * -2.0, -10.0, -12.0, -8.0, C_KMeter));
    EXPECT_TRUE(Is(five / -2.0, -2.5, -3.0, -2.0, C_KMeter));
    EXPECT_TRUE(Is(five * inf, inf, inf, inf, C_KMeter));
    EXPECT_TRUE(Is(five, 5.0, 4.0, 6.0, C_KMeter));
    double const gain = std::pow(10.0, 0.3);
    Quantity const ratio(3.0, C_DB, 3.0, 3.0);
    EXPECT_DOUBLE_EQ((ratio * 2.0).Get_value(), 10.0 * std::log10(2.0 * gain));
    EXPECT_DOUBLE_EQ((ratio / 2.0).Get_value(), 10.0 * std::log10(gain / 2.0));
    EXPECT_EQ((ratio * 2.0).Get_unit(), C_DB);

    Quantity object;
    object.Set(1.0, unarranged, 1.0, 1.0);
    EXPECT_EQ((object * 2.0).Get_unit(), unarranged);
    EXPECT_EQ((object / 2.0).Get_unit(), C_MeterPerSecond);
    object.Set(1.0, gapped, 1.0, 1.0);
    EXPECT_EQ(Failure_of([&object] { object /= 2.0; }), not_valid);
    EXPECT_EQ(Failure_of([&five] { (void)(five / 0.0); }), out_of_range);
    EXPECT_EQ(Failure_of([&ratio] { (void)(ratio / 0.0); }), out_of_range);
    Quantity unchanged = five;
    EXPECT_EQ(Failure_of([&unchanged] { unchanged /= 0.0; }), out_of_range);
    EXPECT_TRUE(Is(unchanged, 5.0, 4.0, 6.0, C_KMeter));
}

// ---- Comparison

TEST(Comparison, Converts_the_left_operand) {
    Units const zeroed = Unit({});
    struct Row {
        double left;
        Units unit;
        double right;
        Units right_unit;
        char const* relations;
    };
    Row const rows[] = {
        {3, C_Meter, 5, C_Meter, "!= < <="},      {5, C_Meter, 3, C_Meter, "!= > >="},      {3, C_Meter, 3, C_Meter, "== <= >="},
        {1, C_KMeter, 1000, C_Meter, "== <= >="}, {1000, C_Meter, 1, C_KMeter, "== <= >="}, {30, C_DBmW, 1, C_Watts, "== <= >="},
        {30, C_DBW, 30, C_Watts, "!= > >="},      {25, C_DgreeC, 76, C_DgreeF, "!= > >="},  {nan, C_Meter, 3, C_Meter, "!="},
        {3, C_Meter, nan, C_Meter, "!="},         {nan, C_KMeter, 3, C_Meter, "!="},        {3, C_Empty, 3, zeroed, "== <= >="},
    };
    for (Row const& row : rows) {
        Quantity const left(row.left, row.unit, 0.0, 0.0);
        Quantity const right(row.right, row.right_unit, 1.0, 7.0);
        std::string const relations = std::string(left == right ? " ==" : "") + (left != right ? " !=" : "") + (left < right ? " <" : "") +
                                      (left <= right ? " <=" : "") + (left > right ? " >" : "") + (left >= right ? " >=" : "");
        EXPECT_EQ(relations, std::string(" ") + row.relations) << row.left << row.unit << row.right << row.right_unit;
    }
    // The bound numbers of a conversion that rounds: only the left operand is converted.
    Quantity const feet(0.3, C_Ft, 0.0, 0.0);
    Quantity const meters = feet.Convert_to(C_Meter);
    EXPECT_TRUE(feet == meters);
    EXPECT_EQ(meters == feet, meters.Convert_to(C_Ft).Get_value() == 0.3);
}

TEST(Comparison, Of_different_kinds_is_refused) {
    Quantity const length(2.0, C_Meter, 2.0, 2.0);
    Quantity const time(3.0, C_Sec, 3.0, 3.0);
    EXPECT_EQ(Failure_of([&] { (void)(length == time); }), not_same);
    EXPECT_EQ(Failure_of([&] { (void)(length != time); }), not_same);
    EXPECT_EQ(Failure_of([&] { (void)(length < time); }), not_same);
    EXPECT_EQ(Failure_of([&] { (void)(length <= time); }), not_same);
    EXPECT_EQ(Failure_of([&] { (void)(length > time); }), not_same);
    EXPECT_EQ(Failure_of([&] { (void)(length >= time); }), not_same);
}

// ---- Forwarding

TEST(Forwarding, To_the_unit_algebra) {
    Quantity const object(1.0, C_MeterPerSecondSquared, 1.0, 1.0);
    EXPECT_EQ(Quantity::Get_conversion_factor(C_Meter, C_Ft), 0.3048);
    EXPECT_EQ(Quantity::Get_tuple_conversion_factor({FOOT, 1}, {METER, 1}), 0.3048);
    EXPECT_EQ(Quantity::Get_dimension(FOOT), LENGTH);
    EXPECT_EQ(object.Multiply_units(C_Meter, C_Sec), Unit({{METER, 1}, {SECOND, 1}}));
    EXPECT_EQ(object.Divide_units(C_Meter, C_Sec), C_MeterPerSecond);
    EXPECT_EQ(object.Get_base_unit(C_Mph), C_MeterPerSecond);
    for (Unit_string_type const type : {STR_NAME, STR_SYMBOL, STR_LOWER_CASE, STR_UPPER_CASE}) {
        EXPECT_EQ(object.Get_unit_string(type), Units_library::Get_unit_string(C_MeterPerSecondSquared, type));
        EXPECT_EQ(object.Get_unit_string_name(type), object.Get_unit_string(type));
    }
}

} // namespace
} // namespace Varnix::Value::Tests
