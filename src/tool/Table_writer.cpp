#include "Table_writer.h"

#include "Shown_text.h"
#include "Written_results.h"

namespace Varnix::Value::Tool {

// The content of a converted cell, without blanks around it.
std::string_view Cell(std::string_view record, Csv_field const& field) {
    return Trimmed(record.substr(field.first, field.last - field.first));
}

Table_writer::Table_writer(Table_request const& request_, Options const& options_, Output& output_)
    : request(request_), options(options_), output(output_),
      columns(Read_columns(request.columns, options)) {
    if (request.no_header) {
        Find_columns_by_number(columns);
    }
}

void Table_writer::Take_mark() {
    if (!header && !options.json) {
        output.Append(byte_order_mark);
    }
}

void Table_writer::Take_header(std::string_view text, std::string_view line_break) {
    if (header) {
        if (*header != text) {
            throw Refusal("the header is not that of the first table", text, 0);
        }
        return;
    }
    header = text;
    Find_columns(columns, text, request.delimiter);
    std::string const written =
        request.rename_units ? Rename_units(columns, text, request.delimiter) : *header;
    if (options.json) {
        names = Json_names(written, request.delimiter);
    } else {
        output.Append(written);
        output.Append(line_break);
    }
}

std::size_t Table_writer::Fields_needed() const {
    return options.json ? names.size() : columns.back().index + 1;
}

// ---- Records

void Table_writer::Write_record(std::string_view record, std::vector<Csv_field> const& fields,
                                Results const& results) {
    if (options.json) {
        Write_object(record, fields, results);
    } else {
        Write_converted(record, fields, results);
    }
}

bool Table_writer::Find_not_utf8(std::string_view record, std::vector<Csv_field> const& fields,
                                 Foreign_byte& found) const {
    std::size_t const position = First_not_utf8(record);
    if (position == record.size()) {
        return false;
    }
    std::size_t column = 0;
    while (column + 1 < fields.size() && fields[column].last <= position) {
        ++column;
    }
    found = {position, names[column]};
    return true;
}

void Table_writer::Write_converted(std::string_view record, std::vector<Csv_field> const& fields,
                                   Results const& results) {
    std::size_t written = 0;
    for (std::size_t k = 0; k < columns.size(); ++k) {
        if (results[k]) {
            std::string_view const cell = Cell(record, fields[columns[k].index]);
            auto const place = static_cast<std::size_t>(cell.data() - record.data());
            output.Append(record.substr(written, place - written));
            columns[k].cells.Write(*results[k], output);
            written = place + cell.size();
        }
    }
    Write_unchanged(record.substr(written));
}

void Table_writer::Write_object(std::string_view record, std::vector<Csv_field> const& fields,
                                Results const& results) {
    std::size_t column = 0; // the next one that is to be converted
    for (std::size_t k = 0; k < names.size(); ++k) {
        bool const wanted = column < columns.size() && columns[column].index == k;
        output.Append(k == 0 ? '{' : ',');
        output.Append(names[k]);
        output.Append(':');
        output.Append(wanted && results[column] ? Json_number(*results[column]).dump()
                                                : Json_text(Csv_content(record, fields[k])));
        column += wanted ? 1 : 0;
    }
    output.Append("}\n");
}

void Table_writer::Write_unchanged(std::string_view record) {
    if (!options.json) {
        output.Append(record);
        if (record.empty() || record.back() != '\n') {
            output.Append('\n');
        }
    }
}

namespace {

// `record` without the line break it may end with.
std::string_view Without_line_break(std::string_view record) {
    record.remove_suffix(!record.empty() && record.back() == '\n' ? 1 : 0);
    record.remove_suffix(!record.empty() && record.back() == '\r' ? 1 : 0);
    return record;
}

} // namespace

void Table_writer::Write_whole(std::string_view record, Refusal const& refusal) {
    if (options.json) {
        Write_refused(Without_line_break(record), refusal, options, output);
    } else {
        Write_unchanged(record);
    }
}

} // namespace Varnix::Value::Tool
