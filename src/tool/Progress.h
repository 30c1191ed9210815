// A progress bar for long inputs.

#ifndef VARNIX_VALUE_TOOL_PROGRESS_H
#define VARNIX_VALUE_TOOL_PROGRESS_H

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace Varnix::Value::Tool {

// How far an input has been read, drawn on standard error where that is a terminal and standard
// output is none, from one second after the start on.
class Progress {
  public:
    explicit Progress(int file);
    ~Progress();
    Progress(Progress const&) = delete;
    Progress& operator=(Progress const&) = delete;

    void Advance(std::size_t bytes);

  private:
    void Draw() const;

    bool wanted;
    bool drawn = false;
    std::uint64_t read = 0;
    std::optional<std::uint64_t> size; // of the input, where it is known
    std::chrono::steady_clock::time_point next_drawing;
};

} // namespace Varnix::Value::Tool

#endif
