// Quantities in the units of SI that have names.

#include "Forms.h"
#include "Physical_units.h"

#include <varnix/value/Measurement.h>

#include <algorithm>
#include <iterator>

namespace Varnix::Value {

using namespace Physics;

namespace {

constexpr Units One_of(Units_list unit) {
    return {SPL_NONE, NO_PREFIX, {{unit, 1}}};
}

// One unit a kind. A becquerel is of the kind of the hertz, and keeps its name; grays and sieverts are squares of
// speeds.
constexpr Units named_units[] = {
    One_of(METER),
    One_of(SECOND),
    {SPL_NONE, KILO, {{GRAM, 1}}},
    One_of(AMP),
    One_of(KELVIN),
    One_of(MOLE),
    One_of(CANDELA),
    {SPL_NONE, NO_PREFIX, {{SECOND, -1}}}, // Hz
    One_of(NEWTON),
    One_of(PASCAL),
    One_of(JOULE),
    One_of(WATT),
    One_of(COULOMB),
    One_of(VOLT),
    One_of(FARAD),
    One_of(OHM),
    One_of(SIEMENS),
    One_of(WEBER),
    One_of(TESLA),
    One_of(HENRY),
    One_of(LUMEN),
    One_of(LUX),
    One_of(KATAL),
};

Units Without_prefix(Units unit) {
    unit.si_prefix = NO_PREFIX;
    return unit;
}

// Whether the unit is the named one already, with whatever prefix; of masses the kilogram alone is.
bool Is_simple(Units const& unit, Units const& named) {
    Units const one = Without_prefix(unit);
    return unit == named || one == One_of(BECQUEREL) ||
           (named.si_prefix == NO_PREFIX && one == named);
}

Units const* Named_unit_like(Units const& unit) {
    Kind const kind = Comparable_kind_of(unit);
    auto const* const found =
        std::find_if(std::begin(named_units), std::end(named_units),
                     [&](Units const& named) { return Kind_of(named) == kind; });
    return found == std::end(named_units) ? nullptr : found;
}

} // namespace

Measurement Simplified(Measurement const& x) {
    Units const unit = x.Get_unit();
    if (Form_of(x) != Form::linear) {
        return x;
    }
    Units const* const named = Named_unit_like(unit);
    return named == nullptr || Is_simple(unit, *named) ? x : x.Convert_to(*named);
}

} // namespace Varnix::Value
