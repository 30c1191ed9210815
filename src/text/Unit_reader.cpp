// The grammar, blanks around signs left out:
//
//     unit     = nothing | "1" | "dB" | "dB" product | "dB(" inside ")" | product
//              | "dBm/" factor ... | a level by name        see src/catalogue/Level_references.h
//     product  = ["1"] "/" factor ... | factor { sign factor }
//     sign     = "*" | "." | "·" | blanks | "/"           no product sign once a '/' came before
//     factor   = group | words | [prefix] "(" inside ")" [power]
//     inside   = ["10" power [sign]] product              the scale of the whole
//     group    = units run together, each with its power   see Unit_readings.h
//     words    = one unit with blanks in it: "imp gal", "square meter"
//
// A power belongs to what it stands behind, prefix included (ISO 80000-1): km^2 is (km)^2 and
// cm^-1 is 1/cm. The scale that all prefixes make together becomes the prefix of the descriptor,
// any power of ten from 10^-40 to 10^40 but for those whose codes mean a power of two. "k(m^2)" is
// kilo m^2, and "(10^5 m)" serves where no other text does.
//
// Parentheses nest sixteen deep at most, so that the recursion is bounded. What has been read is
// kept as powers of units and of ten and two; only the end decides whether that is a descriptor.

#include "Unit_reader.h"

#include "Characters.h"
#include "Powers.h"
#include "Spellings.h"
#include "Unit_product.h"
#include "Unit_readings.h"
#include "Unit_traps.h"
#include "Unknown_words.h"

#include "catalogue/Level_references.h"

#include <algorithm>
#include <optional>

namespace Varnix::Value {

namespace {

constexpr int Deepest_nesting = 16;

// ---- The reader

// ---- Powers in words

struct Power_word {
    std::string_view text;
    std::int64_t power;
};

constexpr Power_word powers_before[] = {{"square", 2}, {"cubic", 3}, {"sq", 2}, {"cu", 3}};

// "square" and "cubic" before a word: the power of it, and the position of the word. Nothing if neither
// stands at `position`.
std::optional<Power> Power_word_before(std::string_view text, std::size_t position) {
    for (Power_word const& word : powers_before) {
        std::size_t const end = position + word.text.size();
        std::size_t const next = Skip_blanks(text, end);
        if (Begins_with(text.substr(position), word.text) && next != end && next != text.size()) {
            return Power{word.power, next};
        }
    }
    return std::nullopt;
}

// Raises a single unit that has no power yet; `end` is behind what says so.
bool Raise(Reading& reading, std::int64_t power, std::size_t end) {
    bool const fits = reading.count == 1 && reading.first_power == 1;
    if (fits) {
        reading.first_power = power;
        reading.units[0].power *= power;
        reading.end = end;
    }
    return fits;
}

// What may follow a digit that is a power: no further digit, no letter.
bool Ends_power(Character_kind kind) {
    return kind == Character_kind::text_end || kind == Character_kind::blank ||
           kind == Character_kind::slash || kind == Character_kind::product ||
           kind == Character_kind::star || kind == Character_kind::closing;
}

// Other blanks than those of ASCII stand before a unit and not in it.
bool Is_blank_or_digit(char character) {
    return character == ' ' || character == '\t' || (character >= '0' && character <= '9');
}

bool Names_temperature_scale(std::string_view word) {
    return word == "Celsius" || word == "celsius" || word == "Fahrenheit" || word == "fahrenheit";
}

bool Is_degrees_by_name(std::string_view text, std::size_t position, Reading const& reading) {
    std::string_view const word = text.substr(position, reading.end - position);
    return word == "degree" || word == "degrees";
}

class Unit_reader {
  public:
    Unit_reader(std::string_view text_, std::size_t position_)
        : text(text_), first(position_), position(position_) {}

    Parse_result<Units> Read();

