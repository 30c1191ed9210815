#include "Unit_words.h"

#include <varnix/value/Unit_kinds.h>
#include <varnix/value/Units_library.h>
#include <varnix/value/exceptions.h>

#include <algorithm>
#include <atomic>

namespace Varnix::Value {

namespace {

// What people write besides the core's spellings. Each stands alone or after a prefix of its form.
// Only other characters for a symbol are run together with other units, as the symbol is.
struct Alias {
    char const* text;
    Units const* unit;
    Word_form form;
    bool run_together = false;
};

// clang-format off
constexpr Units One_symbol      = {SPL_NONE, NO_PREFIX, {{SYMBOL, 1}}};
constexpr Units Bits_per_second = {SPL_NONE, NO_PREFIX, {{BIT, 1}, {SECOND, -1}}};

Alias const aliases[] = {
    // One of each.
    {"meter",           &C_Meter,         name_form},
    {"inch",            &C_Inch,          name_form},
    {"foot",            &C_Ft,            name_form},
    {"yards",           &C_Yard,          name_form},           // the core's name is the singular
    {"mile",            &C_Miles,         name_form},
    {"nautical_mile",   &C_Nautical_mile, name_form},
    {"second",          &C_Sec,           name_form},
    {"minute",          &C_Min,           name_form},
    {"hour",            &C_Hrs,           name_form},
    {"day",             &C_Days,          name_form},
    {"week",            &C_Wks,           name_form},
    {"month",           &C_Months,        name_form},
    {"year",            &C_Yrs,           name_form},
    {"radian",          &C_Radian,        name_form},
    {"degree",          &C_Degree,        name_form},
    {"kelvins",         &C_Kelvin,        name_form},
    {"gram",            &C_Grams,         name_form},
    {"watt",            &C_Watts,         name_form},
    {"volt",            &C_Volts,         name_form},
    {"amp",             &C_Amps,          name_form},
    {"bit",             &C_Bits,          name_form},           // a symbol as well: "Mbit/s"
    {"nybbles",         &C_Nybble,        name_form},           // the core's name is the singular
    {"byte",            &C_Bytes,         name_form},
    {"octet",           &C_Octets,        name_form},
    {"word",            &C_Words,         name_form},
    {"dword",           &C_Dwords,        name_form},
    {"knots",           &C_Knots,         name_form},
    {"knot",            &C_Knots,         name_form},
    // Other spellings of names.
    {"metre",           &C_Meter,         name_form},
    {"metres",          &C_Meter,         name_form},
    {"ampere",          &C_Amps,          name_form},
    {"amperes",         &C_Amps,          name_form},
    {"nibble",          &C_Nybble,        name_form},
    {"nibbles",         &C_Nybble,        name_form},
    {"ohm",             &C_Ohms,          name_form},           // the symbol as well
    {"symbol",          &One_symbol,      name_form},
    {"celsius",         &C_DgreeC,        name_form},
    {"Celsius",         &C_DgreeC,        name_form},
    {"fahrenheit",      &C_DgreeF,        name_form},
    {"Fahrenheit",      &C_DgreeF,        name_form},
    {"megohm",          &C_MegaOhms,      name_form},           // a vowel is left out, and the prefix
    {"megohms",         &C_MegaOhms,      name_form},           // belongs to the word
    {"kilohm",          &C_KiloOhms,      name_form},
    {"kilohms",         &C_KiloOhms,      name_form},
    // Other symbols.
    {"bit",             &C_Bits,          symbol_form},
    {"Ohm",             &C_Ohms,          symbol_form},
    {"\u03A9",          &C_Ohms,          symbol_form, true},   // Greek capital omega
    {"\u2126",          &C_Ohms,          symbol_form, true},   // ohm sign
    {"\u00B0",          &C_Degree,        symbol_form},
    {"degC",            &C_DgreeC,        symbol_form, true},
    {"degF",            &C_DgreeF,        symbol_form, true},
    {"\u2103",          &C_DgreeC,        symbol_form, true},   // one character for °C
    {"\u2109",          &C_DgreeF,        symbol_form, true},
    {"\u212A",          &C_Kelvin,        symbol_form, true},   // kelvin sign
    {"hr",              &C_Hrs,           symbol_form},
    {"hrs",             &C_Hrs,           symbol_form},
    {"sec",             &C_Sec,           symbol_form},
    {"secs",            &C_Sec,           symbol_form},
    {"yrs",             &C_Yrs,           symbol_form},
    {"mph",             &C_Mph,           symbol_form},
    {"kn",              &C_Knots,         symbol_form},         // no unit n, so no kilo of it
    {"kt",              &C_Knots,         symbol_form},
    {"By",              &C_Bytes,         symbol_form},
    {"Cel",             &C_DgreeC,        symbol_form},
    {"bps",             &Bits_per_second, symbol_form},
    // Customary units of UCUM, which take no prefix.
    {"[in_i]",          &C_Inch,          symbol_form},
    {"[ft_i]",          &C_Ft,            symbol_form},
    {"[yd_i]",          &C_Yard,          symbol_form},
    {"[mi_i]",          &C_Miles,         symbol_form},
    {"[nmi_i]",         &C_Nautical_mile, symbol_form},
    {"[kn_i]",          &C_Knots,         symbol_form},
    {"[degF]",          &C_DgreeF,        symbol_form},
    {"[ppm]",           &C_PPM,           symbol_form},
    {"[ppb]",           &C_PPB,           symbol_form},
};

struct Prefix_alias {
    char const* text;
    SI_units prefix;
};

Prefix_alias const prefix_aliases[] = {
    {"u",      MICRO},
    {"\u03BC", MICRO}, // Greek small mu; the core prints the micro sign, U+00B5
};
// clang-format on

void Append_spellings(std::vector<Unit_word>& words, Units const& unit, std::string const& symbol,
                      std::string const& name, bool run_together, Dimension dimension) {
    if (symbol == name) {
        words.push_back({symbol, static_cast<Word_form>(symbol_form | name_form), run_together,
                         dimension, unit});
        return;
    }
    words.push_back({symbol, symbol_form, run_together, dimension, unit});
    words.push_back({name, name_form, run_together, dimension, unit});
}

// The special names that are one word and carry no prefix: "kHz" is kilo with "Hz" all the same.
void Append_special_name(std::vector<Unit_word>& words, Units const& unit) {
    std::string const name = Units_library::Get_unit_str_spl_map(unit, STR_NAME);
    if (name.empty() || unit.si_prefix != NO_PREFIX || unit.spl_conv != SPL_NONE) {
        return;
    }
    std::string const symbol = Units_library::Get_unit_str_spl_map(unit, STR_SYMBOL);
    bool const one_word = name.find('/') == std::string::npos;
    Append_spellings(words, unit, symbol, one_word ? name : symbol, false, NO_DIMENSION);
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
    dimensions.push_back(NO_DIMENSION); // of NO_UNIT
    for (Units const& unit : Catalogue_units()) {
        dimensions.push_back(Units_library::Get_dimension(unit.tuples[0].unit));
        Append_spellings(units, unit, Units_library::Get_unit_string(unit, STR_SYMBOL),
                         Units_library::Get_unit_string(unit, STR_NAME), true, dimensions.back());
    }
    for (Named_unit const& named : Named_units()) {
        Append_special_name(units, named.unit);
    }
    for (Alias const& alias : aliases) {
        units.push_back({alias.text, alias.form, alias.run_together,
                         Dimension_of(alias.unit->tuples[0].unit), *alias.unit});
    }
    for (Unit_word& word : units) {
        bool const several = word.unit.tuples[1].unit != NO_UNIT;
        word.takes_prefix = word.unit.si_prefix == NO_PREFIX &&
                            (!several || Dimension_of(word.unit.tuples[0].unit) != LENGTH);
    }
    for (SI_units const prefix : Value::Prefixes()) {
        Units const unit = {SPL_NONE, prefix, {}};
        radices[static_cast<std::size_t>(prefix - PICO)] =
            Units_library::Get_unit_base(unit) == 2.0 ? 2 : 10;
        prefixes.push_back(
            {Units_library::Get_unit_str_si_map(unit, STR_SYMBOL), symbol_form, prefix});
        prefixes.push_back({Units_library::Get_unit_str_si_map(unit, STR_NAME), name_form, prefix});
    }
    for (Prefix_alias const& alias : prefix_aliases) {
        prefixes.push_back({alias.text, symbol_form, alias.prefix});
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
