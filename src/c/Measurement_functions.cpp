// The functions of the header that deal with measurements.

#include "Failures.h"
#include "Structs.h"

#include <value_object.h>

#include <varnix/value/Levels.h>
#include <varnix/value/Measurement.h>
#include <varnix/value/Measurement_text.h>

using namespace Varnix::Value;
using namespace Varnix::Value::C;

namespace {

vo_order Order_in_c(Order order) {
    switch (order) {
    case Order::less:
        return VO_LESS;
    case Order::equal:
        return VO_EQUAL;
    case Order::greater:
        return VO_GREATER;
    default:
        return VO_UNDECIDED;
    }
}

vo_verdict Verdict_in_c(Verdict verdict) {
    switch (verdict) {
    case Verdict::pass:
        return VO_PASS;
    case Verdict::fail:
        return VO_FAIL;
    default:
        return VO_VERDICT_UNDECIDED;
    }
}

} // namespace

vo_status vo_measurement_make(double value, double lower, double upper, vo_unit const* unit,
                              vo_measurement* made, vo_fault* fault) {
    return Guarded(fault, [&] { Store(Measurement(value, Unit_at(unit), lower, upper), made); });
}

vo_status vo_measurement_parse(char const* text, vo_measurement* read, vo_fault* fault) {
    return Guarded(fault, [&] { Store(Parse_measurement(Text_at(text)), read); });
}

vo_status vo_measurement_format(vo_measurement const* x, char const* format, char* buffer,
                                std::size_t size, std::size_t* length, vo_fault* fault) {
    return Guarded(fault, [&] {
        Store_text(Format(Measurement_at(x), Format_at(format)), buffer, size, length);
    });
}

vo_status vo_measurement_convert(vo_measurement const* x, vo_unit const* target,
                                 vo_measurement* converted, vo_fault* fault) {
    return Guarded(fault, [&] { Store(Measurement_at(x).Convert_to(Unit_at(target)), converted); });
}

vo_status vo_measurement_convert_with(vo_measurement const* x, vo_unit const* target,
                                      vo_measurement const* with, vo_measurement* converted,
                                      vo_fault* fault) {
    return Guarded(fault, [&] {
        Store(Measurement_at(x).Convert_to(Unit_at(target), Measurement_at(with)), converted);
    });
}

vo_status vo_measurement_simplify(vo_measurement const* x, vo_measurement* simplified,
                                  vo_fault* fault) {
    return Guarded(fault, [&] { Store(Simplified(Measurement_at(x)), simplified); });
}

vo_status vo_measurement_add(vo_measurement const* x, vo_measurement const* y, vo_measurement* sum,
                             vo_fault* fault) {
    return Guarded(fault, [&] { Store(Measurement_at(x) + Measurement_at(y), sum); });
}

vo_status vo_measurement_subtract(vo_measurement const* x, vo_measurement const* y,
                                  vo_measurement* difference, vo_fault* fault) {
    return Guarded(fault, [&] { Store(Measurement_at(x) - Measurement_at(y), difference); });
}

vo_status vo_measurement_multiply(vo_measurement const* x, vo_measurement const* y,
                                  vo_measurement* product, vo_fault* fault) {
    return Guarded(fault, [&] { Store(Measurement_at(x) * Measurement_at(y), product); });
}

vo_status vo_measurement_divide(vo_measurement const* x, vo_measurement const* y,
                                vo_measurement* quotient, vo_fault* fault) {
    return Guarded(fault, [&] { Store(Measurement_at(x) / Measurement_at(y), quotient); });
}

vo_status vo_measurement_amplify(vo_measurement const* x, vo_measurement const* gain,
                                 vo_measurement* amplified, vo_fault* fault) {
    return Guarded(fault,
                   [&] { Store(Amplify(Measurement_at(x), Measurement_at(gain)), amplified); });
}

vo_status vo_measurement_power_sum(vo_measurement const* x, vo_measurement const* y,
                                   vo_measurement* sum, vo_fault* fault) {
    return Guarded(fault, [&] { Store(Power_sum({Measurement_at(x), Measurement_at(y)}), sum); });
}

vo_status vo_measurement_compare(vo_measurement const* x, vo_measurement const* y, vo_order* order,
                                 vo_fault* fault) {
    return Guarded(fault, [&] {
        vo_order const result = Order_in_c(Compare(Measurement_at(x), Measurement_at(y)));
        At(order, "there is no place for the order: a null pointer") = result;
    });
}

vo_status vo_measurement_check_limits(vo_measurement const* x, vo_measurement const* low,
                                      vo_measurement const* high, vo_verdict* verdict,
                                      vo_fault* fault) {
    return Guarded(fault, [&] {
        vo_verdict const result = Verdict_in_c(
            Check_limits(Measurement_at(x), Measurement_at(low), Measurement_at(high)));
        At(verdict, "there is no place for the verdict: a null pointer") = result;
    });
}
