// The quick arithmetic against the enclosing arithmetic, bit by bit.

#include "enclosing/Bands.h"
#include "measurement/Measured_bands.h"
#include "measurement/Quick_arithmetic.h"
#include "measurement/Quick_power.h"

#include "Random_numbers.h"

#include <varnix/value/Measurement_text.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace Varnix::Value::Tests {
namespace {

using namespace Physics;

constexpr int Rounds = 20000;

Band Band_of(Rounded_numbers const& x) {
    return {Enclose(x.lower), Enclose(x.value), Enclose(x.upper), false};
}

void Expect_same(Rounded_numbers const& numbers, Band const& band, char const* operation) {
    EXPECT_EQ(numbers.lower, Round_down(band.lower)) << operation;
    EXPECT_EQ(numbers.value, Round_to_nearest(band.value)) << operation;
    EXPECT_EQ(numbers.upper, Round_up(band.upper)) << operation;
}

TEST(Quick_arithmetic, Agree_with_the_enclosing_arithmetic) {
    Hard_doubles doubles;
    int answered = 0;
    auto const draw = [&] {
        std::vector<double> ends = {std::fabs(doubles()), std::fabs(doubles()), std::fabs(doubles())};
        std::sort(ends.begin(), ends.end());
        return doubles.Between(0, 2) == 0 ? Rounded_numbers{ends[0], ends[0], ends[0]} : Rounded_numbers{ends[0], ends[1], ends[2]};
    };
    for (int round = 0; round < Rounds; ++round) {
        Rounded_numbers const x = draw();
        Rounded_numbers const y = draw();
        Rounded_numbers result{};
        double const divisor = doubles.Between(1, 3600);
        double const numerator = doubles.Between(1, 1000);
        Band const over = Single(Enclose(divisor));
        if (Quick_sum(x, y, result)) {
            Expect_same(result, Band_of(x) + Band_of(y), "sum");
        }
        if (Quick_product(x, y, divisor, result)) {
            Expect_same(result, Band_of(x) * Band_of(y) / over, "product");
            ++answered;
        }
        if (Quick_quotient(x, y, result)) {
            Expect_same(result, Band_of(x) / Band_of(y), "quotient");
            ++answered;
        }
        if (Quick_multiple(x, numerator, divisor, result)) {
            Expect_same(result, Band_of(x) * Single(Enclose(numerator)) / over, "multiple");
            ++answered;
        }
    }
    EXPECT_GT(answered, Rounds / 4);
}

// Levels of all sizes, as doubles and as decimals, and levels near whole powers of ten.
TEST(Quick_arithmetic, Take_powers_of_ten_as_the_enclosing_arithmetic) {
    Hard_doubles doubles;
    int answered = 0;
    for (int round = 0; round < Rounds; ++round) {
        int const step = doubles.Between(0, 1) == 0 ? 10 : 20;
        int const tens = doubles.Between(-30, 30);
        double const level = doubles.Between(-300000, 300000) / (round % 3 == 0 ? 1024.0 : 100.0) + (round % 5 == 0 ? doubles() * 1e-300 : 0.0);
        Measurement const binary(level, C_DBW, level - 0.375, level + 1e-13 * std::fabs(level));
        Measurement const decimal = Parse_measurement(std::to_string(doubles.Between(-99999999, 99999999)) + "e-5 ± 0.3 dBW");
        for (Measurement const& x : {binary, decimal}) {
            Rounded_numbers result{};
            if (Quick_power(x, step, tens, result)) {
                Expect_same(result, Scaled_power_of_ten(Physics::Band_of(x), step, Powers_of_ten(tens)), "power of ten");
                ++answered;
            }
        }
    }
    EXPECT_GT(answered, Rounds);
    Rounded_numbers exact{};
    EXPECT_FALSE(Quick_power(Measurement(20.0, C_DBW), 10, 0, exact)); // 100, to the bit
}

} // namespace
} // namespace Varnix::Value::Tests
