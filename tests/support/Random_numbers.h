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

// Doubles that are hard to compute with: of any bits, denormal ones, small whole ones, powers of two,
// few bits far apart.
class Hard_doubles {
  public:
    double operator()() {
        std::uint64_t const bits = random();
        double number = 0.0;
        switch (random() % 6) {
        case 0:
            std::memcpy(&number, &bits, sizeof number);
            return std::isfinite(number) ? number : 1.5;
        case 1:
            return std::ldexp(static_cast<double>(static_cast<std::int64_t>(bits) >> 11), Between(-80, -20));
        case 2:
            return Between(-1000, 1000);
        case 3:
            return std::ldexp(static_cast<double>(bits >> 12), -1074);
        case 4:
            return std::ldexp(Between(0, 1) == 0 ? 1.0 : -1.0, Between(-1074, 1023));
        default:
            return std::ldexp(Between(0, 63), Between(-20, 19)) + std::ldexp(1.0, Between(-100, -40));
        }
    }

    int Between(int least, int greatest) { return std::uniform_int_distribution<int>(least, greatest)(random); }

    std::mt19937_64 random{1};
};

} // namespace Varnix::Value::Tests

#endif
