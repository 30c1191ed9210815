// Functions of quantities: order, powers, levels, reflections and noise.

#include "Binding.h"

#include <varnix/value/Levels.h>
#include <varnix/value/Radio_formulas.h>

#include <vector>

namespace Varnix::Value::Python {

namespace {

// ---- Arguments

template <typename>
using Any = py::object const&;

// A function of quantities as one of whatever stands for a quantity.
template <typename Result, typename... Quantities>
auto Taking_all(Result (*function)(Quantities...)) {
    return [function](Any<Quantities>... arguments) { return function(Operand_of(arguments)...); };
}

// Several of something; a text is one.
py::iterable Several(char const* what, py::object const& argument) {
    if (PyUnicode_Check(argument.ptr()) || !py::isinstance<py::iterable>(argument)) {
        throw py::type_error(std::string("expected several ") + what + ", as in a list, found " +
                             py::repr(argument.get_type()).cast<std::string>());
    }
    return argument;
}

// ---- Order

// The members of the enumerations in varnix_value.order, which Python's own class makes.
py::object Member(char const* enumeration, char const* name) {
    return py::module_::import("varnix_value.order").attr(enumeration).attr(name);
}

py::object Order_of(Measurement const& x, Measurement const& y) {
    constexpr char const* names[] = {"LESS", "EQUAL", "GREATER", "UNDECIDED"};
    return Member("Order", names[static_cast<std::size_t>(Compare(x, y))]);
}

py::object Verdict_on(Measurement const& x, Measurement const& low, Measurement const& high) {
    constexpr char const* names[] = {"PASS", "FAIL", "UNDECIDED"};
    return Member("Verdict", names[static_cast<std::size_t>(Check_limits(x, low, high))]);
}

void Define_order(py::module_& module) {
    module.def("compare", Taking_all(&Order_of), py::arg("x"), py::arg("y"),
               R"(What is certain of the order of two quantities.

>>> compare(Quantity("1 km"), Quantity("999 m"))
<Order.GREATER: 'greater'>
>>> compare(Quantity("1.0 ± 0.1 km"), Quantity("999 m"))
<Order.UNDECIDED: 'undecided'>
)");
    module.def("certainly_less", Taking_all(&Certainly_less), py::arg("x"), py::arg("y"),
               "Whether x < y wherever they are.");
    module.def("possibly_less", Taking_all(&Possibly_less), py::arg("x"), py::arg("y"),
               "Whether x < y somewhere.");
    module.def("certainly_equal", Taking_all(&Certainly_equal), py::arg("x"), py::arg("y"),
               "Whether both are one number.");
    module.def("possibly_equal", Taking_all(&Possibly_equal), py::arg("x"), py::arg("y"),
               "Whether their bounds meet.");
    module.def("check_limits", Taking_all(&Verdict_on), py::arg("x"), py::arg("low"),
               py::arg("high"),
               R"(Whether x keeps its limits, ends included.

>>> check_limits(Quantity("5.02 ± 0.01 V"), Quantity("4.75 V"), Quantity("5.25 V"))
<Verdict.PASS: 'pass'>
)");
}

// ---- Functions of one or two quantities

void Define_functions(py::module_& module) {
    module.def("sqrt", Taking_all(&Sqrt), py::arg("x"), "The square root.");
    module.def("hull", Taking_all(&Hull), py::arg("x"), py::arg("y"),
               "From the lesser lower bound to the greater upper one.");
    module.def("intersection", Taking_all(&Intersection), py::arg("x"), py::arg("y"),
               "What both allow.");
}

std::vector<Measurement> All_of(py::object const& levels) {
    std::vector<Measurement> all;
    for (py::handle const level : Several("levels", levels)) {
        all.push_back(Operand_of(level));
    }
    return all;
}

void Define_levels(py::module_& module) {
    module.def("amplify", Taking_all(&Amplify), py::arg("x"), py::arg("gain"),
               R"(What comes out where x goes in.

>>> print(amplify("2 V", "20 dB"))
20 V
)");
    module.def("power_ratio", Taking_all(&Power_ratio), py::arg("gain"),
               "10^(gain/10), the ratio of two powers.");
    module.def("field_ratio", Taking_all(&Field_ratio), py::arg("gain"),
               "10^(gain/20), the ratio of two voltages or currents.");
    module.def("gain_of_powers", Taking_all(&Gain_of_powers), py::arg("ratio"),
               "10 log10 of a ratio of powers, in dB.");
    module.def("gain_of_fields", Taking_all(&Gain_of_fields), py::arg("ratio"),
               "20 log10 of a ratio of voltages, in dB.");
    module.def(
        "power_sum",
        [](py::object const& levels) {
            auto const all = All_of(levels);
            return Power_sum(all.data(), all.size());
        },
        py::arg("levels"), R"(The level of the sum of powers.

>>> print(f'{power_sum([Quantity("10 dBm"), Quantity("10 dBm")]):.4f~}')
13.0103 dBm
)");
    module.def(
        "power_mean",
        [](py::object const& levels) {
            auto const all = All_of(levels);
            return Power_mean(all.data(), all.size());
        },
        py::arg("levels"), "The level of the mean of powers.");
    module.def("power_difference", Taking_all(&Power_difference), py::arg("sum"), py::arg("part"),
               "The level of a power without a part of it: signal and noise, less the noise.");
    module.def("total_power", Taking_all(&Total_power), py::arg("density"), py::arg("bandwidth"),
               R"(The level of the power in a bandwidth.

>>> print(total_power(Quantity("-174 dBm/Hz"), Quantity("1 MHz")))
-114 dBm
)");
    module.def("density", Taking_all(&Density), py::arg("total"), py::arg("bandwidth"),
               "The level per hertz of a power spread over a bandwidth.");
}

// ---- Radio

Measurement Noise_of_chain(py::object const& stages) {
    std::vector<Noise_stage> all;
    for (py::handle const stage : Several("stages", stages)) {
        if (PyUnicode_Check(stage.ptr()) || !py::isinstance<py::sequence>(stage)) {
            throw py::type_error("a stage is a pair of a gain and a noise figure, found " +
                                 py::repr(stage.get_type()).cast<std::string>());
        }
        auto const pair = py::reinterpret_borrow<py::sequence>(stage);
        if (pair.size() != 2) {
            throw py::value_error("a stage is a pair of a gain and a noise figure");
        }
        all.push_back({Operand_of(pair[0]), Operand_of(pair[1])});
    }
    return Cascade_noise(all.data(), all.size());
}

void Define_radio(py::module_& module) {
    module.def("reflection_of_vswr", Taking_all(&Reflection_of_vswr), py::arg("vswr"),
               "(s - 1)/(s + 1).");
    module.def("reflection_of_return_loss", Taking_all(&Reflection_of_return_loss), py::arg("loss"),
               "10^(-loss/20).");
    module.def("vswr", Taking_all(&Vswr), py::arg("reflection"), "(1 + r)/(1 - r).");
    module.def("return_loss", Taking_all(&Return_loss), py::arg("reflection"),
               "-20 log10 r, in dB.");
    module.def("mismatch_loss", Taking_all(&Mismatch_loss), py::arg("reflection"),
               "-10 log10 (1 - r^2), in dB.");
    module.def("mismatch_gain", Taking_all(&Mismatch_gain), py::arg("first"), py::arg("second"),
               "The gain between two ports with these reflections, in dB, of unknown phases.");
    module.def("cascade_noise", &Noise_of_chain, py::arg("stages"),
               R"(The noise figure of a chain of (gain, figure).

>>> stages = [(Quantity("15 dB"), Quantity("1 dB")), (Quantity("-7 dB"), Quantity("7 dB"))]
>>> print(f'{cascade_noise(stages):.2f~}')
1.42 dB
)");
    module.def("thermal_noise", Taking_all(&Thermal_noise), py::arg("temperature"),
               py::arg("bandwidth"), "k T B in watts, with k = 1.380649e-23 J/K.");
}

} // namespace

void Define_formulas(py::module_& module) {
    Define_order(module);
    Define_functions(module);
    Define_levels(module);
    Define_radio(module);
}

} // namespace Varnix::Value::Python
