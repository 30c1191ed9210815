// Value objects: construction, formulas, conversions, arithmetic and comparison.

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
    EXPECT_TRUE(Is(unordered.Convert_to(C_MilliMeter), 5000.0, 4000.0, 6000.0, C_MilliMeter));
    EXPECT_TRUE(Is(Quantity(std::move(unordered)), 5.0, 6.0, 4.0, C_Meter));
}

TEST(Core, Takes_arguments_from_itself) {
    Quantity object(1.0, C_Meter, 2.0, 3.0);
    object.Set(object.Get_plus_err(), object.Get_unit(), object.Get_value(), object.Get_minus_err());
    EXPECT_TRUE(Is(object, 3.0, 1.0, 2.0, C_Meter));
    object.Set_plus_minus_err(object.Get_plus_err(), object.Get_minus_err());
    EXPECT_TRUE(Is(object, 3.0, 1.0, 2.0, C_Meter));
    object.Set_plus_minus_err(object.Get_minus_err(), object.Get_plus_err());
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
        {C_MeterPerSecond, Unit({{NO_UNIT, 0}, {SECOND, -1}}), false},
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

// ---- Arithmetic

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

// ---- Keys of the electrical relations

TEST(Key, Compares_units_member_by_member) {
    using Key = Units_special_conv;
    Key const key = {C_Watts, C_Volts, C_Amps};
    EXPECT_TRUE(Quantity::Is_units_special_equal(key, Key{C_KiloWatts, C_MilliVolts, C_MicroAmps}));
    EXPECT_TRUE(Quantity::Is_units_special_equal(key, Key{C_DBmW, C_Volts, C_Amps}));
    EXPECT_FALSE(Quantity::Is_units_special_equal(key, Key{C_Amps, C_Volts, C_Amps}));
    EXPECT_FALSE(Quantity::Is_units_special_equal(key, Key{C_Watts, C_Amps, C_Amps}));
    EXPECT_FALSE(Quantity::Is_units_special_equal(key, Key{C_Watts, C_Volts, C_Watts}));
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
