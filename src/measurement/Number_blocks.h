// Many numbers through a factor and an offset, each to the nearest double, a block at a time.

#ifndef VARNIX_VALUE_MEASUREMENT_NUMBER_BLOCKS_H
#define VARNIX_VALUE_MEASUREMENT_NUMBER_BLOCKS_H

#include "basics/Error_free.h"

#include <cstddef>

namespace Varnix::Value::Physics {

using Basics::Exact_pair;

constexpr std::size_t Block_size = 256;

// number * factor + offset, each of both in two parts, as the nearest double; NaN where that is
// not certain: next to the middle of two doubles, and for numbers that are not finite, very large
// or very small.
double Quick_answer(double number, Exact_pair const& factor, Exact_pair const& offset);

// The quick answers to Block_size numbers. The processor's flags of floating-point exceptions stay
// as they were: numbers that are none say nothing here of the results.
void Quick_answers(double const* numbers, double* answers, Exact_pair const& factor,
                   Exact_pair const& offset);

} // namespace Varnix::Value::Physics

#endif
