// Convert_to with value and both bounds, against a UDUNITS-2 converter asked for, used on three
// numbers and freed. Both sides have their units ready beforehand.

#include "Our_jobs.h"
#include "Registration.h"
#include "Udunits.h"

#include <cmath>
#include <stdexcept>
#include <vector>

namespace Benchmarks {

namespace {

// A comparison is worth something only if both sides compute the same. The libraries' constants
// differ by some parts in a million.
void Check_same_result(Conversion_pair const& pair) {
    Quantity const result = With_bounds(pair.value, pair.source).Convert_to(pair.target);
    Numbers const expected =
        Convert_once(Udunits_unit(pair.udunits_source), Udunits_unit(pair.udunits_target),
                     Numbers_with_bounds(pair.value));
    auto const close = [](double a, double b) { return std::abs(a - b) < 1e-4 * std::abs(b); };
    if (!close(result.Get_value(), expected.value) ||
        !close(result.Get_minus_err(), expected.lower) ||
        !close(result.Get_plus_err(), expected.upper)) {
        throw std::logic_error(std::string("different results for ") + pair.job);
    }
}

auto Udunits_conversion(Conversion_pair const& pair) {
    return [numbers = Numbers_with_bounds(pair.value), from = Udunits_unit(pair.udunits_source),
            to = Udunits_unit(pair.udunits_target)]() mutable {
        benchmark::DoNotOptimize(numbers);
        benchmark::DoNotOptimize(from);
        benchmark::DoNotOptimize(to);
        Numbers result = Convert_once(from, to, numbers);
        benchmark::DoNotOptimize(result);
    };
}

// ---- Pairs in random order, one conversion a time

auto Our_mixed_conversion() {
    std::vector<Quantity> quantities;
    std::vector<Units> targets;
    for (Conversion_pair const& pair : conversion_pairs) {
        quantities.push_back(With_bounds(pair.value, pair.source));
        targets.push_back(pair.target);
    }
    return [quantities, targets, order = Shuffled_order(), position = std::size_t(0)]() mutable {
        std::size_t const pair = order[position++ % Order_length];
        benchmark::DoNotOptimize(quantities[pair]);
        benchmark::DoNotOptimize(targets[pair]);
        Quantity result = quantities[pair].Convert_to(targets[pair]);
        benchmark::DoNotOptimize(result);
    };
}

auto Udunits_mixed_conversion() {
    std::vector<Numbers> numbers;
    std::vector<ut_unit*> sources;
    std::vector<ut_unit*> targets;
    for (Conversion_pair const& pair : conversion_pairs) {
        numbers.push_back(Numbers_with_bounds(pair.value));
        sources.push_back(Udunits_unit(pair.udunits_source));
        targets.push_back(Udunits_unit(pair.udunits_target));
    }
    return
        [numbers, sources, targets, order = Shuffled_order(), position = std::size_t(0)]() mutable {
            std::size_t const pair = order[position++ % Order_length];
            benchmark::DoNotOptimize(numbers[pair]);
            Numbers result = Convert_once(sources[pair], targets[pair], numbers[pair]);
            benchmark::DoNotOptimize(result);
        };
}

// Ours throws and the exception is caught; UDUNITS-2 is asked first and says no.
auto Udunits_rejection() {
    return [from = Udunits_unit("m"), to = Udunits_unit("s")]() mutable {
        benchmark::DoNotOptimize(from);
        benchmark::DoNotOptimize(to);
        int result = ut_are_convertible(from, to);
        benchmark::DoNotOptimize(result);
    };
}

} // namespace

void Register_conversion() {
    for (Conversion_pair const& pair : conversion_pairs) {
        Check_same_result(pair);
    }
    Visit_conversions(Register_ours());
    for (std::size_t i = 0; i < Single_pair_count; ++i) {
        Conversion_pair const& pair = conversion_pairs[i];
        Register(std::string(pair.job) + "/udunits", Udunits_conversion(pair));
    }
    Register("reject_m_to_s/udunits", Udunits_rejection());
    Register("mixed_pairs/ours", Our_mixed_conversion());
    Register("mixed_pairs/udunits", Udunits_mixed_conversion());
}

} // namespace Benchmarks
