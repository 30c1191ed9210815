// Reading the text of a unit.

#ifndef VARNIX_VALUE_TEXT_UNIT_READER_H
#define VARNIX_VALUE_TEXT_UNIT_READER_H

#include "Characters.h"

#include <varnix/value/Text_parsing.h>

namespace Varnix::Value {

// The unit that `text` has from `position` on to its end, blanks around it allowed.
Parse_result<Units> Read_unit(std::string_view text, std::size_t position);

// Whether there is nothing from `position` on, which is no blank, or "1" alone.
inline bool Is_unit_of_plain_numbers(std::string_view text, std::size_t position) {
    return position == text.size() ||
           (text[position] == '1' && Skip_blanks(text, position + 1) == text.size());
}

} // namespace Varnix::Value

#endif
