// `convert`: input line by line, each line a number or a quantity.

#include "Lines.h"
#include "Number_cells.h"
#include "Quantity_converter.h"
#include "Written_results.h"

#include <algorithm>
#include <functional>

namespace Varnix::Value::Tool {

namespace {

// Writes the result for `line`, which has no blanks around it and is not empty.
using Convert_line = std::function<void(std::string_view line)>;

// Reads the lines of one input and writes what a function makes of each. Blank lines stay as they
// are; as objects there are none.
class Lines {
  public:
    Lines(std::string const& name, Convert_line const& convert_, Options const& options_,
          Output& output_)
        : lines(name, output_), convert(convert_), options(options_), output(output_) {}

    Exit_status Run() {
        for (std::string_view line; !stopped && lines.Next(line);) {
            Take_line(line);
        }
        output.Flush();
        return status;
    }

    bool Stopped() const { return stopped; }

  private:
    void Take_line(std::string_view line) {
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
            Refuse(line, content, Has_bare_return(content) ? Refusal(Bare_return) : refusal);
        }
    }

    void Refuse(std::string_view line, std::string_view content, Refusal const& refusal) {
        output.Flush();
        Report(refusal, lines.Place());
        status = exit_refused;
        stopped = !options.keep_going;
        if (!stopped) {
            Write_refused(options.json ? content : line, refusal, options, output);
        }
    }

    void Write_blank(std::string_view line) {
        if (!options.json) {
            output.Append(line);
            output.Append('\n');
        }
    }

    Line_reader lines;
    Convert_line const& convert;
    Options const& options;
    Output& output;
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
    Quantity_converter converter(request.to, request.with, options);
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
