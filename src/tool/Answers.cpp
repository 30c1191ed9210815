#include "Answers.h"

#include "Written_results.h"

#include <varnix/value/Measurement_text.h>
#include <varnix/value/Text_parsing.h>

#include <stdexcept>

namespace Varnix::Value::Tool {

// ---- Reading

namespace {

void Check_dialect(double number, std::string_view text, Dialect dialect) {
    if (dialect == Dialect::scpi) {
        Check_instruments_number(number, text);
    }
}

} // namespace

Answer Answer_reader::Read_measured(std::string_view text) {
    auto const measured = reader.Read(text);
    if (!measured) {
        throw Refusal(measured.Get_fault(), text);
    }
    Check_dialect(measured->Get_value(), text, options.dialect);
    return {*measured, reader.Has_bounds()};
}

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

Answer Answer_reader::Read(std::string_view text) {
    if (options.rules == Rules::measurements) {
        return Read_measured(text);
    }
    Quantity const quantity = Read_quantity(text, options.dialect);
    Check_dialect(quantity.Get_value(), text, options.dialect);
    return {quantity, true};
}

Answer Read_answer(std::string_view text, Options const& options) {
    return Answer_reader(options).Read(text);
}

// ---- Writing

namespace {

constexpr int bound_digits = 4;

// Bounds that were not typed come from rounding alone, and are not shown.
Writing Writing_of(bool has_bounds, Options const& options) {
    Writing writing;
    writing.format = options.format;
    writing.bounds = Bound_rounding::outward;
    if (options.all_digits) {
        return writing;
    }
    bool const is_short = options.format.digits == Digits::shortest;
    if (!has_bounds) {
        writing.format.bounds = Bounds_style::hidden;
        writing.within_bounds = is_short;
    } else if (is_short) {
        writing.format.digits = Digits::by_bounds;
        writing.format.count = bound_digits;
        writing.trailing_zeros = false;
    }
    return writing;
}

// The lines of a conversion have one unit, of which the text is composed once. The tool has one thread.
std::string const& Unit_text_of(Measurement const& x, Unit_string_type spelling) {
    struct Last {
        Units unit;
        bool is_difference = false;
        Unit_string_type spelling = STR_SYMBOL;
        std::string text;
    };
    static Last last;
    if (!(last.unit == x.Get_unit()) || last.is_difference != x.Is_difference() ||
        last.spelling != spelling) {
        last = {x.Get_unit(), x.Is_difference(), spelling, Format_unit(x, spelling)};
    }
    return last.text;
}

std::string Measured_text(Measurement const& x, Writing const& writing) {
    return writing.format.engineering_prefix
               ? Write(x, writing)
               : Write_numbers(Exact_numbers_of(x), Unit_text_of(x, writing.format.unit), writing);
}

} // namespace

std::string Text_of(Answer const& answer, Options const& options) {
    if (auto const* quantity = std::get_if<Quantity>(&answer.result)) {
        return Format(*quantity, options.format);
    }
    return Measured_text(std::get<Measurement>(answer.result),
                         Writing_of(answer.has_bounds, options));
}

std::string Unit_text(Answer const& answer, Unit_string_type spelling) {
    if (auto const* quantity = std::get_if<Quantity>(&answer.result)) {
        return Format_unit(quantity->Get_unit(), spelling);
    }
    return Format_unit(std::get<Measurement>(answer.result), spelling);
}

namespace {

// The way out of a refusal in what is typed.
char const* Words_typed(Way_out way_out) {
    switch (way_out) {
    case Way_out::with_resistance:
        return "convert with a resistance, as in --with '50 ohm'";
    case Way_out::with_current:
        return "convert with a current, as in --with '2 A'";
    case Way_out::with_voltage:
        return "convert with a voltage, as in --with '5 V'";
    case Way_out::mark_difference:
        return "mark the one that is a difference, as in 5 ΔK or 5 Δ°C";
    case Way_out::take_as_point:
        return "write the temperature without Δ";
    case Way_out::power_sum:
        return "compute --power-sum adds the powers";
    case Way_out::amplify:
        return "apply it to one, as in 1 W * 3 dB";
    case Way_out::ratio_of_gain:
        return "1 V * 20 dB or 1 W * 20 dB says which";
    case Way_out::gain_of_ratio:
        return "convert so many V to dBV, or W to dBW";
    default:
        return Way_out_words(way_out);
    }
}

} // namespace

Refusal As_the_tool_says(MeasurementRefused const& refused) {
    return Refusal(refused.Worded(Words_typed(refused.Get_way_out())));
}

} // namespace Varnix::Value::Tool
