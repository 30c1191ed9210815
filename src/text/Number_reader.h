// Reading numbers.

#ifndef VARNIX_VALUE_TEXT_NUMBER_READER_H
#define VARNIX_VALUE_TEXT_NUMBER_READER_H

#include <varnix/value/Text_parsing.h>

#include <optional>

namespace Varnix::Value {

struct Read_number_result {
    double value;
    std::size_t end; // the position behind it
};

// The number that begins at `position`, in one of the forms. If there is none, `fault` is set.
std::optional<Read_number_result> Read_number(std::string_view text, std::size_t position,
                                              Number_forms forms, std::optional<Text_fault>& fault);

} // namespace Varnix::Value

#endif
