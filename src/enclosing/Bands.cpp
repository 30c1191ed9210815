#include "Bands.h"

#include "Elementary_functions.h"
#include "Prepared_factor.h"

namespace Varnix::Value::Physics {

Band Band_of(double lower, double value, double upper) {
    if (lower == upper) {
        return Single(Enclose(value));
    }
    return {Enclose(lower), Enclose(value), Enclose(upper), false};
}

bool Is_below_zero(Enclosed const& x) {
    return !Is_positive(x) && !x.Is_zero();
}

bool May_be_zero(Band const& x) {
    return !Is_positive(x.lower) && !Is_negative(x.upper);
}

Band operator-(Band const& x) {
    return {-x.upper, -x.value, -x.lower, x.is_single};
}

Band operator+(Band const& x, Band const& y) {
    if (x.is_single && y.is_single) {
        return Single(x.value + y.value);
    }
    return {x.lower + y.lower, x.value + y.value, x.upper + y.upper, false};
}

Band operator-(Band const& x, Band const& y) {
    return x + -y;
}

namespace {

// The lesser of two. Where they overlap, one that encloses it.
Enclosed Lesser(Enclosed const& x, Enclosed const& y) {
    Enclosed const difference = x - y;
    if (Is_negative(difference) || difference.Is_zero()) {
        return x;
    }
    return Is_positive(difference) ? y : Hull(x, y);
}

Enclosed Greater(Enclosed const& x, Enclosed const& y) {
    return -Lesser(-x, -y);
}

// x times y, of which no number is negative.
Band Product_with_positive(Band const& x, Band const& y) {
    return {x.lower * (Is_below_zero(x.lower) ? y.upper : y.lower), x.value * y.value,
            x.upper * (Is_below_zero(x.upper) ? y.lower : y.upper), false};
}

} // namespace

Band operator*(Band const& x, Band const& y) {
    if (x.is_single && y.is_single) {
        return Single(x.value * y.value);
    }
    if (!Is_below_zero(y.lower)) {
        return Product_with_positive(x, y);
    }
    if (!Is_below_zero(x.lower)) {
        return Product_with_positive(y, x);
    }
    if (!Is_below_zero(-y.upper)) {
        return -Product_with_positive(x, -y);
    }
    if (!Is_below_zero(-x.upper)) {
        return -Product_with_positive(y, -x);
    }
    return {Lesser(x.lower * y.upper, x.upper * y.lower), x.value * y.value,
            Greater(x.lower * y.lower, x.upper * y.upper), false};
}

namespace {

// x over y, of which all numbers are positive.
Band Quotient_by_positive(Band const& x, Band const& y) {
    return {x.lower / (Is_below_zero(x.lower) ? y.lower : y.upper), x.value / y.value,
            x.upper / (Is_below_zero(x.upper) ? y.upper : y.lower), false};
}

} // namespace

Band Quotient(Band const& x, Band const& y) {
    if (x.is_single && y.is_single) {
        return Single(x.value / y.value);
    }
    return Is_positive(y.lower) ? Quotient_by_positive(x, y) : -Quotient_by_positive(x, -y);
}

Band operator*(Band const& x, Exact_factor const& factor) {
    if (factor.Is_one()) {
        return x;
    }
    Prepared_factor const prepared(factor);
    return Increasing(x, prepared);
}

Band Absolute(Band const& x) {
    if (!Is_below_zero(x.lower)) {
        return x;
    }
    if (!Is_below_zero(-x.upper)) {
        return -x;
    }
    return {Enclosed{}, Is_below_zero(x.value) ? -x.value : x.value, Greater(-x.lower, x.upper),
            false};
}

Band Power(Band const& x, int exponent) {
    if (exponent == 0) {
        return Single(Enclose(1.0));
    }
    auto const raise = [exponent](Enclosed const& number) {
        return Physics::Power(number, exponent);
    };
    return Increasing(exponent % 2 == 0 ? Absolute(x) : x, raise);
}

Band Scaled_power_of_ten(Band const& x, int step, Exact_factor const& factor) {
    Enclosed const steps = Enclose(step);
    Prepared_factor const prepared(factor);
    return Increasing(x, [&](Enclosed const& number) {
        Enclosed const exponent = number / steps;
        int tens = 0;
        return Is_small_whole(exponent, tens) ? Enclose(1.0) * (factor * Powers_of_ten(tens))
                                              : prepared(Power_of_ten(exponent));
    });
}

} // namespace Varnix::Value::Physics
