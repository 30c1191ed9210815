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
// What is written is never narrower than the measurement, and what is read never narrower than the
// text: "0.1 V" lies between two doubles, and has them as its bounds. What is a double stays exact.
// Printing and reading back so gives a measurement that encloses the first, at most one unit in the
// last place wider; hexadecimal numbers ("0x1.8p3 V"), which are read where they are asked for, give
// the same bits.
//
// Failures and threads are as in <varnix/value/Measurement.h>; texts allocate memory, and functions
// here may throw `std::bad_alloc`.

#ifndef VARNIX_VALUE_MEASUREMENT_TEXT_H
#define VARNIX_VALUE_MEASUREMENT_TEXT_H

#include <varnix/value/Measurement.h>
#include <varnix/value/Text_formatting.h>
#include <varnix/value/Text_parsing.h>
#include <varnix/value/measurement_export.h>

#include <iosfwd>
#include <string>
#include <string_view>

namespace Varnix::Value {

/// @addtogroup texts
/// @{

/// A measurement as it is typed: the notation of `Parse_quantity`, with the numbers enclosed,
/// infinite bounds, and the differences "Δ°C", "Δ°F", "ΔK" ("delta_degC", "delta_degF", "delta_K").
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

/// The measurement as a text, by default with the shortest digits that give back each number.
/// Bounds are left out where the number alone, read back, encloses them. Fewer digits round the
/// bounds outward and the value to nearest; `Digits::by_bounds` ends at the second digit of half
/// their distance. ± is written, where asked for, when the deviations from the printed value are
/// alike in the last place printed.
VARNIX_VALUE_MEASUREMENT_EXPORT std::string Format(Measurement const& x,
                                                   Text_format const& format = {});

/// Writes `Format(x)`; the width and the other settings of the stream do not count.
VARNIX_VALUE_MEASUREMENT_EXPORT std::ostream& operator<<(std::ostream& stream,
                                                         Measurement const& x);

/// @}

} // namespace Varnix::Value

#endif
