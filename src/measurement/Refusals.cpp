#include "Refusals.h"

#include "Conversions.h"

#include <varnix/value/Measurement_text.h>
#include <varnix/value/Text_formatting.h>
#include <varnix/value/Unit_kinds.h>

#include <cstddef>
#include <iterator>

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
    char const* name;  // that of the enumerator
    char const* words; // why, and after "; " the way out
};

// clang-format off

#define VARNIX_VALUE_ROW(reason) Refusal::reason, #reason

constexpr Reason_words reason_words[] = {
    {VARNIX_VALUE_ROW(not_finite),                  "values are finite; a lower bound may be -inf, an upper one inf"},
    {VARNIX_VALUE_ROW(bounds_inverted),             "the lower bound is above the upper one; bounds are numbers in the unit and not distances"},
    {VARNIX_VALUE_ROW(value_outside_bounds),        "the value lies outside its bounds; bounds are numbers in the unit and not distances"},
    {VARNIX_VALUE_ROW(kinds_differ),                "the kinds differ"},
    {VARNIX_VALUE_ROW(needs_impedance),             "that takes a resistance; convert with one"},
    {VARNIX_VALUE_ROW(no_fixed_length),             "months and years have no fixed length; write days"},
    {VARNIX_VALUE_ROW(units_do_not_mix),            "angles and symbols do not go into one unit; convert one of them to a plain number"},
    {VARNIX_VALUE_ROW(too_many_units),              "the result would have six units"},
    {VARNIX_VALUE_ROW(prefix_on_temperature),       "a point in °C or °F has no prefix; write it without, or in K"},
    {VARNIX_VALUE_ROW(temperature_role),            "a point of a temperature scale and a difference are not the same; mark differences (As_difference, Δ°C)"},
    {VARNIX_VALUE_ROW(temperature_points_add),      "points of a temperature scale do not add; mark the second as a difference (As_difference, Δ°C)"},
    {VARNIX_VALUE_ROW(temperature_point_as_factor), "a point in °C or °F is no factor; convert to K"},
    {VARNIX_VALUE_ROW(level_and_linear),            "one is a level, the other is not; convert one of them"},
    {VARNIX_VALUE_ROW(levels_do_not_add),           "levels do not add; Power_sum adds the powers"},
    {VARNIX_VALUE_ROW(level_as_factor),             "a level is no factor; convert to the linear unit, or add a gain in dB"},
    {VARNIX_VALUE_ROW(gain_minus_level),            "a gain less a level means nothing; take the gain from the level"},
    {VARNIX_VALUE_ROW(gain_is_no_quantity),         "a gain is no quantity; apply it to one"},
    {VARNIX_VALUE_ROW(gain_is_ambiguous),           "a gain of 20 dB is 10 of voltages and 100 of powers; Field_ratio or Power_ratio says which"},
    {VARNIX_VALUE_ROW(not_a_level),                 "that takes a level in decibels"},
    {VARNIX_VALUE_ROW(not_a_gain),                  "that takes a gain in plain dB"},
    {VARNIX_VALUE_ROW(not_a_density),               "that takes a level per hertz and a bandwidth"},
    {VARNIX_VALUE_ROW(no_level_convention),         "there is no agreed meaning of decibels for it"},
    {VARNIX_VALUE_ROW(no_level_of_zero),            "zero and negative quantities have no level"},
    {VARNIX_VALUE_ROW(no_negative),                 "it must not be negative"},
    {VARNIX_VALUE_ROW(not_passive),                 "a reflection lies between 0 and 1, a VSWR is at least 1"},
    {VARNIX_VALUE_ROW(negative_quantity),           "it must not be negative"},
    {VARNIX_VALUE_ROW(division_by_zero),            "the divisor may be zero"},
    {VARNIX_VALUE_ROW(root_of_negative),            "it may be negative"},
    {VARNIX_VALUE_ROW(odd_power),                   "the unit has no square root"},
    {VARNIX_VALUE_ROW(exponent_out_of_range),       "powers go from -64 to 64"},
    {VARNIX_VALUE_ROW(no_electrical_relation),      "no relation of volts, amperes, watts and ohms joins the three"},
    {VARNIX_VALUE_ROW(nothing_to_sum),              "there is nothing to add"},
    {VARNIX_VALUE_ROW(contradiction),               "the two exclude each other"},
    {VARNIX_VALUE_ROW(levels_disagree),             "its number means another quantity to Value_object; convert to the linear unit, or pass Levels::as_displayed"},
    {VARNIX_VALUE_ROW(difference_has_no_unit),      "a temperature difference has no unit in Value_object; convert it to K"},
    {VARNIX_VALUE_ROW(unit_not_valid),              "no measurement has that prefix"},
    {VARNIX_VALUE_ROW(out_of_range),                "the result is too large for a number"},
};

