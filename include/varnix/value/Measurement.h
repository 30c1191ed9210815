// ValueObject measurements: quantities with bounds that are certain.
//
// A `Measurement` is a number, a lower and an upper bound, and a unit of the catalogue. Every
// operation gives the physically right quantity, with bounds that are certain to enclose it, or
// refuses. A bound is a limit that is meant, as an instrument's data sheet states it, and no
// standard deviation.
//
//     #include <varnix/value/Measurement.h>
//     #include <varnix/value/Measurement_text.h>
//     #include <iostream>
//     using namespace Varnix::Value;
//
//     Measurement const voltage(10.0, C_Volts, 9.9, 10.1);
//     Measurement const resistance(50.0, C_Ohms, 49.0, 51.0);
//     Measurement const time(2.0, C_Sec);
//     std::cout << voltage.Convert_to(C_Watts, resistance) << '\n'; // 2 W, from 1.92 to 2.09
//     std::cout << Measurement(60.0, C_Mph) * time << '\n';         // 0.0333 mi
//
// What is promised of every operation, in the default floating-point environment: take the doubles
// that come in as exact numbers, the decimals of a text as exact decimals (3.3 V keeps a limit of
// 3.3 V, and 0.1 V + 0.2 V is 0.3 V), and the operands as free to be any of the numbers between their
// bounds. Then no result lies outside the bounds that come out; each bound is at most one unit in
// the last place beyond the nearest double outside; a bound that is itself a double is returned as
// it is, where it follows by
// + - * /, integer powers, square roots of squares, rational factors of units, or powers of ten
// with whole exponents; and lower <= value <= upper. Results that need a logarithm may be 2^-80 dB
// wider, and sums and differences that cancel 2^-90 of the largest operand. The bits are the same
// on every processor.
//
// Dependence is not tracked: x - x is not 0, and x / x is not 1. Write an expression so that each
// quantity occurs once (1 / (1/a + 1/b) for parallel resistors), or use `Pow`, `Abs` and the
// functions of <varnix/value/Levels.h> and <varnix/value/Radio_formulas.h>, each of which is tight
// for its own formula.
//
// How this differs from `Value_object`, whose rules stay what they are: levels of volts and amperes
// are 20 log10, points and differences of temperatures are told apart, 5 m is no speed, and a mile
// is exactly 1609.344 m (radian and degree are exact as well), where the catalogue keeps rounded
// factors.
//
// Failures are `MeasurementRefused` throughout (and for malformed unit descriptors what
// `Value_object` throws for them); whatever throws leaves its object and its arguments unchanged.
// Nothing allocates memory but a refusal.
//
// Threads: there is no shared state. Any number of threads may use different objects, or read one;
// an object that one thread writes must not be used by another at the same time.

#ifndef VARNIX_VALUE_MEASUREMENT_H
#define VARNIX_VALUE_MEASUREMENT_H

#include <varnix/value/Units.h>
#include <varnix/value/Value_object.h>
#include <varnix/value/exceptions.h>
#include <varnix/value/measurement_export.h>

#include <cstddef>
#include <cstdint>
#include <string>

