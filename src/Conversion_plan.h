// The one place that decides how a unit is converted into another. Conversions of single values and
// prepared conversions both follow the plan it makes.
//
// A conversion is looked for in three places: the rules for whole units, then the rules for single
// slots, then the catalogue's factor. The common end makes decibels linear, applies the prefixes
// and turns the result into decibels where the target asks for it. Rules are compared with the
// source's unit as it is stored; everything else works on it in canonical order.

#ifndef VARNIX_VALUE_CONVERSION_PLAN_H
#define VARNIX_VALUE_CONVERSION_PLAN_H

#include "Conversion_rules.h"
#include "Number_formulas.h"
#include "Tuples.h"
#include "Unit_facts.h"
#include "Value_steps.h"

namespace Varnix::Value {

namespace {

// ---- Applying a rule

// What a rule's function does to a number.
inline Formula Formula_of(Units_conversion<double> const& rule) {
    using Value = Value_object<double>;
    struct Row {
        decltype(rule.conv_fn) function;
        Formula formula;
    };
    constexpr Row rows[] = {
        {&Value::Convert_degreeC_to_degreeF, Formula::celsius_to_fahrenheit},
        {&Value::Convert_degreeF_to_degreeC, Formula::fahrenheit_to_celsius},
        {&Value::Convert_degreeC_to_kelvin, Formula::celsius_to_kelvin},
        {&Value::Convert_degreeF_to_kelvin, Formula::fahrenheit_to_kelvin},
        {&Value::Convert_kelvin_to_degreeC, Formula::kelvin_to_celsius},
        {&Value::Convert_kelvin_to_degreeF, Formula::kelvin_to_fahrenheit},
    };
    for (Row const& row : rows) {
        if (row.function == rule.conv_fn) {
            return row.formula;
        }
    }
    return Formula::identity;
}

// Adds a rule to the plan. Its function makes a value in the target, and so rejects a target with
// an empty slot ahead of an occupied one; the one from Celsius to Fahrenheit stores it as it is.
inline void Plan_rule(Conversion_plan& plan, Units_conversion<double> const& rule, bool inverts) {
    Formula const formula = Formula_of(rule);
    if (formula != Formula::celsius_to_fahrenheit && !Is_packed(plan.target)) {
        throw OperationNotValid();
    }
    plan.rules[plan.rule_count++] = {formula, inverts};
}

inline bool Rule_names_units(Units_conversion<double> const& rule, Units_list from, Units_list to) {
    return rule.from_unit.tuples[0].unit == from && rule.to_unit.tuples[0].unit == to;
}

// ---- Rules for whole units

enum class Rule_match {
    none,
    direct,   // both units are those of the rule, or both are their reciprocals
    inverted, // one is, the other is the reciprocal
};

inline Rule_match Match_rule(Units_conversion<double> const& rule, Units const& from,
                             Units const& to) {
    bool const from_matches = Units_library::Compare_units(from, rule.from_unit, false);
    if (!from_matches && !Units_library::Is_Invert_units(from, rule.from_unit)) {
        return Rule_match::none;
    }
    if (Units_library::Compare_units(to, rule.to_unit, false)) {
        return from_matches ? Rule_match::direct : Rule_match::inverted;
    }
    if (Units_library::Is_Invert_units(to, rule.to_unit)) {
        return from_matches ? Rule_match::inverted : Rule_match::direct;
    }
    return Rule_match::none;
}

// Plans the first rule that matches both units; false if there is none.
inline bool Plan_whole_unit_rule(Conversion_plan& plan, Units const& from) {
    for (Units_conversion<double> const& rule : Units_conv<double>::Unit_conv_vect) {
        // No unit matches that does not begin with the rule's: looking at it first saves the rest.
        if (!Rule_names_units(rule, from.tuples[0].unit, plan.target.tuples[0].unit)) {
            continue;
        }
        Rule_match const match = Match_rule(rule, from, plan.target);
        if (match != Rule_match::none) {
            Plan_rule(plan, rule, match == Rule_match::inverted);
            return true;
        }
    }
    return false;
}

// ---- Rules for single slots

// Plans, slot by slot, every rule for the slot's two units: volts to watts are named by two rules,
// and both are applied. In `working`, the slots that a rule converts get the target's unit.
inline void Plan_slot_rules(Conversion_plan& plan, Units const& from, Units& working) {
    for (std::size_t slot = 0; slot < Tuple_count; ++slot) {
        Unit_tuple const& source = from.tuples[slot];
        Unit_tuple const& target = plan.target.tuples[slot];
        if (source.unit == NO_UNIT || target.unit == NO_UNIT) {
            continue;
        }
        if (Powers_differ_in_magnitude(source, target)) {
            throw UnitDimensionNotSame();
        }
        for (Units_conversion<double> const& rule : Units_conv<double>::Unit_conv_vect) {
            if (Rule_names_units(rule, source.unit, target.unit)) {
                Plan_rule(plan, rule, target.exponent < 0);
                working.tuples[slot].unit = target.unit;
            }
        }
    }
}

// ---- The plan

// Whether a rule could apply at all: whether one begins with one of the units. That spares almost
// every conversion the search.
inline bool May_have_rules(Units const& from) {
    for (Unit_tuple const& tuple : from.tuples) {
        switch (Unit_facts const* const facts = Find_facts(tuple.unit);
                facts == nullptr ? NO_DIMENSION : facts->dimension) {
        case VOLTAGE:
        case CURRENT:
        case TEMPERATURE:
            return true;
        default:
            break;
        }
    }
    return false;
}

// The product of the exponents up to the first empty slot, by which decibels count; 1 without unit.
inline double Exponent_product(Units const& unit) {
    double product = 1.0;
    for (Unit_tuple const& tuple : unit.tuples) {
        if (tuple.unit == NO_UNIT) {
            break;
        }
        product *= static_cast<double>(tuple.exponent);
    }
    return product;
}

// `unit` in canonical order, as a value in it would have it.
inline Units Arranged_as_source(Units const& unit) {
    Units const arranged = Units_library::Arrange_tuple(unit);
    if (!Is_packed(arranged)) {
        throw OperationNotValid();
    }
    return arranged;
}

// Plans the rules and the factor, and returns the unit that the numbers are then in, but for the
// factor. A unit in canonical order that no rule begins with leaves nothing to search: the factor
// refuses what the slots would.
inline Units Plan_rules_and_factor(Conversion_plan& plan, Units const& from) {
    bool const canonical = Is_canonical(from);
    Units working = canonical ? from : Arranged_as_source(from);
    plan.rule_count = 0;
    plan.factor = 1.0;
    if (!canonical || May_have_rules(from)) {
        if (Plan_whole_unit_rule(plan, from)) {
            return plan.target; // the rule's function has set it, marker included
        }
        Plan_slot_rules(plan, from, working);
    }
    plan.factor = Units_library::Get_conversion_factor(plan.target, working);
    return working;
}

// The plan from `from`, as it is stored, to `to`.
inline Conversion_plan Plan_conversion(Units const& from, Units const& to) {
    Conversion_plan plan;
    plan.source = from;
    plan.target = Units_library::Arrange_tuple(to);
    Units const working = Plan_rules_and_factor(plan, from);
    plan.from_decibels = Is_decibel(working);
    plan.source_product = Exponent_product(working);
    plan.factor = plan.factor * Prefix_scale(from.si_prefix);
    // The target's prefix is a multiplication of its own: the two are rounded separately.
    plan.target_scale = Prefix_scale(plan.target.si_prefix, -1);
    plan.to_decibels = Is_decibel(plan.target);
    plan.target_product = Exponent_product(plan.target) * Value_object<double>::DB_CONV_FACT;
    return plan;
}

} // namespace

} // namespace Varnix::Value

#endif
