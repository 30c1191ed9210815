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

#include "units/Separators.h" // before the tables: the separators are built first
#include "units/Unit_records.h"

#include <boost/assign/list_of.hpp>

#include <map>
#include <vector>

namespace Varnix::Value {

// Makes the spellings of a row from plain texts, here once instead of in every row: the tables'
// code would be twice as large otherwise.
static Unit_strings Spelled(char const* symbol, char const* name, char const* lower_case,
                            char const* upper_case) {
    return Unit_strings(symbol, name, lower_case, upper_case);
}

// clang-format off

static std::map<SI_units, Unit_strings> const Si_prefix_table =
    boost::assign::map_list_of<SI_units, Unit_strings>
    //              symbol name    lower upper
    (PICO,  Spelled("p",  "pico",  "p",  "P"))
    (NANO,  Spelled("n",  "nano",  "n",  "N"))
    // The micro sign is U+00B5, two bytes in UTF-8.
    (MICRO, Spelled("µ",  "micro", "u",  "U"))
    (MILLI, Spelled("m",  "milli", "m",  "M"))
    (CENTI, Spelled("c",  "centi", "c",  "C"))
    (DECI,  Spelled("d",  "deci",  "d",  "D"))
    (KILO,  Spelled("k",  "kilo",  "k",  "K"))
    // Mega is "MA" in both plain forms, since milli has "m" and "M".
    (MEGA,  Spelled("M",  "mega",  "MA", "MA"))
    (GIGA,  Spelled("G",  "giga",  "G",  "G"))
    (TERA,  Spelled("T",  "tera",  "T",  "T"))
    // From here two letters: pico has the single "p" and "P".
    (PETA,  Spelled("P",  "peta",  "pe", "PE"))
    (EXA,   Spelled("E",  "exa",   "ex", "EX"))
    (ZETTA, Spelled("Z",  "zetta", "ze", "ZE"))
    (YOTTA, Spelled("Y",  "yotta", "yo", "YO"))
    (KIBI,  Spelled("Ki", "kibi",  "Ki", "KI"))
    (MEBI,  Spelled("Mi", "mebi",  "Mi", "MI"))
    (GIBI,  Spelled("Gi", "gibi",  "Gi", "GI"))
    (TEBI,  Spelled("Ti", "tebi",  "Ti", "TI"))
    (PEBI,  Spelled("Pi", "pebi",  "Pi", "PI"))
    (EXBI,  Spelled("Ei", "exbi",  "Ei", "EI"))
    (ZEBI,  Spelled("Zi", "zebi",  "Zi", "ZI"))
    (YOBI,  Spelled("Yi", "yobi",  "Yi", "YI"));

static std::vector<Unit_name_spl_data> const Units_spl_names_table =
    boost::assign::list_of<Unit_name_spl_data>
    //                                   symbol  name              lower   upper
    (Unit_name_spl_data(C_Mph,   Spelled("Mph",  "miles/hours",    "mph",  "MPH")))
    (Unit_name_spl_data(C_Kmph,  Spelled("Km/h", "kilometer/hour", "km/h", "KMPH")))
    (Unit_name_spl_data(C_Knots, Spelled("kts",  "Knots",          "kts",  "KTS")))
    (Unit_name_spl_data(C_Hz,    Spelled("Hz",   "hertz",          "hz",   "HZ")))
    (Unit_name_spl_data(C_MHz,   Spelled("MHz",  "megahertz",      "mhz",  "MHZ")))
    (Unit_name_spl_data(C_KHz,   Spelled("kHz",  "kilohertz",      "khz",  "KHZ")))
    (Unit_name_spl_data(C_GHz,   Spelled("GHz",  "gigahertz",      "ghz",  "GHZ")))
    (Unit_name_spl_data(C_DBmW,  Spelled("dBm",  "dBmilliwatts",   "dBm",  "DBM")));

static std::map<Units_list, Unit_info> const Unit_table =
    boost::assign::map_list_of<Units_list, Unit_info>
    // key                    factor        dimension      own code       base              symbol    name                lower   upper by formula
    // Lengths, in metres.
    (METER,         Unit_info(1.0,          LENGTH,        METER,         METER,    Spelled("m",      "meters",           "m",    "M"), false))
    (INCH,          Unit_info(0.0254,       LENGTH,        INCH,          METER,    Spelled("in",     "inches",           "in",   "IN"), false))
    (FOOT,          Unit_info(0.3048,       LENGTH,        FOOT,          METER,    Spelled("ft",     "feet",             "ft",   "FT"), false))
    (YARD,          Unit_info(0.9144,       LENGTH,        YARD,          METER,    Spelled("yd",     "yard",             "yd",   "YD"), false)) // the one singular name
    (MILE,          Unit_info(1609.34,      LENGTH,        MILE,          METER,    Spelled("mi",     "miles",            "mi",   "MI"), false)) // 1609.34, not the exact 1609.344: results keep to it
    (NAUTICAL_MILE, Unit_info(1852.0,       LENGTH,        NAUTICAL_MILE, METER,    Spelled("n.mi",   "nautical_miles",   "n.mi", "N.MI"), false))

