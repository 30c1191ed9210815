#include "Spellings.h"

#include "catalogue/Prefixes.h"
#include "catalogue/Unit_spellings.h"

#include <varnix/value/Units_library.h>

#include <algorithm>

namespace Varnix::Value {

std::string Unit_text(Units_list unit, Unit_string_type spelling) {
    std::size_t const place = Catalogue::Place_of(unit);
    if (place == Catalogue::Unit_count) {
        return {};
    }
    bool const is_plain = spelling == STR_LOWER_CASE || spelling == STR_UPPER_CASE;
    if (is_plain && place < Catalogue::Core_unit_count) {
        return Units_library::Get_unit_string({SPL_NONE, NO_PREFIX, {{unit, 1}}}, spelling);
    }
    Catalogue::Unit_spelling const& row = Catalogue::unit_spellings[place];
    return spelling == STR_NAME ? row.name : row.symbol;
}

std::string Prefix_text(std::int64_t prefix, Unit_string_type spelling) {
    auto const code = static_cast<SI_units>(prefix);
    Catalogue::Prefix_row const* const row =
        code == prefix ? Catalogue::Find_prefix(code) : nullptr;
    if (row == nullptr) {
        return {};
    }
    bool const is_plain = spelling == STR_LOWER_CASE || spelling == STR_UPPER_CASE;
    if (is_plain && row->is_of_core) {
        return Units_library::Get_unit_str_si_map({SPL_NONE, code, {}}, spelling);
    }
    return spelling == STR_NAME ? row->name : row->symbol;
}

std::string Power_of_unit_text(Unit_tuple const& tuple, Unit_string_type spelling) {
    if (Catalogue::Is_unit_of_core(tuple.unit)) {
        return Units_library::Get_unit_str_info_map({SPL_NONE, NO_PREFIX, {tuple}}, spelling);
    }
    std::string const text = Unit_text(tuple.unit, spelling);
    return tuple.exponent == 1 ? text : text + '^' + std::to_string(tuple.exponent);
}

bool Is_of_core(Units const& unit) {
    return std::all_of(std::begin(unit.tuples), std::end(unit.tuples), [](Unit_tuple const& tuple) {
        return tuple.unit == NO_UNIT || Catalogue::Is_unit_of_core(tuple.unit);
    });
}

} // namespace Varnix::Value
