#include "Lines.h"

#include "Reports.h"

#include <algorithm>
#include <cstring>

namespace Varnix::Value::Tool {

namespace {

constexpr std::size_t longest_line = std::size_t(1) << 24U;

} // namespace

bool Line_reader::Next(std::string_view& line) {
    while (!Take(line)) {
        if (!Read_more()) {
            return false;
        }
    }
    ++number;
    return true;
}

// A whole line of the text; at the end of the input what is left of it is one.
bool Line_reader::Take(std::string_view& line) {
    std::size_t const from = std::max(taken, searched);
    void const* const found =
        from < text.size() ? std::memchr(text.data() + from, '\n', text.size() - from) : nullptr;
    if (found == nullptr) {
        searched = text.size();
        line = text.substr(taken);
        taken = input.At_end() ? text.size() : taken;
        return input.At_end() && !line.empty();
    }
    auto const end = static_cast<std::size_t>(static_cast<char const*>(found) - text.data());
    line = text.substr(taken, end - taken);
    taken = end + 1;
    return true;
}

bool Line_reader::Read_more() {
    if (input.At_end()) {
        return false;
    }
    std::size_t const left = text.size() - taken;
    if (left > longest_line) {
        throw Refusal(input.Place(number + 1) + " is longer than 16 MiB");
    }
    output.Flush();
    input.Consume(taken);
    text = input.Read_more();
    searched -= taken;
    taken = 0;
    return true;
}

} // namespace Varnix::Value::Tool
