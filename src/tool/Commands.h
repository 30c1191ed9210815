// The commands of the tool. Each writes its results on `output`, reports what it refuses, and
// returns the exit status.

#ifndef VARNIX_VALUE_TOOL_COMMANDS_H
#define VARNIX_VALUE_TOOL_COMMANDS_H

#include "Reports.h"
#include "Streams.h"

#include <varnix/value/Text_formatting.h>
#include <varnix/value/Text_parsing.h>

#include <string>
#include <string_view>
#include <vector>

namespace Varnix::Value::Tool {

enum class Rules {
    measurements,   // the physically right answer, or a refusal
    as_the_library, // what a program on value objects computes
};

// What the options of the commands say.
struct Options {
    Rules rules = Rules::measurements;
    bool json = false;                   // one JSON object a line
    bool keep_going = false;             // go on after an input that is refused
    bool formatted = false;              // with a format of the user's own
    bool all_digits = false;             // that format is "full"
    Text_format format;                  // of the results
    Dialect dialect = Dialect::standard; // of what is read; targets are always in the standard one
};

// What `convert` converts. Texts are empty where they are not given; "-" among the files is
// standard input.
struct Conversion_request {
    std::vector<std::string> quantities; // none: the lines of the files
    std::vector<std::string> files;
    std::string from; // the unit of plain numbers
    std::string to;
    std::string with; // the second quantity of an electrical relation
};

// What `convert --csv` converts: each column is "NAME=FROM:TO" or "NUMBER=FROM:TO".
struct Table_request {
    std::vector<std::string> columns;
    std::vector<std::string> files;
    char delimiter = ',';
    bool rename_units = false; // in the header
    bool no_header = false;    // the first record is one like the others
};

Exit_status Convert_quantities(Conversion_request const& request, Options const& options,
                               Output& output);
Exit_status Convert_lines(Conversion_request const& request, Options const& options,
                          Output& output);
Exit_status Convert_table(Table_request const& request, Options const& options, Output& output);

// What `compute` computes: one of an expression, limits to check, and a sum or mean of powers.
struct Computation_request {
    std::vector<std::string> words;  // two quantities with an operator between them, or one, in one
                                     // text or in several
    std::string to;                  // the unit of the result; empty where it has its own
    std::string with;                // the second quantity of an electrical relation to that
    std::vector<std::string> limits; // none, or a lower and an upper one
    bool simplify = false;           // the result in the unit of SI that has a name
    bool power_sum = false;          // of the levels on standard input, one a line
    bool power_mean = false;         // likewise
};

// Whether a text has an operator between two quantities.
bool Is_expression(std::string_view text);

Exit_status Compute(Computation_request const& request, Options const& options, Output& output);

// Lists the catalogue; `dimension` may be empty.
Exit_status List_units(std::string const& dimension, Options const& options, Output& output);

} // namespace Varnix::Value::Tool

#endif
