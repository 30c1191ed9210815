// The catalogue: every unit, every prefix, and the composite units with a name of their own.
//
// These tables are the library's one source of truth about single units. They are built once, while
// the library loads, in the order in which they stand here, and are only read afterwards. They have
// internal linkage: `Units_library` alone includes this header (and the test that counts its rows).
//
// A list keeps the first of two rows with one key and drops the other without a word; a test counts
// the rows.

#ifndef VARNIX_VALUE_UNIT_TABLES_H
#define VARNIX_VALUE_UNIT_TABLES_H

#include "Separators.h" // before the tables: the separators are built first
#include "Unit_records.h"

#include <boost/assign/list_of.hpp>

#include <map>
#include <vector>

namespace Varnix::Value {

// clang-format off

static std::map<SI_units, Unit_strings> const Si_prefix_table =
    boost::assign::map_list_of<SI_units, Unit_strings>
    //                   symbol name      lower upper
    (PICO,  Unit_strings("p",  "pico",  "p",  "P"))
    (NANO,  Unit_strings("n",  "nano",  "n",  "N"))
    // The micro sign is U+00B5, two bytes in UTF-8.
    (MICRO, Unit_strings("µ",  "micro", "u",  "U"))
    (MILLI, Unit_strings("m",  "milli", "m",  "M"))
    (CENTI, Unit_strings("c",  "centi", "c",  "C"))
    (DECI,  Unit_strings("d",  "deci",  "d",  "D"))
    (KILO,  Unit_strings("k",  "kilo",  "k",  "K"))
    // Mega is "MA" in both plain forms, since milli has "m" and "M".
    (MEGA,  Unit_strings("M",  "mega",  "MA", "MA"))
    (GIGA,  Unit_strings("G",  "giga",  "G",  "G"))
    (TERA,  Unit_strings("T",  "tera",  "T",  "T"))
    // From here two letters: pico has the single "p" and "P".
    (PETA,  Unit_strings("P",  "peta",  "pe", "PE"))
    (EXA,   Unit_strings("E",  "exa",   "ex", "EX"))
    (ZETTA, Unit_strings("Z",  "zetta", "ze", "ZE"))
    (YOTTA, Unit_strings("Y",  "yotta", "yo", "YO"))
    (KIBI,  Unit_strings("Ki", "kibi",  "Ki", "KI"))
    (MEBI,  Unit_strings("Mi", "mebi",  "Mi", "MI"))
    (GIBI,  Unit_strings("Gi", "gibi",  "Gi", "GI"))
    (TEBI,  Unit_strings("Ti", "tebi",  "Ti", "TI"))
    (PEBI,  Unit_strings("Pi", "pebi",  "Pi", "PI"))
    (EXBI,  Unit_strings("Ei", "exbi",  "Ei", "EI"))
    (ZEBI,  Unit_strings("Zi", "zebi",  "Zi", "ZI"))
    (YOBI,  Unit_strings("Yi", "yobi",  "Yi", "YI"));

static std::vector<Unit_name_spl_data> const Units_spl_names_table =
    boost::assign::list_of<Unit_name_spl_data>
    //                                         symbol   name              lower    upper
    (Unit_name_spl_data(C_Mph,   Unit_strings("Mph",  "miles/hours",    "mph",  "MPH")))
    (Unit_name_spl_data(C_Kmph,  Unit_strings("Km/h", "kilometer/hour", "km/h", "KMPH")))
    (Unit_name_spl_data(C_Knots, Unit_strings("kts",  "Knots",          "kts",  "KTS")))
    (Unit_name_spl_data(C_Hz,    Unit_strings("Hz",   "hertz",          "hz",   "HZ")))
    (Unit_name_spl_data(C_MHz,   Unit_strings("MHz",  "megahertz",      "mhz",  "MHZ")))
    (Unit_name_spl_data(C_KHz,   Unit_strings("kHz",  "kilohertz",      "khz",  "KHZ")))
    (Unit_name_spl_data(C_GHz,   Unit_strings("GHz",  "gigahertz",      "ghz",  "GHZ")))
    (Unit_name_spl_data(C_DBmW,  Unit_strings("dBm",  "dBmilliwatts",   "dBm",  "DBM")));

static std::map<Units_list, Unit_info> const Unit_table =
    boost::assign::map_list_of<Units_list, Unit_info>
    // key                     factor         dimension      own code       base                   symbol     name                lower   upper     by formula
    // Lengths, in metres.
    (METER,         Unit_info(1.0,          LENGTH,        METER,         METER,    Unit_strings("m",      "meters",           "m",    "M"), false))
    (INCH,          Unit_info(0.0254,       LENGTH,        INCH,          METER,    Unit_strings("in",     "inches",           "in",   "IN"), false))
    (FOOT,          Unit_info(0.3048,       LENGTH,        FOOT,          METER,    Unit_strings("ft",     "feet",             "ft",   "FT"), false))
    (YARD,          Unit_info(0.9144,       LENGTH,        YARD,          METER,    Unit_strings("yd",     "yard",             "yd",   "YD"), false)) // the one singular name
    (MILE,          Unit_info(1609.34,      LENGTH,        MILE,          METER,    Unit_strings("mi",     "miles",            "mi",   "MI"), false)) // 1609.34, not the exact 1609.344: results keep to it
    (NAUTICAL_MILE, Unit_info(1852.0,       LENGTH,        NAUTICAL_MILE, METER,    Unit_strings("n.mi",   "nautical_miles",   "n.mi", "N.MI"), false))

