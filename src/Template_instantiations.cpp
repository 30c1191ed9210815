// The one instantiation of Value_object<double> and Value_converter<double>, with the rules of
// their conversions.

#include <varnix/value/Value_object.h>

#include "Separators.h"

#include "Conversion_rules.h"
#include "Value_arithmetic.h"
#include "Value_comparison.h"
#include "Value_conversion.h"
#include "Value_converter_members.h"
#include "Value_core.h"
#include "Value_formulas.h"
#include "Value_forwarding.h"

#include <boost/assign/list_of.hpp>

namespace Varnix::Value {

namespace {

using Value = Value_object<double>;
using Rule = Units_conversion<double>;
using Pair_rule = Units_spl_conv_data<double>;

} // namespace

// A rule's function also has a row in Formula_of, which says what it does to a number.

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

template class Value_object<double>;
template class Value_converter<double>;

} // namespace Varnix::Value
