#include "Strict_rules.h"

#include "Reports.h"

#include <varnix/value/Text_formatting.h>
#include <varnix/value/Unit_kinds.h>
#include <varnix/value/Units_library.h>
#include <varnix/value/exceptions.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <stdexcept>

namespace Varnix::Value::Tool {

namespace {

char const* const way_out = " (--by-the-rules skips this check)";
char const* const levels_note =
    "a level is 10 log10 here, of volts and amperes too: 20 dBV is 100 V";

// ---- Words

// "km/h (length/time)".
std::string Described(Units const& unit) {
    std::string const text = Format_unit(unit);
    return text.empty() ? "a plain number" : text + " (" + Kind_name(unit) + ')';
}

// What is asked for, in words that are composed only where it is refused.
using Words = std::function<std::string()>;

[[noreturn]] void Refuse(Words const& what, std::string const& reason) {
    throw Refusal(what() + ": " + reason + way_out);
}

// What the library says of a failure, without the names of its exception classes.
std::string Reason(std::exception const& failure) {
    std::string const text = failure.what();
    std::size_t const last = text.rfind(": ");
    return last == std::string::npos ? text : text.substr(last + 2);
}

// Runs `action`; what the library throws becomes a refusal that starts with `what`.
template <typename Action>
auto Telling(Words const& what, Action const& action) {
    try {
        return action();
    } catch (Value_exception const& failure) {
        throw Refusal(what() + ": the library has no rule for it (" + Reason(failure) + ')');
    } catch (std::out_of_range const&) {
        throw Refusal(what() + ": the result is infinite or not a number");
    }
}

// ---- Questions about units

bool Has_unit(Units const& unit, Units_list code) {
    return std::any_of(std::begin(unit.tuples), std::end(unit.tuples),
                       [&](Unit_tuple const& tuple) { return tuple.unit == code; });
}

// The tuple of a dimension; NO_UNIT where there is none.
Unit_tuple Tuple_of(Units const& unit, Dimension dimension) {
    for (Unit_tuple const& tuple : unit.tuples) {
        if (tuple.unit != NO_UNIT && Units_library::Get_dimension(tuple.unit) == dimension) {
            return tuple;
        }
    }
    return {NO_UNIT, 0};
}

bool Has_units(Units const& unit) {
    return unit.tuples[0].unit != NO_UNIT;
}

bool Is_marked(Units const& unit) {
    return unit.spl_conv == SPL_DB;
}

bool Is_gain(Units const& unit) {
    return Is_marked(unit) && !Has_units(unit);
}

bool Has_binary_prefix(Units const& unit) {
    return Units_library::Get_unit_base(unit) == 2.0;
}

bool Same_unit(Units const& first, Units const& second) {
    return Units_library::Compare_units_DB(first, second, true);
}

// Volts and amperes alone: by common practice their levels are 20 log10.
bool Is_field_level(Units const& unit) {
    bool const field = unit.tuples[0].unit == VOLT || unit.tuples[0].unit == AMP;
    return Is_marked(unit) && field && unit.tuples[0].exponent == 1 &&
           unit.tuples[1].unit == NO_UNIT;
}

// Power written as V^2/ohm, VA or A^2 ohm.
bool Is_product_power(Units const& unit) {
    return !Has_unit(unit, WATT) && Same_kind(unit, C_Watts);
}

// What a unit without dimension counts: angles, symbols and ratios do not convert into one another.
enum class Counting { nothing, angle, symbol, ratio };

Counting Counting_of(Units const& unit) {
    switch (Tuple_of(unit, DIMENSIONLESS).unit) {
    case NO_UNIT:
        return Counting::nothing;
    case RADIAN:
    case DEGREE:
        return Counting::angle;
    case SYMBOL:
        return Counting::symbol;
    default:
        return Counting::ratio;
    }
}

// ---- Conversions

// A number without unit lacks one: no rule to be skipped stands in the way.
void Check_has_unit(Units const& from, Units const& to, Words const& what) {
    if (!Has_units(from) && !Is_marked(from) && Has_units(to)) {
        throw Refusal(what() + ": the number needs its unit, as in '5 " + Format_unit(to) + '\'');
    }
}

void Check_kinds(Units const& from, Units const& to, Words const& what) {
    if (!Same_kind(from, to)) {
        Refuse(what, "the kinds differ");
    }
    if (Counting_of(from) != Counting_of(to)) {
        Refuse(what, "plain numbers, ratios, symbols and angles are kinds of their own");
    }
}

// The formulas hold for a temperature alone: a prefix would act after them.
void Check_temperatures(Units const& from, Units const& to, Words const& what) {
    Unit_tuple const source = Tuple_of(from, TEMPERATURE);
    Unit_tuple const target = Tuple_of(to, TEMPERATURE);
    if (source.unit == target.unit) {
        return;
    }
    if (!Same_unit(from, {SPL_NONE, NO_PREFIX, {{source.unit, 1}}}) ||
        !Same_unit(to, {SPL_NONE, NO_PREFIX, {{target.unit, 1}}})) {
        Refuse(what, "temperatures convert alone, without prefix, power or other units");
    }
}

bool Same_dimensions(Units const& first, Units const& second) {
    return std::equal(std::begin(first.tuples), std::end(first.tuples), std::begin(second.tuples),
                      [](Unit_tuple const& left, Unit_tuple const& right) {
                          return Units_library::Get_dimension(left.unit) ==
                                 Units_library::Get_dimension(right.unit);
                      });
}

// Of one kind but written in other dimensions: only a power written as a product has a rule, and
// that one leaves decibels behind.
void Check_forms(Units const& from, Units const& to, Words const& what) {
    if (Same_dimensions(from, to)) {
        return;
    }
    if (!Is_product_power(from) || Is_product_power(to)) {
        Refuse(what, "the library has no rule for it");
    }
    if (Is_marked(from)) {
        Units linear = from;
        linear.spl_conv = SPL_NONE;
        Refuse(what, "convert to " + Format_unit(linear) + " first");
    }
    if (Is_marked(to)) {
        Refuse(what, "convert to W first, and then to the level");
    }
}

void Check_conversion(Units const& from, Units const& to, Words const& what) {
    Check_kinds(from, to, what);
    Check_temperatures(from, to, what);
    Check_forms(from, to, what);
}

std::string Conversion_words(Units const& from, Units const& to) {
    return "cannot convert " + Described(from) + " to " + Described(to);
}

void Note_field_levels(Units const& from, Units const& to, std::string& note) {
    if (Is_marked(from) != Is_marked(to) && (Is_field_level(from) || Is_field_level(to))) {
        note = levels_note;
    }
}

} // namespace

Value_converter<double> Prepare(Units const& from, Units const& to, Rules rules,
                                std::string& note) {
    Words const what = [&] { return Conversion_words(from, to); };
    if (rules == Rules::strict) {
        Check_has_unit(from, to, what);
        Check_conversion(from, to, what);
        Note_field_levels(from, to, note);
    }
    return Telling(what, [&] { return Value_converter<double>(from, to); });
}

void Require_finite(double result, std::string const& input, Units const& unit) {
    if (!std::isfinite(result)) {
        std::string const text = Format_unit(unit);
        throw Refusal(input + " has no finite value" + (text.empty() ? "" : " in " + text) +
                      ": the result is " + Format_number(result));
    }
}

namespace {

// Both bounds and the value; the words for `input` are composed only on refusal.
void Require_finite(Quantity const& result, Words const& input, Rules rules) {
    for (double const number :
         {result.Get_value(), result.Get_minus_err(), result.Get_plus_err()}) {
        if (rules == Rules::strict && !std::isfinite(number)) {
            Tool::Require_finite(number, input(), result.Get_unit());
        }
    }
}

} // namespace

void Require_finite(Quantity const& result, Quantity const& input, Rules rules) {
    Require_finite(
        result, [&] { return Format(input); }, rules);
}

Quantity Convert_with(Quantity const& quantity, Units const& to, Quantity const& with, Rules rules,
                      std::string& note) {
    Units const from = quantity.Get_unit();
    Units const other = with.Get_unit();
    Words const what = [&] { return Conversion_words(from, to) + " with " + Described(other); };
    if (rules == Rules::strict) {
        if (Has_binary_prefix(from) || Has_binary_prefix(to) || Has_binary_prefix(other)) {
            Refuse(what, "a binary prefix would count as a power of ten");
        }
        for (Units const& unit : {from, to, other}) {
            Note_field_levels(unit, {}, note);
        }
    }
    Quantity result = Telling(what, [&] { return quantity.Convert_to_with_value(to, with); });
    Require_finite(result, quantity, rules);
    return result;
}

// ---- Operations

namespace {

std::string Operation_words(Quantity const& left, Operation operation, Quantity const& right) {
    std::string const first = Described(left.Get_unit());
    std::string const second = Described(right.Get_unit());
    switch (operation) {
    case Operation::sum:
        return "cannot add " + first + " and " + second;
    case Operation::difference:
        return "cannot take " + second + " from " + first;
    case Operation::product:
        return "cannot multiply " + first + " by " + second;
    case Operation::quotient:
        return "cannot divide " + first + " by " + second;
    default:
        return "cannot compare " + first + " with " + second;
    }
}

void Check_no_temperature_points(Units const& left, Units const& right, Words const& what) {
    for (Units const& unit : {left, right}) {
        if (Has_unit(unit, DEGREE_C) || Has_unit(unit, DEGREE_F)) {
            Refuse(what, "degrees Celsius and Fahrenheit are points of a scale; use K");
        }
    }
}

// ---- Sums and comparisons

void Check_gain(Units const& left, Units const& right, Words const& what) {
    if (Is_gain(left) != Is_gain(right)) {
        Refuse(what, "a gain changes a level by a factor; the kinds differ");
    }
}

void Check_sum(Quantity const& left, Quantity const& right, Words const& what, std::string& note) {
    Units const first = left.Get_unit();
    Units const second = right.Get_unit();
    Check_gain(first, second, what);
    Check_conversion(first, second, what);
    Check_no_temperature_points(first, second, what);
    if (Is_field_level(first) || Is_field_level(second)) {
        note = "levels add as powers here, of volts and amperes too";
    }
}

// Powers written as products convert into watts and not back: of two that differ, both are brought
// there.
void Bring_to_watts(Quantity& left, Quantity& right) {
    if (Same_unit(left.Get_unit(), right.Get_unit())) {
        return;
    }
    for (Quantity* const quantity : {&left, &right}) {
        if (Is_product_power(quantity->Get_unit()) && !Is_marked(quantity->Get_unit())) {
            *quantity = quantity->Convert_to(C_Watts);
        }
    }
}

// ---- Products

void Check_product(Quantity const& left, Quantity const& right, Words const& what,
                   std::string& note) {
    Units const first = left.Get_unit();
    Units const second = right.Get_unit();
    if (Is_gain(first) || Is_gain(second)) {
        Refuse(what, "plain decibels are no factor");
    }
    if (Has_units(first) != Has_units(second)) {
        Refuse(what, "a value without unit would take the other's unit");
    }
    Check_no_temperature_points(first, second, what);
    Counting const counted = Counting_of(first);
    if (counted != Counting_of(second) && counted != Counting::nothing &&
        Counting_of(second) != Counting::nothing) {
        Refuse(what, "angles, symbols and ratios do not convert into one another");
    }
    if (Is_field_level(first) || Is_field_level(second)) {
        note = levels_note;
    }
}

// Whether the two write a dimension that they share in different units.
bool Differ_in_a_unit(Units const& first, Units const& second) {
    for (Unit_tuple const& tuple : first.tuples) {
        Dimension const dimension = Units_library::Get_dimension(tuple.unit);
        Unit_tuple const other = Tuple_of(second, dimension);
        if (tuple.unit != NO_UNIT && other.unit != NO_UNIT && tuple.unit != other.unit) {
            return true;
        }
    }
    return false;
}

// `unit` without its prefix and in base units; what reduces to no unit in common with `other`
// (ratios, angles) goes by that of `other`.
Units In_common_units(Units unit, Units const& other) {
    unit.si_prefix = NO_PREFIX;
    for (Unit_tuple& tuple : unit.tuples) {
        Dimension const dimension = Units_library::Get_dimension(tuple.unit);
        if (dimension == DIMENSIONLESS) {
            Unit_tuple const wanted = Tuple_of(other, DIMENSIONLESS);
            tuple.unit = wanted.unit == NO_UNIT ? tuple.unit : wanted.unit;
        } else if (dimension != TEMPERATURE && dimension != NO_DIMENSION) {
            tuple.unit =
                Units_library::Get_base_unit({SPL_NONE, NO_PREFIX, {tuple}}).tuples[0].unit;
        }
    }
    return unit;
}

// A product of units like mph and s is wrong where the library brings them together by itself.
void Bring_to_common_units(Quantity& left, Quantity& right, std::string& note) {
    Units const first = left.Get_unit();
    Units const second = right.Get_unit();
    if (Differ_in_a_unit(first, second)) {
        left = left.Convert_to(In_common_units(first, first));
        right = right.Convert_to(In_common_units(second, first));
        note = "computed in base units: " + Format(left) + " and " + Format(right);
    }
}

Quantity Apply(Quantity const& left, Operation operation, Quantity const& right) {
    Quantity result = left;
    switch (operation) {
    case Operation::sum:
        return result += right;
    case Operation::difference:
        return result -= right;
    case Operation::product:
        return result *= right;
    default:
        return result /= right;
    }
}

} // namespace

Quantity Calculate(Quantity const& left, Operation operation, Quantity const& right, Rules rules,
                   std::string& note) {
    Words const what = [&] { return Operation_words(left, operation, right); };
    Quantity first = left;
    Quantity second = right;
    Quantity result = Telling(what, [&] {
        if (rules == Rules::strict) {
            if (operation == Operation::sum || operation == Operation::difference) {
                Bring_to_watts(first, second);
                Check_sum(first, second, what, note);
            } else {
                Check_product(first, second, what, note);
                Bring_to_common_units(first, second, note);
            }
        }
        return Apply(first, operation, second);
    });
    Require_finite(
        result, [] { return std::string("the result"); }, rules);
    return result;
}

bool Compare(Quantity const& left, Operation operation, Quantity const& right, Rules rules) {
    Words const what = [&] { return Operation_words(left, operation, right); };
    Quantity first = left;
    Quantity second = right;
    return Telling(what, [&] {
        if (rules == Rules::strict) {
            Bring_to_watts(first, second);
            Check_gain(first.Get_unit(), second.Get_unit(), what);
            Check_conversion(first.Get_unit(), second.Get_unit(), what);
        }
        switch (operation) {
        case Operation::less:
            return first < second;
        case Operation::less_or_equal:
            return first <= second;
        case Operation::greater:
            return first > second;
        case Operation::greater_or_equal:
            return first >= second;
        case Operation::equal:
            return first == second;
        default:
            return first != second;
        }
    });
}

} // namespace Varnix::Value::Tool
