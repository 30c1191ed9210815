// Throwing out of line: the code around a failure that hardly ever happens stays small and fast.

#ifndef VARNIX_VALUE_THROW_H
#define VARNIX_VALUE_THROW_H

#include <varnix/value/exceptions.h>

#include <stdexcept>

namespace Varnix::Value {

// Throws a default-constructed Exception.
template <typename Exception>
[[noreturn, gnu::cold, gnu::noinline]] void Throw() {
    throw Exception();
}

[[noreturn, gnu::cold, gnu::noinline]] inline void Throw_out_of_range() {
    throw std::out_of_range("Value is out of range");
}

} // namespace Varnix::Value

#endif
