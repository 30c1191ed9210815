// Reflections, mismatch and noise, with bounds that hold for the formula as a whole.
//
//     #include <varnix/value/Measurement_text.h>
//     #include <varnix/value/Radio_formulas.h>
//     #include <iostream>
//     using namespace Varnix::Value;
//
//     std::cout << Return_loss(Reflection_of_vswr(Measurement(1.5, C_Empty))) << '\n'; // 13.979 dB
//     Noise_stage const amplifier = {Measurement(15.0, C_DB), Measurement(1.0, C_DB)};
//     Noise_stage const mixer = {Measurement(-7.0, C_DB), Measurement(7.0, C_DB)};
//     std::cout << Cascade_noise({amplifier, mixer}) << '\n'; // 1.42 dB
//     std::cout << Thermal_noise(Measurement(290.0, C_Kelvin), Measurement(1.0, C_MHz)) << '\n';
//     // 4.0e-15 W
//
// A reflection coefficient is a magnitude from 0 to 1, a plain number. Each formula uses a quantity
// in as many places as it has, and its bounds are those of the formula, not of the steps.
// Exactness, failures and threads are as in <varnix/value/Measurement.h>.

#ifndef VARNIX_VALUE_RADIO_FORMULAS_H
#define VARNIX_VALUE_RADIO_FORMULAS_H

#include <varnix/value/Measurement.h>
#include <varnix/value/measurement_export.h>

#include <cstddef>
#include <initializer_list>

namespace Varnix::Value {

/// @addtogroup measurements
/// @{

// ---- Reflections

/// (s - 1)/(s + 1) of a standing wave ratio s, a plain number of at least 1.
/// @throws MeasurementRefused not_passive for less than 1, also in part; kinds_differ for what is
///         no plain number.
VARNIX_VALUE_MEASUREMENT_EXPORT Measurement Reflection_of_vswr(Measurement const& vswr);

/// 10^(-L/20) of a return loss L in dB, at least 0.
/// @throws MeasurementRefused not_passive for a loss below 0 dB, also in part; not_a_gain.
VARNIX_VALUE_MEASUREMENT_EXPORT Measurement Reflection_of_return_loss(Measurement const& loss);

/// (1 + r)/(1 - r), a plain number; an upper bound of 1 gives inf.
/// @throws MeasurementRefused not_passive for a reflection beyond 0 to 1, also in part, and for a
///         value of 1.
VARNIX_VALUE_MEASUREMENT_EXPORT Measurement Vswr(Measurement const& reflection);

/// -20 log10 r, in dB; a lower bound of 0 gives inf.
/// @throws MeasurementRefused not_passive for a reflection beyond 0 to 1, also in part;
///         no_level_of_zero for a value of 0.
VARNIX_VALUE_MEASUREMENT_EXPORT Measurement Return_loss(Measurement const& reflection);

/// -10 log10 (1 - r^2), in dB: what is lost where r is reflected. @throws as `Vswr`
VARNIX_VALUE_MEASUREMENT_EXPORT Measurement Mismatch_loss(Measurement const& reflection);

/// The gain, in dB, between two ports with these reflections: 0 dB, from -20 log10 (1 + r s) to -20
/// log10 (1 - r s), as the phases are unknown. @throws as `Vswr`, but for values of 1
VARNIX_VALUE_MEASUREMENT_EXPORT Measurement Mismatch_gain(Measurement const& first,
                                                          Measurement const& second);

// ---- Noise

/// A stage of a chain, both in dB.
struct Noise_stage {
    Measurement gain;         ///< C_DB; negative for a loss
    Measurement noise_figure; ///< C_DB; at least 0 dB
};

/// The noise figure of a chain, in dB: F1 + (F2 - 1)/G1 + (F3 - 1)/(G1 G2) ... (Friis 1944). The
/// gain of the last stage does not matter, but must be one.
/// @throws MeasurementRefused nothing_to_sum; not_a_gain; not_passive for a figure below 0 dB, also
///         in part.
VARNIX_VALUE_MEASUREMENT_EXPORT Measurement
Cascade_noise(std::initializer_list<Noise_stage> stages);
VARNIX_VALUE_MEASUREMENT_EXPORT Measurement Cascade_noise(Noise_stage const* stages,
                                                          std::size_t count); ///< as above

/// k T B in watts: the noise of a matched resistor at a temperature, in a bandwidth. k is
/// 1.380649e-23 J/K, exactly (SI, 2019).
/// @throws MeasurementRefused kinds_differ for anything but a temperature and a frequency;
///         temperature_role for a difference in °C or °F; negative_quantity for a temperature below
///         0 K or a bandwidth below 0 Hz, also in part.
VARNIX_VALUE_MEASUREMENT_EXPORT Measurement Thermal_noise(Measurement const& temperature,
                                                          Measurement const& bandwidth);

/// @}

} // namespace Varnix::Value

#endif
