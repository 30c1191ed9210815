// The functions of the header that deal with units, and with the version.

#include "Failures.h"
#include "Structs.h"

#include <value_object.h>

#include <varnix/value/Text_parsing.h>
#include <varnix/value/Unit_kinds.h>

using namespace Varnix::Value;
using namespace Varnix::Value::C;

namespace {

// As a quantity is given its unit: checked, and in canonical order.
Units Checked_unit_at(vo_unit const* unit) {
    return Value_object<double>(0.0, Unit_at(unit), 0.0, 0.0).Get_unit();
}

Value_object<double> One_at(vo_unit const* unit) {
    return {1.0, Unit_at(unit), 1.0, 1.0};
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
        Value_object<double> one = One_at(first);
        one *= One_at(second);
        Store(one.Get_unit(), product);
    });
}

vo_status vo_unit_divide(vo_unit const* first, vo_unit const* second, vo_unit* quotient,
                         vo_fault* fault) {
    return Guarded(fault, [&] {
        Value_object<double> one = One_at(first);
        one /= One_at(second);
        Store(one.Get_unit(), quotient);
    });
}
