// The definition of a conversion.
//
// A conversion is looked for in three places: the rules for whole units, then the rules for single
// slots, then the catalogue's factor for what these leave. The end is common to all: decibels are
// made linear, the prefixes applied, and the result turned into decibels where the target asks for
// it. Rules are compared with the source's unit as it is stored; all else works on it in canonical
// order.

#include "conversion/Conversion.h"

#include "conversion/Conversion_rules.h"
#include "errors/Throw.h"
#include "units/Tuples.h"

namespace Varnix::Value {

namespace {

// Adds a rule. Its function makes a value in the target, and so rejects a target with an empty slot
// ahead of an occupied one; the one from Celsius to Fahrenheit stores it as it is.
void Add_rule(Conversion_steps& steps, Formula formula, bool inverts, Units const& to) {
    if (formula != Formula::celsius_to_fahrenheit && !Is_packed(to)) {
        Throw<OperationNotValid>();
    }
    steps.rules[steps.rule_count++] = {formula, inverts};
}

// ---- Rules for whole units

enum class Rule_match {
    none,
    direct,   // both units are those of the rule, or both are their reciprocals
    inverted, // one is, the other is the reciprocal
};

Rule_match Match_rule(Units_conversion<double> const& rule, Units const& from, Units const& to) {
    bool const from_matches = Have_equal_tuples(from, rule.from_unit);
    if (!from_matches && !Units_library::Is_Invert_units(from, rule.from_unit)) {
        return Rule_match::none;
    }
    if (Have_equal_tuples(to, rule.to_unit)) {
        return from_matches ? Rule_match::direct : Rule_match::inverted;
    }
    if (Units_library::Is_Invert_units(to, rule.to_unit)) {
        return from_matches ? Rule_match::inverted : Rule_match::direct;
    }
    return Rule_match::none;
}

// Adds the first rule that matches both units; false if there is none.
bool Apply_whole_unit_rule(Conversion_steps& steps, Units const& from, Units const& to) {
    for (Rule_with_formula const& rule : rules_with_formulas) {
        Rule_match const match = Match_rule(*rule.rule, from, to);
        if (match != Rule_match::none) {
            Add_rule(steps, rule.formula, match == Rule_match::inverted, to);
            return true;
        }
    }
    return false;
}

// ---- Rules for single slots

bool Begins_with(Units const& unit, Unit_tuple const& tuple) {
    return unit.tuples[0].unit == tuple.unit;
}

// Adds every rule for the two units of a slot: volts to watts are named by two rules, and both are
// applied. In `working`, a slot that a rule converts gets the target's unit.
void Apply_slot_rules(Conversion_steps& steps, Units const& from, Units const& to, Units& working) {
    for (std::size_t slot = 0; slot < Value_detail::Tuple_count; ++slot) {
        Unit_tuple const& source = from.tuples[slot];
        Unit_tuple const& target = to.tuples[slot];
        if (source.unit == NO_UNIT || target.unit == NO_UNIT) {
            continue;
        }
        if (Powers_differ_in_magnitude(source, target)) {
            Throw<UnitDimensionNotSame>();
        }
        for (Rule_with_formula const& rule : rules_with_formulas) {
            if (Begins_with(rule.rule->from_unit, source) &&
                Begins_with(rule.rule->to_unit, target)) {
                Add_rule(steps, rule.formula, target.exponent < 0, to);
                working.tuples[slot].unit = target.unit;
            }
        }
    }
}

} // namespace

// ---- The definition

Units Arranged_and_packed(Units const& unit) {
    Units const arranged = Units_library::Arrange_tuple(unit);
    if (!Is_packed(arranged)) {
        Throw<OperationNotValid>();
    }
    return arranged;
}

void Define_conversion(Conversion_steps& steps, Units const& from, Units const& target, Units& to) {
    steps.rule_count = 0;
    to = Units_library::Arrange_tuple(target);
    Units working = Arranged_and_packed(from);
    if (Apply_whole_unit_rule(steps, from, to)) {
        Define_end(steps, 1.0, to, from,
                   to); // the rule's function has set the target's unit, its marker too
        return;
    }
    Apply_slot_rules(steps, from, to, working);
    Define_end(steps, Units_library::Get_conversion_factor(to, working), working, from, to);
}

// ---- Applying it

namespace {

void Apply_rules(Conversion_steps const& steps, Numbers& numbers) {
    for (std::size_t k = 0; k < steps.rule_count; ++k) {
        With_formula(steps.rules[k].formula,
                     [&numbers](auto const& formula) { numbers.Transform(formula); });
        numbers.Order_as_made_and_copied();
        if (steps.rules[k].inverts) {
            numbers.Transform([](double number) { return Value_object<double>::ONE / number; });
            numbers.Order();
        }
    }
}

} // namespace

Numbers After_steps(Conversion_steps const& steps, Numbers numbers) {
    numbers.Order(); // the source, constructed
    Apply_rules(steps, numbers);
    numbers.Order(); // the copy that is made linear
    if (steps.from_decibels) {
        numbers = Made_linear(numbers, steps.source_product);
    }
    numbers.Order(); // assigned
    numbers.Transform(
        [&steps](double number) { return number * steps.factor * steps.target_scale; });
    if (steps.to_decibels) {
        numbers.Order(); // the copy that is turned into decibels
        numbers = Made_decibels(numbers, steps.target_product);
        numbers.Order(); // assigned
    }
    return numbers;
}

} // namespace Varnix::Value
