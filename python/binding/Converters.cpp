// Converter: a prepared conversion as a ufunc of numpy, which brings strides, types, masks and
// `out=` along, and releases Python's lock while it works.

#include "Binding.h"

#include <varnix/value/Measurement_converter.h>
#include <varnix/value/Text_formatting.h>

#include <pybind11/numpy.h>

#define NPY_NO_DEPRECATED_API NPY_1_22_API_VERSION
#include <numpy/arrayobject.h>
#include <numpy/ufuncobject.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <memory>

namespace Varnix::Value::Python {

namespace {

// ---- The loops

// Elements of `In`, each made a double, converted and stored as `Out`. The step between elements
// is in bytes, and places need not be aligned.
template <typename In, typename Out>
void Convert_each(char** places, npy_intp const* counts, npy_intp const* steps, void* data) {
    auto const& converter = *static_cast<Measurement_converter const*>(data);
    char const* from = places[0];
    char* to = places[1];
    for (npy_intp k = 0; k < counts[0]; ++k, from += steps[0], to += steps[1]) {
        In number;
        std::memcpy(&number, from, sizeof number);
        auto const converted =
            static_cast<Out>(converter.Convert_number(static_cast<double>(number)));
        std::memcpy(to, &converted, sizeof converted);
    }
}

// Doubles that lie side by side go through the loop for arrays.
void Convert_doubles(char** places, npy_intp const* counts, npy_intp const* steps, void* data) {
    bool const side_by_side = steps[0] == sizeof(double) && steps[1] == sizeof(double);
    if (!side_by_side) {
        Convert_each<double, double>(places, counts, steps, data);
        return;
    }
    // Numpy hands over aligned places only.
    auto const* const from = static_cast<double const*>(static_cast<void const*>(places[0]));
    auto* const to = static_cast<double*>(static_cast<void*>(places[1]));
    static_cast<Measurement_converter const*>(data)->Convert_numbers(
        from, to, static_cast<std::size_t>(counts[0]));
}

struct Loop {
    char from;
    char to;
    PyUFuncGenericFunction function;
};

// The first whose type an array can be cast to without loss is taken: whole numbers before floats,
// which would take the short ones.
constexpr Loop loops[] = {
    {NPY_BYTE, NPY_DOUBLE, &Convert_each<npy_byte, double>},
    {NPY_UBYTE, NPY_DOUBLE, &Convert_each<npy_ubyte, double>},
    {NPY_SHORT, NPY_DOUBLE, &Convert_each<npy_short, double>},
    {NPY_USHORT, NPY_DOUBLE, &Convert_each<npy_ushort, double>},
    {NPY_INT, NPY_DOUBLE, &Convert_each<npy_int, double>},
    {NPY_UINT, NPY_DOUBLE, &Convert_each<npy_uint, double>},
    {NPY_LONG, NPY_DOUBLE, &Convert_each<npy_long, double>},
    {NPY_ULONG, NPY_DOUBLE, &Convert_each<npy_ulong, double>},
    {NPY_LONGLONG, NPY_DOUBLE, &Convert_each<npy_longlong, double>},
    {NPY_ULONGLONG, NPY_DOUBLE, &Convert_each<npy_ulonglong, double>},
    {NPY_FLOAT, NPY_FLOAT, &Convert_each<float, float>},
    {NPY_DOUBLE, NPY_DOUBLE, &Convert_doubles},
};
constexpr std::size_t Loop_count = std::size(loops);

// ---- The ufunc

// All that a ufunc refers to and does not own. It lives in a capsule that the ufunc keeps.
struct Conversion {
    Conversion(Units const& source, Units const& target)
        : converter(source, target), from(Format_unit(source)), to(Format_unit(target)),
          name(from + " to " + to),
          documentation("Converts numbers from " + from + " to " + to +
                        ", each to the nearest double, of levels within 4 "
                        "units in the last place or 1e-13 dB.") {
        for (std::size_t k = 0; k < Loop_count; ++k) {
            functions[k] = loops[k].function;
            types[2 * k] = loops[k].from;
            types[2 * k + 1] = loops[k].to;
            data[k] = &converter;
        }
    }
    Conversion(Conversion const&) = delete;
    Conversion& operator=(Conversion const&) = delete;

    Measurement_converter converter;
    std::string from;
    std::string to;
    std::string name;
    std::string documentation;
    std::array<PyUFuncGenericFunction, Loop_count> functions = {};
    std::array<char, 2 * Loop_count> types = {};
    std::array<void*, Loop_count> data = {};
};

constexpr char const* Capsule_name = "varnix_value.Conversion";

py::object Make_converter(py::object const& from, py::object const& to) {
    auto made = std::make_unique<Conversion>(Plain_unit_of(from), Plain_unit_of(to));
    Conversion& conversion = *made;
    py::capsule const owner(&conversion, Capsule_name, [](PyObject* capsule) {
        delete static_cast<Conversion*>(PyCapsule_GetPointer(capsule, Capsule_name));
    });
    (void)made.release(); // to the capsule
    py::object ufunc = py::reinterpret_steal<py::object>(PyUFunc_FromFuncAndData(
        conversion.functions.data(), conversion.data.data(), conversion.types.data(), Loop_count, 1,
        1, PyUFunc_None, conversion.name.c_str(), conversion.documentation.c_str(), 0));
    if (!ufunc) {
        throw py::error_already_set();
    }
    auto* const fields = static_cast<PyUFuncObject*>(static_cast<void*>(ufunc.ptr()));
    fields->obj = py::object(owner).release().ptr(); // given back by the ufunc when it goes
    return ufunc;
}

// The units of a ufunc that was made here, or None.
py::object Units_of_converter(py::handle ufunc) {
    if (!PyObject_TypeCheck(ufunc.ptr(), &PyUFunc_Type)) {
        return py::none();
    }
    auto const* const fields =
        static_cast<PyUFuncObject const*>(static_cast<void const*>(ufunc.ptr()));
    if (fields->obj == nullptr || PyCapsule_IsValid(fields->obj, Capsule_name) == 0) {
        return py::none();
    }
    auto const& conversion =
        *static_cast<Conversion const*>(PyCapsule_GetPointer(fields->obj, Capsule_name));
    return py::make_tuple(conversion.converter.Get_from(), conversion.converter.Get_to());
}

void Import_numpy() {
    if (_import_array() < 0 || _import_umath() < 0) {
        throw py::error_already_set();
    }
}

} // namespace

void Define_converters(py::module_& module) {
    Import_numpy();
    module.def("make_converter", &Make_converter, py::arg("from_"), py::arg("to"),
               "What varnix_value.Converter returns.");
    module.def("units_of_converter", &Units_of_converter, py::arg("ufunc"),
               "The units of a converter, and None for any other ufunc.");
}

} // namespace Varnix::Value::Python
