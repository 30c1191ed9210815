// How costs grow: with the number of a unit's factors, and with the length of an array.

#include "Registration.h"

#include <varnix/value/Measurement.h>
#include <varnix/value/Measurement_converter.h>
#include <varnix/value/Value_converter.h>
#include <varnix/value/Value_object.h>

#include <algorithm>
#include <string>
#include <vector>

namespace Benchmarks {

namespace {

using namespace Varnix::Value;

// In canonical order; the first, the fourth and the fifth have to be converted.
constexpr Unit_tuple source_factors[] = {{BYTE, 1}, {VOLT, 1}, {GRAM, 1}, {FOOT, 1}, {HOUR, -1}};
constexpr Unit_tuple target_factors[] = {{BIT, 1}, {VOLT, 1}, {GRAM, 1}, {INCH, 1}, {SECOND, -1}};

Units First_factors(Unit_tuple const* factors, std::size_t count) {
    Units unit = C_Empty;
    std::copy_n(factors, count, unit.tuples);
    return unit;
}

template <typename Quantity>
void Register_factors(char const* who, std::size_t count) {
    Quantity const quantity(5.0, First_factors(source_factors, count), 4.0, 6.0);
    Units const target = First_factors(target_factors, count);
    Register("growth_factors_" + std::to_string(count) + '/' + who, [quantity, target]() mutable {
        benchmark::DoNotOptimize(quantity);
        benchmark::DoNotOptimize(target);
        Quantity result = quantity.Convert_to(target);
        benchmark::DoNotOptimize(result);
    });
}

// `convert` takes the numbers, the room for the results, and the count.
template <typename Convert>
void Register_length(char const* who, std::size_t count, Convert const& convert) {
    std::vector<double> const numbers(count, 12.5);
    Register("growth_numbers_" + std::to_string(count) + '/' + who,
             [numbers, results = numbers, convert]() mutable {
                 convert(numbers.data(), results.data(), numbers.size());
                 benchmark::DoNotOptimize(results.data());
                 benchmark::ClobberMemory();
             });
}

} // namespace

void Register_growth() {
    for (std::size_t count = 1; count <= Value_detail::Tuple_count; ++count) {
        Register_factors<Value_object<double>>("ours", count);
        Register_factors<Measurement>("measurement", count);
    }
    Units const foot = {SPL_NONE, NO_PREFIX, {{FOOT, 1}}};
    Value_converter<double> const by_rules(foot, C_Meter);
    Measurement_converter const nearest(foot, C_Meter);
    for (std::size_t count = 1; count <= 1000000; count *= 10) {
        Register_length("ours", count,
                        [by_rules](double const* from, double* to, std::size_t size) {
                            by_rules.Convert(from, to, size);
                        });
        Register_length("measurement", count,
                        [nearest](double const* from, double* to, std::size_t size) {
                            nearest.Convert_numbers(from, to, size);
                        });
    }
}

} // namespace Benchmarks
