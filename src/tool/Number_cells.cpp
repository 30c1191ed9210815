#include "Number_cells.h"

#include <varnix/value/Text_parsing.h>

namespace Varnix::Value::Tool {

Number_cells::Number_cells(Units const& from, Units const& to, Options const& options)
    : format(options.format), shortest(options.format.digits == Digits::shortest ||
                                       options.format.digits == Digits::by_bounds),
      of_instruments(options.dialect == Dialect::scpi) {
    if (options.rules == Rules::measurements) {
        measured = Telling_refusals([&] { return Measurement_converter(from, to); });
    } else {
        by_the_rules = Prepare_by_the_rules(from, to);
    }
}

double Number_cells::Read(std::string_view cell) {
    auto const number = Try_parse_number(cell);
    if (!number) {
        throw Refusal(number.Get_fault(), cell);
    }
    return *number;
}

void Number_cells::Check(std::string_view cell, double result) const {
    if (measured) {
        std::string const from = Format_unit(Source());
        std::string const to = Format_unit(Target());
        throw Refusal(std::string(cell) + (from.empty() ? "" : ' ' + from) +
                      " has no finite value" + (to.empty() ? "" : " in " + to) +
                      ": the result is " + Format_number(result));
    }
}

} // namespace Varnix::Value::Tool
