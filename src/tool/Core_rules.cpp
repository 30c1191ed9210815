#include "Core_rules.h"

#include <varnix/value/Text_formatting.h>
#include <varnix/value/Unit_kinds.h>
#include <varnix/value/exceptions.h>

namespace Varnix::Value::Tool {

namespace {

// "km/h (length/time)".
std::string Described(Units const& unit) {
    std::string const text = Format_unit(unit);
    return text.empty() ? "a plain number" : text + " (" + Kind_name(unit) + ')';
}

// Runs `action`; what the library throws becomes a refusal that starts with what `words` say.
template <typename Words, typename Action>
auto Telling(Words const& words, Action const& action) {
    try {
        return action();
    } catch (Value_exception const& failure) {
        throw Refusal(words() + ": the library has no rule for it (" + failure.what() + ')');
    } catch (std::out_of_range const&) {
        throw Refusal(words() + ": the result is infinite or not a number");
    }
}

std::string Operation_words(Units const& left, char sign, Units const& right) {
    std::string const first = Described(left);
    std::string const second = Described(right);
    switch (sign) {
    case '+':
        return "cannot add " + first + " and " + second;
    case '-':
        return "cannot take " + second + " from " + first;
    case '*':
        return "cannot multiply " + first + " by " + second;
    case '/':
        return "cannot divide " + first + " by " + second;
    default:
        return "cannot compare " + first + " with " + second;
    }
}

} // namespace

Value_converter<double> Prepare_by_the_rules(Units const& from, Units const& to) {
    return Telling([&] { return "cannot convert " + Described(from) + " to " + Described(to); },
                   [&] { return Value_converter<double>(from, to); });
}

Quantity Convert_by_the_rules(Quantity const& quantity, Units const& to, Quantity const& with) {
    auto const words = [&] {
        return "cannot convert " + Described(quantity.Get_unit()) + " to " + Described(to) +
               " with " + Described(with.Get_unit());
    };
    return Telling(words, [&] { return quantity.Convert_to_with_value(to, with); });
}

Quantity Calculate_by_the_rules(Quantity const& left, std::string_view sign,
                                Quantity const& right) {
    auto const words = [&] { return Operation_words(left.Get_unit(), sign[0], right.Get_unit()); };
    return Telling(words, [&] {
        Quantity result = left;
        switch (sign[0]) {
        case '+':
            return result += right;
        case '-':
            return result -= right;
        case '*':
            return result *= right;
        default:
            return result /= right;
        }
    });
}

bool Compare_by_the_rules(Quantity const& left, std::string_view sign, Quantity const& right) {
    auto const words = [&] { return Operation_words(left.Get_unit(), '<', right.Get_unit()); };
    return Telling(words, [&] {
        return sign == "<"    ? left < right
               : sign == "<=" ? left <= right
               : sign == ">"  ? left > right
               : sign == ">=" ? left >= right
               : sign == "==" ? left == right
                              : left != right;
    });
}

} // namespace Varnix::Value::Tool
