// The public functions: the length of the text first, then the reader.

#include <varnix/value/Text_parsing.h>

#include "Characters.h"
#include "Number_reader.h"
#include "Quantity_reader.h"
#include "Scpi_reader.h"
#include "Unit_reader.h"

#include <optional>

namespace Varnix::Value {

namespace {

std::string Detail(Text_fault const& fault) {
    return "Text is not valid: at position " + std::to_string(fault.position) + ": " +
           fault.message +
           (fault.suggestion.empty() ? "" : "; did you mean '" + fault.suggestion + "'?");
}

std::optional<Text_fault> Length_fault(std::string_view text) {
    if (text.size() <= Longest_text) {
        return std::nullopt;
    }
    return Text_fault{
        Longest_text, "the text is longer than " + std::to_string(Longest_text) + " bytes", {}};
}

} // namespace

TextNotValid::TextNotValid(Text_fault const& fault_)
    : OperationNotValid(Detail(fault_)), fault(std::make_shared<Text_fault const>(fault_)) {}

TextNotValid::TextNotValid(TextNotValid const& other) noexcept = default;
TextNotValid& TextNotValid::operator=(TextNotValid const& other) noexcept = default;
TextNotValid::~TextNotValid() = default;

void Throw_text_not_valid(Text_fault const& fault) {
    throw TextNotValid(fault);
}

Parse_result<Units> Try_parse_unit(std::string_view text) {
    if (std::optional<Text_fault> fault = Length_fault(text)) {
        return std::move(*fault);
    }
    return Read_unit(text, 0);
}

Parse_result<Units> Try_parse_unit(std::string_view text, Dialect dialect) {
    if (std::optional<Text_fault> fault = Length_fault(text)) {
        return std::move(*fault);
    }
    return dialect == Dialect::scpi ? Read_scpi_unit(text, 0) : Read_unit(text, 0);
}

Parse_result<Value_object<double>> Try_parse_quantity(std::string_view text, Number_forms forms) {
    return Try_parse_quantity(text, forms, Dialect::standard);
}

Parse_result<Value_object<double>> Try_parse_quantity(std::string_view text, Number_forms forms,
                                                      Dialect dialect) {
    if (std::optional<Text_fault> fault = Length_fault(text)) {
        return std::move(*fault);
    }
    return Read_quantity(text, forms, dialect == Dialect::scpi ? Read_scpi_unit : Read_unit);
}

Parse_result<Quantity_parts> Try_split_quantity(std::string_view text, Number_forms forms) {
    if (std::optional<Text_fault> fault = Length_fault(text)) {
        return std::move(*fault);
    }
    return Split_quantity(text, forms);
}

Parse_result<double> Try_parse_number(std::string_view text, Number_forms forms) {
    if (std::optional<Text_fault> fault = Length_fault(text)) {
        return std::move(*fault);
    }
    auto const result = Read_number(text, Skip_blanks(text, 0), forms);
    if (!result) {
        return result.Get_fault();
    }
    std::size_t const end = Skip_blanks(text, result->end);
    if (end != text.size()) {
        return Text_fault{end, "expected the end of the number, found " + Described(text, end), {}};
    }
    return result->number.nearest;
}

Units Parse_unit(std::string_view text) {
    return *Try_parse_unit(text);
}

Value_object<double> Parse_quantity(std::string_view text, Number_forms forms) {
    return *Try_parse_quantity(text, forms);
}

Units Parse_unit(std::string_view text, Dialect dialect) {
    return *Try_parse_unit(text, dialect);
}

Value_object<double> Parse_quantity(std::string_view text, Number_forms forms, Dialect dialect) {
    return *Try_parse_quantity(text, forms, dialect);
}

double Parse_number(std::string_view text, Number_forms forms) {
    return *Try_parse_number(text, forms);
}

Scpi_number Scpi_meaning(double number) noexcept {
    return number == 9.91e37   ? Scpi_number::not_a_number
           : number == 9.9e37  ? Scpi_number::infinity
           : number == -9.9e37 ? Scpi_number::negative_infinity
                               : Scpi_number::ordinary;
}

} // namespace Varnix::Value
