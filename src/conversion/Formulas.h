// The formulas of the conversion rules, for one number. They are written here once: value objects,
// prepared conversions and arrays all use them. Each is rounded operation by operation, in the
// order written.

#ifndef VARNIX_VALUE_CONVERSION_FORMULAS_H
#define VARNIX_VALUE_CONVERSION_FORMULAS_H

#include <varnix/value/Value_converter.h>
#include <varnix/value/Value_object.h>

#include <cmath>

namespace Varnix::Value {

using Value_detail::Conversion_steps;
using Formula = Conversion_steps::Formula;

// Calls `use` with the formula, a function of a number, and returns what it returns.
template <typename Use>
[[gnu::always_inline]] inline auto With_formula(Formula formula, Use const& use) {
    constexpr double scale = Value_object<double>::FAHR_TO_CELCIUS_CONV_FACT;
    constexpr double fahrenheit_offset = Value_object<double>::FAHR_CELCIUS_CONST;
    constexpr double kelvin_offset = Value_object<double>::KELVIN_CONST;
    switch (formula) {
    case Formula::celsius_to_fahrenheit:
        return use([](double celsius) { return celsius * scale + fahrenheit_offset; });
    case Formula::fahrenheit_to_celsius:
        return use([](double fahrenheit) { return (fahrenheit - fahrenheit_offset) / scale; });
    case Formula::celsius_to_kelvin:
        return use([](double celsius) { return celsius + kelvin_offset; });
    case Formula::fahrenheit_to_kelvin:
        return use([](double fahrenheit) {
            return (fahrenheit - fahrenheit_offset) / scale + kelvin_offset;
        });
    case Formula::kelvin_to_celsius:
        return use([](double kelvin) { return kelvin - kelvin_offset; });
    case Formula::kelvin_to_fahrenheit:
        return use(
            [](double kelvin) { return (kelvin - kelvin_offset) * scale + fahrenheit_offset; });
    case Formula::identity:
        break;
    }
    return use([](double watts) { return watts; });
}

inline double Decibels_to_linear(double decibels, double product) {
    constexpr double ten = Value_object<double>::DB_CONV_FACT;
    return std::pow(ten, decibels / ten) * product;
}

inline double Linear_to_decibels(double linear, double multiplier) {
    return multiplier * std::log10(linear);
}

} // namespace Varnix::Value

#endif
