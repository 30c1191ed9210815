// All prefixes: those of the core and the further ones of SI, which measurements and texts know.

#ifndef VARNIX_VALUE_CATALOGUE_PREFIXES_H
#define VARNIX_VALUE_CATALOGUE_PREFIXES_H

#include <varnix/value/Engineering_units.h>

namespace Varnix::Value::Catalogue {

struct Prefix_row {
    SI_units prefix;
    bool is_of_core; // whose symbol and name are the core's
    char const* symbol;
    char const* name;
    char const* symbols;    // other characters for the symbol
    char const* multiplier; // in the words of instruments; empty where these have none
};

// clang-format off

// In the order of size, the binary ones last.
inline constexpr Prefix_row prefix_rows[] = {
    {QUECTO, false, "q",  "quecto", "",         ""},
    {RONTO,  false, "r",  "ronto",  "",         ""},
    {YOCTO,  false, "y",  "yocto",  "",         ""},
    {ZEPTO,  false, "z",  "zepto",  "",         ""},
    {ATTO,   false, "a",  "atto",   "",         "A"},
    {FEMTO,  false, "f",  "femto",  "",         "F"},
    {PICO,   true,  "p",  "pico",   "",         "P"},
    {NANO,   true,  "n",  "nano",   "",         "N"},
    {MICRO,  true,  "µ",  "micro",  "u \u03BC", "U"},  // the core's symbol is the micro sign, U+00B5; this is mu
    {MILLI,  true,  "m",  "milli",  "",         "M"},
    {CENTI,  true,  "c",  "centi",  "",         "C"},
    {DECI,   true,  "d",  "deci",   "",         "D"},
    {DECA,   false, "da", "deca",   "",         ""},
    {HECTO,  false, "h",  "hecto",  "",         ""},
    {KILO,   true,  "k",  "kilo",   "",         "K"},
    {MEGA,   true,  "M",  "mega",   "",         "MA"}, // "M" is milli
    {GIGA,   true,  "G",  "giga",   "",         "G"},
    {TERA,   true,  "T",  "tera",   "",         "T"},
    {PETA,   true,  "P",  "peta",   "",         "PE"},
    {EXA,    true,  "E",  "exa",    "",         "EX"},
    {ZETTA,  true,  "Z",  "zetta",  "",         "ZE"},
    {YOTTA,  true,  "Y",  "yotta",  "",         "YO"},
    {RONNA,  false, "R",  "ronna",  "",         ""},
    {KIBI,   true,  "Ki", "kibi",   "",         ""},
    {MEBI,   true,  "Mi", "mebi",   "",         ""},
    {GIBI,   true,  "Gi", "gibi",   "",         ""},
    {TEBI,   true,  "Ti", "tebi",   "",         ""},
    {PEBI,   true,  "Pi", "pebi",   "",         ""},
    {EXBI,   true,  "Ei", "exbi",   "",         ""},
    {ZEBI,   true,  "Zi", "zebi",   "",         ""},
    {YOBI,   true,  "Yi", "yobi",   "",         ""},
};

// clang-format on

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
