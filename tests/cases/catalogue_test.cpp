// The catalogue as the unit algebra shows it, compared with what follows from the rows of
// cases/catalogue.txt.

#include "Case_notation.h"

#include <cmath>
#include <cstdlib>
#include <fstream>
#include <set>
#include <sstream>
#include <utility>
#include <vector>

namespace Varnix::Value::Tests {
namespace {

using Spellings = std::vector<std::string>; // symbol, name, lower case, upper case

struct Unit_row {
    Units_list code;
    double factor;
    int dimension;
    Units_list base;
    bool by_formula;
    Spellings spellings;
};

std::vector<std::istringstream> Rows_of(std::string const& kind) {
    std::ifstream file(std::string(VALUE_OBJECT_TEST_CASES) + "/catalogue.txt");
    std::vector<std::istringstream> rows;
    for (std::string line; std::getline(file, line);) {
        std::istringstream row(line);
        std::string word;
        if (row >> word && word == kind) {
            rows.push_back(std::move(row));
        }
    }
    return rows;
}

Spellings Read_spellings(std::istringstream& row) {
    Spellings spellings(4);
    row >> spellings[0] >> spellings[1] >> spellings[2] >> spellings[3];
    EXPECT_TRUE(row) << row.str();
    return spellings;
}

std::vector<Unit_row> Unit_rows() {
    std::vector<Unit_row> units;
    for (std::istringstream& row : Rows_of("unit")) {
        int code = 0;
        int base = 0;
        Unit_row unit = {};
        std::string conversion;
        row >> code >> unit.factor >> unit.dimension >> base >> conversion;
        unit.code = static_cast<Units_list>(code);
        unit.base = static_cast<Units_list>(base);
        unit.by_formula = conversion == "formula";
        unit.spellings = Read_spellings(row);
        units.push_back(unit);
    }
    return units;
}

// The last is a spelling that does not exist.
Spellings Spellings_of(Units const& unit) {
    Spellings spellings;
    for (int const type : {1, 0, 2, 3, 7}) {
        spellings.push_back(Units_library::Get_unit_string(unit, static_cast<Unit_string_type>(type)));
    }
    return spellings;
}

Spellings With(Spellings spellings, std::string const& that_does_not_exist) {
    spellings.push_back(that_does_not_exist);
    return spellings;
}

TEST(Catalogue, Has_each_unit) {
    std::set<Units_list> codes;
    for (Unit_row const& unit : Unit_rows()) {
        SCOPED_TRACE(unit.spellings[1]);
        codes.insert(unit.code);
        EXPECT_EQ(Units_library::Get_dimension(unit.code), unit.dimension);
        EXPECT_EQ(Units_library::Get_base_unit(Unit({{unit.code, 3}}, KILO)), Unit({{unit.base, 3}}));
        EXPECT_EQ(Spellings_of(Unit({{unit.code, 1}})), With(unit.spellings, unit.spellings[3]));
    }
    EXPECT_EQ(codes.size(), Value_detail::Unit_code_limit - 1U);
}

// What one unit is worth in another; the powers have the sign of `power`.
double Expected_factor(Unit_row const& from, Unit_row const& to, int power) {
    auto const scale = [power](Unit_row const& unit) { return unit.by_formula ? 1.0 : power < 0 ? 1.0 / unit.factor : unit.factor; };
    return std::pow(scale(from) / scale(to), std::abs(power));
}

TEST(Catalogue, Converts_each_unit_to_each) {
    std::vector<Unit_row> const units = Unit_rows();
    for (Unit_row const& from : units) {
        for (Unit_row const& to : units) {
            SCOPED_TRACE(from.spellings[1] + " to " + to.spellings[1]);
            for (int const power : {1, 2, -1}) {
                auto const factor = [&] { return Units_library::Get_tuple_conversion_factor({from.code, power}, {to.code, power}); };
                if (from.dimension == to.dimension) {
                    EXPECT_EQ(factor(), Expected_factor(from, to, power)) << power;
                } else {
                    EXPECT_EQ(Failure_of(factor), not_same) << power;
                }
            }
        }
    }
}

TEST(Catalogue, Has_each_prefix) {
    std::vector<std::istringstream> rows = Rows_of("prefix");
    EXPECT_EQ(rows.size(), 22U);
    for (std::istringstream& row : rows) {
        int exponent = 0;
        double radix = 0;
        row >> exponent >> radix;
        Spellings const spellings = Read_spellings(row);
        SCOPED_TRACE(spellings[1]);
        Units const unit = Unit({}, static_cast<SI_units>(exponent));
        EXPECT_EQ(Units_library::Get_unit_base(unit), radix);
        EXPECT_EQ(Spellings_of(unit), With(spellings, spellings[1]));
    }
    EXPECT_EQ(Units_library::Get_unit_base(C_Meter), 10.0);
}

// Each named unit is in canonical order, and has the text of its contents.
TEST(Catalogue, Has_each_named_unit) {
    std::vector<std::istringstream> rows = Rows_of("named");
    ASSERT_EQ(rows.size(), std::size(named_constants));
    for (std::size_t k = 0; k < rows.size(); ++k) {
        std::string name;
        std::string text;
        rows[k] >> name >> text;
        Units const& unit = *named_constants[k].unit;
        EXPECT_EQ(name, named_constants[k].name);
        EXPECT_EQ(Units_library::Get_unit_string(unit, STR_NAME), text == "-" ? "" : text) << name;
        EXPECT_EQ(Units_library::Get_unit_str(unit, STR_NAME), Units_library::Get_unit_string(unit, STR_NAME)) << name;
        EXPECT_EQ(Units_library::Arrange_tuple(unit), unit) << name;
    }
}

} // namespace
} // namespace Varnix::Value::Tests
