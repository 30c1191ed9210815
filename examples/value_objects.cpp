#include <iostream>
#include <varnix/value/Text_formatting.h>
#include <varnix/value/Value_object.h>
using namespace Varnix::Value;

int main() try {
    Value_object<double> power(30.0, C_DBmW, 29.0, 31.0); // 30 dBm, between 29 and 31
    power = power.Convert_to(C_Watts);                    // 1 W, between 0.794 and 1.259
    power += Value_object<double>(500.0, C_MilliWatts, 490.0, 510.0);
    std::cout << power.Get_value() << ' ' << Format_unit(power.Get_unit()) << ", from "
              << power.Get_minus_err() << " to " << power.Get_plus_err() << '\n';
    power += Value_object<double>(3.0, C_Sec, 3.0, 3.0); // throws, and power is what it was
} catch (Varnix::Value::Value_exception const& failure) {
    std::cout << failure.what() << '\n';
}
