// What levels and gains do in sums and products.

#ifndef VARNIX_VALUE_MEASUREMENT_LEVEL_ARITHMETIC_H
#define VARNIX_VALUE_MEASUREMENT_LEVEL_ARITHMETIC_H

#include "Measured_bands.h"

#include <varnix/value/Measurement.h>

namespace Varnix::Value::Physics {

// x + y or x - y of two levels or gains. @throws Refusal
Measurement Decibel_sum(Measurement const& x, int sign, Measurement const& y);

// The decibels of a gain, which may be in nepers. @throws Refusal::not_a_gain
Band Gain_band(Measurement const& x);

// x with the gain, or without it. @throws Refusal
Measurement Amplified(Measurement const& x, int sign, Measurement const& gain);

// Whether it is linear, and per time.
bool Is_frequency(Measurement const& x);

// A level per hertz over a bandwidth, or for sign -1 a level spread over it. @throws Refusal
Measurement Widened(Measurement const& x, int sign, Measurement const& bandwidth);

} // namespace Varnix::Value::Physics

#endif
