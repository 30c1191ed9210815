// ValueObject text: quantities written as text.
//
// By default a quantity is written with the fewest digits that give back the same bits, and with a
// unit that reads back as the same descriptor: `Parse_quantity` returns what was written.
//
//     #include <varnix/value/Text_formatting.h>
//     #include <iostream>
//     using namespace Varnix::Value;
//
//     Value_object<double> const level(30.0, C_DBmW, 29.0, 31.0);
//     Value_object<double> const current(0.012, C_Amps, 0.011, 0.013);
//     std::cout << level << '\n';                                  // 30 dBm [29, 31]
//     std::cout << Format(level, Read_text_format("~")) << '\n';   // 30 dBm
//     std::cout << Format(current, Read_text_format("pk")) << '\n'; // 12 ± 1 mA
//
// Digits never depend on the locale. To print with {fmt}, include <varnix/value/text_fmt.h>.
//
// Threads: every function is pure; any number of threads may call them at once.

#ifndef VARNIX_VALUE_TEXT_FORMATTING_H
#define VARNIX_VALUE_TEXT_FORMATTING_H

#include <varnix/value/Units.h>
#include <varnix/value/Value_object.h>
#include <varnix/value/text_export.h>

#include <cstddef>
#include <iosfwd>
#include <string>
#include <string_view>

namespace Varnix::Value {

/// @addtogroup texts
/// @{

/// How the bounds of a quantity are shown. A quantity whose bounds are its value has none to show.
enum class Bounds_style {
    interval,  ///< "5 V [4.9, 5.1]"
    symmetric, ///< "5 ± 0.1 V" where both distances print alike, "5 V [4.9, 5.2]" where they do not
    hidden,    ///< "5 V"
};

/// How many digits are shown.
enum class Digits {
    shortest,    ///< the fewest that give back the same bits
    significant, ///< a number of significant digits, trailing zeros kept
    decimals,    ///< a number of digits after the point
    by_bounds,   ///< down to the second significant digit of half the distance of the bounds
};

/// How a quantity is written. The default reads back to the same bits.
struct Text_format {
    Digits digits = Digits::shortest; ///< which digits
    int count = 0; ///< how many, for `significant` (1 to 100) and `decimals` (0 to 100), and for
                   ///< `by_bounds` of half the distance (0 is two); a count beyond is taken as the
                   ///< nearest
    Bounds_style bounds = Bounds_style::interval; ///< how the bounds are shown
    Unit_string_type unit = STR_SYMBOL;           ///< which spelling of the unit
    bool engineering_prefix =
        false; ///< whether the value is brought between 1 and 1000 by a prefix
};

/// The format that a short text stands for: `[.N | .Nf | b][p | ~][k]`. ".3" is three significant
/// digits, ".3f" three decimals, "b" the digits set by the bounds; "p" is ± and "~" hides the
/// bounds; "k" chooses the prefix. The empty text is the default.
/// @throws std::invalid_argument for any other text, and for more than 100 digits.
constexpr Text_format Read_text_format(std::string_view text);

/// The same without an exception: whether `text` is such a format, which is stored in `format`;
/// otherwise `format` stays as it is.
constexpr bool Try_read_text_format(std::string_view text, Text_format& format) noexcept;

/// `quantity` as text: "30 dBm [29, 31]".
///
/// - The numbers are plain where that is short and have an exponent otherwise; "inf", "-inf" and
///   "nan" are read back only where `Number_forms::not_finite` asks for it. Digits that are not
///   shortest are rounded from the exact number. `by_bounds` falls back on the shortest digits
///   where the bounds are equal or not finite.
/// - The bounds are written in ascending order. With the shortest digits ± is written only where
///   value minus and value plus the distance give exactly the bounds.
/// - The unit is written by `Format_unit`.
/// - `engineering_prefix` chooses among the prefixes of powers of 1000 from pico to yotta for
///   metres, seconds, grams, watts, volts, amperes, ohms, bits and bytes alone and in the first
///   power, and for hertz; linear, and with no prefix yet or a decimal one. Any other unit stays,
///   and so do zero and what is not finite. It goes by the number as it is written: 999.999 V with
///   three digits is 1.00 kV. The decimal point is moved, so that 2.4e9 Hz is 2.4 GHz; read back,
///   the number may differ from the original in its last bit.
/// @throws nothing of its own (std::bad_alloc apart), whatever the quantity holds.
VARNIX_VALUE_TEXT_EXPORT std::string Format(Value_object<double> const& quantity,
                                            Text_format const& format = {});

/// `number` alone, with the digits of `format` (`by_bounds`: shortest).
VARNIX_VALUE_TEXT_EXPORT std::string Format_number(double number, Text_format const& format = {});

/// The text of `unit`. A power belongs to the prefixed unit (ISO 80000-1), as every reader takes
/// it: (km)^2 is "(km)^2", and a thousand square metres are "k(m^2)". In the name and the symbol
/// spelling it is that of `Units_library::Get_unit_string` where `Parse_unit` takes it for the same
/// unit, and otherwise an explicit one: "m/(s*K)", "k(m^2)", "dB(m)". What no text stands for
/// (units without a catalogue row, tuples out of order) is written as `Get_unit_string` writes it.
VARNIX_VALUE_TEXT_EXPORT std::string Format_unit(Units const& unit,
                                                 Unit_string_type spelling = STR_SYMBOL);

/// Writes `Format(quantity)`; neither the stream's locale nor its precision changes it.
VARNIX_VALUE_TEXT_EXPORT std::ostream& operator<<(std::ostream& stream,
                                                  Value_object<double> const& quantity);

// ---- Implementation

constexpr bool Try_read_text_format(std::string_view text, Text_format& format) noexcept {
    std::size_t place = 0;
    auto const accept = [&](char wanted) {
        bool const found = place < text.size() && text[place] == wanted;
        place += found ? 1 : 0;
        return found;
    };
    Text_format read;
    bool count_fits = true;
    if (accept('.')) {
        std::size_t const start = place;
        for (; place < text.size() && text[place] >= '0' && text[place] <= '9'; ++place) {
            read.count = place - start < 3 ? 10 * read.count + (text[place] - '0') : 1000;
        }
        bool const has_digits = place > start;
        read.digits = accept('f') ? Digits::decimals : Digits::significant;
        count_fits =
            has_digits && read.count <= 100 && (read.count > 0 || read.digits == Digits::decimals);
    } else if (accept('b')) {
        read.digits = Digits::by_bounds;
    }
    if (accept('p')) {
        read.bounds = Bounds_style::symmetric;
    } else if (accept('~')) {
        read.bounds = Bounds_style::hidden;
    }
    read.engineering_prefix = accept('k');
    if (!count_fits || place != text.size()) {
        return false;
    }
    format = read;
    return true;
}

/// Throws the std::invalid_argument of `Read_text_format`. Out of line, so that this header
/// compiles without exceptions.
[[noreturn]] VARNIX_VALUE_TEXT_EXPORT void Throw_format_not_valid();

constexpr Text_format Read_text_format(std::string_view text) {
    Text_format format;
    if (!Try_read_text_format(text, format)) {
        Throw_format_not_valid();
    }
    return format;
}

/// @}

} // namespace Varnix::Value

#endif
