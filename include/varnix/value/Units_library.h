// ValueObject: the algebra of unit descriptors.
//
// `Units_library` answers every question about units alone: order, equality, base units, products,
// conversion factors and texts.
//
//     #include <varnix/value/Units_library.h>
//     using namespace Varnix::Value;
//
//     Units const area = Units_library::Multiply_units(C_Meter, C_Meter);             // m^2
//     double const factor = Units_library::Get_conversion_factor(C_Meter, C_Ft);      // 0.3048
//     std::string const text = Units_library::Get_unit_string(C_Kmph, STR_SYMBOL);    // "Km/h"
//
// Threads: every function is pure; any number of threads may call them at once.

#ifndef VARNIX_VALUE_UNITS_LIBRARY_H
#define VARNIX_VALUE_UNITS_LIBRARY_H

#include <varnix/value/Units.h>
#include <varnix/value/export.h>

#include <string>

namespace Varnix::Value {

/// @addtogroup units
/// @{

/// Functions over unit descriptors. None modifies its arguments. Unless stated otherwise a function
/// does not throw, works slot by slot, and so expects descriptors in canonical order.
class VARNIX_VALUE_EXPORT Units_library {
  public:
    Units_library() = delete;

    // ---- Canonical order

    /// The dimension of `unit`; NO_DIMENSION for NO_UNIT.
    /// @throws UnitNotDefined for any other code without a catalogue row.
    static Dimension Get_dimension(Units_list const& unit);

    /// `unit` with its occupied tuples in ascending order of their dimension. Prefix, marker and
    /// trailing empty slots stay as they are; tuples are never merged.
    ///
    /// A unit in which an occupied slot follows an empty one comes back unchanged, for
    /// `Value_object` to reject.
    /// @throws UnitDimensionNotProper when two occupied slots share a dimension.
    /// @throws UnitNotDefined for a code without a catalogue row. Of two faults the one in the
    ///         lower slots is reported.
    static Units Arrange_tuple(Units const& unit);

    // ---- Comparison, base units and dimensions

    /// Whether the five tuples are equal slot by slot, empty slots and their exponents included,
    /// and, with `compare_prefix`, the prefixes too. The decibel marker is not looked at.
    static bool Compare_units(Units const& first, Units const& second,
                              bool compare_prefix) noexcept;

    /// Whether the two descriptors are equal in every field. `compare_prefix` changes nothing: the
    /// prefixes are always compared.
    static bool Compare_units_DB(Units const& first, Units const& second,
                                 bool compare_prefix) noexcept;

    /// Whether the two are reciprocals: equal markers, equal units slot by slot, exponents that add
    /// up to 0, in empty slots as well. The prefixes are not looked at.
    static bool Is_Invert_units(Units const& first, Units const& second) noexcept;

    /// `unit` with every unit replaced by the one its dimension reduces to (metres, seconds, bits,
    /// degrees Celsius; other units stand for themselves), the prefix removed and the marker kept.
    /// A slot whose unit has no catalogue row becomes (NO_UNIT, 0).
    static Units Get_base_unit(Units const& unit) noexcept;

    /// The radix of the prefix of `unit`: 2.0 for a binary prefix, 10.0 for anything else.
    static double Get_unit_base(Units const& unit) noexcept;

    /// Whether no slot holds a unit of a dimension other than DIMENSIONLESS. Prefix and marker are
    /// not looked at.
    /// @throws UnitNotDefined for a code without a catalogue row, met before the first unit of
    ///         another dimension.
    static bool Is_unitless(Units const& unit);

    // ---- Products

    /// `first` times `second`: exponents of a shared unit add, a unit whose exponent comes to zero
    /// drops out, other units of `second` follow those of `first`. The result is packed but not
    /// sorted, carries the prefix of `first` and no marker. Units are combined by their codes:
    /// metres and feet stay two tuples.
    /// @throws OperationExceedingAllowedTuples when the result would need a sixth tuple.
    static Units Multiply_units(Units const& first, Units const& second);

    /// `first` divided by `second`, as `Multiply_units` with the exponents of `second` negated.
    /// @throws OperationExceedingAllowedTuples when the result would need a sixth tuple.
    static Units Divide_units(Units const& first, Units const& second);

    /// The same as `Multiply_units(first, second)`.
    /// @throws OperationExceedingAllowedTuples when the result would need a sixth tuple.
    static Units Make_unit(Units const& first, Units const& second);

    // ---- Conversion factors

    /// What one `from` is worth in `to`: the ratio of the two units' catalogue factors, or of their
    /// reciprocals for negative exponents, raised to the magnitude of the exponent of `to`. A
    /// temperature unit counts as 1.0.
    /// @throws UnitNotDefined for a unit without a catalogue row, NO_UNIT included.
    /// @throws UnitDimensionNotSame when the units differ in dimension.
    /// @throws std::out_of_range ("Value is out of range") when the ratio is not finite.
    static double Get_tuple_conversion_factor(Unit_tuple const& from, Unit_tuple const& to);

    /// What one `source` is worth in `target`, prefixes and markers not counted: the product of the
    /// slots' factors. Mind the order of the arguments. A slot that is empty on either side counts
    /// as 1.0 and raises nothing.
    /// @throws UnitDimensionNotSame when a slot's exponents differ in magnitude or its units in
    ///         dimension.
    /// @throws UnitNotDefined for a unit without a catalogue row.
    /// @throws std::out_of_range ("Value is out of range") when a ratio is not finite.
    static double Get_conversion_factor(Units const& target, Units const& source);

    // ---- Texts
    //
    // A `type` outside the four spells prefixes by name and everything else in upper case. These
    // functions throw nothing of their own (std::bad_alloc apart): what the catalogue does not know
    // leaves no text.

    /// The text of a descriptor, for display alone: a prefix stands for the whole unit, so that a
    /// thousand square metres are "km^2", which every reader takes for a million, (km)^2 is "Mm^2",
    /// and a prefix without a name is not shown: 5 cm^2 prints as "5 m^2". `Format_unit` of
    /// <varnix/value/Text_formatting.h> writes what is read back. It is the unit's special name if
    /// it has one ("Mph", "kHz", "dBm"), otherwise "dB" if it is marked, its prefix, and its units:
    /// "km", "dBW", "m/s^2".
    static std::string Get_unit_string(Units const& unit, Unit_string_type const& type);

    /// The same as `Get_unit_string`.
    static std::string Get_unit_str(Units const& unit, Unit_string_type const& type);

    /// The special name of the whole descriptor; empty if it has none.
    static std::string Get_unit_str_spl_map(Units const& unit, Unit_string_type const& type);

    /// The text of the prefix; empty if there is none or it is not in the catalogue.
    static std::string Get_unit_str_si_map(Units const& unit, Unit_string_type const& type);

    /// The text of the tuples up to the first empty slot, numerator before denominator, joined
    /// without separators: "VA", "m/sK". For a descriptor with a special name the symbol and the
    /// lower-case form leave out the units' texts, so that hertz gives "/".
    static std::string Get_unit_str_info_map(Units const& unit, Unit_string_type const& type);
};

/// @}

} // namespace Varnix::Value

#endif
