#include "Streams.h"

#include "Reports.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include <fcntl.h>
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

// ---- Input

namespace {

int Opened(std::string const& name) {
    if (name == Standard_input) {
        return STDIN_FILENO;
    }
    int const file = open(name.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) {
        throw Trouble("'" + name + "' cannot be read as a file: " + System_message());
    }
    return file;
}

bool Is_same_file(struct stat const& first, struct stat const& second) {
    return first.st_dev == second.st_dev && first.st_ino == second.st_ino;
}

// Whether what is written becomes input: both are one file, of which something is still to be read.
bool Is_output_too(int file) {
    struct stat given = {};
    struct stat written = {};
    if (fstat(file, &given) != 0 || fstat(STDOUT_FILENO, &written) != 0 ||
        !S_ISREG(written.st_mode) || !Is_same_file(given, written)) {
        return false;
    }
    off_t const place = lseek(file, 0, SEEK_CUR);
    return place >= 0 && place < given.st_size;
}

} // namespace

Input::Input(std::string const& name_)
    : name(name_), file(Opened(name)), buffer(block_size), progress(file) {
    if (Is_output_too(file)) {
        Close();
        throw Trouble(Description() + " is the file that is written to as well");
    }
}

Input::~Input() {
    Close();
}

void Input::Close() const {
    if (file != STDIN_FILENO) {
        close(file);
    }
}

std::string_view Input::Read_more() {
    Make_room();
    ssize_t count = 0;
    do {
        count = at_end ? 0 : read(file, buffer.data() + last, buffer.size() - last);
    } while (count < 0 && errno == EINTR);
    if (count < 0) {
        throw Trouble(Description() + " cannot be read: " + System_message());
    }
    at_end = count == 0;
    last += static_cast<std::size_t>(count);
    progress.Advance(static_cast<std::size_t>(count));
    return {buffer.data(), last};
}

// What has not been consumed moves to the front, and only where something has been: a long record
// that comes in small pieces is not moved for each of them.
void Input::Make_room() {
    if (first > 0) {
        std::memmove(buffer.data(), buffer.data() + first, last - first);
        last -= first;
        first = 0;
    }
    if (last == buffer.size()) {
        buffer.resize(2 * buffer.size());
    }
}

std::string Input::Description() const {
    return name == Standard_input ? "standard input" : name;
}

std::string Input::Place(std::uint64_t line) const {
    return (name == Standard_input ? "" : name + ", ") + "line " + std::to_string(line);
}

} // namespace Varnix::Value::Tool
