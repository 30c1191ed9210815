#include "Foreign_units.h"

#include "Characters.h"
#include "Spellings.h"
#include "Unit_reader.h"
#include "Unit_words.h"

#include <varnix/value/Engineering_units.h>

#include <algorithm>

namespace Varnix::Value {

namespace {

enum class Prefixes_before : std::uint8_t { none, symbols, names };

constexpr auto none = Prefixes_before::none;
constexpr auto symbols = Prefixes_before::symbols;
constexpr auto names = Prefixes_before::names;

struct Foreign_word {
    std::string_view text;
    Prefixes_before prefixes;
    char const* reason;  // behind the word
    char const* instead; // what to write, and the prefix of the word before that; or empty
};

// clang-format off
constexpr Foreign_word foreign_words[] = {
    // Two readings are in use, or more.
    {"ton",    names,   "may be three masses", "short_ton, long_ton or t"},
    {"Cal",    none,    "is a kilocalorie to some", "kcal or cal"},
    {"cal_IT", none,    "is 4.1868 J, and cal is 4.184 J", "J"},
    {"ppt",    none,    "is 10^-3 to some, and 10^-12 to others", "‰"},
    {"mps",    none,    "may be metres or miles per second", "m/s or mi/s"},
    // What a unit does not say.
    {"Vrms",   symbols, "is a voltage; how it was measured is no part of a unit", "V"},
    {"Vpp",    symbols, "is a voltage; how it was measured is no part of a unit", "V"},
    {"Vpk",    symbols, "is a voltage; how it was measured is no part of a unit", "V"},
    {"Vdc",    symbols, "is a voltage; how it was measured is no part of a unit", "V"},
    {"Vac",    symbols, "is a voltage; how it was measured is no part of a unit", "V"},
    {"VDC",    symbols, "is a voltage; how it was measured is no part of a unit", "V"},
    {"VAC",    symbols, "is a voltage; how it was measured is no part of a unit", "V"},
    {"Arms",   symbols, "is a current; how it was measured is no part of a unit", "A"},
    {"psia",   none,    "is a pressure that counts from vacuum", "psi"},
    {"psig",   none,    "is a pressure that counts from that of the air, which has to be added", "psi"},
    {"bara",   none,    "is a pressure that counts from vacuum", "bar"},
    {"barg",   none,    "is a pressure that counts from that of the air, which has to be added", "bar"},
    // No units.
    {"FL",     none,    "is a flight level: a pressure altitude is no length", ""},
    {"octave", names,   "is a logarithm of the ratio of two frequencies, for which there is no unit", ""},
    {"decade", names,   "is a logarithm of the ratio of two frequencies, for which there is no unit", ""},
    {"bel",    names,   "is ten decibels", "dB"},
    {"sqrt",   none,    "is no unit, and powers are whole: square the density of a noise", "nV^2/Hz"},
    {"√Hz",    none,    "is no unit, and powers are whole: square the density of a noise", "nV^2/Hz"},
    {"rtHz",   none,    "is no unit, and powers are whole: square the density of a noise", "nV^2/Hz"},
    {"inH",    none,    "is no unit: a column of water, inH2O, depends on its temperature", "Pa"},
    {"cmH",    none,    "is no unit: a column of water, cmH2O, depends on its temperature", "Pa"},
    {"mmH",    none,    "is no unit: a column of water, mmH2O, depends on its temperature", "Pa"},
    // What is written otherwise.
    {"ftlb",   none,    "is a torque or an energy by pounds of force", "ft*lbf"},
    {"ftlbs",  none,    "is a torque or an energy by pounds of force", "ft*lbf"},
    {"ftlbf",  none,    "is a torque or an energy", "ft*lbf"},
    {"lbft",   none,    "is a torque or an energy by pounds of force", "lbf*ft"},
    {"lbfft",  none,    "is a torque or an energy", "lbf*ft"},
    {"inlb",   none,    "is a torque by pounds of force", "in*lbf"},
    {"lbin",   none,    "is a torque by pounds of force", "lbf*in"},
    {"micron", names,   "is a length", "µm"},
    {"Gal",    none,    "is an acceleration", "cm/s^2"},
    {"mGal",   none,    "is an acceleration", "(10^-5 m/s^2)"},
    {"Bps",    symbols, "is a data rate", "B/s"},
};

struct Other_name {
    std::string_view text;
    char const* unit;
};

constexpr Other_name other_names[] = {
    {"\u00B0K",   "K"},
    {"kph",       "km/h"},
    {"KPH",       "km/h"},
    {"kmph",      "km/h"},
    {"Kmph",      "km/h"},
    {"KMPH",      "km/h"},
    {"NM",        "nmi"},
    {"d",         "dy"},
    {"a",         "yr"},
    {"amu",       "u"},
    {"Ångström",  "Å"},
    {"ångström",  "Å"},
    {"degreeC",   "°C"},
    {"degreesC",  "°C"},
    {"degreeF",   "°F"},
    {"degreesF",  "°F"},
    {"KWh",       "kWh"},
    {"KWH",       "kWh"},
    {"kwh",       "kWh"},
};
// clang-format on

bool Ends_with(std::string_view text, std::string_view end) {
    return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

// The prefix before a symbol or a name.
bool Is_prefix(std::string_view text, Word_form form) {
    auto const words = Unit_words::Get().Prefixes_like(text);
    return std::any_of(words.begin(), words.end(), [=](Prefix_word const& word) {
        return word.form == form && word.text == text;
    });
}

// What stands before the foreign word in `word`, if that is the word with a prefix or without.
std::optional<std::string_view> Prefix_before(Foreign_word const& foreign, std::string_view word) {
    bool const named = foreign.prefixes == names;
    std::string_view const singular =
        named && Ends_with(word, "s") ? word.substr(0, word.size() - 1) : word;
    if (!Ends_with(singular, foreign.text)) {
        return std::nullopt;
    }
    std::string_view const prefix = singular.substr(0, singular.size() - foreign.text.size());
    bool const fits = prefix.empty() || (foreign.prefixes != none &&
                                         Is_prefix(prefix, named ? name_form : symbol_form));
    return fits ? std::optional(prefix) : std::nullopt;
}

// "Qm", "quettameter": the prefix of SI that no descriptor holds.
std::optional<std::string> Quetta_message(std::string_view word) {
    bool const named = Begins_with(word, "quetta");
    std::string_view const unit = word.substr(named ? 6 : 1);
    Unit_word const* const found = Unit_words::Get().Find_unit(unit);
    Prefix_word const ronna = {named ? "ronna" : "R", named ? name_form : symbol_form, RONNA,
                               false};
    if ((!named && word[0] != 'Q') || found == nullptr || !Goes_with(ronna, *found)) {
        return std::nullopt;
    }
    return Quoted(word) + " has the prefix quetta, 10^30, which no unit holds: write 1000 " +
           ronna.text + std::string(unit);
}

// What to write instead, with the prefix of the word by its symbol, or by its name where that is refused:
// "milli(B/s)".
std::string With_prefix(std::string_view prefix, std::string const& instead) {
    std::string joined = std::string(prefix) + instead;
    if (prefix.empty() || Read_unit(joined, 0)) {
        return joined;
    }
    for (Prefix_word const& word : Unit_words::Get().Prefixes_like(prefix)) {
        if (word.text == prefix) {
            return Prefix_text(word.prefix, STR_NAME) + '(' + instead + ')';
        }
    }
    return instead;
}

} // namespace

std::optional<std::string> Foreign_unit_message(std::string_view word) {
    for (Foreign_word const& foreign : foreign_words) {
        if (std::optional<std::string_view> const prefix = Prefix_before(foreign, word)) {
            std::string const instead = foreign.prefixes == symbols
                                            ? With_prefix(*prefix, foreign.instead)
                                            : foreign.instead;
            return Quoted(word) + ' ' + foreign.reason +
                   (instead.empty() ? "" : "; write " + instead);
        }
    }
    return Quetta_message(word);
}

std::string Unit_by_another_name(std::string_view word) {
    for (Other_name const& other : other_names) {
        if (word == other.text) {
            return other.unit;
        }
    }
    return std::string();
}

} // namespace Varnix::Value
