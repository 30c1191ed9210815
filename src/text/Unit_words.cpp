#include "Unit_words.h"

#include "Spellings.h"

#include "catalogue/Prefixes.h"
#include "catalogue/Unit_spellings.h"

#include <varnix/value/Unit_kinds.h>
#include <varnix/value/Units_library.h>
#include <varnix/value/exceptions.h>

#include <algorithm>
#include <atomic>

namespace Varnix::Value {

namespace {

using Catalogue::Prefixes_taken;

// The words that mean several units, or one with a prefix or a power.
struct Composite {
    char const* text;
    Word_form form;
    Prefixes_taken prefixes;
    Units unit;
    Power_raises power_raises = Power_raises::all;
};

// clang-format off
constexpr Units Knot = {SPL_NONE, NO_PREFIX, {{NAUTICAL_MILE, 1}, {HOUR, -1}}};

constexpr Composite composites[] = {
    // Speeds, which take no prefix: nobody writes kilo-knots.
    {"mph",     symbol_form, Prefixes_taken::none,   {SPL_NONE, NO_PREFIX, {{MILE, 1}, {HOUR, -1}}}},
    {"kn",      symbol_form, Prefixes_taken::none,   Knot},   // no unit n, so no kilo of it
    {"kt",      symbol_form, Prefixes_taken::none,   Knot},   // and no kilotonne
    {"knot",    name_form,   Prefixes_taken::none,   Knot},
    {"knots",   name_form,   Prefixes_taken::none,   Knot},
    {"[kn_i]",  symbol_form, Prefixes_taken::none,   Knot},
    {"fpm",     symbol_form, Prefixes_taken::none,   {SPL_NONE, NO_PREFIX, {{FOOT, 1}, {MINUTE, -1}}}},
    {"fps",     symbol_form, Prefixes_taken::none,   {SPL_NONE, NO_PREFIX, {{FOOT, 1}, {SECOND, -1}}}},
    // Rates.
    {"bps",     symbol_form, Prefixes_taken::usual,  {SPL_NONE, NO_PREFIX, {{BIT, 1}, {SECOND, -1}}}},
    {"rpm",     symbol_form, Prefixes_taken::usual,  {SPL_NONE, NO_PREFIX, {{REVOLUTION, 1}, {MINUTE, -1}}}},
    {"RPM",     symbol_form, Prefixes_taken::none,   {SPL_NONE, NO_PREFIX, {{REVOLUTION, 1}, {MINUTE, -1}}}},
    {"dps",     symbol_form, Prefixes_taken::usual,  {SPL_NONE, NO_PREFIX, {{DEGREE, 1}, {SECOND, -1}}}}, // of gyroscopes
    {"gpm",     symbol_form, Prefixes_taken::none,   {SPL_NONE, NO_PREFIX, {{GALLON, 1}, {MINUTE, -1}}}},
    {"lpm",     symbol_form, Prefixes_taken::none,   {SPL_NONE, NO_PREFIX, {{LITER, 1}, {MINUTE, -1}}}},
    {"LPM",     symbol_form, Prefixes_taken::none,   {SPL_NONE, NO_PREFIX, {{LITER, 1}, {MINUTE, -1}}}},
    // Electricity and mechanics.
    {"var",     symbol_form, Prefixes_taken::chosen, {SPL_NONE, NO_PREFIX, {{VOLT, 1}, {AMP, 1}}}},
    {"VAR",     symbol_form, Prefixes_taken::usual,  {SPL_NONE, NO_PREFIX, {{VOLT, 1}, {AMP, 1}}}},
    {"Nm",      symbol_form, Prefixes_taken::chosen, {SPL_NONE, NO_PREFIX, {{NEWTON, 1}, {METER, 1}}}, Power_raises::last_unit},
    {"ksi",     symbol_form, Prefixes_taken::none,   {SPL_NONE, KILO, {{POUND_PER_SQUARE_INCH, 1}}}},
    {"megohm",  name_form,   Prefixes_taken::none,   {SPL_NONE, MEGA, {{OHM, 1}}}}, // a vowel is left out, and the
    {"megohms", name_form,   Prefixes_taken::none,   {SPL_NONE, MEGA, {{OHM, 1}}}}, // prefix belongs to the word
    {"kilohm",  name_form,   Prefixes_taken::none,   {SPL_NONE, KILO, {{OHM, 1}}}},
    {"kilohms", name_form,   Prefixes_taken::none,   {SPL_NONE, KILO, {{OHM, 1}}}},
    // Areas and volumes.
    {"sqm",     symbol_form, Prefixes_taken::none,   {SPL_NONE, NO_PREFIX, {{METER, 2}}}},
    {"sqft",    symbol_form, Prefixes_taken::none,   {SPL_NONE, NO_PREFIX, {{FOOT, 2}}}},
    {"sqin",    symbol_form, Prefixes_taken::none,   {SPL_NONE, NO_PREFIX, {{INCH, 2}}}},
    {"cc",      symbol_form, Prefixes_taken::none,   {SPL_NONE, MICRO, {{METER, 3}}}}, // a cubic centimetre
    {"ccm",     symbol_form, Prefixes_taken::none,   {SPL_NONE, MICRO, {{METER, 3}}}},
    // The volumes of the United States with their country.
    {"US_gal",   symbol_form, Prefixes_taken::none,  {SPL_NONE, NO_PREFIX, {{GALLON, 1}}}},
    {"US_qt",    symbol_form, Prefixes_taken::none,  {SPL_NONE, NO_PREFIX, {{QUART, 1}}}},
    {"US_pt",    symbol_form, Prefixes_taken::none,  {SPL_NONE, NO_PREFIX, {{PINT, 1}}}},
    {"US_floz",  symbol_form, Prefixes_taken::none,  {SPL_NONE, NO_PREFIX, {{FLUID_OUNCE, 1}}}},
    {"US_fl_oz", symbol_form, Prefixes_taken::none,  {SPL_NONE, NO_PREFIX, {{FLUID_OUNCE, 1}}}},
};
// clang-format on

constexpr Units One_of(Units_list unit) {
    return {SPL_NONE, NO_PREFIX, {{unit, 1}}};
}

// The words of a text that are apart by blanks.
std::vector<std::string> Words_in(std::string_view text) {
    std::vector<std::string> words;
    while (!text.empty()) {
        std::size_t const end = std::min(text.find(' '), text.size());
        words.emplace_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return words;
}

void Append_words(std::vector<Unit_word>& words, char const* texts, Word_form form, Units_list unit,
                  bool run_together) {
    for (std::string& text : Words_in(texts)) {
        words.push_back(
            {std::move(text), form, Catalogue::Row_of(unit).prefixes, One_of(unit), run_together});
    }
}

// All words of a unit's row. Only the core's own symbols and names are run together with others, and other
// characters for them.
void Append_unit(std::vector<Unit_word>& words, Units_list unit) {
    Catalogue::Unit_spelling const& row = Catalogue::unit_spellings[Catalogue::Place_of(unit)];
    bool const is_of_core = Catalogue::Is_unit_of_core(unit);
    Append_words(words, Unit_text(unit, STR_SYMBOL).c_str(), symbol_form, unit, is_of_core);
    Append_words(words, Unit_text(unit, STR_NAME).c_str(), name_form, unit, is_of_core);
    Append_words(words, row.characters, symbol_form, unit, true);
    Append_words(words, row.symbols, symbol_form, unit, false);
    Append_words(words, row.names, name_form, unit, false);
}

// The special names of the core that are one word and carry no prefix: "kHz" is kilo with "Hz" all the same.
void Append_special_name(std::vector<Unit_word>& words, Units const& unit) {
    std::string const name = Units_library::Get_unit_str_spl_map(unit, STR_NAME);
    if (name.empty() || unit.si_prefix != NO_PREFIX || unit.spl_conv != SPL_NONE) {
        return;
    }
    bool const hertz = unit.tuples[1].unit == NO_UNIT;
    Prefixes_taken const prefixes = hertz ? Prefixes_taken::chosen : Prefixes_taken::none;
    bool const has_name = name.find('/') == std::string::npos;
    Word_form const form = has_name ? symbol_form : static_cast<Word_form>(symbol_form | name_form);
    words.push_back({Units_library::Get_unit_str_spl_map(unit, STR_SYMBOL), form, prefixes, unit});
    if (has_name) {
        words.push_back({name, name_form, prefixes, unit});
    }
}

void Append_prefix(std::vector<Prefix_word>& words, Catalogue::Prefix_row const& row) {
    words.push_back({Prefix_text(row.prefix, STR_SYMBOL), symbol_form, row.prefix, row.is_of_core});
    words.push_back({Prefix_text(row.prefix, STR_NAME), name_form, row.prefix, row.is_of_core});
    for (std::string& text : Words_in(row.characters)) {
        words.push_back({std::move(text), symbol_form, row.prefix, row.is_of_core});
    }
}

template <typename Word>
bool Precedes(Word const& left, Word const& right) {
    return left.text < right.text;
}

// A word that is both a name and a symbol becomes one; the core's, which come first, count.
void Merge_forms(std::vector<Unit_word>& words) {
    auto last = words.begin();
    for (auto word = last + 1; word != words.end(); ++word) {
        if (word->text == last->text) {
            last->form = static_cast<Word_form>(last->form | word->form);
        } else if (++last != word) {
            *last = std::move(*word);
        }
    }
    words.erase(last + 1, words.end());
}

template <typename Word, typename Ranges>
void Set_ranges(std::vector<Word> const& words, Ranges& ranges) {
    for (Word const& word : words) {
        auto& range = ranges[static_cast<unsigned char>(word.text[0])];
        range.first = range.first == nullptr ? &word : range.first;
        range.last = &word + 1;
    }
}

// Whether the core's tables are there. In a program that links statically, an initialiser may read
// a text before they are.
bool Is_catalogue_ready() {
    try {
        return Units_library::Get_dimension(METER) == LENGTH;
    } catch (UnitNotDefined const&) { // GCOV_EXCL_START: by programs that link statically, which
        return false;                 // tests/install/consumers/early_texts.cpp is
    }                                 // GCOV_EXCL_STOP
}

} // namespace

Unit_words::Unit_words() {
    if (!Is_catalogue_ready()) {
        return; // GCOV_EXCL_LINE: likewise
    }
    for (Catalogue::Unit_row const& row : Catalogue::unit_rows) {
        Append_unit(units, row.unit);
    }
    for (Named_unit const& named : Named_units()) {
        Append_special_name(units, named.unit);
    }
    for (Composite const& word : composites) {
        units.push_back({word.text, word.form, word.prefixes, word.unit, false, word.power_raises});
    }
    for (Unit_word& word : units) {
        word.has_gaps = word.text[0] != '[' && word.text.find('_') != std::string::npos;
    }
    for (Catalogue::Prefix_row const& row : Catalogue::prefix_rows) {
        Append_prefix(prefixes, row);
    }
    std::stable_sort(units.begin(), units.end(), Precedes<Unit_word>);
    Merge_forms(units);
    Set_ranges(units, unit_ranges);
    for (Unit_word& word : units) {
        Unit_word const*& first = first_of_slot[Slot_of(word.text)];
        word.next_in_slot = first;
        first = &word;
    }
    std::sort(prefixes.begin(), prefixes.end(), Precedes<Prefix_word>);
    Set_ranges(prefixes, prefix_ranges);
}

Unit_words const& Unit_words::Get() {
    static std::atomic<Unit_words const*> gathered{nullptr};
    if (Unit_words const* const words = gathered.load(std::memory_order_acquire)) {
        return *words;
    }
    if (!Is_catalogue_ready()) {
        // No word is known yet; those gathered now must not be kept.
        static Unit_words const none; // GCOV_EXCL_LINE: likewise
        return none;                  // GCOV_EXCL_LINE
    }
    static Unit_words const words;
    gathered.store(&words, std::memory_order_release);
    return words;
}

} // namespace Varnix::Value
