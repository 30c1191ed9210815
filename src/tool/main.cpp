// The command line of value-object.

#include "Commands.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <exception>
#include <iostream>
#include <string>
#include <vector>

namespace Varnix::Value::Tool {
namespace {

char const* const description =
    "Physical quantities with units, decibels and error bounds: convert, compute, look up.";

char const* const examples =
    "Examples:\n"
    "  value-object convert '30 dBm [29, 31]' W         1 W [0.7943282347242813, "
    "1.2589254117941675]\n"
    "  value-object convert '-40 degF' degC             -40 °C\n"
    "  value-object compute '1 km + 500 m'              1.5 km\n"
    "  value-object units --dimension length            the units of length\n"
    "  value-object COMMAND --help                      more on each\n"
    "\n"
    "Exit status: 0 when everything was done, 1 when an input was refused, 2 when the command "
    "line\n"
    "is wrong or a file cannot be read or written. Results go to standard output, messages to\n"
    "standard error.";

char const* const convert_examples =
    "Quantities, the last argument being the unit to convert to:\n"
    "  value-object convert '30 dBm [29, 31]' W         1 W [0.7943282347242813, "
    "1.2589254117941675]\n"
    "  value-object convert '5.0 ± 0.1 V' mV --format p 5000 ± 100 mV\n"
    "  value-object convert '1 mi' '1 n.mi' km          1.60934 km, 1.852 km\n"
    "  value-object convert '10 W' V --with '2 A'       5 V: W / A\n"
    "\n"
    "Numbers on standard input, one a line, or quantities with their units:\n"
    "  value-object convert --from ft --to m < feet.txt\n"
    "  value-object convert --to W < levels.txt\n"
    "\n"
    "Columns of a CSV table on standard input, by their names in the header:\n"
    "  value-object convert --csv --column 'temp=degC:K' --column 'dist=mi:km' < log.csv\n"
    "\n"
    "Formats (--format): .3 three significant digits, .3f three decimals, b digits set by the\n"
    "bounds; then p for ±, ~ for no bounds; then k for a prefix that suits: .3, .2f~, bpk.\n"
    "\n"
    "The tool is strict: it refuses what would change the physical kind, as 5 m to m/s. The\n"
    "library's own rules are less so; --by-the-rules follows them.";

char const* const compute_examples =
    "  value-object compute '1 km + 500 m'              1.5 km\n"
    "  value-object compute '10 dBm + 10 dBm'           13.010299956639813 dBm: levels add as "
    "powers\n"
    "  value-object compute '60 mph * 2 s'              in metres, with a note\n"
    "  value-object compute '30 dBm >= 1 W'             true\n"
    "\n"
    "The operators are + - * / < <= > >= == !=, with blanks around them. A comparison writes true\n"
    "or false; the exit status is 0 for both.";

char const* const units_examples = "  value-object units                               everything\n"
                                   "  value-object units --dimension power\n"
                                   "  value-object units --json | grep '\"prefix\"'";

// What the command line says.
struct Arguments {
    Options options;
    std::string format;
    bool by_the_rules = false;
    bool names = false;
    bool csv = false;
    std::string delimiter = ",";
    Conversion_request conversion;
    Table_request table;
    std::vector<std::string> expression;
    std::string dimension;
};

void Add_output_options(CLI::App& command, Arguments& arguments) {
    command.add_flag("--json", arguments.options.json, "One JSON object a line");
    command.add_flag("--by-the-rules", arguments.by_the_rules,
                     "Follow the library's rules, also where they change the physical kind");
    command.add_option("--format", arguments.format, "Digits, bounds and prefix of the results")
        ->type_name("FORMAT");
    command.add_flag("--names", arguments.names, "Write units by name: kilometers, not km");
}

void Add_convert(CLI::App& tool, Arguments& arguments) {
    CLI::App& command = *tool.add_subcommand("convert", "Convert quantities, numbers and tables");
    command.footer(convert_examples);
    command
        .add_option("quantities", arguments.conversion.quantities,
                    "Quantities, and the unit to convert them to unless --to gives it")
        ->type_name("QUANTITY... UNIT");
    auto* const from = command.add_option("--from", arguments.conversion.from,
                                          "The unit of the numbers on standard input");
    auto* const to = command.add_option("--to", arguments.conversion.to, "The unit to convert to");
    auto* const with = command.add_option("--with", arguments.conversion.with,
                                          "The second quantity of an electrical relation");
    auto* const csv = command.add_flag("--csv", arguments.csv, "Convert columns of a CSV table");
    auto* const column = command.add_option("--column", arguments.table.columns,
                                            "A column to convert, by its name in the header");
    auto* const delimiter = command.add_option("--delimiter", arguments.delimiter,
                                               "What separates the cells; \"tab\" for a tab");
    command.add_flag("--keep-going", arguments.options.keep_going,
                     "Report what is refused, pass it on unchanged, and go on");
    Add_output_options(command, arguments);
    from->type_name("UNIT")->needs(to)->excludes(with);
    to->type_name("UNIT");
    with->type_name("QUANTITY");
    column->type_name("NAME=FROM:TO")->allow_extra_args(false)->needs(csv);
    delimiter->type_name("CHARACTER")->needs(csv);
    csv->needs(column)->excludes(from)->excludes(to)->excludes(with);
}

void Add_compute(CLI::App& tool, Arguments& arguments) {
    CLI::App& command = *tool.add_subcommand("compute", "One operation on two quantities");
    command.footer(compute_examples);
    command.add_option("expression", arguments.expression, "Two quantities and an operator")
        ->type_name("EXPRESSION")
        ->required();
    Add_output_options(command, arguments);
}

void Add_units(CLI::App& tool, Arguments& arguments) {
    CLI::App& command = *tool.add_subcommand("units", "List the units and prefixes there are");
    command.footer(units_examples);
    command.add_option("--dimension", arguments.dimension, "Only the units of this kind: length")
        ->type_name("KIND");
    command.add_flag("--json", arguments.options.json, "One JSON object a line");
}

// "-40 degC" would be taken for an option, and "[1, 2]" for a list. A blank in front keeps them
// whole; Remove_protection takes it away.
bool Needs_protection(std::string const& text) {
    bool const number =
        text.size() > 1 && text[0] == '-' && (text[1] == '.' || (text[1] >= '0' && text[1] <= '9'));
    return number || (!text.empty() && text[0] == '[');
}

std::vector<std::string> Protected_arguments(int count, char const* const* arguments) {
    std::vector<std::string> texts(arguments + 1, arguments + count);
    for (std::string& text : texts) {
        text.insert(0, Needs_protection(text) ? " " : "");
    }
    return {texts.rbegin(), texts.rend()}; // CLI11 takes them from the back
}

void Remove_protection(std::string& text) {
    text.erase(0, text[0] == ' ' && Needs_protection(text.substr(1)) ? 1 : 0);
}

// ---- Running

void Complete(Arguments& arguments) {
    Options& options = arguments.options;
    options.rules = arguments.by_the_rules ? Rules::as_the_library : Rules::strict;
    if (!Try_read_text_format(arguments.format, options.format)) {
        throw Trouble("--format '" + arguments.format +
                      "' is not [.N | .Nf | b][p | ~][k], with up to 100 digits");
    }
    options.format.unit = arguments.names ? STR_NAME : STR_SYMBOL;
    for (std::string& text : arguments.conversion.quantities) {
        Remove_protection(text);
    }
    Conversion_request& request = arguments.conversion;
    for (std::string* const text : {&request.with, &request.from, &request.to}) {
        Remove_protection(*text);
    }
    for (std::string& text : arguments.table.columns) {
        Remove_protection(text);
    }
}

Exit_status Run_convert_table(Arguments& arguments, Output& output) {
    if (!arguments.conversion.quantities.empty()) {
        throw Trouble("convert --csv reads standard input; it takes no quantities");
    }
    std::string const& delimiter = arguments.delimiter;
    arguments.table.delimiter = delimiter == "tab" ? '\t' : delimiter.empty() ? '\n' : delimiter[0];
    if ((delimiter.size() != 1 && delimiter != "tab") || arguments.table.delimiter == '"' ||
        arguments.table.delimiter == '\n' || arguments.table.delimiter == '\r') {
        throw Trouble("--delimiter is one character, or \"tab\"");
    }
    return Convert_table(arguments.table, arguments.options, output);
}

Exit_status Run_convert(Arguments& arguments, Output& output) {
    if (arguments.csv) {
        return Run_convert_table(arguments, output);
    }
    Conversion_request& request = arguments.conversion;
    if (!request.from.empty() && !request.quantities.empty()) {
        throw Trouble("--from is the unit of numbers on standard input; write quantities with "
                      "their units");
    }
    if (!request.to.empty()) {
        return request.quantities.empty() ? Convert_lines(request, arguments.options, output)
                                          : Convert_quantities(request, arguments.options, output);
    }
    if (request.quantities.size() < 2) {
        throw Trouble("convert takes quantities and a unit: value-object convert '5 km' mi");
    }
    request.to = request.quantities.back();
    request.quantities.pop_back();
    return Convert_quantities(request, arguments.options, output);
}

Exit_status Run_compute(Arguments const& arguments, Output& output) {
    std::string expression;
    for (std::string const& text : arguments.expression) {
        expression += (expression.empty() ? "" : " ") + text;
    }
    Remove_protection(expression);
    return Compute(expression, arguments.options, output);
}

Exit_status Run(CLI::App const& tool, Arguments& arguments) {
    Output output;
    Exit_status status = exit_done;
    try {
        Complete(arguments);
        if (tool.got_subcommand("convert")) {
            status = Run_convert(arguments, output);
        } else if (tool.got_subcommand("compute")) {
            status = Run_compute(arguments, output);
        } else {
            status = List_units(arguments.dimension, arguments.options, output);
        }
    } catch (Refusal const& refusal) {
        output.Flush();
        Report(refusal);
        status = exit_refused;
    }
    output.Flush();
    return status;
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

int Main(int count, char const* const* texts) {
    CLI::App tool(description, "value-object");
    Arguments arguments;
    tool.footer(examples);
    tool.set_version_flag("--version", "value-object " VALUE_OBJECT_VERSION);
    tool.require_subcommand(1);
    Add_convert(tool, arguments);
    Add_compute(tool, arguments);
    Add_units(tool, arguments);
    try {
        Check_command(tool, count, texts);
        tool.parse(Protected_arguments(count, texts));
        return Run(tool, arguments);
    } catch (CLI::ParseError const& error) {
        if (error.get_exit_code() == 0) { // help or version
            return tool.exit(error);
        }
        Report(std::string(error.what()) + "; value-object --help tells more");
        return exit_trouble;
    } catch (Trouble const& trouble) {
        Report(trouble.what());
        return exit_trouble;
    }
}

} // namespace
} // namespace Varnix::Value::Tool

int main(int count, char** texts) {
    try {
        return Varnix::Value::Tool::Main(count, texts);
    } catch (std::exception const& failure) {
        std::cerr << "value-object: " << failure.what() << '\n';
        return Varnix::Value::Tool::exit_trouble;
    }
}
