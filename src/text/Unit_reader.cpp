// The grammar, blanks around signs left out:
//
//     unit     = "dB" | "dB" product | "dB(" product ")" | product
//     product  = ["1"] "/" factor ... | factor { sign factor }
//     sign     = "*" | "." | "·" | blanks | "/"           no product sign once a '/' came before
//     factor   = group | [prefix] "(" product ")" [power]
//     group    = units run together, each with its power   see Unit_readings.h
//
// Parentheses nest sixteen deep at most, so that the recursion is bounded. What has been read is
// kept as powers of units and of ten and two; only the end decides whether that is a descriptor.

#include "Unit_reader.h"

#include "Characters.h"
#include "Suggestions.h"
#include "Unit_readings.h"

#include <varnix/value/Units_library.h>

#include <algorithm>
#include <array>
#include <limits>
#include <optional>

namespace Varnix::Value {

namespace {

using Kind = Character_kind;

constexpr int Deepest_nesting = 16;

// ---- What has been read

struct Factor {
    Units_list unit;
    std::int64_t power;
    std::size_t position; // where the unit first stands
};

// A product of powers of units and prefixes.
class Product {
  public:
    // No sum overflows: a text has less than 2^16 factors of powers up to 2^31.
    void Multiply(Factor const& factor) {
        auto const last = factors.begin() + count;
        auto const same = std::find_if(factors.begin(), last,
                                       [&](Factor const& own) { return own.unit == factor.unit; });
        if (same == last) {
            factors[static_cast<std::size_t>(count++)] = factor;
            return;
        }
        if ((same->power < 0) != (factor.power < 0) && !cancelling) {
            cancelling = factor;
        }
        same->power += factor.power;
    }

    void Multiply(SI_units prefix, std::int64_t power, std::size_t position) {
        if (prefix != NO_PREFIX) {
            bool const binary = Unit_words::Get().Has_prefix(prefix, true);
            (binary ? twos : tens) += prefix * power;
            prefix_position = position;
        }
    }

    void Multiply(Product const& other, std::int64_t power) {
        for (int k = 0; k < other.count; ++k) {
            Factor factor = other.factors[static_cast<std::size_t>(k)];
            factor.power *= power;
            Multiply(factor);
        }
        cancelling = cancelling ? cancelling : other.cancelling;
        if (other.tens != 0 || other.twos != 0) {
            tens += other.tens * power;
            twos += other.twos * power;
            prefix_position = other.prefix_position;
        }
    }

    // Whether every power is one that can be written, so that it can be multiplied again.
    bool Is_in_range() const {
        auto const fits = [](std::int64_t power) {
            return power >= -Largest_power && power <= Largest_power;
        };
        return fits(tens) && fits(twos) &&
               std::all_of(begin(), end(), [&](Factor const& own) { return fits(own.power); });
    }

    bool Has_length() const {
        return std::any_of(begin(), end(), [](Factor const& own) {
            return own.power > 0 && Unit_words::Get().Dimension_of(own.unit) == LENGTH;
        });
    }

    // The prefix that all of them make; nothing if there is none.
    std::optional<SI_units> Prefix() const {
        std::int64_t const exponent = tens + twos; // where one of the two is zero
        bool const none = tens == 0 && twos == 0;
        bool const both = tens != 0 && twos != 0;
        if (!none && (both || !Unit_words::Get().Has_prefix(exponent, twos != 0))) {
            return std::nullopt;
        }
        return static_cast<SI_units>(exponent);
    }

    std::string Scale_text() const {
        return (tens == 0 ? "" : "10^" + std::to_string(tens)) +
               (tens != 0 && twos != 0 ? " times " : "") +
               (twos == 0 ? "" : "2^" + std::to_string(twos));
    }

    // The first unit that stands both above and below, where it does so for the first time.
    std::optional<Factor> const& Cancelling() const { return cancelling; }

    std::size_t Prefix_position() const { return prefix_position; }
    Factor const* begin() const { return factors.data(); }
    Factor const* end() const { return factors.data() + count; }

  private:
    std::array<Factor, Unit_code_limit> factors; // of each unit one at most
    int count = 0;
    std::int64_t tens = 0; // the exponents of the prefixes
    std::int64_t twos = 0;
    std::size_t prefix_position = 0;
    std::optional<Factor> cancelling;
};

// ---- The reader

class Unit_reader {
  public:
    Unit_reader(std::string_view text_, std::size_t position_) : text(text_), position(position_) {}

    Parse_result<Units> Read() {
        Units unit{};
        if (Read_all(unit)) {
            return unit;
        }
        return std::move(*fault);
    }

