// Reading units that are written without anything between them: "km", "kWh", "V^2A", "voltsamps".
//
// Such a group has up to four kinds of readings. The first kind that fits is taken:
//   1. one unit:                     "min" is a minute, not a thousandth of an inch
//   2. a prefix and one unit:        "ms" is a millisecond, not metre times second
//   3. several units of the core, run together in its order, with or without one of its prefixes: "VA", "kWh"
//   4. below a '/' several units of the core in another order: "m/sK"
// Units beyond the core stand alone or behind a prefix.
// A power belongs to the unit that it stands behind, and to the prefix of that unit: "km^2" is
// (km)^2. Two different readings of the kind that is taken are refused, and so are some texts that
// people write for something else; the messages name the ways to write each meaning.

#ifndef VARNIX_VALUE_TEXT_UNIT_READINGS_H
#define VARNIX_VALUE_TEXT_UNIT_READINGS_H

#include "Unit_words.h"

#include <varnix/value/Text_parsing.h>

#include <cstdint>
#include <optional>

namespace Varnix::Value {

struct Powered_unit {
    Units_list unit;
    std::int64_t power;
};

struct Reading {
    SI_units prefix = NO_PREFIX;
    std::int64_t first_power = 1; // of the first unit, which raises the prefix too
    std::uint8_t count = 0;
    Powered_unit units[Value_detail::Tuple_count];
    std::size_t end = 0; // the position behind it
};

// Where a group stands.
struct Group_place {
    std::size_t position;
    bool below; // behind a '/'
};

// The reading of the group at `place`, which begins with a letter; one without units if there is
// none. The fault says why a reading has to be refused.
Parse_result<Reading> Read_group(std::string_view text, Group_place const& place);

// The unit of several words with blanks between them that stands at `position`, "imp gal", with its power; one
// without units if there is none.
Reading Read_words_with_gaps(std::string_view text, std::size_t position);

// The unit of UCUM that stands at `position` in brackets, "[ft_i]", with its power; one without units
// if there is none.
Reading Read_bracketed(std::string_view text, std::size_t position);

// Degrees Celsius or Fahrenheit alone, which take no prefix: nobody measures in millidegrees so.
bool Is_temperature_scale(Reading const& reading);

// Whether a word by itself is read as a unit, or as decibels: "nmi", a nano mile, is refused; and
// whether measurements have it, which "kdegC" is not.
bool Can_be_suggested(std::string const& word);

// The prefix that stands at `position` before the character `next`, and the position of that.
struct Bare_prefix {
    SI_units prefix;
    Word_form form;
    std::size_t end;
};
std::optional<Bare_prefix> Read_bare_prefix(std::string_view text, std::size_t position, char next);

} // namespace Varnix::Value

#endif
