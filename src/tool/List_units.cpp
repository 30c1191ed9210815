// `units`: the catalogue, the prefixes and the named units.

#include "Written_results.h"

#include "catalogue/Prefixes.h"
#include "catalogue/Unit_spellings.h"

#include <varnix/value/Measurement.h>
#include <varnix/value/Measurement_text.h>
#include <varnix/value/Unit_kinds.h>

#include <algorithm>
#include <iterator>
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

// ---- What the catalogue knows of a unit

Catalogue::Unit_row const& Row_of(Units const& unit) {
    return Catalogue::Row_of(unit.tuples[0].unit);
}

// What the sizes of a quantity's units are counted in, where that is no unit of the catalogue without
// a prefix. Every other quantity has a unit of size 1.
struct Coherent_unit {
    Catalogue::Quantity quantity;
    char const* text;
};

constexpr Coherent_unit coherent_units[] = {
    {Catalogue::Quantity::RATIO, "1"},
    {Catalogue::Quantity::MASS, "kg"},
    {Catalogue::Quantity::TEMPERATURE, "K"}, // °C has the size 1 as well
    {Catalogue::Quantity::VOLUME, "m^3"},
    {Catalogue::Quantity::AREA, "m^2"},
    {Catalogue::Quantity::MAGNETIC_FIELD, "A/m"},
    {Catalogue::Quantity::LOGARITHMIC_RATIO, "dB"},
};

std::string Coherent_unit_of(Catalogue::Quantity quantity) {
    for (Coherent_unit const& row : coherent_units) {
        if (row.quantity == quantity) {
            return row.text;
        }
    }
    auto const* const row = std::find_if(
        std::begin(Catalogue::unit_rows), std::end(Catalogue::unit_rows),
        [&](auto const& candidate) {
            return candidate.quantity == quantity && candidate.size == std::string("1");
        });
    return Format_unit(Units{SPL_NONE, NO_PREFIX, {{row->unit, 1}}});
}

// "= 0.3048 m", "= pi/180 rad", "= 0.01"; nothing for a unit that sizes are counted in.
std::string Size(Units const& unit) {
    Catalogue::Unit_row const& row = Row_of(unit);
    std::string const coherent = Coherent_unit_of(row.quantity);
    std::string const size = std::string("= ") + row.size;
    return coherent == Format_unit(unit) ? "" : coherent == "1" ? size : size + ' ' + coherent;
}

char const* Prefixes_of(Units const& unit) {
    switch (Row_of(unit).prefixes) {
    case Catalogue::Prefixes_taken::none:
        return "none";
    case Catalogue::Prefixes_taken::usual:
    case Catalogue::Prefixes_taken::chosen_usual:
        return "common";
    default:
        return "all";
    }
}

char const* Source(Units const& unit) {
    return Catalogue::unit_spellings[Catalogue::Place_of(unit.tuples[0].unit)].source;
}

// The size as a number: one of the unit, or a difference of one, in what sizes are counted in.
double Factor(Units const& unit) {
    Measurement const one(1.0, unit);
    bool const of_scale = Row_of(unit).quantity == Catalogue::Quantity::TEMPERATURE;
    Units const coherent = Parse_measurement_unit(Coherent_unit_of(Row_of(unit).quantity)).unit;
    return (of_scale ? one.As_difference() : one).Convert_to(coherent).Get_value();
}

std::string Scale(SI_units prefix) {
    return (Catalogue::Is_binary(prefix) ? "2^" : "10^") + std::to_string(prefix);
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
    object["base"] = Coherent_unit_of(Row_of(unit).quantity);
    object["size"] = Row_of(unit).size;
    object["factor"] = Factor(unit);
    object["prefixes"] = Prefixes_of(unit);
    object["source"] = Source(unit);
    return object;
}

Json Json_prefix(Catalogue::Prefix_row const& row) {
    return {{"type", "prefix"},
            {"symbol", row.symbol},
            {"name", row.name},
            {"base", Catalogue::Is_binary(row.prefix) ? 2 : 10},
            {"exponent", static_cast<int>(row.prefix)},
            {"common", row.is_of_core}};
}

// ---- The list

struct Listing {
    std::vector<Units> units;
    std::vector<Catalogue::Prefix_row> prefixes;
    std::vector<Named_unit> named;
};

[[noreturn]] void Refuse_dimension(std::string const& dimension) {
    std::vector<std::string> kinds;
    for (Units const& unit : All_units()) {
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
    Listing listing = {All_units(),
                       {std::begin(Catalogue::prefix_rows), std::end(Catalogue::prefix_rows)},
                       Named_units()};
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
    for (Catalogue::Prefix_row const& prefix : listing.prefixes) {
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
        rows.push_back({Format_unit(unit), Format_unit(unit, STR_NAME), Kind_name(unit), Size(unit),
                        Prefixes_of(unit), Source(unit)});
    }
    Write_rows("Units: size, prefixes, source of the size", rows, output);
    rows.clear();
    for (Catalogue::Prefix_row const& prefix : listing.prefixes) {
        rows.push_back(
            {prefix.symbol, prefix.name, Scale(prefix.prefix), prefix.is_of_core ? "common" : ""});
    }
    Write_rows("Prefixes: all, and those that are common", rows, output);
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
