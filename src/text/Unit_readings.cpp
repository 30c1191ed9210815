#include "Unit_readings.h"

#include "Characters.h"

#include <varnix/value/Units_library.h>

#include <algorithm>

namespace Varnix::Value {

namespace {

using Kind = Character_kind;

bool Is_letter(std::string_view text, std::size_t position) {
    return Character_at(text, position).kind == Kind::letter;
}

} // namespace

// ---- Powers

namespace {

// An integer that is read character by character. Digits beyond its range make it stay there.
class Integer {
  public:
    bool Has_digits() const { return digits; }
    bool Is_in_range() const { return magnitude != 0 && magnitude <= Largest_power; }
    std::int64_t Value() const { return negative ? -magnitude : magnitude; }
    void Negate() { negative = true; }
    void Append(int digit) {
        digits = true;
        magnitude = std::min(magnitude * 10 + digit, Largest_power + 1);
    }

  private:
    std::int64_t magnitude = 0;
    bool negative = false;
    bool digits = false;
};

Integer Read_raised(std::string_view text, std::size_t& position) {
    Integer integer;
    for (bool first = true;; first = false) {
        Character const character = Character_at(text, position);
        bool const is_sign = character.value == '-' || character.value == '+';
        if (character.kind != Kind::raised || (is_sign && !first)) {
            return integer;
        }
        if (character.value == '-') {
            integer.Negate();
        } else if (!is_sign) {
            integer.Append(character.value);
        }
        position += character.size;
    }
}

void Skip_sign(std::string_view text, std::size_t& position, Integer& integer) {
    if (std::size_t const minus = Minus_size(text, position)) {
        integer.Negate();
        position += minus;
    } else if (Character_at(text, position).kind == Kind::plus) {
        ++position;
    }
}

Integer Read_integer(std::string_view text, std::size_t& position) {
    Integer integer;
    Skip_sign(text, position, integer);
    while (Character_at(text, position).kind == Kind::digit) {
        integer.Append(text[position] - '0');
        ++position;
    }
    return integer;
}

// The integer behind a power sign, in parentheses or not; `position` is where reading stopped.
Integer Read_exponent(std::string_view text, std::size_t& position) {
    bool const in_parentheses = Character_at(text, position).kind == Kind::opening;
    position += in_parentheses ? 1 : 0;
    Integer const integer = Read_integer(text, position);
    bool const closed = Character_at(text, position).kind == Kind::closing;
    if (in_parentheses && !closed) {
        return Integer();
    }
    position += in_parentheses ? 1 : 0;
    return integer;
}

// How many bytes the sign of a power takes at `position`; 0 if there is none.
std::size_t Power_sign_size(std::string_view text, std::size_t position) {
    Kind const kind = Character_at(text, position).kind;
    return kind == Kind::caret                                                         ? 1
           : kind == Kind::star && Character_at(text, position + 1).kind == Kind::star ? 2
                                                                                       : 0;
}

// What stands where a power is expected, right or wrong.
struct Written_power {
    Integer integer;
    std::size_t end; // the position behind it
};

// What begins as a power at `position`; nothing if nothing does.
std::optional<Written_power> Read_written_power(std::string_view text, std::size_t position) {
    std::size_t const sign = Power_sign_size(text, position);
    if (sign == 0 && Character_at(text, position).kind != Kind::raised) {
        return std::nullopt;
    }
    std::size_t end = position + sign;
    Integer const integer = sign == 0 ? Read_raised(text, end) : Read_exponent(text, end);
    return Written_power{integer, end};
}

} // namespace

std::optional<Power> Read_power(std::string_view text, std::size_t position) {
    std::optional<Written_power> const power = Read_written_power(text, position);
    return power && power->integer.Is_in_range()
               ? std::optional(Power{power->integer.Value(), power->end})
               : std::nullopt;
}

std::optional<Text_fault> Power_fault(std::string_view text, std::size_t position) {
    std::optional<Written_power> const power = Read_written_power(text, position);
    if (!power) {
        return std::nullopt;
    }
    auto const [integer, end] = *power;
    bool const fraction = Character_at(text, end).kind == Kind::product &&
                          Character_at(text, end + 1).kind == Kind::digit;
    if (!integer.Has_digits() || fraction) {
        return Text_fault{end, "expected an integer power, found " + Described(text, end), {}};
    }
    return Text_fault{position,
                      integer.Value() == 0 ? "a power of zero leaves no unit"
                                           : "the power is out of range",
                      {}};
}

// ---- One unit, with or without a prefix

namespace {

Unit_words const& Words() {
    return Unit_words::Get();
}

// The word from `position` to `end` as a single unit, with its power, if the group ends with that.
bool Read_one(std::string_view text, std::size_t position, std::size_t end, Word_form form,
              Reading& reading) {
    Unit_word const* const word = Words().Find_unit(text.substr(position, end - position));
    if (word == nullptr || Common(form, word->form) == no_form) {
        return false;
    }
    std::optional<Power> const power = Read_power(text, end);
    if (power && Is_letter(text, power->end)) {
        return false;
    }
    reading.has_power = power.has_value();
    reading.end = power ? power->end : end;
    for (Unit_tuple const& tuple : word->unit.tuples) {
        if (tuple.unit == NO_UNIT) {
            break;
        }
        std::int64_t const value = power ? power->value : 1;
        reading.units[reading.count++] = {tuple.unit, tuple.exponent * value};
    }
    return true;
}

bool Read_prefix_and_one(std::string_view text, std::size_t position, std::size_t end,
                         Reading& reading) {
    std::string_view const rest = text.substr(position);
    for (Prefix_word const& word : Words().Prefixes_like(rest)) {
        if (Begins_with(rest, word.text) && position + word.text.size() < end &&
            Read_one(text, position + word.text.size(), end, word.form, reading)) {
            reading.prefix = word.prefix;
            return true; // a test sees that no word has two
        }
    }
    return false;
}

} // namespace

// ---- Several units

namespace {

bool operator==(Reading const& left, Reading const& right) {
    auto const equal = [](Powered_unit const& one, Powered_unit const& other) {
        return one.unit == other.unit && one.power == other.power;
    };
    return left.prefix == right.prefix && left.count == right.count &&
           std::is_permutation(left.units, left.units + left.count, right.units, equal);
}

// The order in which the units of a group have to stand.
enum class Order : std::uint8_t { of_the_core, any };

// Looks for every way to read a group as two or more units of different dimensions. At each place
// few words fit, and there are five units at most: the search is short however long the text.
class Search {
  public:
    Search(std::string_view text_, Order order_) : text(text_), order(order_) {}

