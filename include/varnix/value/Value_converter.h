// ValueObject: conversions prepared once and applied often.
//
// A converter takes every decision that depends on the units alone when it is made; what is left
// for each number is arithmetic. Its results are those of `Value_object::Convert_to`, bit by bit.
//
//     #include <varnix/value/Value_converter.h>
//     using namespace Varnix::Value;
//
//     Value_converter<double> const to_watts(C_DBmW, C_Watts);
//     double const power = to_watts.Convert(30.0);                        // 1.0
//     double samples[] = {0.0, 10.0, 20.0};
//     to_watts.Convert(samples, samples, 3);                              // 0.001, 0.01, 0.1
//
// Threads: a converter never changes after it is made; any number of threads may use one at once.

#ifndef VARNIX_VALUE_VALUE_CONVERTER_H
#define VARNIX_VALUE_VALUE_CONVERTER_H

#include <varnix/value/Units.h>
#include <varnix/value/Value_object.h>
#include <varnix/value/export.h>

#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace Varnix::Value {

/// @addtogroup converters
/// @{

namespace Value_detail {

// What the numbers of a conversion go through, in this order: the rules, the way out of decibels,
// the factors, the way into decibels. All of it follows from the two units. A program has no use
// for it.
struct Conversion_steps {
    // A formula of the conversion rules; `identity` is that of power written as a product.
    enum class Formula : std::uint8_t {
        identity,
        celsius_to_fahrenheit,
        fahrenheit_to_celsius,
        celsius_to_kelvin,
        fahrenheit_to_kelvin,
        kelvin_to_celsius,
        kelvin_to_fahrenheit,
    };
    // A rule that is applied: its formula, and whether the number is inverted afterwards.
    struct Applied_rule {
        Formula formula;
        bool inverts;
    };
    // Volts and amperes have one target among the rules, and temperatures another: no two units in
    // canonical order name more than three rules.
    static constexpr std::size_t Rule_limit = 3;

    Applied_rule rules[Rule_limit];
    std::uint8_t rule_count;
    bool from_decibels;
    bool to_decibels;
    double source_product; // of the exponents of a source in decibels
    double factor;         // the prefix of the source included
    double target_scale;   // the reciprocal scale of the target's prefix; 1.0 without prefix
    double target_product; // of the exponents of a target in decibels, times 10
};

} // namespace Value_detail

/// A prepared conversion from one unit to another. It allocates nothing and is copied freely.
template <typename Number>
class Value_converter {
    static_assert(std::is_same_v<Number, double>,
                  "Value_converter is provided for double alone: write Value_converter<double>");

  public:
    /// Prepares the conversion of values in `from` into `to`.
    /// @throws what `Value_object::Convert_to(to)` throws for a value in `from`.
    Value_converter(Units const& from, Units const& to);

    /// The number `value` of the source unit, in the target unit.
    Number Convert(Number value) const noexcept;

    /// `value` with its bounds, in the target unit.
    /// @throws UnitDimensionNotSame when the unit of `value` is not the source unit in every field.
    Value_object<Number> Convert(Value_object<Number> const& value) const;

    /// Converts `count` numbers from `in` to `out`, each as `Convert(Number)` does. `in` and `out`
    /// are equal or do not overlap. Conversions without decibels and inversions are vectorised
    /// where the processor has vectors of doubles (x86-64; ARMv7 has none).
    void Convert(Number const* in, Number* out, std::size_t count) const noexcept;

    Units Get_source() const noexcept { return source; } ///< the unit converted from
    Units Get_target() const noexcept { return target; } ///< the unit converted to, arranged

  private:
    Units source; // as given
    Units target; // in canonical order
    Value_detail::Conversion_steps steps;
};

extern template class VARNIX_VALUE_EXPORT Value_converter<double>;

/// @}

} // namespace Varnix::Value

#endif
