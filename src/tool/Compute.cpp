// `compute`: one operation on two quantities.

#include "Strict_operations.h"
#include "Written_results.h"

#include <algorithm>
#include <vector>

namespace Varnix::Value::Tool {

namespace {

struct Operator_row {
    std::string_view sign;
    Operation operation;
};

// clang-format off
constexpr Operator_row operators[] = {
    {"+",  Operation::sum},
    {"-",  Operation::difference},
    {"*",  Operation::product},
    {"/",  Operation::quotient},
    {"<",  Operation::less},
    {"<=", Operation::less_or_equal},
    {">",  Operation::greater},
    {">=", Operation::greater_or_equal},
    {"==", Operation::equal},
    {"!=", Operation::not_equal},
};
// clang-format on

struct Found_operator {
    std::size_t first; // of the sign
    Operator_row row;
};

// Whether a quantity may start here: with a digit, a sign, a point, or the parenthesis of
// "(5.0 ± 0.1) V". The minus sign of typography starts with the byte E2.
bool Starts_quantity(std::string_view text) {
    constexpr std::string_view starts = "0123456789+-.(\xE2";
    return !text.empty() && starts.find(text[0]) != std::string_view::npos;
}

// The operators are signs with blanks around them and a quantity after them; "5 m * s" has none.
std::vector<Found_operator> Find_operators(std::string_view text) {
    std::vector<Found_operator> found;
    for (std::size_t blank = text.find(' '); blank != std::string_view::npos;
         blank = text.find(' ', blank + 1)) {
        std::size_t const end = text.find(' ', blank + 1);
        if (blank == 0 || end == std::string_view::npos) {
            continue;
        }
        std::string_view const word = text.substr(blank + 1, end - blank - 1);
        auto const* const row =
            std::find_if(std::begin(operators), std::end(operators),
                         [&](Operator_row const& candidate) { return candidate.sign == word; });
        std::size_t const operand = text.find_first_not_of(' ', end);
        if (row != std::end(operators) && operand != std::string_view::npos &&
            Starts_quantity(text.substr(operand))) {
            found.push_back({blank + 1, *row});
        }
    }
    return found;
}

// `unquoted`: the shell may have taken "*" for names of files and ">" for one.
Found_operator Find_operator(std::string_view text, bool unquoted) {
    auto const found = Find_operators(text);
    if (found.empty()) {
        throw Refusal(
            std::string("an operator (+ - * / < <= > >= == !=) with blanks around it and a "
                        "quantity on either side was expected") +
                (unquoted ? "; the shell has uses of its own for * < > !: write it all in quotes"
                          : ""),
            text, text.size());
    }
    if (found.size() > 1) {
        throw Refusal("one operation at a time: here is a second operator", text, found[1].first);
    }
    return found[0];
}

// The quantity in [first, last) of `text`; a fault is shown in the whole text.
Quantity Read_operand(std::string_view text, std::size_t first, std::size_t last, Dialect dialect) {
    auto const quantity = Try_parse_quantity(text.substr(first, last - first), {}, dialect);
    if (!quantity) {
        Text_fault fault = quantity.Get_fault();
        fault.position += first;
        throw Refusal(fault, text);
    }
    return *quantity;
}

Exit_status Write_comparison(std::string const& expression, bool result, Options const& options,
                             Output& output) {
    if (options.json) {
        Write({{"input", expression}, {"result", result}}, output);
    } else {
        output.Append(result ? "true\n" : "false\n");
    }
    return exit_done;
}

} // namespace

Exit_status Compute(std::vector<std::string> const& words, Options const& options, Output& output) {
    std::string const expression = Joined(words);
    auto const [place, row] = Find_operator(expression, words.size() > 1);
    std::size_t const left_end = expression.find_last_not_of(' ', place - 1) + 1;
    Quantity const left = Read_operand(expression, 0, left_end, options.dialect);
    std::size_t const right_start = expression.find_first_not_of(' ', place + row.sign.size());
    Quantity const right =
        Read_operand(expression, right_start, expression.size(), options.dialect);
    if (row.operation >= Operation::less) {
        return Write_comparison(expression, Compare(left, row.operation, right, options.rules),
                                options, output);
    }
    std::string note;
    Quantity const result = Calculate(left, row.operation, right, options.rules, note);
    if (!note.empty()) {
        Report("note: " + note);
    }
    Write_result(expression, result, options, output);
    return exit_done;
}

} // namespace Varnix::Value::Tool
