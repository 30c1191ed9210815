// Sums, products, comparisons and construction. UDUNITS-2 has units but no quantities: its side is
// the work on units that a program around it must do, without the arithmetic on the numbers.

#include "Our_jobs.h"
#include "Registration.h"
#include "Udunits.h"

#include <cstring>

namespace Benchmarks {

namespace {

// Where units are likely to be equal, a program asks for that before it asks for a converter.
auto Udunits_comparison() {
    return [first = Udunits_unit("m"), second = Udunits_unit("m")]() mutable {
        benchmark::DoNotOptimize(first);
        benchmark::DoNotOptimize(second);
        int result = ut_compare(first, second);
        benchmark::DoNotOptimize(result);
    };
}

// As many bytes as a value object has.
struct Plain_record {
    unsigned char bytes[sizeof(Quantity)];
};

auto Copy_record() {
    return [source = Plain_record{}]() mutable {
        benchmark::DoNotOptimize(source);
        Plain_record target;
        std::memcpy(&target, &source, sizeof target);
        benchmark::DoNotOptimize(target);
    };
}

} // namespace

void Register_arithmetic() {
    Visit_arithmetic(Register_ours());

    Register("add_same/udunits", Udunits_number_job(500.0, "m", "m"));
    Register("add_same/udunits_compare", Udunits_comparison());
    Register("add_km_m/udunits", Udunits_number_job(500.0, "m", "km"));

    Register("multiply/udunits", Udunits_product_job("m", "s", ut_multiply));
    Register("divide/udunits", Udunits_product_job("m", "s", ut_divide));
    Register("multiply_ms_s/udunits", Udunits_product_job("m/s", "s", ut_multiply));
    Register("multiply_m_m/udunits", Udunits_product_job("m", "m", ut_multiply));
    Register("divide_Wh_h/udunits", Udunits_product_job("W.h", "h", ut_divide));
    Register("multiply_units/udunits", Udunits_product_job("g", "m/s2", ut_multiply));

    Register("less_same/udunits", Udunits_number_job(500.0, "m", "m"));
    Register("less_same/udunits_compare", Udunits_comparison());
    Register("less_km_m/udunits", Udunits_number_job(500.0, "m", "km"));

    Register("construct/memcpy", Copy_record());
}

} // namespace Benchmarks
