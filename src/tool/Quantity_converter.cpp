#include "Quantity_converter.h"

#include "Written_results.h"

#include <varnix/value/Measurement_text.h>
#include <varnix/value/Unit_kinds.h>

namespace Varnix::Value::Tool {

Measurement_unit Read_target(std::string_view text) {
    if (auto const unit = Try_parse_measurement_unit(text)) {
        return *unit;
    }
    return Measurement_unit(Read_unit(text)); // which is refused, and says why
}

Quantity_converter::Quantity_converter(std::string const& to_, std::string const& with_,
                                       Options const& options_)
    : to(options_.rules == Rules::measurements ? Read_target(to_)
                                               : Measurement_unit(Read_unit(to_))),
      with(with_.empty() ? std::nullopt : std::optional(Read_answer(with_, options_))),
      reader(options_) {}

namespace {

// A number without unit converts into ratios; elsewhere its unit has been forgotten.
void Check_has_unit(Measurement const& x, Units const& to) {
    auto const can_have_none = [&] {
        return to.tuples[0].unit == NO_UNIT || Same_kind(to, C_Percent);
    };
    if (x.Get_unit() == C_Empty && !can_have_none()) {
        std::string const number = Format_number(x.Get_value());
        throw Refusal("cannot convert " + number + " to " + Format_unit(to) +
                      ": the number needs its unit, as in '" + number + ' ' + Format_unit(to) +
                      '\'');
    }
}

} // namespace

Answer Quantity_converter::Converted(Answer const& answer) {
    bool const has_bounds = answer.has_bounds || (with && with->has_bounds);
    if (auto const* quantity = std::get_if<Quantity>(&answer.result)) {
        return {with ? Convert_by_the_rules(*quantity, to.unit, std::get<Quantity>(with->result))
                     : Prepare_by_the_rules(quantity->Get_unit(), to.unit).Convert(*quantity),
                has_bounds};
    }
    auto const& x = std::get<Measurement>(answer.result);
    if (with) {
        auto const& other = std::get<Measurement>(with->result);
        return {Telling_refusals([&] { return x.Convert_to(to.unit, other); }), has_bounds};
    }
    return {Telling_refusals([&] { return Measured(x); }), has_bounds};
}

// The lines of a file have one unit mostly, whose conversion is prepared once it has worked.
Measurement Quantity_converter::Measured(Measurement const& x) {
    if (prepared && prepared->Get_from() == x.Get_unit()) {
        return prepared->Convert(x);
    }
    Check_has_unit(x, to.unit);
    Measurement const converted = x.Convert_to(to.unit);
    if (!x.Is_difference()) {
        prepared.emplace(x.Get_unit(), to.unit);
    }
    return converted;
}

Answer Quantity_converter::Convert(Answer const& answer) {
    Answer converted = Converted(answer);
    if (to.is_difference && !std::get<Measurement>(converted.result).Is_difference()) {
        throw Refusal(
            "a point of a temperature scale is no difference: write Δ°C or ΔK with the number, "
            "or convert to the unit without Δ");
    }
    return converted;
}

Answer Quantity_converter::Convert(std::string_view text) {
    return Convert(reader.Read(text));
}

} // namespace Varnix::Value::Tool
