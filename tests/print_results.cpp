// Prints what the library answers, in every digit: each pair of the named units through every
// operation, and the units' texts. Two builds give the same results when they print the same.

#include "Named_constants.h"

#include <varnix/value/Value_object.h>

#include <cstdio>
#include <exception>

using namespace Varnix::Value;

namespace {

using Quantity = Value_object<double>;

// Prints `operation`'s result, or what it throws.
template <typename Operation>
void Print(char const* name, Operation const& operation) {
    try {
        Quantity const result = operation();
        std::printf(" %s %a [%a, %a] %s", name, result.Get_value(), result.Get_minus_err(), result.Get_plus_err(),
                    result.Get_unit_string(STR_SYMBOL).c_str());
    } catch (std::exception const& failure) {
        std::printf(" %s %s", name, failure.what());
    }
}

template <typename Operator>
auto On(Quantity const& left, Quantity const& right, Operator const& apply) {
    return [&left, &right, apply] {
        Quantity result = left;
        apply(result, right);
        return result;
    };
}

void Print_pair(Quantity const& left, Quantity const& right) {
    Print("to", [&] { return left.Convert_to(right); });
    Print("+", On(left, right, [](Quantity& l, Quantity const& r) { l += r; }));
    Print("-", On(left, right, [](Quantity& l, Quantity const& r) { l -= r; }));
    Print("*", On(left, right, [](Quantity& l, Quantity const& r) { l *= r; }));
    Print("/", On(left, right, [](Quantity& l, Quantity const& r) { l /= r; }));
    Print("V", [&] { return left.Convert_to_with_value(C_Volts, right); });
    Print("W", [&] { return left.Convert_to_with_value(C_Watts, right); });
    try {
        std::printf(" < %d == %d\n", left < right, left == right);
    } catch (std::exception const& failure) {
        std::printf(" < %s\n", failure.what());
    }
}

} // namespace

int main() {
    for (Tests::Named_constant const& from : Tests::named_constants) {
        for (int type = STR_NAME; type <= STR_UPPER_CASE; ++type) {
            std::printf("%s ", Units_library::Get_unit_string(*from.unit, static_cast<Unit_string_type>(type)).c_str());
        }
        std::printf("\n");
        for (Tests::Named_constant const& to : Tests::named_constants) {
            std::printf("%s %s", from.name, to.name);
            Print_pair(Quantity(17.3, *from.unit, 16.9, 18.1), Quantity(4.7, *to.unit, 4.1, 5.3));
        }
    }
}
