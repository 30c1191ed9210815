// Reading numbers.

#ifndef VARNIX_VALUE_TEXT_NUMBER_READER_H
#define VARNIX_VALUE_TEXT_NUMBER_READER_H

#include <varnix/value/Text_parsing.h>

namespace Varnix::Value {

// A number, and the position behind it.
struct Read_number_result {
    Decimal_text number;
    std::size_t end;
};

// The number that begins at `position`, in one of the forms.
Parse_result<Read_number_result> Read_number(std::string_view text, std::size_t position,
                                             Number_forms forms);

} // namespace Varnix::Value

#endif
