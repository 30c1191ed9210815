// What a refusal says to write is a promise: every text that a message names is read, by both libraries, and
// is of the kind and the size that was meant. The words come from the tables of the sources themselves, so
// that a row added there is tried here. The tables of docs/text.md promise the same.

#include <varnix/value/Measurement_text.h>
#include <varnix/value/text.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

namespace Varnix::Value {
namespace {

using Texts = std::vector<std::string>;

std::string Content_of(std::string const& path) {
    std::ifstream file(std::string(VALUE_OBJECT_SOURCES) + '/' + path);
    std::ostringstream content;
    content << file.rdbuf();
    EXPECT_FALSE(content.str().empty()) << path;
    return content.str();
}

Texts Matches(std::string const& text, std::regex const& pattern) {
    Texts found;
    for (std::sregex_iterator match(text.begin(), text.end(), pattern); match != std::sregex_iterator(); ++match) {
        found.push_back((*match)[1].str());
    }
    return found;
}

// The first text of each row of the tables in a source.
Texts Words_of_tables(std::string const& source) {
    return Matches(Content_of("src/text/" + source), std::regex(R"~(\n    \{"([^"]+)", *[^\n]*\},)~"));
}

// ---- The promises of a message

std::string Without_quotes(std::string text) {
    bool const quoted = text.size() > 1 && text.front() == '\'' && text.back() == '\'';
    return quoted ? text.substr(1, text.size() - 2) : text;
}

// "write kilo(m*s), km or km/s", "as in 5.00(3)e2 V", "is written milli(b)": what stands behind these words.
Texts Ways_out(Text_fault const& fault) {
    static std::regex const promises(R"((?:\bwrite|\bwritten(?: as in)?|, as in|it as in) (?!it |as |with|behind)(.*?)(?=$|; | for |: |, found))");
    static std::regex const separators(R"(, | or )");
    Texts ways;
    for (std::string const& list : Matches(fault.message, promises)) {
        for (std::sregex_token_iterator way(list.begin(), list.end(), separators, -1); way != std::sregex_token_iterator(); ++way) {
            ways.push_back(Without_quotes(way->str()));
        }
    }
    if (!fault.suggestion.empty()) {
        ways.push_back(fault.suggestion);
    }
    return ways;
}

// What is a unit and no measurement has it: points of a temperature scale take no prefix, and with a metre they are a product.
bool Is_for_value_objects_alone(std::string const& way) {
    return way == "milli(°C)" || way == "(m*°C)" || way == "dB(1/m)";
}

// The unit, or the one of the quantity.
Parse_result<Units> Unit_of(std::string const& way) {
    auto const unit = Try_parse_unit(way);
    auto const parts = Try_split_quantity(way);
    return unit || !parts ? unit : Try_parse_unit(parts->unit);
}

bool Is_of_core(Units const& unit) {
    return std::all_of(std::begin(unit.tuples), std::end(unit.tuples),
                       [](Unit_tuple const& tuple) { return tuple.unit < Value_detail::Unit_code_limit; });
}

void Follow(Text_fault const& fault, std::string const& refused) {
    for (std::string const& way : Ways_out(fault)) {
        auto const unit = Unit_of(way);
        ASSERT_TRUE(unit) << refused << ": " << fault.message << " -> " << way;
        if (!Is_for_value_objects_alone(way) && Is_of_core(*unit)) {
            auto const measured = Try_parse_measurement(Try_parse_unit(way) ? "1 " + way : way);
            EXPECT_TRUE(measured) << refused << ": " << fault.message << " -> " << way;
        }
    }
}

// The texts in which a word may come up.
Texts Texts_with(std::string const& word) {
    Texts texts;
    for (char const* const before : {"", "k", "m", "µ", "M", "p", "kilo", "milli", "h", "W/", "1/", "m*", "dB", "deg ", "K ", "10 "}) {
        for (char const* const behind : {"", "s", "^2", "^-1", "/s", "/h", "/(m*s)", " ohm", "*m", "2"}) {
            texts.push_back(before + word + behind);
        }
    }
    return texts;
}

TEST(Ways_out, Are_read) {
    std::size_t promises = 0;
    for (char const* const source : {"Foreign_units.cpp", "Unit_traps.cpp", "Unit_words.cpp", "Scpi_reader.cpp", "Unit_reader.cpp"}) {
        Texts const words = Words_of_tables(source);
        EXPECT_GT(words.size(), 4U) << source;
        for (std::string const& word : words) {
            for (std::string const& text : Texts_with(word)) {
                if (auto const unit = Try_parse_unit(text); !unit) {
                    Follow(unit.Get_fault(), text);
                    promises += Ways_out(unit.Get_fault()).size();
                }
            }
        }
    }
    EXPECT_GT(promises, 1000U);
}

TEST(Ways_out, Are_read_where_texts_are_refused) {
    std::size_t promises = 0;
    std::istringstream file(Content_of("tests/cases/refused_texts.txt"));
    for (std::string line; std::getline(file, line);) {
        std::string const text = line.substr(0, line.find(" ! "));
        bool const is_unit = text.compare(0, 5, "unit ") == 0;
        if (!line.empty() && line[0] != '#' && text.find("\\x") == std::string::npos) {
            Text_fault const fault = is_unit ? Try_parse_unit(text.substr(5)).Get_fault() : Try_parse_quantity(text).Get_fault();
            Follow(fault, text);
            promises += Ways_out(fault).size();
        }
    }
    EXPECT_GT(promises, 100U);
}

// ---- Sizes

double Size_in(std::string const& unit, std::string const& other) {
    return Parse_measurement("1 " + unit).Convert_to(Parse_unit(other)).Get_value();
}

// The prefix of what is refused goes over to what is to be written.
TEST(Ways_out, Have_the_prefix_of_the_word) {
    std::map<std::string, double> const prefixes = {{"k", 1e3}, {"m", 1e-3}, {"µ", 1e-6}, {"G", 1e9}};
    std::size_t sizes = 0;
    for (std::string const& word : Words_of_tables("Foreign_units.cpp")) {
        Texts const own = Try_parse_unit(word) ? Texts() : Ways_out(Try_parse_unit(word).Get_fault());
        for (auto const& [prefix, scale] : prefixes) {
            auto const unit = Try_parse_unit(prefix + word);
            Texts const ways = unit ? Texts() : Ways_out(unit.Get_fault());
            if (own.size() == 1 && ways.size() == 1 && unit.Get_fault().suggestion.empty()) {
                EXPECT_DOUBLE_EQ(Size_in(ways[0], own[0]), scale) << prefix + word << " -> " << ways[0];
                ++sizes;
            }
        }
    }
    EXPECT_GT(sizes, 20U);
}

// To instruments the multiplier goes over to what is to be written.
TEST(Ways_out, Are_suffixes_to_instruments) {
    std::map<std::string, double> const multipliers = {{"", 1.0}, {"K", 1e3}, {"M", 1e-3}, {"MA", 1e6}, {"U", 1e-6}, {"P", 1e-12}};
    std::size_t sizes = 0;
    for (std::string const& word : Words_of_tables("Scpi_reader.cpp")) {
        auto const plain = Try_parse_unit(word, Dialect::scpi);
        Texts const own = plain ? Texts() : Ways_out(plain.Get_fault());
        for (auto const& [multiplier, scale] : multipliers) {
            auto const unit = Try_parse_unit(multiplier + word, Dialect::scpi);
            Texts const ways = unit ? Texts() : Ways_out(unit.Get_fault());
            for (std::string const& way : ways) {
                auto const read = Try_parse_unit(way, Dialect::scpi);
                ASSERT_TRUE(read) << multiplier + word << " -> " << way;
                if (own.size() == 1 && way != own[0]) {
                    Measurement const scaled = Measurement(1.0, *read).Convert_to(Parse_unit(own[0], Dialect::scpi));
                    EXPECT_DOUBLE_EQ(scaled.Get_value(), scale) << multiplier + word << " -> " << way;
                    ++sizes;
                }
            }
        }
    }
    EXPECT_GT(sizes, 10U);
    for (auto const& [text, way] :
         std::map<std::string, std::string>{{"MBIT", "MABIT"}, {"MBYTE", "MABYTE"}, {"DBS", "DB"}, {"DBMS", "DBM"}, {"DBC", "DB"}}) {
        EXPECT_EQ(Ways_out(Try_parse_unit(text, Dialect::scpi).Get_fault()), Texts{way});
        EXPECT_TRUE(Try_parse_unit(way, Dialect::scpi)) << way;
    }
}

// ---- The tables of the document

// The cells of the rows, and of each the heading of its table last.
std::vector<Texts> Rows_of_tables(std::string const& document) {
    std::vector<Texts> rows;
    std::istringstream lines(document);
    std::string heading;
    bool in_table = false;
    for (std::string line; std::getline(lines, line);) {
        if (line.compare(0, 2, "| ") != 0) {
            in_table = false;
            continue;
        }
        Texts cells;
        std::istringstream row(line.substr(2, line.size() - 4));
        for (std::string cell; std::getline(row, cell, '|');) {
            cells.push_back(cell);
        }
        if (!in_table) {
            heading = cells.back();
            in_table = true;
        } else if (line.compare(0, 5, "| ---") != 0) {
            cells.push_back(heading);
            rows.push_back(cells);
        }
    }
    return rows;
}

Texts Codes(std::string const& cell) {
    return Matches(cell, std::regex("`([^`]+)`"));
}

bool Reads(std::string const& text) {
    return static_cast<bool>(Unit_of(text));
}

TEST(Ways_out, Of_the_document_are_read) {
    std::size_t ways = 0;
    std::size_t texts = 0;
    for (Texts const& row : Rows_of_tables(Content_of("docs/text.md"))) {
        std::string const& heading = row.back();
        std::string const& last = row[row.size() - 2];
        bool const all =
            heading.find("write") != std::string::npos || heading.find("written") != std::string::npos || heading.find("here") != std::string::npos;
        std::size_t const promise = last.find("rite `");
        for (std::string const& way : all ? Codes(last) : promise == std::string::npos ? Texts() : Codes(last.substr(promise))) {
            EXPECT_TRUE(Reads(way)) << row[0] << " -> " << way;
            ++ways;
        }
        bool const accepted = row[1].compare(0, 9, " accepted") == 0;
        bool const refused = row[1].compare(0, 8, " refused") == 0;
        for (std::string const& text : accepted || refused ? Codes(row[0]) : Texts()) {
            EXPECT_EQ(Reads(text), accepted) << text;
            ++texts;
        }
    }
    EXPECT_GT(ways, 60U);
    EXPECT_GT(texts, 60U);
}

} // namespace
} // namespace Varnix::Value
