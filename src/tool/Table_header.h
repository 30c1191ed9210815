// The header of a CSV table: which of its columns are to be converted, and what becomes of it.

#ifndef VARNIX_VALUE_TOOL_TABLE_HEADER_H
#define VARNIX_VALUE_TOOL_TABLE_HEADER_H

#include "Csv.h"
#include "Number_cells.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Varnix::Value::Tool {

// A column to convert.
struct Column {
    std::string key;                   // its name in the header, or its number
    std::optional<std::size_t> number; // from 0 on, where the key can be one
    std::string to;                    // the unit as the command line has it
    Number_cells cells;
    std::size_t index = 0; // of its field, once the header has been read
    Csv_field field = {};  // its name in the header, without blanks around it
};

// The columns that the command line names, "KEY=FROM:TO" each. A key in double quotes is a name.
// @throws Trouble for other texts, and for a column that is named twice
std::vector<Column> Read_columns(std::vector<std::string> const& texts, Options const& options);

// Finds the columns in `header`, a record without line break, and brings them into its order.
// @throws Refusal where one is not there or not once, or where it is not clear whether a number or
//         a name is meant, or a header there at all; Trouble where two keys lead to one column
void Find_columns(std::vector<Column>& columns, std::string_view header, char delimiter);

// The same for tables without header, where every key is a number.
// @throws Trouble for other keys, and where two lead to one column
void Find_columns_by_number(std::vector<Column>& columns);

// The header with the units that the columns are converted to: "temp [K]" for "temp [°C]".
// @throws Refusal where a name does not end with the unit that its column is converted from
std::string Rename_units(std::vector<Column> const& columns, std::string_view header,
                         char delimiter);

// The names of all columns, as JSON strings.
// @throws Refusal where two are alike: the members of an object have names of their own
std::vector<std::string> Json_names(std::string_view header, char delimiter);

} // namespace Varnix::Value::Tool

#endif
