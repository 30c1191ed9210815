#include "Command_line.h"

namespace Varnix::Value::Tool {

namespace {

char const* const purpose =
    "Physical quantities with units, decibels and error bounds: convert, compute, look up.";

char const* const examples =
    "Examples:\n"
    "  value-object convert '30 dBm [29, 31]' W         1 W [0.7943, 1.259]\n"
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
    "  value-object convert '30 dBm [29, 31]' W         1 W [0.7943, 1.259]\n"
    "  value-object convert '5.0 ± 0.1 V' mV --format p 5000 ± 100 mV\n"
    "  value-object convert '1 mi' '1 n.mi' km          1.609344 km, 1.852 km\n"
    "  value-object convert '20 dBV' V                  10 V: volts and amperes are 20 log10\n"
    "  value-object convert '10 W' V --with '2 A'       5 V: W / A\n"
    "\n"
    "Numbers, one a line, of files or of standard input; quantities with their units, one a line:\n"
    "  value-object convert --from ft --to m feet.txt > m.txt\n"
    "  value-object convert --to W < levels.txt\n"
    "\n"
    "Columns of a CSV table, by their names in the header or by their numbers:\n"
    "  value-object convert --csv --column 'temp=degC:K' --column 'dist=mi:km' log.csv > new.csv\n"
    "  value-object convert --csv --column 3=ft:m --rename-units < log.csv\n"
    "\n"
    "Formats (--format): .3 three significant digits, .3f three decimals, b digits set by the\n"
    "bounds; then p for ±, ~ for no bounds; then k for a prefix that suits: .3, .2f~, bpk. full\n"
    "shows all digits. Otherwise bounds are shown where they were typed, with four digits.\n"
    "\n"
    "Results are physically right, and their bounds enclose the truth; what has no such result is\n"
    "refused. --by-the-rules computes as a program on value objects does.";

char const* const compute_examples =
    "  value-object compute '1 km + 500 m'              1.5 km\n"
    "  value-object compute '10 dBm [9, 11] + 3 dB'     13 dBm [12, 14]\n"
    "  value-object compute '60 mph * 2 s' --to m       53.6448 m\n"
    "  value-object compute '1 / 50 Hz'                 0.02 s\n"
    "  value-object compute '70 kg * 9.81 m/s^2' --simplify    686.7 N\n"
    "  value-object compute '30 dBm [29, 31] < 32 dBm'  true\n"
    "  value-object compute '5.02 ± 0.01 V' --limits '4.75 V' '5.25 V'    pass\n"
    "  value-object compute --power-sum < levels.txt    10 dBm and 10 dBm are 13.01 dBm\n"
    "\n"
    "The operators are + - * / < <= > >= == !=, with blanks around them. A comparison writes "
    "true,\n"
    "false, or undecided where the bounds overlap; the exit status is 0 for all.";

char const* const units_examples = "  value-object units                               everything\n"
                                   "  value-object units --dimension power\n"
                                   "  value-object units --json | grep '\"prefix\"'";

// ---- Arguments that CLI11 would take for something else

// "-.5 V" would be taken for an option ("-0.5 V" would not), and "[1, 2]" for a list. A blank in
// front keeps them whole; Remove_protection takes it away.
bool Needs_protection(std::string const& text) {
    return text.compare(0, 2, "-.") == 0 || text.compare(0, 1, "[") == 0;
}

void Remove_protection(std::string& text) {
    text.erase(0, text[0] == ' ' && Needs_protection(text.substr(1)) ? 1 : 0);
}

// Every text that the command line gives goes through this.
void Remove_protections(CLI::App& command) {
    for (CLI::Option* const option : command.get_options()) {
        if (option->get_items_expected_max() > 0) {
            option->transform([](std::string text) {
                Remove_protection(text);
                return text;
            });
        }
    }
}

// ---- The options of the commands

std::string Refuse_empty(std::string const& text) {
    return text.empty() ? "its value is empty" : "";
}

// An option with a value, which must not be empty: "--from $unit" with an unset variable is a
// mistake, not a conversion without --from.
template <typename Value>
CLI::Option& Add_option(CLI::App& command, char const* name, Value& value, char const* takes,
                        char const* description) {
    return *command.add_option(name, value, description)
                ->type_name(takes)
                ->check(Refuse_empty, "", "not empty");
}

// Instruments write suffixes in which the case of letters carries no meaning.
CLI::Option& Add_dialect_option(CLI::App& command, Arguments& arguments) {
    return *command.add_flag("--scpi", arguments.scpi,
                             "Read units as instruments write them: DBM, KHZ, MV (SCPI-99)");
}

void Add_output_options(CLI::App& command, Arguments& arguments) {
    command.add_flag("--json", arguments.options.json, "One JSON object a line");
    command.add_flag("--by-the-rules", arguments.by_the_rules,
                     "Compute as value objects do, without any of the checks");
    Add_option(command, "--format", arguments.format, Format_value,
               "Digits, bounds and prefix of the results");
    command.add_flag("--names", arguments.names, "Write units by name: kilometers, not km");
}

void Add_convert(CLI::App& tool, Arguments& arguments) {
    CLI::App& command = *tool.add_subcommand("convert", "Convert quantities, numbers and tables");
    command.footer(convert_examples);
    command
        .add_option("inputs", arguments.inputs,
                    "Quantities, and the unit to convert them to unless --to gives it; with --from "
                    "or --csv the files to read, \"-\" or none for standard input")
        ->type_name("QUANTITY... UNIT | FILE");
    auto& from = Add_option(command, "--from", arguments.conversion.from, Unit_value,
                            "The unit of the numbers in the files");
    auto& to =
        Add_option(command, "--to", arguments.conversion.to, Unit_value, "The unit to convert to");
    auto& with = Add_option(command, "--with", arguments.conversion.with, Quantity_value,
                            "The second quantity of an electrical relation");
    auto& csv = *command.add_flag("--csv", arguments.csv, "Convert columns of CSV tables");
    auto& column = Add_option(command, "--column", arguments.table.columns, Column_value,
                              "A column to convert, by its name in the header or its number");
    auto& delimiter = Add_option(command, "--delimiter", arguments.delimiter, Delimiter_value,
                                 "What separates the cells; \"tab\" for a tab");
    auto& rename = *command.add_flag("--rename-units", arguments.table.rename_units,
                                     "Rename the units in the header: temp [degC] to temp [K]");
    auto& no_header = *command.add_flag("--no-header", arguments.table.no_header,
                                        "The tables have no header; columns go by their numbers");
    command.add_flag("--keep-going", arguments.options.keep_going,
                     "Report what is refused, pass it on unchanged, and go on");
    auto& scpi = Add_dialect_option(command, arguments);
    Add_output_options(command, arguments);
    from.needs(&to)->excludes(&with);
    column.allow_extra_args(false)->needs(&csv);
    delimiter.needs(&csv);
    rename.needs(&csv);
    no_header.needs(&csv)->excludes(&rename)->excludes(command.get_option("--json"));
    csv.needs(&column)->excludes(&from)->excludes(&to)->excludes(&with)->excludes(&scpi);
    Remove_protections(command);
}

void Add_compute(CLI::App& tool, Arguments& arguments) {
    CLI::App& command = *tool.add_subcommand("compute", "One operation on two quantities");
    command.footer(compute_examples);
    Computation_request& request = arguments.computation;
    auto& expression = *command.add_option("expression", request.words,
                                           "Two quantities and an operator, or one to be checked");
    expression.type_name("EXPRESSION");
    auto& to = Add_option(command, "--to", request.to, Unit_value, "The unit of the result");
    Add_option(command, "--with", request.with, Quantity_value,
               "The second quantity of an electrical relation to that unit")
        .needs(&to);
    auto& simplify = *command.add_flag("--simplify", request.simplify,
                                       "In the unit of SI that has a name: 686.7 N, not kg*m/s^2");
    auto& limits = Add_option(command, "--limits", request.limits, "LOW HIGH",
                              "Check the quantity against two limits: pass, fail or undecided");
    auto& sum = *command.add_flag(
        "--power-sum", request.power_sum,
        "The level of the sum of powers, of levels on standard input, one a line");
    auto& mean = *command.add_flag("--power-mean", request.power_mean, "The same of their mean");
    Add_dialect_option(command, arguments);
    Add_output_options(command, arguments);
    limits.expected(2)->excludes(&to)->excludes(&simplify);
    simplify.excludes(&to)->excludes(command.get_option("--by-the-rules"));
    sum.excludes(&expression)->excludes(&limits)->excludes(&mean);
    mean.excludes(&expression)->excludes(&limits);
    for (CLI::Option* const option : {&limits, &sum, &mean}) {
        option->excludes(command.get_option("--by-the-rules"));
    }
    Remove_protections(command);
}

void Add_units(CLI::App& tool, Arguments& arguments) {
    CLI::App& command = *tool.add_subcommand("units", "List the units and prefixes there are");
    command.footer(units_examples);
    Add_option(command, "--dimension", arguments.dimension, Kind_value,
               "Only the units of this kind: length");
    command.add_flag("--json", arguments.options.json, "One JSON object a line");
    Remove_protections(command);
}

// CLI11 would take the next argument for the value of "--from=".
bool Is_option_without_value(std::string const& text) {
    return text.size() > 3 && text.compare(0, 2, "--") == 0 && text.find('=') == text.size() - 1;
}

} // namespace

void Add_commands(CLI::App& tool, Arguments& arguments) {
    tool.description(purpose);
    tool.footer(examples);
    tool.set_version_flag("--version", "value-object " VALUE_OBJECT_VERSION);
    tool.require_subcommand(1);
    Add_convert(tool, arguments);
    Add_compute(tool, arguments);
    Add_units(tool, arguments);
}

std::vector<std::string> Protected_arguments(int count, char const* const* arguments) {
    std::vector<std::string> texts(arguments + 1, arguments + count);
    for (std::string& text : texts) {
        if (Is_option_without_value(text)) {
            throw Trouble(text + " has an empty value; value-object --help tells more");
        }
        text.insert(0, Needs_protection(text) ? " " : "");
    }
    return {texts.rbegin(), texts.rend()}; // CLI11 takes them from the back
}

} // namespace Varnix::Value::Tool
