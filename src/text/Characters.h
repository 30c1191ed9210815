// The characters of the notation: UTF-8 decoded, and what each of them is for.

#ifndef VARNIX_VALUE_TEXT_CHARACTERS_H
#define VARNIX_VALUE_TEXT_CHARACTERS_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace Varnix::Value {

enum class Character_kind : std::uint8_t {
    text_end,
    blank,
    letter, // of words; whatever has no other use counts as one, to be refused as part of a word
    digit,
    raised, // superscript digits and signs
    product,
    star,
    slash,
    caret,
    opening,
    closing,
    bracket, // which opens bounds, and "[ft_i]"
    plus,
    plus_minus,
    minus,   // the sign U+2212 only; a hyphen has no use outside numbers
    invalid, // NUL, other control characters, and what is not UTF-8
    other,
};

struct Character {
    Character_kind kind;
    std::uint8_t size; // in bytes
    std::int8_t value; // of a raised digit; of the raised signs the character '+' or '-'
};

// What the ASCII characters are for, by their codes.
extern std::array<Character_kind, 128> const ascii_kinds;

// The character with which `text` begins, which is not of ASCII.
Character Beyond_ascii(std::string_view text);

// The character at `position`; one of the kind text_end, and no size, from the end on.
inline Character Character_at(std::string_view text, std::size_t position) {
    if (position >= text.size()) {
        return {Character_kind::text_end, 0, 0};
    }
    auto const byte = static_cast<unsigned char>(text[position]);
    return byte < ascii_kinds.size() ? Character{ascii_kinds[byte], 1, 0}
                                     : Beyond_ascii(text.substr(position));
}

// The first position from `position` on whose character is of another kind.
inline std::size_t Skip(Character_kind kind, std::string_view text, std::size_t position) {
    for (;;) {
        Character const character = Character_at(text, position);
        if (character.kind != kind) {
            return position;
        }
        position += character.size;
    }
}

inline std::size_t Skip_blanks(std::string_view text, std::size_t position) {
    return Skip(Character_kind::blank, text, position);
}

inline std::size_t End_of_letters(std::string_view text, std::size_t position) {
    return Skip(Character_kind::letter, text, position);
}

inline std::size_t End_of_digits(std::string_view text, std::size_t position) {
    return Skip(Character_kind::digit, text, position);
}

// The bytes of the minus sign at `position`, a hyphen or U+2212; 0 if there is none.
inline std::size_t Minus_size(std::string_view text, std::size_t position) {
    if (position < text.size() && text[position] == '-') {
        return 1;
    }
    Character const character = Character_at(text, position);
    return character.kind == Character_kind::minus ? character.size : 0;
}

// The character at `position` for a message: quoted, or in words.
std::string Described(std::string_view text, std::size_t position);

// `word` in quotes for a message, shortened if it is long.
std::string Quoted(std::string_view word);

} // namespace Varnix::Value

#endif
