// The units beyond the core, compared with the rows of cases/engineering_units.txt: their texts and kinds, the
// prefixes that they take, and their sizes as exact fractions.

#include "measurement/Physical_units.h"

#include "Reference_number.h"

#include <varnix/value/Engineering_units.h>
#include <varnix/value/Measurement.h>
#include <varnix/value/Measurement_text.h>
#include <varnix/value/Text_formatting.h>
#include <varnix/value/Unit_kinds.h>
#include <varnix/value/Units_library.h>

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace Varnix::Value::Tests {
namespace {

// ---- The rows

struct Row {
    Units unit;
    std::string symbol;
    std::string name;
    std::string quantity;
    std::string si_unit;
    std::string size;
    std::string prefixes;
};

std::vector<std::string> Columns_of(std::string const& line) {
    std::vector<std::string> columns;
    for (std::size_t start = 0; start < line.size();) {
        std::size_t const end = line.find("  ", start);
        columns.push_back(line.substr(start, end - start));
        start = line.find_first_not_of(' ', end);
    }
    return columns;
}

std::vector<Row> Rows() {
    std::ifstream file(VALUE_OBJECT_TEST_CASES "/engineering_units.txt");
    std::vector<Row> rows;
    for (std::string line; std::getline(file, line);) {
        if (line.empty() || line[0] == '#') {
            continue;
        }
        std::vector<std::string> const columns = Columns_of(line);
        if (columns.size() != 7) {
            ADD_FAILURE() << "no seven columns: " << line;
            continue;
        }
        auto const code = static_cast<Units_list>(std::stoi(columns[0]));
        rows.push_back({{SPL_NONE, NO_PREFIX, {{code, 1}}}, columns[1], columns[2], columns[3], columns[4], columns[5], columns[6]});
    }
    return rows;
}

template <typename Function>
void For_each_row(Function check) {
    for (Row const& row : Rows()) {
        SCOPED_TRACE(row.symbol);
        check(row);
    }
}

// ---- Sizes

// A fraction times powers of pi and of the natural logarithm of ten.
struct Exact_size {
    mpq_class fraction = 1;
    int pi = 0;
    int ln10 = 0;

    bool operator==(Exact_size const& other) const { return fraction == other.fraction && pi == other.pi && ln10 == other.ln10; }
};

std::ostream& operator<<(std::ostream& stream, Exact_size const& size) {
    return stream << size.fraction << " pi^" << size.pi << " ln10^" << size.ln10;
}

mpq_class Raised(mpq_class const& base, int power) {
    mpq_class result = 1;
    for (int k = std::abs(power); k > 0; --k) {
        result *= base;
    }
    return power < 0 ? mpq_class(1 / result) : result;
}

// "1.602e-19", exactly.
mpq_class Decimal(std::string const& text) {
    std::size_t const exponent = text.find('e');
    std::string digits = text.substr(0, exponent);
    int power = exponent == std::string::npos ? 0 : std::stoi(text.substr(exponent + 1));
    std::size_t const point = digits.find('.');
    if (point != std::string::npos) {
        power -= static_cast<int>(digits.size() - point - 1);
        digits.erase(point, 1);
    }
    return mpq_class(mpz_class(digits, 10)) * Raised(10, power);
}

// "0.45359237*9.80665/0.0254^2", from left to right.
Exact_size Read_size(std::string const& text) {
    Exact_size size;
    int sign = 1;
    for (std::size_t start = 0; start < text.size();) {
        std::size_t const end = std::min(text.find_first_of("*/", start), text.size());
        std::string const factor = text.substr(start, end - start);
        std::size_t const caret = factor.find('^');
        int const power = sign * (caret == std::string::npos ? 1 : std::stoi(factor.substr(caret + 1)));
        std::string const base = factor.substr(0, caret);
        size.pi += base == "pi" ? power : 0;
        size.ln10 += base == "ln10" ? power : 0;
        size.fraction *= base == "pi" || base == "ln10" ? mpq_class(1) : Raised(Decimal(base), power);
        sign = end < text.size() && text[end] == '/' ? -1 : 1;
        start = end + 1;
    }
    return size;
}

Exact_size Size_in_library(Units const& unit) {
    Physics::Exact_factor const factor = Physics::Size_of(unit);
    Exact_size size = {1, factor.Power_of_pi(), factor.Power_of_ln10()};
    for (std::size_t k = 0; k < Physics::primes.count; ++k) {
        size.fraction *= Raised(mpq_class(Physics::primes.numbers[k]), factor.powers[k]);
    }
    return size;
}

Real Real_of(Exact_size const& size) {
    return Real(size.fraction) * Raised(Real::Pi(), size.pi) * Raised(Real::Ln_ten(), size.ln10);
}

// ---- The tests

TEST(Engineering_units, Have_a_row_each) {
    std::set<Units_list> codes;
    For_each_row([&](Row const& row) { EXPECT_TRUE(codes.insert(row.unit.tuples[0].unit).second); });
    std::set<Units_list> known;
    for (Units const& unit : All_units()) {
        known.insert(unit.tuples[0].unit);
    }
    for (Units const& unit : Catalogue_units()) {
        known.erase(unit.tuples[0].unit);
    }
    EXPECT_EQ(codes, known);
}

TEST(Engineering_units, Are_read_and_written_by_symbol_and_name) {
    For_each_row([](Row const& row) {
        EXPECT_EQ(Format_unit(row.unit), row.symbol);
        EXPECT_EQ(Format_unit(row.unit, STR_NAME), row.name);
        for (std::string const& text : {row.symbol, row.name}) {
            EXPECT_EQ(Parse_unit(text), row.unit) << text;
            EXPECT_EQ(Format(Parse_measurement("5 " + text)), "5 " + row.symbol);
        }
    });
}

TEST(Engineering_units, Are_of_their_kinds) {
    For_each_row([](Row const& row) {
        EXPECT_EQ(Kind_name(row.unit), row.quantity);
        EXPECT_TRUE(Same_kind(row.unit, Parse_unit(row.si_unit)));
    });
}

// Names, since a prefix and a symbol may make another symbol.
TEST(Engineering_units, Take_the_prefixes_written_down) {
    For_each_row([](Row const& row) {
        auto const is_read_with = [&](char const* prefix, SI_units code) {
            Units prefixed = row.unit;
            prefixed.si_prefix = code;
            auto const read = Try_parse_unit(prefix + row.name);
            return read && *read == prefixed;
        };
        EXPECT_EQ(is_read_with("kilo", KILO), row.prefixes != "none");
        EXPECT_EQ(is_read_with("hecto", HECTO), row.prefixes == "all" || row.prefixes == "chosen");
        std::string const chosen = row.prefixes == "chosen" ? "5 k" : "5000 ";
        EXPECT_EQ(Format(Measurement(5000.0, row.unit), Read_text_format("k")), chosen + row.symbol);
    });
}

TEST(Engineering_units, Have_the_exact_sizes_written_down) {
    For_each_row([](Row const& row) {
        Exact_size size = Size_in_library(row.unit);
        size.fraction /= Size_in_library(Parse_unit(row.si_unit)).fraction;
        EXPECT_EQ(size, Read_size(row.size));
    });
}

// Exactly where that is a double, and otherwise between two doubles side by side.
void Expect_converted(double number, Units const& from, Units const& to, Exact_size size) {
    size.fraction *= mpq_class(number);
    Real const truth = Real_of(size);
    Measurement const converted = Measurement(number, from).Convert_to(to);
    EXPECT_EQ(converted.Get_lower(), truth.Down()) << number << ' ' << Format_unit(from);
    EXPECT_EQ(converted.Get_upper(), truth.Up()) << number << ' ' << Format_unit(from);
}

TEST(Engineering_units, Convert_to_the_unit_of_SI_and_back) {
    For_each_row([](Row const& row) {
        Exact_size const size = Read_size(row.size);
        Exact_size const back = {1 / size.fraction, -size.pi, -size.ln10};
        Units const si_unit = Parse_unit(row.si_unit);
        for (double const number : {1.0, -3.0, 0.1, 1e20, 7.0 / 11.0, 254.0, 760.0, 101325.0}) {
            Expect_converted(number, row.unit, si_unit, size);
            Expect_converted(number, si_unit, row.unit, back);
        }
    });
}

} // namespace
} // namespace Varnix::Value::Tests
