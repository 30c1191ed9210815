// What a call through the library for C takes, beside the same conversion in C++.

#include "Registration.h"

#include <varnix/value/Measurement.h>
#include <varnix/value/Value_object.h>

#include <value_object.h>

namespace Benchmarks {

namespace {

using namespace Varnix::Value;

constexpr Units foot = {SPL_NONE, NO_PREFIX, {{FOOT, 1}}};

vo_unit Unit_in_c(char const* text) {
    vo_unit unit = {};
    vo_unit_parse(text, &unit, nullptr);
    return unit;
}

template <typename Struct>
using Function = vo_status (*)(Struct const*, vo_unit const*, Struct*, vo_fault*);

template <typename Struct>
auto Conversion_in_c(Function<Struct> convert) {
    Struct x = {};
    x.value = 5.0;
    x.lower = 4.0;
    x.upper = 6.0;
    x.unit = Unit_in_c("ft");
    return [x, convert, metre = Unit_in_c("m")]() mutable {
        benchmark::DoNotOptimize(x);
        benchmark::DoNotOptimize(metre);
        Struct result = {};
        convert(&x, &metre, &result, nullptr);
        benchmark::DoNotOptimize(result);
    };
}

template <typename Quantity>
auto Conversion(Quantity const& quantity) {
    return [x = quantity, metre = C_Meter]() mutable {
        benchmark::DoNotOptimize(x);
        benchmark::DoNotOptimize(metre);
        Quantity result = x.Convert_to(metre);
        benchmark::DoNotOptimize(result);
    };
}

} // namespace

void Register_c_interface() {
    Register("c_quantity_ft_to_m/ours", Conversion_in_c<vo_quantity>(vo_quantity_convert));
    Register("c_quantity_ft_to_m/c++", Conversion(Value_object<double>(5.0, foot, 4.0, 6.0)));
    Register("c_measurement_ft_to_m/ours", Conversion_in_c<vo_measurement>(vo_measurement_convert));
    Register("c_measurement_ft_to_m/c++", Conversion(Measurement(5.0, foot, 4.0, 6.0)));
}

} // namespace Benchmarks
