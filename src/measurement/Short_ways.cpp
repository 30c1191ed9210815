#include "Short_ways.h"

#include "basics/Error_free.h"

#include <cmath>

namespace Varnix::Value::Physics {

using namespace Basics;

Numbers Numbers_of(Measurement const& x) {
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

Nearest Sum(double x, double y) {
    Exact_pair const sum = Exact_sum(x, y);
    return {sum, std::fabs(sum.rounded) < 0x1p1020};
}

// (high + low) / divisor, from the sum of two doubles.
Nearest Divided(Exact_pair const& dividend, double divisor) {
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
Nearest Product(double x, double y, double divisor) {
    if (x == 0.0 || y == 0.0) {
        return {{0.0, 0.0}, true};
    }
    if (!Is_in_reach(x) || !Is_in_reach(y)) {
        return unknown;
    }
    Exact_pair const product = Exact_product(x, y);
    return divisor == 1.0 ? Nearest{product, true} : Divided(product, divisor);
}

Nearest Quotient(double x, double y) {
    if (x == 0.0) {
        return {{0.0, 0.0}, true};
    }
    return Is_in_reach(x) && Is_in_reach(y) ? Divided({x, 0.0}, y) : unknown;
}

bool Put_together(Nearest const& lower, Nearest const& value, Nearest const& upper,
                  Numbers& result) {
    result = {Down(lower.result), value.result.rounded, Up(upper.result)};
    return lower.is_certain && value.is_certain && upper.is_certain;
}

bool Is_single(Numbers const& x) {
    return x.lower == x.upper;
}

bool Put_single(Nearest const& number, Numbers& result) {
    return Put_together(number, number, number, result);
}

} // namespace

bool Short_sum(Numbers const& x, Numbers const& y, Numbers& sum) {
    if (Is_single(x) && Is_single(y)) {
        return Put_single(Sum(x.value, y.value), sum);
    }
    return Put_together(Sum(x.lower, y.lower), Sum(x.value, y.value), Sum(x.upper, y.upper), sum);
}

bool Short_product(Numbers const& x, Numbers const& y, double divisor, Numbers& product) {
    if (!(x.lower >= 0.0 && y.lower >= 0.0)) {
        return false;
    }
    if (Is_single(x) && Is_single(y)) {
        return Put_single(Product(x.value, y.value, divisor), product);
    }
    return Put_together(Product(x.lower, y.lower, divisor), Product(x.value, y.value, divisor),
                        Product(x.upper, y.upper, divisor), product);
}

bool Short_quotient(Numbers const& x, Numbers const& y, Numbers& quotient) {
    if (!(x.lower >= 0.0 && y.lower > 0.0)) {
        return false;
    }
    if (Is_single(x) && Is_single(y)) {
        return Put_single(Quotient(x.value, y.value), quotient);
    }
    return Put_together(Quotient(x.lower, y.upper), Quotient(x.value, y.value),
                        Quotient(x.upper, y.lower), quotient);
}

bool Short_multiple(Numbers const& x, double numerator, double divisor, Numbers& multiple) {
    if (Is_single(x)) {
        return Put_single(Product(x.value, numerator, divisor), multiple);
    }
    return Put_together(Product(x.lower, numerator, divisor), Product(x.value, numerator, divisor),
                        Product(x.upper, numerator, divisor), multiple);
}

} // namespace Varnix::Value::Physics
