// The noise figure of a receiver from its stages, the sensitivity that follows, and a signal measured together
// with its noise, which is taken off again.

#include <varnix/value/Levels.h>
#include <varnix/value/Measurement.h>
#include <varnix/value/Measurement_text.h>
#include <varnix/value/Radio_formulas.h>

#include <iostream>

using namespace Varnix::Value;

int main() {
    Text_format const digits = Read_text_format("b");
    Noise_stage const filter = {Parse_measurement("-1.5 [-1.7, -1.3] dB"),
                                Parse_measurement("1.5 [1.3, 1.7] dB")};
    Noise_stage const amplifier = {Parse_measurement("18 [17, 19] dB"),
                                   Parse_measurement("0.8 [0.6, 1.0] dB")};
    Noise_stage const mixer = {Parse_measurement("-7 dB"), Parse_measurement("7.5 [7, 8] dB")};
    Measurement const figure = Cascade_noise({filter, amplifier, mixer});
    std::cout << "noise figure: " << Format(figure, digits) << '\n';

    Measurement const floor =
        Thermal_noise(Parse_measurement("290 K"), Parse_measurement("200 kHz")).Convert_to(C_DBmW) +
        figure;
    std::cout << "noise floor:  " << Format(floor, digits) << '\n';
    std::cout << "sensitivity:  " << Format(floor + Parse_measurement("9 dB"), digits) << '\n';

    Measurement const with_noise = Parse_measurement("-110 [-110.2, -109.8] dBm");
    std::cout << "signal alone: " << Format(Power_difference(with_noise, floor), digits) << '\n';
}
