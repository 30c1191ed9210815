// The library's main job on real quantities: a link budget with tolerances, a signal freed of its
// noise, a limit check, a conversion of electromagnetic compatibility, and an operation that is
// refused. Then the same unit system with value objects, which follow documented rules to the bit.

#include <varnix/value/Levels.h>
#include <varnix/value/Measurement.h>
#include <varnix/value/Measurement_text.h>
#include <varnix/value/Radio_formulas.h>

#include <iostream>
#include <string>

using namespace Varnix::Value;

namespace {

// With the digits that the bounds allow.
template <typename Quantity>
std::string Shown(Quantity const& quantity) {
    return Format(quantity, Read_text_format("b"));
}

void Show_link_budget() {
    Measurement const transmitter = Parse_measurement("30 ± 1 dBm");
    Measurement const path = Parse_measurement("-71.4 ± 2 dB");
    Measurement const noise =
        Thermal_noise(Parse_measurement("20 °C [-20, 55]"), Parse_measurement("1 MHz"))
            .Convert_to(C_DBmW);
    Measurement const received = transmitter + path;
    std::cout << "A link budget with tolerances\n"
              << "    " << Shown(transmitter) << "  and  " << Shown(path) << "  =  "
              << Shown(received) << '\n'
              << "    above the thermal noise of 1 MHz, " << Shown(noise) << ":  "
              << Shown(received - noise) << '\n';
}

void Show_noise_correction() {
    Measurement const with_noise = Parse_measurement("-90 ± 0.2 dBm");
    Measurement const noise = Parse_measurement("-95 ± 0.2 dBm");
    std::cout << "A signal measured with its noise\n    " << Shown(with_noise) << "  less  "
              << Shown(noise) << "  =  " << Shown(Power_difference(with_noise, noise)) << '\n';
}

void Show_limit_check() {
    Measurement const supply = Parse_measurement("5.02 ± 0.01 V");
    bool const passes = Check_limits(supply, Parse_measurement("4.75 V"),
                                     Parse_measurement("5.25 V")) == Verdict::pass;
    std::cout << "A supply and its limits\n    " << Shown(supply)
              << " within 4.75 V to 5.25 V:  " << (passes ? "pass" : "not certain") << '\n';
}

void Show_emc() {
    Measurement const reading = Parse_measurement("70 dBµV [69, 71]");
    Measurement const impedance = Parse_measurement("50 ± 2.5 ohm");
    std::cout << "A receiver's reading, across an uncertain impedance\n    " << Shown(reading)
              << " across " << Shown(impedance) << "  =  "
              << Shown(reading.Convert_to(C_DBmW, impedance)) << '\n';
}

void Show_refusal() {
    Measurement const level = Parse_measurement("10 ± 1 dBm");
    std::cout << "A sum that means one thing to some, another to others\n";
    try {
        std::cout << level + level << '\n';
    } catch (MeasurementRefused const& refusal) {
        std::cout << "    " << refusal.what() << "\n    which is  "
                  << Shown(Power_sum({level, level})) << '\n';
    }
}

void Show_value_objects() {
    using Quantity = Value_object<double>;
    Quantity power(30.0, C_DBmW, 29.0, 31.0);
    power = power.Convert_to(C_Watts);
    power += Quantity(500.0, C_MilliWatts, 490.0, 510.0);
    std::cout << "Value objects: 72 bytes, rules to the bit\n    30 dBm in W, plus 500 mW  =  "
              << Shown(power) << '\n';
}

} // namespace

int main() {
    Show_link_budget();
    Show_noise_correction();
    Show_limit_check();
    Show_emc();
    Show_refusal();
    Show_value_objects();
}
