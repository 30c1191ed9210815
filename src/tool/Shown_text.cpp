#include "Shown_text.h"

#include "basics/Utf8.h"

#include <algorithm>
#include <utility>

namespace Varnix::Value::Tool {

using namespace Basics;

std::size_t First_not_utf8(std::string_view text) {
    std::size_t position = 0;
    while (position < text.size()) {
        std::size_t const size = First_character(text.substr(position)).size;
        if (size == 0) {
            break;
        }
        position += size;
    }
    return position;
}

namespace {

struct Code_range {
    std::uint32_t first;
    std::uint32_t last;
};

// clang-format off
constexpr Code_range escaped[] = {
    {0x0000,  0x001F},  // control characters
    {0x007F,  0x009F},
    {0x061C,  0x061C},  // directions
    {0x200B,  0x200B},  // a blank without width
    {0x200E,  0x200F},  // directions
    {0x2028,  0x202E},  // line breaks, directions
    {0x2060,  0x206F},  // operators that are not seen, directions
    {0xFEFF,  0xFEFF},  // the byte order mark
    {0xFFF9,  0xFFFB},  // annotations
    {0xE0000, 0xE007F}, // tags
};
// clang-format on

bool Is_escaped(std::uint32_t code) {
    return std::any_of(std::begin(escaped), std::end(escaped), [code](Code_range const& range) {
        return code >= range.first && code <= range.last;
    });
}

std::string Escape(char kind, std::uint32_t number, int digit_count) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string escape = {'\\', kind};
    for (int place = digit_count - 1; place >= 0; --place) {
        escape += digits[number >> (4 * place) & 0xFU];
    }
    return escape;
}

std::string Escape_of(std::uint32_t code) {
    switch (code) {
    case '\n':
        return "\\n";
    case '\r':
        return "\\r";
    case '\t':
        return "\\t";
    default:
        return code < 0x80      ? Escape('x', code, 2)
               : code < 0x10000 ? Escape('u', code, 4)
                                : Escape('U', code, 8);
    }
}

} // namespace

Shown_character Show_first(std::string_view text) {
    Utf8_character const character = First_character(text);
    if (character.size != 0 && !Is_escaped(character.code)) {
        return {std::string(text.substr(0, character.size)), character.size, 1};
    }
    std::string escape = character.size == 0 ? Escape('x', static_cast<unsigned char>(text[0]), 2)
                                             : Escape_of(character.code);
    std::size_t const width = escape.size();
    return {std::move(escape), std::max<std::size_t>(character.size, 1), width};
}

std::string Shown(std::string_view text) {
    std::string shown;
    while (!text.empty()) {
        Shown_character const character = Show_first(text);
        shown += character.bytes;
        text.remove_prefix(character.size);
    }
    return shown;
}

} // namespace Varnix::Value::Tool
