// Measurements read from texts: the notation is that of quantities, and the numbers are enclosed.

#include <varnix/value/Measurement_text.h>

#include "Decimals.h"
#include "Kept_decimals.h"
#include "Measurement_parts.h"

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
    bool is_valid = false; // as a unit to measure in; otherwise it is not known yet
};

Parse_result<Measurement_unit> Read_unit_of(Quantity_parts const& parts, Dialect dialect) {
    if (parts.unit.empty()) {
        return Measurement_unit();
    }
    Parse_result<Measurement_unit> unit = Try_parse_measurement_unit(parts.unit, dialect);
    if (unit) {
        return unit;
    }
    Text_fault fault = unit.Get_fault();
    fault.position += parts.unit_position;
    return fault;
}

// ---- The numbers

struct Read_numbers {
    double value;
    double lower;
    double upper;
};

// Infinities and NaN stay as they are; `Measurement` accepts or refuses them.
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

Read_numbers Read_numbers_of(Quantity_parts const& parts) {
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

// ---- The same as decimals

Maybe_decimals Single_decimal(Decimal_text const& text) {
    std::optional<Whole_decimal> const read = Whole_of(text);
    return read
               ? Maybe_decimals(Decimal_numbers{read->whole, read->whole, read->whole, read->power})
               : std::nullopt;
}

// An infinite bound is the same on every scale.
Maybe_decimals Decimal_bound(Decimal_text const& text, Maybe_decimals const& value) {
    double const nearest = text.nearest;
    return value && std::isinf(nearest)
               ? Maybe_decimals(Decimal_numbers{nearest, nearest, nearest, value->power})
               : Single_decimal(text);
}

// Three single decimals as the numbers of one.
Maybe_decimals Joined(Maybe_decimals const& lower, Maybe_decimals const& value,
                      Maybe_decimals const& upper) {
    auto const below = With_one_power(lower, value);
    auto const above = below ? With_one_power(below->second, upper) : std::nullopt;
    auto const least = above ? With_one_power(below->first, above->first) : std::nullopt;
    if (!least) {
        return std::nullopt;
    }
    Decimal_numbers const joined = {least->first.lower, least->second.value, above->second.upper,
                                    least->second.power};
    bool const in_order = joined.lower <= joined.value && joined.value <= joined.upper;
    return in_order ? Maybe_decimals(joined) : std::nullopt;
}

Maybe_decimals Read_decimals_of(Quantity_parts const& parts) {
    Maybe_decimals const value = Single_decimal(parts.value);
    switch (parts.form) {
    case Quantity_form::value_alone:
        return value;
    case Quantity_form::bounds:
        return Joined(Decimal_bound(parts.lower, value), value, Decimal_bound(parts.upper, value));
    default:
        break;
    }
    Maybe_decimals const below = Single_decimal(parts.lower);
    bool const is_one_text = parts.lower.digits.data() == parts.upper.digits.data();
    Maybe_decimals const above = is_one_text ? below : Single_decimal(parts.upper);
    return Joined(Sum(value, -1, below), value, Sum(value, 1, above));
}

// ---- The whole

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

bool Are_in_order(Read_numbers const& numbers) {
    return std::isfinite(numbers.value) && numbers.lower <= numbers.value &&
           numbers.value <= numbers.upper;
}

Measurement Made_of(Read_numbers const& numbers, Read_unit const& unit) {
    if (unit.is_valid && Are_in_order(numbers)) {
        return Measurement_parts::Made(numbers.value, numbers.lower, numbers.upper, unit.unit,
                                       unit.is_difference);
    }
    return unit.is_difference
               ? Measurement::Difference(numbers.value, unit.unit, numbers.lower, numbers.upper)
               : Measurement(numbers.value, unit.unit, numbers.lower, numbers.upper);
}

// Decimals where they fit, which nearly all do, and enclosed numbers elsewhere.
Measurement Made_of(Quantity_parts const& parts, Read_unit const& unit) {
    Maybe_decimals const decimals = Read_decimals_of(parts);
    Units const valid = decimals && !unit.is_valid
                            ? Made_of(Read_numbers{0.0, 0.0, 0.0}, unit).Get_unit()
                            : unit.unit;
    std::optional<Measurement> const made = Made_of_decimals(decimals, valid, unit.is_difference);
    return made ? *made : Made_of(Read_numbers_of(parts), unit);
}

Read Read_parts(Quantity_parts const& parts, Read_unit const& unit) {
    try {
        return Made_of(parts, unit);
    } catch (MeasurementRefused const& refused) {
        return Refused_at{refused, Is_about_unit(refused.Get_reason()) ? parts.unit_position
                                                                       : parts.bounds_position};
    }
}

// Bounds may be open; hexadecimal numbers are read where they are asked for.
constexpr Number_forms usual_forms = {false, true};

Read Read_measurement(std::string_view text, Number_forms forms) {
    Parse_result<Quantity_parts> const parts = Try_split_quantity(text, forms);
    if (!parts) {
        return parts.Get_fault();
    }
    Parse_result<Measurement_unit> const unit = Read_unit_of(*parts, Dialect::standard);
    return unit ? Read_parts(*parts, {unit->unit, unit->is_difference}) : Read(unit.Get_fault());
}

bool Give_bounds(Quantity_parts const& parts) {
    bool const deviates = parts.lower.nearest != 0.0 || parts.upper.nearest != 0.0;
    return parts.form == Quantity_form::bounds ||
           (parts.form != Quantity_form::value_alone && deviates);
}

Parse_result<Measurement> Result_of(Read read) {
    if (auto* fault = std::get_if<Text_fault>(&read)) {
        return std::move(*fault);
    }
    if (auto const* refused = std::get_if<Refused_at>(&read)) {
        MeasurementRefused const& refusal = refused->refused;
        return Text_fault{refused->position, refusal.Worded(Way_out_words(refusal.Get_way_out())),
                          ""};
    }
    return std::get<Measurement>(read);
}

} // namespace

Parse_result<Measurement_unit> Try_parse_measurement_unit(std::string_view text, Dialect dialect) {
    if (dialect == Dialect::standard) {
        if (std::optional<Units> const difference = Difference_unit(text)) {
            return Measurement_unit{*difference, true};
        }
    }
    Parse_result<Units> const unit = Try_parse_unit(text, dialect);
    return unit ? Parse_result<Measurement_unit>(Measurement_unit{*unit, false}) : unit.Get_fault();
}

Measurement_unit Parse_measurement_unit(std::string_view text, Dialect dialect) {
    return *Try_parse_measurement_unit(text, dialect);
}

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
    return Result_of(Read_measurement(text, forms));
}

Parse_result<Measurement> Measurement_reader::Read(std::string_view text) {
    Parse_result<Quantity_parts> const parts = Try_split_quantity(text, forms);
    if (!parts) {
        return parts.Get_fault();
    }
    has_bounds = Give_bounds(*parts);
    if (parts->unit != unit_text) {
        Parse_result<Measurement_unit> const read = Read_unit_of(*parts, dialect);
        if (!read) {
            return read.Get_fault();
        }
        unit_text = parts->unit;
        unit = read->unit;
        is_difference = read->is_difference;
        is_valid = false;
    }
    auto result = Result_of(Read_parts(*parts, {unit, is_difference, is_valid}));
    if (result && !is_valid) {
        unit = result->Get_unit();
        is_valid = true;
    }
    return result;
}

} // namespace Varnix::Value
