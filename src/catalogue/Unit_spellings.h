// The words of all units, for whoever reads, writes or lists them.

#ifndef VARNIX_VALUE_CATALOGUE_UNIT_SPELLINGS_H
#define VARNIX_VALUE_CATALOGUE_UNIT_SPELLINGS_H

#include "catalogue/Unit_rows.h"

namespace Varnix::Value::Catalogue {

// Several words in one text are apart by blanks.
struct Unit_spelling {
    char const* symbol;
    char const* name;       // in the plural, but for the yard
    char const* characters; // other characters for the symbol, run together with others as it is
    char const* symbols;    // further ones
    char const* names;      // further ones
    char const* suffixes;   // in the words of instruments
    char const* source;     // of the size
};

// By the places of the units.
inline constexpr Unit_spelling unit_spellings[] = {
#define VARNIX_VALUE_CORE_UNIT(constant, factor, dimension, base, symbol, name, lower, upper,      \
                               by_formula, quantity, size, characters, symbols, names, suffixes,   \
                               prefixes, source)                                                   \
    {symbol, name, characters, symbols, names, suffixes, source},
#include "catalogue/core_units.def"
#define VARNIX_VALUE_UNIT(code, constant, quantity, size, symbol, name, symbols, names, suffix,    \
                          prefixes, source)                                                        \
    {symbol, name, "", symbols, names, suffix, source},
#include <varnix/value/Engineering_units.def>
};

} // namespace Varnix::Value::Catalogue

#endif
