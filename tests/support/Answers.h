// What the library answers, with every bit of it: each pair of the named units through every
// operation, and the units' texts. Two builds, threads or copies agree when their answers do.

#ifndef VARNIX_VALUE_TESTS_ANSWERS_H
#define VARNIX_VALUE_TESTS_ANSWERS_H

#include "Named_constants.h"

#include <varnix/value/Value_converter.h>
#include <varnix/value/Value_object.h>

#include <cstdint>
#include <cstring>
#include <exception>
#include <iterator>
#include <string>

namespace Varnix::Value::Tests {

// In a notation of its own, which no locale can change.
inline std::string Digits(double number) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, &number, sizeof bits);
    return std::to_string(bits);
}

// The result of `operation`, or what it throws.
template <typename Operation>
std::string Answer(char const* name, Operation const& operation) {
    try {
        Value_object<double> const result = operation();
        return std::string(" ") + name + ' ' + Digits(result.Get_value()) + " [" + Digits(result.Get_minus_err()) + ", " +
               Digits(result.Get_plus_err()) + "] " + result.Get_unit_string(STR_SYMBOL);
    } catch (std::exception const& failure) {
        return std::string(" ") + name + ' ' + failure.what();
    }
}

inline std::string Answers_of_pair(Value_object<double> const& left, Value_object<double> const& right) {
    auto const copy = [&left] { return left; };
    return Answer("to", [&] { return left.Convert_to(right); }) + Answer("+", [&] { return copy() += right; }) +
           Answer("-", [&] { return copy() -= right; }) + Answer("*", [&] { return copy() *= right; }) +
           Answer("/", [&] { return copy() /= right; }) + Answer("V", [&] { return left.Convert_to_with_value(C_Volts, right); }) +
           Answer("W", [&] { return left.Convert_to_with_value(C_Watts, right); }) + Answer("<", [&] { return left < right ? left : right; }) +
           Answer("==", [&] { return left == right ? left : right; }) +
           Answer("converter", [&] { return Value_converter<double>(left.Get_unit(), right.Get_unit()).Convert(left); }) + '\n';
}

// One of the named units with all others.
inline std::string Answers_of(Named_constant const& from) {
    std::string answers;
    for (int type = STR_NAME; type <= STR_UPPER_CASE; ++type) {
        answers += Units_library::Get_unit_string(*from.unit, static_cast<Unit_string_type>(type)) + '\n';
    }
    for (Named_constant const& to : named_constants) {
        answers += from.name + (' ' + (to.name + Answers_of_pair({17.3, *from.unit, 16.9, 18.1}, {4.7, *to.unit, 4.1, 5.3})));
    }
    return answers;
}

// The first `count` of the named units with all others.
inline std::string Answers(std::size_t count = std::size(named_constants)) {
    std::string answers;
    for (std::size_t k = 0; k < count; ++k) {
        answers += Answers_of(named_constants[k]);
    }
    return answers;
}

} // namespace Varnix::Value::Tests

#endif
