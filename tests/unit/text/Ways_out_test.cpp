// What a refusal says to write is a promise: every text that a message names is read, by both libraries, and
// is of the kind and the size that was meant. The words come from the tables of the sources themselves, so
// that a row added there is tried here. The tables of docs/text.md promise the same.

#include <varnix/value/Measurement_text.h>
#include <varnix/value/text.h>

#include <gtest/gtest.h>

#include <fstream>
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
    return way == "milli(°C)" || way == "(m*°C)";
}

void Follow(Text_fault const& fault, std::string const& refused) {
    for (std::string const& way : Ways_out(fault)) {
        bool const unit = static_cast<bool>(Try_parse_unit(way));
        EXPECT_TRUE(unit || Try_parse_quantity(way)) << refused << ": " << fault.message << " -> " << way;
        if (!Is_for_value_objects_alone(way)) {
            auto const measured = Try_parse_measurement(unit ? "1 " + way : way);
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

// ---- Kinds and sizes

// A unit of each kind that messages name.
std::map<std::string, char const*> const kinds = {
    {"force", "g*m/s^2"},
    {"pressure", "g/(m*s^2)"},
    {"energy", "W*s"},
    {"electric charge (a temperature is °C)", "A*s"},
    {"electric charge", "A*s"},
    {"capacitance (a temperature is °F)", "s/ohm"},
    {"capacitance", "s/ohm"},
    {"inductance", "ohm*s"},
    {"conductance", "1/ohm"},
    {"magnetic flux", "V*s"},
    {"magnetic flux density", "V*s/m^2"},
    {"torque", "g*m^2/s^2"},
    {"reactive power", "W"},
    {"activity", "1/s"},
    {"volume", "m^3"},
    {"area", "m^2"},
    {"length", "m"},
    {"mass", "g"},
    {"rotational speed", "1/s"},
    {"speed", "m/s"},
    {"voltage", "V"},
    {"current", "A"},
    {"symbol rate", "1/s"},
    {"data rate", "b/s"},
};

struct Foreign {
    std::string kind;
    std::string way; // or empty
};

Foreign Parts_of(std::string const& message) {
    std::smatch parts;
    bool const found = std::regex_match(message, parts, std::regex(R"('.*' is not in the catalogue: (.*?)(?:; write (.*))?)"));
    return found ? Foreign{parts[1].str(), parts[2].str()} : Foreign{};
}

double Size_in(std::string const& unit, std::string const& other) {
    return Parse_measurement("1 " + unit).Convert_to(Parse_unit(other)).Get_value();
}

TEST(Ways_out, Are_of_the_kind_and_size_of_the_word) {
    std::map<std::string, double> const prefixes = {{"", 1.0}, {"k", 1e3}, {"m", 1e-3}, {"µ", 1e-6}, {"G", 1e9}, {"kilo", 1e3}, {"milli", 1e-3}};
    std::map<std::string, char const*> const exact = {// written as a power of ten, or as another unit altogether
                                                      {"mbar", "(10^2 kg/(m*s^2))"},
                                                      {"hPa", "(10^2 kg/(m*s^2))"}};
    std::size_t sizes = 0;
    for (std::string const& word : Words_of_tables("Foreign_units.cpp")) {
        auto const plain = Try_parse_unit(word);
        Foreign const own = plain ? Foreign{} : Parts_of(plain.Get_fault().message);
        if (own.way.empty()) {
            continue;
        }
        ASSERT_EQ(kinds.count(own.kind), 1U) << word << ": " << own.kind;
        EXPECT_TRUE(Same_kind(Parse_unit(own.way), Parse_unit(kinds.at(own.kind)))) << word << " -> " << own.way;
        for (auto const& [prefix, scale] : prefixes) {
            auto const unit = Try_parse_unit(prefix + word);
            Foreign const prefixed = unit ? Foreign{} : Parts_of(unit.Get_fault().message);
            if (!prefixed.way.empty() && exact.count(prefix + word) == 0 && prefixed.kind == own.kind) {
                EXPECT_DOUBLE_EQ(Size_in(prefixed.way, own.way), scale) << prefix + word << " -> " << prefixed.way;
                ++sizes;
            }
        }
    }
    EXPECT_GT(sizes, 100U);
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
    EXPECT_GT(sizes, 20U);
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
    return Try_parse_unit(text) || Try_parse_quantity(text);
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
