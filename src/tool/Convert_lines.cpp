// `convert`: input line by line, each line a number or a quantity.

#include "Number_cells.h"
#include "Quantity_converter.h"
#include "Written_results.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <functional>
#include <utility>

namespace Varnix::Value::Tool {

namespace {

constexpr std::size_t longest_line = std::size_t(1) << 24U;

// Reads lines and writes what a function makes of each. Blank lines stay as they are.
class Lines {
  public:
    // Writes the result for `line`, which has no blanks around it and is not empty.
    using Convert_line = std::function<void(std::string_view line)>;

    Lines(Convert_line convert_, Options const& options_, Output& output_)
        : convert(std::move(convert_)), options(options_), output(output_) {}

    Exit_status Run() {
        Input input;
        while (!stopped && !input.At_end()) {
            std::string_view const text = input.Read_more();
            std::size_t const consumed = Take(text, input.At_end());
            if (!stopped && text.size() - consumed > longest_line) {
                throw Refusal("line " + std::to_string(line_number + 1) + " is longer than 16 MiB");
            }
            input.Consume(consumed);
            output.Flush(); // what has been read is answered, also while a pipe stays open
        }
        return status;
    }

  private:
    // Takes the whole lines of `text`, and the rest as well at the end of the input.
    std::size_t Take(std::string_view text, bool at_end) {
        std::size_t taken = 0;
        while (!stopped && taken < text.size()) {
            void const* const found = std::memchr(text.data() + taken, '\n', text.size() - taken);
            if (found == nullptr && !at_end) {
                break;
            }
            std::size_t const end =
                found == nullptr
                    ? text.size()
                    : static_cast<std::size_t>(static_cast<char const*>(found) - text.data());
            Take_line(text.substr(taken, end - taken));
            taken = end + 1;
        }
        return std::min(taken, text.size());
    }

    void Take_line(std::string_view line) {
        ++line_number;
        bool const has_return = !line.empty() && line.back() == '\r';
        std::string_view const content = Trimmed(line);
        if (content.empty()) {
            output.Append(line);
            output.Append('\n');
            return;
        }
        try {
            convert(content);
            output.Append(has_return && !options.json ? std::string_view("\r\n") : "\n");
        } catch (Refusal const& refusal) {
            output.Flush();
            Report(refusal, "line " + std::to_string(line_number));
            status = exit_refused;
            stopped = !options.keep_going;
            if (!stopped) {
                Write_refused(options.json ? content : line, refusal, options, output);
            }
        }
    }

    Convert_line convert;
    Options const& options;
    Output& output;
    std::uint64_t line_number = 0;
    Exit_status status = exit_done;
    bool stopped = false;
};

// Lines that are quantities with their units.
Exit_status Convert_quantity_lines(Conversion_request const& request, Options const& options,
                                   Output& output) {
    Quantity_converter converter(request, options);
    auto const convert = [&](std::string_view line) {
        Quantity const result = converter.Convert(line);
        if (options.json) {
            Json object = {{"input", std::string(line)}};
            Add_quantity(object, result, options);
            output.Append(object.dump());
        } else {
            output.Append(Format(result, options.format));
        }
    };
    return Lines(convert, options, output).Run();
}

} // namespace

Exit_status Convert_lines(Conversion_request const& request, Options const& options,
                          Output& output) {
    if (request.from.empty()) {
        return Convert_quantity_lines(request, options, output);
    }
    Number_cells const cells(Read_unit(request.from), Read_unit(request.to), options);
    if (!options.json) {
        return Lines([&](std::string_view line) { cells.Write(cells.Convert(line), output); },
                     options, output)
            .Run();
    }
    std::string const unit = Format_unit(cells.Target(), options.format.unit);
    auto const convert = [&](std::string_view line) {
        Json const object = {{"value", Json_number(cells.Convert(line))}, {"unit", unit}};
        output.Append(object.dump());
    };
    return Lines(convert, options, output).Run();
}

} // namespace Varnix::Value::Tool
