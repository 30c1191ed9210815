#include "Strict_operations.h"

#include "Strict_conversions.h"
#include "Unit_questions.h"

#include <varnix/value/Text_formatting.h>
#include <varnix/value/Units_library.h>

namespace Varnix::Value::Tool {

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

void Check_no_temperature_points(Units const& left, Units const& right, Wording const& what) {
    for (Units const& unit : {left, right}) {
        if (Has_unit(unit, DEGREE_C) || Has_unit(unit, DEGREE_F)) {
            Refuse(what, "degrees Celsius and Fahrenheit are points of a scale; use K");
        }
    }
}

// ---- Sums and comparisons

void Check_gain(Units const& left, Units const& right, Wording const& what) {
    if (Is_gain(left) != Is_gain(right)) {
        Refuse(what, "a gain changes a level by a factor; the kinds differ");
    }
}

void Check_sum(Quantity const& left, Quantity const& right, Wording const& what,
               std::string& note) {
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

void Check_product(Quantity const& left, Quantity const& right, Wording const& what,
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
        note = Levels_note;
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
    Wording const what = [&] { return Operation_words(left, operation, right); };
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
    Wording const what = [&] { return Operation_words(left, operation, right); };
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
