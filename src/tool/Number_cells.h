// Numbers as text, in one unit, converted into another: the lines of a column and the cells of a
// table.

#ifndef VARNIX_VALUE_TOOL_NUMBER_CELLS_H
#define VARNIX_VALUE_TOOL_NUMBER_CELLS_H

#include "Answers.h"
#include "Commands.h"

#include <varnix/value/Measurement_converter.h>
#include <varnix/value/Value_converter.h>

#include <charconv>
#include <cmath>
#include <optional>
#include <string_view>

namespace Varnix::Value::Tool {

class Number_cells {
  public:
    // Prepares the conversion.
    // @throws Refusal where the conversion is refused
    Number_cells(Units const& from, Units const& to, Options const& options);

    // The number that the cell holds, converted; `cell` has no blanks around it.
    // @throws Refusal where it holds none, or where the result is not finite; where it is of an
    //         instrument, which has none
    double Convert(std::string_view cell) const {
        // Plain numbers take the short way; whatever else there may be is left to the reader.
        double number = 0.0;
        auto const end = std::from_chars(cell.data(), cell.data() + cell.size(), number);
        if (end.ec != std::errc() || end.ptr != cell.data() + cell.size() ||
            !std::isfinite(number)) {
            number = Read(cell);
        }
        if (of_instruments) {
            Check_instruments_number(number, cell);
        }
        double const result =
            measured ? measured->Convert_number(number) : by_the_rules->Convert(number);
        if (!std::isfinite(result)) {
            Check(cell, result);
        }
        return result;
    }

    void Write(double result, Output& output) const {
        if (shortest) {
            output.Append(result);
        } else {
            output.Append(Format_number(result, format));
        }
    }

    Units Source() const { return measured ? measured->Get_from() : by_the_rules->Get_source(); }
    Units Target() const { return measured ? measured->Get_to() : by_the_rules->Get_target(); }

  private:
    static double Read(std::string_view cell);
    void Check(std::string_view cell, double result) const;

    // One of the two.
    std::optional<Measurement_converter> measured;
    std::optional<Value_converter<double>> by_the_rules;
    Text_format format;
    bool shortest;
    bool of_instruments;
};

} // namespace Varnix::Value::Tool

#endif
