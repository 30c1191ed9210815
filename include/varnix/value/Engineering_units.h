// ValueObject: the units that measurements and their texts know beyond those of <varnix/value/Units.h>.
//
// Their codes begin at 1001 and those of their dimensions at 101. Use them where a unit is composed in
// code; where it comes as a text, `Parse_unit` gives the same codes:
//
//     #include <varnix/value/Engineering_units.h>
//     #include <varnix/value/Measurement.h>
//     using namespace Varnix::Value;
//
//     Units const hectopascal = {SPL_NONE, HECTO, {{PASCAL, 1}}};
//     Measurement const pressure(1013.25, hectopascal);
//     double const inches = pressure.Convert_to({SPL_NONE, NO_PREFIX, {{INCH_OF_MERCURY, 1}}}).Get_value(); // 29.92...
//
// For `Value_object` and `Units_library` these codes are no units: they throw `UnitNotDefined`.
// Each constant is a row of <varnix/value/Engineering_units.def>, which has its exact size and the source of
// that; docs/units.md shows them all.
//
// Threads: constants never change.

#ifndef VARNIX_VALUE_ENGINEERING_UNITS_H
#define VARNIX_VALUE_ENGINEERING_UNITS_H

#include <varnix/value/Units.h>

namespace Varnix::Value {

/// @addtogroup units
/// @{

/// @cond
#define VARNIX_VALUE_QUANTITY(code, constant, ...)                                                 \
    inline constexpr Dimension constant = static_cast<Dimension>(code);
#define VARNIX_VALUE_UNIT(code, constant, ...)                                                     \
    inline constexpr Units_list constant = static_cast<Units_list>(code);
#include <varnix/value/Engineering_units.def>
/// @endcond

/// The prefixes of SI beyond those of `SI_units`, each the exponent of a power of ten. (Quetta would have the
/// code of gibi.)
inline constexpr SI_units QUECTO = static_cast<SI_units>(-30);
inline constexpr SI_units RONTO = static_cast<SI_units>(-27); ///< 10^-27
inline constexpr SI_units YOCTO = static_cast<SI_units>(-24); ///< 10^-24
inline constexpr SI_units ZEPTO = static_cast<SI_units>(-21); ///< 10^-21
inline constexpr SI_units ATTO = static_cast<SI_units>(-18);  ///< 10^-18
inline constexpr SI_units FEMTO = static_cast<SI_units>(-15); ///< 10^-15
inline constexpr SI_units DECA = static_cast<SI_units>(1);    ///< 10
inline constexpr SI_units HECTO = static_cast<SI_units>(2);   ///< 100
inline constexpr SI_units RONNA = static_cast<SI_units>(27);  ///< 10^27

/// @}

} // namespace Varnix::Value

#endif
