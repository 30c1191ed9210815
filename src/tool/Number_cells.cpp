#include "Number_cells.h"

#include "Strict_conversions.h"

#include <varnix/value/Text_parsing.h>

namespace Varnix::Value::Tool {

namespace {

Value_converter<double> Prepare_with_note(Units const& from, Units const& to, Rules rules) {
    std::string note;
    Value_converter<double> const converter = Prepare(from, to, rules, note);
    if (!note.empty()) {
        Report("note: " + note);
    }
    return converter;
}

} // namespace

Number_cells::Number_cells(Units const& from, Units const& to, Options const& options)
    : converter(Prepare_with_note(from, to, options.rules)), rules(options.rules),
      format(options.format), shortest(options.format.digits == Digits::shortest ||
                                       options.format.digits == Digits::by_bounds) {}

double Number_cells::Read(std::string_view cell) {
    auto const number = Try_parse_number(cell);
    if (!number) {
        throw Refusal(number.Get_fault(), cell);
    }
    return *number;
}

void Number_cells::Check(std::string_view cell, double result) const {
    if (rules == Rules::strict) {
        std::string const unit = Format_unit(converter.Get_source());
        Require_finite(result, std::string(cell) + (unit.empty() ? "" : ' ' + unit),
                       converter.Get_target());
    }
}

} // namespace Varnix::Value::Tool
