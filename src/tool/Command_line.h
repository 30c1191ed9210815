// The command line: which commands and options there are, and what is written after them.

#ifndef VARNIX_VALUE_TOOL_COMMAND_LINE_H
#define VARNIX_VALUE_TOOL_COMMAND_LINE_H

#include "Commands.h"

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

namespace Varnix::Value::Tool {

// What the command line says.
struct Arguments {
    Options options;
    std::string format;
    bool by_the_rules = false;
    bool scpi = false;
    bool names = false;
    bool csv = false;
    std::string delimiter = ",";
    std::vector<std::string> inputs; // of `convert`: quantities and their target, or files
    Conversion_request conversion;
    Table_request table;
    Computation_request computation;
    std::string dimension;
};

// What an option takes, as the help calls it, and as the completion knows it.
inline constexpr char const* Unit_value = "UNIT";
inline constexpr char const* Quantity_value = "QUANTITY";
inline constexpr char const* Column_value = "NAME=FROM:TO";
inline constexpr char const* Kind_value = "KIND";
inline constexpr char const* Format_value = "FORMAT";
inline constexpr char const* Delimiter_value = "CHARACTER";

// The format with all digits and bounds.
inline constexpr char const* Full_format = "full";

// Adds commands and options to `tool`; parsing stores in `arguments`, which have to stay.
void Add_commands(CLI::App& tool, Arguments& arguments);

// The arguments of main() in the order in which CLI11 takes them, so that "-.5 V" is no option
// and "[1, 2]" no list.
std::vector<std::string> Protected_arguments(int count, char const* const* texts);

} // namespace Varnix::Value::Tool

#endif
