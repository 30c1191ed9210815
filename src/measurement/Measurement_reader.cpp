// Measurements read from texts: the notation is that of quantities, and the numbers are enclosed.

#include <varnix/value/Measurement_text.h>

#include "Decimals.h"

#include <cmath>
#include <optional>
#include <utility>
#include <variant>

namespace Varnix::Value {

using namespace Physics;

namespace {

// ---- The unit

bool Is_temperature_alone(Units const& unit) {
    Units_list const only = unit.tuples[0].unit;
    return unit.spl_conv == SPL_NONE && unit.tuples[0].exponent == 1 &&
           unit.tuples[1].unit == NO_UNIT &&
           (only == DEGREE_C || only == DEGREE_F || only == KELVIN);
}

// "Δ°C", "ΔmK", "delta_degF"; the mark may be the Greek letter or the sign of the increment.
std::optional<Units> Difference_unit(std::string_view text) {
    for (std::string_view const mark : {"\u0394", "\u2206", "delta_"}) {
        if (text.substr(0, mark.size()) != mark) {
            continue;
        }
        Parse_result<Units> const scale = Try_parse_unit(text.substr(mark.size()));
        if (scale && Is_temperature_alone(*scale)) {
            return *scale;
        }
    }
    return std::nullopt;
}

struct Read_unit {
    Units unit;
    bool is_difference;
};

Parse_result<Read_unit> Unit_of(Quantity_parts const& parts) {
    if (parts.unit.empty()) {
        return Read_unit{C_Empty, false};
    }
    if (std::optional<Units> const difference = Difference_unit(parts.unit)) {
        return Read_unit{*difference, true};
    }
    Parse_result<Units> const unit = Try_parse_unit(parts.unit);
    if (!unit) {
        Text_fault fault = unit.Get_fault();
        fault.position += parts.unit_position;
        return fault;
    }
    return Read_unit{*unit, false};
}

// ---- The numbers

struct Read_numbers {
    double value;
    double lower;
    double upper;
};

// An infinity, and what is no number, is a bound as it stands, for `Measurement` to judge.
double Bound_below(Decimal_text const& text) {
    return std::isfinite(text.nearest) ? Round_down(Number_of(text)) : text.nearest;
}

double Bound_above(Decimal_text const& text) {
    return std::isfinite(text.nearest) ? Round_up(Number_of(text)) : text.nearest;
}

double Deviated_below(Decimal_text const& value, Decimal_text const& deviation) {
    double const nearly = value.nearest - deviation.nearest;
    return std::isfinite(nearly) ? Round_down(Sum_of(value, -1, deviation)) : nearly;
}

double Deviated_above(Decimal_text const& value, Decimal_text const& deviation) {
    double const nearly = value.nearest + deviation.nearest;
    return std::isfinite(nearly) ? Round_up(Sum_of(value, 1, deviation)) : nearly;
}

Read_numbers Numbers_of(Quantity_parts const& parts) {
    switch (parts.form) {
    case Quantity_form::value_alone:
        return {parts.value.nearest, Bound_below(parts.value), Bound_above(parts.value)};
    case Quantity_form::bounds:
        return {parts.value.nearest, Bound_below(parts.lower), Bound_above(parts.upper)};
    default:
        return {parts.value.nearest, Deviated_below(parts.value, parts.lower),
                Deviated_above(parts.value, parts.upper)};
    }
}

// ---- The whole

using Failure = std::variant<Text_fault, MeasurementRefused>;

// What was refused, and where it stands in the text.
struct Refused_at {
    MeasurementRefused refused;
    std::size_t position;
};

bool Is_about_unit(Refusal reason) {
    return reason != Refusal::not_finite && reason != Refusal::bounds_inverted &&
           reason != Refusal::value_outside_bounds;
}

using Read = std::variant<Measurement, Text_fault, Refused_at>;

// Bounds may be open; hexadecimal numbers are read where they are asked for.
constexpr Number_forms usual_forms = {false, true};

Read Read_measurement(std::string_view text, Number_forms forms) {
    Parse_result<Quantity_parts> const parts = Try_split_quantity(text, forms);
    if (!parts) {
        return parts.Get_fault();
    }
    Parse_result<Read_unit> const unit = Unit_of(*parts);
    if (!unit) {
        return unit.Get_fault();
    }
    Read_numbers const numbers = Numbers_of(*parts);
    try {
        return unit->is_difference
                   ? Measurement::Difference(numbers.value, unit->unit, numbers.lower,
                                             numbers.upper)
                   : Measurement(numbers.value, unit->unit, numbers.lower, numbers.upper);
    } catch (MeasurementRefused const& refused) {
        return Refused_at{refused, Is_about_unit(refused.Get_reason()) ? parts->unit_position
                                                                       : parts->bounds_position};
    }
}

} // namespace

Measurement Parse_measurement(std::string_view text) {
    return Parse_measurement(text, usual_forms);
}

Measurement Parse_measurement(std::string_view text, Number_forms forms) {
    Read const read = Read_measurement(text, forms);
    if (auto const* fault = std::get_if<Text_fault>(&read)) {
        Throw_text_not_valid(*fault);
    }
    if (auto const* refused = std::get_if<Refused_at>(&read)) {
        throw MeasurementRefused(refused->refused);
    }
    return std::get<Measurement>(read);
}

Parse_result<Measurement> Try_parse_measurement(std::string_view text) {
    return Try_parse_measurement(text, usual_forms);
}

Parse_result<Measurement> Try_parse_measurement(std::string_view text, Number_forms forms) {
    Read read = Read_measurement(text, forms);
    if (auto* fault = std::get_if<Text_fault>(&read)) {
        return std::move(*fault);
    }
    if (auto const* refused = std::get_if<Refused_at>(&read)) {
        return Text_fault{refused->position, refused->refused.what(), ""};
    }
    return std::get<Measurement>(read);
}

} // namespace Varnix::Value
