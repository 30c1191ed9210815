// What the tool tells its user: the statuses it exits with, and its messages on standard error.

#ifndef VARNIX_VALUE_TOOL_REPORTS_H
#define VARNIX_VALUE_TOOL_REPORTS_H

#include <varnix/value/Text_parsing.h>

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

namespace Varnix::Value::Tool {

enum Exit_status : int {
    exit_done = 0,    // everything asked for was done
    exit_refused = 1, // an input was not understood, or must not be converted as asked
    exit_trouble = 2, // the command line is wrong, or a file cannot be read or written
};

// An input is refused; what() is the message, without the excerpt.
class Refusal : public std::runtime_error {
  public:
    explicit Refusal(std::string const& message) : std::runtime_error(message) {}

    // What is wrong with `text_`, at a byte of it.
    Refusal(std::string const& message, std::string_view text_, std::size_t position_)
        : std::runtime_error(message), text(text_), position(position_) {}

    // The reader's own words, with its suggestion.
    Refusal(Text_fault const& fault, std::string_view text_);

    // The same of a longer text, of which this one's begins at `first`.
    Refusal Within(std::string_view whole, std::size_t first) const;

    // The same with a place before the message.
    Refusal At(std::string const& place) const;

    // The line of `text` with a mark below the byte in question; empty without text.
    std::string Excerpt() const;

  private:
    std::string text;
    std::size_t position = 0;
};

// A byte of `text` is not UTF-8, and JSON has to be.
Refusal Not_utf8(std::string_view text, std::size_t position);

// The command line cannot be followed, or a file cannot be read or written.
class Trouble : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// Writes "value-object: PLACE: MESSAGE" and the excerpt on standard error; `place` may be empty. What
// a terminal would obey is escaped, here and below.
void Report(Refusal const& refusal, std::string const& place = "");

// Writes "value-object: MESSAGE" on standard error.
void Report(std::string const& message);

} // namespace Varnix::Value::Tool

#endif
