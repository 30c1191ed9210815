#include "Csv.h"

#include <algorithm>
#include <cstring>

namespace Varnix::Value::Tool {

namespace {

constexpr std::size_t nowhere = std::string_view::npos;

std::size_t Find(std::string_view text, char byte, std::size_t from) {
    void const* const found = std::memchr(text.data() + from, byte, text.size() - from);
    return found == nullptr
               ? nowhere
               : static_cast<std::size_t>(static_cast<char const*>(found) - text.data());
}

// The closing quote of a field, looked for from a place within it on. A quote with which the text
// ends is one, unless more text shows that it is the first of two.
std::size_t Closing_quote(std::string_view text, std::size_t from) {
    std::size_t place = Find(text, '"', from);
    while (place != nowhere && place + 1 < text.size() && text[place + 1] == '"') {
        place = Find(text, '"', place + 2);
    }
    return place;
}

// The delimiter or line break that ends an unquoted field, or the end of the text.
std::size_t End_of_plain_field(std::string_view text, std::size_t from, char delimiter) {
    std::size_t place = from;
    while (place < text.size() && text[place] != delimiter && text[place] != '\n' &&
           text[place] != '\r') {
        ++place;
    }
    return place;
}

bool Starts_quoted(std::string_view text, std::size_t field_start) {
    return field_start < text.size() && text[field_start] == '"';
}

// The field between its start and its end, the quotes left out.
Csv_field Field_between(std::string_view text, std::size_t start, std::size_t end) {
    bool const quoted = Starts_quoted(text, start);
    return quoted ? Csv_field{start + 1, end - 1, true} : Csv_field{start, end, false};
}

// A line break may be "\r\n", or what is there of it at the end of the text.
bool At_line_break(std::string_view text, std::size_t place) {
    return text[place] == '\n' ||
           (text[place] == '\r' && (place + 1 == text.size() || text[place + 1] == '\n'));
}

// Whether it takes more text to tell what the byte behind a field is.
bool Needs_more(std::string_view text, std::size_t place) {
    return place == text.size() || (text[place] == '\r' && place + 1 == text.size());
}

} // namespace

Csv_outcome Csv_scanner::Scan(std::string_view text, bool at_end) {
    if (!suspended) {
        Start_record();
    }
    while (outcome == Csv_outcome::complete) {
        std::size_t const place = Find_field_end(text);
        if (place == nowhere || (Needs_more(text, place) && !at_end)) {
            return Suspend(text);
        }
        if (place == text.size() || At_line_break(text, place)) {
            Take_last_field(text, place);
            return outcome;
        }
        if (Ends_field(text, place)) {
            Take_field(Field_between(text, field_start, place));
            field_start = place + 1;
            searched = field_start;
        }
    }
    return Skip_line(text, at_end);
}

// Whether the byte behind a field is a delimiter; if not, the record is given up.
bool Csv_scanner::Ends_field(std::string_view text, std::size_t place) {
    bool const is_end = text[place] == delimiter;
    outcome = is_end                ? Csv_outcome::complete
              : text[place] == '\r' ? Csv_outcome::returned
                                    : Csv_outcome::misquoted;
    return is_end;
}

void Csv_scanner::Start_record() {
    fields.clear();
    count = 0;
    field_start = 0;
    searched = 0;
    outcome = Csv_outcome::complete;
}

// The byte behind the field; `nowhere` where its closing quote is not there.
std::size_t Csv_scanner::Find_field_end(std::string_view text) {
    if (!Starts_quoted(text, field_start)) {
        searched = End_of_plain_field(text, searched, delimiter);
        return searched;
    }
    std::size_t const closing = Closing_quote(text, std::max(searched, field_start + 1));
    searched = std::min(closing, text.size());
    return closing == nowhere ? nowhere : closing + 1;
}

Csv_outcome Csv_scanner::Suspend(std::string_view text) {
    suspended = true;
    next = text.size();
    return Csv_outcome::incomplete;
}

void Csv_scanner::Take_field(Csv_field const& field) {
    if (count < kept) {
        fields.push_back(field);
    }
    ++count;
}

void Csv_scanner::Take_last_field(std::string_view text, std::size_t place) {
    Take_field(Field_between(text, field_start, place));
    end = place;
    next = std::min(place + (text.substr(place, 1) == "\r" ? 2U : 1U), text.size());
    suspended = false;
}

// The line is given up, and the next one is a new record.
Csv_outcome Csv_scanner::Skip_line(std::string_view text, bool at_end) {
    std::size_t const line_end = Find(text, '\n', searched);
    if (line_end == nowhere && !at_end) {
        searched = text.size();
        return Suspend(text);
    }
    next = line_end == nowhere ? text.size() : line_end + 1;
    suspended = false;
    return outcome;
}

void For_each_field(std::string_view record, char delimiter,
                    std::function<void(std::size_t index, Csv_field const& field)> const& action) {
    std::size_t start = 0;
    for (std::size_t index = 0;; ++index) {
        std::size_t const end = Starts_quoted(record, start)
                                    ? Closing_quote(record, start + 1) + 1
                                    : End_of_plain_field(record, start, delimiter);
        action(index, Field_between(record, start, end));
        if (end >= record.size()) {
            return;
        }
        start = end + 1;
    }
}

std::string Csv_content(std::string_view record, Csv_field const& field) {
    std::string content;
    for (std::size_t place = field.first; place < field.last; ++place) {
        content += record[place];
        place += field.quoted && record[place] == '"' ? 1U : 0U;
    }
    return content;
}

std::string Csv_quoted(std::string_view content) {
    std::string quoted = "\"";
    for (char const byte : content) {
        quoted.append(byte == '"' ? 2 : 1, byte);
    }
    return quoted + '"';
}

} // namespace Varnix::Value::Tool
