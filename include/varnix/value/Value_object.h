// ValueObject: a number, the unit it is expressed in, and a lower and an upper error bound, carried
// together through conversions, arithmetic and comparisons.
//
//     #include <varnix/value/Value_object.h>
//     #include <iostream>
//     using namespace Varnix::Value;
//
//     Value_object<double> const level(30.0, C_DBmW, 29.0, 31.0);  // 30 dBm, 29 to 31
//     Value_object<double> const power = level.Convert_to(C_Watts);
//     std::cout << power.Get_value() << ' ' << power.Get_unit_string(STR_SYMBOL) << ", "
//               << power.Get_minus_err() << " to " << power.Get_plus_err() << '\n';
//     // 1 W, 0.794328 to 1.25893
//
// The bounds are numbers in the value's own unit, not distances from it: 5 m ± 0.1 m has the bounds
// 4.9 and 5.1. Every step that changes the number changes the bounds in the same way.
//
// Failures are exceptions (<varnix/value/exceptions.h>); whatever throws leaves its object and its
// arguments unchanged. No operation but the unit texts allocates memory, except when it throws.
//
// Threads: there is no shared state. Any number of threads may use different objects, or read one;
// an object that one thread writes must not be used by another at the same time.

#ifndef VARNIX_VALUE_VALUE_OBJECT_H
#define VARNIX_VALUE_VALUE_OBJECT_H

#include <varnix/value/Units.h>
#include <varnix/value/Units_library.h>
#include <varnix/value/exceptions.h>
#include <varnix/value/export.h>

#include <string>
#include <type_traits>

namespace Varnix::Value {

/// @addtogroup quantities
/// @{

/// A physical quantity with error bounds. The numeric type is double; the library holds the one
/// instantiation.
///
/// `minus_err` is not greater than `plus_err` after construction, copying, assignment, `Set` and
/// `Set_plus_minus_err`, each of which puts the larger of its two bounds into `plus_err` (a bound
/// that is not a number compares as not larger). The electrical functions, `Convert_to_with_value`,
/// `Normalize_DB` and `Apply_DB` store the bounds as their formulas give them, and a moved or
/// returned object keeps them so; copying it orders them.
template <typename Number>
class Value_object {
    static_assert(std::is_same_v<Number, double>,
                  "Value_object is provided for double alone: write Value_object<double>");

  public:
    // ---- Constants

    static constexpr Number ONE = 1.0; ///< the numerator where a conversion inverts a value
    static constexpr Number FAHR_TO_CELCIUS_CONV_FACT = 1.8; ///< °F in one °C; exact by definition
    static constexpr Number FAHR_CELCIUS_CONST = 32.0;       ///< °F at 0 °C; exact by definition
    static constexpr Number KELVIN_CONST = 273.15;           ///< K at 0 °C; exact (SI brochure)
    static constexpr Number DB_CONV_FACT = 10.0;             ///< decibels in a bel, and their base

    // ---- Construction and assignment

    /// Zero without unit: `C_Empty`, all three numbers 0.0.
    Value_object() noexcept;

    /// `new_value` in `new_unit` with its two bounds, in either order, in the same unit. The unit
    /// is brought into canonical order.
    /// @throws UnitDimensionNotProper for a unit with two tuples of one dimension.
    /// @throws UnitNotDefined for a unit code without a catalogue row.
    /// @throws OperationNotValid for a unit in which an occupied slot follows an empty one.
    Value_object(Number const& new_value, Units const& new_unit, Number const& new_minus_err,
                 Number const& new_plus_err);

    /// A copy with its bounds ordered.
    Value_object(Value_object const& other) noexcept;

    /// An object with exactly the numbers of `other`, its bounds as they stand.
    Value_object(Value_object&& other) noexcept = default;

    /// `Set` with the contents of `other`.
    Value_object& operator=(Value_object const& other) noexcept;

    ~Value_object() = default;

    // ---- Setters. Any argument may refer into this object.

    /// Stores value and unit unchanged, the unit neither arranged nor checked, and the two bounds
    /// ordered.
    void Set(Number const& new_value, Units const& new_unit, Number const& new_minus_err,
             Number const& new_plus_err) noexcept;

