// Characters in UTF-8.

#ifndef VARNIX_VALUE_BASICS_UTF8_H
#define VARNIX_VALUE_BASICS_UTF8_H

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace Varnix::Value::Basics {

struct Utf8_character {
    std::uint32_t code; // its code point
    std::uint8_t size;  // in bytes; 0 for what is not UTF-8
};

// What a lead byte says: how many bytes there are, and the least code that takes as many.
struct Utf8_lead {
    std::uint8_t size;
    std::uint32_t bits;
    std::uint32_t least;
};

inline Utf8_lead Lead_of(unsigned char byte) {
    return byte < 0x80U              ? Utf8_lead{1, byte, 0}
           : (byte & 0xE0U) == 0xC0U ? Utf8_lead{2, byte & 0x1FU, 0x80}
           : (byte & 0xF0U) == 0xE0U ? Utf8_lead{3, byte & 0x0FU, 0x800}
           : (byte & 0xF8U) == 0xF0U ? Utf8_lead{4, byte & 0x07U, 0x10000}
                                     : Utf8_lead{0, 0, 0};
}

// The first character of a text that is not empty. Surrogates, codes beyond Unicode and forms that
// are longer than they must be are not UTF-8.
inline Utf8_character First_character(std::string_view text) {
    Utf8_lead const lead = Lead_of(static_cast<unsigned char>(text[0]));
    if (lead.size == 0 || lead.size > text.size()) {
        return {0, 0};
    }
    std::uint32_t code = lead.bits;
    for (char const character : text.substr(1, lead.size - 1U)) {
        auto const byte = static_cast<unsigned char>(character);
        if ((byte & 0xC0U) != 0x80U) {
            return {0, 0};
        }
        code = code << 6U | (byte & 0x3FU);
    }
    bool const is_surrogate = code >= 0xD800 && code < 0xE000;
    bool const is_valid = code >= lead.least && code < 0x110000 && !is_surrogate;
    return {code, is_valid ? lead.size : std::uint8_t{0}};
}

} // namespace Varnix::Value::Basics

#endif
