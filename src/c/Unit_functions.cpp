// The functions of the header that deal with units, and with the version.

#include "Failures.h"
#include "Structs.h"

#include <value_object.h>

#include <varnix/value/Engineering_units.h>
#include <varnix/value/Measurement.h>
#include <varnix/value/Text_parsing.h>
#include <varnix/value/Unit_kinds.h>

#include <algorithm>
#include <iterator>

using namespace Varnix::Value;
using namespace Varnix::Value::C;

namespace {

// Checked, and in canonical order.
Units Checked_unit_at(vo_unit const* unit) {
    return Arranged(Unit_at(unit));
}

bool Is_beyond_core(Units const& unit) {
    return std::any_of(std::begin(unit.tuples), std::end(unit.tuples),
                       [](Unit_tuple const& tuple) { return tuple.unit >= NEWTON; });
}

// What `operation` makes of one of each: by the rules of the core where it has both units, and by
// measurements elsewhere.
template <typename Operation>
Units Combined(vo_unit const* first, vo_unit const* second, Operation const& operation) {
    Units const left = Unit_at(first);
    Units const right = Unit_at(second);
    if (Is_beyond_core(left) || Is_beyond_core(right)) {
        Measurement one(1.0, left);
        operation(one, Measurement(1.0, right));
        return one.Get_unit();
    }
    Value_object<double> one(1.0, left, 1.0, 1.0);
    operation(one, Value_object<double>(1.0, right, 1.0, 1.0));
    return one.Get_unit();
}

} // namespace

int vo_version() {
    return VALUE_OBJECT_VERSION_NUMBER;
}

vo_status vo_unit_parse(char const* text, vo_unit* unit, vo_fault* fault) {
    return Guarded(fault, [&] { Store(Parse_unit(Text_at(text)), unit); });
}

vo_status vo_unit_parse_scpi(char const* text, vo_unit* unit, vo_fault* fault) {
    return Guarded(fault, [&] { Store(Parse_unit(Text_at(text), Dialect::scpi), unit); });
}

vo_status vo_unit_format(vo_unit const* unit, char* buffer, std::size_t size, std::size_t* length,
                         vo_fault* fault) {
    return Guarded(fault,
                   [&] { Store_text(Format_unit(Checked_unit_at(unit)), buffer, size, length); });
}

vo_status vo_unit_kind(vo_unit const* unit, char* buffer, std::size_t size, std::size_t* length,
                       vo_fault* fault) {
    return Guarded(fault,
                   [&] { Store_text(Kind_name(Checked_unit_at(unit)), buffer, size, length); });
}

vo_status vo_unit_same_kind(vo_unit const* first, vo_unit const* second, int* same,
                            vo_fault* fault) {
    return Guarded(fault, [&] {
        bool const answer = Same_kind(Checked_unit_at(first), Checked_unit_at(second));
        At(same, "there is no place for the answer: a null pointer") = answer ? 1 : 0;
    });
}

vo_status vo_unit_multiply(vo_unit const* first, vo_unit const* second, vo_unit* product,
                           vo_fault* fault) {
    return Guarded(fault, [&] {
        Store(Combined(first, second, [](auto& x, auto const& y) { x *= y; }), product);
    });
}

vo_status vo_unit_divide(vo_unit const* first, vo_unit const* second, vo_unit* quotient,
                         vo_fault* fault) {
    return Guarded(fault, [&] {
        Store(Combined(first, second, [](auto& x, auto const& y) { x /= y; }), quotient);
    });
}
