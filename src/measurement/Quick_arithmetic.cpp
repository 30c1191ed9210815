#include "Quick_arithmetic.h"

#include "basics/Error_free.h"

#include <cmath>

namespace Varnix::Value::Physics {

using namespace Basics;

Rounded_numbers Rounded_numbers_of(Measurement const& x) {
    return {x.Get_lower(), x.Get_value(), x.Get_upper()};
}

namespace {

// Within these, no part of a product or quotient overflows or loses bits.
constexpr double Least = 0x1p-400;
constexpr double Greatest = 0x1p400;

// A result rounded to nearest, with the sign of what rounding left out, if that is certain.
struct Nearest {
    Exact_pair result;
    bool is_certain;
};

constexpr Nearest unknown = {{0.0, 0.0}, false};

bool Is_in_reach(double number) {
    double const magnitude = std::fabs(number);
    return magnitude > Least && magnitude < Greatest;
}

Nearest Nearest_sum(double x, double y) {
    Exact_pair const sum = Exact_sum(x, y);
    return {sum, std::fabs(sum.rounded) < 0x1p1020};
}

// (high + low) / divisor, from the sum of two doubles.
Nearest Nearest_divided(Exact_pair const& dividend, double divisor) {
    double const quotient = dividend.rounded / divisor;
    Exact_pair const product = Exact_product(quotient, divisor);
    // What a division leaves is a double itself; with the low part it is rounded, which keeps its
    // sign.
    double const residual = ((dividend.rounded - product.rounded) - product.rest) + dividend.rest;
    double const correction = residual / divisor;
    Exact_pair const sum = Exact_sum(quotient, correction);
    bool const can_be_told =
        correction == 0.0 || std::fabs(sum.rest) > std::fabs(correction) * 0x1p-48;
    return {sum, can_be_told};
}

// x * y / divisor
Nearest Nearest_product(double x, double y, double divisor) {
    if (x == 0.0 || y == 0.0) {
        return {{0.0, 0.0}, true};
    }
    if (!Is_in_reach(x) || !Is_in_reach(y)) {
        return unknown;
    }
    Exact_pair const product = Exact_product(x, y);
    return divisor == 1.0 ? Nearest{product, true} : Nearest_divided(product, divisor);
}

Nearest Nearest_quotient(double x, double y) {
    if (x == 0.0) {
        return {{0.0, 0.0}, true};
    }
    return Is_in_reach(x) && Is_in_reach(y) ? Nearest_divided({x, 0.0}, y) : unknown;
}

bool Round_outward(Nearest const& lower, Nearest const& value, Nearest const& upper,
                   Rounded_numbers& result) {
    result = {Down(lower.result), value.result.rounded, Up(upper.result)};
    return lower.is_certain && value.is_certain && upper.is_certain;
}

bool Is_single(Rounded_numbers const& x) {
    return x.lower == x.upper;
}

bool Round_single(Nearest const& number, Rounded_numbers& result) {
    return Round_outward(number, number, number, result);
}

} // namespace

bool Quick_sum(Rounded_numbers const& x, Rounded_numbers const& y, Rounded_numbers& sum) {
    if (Is_single(x) && Is_single(y)) {
        return Round_single(Nearest_sum(x.value, y.value), sum);
    }
    return Round_outward(Nearest_sum(x.lower, y.lower), Nearest_sum(x.value, y.value),
                         Nearest_sum(x.upper, y.upper), sum);
}

bool Quick_product(Rounded_numbers const& x, Rounded_numbers const& y, double divisor,
                   Rounded_numbers& product) {
    if (!(x.lower >= 0.0 && y.lower >= 0.0)) {
        return false;
    }
    if (Is_single(x) && Is_single(y)) {
        return Round_single(Nearest_product(x.value, y.value, divisor), product);
    }
    return Round_outward(Nearest_product(x.lower, y.lower, divisor),
                         Nearest_product(x.value, y.value, divisor),
                         Nearest_product(x.upper, y.upper, divisor), product);
}

bool Quick_quotient(Rounded_numbers const& x, Rounded_numbers const& y, Rounded_numbers& quotient) {
    if (!(x.lower >= 0.0 && y.lower > 0.0)) {
        return false;
    }
    if (Is_single(x) && Is_single(y)) {
        return Round_single(Nearest_quotient(x.value, y.value), quotient);
    }
    return Round_outward(Nearest_quotient(x.lower, y.upper), Nearest_quotient(x.value, y.value),
                         Nearest_quotient(x.upper, y.lower), quotient);
}

bool Quick_multiple(Rounded_numbers const& x, double numerator, double divisor,
                    Rounded_numbers& multiple) {
    if (Is_single(x)) {
        return Round_single(Nearest_product(x.value, numerator, divisor), multiple);
    }
    return Round_outward(Nearest_product(x.lower, numerator, divisor),
                         Nearest_product(x.value, numerator, divisor),
                         Nearest_product(x.upper, numerator, divisor), multiple);
}

} // namespace Varnix::Value::Physics