  private:
    // Each of these reads from `position` on and moves it; false says that `fault` is set.
    bool Read_behind_decibels(Unit_product& product, std::size_t marker);
    bool Read_marked_parentheses(Unit_product& product);
    bool Read_product(Unit_product& product, int depth);
    void Read_leading_one(int& sign);
    bool Read_factor(Unit_product& product, int sign, int depth);
    bool Read_inside_parentheses(Unit_product& inner, int depth);
    bool Read_parentheses(Unit_product& product, SI_units prefix, int sign, int depth);
    bool Read_word(Unit_product& product, int sign, int depth);
    bool Read_bare_word(Unit_product& product, int sign, int depth);
    std::string Scaled_rest(Bare_prefix const& prefix) const;
    bool Read_unusual_word(Unit_product& product, Reading const& group, int sign, int depth);
    std::optional<Reading> Read_other_word(int sign);
    std::optional<Reading> Read_raised_word(int sign);
    Reading With_words_behind(Reading const& group, int sign) const;
    Parse_result<Units> Read_with_names_apart();
    void Multiply_reading(Unit_product& product, Reading const& reading, int sign);
    bool Read_sign(int& sign, bool& at_end);
    void Read_scale(Unit_product& inner);
    bool Refuse_level_of_milliwatts(std::size_t sign);
    bool Read_level_density(Unit_product& product);
    bool Read_factors(Unit_product& product, int sign, int depth);

    bool Refuse(std::size_t where, std::string message, std::string suggestion = {});
    bool Refuse_between_factors(std::size_t where);

    Character Next() const { return Character_at(text, position); }

