// Reading powers: "^2", "**-2", " ** 2", "^(-2)", "²".

#ifndef VARNIX_VALUE_TEXT_POWERS_H
#define VARNIX_VALUE_TEXT_POWERS_H

#include <varnix/value/Text_parsing.h>

#include <cstdint>
#include <optional>

namespace Varnix::Value {

struct Power {
    std::int64_t value; // at most Largest_power either way, and not zero
    std::size_t end;    // the position behind it
};

constexpr std::int64_t Largest_power = std::int64_t{1} << 31U;

// The power at `position`, if one is written there as it should be.
std::optional<Power> Read_power(std::string_view text, std::size_t position);

// Why what begins as a power at `position` is none; nothing if it does not begin as one.
std::optional<Text_fault> Power_fault(std::string_view text, std::size_t position);

} // namespace Varnix::Value

#endif
