// ValueObject text: units, quantities and numbers from text, strictly.
//
// A text means one thing or is refused, with the position, what was expected there, and the nearest
// known unit. docs/text.md is the account of the notation.
//
//     #include <varnix/value/Text_parsing.h>
//     #include <iostream>
//     using namespace Varnix::Value;
//
//     Units const speed = Parse_unit("km/h");                                  // C_Kmph
//     Value_object<double> const level = Parse_quantity("30 dBm [29, 31]");    // bounds 29 and 31
//     if (auto const length = Try_parse_quantity("5 pinch")) {
//         std::cout << length->Get_value() << '\n';
//     } else {
//         std::cout << length.Get_fault().position << ": " << length.Get_fault().message << '\n';
//     }
//
// What holds for every function here: nothing depends on the locale; a text may be up to
// `Longest_text` bytes long and is UTF-8; the time taken is linear in its length; no memory is
// allocated on success, but by the first call in a program, which gathers the names of the units,
// for uncertain digits, "5.00(3)", and for names joined by '_', "kilowatt_hour". std::bad_alloc may come out of any of them, where there is
// no memory for that or for a fault.
//
// Mind the power, which belongs to the prefixed unit (ISO 80000-1): "km^2" is a square kilometre,
// and "cm^-1" is 100/m. `Get_unit_string` prints otherwise, "km^2" for a thousand square metres and
// no prefix that has no name; `Format_unit` writes what is read back here, "k(m^2)".
//
// Threads: there is no shared state that changes; any number of threads may call at once.

#ifndef VARNIX_VALUE_TEXT_PARSING_H
#define VARNIX_VALUE_TEXT_PARSING_H

#include <varnix/value/Units.h>
#include <varnix/value/Value_object.h>
#include <varnix/value/exceptions.h>
#include <varnix/value/text_export.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

namespace Varnix::Value {

/// @addtogroup texts
/// @{

/// How many bytes a text may have. Longer ones are refused unread.
constexpr std::size_t Longest_text = 65536;

/// Why a text was refused.
struct Text_fault {
    std::size_t position;   ///< in bytes: the first that cannot be accepted; the text's size if it
                            ///< ended too early
    std::string message;    ///< what was expected and what was found: one line, no full stop
    std::string suggestion; ///< the nearest known unit as a text that can be read, or empty
};

/// A text that cannot be read. `what()` tells position, message and suggestion.
class VARNIX_VALUE_TEXT_EXPORT TextNotValid final : public virtual OperationNotValid {
  public:
    explicit TextNotValid(Text_fault const& fault_);             ///< @throws std::bad_alloc
    TextNotValid(TextNotValid const& other) noexcept;            ///< the same fault
    TextNotValid& operator=(TextNotValid const& other) noexcept; ///< the same fault
    ~TextNotValid() override;

    /// The parts of the message. The reference stays valid as long as the object or a copy of it.
    Text_fault const& Get_fault() const noexcept { return *fault; }

  private:
    std::shared_ptr<Text_fault const> fault; // shared, so that copying cannot fail
};

/// Throws `TextNotValid` with `fault`.
[[noreturn]] VARNIX_VALUE_TEXT_EXPORT void Throw_text_not_valid(Text_fault const& fault);

/// What a text was read as, or why it was refused.
template <typename T>
class Parse_result {
  public:
    /// What was read.
    Parse_result(T value) : content(std::in_place_index<0>, std::move(value)) {}
    /// Why nothing was.
    Parse_result(Text_fault fault) : content(std::in_place_index<1>, std::move(fault)) {}

    /// Whether there is a value.
    explicit operator bool() const noexcept { return content.index() == 0; }

    /// The value. @throws TextNotValid with the fault, if there is none.
    T const& operator*() const {
        if (content.index() != 0) {
            Throw_text_not_valid(std::get<1>(content));
        }
        return std::get<0>(content);
    }

    /// The value's members. @throws as `operator*`
    T const* operator->() const { return &**this; }

    /// Why there is no value. @throws std::bad_variant_access if there is one.
    Text_fault const& Get_fault() const { return std::get<1>(content); }

