// The words of the notation: names and symbols of units and prefixes, gathered once from the core,
// and a table of what people write besides.

#ifndef VARNIX_VALUE_TEXT_UNIT_WORDS_H
#define VARNIX_VALUE_TEXT_UNIT_WORDS_H

#include <varnix/value/Units.h>

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

struct Unit_word {
    std::string text;
    Word_form form;
    bool run_together;        // with other units, as the core prints them; others stand alone
    Dimension dimension;      // of a word that may be run together
    Units unit;               // without marker; of the words with a prefix of their own with that
    bool takes_prefix = true; // not of a speed: nobody writes kilo-knots
    Unit_word const* next_in_slot = nullptr; // of Unit_words' table
};

struct Prefix_word {
    std::string text;
    Word_form form;
    SI_units prefix;
};

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

    // Whether there is a prefix with this exponent, of a power of two or of ten.
    bool Has_prefix(std::int64_t exponent, bool binary) const {
        return exponent >= PICO && exponent <= YOBI &&
               radices[static_cast<std::size_t>(exponent - PICO)] == (binary ? 2 : 10);
    }

    // The dimension of a unit of the catalogue.
    Dimension Dimension_of(Units_list unit) const {
        return dimensions[static_cast<std::size_t>(unit)];
    }

  private:
    Unit_words();

    template <typename Word>
    using Ranges = std::array<Word_range<Word>, 256>; // by the first byte

    template <typename Word>
    static Word_range<Word> Like(Ranges<Word> const& ranges, std::string_view text) {
        return text.empty() ? Word_range<Word>() : ranges[static_cast<unsigned char>(text[0])];
    }

    // Words differ in their first byte, their last and their size; few share all three.
    static constexpr std::size_t Slot_count = 512;
    static std::size_t Slot_of(std::string_view text) {
        auto const first = static_cast<unsigned char>(text.front());
        auto const last = static_cast<unsigned char>(text.back());
        return (first * 7U + last * 31U + text.size() * 97U) % Slot_count;
    }

    std::vector<Unit_word> units; // sorted by text
    std::vector<Prefix_word> prefixes;
    std::vector<Dimension> dimensions;                   // by the codes of the units
    std::array<std::uint8_t, YOBI - PICO + 1> radices{}; // 2 or 10; 0 where there is no prefix
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
