// The library's own single jobs, for the benchmarks and for the counting of instructions alike.
//
// Each Visit function calls `visit(name, job)` for every job of its topic.

#ifndef VALUE_OBJECT_BENCHMARKS_OUR_JOBS_H
#define VALUE_OBJECT_BENCHMARKS_OUR_JOBS_H

#include "Conversion_pairs.h"

#include <benchmark/benchmark.h>
#include <varnix/value/Value_converter.h>
#include <varnix/value/Value_object.h>

#include <string>

namespace Benchmarks {

using Quantity = Varnix::Value::Value_object<double>;
using Varnix::Value::Units;

/// `value` with bounds a tenth below and above it.
inline Quantity With_bounds(double value, Units const& unit) {
    return Quantity(value, unit, value * 0.9, value * 1.1);
}

/// A job that calls `operation(first, second)`. Both operands are opaque and so is the result.
template <typename First, typename Second, typename Operation>
auto Binary_job(First first, Second second, Operation operation) {
    return [first, second, operation]() mutable {
        benchmark::DoNotOptimize(first);
        benchmark::DoNotOptimize(second);
        auto result = operation(first, second);
        benchmark::DoNotOptimize(result);
    };
}

/// A job that calls `operation(first, second)`, which changes `first` and goes on with it.
template <typename First, typename Second, typename Operation>
auto Updating_job(First first, Second second, Operation operation) {
    return [first, second, operation]() mutable {
        benchmark::DoNotOptimize(first);
        benchmark::DoNotOptimize(second);
        operation(first, second);
        benchmark::DoNotOptimize(first);
    };
}

inline auto Rejected_conversion(Quantity const& quantity, Units const& target) {
    return Binary_job(quantity, target, [](Quantity const& from, Units const& to) {
        try {
            return from.Convert_to(to).Get_value() > 0.0;
        } catch (Varnix::Value::Value_exception const&) {
            return false;
        }
    });
}

template <typename Visit>
void Visit_conversions(Visit const& visit) {
    auto const convert = [](Quantity const& from, Units const& to) { return from.Convert_to(to); };
    for (std::size_t i = 0; i < Single_pair_count; ++i) {
        Conversion_pair const& pair = conversion_pairs[i];
        visit(pair.job, Binary_job(With_bounds(pair.value, pair.source), pair.target, convert));
    }
    visit("reject_m_to_s",
          Rejected_conversion(With_bounds(2.0, Varnix::Value::C_Meter), Varnix::Value::C_Sec));
}

template <typename Visit>
void Visit_arithmetic(Visit const& visit) {
    using namespace Varnix::Value;
    Quantity const kilometre = With_bounds(1.0, C_KMeter);
    Quantity const metres = With_bounds(500.0, C_Meter);
    Quantity const seconds = With_bounds(8.0, C_Sec);

    auto const add = [](Quantity& left, Quantity const& right) { left += right; };
    visit("add_same", Updating_job(metres, metres, add));
    visit("add_km_m", Updating_job(kilometre, metres, add));

    // The unit changes with every product, so each one begins with a copy.
    visit("multiply", Binary_job(metres, seconds, [](Quantity const& left, Quantity const& right) {
              Quantity product = left;
              product *= right;
              return product;
          }));
    visit("divide", Binary_job(metres, seconds, [](Quantity const& left, Quantity const& right) {
              Quantity quotient = left;
              quotient /= right;
              return quotient;
          }));
    auto const multiply = [](Quantity const& left, Quantity const& right) {
        Quantity product = left;
        product *= right;
        return product;
    };
    visit("multiply_ms_s", Binary_job(With_bounds(5.0, C_MeterPerSecond), seconds, multiply));
    visit("multiply_m_m", Binary_job(metres, metres, multiply));
    Quantity const energy = With_bounds(5.0, {SPL_NONE, NO_PREFIX, {{WATT, 1}, {HOUR, 1}}});
    visit("divide_Wh_h", Binary_job(energy, With_bounds(2.0, C_Hrs),
                                    [](Quantity const& left, Quantity const& right) {
                                        Quantity quotient = left;
                                        quotient /= right;
                                        return quotient;
                                    }));
    // Many factors of hardly more than one stay finite.
    visit("multiply_number",
          Updating_job(metres, 1.0 + 1e-10, [](Quantity& left, double right) { left *= right; }));

    auto const less = [](Quantity const& left, Quantity const& right) { return left < right; };
    visit("less_same", Binary_job(metres, With_bounds(600.0, C_Meter), less));
    visit("less_km_m", Binary_job(kilometre, metres, less));

    visit("construct", Binary_job(500.0, C_Meter, [](double value, Units const& unit) {
              return Quantity(value, unit, value, value);
          }));
    visit("multiply_units",
          Binary_job(C_Grams, C_MeterPerSecondSquared, Units_library::Multiply_units));
}

template <typename Visit>
void Visit_texts(Visit const& visit) {
    auto const text = [](Quantity const& quantity, Varnix::Value::Unit_string_type type) {
        return quantity.Get_unit_string(type);
    };
    visit("text_kmh",
          Binary_job(With_bounds(90.0, Varnix::Value::C_Kmph), Varnix::Value::STR_SYMBOL, text));
    visit("text_ms2", Binary_job(With_bounds(9.81, Varnix::Value::C_MeterPerSecondSquared),
                                 Varnix::Value::STR_SYMBOL, text));
}

using Converter = Varnix::Value::Value_converter<double>;

/// The pairs, of those above, for which a prepared converter is measured.
constexpr std::size_t prepared_pairs[] = {0, 2, 3}; // ft_to_m, c_to_f, dbm_to_w

template <typename Visit>
void Visit_prepared(Visit const& visit) {
    auto const convert = [](Quantity const& from, Converter const& converter) {
        return converter.Convert(from);
    };
    for (std::size_t const index : prepared_pairs) {
        Conversion_pair const& pair = conversion_pairs[index];
        visit((std::string("prepared_") + pair.job).c_str(),
              Binary_job(With_bounds(pair.value, pair.source), Converter(pair.source, pair.target),
                         convert));
    }
}

} // namespace Benchmarks

#endif
