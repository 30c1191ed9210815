#include "Powers.h"

#include "Characters.h"

#include <algorithm>

namespace Varnix::Value {

namespace {

// An integer that is read character by character. Digits beyond its range make it stay there.
class Integer {
  public:
    bool Has_digits() const { return digits; }
    bool Is_in_range() const { return magnitude != 0 && magnitude <= Largest_power; }
    std::int64_t Value() const { return negative ? -magnitude : magnitude; }
    void Negate() { negative = true; }
    void Append(int digit) {
        digits = true;
        magnitude = std::min(magnitude * 10 + digit, Largest_power + 1);
    }

  private:
    std::int64_t magnitude = 0;
    bool negative = false;
    bool digits = false;
};

Integer Read_raised(std::string_view text, std::size_t& position) {
    Integer integer;
    for (bool first = true;; first = false) {
        Character const character = Character_at(text, position);
        bool const is_sign = character.value == '-' || character.value == '+';
        if (character.kind != Character_kind::raised || (is_sign && !first)) {
            return integer;
        }
        if (character.value == '-') {
            integer.Negate();
        } else if (!is_sign) {
            integer.Append(character.value);
        }
        position += character.size;
    }
}

void Skip_sign(std::string_view text, std::size_t& position, Integer& integer) {
    if (std::size_t const minus = Minus_size(text, position)) {
        integer.Negate();
        position += minus;
    } else if (Character_at(text, position).kind == Character_kind::plus) {
        ++position;
    }
}

Integer Read_integer(std::string_view text, std::size_t& position) {
    Integer integer;
    Skip_sign(text, position, integer);
    while (Character_at(text, position).kind == Character_kind::digit) {
        integer.Append(text[position] - '0');
        ++position;
    }
    return integer;
}

// The integer behind a power sign, in parentheses or not; `position` is where reading stopped.
Integer Read_exponent(std::string_view text, std::size_t& position) {
    bool const in_parentheses = Character_at(text, position).kind == Character_kind::opening;
    position += in_parentheses ? 1 : 0;
    Integer const integer = Read_integer(text, position);
    bool const closed = position < text.size() && text[position] == ')';
    if (in_parentheses && !closed) {
        return Integer();
    }
    position += in_parentheses ? 1 : 0;
    return integer;
}

// The position behind the sign of a power and the blanks around it; `position` if there is none.
std::size_t Skip_power_sign(std::string_view text, std::size_t position) {
    std::size_t const sign = Skip_blanks(text, position);
    Character_kind const kind = Character_at(text, sign).kind;
    std::size_t const size = kind == Character_kind::caret                                  ? 1
                             : kind == Character_kind::star && text.substr(sign, 2) == "**" ? 2
                                                                                            : 0;
    return size == 0 ? position : Skip_blanks(text, sign + size);
}

// What stands where a power is expected, right or wrong.
struct Written_power {
    Integer integer;
    std::size_t end; // the position behind it
};

// What begins as a power at `position`; nothing if nothing does.
std::optional<Written_power> Read_written_power(std::string_view text, std::size_t position) {
    std::size_t end = Skip_power_sign(text, position);
    bool const raised = Character_at(text, position).kind == Character_kind::raised;
    if (end == position && !raised) {
        return std::nullopt;
    }
    Integer const integer = raised ? Read_raised(text, end) : Read_exponent(text, end);
    return Written_power{integer, end};
}

} // namespace

std::optional<Power> Read_power(std::string_view text, std::size_t position) {
    std::optional<Written_power> const power = Read_written_power(text, position);
    return power && power->integer.Is_in_range()
               ? std::optional(Power{power->integer.Value(), power->end})
               : std::nullopt;
}

std::optional<Text_fault> Power_fault(std::string_view text, std::size_t position) {
    std::optional<Written_power> const power = Read_written_power(text, position);
    if (!power) {
        return std::nullopt;
    }
    auto const [integer, end] = *power;
    bool const fraction = Character_at(text, end).kind == Character_kind::product &&
                          Character_at(text, end + 1).kind == Character_kind::digit;
    if (!integer.Has_digits() || fraction) {
        return Text_fault{end, "expected an integer power, found " + Described(text, end), {}};
    }
    return Text_fault{position,
                      integer.Value() == 0 ? "a power of zero leaves no unit"
                                           : "the power is out of range",
                      {}};
}

} // namespace Varnix::Value
