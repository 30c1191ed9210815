// `convert --csv`: columns of a table, the rest of which passes through byte for byte.

#include "Csv.h"
#include "Number_cells.h"
#include "Written_results.h"

#include <algorithm>
#include <cstdint>
#include <optional>

namespace Varnix::Value::Tool {

namespace {

constexpr std::size_t longest_record = std::size_t(1) << 24U;
constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";

// A column to convert.
struct Column {
    std::string name;
    Number_cells cells;
    std::size_t index = 0; // of its field, once the header has been read
};

// "NAME=FROM:TO". A name may hold "=" and ":", a unit neither.
Column Read_column(std::string const& text, Options const& options) {
    std::size_t const colon = text.rfind(':');
    std::size_t const equals = text.rfind('=');
    if (equals == std::string::npos || colon == std::string::npos || colon < equals) {
        throw Trouble("--column '" + text + "' is not NAME=FROM:TO");
    }
    return {text.substr(0, equals),
            Number_cells(Read_unit(text.substr(equals + 1, colon - equals - 1)),
                         Read_unit(text.substr(colon + 1)), options)};
}

class Table {
  public:
    Table(Table_request const& request, Options const& options_, Output& output_)
        : delimiter(request.delimiter), options(options_), output(output_) {
        for (std::string const& text : request.columns) {
            columns.push_back(Read_column(text, options));
            for (std::size_t k = 0; k + 1 < columns.size(); ++k) {
                if (columns[k].name == columns.back().name) {
                    throw Trouble("--column names \"" + columns[k].name + "\" twice");
                }
            }
        }
    }

    Exit_status Run() {
        Input input;
        while (!stopped && !input.At_end()) {
            std::string_view const text = input.Read_more();
            std::size_t const consumed = Take(text, input.At_end());
            if (!stopped && text.size() - consumed > longest_record) {
                throw Refusal("line " + std::to_string(line) +
                              ": a record is longer than 16 MiB; is a quote not closed?");
            }
            input.Consume(consumed);
            output.Flush(); // what has been read is answered, also while a pipe stays open
        }
        if (header.empty() && !stopped) {
            throw Refusal("standard input is empty, and a header was expected");
        }
        return status;
    }

  private:
    // Takes the whole records of `text`, and the rest as well at the end of the input.
    std::size_t Take(std::string_view text, bool at_end) {
        std::size_t start = 0;
        while (!stopped && start < text.size()) {
            Csv_outcome const outcome = Scan_record(text, start, delimiter, at_end, record);
            if (outcome == Csv_outcome::incomplete && !at_end) {
                break;
            }
            if (outcome == Csv_outcome::complete) {
                Take_record(text, start);
            } else {
                bool const open = outcome == Csv_outcome::incomplete;
                record.next = open ? text.size() : record.next;
                Pass_on(text, start,
                        Refusal(open ? "a quote is not closed before the end"
                                     : "a delimiter was expected after the closing quote"));
            }
            line += static_cast<std::uint64_t>(
                std::count(text.begin() + static_cast<std::ptrdiff_t>(start),
                           text.begin() + static_cast<std::ptrdiff_t>(record.next), '\n'));
            start = record.next;
        }
        return start;
    }

    void Take_record(std::string_view text, std::size_t start) {
        if (header.empty()) {
            Take_header(text, start);
        } else if (record.fields.size() == 1 && record.end == start) {
            Write_unchanged(text, start); // a blank line
        } else if (record.fields.size() != header.size()) {
            Pass_on(text, start,
                    Refusal("cells in this line: " + std::to_string(record.fields.size()) +
                            "; in the header: " + std::to_string(header.size())));
        } else {
            Convert_record(text, start);
        }
    }

    // ---- The header

    void Take_header(std::string_view text, std::size_t start) {
        bool const marked = text.substr(start, byte_order_mark.size()) == byte_order_mark;
        if (marked) {
            // The mark hides the quote of the first field.
            Csv_record rest;
            std::size_t const after = start + byte_order_mark.size();
            if (Scan_record(text, after, delimiter, true, rest) == Csv_outcome::complete) {
                record = rest;
            }
        }
        for (Csv_field const& field : record.fields) {
            header.emplace_back(Trimmed(Csv_content(text, field)));
        }
        std::string_view const line_text = text.substr(start, record.end - start);
        for (Column& column : columns) {
            column.index = Find_column(column.name, line_text);
        }
        if (options.json) {
            Check_names(line_text);
        } else {
            Write_unchanged(text, start);
        }
    }

