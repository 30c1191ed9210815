// Measurements read from texts: the notation is that of quantities, and the numbers are enclosed.

#include <varnix/value/Measurement_text.h>

#include "Decimals.h"
#include "Kept_decimals.h"

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

Maybe_decimals Decimals_of(Quantity_parts const& parts) {
    Maybe_decimals const value = Single_decimal(parts.value);
    switch (parts.form) {
    case Quantity_form::value_alone:
        return value;
    case Quantity_form::bounds:
        return Joined(Decimal_bound(parts.lower, value), value, Decimal_bound(parts.upper, value));
    default:
        return Joined(Sum(value, -1, Single_decimal(parts.lower)), value,
                      Sum(value, 1, Single_decimal(parts.upper)));
    }
}

// The measurement that was made of doubles, with the decimals where they fit.
Measurement With_decimals(Measurement const& made, Quantity_parts const& parts) {
    return Made_of_decimals(Decimals_of(parts), made.Get_unit(), made.Is_difference())
        .value_or(made);
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

Read Read_measurement(std::string_view text) {
    Parse_result<Quantity_parts> const parts = Try_split_quantity(text, {true, true});
    if (!parts) {
        return parts.Get_fault();
    }
    Parse_result<Read_unit> const unit = Unit_of(*parts);
    if (!unit) {
        return unit.Get_fault();
    }
    Read_numbers const numbers = Numbers_of(*parts);
    try {
        Measurement const made =
            unit->is_difference
                ? Measurement::Difference(numbers.value, unit->unit, numbers.lower, numbers.upper)
                : Measurement(numbers.value, unit->unit, numbers.lower, numbers.upper);
        return With_decimals(made, *parts);
    } catch (MeasurementRefused const& refused) {
        return Refused_at{refused, Is_about_unit(refused.Get_reason()) ? parts->unit_position
                                                                       : parts->bounds_position};
    }
}

} // namespace

Measurement Parse_measurement(std::string_view text) {
    Read const read = Read_measurement(text);
    if (auto const* fault = std::get_if<Text_fault>(&read)) {
        Throw_text_not_valid(*fault);
    }
    if (auto const* refused = std::get_if<Refused_at>(&read)) {
        throw MeasurementRefused(refused->refused);
    }
    return std::get<Measurement>(read);
}

Parse_result<Measurement> Try_parse_measurement(std::string_view text) {
    Read read = Read_measurement(text);
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

} // namespace Varnix::Value
