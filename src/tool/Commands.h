// The commands of the tool. Each writes its results on `output`, reports what it refuses, and
// returns the exit status.

#ifndef VARNIX_VALUE_TOOL_COMMANDS_H
#define VARNIX_VALUE_TOOL_COMMANDS_H

#include "Reports.h"
#include "Streams.h"
#include "Strict_rules.h"

#include <varnix/value/Text_formatting.h>
#include <varnix/value/Text_parsing.h>

#include <string>
#include <vector>

namespace Varnix::Value::Tool {

// What the options of the commands say.
struct Options {
    Rules rules = Rules::strict;
    bool json = false;                   // one JSON object a line
    bool keep_going = false;             // go on after an input that is refused
    bool formatted = false;              // with a format of the user's own
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

// `words` are two quantities with an operator between them, in one text or in several.
Exit_status Compute(std::vector<std::string> const& words, Options const& options, Output& output);

// Lists the catalogue; `dimension` may be empty.
Exit_status List_units(std::string const& dimension, Options const& options, Output& output);

} // namespace Varnix::Value::Tool

#endif
