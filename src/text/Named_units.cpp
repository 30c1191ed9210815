// Which units there are: the constants, and the rows of the catalogue.

#include <varnix/value/Unit_kinds.h>

#include "catalogue/Prefixes.h"
#include "catalogue/Unit_rows.h"

namespace Varnix::Value {

// clang-format off
#define NAMED(constant) {constant, #constant}
std::vector<Named_unit> Named_units() {
    return {
        NAMED(C_Empty), NAMED(C_DB), NAMED(C_Meter), NAMED(C_Inch), NAMED(C_Miles), NAMED(C_Ft),
        NAMED(C_Nautical_mile), NAMED(C_KMeter), NAMED(C_Yard), NAMED(C_CentiMeter),
        NAMED(C_MilliMeter), NAMED(C_Sec), NAMED(C_Min), NAMED(C_Hrs), NAMED(C_Days), NAMED(C_Wks),
        NAMED(C_Months), NAMED(C_Yrs), NAMED(C_PicoSecond), NAMED(C_NanoSecond), NAMED(C_MilliSecond),
        NAMED(C_MicroSecond), NAMED(C_Hz), NAMED(C_MHz), NAMED(C_KHz), NAMED(C_GHz), NAMED(C_THz),
        NAMED(C_Radian), NAMED(C_Degree), NAMED(C_RadianPerSec), NAMED(C_DgreeC), NAMED(C_DgreeF),
        NAMED(C_Kelvin), NAMED(C_Percent), NAMED(C_PPM), NAMED(C_PPB), NAMED(C_Grams), NAMED(C_Watts),
        NAMED(C_NanoWatts), NAMED(C_MicroWatts), NAMED(C_MilliWatts), NAMED(C_KiloWatts),
        NAMED(C_MegaWatts), NAMED(C_GigaWatts), NAMED(C_DBW), NAMED(C_DBmW), NAMED(C_Volts),
        NAMED(C_NanoVolts), NAMED(C_MicroVolts), NAMED(C_MilliVolts), NAMED(C_Ohms), NAMED(C_MilliOhms),
        NAMED(C_KiloOhms), NAMED(C_MegaOhms), NAMED(C_GigaOhms), NAMED(C_Amps), NAMED(C_NanoAmps),
        NAMED(C_MicroAmps), NAMED(C_MilliAmps), NAMED(C_Volt2PerOhms), NAMED(C_VoltAmps),
        NAMED(C_Amps2Ohms), NAMED(C_Mph), NAMED(C_MilestPerHour), NAMED(C_Kmph), NAMED(C_Knots),
        NAMED(C_FeetPerMinute), NAMED(C_FeetPerSecond), NAMED(C_MeterPerSecond),
        NAMED(C_MeterPerSecondSquared), NAMED(C_FeetPerSecondSquared), NAMED(C_Bits), NAMED(C_Bytes),
        NAMED(C_Octets), NAMED(C_Nybble), NAMED(C_Words), NAMED(C_Dwords), NAMED(C_KiloBytes),
        NAMED(C_KiloBit), NAMED(C_KiBytes), NAMED(C_KiBit), NAMED(C_MegaBytes), NAMED(C_MegaBit),
        NAMED(C_MeBytes), NAMED(C_MeBit), NAMED(C_GigaBytes), NAMED(C_GigaBit), NAMED(C_GiBytes),
        NAMED(C_GiBit), NAMED(C_TeraBytes), NAMED(C_TeraBit), NAMED(C_TeBytes), NAMED(C_TeBit),
    };
}
#undef NAMED
// clang-format on

namespace {

// The first `count` units of the table.
std::vector<Units> First_units(std::size_t count) {
    std::vector<Units> units;
    for (std::size_t k = 0; k < count; ++k) {
        units.push_back({SPL_NONE, NO_PREFIX, {{Catalogue::unit_rows[k].unit, 1}}});
    }
    return units;
}

} // namespace

std::vector<Units> Catalogue_units() {
    return First_units(Catalogue::Core_unit_count);
}

std::vector<Units> All_units() {
    return First_units(Catalogue::Unit_count);
}

std::vector<SI_units> Prefixes() {
    std::vector<SI_units> prefixes;
    for (Catalogue::Prefix_row const& row : Catalogue::prefix_rows) {
        if (row.is_of_core) {
            prefixes.push_back(row.prefix);
        }
    }
    return prefixes;
}

std::vector<SI_units> All_prefixes() {
    std::vector<SI_units> prefixes;
    for (Catalogue::Prefix_row const& row : Catalogue::prefix_rows) {
        prefixes.push_back(row.prefix);
    }
    return prefixes;
}

} // namespace Varnix::Value
