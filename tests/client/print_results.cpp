// Prints what the library answers. Two builds give the same results when they print the same.
//
// With the argument "levels" it prints conversions between levels and linear quantities instead, which go
// through pow and log10 of the C library, and are the same to within two units in the last place only; with "measurements" those, bounds and all.

#include "Answers.h"

#include <varnix/value/Levels.h>
#include <varnix/value/Measurement.h>
#include <varnix/value/Value_object.h>

#include <cstdint>
#include <cstdio>
#include <cstring>

namespace {

using namespace Varnix::Value;

void Print_bits(double number) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, &number, sizeof bits);
    std::printf("%016llx\n", static_cast<unsigned long long>(bits));
}

// From -200 to 200 dBm in steps of 0.001 to watts, and as many numbers of watts, over 20 decades, back.
void Print_levels() {
    for (int k = -200000; k <= 200000; ++k) {
        double const level = k / 1000.0;
        Print_bits(Value_object<double>(level, C_DBmW, level, level).Convert_to(C_Watts).Get_value());
    }
    double watts = 1e-10;
    for (int k = -200000; k <= 200000; ++k) {
        Print_bits(Value_object<double>(watts, C_Watts, watts, watts).Convert_to(C_DBmW).Get_value());
        watts *= 1.0001151;
    }
}

// A random walk through every operation on measurements, whose bits are the same everywhere.
void Print_measurements() {
    std::uint64_t state = 1;
    auto const draw = [&state](double least, double greatest) {
        state = state * 6364136223846793005U + 1442695040888963407U;
        return least + (greatest - least) * (static_cast<double>(state >> 11) * 0x1p-53);
    };
    auto const print = [](Measurement const& x) {
        Print_bits(x.Get_lower());
        Print_bits(x.Get_value());
        Print_bits(x.Get_upper());
    };
    for (int k = 0; k < 20000; ++k) {
        double const value = draw(0.1, 10.0);
        Measurement const voltage(value, C_Volts, value * 0.99, value * 1.01);
        Measurement const resistance(draw(1.0, 100.0), C_Ohms);
        Measurement const level(draw(-150.0, 50.0), C_DBmW);
        print(voltage / resistance - voltage * voltage / resistance / Measurement(3.0, C_Volts));
        print(Sqrt(voltage.Convert_to(C_Watts, resistance) * resistance));
        print(level.Convert_to(C_Watts));
        print(voltage.Convert_to(C_DBmW, resistance));
        print(Power_sum({level, voltage.Convert_to(C_DBmW, resistance)}));
        print(Measurement(draw(-50.0, 150.0), C_DgreeF).Convert_to(C_DgreeC));
        print(Measurement(draw(0.0, 360.0), C_Degree).Convert_to(C_Radian));
    }
}

} // namespace

int main(int count, char** arguments) {
    if (count > 1 && std::strcmp(arguments[1], "levels") == 0) {
        Print_levels();
    } else if (count > 1 && std::strcmp(arguments[1], "measurements") == 0) {
        Print_measurements();
    } else {
        std::puts(Varnix::Value::Tests::Answers().c_str());
    }
}
