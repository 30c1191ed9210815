// Measurements as texts, which are never narrower than they are.

#include <varnix/value/Measurement_text.h>

#include "Decimals.h"
#include "Forms.h"
#include "Measurement_parts.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <ostream>

namespace Varnix::Value {

using namespace Physics;

namespace {

// ---- The unit

std::string Unit_text(Measurement const& x, Unit_string_type spelling) {
    std::string text = Format_unit(x.Get_unit(), spelling);
    if (!x.Is_difference()) {
        return text;
    }
    return (spelling == STR_SYMBOL ? "\u0394" : "delta_") + text;
}

std::string With_unit(std::string number, std::string const& unit) {
    return unit.empty() ? number : std::move(number) + ' ' + unit;
}

// The measurement with the prefix that its numbers, as a quantity, are shown with.
Measurement With_engineering_prefix(Measurement const& x) {
    if (x.Is_difference() || x.Get_unit().tuples[0].unit == NO_UNIT) {
        return x;
    }
    Text_format format;
    format.engineering_prefix = true;
    Value_object<double> quantity;
    quantity.Set(x.Get_value(), x.Get_unit(), x.Get_lower(), x.Get_upper());
    std::string const text = Format(quantity, format);
    Parse_result<Quantity_parts> const parts = Try_split_quantity(text, {true, true});
    Parse_result<Units> const unit =
        parts ? Try_parse_unit(parts->unit) : Parse_result<Units>(Text_fault{});
    return unit ? x.Convert_to(*unit) : x;
}

// ---- The numbers

// The numbers as they are printed, without unit.
struct Number_texts {
    std::string value;
    std::string lower;
    std::string upper;
    std::string deviation; // where one of the place printed serves for both sides
};

std::string Shortest(double number) {
    return Format_number(number);
}

Enclosed Read_back(std::string const& text) {
    Parse_result<Quantity_parts> const parts = Try_split_quantity(text, {true, true});
    return Number_of(parts->value);
}

// Whether the value alone, as it is printed and read back, encloses the bounds.
bool Value_encloses_bounds(Measurement const& x, std::string const& value) {
    if (x.Get_lower() == x.Get_upper()) {
        return true;
    }
    Enclosed const read = Read_back(value);
    return Round_down(read) <= x.Get_lower() && Round_up(read) >= x.Get_upper();
}

using Rounding = Decimal (*)(double number, int place);

// Where numbers end, and how they are written.
struct Ending {
    int place;
    Notation notation;
};

std::string Bound_text(double bound, Rounding rounded, Ending const& ending) {
    return std::isinf(bound) ? Shortest(bound)
                             : Text_of(rounded(bound, ending.place), ending.notation);
}

// All three to one place, the bounds outward.
Number_texts Texts_at(Measurement const& x, Ending const& ending) {
    auto const [place, notation] = ending;
    Decimal const value = Nearest_at(x.Get_value(), place);
    Number_texts texts = {Text_of(value, notation),
                          Bound_text(x.Get_lower(), Decimal_below, ending),
                          Bound_text(x.Get_upper(), Decimal_above, ending), ""};
    if (std::isfinite(x.Get_lower()) && std::isfinite(x.Get_upper())) {
        Decimal const below = Difference(value, Decimal_below(x.Get_lower(), place));
        Decimal const above = Difference(Decimal_above(x.Get_upper(), place), value);
        texts.deviation = below == above && !below.is_negative ? Text_of(below, notation) : "";
    }
    return texts;
}

// The last place that the shortest digits of a number need.
int Last_place(double number) {
    if (std::isinf(number) || number == 0.0) {
        return 0;
    }
    std::string const text = Shortest(number);
    std::size_t const mark = text.find('e');
    std::string const digits = text.substr(0, mark);
    std::size_t const point = digits.find('.');
    int const decimals =
        point == std::string::npos ? 0 : static_cast<int>(digits.size() - point - 1);
    return (mark == std::string::npos ? 0 : std::stoi(text.substr(mark + 1))) - decimals;
}

// Whether the texts read as the value, and as bounds that are at most one place further out.
bool Read_closely(Number_texts const& texts, Measurement const& x) {
    return Round_to_nearest(Read_back(texts.value)) == x.Get_value() &&
           Round_down(Read_back(texts.lower)) >= std::nextafter(x.Get_lower(), -HUGE_VAL) &&
           Round_up(Read_back(texts.upper)) <= std::nextafter(x.Get_upper(), HUGE_VAL);
}

// The one deviation that serves for both sides, with as few digits as read closely.
std::string Shortest_deviation(Measurement const& x) {
    if (!std::isfinite(x.Get_lower()) || !std::isfinite(x.Get_upper())) {
        return "";
    }
    int const last =
        std::min({Last_place(x.Get_value()), Last_place(x.Get_lower()), Last_place(x.Get_upper())});
    int const first = Leading_place(std::max(std::fabs(x.Get_lower()), std::fabs(x.Get_upper())));
    for (int place = first; place >= last; --place) {
        Number_texts const texts = Texts_at(x, {place, Notation_at(first)});
        if (Read_closely(texts, x)) {
            return texts.deviation;
        }
    }
    return "";
}

Number_texts Shortest_texts(Measurement const& x, Bounds_style style) {
    return {Shortest(x.Get_value()), Shortest(x.Get_lower()), Shortest(x.Get_upper()),
            style == Bounds_style::symmetric ? Shortest_deviation(x) : ""};
}

// A number of so many digits; one that a carry makes longer ends a place earlier.
Decimal With_digits(double number, Rounding rounded, int digits) {
    int const place = (number == 0.0 ? 0 : Leading_place(number)) - digits + 1;
    Decimal const decimal = rounded(number, place);
    return static_cast<int>(decimal.digits.size()) > digits ? rounded(number, place + 1) : decimal;
}

// No zero stands for a digit that is not meant.
Ending Ending_of(Decimal const& decimal) {
    int const leading = decimal.place + static_cast<int>(decimal.digits.size()) - 1;
    return {decimal.place, decimal.place > 0 ? Notation::with_exponent : Notation_at(leading)};
}

std::string Text_with_digits(double number, Rounding rounded, int digits) {
    if (std::isinf(number)) {
        return Shortest(number);
    }
    Decimal const decimal = With_digits(number, rounded, digits);
    return Text_of(decimal, Ending_of(decimal).notation);
}

// Each number with its own digits; a deviation ends where the value does.
Number_texts Significant_texts(Measurement const& x, int digits) {
    Ending const ending = Ending_of(With_digits(x.Get_value(), Nearest_at, digits));
    return {Text_with_digits(x.Get_value(), Nearest_at, digits),
            Text_with_digits(x.Get_lower(), Decimal_below, digits),
            Text_with_digits(x.Get_upper(), Decimal_above, digits), Texts_at(x, ending).deviation};
}

constexpr int Default_bound_digits = 2;

// Down to a digit of half the distance of the bounds.
Number_texts Texts_by_bounds(Measurement const& x, int digits, Bounds_style style) {
    double const half = x.Get_upper() / 2.0 - x.Get_lower() / 2.0;
    // Bounds a few doubles apart have no digits of their own.
    bool const is_wide =
        half > std::max(std::fabs(x.Get_lower()), std::fabs(x.Get_upper())) * 0x1p-49;
    if (!is_wide || !std::isfinite(half)) {
        return Shortest_texts(x, style);
    }
    // Half of [4.9, 5.1] is a tenth, and its double may lie below that.
    int const place =
        With_digits(half, Nearest_at, digits > 0 ? digits : Default_bound_digits).place;
    int const leading = Leading_place(std::max(std::fabs(x.Get_value()), half));
    return Texts_at(x, {place, Notation_at(leading)});
}

Number_texts Texts_of(Measurement const& x, Text_format const& format) {
    switch (format.digits) {
    case Digits::shortest:
        break;
    case Digits::significant:
        return Significant_texts(x, std::min(std::max(format.count, 1), 100));
    case Digits::decimals:
        return Texts_at(x, {-std::min(std::max(format.count, 0), 100), Notation::fixed});
    case Digits::by_bounds:
        return Texts_by_bounds(x, std::min(format.count, 100), format.bounds);
    }
    return Shortest_texts(x, format.bounds);
}

// ---- The whole

std::string Written(Measurement const& x, Text_format const& format) {
    std::string const unit = Unit_text(x, format.unit);
    Number_texts const texts = Texts_of(x, format);
    bool const hidden = format.bounds == Bounds_style::hidden;
    if (hidden || Value_encloses_bounds(x, texts.value)) {
        return With_unit(texts.value, unit);
    }
    if (format.bounds == Bounds_style::symmetric && !texts.deviation.empty()) {
        return With_unit(texts.value + " ± " + texts.deviation, unit);
    }
    return With_unit(texts.value, unit) + " [" + texts.lower + ", " + texts.upper + ']';
}

} // namespace

std::string Format(Measurement const& x, Text_format const& format) {
    return Written(format.engineering_prefix ? With_engineering_prefix(x) : x, format);
}

std::ostream& operator<<(std::ostream& stream, Measurement const& x) {
    std::string const text = Format(x);
    return stream.write(text.data(), static_cast<std::streamsize>(text.size()));
}

} // namespace Varnix::Value