namespace Varnix::Value {

/// @addtogroup measurements
/// @{

/// Why an operation on measurements was refused.
enum class Refusal {
    not_finite,           ///< a value that is not finite, a bound that cannot be one
    bounds_inverted,      ///< a lower bound above the upper one
    value_outside_bounds, ///< a value that does not lie within its bounds
    kinds_differ,         ///< length and time, speed and length
    needs_impedance,      ///< one of V, A, W and ohm to another: `Convert_to` with a third of them
    no_fixed_length,      ///< months or years to days
    units_do_not_mix, ///< an angle, a symbol or a month in a product with what it has no unit with
    too_many_units,   ///< a result of six units
    prefix_on_temperature,  ///< a prefix on a point in °C or °F
    temperature_role,       ///< a point where a difference is meant, or a difference for a point
    temperature_points_add, ///< 20 °C + 20 °C
    temperature_point_as_factor, ///< 20 °C * 2
    level_and_linear,            ///< 10 dBm + 1 mW
    levels_do_not_add,           ///< 10 dBm + 10 dBm
    level_as_factor,             ///< 10 dBm * 2
    gain_minus_level,            ///< 3 dB - 10 dBm
    gain_is_no_quantity,         ///< a gain where a quantity is meant
    gain_is_ambiguous, ///< 20 dB as a plain number: a factor of 10 for voltages, of 100 for powers
    not_a_level,       ///< a linear quantity where a level is meant
    not_a_gain,        ///< a quantity where a gain is meant
    not_a_density,     ///< a quantity that is not per hertz
    no_level_convention,    ///< decibels of ohms, metres, grams ...
    no_level_of_zero,       ///< the level of zero or of a negative quantity
    no_negative,            ///< a quantity that must not be negative
    not_passive,            ///< a reflection above 1, a VSWR below 1
    negative_quantity,      ///< a temperature below 0 K or a bandwidth below 0 Hz in a formula
    division_by_zero,       ///< a divisor that may be zero
    root_of_negative,       ///< a radicand that may be negative
    odd_power,              ///< the root of a unit with an odd power
    exponent_out_of_range,  ///< a power beyond 64
    no_electrical_relation, ///< three units of which no law of Ohm or Joule makes sense
    nothing_to_sum,         ///< no measurement at all
    contradiction,          ///< an intersection of what does not meet
    levels_disagree,        ///< a level whose number means another quantity to `Value_object`
    difference_has_no_unit, ///< a temperature difference for `Value_object`
    unit_not_valid,         ///< a prefix that no measurement has
    out_of_range,           ///< a value too large for a double
};

/// The name of the enumerator, "kinds_differ"; "unknown" for any other value.
VARNIX_VALUE_MEASUREMENT_EXPORT char const* Reason_name(Refusal reason) noexcept;

/// Why, in words: "levels do not add"; "" for any other value.
VARNIX_VALUE_MEASUREMENT_EXPORT char const* Reason_words(Refusal reason) noexcept;

/// What can be done instead of what was refused.
enum class Way_out {
    none,                ///< there is none in general
    infinite_bound,      ///< an unknown lower bound is -inf, an upper one inf
    bounds_as_numbers,   ///< give bounds as numbers in the unit, and not as distances
    with_resistance,     ///< convert with a resistance, an electrical relation
    with_current,        ///< convert with a current
    with_voltage,        ///< convert with a voltage
    write_days,          ///< write days for months and years
    divide_by_unit,      ///< divide one of them by 1 of its unit
    no_prefix_or_kelvin, ///< write the temperature without its prefix, or in kelvin
    mark_difference,     ///< mark the temperature that is a difference as one
    take_as_point,       ///< take the difference for a point of its scale
    to_kelvin,           ///< convert to kelvin
    to_linear,           ///< convert the level to a linear unit
    to_level,            ///< convert to a level, in decibels relative to something
    power_sum,           ///< add the powers, and not the levels
    linear_or_gain,      ///< convert the level to a linear unit, or add a gain
    gain_from_level,     ///< subtract the gain from the level
    amplify,             ///< apply the gain to a quantity
    ratio_of_gain,       ///< ask for the ratio of powers or that of voltages
    gain_of_ratio,       ///< ask for the gain by a ratio of powers or by one of voltages
    linear_or_displayed, ///< convert to a linear unit, or pass the number as it is displayed
};

/// The way out in the words of C++, "Power_sum adds the powers"; "" for `none` and for any other
/// value. A program whose users call its functions otherwise words it itself:
/// `MeasurementRefused::Worded`.
VARNIX_VALUE_MEASUREMENT_EXPORT char const* Way_out_words(Way_out way_out) noexcept;

/// An operation on measurements that has no physically right result. `what()` names the operation,
/// both units with their kinds, the numbers that were in the way, and the way out: "cannot add 10
/// dBm (power) and 10 dBm (power): levels do not add; Power_sum adds the powers". Each of these
/// parts can be had by itself.
class VARNIX_VALUE_MEASUREMENT_EXPORT MeasurementRefused final : public virtual OperationNotValid {
  public:
    /// A refusal for `reason`; the message ends in `detail`, which is the operation as well.
    MeasurementRefused(Refusal reason_, std::string const& detail) noexcept;
    /// A refusal of `operation`, "cannot add 10 dBm (power) and 10 dBm (power)"; the words for the
    /// reason and the way out follow in the message. @throws std::bad_alloc
    MeasurementRefused(Refusal reason_, std::string const& operation, Way_out way_out_);
    MeasurementRefused(MeasurementRefused const& other) noexcept;            ///< the same refusal
    MeasurementRefused& operator=(MeasurementRefused const& other) noexcept; ///< the same refusal
    ~MeasurementRefused() override;

