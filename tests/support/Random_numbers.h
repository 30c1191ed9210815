// Random doubles.

#ifndef VARNIX_VALUE_TESTS_RANDOM_NUMBERS_H
#define VARNIX_VALUE_TESTS_RANDOM_NUMBERS_H

#include <cmath>
#include <cstdint>
#include <cstring>
#include <random>

namespace Varnix::Value::Tests {

// A number of any size, with all its bits.
inline double Any_number(std::mt19937_64& random) {
    double number = 0.0;
    do {
        std::uint64_t const bits = random();
        std::memcpy(&number, &bits, sizeof number);
    } while (!std::isfinite(number));
    return number;
}

} // namespace Varnix::Value::Tests

#endif
