// Records of a CSV text (RFC 4180): fields between delimiters, a line break at the end; a field in
// quotes may hold delimiters, line breaks, and quotes written twice.

#ifndef VARNIX_VALUE_TOOL_CSV_H
#define VARNIX_VALUE_TOOL_CSV_H

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace Varnix::Value::Tool {

// A field, by its place in the record: the bytes [first, last), without the quotes around them.
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
    returned,   // a carriage return alone, where only a line break could be meant
};

// Finds one record after the other. A record of which only a part is there yet is scanned on from
// where the text ended, so that each byte is looked at once, however small the parts are.
class Csv_scanner {
  public:
    explicit Csv_scanner(char delimiter_) : delimiter(delimiter_) {}

    // Fields from this index on are counted, and not kept in `Fields`. None are kept at first.
    void Keep_fields(std::size_t limit) { kept = limit; }

    // `text` starts with the record; after "incomplete" it is the same text with more behind it.
    // `at_end` says that no more follows, so that a record may end without a line break. Inside
    // quotes there must be one.
    Csv_outcome Scan(std::string_view text, bool at_end);

    // Of the record that was found:
    std::vector<Csv_field> const& Fields() const { return fields; }
    std::size_t Count() const { return count; } // of its fields
    std::size_t End() const { return end; }     // the first byte of the line break
    // The first byte of the next record: that of the next line when misquoted or returned, the end
    // of the text when incomplete.
    std::size_t Next() const { return next; }

  private:
    void Start_record();
    std::size_t Find_field_end(std::string_view text);
    void Take_field(Csv_field const& field);
    void Take_last_field(std::string_view text, std::size_t place);
    Csv_outcome Suspend(std::string_view text);
    bool Ends_field(std::string_view text, std::size_t place);
    Csv_outcome Skip_line(std::string_view text, bool at_end);

    char delimiter;
    std::size_t kept = 0;
    std::vector<Csv_field> fields;
    std::size_t count = 0;
    std::size_t end = 0;
    std::size_t next = 0;
    std::size_t field_start = 0;                 // of the field that is scanned
    std::size_t searched = 0;                    // up to here its end has been looked for
    Csv_outcome outcome = Csv_outcome::complete; // otherwise the rest of the line is skipped
    bool suspended = false;                      // within a record
};

// Calls `action` for each field of `record`, which is complete and has no line break behind it.
void For_each_field(std::string_view record, char delimiter,
                    std::function<void(std::size_t index, Csv_field const& field)> const& action);

// What a field stands for: quotes written twice are one.
std::string Csv_content(std::string_view record, Csv_field const& field);

// `content` as a field in quotes.
std::string Csv_quoted(std::string_view content);

} // namespace Varnix::Value::Tool

#endif
