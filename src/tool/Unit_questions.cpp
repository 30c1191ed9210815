#include "Unit_questions.h"

#include <varnix/value/Unit_kinds.h>
#include <varnix/value/Units_library.h>

#include <algorithm>
#include <iterator>

namespace Varnix::Value::Tool {

bool Has_unit(Units const& unit, Units_list code) {
    return std::any_of(std::begin(unit.tuples), std::end(unit.tuples),
                       [&](Unit_tuple const& tuple) { return tuple.unit == code; });
}

Unit_tuple Tuple_of(Units const& unit, Dimension dimension) {
    for (Unit_tuple const& tuple : unit.tuples) {
        if (tuple.unit != NO_UNIT && Units_library::Get_dimension(tuple.unit) == dimension) {
            return tuple;
        }
    }
    return {NO_UNIT, 0};
}

bool Has_units(Units const& unit) {
    return unit.tuples[0].unit != NO_UNIT;
}

bool Is_marked(Units const& unit) {
    return unit.spl_conv == SPL_DB;
}

bool Is_gain(Units const& unit) {
    return Is_marked(unit) && !Has_units(unit);
}

bool Has_binary_prefix(Units const& unit) {
    return Units_library::Get_unit_base(unit) == 2.0;
}

bool Same_unit(Units const& first, Units const& second) {
    return Units_library::Compare_units_DB(first, second, true);
}

bool Same_descriptor(Units const& first, Units const& second) {
    return first.spl_conv == second.spl_conv && first.si_prefix == second.si_prefix &&
           std::equal(std::begin(first.tuples), std::end(first.tuples), std::begin(second.tuples),
                      [](Unit_tuple const& left, Unit_tuple const& right) {
                          return left.unit == right.unit && left.exponent == right.exponent;
                      });
}

bool Is_field_level(Units const& unit) {
    bool const field = unit.tuples[0].unit == VOLT || unit.tuples[0].unit == AMP;
    return Is_marked(unit) && field && unit.tuples[0].exponent == 1 &&
           unit.tuples[1].unit == NO_UNIT;
}

bool Is_product_power(Units const& unit) {
    return !Has_unit(unit, WATT) && Same_kind(unit, C_Watts);
}

Counting Counting_of(Units const& unit) {
    switch (Tuple_of(unit, DIMENSIONLESS).unit) {
    case NO_UNIT:
        return Counting::nothing;
    case RADIAN:
    case DEGREE:
        return Counting::angle;
    case SYMBOL:
        return Counting::symbol;
    default:
        return Counting::ratio;
    }
}

} // namespace Varnix::Value::Tool
