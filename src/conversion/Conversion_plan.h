// The one place that decides how a unit is converted into another. Conversions of single values and
// prepared conversions both follow the plan it makes.
//
// A conversion is looked for in three places: the rules for whole units, then the rules for single
// slots, then the catalogue's factor. The common end makes decibels linear, applies the prefixes
// and turns the result into decibels where the target asks for it. Rules are compared with the
// source's unit as it is stored; everything else works on it in canonical order.

#ifndef VARNIX_VALUE_CONVERSION_PLAN_H
#define VARNIX_VALUE_CONVERSION_PLAN_H

#include "conversion/Conversion_rules.h"
#include "conversion/Number_formulas.h"
#include "conversion/Value_steps.h"
#include "errors/Throw.h"
#include "units/Tuples.h"
#include "units/Unit_facts.h"

#include <optional>

namespace Varnix::Value {

namespace {

// ---- Applying a rule

// Adds a rule to the steps. Its function makes a value in the target, and so rejects a target with
// an empty slot ahead of an occupied one; the one from Celsius to Fahrenheit stores it as it is.
inline void Plan_rule(Conversion_steps& steps, Indexed_rule const& rule, Units const& to,
                      bool inverts) {
    if (rule.formula != Formula::celsius_to_fahrenheit && !Is_packed(to)) {
        Throw<OperationNotValid>();
    }
    steps.rules[steps.rule_count++] = {rule.formula, inverts};
}

// ---- Rules for whole units

enum class Rule_match {
    none,
    direct,   // both units are those of the rule, or both are their reciprocals
    inverted, // one is, the other is the reciprocal
};

inline Rule_match Match_rule(Units_conversion<double> const& rule, Units const& from,
                             Units const& to) {
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

// Plans the first rule that matches both units; false if there is none.
inline bool Plan_whole_unit_rule(Conversion_steps& steps, Units const& from, Units const& to) {
    for (Indexed_rule const& rule : indexed_rules) {
        // No unit matches that does not begin with the rule's: looking at it first saves the rest.
        if (rule.from != from.tuples[0].unit || rule.to != to.tuples[0].unit) {
            continue;
        }
        Rule_match const match = Match_rule(*rule.rule, from, to);
        if (match != Rule_match::none) {
            Plan_rule(steps, rule, to, match == Rule_match::inverted);
            return true;
        }
    }
    return false;
}

// ---- Rules for single slots

// Plans, slot by slot, every rule for the slot's two units: volts to watts are named by two rules,
// and both are applied. In `working`, the slots that a rule converts get the target's unit.
inline void Plan_slot_rules(Conversion_steps& steps, Units const& from, Units const& to,
                            Units& working) {
    for (std::size_t slot = 0; slot < Tuple_count; ++slot) {
        Unit_tuple const& source = from.tuples[slot];
        Unit_tuple const& target = to.tuples[slot];
        if (source.unit == NO_UNIT || target.unit == NO_UNIT) {
            continue;
        }
        if (Powers_differ_in_magnitude(source, target)) {
            Throw<UnitDimensionNotSame>();
        }
        for (Indexed_rule const& rule : indexed_rules) {
            if (rule.from == source.unit && rule.to == target.unit) {
                Plan_rule(steps, rule, to, target.exponent < 0);
                working.tuples[slot].unit = target.unit;
            }
        }
    }
}

// ---- The factor alone

// The dimensions of the units that rules begin with: any other goes by its factor alone.
inline constexpr Dimension_set dimensions_with_rules =
    Set_of(VOLTAGE) | Set_of(CURRENT) | Set_of(TEMPERATURE);

inline bool Begins_like_a_rule(Units const& unit) {
    return (Facts_of(unit.tuples[0].unit).dimension_set & dimensions_with_rules) != 0;
}

// Nearly all conversions are between two units in canonical order that agree in dimension and power
// slot by slot, and that no rule begins with. One walk over the two sees that, and hands the facts
// of each slot and its power to `use`. False for every other pair.
template <typename Use>
bool Walk_by_factor_alone(Units const& from, Units const& to, Use const& use) {
    Dimension_set last = 0;
    std::size_t k = 0;
    for (; k < Tuple_count && from.tuples[k].unit != NO_UNIT; ++k) {
        Unit_tuple const& source = from.tuples[k];
        Unit_tuple const& target = to.tuples[k];
        Unit_facts const& source_facts = Facts_of(source.unit);
        Unit_facts const& target_facts = Facts_of(target.unit);
        Dimension_set const own = source_facts.dimension_set;
        if (own != target_facts.dimension_set || own <= last ||
            (own & dimensions_with_rules) != 0 || source.exponent != target.exponent) {
            return false;
        }
        last = own;
        use(source_facts, target_facts, source.exponent);
    }
    // Without a branch for every slot: what follows is hardly ever occupied.
    std::int32_t occupied = 0;
    for (; k < Tuple_count; ++k) {
        occupied |= from.tuples[k].unit | to.tuples[k].unit;
    }
    return occupied == NO_UNIT;
}

// Whether the two are one unit in canonical order, prefixes and markers apart: no rule converts a
// unit into itself, and its factor is 1.0.
inline bool Differ_in_prefix_alone(Units const& from, Units const& to) {
    return Have_equal_tuples(from, to) && Canonical_dimensions(from) != Not_canonical;
}

// What the numbers of a conversion without rules and decibels are multiplied with. The two are
// rounded separately.
struct Factors {
    double factor;       // the prefix of the source included
    double target_scale; // the reciprocal scale of the target's prefix
};

inline Factors With_prefixes(double factor, SI_units from, SI_units to) {
    return {factor * Prefix_scale(from), Reciprocal_prefix_scale(to)};
}

// The factors of the way from one unit to the other, and of the way back.
struct Factors_of_both_ways {
    Factors there;
    Factors back;
};

// The two ways between units of linear values, found in one walk. No result where they take more
// than factors.
inline std::optional<Factors_of_both_ways> Find_factors_of_both_ways(Units const& from,
                                                                     Units const& to) {
    double there = 1.0;
    double back = 1.0;
    auto const use = [&there, &back](Unit_facts const& from_facts, Unit_facts const& to_facts,
                                     std::int32_t power) {
        there = Combined_factor(there, Factor_between(from_facts, power, to_facts, power));
        back = Combined_factor(back, Factor_between(to_facts, power, from_facts, power));
    };
    if (!Differ_in_prefix_alone(from, to) && !Walk_by_factor_alone(from, to, use)) {
        return std::nullopt;
    }
    return Factors_of_both_ways{With_prefixes(there, from.si_prefix, to.si_prefix),
                                With_prefixes(back, to.si_prefix, from.si_prefix)};
}

// ---- The plan

// `unit` in canonical order: itself, or where it is not an arranged copy in `storage`.
[[gnu::noinline]] inline Units const& Arranged(Units const& unit, Units& storage) {
    if (Canonical_dimensions(unit) != Not_canonical) {
        return unit;
    }
    return storage = Units_library::Arrange_tuple(unit);
}

// Takes down what the unit says that the numbers are in when the rules have been applied.
inline void Plan_source(Conversion_steps& steps, Units const& working) {
    steps.from_decibels = Is_decibel(working);
    steps.source_product = steps.from_decibels ? Exponent_product(working) : 1.0;
}

// The same for the unit of a value, which has no empty slot ahead of an occupied one.
inline Units const& Arranged_source(Units const& unit, Units& storage) {
    Units const& arranged = Arranged(unit, storage);
    if (&arranged == &storage && !Is_packed(arranged)) {
        Throw<OperationNotValid>();
    }
    return arranged;
}

// Searches the rules, and plans those that apply and the factor for what they leave.
inline void Plan_rules_and_factor(Conversion_steps& steps, Units const& from, Units const& to) {
    Units storage;
    Units const& arranged = Arranged_source(from, storage);
    steps.factor = 1.0;
    if (Plan_whole_unit_rule(steps, from, to)) {
        Plan_source(steps, to); // the rule's function has set the target's unit, marker included
        return;
    }
    Units working = arranged;
    Plan_slot_rules(steps, from, to, working);
    Plan_source(steps, working);
    steps.factor = Units_library::Get_conversion_factor(to, working);
}

// Takes down what the prefixes and the target's marker ask for.
inline void Plan_end(Conversion_steps& steps, Units const& from, Units const& to) {
    Factors const factors = With_prefixes(steps.factor, from.si_prefix, to.si_prefix);
    steps.factor = factors.factor;
    steps.target_scale = factors.target_scale;
    steps.to_decibels = Is_decibel(to);
    steps.target_product =
        steps.to_decibels ? Exponent_product(to) * Value_object<double>::DB_CONV_FACT : 1.0;
}

// Plans the rule whose two units these are, prefixes and markers apart; false if there is none.
// Such units are in canonical order, as those of the rules are.
inline bool Plan_rule_by_name(Conversion_steps& steps, Units const& from, Units const& to) {
    for (Indexed_rule const& rule : indexed_rules) {
        if (rule.from == from.tuples[0].unit && rule.to == to.tuples[0].unit &&
            Have_equal_tuples(from, rule.rule->from_unit) &&
            Have_equal_tuples(to, rule.rule->to_unit)) {
            steps.rules[steps.rule_count++] = {rule.formula, false};
            steps.factor = 1.0;
            Plan_source(steps, to); // the rule's function has set the target's unit
            return true;
        }
    }
    return false;
}

inline bool Plan_prefixes_alone(Conversion_steps& steps, Units const& from, Units const& to) {
    if (!Differ_in_prefix_alone(from, to)) {
        return false;
    }
    steps.factor = 1.0;
    Plan_source(steps, from);
    return true;
}

inline bool Plan_factor_alone(Conversion_steps& steps, Units const& from, Units const& to) {
    double factor = 1.0;
    auto const use = [&factor](Unit_facts const& from_facts, Unit_facts const& to_facts,
                               std::int32_t power) {
        factor = Combined_factor(factor, Factor_between(from_facts, power, to_facts, power));
    };
    if (!Walk_by_factor_alone(from, to, use)) {
        return false;
    }
    steps.factor = factor;
    Plan_source(steps, from);
    return true;
}

// Plans the ways that nearly all conversions take; false for the others, and nothing is planned.
inline bool Plan_short_way(Conversion_steps& steps, Units const& from, Units const& to) {
    if (Begins_like_a_rule(from)) {
        return Plan_rule_by_name(steps, from, to) || Plan_prefixes_alone(steps, from, to);
    }
    return Plan_factor_alone(steps, from, to);
}

// The way of any two units.
[[gnu::cold, gnu::noinline]] inline Units const&
Plan_in_general(Conversion_steps& steps, Units const& from, Units const& target, Units& storage) {
    Units const& to = Arranged(target, storage);
    Plan_rules_and_factor(steps, from, to);
    Plan_end(steps, from, to);
    return to;
}

// Plans the way from `from`, as it is stored, to `target`. Returns the target in canonical order:
// itself, or an arranged copy in `storage`.
[[gnu::noinline]] inline Units const& Plan_conversion(Conversion_steps& steps, Units const& from,
                                                      Units const& target, Units& storage) {
    steps.rule_count = 0;
    if (!Plan_short_way(steps, from, target)) {
        return Plan_in_general(steps, from, target, storage);
    }
    Plan_end(steps, from, target);
    return target;
}

} // namespace

} // namespace Varnix::Value

#endif
