// Fuzzes the unit algebra, its texts, and conversions between any two units.

#include "Fuzz_input.h"

#include <string>

namespace Varnix::Value::Tests {
namespace {

void Check_order_and_comparison(Units const& unit, Units const& other) {
    if (Succeeds(cannot_be_arranged, [&] { (void)Units_library::Arrange_tuple(unit); })) {
        Units const arranged = Units_library::Arrange_tuple(unit);
        CHECK(Quantity::Is_valid_unit(arranged) == Quantity::Is_valid_unit(unit));
        if (Quantity::Is_valid_unit(arranged)) {
            Check_canonical(arranged);
        }
    }
    CHECK(unit == unit && Units_library::Is_Invert_units(unit, other) == Units_library::Is_Invert_units(other, unit));
    Units const base = Units_library::Get_base_unit(unit);
    CHECK(base.si_prefix == NO_PREFIX && Units_library::Get_base_unit(base) == base);
    CHECK(Units_library::Get_unit_base(unit) == 2.0 || Units_library::Get_unit_base(unit) == 10.0);
    (void)Succeeds(not_in_catalogue, [&] { (void)Units_library::Is_unitless(unit); });
    (void)Succeeds(not_in_catalogue, [&] { (void)Units_library::Get_dimension(unit.tuples[0].unit); });
    (void)Succeeds(not_in_catalogue, [&] { (void)Quantity::Is_convertable_unit(unit, other); });
}

void Check_products(Units const& unit, Units const& other) {
    for (auto const combine : {Units_library::Multiply_units, Units_library::Divide_units, Units_library::Make_unit}) {
        (void)Succeeds(limit, [&] { CHECK(Quantity::Is_valid_unit(combine(unit, other)) && combine(unit, other).spl_conv == SPL_NONE); });
    }
    (void)Succeeds(no_factor, [&] { CHECK(Units_library::Get_tuple_conversion_factor(unit.tuples[0], other.tuples[0]) >= 0.0); });
    (void)Succeeds(no_factor, [&] { (void)Units_library::Get_conversion_factor(unit, other); }); // high powers may leave the range
}

void Check_texts(Units const& unit, Unit_string_type type) {
    std::string const special = Units_library::Get_unit_str_spl_map(unit, type);
    std::string const marker = unit.spl_conv == SPL_DB ? "dB" : "";
    std::string const parts = Units_library::Get_unit_str_si_map(unit, type) + Units_library::Get_unit_str_info_map(unit, type);
    CHECK(Units_library::Get_unit_string(unit, type) == (special.empty() ? marker + parts : special));
}

// The converter, for one number, for a value and for arrays, gives what `Convert_to` gives.
void Check_conversion(Quantity const& from, Units const& to) {
    bool const possible = Succeeds(no_conversion, [&] { (void)from.Convert_to(to); });
    CHECK(Succeeds(no_conversion, [&] { Value_converter<double>(from.Get_unit(), to); }) == possible);
    if (!possible) {
        return;
    }
    Quantity const expected = from.Convert_to(to);
    Value_converter<double> const converter(from.Get_unit(), to);
    Quantity const converted = converter.Convert(from);
    double const numbers[] = {from.Get_value(), from.Get_value(), from.Get_value()};
    double out[3] = {};
    converter.Convert(numbers, out, 3);
    CHECK(expected.Get_unit() == Units_library::Arrange_tuple(to) && expected.Get_unit() == converted.Get_unit());
    CHECK(Same_number(converted.Get_value(), expected.Get_value()) && Same_number(converter.Convert(numbers[0]), expected.Get_value()));
    CHECK(Same_number(converted.Get_minus_err(), expected.Get_minus_err()) && Same_number(converted.Get_plus_err(), expected.Get_plus_err()));
    CHECK(std::all_of(std::begin(out), std::end(out), [&expected](double number) { return Same_number(number, expected.Get_value()); }));
}

} // namespace
} // namespace Varnix::Value::Tests

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    using namespace Varnix::Value;
    Tests::Input input(data, size);
    Units const unit = input.Take_unit();
    Units const other = input.Take_unit();
    Tests::Check_order_and_comparison(unit, other);
    Tests::Check_products(unit, other);
    Tests::Check_texts(unit, static_cast<Unit_string_type>(input.Take<std::int8_t>() % 5));
    double const value = input.Take_number();
    double const minus_err = input.Take_number();
    double const plus_err = input.Take_number();
    Tests::Quantity quantity;
    quantity.Set(value, unit, minus_err, plus_err);
    Tests::Check_conversion(quantity, other);
    return 0;
}
