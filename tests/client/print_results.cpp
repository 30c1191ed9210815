// Prints what the library answers. Two builds give the same results when they print the same.
//
// With the argument "levels" it prints conversions between levels and linear quantities instead, which go
// through pow and log10 of the C library, and are the same to within two units in the last place only.

#include "Answers.h"

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

} // namespace

int main(int count, char** arguments) {
    if (count > 1 && std::strcmp(arguments[1], "levels") == 0) {
        Print_levels();
    } else {
        std::puts(Varnix::Value::Tests::Answers().c_str());
    }
}
