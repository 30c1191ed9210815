// Arrays through a prepared converter: of numbers, against UDUNITS-2, a plain loop and memcpy; of
// value objects, against Convert_to and UDUNITS-2. All of a kind share their memory.

#include "Loops.h"
#include "Our_jobs.h"
#include "Registration.h"
#include "Udunits.h"

#include <cstring>
#include <vector>

namespace Benchmarks {

namespace {

// ---- Numbers

constexpr std::size_t Largest_count = 1000000;

// From -50 to 50, as temperatures and levels have it.
std::vector<double> Input_numbers() {
    std::vector<double> numbers(Largest_count);
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        numbers[i] = static_cast<double>(i % 1001) * 0.1 - 50.0;
    }
    return numbers;
}

/// A job that calls `convert(in, out, count)`.
template <typename Convert>
auto Array_job(std::size_t count, Convert convert) {
    static std::vector<double> const input = Input_numbers();
    static std::vector<double> output(Largest_count);
    return [in = input.data(), out = output.data(), count, convert]() mutable {
        benchmark::DoNotOptimize(in);
        benchmark::DoNotOptimize(out);
        benchmark::DoNotOptimize(count);
        convert(in, out, count);
        benchmark::ClobberMemory();
    };
}

using Loop = void (*)(double const* in, double* out, std::size_t count);

void Register_array(Conversion_pair const& pair, std::size_t count, Loop loop) {
    std::string const job = "array_" + std::to_string(count) + "_" + pair.job;
    Converter const ours(pair.source, pair.target);
    Register(job + "/ours",
             Array_job(count, [ours](double const* in, double* out, std::size_t size) {
                 ours.Convert(in, out, size);
             }));
    cv_converter const* const peer = Udunits_converter(pair.udunits_source, pair.udunits_target);
    Register(job + "/udunits",
             Array_job(count, [peer](double const* in, double* out, std::size_t size) {
                 cv_convert_doubles(peer, in, size, out);
             }));
    Register(job + "/loop", Array_job(count, loop));
    Register(job + "/memcpy", Array_job(count, [](double const* in, double* out, std::size_t size) {
                 std::memcpy(out, in, size * sizeof(double));
             }));
}

// ---- Value objects

constexpr std::size_t Object_count = 1000;

/// A job that calls `convert(in[i])` for each of a thousand elements and keeps the results.
template <typename Element, typename Convert>
auto Elements_job(Element const& element, Convert convert) {
    std::vector<Element> const in(Object_count, element);
    return [in, out = in, convert]() mutable {
        benchmark::DoNotOptimize(in.data());
        for (std::size_t i = 0; i < Object_count; ++i) {
            out[i] = convert(in[i]);
        }
        benchmark::DoNotOptimize(out.data());
        benchmark::ClobberMemory();
    };
}

void Register_objects(Conversion_pair const& pair) {
    std::string const job = "objects_" + std::to_string(Object_count) + "_" + pair.job;
    Converter const ours(pair.source, pair.target);
    Quantity const quantity = With_bounds(pair.value, pair.source);
    Register(job + "/ours", Elements_job(quantity, [ours](Quantity const& object) {
                 return ours.Convert(object);
             }));
    Register(job + "/convert_to",
             Elements_job(quantity, [to = pair.target](Quantity const& object) {
                 return object.Convert_to(to);
             }));
    cv_converter const* const peer = Udunits_converter(pair.udunits_source, pair.udunits_target);
    Register(job + "/udunits",
             Elements_job(Numbers_with_bounds(pair.value), [peer](Numbers const& numbers) {
                 return Convert_numbers(peer, numbers);
             }));
}

} // namespace

void Register_arrays() {
    Loop const loops[] = {Loop_ft_to_m, Loop_c_to_f,
                          Loop_dbm_to_w}; // in the order of prepared_pairs
    Conversion_pair const& feet = conversion_pairs[prepared_pairs[0]];
    Conversion_pair const& celsius = conversion_pairs[prepared_pairs[1]];
    Conversion_pair const& level = conversion_pairs[prepared_pairs[2]];

    for (std::size_t const count : {std::size_t(1000), Largest_count}) {
        Register_array(feet, count, loops[0]);
        Register_array(celsius, count, loops[1]);
    }
    Register_array(level, 1000, loops[2]);
    Register_objects(feet);
    Register_objects(celsius);
}

} // namespace Benchmarks
