#include "Suggestions.h"

#include "Unit_readings.h"
#include "Unit_words.h"

#include <varnix/value/Engineering_units.h>
#include <varnix/value/Unit_kinds.h>
#include <varnix/value/Units_library.h>

#include <algorithm>
#include <array>

namespace Varnix::Value {

namespace {

constexpr std::size_t Longest_word = 24; // no name with its prefix is much longer

// Costs in halves of a letter: another case costs one, every other change two.
constexpr int Change_cost = 2;
constexpr int Case_cost = 1;

char Lower(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

int Cost_of(char left, char right) {
    return left == right ? 0 : Lower(left) == Lower(right) ? Case_cost : Change_cost;
}

// What it costs to turn one word into the other, letter by letter.
int Distance(std::string_view from, std::string_view to) {
    std::array<int, Longest_word + 1> row{};
    for (std::size_t k = 0; k <= to.size(); ++k) {
        row[k] = static_cast<int>(k) * Change_cost;
    }
    for (char const letter : from) {
        int diagonal = row[0];
        row[0] += Change_cost;
        for (std::size_t k = 1; k <= to.size(); ++k) {
            int const replaced = diagonal + Cost_of(letter, to[k - 1]);
            diagonal = row[k];
            row[k] = std::min({replaced, row[k] + Change_cost, row[k - 1] + Change_cost});
        }
    }
    return row[to.size()];
}

bool Equal_but_for_case(std::string_view left, std::string_view right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char one, char other) { return Lower(one) == Lower(other); });
}

// The candidate that differs least. A slip of case keeps the word what it is; other letters make
// another unit of a short symbol, so that they are looked for in names only.
class Nearest {
  public:
    explicit Nearest(std::string_view word_) : word(word_) {
        int const changes = word.size() < 4 ? 0 : word.size() < 8 ? 1 : 2;
        lowest = 1 + std::max(changes * Change_cost, static_cast<int>(word.size()) * Case_cost);
        most_of_names = changes * Change_cost;
    }

    void Look_at(std::string const& candidate, Word_form form) {
        bool const same_letters = Equal_but_for_case(word, candidate);
        std::size_t const longer = std::max(candidate.size(), word.size());
        bool const near = (form & name_form) != 0 && candidate.size() <= Longest_word &&
                          longer - candidate.size() <= 2 && longer - word.size() <= 2;
        if (!same_letters && !near) {
            return;
        }
        int const distance = Distance(word, candidate);
        bool const fits = same_letters || distance <= most_of_names;
        if (fits && distance < lowest && Can_be_suggested(candidate)) {
            lowest = distance;
            nearest = candidate;
        }
    }

    std::string const& Result() const { return nearest; }

  private:
    std::string_view word;
    int lowest;
    int most_of_names;
    std::string nearest;
};

// The symbol of a named unit whose spelling in lower or upper case is `word`: "KMPH", "PCT".
std::string Unit_in_plain_case(std::string_view word) {
    for (Named_unit const& named : Named_units()) {
        for (Unit_string_type const type : {STR_LOWER_CASE, STR_UPPER_CASE}) {
            if (Units_library::Get_unit_string(named.unit, type) == word) {
                return Units_library::Get_unit_string(named.unit, STR_SYMBOL);
            }
        }
    }
    return std::string();
}

} // namespace

std::string Nearest_unit(std::string_view word) {
    if (word.size() > Longest_word) {
        return std::string();
    }
    std::string known = Unit_in_plain_case(word);
    if (!known.empty()) {
        return known;
    }
    Unit_words const& words = Unit_words::Get();
    Nearest nearest(word);
    for (Unit_word const& unit : words.All_units()) {
        nearest.Look_at(unit.text, unit.form);
    }
    for (Prefix_word const& prefix : words.All_prefixes()) {
        // The first letter is hardly ever wrong, and prefixes that nobody writes are hardly ever meant.
        bool const in_use = prefix.is_of_core || prefix.prefix == HECTO;
        if (!in_use || Lower(prefix.text[0]) != Lower(word[0])) {
            continue;
        }
        for (Unit_word const& unit : words.All_units()) {
            std::size_t const size = prefix.text.size() + unit.text.size();
            bool const near = size <= word.size() + 2 && word.size() <= size + 2;
            if (near && Goes_with(prefix, unit)) {
                nearest.Look_at(prefix.text + unit.text, Common(prefix.form, unit.form));
            }
        }
    }
    return nearest.Result();
}

} // namespace Varnix::Value
