// The pairs of units that the conversions go between, in our terms and in those of UDUNITS-2.

#ifndef VALUE_OBJECT_BENCHMARKS_CONVERSION_PAIRS_H
#define VALUE_OBJECT_BENCHMARKS_CONVERSION_PAIRS_H

#include <varnix/value/Units.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <random>

namespace Benchmarks {

struct Conversion_pair {
    char const* job; ///< the name of the job that converts this pair
    Varnix::Value::Units const& source;
    Varnix::Value::Units const& target;
    char const* udunits_source;
    char const* udunits_target;
    double value; ///< the number converted; its bounds are a tenth below and above
};

/// The pairs that take part in the mixed conversions; the first `Single_pair_count` are measured by
/// themselves as well.
// clang-format off
inline Conversion_pair const conversion_pairs[] = {
    {"ft_to_m",     Varnix::Value::C_Ft,                   Varnix::Value::C_Meter,                "ft",               "m",                120.0},
    {"kmh_to_ms",   Varnix::Value::C_Kmph,                 Varnix::Value::C_MeterPerSecond,       "km/h",             "m/s",               90.0},
    {"c_to_f",      Varnix::Value::C_DgreeC,               Varnix::Value::C_DgreeF,               "degC",             "degF",              25.0},
    {"dbm_to_w",    Varnix::Value::C_DBmW,                 Varnix::Value::C_Watts,                "0.1 lg(re 1 mW)",  "W",                 30.0},
    {"w_to_dbm",    Varnix::Value::C_Watts,                Varnix::Value::C_DBmW,                 "W",                "0.1 lg(re 1 mW)",    2.0},
    {"nmi_to_km",   Varnix::Value::C_Nautical_mile,        Varnix::Value::C_KMeter,               "nautical_mile",    "km",                12.0},
    {"h_to_min",    Varnix::Value::C_Hrs,                  Varnix::Value::C_Min,                  "hour",             "minute",             3.0},
    {"fts2_to_ms2", Varnix::Value::C_FeetPerSecondSquared, Varnix::Value::C_MeterPerSecondSquared, "ft/s2",           "m/s2",              32.0},
};
// clang-format on
constexpr std::size_t Pair_count = sizeof(conversion_pairs) / sizeof(conversion_pairs[0]);
constexpr std::size_t Single_pair_count = 5;

/// A sequence of pairs too long to be learned by heart by the branch predictor: each pair equally
/// often, shuffled, the same in every run.
constexpr std::size_t Order_length = 4096;
inline std::array<std::uint8_t, Order_length> Shuffled_order() {
    std::array<std::uint8_t, Order_length> order{};
    for (std::size_t i = 0; i < Order_length; ++i) {
        order[i] = static_cast<std::uint8_t>(i % Pair_count);
    }
    std::shuffle(order.begin(), order.end(), std::mt19937(1));
    return order;
}

} // namespace Benchmarks

#endif
