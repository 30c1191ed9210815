// What is said of a word that is no unit.

#ifndef VARNIX_VALUE_TEXT_UNKNOWN_WORDS_H
#define VARNIX_VALUE_TEXT_UNKNOWN_WORDS_H

#include <varnix/value/Text_parsing.h>

namespace Varnix::Value {

// Why the word at `position` is refused, and what is likely meant; `below` says that it stands
// behind a '/'.
Text_fault Unknown_word_fault(std::string_view text, std::size_t position, bool below);

} // namespace Varnix::Value

#endif
