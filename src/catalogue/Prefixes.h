// All prefixes: those of the core and the further ones of SI, which measurements and texts know.

#ifndef VARNIX_VALUE_CATALOGUE_PREFIXES_H
#define VARNIX_VALUE_CATALOGUE_PREFIXES_H

#include <varnix/value/Engineering_units.h>

namespace Varnix::Value::Catalogue {

struct Prefix_row {
    SI_units prefix;
    bool is_of_core;
    char const* symbol;
    char const* name;
    char const* characters; // others for the symbol, apart by blanks
    char const* multiplier; // in the words of instruments; empty where these have none
};

inline constexpr Prefix_row prefix_rows[] = {
#define VARNIX_VALUE_CORE_PREFIX(code, symbol, name, lower, upper, characters, multiplier)         \
    {code, true, symbol, name, characters, multiplier},
#define VARNIX_VALUE_FURTHER_PREFIX(code, symbol, name, multiplier)                                \
    {code, false, symbol, name, "", multiplier},
#include "catalogue/prefixes.def"
};

// The codes of the binary prefixes are exponents of two: 10, 20, ... 80.
constexpr bool Is_binary(int code) {
    return code >= KIBI && code <= YOBI && code % 10 == 0;
}

// The row of a prefix; nullptr for a power of ten without a name.
constexpr Prefix_row const* Find_prefix(int code) {
    for (Prefix_row const& row : prefix_rows) {
        if (row.prefix == code) {
            return &row;
        }
    }
    return nullptr;
}

} // namespace Varnix::Value::Catalogue

#endif
