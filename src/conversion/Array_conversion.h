// Conversion of arrays of numbers.

#ifndef VARNIX_VALUE_ARRAY_CONVERSION_H
#define VARNIX_VALUE_ARRAY_CONVERSION_H

#include "conversion/Formulas.h"

#include <cstddef>

namespace Varnix::Value {

// `count` numbers from `in` to `out`, which are equal or do not overlap.
void Convert_array(Conversion_steps const& steps, double const* in, double* out,
                   std::size_t count) noexcept;

} // namespace Varnix::Value

#endif
