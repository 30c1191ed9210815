// The 93 named units, each with its name and its text in the form of full names.

#ifndef VARNIX_VALUE_TESTS_ALL_CONSTANTS_H
#define VARNIX_VALUE_TESTS_ALL_CONSTANTS_H

#include <varnix/value/Units.h>

namespace Varnix::Value {

struct Named_unit {
    char const* name;
    Units const* unit;
    char const* text;
};

// clang-format off
inline constexpr Named_unit all_constants[] = {
    {"C_Empty",                   &C_Empty,                  ""},
    {"C_DB",                      &C_DB,                     "dB"},
    {"C_Meter",                   &C_Meter,                  "meters"},
    {"C_Inch",                    &C_Inch,                   "inches"},
    {"C_Miles",                   &C_Miles,                  "miles"},
    {"C_Ft",                      &C_Ft,                     "feet"},
    {"C_Nautical_mile",           &C_Nautical_mile,          "nautical_miles"},
    {"C_KMeter",                  &C_KMeter,                 "kilometers"},
    {"C_Yard",                    &C_Yard,                   "yard"},
    {"C_CentiMeter",              &C_CentiMeter,             "centimeters"},
    {"C_MilliMeter",              &C_MilliMeter,             "millimeters"},
    {"C_Sec",                     &C_Sec,                    "seconds"},
    {"C_Min",                     &C_Min,                    "minutes"},
    {"C_Hrs",                     &C_Hrs,                    "hours"},
    {"C_Days",                    &C_Days,                   "days"},
    {"C_Wks",                     &C_Wks,                    "weeks"},
    {"C_Months",                  &C_Months,                 "months"},
    {"C_Yrs",                     &C_Yrs,                    "years"},
    {"C_PicoSecond",              &C_PicoSecond,             "picoseconds"},
    {"C_NanoSecond",              &C_NanoSecond,             "nanoseconds"},
    {"C_MilliSecond",             &C_MilliSecond,            "milliseconds"},
    {"C_MicroSecond",             &C_MicroSecond,            "microseconds"},
    {"C_Hz",                      &C_Hz,                     "hertz"},
    {"C_MHz",                     &C_MHz,                    "megahertz"},
    {"C_KHz",                     &C_KHz,                    "kilohertz"},
    {"C_GHz",                     &C_GHz,                    "gigahertz"},
    {"C_THz",                     &C_THz,                    "tera/seconds"},
    {"C_Radian",                  &C_Radian,                 "radians"},
    {"C_Degree",                  &C_Degree,                 "degrees"},
    {"C_RadianPerSec",            &C_RadianPerSec,           "radians/seconds"},
    {"C_DgreeC",                  &C_DgreeC,                 "degreeCelsius"},
    {"C_DgreeF",                  &C_DgreeF,                 "degreeFahrenheit"},
    {"C_Kelvin",                  &C_Kelvin,                 "kelvin"},
    {"C_Percent",                 &C_Percent,                "percent"},
    {"C_PPM",                     &C_PPM,                    "ppm"},
    {"C_PPB",                     &C_PPB,                    "ppb"},
    {"C_Grams",                   &C_Grams,                  "grams"},
    {"C_Watts",                   &C_Watts,                  "watts"},
    {"C_NanoWatts",               &C_NanoWatts,              "nanowatts"},
    {"C_MicroWatts",              &C_MicroWatts,             "microwatts"},
    {"C_MilliWatts",              &C_MilliWatts,             "milliwatts"},
    {"C_KiloWatts",               &C_KiloWatts,              "kilowatts"},
    {"C_MegaWatts",               &C_MegaWatts,              "megawatts"},
    {"C_GigaWatts",               &C_GigaWatts,              "gigawatts"},
    {"C_DBW",                     &C_DBW,                    "dBwatts"},
    {"C_DBmW",                    &C_DBmW,                   "dBmilliwatts"},
    {"C_Volts",                   &C_Volts,                  "volts"},
    {"C_NanoVolts",               &C_NanoVolts,              "nanovolts"},
    {"C_MicroVolts",              &C_MicroVolts,             "microvolts"},
    {"C_MilliVolts",              &C_MilliVolts,             "millivolts"},
    {"C_Ohms",                    &C_Ohms,                   "ohms"},
    {"C_MilliOhms",               &C_MilliOhms,              "milliohms"},
    {"C_KiloOhms",                &C_KiloOhms,               "kiloohms"},
    {"C_MegaOhms",                &C_MegaOhms,               "megaohms"},
    {"C_GigaOhms",                &C_GigaOhms,               "gigaohms"},
    {"C_Amps",                    &C_Amps,                   "amps"},
    {"C_NanoAmps",                &C_NanoAmps,               "nanoamps"},
    {"C_MicroAmps",               &C_MicroAmps,              "microamps"},
    {"C_MilliAmps",               &C_MilliAmps,              "milliamps"},
    {"C_Volt2PerOhms",            &C_Volt2PerOhms,           "volts^2/ohms"},
    {"C_VoltAmps",                &C_VoltAmps,               "voltsamps"},
    {"C_Amps2Ohms",               &C_Amps2Ohms,              "amps^2ohms"},
    {"C_Mph",                     &C_Mph,                    "miles/hours"},
    {"C_MilestPerHour",           &C_MilestPerHour,          "miles/hours"},
    {"C_Kmph",                    &C_Kmph,                   "kilometer/hour"},
    {"C_Knots",                   &C_Knots,                  "Knots"},
    {"C_FeetPerMinute",           &C_FeetPerMinute,          "feet/minutes"},
    {"C_FeetPerSecond",           &C_FeetPerSecond,          "feet/seconds"},
    {"C_MeterPerSecond",          &C_MeterPerSecond,         "meters/seconds"},
    {"C_MeterPerSecondSquared",   &C_MeterPerSecondSquared,  "meters/seconds^2"},
    {"C_FeetPerSecondSquared",    &C_FeetPerSecondSquared,   "feet/seconds^2"},
    {"C_Bits",                    &C_Bits,                   "bits"},
    {"C_Bytes",                   &C_Bytes,                  "bytes"},
    {"C_Octets",                  &C_Octets,                 "octets"},
    {"C_Nybble",                  &C_Nybble,                 "nybble"},
    {"C_Words",                   &C_Words,                  "words"},
    {"C_Dwords",                  &C_Dwords,                 "dwords"},
    {"C_KiloBytes",               &C_KiloBytes,              "kilobytes"},
    {"C_KiloBit",                 &C_KiloBit,                "kilobits"},
    {"C_KiBytes",                 &C_KiBytes,                "kibibytes"},
    {"C_KiBit",                   &C_KiBit,                  "kibibits"},
    {"C_MegaBytes",               &C_MegaBytes,              "megabytes"},
    {"C_MegaBit",                 &C_MegaBit,                "megabits"},
    {"C_MeBytes",                 &C_MeBytes,                "mebibytes"},
    {"C_MeBit",                   &C_MeBit,                  "mebibits"},
    {"C_GigaBytes",               &C_GigaBytes,              "gigabytes"},
    {"C_GigaBit",                 &C_GigaBit,                "gigabits"},
    {"C_GiBytes",                 &C_GiBytes,                "gibibytes"},
    {"C_GiBit",                   &C_GiBit,                  "gibibits"},
    {"C_TeraBytes",               &C_TeraBytes,              "terabytes"},
    {"C_TeraBit",                 &C_TeraBit,                "terabits"},
    {"C_TeBytes",                 &C_TeBytes,                "tebibytes"},
    {"C_TeBit",                   &C_TeBit,                  "tebibits"},
};
// clang-format on

} // namespace Varnix::Value

#endif
