// The grammar, blanks left out; bounds stand in one place only:
//
//     quantity   = number [bounds] [unit] | number [unit] bounds
//                | number deviation [unit] | "(" number deviation ")" [unit]
//     number     = digits as std::from_chars takes them | number "(" digits ")" [exponent]
//     bounds     = "[" number "," number "]"
//     deviation  = ("±" | "+/-" | "+-") number | "+" number "/" "-" number

#include "Quantity_reader.h"

#include "Characters.h"
#include "Number_reader.h"
#include "Unit_reader.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace Varnix::Value {

namespace {

using Kind = Character_kind;

class Quantity_reader {
  public:
    Quantity_reader(std::string_view text_, Number_forms forms_) : text(text_), forms(forms_) {}

    Parse_result<Value_object<double>> Read() {
        if (!Read_all()) {
            return std::move(*fault);
        }
        return Value_object<double>(value, unit, lower, upper);
    }

  private:
    // Each of these reads from `position` on and moves it; false says that `fault` is set.
    bool Read_all();
    bool Read_value();
    bool Read_last_digits(std::size_t start);
    bool Read_deviation(bool& found);
    bool Read_one_deviation(double& deviation);
    bool Read_asymmetric_deviation();
    bool Read_bounds();
    bool Read_unit_before_bounds();
    bool Read_one_number(double& number);
    bool Expect(char character, char const* where);
    bool Set_deviations(std::size_t start, double below, double above);

    bool Refuse(std::size_t where, std::string message) {
        fault = Text_fault{where, std::move(message), {}};
        return false;
    }
    bool Refuse_found(std::string const& expected) {
        return Refuse(position, "expected " + expected + ", found " + Described(text, position));
    }
    void Skip() { position = Skip_blanks(text, position); }
    bool Is_next(std::string_view characters) const {
        return text.substr(position, characters.size()) == characters;
    }

