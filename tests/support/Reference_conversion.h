// Conversion, step by step as it is defined, on value objects and without short ways: what `Convert_to` and the
// converters are compared with.

#ifndef VARNIX_VALUE_TESTS_REFERENCE_CONVERSION_H
#define VARNIX_VALUE_TESTS_REFERENCE_CONVERSION_H

#include "Test_support.h"

#include <cstdlib>

namespace Varnix::Value::Tests {

struct Reference_rule {
    Units const& from;
    Units const& to;
    Quantity (*function)(Quantity const&, Units const&);
};

inline Reference_rule const reference_rules[] = {
    {C_Volt2PerOhms, C_Watts, Quantity::Power_conversion},      {C_VoltAmps, C_Watts, Quantity::Power_conversion},
    {C_Amps2Ohms, C_Watts, Quantity::Power_conversion},         {C_DgreeC, C_DgreeF, Quantity::Convert_degreeC_to_degreeF},
    {C_DgreeF, C_DgreeC, Quantity::Convert_degreeF_to_degreeC}, {C_DgreeC, C_Kelvin, Quantity::Convert_degreeC_to_kelvin},
    {C_DgreeF, C_Kelvin, Quantity::Convert_degreeF_to_kelvin},  {C_Kelvin, C_DgreeC, Quantity::Convert_kelvin_to_degreeC},
    {C_Kelvin, C_DgreeF, Quantity::Convert_kelvin_to_degreeF},
};

inline void Invert(Quantity& object) {
    object.Set(1.0 / object.Get_value(), object.Get_unit(), 1.0 / object.Get_minus_err(), 1.0 / object.Get_plus_err());
}

inline bool Reference_whole_unit_rule(Quantity& result, Units const& from, Units const& to) {
    for (Reference_rule const& rule : reference_rules) {
        bool const from_same = Units_library::Compare_units(from, rule.from, false);
        bool const from_inverse = !from_same && Units_library::Is_Invert_units(from, rule.from);
        bool const to_same = Units_library::Compare_units(to, rule.to, false);
        bool const to_inverse = !to_same && Units_library::Is_Invert_units(to, rule.to);
        if ((from_same || from_inverse) && (to_same || to_inverse)) {
            result = rule.function(result, to);
            if (from_same != to_same) {
                Invert(result);
            }
            return true;
        }
    }
    return false;
}

inline void Reference_slot_rules(Quantity& result, Units const& from, Units const& to) {
    for (std::size_t k = 0; k < Value_detail::Tuple_count; ++k) {
        Unit_tuple const u = from.tuples[k];
        Unit_tuple const t = to.tuples[k];
        if (u.unit == NO_UNIT || t.unit == NO_UNIT) {
            continue;
        }
        if (std::llabs(u.exponent) != std::llabs(t.exponent)) {
            throw UnitDimensionNotSame();
        }
        for (Reference_rule const& rule : reference_rules) {
            if (rule.from.tuples[0].unit == u.unit && rule.to.tuples[0].unit == t.unit) {
                Units descriptor = result.Get_unit();
                descriptor.tuples[k].unit = t.unit;
                result = rule.function(result, to);
                result.Set_unit(descriptor);
                if (t.exponent < 0) {
                    Invert(result);
                }
            }
        }
    }
}

inline double Reference_scale(Units const& unit, int sign) {
    return unit.si_prefix == 0 ? 1.0 : std::pow(Units_library::Get_unit_base(unit), sign * static_cast<double>(unit.si_prefix));
}

// The three numbers of the conversion; their unit is the arranged target.
inline Numbers Reference_conversion(Quantity const& object, Units const& target) {
    Units const from = object.Get_unit();
    Units const to = Units_library::Arrange_tuple(target);
    Quantity result(object.Get_value(), from, object.Get_minus_err(), object.Get_plus_err());
    double factor = 1.0;
    if (!Reference_whole_unit_rule(result, from, to)) {
        Reference_slot_rules(result, from, to);
        factor = Units_library::Get_conversion_factor(to, result.Get_unit());
    }
    result = Quantity::Normalize_DB(result); // assigned, which orders the bounds
    factor = factor * Reference_scale(from, 1);
    double const target_scale = Reference_scale(to, -1);
    Numbers const numbers(result.Get_value() * factor * target_scale, result.Get_minus_err() * factor * target_scale,
                          result.Get_plus_err() * factor * target_scale);
    if (to.spl_conv != SPL_DB) {
        return numbers;
    }
    auto const level = [&to](double number) {
        Quantity marked;
        marked.Set(number, to, number, number);
        return Quantity::Apply_DB(marked).Get_value();
    };
    Quantity ordered; // as the copy is that Apply_DB makes
    ordered.Set(numbers.value, to, numbers.minus_err, numbers.plus_err);
    Quantity assigned;
    assigned.Set(level(ordered.Get_value()), to, level(ordered.Get_minus_err()), level(ordered.Get_plus_err()));
    return {assigned.Get_value(), assigned.Get_minus_err(), assigned.Get_plus_err()};
}

} // namespace Varnix::Value::Tests

#endif
