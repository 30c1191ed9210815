// C++ exceptions as those of varnix_value.failures, which carry the same names.

#include "Binding.h"

#include <algorithm>
#include <cstddef>
#include <stdexcept>

namespace Varnix::Value::Python {

void Raise(char const* name, py::tuple const& arguments) {
    py::object const type = py::module_::import("varnix_value.failures").attr(name);
    py::object const failure = type(*arguments);
    PyErr_SetObject(type.ptr(), failure.ptr());
    throw py::error_already_set();
}

namespace {

bool Begins_character(char byte) {
    return (static_cast<unsigned char>(byte) & 0xc0U) != 0x80U;
}

// Of a message without the names of its classes, which Python prints itself.
std::string Without_classes(char const* message) {
    constexpr std::string_view classes = "Value exception: Operation is not valid: ";
    std::string_view const whole = message;
    return std::string(whole.substr(0, classes.size()) == classes ? whole.substr(classes.size())
                                                                  : whole);
}

// Of functions that a refusal names, what they are called here.
constexpr char const* function_names[][2] = {
    {"Power_sum", "power_sum"},
    {"Power_ratio", "power_ratio"},
    {"Field_ratio", "field_ratio"},
    {"As_difference", "as_difference"},
};

std::string In_python(std::string message) {
    for (auto const& name : function_names) {
        std::size_t const place = message.find(name[0]);
        if (place != std::string::npos) {
            message.replace(place, std::string_view(name[0]).size(), name[1]);
        }
    }
    return message;
}

enum class Python_kind { value, type, arithmetic };

// Which of Python's own exceptions a refusal is as well.
Python_kind Kind_of(Refusal reason) {
    switch (reason) {
    case Refusal::not_finite:
    case Refusal::bounds_inverted:
    case Refusal::value_outside_bounds:
    case Refusal::not_passive:
    case Refusal::nothing_to_sum:
    case Refusal::contradiction:
    case Refusal::unit_not_valid:
        return Python_kind::value;
    case Refusal::no_level_of_zero:
    case Refusal::no_negative:
    case Refusal::negative_quantity:
    case Refusal::division_by_zero:
    case Refusal::root_of_negative:
    case Refusal::exponent_out_of_range:
    case Refusal::out_of_range:
        return Python_kind::arithmetic;
    default:
        return Python_kind::type; // what the units, the levels or the kinds of temperatures forbid
    }
}

void Set_refusal(MeasurementRefused const& refusal) {
    Python_kind const kind = Kind_of(refusal.Get_reason());
    char const* const name = kind == Python_kind::value  ? "RefusedValue"
                             : kind == Python_kind::type ? "RefusedKind"
                                                         : "RefusedArithmetic";
    Raise(name, py::make_tuple(In_python(Without_classes(refusal.what())),
                               Reason_name(refusal.Get_reason())));
}

} // namespace

void Raise_text_not_valid(Text_fault const& fault, std::string_view text) {
    std::size_t const bytes = std::min(fault.position, text.size());
    auto const characters = std::count_if(
        text.begin(), text.begin() + static_cast<std::ptrdiff_t>(bytes), Begins_character);
    Raise("TextNotValid", py::make_tuple(fault.message, characters, fault.suggestion));
}

namespace {

// The most derived classes first, as several have a common base. The signature is pybind11's.
void Translate(std::exception_ptr thrown) {
    try {
        try {
            std::rethrow_exception(thrown); // NOLINT(performance-unnecessary-value-param)
        } catch (MeasurementRefused const& failure) {
            Set_refusal(failure);
        } catch (TextNotValid const& failure) {
            Text_fault const& fault = failure.Get_fault();
            Raise("TextNotValid", py::make_tuple(fault.message, fault.position, fault.suggestion));
        } catch (NoRuleToConvert const& failure) {
            Raise("NoRuleToConvert", py::make_tuple(failure.what()));
        } catch (UnitDimensionNotSame const& failure) {
            Raise("UnitDimensionNotSame", py::make_tuple(failure.what()));
        } catch (UnitDimensionNotProper const& failure) {
            Raise("UnitDimensionNotProper", py::make_tuple(failure.what()));
        } catch (UnitNotDefined const& failure) {
            Raise("UnitNotDefined", py::make_tuple(failure.what()));
        } catch (OperationExceedingAllowedTuples const& failure) {
            Raise("OperationExceedingAllowedTuples", py::make_tuple(failure.what()));
        } catch (OperationNotValid const& failure) {
            Raise("OperationNotValid", py::make_tuple(failure.what()));
        } catch (Value_exception const& failure) {
            Raise("Value_exception", py::make_tuple(failure.what()));
        } catch (std::out_of_range const& failure) {
            // Otherwise it would be an IndexError.
            Raise("OutOfRange", py::make_tuple(failure.what()));
        }
    } catch (py::error_already_set& raised) {
        raised.restore();
    }
}

} // namespace

void Define_failures(py::module_&) {
    py::register_local_exception_translator(Translate);
}

} // namespace Varnix::Value::Python
