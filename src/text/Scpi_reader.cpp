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

#include "catalogue/Prefixes.h"
#include "catalogue/Unit_spellings.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>
#include <string>

namespace Varnix::Value {

namespace {

struct Suffix {
    std::string_view text;
    Units unit;
    bool takes_multiplier;
};

// clang-format off

// The suffixes that mean several units, or one with a prefix.
constexpr Suffix composites[] = {
    {"HZ",   {SPL_NONE, NO_PREFIX, {{SECOND, -1}}},                   true},
    {"TNE",  {SPL_NONE, MEGA,      {{GRAM, 1}}},                      true},  // the tonne of the core
    {"KTS",  {SPL_NONE, NO_PREFIX, {{NAUTICAL_MILE, 1}, {HOUR, -1}}}, false},
    {"MPH",  {SPL_NONE, NO_PREFIX, {{MILE, 1}, {HOUR, -1}}},          false},
    {"KMPH", {SPL_NONE, KILO,      {{METER, 1}, {HOUR, -1}}},         false},
};

// Suffixes of the standard that most people write for other units. In `instead` the multiplier takes the place of
// '#', so that "UF" is "US/OHM".
struct Refused_suffix {
    std::string_view text;
    char const* meaning;
    std::string_view instead;
};

constexpr Refused_suffix refused_suffixes[] = {
    {"C",   "coulomb (degrees Celsius are CEL)",  "A.#S"},
    {"F",   "farad (degrees Fahrenheit are FAR)", "#S/OHM"},
    {"AH",  "attohenry (ampere hours are A.HR)",  "#A.HR"}, // "MAH" is no megahenry to anybody
};
// clang-format on

// Calls `take` with every suffix on the rows of the catalogue.
template <typename Take>
constexpr void For_each_suffix(Take take) {
    for (std::size_t place = 0; place < Catalogue::Unit_count; ++place) {
        std::string_view texts = Catalogue::unit_spellings[place].suffixes;
        while (!texts.empty()) {
            std::size_t const end = std::min(texts.find(' '), texts.size());
            take(Catalogue::unit_rows[place], texts.substr(0, end));
            texts.remove_prefix(std::min(end + 1, texts.size()));
        }
    }
}

constexpr std::size_t Count_suffixes() {
    std::size_t count = std::size(composites);
    For_each_suffix([&](Catalogue::Unit_row const&, std::string_view) { ++count; });
    return count;
}

constexpr auto Gather_suffixes() {
    std::array<Suffix, Count_suffixes()> all{};
    std::size_t count = 0;
    for (Suffix const& composite : composites) {
        all[count++] = composite;
    }
    For_each_suffix([&](Catalogue::Unit_row const& row, std::string_view text) {
        bool const takes_multiplier = row.prefixes != Catalogue::Prefixes_taken::none;
        all[count++] = {text, {SPL_NONE, NO_PREFIX, {{row.unit, 1}}}, takes_multiplier};
    });
    return all;
}

constexpr auto suffixes = Gather_suffixes();

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

// The prefix whose multiplier `word` begins with; nullptr if there is none. The longer ones come first: "MAV" is a
// megavolt, "MA" a milliampere.
Catalogue::Prefix_row const* Find_multiplier(std::string_view word, std::size_t size) {
    for (Catalogue::Prefix_row const& prefix : Catalogue::prefix_rows) {
        std::string_view const text = prefix.multiplier;
        if (text.size() == size && Equal(word.substr(0, size), text)) {
            return &prefix;
        }
    }
    return nullptr;
}

constexpr std::size_t multiplier_sizes[] = {2, 1};

// Whether `word` is nothing, or one multiplier.
bool Is_multiplier(std::string_view word) {
    return word.empty() || Find_multiplier(word, word.size()) != nullptr;
}

// Why the word is refused: "C", "UF".
std::optional<std::string> Refused_suffix_message(std::string_view word) {
    for (Refused_suffix const& suffix : refused_suffixes) {
        std::size_t const size = word.size() - std::min(suffix.text.size(), word.size());
        std::string_view const multiplier = word.substr(0, size);
        if (!Equal(word.substr(size), suffix.text) || !Is_multiplier(multiplier)) {
            continue;
        }
        std::size_t const place = suffix.instead.find('#');
        return Quoted(word) + " is not read here: " + suffix.meaning + "; write " +
               std::string(suffix.instead.substr(0, place)) + std::string(multiplier) +
               std::string(suffix.instead.substr(place + 1));
    }
    return std::nullopt;
}

// A suffix, and the power of ten before it.
struct Scaled_suffix {
    Suffix const* suffix; // nullptr if the word is none
    int power_of_ten;
};

// "MOHM" and "MHZ" are megaohm and megahertz; M is milli before everything else.
Scaled_suffix Find_scaled_suffix(std::string_view word) {
    if (Suffix const* const suffix = Find_suffix(word)) {
        return {suffix, 0};
    }
    for (std::size_t const size : multiplier_sizes) {
        Catalogue::Prefix_row const* const prefix =
            word.size() > size ? Find_multiplier(word, size) : nullptr;
        Suffix const* const suffix = prefix != nullptr ? Find_suffix(word.substr(size)) : nullptr;
        if (suffix != nullptr && suffix->takes_multiplier) {
            bool const mega =
                prefix->prefix == MILLI && (suffix->text == "OHM" || suffix->text == "HZ");
            return {suffix, mega ? MEGA : prefix->prefix};
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
    if (std::optional<std::string> message = Refused_suffix_message(word)) {
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