#undef VARNIX_VALUE_ROW
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
    return In_parentheses(Write_numbers({value, lower, upper}, Format_unit(unit), {}), unit);
}

std::string Described(Measurement const& x) {
    return In_parentheses(Format(x), x.Get_unit());
}

void Refuse(Refusal reason, std::string const& what) {
    throw MeasurementRefused(reason,
                             what + ": " + reason_words[static_cast<std::size_t>(reason)].words);
}

namespace {

// Why, and after "; " the way out, where the two units have more to say than the reason alone.

// What an electrical relation takes besides the two.
std::string Third_quantity_words(Units const& first, Units const& second) {
    Electrical const from = Electrical_of(Kind_of(first));
    Electrical const to = Electrical_of(Kind_of(second));
    bool const of_resistance = from == Electrical::resistance || to == Electrical::resistance;
    bool const of_current = from == Electrical::current || to == Electrical::current;
    char const* const third = !of_resistance ? "resistance" : of_current ? "voltage" : "current";
    return std::string("that takes a ") + third + "; convert with one";
}

std::string Words_of(Refusal reason, Units const& first, Units const& second) {
    if (reason == Refusal::needs_impedance) {
        return Third_quantity_words(first, second);
    }
    bool const both_on_scales =
        Is_temperature(Without_decibels(first)) && Is_temperature(Without_decibels(second));
    if (reason == Refusal::temperature_role && !both_on_scales &&
        Kind_of(first) == Kind_of(second)) {
        return "a product of units is no temperature scale; convert to K first";
    }
    return reason_words[static_cast<std::size_t>(reason)].words;
}

bool Is_plain_kelvin(Measurement const& x) {
    return Is_kelvin(x.Get_unit()) && !x.Is_difference();
}

std::string Words_of(Refusal reason, Measurement const& x, Measurement const& y) {
    bool const one_is_point = Form_of(x) == Form::scale_point || Form_of(y) == Form::scale_point;
    bool const one_is_kelvin = Is_plain_kelvin(x) || Is_plain_kelvin(y);
    if (reason == Refusal::temperature_role && one_is_point && one_is_kelvin) {
        Measurement const& kelvins = Is_plain_kelvin(x) ? x : y;
        return "beside °C or °F a plain K may be a temperature or a difference; write " +
               Format(kelvins.As_difference()) + " for the difference";
    }
    return Words_of(reason, x.Get_unit(), y.Get_unit());
}

[[noreturn]] void Refuse_pair(Refusal reason, char const* verb, std::string const& first,
                              char const* conjunction, std::string const& second,
                              std::string const& words) {
    throw MeasurementRefused(reason, std::string("cannot ") + verb + ' ' + first + ' ' +
                                         conjunction + ' ' + second + ": " + words);
}

} // namespace

void Refuse(Refusal reason, char const* verb, Measurement const& x, char const* conjunction,
            Measurement const& y) {
    Refuse_pair(reason, verb, Described(x), conjunction, Described(y), Words_of(reason, x, y));
}

void Refuse(Refusal reason, char const* verb, Measurement const& x, char const* conjunction,
            Units const& unit) {
    Refuse_pair(reason, verb, Described(x), conjunction, Described(unit),
                Words_of(reason, x.Get_unit(), unit));
}

void Refuse(Refusal reason, char const* verb, Units const& first, char const* conjunction,
            Units const& second) {
    Refuse_pair(reason, verb, Described(first), conjunction, Described(second),
                Words_of(reason, first, second));
}

void Refuse(Refusal reason, char const* verb, Measurement const& x) {
    Refuse(reason, std::string("cannot ") + verb + ' ' + Described(x));
}

} // namespace Physics

char const* Reason_name(Refusal reason) noexcept {
    auto const index = static_cast<std::size_t>(reason);
    return index < std::size(Physics::reason_words) ? Physics::reason_words[index].name : "unknown";
}

} // namespace Varnix::Value
