// Radiated emissions: what a receiver shows in dBµV becomes a field strength by the antenna's factor and the
// cable's loss, and is checked against its limit; and a level in dBµV as the power at the receiver.

#include <varnix/value/Levels.h>
#include <varnix/value/Measurement.h>
#include <varnix/value/Measurement_text.h>

#include <iostream>

using namespace Varnix::Value;

int main() {
    char const* const verdicts[] = {"pass", "fail", "undecided"};
    // An antenna factor in dB(1/m) is the gain from volts to volts per metre: dB, and a division by 1 m.
    Measurement const factor = Parse_measurement("14.2 [13.2, 15.2] dB");
    Measurement const metre = Parse_measurement("1 m");
    Units const field_level = Parse_unit("dB(uV/m)");
    Measurement const cable = Parse_measurement("1.8 [1.6, 2.0] dB");
    Measurement const limit = Parse_measurement("40 dB(uV/m)");
    Measurement const none = Parse_measurement("-100 dB(uV/m)");
    for (char const* const shown :
         {"20.5 [18.5, 22.5] dBuV", "23.0 [21.0, 25.0] dBuV", "31 [29, 33] dBuV"}) {
        Measurement const volts = (Parse_measurement(shown) + factor + cable).Convert_to(C_Volts);
        Measurement const field = (volts / metre).Convert_to(field_level);
        std::cout << shown << ": " << Format(field, Read_text_format("b")) << ", "
                  << verdicts[static_cast<int>(Check_limits(field, none, limit))] << '\n';
    }

    Measurement const receiver = Parse_measurement("70 dBuV [69, 71]");
    Measurement const input = Parse_measurement("50 ± 2.5 ohm");
    std::cout << "70 dBuV across 50 ohm: "
              << Format(receiver.Convert_to(C_DBmW, input), Read_text_format("b")) << '\n';
}
