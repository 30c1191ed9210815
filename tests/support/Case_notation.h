// Units and quantities written in the notation of cases/*.txt, which the head of cases/units.txt
// explains.

#ifndef VARNIX_VALUE_TESTS_CASE_NOTATION_H
#define VARNIX_VALUE_TESTS_CASE_NOTATION_H

#include "Named_constants.h"
#include "Test_support.h"

#include <charconv>
#include <cmath>
#include <string>

namespace Varnix::Value::Tests {

inline std::string Written(double number) {
    char text[32];
    return std::isnan(number) ? "nan" : std::string(text, std::to_chars(text, std::end(text), number).ptr);
}

// Of a unit beyond the core's; empty for other codes.
inline std::string Name_beyond_core(Units_list unit) {
    switch (static_cast<int>(unit)) {
#define VARNIX_VALUE_UNIT(code, constant, quantity, size, symbol, name, ...)                                                                         \
    case code:                                                                                                                                       \
        return name;
#include <varnix/value/Engineering_units.def>
    default:
        return {};
    }
}

inline std::string Name_of(Units_list unit) {
    std::string const core_name = Units_library::Get_unit_str_info_map(Unit({{unit, 1}}), STR_NAME);
    std::string const name = core_name.empty() ? Name_beyond_core(unit) : core_name;
    return unit == unknown_unit ? "#unknown" : name.empty() ? '#' + std::to_string(unit) : name;
}

inline std::string Written(Unit_tuple const& tuple) {
    bool const empty = tuple.unit == NO_UNIT;
    bool const plain = tuple.exponent == (empty ? 0 : 1);
    return (empty ? "-" : Name_of(tuple.unit)) + (plain ? "" : '^' + std::to_string(tuple.exponent));
}

inline std::string Written(Units const& unit) {
    for (Named_constant const& constant : named_constants) {
        if (*constant.unit == unit) {
            return constant.name;
        }
    }
    std::string const prefix = Units_library::Get_unit_str_si_map(unit, STR_NAME);
    std::string text = unit.si_prefix == NO_PREFIX ? "" : (prefix.empty() ? "10^" + std::to_string(unit.si_prefix) : prefix) + ':';
    text += unit.spl_conv == SPL_DB ? "dB:" : "";
    std::size_t count = Value_detail::Tuple_count;
    while (count > 1 && Written(unit.tuples[count - 1]) == "-") {
        --count;
    }
    for (std::size_t k = 0; k < count; ++k) {
        text += (k == 0 ? "" : ",") + Written(unit.tuples[k]);
    }
    return text;
}

inline std::string Written(Quantity const& quantity) {
    std::string const value = Written(quantity.Get_value());
    std::string const lower = Written(quantity.Get_minus_err());
    std::string const upper = Written(quantity.Get_plus_err());
    bool const exact = value == lower && value == upper;
    return value + (exact ? "" : '[' + lower + ',' + upper + ']') + ' ' + Written(quantity.Get_unit());
}

} // namespace Varnix::Value::Tests

#endif
