// The short way from levels to linear quantities, beside the powers of ten of Enclosed.h.

#ifndef VARNIX_VALUE_MEASUREMENT_SHORT_POWER_H
#define VARNIX_VALUE_MEASUREMENT_SHORT_POWER_H

#include "Short_ways.h"

#include <varnix/value/Measurement.h>

namespace Varnix::Value::Physics {

// 10^(x / step + tens) of the numbers of x, for a step of 10 or 20. Declines infinite bounds,
// results near the ends of the doubles, and results too close to a double or to the middle of two
// to tell, exact powers among them. Where it answers, the answer is that of the enclosing
// arithmetic to the bit.
bool Short_power(Measurement const& x, int step, int tens, Numbers& power);

} // namespace Varnix::Value::Physics

#endif
