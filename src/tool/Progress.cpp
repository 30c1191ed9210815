#include "Progress.h"

#include <algorithm>
#include <cstdio>
#include <string>

#include <sys/stat.h>
#include <unistd.h>

namespace Varnix::Value::Tool {

namespace {

// How much there is to read from where the file stands; of a pipe nobody knows.
std::optional<std::uint64_t> Size_left(int file) {
    struct stat status = {};
    if (fstat(file, &status) != 0 || !S_ISREG(status.st_mode)) {
        return std::nullopt;
    }
    off_t const start = lseek(file, 0, SEEK_CUR);
    return start < 0 || status.st_size <= start
               ? std::nullopt
               : std::optional(static_cast<std::uint64_t>(status.st_size - start));
}

constexpr auto first_drawing_after = std::chrono::seconds(1);
constexpr auto time_between_drawings = std::chrono::milliseconds(100);
constexpr std::size_t bar_length = 40;

} // namespace

Progress::Progress(int file)
    : wanted(isatty(STDERR_FILENO) == 1 && isatty(STDOUT_FILENO) == 0), size(Size_left(file)),
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

} // namespace Varnix::Value::Tool
