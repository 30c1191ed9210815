// Which units there are: the constants, and what the core answers for every code.

#include <varnix/value/Unit_kinds.h>

#include <varnix/value/Units_library.h>
#include <varnix/value/exceptions.h>

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

bool Is_in_catalogue(Units_list code) {
    try {
        return Units_library::Get_dimension(code) != NO_DIMENSION;
    } catch (UnitNotDefined const&) {
        return false;
    }
}

} // namespace

std::vector<Units> Catalogue_units() {
    std::vector<Units> units;
    for (int code = METER; Is_in_catalogue(static_cast<Units_list>(code)); ++code) {
        units.push_back({SPL_NONE, NO_PREFIX, {{static_cast<Units_list>(code), 1}}});
    }
    return units;
}

std::vector<SI_units> Prefixes() {
    std::vector<SI_units> prefixes;
    // The values of the binary prefixes, tens, lie between those of the decimal ones.
    for (bool const binary : {false, true}) {
        for (int code = PICO; code <= YOBI; ++code) {
            Units const unit = {SPL_NONE, static_cast<SI_units>(code), {}};
            bool const known = !Units_library::Get_unit_str_si_map(unit, STR_NAME).empty();
            if (known && (Units_library::Get_unit_base(unit) == 2.0) == binary) {
                prefixes.push_back(unit.si_prefix);
            }
        }
    }
    return prefixes;
}

} // namespace Varnix::Value
