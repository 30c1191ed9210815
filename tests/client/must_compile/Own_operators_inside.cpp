// A program's own comparison of descriptors, defined inside the namespace, is the one that is called.

#include <varnix/value/Measurement_converter.h>
#include <varnix/value/Measurement_text.h>
#include <varnix/value/Radio_formulas.h>
#include <varnix/value/Value_converter.h>
#include <varnix/value/text.h>

#include <algorithm>
#include <type_traits>
#include <vector>

namespace Varnix::Value {

struct Own {
    bool same;
    explicit operator bool() const { return same; }
};

inline Own operator==(Units const& first, Units const& second) {
    return {Units_library::Compare_units(first, second, true)};
}
inline bool operator==(Unit_tuple const& first, Unit_tuple const& second) {
    return first.unit == second.unit;
}
inline bool operator!=(Unit_tuple const& first, Unit_tuple const& second) {
    return first.unit != second.unit;
}
inline bool operator<(Units const& first, Units const& second) {
    return first.si_prefix < second.si_prefix;
}

static_assert(std::is_same_v<decltype(C_Meter == C_Ft), Own>);

} // namespace Varnix::Value

using namespace Varnix::Value;

static_assert(std::is_same_v<decltype(C_Meter == C_Ft), Own>);

bool Uses_all(std::vector<Units>& units) {
    std::sort(units.begin(), units.end());
    bool const found = std::find_if(units.begin(), units.end(), [](Units const& unit) { return bool(unit == C_Meter); }) != units.end();
    Value_converter<double> const converter(C_Meter, C_Ft);
    return found && units[0].tuples[0] != units[1].tuples[0] && converter.Get_source().tuples[0] == units[0].tuples[0];
}
