// Which of two exact numbers is greater, with an exact ratio between them, where enclosures of some
// hundred bits do not tell. The numbers are compared as whole numbers.

#ifndef VARNIX_VALUE_ENCLOSING_EXACT_COMPARISON_H
#define VARNIX_VALUE_ENCLOSING_EXACT_COMPARISON_H

#include "Enclosed.h"
#include "Exact_factor.h"

#include <optional>

namespace Varnix::Value::Physics {

// The sign of x * ratio - y: -1, 0 or 1. Nothing where x or y is not exact or not finite, where the
// ratio has a power of pi, and where the whole numbers have more than a thousand bits.
std::optional<int> Sign_of_difference(Enclosed const& x, Exact_factor const& ratio,
                                      Enclosed const& y);

} // namespace Varnix::Value::Physics

#endif
