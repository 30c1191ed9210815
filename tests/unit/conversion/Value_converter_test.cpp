// `Convert_to` and the converters against the conversion as it is defined: all pairs of the named
// units, and random units, right ones and wrong ones.

#include "Named_constants.h"
#include "Random_units.h"
#include "Reference_conversion.h"
#include "Test_support.h"

#include <limits>
#include <type_traits>
#include <vector>

namespace Varnix::Value::Tests {
namespace {

using Converter = Value_converter<double>;
using Limits = std::numeric_limits<double>;

static_assert(std::is_trivially_copyable_v<Converter>);
static_assert(noexcept(std::declval<Converter const&>().Convert(1.0)));

// Numbers whose bits a careless conversion would change.
std::vector<double> const samples = {0.0,
                                     -0.0,
                                     1.0,
                                     -3.7,
                                     29.3,
                                     1e-3,
                                     Limits::denorm_min(),
                                     Limits::max(),
                                     -Limits::max(),
                                     Limits::infinity(),
                                     -Limits::infinity(),
                                     Limits::quiet_NaN(),
                                     273.15,
                                     -40.0};

bool Same(Numbers const& left, Numbers const& right) {
    return Same_bits(left.value, right.value) && Same_bits(left.minus_err, right.minus_err) && Same_bits(left.plus_err, right.plus_err);
}

Numbers Numbers_of(Quantity const& quantity) {
    return {quantity.Get_value(), quantity.Get_minus_err(), quantity.Get_plus_err()};
}

void Check_arrays(Converter const& converter, std::vector<double> const& expected) {
    std::vector<double> converted(samples.size());
    converter.Convert(samples.data(), converted.data(), samples.size());
    std::vector<double> in_place = samples;
    converter.Convert(in_place.data(), in_place.data(), in_place.size());
    for (std::size_t k = 0; k < samples.size(); ++k) {
        EXPECT_TRUE(Same_bits(converted[k], expected[k]) && Same_bits(in_place[k], expected[k])) << samples[k];
    }
}

void Check_numbers(Quantity const& object, Units const& target, Converter const& converter) {
    Quantity sample = object;
    std::vector<double> expected;
    for (std::size_t k = 0; k < samples.size(); ++k) {
        sample.Set(samples[k], object.Get_unit(), samples[(k + 3) % samples.size()], samples[(k + 8) % samples.size()]);
        Numbers const reference = Reference_conversion(sample, target);
        EXPECT_TRUE(Same(Numbers_of(sample.Convert_to(target)), reference)) << samples[k];
        EXPECT_TRUE(Same(Numbers_of(converter.Convert(sample)), reference)) << samples[k];
        EXPECT_TRUE(Same_bits(converter.Convert(samples[k]), reference.value)) << samples[k];
        expected.push_back(reference.value);
    }
    Check_arrays(converter, expected);
}

// Returns whether the conversion is possible.
bool Check_pair(Units const& from, Units const& target) {
    SCOPED_TRACE(::testing::PrintToString(from) + " to " + ::testing::PrintToString(target));
    Quantity object;
    object.Set_unit(from);
    std::string const failure = Failure_of([&] { Reference_conversion(object, target); });
    EXPECT_EQ(Failure_of([&] { (void)object.Convert_to(target); }), failure);
    EXPECT_EQ(Failure_of([&] { Converter(from, target); }), failure);
    if (failure != "no failure") {
        return false;
    }
    Converter const converter(from, target);
    EXPECT_EQ(converter.Get_source(), from);
    EXPECT_EQ(converter.Get_target(), Units_library::Arrange_tuple(target));
    EXPECT_EQ(object.Convert_to(target).Get_unit(), converter.Get_target());
    Check_numbers(object, target, converter);
    return true;
}

TEST(Converter, Agrees_for_all_pairs_of_named_units) {
    int possible = 0;
    for (Named_constant const& from : named_constants) {
        for (Named_constant const& to : named_constants) {
            possible += Check_pair(*from.unit, *to.unit) ? 1 : 0;
        }
    }
    EXPECT_GT(possible, 1000);
}

// ---- Random units

TEST(Converter, Agrees_for_random_units) {
    Random_units random;
    int possible = 0;
    for (int round = 0; round < 20000; ++round) {
        Units const from = random.Any();
        possible += Check_pair(from, random.Like(from)) ? 1 : 0;
    }
    EXPECT_GT(possible, 3000);
}

// ---- What is its own

TEST(Converter, Takes_arrays_of_any_length) {
    for (auto const& [from, to] : {std::pair(C_Ft, C_Meter), std::pair(C_DgreeC, C_DgreeF), std::pair(C_DBmW, C_Watts)}) {
        Converter const converter(from, to);
        std::vector<double> numbers(100000);
        for (std::size_t k = 0; k < numbers.size(); ++k) {
            numbers[k] = static_cast<double>(k) / 1000.0;
        }
        std::vector<double> converted = numbers;
        converter.Convert(converted.data(), converted.data(), 0);
        EXPECT_EQ(converted, numbers);
        converter.Convert(converted.data(), converted.data(), converted.size());
        for (std::size_t k = 0; k < numbers.size(); ++k) {
            ASSERT_TRUE(Same_bits(converted[k], converter.Convert(numbers[k]))) << k;
        }
    }
}

TEST(Converter, Refuses_values_in_another_unit) {
    Converter const converter(C_Ft, C_Meter);
    for (Units const& unit : {C_Meter, Unit({{FOOT, 1}}, KILO), Unit({{FOOT, 1}}, NO_PREFIX, SPL_DB), Unit({{FOOT, 1}, {NO_UNIT, 1}})}) {
        EXPECT_EQ(Failure_of([&] { (void)converter.Convert(Quantity(1.0, unit, 1.0, 1.0)); }), not_same) << unit;
    }
}

} // namespace
} // namespace Varnix::Value::Tests
