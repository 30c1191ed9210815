// Measurements: value and two certain bounds, units checked. Boost.Interval has two bounds, and
// neither a value nor units; its bounds are as tight, by changing the rounding mode of the
// processor.

#include "Registration.h"

#include <varnix/value/Levels.h>
#include <varnix/value/Measurement.h>
#include <varnix/value/Measurement_converter.h>

#include <boost/numeric/interval.hpp>

namespace Benchmarks {

namespace {

using namespace Varnix::Value;

template <typename Operation>
auto Ours(Measurement const& first, Measurement const& second, Operation operation) {
    return [first, second, operation]() mutable {
        benchmark::DoNotOptimize(first);
        benchmark::DoNotOptimize(second);
        Measurement result = operation(first, second);
        benchmark::DoNotOptimize(result);
    };
}

auto Conversion(Measurement const& from, Units const& to) {
    return Ours(from, from,
                [to](Measurement const& x, Measurement const&) { return x.Convert_to(to); });
}

using Interval = boost::numeric::interval<double>;

template <typename Operation>
auto Boosts(Interval const& first, Interval const& second, Operation operation) {
    return [first, second, operation]() mutable {
        benchmark::DoNotOptimize(first);
        benchmark::DoNotOptimize(second);
        Interval result = operation(first, second);
        benchmark::DoNotOptimize(result);
    };
}

} // namespace

void Register_measurements() {
    Measurement const voltage(10.0, C_Volts, 9.9, 10.1);
    Measurement const current(2.0, C_Amps, 1.9, 2.1);
    Measurement const speed(60.0, C_Mph, 59.0, 61.0);
    Measurement const time(2.0, C_Sec, 1.9, 2.1);
    Interval const first(9.9, 10.1);
    Interval const second(1.9, 2.1);
    auto const sum = [](auto const& x, auto const& y) { return x + y; };
    auto const product = [](auto const& x, auto const& y) { return x * y; };
    auto const quotient = [](auto const& x, auto const& y) { return x / y; };

    Register("measured_sum/ours", Ours(voltage, voltage, sum));
    Register("measured_sum/boost_interval", Boosts(first, second, sum));
    Register("measured_sum_km_m/ours", Ours(Measurement(1.0, C_KMeter, 0.9, 1.1),
                                            Measurement(500.0, C_Meter, 490.0, 510.0), sum));
    Register("measured_product/ours", Ours(voltage, current, product));
    Register("measured_product/boost_interval", Boosts(first, second, product));
    Register("measured_product_mph_s/ours", Ours(speed, time, product));
    Register("measured_quotient/ours", Ours(voltage, current, quotient));
    Register("measured_quotient/boost_interval", Boosts(first, second, quotient));
    Register("measured_ft_to_m/ours", Conversion({3.3, C_Ft, 3.1, 3.4}, C_Meter));
    Register("measured_c_to_f/ours", Conversion({20.0, C_DgreeC, 19.0, 21.0}, C_DgreeF));
    Register("measured_dbm_to_w/ours", Conversion({13.0, C_DBmW, 12.0, 14.3}, C_Watts));
    Register("measured_w_to_dbm/ours", Conversion({0.02, C_Watts, 0.01, 0.03}, C_DBmW));
}

} // namespace Benchmarks
