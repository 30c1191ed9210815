// Measurements as texts.
//
//     #include <varnix/value/Measurement_text.h>
//     #include <iostream>
//     using namespace Varnix::Value;
//
//     Measurement const supply = Parse_measurement("5.0 ± 0.1 V");
//     std::cout << supply << '\n';                                     // 5 V [4.9, 5.1]
//     std::cout << Format(supply, Read_text_format("bp")) << '\n';     // 5.00 ± 0.10 V
//     std::cout << Parse_measurement("20 Δ°C").Convert_to(C_DgreeF) << '\n'; // 36 Δ°F
//
// Decimals are exact: what is read keeps its decimals where they are at most 2^53 over a power of
// ten up to 10^22, and is written as it was typed. Other numbers are enclosed: what is written is
// never narrower than the measurement, and what is read never narrower than the text.
// Hexadecimal numbers ("0x1.8p3 V"), which are read where they are asked for, give the same bits.
//
// Failures and threads are as in <varnix/value/Measurement.h>; texts allocate memory, and functions
// here may throw `std::bad_alloc`.

#ifndef VARNIX_VALUE_MEASUREMENT_TEXT_H
#define VARNIX_VALUE_MEASUREMENT_TEXT_H

#include <varnix/value/Measurement.h>
#include <varnix/value/Text_formatting.h>
#include <varnix/value/Text_parsing.h>
#include <varnix/value/Text_writing.h>
#include <varnix/value/measurement_export.h>

#include <iosfwd>
#include <string>
#include <string_view>

namespace Varnix::Value {

/// @addtogroup texts
/// @{

/// A measurement as it is typed: the notation of `Parse_quantity`, with the numbers kept as
/// decimals or, where they do not fit, enclosed; infinite bounds, and the differences "Δ°C", "Δ°F",
/// "ΔK" ("delta_degC", "delta_degF", "delta_K").
/// @throws TextNotValid for what cannot be read.
/// @throws MeasurementRefused for what can, but is no measurement: "5 V [5.1, 5.2]", "10 dBohm".
VARNIX_VALUE_MEASUREMENT_EXPORT Measurement Parse_measurement(std::string_view text);

/// The same with numbers of the forms asked for: with {true, true} hexadecimal ones are read too,
/// "0x1.8p3 V", which without are refused; with {} infinite bounds are.
VARNIX_VALUE_MEASUREMENT_EXPORT Measurement Parse_measurement(std::string_view text,
                                                              Number_forms forms);

/// As `Parse_measurement`, with either failure as a fault. @throws std::bad_alloc and nothing else
VARNIX_VALUE_MEASUREMENT_EXPORT Parse_result<Measurement>
Try_parse_measurement(std::string_view text);
VARNIX_VALUE_MEASUREMENT_EXPORT Parse_result<Measurement>
Try_parse_measurement(std::string_view text, Number_forms forms); ///< the same of these forms

/// Reads many texts, as `Try_parse_measurement` does. A unit that is written as in the text before is
/// not read again, so that a column of quantities takes little longer than one of numbers.
///
///     Measurement_reader reader;
///     for (std::string const& line : lines) {
///         if (auto const read = reader.Read(line)) {
///             std::cout << *read << '\n';
///         }
///     }
///
/// Threads: an object is for one at a time.
class VARNIX_VALUE_MEASUREMENT_EXPORT Measurement_reader {
  public:
    /// For texts whose units are in the words of `dialect`, and whose numbers may have these forms:
    /// by default decimal numbers and infinite bounds. Differences of temperatures, "Δ°C", are read
    /// in the standard dialect alone.
    explicit Measurement_reader(Dialect dialect_ = Dialect::standard,
                                Number_forms forms_ = {false, true})
        : dialect(dialect_), forms(forms_) {}

    /// The measurement that `text` is, or a fault. @throws std::bad_alloc and nothing else
    Parse_result<Measurement> Read(std::string_view text);

