// Powers of ten and logarithms of enclosed numbers.

#ifndef VARNIX_VALUE_ENCLOSING_ELEMENTARY_FUNCTIONS_H
#define VARNIX_VALUE_ENCLOSING_ELEMENTARY_FUNCTIONS_H

#include "Enclosed.h"
#include "Exact_factor.h"

namespace Varnix::Value::Physics {

Enclosed Power_of_ten(Enclosed const& x);          // 10^x; exact for whole x from 0 to 22
Enclosed Power_of_ten_less_one(Enclosed const& x); // 10^x - 1, with all digits for small x too
Enclosed Logarithm(Enclosed const& x); // log10 x of x >= 0; exact for powers of ten, -inf for zero

// log10 of an exact ratio; exact for powers of ten.
Enclosed Logarithm(Exact_factor const& factor);

} // namespace Varnix::Value::Physics

#endif
