// Units as text: the nicest spelling that reads back as the same unit.
//
// A power belongs to the prefixed unit, as ISO 80000-1 has it, while the prefix of a descriptor
// scales the whole. So most descriptors have several spellings, of which some mean something else;
// each candidate is read, and the first that is the unit again is taken.

#include <varnix/value/Text_formatting.h>
#include <varnix/value/Text_parsing.h>

#include "Spellings.h"

#include "catalogue/Level_references.h"
#include "catalogue/Prefixes.h"
#include "catalogue/Unit_rows.h"

#include <varnix/value/Units_library.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace Varnix::Value {

namespace {

std::string Spelled(Units const& unit, Unit_string_type spelling) {
    return Units_library::Get_unit_string(unit, spelling);
}

bool Is_prefix_of_core(std::int64_t prefix) {
    auto const code = static_cast<SI_units>(prefix);
    Catalogue::Prefix_row const* const row =
        code == prefix ? Catalogue::Find_prefix(code) : nullptr;
    return row != nullptr && row->is_of_core;
}

std::string Prefix_text_of_core(std::int64_t prefix, Unit_string_type spelling) {
    return Is_prefix_of_core(prefix) ? Prefix_text(prefix, spelling) : std::string();
}

// Of all prefixes, or of the core's alone.
using Prefix_writer = std::string (*)(std::int64_t prefix, Unit_string_type spelling);

// Powers in empty slots say nothing, and are not written.
Units With_clear_slots(Units unit) {
    for (Unit_tuple& tuple : unit.tuples) {
        tuple.exponent = tuple.unit == NO_UNIT ? 0 : tuple.exponent;
    }
    return unit;
}

bool Is_beyond_core(Unit_tuple const& tuple) {
    return Catalogue::Is_unit(tuple.unit) && !Catalogue::Is_unit_of_core(tuple.unit);
}

bool Has_unit_beyond_core(Units const& unit) {
    return std::any_of(std::begin(unit.tuples), std::end(unit.tuples), Is_beyond_core);
}

// Units beyond the core are written first: "N*m".
Units In_written_order(Units unit) {
    std::stable_partition(std::begin(unit.tuples), std::end(unit.tuples), Is_beyond_core);
    return unit;
}

// As a unit without powers in empty slots, as all are here.
bool Reads_back(std::string const& text, Units const& unit) {
    auto const read = Try_parse_unit(text);
    return read && With_clear_slots(*read) == unit;
}

Units Without_prefix(Units unit) {
    unit.si_prefix = NO_PREFIX;
    return unit;
}

// ---- Products and quotients

// The tuple as it stands below the line. The one power that has no positive counterpart stays
// negative, and is not read back.
Unit_tuple Inverse(Unit_tuple tuple) {
    tuple.exponent = tuple.exponent != INT32_MIN ? -tuple.exponent : tuple.exponent;
    return tuple;
}

// What stands before the unit of each slot.
using Slot_prefixes = std::array<std::string, Value_detail::Tuple_count>;

// The units with their powers above the line or below it, joined by "*".
std::string Product(Units const& unit, Unit_string_type spelling, bool denominator,
                    Slot_prefixes const& prefixes) {
    std::string text;
    for (std::size_t k = 0; k < Value_detail::Tuple_count; ++k) {
        Unit_tuple const& tuple = unit.tuples[k];
        if (tuple.unit == NO_UNIT || (tuple.exponent < 0) != denominator) {
            continue;
        }
        text += text.empty() ? "" : "*";
        text += prefixes[k];
        text += Power_of_unit_text(denominator ? Inverse(tuple) : tuple, spelling);
    }
    return text;
}

// The units with every separator written: "m/(s*K)", "1/s", "V/cm".
std::string Explicit_units(Units const& unit, Unit_string_type spelling,
                           Slot_prefixes const& prefixes = {}) {
    std::string numerator = Product(unit, spelling, false, prefixes);
    std::string const denominator = Product(unit, spelling, true, prefixes);
    if (denominator.empty()) {
        return numerator;
    }
    bool const several = denominator.find('*') != std::string::npos;
    return (numerator.empty() ? "1" : numerator) + '/' +
           (several ? '(' + denominator + ')' : denominator);
}

// ---- Linear units

// "(km)^2": one unit with a power, where the prefix is a power of another one.
std::string Power_of_prefixed(Units const& unit, Unit_string_type spelling,
                              Prefix_writer prefix_text) {
    Unit_tuple const& tuple = unit.tuples[0];
    bool const alone = tuple.unit != NO_UNIT && unit.tuples[1].unit == NO_UNIT;
    if (!alone || tuple.exponent < 2 || unit.si_prefix % tuple.exponent != 0) {
        return {};
    }
    std::string const prefix = prefix_text(unit.si_prefix / tuple.exponent, spelling);
    return prefix.empty() ? std::string()
                          : '(' + prefix + Power_of_unit_text({tuple.unit, 1}, spelling) + ")^" +
                                std::to_string(tuple.exponent);
}

// "V/cm", "1/cm": the prefix at the unit of one slot, if its power lets it be one that has a name.
std::string Prefix_at_slot(std::size_t k, Units const& unit, Unit_string_type spelling,
                           Prefix_writer prefix_text) {
    std::int32_t const power = unit.tuples[k].exponent;
    std::int64_t const scale = unit.si_prefix; // INT32_MIN / -1 has no 32 bits
    bool const has_room = unit.tuples[k].unit != NO_UNIT && power != 0 && power != INT32_MIN;
    if (!has_room || scale % power != 0) {
        return {};
    }
    Slot_prefixes prefixes;
    prefixes[k] = prefix_text(scale / power, spelling);
    return prefixes[k].empty() ? std::string() : Explicit_units(unit, spelling, prefixes);
}

std::string Prefix_at_first_slot(Units const& unit, Unit_string_type spelling,
                                 Prefix_writer prefix_text) {
    for (std::size_t k = 0; k < Value_detail::Tuple_count; ++k) {
        std::string text = Prefix_at_slot(k, unit, spelling, prefix_text);
        if (!text.empty()) {
            return text;
        }
    }
    return {};
}

// The units below the line that have a prefix beside one of thousands above it.
struct Unit_below {
    Units_list unit;
    std::int32_t least_power;
    SI_units prefix;
};
constexpr Unit_below units_below[] = {
    {METER, -3, CENTI}, // "mW/cm^2"
    {METER, -3, MILLI},
    {LITER, -1, DECI}, // "mg/dl"
};

// "mW/cm^2", "mg/dl": of two units.
std::string Prefixes_at_two_units(Units const& unit, Unit_string_type spelling) {
    for (Unit_below const& row : units_below) {
        std::size_t const below = unit.tuples[0].unit == row.unit ? 0 : 1;
        Unit_tuple const& tuple = unit.tuples[below];
        bool const fits = unit.tuples[2].unit == NO_UNIT && unit.tuples[1 - below].exponent == 1 &&
                          tuple.unit == row.unit && tuple.exponent >= row.least_power &&
                          tuple.exponent < 0;
        int const power = fits ? tuple.exponent : 0;
        auto const rest = static_cast<std::int64_t>(unit.si_prefix) -
                          static_cast<std::int64_t>(row.prefix) * power;
        Slot_prefixes prefixes;
        prefixes[below] = Prefix_text(row.prefix, spelling);
        prefixes[1 - below] = Prefix_text(rest, spelling);
        bool const is_written =
            !prefixes[1 - below].empty() || (rest == 0 && Has_unit_beyond_core(unit));
        if (fits && rest % 3 == 0 && is_written) {
            return Explicit_units(unit, spelling, prefixes);
        }
    }
    return {};
}

// "J/(kg*K)", "MJ/kg", "N*m^2/kg^2": masses below the line are kilograms, as in the coherent unit. The
// rest of the prefix goes to the first unit, if that usually has one.
std::string Per_kilogram(Units const& unit, Unit_string_type spelling) {
    auto const* const gram =
        std::find_if(std::begin(unit.tuples), std::end(unit.tuples), [](Unit_tuple const& tuple) {
            return tuple.unit == GRAM && tuple.exponent < 0 && tuple.exponent > -20;
        });
    if (gram == std::end(unit.tuples)) {
        return {};
    }
    std::int64_t const rest = unit.si_prefix - std::int64_t{KILO} * gram->exponent;
    Slot_prefixes prefixes;
    prefixes[static_cast<std::size_t>(gram - unit.tuples)] = Prefix_text(KILO, spelling);
    if (rest != 0) {
        Unit_tuple const& first = unit.tuples[0];
        std::string const prefix = Prefix_text(rest, spelling);
        bool const is_usual =
            Catalogue::Row_of(first.unit).prefixes == Catalogue::Prefixes_taken::chosen;
        if (!is_usual || first.exponent != 1 || rest % 3 != 0 || prefix.empty()) {
            return {};
        }
        prefixes[0] = prefix;
    }
    return Explicit_units(unit, spelling, prefixes);
}

std::string With_power_of_ten(Units const& unit, std::string const& units) {
    return "(10^" + std::to_string(unit.si_prefix) + (units.empty() ? "" : " ") + units + ')';
}

// What everybody writes where the special names of the core are "Km/h" and "Mph"; or nullptr.
char const* Better_than_special_name(Units const& unit, Unit_string_type spelling) {
    return spelling != STR_SYMBOL ? nullptr
           : unit == C_Kmph       ? "km/h"
           : unit == C_Mph        ? "mph"
                                  : nullptr;
}

// "kg*m/s^2": "gm" is an old symbol of the gram.
bool Is_written_apart(Units const& unit, Unit_string_type spelling) {
    auto const stands_above = [&](Units_list wanted) {
        return std::any_of(
            std::begin(unit.tuples), std::end(unit.tuples),
            [&](Unit_tuple const& tuple) { return tuple.unit == wanted && tuple.exponent > 0; });
    };
    return spelling == STR_SYMBOL && stands_above(GRAM) && stands_above(METER);
}

bool Is_hertz(Units const& unit) {
    return Without_prefix(unit) == C_Hz;
}

// In front of the whole in parentheses. By its name the prefix serves where its symbol does not: "min"
// is the minute, "m(in)" a metre, and "milli(in)" a thousandth of an inch.
void Append_prefix_of_whole(std::vector<std::string>& texts, Units const& unit,
                            std::string const& units, Unit_string_type spelling) {
    if (Is_prefix_of_core(unit.si_prefix) || unit.si_prefix == NO_PREFIX) {
        texts.push_back(Prefix_text(unit.si_prefix, spelling) + '(' + units + ')');
        texts.push_back(Prefix_text(unit.si_prefix, STR_NAME) + '(' + units + ')');
    }
}

// The spellings to try for a linear unit of the core, the nicest first; an empty one is none. Hecto and
// deca come last: 10^2 V/m are V/cm.
std::vector<std::string> Spellings_of_core(Units const& unit, Unit_string_type spelling) {
    bool const is_hundreds = unit.si_prefix == HECTO || unit.si_prefix == DECA;
    std::string const prefix = Prefix_text(unit.si_prefix, spelling);
    std::string const units = Explicit_units(unit, spelling);
    std::vector<std::string> texts;
    if (Is_hertz(unit)) {
        texts.push_back(prefix + Spelled(C_Hz, spelling));
    }
    if (Is_written_apart(unit, spelling)) {
        texts.push_back(prefix + units);
    }
    char const* const better = Better_than_special_name(unit, spelling);
    texts.push_back(better != nullptr ? better : Spelled(unit, spelling));
    texts.push_back(Power_of_prefixed(unit, spelling, Prefix_text_of_core));
    if (unit.si_prefix == NO_PREFIX || (!prefix.empty() && !is_hundreds)) {
        texts.push_back(prefix + units);
    }
    Append_prefix_of_whole(texts, unit, units, spelling);
    texts.push_back(Prefix_at_first_slot(unit, spelling, Prefix_text_of_core));
    texts.push_back(Prefixes_at_two_units(unit, spelling));
    texts.push_back(Prefix_at_first_slot(unit, spelling, Prefix_text));
    texts.push_back(With_power_of_ten(unit, units));
    return texts;
}

// Nobody writes "l/kmin".
bool Takes_prefix_below(Units_list unit) {
    using Taken = Catalogue::Prefixes_taken;
    return Catalogue::Is_unit(unit) && Catalogue::Row_of(unit).prefixes != Taken::none &&
           Catalogue::Row_of(unit).prefixes != Taken::usual;
}

// Above the line first: "cm^3/mol".
void Append_prefix_at_each_slot(std::vector<std::string>& texts, Units const& unit,
                                Unit_string_type spelling) {
    for (bool const below : {false, true}) {
        for (std::size_t k = 0; k < Value_detail::Tuple_count; ++k) {
            Unit_tuple const& tuple = unit.tuples[k];
            if ((tuple.exponent < 0) == below && (!below || Takes_prefix_below(tuple.unit))) {
                texts.push_back(Prefix_at_slot(k, unit, spelling, Prefix_text));
            }
        }
    }
}

// The same for a unit with others than the core's, in the order in which they are written.
std::vector<std::string> Spellings_beyond_core(Units const& unit, Unit_string_type spelling) {
    std::string const prefix = Prefix_text(unit.si_prefix, spelling);
    std::string const units = Explicit_units(unit, spelling);
    std::vector<std::string> texts;
    if (unit == Units{SPL_NONE, NO_PREFIX, {{REVOLUTION, 1}, {MINUTE, -1}}} &&
        spelling == STR_SYMBOL) {
        texts.emplace_back("rpm");
    }
    texts.push_back(Per_kilogram(unit, spelling));
    if (unit.si_prefix % 3 != 0) {
        texts.push_back(Prefixes_at_two_units(unit, spelling));
    }
    texts.push_back(Power_of_prefixed(unit, spelling, Prefix_text));
    if (!prefix.empty() || unit.si_prefix == NO_PREFIX) {
        texts.push_back(prefix + units);
    }
    Append_prefix_at_each_slot(texts, unit, spelling);
    Append_prefix_of_whole(texts, unit, units, spelling);
    texts.push_back(With_power_of_ten(unit, units));
    return texts;
}

std::vector<std::string> Linear_spellings(Units const& unit, Unit_string_type spelling) {
    return Has_unit_beyond_core(unit) ? Spellings_beyond_core(unit, spelling)
                                      : Spellings_of_core(unit, spelling);
}

// ---- Levels

// The prefixes with which a level per hertz is one of milliwatts per multiple of a hertz.
struct Bandwidth {
    SI_units prefix;
    char const* text;
};
constexpr Bandwidth bandwidths_of_milliwatts[] = {
    {MILLI, "dBm/Hz"},
    {MICRO, "dBm/kHz"},
    {NANO, "dBm/MHz"},
};

// A level per hertz, whose unit has a second above the line: "dBm/kHz", "dBW/Hz".
std::string Density_text(Units const& unit, Unit_string_type spelling) {
    Units const watts = {SPL_DB, unit.si_prefix, {{WATT, 1}, {SECOND, 1}}};
    for (Bandwidth const& bandwidth : bandwidths_of_milliwatts) {
        if (unit == watts && unit.si_prefix == bandwidth.prefix && spelling == STR_SYMBOL) {
            return bandwidth.text;
        }
    }
    Units rest = unit;
    for (Unit_tuple& tuple : rest.tuples) {
        if (tuple.unit == SECOND && tuple.exponent == 1 && &tuple != rest.tuples) {
            tuple = {NO_UNIT, 0}; // of the units in canonical order it is the last
            return Format_unit(rest, spelling) + '/' + Spelled(C_Hz, spelling);
        }
    }
    return {};
}

// Levels that have a notation of their own: "dBsm", "dB/K", and "dB-kHz" as well as "dB-Hz".
std::string Conventional_level_text(Units const& unit) {
    for (Catalogue::Level_reference const& level : Catalogue::level_references) {
        if (level.is_written && level.unit == unit) {
            return level.text;
        }
    }
    Units linear = unit;
    linear.spl_conv = SPL_NONE;
    return Is_hertz(linear) ? "dB-" + Format_unit(linear, STR_SYMBOL) : "";
}

std::vector<std::string> Level_spellings(Units const& unit, Unit_string_type spelling) {
    Units linear = unit;
    linear.spl_conv = SPL_NONE;
    std::vector<std::string> texts;
    if (spelling == STR_SYMBOL) {
        texts.push_back(Conventional_level_text(unit));
    }
    if (!Has_unit_beyond_core(unit)) {
        texts.push_back(Density_text(unit, spelling));
        texts.push_back(Spelled(unit, spelling));
    }
    for (std::string const& text : Linear_spellings(linear, spelling)) {
        if (!text.empty()) {
            texts.push_back("dB" + text);
            texts.push_back("dB(" + text + ')');
        }
    }
    return texts;
}

// ---- What no text is read as

std::string Power_text(Unit_tuple const& tuple, Unit_string_type spelling) {
    std::string const alone = Power_of_unit_text({tuple.unit, 1}, spelling);
    return tuple.exponent == 1 ? alone : alone + '^' + std::to_string(tuple.exponent);
}

// All that a unit consists of, for eyes: "(10^99 V)", "dB(10^0 V^0)". It is refused where it is read,
// which is better than to be taken for another unit.
std::string Unreadable_text(Units const& unit, Unit_string_type spelling) {
    std::string units;
    for (Unit_tuple const& tuple : unit.tuples) {
        if (tuple.unit != NO_UNIT) {
            units += (units.empty() ? "" : "*") + Power_text(tuple, spelling);
        }
    }
    return (unit.spl_conv == SPL_DB ? "dB" : "") + With_power_of_ten(unit, units);
}

// The first spelling that reads back; empty if none does.
std::string Readable_text(Units const& unit, Unit_string_type spelling) {
    Units const written = In_written_order(unit);
    for (std::string const& text : unit.spl_conv == SPL_DB ? Level_spellings(written, spelling)
                                                           : Linear_spellings(written, spelling)) {
        if (!text.empty() && Reads_back(text, unit)) {
            return text;
        }
    }
    return {};
}

std::string Text_of_core_unit(Units const& unit, Unit_string_type spelling) {
    std::string core_text = Spelled(unit, spelling);
    if (spelling != STR_NAME && spelling != STR_SYMBOL) {
        return core_text;
    }
    // Nearly all units: nothing else has to be composed.
    bool const simple = unit.spl_conv != SPL_DB && !Is_hertz(unit) &&
                        !Is_written_apart(unit, spelling) &&
                        Better_than_special_name(unit, spelling) == nullptr;
    if (simple && Reads_back(core_text, unit)) {
        return core_text;
    }
    std::string text = Readable_text(unit, spelling);
    if (!text.empty()) {
        return text;
    }
    return !core_text.empty() && Try_parse_unit(core_text) ? Unreadable_text(unit, spelling)
                                                           : core_text;
}

// These have a name and a symbol.
std::string Text_of_unit_beyond_core(Units const& unit, Unit_string_type given) {
    Unit_string_type const spelling = given == STR_NAME ? STR_NAME : STR_SYMBOL;
    std::string text = Readable_text(unit, spelling);
    return text.empty() ? Unreadable_text(In_written_order(unit), spelling) : text;
}

} // namespace

std::string Format_unit(Units const& given, Unit_string_type spelling) {
    Units const unit = With_clear_slots(given);
    return Has_unit_beyond_core(unit) ? Text_of_unit_beyond_core(unit, spelling)
                                      : Text_of_core_unit(unit, spelling);
}

} // namespace Varnix::Value
