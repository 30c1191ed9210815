#include "Streams.h"

#include "Reports.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include <sys/stat.h>
#include <unistd.h>

namespace Varnix::Value::Tool {

namespace {

constexpr std::size_t block_size = std::size_t(1) << 18U;

std::string System_message() {
    return std::strerror(errno); // one thread: nothing else changes the text
}

} // namespace

// ---- Output

Output::Output() : buffer(block_size) {}

void Output::Flush() {
    std::size_t written = 0;
    while (written < used) {
        ssize_t const count = write(STDOUT_FILENO, buffer.data() + written, used - written);
        if (count < 0 && errno != EINTR) {
            used = 0;
            throw Trouble("standard output cannot be written: " + System_message());
        }
        written += count < 0 ? 0 : static_cast<std::size_t>(count);
    }
    used = 0;
}

void Output::Make_room(std::size_t length) {
    Flush();
    if (buffer.size() < length) {
        buffer.resize(length);
    }
}

// ---- Progress

namespace {

// The size of standard input from where it stands, where it is a file.
std::optional<std::uint64_t> Input_size() {
    struct stat status = {};
    if (fstat(STDIN_FILENO, &status) != 0 || !S_ISREG(status.st_mode)) {
        return std::nullopt;
    }
    off_t const start = lseek(STDIN_FILENO, 0, SEEK_CUR);
    return start < 0 || status.st_size <= start
               ? std::nullopt
               : std::optional(static_cast<std::uint64_t>(status.st_size - start));
}

constexpr auto first_drawing_after = std::chrono::seconds(1);
constexpr auto time_between_drawings = std::chrono::milliseconds(100);
constexpr std::size_t bar_length = 40;

} // namespace

Progress::Progress()
    : wanted(isatty(STDERR_FILENO) == 1 && isatty(STDOUT_FILENO) == 0), size(Input_size()),
      next_drawing(std::chrono::steady_clock::now() + first_drawing_after) {}

Progress::~Progress() {
    if (drawn) {
        std::fputs("\r\033[K", stderr);
    }
}

void Progress::Advance(std::size_t bytes) {
    read += bytes;
    if (!wanted) {
        return;
    }
    auto const now = std::chrono::steady_clock::now();
    if (now >= next_drawing) {
        next_drawing = now + time_between_drawings;
        drawn = true;
        Draw();
    }
}

void Progress::Draw() const {
    unsigned long long const megabytes = read / 1000000;
    if (!size) {
        std::fprintf(stderr, "\r%llu MB read", megabytes);
        return;
    }
    std::uint64_t const done = std::min(read, *size);
    auto const filled = static_cast<std::size_t>(done * bar_length / *size);
    std::fprintf(stderr, "\r[%s%s] %3d %%, %llu MB", std::string(filled, '#').c_str(),
                 std::string(bar_length - filled, ' ').c_str(),
                 static_cast<int>(done * 100 / *size), megabytes);
}

// ---- Input

Input::Input() : buffer(block_size) {}

std::string_view Input::Read_more() {
    std::copy(buffer.begin() + static_cast<std::ptrdiff_t>(first),
              buffer.begin() + static_cast<std::ptrdiff_t>(last), buffer.begin());
    last -= first;
    first = 0;
    if (last == buffer.size()) {
        buffer.resize(2 * buffer.size());
    }
    ssize_t count = 0;
    do {
        count = at_end ? 0 : read(STDIN_FILENO, buffer.data() + last, buffer.size() - last);
    } while (count < 0 && errno == EINTR);
    if (count < 0) {
        throw Trouble("standard input cannot be read: " + System_message());
    }
    at_end = count == 0;
    last += static_cast<std::size_t>(count);
    progress.Advance(static_cast<std::size_t>(count));
    return {buffer.data(), last};
}

} // namespace Varnix::Value::Tool
