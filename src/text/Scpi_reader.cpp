// The grammar; the case of letters does not count, blanks stand around the whole only:
//
//     unit    = "DB" | "DB" product | "DBM" [ "/" factor ... ] | product
//     product = ["1"] "/" factor ... | factor { ("." | "*" | "/") factor }
//     factor  = [multiplier] suffix [power]
//     power   = ["^"] ["-"] digits
//
// A '/' divides by the factor behind it only, as in "V/S" and "M/S/S".

#include "Scpi_reader.h"

#include "Characters.h"
#include "Powers.h"
#include "Unit_product.h"

#include <optional>
#include <string>

namespace Varnix::Value {

namespace {

using Kind = Character_kind;

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
    {"NMI",  One_of(NAUTICAL_MILE)},
    {"G",    One_of(GRAM)},
    {"K",    One_of(KELVIN)},
    {"CEL",  One_of(DEGREE_C)},
    {"FAR",  One_of(DEGREE_F)},
    {"DEG",  One_of(DEGREE)},
    {"RAD",  One_of(RADIAN)},
    {"PCT",  One_of(PERCENT)},
    {"PPM",  One_of(PPM)},
    // What the library prints in upper case besides, or has no suffix for.
    {"H",    One_of(HOUR)},
    {"DY",   One_of(DAY)},
    {"WK",   One_of(WEEK)},
    {"MO",   One_of(MONTH)},
    {"YR",   One_of(YEAR)},
    {"YD",   One_of(YARD)},
    {"N.MI", One_of(NAUTICAL_MILE)},
    {"C",    One_of(DEGREE_C)},
    {"F",    One_of(DEGREE_F)},
    {"PPB",  One_of(PPB)},
    {"SYM",  One_of(SYMBOL)},
    {"BIT",  One_of(BIT)},
    {"BYTE", One_of(BYTE)},
    {"KTS",  One_of(NAUTICAL_MILE, HOUR)},
    {"MPH",  One_of(MILE, HOUR)},
    {"KMPH", {SPL_NONE, KILO, {{METER, 1}, {HOUR, -1}}}},
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
    Kind Next() const { return Character_at(text, position).kind; }

    std::string_view text;
    std::size_t position;
    Unit_product product;
    std::optional<Text_fault> fault;
};

bool Scpi_reader::Read_power(std::int64_t& power) {
    std::size_t const start = position;
    bool const caret = Next() == Kind::caret;
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
    auto const [suffix, power_of_ten] = Find_scaled_suffix(text.substr(start, end - start));
    if (suffix == nullptr) {
        return Refuse(start, end == start ? "expected a suffix, found " + Described(text, start)
                                          : "expected a suffix of instruments, found " +
                                                Quoted(text.substr(start, end - start)));
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
        Kind const next = Next();
        if (next != Kind::product && next != Kind::star && next != Kind::slash) {
            return true;
        }
        sign = next == Kind::slash ? -1 : 1;
        position += Character_at(text, position).size;
    }
}

bool Scpi_reader::Read_product() {
    std::size_t const slash = position + (text.substr(position, 1) == "1" ? 1 : 0);
    bool const divided = Character_at(text, slash).kind == Kind::slash;
    position = divided ? slash + 1 : position;
    return Read_factors(divided ? -1 : 1);
}

// "DBM" is relative to a milliwatt, "DBM/HZ" to one a hertz.
bool Scpi_reader::Read_behind_decibels() {
    position += 2;
    bool const milliwatts = Equal(text.substr(position, 1), "M") &&
                            Character_at(text, position + 1).kind != Kind::letter;
    if (Equal(text.substr(position, End_of_letters(text, position) - position), "C")) {
        return Refuse(position, "a level relative to a carrier is no unit; write DB");
    }
    if (!milliwatts) {
        return Is_at_end() || Read_product();
    }
    product.Multiply(MILLI, 1, position);
    product.Multiply(Factor{WATT, 1, position});
    ++position;
    if (Next() != Kind::slash) {
        return true;
    }
    ++position;
    return Read_factors(-1) &&
           (product.Has_above(SECOND) || Refuse(position, "'DBM' stands alone or before '/HZ'"));
}

Parse_result<Units> Scpi_reader::Read() {
    position = Skip_blanks(text, position);
    if (position == text.size()) {
        return Text_fault{position, "expected a suffix, found the end of the text", {}};
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
