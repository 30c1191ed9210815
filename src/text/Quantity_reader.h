// Reading the text of a quantity.

#ifndef VARNIX_VALUE_TEXT_QUANTITY_READER_H
#define VARNIX_VALUE_TEXT_QUANTITY_READER_H

#include <varnix/value/Text_parsing.h>

namespace Varnix::Value {

// The parts of a quantity, its unit not read yet.
Parse_result<Quantity_parts> Split_quantity(std::string_view text, Number_forms forms);

// Reads the unit that a text has from a position on.
using Unit_text_reader = Parse_result<Units> (*)(std::string_view text, std::size_t position);

Parse_result<Value_object<double>> Read_quantity(std::string_view text, Number_forms forms,
                                                 Unit_text_reader read_unit);

} // namespace Varnix::Value

#endif
