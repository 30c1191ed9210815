// ValueObject text: the one writer of numbers with bounds, for libraries that stand on this one.
//
// `Format` writes quantities, and `Format` of <varnix/value/Measurement_text.h> writes
// measurements; both do it by what is here. Use it where the three numbers come from elsewhere, or
// where a text has to enclose.
//
//     #include <varnix/value/Text_writing.h>
//     #include <iostream>
//     using namespace Varnix::Value;
//
//     Writing enclosing;
//     enclosing.format = Read_text_format(".3");
//     enclosing.bounds = Bound_rounding::outward;
//     std::cout << Write_numbers({5.0, 4.8765, 5.1234}, "V", enclosing) << '\n';
//     // 5.00 V [4.87, 5.13]
//
// Threads: every function is pure; any number of threads may call them at once.

#ifndef VARNIX_VALUE_TEXT_WRITING_H
#define VARNIX_VALUE_TEXT_WRITING_H

#include <varnix/value/Text_formatting.h>
#include <varnix/value/Units.h>
#include <varnix/value/text_export.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace Varnix::Value {

/// @addtogroup texts
/// @{

/// A value and its bounds, each exactly the double times 10^power_of_ten. The lower bound is not
/// above the upper one.
struct Exact_numbers {
    double value = 0.0;            ///< in any unit
    double lower = 0.0;            ///< in the same unit
    double upper = 0.0;            ///< in the same unit
    std::int32_t power_of_ten = 0; ///< one for all three
    bool are_decimal = false;      ///< whether the three are decimals, which are written with all
                                   ///< their digits where others have the shortest
};

/// How bounds are rounded to the digits that are shown. Values are rounded to nearest, ties to the
/// even digit.
enum class Bound_rounding : std::uint8_t {
    nearest, ///< as the value
    /// The lower one down and the upper one up: the decimals that are written enclose the bounds,
    /// and a deviation is taken from the value that is written. With the shortest digits, a bound
    /// is the one with the fewest that is at most one step of a double further out. Bounds are left
    /// out where they are equal, and where they are neighbours between which the written value
    /// lies.
    outward,
};

/// How numbers are written, beyond the format that users name.
struct Writing {
    Text_format format;                              ///< digits, form of the bounds, spelling
    Bound_rounding bounds = Bound_rounding::nearest; ///< how bounds are rounded
    bool trailing_zeros = true; ///< whether zeros at the end of a number that is rounded are kept
    bool within_bounds = false; ///< with the shortest digits: whether the value has the fewest
                                ///< with which it lies between its bounds, without an exponent
                                ///< where that is easy to read; meant for hidden bounds
};

/// The prefix that `Text_format::engineering_prefix` asks for, as `Format` chooses it: the number is
/// between 1 and 1000 as it is written, so that 999.999 V with three digits is 1.00 kV, and 1013.25
/// hPa are 101.325 kPa. It is chosen for the units that `Format` names, and likewise for N, Pa, J,
/// eV, C, F, H, S, Wb, T, lm, lx, mol, kat, Bq, Gy and Sv. Moves the point of `numbers` and returns
/// the unit with the prefix; leaves both as they are where the unit has none chosen, and where the
/// numbers are not finite or the leading one is zero.
VARNIX_VALUE_TEXT_EXPORT Units Choose_prefix(Exact_numbers& numbers, Units const& unit,
                                             Writing const& writing);

/// The numbers with the text of their unit, which may be empty: "5 V [4.9, 5.1]", "5.0 ± 0.1 V".
/// @throws nothing of its own (std::bad_alloc apart), whatever the numbers are.
VARNIX_VALUE_TEXT_EXPORT std::string
Write_numbers(Exact_numbers const& numbers, std::string_view unit_text, Writing const& writing);

/// The same numbers as doubles, for formats that write the shortest digits of these (JSON): the
/// value to nearest, and such bounds that their shortest digits enclose, at most one step of a
/// double further out than the bounds are.
VARNIX_VALUE_TEXT_EXPORT Exact_numbers Enclosing_doubles(Exact_numbers const& numbers);

/// @}

} // namespace Varnix::Value

#endif
