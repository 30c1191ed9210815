// Reading the text of a quantity.

#ifndef VARNIX_VALUE_TEXT_QUANTITY_READER_H
#define VARNIX_VALUE_TEXT_QUANTITY_READER_H

#include <varnix/value/Text_parsing.h>

namespace Varnix::Value {

// The parts of a quantity, its unit not read yet.
Parse_result<Quantity_parts> Split_quantity(std::string_view text, Number_forms forms);

Parse_result<Value_object<double>> Read_quantity(std::string_view text, Number_forms forms);

} // namespace Varnix::Value

#endif
