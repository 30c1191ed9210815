// Fuzzes the reading of texts: any bytes as a unit, a quantity and a number. What is read is written
// and read again.

#include "Fuzz_input.h"

#include "catalogue/Unit_rows.h"

#include <varnix/value/text.h>

#include <algorithm>

#include <string>
#include <string_view>

namespace Varnix::Value::Tests {
namespace {

// A refusal says where and why in one line, its suggestion can be read, and the throwing form says the same.
template <typename Parse>
void Check_fault(Text_fault const& fault, std::string_view text, Parse const& parse) {
    CHECK(fault.position <= text.size());
    CHECK(!fault.message.empty() && fault.message.find('\n') == std::string::npos);
    CHECK(fault.suggestion.empty() || Try_parse_unit(fault.suggestion));
    bool refused = false;
    try {
        parse();
    } catch (TextNotValid const& failure) {
        refused = failure.Get_fault().position == fault.position && failure.Get_fault().message == fault.message;
    }
    CHECK(refused);
}

// By ascending dimension, of any unit of the catalogue.
void Check_order(Units const& unit) {
    for (std::size_t k = 1; k < Value_detail::Tuple_count && unit.tuples[k].unit != NO_UNIT; ++k) {
        CHECK(Catalogue::Dimension_of(unit.tuples[k - 1].unit) < Catalogue::Dimension_of(unit.tuples[k].unit));
    }
}

bool Is_of_core(Units const& unit) {
    return std::all_of(std::begin(unit.tuples), std::end(unit.tuples),
                       [](Unit_tuple const& tuple) { return tuple.unit < Value_detail::Unit_code_limit; });
}

// Both dialects refuse with a reason, and hold what they read in canonical order.
void Check_instrument_unit(std::string_view text) {
    Parse_result<Units> const result = Try_parse_unit(text, Dialect::scpi);
    if (result) {
        Check_order(*result);
    } else {
        Check_fault(result.Get_fault(), text, [&] { (void)Parse_unit(text, Dialect::scpi); });
    }
}

// A quantity that is read has been split, and its number is the nearest one of its parts.
void Check_parts(std::string_view text, Number_forms forms, Quantity const& quantity) {
    Parse_result<Quantity_parts> const parts = Try_split_quantity(text, forms);
    CHECK(parts && Same_number(parts->value.nearest, quantity.Get_value()));
    Units const unit = parts->unit.empty() ? C_Empty : Parse_unit(parts->unit);
    CHECK(unit == quantity.Get_unit());
}

void Check_unit(std::string_view text) {
    Parse_result<Units> const result = Try_parse_unit(text);
    if (!result) {
        Check_fault(result.Get_fault(), text, [&] { (void)Parse_unit(text); });
        return;
    }
    Check_order(*result);
    CHECK(Parse_unit(text) == *result);
    if (!Is_of_core(*result)) {
        return;
    }
    Check_canonical(*result);
    CHECK(Parse_unit(Format_unit(*result, STR_SYMBOL)) == *result);
    CHECK(Parse_unit(Format_unit(*result, STR_NAME)) == *result);
    CHECK(Same_kind(*result, *result) && !Kind_name(*result).empty());
}

void Check_quantity(std::string_view text, Number_forms forms) {
    Parse_result<Quantity> const result = Try_parse_quantity(text, forms);
    if (!result) {
        Check_fault(result.Get_fault(), text, [&] { (void)Parse_quantity(text, forms); });
        return;
    }
    CHECK(!(result->Get_minus_err() > result->Get_plus_err()));
    CHECK(Is_of_core(result->Get_unit()));
    CHECK(forms.not_finite || (std::isfinite(result->Get_value()) && std::isfinite(result->Get_minus_err() + result->Get_plus_err() * 0.0)));
    Check_parts(text, forms, *result);
    Quantity const again = Parse_quantity(Format(*result), {false, true});
    CHECK(Same_number(again.Get_value(), result->Get_value()) && again.Get_unit() == result->Get_unit());
    // A copy orders two zeros of different sign anew each time, and one that is not a number has no order.
    bool const in_order = result->Get_minus_err() < result->Get_plus_err() || Same_number(result->Get_minus_err(), result->Get_plus_err());
    CHECK(!in_order || (Same_number(again.Get_minus_err(), result->Get_minus_err()) && Same_number(again.Get_plus_err(), result->Get_plus_err())));
}

void Check_number(std::string_view text, Number_forms forms) {
    Parse_result<double> const result = Try_parse_number(text, forms);
    if (!result) {
        Check_fault(result.Get_fault(), text, [&] { (void)Parse_number(text, forms); });
        return;
    }
    CHECK(forms.not_finite || std::isfinite(*result));
    CHECK(Same_number(Parse_number(Format_number(*result), {false, true}), *result));
}

} // namespace
} // namespace Varnix::Value::Tests

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    using namespace Varnix::Value::Tests;
    std::uint8_t const choice = size == 0 ? 0 : data[0];
    // A copy of its own size, so that a step beyond its end is seen.
    std::string const text(reinterpret_cast<char const*>(data), size);
    std::string_view const content = std::string_view(text).substr(size == 0 ? 0 : 1);
    Varnix::Value::Number_forms const forms = {(choice & 1) != 0, (choice & 2) != 0};
    Check_unit(content);
    Check_instrument_unit(content);
    Check_quantity(content, forms);
    Check_number(content, forms);
    return 0;
}
