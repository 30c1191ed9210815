// A program's own comparison of descriptors, beside the using-directive, is the one that is called.

#include <varnix/value/Measurement_converter.h>
#include <varnix/value/Measurement_text.h>
#include <varnix/value/Radio_formulas.h>
#include <varnix/value/Value_converter.h>
#include <varnix/value/text.h>

#include <algorithm>
#include <type_traits>
#include <vector>

using namespace Varnix::Value;

struct Own {
    bool same;
};

Own operator==(Units const& first, Units const& second) {
    return {Units_library::Compare_units(first, second, true)};
}
Own operator!=(Units const& first, Units const& second) {
    return {!Units_library::Compare_units(first, second, true)};
}
Own operator==(Unit_tuple first, Unit_tuple second) {
    return {first.unit == second.unit};
}

static_assert(std::is_same_v<decltype(C_Meter == C_Ft), Own>);
static_assert(std::is_same_v<decltype(C_Meter != C_Ft), Own>);
static_assert(std::is_same_v<decltype(C_Meter.tuples[0] == C_Ft.tuples[0]), Own>);

// In a namespace, for all types alike, it is called where it is seen first.
namespace Program {

template <typename Type>
Own operator==(Type const&, Type const&) {
    return {true};
}

static_assert(std::is_same_v<decltype(C_Meter == C_Ft), Own>);

} // namespace Program

// Where no program defines one, as within the standard library, ours are found.
bool Has_metres(std::vector<Units> const& units) {
    return std::find(units.begin(), units.end(), C_Meter) != units.end();
}
