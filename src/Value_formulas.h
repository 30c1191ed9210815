// The formulas behind the conversions: temperatures, electrical relations and decibels. Each is
// rounded operation by operation, in the order written.

#ifndef VARNIX_VALUE_VALUE_FORMULAS_H
#define VARNIX_VALUE_VALUE_FORMULAS_H

#include "Value_steps.h"

#include <cmath>

namespace Varnix::Value {

// ---- Temperatures, and power written as a product

namespace {

template <typename Formula>
Value_object<double> Converted_by(Formula const& formula, Value_object<double> const& source,
                                  Units const& target) {
    return Value_object<double>(formula(source.Get_value()), target,
                                formula(source.Get_minus_err()), formula(source.Get_plus_err()));
}

} // namespace

template <typename Number>
Value_object<Number>
Value_object<Number>::Convert_degreeC_to_degreeF(Value_object const& source,
                                                 Units const& target) noexcept {
    auto const to_fahrenheit = [](Number celsius) {
        return celsius * FAHR_TO_CELCIUS_CONV_FACT + FAHR_CELCIUS_CONST;
    };
    Value_object result;
    result.Set(to_fahrenheit(source.value), target, to_fahrenheit(source.minus_err),
               to_fahrenheit(source.plus_err));
    return result;
}

template <typename Number>
Value_object<Number> Value_object<Number>::Convert_degreeF_to_degreeC(Value_object const& source,
                                                                      Units const& target) {
    return Converted_by(
        [](Number fahrenheit) {
            return (fahrenheit - FAHR_CELCIUS_CONST) / FAHR_TO_CELCIUS_CONV_FACT;
        },
        source, target);
}

template <typename Number>
Value_object<Number> Value_object<Number>::Convert_degreeC_to_kelvin(Value_object const& source,
                                                                     Units const& target) {
    return Converted_by([](Number celsius) { return celsius + KELVIN_CONST; }, source, target);
}

template <typename Number>
Value_object<Number> Value_object<Number>::Convert_degreeF_to_kelvin(Value_object const& source,
                                                                     Units const& target) {
    return Converted_by(
        [](Number fahrenheit) {
            return (fahrenheit - FAHR_CELCIUS_CONST) / FAHR_TO_CELCIUS_CONV_FACT + KELVIN_CONST;
        },
        source, target);
}

template <typename Number>
Value_object<Number> Value_object<Number>::Convert_kelvin_to_degreeC(Value_object const& source,
                                                                     Units const& target) {
    return Converted_by([](Number kelvin) { return kelvin - KELVIN_CONST; }, source, target);
}

template <typename Number>
Value_object<Number> Value_object<Number>::Convert_kelvin_to_degreeF(Value_object const& source,
                                                                     Units const& target) {
    return Converted_by(
        [](Number kelvin) {
            return (kelvin - KELVIN_CONST) * FAHR_TO_CELCIUS_CONV_FACT + FAHR_CELCIUS_CONST;
        },
        source, target);
}

template <typename Number>
Value_object<Number> Value_object<Number>::Power_conversion(Value_object const& source,
                                                            Units const& target) {
    return Converted_by([](Number watts) { return watts; }, source, target);
}

// ---- Electrical relations

namespace {

template <typename Formula>
Value_object<double> Related_by(Formula const& formula, Value_object<double> const& first,
                                Value_object<double> const& second, Units const& target) {
    Value_object<double> result = Value_numbers::Combined(formula, first, second);
    result.Set_unit(target);
    Value_object<double>::Is_value_in_range(result);
    return result;
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

namespace {

// The product of the exponents up to the first empty slot, by which decibels count; 1 without unit.
inline double Exponent_product(Units const& unit) {
    double product = 1.0;
    for (Unit_tuple const& tuple : unit.tuples) {
        if (tuple.unit == NO_UNIT) {
            break;
        }
        product *= static_cast<double>(tuple.exponent);
    }
    return product;
}

} // namespace

template <typename Number>
Value_object<Number> Value_object<Number>::Normalize_DB(Value_object const& source) noexcept {
    Value_object result = source;
    if (Is_decibel(result.unit)) {
        Number const product = Exponent_product(result.unit);
        Value_numbers::Transform(result, [product](Number decibels) {
            return std::pow(DB_CONV_FACT, decibels / DB_CONV_FACT) * product;
        });
    }
    return result;
}

template <typename Number>
Value_object<Number> Value_object<Number>::Apply_DB(Value_object const& source) noexcept {
    Value_object result = source;
    if (Is_decibel(result.unit)) {
        Number const multiplier = Exponent_product(result.unit) * DB_CONV_FACT;
        Value_numbers::Transform(
            result, [multiplier](Number linear) { return multiplier * std::log10(linear); });
    }
    return result;
}

} // namespace Varnix::Value

#endif
