// Reading the text of a quantity.

#ifndef VARNIX_VALUE_TEXT_QUANTITY_READER_H
#define VARNIX_VALUE_TEXT_QUANTITY_READER_H

#include <varnix/value/Text_parsing.h>

namespace Varnix::Value {

Parse_result<Value_object<double>> Read_quantity(std::string_view text, Number_forms forms);

} // namespace Varnix::Value

#endif
