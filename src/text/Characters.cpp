#include "Characters.h"

#include "basics/Utf8.h"

#include <array>

namespace Varnix::Value {

using namespace Basics;

namespace {

Character Raised(std::uint8_t size, std::uint32_t value) {
    return {Character_kind::raised, size, static_cast<std::int8_t>(value)};
}

// Marks and controls of the direction of a line, and line breaks: in a message they would reorder
// what is read, or hide a part of it.
bool Turns_lines(std::uint32_t code) {
    return code == 0x061C || code == 0x200E || code == 0x200F ||
           (code >= 0x2028 && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
}

// clang-format off
Character Character_of(Utf8_character const& character) {
    auto const [code, size] = character;
    if (size == 0) {
        return {Character_kind::invalid, 1, 0};
    }
    if ((code >= 0x2074 && code <= 0x2079) || code == 0x2070) {
        return Raised(size, code - 0x2070);
    }
    switch (code) {
    case 0x00B9: return Raised(size, 1);           // the first three stand apart from the others
    case 0x00B2: return Raised(size, 2);
    case 0x00B3: return Raised(size, 3);
    case 0x207A: return Raised(size, '+');
    case 0x207B: return Raised(size, '-');
    case 0x00B7:                                   // middle dot
    case 0x22C5: return {Character_kind::product, size, 0};  // dot operator
    case 0x00B1: return {Character_kind::plus_minus, size, 0};
    case 0x2212: return {Character_kind::minus, size, 0};
    case 0x00A0:                                   // the blanks that typesetters put before a unit
    case 0x2009:
    case 0x202F: return {Character_kind::blank, size, 0};
    default:
        return {code < 0xA0 || Turns_lines(code) ? Character_kind::invalid : Character_kind::letter, size, 0};
    }
}

constexpr Character_kind Ascii_kind(unsigned char byte) {
    switch (byte) {
    case ' ':
    case '\t': return Character_kind::blank;
    case '.':  return Character_kind::product;
    case '*':  return Character_kind::star;
    case '/':  return Character_kind::slash;
    case '^':  return Character_kind::caret;
    case '(':  return Character_kind::opening;
    case ')':
    case ']':  return Character_kind::closing;
    case '[':  return Character_kind::bracket;
    case '+':  return Character_kind::plus;
    case '%':
    case '_':  return Character_kind::letter;
    default:   break;
    }
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') ? Character_kind::letter
           : byte >= '0' && byte <= '9'                                 ? Character_kind::digit
           : byte < 0x20 || byte == 0x7F                                ? Character_kind::invalid
                                                                        : Character_kind::other;
}
// clang-format on

constexpr std::array<Character_kind, 128> Make_ascii_kinds() {
    std::array<Character_kind, 128> kinds{};
    for (unsigned char byte = 0; byte < 128; ++byte) {
        kinds[byte] = Ascii_kind(byte);
    }
    return kinds;
}

} // namespace

std::array<Character_kind, 128> const ascii_kinds = Make_ascii_kinds();

Character Beyond_ascii(std::string_view text) {
    return Character_of(First_character(text));
}

namespace {

std::string Hexadecimal(std::uint32_t number, int count) {
    static constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    for (int place = count - 1; place >= 0; --place) {
        text += digits[number >> (4 * place) & 0xFU];
    }
    return text;
}

} // namespace

std::string Described(std::string_view text, std::size_t position) {
    Character const character = Character_at(text, position);
    if (character.kind == Character_kind::text_end) {
        return "the end of the text";
    }
    if (character.kind != Character_kind::invalid) {
        return Quoted(text.substr(position, character.size));
    }
    if (character.size > 1) {
        std::uint32_t const code = First_character(text.substr(position)).code;
        return "the control character U+" + Hexadecimal(code, 4);
    }
    auto const byte = static_cast<unsigned char>(text[position]);
    std::string const number = "0x" + Hexadecimal(byte, 2);
    return byte < 0x80 ? "the control character " + number
                       : "the byte " + number + ", which is not UTF-8";
}

std::string Quoted(std::string_view word) {
    constexpr std::size_t longest = 32;
    std::size_t end = 0;
    while (end < word.size() && end < longest) {
        Character const character = Character_at(word, end);
        if (character.kind == Character_kind::invalid) {
            break;
        }
        end += character.size;
    }
    return '\'' + std::string(word.substr(0, end)) + (end < word.size() ? "...'" : "'");
}

} // namespace Varnix::Value
