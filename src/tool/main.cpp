// value-object: reads the command line and runs the command.

#include "Command_line.h"
#include "Completion.h"

#include <algorithm>
#include <exception>
#include <sstream>

namespace Varnix::Value::Tool {
namespace {

// ---- What the options stand for

void Complete(Arguments& arguments) {
    Options& options = arguments.options;
    options.dialect = arguments.scpi ? Dialect::scpi : Dialect::standard;
    options.rules = arguments.by_the_rules ? Rules::as_the_library : Rules::measurements;
    options.formatted = !arguments.format.empty();
    options.all_digits = arguments.format == Full_format;
    if (!options.all_digits && !Try_read_text_format(arguments.format, options.format)) {
        throw Trouble("--format '" + arguments.format +
                      "' is not [.N | .Nf | b][p | ~][k], with up to 100 digits, or full");
    }
    options.format.unit = arguments.names ? STR_NAME : STR_SYMBOL;
}

// Whether a number may hold the character: a result would fall into two cells.
bool Occurs_in_numbers(char character) {
    constexpr std::string_view others = ".+-";
    bool const is_letter = (character >= 'a' && character <= 'z') || // "1e+20", "inf"
                           (character >= 'A' && character <= 'Z');
    return (character >= '0' && character <= '9') || is_letter ||
           others.find(character) != std::string_view::npos;
}

char Read_delimiter(std::string const& text) {
    char const delimiter = text == "tab" ? '\t' : text[0];
    if ((text.size() != 1 && text != "tab") || delimiter == '"' || delimiter == '\n' ||
        delimiter == '\r') {
        throw Trouble("--delimiter is one character, or \"tab\"");
    }
    if (Occurs_in_numbers(delimiter)) {
        throw Trouble("--delimiter '" + text +
                      "' may be a part of a number, which would become two cells");
    }
    return delimiter;
}

// The arguments as names of files; without any it is standard input.
std::vector<std::string> Files(std::vector<std::string> const& inputs) {
    return inputs.empty() ? std::vector<std::string>{Standard_input} : inputs;
}

// ---- Running

Exit_status Run_convert_table(Arguments& arguments, Output& output) {
    Table_request& request = arguments.table;
    request.delimiter = Read_delimiter(arguments.delimiter);
    request.files = Files(arguments.inputs);
    return Convert_table(request, arguments.options, output);
}

Exit_status Run_convert(Arguments& arguments, Output& output) {
    if (arguments.csv) {
        return Run_convert_table(arguments, output);
    }
    Conversion_request& request = arguments.conversion;
    if (!request.from.empty() || (!request.to.empty() && arguments.inputs.empty())) {
        request.files = Files(arguments.inputs);
        return Convert_lines(request, arguments.options, output);
    }
    request.quantities = arguments.inputs;
    if (request.to.empty()) {
        if (request.quantities.size() < 2) {
            throw Trouble("convert takes quantities and a unit: value-object convert '5 km' mi");
        }
        request.to = request.quantities.back();
        request.quantities.pop_back();
    }
    return Convert_quantities(request, arguments.options, output);
}

Exit_status Run(CLI::App const& tool, Arguments& arguments, Output& output) {
    Complete(arguments);
    if (tool.got_subcommand("convert")) {
        return Run_convert(arguments, output);
    }
    if (tool.got_subcommand("compute")) {
        return Compute(arguments.computation, arguments.options, output);
    }
    return List_units(arguments.dimension, arguments.options, output);
}

// A command that does not exist is named, which CLI11 would not do.
void Check_command(CLI::App const& tool, int count, char const* const* texts) {
    std::string const name = count > 1 ? texts[1] : "-";
    auto const commands = tool.get_subcommands([](CLI::App const*) { return true; });
    if (name[0] != '-' && std::none_of(commands.begin(), commands.end(), [&](auto const* command) {
            return command->get_name() == name;
        })) {
        throw Trouble("there is no command '" + name + "'; value-object --help lists them");
    }
}

// Help and version go the way of all output, so that a full disk does not go unnoticed.
void Write_information(CLI::App const& tool, CLI::ParseError const& request, Output& output) {
    std::ostringstream text;
    tool.exit(request, text);
    output.Append(text.str());
}

Exit_status Parse_and_run(int count, char const* const* texts, Output& output) {
    CLI::App tool("", "value-object");
    Arguments arguments;
    Add_commands(tool, arguments);
    if (count > 1 && texts[1] == std::string(Completion_command)) {
        return Write_completions(tool, {texts + 2, texts + count}, output);
    }
    try {
        Check_command(tool, count, texts);
        tool.parse(Protected_arguments(count, texts));
    } catch (CLI::ParseError const& error) {
        if (error.get_exit_code() != 0) {
            throw Trouble(std::string(error.what()) + "; value-object --help tells more");
        }
        Write_information(tool, error, output);
        return exit_done;
    }
    return Run(tool, arguments, output);
}

Exit_status Main(int count, char const* const* texts) {
    Output output;
    Exit_status status = exit_done;
    try {
        status = Parse_and_run(count, texts, output);
    } catch (Refusal const& refusal) {
        output.Flush();
        Report(refusal);
        status = exit_refused;
    }
    output.Flush();
    return status;
}

} // namespace
} // namespace Varnix::Value::Tool

int main(int count, char** texts) {
    using namespace Varnix::Value::Tool;
    try {
        return Main(count, texts);
    } catch (std::exception const& failure) { // Trouble, or no memory
        Report(failure.what());
        return exit_trouble;
    }
}
