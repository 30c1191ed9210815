#include "Refusals.h"

#include <varnix/value/Measurement_text.h>
#include <varnix/value/Text_formatting.h>
#include <varnix/value/Unit_kinds.h>

namespace Varnix::Value {

MeasurementRefused::MeasurementRefused(Refusal reason_, std::string const& detail) noexcept
    : OperationNotValid(detail), reason(reason_) {}
MeasurementRefused::MeasurementRefused(MeasurementRefused const& other) noexcept = default;
MeasurementRefused&
MeasurementRefused::operator=(MeasurementRefused const& other) noexcept = default;
MeasurementRefused::~MeasurementRefused() = default;

namespace Physics {

namespace {

struct Reason_words {
    Refusal reason;
    char const* words; // why, and after "; " the way out
};

// clang-format off

constexpr Reason_words reason_words[] = {
    {Refusal::not_finite,                  "values are finite; a lower bound may be -inf, an upper one inf"},
    {Refusal::bounds_inverted,             "the lower bound is above the upper one; bounds are numbers in the unit and not distances"},
    {Refusal::value_outside_bounds,        "the value lies outside its bounds; bounds are numbers in the unit and not distances"},
    {Refusal::kinds_differ,                "the kinds differ"},
    {Refusal::needs_impedance,             "that takes a resistance; convert with one"},
    {Refusal::no_fixed_length,             "months and years have no fixed length; write days"},
    {Refusal::units_do_not_mix,            "angles and symbols do not go into one unit; convert one of them to a plain number"},
    {Refusal::too_many_units,              "the result would have six units"},
    {Refusal::prefix_on_temperature,       "a point in °C or °F has no prefix; write it without, or in K"},
    {Refusal::temperature_role,            "a point of a temperature scale and a difference are not the same; mark differences (As_difference, Δ°C)"},
    {Refusal::temperature_points_add,      "points of a temperature scale do not add; mark the second as a difference (As_difference, Δ°C)"},
    {Refusal::temperature_point_as_factor, "a point in °C or °F is no factor; convert to K"},
    {Refusal::level_and_linear,            "one is a level, the other is not; convert one of them"},
    {Refusal::levels_do_not_add,           "levels do not add; Power_sum adds the powers"},
    {Refusal::level_as_factor,             "a level is no factor; convert to the linear unit, or add a gain in dB"},
    {Refusal::gain_minus_level,            "a gain less a level means nothing; take the gain from the level"},
    {Refusal::gain_is_no_quantity,         "a gain is no quantity; apply it to one"},
    {Refusal::gain_is_ambiguous,           "a gain of 20 dB is 10 of voltages and 100 of powers; Field_ratio or Power_ratio says which"},
    {Refusal::not_a_level,                 "that takes a level in decibels"},
    {Refusal::not_a_gain,                  "that takes a gain in plain dB"},
    {Refusal::not_a_density,               "that takes a level per hertz and a bandwidth"},
    {Refusal::no_level_convention,         "there is no agreed meaning of decibels for it"},
    {Refusal::no_level_of_zero,            "zero and negative quantities have no level"},
    {Refusal::no_negative,                 "it must not be negative"},
    {Refusal::not_passive,                 "a reflection lies between 0 and 1, a VSWR is at least 1"},
    {Refusal::negative_quantity,           "it must not be negative"},
    {Refusal::division_by_zero,            "the divisor may be zero"},
    {Refusal::root_of_negative,            "it may be negative"},
    {Refusal::odd_power,                   "the unit has no square root"},
    {Refusal::exponent_out_of_range,       "powers go from -64 to 64"},
    {Refusal::no_electrical_relation,      "no relation of volts, amperes, watts and ohms joins the three"},
    {Refusal::nothing_to_sum,              "there is nothing to add"},
    {Refusal::contradiction,               "the two exclude each other"},
    {Refusal::levels_disagree,             "its number means another quantity to Value_object; convert to the linear unit, or pass Levels::as_displayed"},
    {Refusal::difference_has_no_unit,      "a temperature difference has no unit in Value_object; convert it to K"},
    {Refusal::unit_not_valid,              "no measurement has that prefix"},
    {Refusal::out_of_range,                "the result is too large for a number"},
};

// clang-format on

constexpr bool Is_in_order() {
    int expected = 0;
    for (Reason_words const& row : reason_words) {
        if (static_cast<int>(row.reason) != expected++) {
            return false;
        }
    }
    return expected == static_cast<int>(Refusal::out_of_range) + 1;
}
static_assert(Is_in_order(), "every reason has its words, in the order of the enumerators");

std::string In_parentheses(std::string const& text, Units const& unit) {
    return text + " (" + Kind_name(unit) + ')';
}

} // namespace

std::string Described(Units const& unit) {
    std::string const text = Format_unit(unit);
    return text.empty() ? Kind_name(unit) : In_parentheses(text, unit);
}

std::string Described(double value, double lower, double upper, Units const& unit) {
    std::string text = Format_number(value);
    std::string const unit_text = Format_unit(unit);
    text += unit_text.empty() ? "" : ' ' + unit_text;
    if (lower != value || upper != value) {
        text += " [" + Format_number(lower) + ", " + Format_number(upper) + ']';
    }
    return In_parentheses(text, unit);
}

std::string Described(Measurement const& x) {
    return In_parentheses(Format(x), x.Get_unit());
}

void Refuse(Refusal reason, std::string const& what) {
    throw MeasurementRefused(reason,
                             what + ": " + reason_words[static_cast<std::size_t>(reason)].words);
}

void Refuse(Refusal reason, char const* verb, Measurement const& x, char const* conjunction,
            Measurement const& y) {
    Refuse(reason, std::string("cannot ") + verb + ' ' + Described(x) + ' ' + conjunction + ' ' +
                       Described(y));
}

void Refuse(Refusal reason, char const* verb, Measurement const& x, char const* conjunction,
            Units const& unit) {
    Refuse(reason, std::string("cannot ") + verb + ' ' + Described(x) + ' ' + conjunction + ' ' +
                       Described(unit));
}

void Refuse(Refusal reason, char const* verb, Measurement const& x) {
    Refuse(reason, std::string("cannot ") + verb + ' ' + Described(x));
}

} // namespace Physics

} // namespace Varnix::Value
