#include "Number_blocks.h"

#include <cfenv>
#include <cmath>
#include <limits>

// Vectors of four doubles where the processor has them: which, is asked when the library is loaded.
// The bits are the same. The sanitizers are not there yet when that is asked.
#if defined(__x86_64__) && defined(__GLIBC__) && defined(VARNIX_VALUE_VECTORS)
#define VARNIX_VALUE_FOR_EACH_PROCESSOR __attribute__((target_clones("avx2", "default")))
#else
#define VARNIX_VALUE_FOR_EACH_PROCESSOR
#endif

namespace Varnix::Value::Physics {

using namespace Basics;

namespace {

constexpr double In_doubt = std::numeric_limits<double>::quiet_NaN();

// `answer`, where no part of the sum of two doubles that leads from or to `number` underflows or
// overflows. Without branches, as all of this, so that loops over it are vectorised.
inline double If_in_reach(double number, double answer) {
    double const magnitude = std::fabs(number);
    double const if_not_large = magnitude < 1e250 ? answer : In_doubt;
    double const if_not_small = magnitude > 1e-250 ? if_not_large : In_doubt;
    return magnitude == 0.0 ? answer : if_not_small;
}

// The sum of two doubles has some 100 bits. Where 2^-95 more or less of it make no difference, the
// rounded one is the nearest.
inline double Answer(double number, Exact_pair const& factor, Exact_pair const& offset) {
    Exact_pair const product = Exact_product(number, factor.rounded);
    Exact_pair const sum = Exact_sum(product.rounded, offset.rounded);
    double const rest = sum.rest + (product.rest + number * factor.rest + offset.rest);
    double const error = (std::fabs(product.rounded) + std::fabs(offset.rounded)) * 0x1p-95;
    double const nearest = sum.rounded + (rest + error);
    double const answer = nearest == sum.rounded + (rest - error) ? nearest + 0.0 : In_doubt;
    return If_in_reach(factor.rounded, If_in_reach(number, If_in_reach(nearest, answer)));
}

VARNIX_VALUE_FOR_EACH_PROCESSOR
void Answer_each(double const* numbers, double* __restrict answers, Exact_pair const& factor_,
                 Exact_pair const& offset_) {
    Exact_pair const factor = factor_; // where the answers cannot lie
    Exact_pair const offset = offset_;
    for (std::size_t k = 0; k < Block_size; ++k) {
        answers[k] = Answer(numbers[k], factor, offset);
    }
}

} // namespace

double Quick_answer(double number, Exact_pair const& factor, Exact_pair const& offset) {
    return Answer(number, factor, offset);
}

void Quick_answers(double const* numbers, double* answers, Exact_pair const& factor,
                   Exact_pair const& offset) {
    std::fenv_t flags;
    std::fegetenv(&flags);
    Answer_each(numbers, answers, factor, offset);
    std::fesetenv(&flags);
}

} // namespace Varnix::Value::Physics
