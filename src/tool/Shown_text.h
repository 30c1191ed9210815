// Texts from outside, as messages show them, and whether they are UTF-8.

#ifndef VARNIX_VALUE_TOOL_SHOWN_TEXT_H
#define VARNIX_VALUE_TOOL_SHOWN_TEXT_H

#include <cstddef>
#include <string>
#include <string_view>

namespace Varnix::Value::Tool {

// Where the first byte is that belongs to no UTF-8 character; the end of the text if there is none.
std::size_t First_not_utf8(std::string_view text);

// The first character of a text that is not empty, or its first byte, as a terminal may be sent it:
// "\x1b" for one that would control the terminal, "\u202e" for one that would turn the direction of
// the line or not be seen, "\xff" for a byte that is not UTF-8.
struct Shown_character {
    std::string bytes;
    std::size_t size;  // of what is shown, in the text
    std::size_t width; // on the terminal
};

Shown_character Show_first(std::string_view text);

// All of it. Every message goes through here.
std::string Shown(std::string_view text);

} // namespace Varnix::Value::Tool

#endif
