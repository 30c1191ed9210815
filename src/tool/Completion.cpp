#include "Completion.h"

#include "Command_line.h"
#include "Written_results.h"
#include "catalogue/Unit_rows.h"

#include <varnix/value/Measurement_text.h>
#include <varnix/value/Unit_kinds.h>
#include <varnix/value/Units_library.h>

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

namespace Varnix::Value::Tool {

namespace {

struct Candidate {
    std::string text;
    std::string meaning;
};

using Candidates = std::vector<Candidate>;
using Words = std::vector<std::string>;

bool Starts_with(std::string_view text, std::string_view start) {
    return text.substr(0, start.size()) == start;
}

// ---- Units

using Catalogue::Prefixes_taken;
using Prefixes_as_written = std::vector<std::pair<SI_units, std::string>>;

// The prefixes as they stand before a unit. To have each unit with each prefix written by `Format_unit`
// takes ten times as long as to put them together.
Prefixes_as_written Texts_of(std::vector<SI_units> const& prefixes, Unit_string_type spelling) {
    Prefixes_as_written texts;
    std::size_t const size_of_unit = Format_unit(C_Meter, spelling).size();
    for (SI_units const prefix : prefixes) {
        Units const unit = {SPL_NONE, prefix, {{METER, 1}}};
        std::string text = Format_unit(unit, spelling);
        text.resize(text.size() - size_of_unit);
        texts.emplace_back(prefix, text);
    }
    return texts;
}

// The units of a kind, or all of them, that begin with `start`: symbols first; with prefixes and by
// name only once something has been typed, since they are many.
class Unit_candidates {
  public:
    Unit_candidates(std::string_view start_, std::optional<Units> const& kind_)
        : start(start_), kind(kind_) {}

    Candidates Find() {
        for (Units const& unit : units) {
            Offer(unit);
        }
        for (Named_unit const& named : Named_units()) {
            Offer(named.unit);
        }
        if (!start.empty()) {
            Offer_with_prefixes();
        }
        return found;
    }

  private:
    void Offer_with_prefixes() {
        for (Unit_string_type const spelling : {STR_SYMBOL, STR_NAME}) {
            auto const usual = Texts_of(Prefixes(), spelling);
            auto const all = Texts_of(All_prefixes(), spelling);
            for (Units const& unit : units) {
                if (!kind || Same_kind(unit, *kind)) {
                    std::string const text = Format_unit(unit, spelling);
                    Offer_text_and_ascii(unit, text);
                    Offer_with_prefixes(unit, text, Takes_all(unit) ? all : usual);
                }
            }
        }
    }

    static bool Takes_all(Units const& unit) {
        auto const taken = Catalogue::Row_of(unit.tuples[0].unit).prefixes;
        return taken == Prefixes_taken::any || taken == Prefixes_taken::chosen;
    }

    // Binary prefixes count bits and bytes.
    void Offer_with_prefixes(Units unit, std::string const& text,
                             Prefixes_as_written const& prefixes) {
        if (Catalogue::Row_of(unit.tuples[0].unit).prefixes == Prefixes_taken::none) {
            return;
        }
        for (auto const& [prefix, prefix_text] : prefixes) {
            unit.si_prefix = prefix;
            if (Units_library::Get_unit_base(unit) == 10.0 || Same_kind(unit, C_Bytes)) {
                Offer_text_and_ascii(unit, prefix_text + text);
            }
        }
    }

    void Offer(Units const& unit) { Offer_text_and_ascii(unit, Format_unit(unit)); }

    // As it is printed, and, once something has been typed, as keyboards without ° and µ have it.
    void Offer_text_and_ascii(Units const& unit, std::string const& text) {
        Offer_text(unit, text);
        if (!start.empty()) {
            Offer_text(unit, In_ascii(text));
        }
    }

