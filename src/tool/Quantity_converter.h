// Quantities, each in a unit of its own, converted into one unit.

#ifndef VARNIX_VALUE_TOOL_QUANTITY_CONVERTER_H
#define VARNIX_VALUE_TOOL_QUANTITY_CONVERTER_H

#include "Answers.h"
#include "Commands.h"

#include <varnix/value/Measurement_converter.h>

#include <optional>
#include <string>
#include <string_view>

namespace Varnix::Value::Tool {

// @throws Refusal where the text is none
Measurement_unit Read_target(std::string_view text);

class Quantity_converter {
  public:
    // To a unit; by a relation with a second quantity, where that text is not empty.
    // @throws Refusal where one of them cannot be read
    Quantity_converter(std::string const& to, std::string const& with, Options const& options);

    // @throws Refusal where it does not convert, or the text is no quantity
    Answer Convert(Answer const& answer);
    Answer Convert(std::string_view text);

  private:
    Answer Converted(Answer const& answer);
    Measurement Measured(Measurement const& x);

    Measurement_unit to;
    std::optional<Answer> with;
    Answer_reader reader;
    std::optional<Measurement_converter> prepared; // for the unit that came last
};

} // namespace Varnix::Value::Tool

#endif
