// Construction, the parts, and conversion within a kind.

#include <varnix/value/Measurement.h>

#include "Conversions.h"
#include "Kept_decimals.h"
#include "Measurement_parts.h"
#include "Quick_power.h"
#include "Refusals.h"
#include "enclosing/Prepared_factor.h"

#include <cmath>
#include <limits>

namespace Varnix::Value {

using namespace Physics;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

Units Checked_unit(Units const& unit, bool is_difference = false) {
    try {
        return Valid_unit(unit, is_difference);
    } catch (Refusal reason) {
        Refuse(reason, "measure in " + Described(unit));
    }
}

void Check_numbers(double value, double lower, double upper) {
    bool const bounds_can_be =
        !std::isnan(lower) && !std::isnan(upper) && lower != infinity && upper != -infinity;
    if (!std::isfinite(value) || !bounds_can_be) {
        throw Refusal::not_finite;
    }
    if (lower > upper) {
        throw Refusal::bounds_inverted;
    }
    if (value < lower || value > upper) {
        throw Refusal::value_outside_bounds;
    }
}

void Check_numbers(double value, double lower, double upper, Units const& unit) {
    try {
        Check_numbers(value, lower, upper);
    } catch (Refusal reason) {
        Refuse(reason, "measure " + Described(value, lower, upper, unit));
    }
}

// The double nearest to the middle, or the finite bound.
double Middle(double lower, double upper) {
    if (std::isinf(lower) || std::isinf(upper)) {
        return std::isinf(lower) ? upper : lower;
    }
    return Round_to_nearest((Enclose(lower) + Enclose(upper)) / Enclose(2.0));
}

// Levels whose number stands for another quantity in the core: it takes all of them as 10 log10,
// and where the powers of a unit do not multiply to 1, as those of another power.
bool Is_level_of_another_meaning(Units const& unit) {
    if (Form_of(unit, false) != Form::level) {
        return false;
    }
    int product = 1;
    for (Unit_tuple const& tuple : unit.tuples) {
        product *= tuple.unit == NO_UNIT ? 1 : tuple.exponent;
    }
    return product != 1 || Level_factor(unit) != 10;
}

void Check_level_meaning(Units const& unit, Levels levels, char const* direction) {
    if (levels == Levels::same_meaning && Is_level_of_another_meaning(unit)) {
        Refuse(Refusal::levels_disagree, direction + Described(unit));
    }
}

} // namespace

// ---- Construction

Measurement::Measurement(double value_, Units const& unit_)
    : Measurement(value_, unit_, value_, value_) {}

Measurement::Measurement(double value_, Units const& unit_, double lower_, double upper_)
    : value(value_ + 0.0), lower(lower_ + 0.0), upper(upper_ + 0.0), unit(Checked_unit(unit_)),
      difference(false) {
    Check_numbers(value, lower, upper, unit);
}

Measurement Measurement::Between(double lower, double upper, Units const& unit) {
    bool const can_be = !std::isnan(lower) && !std::isnan(upper) && lower <= upper;
    return {can_be ? Middle(lower, upper) : lower, unit, lower, upper};
}

Measurement Measurement::Difference(double value, Units const& unit, double lower, double upper) {
    Units const valid = Checked_unit(unit, true);
    if (!Is_temperature(valid)) {
        Refuse(Refusal::temperature_role, "measure a difference in " + Described(valid),
               Way_out::none);
    }
    Check_numbers(value, lower, upper, valid);
    return Measurement_parts::Made(value, lower, upper, valid, true);
}

Measurement Measurement::From(Value_object<double> const& quantity, Levels levels) {
    Units const unit = quantity.Get_unit();
    Measurement const result(quantity.Get_value(), unit, quantity.Get_minus_err(),
                             quantity.Get_plus_err());
    Check_level_meaning(result.unit, levels, "take over ");
    return result;
}

