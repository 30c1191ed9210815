// `convert`: input line by line, each line a number or a quantity.

#include "Number_cells.h"
#include "Quantity_converter.h"
#include "Written_results.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <functional>

namespace Varnix::Value::Tool {

namespace {

constexpr std::size_t longest_line = std::size_t(1) << 24U;

// Writes the result for `line`, which has no blanks around it and is not empty.
using Convert_line = std::function<void(std::string_view line)>;

// Reads the lines of one input and writes what a function makes of each. Blank lines stay as they
// are; as objects there are none.
class Lines {
  public:
    Lines(std::string const& name, Convert_line const& convert_, Options const& options_,
          Output& output_)
        : input(name), convert(convert_), options(options_), output(output_) {}

    Exit_status Run() {
        while (!stopped && !input.At_end()) {
            std::string_view const text = input.Read_more();
            std::size_t const consumed = Take(text, input.At_end());
            if (!stopped && text.size() - consumed > longest_line) {
                throw Refusal(input.Place(line_number + 1) + " is longer than 16 MiB");
            }
            input.Consume(consumed);
            output.Flush(); // what has been read is answered, also while a pipe stays open
        }
        return status;
    }

    bool Stopped() const { return stopped; }

  private:
    // Takes the whole lines of `text`, and the rest as well at the end of the input.
    std::size_t Take(std::string_view text, bool at_end) {
        std::size_t taken = 0;
        while (!stopped && taken < text.size()) {
            std::size_t const from = std::max(taken, searched);
            void const* const found = std::memchr(text.data() + from, '\n', text.size() - from);
            if (found == nullptr && !at_end) {
                break;
            }
            std::size_t const end =
                found == nullptr
                    ? text.size()
                    : static_cast<std::size_t>(static_cast<char const*>(found) - text.data());
            Take_line(text.substr(taken, end - taken));
            taken = std::min(end + 1, text.size());
        }
        searched = text.size() - taken; // of what stays, which the next text starts with
        return taken;
    }

    void Take_line(std::string_view line) {
        ++line_number;
        std::string_view const content = Trimmed(line);
        if (content.empty()) {
            Write_blank(line);
            return;
        }
        try {
            convert(content);
            bool const has_return = line.back() == '\r';
            output.Append(has_return && !options.json ? std::string_view("\r\n") : "\n");
        } catch (Refusal const& refusal) {
            output.Flush();
            Report(refusal, input.Place(line_number));
            status = exit_refused;
            stopped = !options.keep_going;
            if (!stopped) {
                Write_refused(options.json ? content : line, refusal, options, output);
            }
        }
    }

    void Write_blank(std::string_view line) {
        if (!options.json) {
            output.Append(line);
            output.Append('\n');
        }
    }

    Input input;
    Convert_line const& convert;
    Options const& options;
    Output& output;
    std::size_t searched = 0; // the first bytes of the next text, which hold no line break
    std::uint64_t line_number = 0;
    Exit_status status = exit_done;
    bool stopped = false;
};

Exit_status Run_lines(Conversion_request const& request, Convert_line const& convert,
                      Options const& options, Output& output) {
    Exit_status status = exit_done;
    for (std::string const& name : request.files) {
        Lines lines(name, convert, options, output);
        status = std::max(status, lines.Run());
        if (lines.Stopped()) {
            break;
        }
    }
    return status;
}

// Lines that are quantities with their units.
Exit_status Convert_quantity_lines(Conversion_request const& request, Options const& options,
                                   Output& output) {
    Quantity_converter const converter(request.to, request.with, options);
    auto const convert = [&](std::string_view line) {
        Answer const result = converter.Convert(line);
        if (options.json) {
            Json object = {{"input", std::string(line)}};
            Add_answer(object, result, options);
            output.Append(object.dump());
        } else {
            output.Append(Text_of(result, options));
        }
    };
    return Run_lines(request, convert, options, output);
}

// Lines that are numbers in one unit.
Exit_status Convert_number_lines(Conversion_request const& request, Options const& options,
                                 Output& output) {
    Number_cells const cells(Read_unit(request.from, options.dialect), Read_unit(request.to),
                             options);
    std::string const unit = Format_unit(cells.Target(), options.format.unit);
    auto const convert = [&](std::string_view line) {
        double const result = cells.Convert(line);
        if (options.json) {
            Json object = {{"value", Json_number(result)}, {"unit", unit}};
            Add_text(object, {Quantity(result, cells.Target(), result, result), true}, options);
            output.Append(object.dump());
        } else {
            cells.Write(result, output);
        }
    };
    return Run_lines(request, convert, options, output);
}

} // namespace

Exit_status Convert_lines(Conversion_request const& request, Options const& options,
                          Output& output) {
    return request.from.empty() ? Convert_quantity_lines(request, options, output)
                                : Convert_number_lines(request, options, output);
}

} // namespace Varnix::Value::Tool