    Refusal Get_reason() const noexcept { return reason; } ///< why

    /// What was refused, with its operands: "cannot add 10 dBm (power) and 10 dBm (power)".
    /// @throws std::bad_alloc
    std::string Get_operation() const;

    /// What can be done instead.
    Way_out Get_way_out() const noexcept { return way_out; }

    /// "OPERATION: REASON; WAY OUT" without the names of classes, the way out in the words that are
    /// given, where there is one: `Worded(Way_out_words(Get_way_out()))` are those of `what()`.
    /// @throws std::bad_alloc
    std::string Worded(char const* words) const;

  private:
    Refusal reason;
    Way_out way_out;
    std::size_t operation_size; // of its part of the message
    bool names_reason;          // whether the message has the words of the reason behind it
};

/// How the number of a level goes to a `Value_object` and back.
enum class Levels {
    same_meaning, ///< levels that stand for another quantity there are refused: those with 20
                  ///< log10, and those whose powers multiply to another number than 1
    as_displayed, ///< the number as an instrument shows it, whatever the core takes it for
};

/// A number, its bounds and its unit. 80 bytes, copied freely.
class VARNIX_VALUE_MEASUREMENT_EXPORT Measurement {
  public:
    // ---- Construction

    /// `value` in `unit`, exactly: both bounds equal the value. The unit is brought into canonical
    /// order.
    /// @throws MeasurementRefused not_finite for a value that is infinite or not a number.
    /// @throws MeasurementRefused unit_not_valid for a prefix that is neither the catalogue's nor a
    ///         power of ten from 10^-40 to 10^40; exponent_out_of_range for a power beyond 64;
    ///         no_level_convention for decibels of what has no convention; prefix_on_temperature
    ///         for a prefix on °C or °F.
    /// @throws UnitDimensionNotProper, UnitNotDefined, OperationNotValid as the constructor of
    ///         `Value_object` for a malformed descriptor.
    Measurement(double value, Units const& unit);

    /// `value` in `unit`, between `lower` and `upper`, which are numbers in that unit and not
    /// distances. A lower bound may be -inf and an upper one +inf.
    /// @throws as above, and MeasurementRefused bounds_inverted for a lower bound above the upper
    ///         one, value_outside_bounds for a value outside the two, not_finite for any other
    ///         number that is infinite or none.
    Measurement(double value, Units const& unit, double lower, double upper);

    /// What lies between `lower` and `upper`, in `unit`; the value is the double nearest to the
    /// middle, or the finite bound.
    /// @throws as the constructor, and MeasurementRefused not_finite where both bounds are
    ///         infinite.
    static Measurement Between(double lower, double upper, Units const& unit);

    /// A difference of temperatures, in a unit that is a temperature to the first power: the
    /// constructor's quantity `As_difference`. A prefix on °C or °F, which no point has, is allowed.
    /// @throws as the constructor, and MeasurementRefused temperature_role for any other unit.
    static Measurement Difference(double value, Units const& unit, double lower, double upper);

    /// The numbers and the unit of `quantity`, nothing converted.
    /// @throws as the constructor; MeasurementRefused levels_disagree for a level that stands for
    ///         another quantity there, unless `levels` lets it pass.
    static Measurement From(Value_object<double> const& quantity,
                            Levels levels = Levels::same_meaning);

    /// The same numbers and unit as a `Value_object`, nothing converted.
    /// @throws MeasurementRefused difference_has_no_unit for a difference in °C or °F; unit_not_valid for a unit
    ///         beyond those of <varnix/value/Units.h>, which has to be converted first; levels_disagree as in
    ///         `From`.
    Value_object<double> To_value_object(Levels levels = Levels::same_meaning) const;

