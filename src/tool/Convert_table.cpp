// `convert --csv`: columns of tables, the rest of which passes through byte for byte.

#include "Csv.h"
#include "Streams.h"
#include "Table_writer.h"
#include "Written_results.h"

#include <algorithm>
#include <cstdint>
#include <optional>

namespace Varnix::Value::Tool {

namespace {

constexpr std::size_t longest_record = std::size_t(1) << 24U;

std::uint64_t Line_breaks(std::string_view text) {
    return static_cast<std::uint64_t>(std::count(text.begin(), text.end(), '\n'));
}

char const* Reason_of(Csv_outcome outcome) {
    return outcome == Csv_outcome::incomplete  ? "a quote is not closed before the end"
           : outcome == Csv_outcome::misquoted ? "a delimiter was expected after the closing quote"
                                               : Bare_return;
}

// Reads one table.
class Table {
  public:
    Table(std::string const& name, Table_request const& request, Options const& options_,
          Table_writer& writer_, Output& output_)
        : input(name), scanner(request.delimiter), options(options_), writer(writer_),
          output(output_), has_header(!request.no_header) {
        if (!has_header) {
            scanner.Keep_fields(writer.Fields_needed());
        }
    }

    Exit_status Run() {
        while (!stopped && !input.At_end()) {
            std::string_view const text = input.Read_more();
            std::size_t const consumed = Take(text, input.At_end());
            if (!stopped && text.size() - consumed > longest_record) {
                throw Refusal(input.Place(line) +
                              ": a record is longer than 16 MiB; is a quote not closed?");
            }
            input.Consume(consumed);
            output.Flush(); // what has been read is answered, also while a pipe stays open
        }
        if (column_count == 0 && has_header && !stopped) {
            throw Refusal(input.Description() + " is empty, and a header was expected");
        }
        return status;
    }

    bool Stopped() const { return stopped; }

  private:
    // Takes the whole records of `text`, and the rest as well at the end of the input.
    std::size_t Take(std::string_view text, bool at_end) {
        std::size_t start = 0;
        if (!Take_mark(text, at_end, start)) {
            return 0;
        }
        while (!stopped && start < text.size()) {
            Csv_outcome const outcome = scanner.Scan(text.substr(start), at_end);
            if (outcome == Csv_outcome::incomplete && !at_end) {
                break;
            }
            std::string_view const record = text.substr(start, scanner.Next());
            Take_record(record, outcome);
            line += Line_breaks(record);
            start += record.size();
        }
        return start;
    }

    // The byte order mark, with which a table may begin; false where more of it has to come.
    bool Take_mark(std::string_view text, bool at_end, std::size_t& start) {
        if (mark_is_past) {
            return true;
        }
        std::string_view const begin = text.substr(0, byte_order_mark.size());
        if (!at_end && begin.size() < byte_order_mark.size() &&
            begin == byte_order_mark.substr(0, begin.size())) {
            return false;
        }
        mark_is_past = true;
        if (begin == byte_order_mark) {
            writer.Take_mark();
            start = byte_order_mark.size();
        }
        return true;
    }

    void Take_record(std::string_view record, Csv_outcome outcome) {
        if (column_count == 0 && !has_header && outcome == Csv_outcome::complete) {
            Take_width();
        }
        if (outcome != Csv_outcome::complete) {
            Pass_on(record, Refusal(Reason_of(outcome)));
        } else if (column_count == 0) {
            Take_header(record);
        } else if (scanner.End() == 0) {
            writer.Write_unchanged(record); // a blank line
        } else if (scanner.Count() != column_count) {
            Pass_on(record, Refusal("cells in this line: " + std::to_string(scanner.Count()) +
                                    (has_header ? "; in the header: " : "; in the first: ") +
                                    std::to_string(column_count)));
        } else if (options.json && writer.Find_not_utf8(record, scanner.Fields(), not_utf8)) {
            Refuse_bytes(record);
        } else {
            Convert_record(record);
        }
    }

    void Take_header(std::string_view record) {
        std::string_view const line_break = record.substr(scanner.End());
        writer.Take_header(record.substr(0, scanner.End()), line_break.empty() ? "\n" : line_break);
        column_count = scanner.Count();
        scanner.Keep_fields(writer.Fields_needed());
    }

    // Without a header the first record says how many columns there are.
    void Take_width() {
        column_count = scanner.Count();
        if (column_count < writer.Fields_needed()) {
            throw Refusal(input.Place(line) + ": there is no column " +
                          writer.Columns().back().key);
        }
    }

    // Converts what can be converted; nothing is written of a record at which the command stops.
    void Convert_record(std::string_view record) {
        auto const& columns = writer.Columns();
        results.assign(columns.size(), std::nullopt);
        std::uint64_t cell_line = line;
        std::size_t counted = 0; // up to here the line breaks are in cell_line
        for (std::size_t k = 0; k < columns.size(); ++k) {
            std::string_view const cell = Cell(record, scanner.Fields()[columns[k].index]);
            if (cell.empty()) {
                continue;
            }
            try {
                results[k] = columns[k].cells.Convert(cell);
            } catch (Refusal const& refusal) {
                auto const place = static_cast<std::size_t>(cell.data() - record.data());
                cell_line += Line_breaks(record.substr(counted, place - counted));
                counted = place;
                Tell(refusal, input.Place(cell_line) + ", column " + columns[k].key);
            }
        }
        if (!stopped) {
            writer.Write_record(record, scanner.Fields(), results);
        }
    }

    // A record that no JSON string can hold.
    void Refuse_bytes(std::string_view record) {
        std::uint64_t const byte_line = line + Line_breaks(record.substr(0, not_utf8.position));
        Tell(Not_utf8(record, not_utf8.position),
             input.Place(byte_line) + ", column " + not_utf8.column);
        if (!stopped) {
            writer.Write_whole(record, Not_utf8(record, not_utf8.position));
        }
    }

    // A record that is refused as a whole.
    void Pass_on(std::string_view record, Refusal const& refusal) {
        if (column_count == 0) {
            throw Refusal(input.Place(line) + ": " + refusal.what());
        }
        Tell(refusal, input.Place(line));
        if (!stopped) {
            writer.Write_whole(record, refusal);
        }
    }

    void Tell(Refusal const& refusal, std::string const& place) {
        output.Flush();
        Report(refusal, place);
        status = exit_refused;
        stopped = !options.keep_going;
    }

    Input input;
    Csv_scanner scanner;
    Options const& options;
    Table_writer& writer;
    Output& output;
    Table_writer::Results results; // of the record
    Foreign_byte not_utf8{};       // likewise, for objects
    std::size_t column_count = 0;  // of the header; 0 before it has been read
    std::uint64_t line = 1;        // where the record starts
    Exit_status status = exit_done;
    bool has_header;
    bool mark_is_past = false;
    bool stopped = false;
};

} // namespace

Exit_status Convert_table(Table_request const& request, Options const& options, Output& output) {
    Table_writer writer(request, options, output);
    Exit_status status = exit_done;
    for (std::string const& name : request.files) {
        Table table(name, request, options, writer, output);
        status = std::max(status, table.Run());
        if (table.Stopped()) {
            break;
        }
    }
    return status;
}

} // namespace Varnix::Value::Tool
