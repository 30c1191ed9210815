// What value objects do by their rules, and what may surprise: docs/behaviour.md tells why, and what to do.

#include <varnix/value/Text_formatting.h>
#include <varnix/value/Value_object.h>

#include <iostream>

using namespace Varnix::Value;

namespace {

void Print(Value_object<double> const& quantity) {
    std::cout << Format(quantity, Read_text_format(".7")) << '\n';
}

void Convert_what_should_not_be() {
    Print(Value_object<double>(5.0, C_Meter, 5.0, 5.0).Convert_to(C_MeterPerSecond)); // 5 m/s
    Print(Value_object<double>(5.0, C_Volts, 5.0, 5.0).Convert_to(C_Watts));          // 5 W
    Print(Value_object<double>(4.0, C_Hz, 4.0, 4.0).Convert_to(C_Sec));               // 4 s
}

void Convert_temperatures() {
    Units const per_celsius = {SPL_NONE, NO_PREFIX, {{DEGREE_C, -1}}};
    Print(Value_object<double>(0.5, per_celsius, 0.0, 1.0)
              .Convert_to(C_DgreeF)); // 0.0304, 0.0296 to 0.03125

    Units const kilo_celsius = {SPL_NONE, KILO, {{DEGREE_C, 1}}};
    Print(Value_object<double>(2.0, kilo_celsius, 2.0, 2.0)
              .Convert_to(C_DgreeF)); // 35600 °F: (2 x 1.8 + 32) x 1000

    Units const drift_per_kelvin = {SPL_NONE, NO_PREFIX, {{PPM, 1}, {KELVIN, -1}}};
    Units const drift_per_celsius = {SPL_NONE, NO_PREFIX, {{PPM, 1}, {DEGREE_C, -1}}};
    Value_object<double> const drift(50.0, drift_per_kelvin, 50.0, 50.0);
    Print(drift.Convert_to(drift_per_celsius)); // -0.00448 ppm/°C: 1 / (50 - 273.15)
}

void Combine_bounds() {
    Value_object<double> const power(10.0, C_Watts, 9.0, 11.0);
    Value_object<double> const current(2.0, C_Amps, 1.0, 4.0);
    Print(power.Convert_to_with_value(C_Volts, current)); // 5 V, lower bound 9, upper bound 2.75

    Value_object<double> const one(5.0, C_Meter, 4.9, 5.1);
    Value_object<double> const other(2.0, C_Meter, 1.8, 2.2);
    Value_object<double> difference = one;
    difference -= other; // 3 m, 2.9 to 3.1: the truth is from 2.7 to 3.3
    difference.Set_plus_minus_err(one.Get_plus_err() - other.Get_minus_err(),
                                  one.Get_minus_err() - other.Get_plus_err());
    Print(difference);
}

void Multiply() {
    Value_object<double> speed(60.0, C_Mph, 60.0, 60.0);
    speed *= Value_object<double>(2.0, C_Sec, 2.0, 2.0);
    Print(speed); // 432000 miles
}

} // namespace

int main() {
    Convert_what_should_not_be();
    Convert_temperatures();
    Combine_bounds();
    Multiply();
}
