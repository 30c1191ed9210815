// What the parts of the Python module share: how arguments are read, how failures are raised, and
// which function defines which part.

#ifndef VARNIX_VALUE_PYTHON_BINDING_H
#define VARNIX_VALUE_PYTHON_BINDING_H

#include <varnix/value/Measurement_text.h>

#include <pybind11/pybind11.h>

#include <string>
#include <string_view>

namespace Varnix::Value::Python {

namespace py = pybind11;

// ---- Failures

void Define_failures(py::module_& module);

// Raises the exception class NAME of varnix_value.failures, made from the arguments.
[[noreturn]] void Raise(char const* name, py::tuple const& arguments);

// Raises TextNotValid for `text`, with the position in characters.
[[noreturn]] void Raise_text_not_valid(Text_fault const& fault, std::string_view text);

// ---- Arguments

// Whether the argument is a real number: of Python or of numpy, and no array. What is no double,
// 2**53 + 1 or a fraction, is refused with ValueError: rounding it would take the certainty from
// the bounds.
bool Is_number(py::handle argument, double& number);

// The number; TypeError where the argument is none.
double Number_of(py::handle argument);

// A unit, and whether it is meant for differences of temperatures ("Δ°C").
struct Unit_argument {
    Units unit;
    bool is_difference;
};

// A Unit or its text.
Unit_argument Unit_of(py::handle argument);

// The same where no difference can be meant.
Units Plain_unit_of(py::handle argument);

// A Quantity or its text.
Measurement Quantity_of(py::handle argument);

// The quantity that a text describes.
Measurement Read_quantity(std::string_view text);

// ---- Copies by pickle: every field of a unit, in numbers that mean the same everywhere

py::tuple State_of(Units const& unit);
Units Unit_from_state(py::tuple const& state);

// ---- The parts of the module

void Define_units(py::module_& module);
void Define_quantities(py::module_& module);
void Define_formulas(py::module_& module);
void Define_converters(py::module_& module);
void Define_rule_values(py::module_& module);

} // namespace Varnix::Value::Python

#endif
