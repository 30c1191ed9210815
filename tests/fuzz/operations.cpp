// Fuzzes sequences of the operations of value objects, on a small pool of them.

#include "Fuzz_input.h"

#include <utility>

namespace Varnix::Value::Tests {
namespace {

// ---- Operations: each on an object, with another, which may be the same one

struct Operation {
    void (*run)(Quantity& object, Quantity const& other, Input& input);
    Documented documented;
};

void Check_comparison(Quantity const& left, Quantity const& right) {
    bool const same_unit = Same_unit(left.Get_unit(), right.Get_unit());
    double const value = same_unit ? left.Get_value() : left.Convert_to(right).Get_value();
    double const other = right.Get_value();
    CHECK((left == right) == (value == other) && (left != right) == (value != other));
    CHECK((left < right) == (value < other) && (left <= right) == (value <= other));
    CHECK((left > right) == (value > other) && (left >= right) == (value >= other));
}

void Build(Quantity& object, Quantity const& other, Input& input) {
    object = Quantity(other.Get_value(), input.Take_unit(), other.Get_plus_err(), input.Take_number());
    Check_canonical(object.Get_unit());
}

void Convert(Quantity& object, Quantity const& other) {
    object = object.Convert_to(other);
    Check_canonical(Quantity::Is_valid_unit(object.Get_unit()) ? object.Get_unit() : C_Empty);
}

void Divide_by_number(Quantity& object, Input& input) {
    object /= input.Take_number();
    Check_canonical(object.Get_unit());
}

// One of the named units, that electrical relations are found.
Units const& Electrical_unit(Input& input) {
    static constexpr Units const* units[] = {&C_Watts, &C_Volts, &C_Amps, &C_Ohms, &C_DBmW, &C_MilliVolts};
    return *units[input.Take<std::uint8_t>() % std::size(units)];
}

template <Quantity (*relation)(Quantity const&, Quantity const&, Units const&)>
constexpr Operation Electrical = {[](Quantity& o, Quantity const& other, Input& input) { o = relation(o, other, input.Take_unit()); }, range};

template <Quantity (*formula)(Quantity const&, Units const&)>
constexpr Operation Thermal = {[](Quantity& o, Quantity const&, Input& input) { o = formula(o, input.Take_unit()); }, cannot_be_built};

#define OPERATION [[maybe_unused]] Quantity &o, [[maybe_unused]] Quantity const &other, [[maybe_unused]] Input &input
constexpr Operation operations[] = {
    {[](OPERATION) { o = input.Take_quantity(); }, nothing},
    {Build, cannot_be_built},
    {[](OPERATION) { o.Set(other.Get_plus_err(), other.Get_unit(), o.Get_value(), o.Get_minus_err()); }, nothing},
    {[](OPERATION) { o.Set_plus_minus_err(o.Get_value(), other.Get_minus_err()); }, nothing},
    {[](OPERATION) { o.Set_unit(input.Take_unit()); }, nothing},
    {[](OPERATION) { o.Set_value(o.Magnitude()); }, nothing},
    {[](OPERATION) { o = Quantity(Quantity(other)); }, nothing},
    {[](OPERATION) { Quantity::Is_value_in_range(o); }, range},
    {[](OPERATION) { CHECK(!o.Get_unit_string(STR_NAME).empty() || o.Get_unit_string_name(STR_NAME).empty()); }, nothing},
    {[](OPERATION) { Convert(o, other); }, no_conversion},
    {[](OPERATION) { o = Value_converter<double>(o.Get_unit(), other.Get_unit()).Convert(o); }, no_conversion},
    {[](OPERATION) { o = Value_converter<double>(C_Ft, C_Meter).Convert(o); }, Is_one_of<UnitDimensionNotSame>},
    {[](OPERATION) { o = o.Convert_to_with_value(Electrical_unit(input), other); }, no_relation},
    {[](OPERATION) { o.Set_unit(Electrical_unit(input)); }, nothing},
    Thermal<Quantity::Convert_degreeF_to_degreeC>,
    Thermal<Quantity::Convert_degreeC_to_kelvin>,
    Thermal<Quantity::Convert_degreeF_to_kelvin>,
    Thermal<Quantity::Convert_kelvin_to_degreeC>,
    Thermal<Quantity::Convert_kelvin_to_degreeF>,
    Thermal<Quantity::Power_conversion>,
    {[](OPERATION) { o = Quantity::Convert_degreeC_to_degreeF(o, input.Take_unit()); }, nothing},
    Electrical<Quantity::Volt_watt_amp_with_master_watt>,
    Electrical<Quantity::Volt_watt_amp_with_spl_watt>,
    Electrical<Quantity::Volt_amp_to_watt>,
    Electrical<Quantity::Volt_ohm_to_watt>,
    Electrical<Quantity::Watt_ohm_to_volt>,
    {[](OPERATION) { o = Quantity::Normalize_DB(other); }, nothing},
    {[](OPERATION) { o = Quantity::Apply_DB(other); }, nothing},
    {[](OPERATION) { o += other; }, no_conversion},
    {[](OPERATION) { o -= other; }, no_conversion},
    {[](OPERATION) { o *= other; }, no_product},
    {[](OPERATION) { o /= other; }, no_product},
    {[](OPERATION) { o *= input.Take_number(); }, nothing},
    {[](OPERATION) { Divide_by_number(o, input); }, Is_one_of<UnitDimensionNotProper, UnitNotDefined, OperationNotValid, std::out_of_range>},
    {[](OPERATION) { o = other * input.Take_number(); }, nothing},
    {[](OPERATION) { o = other / 3.0; }, Is_one_of<UnitDimensionNotProper, UnitNotDefined, OperationNotValid, std::out_of_range>},
    {[](OPERATION) { Check_comparison(o, other); }, no_conversion},
};
#undef OPERATION

// ---- Running them

void Run_one(Quantity (&pool)[4], Input& input) {
    Operation const& operation = operations[input.Take<std::uint8_t>() % std::size(operations)];
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
