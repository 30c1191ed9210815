#include "Binding.h"

#include <varnix/value/Text_formatting.h>

#include <pybind11/numpy.h>

#include <cmath>

namespace Varnix::Value::Python {

namespace {

bool Is_of(py::handle argument, py::handle numbers) {
    bool const can_be = !py::isinstance<py::array>(argument) && !PyBool_Check(argument.ptr());
    return can_be && py::isinstance(argument, numbers);
}

bool Is_real(py::handle argument) {
    static py::handle const real =
        py::object(py::module_::import("numbers").attr("Real")).release();
    return Is_of(argument, real);
}

double As_double(py::handle argument) {
    double const number = PyFloat_AsDouble(argument.ptr());
    if (PyErr_Occurred() == nullptr) {
        return number;
    }
    if (PyErr_ExceptionMatches(PyExc_OverflowError) == 0) {
        throw py::error_already_set();
    }
    PyErr_Clear();
    throw py::value_error("a number beyond the largest double is no double");
}

} // namespace

bool Is_whole(py::handle argument) {
    static py::handle const whole =
        py::object(py::module_::import("numbers").attr("Integral")).release();
    return Is_of(argument, whole);
}

bool Is_number(py::handle argument, double& number) {
    if (PyFloat_Check(argument.ptr())) {
        number = PyFloat_AS_DOUBLE(argument.ptr());
        return true;
    }
    if (!Is_real(argument)) {
        return false;
    }
    number = As_double(argument);
    if (std::isfinite(number) && !argument.equal(py::float_(number))) {
        throw py::value_error(
            py::repr(argument).cast<std::string>() +
            " is no double, and rounded it would not be certain any more; round it yourself, "
            "with bounds: Quantity.between(lower, upper, unit)");
    }
    return true;
}

double Number_of(py::handle argument) {
    double number = 0.0;
    if (!Is_number(argument, number)) {
        throw py::type_error("expected a number, found " +
                             py::repr(argument.get_type()).cast<std::string>());
    }
    return number;
}

std::string_view Text_of(py::handle argument) {
    if (!PyUnicode_Check(argument.ptr())) {
        throw py::type_error("expected a text, found " +
                             py::repr(argument.get_type()).cast<std::string>());
    }
    Py_ssize_t size = 0;
    char const* const text = PyUnicode_AsUTF8AndSize(argument.ptr(), &size);
    if (text == nullptr) {
        throw py::error_already_set(); // a lone surrogate: UnicodeEncodeError, a ValueError
    }
    return {text, static_cast<std::size_t>(size)};
}

namespace {

[[noreturn]] void Raise_not_a(char const* what, py::handle argument) {
    throw py::type_error(std::string("expected ") + what + " or its text, found " +
                         py::repr(argument.get_type()).cast<std::string>());
}

Measurement_unit Read_unit(std::string_view text) {
    if (text.empty()) {
        return {};
    }
    auto const unit = Try_parse_measurement_unit(text);
    if (!unit) {
        Raise_text_not_valid(unit.Get_fault(), text);
    }
    return *unit;
}

} // namespace

Measurement_unit Unit_of(py::handle argument) {
    if (PyUnicode_Check(argument.ptr())) {
        return Read_unit(Text_of(argument));
    }
    if (!py::isinstance<Units>(argument)) {
        Raise_not_a("a Unit", argument);
    }
    return Measurement_unit(argument.cast<Units const&>());
}

Units Plain_unit_of(py::handle argument) {
    Measurement_unit const unit = Unit_of(argument);
    if (unit.is_difference) {
        Raise("TextNotValid",
              py::make_tuple("differences of temperatures have no unit of their own; "
                             "Difference(number, unit) makes one",
                             0, Format_unit(unit.unit)));
    }
    return unit.unit;
}

bool Is_text_alone(py::handle value, py::handle unit, py::handle lower, py::handle upper) {
    if (lower.is_none() != upper.is_none()) {
        throw py::type_error(
            "a quantity has two bounds or none; an unknown one is -math.inf or math.inf");
    }
    if (unit.is_none() && (!PyUnicode_Check(value.ptr()) || !lower.is_none())) {
        throw py::type_error(
            "a quantity is made from a text, or from a number and its unit; \"\" is no unit");
    }
    return unit.is_none();
}

Measurement Read_quantity(std::string_view text) {
    try {
        return Parse_measurement(text);
    } catch (TextNotValid const& failure) {
        Raise_text_not_valid(failure.Get_fault(), text);
    }
}

Measurement Quantity_of(py::handle argument) {
    if (PyUnicode_Check(argument.ptr())) {
        return Read_quantity(Text_of(argument));
    }
    if (!py::isinstance<Measurement>(argument)) {
        Raise_not_a("a Quantity", argument);
    }
    return argument.cast<Measurement const&>();
}

Measurement Operand_of(py::handle argument) {
    double number = 0.0;
    if (Is_number(argument, number)) {
        return {number, C_Empty};
    }
    if (!PyUnicode_Check(argument.ptr()) && !py::isinstance<Measurement>(argument)) {
        throw py::type_error("expected a Quantity, its text or a number, found " +
                             py::repr(argument.get_type()).cast<std::string>());
    }
    return Quantity_of(argument);
}

// ---- States of objects

py::tuple State_of(Units const& unit) {
    py::tuple state(2 + 2 * Value_detail::Tuple_count);
    state[0] = static_cast<int>(unit.spl_conv);
    state[1] = static_cast<int>(unit.si_prefix);
    for (std::size_t k = 0; k < Value_detail::Tuple_count; ++k) {
        state[2 + 2 * k] = static_cast<int>(unit.tuples[k].unit);
        state[3 + 2 * k] = unit.tuples[k].exponent;
    }
    return state;
}

Units Unit_from_state(py::tuple const& state) {
    if (state.size() != 2 + 2 * Value_detail::Tuple_count) {
        throw py::value_error("not the state of a unit");
    }
    Units unit = C_Empty;
    Restored("a unit", [&] {
        unit.spl_conv = state[0].cast<int>() != 0 ? SPL_DB : SPL_NONE;
        unit.si_prefix = static_cast<SI_units>(state[1].cast<int>());
        for (std::size_t k = 0; k < Value_detail::Tuple_count; ++k) {
            unit.tuples[k] = {static_cast<Units_list>(state[2 + 2 * k].cast<int>()),
                              state[3 + 2 * k].cast<int>()};
        }
    });
    return Arranged(unit); // which throws where there is no such unit
}

} // namespace Varnix::Value::Python
