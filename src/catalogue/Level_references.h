// Levels and gains in decibels whose names follow no rule.

#ifndef VARNIX_VALUE_CATALOGUE_LEVEL_REFERENCES_H
#define VARNIX_VALUE_CATALOGUE_LEVEL_REFERENCES_H

#include <varnix/value/Engineering_units.h>

namespace Varnix::Value::Catalogue {

struct Level_reference {
    char const* text;
    Units unit;
    bool is_written; // by the name of the row; others are read only
};

// clang-format off

// A gain has one power in its empty slot, as C_DB has.
inline constexpr Level_reference level_references[] = {
    {"dB",       {SPL_DB, NO_PREFIX, {{NO_UNIT, 1}}}, true},
    {"dBm",      {SPL_DB, MILLI,     {{WATT, 1}}},    true},
    {"dBsm",     {SPL_DB, NO_PREFIX, {{METER, 2}}},   true},  // of a radar cross section
    {"dB-Hz",    {SPL_DB, NO_PREFIX, {{SECOND, -1}}}, true},  // of a bandwidth
    {"dB/K",     {SPL_DB, NO_PREFIX, {{KELVIN, -1}}}, true},  // of an antenna with its receiver
    {"dBi",      {SPL_DB, NO_PREFIX, {{NO_UNIT, 1}}}, false}, // the gain over an isotropic antenna
    {"dBc",      {SPL_DB, NO_PREFIX, {{NO_UNIT, 1}}}, false}, // the ratio to the carrier
    {"decibel",  {SPL_DB, NO_PREFIX, {{NO_UNIT, 1}}}, false},
    {"decibels", {SPL_DB, NO_PREFIX, {{NO_UNIT, 1}}}, false},
};

// clang-format on

} // namespace Varnix::Value::Catalogue

#endif