    void From(std::size_t position, SI_units prefix, Word_form form) {
        current.prefix = prefix;
        Continue(position, form, NO_DIMENSION, 0);
    }

    std::size_t Count() const { return count; } // 2 for two or more
    Reading const& First() const { return found[0]; }
    Reading const& Second() const { return found[1]; }

  private:
    void Continue(std::size_t position, Word_form form, Dimension last, std::uint32_t dimensions) {
        std::string_view const rest = text.substr(position);
        for (Unit_word const& word : Words().Units_like(rest)) {
            if (!word.run_together || !Begins_with(rest, word.text) ||
                Common(form, word.form) == no_form ||
                (order == Order::of_the_core && word.dimension <= last)) {
                continue;
            }
            std::uint32_t const own = 1U << static_cast<std::uint32_t>(word.dimension);
            if ((dimensions & own) != 0) {
                continue;
            }
            Append(word, position + word.text.size(), Common(form, word.form), dimensions | own);
        }
    }

    void Append(Unit_word const& word, std::size_t end, Word_form form, std::uint32_t dimensions) {
        std::optional<Power> const power = Read_power(text, end);
        Reading const before = current;
        current.units[current.count++] = {word.unit.tuples[0].unit, power ? power->value : 1};
        current.has_power = current.has_power || power;
        current.end = power ? power->end : end;
        if (!Is_letter(text, current.end)) {
            Record();
        } else if (current.count < Tuple_count) {
            Continue(current.end, form, word.dimension, dimensions);
        }
        current = before;
    }