    // ---- The parts

    double Get_value() const noexcept { return value; } ///< in the unit; finite, within the bounds
    double Get_lower() const noexcept { return lower; } ///< in the unit; -inf if unknown
    double Get_upper() const noexcept { return upper; } ///< in the unit; +inf if unknown
    Units Get_unit() const noexcept { return unit; }    ///< a copy, in canonical order

    /// Whether it is a difference of temperatures, and not a point of a scale. Only what has one
    /// temperature to the first power as its unit can be one.
    bool Is_difference() const noexcept { return difference; }

    /// The same number as a difference of temperatures. Other quantities stay as they are.
    Measurement As_difference() const;

    /// The same number as a point of its temperature scale.
    /// @throws MeasurementRefused prefix_on_temperature for a difference in °C or °F with a prefix.
    Measurement As_point() const;

    // ---- Decimals

    /// Which decimals the three numbers stand for, or 0 where they are the doubles that the getters
    /// give. What is read from a text is exact in decimals: "3.3 V" is 3.3 V, and no double is. The
    /// number is a code for programs that store a measurement as three doubles, a unit, and this.
    std::int32_t Get_decimal_code() const noexcept { return decimal_code; }

    /// The same measurement with its three numbers meant as the decimals of a code that
    /// `Get_decimal_code` gave. Where the numbers are not those that the code was made for, and for
    /// 0, they are doubles.
    Measurement With_decimal_code(std::int32_t code) const noexcept;

    // ---- Conversion

    /// The same quantity in `target`. A temperature keeps its mark. A level of kelvin becomes a
    /// point in °C or °F by way of kelvin: 20 dBK is -173.15 °C.
    /// @throws MeasurementRefused kinds_differ, needs_impedance, no_fixed_length,
    ///         gain_is_ambiguous, gain_is_no_quantity, no_level_convention, no_level_of_zero,
    ///         prefix_on_temperature, out_of_range; temperature_role between a point in °C or °F
    ///         and a product such as %*K, which is no scale.
    /// @throws what the constructor throws for a unit that is not valid.
    Measurement Convert_to(Units const& target) const;

    /// What an electrical relation makes of this and `with`: of volts, amperes, watts and ohms any
    /// two give any third, as levels or linear; and of field strengths likewise (V/m, A/m, W/m^2 and ohm).
    /// @throws MeasurementRefused no_electrical_relation for any other three units;
    ///         division_by_zero, root_of_negative, no_level_of_zero, out_of_range.
    Measurement Convert_to(Units const& target, Measurement const& with) const;

  private:
    friend struct Measurement_parts; // the way in and out of the library's own sources

    Measurement() = default;

