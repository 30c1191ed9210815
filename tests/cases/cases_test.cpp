// Runs the cases of cases/*.txt: each line is an operation and its result, written in the notation
// that the head of its file explains.

#include "Case_notation.h"

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <vector>

namespace Varnix::Value::Tests {
namespace {

// ---- Reading

std::vector<std::string> Split(std::string const& text, char separator) {
    std::vector<std::string> parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, separator);) {
        parts.push_back(part);
    }
    return parts;
}

template <typename Code>
Code Find_code(std::string const& text, Code lowest, Code highest, std::string (*name)(Code)) {
    for (int code = lowest; code <= highest; ++code) {
        if (name(static_cast<Code>(code)) == text) {
            return static_cast<Code>(code);
        }
    }
    throw std::invalid_argument("not in the notation of the cases: " + text);
}

std::string Name_of_prefix(SI_units prefix) {
    return Units_library::Get_unit_str_si_map({SPL_NONE, prefix, {}}, STR_NAME);
}

Unit_tuple Read_tuple(std::string const& text) {
    std::vector<std::string> const parts = Split(text, '^');
    bool const empty = parts[0] == "-";
    int const power = parts.size() > 1 ? std::stoi(parts[1]) : empty ? 0 : 1;
    if (empty) {
        return {NO_UNIT, power};
    }
    bool const by_code = parts[0][0] == '#';
    return {parts[0] == "#unknown" ? unknown_unit
            : by_code              ? static_cast<Units_list>(std::stoi(parts[0].substr(1)))
                                   : Find_code(parts[0], METER, static_cast<Units_list>(Value_detail::Unit_code_limit - 1), Name_of),
            power};
}

Units Read_unit(std::string const& text) {
    for (Named_constant const& constant : named_constants) {
        if (constant.name == text) {
            return *constant.unit;
        }
    }
    std::vector<std::string> const parts = Split(text, ':');
    Units unit = {};
    for (std::size_t k = 0; k + 1 < parts.size(); ++k) {
        bool const by_number = std::isalpha(static_cast<unsigned char>(parts[k][0])) == 0;
        if (parts[k] == "dB") {
            unit.spl_conv = SPL_DB;
        } else {
            unit.si_prefix = by_number ? static_cast<SI_units>(std::stoi(parts[k])) : Find_code(parts[k], PICO, YOBI, Name_of_prefix);
        }
    }
    std::vector<std::string> const tuples = Split(parts.back(), ',');
    std::transform(tuples.begin(), tuples.end(), unit.tuples, Read_tuple);
    return unit;
}

Quantity Read_quantity(std::string const& numbers, std::string const& unit) {
    std::vector<std::string> const parts = Split(numbers, '[');
    double const value = std::stod(parts[0]);
    std::vector<std::string> const bounds = Split(parts.size() > 1 ? parts[1] : parts[0] + ',' + parts[0], ',');
    Quantity quantity;
    quantity.Set(value, Read_unit(unit), std::stod(bounds[0]), std::stod(bounds[1]));
    return quantity;
}

// ---- Operations

std::string Comparisons(Units const& first, Units const& second) {
    bool const all = Units_library::Compare_units_DB(first, second, true);
    EXPECT_EQ(Units_library::Compare_units_DB(first, second, false), all);
    std::string text;
    text += Units_library::Compare_units(first, second, false) ? " tuples" : "";
    text += Units_library::Compare_units(first, second, true) ? " prefix" : "";
    text += all ? " all" : "";
    text += Units_library::Is_Invert_units(first, second) ? " reciprocal" : "";
    return text.empty() ? text : text.substr(1);
}

std::string Spellings(Units const& unit) {
    std::string text;
    for (int const type : {1, 0, 2, 3, 7}) {
        text += '|' + Units_library::Get_unit_string(unit, static_cast<Unit_string_type>(type));
    }
    return text.substr(1);
}

std::string Parts(Units const& unit, Unit_string_type type) {
    return Units_library::Get_unit_str_spl_map(unit, type) + ' ' + Units_library::Get_unit_str_si_map(unit, type) + ' ' +
           Units_library::Get_unit_str_info_map(unit, type);
}

std::string Of_one_unit(std::string const& operation, Units const& unit) {
    return operation == "arrange"     ? Written(Units_library::Arrange_tuple(unit))
           : operation == "base"      ? Written(Units_library::Get_base_unit(unit))
           : operation == "dimension" ? std::to_string(Units_library::Get_dimension(unit.tuples[0].unit))
           : operation == "unitless"  ? std::to_string(Units_library::Is_unitless(unit))
           : operation == "spell"     ? Spellings(unit)
           : operation == "parts"     ? Parts(unit, STR_SYMBOL) + ' ' + Parts(unit, STR_NAME)
                                      : "no such operation";
}

