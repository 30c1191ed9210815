#include "Unit_readings.h"

#include "Characters.h"
#include "Powers.h"
#include "Unit_traps.h"

#include <algorithm>

namespace Varnix::Value {

namespace {

Word_form constexpr any_form = static_cast<Word_form>(symbol_form | name_form);

Unit_words const& Words() {
    return Unit_words::Get();
}

bool Is_letter(std::string_view text, std::size_t position) {
    return Character_at(text, position).kind == Character_kind::letter;
}

} // namespace

// ---- One unit, with or without a prefix

namespace {

// The word that ends at `end`, with the power behind it, as the reading; false if the group does not end there.
bool Take(Unit_word const& word, std::string_view text, std::size_t end, Reading& reading) {
    std::optional<Power> const power = Read_power(text, end);
    if (power && Is_letter(text, power->end)) {
        return false;
    }
    bool const raises_all = word.power_raises == Power_raises::all;
    std::int64_t const value = power ? power->value : 1;
    reading.prefix = word.unit.si_prefix;
    reading.first_power = raises_all ? value : 1;
    reading.end = power ? power->end : end;
    for (Unit_tuple const& tuple : word.unit.tuples) {
        if (tuple.unit == NO_UNIT) {
            break;
        }
        reading.units[reading.count++] = {tuple.unit, tuple.exponent * reading.first_power};
    }
    if (!raises_all) {
        reading.units[reading.count - 1].power *= value;
    }
    return true;
}

// The word from `position` to `end` as a single unit, with its power, if the group ends with that.
bool Read_one(std::string_view text, std::size_t position, std::size_t end, Reading& reading) {
    Unit_word const* const word = Words().Find_unit(text.substr(position, end - position));
    return word != nullptr && Take(*word, text, end, reading);
}

bool Read_prefix_and_one(std::string_view text, std::size_t position, std::size_t end,
                         Reading& reading) {
    std::string_view const rest = text.substr(position);
    for (Prefix_word const& prefix : Words().Prefixes_like(rest)) {
        std::size_t const start = position + prefix.text.size();
        if (start >= end || !Begins_with(rest, prefix.text)) {
            continue;
        }
        Unit_word const* const word = Words().Find_unit(text.substr(start, end - start));
        if (word != nullptr && Goes_with(prefix, *word) && Take(*word, text, end, reading)) {
            reading.prefix = prefix.prefix;
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

constexpr int no_dimension = -1;

// Looks for every way to read a group as two or more units of different dimensions of the core. At each place
// few words fit, and there are five units at most: the search is short however long the text.
class Search {
  public:
    Search(std::string_view text_, Order order_) : text(text_), order(order_) {}

    void From(std::size_t position, SI_units prefix, Word_form form) {
        current.prefix = prefix;
        Continue(position, form, no_dimension, 0);
    }

    std::size_t Count() const { return count; } // 2 for two or more
    Reading const& First() const { return found[0]; }
    Reading const& Second() const { return found[1]; }

  private:
    void Continue(std::size_t position, Word_form form, int last, std::uint64_t dimensions) {
        std::string_view const rest = text.substr(position);
        for (Unit_word const& word : Words().Units_like(rest)) {
            if (!word.run_together || !Begins_with(rest, word.text) ||
                Common(form, word.form) == no_form) {
                continue;
            }
            int const dimension = Catalogue::Dimension_of(word.unit.tuples[0].unit);
            std::uint64_t const own = std::uint64_t{1} << static_cast<unsigned>(dimension);
            if ((dimensions & own) != 0 || (order == Order::of_the_core && dimension <= last)) {
                continue;
            }
            Append(word, position + word.text.size(), Common(form, word.form), dimension,
                   dimensions | own);
        }
    }

    void Append(Unit_word const& word, std::size_t end, Word_form form, int dimension,
                std::uint64_t dimensions) {
        std::optional<Power> const power = Read_power(text, end);
        Reading const before = current;
        current.first_power = current.count == 0 && power ? power->value : current.first_power;
        current.units[current.count++] = {word.unit.tuples[0].unit, power ? power->value : 1};
        current.end = power ? power->end : end;
        if (!Is_letter(text, current.end)) {
            Record();
        } else if (current.count < Value_detail::Tuple_count) {
            Continue(current.end, form, dimension, dimensions);
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

void Search_with_prefixes(Search& search, std::string_view text, std::size_t position) {
    std::string_view const rest = text.substr(position);
    for (Prefix_word const& word : Words().Prefixes_like(rest)) {
        if (word.is_of_core && Begins_with(rest, word.text)) {
            search.From(position + word.text.size(), word.prefix, word.form);
        }
    }
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
    return Read_one(text, position, later_end, reading) ||
           Read_prefix_and_one(text, position, later_end, reading);
}

// Below a '/' "mK" may be metre times kelvin; "ms" cannot, since nobody multiplies those there.
std::optional<Text_fault> Product_fault(std::string_view text, Group_place const& place,
                                        Reading const& reading) {
    if (!place.below) {
        return std::nullopt;
    }
    Search search(text, Order::of_the_core);
    search.From(place.position, NO_PREFIX, any_form);
    if (search.Count() == 0 || Is_time(search.First().units[search.First().count - 1].unit)) {
        return std::nullopt;
    }
    return Ambiguous(text, place.position, Written(reading), '(' + Written(search.First()) + ')');
}

// Hours and kelvin first look like the prefixes hecto and kilo.
bool Begins_like_prefix(char first) {
    return first == 'h' || first == 'K';
}

// Each of these stores what it finds in `reading`, which has no units where there is nothing to
// find, and returns why that has to be refused.
std::optional<Text_fault> Read_several(std::string_view text, Group_place const& place,
                                       Reading& reading) {
    Search search(text, Order::of_the_core);
    search.From(place.position, NO_PREFIX, any_form);
    Search_with_prefixes(search, text, place.position);
    if (search.Count() == 2) {
        return Ambiguous(text, place.position, Written(search.First()), Written(search.Second()));
    }
    if (search.Count() == 0) {
        return std::nullopt;
    }
    // "Ks" is a kelvin for a second. Units of dimensions that stand behind time would follow, too.
    if (Begins_like_prefix(text[place.position]) && !Is_time(search.First().units[1].unit)) {
        return std::nullopt;
    }
    reading = search.First();
    return place.below ? std::nullopt : Plural_fault(text, place.position, reading);
}

void Read_several_in_any_order(std::string_view text, Group_place const& place, Reading& reading) {
    if (!place.below || Begins_like_prefix(text[place.position])) {
        return;
    }
    Search search(text, Order::any);
    search.From(place.position, NO_PREFIX, any_form);
    if (search.Count() == 1) {
        reading = search.First();
    }
}

std::optional<Text_fault> Read_letters(std::string_view text, Group_place const& place,
                                       Reading& reading) {
    std::size_t const end = End_of_letters(text, place.position);
    if (Read_nautical_miles(text, place.position, end, reading) ||
        Read_one(text, place.position, end, reading)) {
        return std::nullopt;
    }
    if (Read_prefix_and_one(text, place.position, end, reading)) {
        std::optional<Text_fault> fault = Prefix_fault(text, place.position, reading);
        return fault ? fault : Product_fault(text, place, reading);
    }
    std::optional<Text_fault> fault = Read_several(text, place, reading);
    if (!fault && reading.count == 0) {
        Read_several_in_any_order(text, place, reading);
    }
    return fault;
}

bool Is_decibar(Reading const& reading) {
    return reading.count == 1 && reading.units[0].unit == BAR;
}

} // namespace

Parse_result<Reading> Read_group(std::string_view text, Group_place const& place) {
    Reading reading;
    std::optional<Text_fault> fault = Read_letters(text, place, reading);
    if (text[place.position] == 'd' && !Is_decibar(reading)) {
        if (std::optional<Text_fault> decibels = Decibel_fault(text, place.position)) {
            fault = std::move(decibels);
        }
    }
    if (reading.prefix != NO_PREFIX || reading.count > 1) {
        // The table knows better than a rule.
        if (std::optional<Text_fault> trap = Word_fault(text, place.position, reading.end)) {
            fault = std::move(trap);
        }
    }
    if (fault) {
        return std::move(*fault);
    }
    return reading;
}

namespace {

// The end of `word` at `position`, where blanks may stand for each '_'; 0 if it is not there.
std::size_t End_with_gaps(std::string_view text, std::size_t position, std::string_view word) {
    for (char const character : word) {
        std::size_t const behind = character == '_' ? Skip_blanks(text, position) : position;
        bool const is_next = position < text.size() && text[position] == character;
        if (behind == position && !is_next) {
            return 0;
        }
        position = behind != position ? behind : position + 1;
    }
    return Is_letter(text, position) ? 0 : position;
}

} // namespace

Reading Read_words_with_gaps(std::string_view text, std::size_t position) {
    Reading reading;
    std::string_view const rest = text.substr(position);
    for (Unit_word const& word : Words().Units_like(rest)) {
        std::size_t const end = word.has_gaps ? End_with_gaps(text, position, word.text) : 0;
        Reading longer;
        if (end > reading.end && Take(word, text, end, longer)) {
            reading = longer;
        }
    }
    return reading;
}

Reading Read_bracketed(std::string_view text, std::size_t position) {
    Reading reading;
    std::size_t const closing = text.find(']', position);
    if (closing != std::string_view::npos) {
        Read_one(text, position, closing + 1, reading);
    }
    return reading;
}

bool Is_temperature_scale(Reading const& reading) {
    Units_list const unit = reading.units[0].unit;
    return reading.count == 1 && (unit == DEGREE_C || unit == DEGREE_F);
}

bool Can_be_suggested(std::string const& word) {
    if (word == "dB") {
        return true;
    }
    if (word.empty()) {
        return false;
    }
    auto const reading = Read_group(word, {0, false});
    return reading && reading->count != 0 && reading->end == word.size() &&
           !(reading->prefix != NO_PREFIX && Is_temperature_scale(*reading));
}

std::optional<Bare_prefix> Read_bare_prefix(std::string_view text, std::size_t position,
                                            char next) {
    std::string_view const rest = text.substr(position);
    for (Prefix_word const& word : Words().Prefixes_like(rest)) {
        std::size_t const end = position + word.text.size();
        if (Begins_with(rest, word.text) && end < text.size() && text[end] == next) {
            return Bare_prefix{word.prefix, word.form, end};
        }
    }
    return std::nullopt;
}

} // namespace Varnix::Value
