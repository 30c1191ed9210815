#include "Quantity_converter.h"

#include "Strict_conversions.h"
#include "Unit_questions.h"
#include "Written_results.h"

#include <algorithm>

namespace Varnix::Value::Tool {

namespace {

// More than a file mixes; few enough to be looked through for each line.
constexpr std::size_t prepared_limit = 16;

} // namespace

Quantity_converter::Quantity_converter(Conversion_request const& request, Options const& options_)
    : to(Read_unit(request.to)),
      with(request.with.empty() ? std::nullopt
                                : std::optional(Read_quantity(request.with, options_.dialect))),
      options(options_) {}

Quantity Quantity_converter::Convert(std::string_view text) {
    Quantity const quantity = Read_quantity(text, options.dialect);
    if (with) {
        std::string note;
        Quantity result = Convert_with(quantity, to, *with, options.rules, note);
        Tell_once(note);
        return result;
    }
    Quantity result = Prepared_for(quantity.Get_unit()).Convert(quantity);
    Require_finite(
        result, [&] { return Format(quantity); }, options.rules);
    return result;
}

Value_converter<double> const& Quantity_converter::Prepared_for(Units const& from) {
    auto const known = std::find_if(prepared.begin(), prepared.end(), [&](auto const& converter) {
        return Same_descriptor(converter.Get_source(), from);
    });
    if (known != prepared.end()) {
        return *known;
    }
    std::string note;
    Value_converter<double> const converter = Prepare(from, to, options.rules, note);
    Tell_once(note);
    if (prepared.size() < prepared_limit) {
        prepared.push_back(converter);
        return prepared.back();
    }
    std::size_t const place = oldest;
    oldest = (oldest + 1) % prepared_limit;
    return prepared[place] = converter;
}

void Quantity_converter::Tell_once(std::string const& note) {
    if (!note.empty() && note != last_note) {
        Report("note: " + note);
        last_note = note;
    }
}

} // namespace Varnix::Value::Tool
