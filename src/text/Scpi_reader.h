// Reading the suffixes of instruments.

#ifndef VARNIX_VALUE_TEXT_SCPI_READER_H
#define VARNIX_VALUE_TEXT_SCPI_READER_H

#include <varnix/value/Text_parsing.h>

namespace Varnix::Value {

// The unit that `text` has from `position` on to its end, blanks around it allowed.
Parse_result<Units> Read_scpi_unit(std::string_view text, std::size_t position);

} // namespace Varnix::Value

#endif
