// The rules of the conversions of Value_object<double>. Its members are instantiated where they are
// defined, in src/value.

#include <varnix/value/Value_object.h>

#include "conversion/Conversion_rules.h"
#include "units/Separators.h"

#include <boost/assign/list_of.hpp>

#include <exception>

namespace Varnix::Value {

namespace {

using Value = Value_object<double>;
using Row = Units_conversion<double>;
using Pair_row = Units_spl_conv_data<double>;

} // namespace

// clang-format off

// The numbers of the first three are in watts already. As rules for single slots the first two both
// name volts to watts, so that a slot of volts becomes watts too.
template <>
std::vector<Units_conversion<double>> const Units_conv<double>::Unit_conv_vect =
    boost::assign::list_of<Row>
    //    from            to         by
    (Row{C_Volt2PerOhms, C_Watts,   &Value::Power_conversion})
    (Row{C_VoltAmps,     C_Watts,   &Value::Power_conversion})
    (Row{C_Amps2Ohms,    C_Watts,   &Value::Power_conversion})
    (Row{C_DgreeC,       C_DgreeF,  &Value::Convert_degreeC_to_degreeF})
    (Row{C_DgreeF,       C_DgreeC,  &Value::Convert_degreeF_to_degreeC})
    (Row{C_DgreeC,       C_Kelvin,  &Value::Convert_degreeC_to_kelvin})
    (Row{C_DgreeF,       C_Kelvin,  &Value::Convert_degreeF_to_kelvin})
    (Row{C_Kelvin,       C_DgreeC,  &Value::Convert_kelvin_to_degreeC})
    (Row{C_Kelvin,       C_DgreeF,  &Value::Convert_kelvin_to_degreeF});

template <>
std::vector<Units_spl_conv_data<double>> const Units_spl_conv<double>::Unit_spl_conv_vect =
    boost::assign::list_of<Pair_row>
    //          from     to       with       by
    (Pair_row{{C_Amps,  C_Volts, C_Watts}, &Value::Volt_watt_amp_with_spl_watt})    // V = W / A
    (Pair_row{{C_Watts, C_Volts, C_Amps},  &Value::Volt_watt_amp_with_master_watt}) // V = W / A
    (Pair_row{{C_Watts, C_Amps,  C_Volts}, &Value::Volt_watt_amp_with_master_watt}) // A = W / V
    (Pair_row{{C_Volts, C_Watts, C_Amps},  &Value::Volt_amp_to_watt})               // W = V A
    (Pair_row{{C_Volts, C_Amps,  C_Watts}, &Value::Volt_watt_amp_with_spl_watt})    // A = W / V
    (Pair_row{{C_Amps,  C_Watts, C_Volts}, &Value::Volt_amp_to_watt})               // W = A V
    (Pair_row{{C_Volts, C_Watts, C_Ohms},  &Value::Volt_ohm_to_watt})               // W = V^2 / ohm
    (Pair_row{{C_Watts, C_Volts, C_Ohms},  &Value::Watt_ohm_to_volt});              // V = sqrt(W ohm)

// clang-format on

namespace {

// What a rule's function does to a number.
Value_detail::Conversion_steps::Formula Formula_of(Row const& rule) {
    using Formula = Value_detail::Conversion_steps::Formula;
    struct Function_with_formula {
        decltype(rule.conv_fn) function;
        Formula formula;
    };
    constexpr Function_with_formula known[] = {
        {&Value::Power_conversion, Formula::identity},
        {&Value::Convert_degreeC_to_degreeF, Formula::celsius_to_fahrenheit},
        {&Value::Convert_degreeF_to_degreeC, Formula::fahrenheit_to_celsius},
        {&Value::Convert_degreeC_to_kelvin, Formula::celsius_to_kelvin},
        {&Value::Convert_degreeF_to_kelvin, Formula::fahrenheit_to_kelvin},
        {&Value::Convert_kelvin_to_degreeC, Formula::kelvin_to_celsius},
        {&Value::Convert_kelvin_to_degreeF, Formula::kelvin_to_fahrenheit},
    };
    for (Function_with_formula const& row : known) {
        if (row.function == rule.conv_fn) {
            return row.formula;
        }
    }
    std::terminate(); // GCOV_EXCL_LINE
}

std::vector<Rule_with_formula> With_formulas(std::vector<Row> const& rules) {
    std::vector<Rule_with_formula> result;
    result.reserve(rules.size());
    for (Row const& rule : rules) {
        result.push_back({&rule, Formula_of(rule)});
    }
    return result;
}

} // namespace

// After the rules, from which it is made.
std::vector<Rule_with_formula> const rules_with_formulas =
    With_formulas(Units_conv<double>::Unit_conv_vect);

} // namespace Varnix::Value
