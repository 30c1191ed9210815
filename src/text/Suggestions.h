// The nearest known unit to a word that is none.

#ifndef VARNIX_VALUE_TEXT_SUGGESTIONS_H
#define VARNIX_VALUE_TEXT_SUGGESTIONS_H

#include <string>
#include <string_view>

namespace Varnix::Value {

// The unit whose text is nearest to `word`, if one is near: a letter or two changed, left out or
// put in, or the case of letters. The work is bounded, however long the word.
std::string Nearest_unit(std::string_view word);

} // namespace Varnix::Value

#endif
