#include "Core_units.h"

#include "Characters.h"
#include "Spellings.h"
#include "Unit_product.h"

#include "catalogue/Unit_rows.h"

#include <varnix/value/Text_formatting.h>

#include <algorithm>
#include <string>
#include <vector>

namespace Varnix::Value {

namespace {

using Catalogue::Quantity;

// The coherent unit of a quantity in units of the core.
struct Coherent_unit {
    Quantity quantity;
    Units unit;
};

// clang-format off
constexpr Coherent_unit coherent_units[] = {
    {Quantity::FORCE,          {SPL_NONE, KILO,      {{GRAM, 1}, {METER, 1}, {SECOND, -2}}}},
    {Quantity::PRESSURE,       {SPL_NONE, KILO,      {{GRAM, 1}, {METER, -1}, {SECOND, -2}}}},
    {Quantity::ENERGY,         {SPL_NONE, NO_PREFIX, {{WATT, 1}, {SECOND, 1}}}},
    {Quantity::POWER,          {SPL_NONE, NO_PREFIX, {{WATT, 1}}}},
    {Quantity::CHARGE,         {SPL_NONE, NO_PREFIX, {{AMP, 1}, {SECOND, 1}}}},
    {Quantity::CAPACITANCE,    {SPL_NONE, NO_PREFIX, {{OHM, -1}, {SECOND, 1}}}},
    {Quantity::INDUCTANCE,     {SPL_NONE, NO_PREFIX, {{OHM, 1}, {SECOND, 1}}}},
    {Quantity::CONDUCTANCE,    {SPL_NONE, NO_PREFIX, {{OHM, -1}}}},
    {Quantity::MAGNETIC_FLUX,  {SPL_NONE, NO_PREFIX, {{VOLT, 1}, {SECOND, 1}}}},
    {Quantity::FLUX_DENSITY,   {SPL_NONE, NO_PREFIX, {{VOLT, 1}, {METER, -2}, {SECOND, 1}}}},
    {Quantity::MAGNETIC_FIELD, {SPL_NONE, NO_PREFIX, {{AMP, 1}, {METER, -1}}}},
    {Quantity::ACTIVITY,       {SPL_NONE, NO_PREFIX, {{SECOND, -1}}}},
    {Quantity::DOSE,           {SPL_NONE, NO_PREFIX, {{METER, 2}, {SECOND, -2}}}},
    {Quantity::VOLUME,         {SPL_NONE, NO_PREFIX, {{METER, 3}}}},
    {Quantity::AREA,           {SPL_NONE, NO_PREFIX, {{METER, 2}}}},
    {Quantity::LENGTH,         {SPL_NONE, NO_PREFIX, {{METER, 1}}}},
    {Quantity::MASS,           {SPL_NONE, KILO,      {{GRAM, 1}}}},
    {Quantity::SYMBOL_RATE,    {SPL_NONE, NO_PREFIX, {{SECOND, -1}, {SYMBOL, 1}}}},
};
// clang-format on

// The exponent of a size that is a power of ten, "1e-5" or "0.001"; nothing for any other.
std::optional<std::int64_t> Power_of_ten(std::string_view size) {
    std::size_t const end = std::min(size.find('e'), size.size());
    std::string_view const digits = size.substr(0, end);
    std::size_t const one = digits.find('1');
    if (one == std::string_view::npos ||
        digits.find_first_not_of("0.1") != std::string_view::npos ||
        digits.find('1', one + 1) != std::string_view::npos) {
        return std::nullopt;
    }
    std::size_t const point = std::min(digits.find('.'), digits.size());
    std::int64_t const power = static_cast<std::int64_t>(point) - static_cast<std::int64_t>(one);
    return (one < point ? power - 1 : power) +
           (end < size.size() ? std::stoi(std::string(size.substr(end + 1))) : 0);
}

// A product in which units may cancel.
class Sum {
  public:
    void Multiply(Units const& unit, std::int64_t power) {
        tens += unit.si_prefix * power;
        for (Unit_tuple const& tuple : unit.tuples) {
            if (tuple.unit != NO_UNIT) {
                Multiply(tuple.unit, tuple.exponent * power);
            }
        }
    }
    void Multiply_by_power_of_ten(std::int64_t power) { tens += power; }

