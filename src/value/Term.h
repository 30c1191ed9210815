// The operands of sums and products.

#ifndef VARNIX_VALUE_VALUE_TERM_H
#define VARNIX_VALUE_VALUE_TERM_H

#include "conversion/Numbers.h"
#include "value/Converted_value.h"

namespace Varnix::Value {

namespace {

// An operand or a result: numbers, and the unit they are in, which lies elsewhere.
struct Term {
    Numbers numbers;
    Units const& unit;
};

// Converts the numbers into `target` and assigns them, which orders the bounds. Returns that unit in
// canonical order: itself, or an arranged copy in `storage`.
[[gnu::noinline]] inline Units const& Convert(Numbers& numbers, Units const& from,
                                              Units const& target, Units& storage) {
    Conversion_steps steps;
    Units const& arranged = Decide_steps(steps, from, target, storage);
    numbers = After_steps(steps, numbers);
    numbers.Order();
    return arranged;
}

} // namespace

} // namespace Varnix::Value

#endif
