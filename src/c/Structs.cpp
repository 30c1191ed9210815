#include "Structs.h"

#include <cmath>
#include <cstring>
#include <iterator>

namespace Varnix::Value::C {

// What programs in C were compiled with.
static_assert(sizeof(vo_unit) == 48 && offsetof(vo_unit, factors) == 8,
              "units have a fixed layout");
static_assert(sizeof(vo_quantity) == 72 && offsetof(vo_quantity, unit) == 24,
              "quantities have a fixed layout");
static_assert(sizeof(vo_measurement) == 80 && offsetof(vo_measurement, unit) == 24 &&
                  offsetof(vo_measurement, difference) == 72,
              "measurements have a fixed layout");
static_assert(sizeof(vo_fault) == 512 && offsetof(vo_fault, message) == 112,
              "faults have a fixed layout");
static_assert(sizeof(vo_status) == 4 && sizeof(vo_order) == 4, "enumerations are ints");

Units Unit_at(vo_unit const* unit) {
    vo_unit const& given = At(unit, "a unit is a null pointer");
    if (given.decibels != 0 && given.decibels != 1) {
        throw Invalid_argument{"the field decibels of a unit is neither 0 nor 1"};
    }
    Units read = {given.decibels == 1 ? SPL_DB : SPL_NONE, static_cast<SI_units>(given.prefix), {}};
    static_assert(std::size(decltype(given.factors){}) == Value_detail::Tuple_count,
                  "every factor is read");
    for (std::size_t k = 0; k < Value_detail::Tuple_count; ++k) {
        read.tuples[k] = {static_cast<Units_list>(given.factors[k].unit),
                          given.factors[k].exponent};
    }
    return read;
}

Value_object<double> Quantity_at(vo_quantity const* quantity) {
    vo_quantity const& given = At(quantity, "a quantity is a null pointer");
    return {given.value, Unit_at(&given.unit), given.lower, given.upper};
}

Measurement Measurement_at(vo_measurement const* measurement) {
    vo_measurement const& given = At(measurement, "a measurement is a null pointer");
    if (given.difference != 0 && given.difference != 1) {
        throw Invalid_argument{"the field difference of a measurement is neither 0 nor 1"};
    }
    Units const unit = Unit_at(&given.unit);
    Measurement const made =
        given.difference == 1 ? Measurement::Difference(given.value, unit, given.lower, given.upper)
                              : Measurement(given.value, unit, given.lower, given.upper);
    return made.With_decimal_code(given.decimals);
}

vo_unit Struct_of(Units const& unit) noexcept {
    vo_unit made = {unit.spl_conv == SPL_DB ? 1 : 0, unit.si_prefix, {}};
    for (std::size_t k = 0; k < Value_detail::Tuple_count; ++k) {
        made.factors[k] = {unit.tuples[k].unit, unit.tuples[k].exponent};
    }
    return made;
}

vo_quantity Struct_of(Value_object<double> const& quantity) noexcept {
    return {quantity.Get_value(), quantity.Get_minus_err(), quantity.Get_plus_err(),
            Struct_of(quantity.Get_unit())};
}

vo_measurement Struct_of(Measurement const& measurement) noexcept {
    return {measurement.Get_value(),
            measurement.Get_lower(),
            measurement.Get_upper(),
            Struct_of(measurement.Get_unit()),
            measurement.Is_difference() ? 1 : 0,
            measurement.Get_decimal_code()};
}

std::string_view Text_at(char const* text) {
    return &At(text, "a text is a null pointer");
}

Text_format Format_at(char const* format) {
    Text_format read;
    if (!Try_read_text_format(&At(format, "a format is a null pointer; \"\" is the default"),
                              read)) {
        throw Invalid_argument{"a format is [.N | .Nf | b][p | ~][k], with up to 100 digits"};
    }
    return read;
}

void Store_text(std::string_view text, char* buffer, std::size_t size, std::size_t* length) {
    if (buffer == nullptr && size > 0) {
        throw Invalid_argument{"a buffer is a null pointer, with a size other than 0"};
    }
    if (length != nullptr) {
        *length = text.size();
    }
    if (text.size() >= size) {
        throw Buffer_too_small();
    }
    std::memcpy(buffer, text.data(), text.size());
    buffer[text.size()] = '\0';
}

} // namespace Varnix::Value::C
