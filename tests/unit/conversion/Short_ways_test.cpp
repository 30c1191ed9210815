// Sums and products, of which nearly all go a short way, against the operators as they are defined: random units,
// levels among them, and numbers whose bounds show where they have been ordered.

#include "Random_units.h"
#include "Reference_arithmetic.h"
#include "Test_support.h"

#include <iterator>
#include <limits>
#include <sstream>

namespace Varnix::Value::Tests {
namespace {

using Limits = std::numeric_limits<double>;

double const samples[] = {1.0, -3.7, 0.0, -0.0, 29.3, 1e-3, 1e308, 5e-324, 273.15, Limits::quiet_NaN(), Limits::infinity(), 7.0, 12.5};

double Sample_number(std::size_t k) {
    return samples[k % std::size(samples)];
}

// In `unit` as it stands, arranged or not.
Quantity Sample(Units const& unit, std::size_t k) {
    Quantity quantity;
    quantity.Set(Sample_number(k), unit, Sample_number(k + 2), Sample_number(k + 5));
    return quantity;
}

// The result of `operation`, or the text of what it throws.
struct Outcome {
    Quantity result;
    std::string failure;
};

template <typename Operation>
Outcome Outcome_of(Operation const& operation) {
    Outcome outcome;
    outcome.failure = Failure_of([&] {
        Quantity const result = operation();
        // As it stands: Set would exchange two bounds of which neither is larger.
        bool const stays = result.Get_plus_err() > result.Get_minus_err();
        outcome.result.Set(result.Get_value(), result.Get_unit(), stays ? result.Get_minus_err() : result.Get_plus_err(),
                           stays ? result.Get_plus_err() : result.Get_minus_err());
    });
    return outcome;
}

// Which of two that are not numbers comes out of a sum is the compiler's choice.
bool Same(double left, double right) {
    return Same_bits(left, right) || (std::isnan(left) && std::isnan(right));
}

bool Same_numbers(Quantity const& left, Quantity const& right) {
    return Same(left.Get_value(), right.Get_value()) && Same(left.Get_minus_err(), right.Get_minus_err()) &&
           Same(left.Get_plus_err(), right.Get_plus_err());
}

// Changes a copy of `left` by `operation`, and compares it with what is expected; returns whether that is possible.
template <typename Operation, typename Expected>
bool Expect_same(char const* sign, Quantity const& left, Quantity const& right, Operation const& operation, Expected const& expected) {
    Quantity const object(left); // the copy exchanges bounds of which neither is larger
    Outcome const actual = Outcome_of([&] {
        Quantity changed(left);
        operation(changed);
        return changed;
    });
    Outcome const wanted = Outcome_of([&] { return expected(object); });
    auto const written = [](Quantity const& quantity) {
        std::ostringstream text;
        text << quantity.Get_value() << " [" << quantity.Get_minus_err() << ", " << quantity.Get_plus_err() << "] " << quantity.Get_unit();
        return text.str();
    };
    EXPECT_EQ(actual.failure, wanted.failure) << written(object) << sign << written(right);
    EXPECT_EQ(actual.result.Get_unit(), wanted.result.Get_unit()) << written(object) << sign << written(right);
    EXPECT_TRUE(Same_numbers(actual.result, wanted.result))
        << written(object) << sign << written(right) << " is " << written(actual.result) << ", not " << written(wanted.result);
    return wanted.failure == "no failure";
}

TEST(Short_ways, Sums_are_what_they_are_defined_to_be) {
    Random_units random;
    int sums = 0;
    for (std::size_t round = 0; round < 20000; ++round) {
        Quantity const left = Sample(random.Any(), round);
        Quantity const right = Sample(random.Like(left.Get_unit()), round + 4);
        bool const possible = Expect_same(
            " += ", left, right, [&](Quantity& x) { x += right; }, [&](Quantity const& x) { return Reference_sum(x, 1, right).Result(); });
        Expect_same(
            " -= ", left, right, [&](Quantity& x) { x -= right; }, [&](Quantity const& x) { return Reference_sum(x, -1, right).Result(); });
        sums += possible ? 1 : 0;
    }
    EXPECT_GT(sums, 5000);
}

TEST(Short_ways, Products_are_what_they_are_defined_to_be) {
    Random_units random;
    int products = 0;
    for (std::size_t round = 0; round < 20000; ++round) {
        Quantity const left = Sample(random.Any(), round);
        Quantity const right = Sample(round % 2 == 0 ? random.Any() : random.Like(left.Get_unit()), round + 4);
        bool const possible = Expect_same(
            " *= ", left, right, [&](Quantity& x) { x *= right; }, [&](Quantity const& x) { return Reference_product(x, 1, right).Result(); });
        Expect_same(
            " /= ", left, right, [&](Quantity& x) { x /= right; }, [&](Quantity const& x) { return Reference_product(x, -1, right).Result(); });
        products += possible ? 1 : 0;
    }
    EXPECT_GT(products, 5000);
}

TEST(Short_ways, Multiples_are_what_they_are_defined_to_be) {
    Random_units random;
    for (std::size_t round = 0; round < 20000; ++round) {
        Quantity const left = Sample(random.Any(), round);
        double const k = Sample_number(round / 5);
        Quantity const number(k, C_Empty, k, k);
        Expect_same(
            " *= ", left, number, [k](Quantity& x) { x *= k; }, [k](Quantity const& x) { return Reference_scaled(x, 1, k); });
        Expect_same(
            " /= ", left, number, [k](Quantity& x) { x /= k; }, [k](Quantity const& x) { return Reference_scaled(x, -1, k); });
    }
}

} // namespace
} // namespace Varnix::Value::Tests