    double value = 0.0;
    double lower = 0.0;
    double upper = 0.0;
    Units unit = {};
    bool difference = false;
    std::int32_t decimal_code = 0;
};

static_assert(sizeof(Measurement) == 80, "measurements have a fixed size");

/// Whether `x` and `y` are the same in every field: all three numbers, exactly, unit and mark. "5.0
/// V" is the same as 5 V, and not as 5000 mV; "0.1 V" is not the double 0.1. Which of two is less,
/// or whether they are equal whatever their units, `Compare` says. Never throws.
VARNIX_VALUE_MEASUREMENT_EXPORT bool Is_same(Measurement const& x, Measurement const& y) noexcept;

/// The unit in canonical order, of the core or beyond it. Only its codes are checked; whether something can be
/// measured in it the constructor of a measurement says.
/// @throws what the constructor of `Value_object` throws for a malformed descriptor.
VARNIX_VALUE_MEASUREMENT_EXPORT Units Arranged(Units const& unit);

// ---- Arithmetic on linear quantities, and on levels and gains where it has one meaning only

/// The sum, in the unit of `x`. Bounds: lower with lower, upper with upper. A level plus a gain is
/// a level; a point of a temperature scale plus a difference is a point; 50 K + 75 K is 125 K. Of a
/// point in °C or °F and a plain K, which may be meant as either, there is no sum, and no difference
/// with the point first: `As_difference` marks the kelvins.
/// @throws MeasurementRefused kinds_differ, needs_impedance, no_fixed_length, level_and_linear,
///         levels_do_not_add, temperature_role, temperature_points_add, out_of_range.
VARNIX_VALUE_MEASUREMENT_EXPORT Measurement operator+(Measurement const& x, Measurement const& y);

/// The difference, in the unit of `x`. Bounds: lower with upper, upper with lower. Two points of
/// temperature scales give a difference; two levels of one kind give a gain.
/// @throws as the sum, and MeasurementRefused gain_minus_level.
VARNIX_VALUE_MEASUREMENT_EXPORT Measurement operator-(Measurement const& x, Measurement const& y);

/// The product. A dimension on both sides goes by the unit of `x` (60 mph * 2 s is 1/30 mi); a plain number, per
/// cent and ppm included, keeps unit and prefix of the other. Otherwise the prefix is the product of both, where
/// that has a name and is a power of 1000, the units that had the prefixes are still there, and the unit that is
/// written first has the power 1 (2500 kg/h * 3.5 h is 8750 kg); else there is none. Torque times an angle is
/// work: 3000 rpm * 2 N*m converts to kW.
/// A gain amplifies (`Amplify`), a density times a bandwidth is the total power.
/// @throws MeasurementRefused temperature_point_as_factor, level_as_factor, units_do_not_mix,
///         no_fixed_length, too_many_units, exponent_out_of_range, out_of_range.
VARNIX_VALUE_MEASUREMENT_EXPORT Measurement operator*(Measurement const& x, Measurement const& y);

/// The quotient, with the units of the product. A temperature that comes of other units is a
/// difference: 100 ppm over 10 ppm/°C.
/// @throws as the product, and MeasurementRefused division_by_zero where `y` may be zero, a bound
///         of zero included.
VARNIX_VALUE_MEASUREMENT_EXPORT Measurement operator/(Measurement const& x, Measurement const& y);

/// The same with a plain number, which is exact. A gain in decibels is multiplied as its number.
/// @throws MeasurementRefused not_finite for a factor that is not, and as the product and quotient.
VARNIX_VALUE_MEASUREMENT_EXPORT Measurement operator*(Measurement const& x, double factor);
VARNIX_VALUE_MEASUREMENT_EXPORT Measurement operator*(double factor,
                                                      Measurement const& x); ///< as above
VARNIX_VALUE_MEASUREMENT_EXPORT Measurement operator/(Measurement const& x,
                                                      double divisor); ///< as above
VARNIX_VALUE_MEASUREMENT_EXPORT Measurement operator/(double number,
                                                      Measurement const& x); ///< as above

/// The negative. @throws MeasurementRefused temperature_point_as_factor, level_as_factor.
VARNIX_VALUE_MEASUREMENT_EXPORT Measurement operator-(Measurement const& x);

/// `x` replaced by the result; unchanged where that is refused. @throws as the operators above
VARNIX_VALUE_MEASUREMENT_EXPORT Measurement& operator+=(Measurement& x, Measurement const& y);
VARNIX_VALUE_MEASUREMENT_EXPORT Measurement& operator-=(Measurement& x,
                                                        Measurement const& y); ///< as above
VARNIX_VALUE_MEASUREMENT_EXPORT Measurement& operator*=(Measurement& x,
                                                        Measurement const& y); ///< as above
VARNIX_VALUE_MEASUREMENT_EXPORT Measurement& operator/=(Measurement& x,
                                                        Measurement const& y); ///< as above
VARNIX_VALUE_MEASUREMENT_EXPORT Measurement& operator*=(Measurement& x,
                                                        double factor); ///< as above
VARNIX_VALUE_MEASUREMENT_EXPORT Measurement& operator/=(Measurement& x,
                                                        double divisor); ///< as above

/// `x` raised to a power from -64 to 64, tight: the square of -1 to 2 is 0 to 4.
/// @throws MeasurementRefused exponent_out_of_range; division_by_zero for a negative power of what
///         may be zero; and as the product.
VARNIX_VALUE_MEASUREMENT_EXPORT Measurement Pow(Measurement const& x, int exponent);

/// The square root. @throws MeasurementRefused root_of_negative where `x` may be negative;
/// odd_power where the unit has no root; and as the product.
VARNIX_VALUE_MEASUREMENT_EXPORT Measurement Sqrt(Measurement const& x);

/// The absolute value. @throws as the negative
VARNIX_VALUE_MEASUREMENT_EXPORT Measurement Abs(Measurement const& x);

/// The quantity in the unit of SI that has a name, if there is one, without a prefix but for the kilogram:
/// 70 kg * 9.81 m/s^2 is 686.7 N. What is in one such unit already stays, with its prefix, and so do levels,
/// gains, points of temperature scales and all that has no named unit (km/h). Torques become joules.
/// @throws MeasurementRefused out_of_range
VARNIX_VALUE_MEASUREMENT_EXPORT Measurement Simplified(Measurement const& x);

/// From the lesser lower bound to the greater upper bound, in the unit of `x` and with its value.
/// A bound of `y` that is too large for a number there is infinite.
/// @throws MeasurementRefused as a comparison; no_level_of_zero in decibels, where `y` may be
///         negative or is zero
VARNIX_VALUE_MEASUREMENT_EXPORT Measurement Hull(Measurement const& x, Measurement const& y);

/// What both allow, in the unit of `x`; its value, moved inside where it is outside.
/// @throws MeasurementRefused contradiction where the two do not meet, and as `Hull`
VARNIX_VALUE_MEASUREMENT_EXPORT Measurement Intersection(Measurement const& x,
                                                         Measurement const& y);

// ---- Order. A level compares with a linear quantity of its kind.

/// What is certain of two measurements.
enum class Order {
    less,      ///< every number of the first lies below every number of the second
    equal,     ///< both are one number, the same
    greater,   ///< every number of the first lies above every number of the second
    undecided, ///< none of these
};

/// Levels of kelvin compare with points, as the kelvins that they are.
/// @throws MeasurementRefused kinds_differ, needs_impedance, no_fixed_length, temperature_role,
///         gain_is_ambiguous, gain_is_no_quantity.
VARNIX_VALUE_MEASUREMENT_EXPORT Order Compare(Measurement const& x, Measurement const& y);

/// Whether x < y (x = y) for all numbers within the bounds, or for some. @throws as `Compare`
VARNIX_VALUE_MEASUREMENT_EXPORT bool Certainly_less(Measurement const& x, Measurement const& y);
VARNIX_VALUE_MEASUREMENT_EXPORT bool Possibly_less(Measurement const& x,
                                                   Measurement const& y); ///< as above
VARNIX_VALUE_MEASUREMENT_EXPORT bool Certainly_equal(Measurement const& x,
                                                     Measurement const& y); ///< as above
VARNIX_VALUE_MEASUREMENT_EXPORT bool Possibly_equal(Measurement const& x,
                                                    Measurement const& y); ///< as above

/// Whether a measurement keeps its limits.
enum class Verdict {
    pass,      ///< it lies within the limits wherever in its bounds it is, ends included
    fail,      ///< it lies outside them wherever in its bounds it is
    undecided, ///< neither is certain
};

/// Checks `x` against two limits, which may be uncertain themselves.
/// @throws MeasurementRefused bounds_inverted where `low` may be above `high`, and as `Compare`.
VARNIX_VALUE_MEASUREMENT_EXPORT Verdict Check_limits(Measurement const& x, Measurement const& low,
                                                     Measurement const& high);

/// Not provided: half of the callers would mean "certainly", the other half "possibly". Use
/// `Compare` and its kin.
bool operator==(Measurement const&, Measurement const&) = delete;
bool operator!=(Measurement const&, Measurement const&) = delete; ///< as above
bool operator<(Measurement const&, Measurement const&) = delete;  ///< as above
bool operator<=(Measurement const&, Measurement const&) = delete; ///< as above
bool operator>(Measurement const&, Measurement const&) = delete;  ///< as above
bool operator>=(Measurement const&, Measurement const&) = delete; ///< as above

/// @}

} // namespace Varnix::Value

#endif
