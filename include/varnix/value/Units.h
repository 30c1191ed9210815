// ValueObject: the unit descriptor, its enumerations and the named units.
//
// Every quantity carries a `Units` descriptor: which units occur with which powers, which prefix
// scales the whole, and whether the number is in decibels. A descriptor is a plain 48-byte value;
// write one by copying a named constant or by aggregate initialisation:
//
//     #include <varnix/value/Units.h>
//     using namespace Varnix::Value;
//
//     Units const speed    = C_Kmph;                                            // km/h
//     Units const pressure = {SPL_NONE, NO_PREFIX, {{GRAM, 1}, {METER, -1}, {SECOND, -2}}};
//     Units const level    = {SPL_DB, MICRO, {{VOLT, 1}}};                      // decibels, 1 µV
//
// Threads: the constants are constant-initialised and never change; any thread may read them at any
// time, initialisers of other static objects included.

#ifndef VARNIX_VALUE_UNITS_H
#define VARNIX_VALUE_UNITS_H

#include <varnix/value/export.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

namespace Varnix::Value {

/// @addtogroup units
/// @{

/// The units of the catalogue. Any 32-bit code can be held; one without a catalogue row is rejected
/// with `UnitNotDefined` by the functions that look it up.
enum Units_list : std::int32_t {
    NO_UNIT = 0,        ///< an empty slot; not in the catalogue
    METER = 1,          ///< metre
    INCH = 2,           ///< inch, 0.0254 m
    FOOT = 3,           ///< foot, 0.3048 m
    MILE = 4,           ///< statute mile, kept as 1609.34 m
    SECOND = 5,         ///< second
    RADIAN = 6,         ///< radian, kept as 0.1590909 revolutions
    DEGREE = 7,         ///< degree of angle, kept as 0.002777 revolutions
    PERCENT = 8,        ///< per cent
    PPM = 9,            ///< parts per million
    PPB = 10,           ///< parts per billion (10^9)
    GRAM = 11,          ///< gram
    WATT = 12,          ///< watt
    VOLT = 13,          ///< volt
    OHM = 14,           ///< ohm
    AMP = 15,           ///< ampere
    DEGREE_C = 16,      ///< degree Celsius
    DEGREE_F = 17,      ///< degree Fahrenheit
    KELVIN = 18,        ///< kelvin
    MINUTE = 19,        ///< minute, 60 s
    HOUR = 20,          ///< hour, 3600 s
    DAY = 21,           ///< day, 86400 s
    WEEK = 22,          ///< week, 7 days
    MONTH = 23,         ///< month of 31 days
    YEAR = 24,          ///< year of 31556926 s
    NAUTICAL_MILE = 25, ///< nautical mile, 1852 m
    BIT = 26,           ///< bit
    NYBBLE = 27,        ///< nybble, 4 bits
    BYTE = 28,          ///< byte, 8 bits
    OCTET = 29,         ///< octet, 8 bits
    WORD = 30,          ///< word, 16 bits
    DWORD = 31,         ///< double word, 32 bits
    YARD = 32,          ///< yard, 0.9144 m
    SYMBOL = 33,        ///< symbol; converts like a per cent
};

/// The prefixes; each value is the exponent of its scale. The multiples of ten from 10 to 80 are
/// powers of 2 (IEC 80000-13), every other value is a power of 10 (SI brochure, 9th edition).
enum SI_units : std::int32_t {
    NO_PREFIX = 0, ///< no prefix
    PICO = -12,    ///< 10^-12
    NANO = -9,     ///< 10^-9
    MICRO = -6,    ///< 10^-6
    MILLI = -3,    ///< 10^-3
    CENTI = -2,    ///< 10^-2
    DECI = -1,     ///< 10^-1
    KILO = 3,      ///< 10^3
    MEGA = 6,      ///< 10^6
    GIGA = 9,      ///< 10^9
    TERA = 12,     ///< 10^12
    PETA = 15,     ///< 10^15
    EXA = 18,      ///< 10^18
    ZETTA = 21,    ///< 10^21
    YOTTA = 24,    ///< 10^24
    KIBI = 10,     ///< 2^10
    MEBI = 20,     ///< 2^20
    GIBI = 30,     ///< 2^30
    TEBI = 40,     ///< 2^40
    PEBI = 50,     ///< 2^50
    EXBI = 60,     ///< 2^60
    ZEBI = 70,     ///< 2^70
    YOBI = 80,     ///< 2^80
};

/// The physical dimension of a unit. The ascending order of the values is the canonical order of a
/// descriptor's tuples.
enum Dimension : std::int32_t {
    NO_DIMENSION = -1, ///< of an empty slot
    DIMENSIONLESS = 0, ///< angles, ratios and symbols
    DATA_SIZE = 1,     ///< reference: bit
    VOLTAGE = 2,       ///< reference: volt
    POWER = 3,         ///< reference: watt
    CURRENT = 4,       ///< reference: ampere
    RESISTANCE = 5,    ///< reference: ohm
    MASS = 6,          ///< reference: gram
    LENGTH = 7,        ///< reference: metre
    TEMPERATURE = 8,   ///< converted by formula, not by factor
    TIME = 9,          ///< reference: second
};

/// Which of the four spellings of a unit a string function produces.
enum Unit_string_type : std::int32_t {
    STR_NAME = 0,       ///< the full name: "meters", "kilo"
    STR_SYMBOL = 1,     ///< the display symbol, UTF-8: "m", "k", "°C"
    STR_LOWER_CASE = 2, ///< plain ASCII in lower case where the unit allows it
    STR_UPPER_CASE = 3, ///< plain ASCII in upper case
};

/// What `Units::spl_conv` holds: whether a descriptor is the decibel form of the unit that its other
/// fields describe.
enum Special_conversion : std::uint8_t {
    SPL_NONE = 0, ///< a linear quantity
    SPL_DB = 1, ///< decibels relative to one of the unit, prefix included: 10 log10, for every unit
};

/// One unit with its power; `unit` NO_UNIT marks an empty slot.
struct Unit_tuple {
    Units_list unit;       ///< the unit, or NO_UNIT
    std::int32_t exponent; ///< its power; negative in the denominator. Kept for empty slots as well
};

// What the library itself counts by. In a namespace of its own, so that these names stay free for
// programs; they have no use for them.
namespace Value_detail {

// One past the highest code of the catalogue, and past the highest dimension.
constexpr std::int32_t Unit_code_limit = SYMBOL + 1;
constexpr std::int32_t Dimension_limit = TIME + 1;

// How many tuples a descriptor holds.
constexpr std::size_t Tuple_count = 5;

} // namespace Value_detail

/// A unit descriptor: the decibel marker, the prefix of the whole, and up to five tuples.
///
/// Occupied slots come first. In canonical order (`Units_library::Arrange_tuple`) they ascend by
/// `Dimension`, no two of one dimension. The prefix belongs to the whole descriptor, not to one
/// tuple: KILO with metres per hour is kilometres per hour, and KILO with square metres is a
/// thousand square metres. Exponents are 32-bit; where an operation adds or negates them past that
/// range they wrap around.
///
/// The record has no constructors, so that the named constants need no code at load time. Its size
/// and layout are part of the binary interface.
struct Units {
    std::uint8_t spl_conv;                        ///< the decibel marker: SPL_NONE or SPL_DB
    SI_units si_prefix;                           ///< the prefix, NO_PREFIX for none
    Unit_tuple tuples[Value_detail::Tuple_count]; ///< the units with their powers
};

static_assert(sizeof(Unit_tuple) == 8 && sizeof(Units) == 48, "descriptors have a fixed size");
static_assert(offsetof(Units, si_prefix) == 4 && offsetof(Units, tuples) == 8,
              "descriptors have a fixed layout");
static_assert(std::is_trivial_v<Units> && std::is_standard_layout_v<Units>,
              "descriptors are plain records");

namespace Value_detail {

// Zero where unit and power of both are equal. One comparison instead of two.
inline std::uint64_t Difference(Unit_tuple const& first, Unit_tuple const& second) noexcept {
    std::uint64_t left = 0;
    std::uint64_t right = 0;
    static_assert(sizeof left == sizeof first);
    std::memcpy(&left, &first, sizeof left);
    std::memcpy(&right, &second, sizeof right);
    return left ^ right;
}

// Zero where the tuples are equal slot by slot. Without a branch for every slot: units that are
// compared are mostly equal.
inline std::uint64_t Difference_of_tuples(Units const& first, Units const& second) noexcept {
    static_assert(Tuple_count == 5, "every slot is compared");
    return Difference(first.tuples[0], second.tuples[0]) |
           Difference(first.tuples[1], second.tuples[1]) |
           Difference(first.tuples[2], second.tuples[2]) |
           Difference(first.tuples[3], second.tuples[3]) |
           Difference(first.tuples[4], second.tuples[4]);
}

inline bool Are_equal(Unit_tuple const& first, Unit_tuple const& second) noexcept {
    return Difference(first, second) == 0;
}

inline bool Are_equal(Units const& first, Units const& second) noexcept {
    return first.spl_conv == second.spl_conv && first.si_prefix == second.si_prefix &&
           Difference_of_tuples(first, second) == 0;
}

// bool for two `Units` and for two `Unit_tuple`; nothing for any other types.
template <typename Left, typename Right>
using Equality_of =
    std::enable_if_t<std::is_same_v<Left, Right> &&
                         (std::is_same_v<Left, Units> || std::is_same_v<Left, Unit_tuple>),
                     bool>;

} // namespace Value_detail

/// Whether two descriptors, or two of their tuples, are equal in every field, slot by slot: marker,
/// prefix, units and powers, powers of empty slots included. Nothing is arranged; km and m are not
/// equal.
///
/// A template, so that it yields to an operator that a program defines for these types itself.
template <typename Left, typename Right>
inline Value_detail::Equality_of<Left, Right> operator==(Left const& first,
                                                         Right const& second) noexcept {
    return Value_detail::Are_equal(first, second);
}
/// Not `==` as above, whatever `==` a program defines.
template <typename Left, typename Right>
inline Value_detail::Equality_of<Left, Right> operator!=(Left const& first,
                                                         Right const& second) noexcept {
    return !Value_detail::Are_equal(first, second);
}

/// The key of a conversion that needs a second value. It refers to descriptors and copies nothing:
/// the three must outlive the key.
struct Units_special_conv {
    Units const& from_unit; ///< the unit of the value being converted
    Units const& to_unit;   ///< the target unit
    Units const& with_unit; ///< the unit of the second value
};

// The named units. The spellings, C_DgreeC and C_MilestPerHour among them, are part of the
// interface. Every one is in canonical order.

// clang-format off

// No unit: a plain number, and a plain ratio in decibels.
extern VARNIX_VALUE_EXPORT Units const C_Empty; ///< no unit at all; not the same as a zeroed descriptor
extern VARNIX_VALUE_EXPORT Units const C_DB;    ///< a plain ratio, decibels

// Length.
extern VARNIX_VALUE_EXPORT Units const C_Meter;         ///< metres
extern VARNIX_VALUE_EXPORT Units const C_Inch;          ///< inches
extern VARNIX_VALUE_EXPORT Units const C_Miles;         ///< statute miles
extern VARNIX_VALUE_EXPORT Units const C_Ft;            ///< feet
extern VARNIX_VALUE_EXPORT Units const C_Nautical_mile; ///< nautical miles
extern VARNIX_VALUE_EXPORT Units const C_KMeter;        ///< kilometres
extern VARNIX_VALUE_EXPORT Units const C_Yard;          ///< yards
extern VARNIX_VALUE_EXPORT Units const C_CentiMeter;    ///< centimetres
extern VARNIX_VALUE_EXPORT Units const C_MilliMeter;    ///< millimetres

// Time.
extern VARNIX_VALUE_EXPORT Units const C_Sec;         ///< seconds
extern VARNIX_VALUE_EXPORT Units const C_Min;         ///< minutes
extern VARNIX_VALUE_EXPORT Units const C_Hrs;         ///< hours
extern VARNIX_VALUE_EXPORT Units const C_Days;        ///< days
extern VARNIX_VALUE_EXPORT Units const C_Wks;         ///< weeks
extern VARNIX_VALUE_EXPORT Units const C_Months;      ///< months of 31 days
extern VARNIX_VALUE_EXPORT Units const C_Yrs;         ///< years of 31556926 seconds
extern VARNIX_VALUE_EXPORT Units const C_PicoSecond;  ///< picoseconds
extern VARNIX_VALUE_EXPORT Units const C_NanoSecond;  ///< nanoseconds
extern VARNIX_VALUE_EXPORT Units const C_MilliSecond; ///< milliseconds
extern VARNIX_VALUE_EXPORT Units const C_MicroSecond; ///< microseconds

// Frequency: the reciprocal of time.
extern VARNIX_VALUE_EXPORT Units const C_Hz;  ///< hertz
extern VARNIX_VALUE_EXPORT Units const C_MHz; ///< megahertz, 10^6 per second
extern VARNIX_VALUE_EXPORT Units const C_KHz; ///< kilohertz, 10^3 per second
extern VARNIX_VALUE_EXPORT Units const C_GHz; ///< gigahertz, 10^9 per second
extern VARNIX_VALUE_EXPORT Units const C_THz; ///< terahertz, 10^12 per second

// Angle and rotation.
extern VARNIX_VALUE_EXPORT Units const C_Radian;       ///< radians
extern VARNIX_VALUE_EXPORT Units const C_Degree;       ///< degrees of angle
extern VARNIX_VALUE_EXPORT Units const C_RadianPerSec; ///< radians per second

// Temperature.
extern VARNIX_VALUE_EXPORT Units const C_DgreeC; ///< degrees Celsius
extern VARNIX_VALUE_EXPORT Units const C_DgreeF; ///< degrees Fahrenheit
extern VARNIX_VALUE_EXPORT Units const C_Kelvin; ///< kelvin

// Ratio.
extern VARNIX_VALUE_EXPORT Units const C_Percent; ///< per cent
extern VARNIX_VALUE_EXPORT Units const C_PPM;     ///< parts per million
extern VARNIX_VALUE_EXPORT Units const C_PPB;     ///< parts per billion

// Mass.
extern VARNIX_VALUE_EXPORT Units const C_Grams; ///< grams

// Power.
extern VARNIX_VALUE_EXPORT Units const C_Watts;      ///< watts
extern VARNIX_VALUE_EXPORT Units const C_NanoWatts;  ///< nanowatts
extern VARNIX_VALUE_EXPORT Units const C_MicroWatts; ///< microwatts
extern VARNIX_VALUE_EXPORT Units const C_MilliWatts; ///< milliwatts
extern VARNIX_VALUE_EXPORT Units const C_KiloWatts;  ///< kilowatts
extern VARNIX_VALUE_EXPORT Units const C_MegaWatts;  ///< megawatts
extern VARNIX_VALUE_EXPORT Units const C_GigaWatts;  ///< gigawatts
extern VARNIX_VALUE_EXPORT Units const C_DBW;        ///< decibels relative to one watt
extern VARNIX_VALUE_EXPORT Units const C_DBmW;       ///< decibels relative to one milliwatt

// Voltage.
extern VARNIX_VALUE_EXPORT Units const C_Volts;      ///< volts
extern VARNIX_VALUE_EXPORT Units const C_NanoVolts;  ///< nanovolts
extern VARNIX_VALUE_EXPORT Units const C_MicroVolts; ///< microvolts
extern VARNIX_VALUE_EXPORT Units const C_MilliVolts; ///< millivolts

// Resistance.
extern VARNIX_VALUE_EXPORT Units const C_Ohms;      ///< ohms
extern VARNIX_VALUE_EXPORT Units const C_MilliOhms; ///< milliohms
extern VARNIX_VALUE_EXPORT Units const C_KiloOhms;  ///< kiloohms
extern VARNIX_VALUE_EXPORT Units const C_MegaOhms;  ///< megaohms
extern VARNIX_VALUE_EXPORT Units const C_GigaOhms;  ///< gigaohms

// Current.
extern VARNIX_VALUE_EXPORT Units const C_Amps;      ///< amperes
extern VARNIX_VALUE_EXPORT Units const C_NanoAmps;  ///< nanoamperes
extern VARNIX_VALUE_EXPORT Units const C_MicroAmps; ///< microamperes
extern VARNIX_VALUE_EXPORT Units const C_MilliAmps; ///< milliamperes

// Power written as the product it comes from.
extern VARNIX_VALUE_EXPORT Units const C_Volt2PerOhms; ///< volts squared per ohm
extern VARNIX_VALUE_EXPORT Units const C_VoltAmps;     ///< volts times amperes
extern VARNIX_VALUE_EXPORT Units const C_Amps2Ohms;    ///< amperes squared times ohms

// Speed.
extern VARNIX_VALUE_EXPORT Units const C_Mph;            ///< miles per hour
extern VARNIX_VALUE_EXPORT Units const C_MilestPerHour;  ///< miles per hour; the same contents as C_Mph
extern VARNIX_VALUE_EXPORT Units const C_Kmph;           ///< kilometres per hour
extern VARNIX_VALUE_EXPORT Units const C_Knots;          ///< nautical miles per hour
extern VARNIX_VALUE_EXPORT Units const C_FeetPerMinute;  ///< feet per minute
extern VARNIX_VALUE_EXPORT Units const C_FeetPerSecond;  ///< feet per second
extern VARNIX_VALUE_EXPORT Units const C_MeterPerSecond; ///< metres per second

// Acceleration.
extern VARNIX_VALUE_EXPORT Units const C_MeterPerSecondSquared; ///< metres per second squared
extern VARNIX_VALUE_EXPORT Units const C_FeetPerSecondSquared;  ///< feet per second squared

// Data size.
extern VARNIX_VALUE_EXPORT Units const C_Bits;   ///< bits
extern VARNIX_VALUE_EXPORT Units const C_Bytes;  ///< bytes of 8 bits
extern VARNIX_VALUE_EXPORT Units const C_Octets; ///< octets of 8 bits
extern VARNIX_VALUE_EXPORT Units const C_Nybble; ///< nybbles of 4 bits
extern VARNIX_VALUE_EXPORT Units const C_Words;  ///< words of 16 bits
extern VARNIX_VALUE_EXPORT Units const C_Dwords; ///< double words of 32 bits

// Data size with a decimal prefix (1000) or a binary one (1024).
extern VARNIX_VALUE_EXPORT Units const C_KiloBytes; ///< kilobytes
extern VARNIX_VALUE_EXPORT Units const C_KiloBit;   ///< kilobits
extern VARNIX_VALUE_EXPORT Units const C_KiBytes;   ///< kibibytes
extern VARNIX_VALUE_EXPORT Units const C_KiBit;     ///< kibibits
extern VARNIX_VALUE_EXPORT Units const C_MegaBytes; ///< megabytes
extern VARNIX_VALUE_EXPORT Units const C_MegaBit;   ///< megabits
extern VARNIX_VALUE_EXPORT Units const C_MeBytes;   ///< mebibytes
extern VARNIX_VALUE_EXPORT Units const C_MeBit;     ///< mebibits
extern VARNIX_VALUE_EXPORT Units const C_GigaBytes; ///< gigabytes
extern VARNIX_VALUE_EXPORT Units const C_GigaBit;   ///< gigabits
extern VARNIX_VALUE_EXPORT Units const C_GiBytes;   ///< gibibytes
extern VARNIX_VALUE_EXPORT Units const C_GiBit;     ///< gibibits
extern VARNIX_VALUE_EXPORT Units const C_TeraBytes; ///< terabytes
extern VARNIX_VALUE_EXPORT Units const C_TeraBit;   ///< terabits
extern VARNIX_VALUE_EXPORT Units const C_TeBytes;   ///< tebibytes
extern VARNIX_VALUE_EXPORT Units const C_TeBit;     ///< tebibits

// clang-format on

/// @}

} // namespace Varnix::Value

#endif
