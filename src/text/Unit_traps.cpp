#include "Unit_traps.h"

#include "Characters.h"
#include "Powers.h"
#include "Spellings.h"

namespace Varnix::Value {

namespace {

Unit_words const& Words() {
    return Unit_words::Get();
}

std::string Symbol(Units_list unit) {
    return Unit_text(unit, STR_SYMBOL);
}

std::string Power_text(std::int64_t power) {
    return power == 1 ? "" : '^' + std::to_string(power);
}

} // namespace

std::string Written(Reading const& reading) {
    std::string const name = Prefix_text(reading.prefix, STR_NAME);
    if (reading.count == 1) {
        std::int64_t const power = reading.units[0].power;
        std::string const symbol = Symbol(reading.units[0].unit);
        return (name.empty() ? symbol : name + '(' + symbol + ')') + Power_text(power);
    }
    // A power of the first unit raises the prefix as well, which parentheses would not show.
    bool const apart = reading.first_power != 1;
    std::string text;
    for (std::size_t k = 0; k < reading.count; ++k) {
        std::string const symbol = Symbol(reading.units[k].unit);
        bool const prefixed = apart && k == 0 && !name.empty();
        text += k == 0 ? "" : "*";
        if (prefixed) {
            text.append(name).append(1, '(').append(symbol).append(1, ')');
        } else {
            text += symbol;
        }
        text += Power_text(reading.units[k].power);
    }
    return name.empty() || apart ? text : name + '(' + text + ')';
}

bool Is_time(Units_list unit) {
    return Catalogue::Dimension_of(unit) == TIME;
}

Text_fault Ambiguous(std::string_view text, std::size_t position, std::string const& first,
                     std::string const& second) {
    std::string_view const word = text.substr(position, End_of_letters(text, position) - position);
    return {position, Quoted(word) + " is ambiguous: write " + first + " or " + second, {}};
}

// ---- Words

namespace {

struct Trap {
    std::string_view text;
    char const* reading;
    char const* meant;
    bool with_power; // also before a power: "gm^2" is a gram times a square metre to everybody
};

// clang-format off
constexpr Trap traps[] = {
    {"gm",   "g*m",         "g",    false},
    {"gms",  "g*m*s",       "g",    false},
    {"degK", "deg*K",       "K",    true},
    {"Min",  "mega(in)",    "min",  true}, // minutes with a capital letter
    {"Mins", "mega(in*s)",  "min",  false},
    {"mins", "milli(in*s)", "min",  false},
    {"Gs",   "giga(s)",     "G",    true},  // a symbol of the gauss
    {"qm",   "quecto(m)",   "m^2",  false}, // "Quadratmeter"
    {"pu",   "pico(u)",     "%",    true},  // per unit, in power systems
};
// clang-format on

} // namespace

std::optional<Text_fault> Word_fault(std::string_view text, std::size_t position, std::size_t end) {
    std::string_view const group = text.substr(position, end - position);
    for (Trap const& trap : traps) {
        if (!Begins_with(group, trap.text)) {
            continue;
        }
        std::size_t const behind = position + trap.text.size();
        std::optional<Power> const power = Read_power(text, behind);
        if (behind == end || (power && trap.with_power)) {
            std::string const own = Power_text(power ? power->value : 1);
            return Ambiguous(text, position, trap.reading + own, trap.meant + own);
        }
    }
    return std::nullopt;
}

namespace {

// "kms", "kohms", "MBs", "kmh": a plural or a speed, more often than a product. Of volts, amperes,
// watts and kelvin it is the product: "Ws" is a watt for a second.
bool Looks_like_plural_or_speed(Reading const& reading) {
    if (reading.count != 2 || reading.units[0].power != 1 || reading.units[1].power != 1) {
        return false;
    }
    Dimension const first = Catalogue::Dimension_of(reading.units[0].unit);
    if (first == LENGTH) {
        return Is_time(reading.units[1].unit);
    }
    bool const has_plural =
        first == MASS || first == DATA_SIZE || first == DIMENSIONLESS || first == RESISTANCE;
    return has_plural && reading.units[1].unit == SECOND;
}

} // namespace

std::optional<Text_fault> Plural_fault(std::string_view text, std::size_t position,
                                       Reading const& reading) {
    if (!Looks_like_plural_or_speed(reading)) {
        return std::nullopt;
    }
    std::string_view const word = text.substr(position, reading.end - position);
    std::string const time = Symbol(reading.units[1].unit);
    std::string const singular(word.substr(0, word.size() - time.size()));
    std::string const speed = singular + '/' + time;
    std::string const product = Written(reading);
    if (reading.units[1].unit != SECOND) {
        return Ambiguous(text, position, product, speed);
    }
    bool const length = Catalogue::Dimension_of(reading.units[0].unit) == LENGTH;
    return length ? Ambiguous(text, position, product + ", " + singular, speed)
                  : Ambiguous(text, position, product, singular);
}

std::optional<Text_fault> Decibel_fault(std::string_view text, std::size_t position) {
    std::string_view const start = text.substr(position, 2);
    if (start == "dB") {
        return Text_fault{position, "'dB' stands first; a tenth of a byte is written deci(B)", {}};
    }
    if (start == "db") {
        return Text_fault{position,
                          "decibels are written 'dB'; a tenth of a bit is written deci(b)", "dB"};
    }
    return std::nullopt;
}

// ---- Prefixes

namespace {

// "ms^-1" is 1/ms by the rules of powers, and m/s to many.
std::optional<Text_fault> Metre_fault(std::string_view text, std::size_t position,
                                      Reading const& reading) {
    Units_list const unit = reading.units[0].unit;
    bool const after_metre = unit == SECOND || unit == MINUTE || unit == HOUR || unit == KELVIN;
    if (!after_metre || reading.first_power > 0) {
        return std::nullopt;
    }
    std::string const symbol = Symbol(unit);
    std::size_t const end = End_of_letters(text, position);
    if (text.substr(position + 1, end - position - 1) != symbol) { // "mHz^-1", "msec^-1"
        return std::nullopt;
    }
    std::string const power = Power_text(reading.first_power);
    return Ambiguous(text, position, "(m" + symbol + ')' + power, "m*" + symbol + power);
}

// "mB", "mbps": mega with a slip of case.
std::optional<Text_fault> Data_fault(std::string_view text, std::size_t position,
                                     Reading const& reading) {
    Units_list const unit = reading.units[0].unit;
    if (unit != BIT && unit != BYTE) {
        return std::nullopt;
    }
    std::string const rest(
        text.substr(position + 1, End_of_letters(text, position) - position - 1));
    return Text_fault{position,
                      "a thousandth of a bit or byte is hardly meant, and is written milli(" +
                          Symbol(unit) + ')',
                      'M' + rest};
}

} // namespace

std::optional<Text_fault> Prefix_fault(std::string_view text, std::size_t position,
                                       Reading const& reading) {
    bool const by_symbol = text.substr(position, 5) != "milli";
    if (reading.prefix != MILLI || !by_symbol) {
        return std::nullopt;
    }
    std::optional<Text_fault> fault = Metre_fault(text, position, reading);
    return fault ? fault : Data_fault(text, position, reading);
}

namespace {

// What people mean by the symbol of a prefix where it stands before a '/'.
struct Lone_prefix {
    std::string_view text;
    char const* meant;
    char const* unit;
};

// clang-format off
constexpr Lone_prefix lone_prefixes[] = {
    {"c/",  "cycles per second are hertz", "Hz"},
    {"d/",  "days are 'dy'",               "dy"},
    {"Mi/", "miles are 'mi'",              "mi"},
    {"M/h", "miles are 'mi'",              "mi"},
    {"n/",  "a number per unit is written as in 1/cm^2",    ""}, // of neutrons, of carriers
    {"p/",  "a number per unit is written as in 1/cm^2",    ""},
};
// clang-format on

} // namespace

Text_fault Lone_prefix_fault(std::string_view text, std::size_t position, Bare_prefix const& prefix,
                             std::string const& scaled) {
    std::string const name = Prefix_text(prefix.prefix, STR_NAME);
    Text_fault fault = {position,
                        Quoted(text.substr(position, prefix.end - position)) + " is the prefix " +
                            name + " and no unit" + (scaled.empty() ? "" : ": write " + scaled),
                        {}};
    for (Lone_prefix const& row : lone_prefixes) {
        if (Begins_with(text.substr(position), row.text)) {
            fault.message.append("; ").append(row.meant);
            fault.suggestion = row.unit;
            break;
        }
    }
    return fault;
}

// ---- Levels

std::optional<Text_fault> Level_plural_fault(std::string_view text, std::size_t start,
                                             std::size_t position) {
    std::size_t const end = End_of_letters(text, position);
    if (end == position || text[end - 1] != 's' || Skip_blanks(text, end) != text.size()) {
        return std::nullopt;
    }
    auto const is_time = [](Reading const& reading) {
        return reading.count != 0 && reading.units[reading.count - 1].unit == SECOND;
    };
    std::string_view const word = text.substr(position, end - position);
    std::string const level(word.substr(0, word.size() - 1)); // without the "s"
    auto const reading = Read_group(word, {0, false});
    if (!reading || reading->end != word.size() || !is_time(*reading)) {
        return std::nullopt; // "dBwatts"
    }
    bool const alone = level.empty();
    auto const shorter = Can_be_suggested(level) ? *Read_group(level, {0, false}) : Reading{};
    if (!alone && (shorter.count == 0 || is_time(shorter) || Is_temperature_scale(shorter))) {
        return std::nullopt; // "dBns", "dBseconds"
    }
    if (!Try_parse_unit("dB" + level)) {
        return std::nullopt; // "dBus"
    }
    return Ambiguous(text, start, "dB(" + Written(*reading) + ')', "dB" + level);
}

// ---- Whole units

namespace {

struct Whole_trap {
    std::string_view text; // without prefix
    char const* reason;
};

// clang-format off
constexpr char samples[] = "is mostly for samples per second: write Hz or sym/s; siemens per second are (S/s)";
constexpr char small_torque[] = "is a torque by pounds of force: write lbf*in; a mass times a length is (lb*in)";
constexpr char torque[] = "is a torque or an energy by pounds of force: write lbf*ft; a mass times a length is (lb*ft)";
constexpr char ounces[] = "is a torque by ounces of force, of which 16 are a pound of force: write lbf*in; a mass times a length is (oz*in)";
constexpr char pressure[] = "is a pressure by pounds of force: write psi; a mass by area is (lb/in^2)";

constexpr Whole_trap whole_traps[] = {
    {"S/s",     samples},
    {"lb*ft",   torque}, {"lb ft", torque}, {"lb.ft", torque}, {"lb·ft", torque}, {"lb-ft",  torque},
    {"ft*lb",   torque}, {"ft lb", torque}, {"ft.lb", torque}, {"ft·lb", torque}, {"ft-lb",  torque},
    {"lb*in", small_torque}, {"lb in", small_torque}, {"lb.in", small_torque}, {"lb·in", small_torque}, {"lb-in", small_torque},
    {"in*lb", small_torque}, {"in lb", small_torque}, {"in.lb", small_torque}, {"in·lb", small_torque}, {"in-lb", small_torque},
    {"ft-lbf",  torque}, {"lbf-ft", torque},
    {"foot pounds", torque}, {"foot pound", torque}, {"foot-pounds", torque}, {"pound feet", torque}, {"pound foot", torque}, {"ft lbs", torque}, {"ft*lbs", torque},
    {"inch pounds", small_torque}, {"inch pound", small_torque}, {"inch-pounds", small_torque}, {"in lbs", small_torque}, {"in*lbs", small_torque},
    {"oz*in", ounces}, {"oz in", ounces}, {"oz-in", ounces}, {"in*oz", ounces}, {"in oz", ounces}, {"in-oz", ounces}, {"ounce inches", ounces}, {"inch ounces", ounces},
    {"lb/in^2", pressure}, {"lb/in2", pressure}, {"lb/in²", pressure}, {"lbs/in^2", pressure}, {"lb/sqin", pressure},
};
// clang-format on

} // namespace

std::optional<Text_fault> Whole_fault(std::string_view text, std::size_t start) {
    std::string_view whole = text.substr(start);
    bool const samples_by_prefix = whole.size() == 4 && whole.substr(1) == "S/s";
    for (Whole_trap const& trap : whole_traps) {
        if (trap.text == (samples_by_prefix ? whole.substr(1) : whole)) {
            return Text_fault{start, Quoted(whole) + ' ' + trap.reason, {}};
        }
    }
    return std::nullopt;
}

// ---- Units apart from each other

namespace {

// Units that prefixes often stand before, and kelvin, metre, gauss and tesla hardly ever.
bool Is_electrical_or_data(Unit_word const& word) {
    Unit_tuple const& first = word.unit.tuples[0];
    bool const hertz = first.unit == SECOND && first.exponent < 0;
    switch (Catalogue::Row_of(first.unit).quantity) {
    case Catalogue::Quantity::DATA_SIZE:
    case Catalogue::Quantity::VOLTAGE:
    case Catalogue::Quantity::POWER:
    case Catalogue::Quantity::CURRENT:
    case Catalogue::Quantity::RESISTANCE:
    case Catalogue::Quantity::CAPACITANCE:
    case Catalogue::Quantity::INDUCTANCE:
    case Catalogue::Quantity::CONDUCTANCE:
        return true;
    default:
        return hertz;
    }
}

enum class Prefixes_meant : std::uint8_t { of_electrical_units, of_all_units };

// A unit that looks like a prefix, which many put apart from the unit.
struct Letter_apart { // NOLINT(clang-analyzer-optin.performance.Padding): in the order of reading
    char letter;
    char const* unit;
    SI_units prefix;
    Prefixes_meant meant;
};

// clang-format off
constexpr Letter_apart letters_apart[] = {
    {'K', "kelvin", KILO,  Prefixes_meant::of_electrical_units},
    {'m', "metre",  MILLI, Prefixes_meant::of_electrical_units},
    {'G', "gauss",  GIGA,  Prefixes_meant::of_electrical_units},
    {'T', "tesla",  TERA,  Prefixes_meant::of_electrical_units},
    {'u', "dalton", MICRO, Prefixes_meant::of_all_units},
};
// clang-format on

// "4.7K ohm", "10m ohm", "22 u F": no kelvin, no metre and no dalton.
std::optional<Text_fault> Letter_fault(std::string_view text, std::size_t first, std::size_t second,
                                       Letter_apart const& letter) {
    std::size_t const end = End_of_letters(text, second);
    std::string_view const word = text.substr(second, end - second);
    Unit_word const* const unit = Words().Find_unit(word);
    std::optional<Power> const power = Read_power(text, end);
    if (unit == nullptr || (power && power->value < 0) ||
        !(letter.meant == Prefixes_meant::of_all_units
              ? unit->prefixes != Catalogue::Prefixes_taken::none
              : Is_electrical_or_data(*unit))) {
        return std::nullopt;
    }
    bool const name = (unit->form & symbol_form) == 0;
    std::string const joined =
        Prefix_text(letter.prefix, name ? STR_NAME : STR_SYMBOL) + std::string(word);
    return Text_fault{first,
                      Quoted(text.substr(first, 1)) + " is " + letter.unit +
                          " where it stands apart: write " + text[first] + '*' + std::string(word) +
                          " for the product",
                      Can_be_suggested(joined) ? joined : std::string()};
}

// "20 deg K", "degrees celsius".
std::optional<Text_fault> Degree_fault(std::string_view text, std::size_t first,
                                       std::size_t second) {
    std::size_t const end = End_of_letters(text, second);
    std::string_view const word = text.substr(second, end - second);
    Unit_word const* const unit = Words().Find_unit(word);
    Units_list const code = word == "C"       ? DEGREE_C
                            : word == "F"     ? DEGREE_F
                            : unit == nullptr ? NO_UNIT
                                              : unit->unit.tuples[0].unit;
    if (code == NO_UNIT || Catalogue::Dimension_of(code) != TEMPERATURE) {
        return std::nullopt;
    }
    return Text_fault{first, "degrees of angle stand before a temperature here", Symbol(code)};
}

} // namespace

std::optional<Text_fault> Apart_fault(std::string_view text, std::size_t first, std::size_t end,
                                      std::size_t second) {
    std::string_view const word = text.substr(first, end - first);
    for (Letter_apart const& letter : letters_apart) {
        if (word.size() == 1 && word[0] == letter.letter) {
            return Letter_fault(text, first, second, letter);
        }
    }
    if (word[0] == 'd' || word == "\u00B0") {
        Unit_word const* const unit = Words().Find_unit(word);
        return unit != nullptr && unit->unit.tuples[0].unit == DEGREE
                   ? Degree_fault(text, first, second)
                   : std::nullopt;
    }
    return std::nullopt;
}

} // namespace Varnix::Value
