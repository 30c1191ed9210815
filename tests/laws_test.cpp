// Laws that conversions and the unit algebra keep for any number and any unit, on random ones. How
// far rounding may take a result is stated in docs/trust.md, and held here.

#include "Named_constants.h"
#include "Test_support.h"

#include <limits>
#include <random>
#include <utility>
#include <vector>

namespace Varnix::Value::Tests {
namespace {

// ---- Random numbers and units

class Random {
  public:
    int Pick(std::size_t count) { return static_cast<int>(generator() % count); }

    double Between(double low, double high) { return low + (high - low) * (static_cast<double>(generator()) / 4294967296.0); }

    // Levels and temperatures have a zero that means nothing; everything else is positive and of any magnitude.
    double Number(Units const& unit, bool is_temperature) {
        return unit.spl_conv == SPL_DB || is_temperature ? Between(-300.0, 300.0) : Between(1.0, 10.0) * std::pow(10.0, Pick(61) - 30);
    }

    // In canonical order, with no power of zero.
    Units Arranged_unit() {
        for (;;) {
            Units unit = {SPL_NONE, static_cast<SI_units>(Pick(9) - 4), {}};
            std::generate_n(unit.tuples, Pick(4), [this] {
                return Unit_tuple{static_cast<Units_list>(Pick(SYMBOL) + 1), Pick(2) == 0 ? Pick(3) + 1 : -1 - Pick(3)};
            });
            if (Failure_of([&unit] { unit = Units_library::Arrange_tuple(unit); }) == "no failure") {
                return unit;
            }
        }
    }

    template <typename Items>
    void Shuffle(Items begin, Items end) {
        std::shuffle(begin, end, generator);
    }

  private:
    std::mt19937 generator{20261123};
};

// ---- Conversions

bool Are_of_one_kind(Units const& first, Units const& second) {
    auto const same_kind = [](Unit_tuple const& left, Unit_tuple const& right) {
        return Units_library::Get_dimension(left.unit) == Units_library::Get_dimension(right.unit) && left.exponent == right.exponent;
    };
    return std::equal(std::begin(first.tuples), std::end(first.tuples), std::begin(second.tuples), same_kind);
}

std::vector<Units> Named_units_like(Units const& unit) {
    std::vector<Units> units;
    for (Named_constant const& constant : named_constants) {
        if (Are_of_one_kind(*constant.unit, unit)) {
            units.push_back(*constant.unit);
        }
    }
    return units;
}

// The error in units in the last place: of the number itself, or, where zero means nothing, of one of the size of 511.
double Error(double actual, double expected, bool absolute) {
    double const size = absolute ? 511.0 : std::fabs(expected);
    return std::fabs(actual - expected) / (std::nextafter(size, std::numeric_limits<double>::infinity()) - size);
}

bool Contains_value(Quantity const& quantity) {
    return quantity.Get_minus_err() <= quantity.Get_value() && quantity.Get_value() <= quantity.Get_plus_err();
}

struct Bounds {
    double back; // there and back
    double way;  // through a third unit, against the direct conversion
};

// Checks the laws for one quantity of `from`, converted to `to`, by way of `way`.
void Check_laws(Random& random, Units const& from, Units const& to, Units const& way) {
    bool const is_temperature = Units_library::Get_dimension(from.tuples[0].unit) == TEMPERATURE;
    bool const with_levels = from.spl_conv == SPL_DB || to.spl_conv == SPL_DB || way.spl_conv == SPL_DB;
    Bounds const bounds = is_temperature ? Bounds{1, 1} : with_levels ? Bounds{128, 128} : Bounds{3, 4};
    Bounds const level_bounds = {1, 2};
    double const number = random.Number(from, is_temperature);
    double const width = std::fabs(number) * random.Between(0.0, 0.5);
    Quantity const quantity(number, from, number - width, number + width);
    Quantity const converted = quantity.Convert_to(to);

    bool const from_level = from.spl_conv == SPL_DB;
    double const back = converted.Convert_to(from).Get_value();
    EXPECT_LE(Error(back, number, is_temperature || from_level), from_level ? level_bounds.back : bounds.back) << from << to << number;
    bool const to_level = to.spl_conv == SPL_DB;
    double const by_way = quantity.Convert_to(way).Convert_to(to).Get_value();
    EXPECT_LE(Error(by_way, converted.Get_value(), is_temperature || to_level), to_level ? level_bounds.way : bounds.way)
        << from << way << to << number;

    EXPECT_TRUE(Contains_value(converted)) << from << to << number;
    double const compared = from == to ? number : converted.Get_value(); // equal units are not converted
    Quantity const other(random.Pick(2) == 0 ? compared : random.Number(to, is_temperature), to, 0.0, 0.0);
    EXPECT_EQ(quantity < other, compared < other.Get_value()) << from << to << number;
    EXPECT_EQ(quantity == other, compared == other.Get_value()) << from << to << number;
}

TEST(Laws, Of_conversions) {
    Random random;
    for (Named_constant const& from : named_constants) {
        std::vector<Units> const units = Named_units_like(*from.unit);
        for (int round = 0; round < 2000; ++round) {
            Check_laws(random, *from.unit, units[static_cast<std::size_t>(random.Pick(units.size()))],
                       units[static_cast<std::size_t>(random.Pick(units.size()))]);
        }
    }
}

// ---- The unit algebra

std::vector<std::pair<int, int>> Occupied(Units const& unit) {
    std::vector<std::pair<int, int>> tuples;
    for (Unit_tuple const& tuple : unit.tuples) {
        if (tuple.unit != NO_UNIT) {
            tuples.emplace_back(tuple.unit, tuple.exponent);
        }
    }
    std::sort(tuples.begin(), tuples.end());
    return tuples;
}

TEST(Laws, Of_the_unit_algebra) {
    Random random;
    for (int round = 0; round < 5000; ++round) {
        Units const unit = random.Arranged_unit();
        Units shuffled = unit;
        random.Shuffle(shuffled.tuples, shuffled.tuples + Occupied(unit).size());
        EXPECT_EQ(Units_library::Arrange_tuple(unit), unit);
        EXPECT_EQ(Units_library::Arrange_tuple(shuffled), unit) << shuffled;

        Units const factor = random.Arranged_unit();
        Units product;
        Units quotient;
        if (Failure_of([&] { product = Units_library::Multiply_units(unit, factor); }) == "no failure" &&
            Failure_of([&] { quotient = Units_library::Divide_units(product, factor); }) == "no failure") {
            EXPECT_EQ(Occupied(quotient), Occupied(unit)) << unit << factor;
            EXPECT_EQ(quotient.si_prefix, unit.si_prefix);
        }
    }
}

} // namespace
} // namespace Varnix::Value::Tests
