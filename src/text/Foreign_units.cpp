#include "Foreign_units.h"

#include "Characters.h"
#include "Unit_reader.h"
#include "Unit_words.h"

#include <varnix/value/Units_library.h>

#include <algorithm>

namespace Varnix::Value {

namespace {

enum class Prefixes_of : std::uint8_t { none, symbols, names };

struct Foreign_unit {
    std::string_view text;
    Prefixes_of prefixes;
    char const* kind;
    std::string_view instead; // in units of the catalogue, where it is the same; or empty
};

constexpr auto none = Prefixes_of::none;
constexpr auto symbols = Prefixes_of::symbols;
constexpr auto names = Prefixes_of::names;

// clang-format off
constexpr Foreign_unit foreign_units[] = {
    // SI units with names of their own.
    {"N",        symbols, "force",                    "kg*m/s^2"},
    {"newton",   names,   "force",                    "kg*m/s^2"},
    {"hPa",      none,    "pressure",                 "(10^2 kg/(m*s^2))"},
    {"Pa",       symbols, "pressure",                 "kg/(m*s^2)"},
    {"pascal",   names,   "pressure",                 "kg/(m*s^2)"},
    {"J",        symbols, "energy",                   "W*s"},
    {"joule",    names,   "energy",                   "W*s"},
    {"C",        symbols, "electric charge (a temperature is °C)", "A*s"},
    {"coulomb",  names,   "electric charge",          "A*s"},
    {"F",        symbols, "capacitance (a temperature is °F)", "s/ohm"},
    {"farad",    names,   "capacitance",              "s/ohm"},
    {"H",        symbols, "inductance",               "ohm*s"},
    {"henry",    names,   "inductance",               "ohm*s"},
    {"S",        symbols, "conductance",              "1/ohm"},
    {"siemens",  names,   "conductance",              "1/ohm"},
    {"Wb",       symbols, "magnetic flux",            "V*s"},
    {"weber",    names,   "magnetic flux",            "V*s"},
    {"tesla",    names,   "magnetic flux density",    "V*s/m^2"}, // 'T' alone is a prefix
    {"lm",       symbols, "luminous flux",            ""},
    {"lumen",    names,   "luminous flux",            ""},
    {"lx",       symbols, "illuminance",              ""},
    {"lux",      names,   "illuminance",              ""},
    {"cd",       none,    "luminous intensity",       ""},
    {"candela",  names,   "luminous intensity",       ""},
    {"mol",      symbols, "amount of substance",      ""},
    {"mole",     names,   "amount of substance",      ""},
    {"Bq",       symbols, "activity",                 "1/s"},
    {"Gy",       symbols, "absorbed dose",            ""},
    {"Sv",       symbols, "dose equivalent",          ""},
    {"kat",      symbols, "catalytic activity",       ""},
    {"sr",       symbols, "solid angle",              ""},
    // Pressure, force, energy and power.
    {"mbar",     none,    "pressure",                 "(10^2 kg/(m*s^2))"},
    {"bar",      none,    "pressure",                 "(10^5 kg/(m*s^2))"},
    {"bar",      symbols, "pressure",                 ""}, // with another prefix
    {"atm",      none,    "pressure",                 ""},
    {"psi",      none,    "pressure",                 ""},
    {"mmHg",     none,    "pressure",                 ""},
    {"inHg",     none,    "pressure",                 ""},
    {"Torr",     symbols, "pressure",                 ""},
    {"torr",     none,    "pressure",                 ""},
    {"lbf",      none,    "force",                    ""},
    {"kgf",      none,    "force",                    ""},
    {"Nm",       symbols, "torque",                   "kg*m^2/s^2"},
    {"eV",       symbols, "energy",                   ""},
    {"cal",      symbols, "energy",                   ""},
    {"BTU",      none,    "energy",                   ""},
    {"erg",      none,    "energy",                   ""},
    {"hp",       none,    "power",                    ""},
    {"PS",       none,    "power",                    ""},
    {"var",      symbols, "reactive power",           "V*A"},
    {"VAR",      symbols, "reactive power",           "V*A"},
    // Volume, area, length and mass.
    {"l",        symbols, "volume",                   "dm^3"},
    {"L",        symbols, "volume",                   "dm^3"},
    {"liter",    names,   "volume",                   "dm^3"},
    {"litre",    names,   "volume",                   "dm^3"},
    {"gal",      none,    "volume",                   ""},
    {"gallon",   names,   "volume",                   ""},
    {"pint",     none,    "volume",                   ""},
    {"cc",       none,    "volume",                   "cm^3"},
    {"ha",       none,    "area",                     "(10^4 m^2)"},
    {"hectare",  names,   "area",                     "(10^4 m^2)"},
    {"acre",     none,    "area",                     ""},
    {"sqm",      none,    "area",                     "m^2"},
    {"sqft",     none,    "area",                     "ft^2"},
    {"pc",       symbols, "length",                   ""},
    {"parsec",   names,   "length",                   ""},
    {"ly",       none,    "length",                   ""},
    {"au",       none,    "length",                   ""},
    {"AU",       none,    "length",                   ""},
    {"mil",      none,    "length",                   "milli(in)"},
    {"mils",     none,    "length",                   "milli(in)"},
    {"micron",   none,    "length",                   "µm"},
    {"angstrom", none,    "length",                   "(10^-10 m)"},
    {"Å",        none,    "length",                   "(10^-10 m)"},
    {"t",        none,    "mass",                     "Mg"},
    {"tonne",    names,   "mass",                     "Mg"},
    {"ton",      none,    "mass",                     ""},
    {"lb",       none,    "mass",                     ""},
    {"lbs",      none,    "mass",                     ""},
    {"pound",    names,   "mass",                     ""},
    {"oz",       none,    "mass",                     ""},
    {"ounce",    names,   "mass",                     ""},
    {"slug",     none,    "mass",                     ""},
    // Angles, rotation and speed.
    {"rev",      none,    "angle",                    ""},
    {"turn",     none,    "angle",                    ""},
    {"gon",      none,    "angle",                    ""},
    {"arcmin",   none,    "angle",                    ""},
    {"arcsec",   none,    "angle",                    ""},
    {"rpm",      none,    "rotational speed",         "1/min"},
    {"RPM",      none,    "rotational speed",         "1/min"},
    {"fpm",      none,    "speed",                    "ft/min"},
    {"fps",      none,    "speed",                    "ft/s"},
    {"mps",      none,    "speed",                    "m/s"},
    // Ratios and levels.
    {"Np",       symbols, "level",                    ""},
    {"neper",    names,   "level",                    ""},
    {"bel",      names,   "level",                    ""},
    {"octave",   names,   "frequency ratio",          ""},
    {"ppt",      none,    "ratio",                    ""}, // of thousand, or of 10^12
    {"Vrms",     symbols, "voltage",                  "V"},
    {"Vpp",      symbols, "voltage",                  "V"},
    {"Vdc",      symbols, "voltage",                  "V"},
    {"Vac",      symbols, "voltage",                  "V"},
    {"Arms",     symbols, "current",                  "A"},
    {"Bd",       symbols, "symbol rate",              "Hz"},
    {"baud",     none,    "symbol rate",              "Hz"},
    {"Bps",      symbols, "data rate",                "B/s"},
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
    {"nautical",  "nautical_miles"},
    {"NM",        "n.mi"},
    {"d",         "dy"},
    {"a",         "yr"},
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

// The prefix before a symbol or a name, hecto and deca included, which the catalogue does not have.
bool Is_prefix(std::string_view text, Word_form form) {
    std::vector<Prefix_word> const& words = Unit_words::Get().All_prefixes();
    bool const foreign =
        form == symbol_form ? text == "h" || text == "da" : text == "hecto" || text == "deca";
    return foreign || std::any_of(words.begin(), words.end(), [=](Prefix_word const& word) {
               return word.form == form && word.text == text;
           });
}

// What stands before the unit in `word`, if that is the unit with a prefix or without.
std::optional<std::string_view> Prefix_before(Foreign_unit const& unit, std::string_view word) {
    bool const named = unit.prefixes == names;
    std::string_view const singular = named && Ends_with(word, "s") && !Ends_with(unit.text, "s")
                                          ? word.substr(0, word.size() - 1)
                                          : word;
    if (!Ends_with(singular, unit.text)) {
        return std::nullopt;
    }
    std::string_view const prefix = singular.substr(0, singular.size() - unit.text.size());
    bool const fits = prefix.empty() ||
                      (unit.prefixes != none && Is_prefix(prefix, named ? name_form : symbol_form));
    return fits ? std::optional(prefix) : std::nullopt;
}

// The name of a prefix of the catalogue, or nothing.
std::string Prefix_name(std::string_view prefix) {
    for (Prefix_word const& word : Unit_words::Get().All_prefixes()) {
        if (word.text == prefix) {
            return Units_library::Get_unit_str_si_map({SPL_NONE, word.prefix, {}}, STR_NAME);
        }
    }
    return {};
}

// A prefix symbol goes over to the first unit of the text, "kW*s", where that has neither a prefix
// nor a power; elsewhere the name of the prefix stands before the whole, "kilo(kg*m/s^2)".
std::string With_prefix(Foreign_unit const& unit, std::string_view prefix) {
    std::string const instead(unit.instead);
    std::string const joined = std::string(prefix) + instead;
    std::string const first = instead.substr(0, instead.find_first_of("*/^("));
    bool const goes_over = unit.prefixes == symbols && instead.find('^') != first.size() &&
                           Unit_words::Get().Find_unit(first) != nullptr;
    std::string const name = Prefix_name(prefix);
    return prefix.empty()                      ? instead
           : name.empty()                      ? std::string() // hecto and deca
           : goes_over && Read_unit(joined, 0) ? joined        // "mB/s" is refused
                                               : name + '(' + instead + ')';
}

} // namespace

std::optional<std::string> Foreign_unit_message(std::string_view word) {
    for (Foreign_unit const& unit : foreign_units) {
        if (std::optional<std::string_view> const prefix = Prefix_before(unit, word)) {
            std::string const instead =
                unit.instead.empty() ? std::string() : With_prefix(unit, *prefix);
            return Quoted(word) + " is not in the catalogue: " + unit.kind +
                   (instead.empty() ? "" : "; write " + instead);
        }
    }
    return std::nullopt;
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
