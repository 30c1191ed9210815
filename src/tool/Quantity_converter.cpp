#include "Quantity_converter.h"

#include "Written_results.h"

#include <varnix/value/Measurement_text.h>
#include <varnix/value/Unit_kinds.h>

namespace Varnix::Value::Tool {

Quantity_converter::Quantity_converter(std::string const& to_, std::string const& with_,
                                       Options const& options_)
    : to(Read_unit(to_)),
      with(with_.empty() ? std::nullopt : std::optional(Read_answer(with_, options_))),
      options(options_) {}

namespace {

// A number without unit converts into ratios; elsewhere its unit has been forgotten.
void Check_has_unit(Measurement const& x, Units const& to) {
    bool const can_have_none = to.tuples[0].unit == NO_UNIT || Same_kind(to, C_Percent);
    if (x.Get_unit() == C_Empty && !can_have_none) {
        std::string const number = Format_number(x.Get_value());
        throw Refusal("cannot convert " + number + " to " + Format_unit(to) +
                      ": the number needs its unit, as in '" + number + ' ' + Format_unit(to) +
                      '\'');
    }
}

Answer Converted(Answer const& answer, Units const& to) {
    if (auto const* quantity = std::get_if<Quantity>(&answer.result)) {
        return {Prepare_by_the_rules(quantity->Get_unit(), to).Convert(*quantity),
                answer.has_bounds};
    }
    auto const& x = std::get<Measurement>(answer.result);
    Check_has_unit(x, to);
    return {Telling_refusals([&] { return x.Convert_to(to); }), answer.has_bounds};
}

} // namespace

Answer Quantity_converter::Convert(std::string_view text) const {
    return Convert(Read_answer(text, options));
}

Answer Quantity_converter::Convert(Answer const& answer) const {
    if (!with) {
        return Converted(answer, to);
    }
    bool const has_bounds = answer.has_bounds || with->has_bounds;
    if (auto const* quantity = std::get_if<Quantity>(&answer.result)) {
        return {Convert_by_the_rules(*quantity, to, std::get<Quantity>(with->result)), has_bounds};
    }
    auto const& x = std::get<Measurement>(answer.result);
    auto const& other = std::get<Measurement>(with->result);
    return {Telling_refusals([&] { return x.Convert_to(to, other); }), has_bounds};
}

} // namespace Varnix::Value::Tool
