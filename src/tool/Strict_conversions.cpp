#include "Strict_conversions.h"

#include "Unit_questions.h"

#include <varnix/value/Text_formatting.h>
#include <varnix/value/Unit_kinds.h>
#include <varnix/value/Units_library.h>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace Varnix::Value::Tool {

namespace {

// A number without unit lacks one: no rule to be skipped stands in the way.
void Check_has_unit(Units const& from, Units const& to, Wording const& what) {
    if (!Has_units(from) && !Is_marked(from) && Has_units(to)) {
        throw Refusal(what() + ": the number needs its unit, as in '5 " + Format_unit(to) + '\'');
    }
}

void Check_kinds(Units const& from, Units const& to, Wording const& what) {
    if (!Same_kind(from, to)) {
        Refuse(what, "the kinds differ");
    }
    if (Counting_of(from) != Counting_of(to)) {
        Refuse(what, "plain numbers, ratios, symbols and angles are kinds of their own");
    }
}

// The formulas hold for a temperature alone: a prefix would act after them.
void Check_temperatures(Units const& from, Units const& to, Wording const& what) {
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
void Check_forms(Units const& from, Units const& to, Wording const& what) {
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

} // namespace

void Check_conversion(Units const& from, Units const& to, Wording const& what) {
    Check_kinds(from, to, what);
    Check_temperatures(from, to, what);
    Check_forms(from, to, what);
}

namespace {

std::string Conversion_words(Units const& from, Units const& to) {
    return "cannot convert " + Described(from) + " to " + Described(to);
}

void Note_field_levels(Units const& from, Units const& to, std::string& note) {
    if (Is_marked(from) != Is_marked(to) && (Is_field_level(from) || Is_field_level(to))) {
        note = Levels_note;
    }
}

} // namespace

Value_converter<double> Prepare(Units const& from, Units const& to, Rules rules,
                                std::string& note) {
    Wording const what = [&] { return Conversion_words(from, to); };
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

void Require_finite(Quantity const& result, Wording const& input, Rules rules) {
    for (double const number :
         {result.Get_value(), result.Get_minus_err(), result.Get_plus_err()}) {
        if (rules == Rules::strict && !std::isfinite(number)) {
            Require_finite(number, input(), result.Get_unit());
        }
    }
}

Quantity Convert_with(Quantity const& quantity, Units const& to, Quantity const& with, Rules rules,
                      std::string& note) {
    Units const from = quantity.Get_unit();
    Units const other = with.Get_unit();
    Wording const what = [&] { return Conversion_words(from, to) + " with " + Described(other); };
    if (rules == Rules::strict) {
        if (Has_binary_prefix(from) || Has_binary_prefix(to) || Has_binary_prefix(other)) {
            Refuse(what, "a binary prefix would count as a power of ten");
        }
        for (Units const& unit : {from, to, other}) {
            Note_field_levels(unit, {}, note);
        }
    }
    Quantity result = Telling(what, [&] { return quantity.Convert_to_with_value(to, with); });
    Require_finite(
        result, [&] { return Format(quantity); }, rules);
    return result;
}

} // namespace Varnix::Value::Tool
