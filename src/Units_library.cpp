// The unit algebra, over the catalogue tables.
//
// A descriptor is compared and converted slot by slot; that is meaningful because value objects
// keep theirs in canonical order: occupied tuples first, in ascending order of their dimension.

#include <varnix/value/Units_library.h>

#include <varnix/value/exceptions.h>

#include "Tuples.h"
#include "Unit_facts.h"
#include "Unit_tables.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <stdexcept>

namespace Varnix::Value {

Unit_strings::Unit_strings(Unit_strings const& other) = default;
Unit_strings& Unit_strings::operator=(Unit_strings const& other) = default;
Unit_strings::~Unit_strings() = default;

namespace {

// The row of `key`, or nullptr.
template <typename Table>
typename Table::mapped_type const* Find_row(Table const& table,
                                            typename Table::key_type const& key) {
    auto const row = table.find(key);
    return row == table.end() ? nullptr : &row->second;
}

Unit_facts Facts_of(Units_list key, Unit_info const& row) {
    double const scale = row.spl_conv_unit ? 1.0 : row.conv_factor;
    return {row.unit_id == key ? row.dimension : NO_DIMENSION, true, scale, 1.0 / scale};
}

Unit_facts_table Derive_facts(std::map<Units_list, Unit_info> const& table) {
    Unit_facts_table facts{};
    for (auto const& [key, row] : table) {
        facts[static_cast<std::size_t>(key)] = Facts_of(key, row);
    }
    return facts;
}

} // namespace

// After the catalogue, from which it is made.
Unit_facts_table const unit_facts = Derive_facts(Unit_table);

// ---- Canonical order

Dimension Units_library::Get_dimension(Units_list const& unit) {
    return Dimension_of(unit);
}

namespace {

void Reject_shared_dimensions(Units const& unit) {
    for (std::size_t i = 0; i + 1 < Tuple_count; ++i) {
        for (std::size_t j = i + 1; j < Tuple_count; ++j) {
            Units_list const later = unit.tuples[j].unit;
            if (later != NO_UNIT && Dimension_of(later) == Dimension_of(unit.tuples[i].unit)) {
                throw UnitDimensionNotProper();
            }
        }
    }
}

// The dimensions that a unit can have: DIMENSIONLESS to TIME.
constexpr std::size_t Dimension_count = TIME + 1;

} // namespace

Units Units_library::Arrange_tuple(Units const& unit) {
    if (Is_canonical(unit)) {
        return unit;
    }
    Reject_shared_dimensions(unit);

    std::array<Unit_tuple const*, Dimension_count> by_dimension{};
    for (Unit_tuple const& tuple : unit.tuples) {
        Dimension const dimension = Get_dimension(tuple.unit);
        if (dimension != NO_DIMENSION) {
            by_dimension[static_cast<std::size_t>(dimension)] = &tuple;
        }
    }

    if (!Is_packed(unit)) {
        return unit;
    }
    Units result = unit;
    std::size_t count = 0;
    for (Unit_tuple const* const tuple : by_dimension) {
        if (tuple != nullptr) {
            result.tuples[count++] = *tuple;
        }
    }
    return result;
}

// ---- Comparison, base units and dimensions

bool Units_library::Compare_units(Units const& first, Units const& second,
                                  bool compare_prefix) noexcept {
    if (compare_prefix && first.si_prefix != second.si_prefix) {
        return false;
    }
    return std::equal(std::begin(first.tuples), std::end(first.tuples), std::begin(second.tuples),
                      [](Unit_tuple const& left, Unit_tuple const& right) {
                          return left.unit == right.unit && left.exponent == right.exponent;
                      });
}

bool Units_library::Compare_units_DB(Units const& first, Units const& second,
                                     bool compare_prefix) noexcept {
    return first.spl_conv == second.spl_conv && first.si_prefix == second.si_prefix &&
           Compare_units(first, second, compare_prefix);
}

bool Units_library::Is_Invert_units(Units const& first, Units const& second) noexcept {
    return first.spl_conv == second.spl_conv &&
           std::equal(std::begin(first.tuples), std::end(first.tuples), std::begin(second.tuples),
                      [](Unit_tuple const& left, Unit_tuple const& right) {
                          return left.unit == right.unit &&
                                 Combined_exponent(left.exponent, 1, right.exponent) == 0;
                      });
}

Units Units_library::Get_base_unit(Units const& unit) noexcept {
    Units base = unit;
    base.si_prefix = NO_PREFIX;
    for (Unit_tuple& tuple : base.tuples) {
        Unit_info const* const row = Find_row(Unit_table, tuple.unit);
        tuple =
            row == nullptr ? Unit_tuple{NO_UNIT, 0} : Unit_tuple{row->base_unit, tuple.exponent};
    }
    return base;
}

double Units_library::Get_unit_base(Units const& unit) noexcept {
    switch (unit.si_prefix) {
    case KIBI:
    case MEBI:
    case GIBI:
    case TEBI:
    case PEBI:
    case EXBI:
    case ZEBI:
    case YOBI:
        return 2.0;
    default:
        return 10.0;
    }
}

bool Units_library::Is_unitless(Units const& unit) {
    return std::all_of(std::begin(unit.tuples), std::end(unit.tuples), [](Unit_tuple const& tuple) {
        Dimension const dimension = Get_dimension(tuple.unit);
        return dimension == DIMENSIONLESS || dimension == NO_DIMENSION;
    });
}

// ---- Products

namespace {

bool Has_unit(Units const& descriptor, Units_list unit) {
    return std::any_of(std::begin(descriptor.tuples), std::end(descriptor.tuples),
                       [unit](Unit_tuple const& tuple) { return tuple.unit == unit; });
}

// The power of `own` after combining it with its unit in `other`, or 0 if the unit cancels. In a
// descriptor that repeats a unit, the first occurrence that leaves a power counts.
std::int32_t Power_with(Unit_tuple const& own, std::int32_t sign, Units const& other) {
    for (Unit_tuple const& tuple : other.tuples) {
        if (tuple.unit == own.unit) {
            std::int32_t const power = Combined_exponent(own.exponent, sign, tuple.exponent);
            if (power != 0) {
                return power;
            }
        }
    }
    return 0;
}

// A descriptor that is filled from its first slot on.
class Descriptor_builder {
  public:
    explicit Descriptor_builder(SI_units prefix) { result.si_prefix = prefix; }

