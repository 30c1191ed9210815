#include "Refusals.h"

#include "Conversions.h"

#include <varnix/value/Measurement_text.h>
#include <varnix/value/Text_formatting.h>
#include <varnix/value/Unit_kinds.h>

#include <cstddef>
#include <iterator>
#include <string_view>

namespace Varnix::Value {

// ---- The exception

namespace {

// "OPERATION: REASON; WAY OUT".
std::string Composed(std::string text, Refusal reason, Way_out way_out, char const* way_out_words) {
    text += ": ";
    text += Reason_words(reason);
    if (way_out != Way_out::none) {
        text += "; ";
        text += way_out_words;
    }
    return text;
}

} // namespace

MeasurementRefused::MeasurementRefused(Refusal reason_, std::string const& detail) noexcept
    : OperationNotValid(detail), reason(reason_), way_out(Way_out::none),
      operation_size(detail.size()), names_reason(false) {}
MeasurementRefused::MeasurementRefused(Refusal reason_, std::string const& operation,
                                       Way_out way_out_)
    : OperationNotValid(Composed(operation, reason_, way_out_, Way_out_words(way_out_))),
      reason(reason_), way_out(way_out_), operation_size(operation.size()), names_reason(true) {}
MeasurementRefused::MeasurementRefused(MeasurementRefused const& other) noexcept = default;
MeasurementRefused&
MeasurementRefused::operator=(MeasurementRefused const& other) noexcept = default;
MeasurementRefused::~MeasurementRefused() = default;

// The message begins with the names of the classes; without memory it has nothing else.
std::string MeasurementRefused::Get_operation() const {
    OperationNotValid const without_detail;
    std::string_view const classes = without_detail.what();
    std::string_view const whole = what();
    std::size_t const begin = classes.size() + std::string_view(": ").size();
    return std::string(begin < whole.size() ? whole.substr(begin, operation_size)
                                            : std::string_view());
}

std::string MeasurementRefused::Worded(char const* words) const {
    return names_reason ? Composed(Get_operation(), reason, way_out, words) : Get_operation();
}

namespace Physics {

// ---- The words

namespace {

// In the order of reading, whatever room that takes.
struct Reason_row { // NOLINT(clang-analyzer-optin.performance.Padding)
    Refusal reason;
    char const* name; // that of the enumerator
    char const* words;
    Way_out usual; // unless the operands ask for another
};

// clang-format off

#define VARNIX_VALUE_ROW(reason) Refusal::reason, #reason

constexpr Reason_row reason_rows[] = {
    {VARNIX_VALUE_ROW(not_finite),                "values are finite",                                                             Way_out::infinite_bound},
    {VARNIX_VALUE_ROW(bounds_inverted),           "the lower bound is above the upper one",                                        Way_out::bounds_as_numbers},
    {VARNIX_VALUE_ROW(value_outside_bounds),      "the value lies outside its bounds",                                             Way_out::bounds_as_numbers},
    {VARNIX_VALUE_ROW(kinds_differ),              "the kinds differ",                                                              Way_out::none},
    {VARNIX_VALUE_ROW(needs_impedance),           "the two are related by a third quantity",                                       Way_out::none}, // see Third_quantity
    {VARNIX_VALUE_ROW(no_fixed_length),           "months and years have no fixed length",                                         Way_out::write_days},
    {VARNIX_VALUE_ROW(units_do_not_mix),          "angles, symbols and months cannot share a unit with others of their dimension", Way_out::divide_by_unit},
    {VARNIX_VALUE_ROW(too_many_units),            "the result would have six units",                                               Way_out::none},
    {VARNIX_VALUE_ROW(prefix_on_temperature),     "a point in °C or °F has no prefix",                                             Way_out::no_prefix_or_kelvin},
    {VARNIX_VALUE_ROW(temperature_role),          "a point of a temperature scale and a difference are not the same",              Way_out::mark_difference},
    {VARNIX_VALUE_ROW(temperature_points_add),    "points of a temperature scale do not add",                                      Way_out::mark_difference},
    {VARNIX_VALUE_ROW(temperature_point_as_factor),"a temperature in °C or °F cannot be multiplied or divided",                     Way_out::to_kelvin},
    {VARNIX_VALUE_ROW(level_and_linear),          "one is a level, the other is not",                                              Way_out::to_linear},
    {VARNIX_VALUE_ROW(levels_do_not_add),         "levels do not add",                                                             Way_out::power_sum},
    {VARNIX_VALUE_ROW(level_as_factor),           "a level cannot be multiplied or divided",                                       Way_out::linear_or_gain},
    {VARNIX_VALUE_ROW(gain_minus_level),          "a gain minus a level has no meaning",                                           Way_out::gain_from_level},
    {VARNIX_VALUE_ROW(gain_is_no_quantity),       "a gain is a ratio, and not a quantity",                                         Way_out::amplify},
    {VARNIX_VALUE_ROW(gain_is_ambiguous),         "a gain of 20 dB is a factor of 10 for voltages and of 100 for powers",          Way_out::ratio_of_gain},
    {VARNIX_VALUE_ROW(not_a_level),               "this needs a level in decibels",                                                Way_out::none},
    {VARNIX_VALUE_ROW(not_a_gain),                "this needs a gain in dB",                                                       Way_out::none},
    {VARNIX_VALUE_ROW(not_a_density),             "this needs a level per hertz and a bandwidth",                                  Way_out::none},
    {VARNIX_VALUE_ROW(no_level_convention),       "there is no agreed meaning of decibels for it",                                 Way_out::none},
    {VARNIX_VALUE_ROW(no_level_of_zero),          "zero and negative quantities have no level",                                    Way_out::none},
    {VARNIX_VALUE_ROW(no_negative),               "it must not be negative",                                                       Way_out::none},
    {VARNIX_VALUE_ROW(not_passive),               "a reflection lies between 0 and 1, a VSWR is at least 1",                       Way_out::none},
    {VARNIX_VALUE_ROW(negative_quantity),         "it must not be negative",                                                       Way_out::none},
    {VARNIX_VALUE_ROW(division_by_zero),          "the divisor may be zero",                                                       Way_out::none},
    {VARNIX_VALUE_ROW(root_of_negative),          "it may be negative",                                                            Way_out::none},
    {VARNIX_VALUE_ROW(odd_power),                 "the unit has no square root",                                                   Way_out::none},
    {VARNIX_VALUE_ROW(exponent_out_of_range),     "powers go from -64 to 64",                                                      Way_out::none},
    {VARNIX_VALUE_ROW(no_electrical_relation),    "no relation of voltage, current, power and resistance connects the three",      Way_out::none},
    {VARNIX_VALUE_ROW(nothing_to_sum),            "there is nothing to add",                                                       Way_out::none},
    {VARNIX_VALUE_ROW(contradiction),             "the two have no number in common",                                              Way_out::none},
    {VARNIX_VALUE_ROW(levels_disagree),           "its number means another quantity to Value_object",                             Way_out::linear_or_displayed},
    {VARNIX_VALUE_ROW(difference_has_no_unit),    "a temperature difference has no unit in Value_object",                          Way_out::to_kelvin},
    {VARNIX_VALUE_ROW(unit_not_valid),            "no measurement has that prefix",                                                Way_out::none},
    {VARNIX_VALUE_ROW(out_of_range),              "the result is too large for a number",                                          Way_out::none},
};

#undef VARNIX_VALUE_ROW

struct Way_out_row {
    Way_out way_out;
    char const* words; // for C++
};

constexpr Way_out_row way_out_rows[] = {
    {Way_out::none,                ""},
    {Way_out::infinite_bound,      "a lower bound may be -inf, an upper one inf"},
    {Way_out::bounds_as_numbers,   "bounds are numbers in the unit and not distances"},
    {Way_out::with_resistance,     "convert with a resistance (Convert_to(unit, with))"},
    {Way_out::with_current,        "convert with a current (Convert_to(unit, with))"},
    {Way_out::with_voltage,        "convert with a voltage (Convert_to(unit, with))"},
    {Way_out::write_days,          "write days, as in 30 days"},
    {Way_out::divide_by_unit,      "divide one of them by its unit, which leaves a plain number"},
    {Way_out::no_prefix_or_kelvin, "write it without, or in K"},
    {Way_out::mark_difference,     "mark the one that is a difference (As_difference, 5 ΔK)"},
    {Way_out::take_as_point,       "take the difference for a point (As_point)"},
    {Way_out::to_kelvin,           "convert to K"},
    {Way_out::to_linear,           "convert the level to a linear unit"},
    {Way_out::to_level,            "convert to a level, with its reference (dBm, dBV)"},
    {Way_out::power_sum,           "Power_sum adds the powers"},
    {Way_out::linear_or_gain,      "convert to the linear unit, or add a gain in dB"},
    {Way_out::gain_from_level,     "take the gain from the level"},
    {Way_out::amplify,             "Amplify applies it to one"},
    {Way_out::ratio_of_gain,       "Field_ratio or Power_ratio says which"},
    {Way_out::gain_of_ratio,       "Gain_of_fields or Gain_of_powers says which"},
    {Way_out::linear_or_displayed, "convert to the linear unit, or pass Levels::as_displayed"},
};
// clang-format on

template <typename Row, std::size_t Count, typename Key>
constexpr bool Is_in_order(Row const (&rows)[Count], Key Row::*key, Key last) {
    int expected = 0;
    for (Row const& row : rows) {
        if (static_cast<int>(row.*key) != expected++) {
            return false;
        }
    }
    return expected == static_cast<int>(last) + 1;
}
static_assert(Is_in_order(reason_rows, &Reason_row::reason, Refusal::out_of_range),
              "every reason has its words, in the order of the enumerators");
static_assert(Is_in_order(way_out_rows, &Way_out_row::way_out, Way_out::linear_or_displayed),
              "every way out has its words, in the order of the enumerators");

Reason_row const& Row_of(Refusal reason) {
    return reason_rows[static_cast<std::size_t>(reason)];
}

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

// ---- The way out, where it depends on the operands

namespace {

// Of volts, amperes, watts and ohms, the one with which a first becomes a second.
Way_out Third_quantity(Units const& first, Units const& second) {
    auto const either = [first = Electrical_of(Kind_of(first)).quantity,
                         second = Electrical_of(Kind_of(second)).quantity](Electrical quantity) {
        return first == quantity || second == quantity;
    };
    return !either(Electrical::resistance) ? Way_out::with_resistance
           : either(Electrical::current)   ? Way_out::with_voltage
                                           : Way_out::with_current;
}

// A product such as %*K goes to a scale as kelvins; otherwise one of the two is marked.
Way_out Way_between_roles(Units const& first, Units const& second) {
    auto const is_on_scale = [](Units const& unit) {
        return Is_temperature(Without_decibels(unit));
    };
    bool const is_of_product =
        Kind_of(first) == Kind_of(second) && !(is_on_scale(first) && is_on_scale(second));
    return is_of_product ? Way_out::to_kelvin : Way_out::mark_difference;
}

// To add a gain to a quantity, that is a level, where it has one.
Way_out Level_of_either(Units const& first, Units const& second) {
    Units const& quantity = Is_gain(first) ? second : first;
    return Level_factor(quantity) != 0 ? Way_out::to_level : Way_out::none;
}

Way_out Way_out_between(Refusal reason, Units const& first, Units const& second) {
    bool const with_gain = Is_gain(first) || Is_gain(second);
    switch (reason) {
    case Refusal::level_and_linear:
        return with_gain ? Level_of_either(first, second) : Way_out::to_linear;
    case Refusal::needs_impedance:
        return Third_quantity(first, second);
    case Refusal::temperature_role:
        return Way_between_roles(first, second);
    case Refusal::levels_do_not_add: // only those of one kind have a sum of powers
        return Kind_of(first) == Kind_of(second) ? Way_out::power_sum : Way_out::none;
    case Refusal::gain_is_ambiguous: // said of a level as well
        return with_gain ? Way_out::ratio_of_gain : Way_out::none;
    default:
        return Row_of(reason).usual;
    }
}

Way_out Way_out_of_conversion(Refusal reason, Units const& from, Units const& to) {
    if (Is_gain(to) && reason == Refusal::gain_is_ambiguous) {
        return Way_out::gain_of_ratio;
    }
    if (Is_gain(to) && reason == Refusal::gain_is_no_quantity) {
        return Level_of_either(from, to);
    }
    return Way_out_between(reason, from, to);
}

} // namespace

// ---- Refusing

void Refuse(Refusal reason, std::string const& operation, Way_out way_out) {
    throw MeasurementRefused(reason, "cannot " + operation, way_out);
}

void Refuse(Refusal reason, std::string const& operation) {
    Refuse(reason, operation, Row_of(reason).usual);
}

void Refuse(Refusal reason, char const* verb, Measurement const& x, char const* conjunction,
            Measurement const& y) {
    Refuse(reason, std::string(verb) + ' ' + Described(x) + ' ' + conjunction + ' ' + Described(y),
           Way_out_between(reason, x.Get_unit(), y.Get_unit()));
}

void Refuse_conversion(Refusal reason, std::string const& from_text, Units const& from,
                       Units const& to) {
    Refuse(reason, "convert " + from_text + " to " + Described(to),
           Way_out_of_conversion(reason, from, to));
}

void Refuse(Refusal reason, char const* verb, Measurement const& x) {
    Refuse(reason, std::string(verb) + ' ' + Described(x),
           Way_out_between(reason, x.Get_unit(), x.Get_unit()));
}

} // namespace Physics

// ---- The names and words of reasons and ways out

char const* Reason_name(Refusal reason) noexcept {
    auto const index = static_cast<std::size_t>(reason);
    return index < std::size(Physics::reason_rows) ? Physics::reason_rows[index].name : "unknown";
}

char const* Reason_words(Refusal reason) noexcept {
    auto const index = static_cast<std::size_t>(reason);
    return index < std::size(Physics::reason_rows) ? Physics::reason_rows[index].words : "";
}

char const* Way_out_words(Way_out way_out) noexcept {
    auto const index = static_cast<std::size_t>(way_out);
    return index < std::size(Physics::way_out_rows) ? Physics::way_out_rows[index].words : "";
}

} // namespace Varnix::Value
