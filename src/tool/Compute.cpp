// `compute`: one operation on two quantities, a check of limits, or a sum of powers.

#include "Lines.h"
#include "Quantity_converter.h"
#include "Written_results.h"

#include <varnix/value/Levels.h>

#include <algorithm>
#include <vector>

namespace Varnix::Value::Tool {

namespace {

// ---- Operators

constexpr std::string_view operators[] = {"+", "-", "*", "/", "<", "<=", ">", ">=", "==", "!="};

bool Is_comparison(std::string_view sign) {
    return sign[0] == '<' || sign[0] == '>' || sign[0] == '=' || sign[0] == '!';
}

struct Found_operator {
    std::size_t first; // of the sign
    std::string_view sign;
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
        auto const* const sign = std::find(std::begin(operators), std::end(operators), word);
        std::size_t const operand = text.find_first_not_of(' ', end);
        if (sign != std::end(operators) && operand != std::string_view::npos &&
            Starts_quantity(text.substr(operand))) {
            found.push_back({blank + 1, *sign});
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
Answer Read_operand(std::string_view text, std::size_t first, std::size_t last,
                    Options const& options) {
    try {
        return Read_answer(text.substr(first, last - first), options);
    } catch (Refusal const& refusal) {
        throw refusal.Within(text, first);
    }
}

// ---- Operations

Measurement Calculate(Measurement const& left, std::string_view sign, Measurement const& right) {
    switch (sign[0]) {
    case '+':
        return left + right;
    case '-':
        return left - right;
    case '*':
        return left * right;
    default:
        return left / right;
    }
}

char const* Told(bool certainly, bool certainly_not) {
    return certainly ? "true" : certainly_not ? "false" : "undecided";
}

// What is certain of a comparison.
char const* Compare(Measurement const& left, std::string_view sign, Measurement const& right) {
    if (sign == "<") {
        return Told(Certainly_less(left, right), !Possibly_less(left, right));
    }
    if (sign == ">=") {
        return Told(!Possibly_less(left, right), Certainly_less(left, right));
    }
    if (sign == ">" || sign == "<=") {
        return Compare(right, sign == ">" ? "<" : ">=", left);
    }
    bool const equal = Certainly_equal(left, right);
    bool const different = !Possibly_equal(left, right);
    return sign == "==" ? Told(equal, different) : Told(different, equal);
}

void Check_no_unit_asked(std::string_view sign, Computation_request const& request) {
    if (Is_comparison(sign) && (!request.to.empty() || request.simplify)) {
        throw Trouble("a comparison has no unit: leave out --to and --simplify");
    }
}

// What a comparison or a check of limits says.
void Write_verdict(std::string const& expression, std::string const& verdict,
                   Options const& options, Output& output) {
    if (options.json) {
        bool const is_certain = verdict == "true" || verdict == "false";
        Write({{"input", expression},
               {"result", is_certain ? Json(verdict == "true") : Json(verdict)}},
              output);
    } else {
        output.Append(verdict + '\n');
    }
}

// In the unit that the request asks for.
Answer Asked_for(Answer const& answer, Computation_request const& request, Options const& options) {
    if (request.simplify) {
        return {Telling_refusals([&] { return Simplified(std::get<Measurement>(answer.result)); }),
                answer.has_bounds};
    }
    return request.to.empty()
               ? answer
               : Quantity_converter(request.to, request.with, options).Convert(answer);
}

void Write_answer(std::string const& input, Answer const& answer,
                  Computation_request const& request, Options const& options, Output& output) {
    Write_result(input, Asked_for(answer, request, options), options, output);
}

struct Operands {
    Answer left;
    std::string_view sign;
    Answer right;
};

void Write_operation(std::string const& expression, Operands const& operands,
                     Computation_request const& request, Options const& options, Output& output) {
    auto const& [left, sign, right] = operands;
    Check_no_unit_asked(sign, request);
    bool const has_bounds = left.has_bounds || right.has_bounds;
    if (options.rules == Rules::as_the_library) {
        auto const& first = std::get<Quantity>(left.result);
        auto const& second = std::get<Quantity>(right.result);
        if (Is_comparison(sign)) {
            Write_verdict(expression, Compare_by_the_rules(first, sign, second) ? "true" : "false",
                          options, output);
        } else {
            Write_answer(expression, {Calculate_by_the_rules(first, sign, second), true}, request,
                         options, output);
        }
        return;
    }
    auto const& first = std::get<Measurement>(left.result);
    auto const& second = std::get<Measurement>(right.result);
    Telling_refusals([&, &sign_of = sign] {
        if (Is_comparison(sign_of)) {
            Write_verdict(expression, Compare(first, sign_of, second), options, output);
        } else {
            Write_answer(expression, {Calculate(first, sign_of, second), has_bounds}, request,
                         options, output);
        }
    });
}

Operands Read_operands(std::string const& expression, bool unquoted, Options const& options) {
    auto const [place, sign] = Find_operator(expression, unquoted);
    std::size_t const left_end = expression.find_last_not_of(' ', place - 1) + 1;
    std::size_t const right_start = expression.find_first_not_of(' ', place + sign.size());
    return {Read_operand(expression, 0, left_end, options), sign,
            Read_operand(expression, right_start, expression.size(), options)};
}

// ---- Limits

Measurement Read_limit(std::string const& text, Options const& options) {
    return std::get<Measurement>(Read_answer(text, options).result);
}

void Write_limit_check(std::string const& text, Computation_request const& request,
                       Options const& options, Output& output) {
    Measurement const x = Read_limit(text, options);
    Measurement const low = Read_limit(request.limits[0], options);
    Measurement const high = Read_limit(request.limits[1], options);
    Verdict const verdict = Telling_refusals([&] { return Check_limits(x, low, high); });
    Write_verdict(text,
                  verdict == Verdict::pass   ? "pass"
                  : verdict == Verdict::fail ? "fail"
                                             : "undecided",
                  options, output);
}

// ---- Sums of powers

// The power of a level is added, and whether it was typed with bounds.
void Add_level(Answer const& answer, Power_accumulator& powers, bool& has_bounds) {
    Telling_refusals([&] { powers.Add(std::get<Measurement>(answer.result)); });
    has_bounds = has_bounds || answer.has_bounds;
}

void Write_power_sum(Computation_request const& request, Options const& options, Output& output) {
    Answer_reader reader(options);
    Power_accumulator powers;
    bool has_bounds = false;
    Line_reader lines(Standard_input, output);
    for (std::string_view line; lines.Next(line);) {
        std::string_view const content = Trimmed(line);
        try {
            if (!content.empty()) {
                Add_level(reader.Read(content), powers, has_bounds);
            }
        } catch (Refusal const& refusal) {
            throw refusal.At(lines.Place());
        }
    }
    Measurement const sum =
        Telling_refusals([&] { return request.power_sum ? powers.Sum() : powers.Mean(); });
    Write_answer(request.power_sum ? "power sum" : "power mean", {sum, has_bounds}, request,
                 options, output);
}

} // namespace

bool Is_expression(std::string_view text) {
    return !Find_operators(text).empty();
}

Exit_status Compute(Computation_request const& request, Options const& options, Output& output) {
    std::string const expression = Joined(request.words);
    if (request.power_sum || request.power_mean) {
        Write_power_sum(request, options, output);
    } else if (expression.empty()) {
        throw Trouble("compute takes an expression: value-object compute '1 km + 500 m'");
    } else if (!request.limits.empty()) {
        Write_limit_check(expression, request, options, output);
    } else if (request.words.size() == 1 && (!request.to.empty() || request.simplify) &&
               !Is_expression(expression)) {
        // One quantity that is converted. In several words an operator may be missing that the shell took.
        Write_answer(expression, Read_answer(expression, options), request, options, output);
    } else {
        Write_operation(expression, Read_operands(expression, request.words.size() > 1, options),
                        request, options, output);
    }
    return exit_done;
}

} // namespace Varnix::Value::Tool
