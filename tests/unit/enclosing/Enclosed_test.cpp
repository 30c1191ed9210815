// The enclosing arithmetic against MPFR: it encloses, and as tightly as doubles can.

#include "enclosing/Elementary_functions.h"
#include "enclosing/Enclosed.h"
#include "enclosing/Prepared_factor.h"

#include "Random_numbers.h"
#include "Reference_number.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace Varnix::Value::Tests {
namespace {

using namespace Physics;

constexpr int Rounds = 20000; // of each operation; ten times as many take ten seconds and found no more

// The bounds are the doubles beside the truth, and the middle rounds to the double nearest to it.
void Expect_tight(Enclosed const& result, Real const& truth, char const* operation, double x, double y) {
    EXPECT_EQ(Round_down(result), truth.Down()) << operation << ' ' << std::hexfloat << x << ' ' << y;
    EXPECT_EQ(Round_up(result), truth.Up()) << operation << ' ' << std::hexfloat << x << ' ' << y;
    EXPECT_EQ(Round_to_nearest(result), truth.Nearest()) << operation << ' ' << std::hexfloat << x << ' ' << y;
}

TEST(Enclosed, Rounds_operations_to_the_neighbours_of_the_truth) {
    Hard_doubles doubles;
    for (int round = 0; round < Rounds; ++round) {
        double const x = doubles();
        double const y = round % 8 == 0 ? x * (1.0 + std::ldexp(doubles.Between(-4, 4), -52)) : doubles();
        if (!std::isfinite(y)) {
            continue;
        }
        Expect_tight(Enclose(x) + Enclose(y), Real(x) + Real(y), "+", x, y);
        Expect_tight(Enclose(x) - Enclose(y), Real(x) - Real(y), "-", x, y);
        Expect_tight(Enclose(x) * Enclose(y), Real(x) * Real(y), "*", x, y);
        if (y != 0.0) {
            Expect_tight(Enclose(x) / Enclose(y), Real(x) / Real(y), "/", x, y);
        }
        Expect_tight(Square_root(Enclose(std::fabs(x))), Root(Real(std::fabs(x))), "root", x, 0.0);
    }
}

// Results of several operations, of which each leaves something out: enclosed, and to one place.
void Expect_enclosed(Enclosed const& result, Real const& truth) {
    double const lower = Round_down(result);
    double const upper = Round_up(result);
    EXPECT_LE(lower, truth.Down());
    EXPECT_GE(upper, truth.Up());
    EXPECT_GE(std::nextafter(lower, HUGE_VAL), truth.Down());
    EXPECT_LE(std::nextafter(upper, -HUGE_VAL), truth.Up());
}

TEST(Enclosed, Keeps_enclosing_through_several_operations) {
    Hard_doubles doubles;
    for (int round = 0; round < Rounds; ++round) {
        double const a = doubles.Between(-100, 100) / 7.0;
        double const b = doubles.Between(1, 1000) / 11.0;
        double const c = std::ldexp(doubles.Between(1, 1 << 20), doubles.Between(-40, 0));
        Enclosed const sum = Enclose(a) / Enclose(b) + Enclose(c);
        Expect_enclosed(sum * Square_root(Enclose(c)), (Real(a) / Real(b) + Real(c)) * Root(Real(c)));
        Expect_enclosed(Power(Enclose(b), 13), Raised(Real(b), 13));
        Expect_enclosed(Power(Enclose(b), -5), Raised(Real(b), -5));
    }
}

TEST(Enclosed, Applies_ratios_exactly_where_that_is_a_double) {
    Hard_doubles doubles;
    for (int round = 0; round < Rounds; ++round) {
        Exact_factor factor;
        double divisor = 1.0;
        Real truth(1.0);
        for (std::size_t k = 0; k < primes.count; ++k) {
            double const prime = primes.numbers[k];
            factor.powers[k] = static_cast<std::int16_t>(doubles.Between(0, k < 7 ? 1 : 9) == 1 ? doubles.Between(-4, 4) : 0);
            truth = truth * Raised(Real(prime), factor.powers[k]);
            divisor *= k > 0 && factor.powers[k] < 0 && divisor < 1e9 ? std::pow(prime, -factor.powers[k]) : 1.0;
        }
        if (round % 3 == 0) {
            std::int16_t& pi = factor.powers[Exact_factor::Place_of_pi];
            std::int16_t& ln10 = factor.powers[Exact_factor::Place_of_ln10];
            pi = static_cast<std::int16_t>(doubles.Between(-2, 2));
            ln10 = static_cast<std::int16_t>(doubles.Between(-2, 2));
            truth = truth * Raised(Real::Pi(), pi) * Raised(Real::Ln_ten(), ln10);
        }
        double const x = round % 2 == 0 ? divisor * doubles.Between(1, 3) : doubles();
        Enclosed const product = Enclose(x) * factor;
        // The truth has been rounded at its 4500th bit, where it has as many.
        Real const exact(product.Is_exact() && product.low == 0.0 ? (Real(x) * truth).Nearest() : 0.0);
        Expect_enclosed(product, product.Is_exact() && product.low == 0.0 ? exact : Real(x) * truth);
    }
    EXPECT_TRUE((Enclose(3.0) * Exact_factor{{0, -1}}).Is_exact());
    Exact_factor pi;
    pi.powers[Exact_factor::Place_of_pi] = 1;
    EXPECT_TRUE((Enclose(0.0) * (Exact_factor{{0, -1}} / pi)).Is_zero());
    EXPECT_EQ(Round_down(Enclose(1.0) * pi), 0x1.921fb54442d18p+1);
}

TEST(Enclosed, Takes_powers_of_ten_and_logarithms) {
    Hard_doubles doubles;
    for (int round = 0; round < Rounds; ++round) {
        double const x = round % 3 == 0   ? doubles.Between(-300, 300) / 10.0
                         : round % 3 == 1 ? std::ldexp(doubles.Between(-(1 << 30), 1 << 30), doubles.Between(-90, -22))
                                          : doubles.Between(-300, 300);
        Expect_enclosed(Power_of_ten(Enclose(x)), Ten_to(Real(x)));
        double const small = std::ldexp(x, -doubles.Between(10, 900)); // 10^x is 1 there, but for hundreds of bits
        Expect_enclosed(Power_of_ten_less_one(Enclose(small)), Ten_to_less_one(Real(small)));
        double const y = round % 2 == 0 ? std::fabs(doubles()) : 1.0 + std::ldexp(doubles.Between(-1000, 1000), -doubles.Between(10, 52));
        if (y > 0.0) {
            Expect_enclosed(Logarithm(Enclose(y)), Log_ten(Real(y)));
        }
    }
    for (int power = 0; power <= 22; ++power) {
        EXPECT_TRUE(Power_of_ten(Enclose(power)).Is_exact());
        EXPECT_EQ(Round_up(Logarithm(Power_of_ten(Enclose(power)))), power);
    }
}

TEST(Enclosed, Goes_on_with_infinite_numbers) {
    double const infinity = std::numeric_limits<double>::infinity();
    Enclosed const infinite = Enclose(infinity);
    EXPECT_EQ(Round_up(infinite * Enclose(1e-300)), infinity);
    EXPECT_EQ(Round_down(-infinite + Enclose(1e300)), -infinity);
    EXPECT_EQ(Round_down(Enclose(-1.0) / infinite), 0.0);
    EXPECT_EQ(Round_up(infinite * Enclose(0.0)), 0.0);
    EXPECT_EQ(Round_up(Square_root(infinite)), infinity);
    EXPECT_EQ(Round_up(Power(infinite, 64)), infinity);
    EXPECT_EQ(Round_up(Logarithm(infinite)), infinity);
    EXPECT_EQ(Round_down(Logarithm(Enclose(0.0))), -infinity);
    EXPECT_EQ(Round_down(Logarithm(Enclose(1.0) / infinite)), -infinity);
    EXPECT_EQ(Round_down(Logarithm(Square_root(Enclose(1.0) / infinite))), -infinity);
    EXPECT_EQ(Round_up(Power_of_ten(-infinite)), 0.0);
    EXPECT_EQ(Round_up(Power_of_ten(Enclose(-1e9))), 5e-324);
    EXPECT_EQ(Round_down(Power_of_ten(Enclose(1e9))), std::numeric_limits<double>::max());
}

} // namespace
} // namespace Varnix::Value::Tests