    std::optional<Units> Descriptor() const {
        Unit_product product;
        product.Multiply_by_power_of_ten(tens, 0);
        std::size_t count = 0;
        for (Unit_tuple_of_64_bits const& own : tuples) {
            if (own.power != 0) {
                product.Multiply(Factor{own.unit, own.power, 0});
                ++count;
            }
        }
        auto const unit = product.Descriptor(SPL_NONE);
        return unit && count != 0 ? std::optional(*unit) : std::nullopt;
    }

  private:
    struct Unit_tuple_of_64_bits {
        Units_list unit;
        std::int64_t power;
    };

    void Multiply(Units_list unit, std::int64_t power) {
        for (Unit_tuple_of_64_bits& own : tuples) {
            if (own.unit == unit) {
                own.power += power;
                return;
            }
        }
        tuples.push_back({unit, power});
    }

    std::vector<Unit_tuple_of_64_bits> tuples;
    std::int64_t tens = 0;
};

// Multiplies by a unit beyond the core, to a power, in the core's units; false if there is no such unit.
bool Multiply_in_core_units(Sum& sum, Unit_tuple const& tuple) {
    Catalogue::Unit_row const& row = Catalogue::Row_of(tuple.unit);
    std::optional<std::int64_t> const scale = Power_of_ten(row.size);
    for (Coherent_unit const& coherent : coherent_units) {
        if (scale && coherent.quantity == row.quantity) {
            sum.Multiply(coherent.unit, tuple.exponent);
            sum.Multiply_by_power_of_ten(*scale * tuple.exponent);
            return true;
        }
    }
    return false;
}

// The unit in units of the core, as a text; empty if there is none of the same size.
std::string In_core_units(Units const& unit) {
    Sum sum;
    if (unit.spl_conv == SPL_DB || Catalogue::Is_binary(unit.si_prefix)) {
        return {};
    }
    sum.Multiply_by_power_of_ten(unit.si_prefix);
    for (Unit_tuple const& tuple : unit.tuples) {
        if (Catalogue::Is_unit_of_core(tuple.unit)) {
            sum.Multiply({SPL_NONE, NO_PREFIX, {tuple}}, 1);
        } else if (tuple.unit != NO_UNIT && !Multiply_in_core_units(sum, tuple)) {
            return {};
        }
    }
    std::optional<Units> const same = sum.Descriptor();
    std::string text = same ? Format_unit(*same, STR_SYMBOL) : std::string();
    return !text.empty() && Try_parse_unit(text) ? text : std::string();
}

Units_list First_beyond_core(Units const& unit) {
    Unit_tuple const* const tuple =
        std::find_if(std::begin(unit.tuples), std::end(unit.tuples), [](Unit_tuple const& own) {
            return own.unit != NO_UNIT && !Catalogue::Is_unit_of_core(own.unit);
        });
    return tuple == std::end(unit.tuples) ? NO_UNIT : tuple->unit;
}

} // namespace

std::optional<Text_fault> Beyond_core_fault(Units const& unit, std::size_t position) {
    Units_list const beyond = First_beyond_core(unit);
    if (beyond == NO_UNIT) {
        return std::nullopt;
    }
    bool const alone = unit.si_prefix == NO_PREFIX && unit.tuples[0].exponent == 1 &&
                       unit.tuples[1].unit == NO_UNIT;
    std::string const temperature = alone && beyond == COULOMB ? "°C"
                                    : alone && beyond == FARAD ? "°F"
                                                               : "";
    std::string const same = In_core_units(unit);
    return Text_fault{position,
                      Quoted(Unit_text(beyond, STR_SYMBOL)) +
                          " is a unit that measurements alone have" +
                          (same.empty() ? std::string() : "; here write " + same),
                      temperature};
}

} // namespace Varnix::Value
