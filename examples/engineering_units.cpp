// Units beyond those of value objects: in texts, as constants, and in SI.

#include <iostream>
#include <varnix/value/Engineering_units.h>
#include <varnix/value/Measurement_text.h>
using namespace Varnix::Value;

int main() {
    Measurement const pressure = Parse_measurement("1013.25 hPa");
    std::cout << pressure.Convert_to(Parse_unit("psi")) << '\n';
    Measurement const force = Parse_measurement("70 kg") * Parse_measurement("9.81 m/s^2");
    std::cout << Simplified(force) << '\n'; // 686.7 N

    Units const inch_of_mercury = {SPL_NONE, NO_PREFIX, {{INCH_OF_MERCURY, 1}}};
    std::cout << pressure.Convert_to(inch_of_mercury) << '\n';
    Measurement const power = Parse_measurement("3000 rpm") * Parse_measurement("2 N*m");
    std::cout << Format(power.Convert_to(C_KiloWatts), Read_text_format(".4~")) << '\n';
    std::cout << Parse_measurement("2500 kg/h") * Parse_measurement("3.5 h") << '\n';
}