    void Append(Units_list unit, std::int32_t exponent) {
        if (count == Tuple_count) {
            throw OperationExceedingAllowedTuples();
        }
        result.tuples[count++] = {unit, exponent};
    }

    Units const& Result() const { return result; }

  private:
    Units result{};
    std::size_t count = 0;
};

// first * second for the sign 1, first / second for the sign -1.
Units Combine_units(Units const& first, std::int32_t sign, Units const& second) {
    Descriptor_builder product(first.si_prefix);
    for (Unit_tuple const& tuple : first.tuples) {
        if (tuple.unit == NO_UNIT) {
            continue;
        }
        if (!Has_unit(second, tuple.unit)) {
            product.Append(tuple.unit, tuple.exponent); // even with the power 0
        } else if (std::int32_t const power = Power_with(tuple, sign, second); power != 0) {
            product.Append(tuple.unit, power);
        }
    }
    for (Unit_tuple const& tuple : second.tuples) {
        if (tuple.unit != NO_UNIT && !Has_unit(first, tuple.unit)) {
            product.Append(tuple.unit, Combined_exponent(0, sign, tuple.exponent));
        }
    }
    return product.Result();
}

} // namespace

Units Units_library::Multiply_units(Units const& first, Units const& second) {
    return Combine_units(first, 1, second);
}

Units Units_library::Divide_units(Units const& first, Units const& second) {
    return Combine_units(first, -1, second);
}

Units Units_library::Make_unit(Units const& first, Units const& second) {
    return Multiply_units(first, second);
}

// ---- Conversion factors

namespace {

// The size of one of the unit, or of its reciprocal for a negative power.
double Scale(Unit_facts const& facts, std::int32_t exponent) {
    return exponent < 0 ? facts.reciprocal_scale : facts.scale;
}

// base^power; the two powers that almost all units have need no pow, and it gives them exactly.
double Power(double base, std::int64_t power) {
    return power == 1 ? base : power == 0 ? 1.0 : std::pow(base, static_cast<double>(power));
}

} // namespace

double Units_library::Get_tuple_conversion_factor(Unit_tuple const& from, Unit_tuple const& to) {
    Unit_facts const& from_facts = Require_facts(from.unit);
    Unit_facts const& to_facts = Require_facts(to.unit);
    if (from_facts.dimension != to_facts.dimension) {
        throw UnitDimensionNotSame();
    }
    double const ratio = Scale(from_facts, from.exponent) / Scale(to_facts, to.exponent);
    if (!std::isfinite(ratio)) {
        throw std::out_of_range("Value is out of range");
    }
    return Power(ratio, Exponent_magnitude(to.exponent));
}

double Units_library::Get_conversion_factor(Units const& target, Units const& source) {
    double factor = 1.0;
    for (std::size_t k = 0; k < Tuple_count; ++k) {
        Unit_tuple const& to = target.tuples[k];
        Unit_tuple const& from = source.tuples[k];
        if (to.unit == NO_UNIT || from.unit == NO_UNIT) {
            continue;
        }
        if (Powers_differ_in_magnitude(from, to)) {
            throw UnitDimensionNotSame();
        }
        double const slot_factor = Get_tuple_conversion_factor(from, to);
        // A factor of almost one is rounding from the slots before, and is dropped.
        factor = std::fabs(factor - 1.0) < 1e-10 ? slot_factor : factor * slot_factor;
    }
    return factor;
}

// ---- Prefixes

namespace {

constexpr int lowest_prefix = PICO;
constexpr int highest_prefix = YOBI;

double Compute_prefix_scale(SI_units prefix, int sign) {
    double const radix = Units_library::Get_unit_base({SPL_NONE, prefix, {}});
    return std::pow(radix, sign * static_cast<double>(prefix));
}

// The scales of all prefixes, computed once.
struct Prefix_scales {
    explicit Prefix_scales(int sign) {
        for (int prefix = lowest_prefix; prefix <= highest_prefix; ++prefix) {
            scales[static_cast<std::size_t>(prefix - lowest_prefix)] =
                Compute_prefix_scale(static_cast<SI_units>(prefix), sign);
        }
    }

