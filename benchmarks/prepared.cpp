// One value with its bounds through a converter that was prepared before, on both sides.

#include "Our_jobs.h"
#include "Registration.h"
#include "Udunits.h"

namespace Benchmarks {

namespace {

auto Udunits_prepared(Conversion_pair const& pair) {
    cv_converter const* const prepared =
        Udunits_converter(pair.udunits_source, pair.udunits_target);
    return [numbers = Numbers_with_bounds(pair.value), converter = prepared]() mutable {
        benchmark::DoNotOptimize(numbers);
        benchmark::DoNotOptimize(converter);
        Numbers result = Convert_numbers(converter, numbers);
        benchmark::DoNotOptimize(result);
    };
}

} // namespace

void Register_prepared() {
    Visit_prepared(Register_ours());
    for (std::size_t const index : prepared_pairs) {
        Conversion_pair const& pair = conversion_pairs[index];
        Register(std::string("prepared_") + pair.job + "/udunits", Udunits_prepared(pair));
    }
}

} // namespace Benchmarks
