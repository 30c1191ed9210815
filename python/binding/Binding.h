// What the parts of the Python module share: how arguments are read, how failures are raised, and
// which function defines which part.

#ifndef VARNIX_VALUE_PYTHON_BINDING_H
#define VARNIX_VALUE_PYTHON_BINDING_H

#include <varnix/value/Measurement_text.h>

#include <pybind11/pybind11.h>

#include <cstring>
#include <new>
#include <string>
#include <string_view>
#include <typeinfo>

namespace Varnix::Value::Python {

namespace py = pybind11;

// ---- Failures

void Define_failures(py::module_& module);

// Raises the exception class NAME of varnix_value.failures, made from the arguments.
[[noreturn]] void Raise(char const* name, py::tuple const& arguments);

// Raises TextNotValid for `text`, with the position in characters.
[[noreturn]] void Raise_text_not_valid(Text_fault const& fault, std::string_view text);

// ---- Arguments

// The text; TypeError where the argument is none.
std::string_view Text_of(py::handle argument);

// Whether the argument is a whole number: of Python or of numpy, and neither an array nor a truth.
bool Is_whole(py::handle argument);

// Whether the argument is a real number: of Python or of numpy, and no array. What cannot be a double,
// 2**53 + 1 or a fraction, is refused with ValueError: rounding it would take the certainty from
// the bounds.
bool Is_number(py::handle argument, double& number);

// The number; TypeError where the argument is none.
double Number_of(py::handle argument);

// A Unit or its text.
Measurement_unit Unit_of(py::handle argument);

// The same where no difference can be meant.
Units Plain_unit_of(py::handle argument);

// A Quantity or its text.
Measurement Quantity_of(py::handle argument);

// The same, or a plain number: what a function takes.
Measurement Operand_of(py::handle argument);

// Whether a text is all there is of what an object is made from; TypeError where that is neither a
// text nor a number with its unit, and no bounds or both.
bool Is_text_alone(py::handle value, py::handle unit, py::handle lower, py::handle upper);

// The quantity that a text describes.
Measurement Read_quantity(std::string_view text);

// ---- Objects: how they are copied, pickled and made without their constructor

// Every field of a unit, in numbers that mean the same everywhere.
py::tuple State_of(Units const& unit);
Units Unit_from_state(py::tuple const& state);

// What `from_state` makes of a state; ValueError where that was not written by `what`.
template <typename From_state>
auto Restored(char const* what, From_state const& from_state) {
    try {
        return from_state();
    } catch (py::cast_error const&) {
        throw py::value_error(std::string("not the state of ") + what);
    }
}

// Of a class whose objects are taken for no other class's: Python assigns `__class__` where the two
// are of one size and add nothing to the base that they share.
inline py::custom_type_setup Of_a_size_of_its_own() {
    return py::custom_type_setup([](PyHeapTypeObject* type) {
        type->ht_type.tp_basicsize += static_cast<Py_ssize_t>(sizeof(void*));
    });
}

// Defines how an object that cannot be changed is copied, and pickled by each protocol.
template <typename Value>
void Define_copies(py::class_<Value>& defined, py::tuple (*state_of)(Value const&),
                   Value (*from_state)(py::tuple const&)) {
    defined.def("__copy__", [](py::object const& self) { return self; })
        .def("__deepcopy__", [](py::object const& self, py::object const&) { return self; })
        .def(py::pickle(state_of, from_state))
        .def("__reduce_ex__", [](py::object const& self, py::object const&) {
            py::object const make = py::module_::import("copyreg").attr("__newobj__");
            return py::make_tuple(make, py::make_tuple(self.get_type()),
                                  self.attr("__getstate__")());
        });
    // Of an object that no constructor was called for, pybind11 takes the memory as it is.
    py::detail::get_type_info(typeid(Value), true)->operator_new = [](std::size_t size) {
        return std::memset(::operator new(size), 0, size);
    };
}

// ---- The parts of the module

void Define_units(py::module_& module);
void Define_quantities(py::module_& module);
void Define_formulas(py::module_& module);
void Define_converters(py::module_& module);
void Define_rule_values(py::module_& module);

} // namespace Varnix::Value::Python

#endif
