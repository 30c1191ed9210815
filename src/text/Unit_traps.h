// Texts that can be read as units and are refused, since most people write them for something else.

#ifndef VARNIX_VALUE_TEXT_UNIT_TRAPS_H
#define VARNIX_VALUE_TEXT_UNIT_TRAPS_H

#include "Unit_readings.h"

#include <optional>
#include <string>

namespace Varnix::Value {

// The reading in a form that has no other: "milli(K*s)".
std::string Written(Reading const& reading);

bool Is_time(Units_list unit);

// The word at `position` has two readings.
Text_fault Ambiguous(std::string_view text, std::size_t position, std::string const& first,
                     std::string const& second);

// Why the decibels that begin at `position` cannot stand there; nothing if none do.
std::optional<Text_fault> Decibel_fault(std::string_view text, std::size_t position);

// Why the text from `position` to `end` is refused as a whole: "nmi", "gm", "Min",
// "nmi^2".
std::optional<Text_fault> Word_fault(std::string_view text, std::size_t position, std::size_t end);

// Why a prefix with one unit is refused: "ms^-1", "mB".
std::optional<Text_fault> Prefix_fault(std::string_view text, std::size_t position,
                                       Reading const& reading);

// Why units run together are refused: "kms", "kmh".
std::optional<Text_fault> Plural_fault(std::string_view text, std::size_t position,
                                       Reading const& reading);

// Why the symbol of a prefix alone before a '/' is refused: "Mi/h", "c/s", "n/cm^2". `scaled` is
// the unit behind it with the prefix in a form that is read, "nano(1/cm^2)", or empty.
Text_fault Lone_prefix_fault(std::string_view text, std::size_t position, Bare_prefix const& prefix,
                             std::string const& scaled);

// Why a level is refused for its "s", at the end of the text: "dBs", "dBms", "dBVs". It begins at
// `start`, and `position` is that behind "dB".
std::optional<Text_fault> Level_plural_fault(std::string_view text, std::size_t start,
                                             std::size_t position);

// Why the whole unit from `start` on is refused, which is written for something else: "GS/s", "ft*lb".
std::optional<Text_fault> Whole_fault(std::string_view text, std::size_t start);

// Why two units are refused with nothing but blanks between them: "K ohm", "deg K". The first goes
// from `first` to `end`, the second begins at `second`.
std::optional<Text_fault> Apart_fault(std::string_view text, std::size_t first, std::size_t end,
                                      std::size_t second);

} // namespace Varnix::Value

#endif
