// Fuzzes sequences of the operations of value objects, on a small pool of them.

#include "Fuzz_input.h"

namespace Varnix::Value::Tests {
namespace {

// ---- Operations: each on an object, with another, which may be the same one

struct Operation {
    void (*run)(Quantity& o, Quantity const& other, Input& input);
    Documented documented;
};

void Check_comparison(Quantity const& left, Quantity const& right) {
    double const value = left.Get_unit() == right.Get_unit() ? left.Get_value() : left.Convert_to(right).Get_value();
    double const other = right.Get_value();
    CHECK((left == right) == (value == other) && (left != right) == (value != other));
    CHECK((left < right) == (value < other) && (left <= right) == (value <= other));
    CHECK((left > right) == (value > other) && (left >= right) == (value >= other));
}

Quantity const& In_canonical_order(Quantity const& quantity) {
    Check_canonical(quantity.Get_unit());
    return quantity;
}

void Convert(Quantity& object, Units const& target) {
    object = object.Convert_to(target);
    CHECK(object.Get_unit() == Units_library::Arrange_tuple(target));
}

constexpr Quantity (*thermal[])(Quantity const&, Units const&) = {Quantity::Convert_degreeC_to_degreeF,
                                                                  Quantity::Convert_degreeF_to_degreeC,
                                                                  Quantity::Convert_degreeC_to_kelvin,
                                                                  Quantity::Convert_degreeF_to_kelvin,
                                                                  Quantity::Convert_kelvin_to_degreeC,
                                                                  Quantity::Convert_kelvin_to_degreeF,
                                                                  Quantity::Power_conversion};
constexpr Quantity (*electrical[])(Quantity const&, Quantity const&,
                                   Units const&) = {Quantity::Volt_watt_amp_with_master_watt, Quantity::Volt_watt_amp_with_spl_watt,
                                                    Quantity::Volt_amp_to_watt, Quantity::Volt_ohm_to_watt, Quantity::Watt_ohm_to_volt};
constexpr Units const* electrical_units[] = {&C_Watts, &C_Volts, &C_Amps, &C_Ohms, &C_DBmW, &C_MilliVolts};

#define OPERATION [[maybe_unused]] Quantity &o, [[maybe_unused]] Quantity const &other, [[maybe_unused]] Input &input
constexpr Operation operations[] = {
    {[](OPERATION) { o = input.Take_quantity(); }, nothing},
    {[](OPERATION) {
         o = In_canonical_order({o.Get_value(), input.Take_unit(), o.Get_plus_err(), input.Take_number()});
     },
     cannot_be_built},
    {[](OPERATION) { o.Set(other.Get_plus_err(), other.Get_unit(), o.Get_value(), o.Get_minus_err()); }, nothing},
    {[](OPERATION) { o.Set_plus_minus_err(o.Get_value(), other.Get_minus_err()); }, nothing},
    {[](OPERATION) { o.Set_unit(input.Take_unit()); }, nothing},
    {[](OPERATION) { o.Set_unit(*input.Take_from(electrical_units)); }, nothing},
    {[](OPERATION) { o.Set_value(o.Magnitude()); }, nothing},
    {[](OPERATION) { Quantity::Is_value_in_range(o); }, range},
    {[](OPERATION) { CHECK(o.Get_unit_string(STR_NAME) == o.Get_unit_string_name(STR_NAME)); }, nothing},
    {[](OPERATION) { Convert(o, other.Get_unit()); }, no_conversion},
    {[](OPERATION) { o = Value_converter<double>(C_Ft, C_Meter).Convert(o); }, Is_one_of<UnitDimensionNotSame>},
    {[](OPERATION) { o = o.Convert_to_with_value(*input.Take_from(electrical_units), other); }, no_relation},
    {[](OPERATION) { o = input.Take_from(thermal)(o, input.Take_unit()); }, cannot_be_built},
    {[](OPERATION) { o = input.Take_from(electrical)(o, other, input.Take_unit()); }, range},
    {[](OPERATION) { o = Quantity::Normalize_DB(other); }, nothing},
    {[](OPERATION) { o = Quantity::Apply_DB(other); }, nothing},
    {[](OPERATION) { o += other; }, no_conversion},
    {[](OPERATION) { o -= other; }, no_conversion},
    {[](OPERATION) { o *= other; }, no_product},
    {[](OPERATION) { o /= other; }, no_product},
    {[](OPERATION) { o *= input.Take_number(); }, nothing},
    {[](OPERATION) { In_canonical_order(o /= input.Take_number()); }, no_conversion},
    {[](OPERATION) { o = other * input.Take_number(); }, nothing},
    {[](OPERATION) { o = other / 3.0; }, no_conversion},
    {[](OPERATION) { Check_comparison(o, other); }, no_conversion},
};
#undef OPERATION

// ---- Running them

void Run_one(Quantity (&pool)[4], Input& input) {
    Operation const& operation = input.Take_from(operations);
    std::uint8_t const places = input.Take<std::uint8_t>();
    Quantity& object = pool[places % 4];
    unsigned char before[sizeof pool];
    std::memcpy(before, static_cast<void const*>(pool), sizeof pool);
    if (!Succeeds(operation.documented, [&] { operation.run(object, pool[places / 4 % 4], input); })) {
        CHECK(std::memcmp(before, static_cast<void const*>(pool), sizeof pool) == 0);
    }
    CHECK(!(object.Get_minus_err() > object.Get_plus_err()));
}

} // namespace
} // namespace Varnix::Value::Tests

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    using namespace Varnix::Value::Tests;
    Input input(data, size);
    Quantity pool[4] = {input.Take_quantity(), input.Take_quantity(), Quantity(20.0, Varnix::Value::C_DBmW, 19.0, 21.0)};
    while (!input.Is_used_up()) {
        Run_one(pool, input);
    }
    return 0;
}
