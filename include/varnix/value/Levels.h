// Levels and gains: what decibels mean, and the sums of powers that `+` is not.
//
// A measurement in decibels is a gain without units (C_DB), and a level with them, relative to one
// of the unit. A level of a power is 10 log10 of it; of a root-power quantity, volts or amperes, 20
// log10, so that 20 dBV are 10 V; of what powers are multiplied with (Hz, K, m^2), 10 log10. Other
// units have no agreed decibels, and are refused.
//
//     #include <varnix/value/Levels.h>
//     #include <varnix/value/Measurement_text.h>
//     #include <iostream>
//     using namespace Varnix::Value;
//
//     Measurement const signal(10.0, C_DBmW, 9.0, 11.0);
//     Measurement const gain(3.0, C_DB);
//     std::cout << signal + gain << '\n';                // 13 dBm [12, 14]
//     std::cout << Power_sum({signal, signal}) << '\n';  // 13.01 dBm, and not 20
//     std::cout << Amplify(Measurement(2.0, C_Volts), Measurement(20.0, C_DB)) << '\n'; // 20 V
//
// Bounds, exactness, failures and threads are as in <varnix/value/Measurement.h>.

#ifndef VARNIX_VALUE_LEVELS_H
#define VARNIX_VALUE_LEVELS_H

#include <varnix/value/Measurement.h>
#include <varnix/value/measurement_export.h>

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <memory>

namespace Varnix::Value {

/// @addtogroup measurements
/// @{

// ---- Gains

/// What comes out where `x` goes in: a level plus the gain, or a linear quantity times
/// 10^(gain/10), and of volts and amperes times 10^(gain/20). In the unit of `x`.
/// @throws MeasurementRefused not_a_gain; gain_is_ambiguous for a plain number; no_level_convention
///         for a quantity that has no decibels; out_of_range.
VARNIX_VALUE_MEASUREMENT_EXPORT Measurement Amplify(Measurement const& x, Measurement const& gain);

/// 10^(gain/10), a plain number: the ratio of two powers.
/// @throws MeasurementRefused not_a_gain, out_of_range.
VARNIX_VALUE_MEASUREMENT_EXPORT Measurement Power_ratio(Measurement const& gain);

/// 10^(gain/20), a plain number: the ratio of two voltages or currents. @throws as `Power_ratio`
VARNIX_VALUE_MEASUREMENT_EXPORT Measurement Field_ratio(Measurement const& gain);

/// 10 log10 of a plain number, in dB: the gain of two powers in that ratio.
/// @throws MeasurementRefused kinds_differ for anything but a plain number; no_level_of_zero for a
///         value that is not positive, or a lower bound below zero. A lower bound of zero gives
///         -inf.
VARNIX_VALUE_MEASUREMENT_EXPORT Measurement Gain_of_powers(Measurement const& ratio);

/// 20 log10 of a plain number, in dB: of voltages or currents. @throws as `Gain_of_powers`
VARNIX_VALUE_MEASUREMENT_EXPORT Measurement Gain_of_fields(Measurement const& ratio);

// ---- Sums of powers

/// The level of the sum of powers, in the unit of the first: 10 log10 of the sum of 10^(x/10). Of
/// volts and amperes it is the root of the sum of squares, as of sources that know nothing of each
/// other; coherent voltages are added in volts.
/// @throws MeasurementRefused nothing_to_sum; not_a_level; kinds_differ and its kin.
VARNIX_VALUE_MEASUREMENT_EXPORT Measurement Power_sum(std::initializer_list<Measurement> levels);
VARNIX_VALUE_MEASUREMENT_EXPORT Measurement Power_sum(Measurement const* levels,
                                                      std::size_t count); ///< as above

/// The level of the mean of powers, in the unit of the first. @throws as `Power_sum`
VARNIX_VALUE_MEASUREMENT_EXPORT Measurement Power_mean(std::initializer_list<Measurement> levels);
VARNIX_VALUE_MEASUREMENT_EXPORT Measurement Power_mean(Measurement const* levels,
                                                       std::size_t count); ///< as above

/// Adds the powers of levels one after the other, in the memory of one however many there are:
/// `Power_sum` and `Power_mean` of a file, or of what an instrument sends.
///
///     Power_accumulator powers;
///     powers.Add(Measurement(10.0, C_DBmW));
///     powers.Add(Measurement(10.0, C_DBmW));
///     std::cout << powers.Sum() << '\n'; // 13.01 dBm
///
/// The results are those of `Power_sum` and `Power_mean` of the same levels in the same order.
/// Threads: `Add` changes the object; the others may be called at the same time.
class VARNIX_VALUE_MEASUREMENT_EXPORT Power_accumulator {
  public:
    Power_accumulator(); ///< of no levels. @throws std::bad_alloc
    Power_accumulator(
        Power_accumulator&& other) noexcept; ///< `other` may only be assigned to after
    Power_accumulator& operator=(Power_accumulator&& other) noexcept; ///< likewise
    ~Power_accumulator();

    /// Adds the power of a level, which may be in another unit than those before.
    /// @throws MeasurementRefused not_a_level; kinds_differ and its kin. The sum stays as it was.
    void Add(Measurement const& level);

    std::uint64_t Get_count() const noexcept; ///< how many levels there are

    /// The level of the sum of powers, in the unit of the first.
    /// @throws MeasurementRefused nothing_to_sum; out_of_range.
    Measurement Sum() const;

    /// The level of the mean of powers, in the unit of the first. @throws as `Sum`
    Measurement Mean() const;

  private:
    struct Powers;
    std::unique_ptr<Powers> powers;
};

/// The level of a power without a part of it: a signal measured with its noise, less the noise. In
/// the unit of `sum`.
/// @throws MeasurementRefused no_level_of_zero where the part may be as large as the sum; as
///         `Power_sum`.
VARNIX_VALUE_MEASUREMENT_EXPORT Measurement Power_difference(Measurement const& sum,
                                                             Measurement const& part);

// ---- Densities

/// The level of the power in a bandwidth, of a level per hertz: -174 dBm/Hz in 1 MHz are -114 dBm.
/// @throws MeasurementRefused not_a_density for a level that is not per hertz or has no 10 log10,
///         and for a bandwidth that is no frequency; negative_quantity for a bandwidth that may be
///         below zero; no_level_of_zero for one of zero.
VARNIX_VALUE_MEASUREMENT_EXPORT Measurement Total_power(Measurement const& density,
                                                        Measurement const& bandwidth);

/// The level per hertz of a power that is spread evenly over a bandwidth.
/// @throws as `Total_power`, and MeasurementRefused division_by_zero for a bandwidth that may be
///         zero.
VARNIX_VALUE_MEASUREMENT_EXPORT Measurement Density(Measurement const& total,
                                                    Measurement const& bandwidth);

/// @}

} // namespace Varnix::Value

#endif
