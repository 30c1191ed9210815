#include "Binding.h"

namespace {

// False, with an ImportError, in a subinterpreter: pybind11 has one state for all of them, and waits
// there for a lock that its own thread holds.
bool Is_main_interpreter() {
    if (PyInterpreterState_Get() == PyInterpreterState_Main()) {
        return true;
    }
    PyErr_SetString(PyExc_ImportError, "varnix_value works in the main interpreter alone, and this "
                                       "is a subinterpreter; use a process of its own");
    return false;
}

// For an import that found the module of the main interpreter, which Python copies.
PyObject* Refuse_subinterpreter(PyObject*, PyObject*) {
    return Is_main_interpreter() ? pybind11::none().release().ptr() : nullptr;
}

PyMethodDef refuse_subinterpreter = {"refuse_subinterpreter", &Refuse_subinterpreter, METH_NOARGS,
                                     "Raises ImportError in a subinterpreter."};

} // namespace

// Python calls the function below first.
#define PyInit__native Make_module
PYBIND11_MODULE(_native, module) {
    using namespace Varnix::Value::Python;
    module.doc() = "The compiled part of varnix_value, which has all of its names.";
    module.attr("__version__") = VARNIX_VALUE_VERSION;
    module.attr("refuse_subinterpreter") =
        py::reinterpret_steal<py::object>(PyCFunction_New(&refuse_subinterpreter, nullptr));
    Define_failures(module);
    Define_units(module);
    Define_quantities(module);
    Define_formulas(module);
    Define_converters(module);
    Define_rule_values(module);
}
#undef PyInit__native

// The name is Python's. NOLINTNEXTLINE(bugprone-reserved-identifier)
extern "C" PYBIND11_EXPORT PyObject* PyInit__native();
// NOLINTNEXTLINE(bugprone-reserved-identifier)
extern "C" PYBIND11_EXPORT PyObject* PyInit__native() {
    return Is_main_interpreter() ? Make_module() : nullptr;
}
