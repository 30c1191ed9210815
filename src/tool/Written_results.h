// Results as lines of text and as JSON objects, and the reading of what the user typed.

#ifndef VARNIX_VALUE_TOOL_WRITTEN_RESULTS_H
#define VARNIX_VALUE_TOOL_WRITTEN_RESULTS_H

#include "Answers.h"
#include "Commands.h"

#include <nlohmann/json.hpp>

#include <string>
#include <string_view>
#include <vector>

namespace Varnix::Value::Tool {

using Json = nlohmann::ordered_json;

// The unit or the quantity that `text` is. @throws Refusal with an excerpt
Units Read_unit(std::string_view text, Dialect dialect = Dialect::standard);
Quantity Read_quantity(std::string_view text, Dialect dialect);

// A number; a string ("inf", "-inf", "nan") where JSON has no number for it.
Json Json_number(double number);

// `text` as a JSON string, in quotes; bytes that are not UTF-8 become U+FFFD.
std::string Json_text(std::string_view text);

// The members "value", "lower", "upper" and "unit", and "text" as below.
void Add_answer(Json& object, Answer const& answer, Options const& options);

// The member "text", where the options have a format for it.
void Add_text(Json& object, Answer const& answer, Options const& options);

// One line; bytes that are not UTF-8 become U+FFFD.
void Write(Json const& object, Output& output);

// `answer` by the format of the options and a line break, or an object with "input" first.
void Write_result(std::string_view input, Answer const& answer, Options const& options,
                  Output& output);

// An input that is passed on because the command goes on: as it is, or an object with "error".
void Write_refused(std::string_view input, Refusal const& refusal, Options const& options,
                   Output& output);

// `words` with blanks between them.
std::string Joined(std::vector<std::string> const& words);

// `text` without the blanks around it.
std::string_view Trimmed(std::string_view text);

} // namespace Varnix::Value::Tool

#endif
