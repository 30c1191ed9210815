#include "Unknown_words.h"

#include "Characters.h"
#include "Foreign_units.h"
#include "Spellings.h"
#include "Suggestions.h"
#include "Unit_readings.h"
#include "Unit_traps.h"

#include <optional>

namespace Varnix::Value {

namespace {

// Whether the word takes the prefix in the other form: "inch" as "in" does.
bool Takes_in_other_form(std::string_view word, Prefix_word prefix) {
    prefix.form = prefix.form == symbol_form ? name_form : symbol_form;
    Unit_word const* const found = Unit_words::Get().Find_unit(word);
    return found != nullptr && Goes_with(prefix, *found);
}

// "pinch", "kmeters", "kilom": the form of the prefix is not that of the unit.
struct Mixture {
    Prefix_word const* prefix;
    std::string unit;
};

std::optional<Mixture> Find_mixture(std::string_view word) {
    for (Prefix_word const& prefix : Unit_words::Get().Prefixes_like(word)) {
        if (Begins_with(word, prefix.text)) {
            std::string_view const unit = word.substr(prefix.text.size());
            if (Takes_in_other_form(unit, prefix)) {
                return Mixture{&prefix, std::string(unit)};
            }
        }
    }
    return std::nullopt;
}

// The prefix in the form of the unit: kilometers, km; or apart from it: nano(mi), milli(in). Nothing
// for a scale of temperature.
std::string Unmixed(Mixture const& mixture) {
    SI_units const prefix = mixture.prefix->prefix;
    Unit_string_type const type = mixture.prefix->form == symbol_form ? STR_NAME : STR_SYMBOL;
    std::string const text = Prefix_text(prefix, type) + mixture.unit;
    auto const reading = Read_group(text, {0, false});
    bool const same = reading && reading->prefix == prefix && reading->end == text.size();
    return same && Is_temperature_scale(*reading) ? std::string()
           : same                                 ? text
                  : Prefix_text(prefix, STR_NAME) + '(' + mixture.unit + ')';
}

// "4.7 k ohm", "5 T": the unit with the prefix that stands apart from it, or "" if there is none.
std::string Joined_to_prefix(std::string_view text, std::size_t position, std::size_t end) {
    std::size_t const next = Skip_blanks(text, end);
    std::string const joined = std::string(text.substr(position, end - position)) +
                               std::string(text.substr(next, End_of_letters(text, next) - next));
    return next != end && Can_be_suggested(joined) ? joined : std::string();
}

bool Is_prefix(std::string_view word) {
    for (Prefix_word const& prefix : Unit_words::Get().Prefixes_like(word)) {
        if (prefix.text == word) {
            return true;
        }
    }
    return false;
}

Text_fault Apart_prefix_fault(std::string_view text, std::size_t position, std::size_t end) {
    std::string_view const word = text.substr(position, end - position);
    std::string joined = Joined_to_prefix(text, position, end);
    return {end, "expected a unit directly after the prefix " + Quoted(word),
            joined.empty() ? Unit_by_another_name(word) : std::move(joined)};
}

Text_fault Mixture_fault(Mixture const& mixture, std::size_t position) {
    bool const symbol = mixture.prefix->form == symbol_form;
    return {position,
            "the prefix " + Quoted(mixture.prefix->text) + " goes with " +
                (symbol ? "symbols" : "names") + ", and " + Quoted(mixture.unit) + " is a " +
                (symbol ? "name" : "symbol"),
            Unmixed(mixture)};
}

} // namespace

Text_fault Unknown_word_fault(std::string_view text, std::size_t position, bool below) {
    std::size_t const end = End_of_letters(text, position);
    std::string_view const word = text.substr(position, end - position);
    if (word == "Km" && below) {
        return Ambiguous(text, position, "(K*m)", "km");
    }
    if (word == "per") {
        return {position, "expected a unit, found 'per'; it stands between two, for '/'", {}};
    }
    if (Is_prefix(word)) {
        return Apart_prefix_fault(text, position, end);
    }
    std::string other = Unit_by_another_name(word);
    if (!other.empty()) {
        return {position, "expected a unit, found " + Quoted(word), std::move(other)};
    }
    if (std::optional<std::string> message = Foreign_unit_message(word)) {
        return {position, std::move(*message), {}};
    }
    if (std::optional<Mixture> const mixture = Find_mixture(word)) {
        return Mixture_fault(*mixture, position);
    }
    return {position, "expected a unit, found " + Quoted(word), Nearest_unit(word)};
}

} // namespace Varnix::Value
