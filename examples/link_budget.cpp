// A radio link with tolerances: a transmitter's level, the gains and losses on the way, the noise
// of the receiver, and the margin that is left, certainly.

#include <varnix/value/Levels.h>
#include <varnix/value/Measurement.h>
#include <varnix/value/Measurement_text.h>
#include <varnix/value/Radio_formulas.h>

#include <iostream>

using namespace Varnix::Value;

namespace {

void Print(char const* what, Measurement const& x) {
    std::cout << what << ": " << Format(x, Read_text_format("b")) << '\n';
}

} // namespace

int main() {
    Measurement const transmitter(30.0, C_DBmW, 29.0, 31.0);
    Measurement const antennas =
        Measurement(12.0, C_DB, 11.5, 12.5) + Measurement(9.0, C_DB, 8.5, 9.5);
    Measurement const free_space = Parse_measurement("-92.4 ± 1 dB"); // 1 km at 1 GHz
    Measurement const received = transmitter + antennas + free_space;
    Print("received", received);

    Noise_stage const amplifier = {Measurement(15.0, C_DB, 14.5, 15.5),
                                   Measurement(1.0, C_DB, 0.75, 1.25)};
    Noise_stage const mixer = {Measurement(-7.0, C_DB), Measurement(7.0, C_DB, 6.5, 7.5)};
    Measurement const figure = Cascade_noise({amplifier, mixer});
    Print("noise figure", figure);

    Measurement const temperature(20.0, C_DgreeC, -20.0, 55.0);
    Measurement const noise =
        Thermal_noise(temperature, Measurement(1.0, C_MHz)).Convert_to(C_DBmW) + figure;
    Print("noise", noise);

    Measurement const margin =
        received - noise - Measurement(10.0, C_DB); // the demodulator wants 10 dB
    Print("margin", margin);
    bool const closes = Certainly_less(Measurement(0.0, C_DB), margin);
    std::cout << (closes ? "the link closes, whatever the tolerances\n" : "the link may fail\n");
}
