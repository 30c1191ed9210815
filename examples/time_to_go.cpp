// In flight: the time to go from distance and ground speed, and the fuel that will be left, with
// bounds.

#include <varnix/value/Measurement.h>
#include <varnix/value/Measurement_text.h>

#include <iostream>

using namespace Varnix::Value;

int main() {
    Text_format const digits = Read_text_format("b");
    Measurement const distance = Parse_measurement("215 ± 0.5 n.mi");
    Measurement const speed = Parse_measurement("450 ± 10 kn");
    Measurement const time = distance / speed;
    std::cout << "time to go: " << Format(time.Convert_to(C_Min), digits) << '\n';

    Measurement const burning = Parse_measurement("2600 ± 50 kg/h");
    Measurement const on_board = Parse_measurement("4100 ± 20 kg");
    Measurement const left = on_board - burning * time;
    std::cout << "fuel left: " << Format(left, digits) << '\n';
    std::cout << "above the reserve of 1500 kg: "
              << (Certainly_less(Parse_measurement("1500 kg"), left) ? "certainly" : "not certain")
              << '\n';
}
