// Measurements as texts, which are never narrower than they are.

#include <varnix/value/Measurement_text.h>

#include "Kept_decimals.h"

#include <ostream>
#include <string>

namespace Varnix::Value {

Exact_numbers Exact_numbers_of(Measurement const& x) noexcept {
    if (Physics::Maybe_decimals const decimals = Physics::Kept_decimals(x)) {
        return {decimals->value, decimals->lower, decimals->upper, decimals->power, true};
    }
    return {x.Get_value(), x.Get_lower(), x.Get_upper(), 0, false};
}

std::string Format_unit(Measurement_unit const& unit, Unit_string_type spelling) {
    std::string text = Format_unit(unit.unit, spelling);
    if (unit.is_difference) {
        text.insert(0, spelling == STR_SYMBOL ? "\u0394" : "delta_");
    }
    return text;
}

std::string Format_unit(Measurement const& x, Unit_string_type spelling) {
    return Format_unit(Measurement_unit{x.Get_unit(), x.Is_difference()}, spelling);
}

std::string Write(Measurement const& x, Writing const& writing) {
    Exact_numbers numbers = Exact_numbers_of(x);
    if (!writing.format.engineering_prefix || x.Is_difference()) {
        return Write_numbers(numbers, Format_unit(x, writing.format.unit), writing);
    }
    Units const unit = Choose_prefix(numbers, x.Get_unit(), writing);
    return Write_numbers(numbers, Format_unit(unit, writing.format.unit), writing);
}

std::string Format(Measurement const& x, Text_format const& format) {
    Writing writing;
    writing.format = format;
    writing.bounds = Bound_rounding::outward;
    return Write(x, writing);
}

std::ostream& operator<<(std::ostream& stream, Measurement const& x) {
    std::string const text = Format(x);
    return stream.write(text.data(), static_cast<std::streamsize>(text.size()));
}

} // namespace Varnix::Value