  private:
    // Each of these reads from `position` on and moves it; false says that `fault` is set.
    bool Read_all(Units& unit);
    bool Read_decibels(Units& unit, bool& complete);
    bool Read_marked_parentheses(Product& product);
    bool Read_product(Product& product, int depth);
    void Read_leading_one(int& sign);
    bool Read_factor(Product& product, int sign, int depth);
    bool Read_inside_parentheses(Product& inner, int depth);
    bool Read_parentheses(Product& product, SI_units prefix, int sign, int depth);
    bool Read_word(Product& product, int sign, int depth);
    bool Read_bare_word(Product& product, int sign, int depth);
    bool Multiply_reading(Product& product, Reading const& reading, int sign);
    bool Read_sign(int& sign, bool& at_end);
    bool Finish(Product const& product, Units& unit);
    bool Place_units(Product const& product, Units& unit);

    bool Refuse(std::size_t where, std::string message, std::string suggestion = {});
    bool Refuse_unknown_word();
    bool Refuse_between_factors(std::size_t where);

    Character Next() const { return Character_at(text, position); }

    std::string_view text;
    std::size_t position;
    std::optional<Text_fault> fault;
    bool at_first_factor = true;          // nothing has been read yet, parentheses apart
    bool first_is_prefixed_power = false; // as in km^2, where the prefix is not raised
};

bool Unit_reader::Refuse(std::size_t where, std::string message, std::string suggestion) {
    fault = Text_fault{where, std::move(message), std::move(suggestion)};
    return false;
}

// ---- Words

namespace {

bool Is_word(std::string_view word, Word_form form) {
    Unit_word const* const found = Unit_words::Get().Find_unit(word);
    return found != nullptr && (found->form & form) != 0;
}

// "pinch", "kmeters", "kilom": the form of the prefix is not that of the unit.
struct Mixture {
    Prefix_word const* prefix;
    std::string unit;
};

std::optional<Mixture> Find_mixture(std::string_view word) {
    for (Prefix_word const& prefix : Unit_words::Get().Prefixes_like(word)) {
        if (Begins_with(word, prefix.text)) {
            std::string_view const unit = word.substr(prefix.text.size());
            if (Is_word(unit, prefix.form == symbol_form ? name_form : symbol_form)) {
                return Mixture{&prefix, std::string(unit)};
            }
        }
    }
    return std::nullopt;
}

// The prefix in the form of the unit: kilometers, km; or apart from it: nano(mi).
std::string Unmixed(Mixture const& mixture) {
    Units const unit = {SPL_NONE, mixture.prefix->prefix, {}};
    Unit_string_type const type = mixture.prefix->form == symbol_form ? STR_NAME : STR_SYMBOL;
    std::string const text = Units_library::Get_unit_str_si_map(unit, type) + mixture.unit;
    return Can_be_suggested(text) ? text : mixture.prefix->text + '(' + mixture.unit + ')';
}

} // namespace

bool Unit_reader::Refuse_unknown_word() {
    std::string_view const word = text.substr(position, End_of_letters(text, position) - position);
    if (word == "per") {
        return Refuse(position, "'per' is written '/'");
    }
    for (Prefix_word const& prefix : Unit_words::Get().Prefixes_like(word)) {
        if (prefix.text == word) {
            return Refuse(position + word.size(),
                          "expected a unit directly after the prefix " + Quoted(word));
        }
    }
    if (std::optional<Mixture> const mixture = Find_mixture(word)) {
        bool const symbol = mixture->prefix->form == symbol_form;
        return Refuse(position,
                      "the prefix " + Quoted(mixture->prefix->text) + " goes with " +
                          (symbol ? "symbols" : "names") + ", and " + Quoted(mixture->unit) +
                          " is a " + (symbol ? "name" : "symbol"),
                      Unmixed(*mixture));
    }
    return Refuse(position, "expected a unit, found " + Quoted(word), Nearest_unit(word));
}

bool Unit_reader::Multiply_reading(Product& product, Reading const& reading, int sign) {
    bool const prefixed = reading.prefix != NO_PREFIX;
    if (at_first_factor) {
        first_is_prefixed_power = prefixed && reading.has_power && sign > 0;
    }
    bool const raised_later = reading.has_power && !(at_first_factor && sign > 0);
    bool const second_prefix = first_is_prefixed_power && !at_first_factor;
    if (prefixed && (raised_later || second_prefix)) {
        return Refuse(position, "it is not clear what a power does to a prefix here: write the "
                                "power behind parentheses, as in (km)^2 or k(m^2)");
    }
    product.Multiply(reading.prefix, sign, position);
    for (std::size_t k = 0; k < reading.count; ++k) {
        product.Multiply(Factor{reading.units[k].unit, sign * reading.units[k].power, position});
    }
    at_first_factor = false;
    position = reading.end;
    return true;
}

// A prefix by its own: "k(m^2)", and "T/s", which the core prints.
bool Unit_reader::Read_bare_word(Product& product, int sign, int depth) {
    if (auto const prefix = Read_bare_prefix(text, position, '(')) {
        position = prefix->end;
        return Read_parentheses(product, prefix->prefix, sign, depth);
    }
    if (auto const prefix = Read_bare_prefix(text, position, '/'); prefix && at_first_factor) {
        product.Multiply(prefix->prefix, sign, position);
        at_first_factor = false;
        position = prefix->end;
        return true;
    }
    return Refuse_unknown_word();
}

bool Unit_reader::Read_word(Product& product, int sign, int depth) {
    Group_place const place = {position, sign < 0, sign < 0 && product.Has_length()};
    Reading reading;
    if (Read_group(text, place, reading, fault)) {
        return Multiply_reading(product, reading, sign);
    }
    return !fault && Read_bare_word(product, sign, depth);
}

// ---- Products

bool Unit_reader::Read_inside_parentheses(Product& inner, int depth) {
    if (depth == Deepest_nesting) {
        return Refuse(position, "parentheses are nested more than " +
                                    std::to_string(Deepest_nesting) + " deep");
    }
    ++position;
    if (!Read_product(inner, depth + 1)) {
        return false;
    }
    if (Next().kind != Kind::closing) {
        return Refuse(position, "expected ')', found " + Described(text, position));
    }
    ++position;
    return true;
}

bool Unit_reader::Read_parentheses(Product& product, SI_units prefix, int sign, int depth) {
    std::size_t const start = position;
    Product inner;
    if (!Read_inside_parentheses(inner, depth)) {
        return false;
    }
    inner.Multiply(prefix, 1, start);
    std::optional<Power> const power = Read_power(text, position);
    position = power ? power->end : position;
    bool fits = inner.Is_in_range();
    if (fits) {
        product.Multiply(inner, sign * (power ? power->value : 1));
        fits = product.Is_in_range();
    }
    return fits || Refuse(start, "the power is out of range");
}

bool Unit_reader::Read_factor(Product& product, int sign, int depth) {
    position = Skip_blanks(text, position);
    switch (Next().kind) {
    case Kind::letter:
        return Read_word(product, sign, depth);
    case Kind::opening:
        return Read_parentheses(product, NO_PREFIX, sign, depth);
    default:
        return Refuse(position, "expected a unit, found " + Described(text, position));
    }
}

// "1/s" and "/s".
void Unit_reader::Read_leading_one(int& sign) {
    position = Skip_blanks(text, position);
    std::size_t const one = Next().kind == Kind::digit && text[position] == '1' ? 1 : 0;
    std::size_t const slash = Skip_blanks(text, position + one);
    if (Character_at(text, slash).kind == Kind::slash) {
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
    Kind const kind = Character_at(text, where).kind;
    bool const hyphen = where < text.size() && text[where] == '-';
    bool const signed_digit = hyphen && Character_at(text, where + 1).kind == Kind::digit;
    if (where == position && (kind == Kind::digit || signed_digit)) { // "m2", "s-1"
        return Refuse(where, "a power is written with '^'");
    }
    if (kind == Kind::opening) {
        return Refuse(where, "expected '*' or '/' before '('");
    }
    return Refuse(where, "expected '*', '/', a power or the end of the unit, found " +
                             Described(text, where));
}

// What stands between two factors: a product or a division, or the end of the product.
bool Unit_reader::Read_sign(int& sign, bool& at_end) {
    std::size_t const next = Skip_blanks(text, position);
    bool const after_blanks = next != position;
    Kind const kind = Character_at(text, next).kind;
    bool const power = kind == Kind::star && Character_at(text, next + 1).kind == Kind::star;
    bool const juxtaposed = after_blanks && (kind == Kind::letter || kind == Kind::opening);
    at_end = kind == Kind::text_end || kind == Kind::closing;
    if (at_end) {
        position = next;
        return true;
    }
    if (kind == Kind::slash) {
        position = next + 1;
        sign = -1;
        return true;
    }
    if (!juxtaposed && ((kind != Kind::product && kind != Kind::star) || power)) {
        return Refuse_between_factors(next);
    }
    if (sign < 0) {
        return Refuse(next, "a product after '/' is ambiguous: write parentheses, as in m/(s*K) "
                            "or (m/s)*K");
    }
    position = juxtaposed ? next : next + Character_at(text, next).size;
    return true;
}

bool Unit_reader::Read_product(Product& product, int depth) {
    int sign = 1;
    Read_leading_one(sign);
    for (bool at_end = false; !at_end;) {
        if (!Read_factor(product, sign, depth) || !Read_sign(sign, at_end)) {
            return false;
        }
    }
    return true;
}

// ---- The whole

// Decibels: what follows the marker, if it is not a product.
bool Unit_reader::Read_decibels(Units& unit, bool& complete) {
    position += 2;
    std::size_t const next = Skip_blanks(text, position);
    Kind const kind = Character_at(text, next).kind;
    complete = kind == Kind::text_end;
    if (complete) {
        unit = C_DB;
        return true;
    }
    if (kind == Kind::slash) {
        return Refuse(next, "decibels per unit are not a level; the level of a reciprocal is "
                            "written as in dB(1/m)");
    }
    if (next != position || (kind != Kind::letter && kind != Kind::opening)) {
        return Refuse(next, "expected a unit directly after 'dB', found " + Described(text, next));
    }
    if (text[position] != 'm' || Character_at(text, position + 1).kind == Kind::letter ||
        Read_power(text, position + 1)) {
        return true;
    }
    std::size_t const end = Skip_blanks(text, position + 1);
    complete = end == text.size();
    unit = C_DBmW;
    return complete || Refuse(end, "'dBm' stands alone, for decibels relative to a milliwatt: "
                                   "write dB(mW/...) or dB(m/...)");
}

bool Unit_reader::Read_marked_parentheses(Product& product) {
    if (!Read_inside_parentheses(product, 0)) {
        return false;
    }
    position = Skip_blanks(text, position);
    return position == text.size() ||
           Refuse(position, "expected the end of the unit after 'dB(...)', found " +
                                Described(text, position));
}

// The core's special name of C_Kmph looks like a division: it is no unit Km, and stands alone.
bool Is_special_text(std::string_view text, std::size_t position) {
    constexpr std::string_view special = "Km/h";
    return text[position] == special[0] && Begins_with(text.substr(position), special) &&
           Skip_blanks(text, position + special.size()) == text.size();
}

bool Unit_reader::Read_all(Units& unit) {
    position = Skip_blanks(text, position);
    if (position == text.size()) {
        return Refuse(position, "expected a unit, found the end of the text");
    }
    if (Is_special_text(text, position)) {
        unit = C_Kmph;
        return true;
    }
    bool const decibels = Begins_with(text.substr(position), "dB");
    bool complete = false;
    if (decibels && (!Read_decibels(unit, complete) || complete)) {
        return complete;
    }
    Product product;
    bool const marked_parentheses = decibels && Next().kind == Kind::opening;
    if (marked_parentheses ? !Read_marked_parentheses(product) : !Read_product(product, 0)) {
        return false;
    }
    if (position != text.size()) {
        return Refuse(position, "expected the end of the unit, found " + Described(text, position));
    }
    unit.spl_conv = decibels ? SPL_DB : SPL_NONE;
    return Finish(product, unit);
}

std::string Symbol(Units_list unit) {
    return Units_library::Get_unit_string({SPL_NONE, NO_PREFIX, {{unit, 1}}}, STR_SYMBOL);
}

// Puts the units into canonical order.
bool Unit_reader::Place_units(Product const& product, Units& unit) {
    std::array<Factor const*, Dimension_limit> by_dimension{};
    std::size_t count = 0;
    for (Factor const& factor : product) {
        Dimension const dimension = Unit_words::Get().Dimension_of(factor.unit);
        Factor const*& place = by_dimension[static_cast<std::size_t>(dimension)];
        if (place != nullptr) {
            return Refuse(factor.position, Quoted(Symbol(place->unit)) + " and " +
                                               Quoted(Symbol(factor.unit)) +
                                               " are of one dimension, of which a unit holds one");
        }
        if (factor.power < std::numeric_limits<std::int32_t>::min() ||
            factor.power > std::numeric_limits<std::int32_t>::max()) {
            return Refuse(factor.position, "the power is out of range");
        }
        if (++count > Tuple_count) {
            return Refuse(factor.position, "a unit has at most five units with their powers");
        }
        place = &factor;
    }
    std::size_t slot = 0;
    for (Factor const* const factor : by_dimension) {
        if (factor != nullptr) {
            unit.tuples[slot++] = {factor->unit, static_cast<std::int32_t>(factor->power)};
        }
    }
    return true;
}

bool Unit_reader::Finish(Product const& product, Units& unit) {
    if (std::optional<Factor> const& factor = product.Cancelling()) {
        return Refuse(factor->position,
                      Quoted(Symbol(factor->unit)) + " stands above and below, and would cancel");
    }
    if (!Place_units(product, unit)) {
        return false;
    }
    std::optional<SI_units> const prefix = product.Prefix();
    if (!prefix) {
        return Refuse(product.Prefix_position(), "the prefixes make " + product.Scale_text() +
                                                     " together, for which there is no prefix");
    }
    unit.si_prefix = *prefix;
    return true;
}

} // namespace

Parse_result<Units> Read_unit(std::string_view text, std::size_t position) {
    return Unit_reader(text, position).Read();
}

} // namespace Varnix::Value
