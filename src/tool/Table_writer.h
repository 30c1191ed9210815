// The tables of one command, written as one.

#ifndef VARNIX_VALUE_TOOL_TABLE_WRITER_H
#define VARNIX_VALUE_TOOL_TABLE_WRITER_H

#include "Commands.h"
#include "Csv.h"
#include "Table_header.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Varnix::Value::Tool {

inline constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";

// The content of a cell, without blanks around it.
std::string_view Cell(std::string_view record, Csv_field const& field);

// A byte of a record that is not UTF-8.
struct Foreign_byte {
    std::size_t position; // in the record
    std::string column;   // its name, in quotes
};

// Writes records, or objects with a member for each column.
class Table_writer {
  public:
    // The results for a record, by column; empty where the cell stays.
    using Results = std::vector<std::optional<double>>;

    // @throws Trouble, Refusal where a column of the request cannot be read
    Table_writer(Table_request const& request, Options const& options, Output& output);

    // A byte order mark is written once.
    void Take_mark();

    // Takes the header, a record without line break: that of the first table is written, and the
    // others must have the same. @throws Refusal
    void Take_header(std::string_view text, std::string_view line_break);

    // How many fields of a record are needed, once the header has been taken, if there is one.
    std::size_t Fields_needed() const;

    // The columns to convert, in the order of the header.
    std::vector<Column> const& Columns() const { return columns; }

    // Whether a field has a byte that is not UTF-8, so that no object can hold it; finds the first.
    bool Find_not_utf8(std::string_view record, std::vector<Csv_field> const& fields,
                       Foreign_byte& found) const;

    void Write_record(std::string_view record, std::vector<Csv_field> const& fields,
                      Results const& results);

    // Writes a record as it is; as objects there are only those that are converted or refused.
    void Write_unchanged(std::string_view record);

    // Passes on a record that is refused as a whole.
    void Write_whole(std::string_view record, Refusal const& refusal);

  private:
    void Write_converted(std::string_view record, std::vector<Csv_field> const& fields,
                         Results const& results);
    void Write_object(std::string_view record, std::vector<Csv_field> const& fields,
                      Results const& results);

    Table_request const& request;
    Options const& options;
    Output& output;
    std::vector<Column> columns;
    std::optional<std::string> header;
    std::vector<std::string> names; // of all columns, as JSON strings
};

} // namespace Varnix::Value::Tool

#endif
