// Input and standard output in large blocks.

#ifndef VARNIX_VALUE_TOOL_STREAMS_H
#define VARNIX_VALUE_TOOL_STREAMS_H

#include "Progress.h"

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Varnix::Value::Tool {

// Standard output. What is appended is written when the buffer is full and when it is flushed; what
// is left at the end of a command must be flushed, so that a failure is seen.
class Output {
  public:
    Output();
    Output(Output const&) = delete;
    Output& operator=(Output const&) = delete;

    void Append(std::string_view text) {
        if (text.size() > buffer.size() - used) {
            Make_room(text.size());
        }
        text.copy(buffer.data() + used, text.size());
        used += text.size();
    }

    void Append(char byte) { Append(std::string_view(&byte, 1)); }

    // The shortest digits that give back the same bits.
    void Append(double number) {
        if (buffer.size() - used < number_length) {
            Make_room(number_length);
        }
        char* const begin = buffer.data() + used;
        used += static_cast<std::size_t>(std::to_chars(begin, begin + number_length, number).ptr -
                                         begin);
    }

    // Writes all that was appended. @throws Trouble where standard output does not take it.
    void Flush();

  private:
    static constexpr std::size_t number_length = 32;

    void Make_room(std::size_t length);

    std::vector<char> buffer;
    std::size_t used = 0;
};

// Why a line or a record is refused whose line ends are carriage returns without line feeds: where
// one begins and another ends would be a guess.
inline constexpr char const* Bare_return =
    "the line ends are carriage returns alone; turn them into line feeds first: tr '\\r' '\\n'";

inline bool Has_bare_return(std::string_view line) {
    return line.find('\r') != std::string_view::npos;
}

// The name that stands for standard input among those of files.
inline constexpr char const* Standard_input = "-";

// A file or standard input. Bytes stay until they are consumed.
class Input {
  public:
    // @throws Trouble where there is no such file, or where standard output goes to the end of it:
    // what is written would be read again
    explicit Input(std::string const& name);
    ~Input();
    Input(Input const&) = delete;
    Input& operator=(Input const&) = delete;

    // Reads on, unless at the end, and returns everything that has not been consumed.
    // @throws Trouble where the file cannot be read
    std::string_view Read_more();

    void Consume(std::size_t bytes) { first += bytes; }
    bool At_end() const { return at_end; }

    // What it is, for messages: "standard input", or the name of the file.
    std::string Description() const;

    // Where a line is, for messages: "line 2", or "log.csv, line 2".
    std::string Place(std::uint64_t line) const;

  private:
    void Make_room();
    void Close() const;

    std::string name;
    int file;
    std::vector<char> buffer;
    std::size_t first = 0; // the bytes [first, last) are there and not consumed
    std::size_t last = 0;
    bool at_end = false;
    Progress progress;
};

} // namespace Varnix::Value::Tool

#endif
