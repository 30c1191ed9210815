// The named units: one row a unit, its decibel marker, its prefix and its occupied tuples. They are
// constant-initialised, so that the load-time tables and the initialisers of a program can read
// them at any time.

#include <varnix/value/Units.h>

#include "units/Separators.h"

namespace Varnix::Value {

// clang-format off

// No unit: a plain number, and a plain ratio in decibels.
constexpr Units C_Empty = {SPL_NONE, NO_PREFIX, {{NO_UNIT, 1}}};
constexpr Units C_DB    = {SPL_DB,   NO_PREFIX, {{NO_UNIT, 1}}};

// Length.
constexpr Units C_Meter         = {SPL_NONE, NO_PREFIX, {{METER, 1}}};
constexpr Units C_Inch          = {SPL_NONE, NO_PREFIX, {{INCH, 1}}};
constexpr Units C_Miles         = {SPL_NONE, NO_PREFIX, {{MILE, 1}}};
constexpr Units C_Ft            = {SPL_NONE, NO_PREFIX, {{FOOT, 1}}};
constexpr Units C_Nautical_mile = {SPL_NONE, NO_PREFIX, {{NAUTICAL_MILE, 1}}};
constexpr Units C_KMeter        = {SPL_NONE, KILO,      {{METER, 1}}};
constexpr Units C_Yard          = {SPL_NONE, NO_PREFIX, {{YARD, 1}}};
constexpr Units C_CentiMeter    = {SPL_NONE, CENTI,     {{METER, 1}}};
constexpr Units C_MilliMeter    = {SPL_NONE, MILLI,     {{METER, 1}}};

// Time.
constexpr Units C_Sec         = {SPL_NONE, NO_PREFIX, {{SECOND, 1}}};
constexpr Units C_Min         = {SPL_NONE, NO_PREFIX, {{MINUTE, 1}}};
constexpr Units C_Hrs         = {SPL_NONE, NO_PREFIX, {{HOUR, 1}}};
constexpr Units C_Days        = {SPL_NONE, NO_PREFIX, {{DAY, 1}}};
constexpr Units C_Wks         = {SPL_NONE, NO_PREFIX, {{WEEK, 1}}};
constexpr Units C_Months      = {SPL_NONE, NO_PREFIX, {{MONTH, 1}}};
constexpr Units C_Yrs         = {SPL_NONE, NO_PREFIX, {{YEAR, 1}}};
constexpr Units C_PicoSecond  = {SPL_NONE, PICO,      {{SECOND, 1}}};
constexpr Units C_NanoSecond  = {SPL_NONE, NANO,      {{SECOND, 1}}};
constexpr Units C_MilliSecond = {SPL_NONE, MILLI,     {{SECOND, 1}}};
constexpr Units C_MicroSecond = {SPL_NONE, MICRO,     {{SECOND, 1}}};

// Frequency: the reciprocal of time.
constexpr Units C_Hz  = {SPL_NONE, NO_PREFIX, {{SECOND, -1}}};
constexpr Units C_MHz = {SPL_NONE, MEGA,      {{SECOND, -1}}};
constexpr Units C_KHz = {SPL_NONE, KILO,      {{SECOND, -1}}};
constexpr Units C_GHz = {SPL_NONE, GIGA,      {{SECOND, -1}}};
constexpr Units C_THz = {SPL_NONE, TERA,      {{SECOND, -1}}};

// Angle and rotation.
constexpr Units C_Radian       = {SPL_NONE, NO_PREFIX, {{RADIAN, 1}}};
constexpr Units C_Degree       = {SPL_NONE, NO_PREFIX, {{DEGREE, 1}}};
constexpr Units C_RadianPerSec = {SPL_NONE, NO_PREFIX, {{RADIAN, 1}, {SECOND, -1}}};

// Temperature.
constexpr Units C_DgreeC = {SPL_NONE, NO_PREFIX, {{DEGREE_C, 1}}};
constexpr Units C_DgreeF = {SPL_NONE, NO_PREFIX, {{DEGREE_F, 1}}};
constexpr Units C_Kelvin = {SPL_NONE, NO_PREFIX, {{KELVIN, 1}}};

// Ratio.
constexpr Units C_Percent = {SPL_NONE, NO_PREFIX, {{PERCENT, 1}}};
constexpr Units C_PPM     = {SPL_NONE, NO_PREFIX, {{PPM, 1}}};
constexpr Units C_PPB     = {SPL_NONE, NO_PREFIX, {{PPB, 1}}};

// Mass.
constexpr Units C_Grams = {SPL_NONE, NO_PREFIX, {{GRAM, 1}}};

// Power.
constexpr Units C_Watts      = {SPL_NONE, NO_PREFIX, {{WATT, 1}}};
constexpr Units C_NanoWatts  = {SPL_NONE, NANO,      {{WATT, 1}}};
constexpr Units C_MicroWatts = {SPL_NONE, MICRO,     {{WATT, 1}}};
constexpr Units C_MilliWatts = {SPL_NONE, MILLI,     {{WATT, 1}}};
constexpr Units C_KiloWatts  = {SPL_NONE, KILO,      {{WATT, 1}}};
constexpr Units C_MegaWatts  = {SPL_NONE, MEGA,      {{WATT, 1}}};
constexpr Units C_GigaWatts  = {SPL_NONE, GIGA,      {{WATT, 1}}};
constexpr Units C_DBW        = {SPL_DB,   NO_PREFIX, {{WATT, 1}}};
constexpr Units C_DBmW       = {SPL_DB,   MILLI,     {{WATT, 1}}};

// Voltage.
constexpr Units C_Volts      = {SPL_NONE, NO_PREFIX, {{VOLT, 1}}};
constexpr Units C_NanoVolts  = {SPL_NONE, NANO,      {{VOLT, 1}}};
constexpr Units C_MicroVolts = {SPL_NONE, MICRO,     {{VOLT, 1}}};
constexpr Units C_MilliVolts = {SPL_NONE, MILLI,     {{VOLT, 1}}};

// Resistance.
constexpr Units C_Ohms      = {SPL_NONE, NO_PREFIX, {{OHM, 1}}};
constexpr Units C_MilliOhms = {SPL_NONE, MILLI,     {{OHM, 1}}};
constexpr Units C_KiloOhms  = {SPL_NONE, KILO,      {{OHM, 1}}};
constexpr Units C_MegaOhms  = {SPL_NONE, MEGA,      {{OHM, 1}}};
constexpr Units C_GigaOhms  = {SPL_NONE, GIGA,      {{OHM, 1}}};

// Current.
constexpr Units C_Amps      = {SPL_NONE, NO_PREFIX, {{AMP, 1}}};
constexpr Units C_NanoAmps  = {SPL_NONE, NANO,      {{AMP, 1}}};
constexpr Units C_MicroAmps = {SPL_NONE, MICRO,     {{AMP, 1}}};
constexpr Units C_MilliAmps = {SPL_NONE, MILLI,     {{AMP, 1}}};

// Power written as the product it comes from.
constexpr Units C_Volt2PerOhms = {SPL_NONE, NO_PREFIX, {{VOLT, 2}, {OHM, -1}}};
constexpr Units C_VoltAmps     = {SPL_NONE, NO_PREFIX, {{VOLT, 1}, {AMP, 1}}};
constexpr Units C_Amps2Ohms    = {SPL_NONE, NO_PREFIX, {{AMP, 2}, {OHM, 1}}};

// Speed.
constexpr Units C_Mph            = {SPL_NONE, NO_PREFIX, {{MILE, 1}, {HOUR, -1}}};
constexpr Units C_MilestPerHour  = {SPL_NONE, NO_PREFIX, {{MILE, 1}, {HOUR, -1}}};
constexpr Units C_Kmph           = {SPL_NONE, KILO,      {{METER, 1}, {HOUR, -1}}};
constexpr Units C_Knots          = {SPL_NONE, NO_PREFIX, {{NAUTICAL_MILE, 1}, {HOUR, -1}}};
constexpr Units C_FeetPerMinute  = {SPL_NONE, NO_PREFIX, {{FOOT, 1}, {MINUTE, -1}}};
constexpr Units C_FeetPerSecond  = {SPL_NONE, NO_PREFIX, {{FOOT, 1}, {SECOND, -1}}};
constexpr Units C_MeterPerSecond = {SPL_NONE, NO_PREFIX, {{METER, 1}, {SECOND, -1}}};

// Acceleration.
constexpr Units C_MeterPerSecondSquared = {SPL_NONE, NO_PREFIX, {{METER, 1}, {SECOND, -2}}};
constexpr Units C_FeetPerSecondSquared  = {SPL_NONE, NO_PREFIX, {{FOOT, 1}, {SECOND, -2}}};

// Data size.
constexpr Units C_Bits   = {SPL_NONE, NO_PREFIX, {{BIT, 1}}};
constexpr Units C_Bytes  = {SPL_NONE, NO_PREFIX, {{BYTE, 1}}};
constexpr Units C_Octets = {SPL_NONE, NO_PREFIX, {{OCTET, 1}}};
constexpr Units C_Nybble = {SPL_NONE, NO_PREFIX, {{NYBBLE, 1}}};
constexpr Units C_Words  = {SPL_NONE, NO_PREFIX, {{WORD, 1}}};
constexpr Units C_Dwords = {SPL_NONE, NO_PREFIX, {{DWORD, 1}}};

// Data size with a decimal prefix (1000) or a binary one (1024).
constexpr Units C_KiloBytes = {SPL_NONE, KILO, {{BYTE, 1}}};
constexpr Units C_KiloBit   = {SPL_NONE, KILO, {{BIT, 1}}};
constexpr Units C_KiBytes   = {SPL_NONE, KIBI, {{BYTE, 1}}};
constexpr Units C_KiBit     = {SPL_NONE, KIBI, {{BIT, 1}}};
constexpr Units C_MegaBytes = {SPL_NONE, MEGA, {{BYTE, 1}}};
constexpr Units C_MegaBit   = {SPL_NONE, MEGA, {{BIT, 1}}};
constexpr Units C_MeBytes   = {SPL_NONE, MEBI, {{BYTE, 1}}};
constexpr Units C_MeBit     = {SPL_NONE, MEBI, {{BIT, 1}}};
constexpr Units C_GigaBytes = {SPL_NONE, GIGA, {{BYTE, 1}}};
constexpr Units C_GigaBit   = {SPL_NONE, GIGA, {{BIT, 1}}};
constexpr Units C_GiBytes   = {SPL_NONE, GIBI, {{BYTE, 1}}};
constexpr Units C_GiBit     = {SPL_NONE, GIBI, {{BIT, 1}}};
constexpr Units C_TeraBytes = {SPL_NONE, TERA, {{BYTE, 1}}};
constexpr Units C_TeraBit   = {SPL_NONE, TERA, {{BIT, 1}}};
constexpr Units C_TeBytes   = {SPL_NONE, TEBI, {{BYTE, 1}}};
constexpr Units C_TeBit     = {SPL_NONE, TEBI, {{BIT, 1}}};

// clang-format on

} // namespace Varnix::Value
