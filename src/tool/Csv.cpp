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

// The closing quote of the field whose content starts at `first`.
std::size_t Closing_quote(std::string_view text, std::size_t first) {
    std::size_t place = Find(text, '"', first);
    while (place != nowhere && place + 1 < text.size() && text[place + 1] == '"') {
        place = Find(text, '"', place + 2);
    }
    return place;
}

// The delimiter or line break that ends an unquoted field, or the end of the text.
std::size_t End_of_plain_field(std::string_view text, std::size_t first, char delimiter) {
    std::size_t place = first;
    while (place < text.size() && text[place] != delimiter && text[place] != '\n') {
        ++place;
    }
    return place;
}

// Where the field at `first` ends; `nowhere` where the text ends before.
std::size_t Take_field(std::string_view text, std::size_t first, char delimiter,
                       std::vector<Csv_field>& fields) {
    if (first == text.size() || text[first] != '"') {
        std::size_t const last = End_of_plain_field(text, first, delimiter);
        fields.push_back({first, last, false});
        return last;
    }
    std::size_t const closing = Closing_quote(text, first + 1);
    if (closing == nowhere) {
        return nowhere;
    }
    fields.push_back({first + 1, closing, true});
    return closing + 1;
}

// A line break may be "\r\n": the "\r" belongs to no field.
bool At_carriage_return(std::string_view text, std::size_t place) {
    return text[place] == '\r' && place + 1 < text.size() && text[place + 1] == '\n';
}

} // namespace

Csv_outcome Scan_record(std::string_view text, std::size_t start, char delimiter, bool at_end,
                        Csv_record& record) {
    record.fields.clear();
    std::size_t place = start;
    while (true) {
        place = Take_field(text, place, delimiter, record.fields);
        if (place == nowhere || (place >= text.size() && !at_end)) {
            return Csv_outcome::incomplete;
        }
        if (place == text.size() || text[place] == '\n' || At_carriage_return(text, place)) {
            break;
        }
        if (text[place] != delimiter) {
            std::size_t const line_end = Find(text, '\n', place);
            record.fault = place;
            record.next = line_end == nowhere ? text.size() : line_end + 1;
            return line_end == nowhere && !at_end ? Csv_outcome::incomplete
                                                  : Csv_outcome::misquoted;
        }
        ++place;
    }
    Csv_field& last = record.fields.back();
    bool const return_in_field = !last.quoted && place < text.size() && last.last > last.first &&
                                 text[last.last - 1] == '\r';
    last.last -= return_in_field ? 1U : 0U;
    record.end = return_in_field ? place - 1 : place;
    record.next = place == text.size() ? place : Find(text, '\n', place) + 1;
    return Csv_outcome::complete;
}

std::string Csv_content(std::string_view text, Csv_field const& field) {
    std::string content;
    for (std::size_t place = field.first; place < field.last; ++place) {
        content += text[place];
        place += field.quoted && text[place] == '"' ? 1U : 0U;
    }
    return content;
}

} // namespace Varnix::Value::Tool
