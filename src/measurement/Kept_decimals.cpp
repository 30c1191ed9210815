#include "Kept_decimals.h"

#include "Measurement_parts.h"
#include "basics/Doubles.h"
#include "basics/Error_free.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <numeric>

namespace Varnix::Value::Physics {

using namespace Basics;

namespace {

constexpr double Greatest_whole = 0x1p53;
constexpr int Greatest_power = Greatest_exact_power_of_ten;

double Ten_to(int power) {
    return exact_powers_of_ten[power];
}

// ---- The code: the power of ten in its lowest byte, three corrections of four bits above it

constexpr int Power_zero = 32; // so that a code is never 0
constexpr int Correction_zero = 8;

struct Code {
    int power;
    std::array<int, 3> corrections; // of lower, value, upper
};

std::int32_t Packed(Code const& code) {
    int packed = code.power + Power_zero;
    for (int k = 0; k < 3; ++k) {
        packed |= (code.corrections[static_cast<std::size_t>(k)] + Correction_zero) << (8 + 4 * k);
    }
    return packed;
}

Code Unpacked(std::int32_t packed) {
    auto const correction = [packed](int k) {
        return ((packed >> (8 + 4 * k)) & 15) - Correction_zero;
    };
    return {(packed & 255) - Power_zero, {correction(0), correction(1), correction(2)}};
}

// The whole number nearest to a double of any size, ties to even. Numbers below 2^52 lose their
// fractions in the sum, and greater ones have none.
double Whole_beside(double number) {
    double const magnitude = std::fabs(number);
    if (!(magnitude < 0x1p52)) {
        return number;
    }
    return std::copysign((magnitude + 0x1p52) - 0x1p52, number);
}

// The whole number that a double suggests.
double Suggested(double number, int power) {
    return Whole_beside(power < 0 ? number * Ten_to(-power) : number / Ten_to(power));
}

// whole * 10^power, rounded to nearest, and a rest that has the sign of what that leaves out.
Exact_pair Nearest_with_rest(double whole, int power) {
    if (power >= 0) {
        return Exact_product(whole, Ten_to(power));
    }
    double const quotient = whole / Ten_to(-power);
    Exact_pair const product = Exact_product(quotient, Ten_to(-power));
    return {quotient, (whole - product.rounded) - product.rest};
}

Rounded_numbers Rounded_numbers_of(Decimal_numbers const& x) {
    if (Is_single(x)) {
        Exact_pair const number = Nearest_with_rest(x.value, x.power);
        return {Down(number), number.rounded, Up(number)};
    }
    auto const lower = std::isinf(x.lower) ? x.lower : Down(Nearest_with_rest(x.lower, x.power));
    auto const upper = std::isinf(x.upper) ? x.upper : Up(Nearest_with_rest(x.upper, x.power));
    return {lower, Nearest_with_rest(x.value, x.power).rounded, upper};
}

Decimal_numbers Decoded(Rounded_numbers const& numbers, Code const& code) {
    auto const decoded = [&](double number, std::size_t k) {
        return std::isinf(number) ? number : Suggested(number, code.power) + code.corrections[k];
    };
    return {decoded(numbers.lower, 0), decoded(numbers.value, 1), decoded(numbers.upper, 2),
            code.power};
}

Code Code_of(Decimal_numbers const& x, Rounded_numbers const& rounded) {
    auto const correction = [&x](double whole, double number) {
        return std::isinf(whole) ? 0 : static_cast<int>(whole - Suggested(number, x.power));
    };
    return {x.power,
            {correction(x.lower, rounded.lower), correction(x.value, rounded.value),
             correction(x.upper, rounded.upper)}};
}

bool Is_whole(double number) {
    return std::fabs(number) <= Greatest_whole && Whole_beside(number) == number;
}

bool Are_whole(double lower, double value, double upper) {
    return Is_whole(value) && (std::isinf(lower) || Is_whole(lower)) &&
           (std::isinf(upper) || Is_whole(upper));
}

// ---- One number by another, exactly; nothing where the result does not fit

bool Put(Exact_pair const& result, double& whole) {
    whole = result.rounded;
    return result.rest == 0.0 && std::fabs(result.rounded) <= Greatest_whole;
}

bool Multiply(double x, double y, double& product) {
    if (std::isinf(x) && y > 0.0) { // a bound that is unknown
        product = x;
        return true;
    }
    return !std::isinf(x) && !std::isinf(y) && Put(Exact_product(x, y), product);
}

bool Add(double x, double y, double& sum) {
    if (std::isinf(x) || std::isinf(y)) {
        sum = x + y;
        return true;
    }
    return Put(Exact_sum(x, y), sum);
}

// All three times one positive whole number.
bool Multiply(Decimal_numbers& x, double factor) {
    if (Is_single(x)) {
        bool const fits = Multiply(x.value, factor, x.value);
        x.lower = x.upper = x.value;
        return fits;
    }
    return Multiply(x.lower, factor, x.lower) && Multiply(x.value, factor, x.value) &&
           Multiply(x.upper, factor, x.upper);
}

// With another power of ten, which is not greater.
bool Lower_power(Decimal_numbers& x, int power) {
    int const steps = x.power - power;
    x.power = power;
    bool const is_zero = x.lower == 0.0 && x.upper == 0.0;
    return is_zero || steps == 0 || (steps <= Greatest_power && Multiply(x, Ten_to(steps)));
}

// Whether all three end in a zero, which then goes into the power.
bool Drop_zero(Decimal_numbers& x) {
    auto const tenth = [](double number) {
        return std::isinf(number) ? number : Whole_beside(number / 10.0);
    };
    double const value = tenth(x.value);
    if (value * 10.0 != x.value) { // the usual case
        return false;
    }
    Decimal_numbers const fewer = {tenth(x.lower), value, tenth(x.upper), x.power + 1};
    bool const fits = fewer.lower * 10.0 == x.lower && fewer.upper * 10.0 == x.upper &&
                      (x.value != 0.0 || !Is_single(x));
    x = fits ? fewer : x;
    return fits;
}

Decimal_numbers Without_zeros(Decimal_numbers x) {
    while (Drop_zero(x)) {
    }
    return x;
}

} // namespace

// ---- In and out of measurements

Maybe_decimals Kept_decimals(Measurement const& x) {
    std::int32_t const code = x.Get_decimal_code();
    return code == 0 ? std::nullopt
                     : Maybe_decimals(Decoded(Rounded_numbers_of(x), Unpacked(code)));
}

namespace {

// Doubles that are decimals with few digits behind the point, as 0.5 is.
Maybe_decimals Decimals_of_doubles(Decimal_numbers const& x) {
    for (int places = 0; places <= Greatest_power; ++places) {
        Decimal_numbers decimals = x;
        if (!Multiply(decimals, Ten_to(places))) {
            return std::nullopt;
        }
        if (Are_whole(decimals.lower, decimals.value, decimals.upper)) {
            decimals.power = -places;
            return decimals;
        }
    }
    return std::nullopt;
}

} // namespace

Maybe_decimals Decimals_of(Measurement const& x) {
    return x.Get_decimal_code() != 0
               ? Kept_decimals(x)
               : Decimals_of_doubles({x.Get_lower(), x.Get_value(), x.Get_upper(), 0});
}

namespace {

// One power for one set of numbers, so that equal decimals have equal codes: as great as it can be.
bool Bring_to_standard_form(Decimal_numbers& x) {
    if (x.power > Greatest_power && !Lower_power(x, Greatest_power)) {
        return false;
    }
    while (x.power < Greatest_power && Drop_zero(x)) {
    }
    return x.power >= -Greatest_power;
}

} // namespace

std::optional<Measurement> Made_of_decimals(Maybe_decimals const& numbers, Units const& unit,
                                            bool is_difference) {
    if (!numbers) {
        return std::nullopt;
    }
    Decimal_numbers x = *numbers;
    if (x.value == 0.0 && Is_single(x)) {
        x.power = 0;
    }
    if (!Bring_to_standard_form(x)) {
        return std::nullopt;
    }
    Rounded_numbers const rounded = Rounded_numbers_of(x);
    return Measurement_parts::Made(rounded.value, rounded.lower, rounded.upper, unit, is_difference,
                                   Packed(Code_of(x, rounded)));
}

std::int32_t Checked_code(Rounded_numbers const& numbers, std::int32_t code) {
    Code const unpacked = Unpacked(code);
    if (code == 0 || std::abs(unpacked.power) > Greatest_power) {
        return 0;
    }
    Decimal_numbers const decoded = Decoded(numbers, unpacked);
    bool const can_be = Are_whole(decoded.lower, decoded.value, decoded.upper) &&
                        decoded.lower <= decoded.value && decoded.value <= decoded.upper;
    std::optional<Measurement> const made =
        can_be ? Made_of_decimals(decoded, C_Empty) : std::nullopt;
    bool const is_same = made && made->Get_decimal_code() == code &&
                         made->Get_lower() == numbers.lower && made->Get_value() == numbers.value &&
                         made->Get_upper() == numbers.upper;
    return is_same ? code : 0;
}

Exact_pair As_sum(double whole, int power) {
    Exact_pair const rounded = Nearest_with_rest(whole, power);
    return {rounded.rounded, power < 0 ? rounded.rest / Ten_to(-power) : rounded.rest};
}

bool Are_doubles(Measurement const& x) {
    Maybe_decimals const decimals = Kept_decimals(x);
    auto const is_double = [&](double whole) {
        return std::isinf(whole) || Nearest_with_rest(whole, decimals->power).rest == 0.0;
    };
    return !decimals ||
           (is_double(decimals->lower) && is_double(decimals->value) && is_double(decimals->upper));
}

// ---- Arithmetic

Decimal_numbers operator-(Decimal_numbers const& x) {
    return {-x.upper, -x.value, -x.lower, x.power};
}

std::optional<Decimal_pair> With_one_power(Maybe_decimals const& x, Maybe_decimals const& y) {
    if (!x || !y) {
        return std::nullopt;
    }
    Decimal_pair pair = {*x, *y};
    int const power = std::min(x->power, y->power);
    bool const fit = Lower_power(pair.first, power) && Lower_power(pair.second, power);
    return fit ? std::optional<Decimal_pair>(pair) : std::nullopt;
}

Maybe_decimals Sum(Maybe_decimals const& x, int sign, Maybe_decimals const& y) {
    bool const subtracts = y && sign < 0;
    std::optional<Decimal_pair> const pair = With_one_power(x, subtracts ? -*y : y);
    if (!pair) {
        return std::nullopt;
    }
    auto const& [first, second] = *pair;
    Decimal_numbers sum = {0.0, 0.0, 0.0, first.power};
    bool const fits = Add(first.lower, second.lower, sum.lower) &&
                      Add(first.value, second.value, sum.value) &&
                      Add(first.upper, second.upper, sum.upper);
    return fits ? Maybe_decimals(sum) : std::nullopt;
}

namespace {

// The products of the ends, least and greatest.
bool Multiply(Decimal_numbers const& x, Decimal_numbers const& y, Decimal_numbers& product) {
    std::array<double, 4> ends{};
    bool const fits = Multiply(x.value, y.value, product.value) &&
                      Multiply(x.lower, y.lower, ends[0]) && Multiply(x.lower, y.upper, ends[1]) &&
                      Multiply(x.upper, y.lower, ends[2]) && Multiply(x.upper, y.upper, ends[3]);
    product.lower = *std::min_element(ends.begin(), ends.end());
    product.upper = *std::max_element(ends.begin(), ends.end());
    product.power = x.power + y.power;
    return fits;
}

bool Are_finite(Decimal_numbers const& x) {
    return !std::isinf(x.lower) && !std::isinf(x.upper);
}

} // namespace

Maybe_decimals Product(Maybe_decimals const& x, Maybe_decimals const& y) {
    if (!x || !y || !Are_finite(*x) || !Are_finite(*y)) {
        return std::nullopt;
    }
    Decimal_numbers product{};
    bool const fits =
        Multiply(*x, *y, product) || Multiply(Without_zeros(*x), Without_zeros(*y), product);
    return fits ? Maybe_decimals(product) : std::nullopt;
}

// Twos and fives beyond the powers of ten go into the whole number, and so do the other primes.
std::optional<Decimal_factor> As_decimal(Exact_factor const& factor) {
    int const power = std::min(factor.powers[0], factor.powers[2]);
    double product = 1.0;
    for (std::size_t k = 0; k < primes.count; ++k) {
        int const left = factor.powers[k] - (k == 0 || k == 2 ? power : 0);
        if (left < 0) {
            return std::nullopt;
        }
        for (int n = 0; n < left && product <= Greatest_whole; ++n) {
            product *= primes.numbers[k];
        }
    }
    bool const is_decimal = factor.Is_rational() && product <= Greatest_whole;
    return is_decimal ? std::optional<Decimal_factor>({product, power}) : std::nullopt;
}

namespace {

bool Are_multiples(Decimal_numbers const& x, double divisor) {
    return std::fmod(x.lower, divisor) == 0.0 && std::fmod(x.value, divisor) == 0.0 &&
           std::fmod(x.upper, divisor) == 0.0;
}

// Fives of the numbers with twos of the factor, and twos with fives, become powers of ten: 125 * 6 is 25 * 3 tens.
void Take_tens_out(Decimal_numbers& x, double& factor) {
    for (double const of_factor : {2.0, 5.0}) {
        double const of_numbers = 10.0 / of_factor;
        while (std::fmod(factor, of_factor) == 0.0 && Are_multiples(x, of_numbers)) {
            factor /= of_factor;
            x = {x.lower / of_numbers, x.value / of_numbers, x.upper / of_numbers, x.power + 1};
        }
    }
}

} // namespace

Maybe_decimals Product(Maybe_decimals const& x, Decimal_factor const& factor) {
    if (!x) {
        return x;
    }
    Decimal_numbers product = *x;
    if (!Multiply(product, factor.whole)) {
        double whole = factor.whole;
        product = Without_zeros(*x);
        Take_tens_out(product, whole);
        if (!Multiply(product, whole)) {
            return std::nullopt;
        }
    }
    product.power += factor.power;
    return product;
}

Maybe_decimals Product(Maybe_decimals const& x, Exact_factor const& factor) {
    if (factor.Is_one()) {
        return x;
    }
    std::optional<Decimal_factor> const decimal = As_decimal(factor);
    return decimal ? Product(x, *decimal) : std::nullopt;
}

Decimal_numbers Absolute(Decimal_numbers const& x) {
    if (x.lower >= 0.0) {
        return x;
    }
    if (x.upper <= 0.0) {
        return -x;
    }
    return {0.0, std::fabs(x.value), std::max(-x.lower, x.upper), x.power};
}

Maybe_decimals Power(Maybe_decimals const& x, int exponent) {
    if (!x || !Are_finite(*x)) {
        return std::nullopt;
    }
    Decimal_numbers const base = exponent % 2 == 0 ? Absolute(*x) : *x;
    Decimal_numbers power = base;
    for (int k = 1; k < exponent; ++k) {
        bool const fits = Multiply(power.lower, base.lower, power.lower) &&
                          Multiply(power.value, base.value, power.value) &&
                          Multiply(power.upper, base.upper, power.upper);
        if (!fits) {
            return std::nullopt;
        }
    }
    // Odd powers of negative numbers keep their order; the factors are those of one end each.
    power.power = base.power * exponent;
    return power;
}

namespace {

// What a whole number is to be multiplied with to be a power of ten: 5 for 2, 2 for 5.
std::optional<Decimal_factor> Reciprocal(std::int64_t divisor) {
    Decimal_factor factor = {1.0, 0};
    for (int const part : {10, 5, 2}) {
        int const other = 10 / part;
        while (divisor % part == 0) {
            divisor /= part;
            factor.whole *= other;
            --factor.power;
        }
    }
    return divisor == 1 ? std::optional<Decimal_factor>(factor) : std::nullopt;
}

} // namespace

Maybe_decimals By_formula(Maybe_decimals const& x, Whole_formula const& formula) {
    std::int64_t const common = std::gcd(std::gcd(formula.factor, formula.offset), formula.divisor);
    std::optional<Decimal_factor> const reciprocal = Reciprocal(formula.divisor / common);
    if (!x || !reciprocal) {
        return std::nullopt;
    }
    Decimal_numbers scaled = *x;
    std::int64_t const whole_factor = formula.factor / common;
    std::int64_t const whole_offset = formula.offset / common;
    if (!Multiply(scaled, static_cast<double>(whole_factor))) {
        return std::nullopt;
    }
    auto const offset = static_cast<double>(whole_offset);
    Maybe_decimals result = Sum(scaled, 1, Decimal_numbers{offset, offset, offset, 0});
    if (!result || !Multiply(*result, reciprocal->whole)) {
        return std::nullopt;
    }
    result->power += reciprocal->power;
    return result;
}

} // namespace Varnix::Value::Physics
