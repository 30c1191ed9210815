// Many numbers from one unit to another: what can be decided of the two is decided once.
//
//     #include <varnix/value/Measurement_converter.h>
//     #include <vector>
//     using namespace Varnix::Value;
//
//     Measurement_converter const to_kelvin(C_DgreeC, C_Kelvin);
//     std::vector<double> log = {-40.0, 20.0};
//     to_kelvin.Convert_numbers(log.data(), log.data(), log.size()); // 233.15 and 293.15
//
// Numbers alone have no bounds to guarantee. Factors and temperatures give the double that is
// nearest to the exact result; levels are computed with the C library, and lie within 4 units in
// the last place of it, or within 1e-13 dB. That part alone differs between C libraries in the last
// bits.

#ifndef VARNIX_VALUE_MEASUREMENT_CONVERTER_H
#define VARNIX_VALUE_MEASUREMENT_CONVERTER_H

#include <varnix/value/Measurement.h>
#include <varnix/value/Units.h>
#include <varnix/value/measurement_export.h>

#include <cstddef>
#include <cstdint>

namespace Varnix::Value {

/// @addtogroup converters
/// @{

/// Converts from one unit to another. Immutable but for assignment; any number of threads may use
/// one.
class VARNIX_VALUE_MEASUREMENT_EXPORT Measurement_converter {
  public:
    /// Temperatures are points of their scales.
    /// @throws MeasurementRefused where `Measurement::Convert_to` refuses the units, and what the
    ///         constructor of `Measurement` throws for a unit that is not valid.
    Measurement_converter(Units const& from, Units const& to);

    /// `x.Convert_to` the target; a measurement in another unit than that converted from is
    /// converted as well.
    /// @throws as `Measurement::Convert_to`
    Measurement Convert(Measurement const& x) const;

    /// The number in the target that is nearest to `number` in the unit converted from; of levels
    /// see above. NaN for NaN and for the level of a negative number, -inf for the level of zero,
    /// and +-inf for a number too large for a double.
    double Convert_number(double number) const noexcept;

    /// Each of `count` numbers as by `Convert_number`. `from` and `to` may be one place, and must
    /// not overlap otherwise.
    void Convert_numbers(double const* from, double* to, std::size_t count) const noexcept;

    /// The units converted from and to, in canonical order.
    Units Get_from() const noexcept { return source; }
    Units Get_to() const noexcept { return target; } ///< as above

  private:
    enum class Way { same, linear, level_to_linear, linear_to_level, by_kelvins };

    double Nearest(double number) const noexcept;
    double Nearest_of_enclosed(double number) const noexcept;
    double Quantity_of(double level) const noexcept;
    double Level_of(double number) const noexcept;
    void Prepare_measurements() noexcept;

    Units source;
    Units target;
    Way way;
    int step;                       // of levels: 10 or 20
    double factor_high, factor_low; // the factor, in two parts
    double offset_high, offset_low; // what is added, in two parts
    double decimal_whole;           // the factor as a whole number and a power of ten, or 0
    std::int32_t decimal_power;
};

/// @}

} // namespace Varnix::Value

#endif
