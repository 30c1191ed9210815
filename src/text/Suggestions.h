// The nearest known unit to a word that is none.

#ifndef VARNIX_VALUE_TEXT_SUGGESTIONS_H
#define VARNIX_VALUE_TEXT_SUGGESTIONS_H

#include <string>
#include <string_view>

namespace Varnix::Value {

// The unit that is likely meant by `word`: one that goes by another name, one that differs in the
// case of letters, or a name with a letter or two changed, left out or put in. The work is bounded,
// however long the word.
std::string Nearest_unit(std::string_view word);

} // namespace Varnix::Value

#endif
