// The grammar; the case of letters does not count, blanks stand around the whole only:
//
//     unit    = nothing | "1" | "DB" | "DB" product | "DBM" [ "/" factor ... ] | product
//     product = ["1"] "/" factor ... | factor { ("." | "*" | "/") factor }
//     factor  = [multiplier] suffix [power]
//     power   = ["^"] ["-"] digits
//
// A '/' divides by the factor behind it only, as in "V/S" and "M/S/S".

#include "Scpi_reader.h"

#include "Characters.h"
#include "Powers.h"
#include "Unit_product.h"
#include "Unit_reader.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string>

namespace Varnix::Value {

namespace {

struct Suffix {
    std::string_view text;
    Units unit;
};

constexpr Units One_of(Units_list unit) {
    return {SPL_NONE, NO_PREFIX, {{unit, 1}}};
}

constexpr Units One_of(Units_list above, Units_list below) {
    return {SPL_NONE, NO_PREFIX, {{above, 1}, {below, -1}}};
}

struct Multiplier {
    std::string_view text;
    int power_of_ten;
};

// clang-format off
constexpr Suffix suffixes[] = {
    // Of IEEE 488.2 and SCPI-99.
    {"V",    One_of(VOLT)},
    {"A",    One_of(AMP)},
    {"W",    One_of(WATT)},
    {"OHM",  One_of(OHM)},
    {"HZ",   {SPL_NONE, NO_PREFIX, {{SECOND, -1}}}},
    {"S",    One_of(SECOND)},
    {"MIN",  One_of(MINUTE)},
    {"HR",   One_of(HOUR)},
    {"D",    One_of(DAY)},
    {"ANN",  One_of(YEAR)},
    {"M",    One_of(METER)},
    {"FT",   One_of(FOOT)},
    {"IN",   One_of(INCH)},
    {"MI",   One_of(MILE)},
    {"NAMI", One_of(NAUTICAL_MILE)},
    {"G",    One_of(GRAM)},
    {"TNE",  {SPL_NONE, MEGA, {{GRAM, 1}}}},
    {"K",    One_of(KELVIN)},
    {"CEL",  One_of(DEGREE_C)},
    {"FAR",  One_of(DEGREE_F)},
    {"DEG",  One_of(DEGREE)},
    {"RAD",  One_of(RADIAN)},
    {"PCT",  One_of(PERCENT)},
    {"PPM",  One_of(PPM)},
    // What the library prints in upper case besides, or has no suffix for.
    {"DY",   One_of(DAY)},
    {"WK",   One_of(WEEK)},
    {"MO",   One_of(MONTH)},
    {"YR",   One_of(YEAR)},
    {"YD",   One_of(YARD)},
    {"N.MI", One_of(NAUTICAL_MILE)},
    {"NMI",  One_of(NAUTICAL_MILE)},
    {"PPB",  One_of(PPB)},
    {"SYM",  One_of(SYMBOL)},
    {"BIT",  One_of(BIT)},
    {"BYTE", One_of(BYTE)},
    {"KTS",  One_of(NAUTICAL_MILE, HOUR)},
    {"MPH",  One_of(MILE, HOUR)},
    {"KMPH", {SPL_NONE, KILO, {{METER, 1}, {HOUR, -1}}}},
};

// Suffixes of the standard that mean no unit of the catalogue. In `instead` the multiplier takes
// the place of '#', so that "UF" is "US/OHM"; without one it is said where no multiplier stands.
struct Foreign_suffix {
    std::string_view text;
    char const* meaning;
    std::string_view instead;
};

constexpr Foreign_suffix foreign_suffixes[] = {
    {"C",    "coulomb (degrees Celsius are CEL)",    "A.#S"},
    {"F",    "farad (degrees Fahrenheit are FAR)",   "#S/OHM"},
    {"H",    "henry (hours are HR)",                 "OHM.#S"}, // "MOHM" would be mega
    {"SIE",  "siemens",                              "1/OHM"},
    {"N",    "newton",                               "KG.M/S2"},
    {"PAL",  "pascal",                               "KG/M/S2"},
    {"J",    "joule",                                "W.#S"},
    {"WB",   "weber",                                "V.#S"},
    {"T",    "tesla",                                "V.#S/M2"},
    {"CD",   "candela",                              ""},       // and no hundredth of a day
    {"MNT",  "a minute of arc (of time it is MIN)",  "DEG"},
    {"SEC",  "a second of arc (of time it is S)",    "DEG"},
};

// The longer ones first: "MAV" is a megavolt, "MA" a milliampere.
constexpr Multiplier multipliers[] = {
    {"YO", 24}, {"ZE", 21}, {"EX", 18}, {"PE", 15}, {"MA", 6}, {"T", 12}, {"G", 9}, {"K", 3},
    {"D", -1},  {"C", -2},  {"M", -3},  {"U", -6},  {"N", -9}, {"P", -12}, {"F", -15}, {"A", -18},
};
// clang-format on

char Upper(char letter) {
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

bool Equal(std::string_view word, std::string_view upper) {
    if (word.size() != upper.size()) {
        return false;
    }
    for (std::size_t k = 0; k < word.size(); ++k) {
        if (Upper(word[k]) != upper[k]) {
            return false;
        }
    }
    return true;
}

Suffix const* Find_suffix(std::string_view word) {
    for (Suffix const& suffix : suffixes) {
        if (Equal(word, suffix.text)) {
            return &suffix;
        }
    }
    return nullptr;
}

std::string Foreign_message(std::string_view word, Foreign_suffix const& suffix) {
    std::string_view const multiplier = word.substr(0, word.size() - suffix.text.size());
    std::size_t const place = suffix.instead.find('#');
    std::string message = Quoted(word) + " is not in the catalogue: " + suffix.meaning;
    if (place != std::string_view::npos) {
        message.append("; write ").append(suffix.instead.substr(0, place));
        message.append(multiplier).append(suffix.instead.substr(place + 1));
    } else if (multiplier.empty() && !suffix.instead.empty()) {
        message.append("; write ").append(suffix.instead);
    }
    return message;
}

bool Is_multiplier(std::string_view word) {
    return word.empty() ||
           std::any_of(std::begin(multipliers), std::end(multipliers),
                       [=](Multiplier const& multiplier) { return Equal(word, multiplier.text); });
}

// Why the word is refused that the standard has and the catalogue has not: "C", "UF".
std::optional<std::string> Foreign_suffix_message(std::string_view word) {
    for (Foreign_suffix const& suffix : foreign_suffixes) {
        std::size_t const size = suffix.text.size();
        bool const ends =
            word.size() >= size && Equal(word.substr(word.size() - size), suffix.text);
        if (ends && Is_multiplier(word.substr(0, word.size() - size))) {
            return Foreign_message(word, suffix);
        }
    }
    return std::nullopt;
}

// A suffix, and the power of ten before it.
struct Scaled_suffix {
    Suffix const* suffix; // nullptr if the word is none
    int power_of_ten;
};

// "MOHM" and "MHZ" are megaohm and megahertz; M is milli before everything else. A multiplier does
// not stand before what has one already or is a speed.
Scaled_suffix Find_scaled_suffix(std::string_view word) {
    if (Suffix const* const suffix = Find_suffix(word)) {
        return {suffix, 0};
    }
    for (Multiplier const& multiplier : multipliers) {
        std::size_t const size = multiplier.text.size();
        if (word.size() <= size || !Equal(word.substr(0, size), multiplier.text)) {
            continue;
        }
        Suffix const* const suffix = Find_suffix(word.substr(size));
        if (suffix != nullptr && suffix->unit.tuples[1].unit == NO_UNIT) {
            bool const mega =
                multiplier.text == "M" && (suffix->text == "OHM" || suffix->text == "HZ");
            return {suffix, mega ? 6 : multiplier.power_of_ten};
        }
    }
    return {nullptr, 0};
}

// Why the word cannot stand, if it cannot. What the table has for it comes before a multiplier.
std::optional<std::string> Word_message(std::string_view word, Scaled_suffix const& found) {
    bool const is_suffix = found.suffix != nullptr && Equal(word, found.suffix->text);
    if (word.empty() || is_suffix) {
        return std::nullopt;
    }
    if (std::optional<std::string> message = Foreign_suffix_message(word)) {
        return message;
    }
    if (found.suffix == nullptr) {
        return "expected a suffix of instruments, found " + Quoted(word);
    }
    bool const data = found.suffix->text == "BIT" || found.suffix->text == "BYTE";
    if (!data || found.power_of_ten >= 0) {
        return std::nullopt;
    }
    return Quoted(word) + " would be a fraction of a bit; write MA" +
           std::string(found.suffix->text) + " for mega";
}

class Scpi_reader {
  public:
    Scpi_reader(std::string_view text_, std::size_t position_) : text(text_), position(position_) {}

    Parse_result<Units> Read();

  private:
    // Each of these reads from `position` on and moves it; false says that `fault` is set.
    bool Read_product();
    bool Read_factors(int sign);
    bool Read_factor(int sign);
    bool Read_power(std::int64_t& power);
    bool Read_behind_decibels();

    bool Refuse(std::size_t where, std::string message) {
        fault = Text_fault{where, std::move(message), {}};
        return false;
    }
    bool Is_at_end() const { return Skip_blanks(text, position) == text.size(); }
    Character_kind Next() const { return Character_at(text, position).kind; }

    std::string_view text;
    std::size_t position;
    Unit_product product;
    std::optional<Text_fault> fault;
};

bool Scpi_reader::Read_power(std::int64_t& power) {
    std::size_t const start = position;
    bool const caret = Next() == Character_kind::caret;
    std::size_t const minus = Minus_size(text, start + (caret ? 1 : 0));
    std::size_t const digits = start + (caret ? 1 : 0) + minus;
    position = End_of_digits(text, digits);
    power = 1;
    if (position == digits) {
        return (!caret && minus == 0) ||
               Refuse(digits, "expected an integer power, found " + Described(text, digits));
    }
    power = 0;
    for (char const digit : text.substr(digits, position - digits)) {
        power = std::min(power * 10 + (digit - '0'), Largest_power + 1);
    }
    if (power == 0 || power > Largest_power) {
        return Refuse(start,
                      power == 0 ? "a power of zero leaves no unit" : "the power is out of range");
    }
    power = minus != 0 ? -power : power;
    return true;
}

bool Scpi_reader::Read_factor(int sign) {
    std::size_t const start = position;
    std::size_t end = End_of_letters(text, position);
    if (Equal(text.substr(start, 4), "N.MI")) {
        end = start + 4;
    }
    std::string_view const word = text.substr(start, end - start);
    Scaled_suffix const found = Find_scaled_suffix(word);
    if (std::optional<std::string> message = Word_message(word, found)) {
        return Refuse(start, std::move(*message));
    }
    auto const [suffix, power_of_ten] = found;
    if (suffix == nullptr) {
        return Refuse(start, "expected a suffix, found " + Described(text, start));
    }
    position = end;
    std::int64_t power = 1;
    if (!Read_power(power)) {
        return false;
    }
    product.Multiply_by_power_of_ten(sign * power * (power_of_ten + suffix->unit.si_prefix), start);
    for (Unit_tuple const& tuple : suffix->unit.tuples) {
        if (tuple.unit != NO_UNIT) {
            product.Multiply(Factor{tuple.unit, sign * power * tuple.exponent, start});
        }
    }
    return true;
}

bool Scpi_reader::Read_factors(int sign) {
    for (;;) {
        if (!Read_factor(sign)) {
            return false;
        }
        Character_kind const next = Next();
        if (next != Character_kind::product && next != Character_kind::star &&
            next != Character_kind::slash) {
            return true;
        }
        sign = next == Character_kind::slash ? -1 : 1;
        position += Character_at(text, position).size;
    }
}

bool Scpi_reader::Read_product() {
    std::size_t const slash = position + (text.substr(position, 1) == "1" ? 1 : 0);
    bool const divided = Character_at(text, slash).kind == Character_kind::slash;
    position = divided ? slash + 1 : position;
    return Read_factors(divided ? -1 : 1);
}

// "DBM" is relative to a milliwatt, "DBM/HZ" to one a hertz.
bool Scpi_reader::Read_behind_decibels() {
    position += 2;
    bool const milliwatts = Equal(text.substr(position, 1), "M") &&
                            Character_at(text, position + 1).kind != Character_kind::letter;
    std::string_view const word = text.substr(position, End_of_letters(text, position) - position);
    if (Equal(word, "C")) {
        return Refuse(position, "a level relative to a carrier is no unit; write DB");
    }
    if (Equal(word, "S") || Equal(word, "MS")) {
        return Refuse(position - 2, "levels have no plural; write " +
                                        std::string(Equal(word, "S") ? "DB" : "DBM"));
    }
    if (!milliwatts) {
        return Is_at_end() || Read_product();
    }
    product.Multiply(MILLI, 1, position);
    product.Multiply(Factor{WATT, 1, position});
    ++position;
    if (Next() != Character_kind::slash) {
        return true;
    }
    ++position;
    return Read_factors(-1) &&
           (product.Has_above(SECOND) || Refuse(position, "'DBM' stands alone or before '/HZ'"));
}

Parse_result<Units> Scpi_reader::Read() {
    position = Skip_blanks(text, position);
    if (Is_unit_of_plain_numbers(text, position)) {
        return C_Empty;
    }
    bool const decibels = Equal(text.substr(position, 2), "DB");
    if (decibels ? !Read_behind_decibels() : !Read_product()) {
        return std::move(*fault);
    }
    if (!Is_at_end()) {
        return Text_fault{
            position, "expected the end of the suffix, found " + Described(text, position), {}};
    }
    auto const unit = product.Descriptor(decibels ? SPL_DB : SPL_NONE);
    return unit && decibels && unit->tuples[0].unit == NO_UNIT ? C_DB : unit;
}

} // namespace

Parse_result<Units> Read_scpi_unit(std::string_view text, std::size_t position) {
    return Scpi_reader(text, position).Read();
}

} // namespace Varnix::Value