    // Times, in seconds.
    (SECOND,        Unit_info(1.0,          TIME,          SECOND,        SECOND,   Unit_strings("s",      "seconds",          "s",    "S"), false))
    (MINUTE,        Unit_info(60.0,         TIME,          MINUTE,        SECOND,   Unit_strings("min",    "minutes",          "min",  "MIN"), false))
    (HOUR,          Unit_info(3600.0,       TIME,          HOUR,          SECOND,   Unit_strings("h",      "hours",            "h",    "H"), false))
    (DAY,           Unit_info(86400.0,      TIME,          DAY,           SECOND,   Unit_strings("dy",     "days",             "dy",   "DY"), false))
    (WEEK,          Unit_info(604800.0,     TIME,          WEEK,          SECOND,   Unit_strings("wk",     "weeks",            "wk",   "WK"), false))
    (MONTH,         Unit_info(2678400.0,    TIME,          MONTH,         SECOND,   Unit_strings("mo",     "months",           "mo",   "MO"), false)) // 31 days
    (YEAR,          Unit_info(31556926.0,   TIME,          YEAR,          SECOND,   Unit_strings("yr",     "years",            "yr",   "YR"), false)) // 365.2422 days

    // Angles, in revolutions.
    (RADIAN,        Unit_info(0.1590909,    DIMENSIONLESS, RADIAN,        RADIAN,   Unit_strings("rad",    "radians",          "rad",  "RAD"), false)) // written to seven decimals, not 1 / 2 pi
    (DEGREE,        Unit_info(0.002777,     DIMENSIONLESS, DEGREE,        DEGREE,   Unit_strings("deg",    "degrees",          "deg",  "DEG"), false)) // written to six decimals, not 1 / 360

    // Temperatures: converted by formula. Their factors are never used, not even the zero.
    (DEGREE_C,      Unit_info(0.0,          TEMPERATURE,   DEGREE_C,      DEGREE_C, Unit_strings("°C",     "degreeCelsius",    "c",    "C"), true))
    (DEGREE_F,      Unit_info(1.0,          TEMPERATURE,   DEGREE_F,      DEGREE_C, Unit_strings("°F",     "degreeFahrenheit", "f",    "F"), true))
    (KELVIN,        Unit_info(1.0,          TEMPERATURE,   KELVIN,        DEGREE_C, Unit_strings("K",      "kelvin",           "k",    "K"), true))

    // Ratios, as a fraction of one.
    (PERCENT,       Unit_info(0.01,         DIMENSIONLESS, PERCENT,       PERCENT,  Unit_strings("%",      "percent",          "pct",  "PCT"), false))
    (PPM,           Unit_info(0.000001,     DIMENSIONLESS, PPM,           PPM,      Unit_strings("ppm",    "ppm",              "ppm",  "PPM"), false))
    (PPB,           Unit_info(0.000000001,  DIMENSIONLESS, PPB,           PPB,      Unit_strings("ppb",    "ppb",              "ppb",  "PPB"), false))

    // Mass and electricity: one reference unit each.
    (GRAM,          Unit_info(1.0,          MASS,          GRAM,          GRAM,     Unit_strings("g",      "grams",            "g",    "G"), false))
    (WATT,          Unit_info(1.0,          POWER,         WATT,          WATT,     Unit_strings("W",      "watts",            "w",    "W"), false))
    (VOLT,          Unit_info(1.0,          VOLTAGE,       VOLT,          VOLT,     Unit_strings("V",      "volts",            "v",    "V"), false))
    (OHM,           Unit_info(1.0,          RESISTANCE,    OHM,           OHM,      Unit_strings("ohm",    "ohms",             "ohm",  "OHM"), false))
    (AMP,           Unit_info(1.0,          CURRENT,       AMP,           AMP,      Unit_strings("A",      "amps",             "a",    "A"), false))

    // Data sizes, in bits.
    (BIT,           Unit_info(1.0,          DATA_SIZE,     BIT,           BIT,      Unit_strings("b",      "bits",             "b",    "B"), false))
    (NYBBLE,        Unit_info(4.0,          DATA_SIZE,     NYBBLE,        BIT,      Unit_strings("Nyb",    "nybble",           "n",    "N"), false))
    (BYTE,          Unit_info(8.0,          DATA_SIZE,     BYTE,          BIT,      Unit_strings("B",      "bytes",            "b",    "B"), false))
    (OCTET,         Unit_info(8.0,          DATA_SIZE,     OCTET,         BIT,      Unit_strings("Octets", "octets",           "o",    "O"), false))
    (WORD,          Unit_info(16.0,         DATA_SIZE,     WORD,          BIT,      Unit_strings("Wrds",   "words",            "w",    "W"), false))
    (DWORD,         Unit_info(32.0,         DATA_SIZE,     DWORD,         BIT,      Unit_strings("Dwrds",  "dwords",           "d",    "D"), false))

    // Symbols count like per cent.
    (SYMBOL,        Unit_info(0.01,         DIMENSIONLESS, SYMBOL,        SYMBOL,   Unit_strings("sym",    "symbols",          "sym",  "SYM"), false));

// clang-format on

} // namespace Varnix::Value

#endif
