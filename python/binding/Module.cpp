#include "Binding.h"

PYBIND11_MODULE(_native, module) {
    using namespace Varnix::Value::Python;
    module.doc() = "The compiled part of varnix_value, which has all of its names.";
    module.attr("__version__") = VARNIX_VALUE_VERSION;
    Define_failures(module);
    Define_units(module);
    Define_quantities(module);
    Define_formulas(module);
    Define_converters(module);
    Define_rule_values(module);
}
