// Input line by line.

#ifndef VARNIX_VALUE_TOOL_LINES_H
#define VARNIX_VALUE_TOOL_LINES_H

#include "Streams.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace Varnix::Value::Tool {

// The lines of an input, one after the other. What has been read is answered before more is waited
// for, so that a pipe may stay open.
class Line_reader {
  public:
    // @throws Trouble as `Input`
    Line_reader(std::string const& name, Output& output_) : input(name), output(output_) {}

    // Takes the next line into `line`, without its '\n'; false at the end. It stays until the next
    // call. @throws Refusal for a line of more than 16 MiB; Trouble as `Input` and `Output`
    bool Next(std::string_view& line);

    // Where the line is that was taken last, for messages.
    std::string Place() const { return input.Place(number); }

  private:
    bool Take(std::string_view& line);
    bool Read_more();

    Input input;
    Output& output;
    std::string_view text;    // of the input, what has been read and not been consumed
    std::size_t taken = 0;    // of this, the lines that have been taken
    std::size_t searched = 0; // up to here there is no line break behind these
    std::uint64_t number = 0;
};

} // namespace Varnix::Value::Tool

#endif
