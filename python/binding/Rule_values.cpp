// RuleValue: a Value_object with its rules, for those who check programs that use it.

#include "Binding.h"

#include <varnix/value/Engineering_units.h>
#include <varnix/value/Text_formatting.h>
#include <varnix/value/Value_object.h>

#include <functional>

namespace Varnix::Value::Python {

namespace {

using Rule_value = Value_object<double>;

Rule_value Read(std::string_view text) {
    auto const quantity = Try_parse_quantity(text);
    if (!quantity) {
        Raise_text_not_valid(quantity.Get_fault(), text);
    }
    return *quantity;
}

// A RuleValue or its text.
Rule_value Rule_value_of(py::object const& argument) {
    return py::isinstance<Rule_value>(argument) ? argument.cast<Rule_value const&>()
                                                : Read(Text_of(argument));
}

// A unit of the core, or its text.
Units Core_unit_of(py::object const& argument) {
    Units const unit = Plain_unit_of(argument);
    for (Unit_tuple const& tuple : unit.tuples) {
        if (tuple.unit >= NEWTON) {
            Raise("UnitNotDefined", py::make_tuple("rule values do not have the unit " +
                                                   Format_unit(unit) + "; a Quantity has"));
        }
    }
    return unit;
}

// A text, or a number with its unit and perhaps both bounds.
Rule_value Make_rule_value(py::object const& value, py::object const& unit, py::object const& lower,
                           py::object const& upper) {
    if (Is_text_alone(value, unit, lower, upper)) {
        return Read(Text_of(value));
    }
    double const number = Number_of(value);
    return {number, Core_unit_of(unit), lower.is_none() ? number : Number_of(lower),
            upper.is_none() ? number : Number_of(upper)};
}

Rule_value Convert(Rule_value const& x, py::object const& unit, py::object const& with) {
    Units const target = Core_unit_of(unit);
    return with.is_none() ? x.Convert_to(target)
                          : x.Convert_to_with_value(target, Rule_value_of(with));
}

std::string Representation(Rule_value const& x) {
    auto const text = [](auto const& part) {
        return py::repr(py::cast(part)).template cast<std::string>();
    };
    return "RuleValue(" + text(x.Get_value()) + ", " + text(Format_unit(x.Get_unit())) + ", " +
           text(x.Get_minus_err()) + ", " + text(x.Get_plus_err()) + ")";
}

py::tuple State_of_rule_value(Rule_value const& x) {
    return py::make_tuple(x.Get_value(), State_of(x.Get_unit()), x.Get_minus_err(),
                          x.Get_plus_err());
}

Rule_value Rule_value_from_state(py::tuple const& state) {
    if (state.size() != 4) {
        throw py::value_error("not the state of a RuleValue");
    }
    return Restored("a RuleValue", [&] {
        return Rule_value(state[0].cast<double>(), Unit_from_state(state[1].cast<py::tuple>()),
                          state[2].cast<double>(), state[3].cast<double>());
    });
}

// A comparison, which converts the left value; of anything else Python decides.
template <typename Comparison>
auto Compared(Comparison const& comparison) {
    return [comparison](Rule_value const& x, py::object const& other) -> py::object {
        if (!py::isinstance<Rule_value>(other)) {
            return py::reinterpret_borrow<py::object>(Py_NotImplemented);
        }
        return py::bool_(comparison(x, other.cast<Rule_value const&>()));
    };
}

template <typename Operation>
py::object Joined(Rule_value x, py::object const& other, Operation const& operation) {
    if (!py::isinstance<Rule_value>(other)) {
        return py::reinterpret_borrow<py::object>(Py_NotImplemented);
    }
    operation(x, other.cast<Rule_value const&>());
    return py::cast(x);
}

// A product or quotient with a quantity or with a number.
template <typename Operation>
py::object Scaled(Rule_value x, py::object const& other, Operation const& operation) {
    double number = 0.0;
    if (Is_number(other, number)) {
        operation(x, number);
        return py::cast(x);
    }
    return Joined(x, other, operation);
}

} // namespace

void Define_rule_values(py::module_& module) {
    py::class_<Rule_value> rule_value(module, "RuleValue", Of_a_size_of_its_own(),
                                      R"(A Value_object of C++: the rules of the core, to the bit.

>>> RuleValue(30.0, "dBm", 29.0, 31.0).to("W")
RuleValue(1.0, 'W', 0.7943282347242813, 1.2589254117941675)

For those who check programs that use it. Its rules are not physics throughout: the bounds of
products and quotients are no enclosure, and 5 m go to m/s as they are. Quantity is for all else.
Comparisons convert the left value, compare no bounds, and raise where the kinds differ.
)");
    rule_value
        .def(py::init(&Make_rule_value), py::arg("value"), py::arg("unit") = py::none(),
             py::arg("lower") = py::none(), py::arg("upper") = py::none())
        .def_property_readonly("value", &Rule_value::Get_value)
        .def_property_readonly("lower", &Rule_value::Get_minus_err)
        .def_property_readonly("upper", &Rule_value::Get_plus_err)
        .def_property_readonly("unit", &Rule_value::Get_unit)
        .def("to", &Convert, py::arg("unit"), py::arg("with_") = py::none())
        .def("__str__", [](Rule_value const& x) { return Format(x); })
        .def("__repr__", &Representation)
        .def("__add__",
             [](Rule_value const& x, py::object const& y) {
                 return Joined(x, y, [](auto& left, auto const& right) { left += right; });
             })
        .def("__sub__",
             [](Rule_value const& x, py::object const& y) {
                 return Joined(x, y, [](auto& left, auto const& right) { left -= right; });
             })
        .def("__mul__",
             [](Rule_value const& x, py::object const& y) {
                 return Scaled(x, y, [](auto& left, auto const& right) { left *= right; });
             })
        .def("__rmul__",
             [](Rule_value const& x, py::object const& y) {
                 return Scaled(x, y, [](auto& left, auto const& right) { left *= right; });
             })
        .def("__truediv__", [](Rule_value const& x, py::object const& y) {
            return Scaled(x, y, [](auto& left, auto const& right) { left /= right; });
        });
    rule_value.def("__eq__", Compared(std::equal_to<>()))
        .def("__ne__", Compared(std::not_equal_to<>()))
        .def("__lt__", Compared(std::less<>()))
        .def("__le__", Compared(std::less_equal<>()))
        .def("__gt__", Compared(std::greater<>()))
        .def("__ge__", Compared(std::greater_equal<>()));
    Define_copies(rule_value, &State_of_rule_value, &Rule_value_from_state);
    rule_value.attr("__array_ufunc__") = py::none();
}

} // namespace Varnix::Value::Python