    std::size_t Find_column(std::string const& name, std::string_view line_text) const {
        auto const found = std::find(header.begin(), header.end(), name);
        if (found == header.end()) {
            throw Refusal("the header has no column \"" + name + '"', line_text, 0);
        }
        if (std::find(found + 1, header.end(), name) != header.end()) {
            throw Refusal("the header has several columns \"" + name + '"', line_text, 0);
        }
        return static_cast<std::size_t>(found - header.begin());
    }

    // The members of an object have names of their own.
    void Check_names(std::string_view line_text) const {
        for (std::string const& name : header) {
            Find_column(name, line_text);
        }
    }

    // ---- Records

    // Converts what can be converted; nothing is written of a record at which the command stops.
    void Convert_record(std::string_view text, std::size_t start) {
        results.assign(columns.size(), std::nullopt);
        for (std::size_t k = 0; k < columns.size(); ++k) {
            Csv_field const& field = record.fields[columns[k].index];
            std::string_view const cell =
                Trimmed(text.substr(field.first, field.last - field.first));
            if (cell.empty()) {
                continue;
            }
            try {
                results[k] = columns[k].cells.Convert(cell);
            } catch (Refusal const& refusal) {
                auto const line_breaks = std::count(
                    text.begin() + static_cast<std::ptrdiff_t>(start), cell.begin(), '\n');
                Tell(refusal, line + static_cast<std::uint64_t>(line_breaks),
                     ", column " + columns[k].name);
            }
        }
        if (stopped) {
            return;
        }
        if (options.json) {
            Write_object(text);
        } else {
            Write_converted(text, start);
        }
    }

    void Write_converted(std::string_view text, std::size_t start) {
        std::size_t written = start;
        for (std::size_t const k : Columns_in_order()) {
            if (results[k]) {
                Csv_field const& field = record.fields[columns[k].index];
                std::string_view const cell =
                    Trimmed(text.substr(field.first, field.last - field.first));
                auto const place = static_cast<std::size_t>(cell.data() - text.data());
                output.Append(text.substr(written, place - written));
                columns[k].cells.Write(*results[k], output);
                written = place + cell.size();
            }
        }
        Write_unchanged(text, written);
    }

    // The columns as they stand in the table, not as the command line names them.
    std::vector<std::size_t> const& Columns_in_order() {
        if (order.empty()) {
            for (std::size_t k = 0; k < columns.size(); ++k) {
                order.push_back(k);
            }
            std::sort(order.begin(), order.end(), [&](std::size_t left, std::size_t right) {
                return columns[left].index < columns[right].index;
            });
        }
        return order;
    }

    void Write_object(std::string_view text) {
        Json object;
        for (std::size_t k = 0; k < header.size(); ++k) {
            object[header[k]] = Csv_content(text, record.fields[k]);
        }
        for (std::size_t k = 0; k < columns.size(); ++k) {
            if (results[k]) {
                object[columns[k].name] = Json_number(*results[k]);
            }
        }
        Write(object, output);
    }

    // ---- What stays as it is

    void Write_unchanged(std::string_view text, std::size_t from) {
        std::string_view const rest = text.substr(from, record.next - from);
        if (!options.json) {
            output.Append(rest);
            if (rest.empty() || rest.back() != '\n') {
                output.Append('\n');
            }
        }
    }

    // A record that is refused as a whole.
    void Pass_on(std::string_view text, std::size_t start, Refusal const& refusal) {
        if (header.empty()) {
            throw Refusal("line " + std::to_string(line) + ": " + refusal.what());
        }
        Tell(refusal, line, "");
        if (!stopped && options.json) {
            Write_refused(Trimmed(text.substr(start, record.next - start - 1)), refusal, options,
                          output);
        } else if (!stopped) {
            Write_unchanged(text, start);
        }
    }

    void Tell(Refusal const& refusal, std::uint64_t at_line, std::string const& column) {
        output.Flush();
        Report(refusal, "line " + std::to_string(at_line) + column);
        status = exit_refused;
        stopped = !options.keep_going;
    }

    char delimiter;
    Options const& options;
    Output& output;
    std::vector<Column> columns;
    std::vector<std::size_t> order;
    std::vector<std::string> header;
    Csv_record record;
    std::vector<std::optional<double>> results; // of the record, by column; empty where unchanged
    std::uint64_t line = 1;                     // where the record starts
    Exit_status status = exit_done;
    bool stopped = false;
};

} // namespace

Exit_status Convert_table(Table_request const& request, Options const& options, Output& output) {
    return Table(request, options, output).Run();
}

} // namespace Varnix::Value::Tool