    /// Stores the two bounds ordered, in either order given.
    void Set_plus_minus_err(Number const& new_plus_err, Number const& new_minus_err) noexcept;

    /// Replaces the unit, neither arranged nor checked; the numbers stay.
    void Set_unit(Units const& new_unit) noexcept { unit = new_unit; }

    /// Replaces the value; unit and bounds stay.
    void Set_value(Number const& new_value) noexcept { value = new_value; }

    // ---- Getters. The references stay valid as long as the object.

    Number const& Get_value() const noexcept { return value; }         ///< in the object's unit
    Number const& Get_minus_err() const noexcept { return minus_err; } ///< lower, in that unit
    Number const& Get_plus_err() const noexcept { return plus_err; }   ///< upper, in that unit
    Units Get_unit() const noexcept { return unit; }                   ///< a copy of the unit
    Number Magnitude() const noexcept; ///< the absolute value, in the object's unit

    // ---- Predicates

    /// Whether no occupied slot follows an empty one. Nothing else is looked at.
    static bool Is_valid_unit(Units const& descriptor) noexcept;

    /// Whether, in every slot occupied on both sides, the units differ but agree in dimension and
    /// power. It is the question that products ask; equal units give false.
    /// @throws UnitNotDefined for a unit code without a catalogue row.
    static bool Is_convertable_unit(Units const& first, Units const& second);

    /// Returns if value and bounds are finite.
    /// @throws std::out_of_range ("Value is out of range") if one is infinite or not a number.
    static void Is_value_in_range(Value_object const& v);

    /// Whether the two keys name equal units member by member; prefixes and decibel markers are not
    /// compared.
    static bool Is_units_special_equal(Units_special_conv const& first,
                                       Units_special_conv const& second) noexcept;

    // ---- Conversion

    /// This quantity in `target`, brought into canonical order.
    ///
    /// Temperatures convert by formula, power written as a product (V^2/ohm, VA, A^2 ohm) becomes
    /// watts, decibels become linear and back, prefixes count as factors, and everything else goes
    /// by the catalogue's factors. Value and bounds take the same way, and the bounds are in order
    /// again where it turns them round: where a reciprocal unit inverts the number, and between
    /// decibels and a unit whose powers multiply to less than zero. Zero inverts to infinity.
    /// A zero or negative linear number gives minus infinity or not a number in decibels.
    ///
    /// A slot that is empty in one of the two units is not compared: see docs/behaviour.md.
    /// @throws UnitDimensionNotSame when a slot's units differ in dimension or magnitude of power.
    /// @throws UnitDimensionNotProper, UnitNotDefined when `target` or this object's unit cannot be
    ///         arranged.
    /// @throws OperationNotValid when this object's unit has an empty slot ahead of an occupied
    /// one,
    ///         or `target` has and a rule's function is to build a value in it.
    /// @throws std::out_of_range ("Value is out of range") when a factor is not finite.
    Value_object Convert_to(Units const& target) const;

    /// The same as `Convert_to(other.Get_unit())`; the numbers of `other` are not used.
    /// @throws what `Convert_to(Units const&)` throws.
    Value_object Convert_to(Value_object const& other) const;

    /// The quantity in `target` that follows from this one and `other` by an electrical relation:
    /// V = W / A, A = W / V, W = V A, W = V^2 / ohm, V = sqrt(W ohm). The two may change places,
    /// but for ohms, which are those of `other`. Prefixes and decibel markers of all three are
    /// honoured, a binary prefix of this object or of `other` as a decimal one of the same
    /// exponent. Each bound follows from the two bounds of its side and the two are not
    /// ordered.
    /// @throws NoRuleToConvert when no relation joins the three units.
    /// @throws std::out_of_range ("Value is out of range") when value or bounds are not finite, as
    ///         after a division by zero.
    Value_object Convert_to_with_value(Units const& target, Value_object const& other) const;

    // ---- The formulas behind the conversions
    //
    // Each takes the numbers of `source` as given in the unit of its name, without looking at the
    // unit, and applies its formula to the value and to each bound. The result is in `target`.
    // Those that arrange `target` throw what the value constructor throws for it.

