// The formulas behind the conversions: temperatures, electrical relations and decibels. Each is
// rounded operation by operation, in the order written.

#include "conversion/Formulas.h"
#include "conversion/Numbers.h"

#include <cmath>

namespace Varnix::Value {

// ---- Temperatures, and power written as a product

namespace {

// A value made by the constructor, which arranges and checks the target.
Value_object<double> Converted_by(Formula formula, Value_object<double> const& source,
                                  Units const& target) {
    return With_formula(formula, [&source, &target](auto const& number) {
        return Value_object<double>(number(source.Get_value()), target,
                                    number(source.Get_minus_err()), number(source.Get_plus_err()));
    });
}

} // namespace

template <typename Number>
Value_object<Number> Value_object<Number>::Convert_degreeC_to_degreeF(Value_object const& source,
                                                                      Units const& target) {
    return With_formula(Formula::celsius_to_fahrenheit, [&source, &target](auto const& number) {
        Value_object result;
        result.Set(number(source.value), target, number(source.minus_err), number(source.plus_err));
        return result;
    });
}

template <typename Number>
Value_object<Number> Value_object<Number>::Convert_degreeF_to_degreeC(Value_object const& source,
                                                                      Units const& target) {
    return Converted_by(Formula::fahrenheit_to_celsius, source, target);
}

template <typename Number>
Value_object<Number> Value_object<Number>::Convert_degreeC_to_kelvin(Value_object const& source,
                                                                     Units const& target) {
    return Converted_by(Formula::celsius_to_kelvin, source, target);
}

template <typename Number>
Value_object<Number> Value_object<Number>::Convert_degreeF_to_kelvin(Value_object const& source,
                                                                     Units const& target) {
    return Converted_by(Formula::fahrenheit_to_kelvin, source, target);
}

template <typename Number>
Value_object<Number> Value_object<Number>::Convert_kelvin_to_degreeC(Value_object const& source,
                                                                     Units const& target) {
    return Converted_by(Formula::kelvin_to_celsius, source, target);
}

template <typename Number>
Value_object<Number> Value_object<Number>::Convert_kelvin_to_degreeF(Value_object const& source,
                                                                     Units const& target) {
    return Converted_by(Formula::kelvin_to_fahrenheit, source, target);
}

template <typename Number>
Value_object<Number> Value_object<Number>::Power_conversion(Value_object const& source,
                                                            Units const& target) {
    return Converted_by(Formula::identity, source, target);
}

// ---- Electrical relations

namespace {

template <typename Relation>
Value_object<double> Related_by(Relation const& relation, Value_object<double> const& first,
                                Value_object<double> const& second, Units const& target) {
    Numbers const numbers = Combined(Value_numbers::Of(first), Value_numbers::Of(second), relation);
    Require_finite(numbers);
    return Value_numbers::Made(numbers, target);
}

} // namespace

template <typename Number>
Value_object<Number> Value_object<Number>::Volt_watt_amp_with_master_watt(
    Value_object const& first, Value_object const& second, Units const& target) {
    return Related_by([](Number power, Number divisor) { return power / divisor; }, first, second,
                      target);
}

template <typename Number>
Value_object<Number> Value_object<Number>::Volt_watt_amp_with_spl_watt(Value_object const& first,
                                                                       Value_object const& second,
                                                                       Units const& target) {
    return Related_by([](Number divisor, Number power) { return power / divisor; }, first, second,
                      target);
}

template <typename Number>
Value_object<Number> Value_object<Number>::Volt_amp_to_watt(Value_object const& first,
                                                            Value_object const& second,
                                                            Units const& target) {
    return Related_by([](Number volts, Number amperes) { return volts * amperes; }, first, second,
                      target);
}

template <typename Number>
Value_object<Number> Value_object<Number>::Volt_ohm_to_watt(Value_object const& first,
                                                            Value_object const& second,
                                                            Units const& target) {
    return Related_by([](Number volts, Number ohms) { return (volts * volts) / ohms; }, first,
                      second, target);
}

template <typename Number>
Value_object<Number> Value_object<Number>::Watt_ohm_to_volt(Value_object const& first,
                                                            Value_object const& second,
                                                            Units const& target) {
    return Related_by([](Number watts, Number ohms) { return std::sqrt(watts * ohms); }, first,
                      second, target);
}

// ---- Decibels

template <typename Number>
Value_object<Number> Value_object<Number>::Normalize_DB(Value_object const& source) noexcept {
    return Value_numbers::Made(Linear(Value_numbers::Of(source), source.unit), source.unit);
}

template <typename Number>
Value_object<Number> Value_object<Number>::Apply_DB(Value_object const& source) noexcept {
    return Value_numbers::Made(In_decibels(Value_numbers::Of(source), source.unit), source.unit);
}

// ---- The instantiations

template Value_object<double> Value_object<double>::Convert_degreeC_to_degreeF(Value_object const&,
                                                                               Units const&);
template Value_object<double> Value_object<double>::Convert_degreeF_to_degreeC(Value_object const&,
                                                                               Units const&);
template Value_object<double> Value_object<double>::Convert_degreeC_to_kelvin(Value_object const&,
                                                                              Units const&);
template Value_object<double> Value_object<double>::Convert_degreeF_to_kelvin(Value_object const&,
                                                                              Units const&);
template Value_object<double> Value_object<double>::Convert_kelvin_to_degreeC(Value_object const&,
                                                                              Units const&);
template Value_object<double> Value_object<double>::Convert_kelvin_to_degreeF(Value_object const&,
                                                                              Units const&);
template Value_object<double> Value_object<double>::Power_conversion(Value_object const&,
                                                                     Units const&);
template Value_object<double>
Value_object<double>::Volt_watt_amp_with_master_watt(Value_object const&, Value_object const&,
                                                     Units const&);
template Value_object<double> Value_object<double>::Volt_watt_amp_with_spl_watt(Value_object const&,
                                                                                Value_object const&,
                                                                                Units const&);
template Value_object<double>
Value_object<double>::Volt_amp_to_watt(Value_object const&, Value_object const&, Units const&);
template Value_object<double>
Value_object<double>::Volt_ohm_to_watt(Value_object const&, Value_object const&, Units const&);
template Value_object<double>
Value_object<double>::Watt_ohm_to_volt(Value_object const&, Value_object const&, Units const&);
template Value_object<double> Value_object<double>::Normalize_DB(Value_object const&) noexcept;
template Value_object<double> Value_object<double>::Apply_DB(Value_object const&) noexcept;

} // namespace Varnix::Value
