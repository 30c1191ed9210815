// The unit algebra, over the catalogue tables.
//
// A descriptor is compared and converted slot by slot; that is meaningful because value objects
// keep theirs in canonical order: occupied tuples first, in ascending order of their dimension.

#include <varnix/value/Units_library.h>

#include <varnix/value/exceptions.h>

#include "errors/Throw.h"
#include "units/Tuples.h"
#include "units/Unit_facts.h"
#include "units/Unit_tables.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace Varnix::Value {

Unit_strings::Unit_strings(Unit_strings const& other) = default;
Unit_strings::~Unit_strings() = default;

namespace {

// The row of `key`, or nullptr.
template <typename Table>
typename Table::mapped_type const* Find_row(Table const& table,
                                            typename Table::key_type const& key) {
    auto const row = table.find(key);
    return row == table.end() ? nullptr : &row->second;
}

Unit_facts Derive_facts(Units_list key, Unit_info const& row) {
    double const scale = row.spl_conv_unit ? 1.0 : row.conv_factor;
    Dimension const dimension = row.unit_id == key ? row.dimension : NO_DIMENSION;
    return {Set_of(row.dimension), dimension, scale, 1.0 / scale};
}

Unit_facts_table Derive_facts(std::map<Units_list, Unit_info> const& table) {
    Unit_facts_table facts{};
    for (auto const& [key, row] : table) {
        facts.at(static_cast<std::size_t>(key)) = Derive_facts(key, row);
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
    for (std::size_t i = 0; i + 1 < Value_detail::Tuple_count; ++i) {
        for (std::size_t j = i + 1; j < Value_detail::Tuple_count; ++j) {
            Units_list const later = unit.tuples[j].unit;
            if (later != NO_UNIT && Dimension_of(later) == Dimension_of(unit.tuples[i].unit)) {
                Throw<UnitDimensionNotProper>();
            }
        }
    }
}

} // namespace

Units Units_library::Arrange_tuple(Units const& unit) {
    if (Canonical_dimensions(unit) != Not_canonical) {
        return unit;
    }
    Reject_shared_dimensions(unit);

    std::array<Unit_tuple const*, Value_detail::Dimension_limit> by_dimension{};
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
    return (!compare_prefix || first.si_prefix == second.si_prefix) &&
           Have_equal_tuples(first, second);
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

// The slots up to the last occupied one: the rest has no part in a product.
class Occupied_slots {
  public:
    explicit Occupied_slots(Units const& unit)
        : first(unit.tuples), last(first + Value_detail::Tuple_count) {
        while (last != first && last[-1].unit == NO_UNIT) {
            --last;
        }
    }

    Unit_tuple const* begin() const { return first; }
    Unit_tuple const* end() const { return last; }

    bool Have(Units_list unit) const {
        return std::any_of(first, last,
                           [unit](Unit_tuple const& tuple) { return tuple.unit == unit; });
    }

  private:
    Unit_tuple const* first;
    Unit_tuple const* last;
};

// A descriptor that is filled from its first slot on.
class Descriptor_builder {
  public:
    explicit Descriptor_builder(SI_units prefix) { result.si_prefix = prefix; }

    void Append(Units_list unit, std::int32_t exponent) {
        if (count == Value_detail::Tuple_count) {
            Throw<OperationExceedingAllowedTuples>();
        }
        result.tuples[count++] = {unit, exponent};
    }

    Units const& Result() const { return result; }

  private:
    Units result{};
    std::size_t count = 0;
};

// Appends a unit of the first operand with its power combined, unless it cancels. In an operand
// that repeats a unit, the first occurrence that leaves a power counts.
void Append_combined(Descriptor_builder& product, Unit_tuple const& own, std::int32_t sign,
                     Occupied_slots const& other) {
    bool matched = false;
    for (Unit_tuple const& tuple : other) {
        if (tuple.unit == own.unit) {
            std::int32_t const power = Combined_exponent(own.exponent, sign, tuple.exponent);
            if (power != 0) {
                product.Append(own.unit, power);
                return;
            }
            matched = true;
        }
    }
    if (!matched) {
        product.Append(own.unit, own.exponent); // even with the power 0
    }
}

// first * second for the sign 1, first / second for the sign -1.
Units Combine_units(Units const& first, std::int32_t sign, Units const& second) {
    Occupied_slots const first_slots(first);
    Occupied_slots const second_slots(second);
    Descriptor_builder product(first.si_prefix);
    for (Unit_tuple const& tuple : first_slots) {
        if (tuple.unit != NO_UNIT) {
            Append_combined(product, tuple, sign, second_slots);
        }
    }
    for (Unit_tuple const& tuple : second_slots) {
        if (tuple.unit != NO_UNIT && !first_slots.Have(tuple.unit)) {
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

double Units_library::Get_tuple_conversion_factor(Unit_tuple const& from, Unit_tuple const& to) {
    Unit_facts const& from_facts = Require_facts(from.unit);
    Unit_facts const& to_facts = Require_facts(to.unit);
    if (from_facts.dimension_set != to_facts.dimension_set) {
        Throw<UnitDimensionNotSame>();
    }
    return Factor_between(from_facts, from.exponent, to_facts, to.exponent);
}

double Units_library::Get_conversion_factor(Units const& target, Units const& source) {
    double factor = 1.0;
    for (std::size_t k = 0; k < Value_detail::Tuple_count; ++k) {
        Unit_tuple const& to = target.tuples[k];
        Unit_tuple const& from = source.tuples[k];
        if (to.unit == NO_UNIT || from.unit == NO_UNIT) {
            continue;
        }
        if (Powers_differ_in_magnitude(from, to)) {
            Throw<UnitDimensionNotSame>();
        }
        factor = Combined_factor(factor, Get_tuple_conversion_factor(from, to));
    }
    return factor;
}

// ---- Prefixes

double Compute_prefix_scale(SI_units prefix, int sign) {
    double const radix = Units_library::Get_unit_base({SPL_NONE, prefix, {}});
    return std::pow(radix, sign * static_cast<double>(prefix));
}

namespace {

Prefix_scales Compute_prefix_scales() {
    Prefix_scales computed{};
    for (std::size_t k = 0; k < computed.scales.size(); ++k) {
        auto const prefix = static_cast<SI_units>(static_cast<int>(k) + PICO);
        computed.scales[k] = Compute_prefix_scale(prefix, 1);
        computed.reciprocal_scales[k] = Compute_prefix_scale(prefix, -1);
    }
    return computed;
}

} // namespace

Prefix_scales const prefix_scales = Compute_prefix_scales();

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