    /// v x 1.8 + 32. Stores `target` as it is, without arranging it.
    static Value_object Convert_degreeC_to_degreeF(Value_object const& source, Units const& target);
    /// (v - 32) / 1.8. @throws what the value constructor throws for `target`.
    static Value_object Convert_degreeF_to_degreeC(Value_object const& source, Units const& target);
    /// v + 273.15. @throws what the value constructor throws for `target`.
    static Value_object Convert_degreeC_to_kelvin(Value_object const& source, Units const& target);
    /// (v - 32) / 1.8 + 273.15. @throws what the value constructor throws for `target`.
    static Value_object Convert_degreeF_to_kelvin(Value_object const& source, Units const& target);
    /// v - 273.15. @throws what the value constructor throws for `target`.
    static Value_object Convert_kelvin_to_degreeC(Value_object const& source, Units const& target);
    /// (v - 273.15) x 1.8 + 32. @throws what the value constructor throws for `target`.
    static Value_object Convert_kelvin_to_degreeF(Value_object const& source, Units const& target);
    /// v: the number is in watts already. @throws what the value constructor throws for `target`.
    static Value_object Power_conversion(Value_object const& source, Units const& target);

    // The electrical relations take watts, volts, amperes and ohms without prefix. Value, lower and
    // upper bound each follow from those of the two operands; the bounds are not ordered and
    // `target` is not arranged. Each throws std::out_of_range ("Value is out of range") when one of
    // the three comes out infinite or not a number.

    /// first / second: `first` is the power. @throws std::out_of_range
    static Value_object Volt_watt_amp_with_master_watt(Value_object const& first,
                                                       Value_object const& second,
                                                       Units const& target);
    /// second / first: `second` is the power. @throws std::out_of_range
    static Value_object Volt_watt_amp_with_spl_watt(Value_object const& first,
                                                    Value_object const& second,
                                                    Units const& target);
    /// first x second: volts and amperes into watts. @throws std::out_of_range
    static Value_object Volt_amp_to_watt(Value_object const& first, Value_object const& second,
                                         Units const& target);
    /// first x first / second: volts and ohms into watts. @throws std::out_of_range
    static Value_object Volt_ohm_to_watt(Value_object const& first, Value_object const& second,
                                         Units const& target);
    /// sqrt(first x second): watts and ohms into volts. @throws std::out_of_range
    static Value_object Watt_ohm_to_volt(Value_object const& first, Value_object const& second,
                                         Units const& target);

    /// A copy of `source`, which, if its unit is marked as decibels, has the linear numbers
    /// 10^(v / 10) x k; k is the product of the unit's exponents, 1 without unit. The unit keeps
    /// its marker and its prefix, which is not applied.
    static Value_object Normalize_DB(Value_object const& source) noexcept;

    /// The way back: 10 k log10(v). Zero gives minus infinity and a negative number not a number.
    static Value_object Apply_DB(Value_object const& source) noexcept;

    // ---- Arithmetic
    //
    // The operand may be the object itself. The result is stored once, at the end.

    /// Adds or subtracts a quantity, value and each bound field by field; the bounds are ordered
    /// afterwards. The object keeps its unit.
    /// - Units that differ: this value is converted into the unit of `other`, combined, and the
    ///   result converted back, which may round.
    /// - Two plain ratios in decibels combine as decibels: 3 dB += 3 dB is 6 dB.
    /// - Two decibel values with units combine as the quantities they stand for: 10 dBm += 10 dBm
    ///   is 13.01 dBm.
    /// - A ratio in decibels scales a linear value: 2 W += 3 dB is 3.99 W. Only where the tuples
    ///   of both are those of `C_Empty` and neither has a prefix are both quantities: 2 += 3 dB is
    ///   3.995.
    /// - One decibel value otherwise: both are made linear in this object's unit, combined, and
    ///   turned back if this object is in decibels.
    /// @throws UnitDimensionNotProper when one of the two is in decibels and exactly one has a unit
    ///         (the scaling above apart).
    /// @throws what `Convert_to` throws. `operator-=` throws UnitDimensionNotSame instead, unless
    ///         both are in decibels.
    Value_object& operator+=(Value_object const& other);
    Value_object& operator-=(Value_object const& other); ///< @copydoc operator+=

