// The library's main job on real quantities: conversions, a sum, an electrical relation, and an
// operation that is refused.

#include <varnix/value/Text_formatting.h>
#include <varnix/value/Value_object.h>

#include <iostream>
#include <string>

using namespace Varnix::Value;

namespace {

using Quantity = Value_object<double>;

// With the digits that the bounds allow.
std::string Shown(Quantity const& quantity) {
    return Format(quantity, Read_text_format("b"));
}

void Show(char const* title, Quantity const& from, Quantity const& result) {
    std::cout << title << '\n' << "    " << Shown(from) << "  =  " << Shown(result) << '\n';
}

void Show_conversions() {
    Quantity const level(30.0, C_DBmW, 29.0, 31.0);
    Show("A level into the power it stands for", level, level.Convert_to(C_Watts));

    Quantity const power(1.0, C_Watts, 0.9, 1.1);
    Show("and a power into a level", power, power.Convert_to(C_DBmW));

    Quantity const room(25.0, C_DgreeC, 24.0, 26.0);
    Show("A temperature into another scale", room, room.Convert_to(C_DgreeF));
    Show("and into kelvin", room, room.Convert_to(C_Kelvin));
}

void Show_arithmetic() {
    Quantity distance(1.0, C_KMeter, 0.9, 1.1);
    Quantity const extension(500.0, C_Meter, 495.0, 505.0);
    std::cout << "A sum of two lengths\n    " << Shown(distance) << "  +  " << Shown(extension);
    distance += extension;
    std::cout << "  =  " << Shown(distance) << '\n';

    Quantity const power(10.0, C_Watts, 8.0, 12.0);
    Quantity const current(2.0, C_Amps, 2.0, 2.0);
    std::cout << "A voltage from power and current\n    " << Shown(power) << " with "
              << Shown(current) << "  =  " << Shown(power.Convert_to_with_value(C_Volts, current))
              << '\n';
}

void Show_refusal() {
    Quantity length(2.0, C_Meter, 1.9, 2.1);
    Quantity const time(3.0, C_Sec, 2.9, 3.1);
    std::cout << "A sum that means nothing\n    " << Shown(length) << "  +  " << Shown(time)
              << '\n';
    try {
        length += time;
    } catch (Value_exception const& failure) {
        std::cout << "    " << failure.what() << "\n    and the length is still " << Shown(length)
                  << '\n';
    }
}

} // namespace

int main() {
    Show_conversions();
    Show_arithmetic();
    Show_refusal();
}
