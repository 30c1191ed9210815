// Quantities as text, each in a unit of its own, converted into one unit.

#ifndef VARNIX_VALUE_TOOL_QUANTITY_CONVERTER_H
#define VARNIX_VALUE_TOOL_QUANTITY_CONVERTER_H

#include "Commands.h"

#include <varnix/value/Value_converter.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Varnix::Value::Tool {

class Quantity_converter {
  public:
    // @throws Refusal where the target or the second quantity cannot be read
    Quantity_converter(Conversion_request const& request, Options const& options);

    // The quantity that `text` is, converted. A note goes to standard error, once.
    // @throws Refusal where it is none, or must not be converted
    Quantity Convert(std::string_view text);

  private:
    Value_converter<double> const& Prepared_for(Units const& from);
    void Tell_once(std::string const& note);

    Units to;
    std::optional<Quantity> with;
    Options const& options;
    std::string last_note;
    std::vector<Value_converter<double>> prepared; // for the units that were met last
    std::size_t oldest = 0;                        // of these, once they are many
};

} // namespace Varnix::Value::Tool

#endif
