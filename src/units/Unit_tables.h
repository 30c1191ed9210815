// The catalogue: every unit, every prefix, and the composite units with a name of their own.
//
// These tables are the library's one source of truth about single units; the rows of units and prefixes stand in
// src/catalogue/core_units.def and src/catalogue/prefixes.def. They are built once, while
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
#define VARNIX_VALUE_CORE_PREFIX(code, symbol, name, lower, upper, ...) \
    (code, Spelled(symbol, name, lower, upper))
#include "catalogue/prefixes.def"
    ;

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
#define VARNIX_VALUE_CORE_UNIT(constant, factor, dimension, base, symbol, name, lower, upper, by_formula, ...) \
    (constant, Unit_info(factor, dimension, constant, base, Spelled(symbol, name, lower, upper), by_formula))
#include "catalogue/core_units.def"
    ;

// clang-format on

} // namespace Varnix::Value

#endif
