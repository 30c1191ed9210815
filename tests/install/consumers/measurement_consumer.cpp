// A program on measurements.

#include <varnix/value/Measurement.h>
#include <varnix/value/Measurement_text.h>

#include <iostream>

using namespace Varnix::Value;

int main() {
    Measurement const voltage(10.0, C_Volts, 9.9, 10.1);
    Measurement const resistance(50.0, C_Ohms, 49.0, 51.0);
    std::cout << Format(voltage.Convert_to(C_Watts, resistance), Read_text_format("b")) << '\n';
}
