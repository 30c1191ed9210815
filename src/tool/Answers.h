// Quantities as they are typed and as they are answered: measurements, or, by the rules of the
// library, value objects.

#ifndef VARNIX_VALUE_TOOL_ANSWERS_H
#define VARNIX_VALUE_TOOL_ANSWERS_H

#include "Commands.h"
#include "Core_rules.h"

#include <varnix/value/Measurement_text.h>

#include <string>
#include <string_view>
#include <variant>

namespace Varnix::Value::Tool {

// A measurement, and whether it was typed with bounds or comes of one that was.
struct Answer {
    std::variant<Measurement, Quantity> result;
    bool has_bounds;
};

// Reads quantities by the rules of the options, many of them in a time that is hardly more than that
// of their numbers.
class Answer_reader {
  public:
    explicit Answer_reader(Options const& options_) : options(options_), reader(options_.dialect) {}

    // The quantity that `text` is. @throws Refusal with an excerpt
    Answer Read(std::string_view text);

  private:
    Answer Read_measured(std::string_view text);

    Options const& options;
    Measurement_reader reader;
};

// The same for one alone.
Answer Read_answer(std::string_view text, Options const& options);

// Instruments say infinity and "no number" with numbers of their own (`Scpi_meaning`).
// @throws Refusal of `text` for these
void Check_instruments_number(double number, std::string_view text);

// As it is printed. Without a format of the user's own, bounds that were not typed are not shown,
// and others with four digits of half their distance, outward.
std::string Text_of(Answer const& answer, Options const& options);

// Its unit alone; empty where there is none.
std::string Unit_text(Answer const& answer, Unit_string_type spelling);

// A refusal with the tool's own way out where the library names a function.
Refusal As_the_tool_says(MeasurementRefused const& refused);

// Runs `action`; what measurements refuse becomes a Refusal.
template <typename Action>
auto Telling_refusals(Action const& action) {
    try {
        return action();
    } catch (MeasurementRefused const& refused) {
        throw As_the_tool_says(refused);
    }
}

} // namespace Varnix::Value::Tool

#endif
