// The functions of the header that deal with quantities of the core.

#include "Failures.h"
#include "Structs.h"

#include <value_object.h>

#include <varnix/value/Text_parsing.h>
#include <varnix/value/Value_object.h>

using namespace Varnix::Value;
using namespace Varnix::Value::C;

namespace {

vo_order Order_of(double first, double second) {
    return first < second    ? VO_LESS
           : first > second  ? VO_GREATER
           : first == second ? VO_EQUAL
                             : VO_UNDECIDED;
}

} // namespace

vo_status vo_quantity_make(double value, double lower, double upper, vo_unit const* unit,
                           vo_quantity* made, vo_fault* fault) {
    return Guarded(fault,
                   [&] { Store(Value_object<double>(value, Unit_at(unit), lower, upper), made); });
}

vo_status vo_quantity_parse(char const* text, vo_quantity* read, vo_fault* fault) {
    return Guarded(fault, [&] { Store(Parse_quantity(Text_at(text)), read); });
}

vo_status vo_quantity_format(vo_quantity const* x, char const* format, char* buffer,
                             std::size_t size, std::size_t* length, vo_fault* fault) {
    return Guarded(fault, [&] {
        Store_text(Format(Quantity_at(x), Format_at(format)), buffer, size, length);
    });
}

vo_status vo_quantity_convert(vo_quantity const* x, vo_unit const* target, vo_quantity* converted,
                              vo_fault* fault) {
    return Guarded(fault, [&] { Store(Quantity_at(x).Convert_to(Unit_at(target)), converted); });
}

vo_status vo_quantity_convert_with(vo_quantity const* x, vo_unit const* target,
                                   vo_quantity const* with, vo_quantity* converted,
                                   vo_fault* fault) {
    return Guarded(fault, [&] {
        Store(Quantity_at(x).Convert_to_with_value(Unit_at(target), Quantity_at(with)), converted);
    });
}

vo_status vo_quantity_add(vo_quantity const* x, vo_quantity const* y, vo_quantity* sum,
                          vo_fault* fault) {
    return Guarded(fault, [&] { Store(Quantity_at(x) += Quantity_at(y), sum); });
}

vo_status vo_quantity_subtract(vo_quantity const* x, vo_quantity const* y, vo_quantity* difference,
                               vo_fault* fault) {
    return Guarded(fault, [&] { Store(Quantity_at(x) -= Quantity_at(y), difference); });
}

vo_status vo_quantity_multiply(vo_quantity const* x, vo_quantity const* y, vo_quantity* product,
                               vo_fault* fault) {
    return Guarded(fault, [&] { Store(Quantity_at(x) *= Quantity_at(y), product); });
}

vo_status vo_quantity_divide(vo_quantity const* x, vo_quantity const* y, vo_quantity* quotient,
                             vo_fault* fault) {
    return Guarded(fault, [&] { Store(Quantity_at(x) /= Quantity_at(y), quotient); });
}

vo_status vo_quantity_compare(vo_quantity const* x, vo_quantity const* y, vo_order* order,
                              vo_fault* fault) {
    return Guarded(fault, [&] {
        Value_object<double> const first = Quantity_at(x);
        Value_object<double> const second = Quantity_at(y);
        // As the operators compare: converted only where the units differ.
        Value_object<double> const converted =
            first.Get_unit() == second.Get_unit() ? first : first.Convert_to(second.Get_unit());
        At(order, "there is no place for the order: a null pointer") =
            Order_of(converted.Get_value(), second.Get_value());
    });
}