    void Record() {
        if (current.count < 2 || (count != 0 && current.end < found[0].end)) {
            return;
        }
        if (count == 0 || current.end > found[0].end) {
            found[0] = current;
            count = 1;
        } else if (!(current == found[0])) {
            found[1] = current;
            count = 2;
        }
    }

    std::string_view text;
    Order order;
    Reading current;
    Reading found[2];
    std::size_t count = 0;
};

Word_form constexpr any_form = static_cast<Word_form>(symbol_form | name_form);

void Search_with_prefixes(Search& search, std::string_view text, std::size_t position) {
    std::string_view const rest = text.substr(position);
    for (Prefix_word const& word : Words().Prefixes_like(rest)) {
        if (Begins_with(rest, word.text)) {
            search.From(position + word.text.size(), word.prefix, word.form);
        }
    }
}

} // namespace

// ---- What is refused although it can be read

namespace {

// The reading in a form that has no other: "milli(K*s)".
std::string Written(Reading const& reading) {
    std::string text;
    for (std::size_t k = 0; k < reading.count; ++k) {
        Units const unit = {SPL_NONE, NO_PREFIX, {{reading.units[k].unit, 1}}};
        std::int64_t const power = reading.units[k].power;
        text += (k == 0 ? "" : "*") + Units_library::Get_unit_string(unit, STR_SYMBOL);
        text += power == 1 ? "" : '^' + std::to_string(power);
    }
    Units const prefix = {SPL_NONE, reading.prefix, {}};
    return reading.prefix == NO_PREFIX
               ? text
               : Units_library::Get_unit_str_si_map(prefix, STR_NAME) + '(' + text + ')';
}

Text_fault Ambiguous(std::string_view text, std::size_t position, std::string const& first,
                     std::string const& second) {
    std::string_view const word = text.substr(position, End_of_letters(text, position) - position);
    return {position, Quoted(word) + " is ambiguous: write " + first + " or " + second, {}};
}

// What people write for something else than the readings say.
struct Trap {
    char const* text;
    char const* reading;
    char const* meant;
};

// clang-format off
constexpr Trap traps[] = {
    {"nmi",  "nano(mi)", "n.mi"}, // nautical miles
    {"gm",   "g*m",      "g"},
    {"gms",  "g*m*s",    "g"},
    {"degK", "deg*K",    "K"},
};
// clang-format on

std::optional<Text_fault> Trap_fault(std::string_view text, std::size_t position, std::size_t end) {
    for (Trap const& trap : traps) {
        if (text.substr(position, end - position) == trap.text) {
            return Ambiguous(text, position, trap.reading, trap.meant);
        }
    }
    return std::nullopt;
}

// "kms", "kohms", "MBs", "kmh", "mins": a plural or a speed, more often than a product. Of volts,
// amperes, watts and kelvin it is the product: "Ws" is a watt for a second.
bool Looks_like_plural_or_speed(Reading const& reading) {
    if (reading.count != 2 || reading.has_power) {
        return false;
    }
    Dimension const first = Words().Dimension_of(reading.units[0].unit);
    if (first == LENGTH) {
        return Words().Dimension_of(reading.units[1].unit) == TIME;
    }
    bool const has_plural =
        first == MASS || first == DATA_SIZE || first == DIMENSIONLESS || first == RESISTANCE;
    return has_plural && reading.units[1].unit == SECOND;
}

std::optional<Text_fault> Decibel_fault(std::string_view text, std::size_t position) {
    std::string_view const start = text.substr(position, 2);
    if (start == "dB") {
        return Text_fault{position, "'dB' stands first; a tenth of a byte is deci(B)", {}};
    }
    if (start == "db") {
        return Text_fault{position, "decibels are written 'dB', and a tenth of a bit deci(b)",
                          "dB"};
    }
    return std::nullopt;
}

} // namespace

// ---- The group

namespace {

// The one symbol with a point in it, "n.mi", with a prefix or without; `end` is that of the letters
// before the point.
bool Read_nautical_miles(std::string_view text, std::size_t position, std::size_t end,
                         Reading& reading) {
    if (text[end - 1] != 'n' || !Begins_with(text.substr(end), ".mi")) {
        return false;
    }
    std::size_t const later_end = End_of_letters(text, end + 1);
    return Read_one(text, position, later_end, any_form, reading) ||
           Read_prefix_and_one(text, position, later_end, reading);
}

// In "V/ms" the m is milli or metre; in "km/ms" it can only be milli.
bool Is_also_a_product(std::string_view text, Group_place const& place, Reading const& reading,
                       std::optional<Text_fault>& fault) {
    if (!place.below) {
        return false;
    }
    Search search(text, Order::of_the_core);
    search.From(place.position, NO_PREFIX, any_form);
    if (search.Count() == 0) {
        return false;
    }
    Units_list const last = search.First().units[search.First().count - 1].unit;
    if (place.length_above && Words().Dimension_of(last) == TIME) {
        return false;
    }
    fault = Ambiguous(text, place.position, Written(reading), '(' + Written(search.First()) + ')');
    return true;
}

bool Read_several(std::string_view text, Group_place const& place, Reading& reading,
                  std::optional<Text_fault>& fault) {
    Search search(text, Order::of_the_core);
    search.From(place.position, NO_PREFIX, any_form);
    Search_with_prefixes(search, text, place.position);
    if (search.Count() == 2) {
        fault = Ambiguous(text, place.position, Written(search.First()), Written(search.Second()));
    }
    if (search.Count() != 1) {
        return false;
    }
    reading = search.First();
    if (Looks_like_plural_or_speed(reading) && !place.below) {
        std::string_view const word = text.substr(place.position, reading.end - place.position);
        fault = Text_fault{place.position,
                           Quoted(word) + " looks like a plural or a speed: write " +
                               Written(reading) + " for the product",
                           {}};
    }
    return !fault;
}

// Hours and kelvin first look like the prefixes hecto and kilo.
bool Read_several_in_any_order(std::string_view text, Group_place const& place, Reading& reading) {
    char const first = text[place.position];
    if (!place.below || first == 'h' || first == 'K') {
        return false;
    }
    Search search(text, Order::any);
    search.From(place.position, NO_PREFIX, any_form);
    if (search.Count() != 1) {
        return false;
    }
    reading = search.First();
    return true;
}

bool Read_letters(std::string_view text, Group_place const& place, Reading& reading,
                  std::optional<Text_fault>& fault) {
    std::size_t const end = End_of_letters(text, place.position);
    if (Read_nautical_miles(text, place.position, end, reading) ||
        Read_one(text, place.position, end, any_form, reading)) {
        return true;
    }
    if (Read_prefix_and_one(text, place.position, end, reading)) {
        return !Is_also_a_product(text, place, reading, fault);
    }
    return Read_several(text, place, reading, fault) ||
           (!fault && Read_several_in_any_order(text, place, reading));
}

} // namespace

bool Read_group(std::string_view text, Group_place const& place, Reading& reading,
                std::optional<Text_fault>& fault) {
    if (text[place.position] == 'd') {
        fault = Decibel_fault(text, place.position);
    }
    if (fault || !Read_letters(text, place, reading, fault)) {
        return false;
    }
    if (reading.prefix != NO_PREFIX || reading.count > 1) {
        fault = Trap_fault(text, place.position, reading.end);
    }
    return !fault;
}

bool Can_be_suggested(std::string const& word) {
    Reading reading;
    std::optional<Text_fault> fault;
    return word == "dB" || (Read_group(word, {0, false, false}, reading, fault) && !fault);
}

std::optional<Bare_prefix> Read_bare_prefix(std::string_view text, std::size_t position,
                                            char next) {
    std::string_view const rest = text.substr(position);
    for (Prefix_word const& word : Words().Prefixes_like(rest)) {
        std::size_t const end = position + word.text.size();
        if (Begins_with(rest, word.text) && end < text.size() && text[end] == next) {
            return Bare_prefix{word.prefix, end};
        }
    }
    return std::nullopt;
}

} // namespace Varnix::Value
