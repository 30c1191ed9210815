#include "Reports.h"

#include "Shown_text.h"

#include <algorithm>
#include <cstdio>
#include <vector>

namespace Varnix::Value::Tool {

namespace {

// How much of a text is shown, in characters, and how much of that before the mark.
constexpr std::size_t shown_length = 72;
constexpr std::size_t shown_before = 40;

// A character of the text, as it is shown.
struct Character {
    std::size_t position; // its first byte in the text
    Shown_character shown;
};

std::vector<Character> Characters_of(std::string_view text) {
    std::vector<Character> characters;
    for (std::size_t position = 0; position < text.size();) {
        characters.push_back({position, Show_first(text.substr(position))});
        position += characters.back().shown.size;
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
    std::string mark(line.size(), ' ');
    for (std::size_t k = first; k < last; ++k) {
        line += characters[k].shown.bytes;
        mark.append(k < marked ? characters[k].shown.width : 0, ' ');
    }
    line += last < characters.size() ? "..." : "";
    return "  " + line + "\n  " + mark + "^\n";
}

Refusal Not_utf8(std::string_view text, std::size_t position) {
    return {"the byte " + Shown(text.substr(position, 1)) + " is not UTF-8, which JSON has to be",
            text, position};
}

void Report(Refusal const& refusal, std::string const& place) {
    Report((place.empty() ? "" : place + ": ") + refusal.what());
    std::fputs(refusal.Excerpt().c_str(), stderr);
}

void Report(std::string const& message) {
    std::fputs(("value-object: " + Shown(message) + '\n').c_str(), stderr);
}

} // namespace Varnix::Value::Tool
