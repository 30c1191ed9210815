// Powers of ten of levels, computed sooner than with enclosing/Elementary_functions.h.

#ifndef VARNIX_VALUE_MEASUREMENT_QUICK_POWER_H
#define VARNIX_VALUE_MEASUREMENT_QUICK_POWER_H

#include "Quick_arithmetic.h"

#include <varnix/value/Measurement.h>

namespace Varnix::Value::Physics {

// 10^(x / step + tens) of the numbers of x, for a step of 10 or 20. Declines infinite bounds,
// results near the ends of the doubles, and results too close to a double or to the middle of two
// to tell, which exact powers are. An answer is that of the enclosing arithmetic to the bit.
bool Quick_power(Measurement const& x, int step, int tens, Rounded_numbers& power);

} // namespace Varnix::Value::Physics

#endif
