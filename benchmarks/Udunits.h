// UDUNITS-2 as a peer: its unit system, read once, and the jobs that several topics share.

#ifndef VALUE_OBJECT_BENCHMARKS_UDUNITS_H
#define VALUE_OBJECT_BENCHMARKS_UDUNITS_H

#include <benchmark/benchmark.h>
#include <udunits2.h>

#include <stdexcept>
#include <string>

namespace Benchmarks {

/// The unit system as installed, read once.
inline ut_system* Udunits_system() {
    static ut_system* const system = [] {
        ut_set_error_message_handler(ut_ignore);
        return ut_read_xml(nullptr);
    }();
    return system;
}

/// The unit `text`. It is never freed: the benchmarks hold it to the end.
inline ut_unit* Udunits_unit(char const* text) {
    ut_system* const system = Udunits_system();
    ut_unit* const unit = system != nullptr ? ut_parse(system, text, UT_UTF8) : nullptr;
    if (unit == nullptr) {
        throw std::runtime_error(std::string("UDUNITS-2 does not know ") + text);
    }
    return unit;
}

inline cv_converter* Udunits_converter(char const* source, char const* target) {
    cv_converter* const converter = ut_get_converter(Udunits_unit(source), Udunits_unit(target));
    if (converter == nullptr) {
        throw std::runtime_error(std::string("UDUNITS-2 does not convert ") + source + " to " +
                                 target);
    }
    return converter;
}

/// What a value object holds besides its unit.
struct Numbers {
    double value;
    double lower;
    double upper;
};

inline Numbers Numbers_with_bounds(double value) {
    return {value, value * 0.9, value * 1.1};
}

inline Numbers Convert_numbers(cv_converter const* converter, Numbers const& numbers) {
    return {cv_convert_double(converter, numbers.value),
            cv_convert_double(converter, numbers.lower),
            cv_convert_double(converter, numbers.upper)};
}

/// Value and bounds from one unit to another: the converter is asked for, used and freed.
inline Numbers Convert_once(ut_unit* source, ut_unit* target, Numbers const& numbers) {
    cv_converter* const converter = ut_get_converter(source, target);
    Numbers const result = Convert_numbers(converter, numbers);
    cv_free(converter);
    return result;
}

/// The same for a single number, as a job: what a sum or a comparison of unequal units takes.
inline auto Udunits_number_job(double value, char const* source, char const* target) {
    return [value, from = Udunits_unit(source), to = Udunits_unit(target)]() mutable {
        benchmark::DoNotOptimize(value);
        benchmark::DoNotOptimize(from);
        benchmark::DoNotOptimize(to);
        cv_converter* const converter = ut_get_converter(from, to);
        double result = cv_convert_double(converter, value);
        cv_free(converter);
        benchmark::DoNotOptimize(result);
    };
}

/// `operation(first, second)`, which makes a unit; the unit is freed.
template <typename Operation>
auto Udunits_product_job(char const* first, char const* second, Operation operation) {
    return [left = Udunits_unit(first), right = Udunits_unit(second), operation]() mutable {
        benchmark::DoNotOptimize(left);
        benchmark::DoNotOptimize(right);
        ut_unit* result = operation(left, right);
        benchmark::DoNotOptimize(result);
        ut_free(result);
    };
}

} // namespace Benchmarks

#endif
