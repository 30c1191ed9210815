#include "Answers.h"

#include "Written_results.h"

#include <varnix/value/Measurement_text.h>
#include <varnix/value/Text_parsing.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <stdexcept>

namespace Varnix::Value::Tool {

// ---- Reading

namespace {

// A text in the suffixes of instruments, with the unit as everybody writes it.
std::string Standard_text(std::string_view text, Quantity_parts const& parts, Dialect dialect) {
    std::string standard(text);
    if (dialect == Dialect::scpi && !parts.unit.empty()) {
        auto const unit = Try_parse_unit(parts.unit, dialect);
        if (!unit) {
            Text_fault fault = unit.Get_fault();
            fault.position += parts.unit_position;
            throw Refusal(fault, text);
        }
        standard.replace(parts.unit_position, parts.unit.size(), Format_unit(*unit));
    }
    return standard;
}

void Check_dialect(double number, std::string_view text, Dialect dialect) {
    if (dialect == Dialect::scpi) {
        Check_instruments_number(number, text);
    }
}

constexpr Number_forms measured_forms = {false, true};

Answer Read_measured(std::string_view text, Dialect dialect) {
    auto const parts = Try_split_quantity(text, measured_forms);
    if (!parts) {
        throw Refusal(parts.Get_fault(), text);
    }
    Check_dialect(parts->value.nearest, text, dialect);
    std::string const standard = Standard_text(text, *parts, dialect);
    auto const measured = Try_parse_measurement(standard);
    if (!measured) {
        Text_fault fault = measured.Get_fault();
        fault.message = Reason(std::runtime_error(fault.message));
        throw Refusal(fault, standard);
    }
    return {*measured, parts->form != Quantity_form::value_alone};
}

} // namespace

void Check_instruments_number(double number, std::string_view text) {
    switch (Scpi_meaning(number)) {
    case Scpi_number::ordinary:
        return;
    case Scpi_number::infinity:
        throw Refusal("9.9E37 is how an instrument says infinity: it has measured nothing", text,
                      0);
    case Scpi_number::negative_infinity:
        throw Refusal("-9.9E37 is how an instrument says minus infinity: it has measured nothing",
                      text, 0);
    case Scpi_number::not_a_number:
        throw Refusal("9.91E37 is how an instrument says that it has no number", text, 0);
    }
}

Answer Read_answer(std::string_view text, Options const& options) {
    if (options.rules == Rules::measurements) {
        return Read_measured(text, options.dialect);
    }
    Quantity const quantity = Read_quantity(text, options.dialect);
    Check_dialect(quantity.Get_value(), text, options.dialect);
    return {quantity, true};
}

// ---- Writing

namespace {

Measurement Number_in(std::string const& digits) {
    return Parse_measurement(digits);
}

// Whether a decimal lies between the bounds.
bool Is_within(std::string const& digits, Measurement const& x) {
    Measurement const read = Number_in(digits);
    return read.Get_lower() >= x.Get_lower() && read.Get_upper() <= x.Get_upper();
}

// The fewest digits that read back, and an exponent only where bounds would have one too.
std::string Shortest(double number) {
    double const size = std::fabs(number);
    if (size < 1e-5 || size >= 1e15) {
        return Format_number(number);
    }
    std::array<char, 40> text{};
    auto const end =
        std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed);
    return {text.data(), end.ptr};
}

// The value in digits that people would write: a decimal between the bounds, which without bounds
// of the user's own are next to each other, and what was typed in decimals is in decimals again.
std::string Short_digits(Measurement const& x) {
    constexpr int safe_digits = 15;
    if (x.Get_lower() != x.Get_upper()) {
        if (x.Get_lower() <= 0.0 && x.Get_upper() >= 0.0) {
            return "0";
        }
        Text_format format;
        format.digits = Digits::significant;
        format.count = safe_digits;
        double rounded = 0.0;
        std::string const digits = Format_number(x.Get_value(), format);
        std::from_chars(digits.data(), digits.data() + digits.size(), rounded);
        std::string shortened = Shortest(rounded);
        if (Is_within(shortened, x)) {
            return shortened;
        }
    }
    return Shortest(x.Get_value());
}

// The unit of a measurement is more than its descriptor says where it is a difference of
// temperatures.
std::string Unit_of(Measurement const& x, Unit_string_type spelling) {
    if (!x.Is_difference()) {
        return Format_unit(x.Get_unit(), spelling);
    }
    Text_format format;
    format.unit = spelling;
    format.bounds = Bounds_style::hidden;
    std::string const text = Format(x, format);
    return text.substr(text.find(' ') + 1);
}

constexpr int Bound_digits = 4;

// "1.2590" is "1.259": zeros behind a point at the end of a number are left out.
std::string Without_trailing_zeros(std::string const& text) {
    std::string shown;
    std::size_t point = std::string::npos;
    auto const end_number = [&] {
        if (point != std::string::npos) {
            shown.erase(shown.find_last_not_of('0') + 1);
            shown.erase(shown.back() == '.' ? shown.size() - 1 : shown.size());
        }
        point = std::string::npos;
    };
    for (char const character : text) {
        bool const is_digit = character >= '0' && character <= '9';
        bool const starts_decimals =
            character == '.' && !shown.empty() && shown.back() >= '0' && shown.back() <= '9';
        if (!is_digit) {
            end_number();
        }
        shown += character;
        point = starts_decimals ? shown.size() : point;
    }
    end_number();
    return shown;
}

// Decimals that were typed have bounds a place or two further out, and what is computed of them a
// few more: to the digits that are shown they are decimals again. All digits are those of the
// certain bounds.
Measurement Inward(Measurement const& x) {
    double const lower = x.Get_lower();
    double const upper = x.Get_upper();
    bool const finite = std::isfinite(lower) && std::isfinite(upper);
    double const room = finite ? std::max(std::fabs(lower), std::fabs(upper)) * 0x1p-48 : 0.0;
    Measurement const inward(x.Get_value(), x.Get_unit(), std::min(lower + room, x.Get_value()),
                             std::max(upper - room, x.Get_value()));
    return x.Is_difference() ? inward.As_difference() : inward;
}

std::string Text_without_bounds(Measurement const& x, Text_format format) {
    if (format.digits == Digits::shortest && !format.engineering_prefix) {
        std::string const unit = Unit_of(x, format.unit);
        return Short_digits(x) + (unit.empty() ? "" : ' ' + unit);
    }
    format.bounds = Bounds_style::hidden;
    return Format(x, format);
}

std::string Text_with_bounds(Measurement const& x, Text_format format) {
    if (format.digits != Digits::shortest) {
        return Format(Inward(x), format);
    }
    format.digits = Digits::by_bounds;
    format.count = Bound_digits;
    return Without_trailing_zeros(Format(Inward(x), format));
}

std::string Measured_text(Measurement const& x, bool has_bounds, Options const& options) {
    if (options.all_digits) {
        return Format(x, options.format);
    }
    return has_bounds ? Text_with_bounds(x, options.format)
                      : Text_without_bounds(x, options.format);
}

} // namespace

