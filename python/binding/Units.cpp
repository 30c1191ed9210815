// Unit: a unit of the catalogue or composed of them.

#include "Binding.h"

#include <varnix/value/Text_formatting.h>
#include <varnix/value/Unit_kinds.h>

#include <pybind11/operators.h>

namespace Varnix::Value::Python {

namespace {

Units Make_unit(py::object const& text) {
    return Plain_unit_of(text);
}

std::string Representation(Units const& unit) {
    return "Unit(" + py::repr(py::str(Format_unit(unit))).cast<std::string>() + ")";
}

} // namespace

void Define_units(py::module_& module) {
    py::class_<Units> unit(module, "Unit", Of_a_size_of_its_own(), R"(A unit, read from its text.

>>> Unit("km/h")
Unit('km/h')
>>> Unit("km/h").kind
'length/time'
>>> Unit("dBm").name
'dBmilliwatts'

Units are equal where they are the same in every field: km and m are not. They are immutable,
hashable, and can be copied and pickled.
)");
    unit.def(py::init(&Make_unit), py::arg("text"),
             "The unit that the text names. Raises TextNotValid, a ValueError, for any other text.")
        .def_property_readonly("kind", &Kind_name, R"(The kind of quantity in words.

>>> Unit("V^2/ohm").kind
'power'
)")
        .def_property_readonly(
            "name", [](Units const& self) { return Format_unit(self, STR_NAME); },
            R"(The unit in full words.

>>> Unit("kW").name
'kilowatts'
)")
        .def("__str__", [](Units const& self) { return Format_unit(self); })
        .def("__repr__", &Representation)
        .def(py::self == py::self)
        .def(py::self != py::self)
        .def("__hash__", [](Units const& self) { return py::hash(State_of(self)); });
    Define_copies(unit, &State_of, &Unit_from_state);

    module.def(
        "same_kind",
        [](py::object const& first, py::object const& second) {
            return Same_kind(Plain_unit_of(first), Plain_unit_of(second));
        },
        py::arg("first"), py::arg("second"), R"(Whether two units measure the same kind of quantity.

>>> same_kind("dBm", "V^2/ohm")
True
>>> same_kind("m", "m/s")
False
)");
}

} // namespace Varnix::Value::Python
