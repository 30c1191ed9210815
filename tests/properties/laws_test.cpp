// Laws that conversions and the unit algebra keep for random numbers and units. How far rounding may
// take a result is stated in docs/trust.md, and held here.

#include "Named_constants.h"
#include "Random_units.h"

#include <limits>
#include <utility>
#include <vector>

namespace Varnix::Value::Tests {
namespace {

// ---- Conversions

bool Are_of_one_kind(Units const& first, Units const& second) {
    auto const same_kind = [](Unit_tuple const& left, Unit_tuple const& right) {
        return Units_library::Get_dimension(left.unit) == Units_library::Get_dimension(right.unit) && left.exponent == right.exponent;
    };
    return std::equal(std::begin(first.tuples), std::end(first.tuples), std::begin(second.tuples), same_kind);
}

// The zero of levels and temperatures means nothing: they are of a middling size, and so are their errors. All else is
// positive and of any magnitude.
bool Has_arbitrary_zero(Units const& unit) {
    return unit.spl_conv == SPL_DB || Units_library::Get_dimension(unit.tuples[0].unit) == TEMPERATURE;
}

double Number_in(Units const& unit, std::mt19937& random) {
    double const part = static_cast<double>(random()) / 4294967296.0;
    return Has_arbitrary_zero(unit) ? 600.0 * part - 300.0 : (1.0 + 9.0 * part) * std::pow(10.0, static_cast<double>(random() % 61) - 30.0);
}

// In units in the last place, of the number or of one of the size of 511.
double Error(double actual, double expected, Units const& unit) {
    double const size = Has_arbitrary_zero(unit) ? 511.0 : std::fabs(expected);
    return std::fabs(actual - expected) / (std::nextafter(size, std::numeric_limits<double>::infinity()) - size);
}

void Check_conversion(Units const& from, Units const& to, Units const& way, std::mt19937& random) {
    bool const by_level = from.spl_conv == SPL_DB || to.spl_conv == SPL_DB || way.spl_conv == SPL_DB;
    double const linear_limit = by_level ? 128.0 : 4.0;
    double const number = Number_in(from, random);
    double const width = std::fabs(number) * 0.25;
    Quantity const quantity(number, from, number - width, number + width);
    Quantity const converted = quantity.Convert_to(to);
    EXPECT_LE(Error(converted.Convert_to(from).Get_value(), number, from), Has_arbitrary_zero(from) ? 1.0 : linear_limit) << from << to << number;
    EXPECT_LE(Error(quantity.Convert_to(way).Convert_to(to).Get_value(), converted.Get_value(), to), Has_arbitrary_zero(to) ? 2.0 : linear_limit)
        << from << way << to << number;
    EXPECT_TRUE(converted.Get_minus_err() <= converted.Get_value() && converted.Get_value() <= converted.Get_plus_err()) << from << to << number;
}

TEST(Laws, Of_conversions) {
    std::mt19937 random(20261123);
    for (Named_constant const& from : named_constants) {
        std::vector<Units> like;
        for (Named_constant const& other : named_constants) {
            if (Are_of_one_kind(*from.unit, *other.unit)) {
                like.push_back(*other.unit);
            }
        }
        for (int round = 0; round < 2000; ++round) {
            Check_conversion(*from.unit, like[random() % like.size()], like[random() % like.size()], random);
        }
    }
}

// ---- The unit algebra

std::vector<std::pair<int, int>> Sorted_tuples(Units const& unit) {
    std::vector<std::pair<int, int>> tuples;
    for (Unit_tuple const& tuple : unit.tuples) {
        if (tuple.unit != NO_UNIT && tuple.exponent != 0) {
            tuples.emplace_back(tuple.unit, tuple.exponent);
        }
    }
    std::sort(tuples.begin(), tuples.end());
    return tuples;
}

TEST(Laws, Of_the_unit_algebra) {
    Random_units random;
    std::mt19937 order(20261123);
    int quotients = 0;
    for (int round = 0; round < 5000; ++round) {
        Units const unit = random.Canonical();
        Units shuffled = unit;
        auto const end =
            std::find_if(std::begin(shuffled.tuples), std::end(shuffled.tuples), [](Unit_tuple const& tuple) { return tuple.unit == NO_UNIT; });
        std::shuffle(std::begin(shuffled.tuples), end, order);
        EXPECT_EQ(Units_library::Arrange_tuple(unit), unit);
        EXPECT_EQ(Units_library::Arrange_tuple(shuffled), unit) << shuffled;

        Units const factor = random.Canonical();
        Units quotient;
        if (Failure_of([&] { quotient = Units_library::Divide_units(Units_library::Multiply_units(unit, factor), factor); }) == "no failure") {
            EXPECT_EQ(Sorted_tuples(quotient), Sorted_tuples(unit)) << unit << factor;
            ++quotients;
        }
    }
    EXPECT_GT(quotients, 1000);
}

} // namespace
} // namespace Varnix::Value::Tests