    std::array<double, highest_prefix - lowest_prefix + 1> scales{};
};

Prefix_scales const prefix_scales(1);
Prefix_scales const reciprocal_prefix_scales(-1);

} // namespace

double Prefix_scale(SI_units prefix, int sign) {
    if (prefix == NO_PREFIX) {
        return 1.0;
    }
    if (prefix < lowest_prefix || prefix > highest_prefix) {
        return Compute_prefix_scale(prefix, sign);
    }
    Prefix_scales const& table = sign < 0 ? reciprocal_prefix_scales : prefix_scales;
    return table.scales[static_cast<std::size_t>(prefix - lowest_prefix)];
}

// ---- Texts

namespace {

using Spelling = std::string Unit_strings::*;

// The spelling that `type` selects; `otherwise` for a type outside the four.
Spelling Select_spelling(Unit_string_type type, Spelling otherwise) {
    switch (type) {
    case STR_NAME:
        return &Unit_strings::name;
    case STR_SYMBOL:
        return &Unit_strings::symbol;
    case STR_LOWER_CASE:
        return &Unit_strings::lower_case;
    case STR_UPPER_CASE:
        return &Unit_strings::upper_case;
    }
    return otherwise;
}

Unit_name_spl_data const* Find_special_name(Units const& unit) {
    auto const entry =
        std::find_if(Units_spl_names_table.begin(), Units_spl_names_table.end(),
                     [&unit](Unit_name_spl_data const& candidate) {
                         return Units_library::Compare_units_DB(candidate.units, unit, false);
                     });
    return entry == Units_spl_names_table.end() ? nullptr : &*entry;
}

// The special name stands for the units' symbols, in the forms made of symbols.
bool Special_name_replaces_units(Units const& unit, Unit_string_type type) {
    return (type == STR_SYMBOL || type == STR_LOWER_CASE) && Find_special_name(unit) != nullptr;
}

std::string Power_text(std::int32_t exponent) {
    std::int64_t const magnitude = Exponent_magnitude(exponent);
    return magnitude < 2 ? std::string() : Pow_sign + std::to_string(magnitude);
}

} // namespace

std::string Units_library::Get_unit_string(Units const& unit, Unit_string_type const& type) {
    return Get_unit_str(unit, type);
}

std::string Units_library::Get_unit_str(Units const& unit, Unit_string_type const& type) {
    std::string special_name = Get_unit_str_spl_map(unit, type);
    if (!special_name.empty()) {
        return special_name;
    }
    std::string const marker = unit.spl_conv == SPL_DB ? "dB" : "";
    return marker + Get_unit_str_si_map(unit, type) + Get_unit_str_info_map(unit, type);
}

std::string Units_library::Get_unit_str_spl_map(Units const& unit, Unit_string_type const& type) {
    Unit_name_spl_data const* const entry = Find_special_name(unit);
    return entry == nullptr ? std::string()
                            : entry->unit_strings.*Select_spelling(type, &Unit_strings::upper_case);
}

std::string Units_library::Get_unit_str_si_map(Units const& unit, Unit_string_type const& type) {
    Unit_strings const* const row = Find_row(Si_prefix_table, unit.si_prefix);
    return row == nullptr ? std::string() : row->*Select_spelling(type, &Unit_strings::name);
}

std::string Units_library::Get_unit_str_info_map(Units const& unit, Unit_string_type const& type) {
    Spelling const spelling = Select_spelling(type, &Unit_strings::upper_case);
    bool const without_units = Special_name_replaces_units(unit, type);
    std::string numerator;
    std::string denominator;
    bool divided = false;
    for (Unit_tuple const& tuple : unit.tuples) {
        if (tuple.unit == NO_UNIT) {
            break;
        }
        Unit_info const* const row = Find_row(Unit_table, tuple.unit);
        if (row == nullptr) {
            continue;
        }
        divided = divided || tuple.exponent < 0;
        std::string& part = tuple.exponent < 0 ? denominator : numerator;
        part += without_units ? std::string() : row->unit_strings.*spelling;
        part += Power_text(tuple.exponent);
    }
    return divided ? numerator + Divide_sign + denominator : numerator;
}

} // namespace Varnix::Value