    std::string_view text;
    std::size_t first; // where the unit begins
    std::size_t position;
    std::optional<Text_fault> fault;
    bool at_first_factor = true;     // nothing has been read yet, parentheses apart
    bool behind_decibels = false;    // "dB" stands directly before
    std::size_t factor_position = 0; // where the last factor began
};

bool Unit_reader::Refuse(std::size_t where, std::string message, std::string suggestion) {
    fault = Text_fault{where, std::move(message), std::move(suggestion)};
    return false;
}

// ---- Words

// Inline where nearly all words are read.
[[gnu::always_inline]] inline void Unit_reader::Multiply_reading(Unit_product& product,
                                                                 Reading const& reading, int sign) {
    product.Multiply(reading.prefix, sign * reading.first_power, position);
    for (std::size_t k = 0; k < reading.count; ++k) {
        product.Multiply(Factor{reading.units[k].unit, sign * reading.units[k].power, position});
    }
    position = reading.end;
}

// The unit behind a lone prefix with the prefix by its name: "nano(1/cm^2)"; or empty.
std::string Unit_reader::Scaled_rest(Bare_prefix const& prefix) const {
    std::string const name = Prefix_text(prefix.prefix, STR_NAME);
    for (std::size_t const end : {text.size(), text.find_first_of(" ()*", prefix.end)}) {
        std::string_view const rest = text.substr(0, end).substr(prefix.end);
        std::string scaled = name + "(1" + std::string(rest) + ')';
        if (Unit_reader(scaled, 0).Read()) {
            return scaled;
        }
    }
    return {};
}

// A prefix by its own: "k(m^2)", and "tera/seconds", which the core prints. Its symbol before a '/'
// is a unit to whoever writes it: "n/cm^2", "T/m". Behind "dB" none stands.
bool Unit_reader::Read_bare_word(Unit_product& product, int sign, int depth) {
    if (Next().kind != Character_kind::letter) {
        return Refuse(position, "expected a unit, found " + Described(text, position));
    }
    if (behind_decibels) {
        std::size_t const end = End_of_letters(text, position);
        return Refuse(position, "expected a unit directly after 'dB', found " +
                                    Quoted(text.substr(position, end - position)) +
                                    "; relative levels are written 'dB'");
    }
    if (auto const prefix = Read_bare_prefix(text, position, '(')) {
        position = prefix->end;
        return Read_parentheses(product, prefix->prefix, sign, depth);
    }
    if (auto const prefix = Read_bare_prefix(text, position, '/'); prefix && at_first_factor) {
        if (prefix->form == symbol_form) {
            fault = Lone_prefix_fault(text, position, *prefix, Scaled_rest(*prefix));
            return false;
        }
        product.Multiply(prefix->prefix, sign, position);
        position = prefix->end;
        return true;
    }
    fault = Unknown_word_fault(text, position, sign < 0);
    return false;
}

// "square meter", "cubic feet"; nothing where none stands, or one is refused.
std::optional<Reading> Unit_reader::Read_raised_word(int sign) {
    std::optional<Power> const power = Power_word_before(text, position);
    if (!power || Character_at(text, power->end).kind != Character_kind::letter) {
        return std::nullopt;
    }
    position = power->end;
    Parse_result<Reading> const group = Read_group(text, {position, sign < 0});
    if (!group) {
        fault = group.Get_fault();
        return std::nullopt;
    }
    Reading const words = Read_words_with_gaps(text, position);
    Reading raised = words.count != 0 ? words : *group;
    if (!Raise(raised, power->value, raised.end)) {
        Refuse(position, "expected one unit, found " + Described(text, position));
        return std::nullopt;
    }
    return raised;
}

// The group with what may stand behind it: "degree Celsius", "second squared", and "m2" where no
// prefix makes it two things.
Reading Unit_reader::With_words_behind(Reading const& group, int sign) const {
    Reading reading = group;
    std::size_t const next = Skip_blanks(text, reading.end);
    std::string_view const word = text.substr(next, End_of_letters(text, next) - next);
    if (next == reading.end) {
        std::size_t const end = next + 1;
        bool const single =
            (text[next] == '2' || text[next] == '3') && Ends_power(Character_at(text, end).kind);
        if (single && reading.prefix == NO_PREFIX) {
            Raise(reading, text[next] - '0', end);
        }
    } else if (Is_degrees_by_name(text, position, reading) && Names_temperature_scale(word)) {
        reading = *Read_group(text, {next, sign < 0});
    } else if (word == "squared" || word == "cubed") {
        Raise(reading, word == "squared" ? 2 : 3, next + word.size());
    }
    return reading;
}

// What no word of the catalogue begins with: "square meter", "[ft_i]", or a prefix.
std::optional<Reading> Unit_reader::Read_other_word(int sign) {
    if (text[position] != '[') {
        return Read_raised_word(sign);
    }
    Reading const reading = Read_bracketed(text, position);
    return reading.count != 0 ? std::optional(reading) : std::nullopt;
}

// A word that is none of the catalogue, or that others stand behind.
bool Unit_reader::Read_unusual_word(Unit_product& product, Reading const& group, int sign,
                                    int depth) {
    Reading const words = Read_words_with_gaps(text, position);
    bool const other =
        group.count == 0 || Power_word_before(text, position); // "cu in" is no centidalton
    std::optional<Reading> const reading = words.count != 0 ? words
                                           : other          ? Read_other_word(sign)
                                                            : With_words_behind(group, sign);
    if (!reading) {
        return !fault && Read_bare_word(product, sign, depth);
    }
    Multiply_reading(product, *reading, sign);
    return true;
}

namespace {

// Of the units that are read as a whole for something else.
bool Begins_trap(Units_list unit) {
    return unit == SIEMENS || unit == POUND;
}

} // namespace

bool Unit_reader::Read_word(Unit_product& product, int sign, int depth) {
    if (text[position] == '[') {
        return Read_unusual_word(product, Reading(), sign, depth);
    }
    Parse_result<Reading> const group = Read_group(text, {position, sign < 0});
    if (!group) {
        fault = group.Get_fault();
        return false;
    }
    if (group->count == 1 && Begins_trap(group->units[0].unit) &&
        (fault = Whole_fault(text, Skip_blanks(text, first)))) {
        return false;
    }
    std::size_t const end = group->end;
    bool const followed = end < text.size() && Is_blank_or_digit(text[end]);
    if (group->count == 0 || followed) {
        return Read_unusual_word(product, *group, sign, depth);
    }
    Multiply_reading(product, *group, sign);
    return true;
}

// ---- Products

// "10^5 m", "10^-7*m^2/s": the scale stands first inside parentheses.
void Unit_reader::Read_scale(Unit_product& inner) {
    std::size_t const start = Skip_blanks(text, position);
    std::optional<Power> const power =
        text.substr(start, 2) == "10" ? Read_power(text, start + 2) : std::nullopt;
    if (power) {
        inner.Multiply_by_power_of_ten(power->value, start);
        std::size_t const sign = Skip_blanks(text, power->end);
        Character const next = Character_at(text, sign);
        bool const product =
            next.kind == Character_kind::product || next.kind == Character_kind::star;
        position = product ? sign + next.size : sign;
    }
}

bool Unit_reader::Read_inside_parentheses(Unit_product& inner, int depth) {
    if (depth == Deepest_nesting) {
        return Refuse(position, "parentheses are nested more than " +
                                    std::to_string(Deepest_nesting) + " deep");
    }
    char const closing = text[position] == '[' ? ']' : ')'; // "dB[mW]"
    ++position;
    behind_decibels = false;
    Read_scale(inner);
    if (!Read_product(inner, depth + 1)) {
        return false;
    }
    if (position == text.size() || text[position] != closing) {
        return Refuse(position, std::string("expected '") + closing + "', found " +
                                    Described(text, position));
    }
    ++position;
    return true;
}

bool Unit_reader::Read_parentheses(Unit_product& product, SI_units prefix, int sign, int depth) {
    std::size_t const opening = position;
    Unit_product inner;
    if (!Read_inside_parentheses(inner, depth)) {
        return false;
    }
    inner.Multiply(prefix, 1, opening);
    std::optional<Power> const power = Read_power(text, position);
    position = power ? power->end : position;
    bool fits = inner.Is_in_range();
    if (fits) {
        product.Multiply(inner, sign * (power ? power->value : 1));
        fits = product.Is_in_range();
    }
    return fits || Refuse(opening, "the power is out of range");
}

bool Unit_reader::Read_factor(Unit_product& product, int sign, int depth) {
    position = Skip_blanks(text, position);
    factor_position = position;
    switch (Next().kind) {
    case Character_kind::letter:
    case Character_kind::bracket:
        if (!Read_word(product, sign, depth)) {
            return false;
        }
        at_first_factor = false;
        behind_decibels = false;
        return true;
    case Character_kind::opening:
        return Read_parentheses(product, NO_PREFIX, sign, depth);
    default:
        return Refuse(position, "expected a unit, found " + Described(text, position));
    }
}

// "1/s" and "/s".
void Unit_reader::Read_leading_one(int& sign) {
    position = Skip_blanks(text, position);
    std::size_t const one = Next().kind == Character_kind::digit && text[position] == '1' ? 1 : 0;
    std::size_t const slash = Skip_blanks(text, position + one);
    if (Character_at(text, slash).kind == Character_kind::slash) {
        at_first_factor = false;
        position = slash + 1;
        sign = -1;
    }
}

bool Unit_reader::Refuse_between_factors(std::size_t where) {
    if (Read_power(text, where)) {
        return Refuse(where, "a power stands directly behind its unit, and only once");
    }
    if ((fault = Power_fault(text, where))) {
        return false;
    }
    Character_kind const kind = Character_at(text, where).kind;
    bool const hyphen = where < text.size() && text[where] == '-';
    bool const signed_digit = hyphen && Character_at(text, where + 1).kind == Character_kind::digit;
    if (hyphen && Character_at(text, where + 1).kind == Character_kind::letter) {
        fault = Whole_fault(text, Skip_blanks(text, first));
        return !fault && Refuse(where, "a product is written with '*' and not with '-', as in N*m");
    }
    if (where == position && (kind == Character_kind::digit || signed_digit)) { // "m2", "s-1"
        return Refuse(where, "a power is written with '^', as in m^2");
    }
    if (kind == Character_kind::opening) {
        return Refuse(where, "expected '*' or '/' before '('");
    }
    return Refuse(where, "expected '*', '/', a power or the end of the unit, found " +
                             Described(text, where));
}

// What stands between two factors: a product or a division, or the end of the product.
bool Unit_reader::Read_sign(int& sign, bool& at_end) {
    std::size_t const next = Skip_blanks(text, position);
    bool const after_blanks = next != position;
    Character_kind const kind = Character_at(text, next).kind;
    bool const power =
        kind == Character_kind::star && Character_at(text, next + 1).kind == Character_kind::star;
    bool const juxtaposed =
        after_blanks && (kind == Character_kind::letter || kind == Character_kind::opening);
    at_end = kind == Character_kind::text_end || kind == Character_kind::closing;
    if (at_end) {
        position = next;
        return true;
    }
    bool const per = juxtaposed && text.substr(next, 3) == "per" &&
                     Character_at(text, next + 3).kind == Character_kind::blank;
    if (kind == Character_kind::slash || per) {
        position = next + (per ? 3 : 1);
        sign = -1;
        return true;
    }
    if (!juxtaposed &&
        ((kind != Character_kind::product && kind != Character_kind::star) || power)) {
        return Refuse_between_factors(next);
    }
    if (sign < 0) {
        return Refuse(next, "a product after '/' is ambiguous: write it as in m/(s*K) "
                            "or (m/s)*K");
    }
    if (juxtaposed && (fault = Apart_fault(text, factor_position, position, next))) {
        return false;
    }
    position = juxtaposed ? next : next + Character_at(text, next).size;
    return true;
}

bool Unit_reader::Read_factors(Unit_product& product, int sign, int depth) {
    for (bool at_end = false; !at_end;) {
        if (!Read_factor(product, sign, depth) || !Read_sign(sign, at_end)) {
            return false;
        }
    }
    return true;
}

bool Unit_reader::Read_product(Unit_product& product, int depth) {
    int sign = 1;
    Read_leading_one(sign);
    return Read_factors(product, sign, depth);
}

// ---- Decibels

namespace {

// The level that `text` is as a whole; nullptr for none.
Catalogue::Level_reference const* Find_level_reference(std::string_view text) {
    for (Catalogue::Level_reference const& level : Catalogue::level_references) {
        std::string_view const word = level.text;
        if (Begins_with(text, word) && Skip_blanks(text, word.size()) == text.size()) {
            return &level;
        }
    }
    return nullptr;
}

// What people write behind "dB" for a reference that is no unit, or that two trades have differently.
struct Refused_level {
    std::string_view text;
    char const* reason;
};

// clang-format off
constexpr Refused_level refused_levels[] = {
    {"dBd",   "is 2.15 dB above dBi: write dB for a gain and add 2.15"},
    {"dBFS",  "is relative to the full scale of a converter, which is no unit: write dB for the ratio"},
    {"dBu",   "is relative to 0.775 V in audio, and to 1 µV in radio: write dBV or dBµV"},
    {"dBC",   "is a weighted sound pressure level, which is no unit: write dB for a difference of two, and dB(A*s) for charges"},
    {"dBSPL", "is relative to 20 µPa, which is no unit"},
    {"dBc",   "stands alone: write dB(1/Hz) for the density of a noise relative to the carrier"},
    {"dBi",   "stands alone: write dB for a gain"},
};
// clang-format on

Refused_level const* Find_refused_level(std::string_view text) {
    for (Refused_level const& level : refused_levels) {
        std::size_t const end = level.text.size();
        if (Begins_with(text, level.text) &&
            Character_at(text, end).kind != Character_kind::letter) {
            return &level;
        }
    }
    return nullptr;
}

} // namespace

// "dBm/s" is relative to mW/s or to m/s.
bool Unit_reader::Refuse_level_of_milliwatts(std::size_t sign) {
    std::string const level = "dB(mW" + std::string(text.substr(sign)) + ')';
    bool const reads = static_cast<bool>(Unit_reader(level, 0).Read());
    return Refuse(sign, "'dBm' stands alone or before '/Hz'" +
                            (reads ? ": write " + level + " for milliwatts" : std::string()));
}

// "dBm/Hz", "dBm/kHz": the level of a power by frequency. The position is that of the '/'.
bool Unit_reader::Read_level_density(Unit_product& product) {
    std::size_t const slash = position;
    bool const divided = Next().kind == Character_kind::slash;
    product.Multiply(MILLI, 1, slash);
    product.Multiply(Factor{WATT, 1, slash});
    ++position;
    behind_decibels = false;
    at_first_factor = false;
    if (divided && !Read_factors(product, -1, 0)) {
        return false;
    }
    return (divided && product.Has_above(SECOND)) || Refuse_level_of_milliwatts(slash);
}

// What follows the marker, "dB" or "decibel", of that many bytes, and is no special level.
bool Unit_reader::Read_behind_decibels(Unit_product& product, std::size_t marker) {
    std::size_t const at_marker = position;
    position += marker;
    std::size_t const next = Skip_blanks(text, position);
    Character_kind const kind = Character_at(text, next).kind;
    if (kind == Character_kind::slash) {
        return Refuse(next,
                      "decibels per unit are an antenna factor or an attenuation: write dB(1/m) "
                      "for the factor; an attenuation is the gain of the whole length in dB");
    }
    if (Refused_level const* const level = Find_refused_level(text.substr(at_marker))) {
        return Refuse(position, Quoted(level->text) + ' ' + level->reason);
    }
    bool const in_parentheses = kind == Character_kind::opening || kind == Character_kind::bracket;
    if (next != position || (kind != Character_kind::letter && !in_parentheses)) {
        return Refuse(next, "expected a unit directly after 'dB', found " + Described(text, next));
    }
    if (in_parentheses) {
        return Read_marked_parentheses(product);
    }
    if (text[End_of_letters(text, position) - 1] == 's' &&
        (fault = Level_plural_fault(text, at_marker, position))) {
        return false;
    }
    behind_decibels = true;
    bool const milliwatts = text[position] == 'm' &&
                            Character_at(text, position + 1).kind != Character_kind::letter &&
                            !Read_power(text, position + 1);
    if (milliwatts) {
        position = Skip_blanks(text, position + 1);
        return Read_level_density(product);
    }
    return Read_product(product, 0);
}

bool Unit_reader::Read_marked_parentheses(Unit_product& product) {
    if (!Read_inside_parentheses(product, 0)) {
        return false;
    }
    position = Skip_blanks(text, position);
    return position == text.size() ||
           Refuse(position, "expected the end of the unit after 'dB(...)', found " +
                                Described(text, position));
}

// ---- The whole

namespace {

bool Is_ascii_letter(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

// How many letters of ASCII stand before `position`, or from there on.
std::size_t Letters_before(std::string_view text, std::size_t position) {
    std::size_t count = 0;
    while (count < position && Is_ascii_letter(text[position - count - 1])) {
        ++count;
    }
    return count;
}

std::size_t Letters_from(std::string_view text, std::size_t position) {
    std::size_t count = 0;
    while (position + count < text.size() && Is_ascii_letter(text[position + count])) {
        ++count;
    }
    return count;
}

// "kilowatt_hour", "meter_per_second" with blanks. Symbols stay: "m_s" may be anything.
std::string With_blanks_between_names(std::string_view text) {
    constexpr std::size_t shortest_name = 3;
    std::string spaced(text);
    for (std::size_t place = text.find('_'); place != std::string_view::npos;
         place = text.find('_', place + 1)) {
        if (Letters_before(text, place) >= shortest_name &&
            Letters_from(text, place + 1) >= shortest_name) {
            spaced[place] = ' ';
        }
    }
    return spaced;
}

// The core's special name of C_Kmph looks like a division: it is no unit Km, and stands alone.
bool Is_special_text(std::string_view text, std::size_t position) {
    constexpr std::string_view special = "Km/h";
    return text[position] == special[0] && Begins_with(text.substr(position), special) &&
           Skip_blanks(text, position + special.size()) == text.size();
}

} // namespace

// The names that '_' joins, once more without it; or the fault of the first attempt.
Parse_result<Units> Unit_reader::Read_with_names_apart() {
    std::string const apart = With_blanks_between_names(text);
    if (apart != text) {
        if (auto const unit = Unit_reader(apart, first).Read()) {
            return *unit;
        }
    }
    return std::move(*fault);
}

Parse_result<Units> Unit_reader::Read() {
    position = Skip_blanks(text, position);
    if (Is_unit_of_plain_numbers(text, position)) {
        return C_Empty;
    }
    if (Is_special_text(text, position)) {
        return C_Kmph;
    }
    std::string_view const rest = text.substr(position);
    std::size_t const marker = rest[0] != 'd'                 ? 0
                               : Begins_with(rest, "dB")      ? 2
                               : Begins_with(rest, "decibel") ? std::size_t{7}
                                                              : 0;
    bool const decibels = marker != 0;
    if (decibels) {
        if (Catalogue::Level_reference const* const level = Find_level_reference(rest)) {
            return level->unit;
        }
    }
    Unit_product product;
    if (decibels ? !Read_behind_decibels(product, marker) : !Read_product(product, 0)) {
        return Read_with_names_apart();
    }
    if (position != text.size()) {
        return Text_fault{
            position, "expected the end of the unit, found " + Described(text, position), {}};
    }
    return product.Descriptor(decibels ? SPL_DB : SPL_NONE);
}

} // namespace

Parse_result<Units> Read_unit(std::string_view text, std::size_t position) {
    return Unit_reader(text, position).Read();
}

} // namespace Varnix::Value
