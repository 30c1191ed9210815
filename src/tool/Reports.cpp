#include "Reports.h"

#include <algorithm>
#include <cstdio>
#include <vector>

namespace Varnix::Value::Tool {

namespace {

// How much of a text is shown, in characters, and how much of that before the mark.
constexpr std::size_t shown_length = 72;
constexpr std::size_t shown_before = 40;

bool Continues_character(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

// The length of the UTF-8 character that starts here; 0 for bytes that are none.
std::size_t Character_length(std::string_view text) {
    auto const lead = static_cast<unsigned char>(text[0]);
    std::size_t const length = lead < 0x80    ? 1
                               : lead < 0xC2  ? 0
                               : lead < 0xE0  ? 2
                               : lead < 0xF0  ? 3
                               : lead <= 0xF4 ? 4
                                              : 0;
    if (length == 0 || length > text.size() ||
        !std::all_of(text.begin() + 1, text.begin() + static_cast<std::ptrdiff_t>(length),
                     Continues_character)) {
        return 0;
    }
    return length;
}

// One character that a terminal can show.
struct Character {
    std::size_t position; // its first byte in the text
    std::string_view bytes;
};

std::vector<Character> Characters_of(std::string_view text) {
    std::vector<Character> characters;
    for (std::size_t position = 0; position < text.size();) {
        std::size_t const length = Character_length(text.substr(position));
        bool const shown =
            length > 1 || (length == 1 && text[position] >= ' ' && text[position] != 0x7F);
        characters.push_back({position, shown ? text.substr(position, length) : "?"});
        position += std::max<std::size_t>(length, 1);
    }
    return characters;
}

std::string Message_of(Text_fault const& fault) {
    return fault.suggestion.empty()
               ? fault.message
               : fault.message + "; did you mean \"" + fault.suggestion + "\"?";
}

} // namespace

Refusal::Refusal(Text_fault const& fault, std::string_view text_)
    : Refusal(Message_of(fault), text_, fault.position) {}

Refusal Refusal::Within(std::string_view whole, std::size_t first) const {
    return text.empty() ? *this : Refusal(what(), whole, first + position);
}

Refusal Refusal::At(std::string const& place) const {
    return {place + ": " + what(), text, position};
}

std::string Refusal::Excerpt() const {
    if (text.empty()) {
        return {};
    }
    // Only the surroundings are looked at: the text may be long.
    std::size_t const from = position > 4 * shown_length ? position - 4 * shown_length : 0;
    auto const characters = Characters_of(std::string_view(text).substr(from, 8 * shown_length));
    auto const marked = static_cast<std::size_t>(
        std::count_if(characters.begin(), characters.end(), [&](Character const& character) {
            return from + character.position < position;
        }));
    std::size_t const first = marked > shown_before ? marked - shown_before : 0;
    std::size_t const last = std::min(characters.size(), first + shown_length);
    std::string line = first > 0 ? "..." : "";
    std::string const mark(line.size() + marked - first, ' ');
    for (std::size_t k = first; k < last; ++k) {
        line += characters[k].bytes;
    }
    line += last < characters.size() ? "..." : "";
    return "  " + line + "\n  " + mark + "^\n";
}

void Report(Refusal const& refusal, std::string const& place) {
    std::string const text = "value-object: " + (place.empty() ? "" : place + ": ") +
                             refusal.what() + '\n' + refusal.Excerpt();
    std::fputs(text.c_str(), stderr);
}

void Report(std::string const& message) {
    std::fputs(("value-object: " + message + '\n').c_str(), stderr);
}

} // namespace Varnix::Value::Tool
