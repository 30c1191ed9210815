// The words of the notation: names and symbols of units and prefixes, gathered once from the catalogue,
// and a table of words for several units.

#ifndef VARNIX_VALUE_TEXT_UNIT_WORDS_H
#define VARNIX_VALUE_TEXT_UNIT_WORDS_H

#include "catalogue/Unit_rows.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Varnix::Value {

// Symbols go with symbols and names with names. A word that is both has both bits.
enum Word_form : std::uint8_t {
    no_form = 0,
    symbol_form = 1,
    name_form = 2,
};

inline Word_form Common(Word_form first, Word_form second) {
    return static_cast<Word_form>(first & second);
}

// What the power behind a word raises.
enum class Power_raises : std::uint8_t {
    all,
    last_unit, // of "Nm", which is written like N*m
};

struct Unit_word {
    std::string text;
    Word_form form;
    Catalogue::Prefixes_taken prefixes;
    Units unit;                // without marker; of the words with a prefix of their own with that
    bool run_together = false; // with other units, as the core prints its own; others stand alone
    Power_raises power_raises = Power_raises::all;
    bool has_gaps = false;                   // '_' where blanks may stand: "imp_gal"
    Unit_word const* next_in_slot = nullptr; // of Unit_words' table
};

struct Prefix_word {
    std::string text;
    Word_form form;
    SI_units prefix;
    bool is_of_core;
};

// Whether the prefix stands before the unit, symbols with symbols and names with names.
inline bool Goes_with(Prefix_word const& prefix, Unit_word const& unit) {
    using Catalogue::Prefixes_taken;
    bool const any =
        unit.prefixes == Prefixes_taken::any || unit.prefixes == Prefixes_taken::chosen;
    return Common(prefix.form, unit.form) != no_form &&
           (any || (prefix.is_of_core && unit.prefixes != Prefixes_taken::none));
}

// The words that begin with one byte.
template <typename Word>
struct Word_range {
    Word const* first = nullptr;
    Word const* last = nullptr;

    Word const* begin() const { return first; }
    Word const* end() const { return last; }
};

class Unit_words {
  public:
    // The words; the first call gathers them. @throws std::bad_alloc
    static Unit_words const& Get();

    // The words that may stand where `text` begins: those with its first byte.
    Word_range<Unit_word> Units_like(std::string_view text) const {
        return Like(unit_ranges, text);
    }
    Word_range<Prefix_word> Prefixes_like(std::string_view text) const {
        return Like(prefix_ranges, text);
    }

    // The word that is `text`, or nullptr. The time does not depend on how long the text is.
    Unit_word const* Find_unit(std::string_view text) const {
        if (text.empty()) {
            return nullptr;
        }
        Unit_word const* word = first_of_slot[Slot_of(text)];
        while (word != nullptr && word->text != text) {
            word = word->next_in_slot;
        }
        return word;
    }

    std::vector<Unit_word> const& All_units() const { return units; }
    std::vector<Prefix_word> const& All_prefixes() const { return prefixes; }

  private:
    Unit_words();

    template <typename Word>
    using Ranges = std::array<Word_range<Word>, 256>; // by the first byte

    template <typename Word>
    static Word_range<Word> Like(Ranges<Word> const& ranges, std::string_view text) {
        return text.empty() ? Word_range<Word>() : ranges[static_cast<unsigned char>(text[0])];
    }

    // Words differ in their first byte, their last and their size; few share all three.
    static constexpr std::size_t Slot_count = 1024;
    static std::size_t Slot_of(std::string_view text) {
        auto const first = static_cast<unsigned char>(text.front());
        auto const last = static_cast<unsigned char>(text.back());
        return (first * 7U + last * 31U + text.size() * 97U) % Slot_count;
    }

    std::vector<Unit_word> units; // sorted by text
    std::vector<Prefix_word> prefixes;
    Ranges<Unit_word> unit_ranges;
    Ranges<Prefix_word> prefix_ranges;
    std::array<Unit_word const*, Slot_count> first_of_slot{};
};

// Whether `text` begins with `word`, which is not empty. Most words differ in their last byte, and
// are told apart without comparing the rest.
inline bool Begins_with(std::string_view text, std::string_view word) {
    std::size_t const last = word.size() - 1;
    return last < text.size() && text[last] == word[last] &&
           text.substr(0, last) == word.substr(0, last);
}

} // namespace Varnix::Value

#endif
