// Sums and products of units that go a short way against what they are defined to be: a conversion
// there and back, and the product of numbers and units.

#include "Random_units.h"
#include "Test_support.h"

#include <functional>
#include <iterator>

namespace Varnix::Value::Tests {
namespace {

double const samples[] = {1.0, -3.7, 0.0, -0.0, 29.3, 1e-3, 1e308, 5e-324, 273.15};

// In `unit` as it stands, arranged or not.
Quantity Sample(Units const& unit, std::size_t k) {
    auto const sample = [k](std::size_t shift) { return samples[(k + shift) % std::size(samples)]; };
    Quantity quantity;
    quantity.Set(sample(0), unit, sample(2), sample(5));
    return quantity;
}

Numbers Of(Quantity const& quantity) {
    return {quantity.Get_value(), quantity.Get_minus_err(), quantity.Get_plus_err()};
}

template <typename Combine>
Quantity Combined(Numbers const& left, Numbers const& right, Units const& unit, Combine const& combine) {
    Quantity result;
    result.Set(combine(left.value, right.value), unit, combine(left.minus_err, right.minus_err), combine(left.plus_err, right.plus_err));
    return result;
}

// The result of `operation`, or the text of what it throws.
struct Outcome {
    Quantity result;
    std::string failure;
};

template <typename Operation>
Outcome Outcome_of(Operation const& operation) {
    Outcome outcome;
    outcome.failure = Failure_of([&] { outcome.result = operation(); });
    return outcome;
}

// Where neither bound is larger, every step that orders them exchanges them: then their order tells
// how many steps there were, and nothing else.
bool Same_numbers(Quantity const& left, Quantity const& right) {
    bool const exchanged = !(left.Get_minus_err() < left.Get_plus_err()) && Same_bits(left.Get_minus_err(), right.Get_plus_err());
    return Same_bits(left.Get_value(), right.Get_value()) &&
           Same_bits(left.Get_minus_err(), exchanged ? right.Get_plus_err() : right.Get_minus_err()) &&
           Same_bits(left.Get_plus_err(), exchanged ? right.Get_minus_err() : right.Get_plus_err());
}

void Expect_same(Outcome const& actual, Outcome const& expected, Quantity const& left, Quantity const& right) {
    EXPECT_EQ(actual.failure, expected.failure) << left.Get_unit() << right.Get_unit();
    EXPECT_EQ(actual.result.Get_unit(), expected.result.Get_unit()) << left.Get_unit() << right.Get_unit();
    EXPECT_TRUE(Same_numbers(actual.result, expected.result)) << left.Get_unit() << right.Get_unit() << actual.result.Get_value();
}

// There, the sum, and back.
template <typename Combine>
Quantity Defined_sum(Quantity const& left, Quantity const& right, Combine const& combine) {
    Quantity const there = left.Convert_to(right);
    return Combined(Of(there), Of(right), there.Get_unit(), combine).Convert_to(left);
}

TEST(Short_ways, Sums_agree_with_conversions_there_and_back) {
    Random_units random;
    int sums = 0;
    for (std::size_t round = 0; round < 20000; ++round) {
        Quantity const left = Sample(random.Linear(), round);
        Units right_unit = random.Like(left.Get_unit());
        right_unit.spl_conv = SPL_NONE;
        Quantity const right = Sample(right_unit, round + 4);
        Outcome const sum = Outcome_of([&] { return Quantity(left) += right; });
        Expect_same(sum, Outcome_of([&] { return Defined_sum(left, right, std::plus<>()); }), left, right);
        Outcome difference = Outcome_of([&] { return Defined_sum(left, right, std::minus<>()); });
        difference.failure = difference.failure == "no failure" ? difference.failure : not_same;
        Expect_same(Outcome_of([&] { return Quantity(left) -= right; }), difference, left, right);
        sums += sum.failure == "no failure" ? 1 : 0;
    }
    EXPECT_GT(sums, 10000);
}

bool Share_a_dimension(Units const& left, Units const& right) {
    for (Unit_tuple const& own : left.tuples) {
        for (Unit_tuple const& other : right.tuples) {
            if (own.unit != NO_UNIT && Units_library::Get_dimension(own.unit) == Units_library::Get_dimension(other.unit)) {
                return true;
            }
        }
    }
    return false;
}

// The numbers, linear and without the prefix.
Numbers Plain(Quantity const& quantity) {
    Quantity const linear = Quantity::Normalize_DB(quantity);
    Units const unit = quantity.Get_unit();
    double const scale = unit.si_prefix == 0 ? 1.0 : std::pow(Units_library::Get_unit_base(unit), static_cast<double>(unit.si_prefix));
    return {linear.Get_value() * scale, linear.Get_minus_err() * scale, linear.Get_plus_err() * scale};
}

Units Without_prefix(Units unit) {
    unit.si_prefix = NO_PREFIX;
    return unit;
}

TEST(Short_ways, Products_without_a_common_dimension_multiply_numbers_and_units) {
    Random_units random;
    int products = 0;
    for (std::size_t round = 0; round < 40000; ++round) {
        Units const left_unit = random.Canonical();
        Units const right_unit = random.Canonical();
        if (left_unit.tuples[0].unit == NO_UNIT || right_unit.tuples[0].unit == NO_UNIT || Share_a_dimension(left_unit, right_unit)) {
            continue;
        }
        Quantity const left = Sample(left_unit, round);
        Quantity const right = Sample(right_unit, round + 4);
        Outcome const product = Outcome_of([&] { return Quantity(left) *= right; });
        Expect_same(product, Outcome_of([&] {
                        return Combined(Plain(left), Plain(right), Units_library::Multiply_units(Without_prefix(left_unit), right_unit),
                                        std::multiplies<>());
                    }),
                    left, right);
        Outcome const quotient = Outcome_of([&] {
            Units const unit = Units_library::Divide_units(Without_prefix(left_unit), right_unit);
            Quantity result = Combined(Plain(left), Plain(right), unit, std::divides<>());
            Quantity::Is_value_in_range(result);
            return result;
        });
        Expect_same(Outcome_of([&] { return Quantity(left) /= right; }), quotient, left, right);
        products += product.failure == "no failure" ? 1 : 0;
    }
    EXPECT_GT(products, 1000);
}

} // namespace
} // namespace Varnix::Value::Tests
