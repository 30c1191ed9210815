// The structs of C and the objects of C++ that they stand for, and texts in buffers of the caller.

#ifndef VARNIX_VALUE_SRC_C_STRUCTS_H
#define VARNIX_VALUE_SRC_C_STRUCTS_H

#include "Failures.h"

#include <value_object.h>

#include <varnix/value/Measurement.h>
#include <varnix/value/Text_formatting.h>
#include <varnix/value/Units.h>
#include <varnix/value/Value_object.h>

#include <cstddef>
#include <string_view>

namespace Varnix::Value::C {

/// As it stands in the struct; what it is used for checks it.
/// @throws Invalid_argument for a decibel marker that is neither 0 nor 1, and for a null pointer
Units Unit_at(vo_unit const* unit);

/// @throws what the constructor throws, and as `Unit_at`
Value_object<double> Quantity_at(vo_quantity const* quantity);
/// @throws what the constructor throws, and as `Unit_at`
Measurement Measurement_at(vo_measurement const* measurement);

vo_unit Struct_of(Units const& unit) noexcept;
vo_quantity Struct_of(Value_object<double> const& quantity) noexcept;
vo_measurement Struct_of(Measurement const& measurement) noexcept;

/// Stores a result. @throws Invalid_argument if there is no place for it
template <typename Result, typename Struct>
void Store(Result const& result, Struct* place) {
    At(place, "there is no place for the result: a null pointer") = Struct_of(result);
}

/// A text of the caller. @throws Invalid_argument if there is none
std::string_view Text_at(char const* text);

/// How a quantity is to be written. @throws Invalid_argument
Text_format Format_at(char const* format);

/// Copies a text into the caller's buffer, and stores its length where that is asked for.
/// @throws Buffer_too_small, with the length stored; Invalid_argument for no buffer of some size
void Store_text(std::string_view text, char* buffer, std::size_t size, std::size_t* length);

} // namespace Varnix::Value::C

#endif
