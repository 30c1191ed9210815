#include <iostream>
#include <varnix/value/Levels.h>
#include <varnix/value/Measurement.h>
#include <varnix/value/Measurement_text.h>
using namespace Varnix::Value;

int main() try {
    Measurement const voltage(10.0, C_Volts, 9.9, 10.1);
    Measurement const resistance(50.0, C_Ohms, 49.0, 51.0);
    std::cout << Format(voltage.Convert_to(C_Watts, resistance), Read_text_format("b")) << '\n';
    std::cout << Parse_measurement("10 dBm [9, 11]") + Parse_measurement("3 dB") << '\n';
    std::cout << voltage + Measurement(3.0, C_Amps) << '\n'; // throws
} catch (MeasurementRefused const& refusal) {
    std::cout << refusal.what() << '\n';
}
