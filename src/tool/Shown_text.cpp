#include "Shown_text.h"

#include <algorithm>
#include <utility>

namespace Varnix::Value::Tool {

namespace {

// What a lead byte says: how many bytes there are, and the least code that takes as many.
struct Lead {
    std::size_t size;
    std::uint32_t bits;
    std::uint32_t least;
};

Lead Lead_of(unsigned char byte) {
    return byte < 0x80U              ? Lead{1, byte, 0}
           : (byte & 0xE0U) == 0xC0U ? Lead{2, byte & 0x1FU, 0x80}
           : (byte & 0xF0U) == 0xE0U ? Lead{3, byte & 0x0FU, 0x800}
           : (byte & 0xF8U) == 0xF0U ? Lead{4, byte & 0x07U, 0x10000}
                                     : Lead{0, 0, 0};
}

} // namespace

Utf8_character First_character(std::string_view text) {
    Lead const lead = Lead_of(static_cast<unsigned char>(text[0]));
    if (lead.size == 0 || lead.size > text.size()) {
        return {0, 0};
    }
    std::uint32_t code = lead.bits;
    for (char const character : text.substr(1, lead.size - 1)) {
        auto const byte = static_cast<unsigned char>(character);
        if ((byte & 0xC0U) != 0x80U) {
            return {0, 0};
        }
        code = code << 6U | (byte & 0x3FU);
    }
    bool const is_surrogate = code >= 0xD800 && code < 0xE000;
    bool const is_valid = code >= lead.least && code < 0x110000 && !is_surrogate;
    return {code, is_valid ? lead.size : 0};
}

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
