// Readings from sensors of different make, each in its own unit, brought to one unit and compared
// with a limit. A reading of another kind is refused, and the log goes on.

#include <varnix/value/Text_formatting.h>
#include <varnix/value/Value_object.h>

#include <cstdio>

using namespace Varnix::Value;

int main() {
    using Quantity = Value_object<double>;
    struct Reading {
        char const* sensor;
        Quantity quantity;
    };
    Reading const readings[] = {
        {"boiler", {98.6, C_DgreeF, 97.6, 99.6}},
        {"cabinet", {41.5, C_DgreeC, 41.0, 42.0}},
        {"coolant", {281.0, C_Kelvin, 280.5, 281.5}},
        {"fan", {2400.0, {SPL_NONE, NO_PREFIX, {{MINUTE, -1}}}, 2390.0, 2410.0}},
    };
    Quantity const limit(40.0, C_DgreeC, 40.0, 40.0);

    for (Reading const& reading : readings) {
        try {
            Quantity const celsius = reading.quantity.Convert_to(C_DgreeC);
            std::printf("%-8s %6.2f %s  [%.2f, %.2f]%s\n", reading.sensor, celsius.Get_value(),
                        Format_unit(celsius.Get_unit()).c_str(), celsius.Get_minus_err(),
                        celsius.Get_plus_err(), celsius > limit ? "  too hot" : "");
        } catch (Value_exception const& failure) {
            std::printf("%-8s %s: %s\n", reading.sensor,
                        Format_unit(reading.quantity.Get_unit()).c_str(), failure.what());
        }
    }
}
