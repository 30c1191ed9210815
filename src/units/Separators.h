// The texts that stand between the parts of a unit string.
//
// Each module that includes this header builds a pair of its own while the library loads, so that
// no module's initialiser depends on another's having run.

#ifndef VARNIX_VALUE_SEPARATORS_H
#define VARNIX_VALUE_SEPARATORS_H

#include <string>

namespace Varnix::Value {

[[maybe_unused]] static std::string const Pow_sign = "^";    // between a unit and its exponent
[[maybe_unused]] static std::string const Divide_sign = "/"; // between numerator and denominator

} // namespace Varnix::Value

#endif
