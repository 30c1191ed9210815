#include "Table_header.h"

#include "Shown_text.h"
#include "Written_results.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <optional>
#include <unordered_map>
#include <unordered_set>

namespace Varnix::Value::Tool {

// ---- What the command line names

namespace {

// The index that "3" stands for: 2.
std::optional<std::size_t> Index_of_number(std::string const& key) {
    std::size_t number = 0;
    auto const [end, fault] = std::from_chars(key.data(), key.data() + key.size(), number);
    bool const whole = fault == std::errc() && end == key.data() + key.size();
    return whole && number > 0 ? std::optional(number - 1) : std::nullopt;
}

// A name may hold "=" and ":", a unit neither.
Column Read_column(std::string const& text, Options const& options) {
    std::size_t const colon = text.rfind(':');
    std::size_t const equals = text.rfind('=');
    if (equals == std::string::npos || colon == std::string::npos || colon < equals) {
        throw Trouble("--column '" + text + "' is not NAME=FROM:TO");
    }
    std::string key = text.substr(0, equals);
    bool const quoted = key.size() > 1 && key.front() == '"' && key.back() == '"';
    key = quoted ? Csv_content(key, {1, key.size() - 1, true}) : key;
    std::string const from = text.substr(equals + 1, colon - equals - 1);
    std::string const to = text.substr(colon + 1);
    return {key, quoted ? std::nullopt : Index_of_number(key), to,
            Number_cells(Read_unit(from), Read_unit(to), options)};
}

} // namespace

std::vector<Column> Read_columns(std::vector<std::string> const& texts, Options const& options) {
    std::vector<Column> columns;
    std::unordered_set<std::string> keys;
    for (std::string const& text : texts) {
        columns.push_back(Read_column(text, options));
        if (!keys.insert(columns.back().key).second) {
            throw Trouble("--column names \"" + columns.back().key + "\" twice");
        }
    }
    return columns;
}

// ---- Where they are

namespace {

// The field without the blanks around its content; quotes stay outside in any case.
Csv_field Trimmed_field(std::string_view header, Csv_field const& field) {
    std::string_view const content = Trimmed(header.substr(field.first, field.last - field.first));
    if (content.empty()) {
        return {field.first, field.first, field.quoted};
    }
    auto const first = static_cast<std::size_t>(content.data() - header.data());
    return {first, first + content.size(), field.quoted};
}

// The fields that a key may mean.
struct Found {
    std::size_t named = 0;      // how many have it as their name
    std::size_t name_index = 0; // the first of these
    Csv_field name_field = {};
    std::optional<Csv_field> numbered; // the one whose number it is
};

// What the keys of the columns may mean, in one walk through the header, which may be long.
std::unordered_map<std::string, Found> Search(std::vector<Column> const& columns,
                                              std::string_view header, char delimiter) {
    std::unordered_map<std::string, Found> by_key;
    std::unordered_map<std::size_t, Found*> by_index;
    for (Column const& column : columns) {
        Found& found = by_key[column.key];
        if (column.number) {
            by_index[*column.number] = &found; // which stays where it is, whatever is put in later
        }
    }
    For_each_field(header, delimiter, [&](std::size_t index, Csv_field const& field) {
        Csv_field const name = Trimmed_field(header, field);
        if (auto const wanted = by_key.find(Csv_content(header, name)); wanted != by_key.end()) {
            Found& found = wanted->second;
            if (++found.named == 1) {
                found.name_index = index;
                found.name_field = name;
            }
        }
        if (auto const wanted = by_index.find(index); wanted != by_index.end()) {
            wanted->second->numbered = name;
        }
    });
    return by_key;
}

// A number that is a name too could mean either; and one whose column is called a number rather
// belongs to a table without header. In both cases something would be converted silently wrong.
void Check_number(Column const& column, Found const& found, std::string_view header) {
    std::string const name = Csv_content(header, *found.numbered);
    if (found.named > 0 && name != column.key) {
        throw Refusal('"' + column.key +
                          "\" is the number of one column and the name of another: " +
                          "for the name write it in double quotes, '\"" + column.key + "\"=...'",
                      header, 0);
    }
    if (Try_parse_number(name)) {
        throw Refusal("column " + column.key + " is called \"" + name +
                          "\": write this name in double quotes, '\"" + name +
                          "\"=...', or --no-header to convert this line too",
                      header, 0);
    }
}

void Place_column(Column& column, Found const& found, std::string_view header) {
    if (column.number && found.numbered) {
        Check_number(column, found, header);
        column.index = *column.number;
        column.field = *found.numbered;
    } else if (found.named == 1) {
        column.index = found.name_index;
        column.field = found.name_field;
    } else if (found.named > 1) {
        throw Refusal("the header has several columns \"" + column.key +
                          "\"; take one by its number, as in --column 1=ft:m",
                      header, 0);
    } else {
        throw Refusal("the header has no column \"" + column.key + '"', header, 0);
    }
}

// Into the order of the table. @throws Trouble where two are the same
void Sort_columns(std::vector<Column>& columns) {
    std::sort(columns.begin(), columns.end(),
              [](Column const& left, Column const& right) { return left.index < right.index; });
    auto const twice = std::adjacent_find(
        columns.begin(), columns.end(),
        [](Column const& left, Column const& right) { return left.index == right.index; });
    if (twice != columns.end()) {
        throw Trouble("--column names one column twice: \"" + twice->key + "\" and \"" +
                      std::next(twice)->key + '"');
    }
}

} // namespace

void Find_columns(std::vector<Column>& columns, std::string_view header, char delimiter) {
    auto const found = Search(columns, header, delimiter);
    for (Column& column : columns) {
        Place_column(column, found.at(column.key), header);
    }
    Sort_columns(columns);
}

void Find_columns_by_number(std::vector<Column>& columns) {
    for (Column& column : columns) {
        if (!column.number) {
            throw Trouble("--column '" + column.key +
                          "=...': without a header columns go by their numbers, from 1 on");
        }
        column.index = *column.number;
    }
    Sort_columns(columns);
}

// ---- What becomes of the header

namespace {

// Longer texts are no names of units.
constexpr std::size_t longest_unit = 100;

bool Is_unit(std::string_view text, Units const& unit) {
    auto const read = Try_parse_unit(text);
    return read && *read == unit;
}

// Where in a name the unit stands that it ends with.
struct Unit_place {
    std::size_t first;
    std::size_t last;
};

// The unit from `first` on; the bracket that is opened in front of it is not a part of it.
std::optional<Unit_place> Unit_at(std::string_view name, std::size_t first, Units const& unit) {
    char const before = first == 0 ? '\0' : name[first - 1];
    char const closing = before == '[' ? ']' : before == '(' ? ')' : '\0';
    std::size_t const last = name.size() - (closing == name.back() ? 1 : 0);
    constexpr std::string_view no_starts = " [(";
    if (first < last && no_starts.find(name[first]) == std::string_view::npos &&
        Is_unit(name.substr(first, last - first), unit)) {
        return Unit_place{first, last};
    }
    return std::nullopt;
}

// The unit may be the whole name, or stand behind a blank or a sign; the longest one is taken.
std::optional<Unit_place> Find_unit(std::string_view name, Units const& unit) {
    constexpr std::string_view signs = " _-/,;:.[(";
    std::size_t first = name.size() > longest_unit ? name.size() - longest_unit : 0;
    while (first < name.size()) {
        if (auto const place = Unit_at(name, first, unit)) {
            return place;
        }
        std::size_t const sign = name.find_first_of(signs, first);
        first = sign == std::string_view::npos ? name.size() : sign + 1;
    }
    return std::nullopt;
}

// The name of the column with its new unit, as it stands between delimiters.
std::string Renamed(Column const& column, std::string_view header, char delimiter) {
    std::string_view const name =
        header.substr(column.field.first, column.field.last - column.field.first);
    Units const from = column.cells.Source();
    auto const place = Find_unit(name, from);
    if (!place) {
        throw Refusal("the name of column \"" + column.key + "\" does not end with its unit, " +
                          Format_unit(from) + ", so that --rename-units cannot rename it",
                      header, column.field.first);
    }
    std::string const renamed = std::string(name.substr(0, place->first)) + column.to +
                                std::string(name.substr(place->last));
    bool const needs_quotes = !column.field.quoted && column.to.find(delimiter) < column.to.size();
    return needs_quotes ? Csv_quoted(renamed) : renamed;
}

} // namespace

std::string Rename_units(std::vector<Column> const& columns, std::string_view header,
                         char delimiter) {
    std::string renamed;
    std::size_t copied = 0;
    for (Column const& column : columns) {
        renamed += header.substr(copied, column.field.first - copied);
        renamed += Renamed(column, header, delimiter);
        copied = column.field.last;
    }
    return renamed.append(header.substr(copied));
}

std::vector<std::string> Json_names(std::string_view header, char delimiter) {
    std::vector<std::string> names;
    std::unordered_set<std::string> known;
    For_each_field(header, delimiter, [&](std::size_t index, Csv_field const& field) {
        std::string_view const written = header.substr(0, field.last);
        if (std::size_t const byte = First_not_utf8(written); byte != written.size()) {
            throw Not_utf8(header, byte).At("line 1, column " + std::to_string(index + 1));
        }
        std::string const name(Trimmed(Csv_content(header, field)));
        if (!known.insert(name).second) {
            throw Refusal("the header has several columns \"" + name +
                              "\", and --json needs a name for each",
                          header, 0);
        }
        names.push_back(Json_text(name));
    });
    return names;
}

} // namespace Varnix::Value::Tool
