// What becomes of a failure: nothing is thrown through a function of C.

#ifndef VARNIX_VALUE_SRC_C_FAILURES_H
#define VARNIX_VALUE_SRC_C_FAILURES_H

#include <value_object.h>

namespace Varnix::Value::C {

/// An argument that no call should have. The text is a literal.
struct Invalid_argument {
    char const* message;
};

/// A text that its buffer has no room for.
struct Buffer_too_small {};

/// To be called while an exception is handled: its status, and in `fault`, unless that is null, all
/// that is known of it. Without memory it says less.
vo_status Report(vo_fault* fault) noexcept;

/// Does what a function of C is there for.
template <typename Body>
vo_status Guarded(vo_fault* fault, Body const& body) noexcept {
    try {
        body();
        return VO_OK;
    } catch (...) {
        return Report(fault);
    }
}

/// What a pointer of the caller points to. @throws Invalid_argument if it is null
template <typename Object>
Object& At(Object* pointer, char const* message) {
    if (pointer == nullptr) {
        throw Invalid_argument{message};
    }
    return *pointer;
}

} // namespace Varnix::Value::C

#endif
