// `units`: the catalogue, the prefixes and the named units.

#include "Written_results.h"

#include <varnix/value/Measurement.h>
#include <varnix/value/Unit_kinds.h>
#include <varnix/value/Units_library.h>

#include <algorithm>
#include <optional>
#include <vector>

namespace Varnix::Value::Tool {

namespace {

using Row = std::vector<std::string>;

// How many characters a UTF-8 text has.
std::size_t Length(std::string const& text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char byte) {
        return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
    }));
}

// A heading and rows of equal length, in aligned columns. Nothing where there are no rows.
void Write_rows(std::string const& heading, std::vector<Row> const& rows, Output& output) {
    if (rows.empty()) {
        return;
    }
    std::vector<std::size_t> widths(rows[0].size(), 0);
    for (Row const& row : rows) {
        for (std::size_t k = 0; k < row.size(); ++k) {
            widths[k] = std::max(widths[k], Length(row[k]));
        }
    }
    output.Append(heading + '\n');
    for (Row const& row : rows) {
        std::string line;
        for (std::size_t k = 0; k < row.size(); ++k) {
            line += "  " + row[k] + std::string(widths[k] - Length(row[k]), ' ');
        }
        line.erase(line.find_last_not_of(' ') + 1);
        output.Append(line + '\n');
    }
    output.Append('\n');
}

bool Is_temperature(Units const& unit) {
    return Units_library::Get_dimension(unit.tuples[0].unit) == TEMPERATURE;
}

// One of the unit in its base unit, as `convert` answers; nothing for months and years.
std::optional<double> Factor_of(Units const& unit, Units const& base) {
    try {
        return Measurement(1.0, unit).Convert_to(base).Get_value();
    } catch (MeasurementRefused const&) {
        return std::nullopt;
    }
}

// Where one of the catalogue's units leads: "0.3048 m", "by formula", or nothing for a unit that
// stands for itself.
std::string Equivalent(Units const& unit) {
    Units const base = Units_library::Get_base_unit(unit);
    if (base.tuples[0].unit == unit.tuples[0].unit) {
        return {};
    }
    if (Is_temperature(unit)) {
        return "= " + Format_unit(base) + " by formula";
    }
    std::optional<double> const factor = Factor_of(unit, base);
    return factor ? "= " + Format_number(*factor) + ' ' + Format_unit(base) : "no fixed length";
}

std::string Scale(SI_units prefix) {
    bool const binary = Units_library::Get_unit_base({SPL_NONE, prefix, {}}) == 2.0;
    return (binary ? "2^" : "10^") + std::to_string(prefix);
}

// ---- JSON

Json Json_unit(char const* type, Units const& unit) {
    return {{"type", type},
            {"symbol", Format_unit(unit, STR_SYMBOL)},
            {"name", Format_unit(unit, STR_NAME)},
            {"kind", Kind_name(unit)}};
}

Json Json_catalogue_unit(Units const& unit) {
    Json object = Json_unit("unit", unit);
    Units const base = Units_library::Get_base_unit(unit);
    object["base"] = Format_unit(base);
    std::optional<double> const factor = Factor_of(unit, base);
    if (factor && !Is_temperature(unit)) {
        object["factor"] = *factor;
    }
    return object;
}

Json Json_prefix(SI_units prefix) {
    Units const unit = {SPL_NONE, prefix, {}};
    return {{"type", "prefix"},
            {"symbol", Units_library::Get_unit_str_si_map(unit, STR_SYMBOL)},
            {"name", Units_library::Get_unit_str_si_map(unit, STR_NAME)},
            {"base", static_cast<int>(Units_library::Get_unit_base(unit))},
            {"exponent", static_cast<int>(prefix)}};
}

// ---- The list

struct Listing {
    std::vector<Units> units;
    std::vector<SI_units> prefixes;
    std::vector<Named_unit> named;
};

[[noreturn]] void Refuse_dimension(std::string const& dimension) {
    std::vector<std::string> kinds;
    for (Units const& unit : Catalogue_units()) {
        if (std::find(kinds.begin(), kinds.end(), Kind_name(unit)) == kinds.end()) {
            kinds.push_back(Kind_name(unit));
        }
    }
    std::string message = "there is no unit of \"" + dimension + "\"; there are units of";
    for (std::string const& kind : kinds) {
        message += (kind == kinds.front() ? " " : ", ") + kind;
    }
    throw Refusal(message);
}

Listing Listing_of(std::string const& dimension) {
    Listing listing = {Catalogue_units(), Prefixes(), Named_units()};
    if (dimension.empty()) {
        return listing;
    }
    listing.prefixes.clear();
    auto& [units, prefixes, named] = listing;
    units.erase(std::remove_if(units.begin(), units.end(),
                               [&](Units const& unit) { return Kind_name(unit) != dimension; }),
                units.end());
    named.erase(
        std::remove_if(named.begin(), named.end(),
                       [&](Named_unit const& unit) { return Kind_name(unit.unit) != dimension; }),
        named.end());
    if (units.empty() && named.empty()) {
        Refuse_dimension(dimension);
    }
    return listing;
}

void Write_objects(Listing const& listing, Output& output) {
    for (Units const& unit : listing.units) {
        Write(Json_catalogue_unit(unit), output);
    }
    for (SI_units const prefix : listing.prefixes) {
        Write(Json_prefix(prefix), output);
    }
    for (Named_unit const& named : listing.named) {
        Json object = Json_unit("named", named.unit);
        object["constant"] = named.constant;
        Write(object, output);
    }
}

void Write_lists(Listing const& listing, Output& output) {
    std::vector<Row> rows;
    for (Units const& unit : listing.units) {
        rows.push_back(
            {Format_unit(unit), Format_unit(unit, STR_NAME), Kind_name(unit), Equivalent(unit)});
    }
    Write_rows("Units, each with any prefix and power:", rows, output);
    rows.clear();
    for (SI_units const prefix : listing.prefixes) {
        Units const unit = {SPL_NONE, prefix, {}};
        rows.push_back({Units_library::Get_unit_str_si_map(unit, STR_SYMBOL),
                        Units_library::Get_unit_str_si_map(unit, STR_NAME), Scale(prefix)});
    }
    Write_rows("Prefixes:", rows, output);
    rows.clear();
    for (Named_unit const& named : listing.named) {
        rows.push_back({Format_unit(named.unit), Format_unit(named.unit, STR_NAME),
                        Kind_name(named.unit), named.constant});
    }
    Write_rows("Named units, with their constants in the library:", rows, output);
}

} // namespace

Exit_status List_units(std::string const& dimension, Options const& options, Output& output) {
    Listing const listing = Listing_of(dimension);
    if (options.json) {
        Write_objects(listing, output);
    } else {
        Write_lists(listing, output);
    }
    return exit_done;
}

} // namespace Varnix::Value::Tool
