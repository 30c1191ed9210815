// The records that the catalogue tables are made of. Their constructors take every field in order,
// so that a table row reads as its columns.

#ifndef VARNIX_VALUE_UNIT_RECORDS_H
#define VARNIX_VALUE_UNIT_RECORDS_H

#include <varnix/value/Units.h>

#include <string>

namespace Varnix::Value {

// The four spellings of a unit or a prefix.
struct Unit_strings {
    Unit_strings(std::string const& symbol_text, std::string const& name_text,
                 std::string const& lower_case_text, std::string const& upper_case_text)
        : symbol(symbol_text), name(name_text), lower_case(lower_case_text),
          upper_case(upper_case_text) {}

    // Not in line: the code of the tables would be a third larger.
    Unit_strings(Unit_strings const& other);
    Unit_strings& operator=(Unit_strings const& other) = delete;
    ~Unit_strings();

    std::string symbol;     // the display symbol, UTF-8
    std::string name;       // the full name
    std::string lower_case; // plain ASCII; not unique: bits and bytes are both "b"
    std::string upper_case; // plain ASCII; not unique either
};

// One row of the catalogue.
struct Unit_info {
    Unit_info(double const& factor, Dimension const& unit_dimension, Units_list const& id,
              Units_list const& base, Unit_strings const& strings, bool const& special)
        : conv_factor(factor), dimension(unit_dimension), unit_id(id), base_unit(base),
          unit_strings(strings), spl_conv_unit(special) {}

    double conv_factor;        // one of this unit in the reference unit of its dimension
    Dimension dimension;       // units convert into each other only within one dimension
    Units_list unit_id;        // the row's own code, equal to its key
    Units_list base_unit;      // what this unit is reduced to
    Unit_strings unit_strings; // the spellings
    bool spl_conv_unit;        // converted by an offset formula; its factor counts as 1.0
};

// A whole descriptor that has a name of its own.
struct Unit_name_spl_data {
    Unit_name_spl_data(Units const& descriptor, Unit_strings const& strings)
        : units(descriptor), unit_strings(strings) {}

    Units units;
    Unit_strings unit_strings;
};

} // namespace Varnix::Value

#endif