std::string Product(Units const& first, std::string const& operation, Units const& second) {
    auto const combine = operation == "*" ? Units_library::Multiply_units : Units_library::Divide_units;
    EXPECT_TRUE(operation == "/" || combine(first, second) == Units_library::Make_unit(first, second));
    return Written(combine(first, second));
}

// Which of the six comparisons hold; each is refused if one is.
std::string Relations(Quantity const& left, Quantity const& right) {
    bool const results[] = {left == right, left != right, left<right, left <= right, left> right, left >= right};
    char const* const names[] = {" ==", " !=", " <", " <=", " >", " >="};
    std::string text;
    for (std::size_t k = 0; k < std::size(results); ++k) {
        text += results[k] ? names[k] : "";
    }
    return text.substr(1);
}

template <typename Operand>
std::string Combined(Quantity object, std::string const& operation, Operand const& operand) {
    std::string const before = Written(object);
    try {
        Quantity const& result = operation == "+="   ? object.operator+=(operand)
                                 : operation == "-=" ? object.operator-=(operand)
                                 : operation == "*=" ? object.operator*=(operand)
                                                     : object.operator/=(operand);
        EXPECT_EQ(&result, &object);
    } catch (...) {
        EXPECT_EQ(Written(object), before);
        throw;
    }
    return Written(object);
}

std::string Combined_with_number(Quantity const& object, std::string const& operation, double number) {
    Quantity result = object;
    (operation == "*=" ? result.operator*=(number) : result.operator/=(number));
    EXPECT_EQ(Written(operation == "*=" ? object * number : object / number), Written(result));
    return Written(result);
}

std::string Of_quantity(std::vector<std::string> const& words) {
    Quantity const quantity = Read_quantity(words[0], words[1]);
    std::string const& operation = words[2];
    if (operation == "to") {
        Quantity other;
        other.Set_unit(Read_unit(words[3]));
        EXPECT_EQ(Failure_of([&] { (void)quantity.Convert_to(other); }), Failure_of([&] { (void)quantity.Convert_to(other.Get_unit()); }));
        return Written(quantity.Convert_to(other.Get_unit()));
    }
    if (words.size() == 4) {
        return Combined_with_number(quantity, operation, std::stod(words[3]));
    }
    Quantity const other = Read_quantity(words[3], words[4]);
    return operation == "with" ? Written(quantity.Convert_to_with_value(Read_unit(words[6]), other))
           : operation == "vs" ? Relations(quantity, other)
                               : Combined(quantity, operation, other);
}

std::string Evaluated(std::vector<std::string> const& words) {
    if (words.size() == 2) {
        return Of_one_unit(words[0], Read_unit(words[1]));
    }
    if (words[0] == "compare") {
        return Comparisons(Read_unit(words[1]), Read_unit(words[2]));
    }
    if (words[0] == "factor") {
        return Written(Units_library::Get_conversion_factor(Read_unit(words[3]), Read_unit(words[1])));
    }
    if (words[0] == "tuple") {
        return Written(Units_library::Get_tuple_conversion_factor(Read_unit(words[1]).tuples[0], Read_unit(words[3]).tuples[0]));
    }
    if (words[1] == "*" || words[1] == "/") {
        return Product(Read_unit(words[0]), words[1], Read_unit(words[2]));
    }
    return Of_quantity(words);
}

// "= RESULT", or "! " and the last part of the message.
std::string Outcome(std::string const& operation) {
    try {
        std::string const result = Evaluated(Split(operation, ' '));
        return "= " + (result.empty() ? "nothing" : result);
    } catch (std::invalid_argument const& fault) {
        return std::string("not a case: ") + fault.what();
    } catch (std::exception const& failure) {
        std::string const message = failure.what();
        std::size_t const last = message.rfind(": ");
        return "! " + (last == std::string::npos ? message : message.substr(last + 2));
    }
}

class Cases : public ::testing::TestWithParam<char const*> {};

TEST_P(Cases, Have_the_results_written_down) {
    std::string const path = std::string(VALUE_OBJECT_TEST_CASES) + '/' + GetParam() + ".txt";
    std::ifstream file(path);
    ASSERT_TRUE(file) << path;
    int line_number = 0;
    int count = 0;
    for (std::string line; std::getline(file, line);) {
        ++line_number;
        if (line.empty() || line[0] == '#') {
            continue;
        }
        ++count;
        std::size_t const end = std::min(line.find(" = "), line.find(" ! "));
        std::string const expected = end == std::string::npos ? "no result" : line.substr(end + 1);
        std::string const actual = Outcome(line.substr(0, end));
        if (actual != expected) {
            ADD_FAILURE_AT(path.c_str(), line_number) << line << "\nbut the result is\n" << actual;
        }
    }
    EXPECT_GT(count, 30);
}

INSTANTIATE_TEST_SUITE_P(, Cases, ::testing::Values("units", "conversions", "arithmetic"), [](auto const& file) { return std::string(file.param); });

} // namespace
} // namespace Varnix::Value::Tests
