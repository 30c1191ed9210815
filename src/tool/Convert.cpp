// `convert`: the quantities of the command line.

#include "Quantity_converter.h"
#include "Written_results.h"

#include <varnix/value/Measurement_text.h>
#include <varnix/value/Unit_kinds.h>

#include <unistd.h>

namespace Varnix::Value::Tool {

// ---- Quotes that the shell has taken, or that were never there

namespace {

using Words = std::vector<std::string>;

enum class Form { other, number, quantity };

Form Form_of(std::string const& text, Dialect dialect) {
    Measurement_reader reader(dialect, {});
    auto const quantity = reader.Read(text);
    return !quantity                         ? Form::other
           : quantity->Get_unit() == C_Empty ? Form::number
                                             : Form::quantity;
}

// The longest quantity that the words from `first` on make together; empty where they make none.
std::string Quantity_in_pieces(Words const& words, std::size_t first, Dialect dialect) {
    for (std::size_t last = words.size(); last > first + 1; --last) {
        auto const begin = words.begin();
        std::string joined = Joined(Words(begin + static_cast<std::ptrdiff_t>(first),
                                          begin + static_cast<std::ptrdiff_t>(last)));
        if (Form_of(joined, dialect) == Form::quantity) {
            return joined;
        }
    }
    return {};
}

[[noreturn]] void Refuse_pieces(std::string const& quantity) {
    throw Refusal("a quantity is one argument: write '" + quantity + "', in quotes");
}

// A plain number converts into ratios alone.
bool Needs_unit(Units const& to) {
    return to.tuples[0].unit != NO_UNIT && !Same_kind(to, C_Percent);
}

// "convert 5 ft m" is 5 feet in pieces, and no number that lacks a unit.
void Check_quotes(Conversion_request const& request, Options const& options) {
    Words const& words = request.quantities;
    for (std::size_t k = 0; k < words.size(); ++k) {
        std::string const pieces = Form_of(words[k], options.dialect) == Form::number
                                       ? Quantity_in_pieces(words, k, options.dialect)
                                       : "";
        if (!pieces.empty()) {
            Refuse_pieces(pieces);
        }
    }
    bool const strict = options.rules == Rules::measurements;
    if (strict && !words.empty() && Form_of(words.back(), options.dialect) == Form::number &&
        Needs_unit(Read_target(request.to).unit)) {
        throw Refusal("'" + words.back() +
                      "' has no unit: write number and unit in quotes, as in '" + words.back() +
                      ' ' + request.to + "', and then the unit to convert to");
    }
    if (strict && Form_of(request.with, options.dialect) == Form::number) {
        throw Refusal("--with '" + request.with + "' has no unit: write number and unit in quotes");
    }
}

// A text that is no quantity may be the name of a file of quantities.
void Check_no_file(Conversion_request const& request, Dialect dialect) {
    for (std::string const& text : request.quantities) {
        if (Form_of(text, dialect) == Form::other && access(text.c_str(), F_OK) == 0) {
            std::string message = "'" + text + "' is a file and no quantity: write --to ";
            message += request.to + " < " + text;
            throw Refusal(message + ", or name the unit of its numbers with --from");
        }
    }
}

} // namespace

Exit_status Convert_quantities(Conversion_request const& request, Options const& options,
                               Output& output) {
    Check_quotes(request, options);
    Check_no_file(request, options.dialect);
    Quantity_converter converter(request.to, request.with, options);
    Exit_status status = exit_done;
    for (std::string const& text : request.quantities) {
        try {
            Write_result(text, converter.Convert(text), options, output);
        } catch (Refusal const& refusal) {
            output.Flush();
            Report(refusal);
            status = exit_refused;
            if (!options.keep_going) {
                break;
            }
            Write_refused(text, refusal, options, output);
        }
    }
    return status;
}

} // namespace Varnix::Value::Tool
