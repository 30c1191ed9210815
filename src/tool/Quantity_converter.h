// Quantities as text, each in a unit of its own, converted into one unit.

#ifndef VARNIX_VALUE_TOOL_QUANTITY_CONVERTER_H
#define VARNIX_VALUE_TOOL_QUANTITY_CONVERTER_H

#include "Answers.h"
#include "Commands.h"

#include <optional>
#include <string_view>

namespace Varnix::Value::Tool {

class Quantity_converter {
  public:
    // @throws Refusal where the target or the second quantity cannot be read
    Quantity_converter(Conversion_request const& request, Options const& options);

    // The quantity that `text` is, converted. @throws Refusal where it is none, or does not convert
    Answer Convert(std::string_view text) const;

  private:
    Units to;
    std::optional<Answer> with;
    Options const& options;
};

// `answer` in another unit. @throws Refusal
Answer Converted(Answer const& answer, Units const& to);

} // namespace Varnix::Value::Tool

#endif
