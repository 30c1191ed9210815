// A radio link: a transmitter's power, the gains and losses on the way, and the margin that is left
// at the receiver. Levels are decibels with a unit (dBm); gains and losses are plain decibels.

#include <varnix/value/Text_formatting.h>
#include <varnix/value/Value_object.h>

#include <cstdio>

using namespace Varnix::Value;

namespace {

using Quantity = Value_object<double>;

void Print(char const* what, Quantity const& quantity) {
    std::printf("%-22s %9.3f %-4s  [%.3f, %.3f]\n", what, quantity.Get_value(),
                Format_unit(quantity.Get_unit()).c_str(), quantity.Get_minus_err(),
                quantity.Get_plus_err());
}

} // namespace

int main() {
    // Plain decibels add up among themselves: every gain and loss of the path.
    Quantity path(12.0, C_DB, 11.5, 12.5);       // transmitting antenna
    path += Quantity(-92.4, C_DB, -93.4, -91.4); // free space, 1 km at 1 GHz
    path += Quantity(9.0, C_DB, 8.5, 9.5);       // receiving antenna
    Print("path", path);

    // A plain ratio scales a linear power, so the transmitter's level is taken in watts.
    Quantity const transmitter(30.0, C_DBmW, 29.0, 31.0);
    Print("transmitter", transmitter);
    Quantity received = transmitter.Convert_to(C_Watts);
    received += path;
    Print("received", received.Convert_to(C_NanoWatts));
    Print("received", received.Convert_to(C_DBmW));

    Quantity const sensitivity(-85.0, C_DBmW, -86.0, -84.0);
    Print("sensitivity", sensitivity);
    std::puts(received > sensitivity ? "the link holds" : "the link is too weak");
}
