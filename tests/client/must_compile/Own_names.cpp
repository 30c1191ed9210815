// What a program calls its own, beside the using-directive, and the types that it may count on.

#include <varnix/value/Value_converter.h>

#include <cstdint>
#include <type_traits>

using namespace Varnix::Value;

constexpr int Tuple_count = 3;
enum Limits { Unit_code_limit = 7, Dimension_limit };

namespace detail {
constexpr int Difference = 1;
}

static_assert(Tuple_count + Unit_code_limit + Dimension_limit + detail::Difference == 19);

// The marker is a byte, which takes the enumerators and what a program has read.
static_assert(std::is_same_v<decltype(Units::spl_conv), std::uint8_t>);

Units From_wire(std::uint8_t marker, std::int32_t prefix) {
    Units unit = {marker, static_cast<SI_units>(prefix), {{WATT, 1}}};
    unit.spl_conv = marker;
    return unit.spl_conv == SPL_DB ? unit : Units{SPL_NONE, NO_PREFIX, {{WATT, 1}}};
}

// The formulas of one value have one type.
using Quantity = Value_object<double>;
using Formula = Quantity (*)(Quantity const&, Units const&);
static_assert(std::is_same_v<decltype(&Quantity::Convert_degreeC_to_degreeF), Formula>);
static_assert(std::is_same_v<decltype(&Quantity::Convert_degreeF_to_degreeC), Formula>);
static_assert(std::is_same_v<decltype(&Quantity::Convert_degreeC_to_kelvin), Formula>);
static_assert(std::is_same_v<decltype(&Quantity::Convert_degreeF_to_kelvin), Formula>);
static_assert(std::is_same_v<decltype(&Quantity::Convert_kelvin_to_degreeC), Formula>);
static_assert(std::is_same_v<decltype(&Quantity::Convert_kelvin_to_degreeF), Formula>);
static_assert(std::is_same_v<decltype(&Quantity::Power_conversion), Formula>);
