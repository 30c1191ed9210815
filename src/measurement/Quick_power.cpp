// 10^y = 2^k e^r as in enclosing/Elementary_functions.cpp (Cody and Waite 1980; a table of
// e^(j/64), a Taylor series for the rest), in sums of two doubles whose errors are bounded
// beforehand, and not operation by operation.
//
// The error, relative to the result: r is y ln 10 - k ln 2 with products that are exact but for
// 2^-95. In the rest of at most 2^-7 its cube and the terms beyond are computed in one double: they
// are below 2^-23.5, and seven roundings leave 2^-73.7; the terms left out are below 2^-60 times
// the cube. Adding the low parts, of at most 2^-23, rounds ten times by 2^-76.5. Together that is
// less than 2^-71. A result counts as decided where an error of 2^-68 would not change it: all but
// one of 2^13.

#include "Quick_power.h"

#include "Kept_decimals.h"
#include "basics/Error_free.h"
#include "enclosing/Enclosed_tables.h"

#include <cmath>

namespace Varnix::Value::Physics {

using namespace Basics;

namespace {

constexpr double Error = 0x1p-68;

constexpr Exact_pair Ln_ten_over_ten = {0x1.d791c5f888822p-3, 0x1.abeeabde89357p-57};
constexpr double Log2_ten = 3.321928094887362;

// ln 2 in three parts; a whole number of up to 15 bits times one of the first two is exact.
constexpr double Ln_two[] = {0x1.62e42fefa0000p-1, 0x1.cf79abc9e0000p-40, 0x1.d9cc01f97b57ap-79};

// y ln 10 - k ln 2 for y = x / step + tens.
Exact_pair Reduced(Exact_pair const& x, int step, double k) {
    double const share = step == 10 ? 1.0 : 0.5;
    Exact_pair const factor = {Ln_ten_over_ten.rounded * share, Ln_ten_over_ten.rest * share};
    Exact_pair product = Exact_product(x.rounded, factor.rounded);
    product.rest += x.rounded * factor.rest + x.rest * factor.rounded;
    Exact_pair const first = Exact_sum(product.rounded, -k * Ln_two[0]);
    Exact_pair const second = Exact_sum(first.rounded, -k * Ln_two[1]);
    return Exact_sum_of_ordered(second.rounded,
                                second.rest + (first.rest + (product.rest - k * Ln_two[2])));
}

// e^x - 1 for |x| < 2^-7 and a little.
Exact_pair Series(Exact_pair const& x) {
    double const y = x.rounded;
    Exact_pair const square = Exact_product(y, y);
    double const beyond =
        square.rounded * y *
        (1.0 / 6 +
         y * (1.0 / 24 + y * (1.0 / 120 + y * (1.0 / 720 + y * (1.0 / 5040 + y / 40320)))));
    Exact_pair const sum = Exact_sum_of_ordered(y, square.rounded * 0.5);
    double const of_rest = x.rest * (1.0 + (y + square.rounded * 0.5));
    return {sum.rounded, sum.rest + (square.rest * 0.5 + of_rest) + beyond};
}

// e^x for |x| <= 0.35.
Exact_pair Exponential(Exact_pair const& x) {
    double const step = Nearest_whole(64.0 * x.rounded);
    Enclosed const& entry = exponentials[static_cast<int>(step) - First_exponential];
    double const scale = entry.exponent < 0 ? 0.5 : 1.0;
    Exact_pair const table = {entry.high * scale, entry.low * scale};
    Exact_pair const less_one = Series({x.rounded - step / 64.0, x.rest});
    Exact_pair const product = Exact_product(table.rounded, less_one.rounded);
    Exact_pair const sum = Exact_sum_of_ordered(table.rounded, product.rounded);
    double const low =
        sum.rest + (product.rest +
                    (table.rest + (table.rounded * less_one.rest + table.rest * less_one.rounded)));
    return Exact_sum_of_ordered(sum.rounded, low);
}

// The power, and whether rounding it to nearest and outward is decided.
bool Decide_power(Exact_pair const& x, int step, int tens, Exact_pair& power) {
    if (!(std::fabs(x.rounded) < 4096.0)) {
        return false;
    }
    Exact_pair const sum = Exact_sum(x.rounded, static_cast<double>(step * tens));
    Exact_pair const shifted = Exact_sum_of_ordered(sum.rounded, sum.rest + x.rest);
    double const k = Nearest_whole(shifted.rounded / step * Log2_ten);
    if (std::fabs(k) > 1000.0) {
        return false;
    }
    Exact_pair const result = Exponential(Reduced(shifted, step, k));
    double const error = result.rounded * Error;
    double const scale = Two_to(static_cast<int>(k));
    power = {result.rounded * scale, result.rest * scale};
    return std::fabs(result.rest) > error &&
           result.rounded + (result.rest + error) == result.rounded &&
           result.rounded + (result.rest - error) == result.rounded;
}

struct Pairs {
    Exact_pair lower;
    Exact_pair value;
    Exact_pair upper;
};

Pairs Pairs_of(Measurement const& x) {
    if (Maybe_decimals const decimals = Kept_decimals(x)) {
        return {As_sum(decimals->lower, decimals->power), As_sum(decimals->value, decimals->power),
                As_sum(decimals->upper, decimals->power)};
    }
    return {{x.Get_lower(), 0.0}, {x.Get_value(), 0.0}, {x.Get_upper(), 0.0}};
}

bool Are_same(Exact_pair const& x, Exact_pair const& y) {
    return x.rounded == y.rounded && x.rest == y.rest;
}

} // namespace

bool Quick_power(Measurement const& x, int step, int tens, Rounded_numbers& power) {
    Pairs const numbers = Pairs_of(x);
    Exact_pair value{};
    if (!Decide_power(numbers.value, step, tens, value)) {
        return false;
    }
    Exact_pair lower = value;
    Exact_pair upper = value;
    bool const are_decided =
        Are_same(numbers.lower, numbers.upper) || (Decide_power(numbers.lower, step, tens, lower) &&
                                                   Decide_power(numbers.upper, step, tens, upper));
    power = {Down(lower), value.rounded, Up(upper)};
    return are_decided;
}

} // namespace Varnix::Value::Physics
