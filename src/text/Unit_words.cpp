#include "Unit_words.h"

#include <varnix/value/Unit_kinds.h>
#include <varnix/value/Units_library.h>

#include <algorithm>

namespace Varnix::Value {

namespace {

// What people write besides the core's spellings. Each stands alone or after a prefix of its form.
// Only other characters for a symbol are run together with other units, as the symbol is.
struct Alias {
    char const* text;
    Word_form form;
    Units const* unit;
    bool run_together = false;
};

// clang-format off
constexpr Units One_symbol      = {SPL_NONE, NO_PREFIX, {{SYMBOL, 1}}};
constexpr Units Bits_per_second = {SPL_NONE, NO_PREFIX, {{BIT, 1}, {SECOND, -1}}};

Alias const aliases[] = {
    // One of each.
    {"meter",             name_form,   &C_Meter},
    {"inch",              name_form,   &C_Inch},
    {"foot",              name_form,   &C_Ft},
    {"yards",             name_form,   &C_Yard},        // the core's name is the singular
    {"mile",              name_form,   &C_Miles},
    {"nautical_mile",     name_form,   &C_Nautical_mile},
    {"second",            name_form,   &C_Sec},
    {"minute",            name_form,   &C_Min},
    {"hour",              name_form,   &C_Hrs},
    {"day",               name_form,   &C_Days},
    {"week",              name_form,   &C_Wks},
    {"month",             name_form,   &C_Months},
    {"year",              name_form,   &C_Yrs},
    {"radian",            name_form,   &C_Radian},
    {"degree",            name_form,   &C_Degree},
    {"kelvins",           name_form,   &C_Kelvin},
    {"gram",              name_form,   &C_Grams},
    {"watt",              name_form,   &C_Watts},
    {"volt",              name_form,   &C_Volts},
    {"amp",               name_form,   &C_Amps},
    {"bit",               name_form,   &C_Bits},
    {"nybbles",           name_form,   &C_Nybble},      // the core's name is the singular
    {"byte",              name_form,   &C_Bytes},
    {"octet",             name_form,   &C_Octets},
    {"word",              name_form,   &C_Words},
    {"dword",             name_form,   &C_Dwords},
    {"knots",             name_form,   &C_Knots},
    {"knot",              name_form,   &C_Knots},
    // Other spellings of names.
    {"metre",             name_form,   &C_Meter},
    {"metres",            name_form,   &C_Meter},
    {"ampere",            name_form,   &C_Amps},
    {"amperes",           name_form,   &C_Amps},
    {"nibble",            name_form,   &C_Nybble},
    {"nibbles",           name_form,   &C_Nybble},
    {"ohm",               name_form,   &C_Ohms},        // the symbol as well
    {"symbol",            name_form,   &One_symbol},
    // Other symbols.
    {"\u03A9",            symbol_form, &C_Ohms, true},  // Greek capital omega
    {"\u2126",            symbol_form, &C_Ohms, true},  // ohm sign
    {"\u00B0",            symbol_form, &C_Degree},
    {"degC",              symbol_form, &C_DgreeC},
    {"degF",              symbol_form, &C_DgreeF},
    {"\u2103",            symbol_form, &C_DgreeC, true}, // one character for °C
    {"\u2109",            symbol_form, &C_DgreeF, true},
    {"\u212A",            symbol_form, &C_Kelvin, true}, // kelvin sign
    {"hr",                symbol_form, &C_Hrs},
    {"sec",               symbol_form, &C_Sec},
    {"mph",               symbol_form, &C_Mph},
    {"kn",                symbol_form, &C_Knots},       // no unit n, so no kilo of it
    {"bps",               symbol_form, &Bits_per_second},
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

} // namespace

Unit_words::Unit_words() {
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
    static Unit_words const words;
    return words;
}

} // namespace Varnix::Value
