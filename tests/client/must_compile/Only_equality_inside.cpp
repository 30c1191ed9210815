// A program that defines `==` of descriptors alone can ask `!=`, too.

#include <varnix/value/Value_object.h>

namespace Varnix::Value {

inline bool operator==(Units const& first, Units const& second) {
    return Units_library::Compare_units(first, second, false);
}

} // namespace Varnix::Value

bool Is_other(Varnix::Value::Units const& unit) {
    return unit != Varnix::Value::C_Meter;
}