    // What is offered can be read, and is the unit that it is offered for.
    void Offer_text(Units const& unit, std::string const& text) {
        if (!Starts_with(text, start) || (kind && !Same_kind(unit, *kind))) {
            return;
        }
        bool const known = std::any_of(found.begin(), found.end(),
                                       [&](Candidate const& other) { return other.text == text; });
        if (!known && Reads_back(text, unit)) {
            found.push_back({text, Kind_name(unit)});
        }
    }

    static std::string In_ascii(std::string text) {
        for (auto const& [sign, letters] : {std::pair("°", "deg"), std::pair("µ", "u")}) {
            std::size_t const place = text.find(sign);
            if (place != std::string::npos) {
                text.replace(place, std::string_view(sign).size(), letters);
            }
        }
        return text;
    }

    // Brackets and blanks would have to be quoted, and are no help to somebody who types.
    static bool Reads_back(std::string const& text, Units const& unit) {
        auto const read = Try_parse_unit(text);
        return read && *read == unit && text.find_first_of("( ") == text.npos;
    }

    std::vector<Units> const units = All_units();
    std::string_view start;
    std::optional<Units> kind;
    Candidates found;
};

Candidates Kinds_starting_with(std::string_view start) {
    Candidates kinds;
    auto const offer = [&](Units const& unit) {
        std::string const kind = Kind_name(unit);
        bool const known = std::any_of(kinds.begin(), kinds.end(),
                                       [&](Candidate const& other) { return other.text == kind; });
        if (!known && Starts_with(kind, start)) {
            kinds.push_back({kind, Format_unit(unit)});
        }
    };
    for (Named_unit const& named : Named_units()) {
        offer(named.unit);
    }
    for (Units const& unit : All_units()) {
        offer(unit);
    }
    return kinds;
}

// ---- The command line so far

std::optional<Units> Unit_of(std::string_view text) {
    auto const unit = Try_parse_unit(text);
    return unit ? std::optional(*unit) : std::nullopt;
}

// The unit that what is converted has: that of --from, or of the first quantity.
std::optional<Units> Source_unit(Words const& words) {
    auto const from = std::find(words.begin(), words.end(), "--from");
    if (from != words.end() && std::next(from) != words.end()) {
        return Unit_of(*std::next(from));
    }
    for (std::string const& word : words) {
        if (auto const quantity = Try_parse_measurement(word)) {
            return quantity->Get_unit();
        }
    }
    return std::nullopt;
}

bool Holds(Words const& words, std::string_view word) {
    return std::find(words.begin(), words.end(), word) != words.end();
}

// ---- What may stand where

Candidates Commands_starting_with(CLI::App const& tool, std::string_view start) {
    Candidates commands;
    for (CLI::App const* const command : tool.get_subcommands([](auto*) { return true; })) {
        if (Starts_with(command->get_name(), start)) {
            commands.push_back({command->get_name(), command->get_description()});
        }
    }
    return commands;
}

Candidates Options_starting_with(CLI::App const& command, std::string_view start) {
    Candidates options;
    for (CLI::Option const* const option : command.get_options()) {
        for (std::string const& name : option->get_lnames()) {
            if (Starts_with("--" + name, start)) {
                options.push_back({"--" + name, option->get_description()});
            }
        }
    }
    return options;
}

// The option that `word` is, if it takes a value.
CLI::Option const* Option_with_value(CLI::App const& command, std::string const& word) {
    CLI::Option const* const option =
        Starts_with(word, "--") ? command.get_option_no_throw(word) : nullptr;
    return option != nullptr && option->get_items_expected_max() > 0 ? option : nullptr;
}

// "NAME=FROM:TO": the unit behind the last sign; both of one kind.
// That which is followed by a colon has it already.
Candidates Column_candidates(std::string const& word) {
    std::size_t const equals = word.rfind('=');
    if (equals == std::string::npos) {
        return {};
    }
    std::size_t const colon = word.find(':', equals);
    bool const has_from = colon != std::string::npos;
    std::size_t const start = (has_from ? colon : equals) + 1;
    auto const from = has_from
                          ? Unit_of(std::string_view(word).substr(equals + 1, colon - equals - 1))
                          : std::nullopt;
    Candidates units = Unit_candidates(std::string_view(word).substr(start), from).Find();
    for (Candidate& unit : units) {
        unit.text.insert(0, word, 0, start);
        unit.text += has_from ? "" : ":";
    }
    return units;
}

Candidates Format_candidates(std::string_view start) {
    Candidates formats;
    for (Candidate const& format : {
             Candidate{".3", "three significant digits"},
             Candidate{".3f", "three decimals"},
             Candidate{"b", "digits set by the bounds"},
             Candidate{"p", "bounds as ±"},
             Candidate{".3~", "three significant digits, no bounds"},
             Candidate{"k", "a prefix that suits"},
             Candidate{"bpk", "digits set by the bounds, ±, a prefix that suits"},
         }) {
        if (Starts_with(format.text, start)) {
            formats.push_back(format);
        }
    }
    return formats;
}

Candidates Value_candidates(CLI::Option const& option, Words const& before,
                            std::string const& start) {
    std::string const takes = option.get_type_name();
    if (takes == Unit_value) {
        bool const is_target = option.check_lname("to");
        return Unit_candidates(start, is_target ? Source_unit(before) : std::nullopt).Find();
    }
    if (takes == Column_value) {
        return Column_candidates(start);
    }
    if (takes == Kind_value) {
        return Kinds_starting_with(start);
    }
    if (takes == Format_value) {
        return Format_candidates(start);
    }
    return {};
}

// "--from=f": option and value in one word.
Candidates Joined_value_candidates(CLI::App const& command, Words const& before,
                                   std::string const& word) {
    std::size_t const value = word.find('=') + 1;
    CLI::Option const* const option = Option_with_value(command, word.substr(0, value - 1));
    if (option == nullptr) {
        return {};
    }
    Candidates candidates = Value_candidates(*option, before, word.substr(value));
    for (Candidate& candidate : candidates) {
        candidate.text.insert(0, word, 0, value);
    }
    return candidates;
}

// The unit to convert to, behind at least one quantity; nothing where files are read.
Candidates Argument_candidates(CLI::App const& command, Words const& before,
                               std::string_view start) {
    bool const takes_unit = command.get_name() == "convert" && !Holds(before, "--csv") &&
                            !Holds(before, "--from") && !Holds(before, "--to");
    auto const source = Source_unit(before);
    return takes_unit && source ? Unit_candidates(start, source).Find() : Candidates{};
}

Candidates Find_candidates(CLI::App const& tool, Words before, std::string const& word) {
    if (before.empty()) {
        return Starts_with(word, "-") ? Options_starting_with(tool, word)
                                      : Commands_starting_with(tool, word);
    }
    auto const commands = tool.get_subcommands(
        [&](CLI::App const* command) { return command->get_name() == before.front(); });
    if (commands.empty()) {
        return {};
    }
    CLI::App const* const command = commands.front();
    before.erase(before.begin());
    CLI::Option const* const option =
        before.empty() ? nullptr : Option_with_value(*command, before.back());
    if (option != nullptr) {
        return Value_candidates(*option, before, word);
    }
    if (Starts_with(word, "--") && word.find('=') != std::string::npos) {
        return Joined_value_candidates(*command, before, word);
    }
    return Starts_with(word, "-") ? Options_starting_with(*command, word)
                                  : Argument_candidates(*command, before, word);
}

} // namespace

Exit_status Write_completions(CLI::App const& tool, std::vector<std::string> const& words,
                              Output& output) {
    if (words.empty()) {
        return exit_done;
    }
    for (Candidate const& candidate :
         Find_candidates(tool, {words.begin(), std::prev(words.end())}, words.back())) {
        output.Append(candidate.text + '\t' + candidate.meaning + '\n');
    }
    return exit_done;
}

} // namespace Varnix::Value::Tool