    std::string_view text;
    Number_forms forms;
    std::optional<Text_fault> fault;
    std::size_t position = 0;
    double value = 0.0;
    double lower = 0.0;
    double upper = 0.0;
    bool has_bounds = false;
    Units unit = C_Empty;
};

bool Quantity_reader::Read_one_number(double& number) {
    Skip();
    std::optional<Read_number_result> const result = Read_number(text, position, forms, fault);
    if (!result) {
        return false;
    }
    number = result->value;
    position = result->end;
    return true;
}

bool Quantity_reader::Expect(char character, char const* where) {
    Skip();
    if (position == text.size() || text[position] != character) {
        return Refuse_found(std::string("'") + character + "' " + where);
    }
    ++position;
    return true;
}

// ---- Deviations

bool Quantity_reader::Set_deviations(std::size_t start, double below, double above) {
    lower = value - below;
    upper = value + above;
    has_bounds = true;
    bool const in_range = std::isfinite(lower) && std::isfinite(upper);
    return in_range || forms.not_finite || Refuse(start, "a bound is beyond the range of double");
}

bool Quantity_reader::Read_one_deviation(double& deviation) {
    Skip();
    std::size_t const start = position;
    if (!Read_one_number(deviation)) {
        return false;
    }
    return !std::signbit(deviation) || Refuse(start, "a deviation is not negative");
}

bool Quantity_reader::Read_asymmetric_deviation() {
    std::size_t const start = position;
    double above = 0.0;
    double below = 0.0;
    ++position; // the plus sign
    if (!Read_one_deviation(above) || !Expect('/', "and the deviation below, as in +0.2/-0.1")) {
        return false;
    }
    Skip();
    bool const hyphen = Is_next("-");
    if (!hyphen && Character_at(text, position).kind != Kind::minus) {
        return Refuse_found("'-' and the deviation below");
    }
    position += Character_at(text, position).size;
    return Read_one_deviation(below) && Set_deviations(start, below, above);
}

bool Quantity_reader::Read_deviation(bool& found) {
    Skip();
    std::size_t const start = position;
    Character const next = Character_at(text, position);
    std::size_t const sign = next.kind == Kind::plus_minus ? next.size
                             : Is_next("+/-")              ? 3
                             : Is_next("+-")               ? 2
                                                           : 0;
    found = sign != 0 || next.kind == Kind::plus;
    if (!found) {
        return true;
    }
    if (sign == 0) {
        return Read_asymmetric_deviation();
    }
    position += sign;
    double deviation = 0.0;
    return Read_one_deviation(deviation) && Set_deviations(start, deviation, deviation);
}

namespace {

// The digits from `position` on.
std::string_view Digits_at(std::string_view text, std::size_t position) {
    std::size_t end = position;
    while (Character_at(text, end).kind == Kind::digit) {
        ++end;
    }
    return text.substr(position, end - position);
}

// "e-34" at `position`, or nothing.
std::string_view Exponent_at(std::string_view text, std::size_t position) {
    bool const begins = position < text.size() && (text[position] | 0x20) == 'e';
    std::size_t digits = position + 1;
    if (begins && digits < text.size() && (text[digits] == '-' || text[digits] == '+')) {
        ++digits;
    }
    std::size_t const count = begins ? Digits_at(text, digits).size() : 0;
    return count == 0 ? std::string_view() : text.substr(position, digits + count - position);
}

} // namespace

// "5.00(3)" and "5.00(3)e2": so many units of the last digit. The number begins at `start`, and has
// been read up to the parenthesis.
bool Quantity_reader::Read_last_digits(std::size_t start) {
    std::string_view const written = text.substr(start, position - start);
    if (written.find_first_of("eExX") != std::string_view::npos) {
        return Refuse(position, "the exponent stands behind the parentheses, as in 5.00(3)e2");
    }
    std::size_t const opening = position;
    std::string_view const last_digits = Digits_at(text, position + 1);
    position += 1 + last_digits.size();
    if (!Expect(')', "after the uncertain digits")) {
        return false;
    }
    std::string_view const exponent = Exponent_at(text, position);
    position += exponent.size();
    // The deviation has its point where the number has it.
    std::string deviation(last_digits);
    std::size_t const point = written.find('.');
    std::size_t const decimals = point == std::string_view::npos ? 0 : written.size() - point - 1;
    if (deviation.size() <= decimals) {
        deviation.insert(0, decimals + 1 - deviation.size(), '0');
    }
    deviation.insert(deviation.size() - decimals, 1, '.');
    deviation.append(exponent);
    std::string const number = std::string(written).append(exponent);
    auto const read_number = Read_number(number, 0, {}, fault);
    auto const read_deviation = read_number ? Read_number(deviation, 0, {}, fault) : std::nullopt;
    if (!read_deviation) {
        return Refuse(start, "the number is beyond the range of double");
    }
    value = read_number->value;
    return Set_deviations(opening, read_deviation->value, read_deviation->value);
}

// ---- Bounds, value, unit

bool Quantity_reader::Read_bounds() {
    std::size_t const start = position;
    if (has_bounds) {
        return Refuse(start, "the bounds have been given already");
    }
    ++position;
    if (!Read_one_number(lower) || !Expect(',', "and the upper bound") || !Read_one_number(upper) ||
        !Expect(']', "after the bounds")) {
        return false;
    }
    has_bounds = true;
    return !(lower > upper) || Refuse(start, "the lower bound is above the upper one");
}

bool Quantity_reader::Read_value() {
    Skip();
    bool const in_parentheses = Is_next("(");
    position += in_parentheses ? 1 : 0;
    Skip();
    std::size_t const start = position;
    if (!Read_one_number(value)) {
        return false;
    }
    lower = value;
    upper = value;
    bool const uncertain_digits =
        Is_next("(") && Character_at(text, position + 1).kind == Kind::digit;
    bool found = uncertain_digits;
    if (uncertain_digits ? !Read_last_digits(start) : !Read_deviation(found)) {
        return false;
    }
    if (in_parentheses) {
        return found ? Expect(')', "after the deviation")
                     : Refuse_found("a deviation, as in (5.0 ± 0.1) V");
    }
    return true;
}

bool Quantity_reader::Read_unit_before_bounds() {
    std::size_t const bracket = std::min(text.find('[', position), text.size());
    Parse_result<Units> const result = Read_unit(text.substr(0, bracket), position);
    if (!result) {
        fault = result.Get_fault();
        bool const deviation = Character_at(text, fault->position).kind == Kind::plus_minus;
        if (deviation || text.substr(fault->position, 1) == "+") {
            fault->message = "a deviation stands before the unit, as in 5.0 ± 0.1 V";
        }
        return false;
    }
    unit = *result;
    // "5.0 ± 2% V" is not meant in per cent times volts.
    if (has_bounds && text[position] == '%' && unit.tuples[1].unit != NO_UNIT) {
        return Refuse(position, "a deviation in per cent of the value is not read");
    }
    position = bracket;
    return true;
}

bool Quantity_reader::Read_all() {
    if (!Read_value()) {
        return false;
    }
    Skip();
    if (Is_next(",")) {
        return Refuse(position, "expected a unit, found ','; a decimal point is written '.'");
    }
    if (Is_next("[") && !Read_bounds()) {
        return false;
    }
    Skip();
    if (position != text.size() && !Read_unit_before_bounds()) {
        return false;
    }
    if (Is_next("[") && !Read_bounds()) {
        return false;
    }
    Skip();
    return position == text.size() || Refuse_found("the end of the text");
}

} // namespace

Parse_result<Value_object<double>> Read_quantity(std::string_view text, Number_forms forms) {
    return Quantity_reader(text, forms).Read();
}

} // namespace Varnix::Value