    /// Multiplies or divides by a quantity, value and each bound field by field; the bounds are
    /// ordered afterwards. Decibel values count with their linear numbers, the result is linear
    /// and has no prefix. Units of one dimension are first brought to a common one: 2 m *= 3 ft is
    /// 1.8288 m^2.
    /// @throws OperationNotValid when `other` is in decibels and one of the two is without unit.
    /// @throws OperationExceedingAllowedTuples when the unit would need a sixth tuple.
    /// @throws what `Get_dimension`, `Get_tuple_conversion_factor` and `Convert_to` throw.
    Value_object& operator*=(Value_object const& other);

    /// @copydoc operator*=(Value_object const&)
    /// @throws OperationNotValid, UnitDimensionNotProper, UnitNotDefined also for a unit of this
    ///         object that its constructor would reject.
    /// @throws std::out_of_range ("Value is out of range") when a quotient, of the bounds too, is
    ///         infinite or not a number.
    Value_object& operator/=(Value_object const& other);

    /// Multiplies value and bounds by `k`; decibel values are scaled as the quantities they stand
    /// for: 3 dB *= 2 is 6.01 dB. The result is not checked for being finite.
    Value_object& operator*=(Number const& k) noexcept;

    /// Divides value and bounds by `k`, as `operator*=`. The unit comes out in canonical order.
    /// @throws OperationNotValid, UnitDimensionNotProper, UnitNotDefined for a unit that the
    ///         constructor would reject.
    /// @throws std::out_of_range ("Value is out of range") when a quotient is infinite or not a
    ///         number, as after a division by zero.
    Value_object& operator/=(Number const& k);

    Value_object operator*(Number const& k) const noexcept; ///< a copy, multiplied by `k`
    Value_object operator/(Number const& k) const; ///< a copy, divided; @throws as `operator/=`

    // ---- Comparison
    //
    // The values are compared exactly, the bounds not at all. Where the units are not equal in
    // every field, this value is first converted into the unit of `other`; that may round, so that
    // a < b and b > a can differ. With a value that is not a number only `!=` is true. Each throws
    // what `Convert_to` throws: 2 m == 3 s is an error, not false.

    bool operator==(Value_object const& other) const; ///< @throws as `Convert_to`
    bool operator!=(Value_object const& other) const; ///< not `==`; @throws as `Convert_to`
    bool operator<(Value_object const& other) const;  ///< @throws as `Convert_to`
    bool operator<=(Value_object const& other) const; ///< @throws as `Convert_to`
    bool operator>(Value_object const& other) const;  ///< @throws as `Convert_to`
    bool operator>=(Value_object const& other) const; ///< @throws as `Convert_to`

    // ---- The unit algebra, for a caller that holds only this class. Each of these forwards to the
    // function of its name in `Units_library`, reads nothing of the object, and throws what that
    // throws.

    static Number Get_conversion_factor(Units const& target, Units const& source); ///< forwards
    static Number Get_tuple_conversion_factor(Unit_tuple const& from,
                                              Unit_tuple const& to);     ///< forwards
    static Dimension Get_dimension(Units_list const& code);              ///< forwards
    Units Multiply_units(Units const& first, Units const& second) const; ///< forwards
    Units Divide_units(Units const& first, Units const& second) const;   ///< forwards
    Units
    Get_base_unit(Units const& descriptor) const; ///< forwards: of its argument, not of the object

    /// The text of this object's unit, for display alone: as `Units_library::Get_unit_string` gives
    /// it, which see, "km^2" for a thousand square metres and no prefix that has no name.
    std::string Get_unit_string(Unit_string_type const& type) const;

    /// The same as `Get_unit_string`.
    std::string Get_unit_string_name(Unit_string_type const& type) const;

  private:
    // Stores numbers as computed, for the steps of the algorithms.
    friend struct Value_numbers;

    // The numbers as computed: the bounds are not ordered.
    Value_object(Number value_, Number minus_err_, Number plus_err_, Units const& unit_) noexcept
        : minus_err(minus_err_), plus_err(plus_err_), value(value_), unit(unit_) {}

    Number minus_err;
    Number plus_err;
    Number value;
    Units unit;
};

extern template class VARNIX_VALUE_EXPORT Value_object<double>;

/// @}

} // namespace Varnix::Value

#endif
