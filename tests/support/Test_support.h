// What the tests share: descriptors written shortly, compared and printed, and the text of whatever
// an operation throws.

#ifndef VARNIX_VALUE_TESTS_TEST_SUPPORT_H
#define VARNIX_VALUE_TESTS_TEST_SUPPORT_H

#include "Unknown_unit.h"

#include <varnix/value/Value_converter.h>
#include <varnix/value/Value_object.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <iomanip>
#include <ostream>
#include <stdexcept>
#include <string>

namespace Varnix::Value {

inline std::ostream& operator<<(std::ostream& out, Units const& unit) {
    out << (unit.spl_conv == SPL_DB ? "{dB, " : "{") << unit.si_prefix;
    for (Unit_tuple const& tuple : unit.tuples) {
        out << ", (" << tuple.unit << ", " << tuple.exponent << ')';
    }
    return out << '}';
}

} // namespace Varnix::Value

namespace Varnix::Value::Tests {

using Quantity = Value_object<double>;

// A descriptor of these tuples, the other slots (NO_UNIT, 0).
inline Units Unit(std::initializer_list<Unit_tuple> tuples, SI_units prefix = NO_PREFIX, Special_conversion marker = SPL_NONE) {
    Units unit = {marker, prefix, {}};
    std::copy(tuples.begin(), tuples.end(), unit.tuples);
    return unit;
}

// The text of what `operation` throws; every failure of the library has a text of its own.
template <typename Operation>
std::string Failure_of(Operation const& operation) {
    try {
        operation();
    } catch (std::exception const& failure) {
        return failure.what();
    }
    return "no failure";
}

inline std::string const not_valid = OperationNotValid().what();
inline std::string const not_same = UnitDimensionNotSame().what();
inline std::string const not_proper = UnitDimensionNotProper().what();
inline std::string const not_defined = UnitNotDefined().what();
inline std::string const no_rule = NoRuleToConvert().what();
inline std::string const too_many = OperationExceedingAllowedTuples().what();
inline std::string const out_of_range = "Value is out of range";

inline std::uint64_t Bits(double number) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, &number, sizeof bits);
    return bits;
}

inline bool Same_bits(double left, double right) {
    return Bits(left) == Bits(right);
}

// Numbers bit for bit, so that signed zeros and not-a-numbers count; the unit in every field.
inline ::testing::AssertionResult Is(Quantity const& actual, double value, double minus_err, double plus_err, Units const& unit) {
    if (Same_bits(actual.Get_value(), value) && Same_bits(actual.Get_minus_err(), minus_err) && Same_bits(actual.Get_plus_err(), plus_err) &&
        actual.Get_unit() == unit) {
        return ::testing::AssertionSuccess();
    }
    return ::testing::AssertionFailure() << std::setprecision(17) << actual.Get_value() << " [" << actual.Get_minus_err() << ", "
                                         << actual.Get_plus_err() << "] " << actual.Get_unit() << "\ninstead of\n"
                                         << value << " [" << minus_err << ", " << plus_err << "] " << unit;
}

// The three numbers of a quantity; one number stands for all three.
struct Numbers {
    Numbers(double all) : Numbers(all, all, all) {}
    Numbers(double value_, double minus_err_, double plus_err_) : value(value_), minus_err(minus_err_), plus_err(plus_err_) {}

    Quantity In(Units const& unit) const { return Quantity(value, unit, minus_err, plus_err); }

    double value;
    double minus_err;
    double plus_err;
};

} // namespace Varnix::Value::Tests

#endif