    // Times, in seconds.
    (SECOND,        Unit_info(1.0,          TIME,          SECOND,        SECOND,   Spelled("s",      "seconds",          "s",    "S"), false))
    (MINUTE,        Unit_info(60.0,         TIME,          MINUTE,        SECOND,   Spelled("min",    "minutes",          "min",  "MIN"), false))
    (HOUR,          Unit_info(3600.0,       TIME,          HOUR,          SECOND,   Spelled("h",      "hours",            "h",    "H"), false))
    (DAY,           Unit_info(86400.0,      TIME,          DAY,           SECOND,   Spelled("dy",     "days",             "dy",   "DY"), false))
    (WEEK,          Unit_info(604800.0,     TIME,          WEEK,          SECOND,   Spelled("wk",     "weeks",            "wk",   "WK"), false))
    (MONTH,         Unit_info(2678400.0,    TIME,          MONTH,         SECOND,   Spelled("mo",     "months",           "mo",   "MO"), false)) // 31 days
    (YEAR,          Unit_info(31556926.0,   TIME,          YEAR,          SECOND,   Spelled("yr",     "years",            "yr",   "YR"), false)) // 365.2422 days

    // Angles, in revolutions.
    (RADIAN,        Unit_info(0.1590909,    DIMENSIONLESS, RADIAN,        RADIAN,   Spelled("rad",    "radians",          "rad",  "RAD"), false)) // written to seven decimals, not 1 / 2 pi
    (DEGREE,        Unit_info(0.002777,     DIMENSIONLESS, DEGREE,        DEGREE,   Spelled("deg",    "degrees",          "deg",  "DEG"), false)) // written to six decimals, not 1 / 360

    // Temperatures: converted by formula. Their factors are never used, not even the zero.
    (DEGREE_C,      Unit_info(0.0,          TEMPERATURE,   DEGREE_C,      DEGREE_C, Spelled("°C",     "degreeCelsius",    "c",    "C"), true))
    (DEGREE_F,      Unit_info(1.0,          TEMPERATURE,   DEGREE_F,      DEGREE_C, Spelled("°F",     "degreeFahrenheit", "f",    "F"), true))
    (KELVIN,        Unit_info(1.0,          TEMPERATURE,   KELVIN,        DEGREE_C, Spelled("K",      "kelvin",           "k",    "K"), true))

    // Ratios, as a fraction of one.
    (PERCENT,       Unit_info(0.01,         DIMENSIONLESS, PERCENT,       PERCENT,  Spelled("%",      "percent",          "pct",  "PCT"), false))
    (PPM,           Unit_info(0.000001,     DIMENSIONLESS, PPM,           PPM,      Spelled("ppm",    "ppm",              "ppm",  "PPM"), false))
    (PPB,           Unit_info(0.000000001,  DIMENSIONLESS, PPB,           PPB,      Spelled("ppb",    "ppb",              "ppb",  "PPB"), false))

    // Mass and electricity: one reference unit each.
    (GRAM,          Unit_info(1.0,          MASS,          GRAM,          GRAM,     Spelled("g",      "grams",            "g",    "G"), false))
    (WATT,          Unit_info(1.0,          POWER,         WATT,          WATT,     Spelled("W",      "watts",            "w",    "W"), false))
    (VOLT,          Unit_info(1.0,          VOLTAGE,       VOLT,          VOLT,     Spelled("V",      "volts",            "v",    "V"), false))
    (OHM,           Unit_info(1.0,          RESISTANCE,    OHM,           OHM,      Spelled("ohm",    "ohms",             "ohm",  "OHM"), false))
    (AMP,           Unit_info(1.0,          CURRENT,       AMP,           AMP,      Spelled("A",      "amps",             "a",    "A"), false))

    // Data sizes, in bits.
    (BIT,           Unit_info(1.0,          DATA_SIZE,     BIT,           BIT,      Spelled("b",      "bits",             "b",    "B"), false))
    (NYBBLE,        Unit_info(4.0,          DATA_SIZE,     NYBBLE,        BIT,      Spelled("Nyb",    "nybble",           "n",    "N"), false))
    (BYTE,          Unit_info(8.0,          DATA_SIZE,     BYTE,          BIT,      Spelled("B",      "bytes",            "b",    "B"), false))
    (OCTET,         Unit_info(8.0,          DATA_SIZE,     OCTET,         BIT,      Spelled("Octets", "octets",           "o",    "O"), false))
    (WORD,          Unit_info(16.0,         DATA_SIZE,     WORD,          BIT,      Spelled("Wrds",   "words",            "w",    "W"), false))
    (DWORD,         Unit_info(32.0,         DATA_SIZE,     DWORD,         BIT,      Spelled("Dwrds",  "dwords",           "d",    "D"), false))

    // Symbols count like per cent.
    (SYMBOL,        Unit_info(0.01,         DIMENSIONLESS, SYMBOL,        SYMBOL,   Spelled("sym",    "symbols",          "sym",  "SYM"), false));

// clang-format on

} // namespace Varnix::Value

#endif
