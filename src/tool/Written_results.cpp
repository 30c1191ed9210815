#include "Written_results.h"

#include <varnix/value/Measurement_text.h>

#include <algorithm>
#include <cmath>

namespace Varnix::Value::Tool {

Units Read_unit(std::string_view text, Dialect dialect) {
    auto const unit = Try_parse_unit(text, dialect);
    if (!unit) {
        throw Refusal(unit.Get_fault(), text);
    }
    return *unit;
}

Quantity Read_quantity(std::string_view text, Dialect dialect) {
    auto const quantity = Try_parse_quantity(text, {}, dialect);
    if (!quantity) {
        throw Refusal(quantity.Get_fault(), text);
    }
    return *quantity;
}

Json Json_number(double number) {
    return std::isfinite(number) ? Json(number) : Json(Format_number(number));
}

std::string Json_text(std::string_view text) {
    return Json(text).dump(-1, ' ', false, Json::error_handler_t::replace);
}

namespace {

// Whose shortest digits, which JSON has, enclose what the bounds enclose.
Exact_numbers Numbers_of(Answer const& answer) {
    if (auto const* quantity = std::get_if<Quantity>(&answer.result)) {
        // The electrical relations leave the bounds as they come.
        auto const [lower, upper] =
            std::minmax(quantity->Get_minus_err(), quantity->Get_plus_err());
        return {quantity->Get_value(), lower, upper};
    }
    return Enclosing_doubles(Exact_numbers_of(std::get<Measurement>(answer.result)));
}

} // namespace

void Add_answer(Json& object, Answer const& answer, Options const& options) {
    Exact_numbers const numbers = Numbers_of(answer);
    object["value"] = Json_number(numbers.value);
    object["lower"] = Json_number(numbers.lower);
    object["upper"] = Json_number(numbers.upper);
    object["unit"] = Unit_text(answer, options.format.unit);
    Add_text(object, answer, options);
}

void Add_text(Json& object, Answer const& answer, Options const& options) {
    if (options.formatted) {
        object["text"] = Text_of(answer, options);
    }
}

void Write(Json const& object, Output& output) {
    output.Append(object.dump(-1, ' ', false, Json::error_handler_t::replace));
    output.Append('\n');
}

void Write_result(std::string_view input, Answer const& answer, Options const& options,
                  Output& output) {
    if (options.json) {
        Json object = {{"input", std::string(input)}};
        Add_answer(object, answer, options);
        Write(object, output);
    } else {
        output.Append(Text_of(answer, options));
        output.Append('\n');
    }
}

void Write_refused(std::string_view input, Refusal const& refusal, Options const& options,
                   Output& output) {
    if (options.json) {
        Write({{"input", std::string(input)}, {"error", refusal.what()}}, output);
    } else {
        output.Append(input);
        output.Append('\n');
    }
}

std::string Joined(std::vector<std::string> const& words) {
    std::string joined;
    for (std::string const& word : words) {
        joined += (joined.empty() ? "" : " ") + word;
    }
    return joined;
}

std::string_view Trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r";
    std::size_t const first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

} // namespace Varnix::Value::Tool