Value_object<double> Measurement::To_value_object(Levels levels) const {
    if (!Has_core_codes(unit)) {
        throw MeasurementRefused(
            Refusal::unit_not_valid,
            "cannot hand over " + Described(*this) +
                ": Value_object does not have the unit; convert to one that it has");
    }
    Check_level_meaning(unit, levels, "hand over ");
    if (difference && !Is_kelvin(unit)) {
        Refuse(Refusal::difference_has_no_unit, "hand over", *this);
    }
    return {value, unit, lower, upper};
}

// ---- Marks

Measurement Measurement::As_difference() const {
    Measurement result = *this;
    result.difference = Is_temperature(unit);
    return result;
}

Measurement Measurement::As_point() const {
    if (difference && !Is_kelvin(unit) && unit.si_prefix != NO_PREFIX) {
        Refuse(Refusal::prefix_on_temperature, "take for a point", *this);
    }
    Measurement result = *this;
    result.difference = false;
    return result;
}

// ---- Decimals

Measurement Measurement::With_decimal_code(std::int32_t code) const noexcept {
    Measurement result = *this;
    result.decimal_code = Checked_code(Rounded_numbers_of(*this), code);
    return result;
}

bool Is_same(Measurement const& x, Measurement const& y) noexcept {
    bool const same_doubles = x.Get_value() == y.Get_value() && x.Get_lower() == y.Get_lower() &&
                              x.Get_upper() == y.Get_upper();
    bool const same_unit = x.Get_unit() == y.Get_unit() && x.Is_difference() == y.Is_difference();
    return same_doubles && same_unit &&
           (x.Get_decimal_code() == y.Get_decimal_code() || (Are_doubles(x) && Are_doubles(y)));
}

// ---- Conversion

namespace {

// A linear quantity by a factor: the usual case.
bool Quick_conversion(Measurement const& x, Units const& target, Rounded_numbers& numbers) {
    Units const& unit = Measurement_parts::Unit_of(x);
    bool const by_factor =
        Form_of(x) == Form::linear && Form_of(target, x.Is_difference()) == Form::linear;
    if (!by_factor || Comparable_kind_of(unit) != Comparable_kind_of(target)) {
        return false;
    }
    double above = 0.0;
    double below = 0.0;
    return Prepared_factor(Size_of(unit) / Size_of(target)).As_whole_numbers(above, below) &&
           Quick_multiple(Rounded_numbers_of(x), above, below, numbers);
}

// A level to a linear quantity whose size is a power of ten of its reference.
bool Quick_power_conversion(Measurement const& x, Units const& target, Rounded_numbers& numbers) {
    Units const& unit = Measurement_parts::Unit_of(x);
    if (!Is_decibel(unit) || Form_of(target, x.Is_difference()) != Form::linear) {
        return false;
    }
    Kind const kind = Kind_of(unit);
    Exact_factor const ratio = Size_of(unit) / Size_of(target);
    int const tens = Tens_in(ratio);
    bool const is_power = kind != Kind() && kind == Kind_of(target) && ratio == Powers_of_ten(tens);
    return is_power && Quick_power(x, Level_factor(unit), tens, numbers);
}

Measurement Converted_to(Measurement const& x, Units const& target) {
    Rounded_numbers numbers{};
    bool const is_difference = x.Is_difference() && Is_temperature(target); // a level is none
    if (x.Get_decimal_code() != 0) {
        Maybe_decimals const decimals = Decimals_in(x, x.Is_difference(), target);
        if (auto const made = Made_of_decimals(decimals, target, is_difference)) {
            return *made;
        }
    } else if (Quick_conversion(x, target, numbers)) {
        return Made_of(numbers, target, is_difference);
    }
    return Quick_power_conversion(x, target, numbers)
               ? Made_of(numbers, target, is_difference)
               : Rounded(Converted(x, target), target, is_difference);
}

} // namespace

Measurement Measurement::Convert_to(Units const& target) const {
    try {
        Units const valid = Valid_unit(target, difference);
        return Converted_to(*this, valid);
    } catch (Refusal reason) {
        Refuse_conversion(reason, Described(*this), unit, target);
    }
}

} // namespace Varnix::Value
