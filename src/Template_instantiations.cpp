// The one instantiation of Value_object<double> and Value_converter<double>, with the rules of
// their conversions.

#include <varnix/value/Value_object.h>

#include "units/Separators.h"

#include "conversion/Conversion_rules.h"
#include "value/Value_arithmetic.h"
#include "value/Value_comparison.h"
#include "value/Value_conversion.h"
#include "value/Value_converter_members.h"
#include "value/Value_core.h"
#include "value/Value_formulas.h"
#include "value/Value_forwarding.h"

#include <boost/assign/list_of.hpp>

namespace Varnix::Value {

namespace {

using Value = Value_object<double>;
using Rule = Units_conversion<double>;
using Pair_rule = Units_spl_conv_data<double>;

} // namespace

// clang-format off

// The numbers of the first three are in watts already. As rules for single slots the first two both
// name volts to watts, so that a slot of volts becomes watts too.
template <>
std::vector<Units_conversion<double>> const Units_conv<double>::Unit_conv_vect =
    boost::assign::list_of<Rule>
    //    from            to         by
    (Rule{C_Volt2PerOhms, C_Watts,   &Value::Power_conversion})
    (Rule{C_VoltAmps,     C_Watts,   &Value::Power_conversion})
    (Rule{C_Amps2Ohms,    C_Watts,   &Value::Power_conversion})
    (Rule{C_DgreeC,       C_DgreeF,  &Value::Convert_degreeC_to_degreeF})
    (Rule{C_DgreeF,       C_DgreeC,  &Value::Convert_degreeF_to_degreeC})
    (Rule{C_DgreeC,       C_Kelvin,  &Value::Convert_degreeC_to_kelvin})
    (Rule{C_DgreeF,       C_Kelvin,  &Value::Convert_degreeF_to_kelvin})
    (Rule{C_Kelvin,       C_DgreeC,  &Value::Convert_kelvin_to_degreeC})
    (Rule{C_Kelvin,       C_DgreeF,  &Value::Convert_kelvin_to_degreeF});

template <>
std::vector<Units_spl_conv_data<double>> const Units_spl_conv<double>::Unit_spl_conv_vect =
    boost::assign::list_of<Pair_rule>
    //          from     to       with       by
    (Pair_rule{{C_Amps,  C_Volts, C_Watts}, &Value::Volt_watt_amp_with_spl_watt})    // V = W / A
    (Pair_rule{{C_Watts, C_Volts, C_Amps},  &Value::Volt_watt_amp_with_master_watt}) // V = W / A
    (Pair_rule{{C_Watts, C_Amps,  C_Volts}, &Value::Volt_watt_amp_with_master_watt}) // A = W / V
    (Pair_rule{{C_Volts, C_Watts, C_Amps},  &Value::Volt_amp_to_watt})               // W = V A
    (Pair_rule{{C_Volts, C_Amps,  C_Watts}, &Value::Volt_watt_amp_with_spl_watt})    // A = W / V
    (Pair_rule{{C_Amps,  C_Watts, C_Volts}, &Value::Volt_amp_to_watt})               // W = A V
    (Pair_rule{{C_Volts, C_Watts, C_Ohms},  &Value::Volt_ohm_to_watt})               // W = V^2 / ohm
    (Pair_rule{{C_Watts, C_Volts, C_Ohms},  &Value::Watt_ohm_to_volt});              // V = sqrt(W ohm)

// clang-format on

namespace {

// What a rule's function does to a number.
Formula Formula_of(Rule const& rule) {
    struct Row {
        decltype(rule.conv_fn) function;
        Formula formula;
    };
    constexpr Row rows[] = {
        {&Value::Convert_degreeC_to_degreeF, Formula::celsius_to_fahrenheit},
        {&Value::Convert_degreeF_to_degreeC, Formula::fahrenheit_to_celsius},
        {&Value::Convert_degreeC_to_kelvin, Formula::celsius_to_kelvin},
        {&Value::Convert_degreeF_to_kelvin, Formula::fahrenheit_to_kelvin},
        {&Value::Convert_kelvin_to_degreeC, Formula::kelvin_to_celsius},
        {&Value::Convert_kelvin_to_degreeF, Formula::kelvin_to_fahrenheit},
    };
    for (Row const& row : rows) {
        if (row.function == rule.conv_fn) {
            return row.formula;
        }
    }
    return Formula::identity;
}

std::vector<Indexed_rule> Index(std::vector<Rule> const& rules) {
    std::vector<Indexed_rule> index;
    index.reserve(rules.size());
    for (Rule const& rule : rules) {
        index.push_back(
            {rule.from_unit.tuples[0].unit, rule.to_unit.tuples[0].unit, Formula_of(rule), &rule});
    }
    return index;
}

} // namespace

// After the rules, from which it is made.
std::vector<Indexed_rule> const indexed_rules = Index(Units_conv<double>::Unit_conv_vect);

template class Value_object<double>;
template class Value_converter<double>;

} // namespace Varnix::Value