    /// Whether the text that was read last gives bounds: "5 V" and "5 ± 0 V" are the number alone.
    bool Has_bounds() const noexcept { return has_bounds; }

  private:
    Dialect dialect;
    Number_forms forms;
    bool has_bounds = false;
    bool is_difference = false;
    bool is_valid = false; // whether something has been measured in the unit
    Units unit = C_Empty;  // of the text below
    std::string unit_text; // which was read last
};

/// A unit as measurements have it: the unit, and whether it is one of differences of a temperature.
struct Measurement_unit {
    /// The plain unit.
    Measurement_unit() = default;

    /// A unit, and whether it counts differences, which is not checked. Never throws.
    explicit Measurement_unit(Units const& unit_) : unit(unit_) {}
    Measurement_unit(Units const& unit_, bool is_difference_)
        : unit(unit_), is_difference(is_difference_) {} ///< the same with the mark

    Units unit = C_Empty;       ///< what the numbers count
    bool is_difference = false; ///< whether it counts differences: "Δ°C"
};

/// Whether both parts are the same.
inline bool operator==(Measurement_unit const& first, Measurement_unit const& second) {
    return first.unit == second.unit && first.is_difference == second.is_difference;
}
/// Whether a part differs.
inline bool operator!=(Measurement_unit const& first, Measurement_unit const& second) {
    return !(first == second);
}

/// The unit that a text names: what `Parse_unit` reads, and "Δ°C", "Δ°F", "ΔK" ("delta_degC", ...), with
/// prefixes, in the standard dialect. Whether something can be measured in it is not asked here.
/// @throws TextNotValid for any other text.
VARNIX_VALUE_MEASUREMENT_EXPORT Measurement_unit
Parse_measurement_unit(std::string_view text, Dialect dialect = Dialect::standard);

/// As `Parse_measurement_unit`, with the failure as a fault. @throws std::bad_alloc and nothing else
VARNIX_VALUE_MEASUREMENT_EXPORT Parse_result<Measurement_unit>
Try_parse_measurement_unit(std::string_view text, Dialect dialect = Dialect::standard);

/// The text of the unit; that of differences is marked: "Δ°C", "delta_celsius".
VARNIX_VALUE_MEASUREMENT_EXPORT std::string Format_unit(Measurement_unit const& unit,
                                                        Unit_string_type spelling = STR_SYMBOL);

/// The measurement as a text, which never encloses less, whoever reads it: the decimal that is
/// written for a lower bound is not above it, that for an upper bound not below it, and value minus
/// and plus a written deviation enclose both. The value is rounded to nearest, ties to the even
/// digit. By default numbers have the fewest digits with which a bound is at most one step of a
/// double further out, and the bounds are left out where they are equal or the two doubles around
/// the written value. Fewer digits round the bounds outward; `Digits::by_bounds` ends at the second
/// digit of half their distance. ± is written, where asked for, where the least deviations below
/// and above the written value are equal in the last place written.
VARNIX_VALUE_MEASUREMENT_EXPORT std::string Format(Measurement const& x,
                                                   Text_format const& format = {});

/// The same with what `Writing` adds; bounds are outward where it says so.
VARNIX_VALUE_MEASUREMENT_EXPORT std::string Write(Measurement const& x, Writing const& writing);

/// The text of the unit; that of a difference of temperatures is marked: "Δ°C", "delta_celsius".
VARNIX_VALUE_MEASUREMENT_EXPORT std::string Format_unit(Measurement const& x,
                                                        Unit_string_type spelling = STR_SYMBOL);

/// The numbers of a measurement as they are written.
VARNIX_VALUE_MEASUREMENT_EXPORT Exact_numbers Exact_numbers_of(Measurement const& x) noexcept;

/// Writes `Format(x)`; the width and the other settings of the stream do not count.
VARNIX_VALUE_MEASUREMENT_EXPORT std::ostream& operator<<(std::ostream& stream,
                                                         Measurement const& x);

/// @}

} // namespace Varnix::Value

#endif
