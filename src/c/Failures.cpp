#include "Failures.h"

#include <varnix/value/Measurement.h>
#include <varnix/value/Text_parsing.h>
#include <varnix/value/exceptions.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>
#include <stdexcept>
#include <string_view>

namespace Varnix::Value::C {

namespace {

bool Continues_character(char byte) {
    return (static_cast<unsigned char>(byte) & 0xc0U) == 0x80U;
}

// As much of a text as there is room for, cut between two characters of UTF-8.
template <std::size_t Size>
void Store(std::string_view text, char (&room)[Size]) {
    std::size_t length = std::min(text.size(), Size - 1);
    while (length > 0 && length < text.size() && Continues_character(text[length])) {
        --length;
    }
    std::memcpy(room, text.data(), length);
    room[length] = '\0';
}

vo_status Fill(vo_fault* fault, vo_status status, std::string_view message) {
    if (fault != nullptr) {
        fault->status = status;
        fault->position = 0;
        Store("", fault->reason);
        Store("", fault->suggestion);
        Store(message, fault->message);
    }
    return status;
}

vo_status Fill_text_fault(vo_fault* fault, Text_fault const& text_fault) {
    Fill(fault, VO_TEXT_NOT_VALID, text_fault.message);
    if (fault != nullptr) {
        fault->position = static_cast<std::uint32_t>(
            std::min<std::size_t>(text_fault.position, std::numeric_limits<std::uint32_t>::max()));
        Store(text_fault.suggestion, fault->suggestion);
    }
    return VO_TEXT_NOT_VALID;
}

// The way out of a refusal where it is a function or a field.
char const* Words_in_c(Way_out way_out) {
    switch (way_out) {
    case Way_out::with_resistance:
        return "convert with a resistance (vo_measurement_convert_with)";
    case Way_out::with_current:
        return "convert with a current (vo_measurement_convert_with)";
    case Way_out::with_voltage:
        return "convert with a voltage (vo_measurement_convert_with)";
    case Way_out::mark_difference:
        return "mark the one that is a difference (its field difference, or 5 ΔK)";
    case Way_out::take_as_point:
        return "clear its field difference";
    case Way_out::linear_or_displayed:
        return "convert to the linear unit";
    case Way_out::power_sum:
        return "vo_measurement_power_sum adds the powers";
    case Way_out::amplify:
        return "vo_measurement_amplify applies it to one";
    case Way_out::ratio_of_gain:
        return "apply it to 1 V or to 1 W (vo_measurement_amplify)";
    case Way_out::gain_of_ratio:
        return "convert so many V to dBV or W to dBW, and subtract 0 dBV or 0 dBW";
    default: // what C has no function for, and what is called the same everywhere
        return Way_out_words(way_out);
    }
}

vo_status Fill_refusal(vo_fault* fault, MeasurementRefused const& refusal) {
    if (fault != nullptr) {
        Fill(fault, VO_REFUSED, Reason_words(refusal.Get_reason()));
        try {
            Store(refusal.Worded(Words_in_c(refusal.Get_way_out())), fault->message);
        } catch (std::bad_alloc const&) { // then the reason is all there is room for
        }
        Store(Reason_name(refusal.Get_reason()), fault->reason);
    }
    return VO_REFUSED;
}

vo_status Status_of(Value_exception const& failure) {
    auto const is = [&failure](auto const* type) {
        return dynamic_cast<decltype(type)>(&failure) != nullptr;
    };
    // The derived before their bases.
    return is(static_cast<NoRuleToConvert const*>(nullptr))        ? VO_NO_RULE_TO_CONVERT
           : is(static_cast<UnitDimensionNotSame const*>(nullptr)) ? VO_UNIT_DIMENSION_NOT_SAME
           : is(static_cast<MissingUnitInFirstParameter const*>(nullptr)) ? VO_MISSING_UNIT
           : is(static_cast<OperationUndefined const*>(nullptr))          ? VO_OPERATION_UNDEFINED
           : is(static_cast<UnitDimensionNotProper const*>(nullptr)) ? VO_UNIT_DIMENSION_NOT_PROPER
           : is(static_cast<UnitExponentNotValid const*>(nullptr))   ? VO_UNIT_EXPONENT_NOT_VALID
           : is(static_cast<UnitNotDefined const*>(nullptr))         ? VO_UNIT_NOT_DEFINED
           : is(static_cast<OutOfResources const*>(nullptr))         ? VO_TOO_MANY_UNITS
                                                                     : VO_OPERATION_NOT_VALID;
}

} // namespace

vo_status Report(vo_fault* fault) noexcept {
    try {
        throw;
    } catch (Invalid_argument const& failure) {
        return Fill(fault, VO_INVALID_ARGUMENT, failure.message);
    } catch (Buffer_too_small const&) {
        return Fill(fault, VO_BUFFER_TOO_SMALL, "the text does not fit into the buffer");
    } catch (TextNotValid const& failure) {
        return Fill_text_fault(fault, failure.Get_fault());
    } catch (MeasurementRefused const& failure) {
        return Fill_refusal(fault, failure);
    } catch (Value_exception const& failure) {
        return Fill(fault, Status_of(failure), failure.what());
    } catch (std::out_of_range const& failure) {
        return Fill(fault, VO_OUT_OF_RANGE, failure.what());
    } catch (std::bad_alloc const&) {
        return Fill(fault, VO_NO_MEMORY, "there is not enough memory");
    } catch (...) {
        return Fill(fault, VO_INTERNAL_ERROR, "a fault of the library");
    }
}

} // namespace Varnix::Value::C

char const* vo_status_name(int status) {
    switch (status) {
#define VO_NAME(name)                                                                              \
    case name:                                                                                     \
        return #name
        VO_NAME(VO_OK);
        VO_NAME(VO_INVALID_ARGUMENT);
        VO_NAME(VO_BUFFER_TOO_SMALL);
        VO_NAME(VO_NO_MEMORY);
        VO_NAME(VO_INTERNAL_ERROR);
        VO_NAME(VO_TEXT_NOT_VALID);
        VO_NAME(VO_REFUSED);
        VO_NAME(VO_OUT_OF_RANGE);
        VO_NAME(VO_OPERATION_NOT_VALID);
        VO_NAME(VO_NO_RULE_TO_CONVERT);
        VO_NAME(VO_UNIT_DIMENSION_NOT_SAME);
        VO_NAME(VO_MISSING_UNIT);
        VO_NAME(VO_OPERATION_UNDEFINED);
        VO_NAME(VO_UNIT_DIMENSION_NOT_PROPER);
        VO_NAME(VO_UNIT_EXPONENT_NOT_VALID);
        VO_NAME(VO_UNIT_NOT_DEFINED);
        VO_NAME(VO_TOO_MANY_UNITS);
#undef VO_NAME
    default:
        return "unknown status";
    }
}
