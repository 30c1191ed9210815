// ValueObject text: the physical kinds of units, and which units there are.
//
// The core's rules let some conversions through that change the kind of a quantity: 5 m becomes
// 5 m/s, because a slot that is empty on one side is ignored. `Same_kind` asks the strict question
// beforehand, and `Kind_name` gives the words for a message. Both know the units of
// <varnix/value/Engineering_units.h>, too.
//
//     #include <varnix/value/Unit_kinds.h>
//     using namespace Varnix::Value;
//
//     bool const powers = Same_kind(C_Volt2PerOhms, C_DBmW);     // true
//     bool const lengths = Same_kind(C_Meter, C_MeterPerSecond); // false; the core would convert
//     std::string const kind = Kind_name(C_Kmph);                // "length/time"
//
// Threads: every function is pure; any number of threads may call them at once.

#ifndef VARNIX_VALUE_UNIT_KINDS_H
#define VARNIX_VALUE_UNIT_KINDS_H

#include <varnix/value/Units.h>
#include <varnix/value/text_export.h>

#include <string>
#include <vector>

namespace Varnix::Value {

/// @addtogroup units
/// @{

/// Whether two units measure the same physical kind.
///
/// Of two units of the core: equal dimensions with equal powers, once a power is written as voltage
/// times current and a resistance as voltage over current. Angles and ratios count as a dimension of
/// their own: rad/s is not Hz, % is not a plain number, and a watt is no kg m^2/s^3.
///
/// Where one has a unit of <varnix/value/Engineering_units.h>, physics decides: N and kg m/s^2, J and
/// W s, Gy and m^2/s^2 are of one kind. Ratios are plain numbers then, angles are angles, and months
/// are no seconds.
///
/// Prefix, decibel marker, and the choice among units of one dimension do not count: km and ft, °C
/// and K, dBm and V^2/ohm are of one kind. C_DB and C_Empty are both plain.
/// @throws UnitNotDefined for a unit code that neither the core nor <varnix/value/Engineering_units.h>
///         has.
VARNIX_VALUE_TEXT_EXPORT bool Same_kind(Units const& first, Units const& second);

/// The kind in words, for messages: "length", "length/time", "power", "1/time", "force*length",
/// "plain number", "plain ratio" for C_DB. It names the dimensions that the unit has, so that N and
/// kg m/s^2 have different texts. Units of the core of different kinds have different texts, too.
/// @throws UnitNotDefined as `Same_kind`.
VARNIX_VALUE_TEXT_EXPORT std::string Kind_name(Units const& unit);

/// One of the constants of <varnix/value/Units.h>. Its texts are those of `Get_unit_string`.
struct Named_unit {
    Units unit;           ///< a copy of the constant
    char const* constant; ///< how it is called: "C_Meter". Lives as long as the program
};

/// The named units, in the order of <varnix/value/Units.h>.
VARNIX_VALUE_TEXT_EXPORT std::vector<Named_unit> Named_units();

/// The units of the core, each as a descriptor of its first power, in the order of their codes.
VARNIX_VALUE_TEXT_EXPORT std::vector<Units> Catalogue_units();

/// All units that texts and measurements know: those of `Catalogue_units`, then those of
/// <varnix/value/Engineering_units.h>, each as a descriptor of its first power, in the order of their
/// codes.
VARNIX_VALUE_TEXT_EXPORT std::vector<Units> All_units();

/// The prefixes of the core, from pico to yotta and from kibi to yobi; NO_PREFIX is not among them.
VARNIX_VALUE_TEXT_EXPORT std::vector<SI_units> Prefixes();

/// All prefixes that texts and measurements know, from quecto to ronna with deca and hecto, and from
/// kibi to yobi. Which of them a unit takes depends on the unit: no "hft" is read.
VARNIX_VALUE_TEXT_EXPORT std::vector<SI_units> All_prefixes();

/// @}

} // namespace Varnix::Value

#endif