  private:
    std::variant<T, Text_fault> content;
};

/// Which numbers are read besides decimal ones ("5", "-0.5", "+.5e-3").
struct Number_forms {
    bool hexadecimal = false; ///< "0x1.8p3", which is 12
    bool not_finite = false;  ///< "inf", "infinity", "nan", in upper or lower case, with a sign
};

/// The unit that `text` names: "km/h", "V^2/ohm", "dBm", "milli(inches)", "hPa". Units beyond those of
/// <varnix/value/Units.h> are read as well (<varnix/value/Engineering_units.h>), which measurements
/// have. In canonical order. The scale of all prefixes becomes the prefix of the descriptor, a power of ten from 10^-40 to 10^40,
/// with a name or not, whose code is not that of a binary prefix: 10^-4 for "cm^2". Nothing and "1"
/// are C_Empty, the unit of plain numbers.
/// @throws TextNotValid for any text that is not a unit.
VARNIX_VALUE_TEXT_EXPORT Units Parse_unit(std::string_view text);

/// A number, with or without bounds, in a unit: "30 dBm", "30 dBm [29, 31]", "5.0 ± 0.1 V",
/// "5.0 +0.2/-0.1 V", "5.00(3) V". Without unit it is in C_Empty; without bounds both equal the
/// value. Bounds in brackets are numbers in the unit of the value and come out as they stand; a
/// deviation is subtracted and added in double arithmetic.
/// @throws TextNotValid for any other text; for a unit that `Value_object` does not have, with what to
///         write instead where that is the same; for numbers beyond the range of double, or that would
///         become zero; for a lower bound above the upper one.
VARNIX_VALUE_TEXT_EXPORT Value_object<double> Parse_quantity(std::string_view text,
                                                             Number_forms forms = {});

/// Which words a unit is written in.
enum class Dialect : std::uint8_t {
    standard, ///< symbols and names, in which the case of letters counts
    /// The suffixes of instruments (IEEE 488.2, SCPI-99), in which it does not: "DBM", "KHZ", "MV".
    /// M is mega before OHM and HZ and milli elsewhere; MA is mega everywhere. Factors stand between
    /// '.', '*' and '/', a power directly behind: "M/S2", "M.S-2".
    scpi,
};

/// As `Parse_unit` without dialect, in the words of `dialect`. What `Get_unit_string` prints with
/// STR_UPPER_CASE is read back in `Dialect::scpi`, but for units of data, whose letters mean others
/// there (bits and bytes are BIT and BYTE); hours and degrees Celsius and Fahrenheit, whose H is henry
/// and whose C and F are refused there (write HR, CEL, FAR); units run together ("VA"); a prefix alone
/// before a '/'; and milliohms and millihertz, which are mega there.
/// @throws TextNotValid for any text that is not a unit in that dialect.
VARNIX_VALUE_TEXT_EXPORT Units Parse_unit(std::string_view text, Dialect dialect);

/// As `Parse_quantity` without dialect, with the unit in the words of `dialect`.
/// @throws TextNotValid as `Parse_quantity` and `Parse_unit`.
VARNIX_VALUE_TEXT_EXPORT Value_object<double> Parse_quantity(std::string_view text,
                                                             Number_forms forms, Dialect dialect);

/// As `Parse_unit`, with the fault in the result instead of thrown.
VARNIX_VALUE_TEXT_EXPORT Parse_result<Units> Try_parse_unit(std::string_view text, Dialect dialect);

/// As `Parse_quantity`, with the fault in the result instead of thrown.
VARNIX_VALUE_TEXT_EXPORT Parse_result<Value_object<double>>
Try_parse_quantity(std::string_view text, Number_forms forms, Dialect dialect);

/// What an instrument says with a number.
enum class Scpi_number : std::uint8_t { ordinary, infinity, negative_infinity, not_a_number };

/// The meaning that SCPI-99 gives to numbers read from an instrument: 9.9E37 and -9.9E37 are the
/// infinities and 9.91E37 is not a number. They are read as the numbers
/// that they are; a program that talks to instruments asks here.
VARNIX_VALUE_TEXT_EXPORT Scpi_number Scpi_meaning(double number) noexcept;

/// A number as it is written: `digits` with the sign, times 10 to the `power_of_ten`.
struct Decimal_text {
    bool negative = false;   ///< whether a minus sign stands before the digits
    std::string_view digits; ///< "5.00", "5e-3": without sign, as std::from_chars takes it
    std::int32_t power_of_ten =
        0;                ///< beyond what the digits say; other than 0 in `last_digits` only
    double nearest = 0.0; ///< the double nearest to the whole, sign included
};

/// How a quantity says how certain it is.
enum class Quantity_form : std::uint8_t {
    value_alone, ///< "5 V"
    deviation,   ///< "5.0 ± 0.1 V"
    deviations,  ///< "5.0 +0.2/-0.1 V"
    bounds,      ///< "5 V [4.9, 5.1]"
    last_digits, ///< "5.00(3) V": 5.00 ± 0.03 V
};

/// A quantity taken apart: its numbers, and the text of its unit.
struct Quantity_parts {
    Quantity_form form = Quantity_form::value_alone; ///< how bounds are given
    Decimal_text value;                              ///< the value
    Decimal_text lower; ///< of `bounds` the lower one, of the others the deviation below, which is
                        ///< not negative; without digits where the value stands alone
    Decimal_text upper; ///< the same above
    std::size_t bounds_position = 0; ///< in bytes, where bounds or deviations begin
    std::string_view unit;           ///< as it is written, not read yet; empty if there is none
    std::size_t unit_position = 0;   ///< in bytes, for the position of a fault in the unit
};

/// The parts of a quantity, for readers that make something else of its numbers than
/// `Parse_quantity`, which stands on this as well. The texts are parts of `text` and live as long.
/// What `Parse_quantity` refuses is refused, but for what is wrong with the unit, and for bounds
/// that leave the range of double when a deviation is added.
VARNIX_VALUE_TEXT_EXPORT Parse_result<Quantity_parts> Try_split_quantity(std::string_view text,
                                                                         Number_forms forms = {});

/// A number alone: the nearest double.
/// @throws TextNotValid as `Parse_quantity`.
VARNIX_VALUE_TEXT_EXPORT double Parse_number(std::string_view text, Number_forms forms = {});

/// As `Parse_unit`, with the fault in the result instead of thrown.
VARNIX_VALUE_TEXT_EXPORT Parse_result<Units> Try_parse_unit(std::string_view text);

/// As `Parse_quantity`, with the fault in the result instead of thrown.
VARNIX_VALUE_TEXT_EXPORT Parse_result<Value_object<double>>
Try_parse_quantity(std::string_view text, Number_forms forms = {});

/// As `Parse_number`, with the fault in the result instead of thrown.
VARNIX_VALUE_TEXT_EXPORT Parse_result<double> Try_parse_number(std::string_view text,
                                                               Number_forms forms = {});

/// @}

} // namespace Varnix::Value

#endif
