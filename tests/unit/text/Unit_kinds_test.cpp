// Kinds of units beyond the core, and the lists of all units and prefixes.

#include "Test_support.h"

#include <varnix/value/Engineering_units.h>
#include <varnix/value/Unit_kinds.h>

namespace Varnix::Value::Tests {
namespace {

Units const newton = Unit({{NEWTON, 1}});
Units const kilogram_metre = Unit({{GRAM, 1}, {METER, 1}, {SECOND, -2}}, KILO);

TEST(Kinds_beyond_core, Are_those_of_physics) {
    struct Row {
        Units first;
        Units second;
        bool same;
        char const* names; // of the first and of the second
    };
    Row const rows[] = {
        {newton, kilogram_metre, true, "force mass*length/time^2"},
        {newton, Unit({{WATT, 1}, {METER, -1}, {SECOND, 1}}), true, "force power*time/length"},
        {newton, Unit({{POUND_FORCE, 1}}, KILO), true, "force force"},
        {Unit({{METER, 1}, {NEWTON, 1}}), Unit({{JOULE, 1}}), true, "force*length energy"},
        {Unit({{PASCAL, 1}}), Unit({{METER, -2}, {NEWTON, 1}}), true, "pressure force/length^2"},
        {Unit({{LITER, 1}}), Unit({{METER, 3}}), true, "volume length^3"},
        {Unit({{TONNE, 1}}), C_Grams, true, "mass mass"},
        {Unit({{HORSEPOWER, 1}}), C_DBmW, true, "power power"},
        {Unit({{WEBER, 1}, {AMP, -1}}), Unit({{HENRY, 1}}), true, "magnetic flux/current inductance"},
        {Unit({{SIEMENS, 1}}), Unit({{OHM, -1}}), true, "conductance 1/resistance"},
        {Unit({{REVOLUTION, 1}, {MINUTE, -1}}), C_RadianPerSec, true, "angle/time angle/time"},
        {Unit({{REVOLUTION, 1}}), C_Percent, false, "angle ratio"},
        {Unit({{STERADIAN, 1}}), Unit({{RADIAN, 2}}), true, "solid angle angle^2"},
        {Unit({{PER_MILLE, 1}}), C_Percent, true, "ratio ratio"},
        {Unit({{PER_MILLE, 1}}), C_Empty, true, "ratio plain number"}, // of the core, % is none
        {Unit({{BECQUEREL, 1}}), C_Hz, true, "activity of a radionuclide 1/time"},
        {Unit({{BAUD, 1}}), C_Hz, false, "symbol rate 1/time"},
        {Unit({{NEPER, 1}}), C_DB, true, "logarithmic ratio plain ratio"},
        {Unit({{MONTH, 1}, {PASCAL, 1}}), Unit({{SECOND, 1}, {PASCAL, 1}}), false, "pressure*time pressure*time"},
        {Unit({{GRAM, -1}, {KELVIN, -1}, {JOULE, 1}}, MILLI), newton, false, "energy/(mass*temperature) force"},
        {Unit({{NEWTON, 65536}}), C_Empty, false, "force^65536 plain number"},
    };
    for (Row const& row : rows) {
        EXPECT_EQ(Same_kind(row.first, row.second), row.same) << row.names;
        EXPECT_EQ(Same_kind(row.second, row.first), row.same) << row.names;
        EXPECT_EQ(Kind_name(row.first) + ' ' + Kind_name(row.second), row.names);
    }
}

// To the core a watt is no kg m^2/s^3, and powers are 32-bit numbers.
TEST(Kinds_of_the_core, Stay_those_of_its_dimensions) {
    EXPECT_FALSE(Same_kind(C_Watts, Unit({{GRAM, 1}, {METER, 2}, {SECOND, -3}}, KILO)));
    EXPECT_TRUE(Same_kind(C_Percent, C_Radian));
    EXPECT_TRUE(Same_kind(C_Months, C_Sec));
    EXPECT_FALSE(Same_kind(Unit({{METER, 65537}}), C_Meter));
}

TEST(Kinds_beyond_core, Refuse_codes_without_a_row) {
    auto const last = All_units().back().tuples[0].unit;
    for (auto const code : {static_cast<Units_list>(1000), static_cast<Units_list>(last + 1), static_cast<Units_list>(-1)}) {
        Units const unit = Unit({{NEWTON, 1}, {code, 1}});
        EXPECT_EQ(Failure_of([&] { static_cast<void>(Same_kind(unit, newton)); }), not_defined) << code;
        EXPECT_EQ(Failure_of([&] { static_cast<void>(Same_kind(newton, unit)); }), not_defined) << code;
        EXPECT_EQ(Failure_of([&] { static_cast<void>(Kind_name(unit)); }), not_defined) << code;
    }
}

TEST(Lists, Have_the_core_first) {
    std::vector<Units> const core = Catalogue_units();
    std::vector<Units> const all = All_units();
    ASSERT_GT(all.size(), core.size());
    EXPECT_TRUE(std::equal(core.begin(), core.end(), all.begin()));
    EXPECT_EQ(all[core.size()], newton);
    EXPECT_TRUE(std::is_sorted(all.begin() + static_cast<std::ptrdiff_t>(core.size()), all.end(),
                               [](Units const& left, Units const& right) { return left.tuples[0].unit < right.tuples[0].unit; }));
}

TEST(Lists, Have_prefixes_in_the_order_of_size) {
    std::vector<SI_units> const all = All_prefixes();
    EXPECT_EQ(all.size(), Prefixes().size() + 9);
    EXPECT_EQ(all.front(), QUECTO);
    EXPECT_EQ(all.back(), YOBI);
    auto const first_binary = std::find(all.begin(), all.end(), KIBI);
    EXPECT_TRUE(std::is_sorted(all.begin(), first_binary) && std::is_sorted(first_binary, all.end()));
}

} // namespace
} // namespace Varnix::Value::Tests
