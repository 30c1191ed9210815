// Quantity: a measurement, with the operators of Python.

#include "Binding.h"

#include <varnix/value/Levels.h>
#include <varnix/value/Measurement.h>
#include <varnix/value/Text_formatting.h>

#include <algorithm>
#include <cmath>

namespace Varnix::Value::Python {

namespace {

// ---- Making one

Measurement Made(double value, Measurement_unit const& unit, double lower, double upper) {
    return unit.is_difference ? Measurement::Difference(value, unit.unit, lower, upper)
                              : Measurement(value, unit.unit, lower, upper);
}

// `text` alone, or a number with its unit and perhaps both bounds.
Measurement Make(py::object const& value, py::object const& unit, py::object const& lower,
                 py::object const& upper, bool as_difference) {
    if (Is_text_alone(value, unit, lower, upper)) {
        Measurement const read = Read_quantity(Text_of(value));
        return as_difference ? read.As_difference() : read;
    }
    Measurement_unit read = Unit_of(unit);
    read.is_difference = read.is_difference || as_difference;
    double const number = Number_of(value);
    return Made(number, read, lower.is_none() ? number : Number_of(lower),
                upper.is_none() ? number : Number_of(upper));
}

Measurement Make_quantity(py::object const& value, py::object const& unit, py::object const& lower,
                          py::object const& upper) {
    return Make(value, unit, lower, upper, false);
}

Measurement Make_difference(py::object const& value, py::object const& unit,
                            py::object const& lower, py::object const& upper) {
    Measurement const difference = Make(value, unit, lower, upper, true);
    if (!difference.Is_difference()) {
        throw MeasurementRefused(Refusal::temperature_role,
                                 Format(difference) +
                                     " is no temperature; only temperatures have two meanings");
    }
    return difference;
}

Measurement Make_between(py::object const& lower, py::object const& upper, py::object const& unit) {
    Measurement_unit const read = Unit_of(unit);
    double const least = Number_of(lower);
    double const greatest = Number_of(upper);
    if (!read.is_difference) {
        return Measurement::Between(least, greatest, read.unit);
    }
    return Made(Measurement::Between(least, greatest, C_Kelvin).Get_value(), read, least, greatest);
}

// ---- Texts

std::string Number_text(double number) {
    return std::isinf(number) ? (number < 0.0 ? "float('-inf')" : "float('inf')")
                              : py::repr(py::float_(number)).cast<std::string>();
}

// Reads back to the same bits: decimals as a text, and doubles as numbers, as "0.1 V" is no double.
std::string Representation(Measurement const& x) {
    if (x.Get_decimal_code() != 0) {
        return "Quantity(" + py::repr(py::str(Format(x))).cast<std::string>() + ")";
    }
    std::string text = "Quantity(" + Number_text(x.Get_value()) + ", " +
                       py::repr(py::str(Format_unit(x))).cast<std::string>();
    if (x.Get_lower() != x.Get_value() || x.Get_upper() != x.Get_value()) {
        text += ", " + Number_text(x.Get_lower()) + ", " + Number_text(x.Get_upper());
    }
    return text + ")";
}

std::string Html(Measurement const& x) {
    std::string const whole = Format(x);
    py::object const escape = py::module_::import("html").attr("escape");
    return "<span title=\"" + escape(Representation(x)).cast<std::string>() + "\">" +
           escape(whole).cast<std::string>() + "</span>";
}

std::string Formatted(Measurement const& x, std::string const& format) {
    Text_format read;
    if (!Try_read_text_format(format, read)) {
        throw py::value_error(
            "'" + format +
            "' is no format of quantities, which is [.N | .Nf | b][p | ~][k]: 'bp' for 5.00 ± "
            "0.10 V; the numbers alone (q.value) take Python's formats");
    }
    return Format(x, read);
}

// ---- Conversion

Measurement Convert(Measurement const& x, py::object const& unit, py::object const& with) {
    Measurement_unit const target = Unit_of(unit);
    Measurement const converted =
        with.is_none() ? x.Convert_to(target.unit) : x.Convert_to(target.unit, Quantity_of(with));
    if (target.is_difference && !converted.Is_difference()) {
        throw MeasurementRefused(Refusal::temperature_role,
                                 "cannot convert " + Format(x) +
                                     ", a point of a temperature scale, to a difference");
    }
    return converted;
}

// ---- Equality, which asks whether two are the same in every field, and the hash that goes with it

py::tuple State_of_quantity(Measurement const& x) {
    return py::make_tuple(x.Get_value(), State_of(x.Get_unit()), x.Get_lower(), x.Get_upper(),
                          x.Is_difference(), x.Get_decimal_code());
}

Measurement Quantity_from_state(py::tuple const& state) {
    if (state.size() != 5 && state.size() != 6) { // 5 by versions without decimals
        throw py::value_error("not the state of a quantity");
    }
    return Restored("a quantity", [&] {
        std::int32_t const code = state.size() == 6 ? state[5].cast<std::int32_t>() : 0;
        return Made(state[0].cast<double>(),
                    {Unit_from_state(state[1].cast<py::tuple>()), state[4].cast<bool>()},
                    state[2].cast<double>(), state[3].cast<double>())
            .With_decimal_code(code);
    });
}

py::object Same(Measurement const& x, py::object const& other) {
    return py::bool_(py::isinstance<Measurement>(other) &&
                     Is_same(x, other.cast<Measurement const&>()));
}

[[noreturn]] bool Refuse_order(Measurement const&, py::object const&) {
    throw py::type_error(
        "quantities have bounds, and '<' would not say whether it means certainly or possibly; use "
        "compare, certainly_less or possibly_less");
}

[[noreturn]] bool Refuse_truth(Measurement const&) {
    throw py::type_error("a quantity is neither true nor false; compare it, or ask 'is None'");
}

// ---- Arithmetic

py::object Not_implemented() {
    return py::reinterpret_borrow<py::object>(Py_NotImplemented);
}

// What `operation` makes of a quantity and another one, or a number where it takes numbers.
template <typename Operation>
py::object Joined(Measurement const& x, py::object const& other, Operation const& operation) {
    if (py::isinstance<Measurement>(other)) {
        return py::cast(operation(x, other.cast<Measurement const&>()));
    }
    double number = 0.0;
    return Is_number(other, number) ? py::cast(operation(x, number)) : Not_implemented();
}

py::object Add(Measurement const& x, py::object const& other) {
    return py::isinstance<Measurement>(other) ? py::cast(x + other.cast<Measurement const&>())
                                              : Not_implemented();
}

py::object Subtract(Measurement const& x, py::object const& other) {
    return py::isinstance<Measurement>(other) ? py::cast(x - other.cast<Measurement const&>())
                                              : Not_implemented();
}

// sum() begins with the number 0.
py::object Add_reflected(py::object const& x, py::object const& other) {
    bool const begins_sum = PyLong_CheckExact(other.ptr()) && other.equal(py::int_(0));
    return begins_sum ? x : Not_implemented();
}

py::object Multiply(Measurement const& x, py::object const& other) {
    return Joined(x, other,
                  [](Measurement const& left, auto const& right) { return left * right; });
}

py::object Divide(Measurement const& x, py::object const& other) {
    return Joined(x, other,
                  [](Measurement const& left, auto const& right) { return left / right; });
}

py::object Divide_reflected(Measurement const& x, py::object const& other) {
    double number = 0.0;
    return Is_number(other, number) ? py::cast(number / x) : Not_implemented();
}

py::object Raise_to_power(Measurement const& x, py::object const& exponent,
                          py::object const& modulus) {
    if (!Is_whole(exponent) || !modulus.is_none()) {
        return Not_implemented();
    }
    int overflow = 0; // -1 or 1
    long const power = PyLong_AsLongAndOverflow(py::int_(exponent).ptr(), &overflow);
    constexpr long beyond = 1000; // of every power that a quantity may have
    long const taken = overflow != 0 ? overflow * beyond : std::clamp(power, -beyond, beyond);
    return py::cast(Pow(x, static_cast<int>(taken)));
}

void Define_operators(py::class_<Measurement>& quantity) {
    quantity.def("__add__", &Add)
        .def("__radd__", &Add_reflected)
        .def("__sub__", &Subtract)
        .def("__mul__", &Multiply)
        .def("__rmul__", &Multiply)
        .def("__truediv__", &Divide)
        .def("__rtruediv__", &Divide_reflected)
        .def("__pow__", &Raise_to_power, py::arg("exponent"), py::arg("modulus") = py::none())
        .def("__neg__", [](Measurement const& x) { return -x; })
        .def("__pos__", [](py::object const& x) { return x; })
        .def("__abs__", [](Measurement const& x) { return Abs(x); })
        .def("__eq__", &Same)
        .def("__hash__",
             [](Measurement const& x) {
                 return py::hash(State_of_quantity(x.With_decimal_code(0)));
             })
        .def("__lt__", &Refuse_order)
        .def("__le__", &Refuse_order)
        .def("__gt__", &Refuse_order)
        .def("__ge__", &Refuse_order)
        .def("__bool__", &Refuse_truth);
    // Numpy then leaves an array times a quantity to the quantity, which refuses it.
    quantity.attr("__array_ufunc__") = py::none();
}

void Define_parts(py::class_<Measurement>& quantity) {
    quantity.def_property_readonly("value", &Measurement::Get_value, "The number, in the unit.")
        .def_property_readonly("lower", &Measurement::Get_lower,
                               "The lower bound, in the unit; -inf if unknown.")
        .def_property_readonly("upper", &Measurement::Get_upper,
                               "The upper bound, in the unit; inf if unknown.")
        .def_property_readonly("unit", &Measurement::Get_unit, "The Unit.")
        .def_property_readonly(
            "is_difference", &Measurement::Is_difference,
            "Whether it is a difference of temperatures, and not a point of a scale.");
}

void Define_conversions(py::class_<Measurement>& quantity) {
    quantity
        .def("as_difference", &Measurement::As_difference,
             R"(The same number as a difference of temperatures.

>>> print(Quantity("20 °C") + Quantity("5 K").as_difference())
25 °C
)")
        .def("as_point", &Measurement::As_point,
             "The same number as a point of its temperature scale.")
        .def("to", &Convert, py::arg("unit"), py::arg("with_") = py::none(),
             R"(The same quantity in another unit.

>>> print(f'{Quantity("98.6 °F").to("°C"):.4}')
37.00 °C
>>> print(f'{Quantity("70 dBuV [69, 71]").to("dBm", with_="50 ± 2.5 ohm"):.4f}')
-36.9897 dBm [-38.2016, -35.7669]

`with_` is the second quantity of an electrical relation: of volts, amperes, watts and ohms any two
give any third. Raises MeasurementRefused where the kinds differ.
)")
        .def("simplified", &Simplified, R"(The same quantity in the unit of SI that has a name.

>>> force = Quantity("70 kg") * Quantity("9.81 m/s^2")
>>> print(force, "is", force.simplified())
686.7 kg*m/s^2 is 686.7 N

Where there is none, as for km/h, it is returned as it is, and so are levels and temperatures.
)");
}

void Define_texts(py::class_<Measurement>& quantity) {
    quantity.def("__str__", [](Measurement const& x) { return Format(x); })
        .def("__repr__", &Representation)
        .def("__format__", &Formatted)
        .def("_repr_html_", &Html);
    Define_copies(quantity, &State_of_quantity, &Quantity_from_state);
}

} // namespace

void Define_quantities(py::module_& module) {
    py::class_<Measurement> quantity(module, "Quantity", Of_a_size_of_its_own(),
                                     R"(A number, a lower and an upper bound, and a unit.

>>> Quantity("30 dBm [29, 31]").to("W")
Quantity(1.0, 'W', 0.7943282347242815, 1.2589254117941673)
>>> print(f'{(Quantity("60 mph") * Quantity(2, "s")).to("ft"):.4~}')
176.0 ft

Every operation gives the physically right quantity, with bounds that are certain to enclose it, or
raises MeasurementRefused. Bounds are numbers in the unit and not distances. Quantities are
immutable.

`==` asks whether two are the same in every field, bounds included: 1 km and 1000 m are not. `<`
raises; compare, certainly_less and possibly_less say what is certain.
)");
    quantity
        .def(py::init(&Make_quantity), py::arg("value"), py::arg("unit") = py::none(),
             py::arg("lower") = py::none(), py::arg("upper") = py::none(),
             R"(From a text, or from a number and its unit.

>>> Quantity("5.0 ± 0.1 V") == Quantity(5.0, "V", 4.9, 5.1)
False
>>> print(Quantity(5.0, "V", 4.9, 5.1))
5 V [4.9, 5.1]

The first is not the second, as 4.9 is no double: a text keeps its decimals, a number is taken as
the double that it is. Raises TextNotValid, MeasurementRefused.
)")
        .def_static("between", &Make_between, py::arg("lower"), py::arg("upper"), py::arg("unit"),
                    R"(What lies between two numbers; the value is the middle.

>>> Quantity.between(1, 3, "V")
Quantity(2.0, 'V', 1.0, 3.0)
)");
    Define_parts(quantity);
    Define_conversions(quantity);
    Define_texts(quantity);
    Define_operators(quantity);

    module.def("Difference", &Make_difference, py::arg("value"), py::arg("unit") = py::none(),
               py::arg("lower") = py::none(), py::arg("upper") = py::none(),
               R"(A difference of temperatures: made as a Quantity, and marked.

>>> print(Difference(10, "°C").to("°F"))
18 Δ°F
>>> print(Quantity("20 °C") - Quantity("50 °F"))
10 Δ°C
)");
}

} // namespace Varnix::Value::Python
