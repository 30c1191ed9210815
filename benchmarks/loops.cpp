// In a source of its own, which is compiled with -O3.

#include "Loops.h"

#include <cmath>

namespace Benchmarks {

void Loop_ft_to_m(double const* in, double* out, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        out[i] = in[i] * 0.3048;
    }
}

void Loop_c_to_f(double const* in, double* out, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        out[i] = in[i] * 1.8 + 32.0;
    }
}

void Loop_dbm_to_w(double const* in, double* out, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        out[i] = std::pow(10.0, in[i] / 10.0) * 0.001;
    }
}

} // namespace Benchmarks
