// The functions of the header that deal with converters.

#include "Failures.h"
#include "Structs.h"

#include <value_object.h>

#include <varnix/value/Measurement_converter.h>
#include <varnix/value/Value_converter.h>

#include <variant>

using namespace Varnix::Value;
using namespace Varnix::Value::C;

/// One of the converters of C++.
struct vo_converter {
    std::variant<Measurement_converter, Value_converter<double>> converter;
};

vo_status vo_converter_create(vo_unit const* from, vo_unit const* to, int rules,
                              vo_converter** made, vo_fault* fault) {
    return Guarded(fault, [&] {
        vo_converter*& place = At(made, "there is no place for the converter: a null pointer");
        switch (rules) {
        case VO_MEASUREMENTS:
            place = new vo_converter{Measurement_converter(Unit_at(from), Unit_at(to))};
            return;
        case VO_QUANTITIES:
            place = new vo_converter{Value_converter<double>(Unit_at(from), Unit_at(to))};
            return;
        default:
            throw Invalid_argument{"the rules are neither VO_MEASUREMENTS nor VO_QUANTITIES"};
        }
    });
}

vo_status vo_converter_apply(vo_converter const* converter, double const* from, double* to,
                             std::size_t count, vo_fault* fault) {
    return Guarded(fault, [&] {
        auto const& chosen = At(converter, "the converter is a null pointer").converter;
        if (count == 0) {
            return;
        }
        double const& first = At(from, "the numbers are a null pointer");
        double& result = At(to, "there is no place for the results: a null pointer");
        if (auto const* by_measurements = std::get_if<Measurement_converter>(&chosen)) {
            by_measurements->Convert_numbers(&first, &result, count);
        } else {
            std::get<Value_converter<double>>(chosen).Convert(&first, &result, count);
        }
    });
}

void vo_converter_destroy(vo_converter* converter) {
    delete converter;
}
