// The grammar, blanks left out; bounds stand in one place only:
//
//     quantity   = number [bounds] [unit] | number [unit] bounds
//                | number deviation [unit] | "(" number deviation ")" [unit]
//     number     = digits as std::from_chars takes them | number "(" digits ")" [exponent]
//     bounds     = "[" number "," number "]"
//     deviation  = ("±" | "+/-" | "+-") number | "+" number "/" "-" number
//
// A quantity is split into its parts first; the unit is read afterwards.

#include "Quantity_reader.h"

#include "Characters.h"
#include "Core_units.h"
#include "Number_reader.h"
#include "Unit_words.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

namespace Varnix::Value {

namespace {

// How many bytes "±", "+/-" or "+-" takes at `position`; 0 if none of them is there.
std::size_t Plus_minus_size(std::string_view text, std::size_t position) {
    Character const next = Character_at(text, position);
    return next.kind == Character_kind::plus_minus ? next.size
           : text.substr(position, 3) == "+/-"     ? 3
           : text.substr(position, 2) == "+-"      ? 2
                                                   : 0;
}

class Quantity_splitter {
  public:
    Quantity_splitter(std::string_view text_, Number_forms forms_) : text(text_), forms(forms_) {}

    // Splits the text into `parts`; false says that `fault` is set, and `parts` are those before
    // it.
    bool Split();

    Quantity_parts parts;
    std::optional<Text_fault> fault;

  private:
    // Each of these reads from `position` on and moves it; false says that `fault` is set.
    bool Read_value();
    bool Read_last_digits(std::size_t start);
    bool Read_deviation();
    bool Read_one_deviation(Decimal_text& deviation);
    bool Read_asymmetric_deviation();
    bool Read_bounds();
    bool Split_unit();
    bool Read_one_number(Decimal_text& number);
    bool Expect(char character, char const* where);

    bool Refuse(std::size_t where, std::string message) {
        fault = Text_fault{where, std::move(message), {}};
        return false;
    }
    bool Refuse_found(std::string const& expected) {
        return Refuse(position, "expected " + expected + ", found " + Described(text, position));
    }
    void Skip() { position = Skip_blanks(text, position); }
    bool Is_next(char character) const {
        return position < text.size() && text[position] == character;
    }
    bool Has_bounds() const { return parts.form != Quantity_form::value_alone; }
    void Begin(Quantity_form form) {
        parts.form = form;
        parts.bounds_position = position;
    }

