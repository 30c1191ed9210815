// Fuzzes the writing of quantities: any numbers in any unit in any format; and what was written is
// read again.

#include "Fuzz_input.h"

#include <varnix/value/text.h>

#include <string>

namespace Varnix::Value::Tests {
namespace {

bool Has_known_prefix(Units const& unit) {
    auto const prefixes = Prefixes();
    return unit.si_prefix == NO_PREFIX || std::find(prefixes.begin(), prefixes.end(), unit.si_prefix) != prefixes.end();
}

bool Is_canonical(Units const& unit) {
    try {
        return Quantity::Is_valid_unit(unit) && Units_library::Arrange_tuple(unit) == unit;
    } catch (Value_exception const&) {
        return false;
    }
}

// Whether a text can hold every field of the unit. Powers of zero and those of empty slots leave no trace.
bool Shows_in_text(Units const& unit) {
    bool const known = Has_known_prefix(unit) && unit.spl_conv <= SPL_DB && Is_canonical(unit);
    bool const occupied = unit.tuples[0].unit != NO_UNIT || unit == C_Empty || unit == C_DB;
    return known && occupied && std::all_of(std::begin(unit.tuples), std::end(unit.tuples), [](Unit_tuple const& tuple) {
               return (tuple.unit == NO_UNIT) == (tuple.exponent == 0) && tuple.exponent != std::numeric_limits<std::int32_t>::min();
           });
}

Text_format Take_format(Input& input) {
    Text_format format;
    format.digits = static_cast<Digits>(input.Take<std::uint8_t>() % 4);
    format.count = input.Take<std::int32_t>() % 128;
    format.bounds = static_cast<Bounds_style>(input.Take<std::uint8_t>() % 3);
    format.unit = static_cast<Unit_string_type>(input.Take<std::uint8_t>() % 6);
    format.engineering_prefix = input.Take<std::uint8_t>() % 2 != 0;
    return format;
}

void Check_round_trip(Quantity const& quantity) {
    Quantity const again = Parse_quantity(Format(quantity), {false, true});
    CHECK(again.Get_unit() == quantity.Get_unit());
    CHECK(Same_number(again.Get_value(), quantity.Get_value()));
    CHECK(Same_number(again.Get_minus_err(), quantity.Get_minus_err()) && Same_number(again.Get_plus_err(), quantity.Get_plus_err()));
}

// Powers in empty slots say nothing.
Units With_clear_slots(Units unit) {
    for (Unit_tuple& tuple : unit.tuples) {
        tuple.exponent = tuple.unit == NO_UNIT ? 0 : tuple.exponent;
    }
    return unit;
}

// A unit is read as the one that was written, or not at all.
void Check_unit(Units const& unit) {
    for (Unit_string_type const spelling : {STR_SYMBOL, STR_NAME}) {
        std::string const text = Format_unit(unit, spelling);
        auto const read = Try_parse_unit(text);
        CHECK(!Shows_in_text(unit) || unit.tuples[0].unit == NO_UNIT || (read && *read == unit));
        Units const shown = With_clear_slots(unit);
        // A unit that the catalogue has not is written as nothing, which is the unit of plain numbers.
        CHECK(!read || text.empty() || With_clear_slots(*read) == shown || !Is_canonical(shown) || unit.spl_conv > SPL_DB);
    }
}

} // namespace
} // namespace Varnix::Value::Tests

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    using namespace Varnix::Value::Tests;
    using namespace Varnix::Value;
    Input input(data, size);
    Quantity const quantity = input.Take_quantity();
    (void)Format(quantity, Take_format(input));
    Check_unit(quantity.Get_unit());
    // Of bounds without an order, none larger than the other, the text shows one all the same.
    bool const ordered = quantity.Get_minus_err() < quantity.Get_plus_err() || Same_number(quantity.Get_minus_err(), quantity.Get_plus_err());
    if (ordered && Shows_in_text(quantity.Get_unit())) {
        Check_round_trip(quantity);
    }
    return 0;
}
