// Records of a CSV text (RFC 4180): fields between delimiters, a line break at the end; a field in
// quotes may hold delimiters, line breaks, and quotes written twice.

#ifndef VARNIX_VALUE_TOOL_CSV_H
#define VARNIX_VALUE_TOOL_CSV_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Varnix::Value::Tool {

// A field, by its place in the text: the bytes [first, last), without the quotes around them.
struct Csv_field {
    std::size_t first;
    std::size_t last;
    bool quoted;
};

// What scanning for a record comes to.
enum class Csv_outcome {
    complete,   // the fields are there
    incomplete, // the text ends before the record does
    misquoted,  // something follows the closing quote of a field
};

struct Csv_record {
    std::vector<Csv_field> fields;
    std::size_t end = 0;   // the first byte of the line break, or the end of the text
    std::size_t next = 0;  // the first byte of the next record
    std::size_t fault = 0; // the byte after the closing quote, when misquoted; `next` is then that
                           // of the line after it
};

// Finds the record that starts at `start`; `record` is reused. `at_end` says that no more text
// follows, so that a record may end without a line break. Inside quotes there must be one.
Csv_outcome Scan_record(std::string_view text, std::size_t start, char delimiter, bool at_end,
                        Csv_record& record);

// What a field stands for: quotes written twice are one.
std::string Csv_content(std::string_view text, Csv_field const& field);

} // namespace Varnix::Value::Tool

#endif