std::string Text_of(Answer const& answer, Options const& options) {
    if (auto const* quantity = std::get_if<Quantity>(&answer.result)) {
        return Format(*quantity, options.format);
    }
    return Measured_text(std::get<Measurement>(answer.result), answer.has_bounds, options);
}

std::string Unit_text(Answer const& answer, Unit_string_type spelling) {
    if (auto const* quantity = std::get_if<Quantity>(&answer.result)) {
        return Format_unit(quantity->Get_unit(), spelling);
    }
    return Unit_of(std::get<Measurement>(answer.result), spelling);
}

// What a program would call, and what is typed instead.
constexpr std::string_view ways_out[][2] = {
    {"Power_sum", "compute --power-sum"},
    {"Field_ratio or Power_ratio says which", "1 V * 20 dB or 1 W * 20 dB says which"},
    {"(As_difference, Δ°C)", "(Δ°C, ΔK)"},
};

Refusal As_the_tool_says(MeasurementRefused const& refused) {
    std::string reason = Reason(refused);
    for (auto const& [function, typed] : ways_out) {
        std::size_t const place = reason.find(function);
        if (place != std::string::npos) {
            reason.replace(place, function.size(), typed);
        }
    }
    return Refusal(reason);
}

} // namespace Varnix::Value::Tool