    std::string_view text;
    Number_forms forms;
    std::size_t position = 0;
};

bool Quantity_splitter::Read_one_number(Decimal_text& number) {
    Skip();
    auto result = Read_number(text, position, forms);
    if (!result) {
        fault = result.Get_fault();
        return false;
    }
    number = result->number;
    position = result->end;
    return true;
}

bool Quantity_splitter::Expect(char character, char const* where) {
    Skip();
    if (!Is_next(character)) {
        return Refuse_found(std::string("'") + character + "' " + where);
    }
    ++position;
    return true;
}

// ---- Deviations

bool Quantity_splitter::Read_one_deviation(Decimal_text& deviation) {
    Skip();
    std::size_t const start = position;
    if (!Read_one_number(deviation)) {
        return false;
    }
    return !deviation.negative || Refuse(start, "a deviation is not negative");
}

bool Quantity_splitter::Read_asymmetric_deviation() {
    Begin(Quantity_form::deviations);
    ++position; // the plus sign
    if (!Read_one_deviation(parts.upper) ||
        !Expect('/', "and the deviation below, as in 5.0 +0.2/-0.1 V")) {
        return false;
    }
    Skip();
    std::size_t const minus = Minus_size(text, position);
    if (minus == 0) {
        return Refuse_found("'-' and the deviation below");
    }
    position += minus;
    return Read_one_deviation(parts.lower);
}

bool Quantity_splitter::Read_deviation() {
    Skip();
    std::size_t const sign = Plus_minus_size(text, position);
    if (sign == 0) {
        return !Is_next('+') || Read_asymmetric_deviation();
    }
    Begin(Quantity_form::deviation);
    position += sign;
    if (!Read_one_deviation(parts.upper)) {
        return false;
    }
    parts.lower = parts.upper;
    return true;
}

namespace {

std::string_view Digits_at(std::string_view text, std::size_t position) {
    return text.substr(position, End_of_digits(text, position) - position);
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

// The number that "e-34" stands for; one beyond all numbers if it is too large for 32 bits.
std::int32_t Exponent_of(std::string_view exponent) {
    constexpr std::int32_t beyond = 1000000000;
    std::size_t const start = exponent.size() > 1 && exponent[1] == '+' ? 2 : 1;
    std::int32_t value = 0;
    if (start < exponent.size()) {
        char const* const last = exponent.data() + exponent.size();
        bool const fits = std::from_chars(exponent.data() + start, last, value).ec == std::errc();
        value = fits ? std::clamp(value, -beyond, beyond) : exponent[1] == '-' ? -beyond : beyond;
    }
    return value;
}

// The double nearest to the digits times the power of ten; nothing if it is beyond the range.
std::optional<double> Nearest(Decimal_text const& number) {
    std::string const written =
        std::string(number.digits) + 'e' + std::to_string(number.power_of_ten);
    auto const result = Read_number(written, 0, {});
    return !result           ? std::nullopt
           : number.negative ? std::optional(-result->number.nearest)
                             : std::optional(result->number.nearest);
}

} // namespace

// "5.00(3)" and "5.00(3)e2": so many units of the last digit. The number begins at `start`, and has
// been read up to the parenthesis.
bool Quantity_splitter::Read_last_digits(std::size_t start) {
    std::string_view const written = parts.value.digits;
    if (written.find_first_of("eExX") != std::string_view::npos) {
        return Refuse(position, "the exponent stands behind the parentheses, as in 5.00(3)e2 V");
    }
    Begin(Quantity_form::last_digits);
    Decimal_text& deviation = parts.upper;
    deviation.digits = Digits_at(text, position + 1);
    position += 1 + deviation.digits.size();
    if (!Expect(')', "after the uncertain digits")) {
        return false;
    }
    std::string_view const exponent = Exponent_at(text, position);
    position += exponent.size();
    std::size_t const point = written.find('.');
    std::size_t const decimals = point == std::string_view::npos ? 0 : written.size() - point - 1;
    parts.value.power_of_ten = Exponent_of(exponent);
    deviation.power_of_ten = parts.value.power_of_ten - static_cast<std::int32_t>(decimals);
    std::optional<double> const nearest = Nearest(parts.value);
    std::optional<double> const distance = Nearest(deviation);
    if (!nearest || !distance) {
        return Refuse(start, "the number is beyond the range of double");
    }
    parts.value.nearest = *nearest;
    deviation.nearest = *distance;
    parts.lower = deviation;
    return true;
}

// ---- Bounds, value, unit

bool Quantity_splitter::Read_bounds() {
    if (Has_bounds()) {
        return Refuse(position, "the bounds have been given already");
    }
    Begin(Quantity_form::bounds);
    ++position;
    if (!Read_one_number(parts.lower) || !Expect(',', "and the upper bound") ||
        !Read_one_number(parts.upper) || !Expect(']', "after the bounds")) {
        return false;
    }
    return !(parts.lower.nearest > parts.upper.nearest) ||
           Refuse(parts.bounds_position, "the lower bound is above the upper one");
}

bool Quantity_splitter::Read_value() {
    Skip();
    bool const in_parentheses = Is_next('(');
    position += in_parentheses ? 1 : 0;
    Skip();
    std::size_t const start = position;
    if (!Read_one_number(parts.value)) {
        return false;
    }
    bool const uncertain_digits =
        Is_next('(') && Character_at(text, position + 1).kind == Character_kind::digit &&
        Character_at(text, End_of_digits(text, position + 1)).kind != Character_kind::caret;
    if (uncertain_digits ? !Read_last_digits(start) : !Read_deviation()) {
        return false;
    }
    if (in_parentheses) {
        return Has_bounds() ? Expect(')', "after the deviation")
                            : Refuse_found("a deviation, as in (5.0 ± 0.1) V");
    }
    return true;
}

namespace {

// "[ft_i]": a unit in brackets, which begins with a letter and holds no bounds.
bool Is_bracketed_unit(std::string_view text, std::size_t position) {
    std::size_t const end = text.find_first_of("], [", position + 1);
    return Character_at(text, position + 1).kind == Character_kind::letter &&
           end != std::string_view::npos && text[end] == ']';
}

// Where bounds begin from `position` on, or the end of the text.
std::size_t Bounds_from(std::string_view text, std::size_t position) {
    std::size_t bracket = text.find('[', position);
    while (bracket != std::string_view::npos && Is_bracketed_unit(text, bracket)) {
        bracket = text.find('[', bracket + 1);
    }
    return std::min(bracket, text.size());
}

// Where a deviation begins in the text of a unit, or the end of it: "m^+2" has none.
std::size_t Deviation_in(std::string_view unit) {
    for (std::size_t position = 0; position < unit.size(); ++position) {
        bool const plus =
            unit[position] == '+' &&
            (position == 0 ||
             (unit[position - 1] != '^' && unit[position - 1] != '*' && unit[position - 1] != '('));
        if (plus || Character_at(unit, position).kind == Character_kind::plus_minus) {
            return position;
        }
    }
    return unit.size();
}

bool Is_ratio(std::string_view word) {
    Unit_word const* const found = Unit_words::Get().Find_unit(word);
    Units_list const unit = found == nullptr ? NO_UNIT : found->unit.tuples[0].unit;
    return unit == PERCENT || unit == PPM || unit == PPB;
}

// "5 ± 2% V" and "5 ± 50 ppm MHz" are not meant in per cent times volts; "5 ± 0.1 %/K" is.
bool Begins_with_ratio_of_value(std::string_view unit) {
    std::size_t const sign = unit.substr(0, 1) == "%" ? 1 : 0;
    std::size_t const end = sign != 0 ? sign : End_of_letters(unit, 0);
    if (!Is_ratio(unit.substr(0, end))) {
        return false;
    }
    Character_kind const next = Character_at(unit, Skip_blanks(unit, end)).kind;
    return next == Character_kind::letter || next == Character_kind::opening ||
           next == Character_kind::product ||
           (next == Character_kind::star &&
            Character_at(unit, Skip_blanks(unit, end) + 1).kind != Character_kind::star);
}

} // namespace

bool Quantity_splitter::Split_unit() {
    std::size_t const bracket = Bounds_from(text, position);
    std::string_view const unit = text.substr(position, bracket - position);
    std::size_t const deviation = Deviation_in(unit);
    parts.unit = unit.substr(0, deviation);
    parts.unit_position = position;
    if (deviation != unit.size()) {
        return Refuse(position + deviation,
                      "a deviation stands before the unit and counts in it, as in 5.0 ± 0.1 V");
    }
    if (Has_bounds() && parts.form != Quantity_form::bounds && Begins_with_ratio_of_value(unit)) {
        return Refuse(position, "a deviation in per cent of the value is not read: write it in the "
                                "unit, as in 5.0 ± 0.1 V for 2 %");
    }
    position = bracket;
    return true;
}

bool Quantity_splitter::Split() {
    if (!Read_value()) {
        return false;
    }
    Skip();
    if (Is_next(',')) {
        return Refuse(position, "expected a unit, found ','; a decimal point is '.'");
    }
    if (Is_next('[') && !Is_bracketed_unit(text, position) && !Read_bounds()) {
        return false;
    }
    Skip();
    if (position != text.size() && !Split_unit()) {
        return false;
    }
    if (Is_next('[') && !Read_bounds()) {
        return false;
    }
    Skip();
    return position == text.size() || Refuse_found("the end of the text");
}

// ---- The quantity

// The bounds are those given, or what the deviations make of the value.
Value_object<double> Made_of(Quantity_parts const& parts, Units const& unit) {
    double const value = parts.value.nearest;
    double const lower = parts.lower.nearest;
    double const upper = parts.upper.nearest;
    switch (parts.form) {
    case Quantity_form::value_alone:
        return {value, unit, value, value};
    case Quantity_form::bounds:
        return {value, unit, lower, upper};
    default:
        return {value, unit, value - lower, value + upper};
    }
}

bool Is_finite(Value_object<double> const& quantity) {
    return std::isfinite(quantity.Get_minus_err()) && std::isfinite(quantity.Get_plus_err());
}

} // namespace

namespace {

std::string_view Without_blanks_behind(std::string_view unit) {
    std::size_t end = 0;
    for (std::size_t position = 0; position < unit.size();) {
        Character const character = Character_at(unit, position);
        position += character.size;
        end = character.kind == Character_kind::blank ? end : position;
    }
    return unit.substr(0, end);
}

} // namespace

Parse_result<Quantity_parts> Split_quantity(std::string_view text, Number_forms forms) {
    Quantity_splitter splitter(text, forms);
    if (!splitter.Split()) {
        return std::move(*splitter.fault);
    }
    splitter.parts.unit = Without_blanks_behind(splitter.parts.unit);
    return splitter.parts;
}

Parse_result<Value_object<double>> Read_quantity(std::string_view text, Number_forms forms,
                                                 Unit_text_reader read_unit) {
    Quantity_splitter splitter(text, forms);
    bool const is_split = splitter.Split();
    Quantity_parts const& parts = splitter.parts;
    Units unit = C_Empty;
    if (!parts.unit.empty()) { // which may be wrong before what ended the splitting
        std::size_t const end = parts.unit_position + parts.unit.size();
        auto const result = read_unit(text.substr(0, end), parts.unit_position);
        if (!result && (is_split || result.Get_fault().position < splitter.fault->position)) {
            return result.Get_fault();
        }
        unit = result ? *result : unit;
    }
    if (!is_split) {
        return std::move(*splitter.fault);
    }
    if (std::optional<Text_fault> fault = Beyond_core_fault(unit, parts.unit_position)) {
        return std::move(*fault);
    }
    Value_object<double> quantity = Made_of(parts, unit);
    bool const added = parts.form != Quantity_form::bounds;
    if (added && !forms.not_finite && !Is_finite(quantity)) {
        return Text_fault{parts.bounds_position, "a bound is beyond the range of double", {}};
    }
    return quantity;
}

} // namespace Varnix::Value
