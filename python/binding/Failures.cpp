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

// The way out of a refusal where it is a function.
char const* Words_in_python(Way_out way_out) {
    switch (way_out) {
    case Way_out::with_resistance:
        return "convert with a resistance: to(unit, with_='50 ohm')";
    case Way_out::with_current:
        return "convert with a current: to(unit, with_='2 A')";
    case Way_out::with_voltage:
        return "convert with a voltage: to(unit, with_='5 V')";
    case Way_out::mark_difference:
        return "mark the one that is a difference (as_difference, or '5 ΔK')";
    case Way_out::take_as_point:
        return "take the difference for a point (as_point)";
    case Way_out::power_sum:
        return "power_sum adds the powers";
    case Way_out::amplify:
        return "amplify applies it to one";
    case Way_out::ratio_of_gain:
        return "field_ratio or power_ratio says which";
    case Way_out::gain_of_ratio:
        return "gain_of_fields or gain_of_powers says which";
    default:
        return Way_out_words(way_out);
    }
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
    Raise(name, py::make_tuple(refusal.Worded(Words_in_python(refusal.Get_way_out())),
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
