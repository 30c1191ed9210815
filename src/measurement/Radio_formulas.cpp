#include <varnix/value/Radio_formulas.h>

#include "Conversions.h"
#include "Level_arithmetic.h"
#include "Refusals.h"
#include "enclosing/Elementary_functions.h"

namespace Varnix::Value {

using namespace Physics;

namespace {

constexpr Enclosed one = {1.0, 0.0, 0.0, 0};

Band Plain_band(Measurement const& x) {
    if (Is_decibel(x.Get_unit())) {
        throw Refusal::gain_is_ambiguous;
    }
    return Converted(x, C_Empty);
}

bool Is_below(Enclosed const& x, Enclosed const& limit) {
    return Is_below_zero(x - limit);
}

// A reflection from 0 to 1.
Band Reflection_band(Measurement const& x) {
    Band const band = Plain_band(x);
    if (Is_below_zero(band.lower) || Is_below(one, band.upper)) {
        throw Refusal::not_passive;
    }
    return band;
}

// 1 - x, of which none is left at 1.
bool Is_one(Enclosed const& x) {
    return !Is_positive(one - x);
}

void Check_below_one(Band const& reflection) {
    if (Is_one(reflection.value)) {
        throw Refusal::not_passive;
    }
}

// A formula of one quantity, with the words of its refusal.
template <typename Formula>
Measurement Worked_out(char const* name, Measurement const& x, Units const& unit, Formula formula) {
    try {
        return Rounded(formula(), unit);
    } catch (Refusal reason) {
        Refuse(reason, name, x);
    }
}

// (s - 1) / (s + 1). Of a large s both are rounded, and the quotient might come out above 1; of a
// small one 1 - 2 / (s + 1) would lose digits. An infinite ratio reflects all.
Enclosed Reflected(Enclosed const& s) {
    if (Is_infinite(s)) {
        return one;
    }
    bool const is_large = s.exponent > 53;
    return is_large ? one - Enclose(2.0) / (s + one) : (s - one) / (s + one);
}

} // namespace

// ---- Reflections

Measurement Reflection_of_vswr(Measurement const& vswr) {
    return Worked_out("take the reflection of a VSWR of", vswr, C_Empty, [&] {
        Band const band = Plain_band(vswr);
        if (Is_below(band.lower, one)) {
            throw Refusal::not_passive;
        }
        return Increasing(band, Reflected);
    });
}

Measurement Reflection_of_return_loss(Measurement const& loss) {
    return Worked_out("take the reflection of a return loss of", loss, C_Empty, [&] {
        Band const band = Gain_band(loss);
        if (Is_below_zero(band.lower)) {
            throw Refusal::not_passive;
        }
        return Scaled_power_of_ten(-band, 20, {});
    });
}

Measurement Vswr(Measurement const& reflection) {
    return Worked_out("take the VSWR of a reflection of", reflection, C_Empty, [&] {
        Band const band = Reflection_band(reflection);
        Check_below_one(band);
        return Increasing(band, [](Enclosed const& r) {
            return Is_one(r) ? Infinite(false) : (one + r) / (one - r);
        });
    });
}

Measurement Return_loss(Measurement const& reflection) {
    return Worked_out("take the return loss of a reflection of", reflection, C_DB,
                      [&] { return -Scaled_logarithm(20, Reflection_band(reflection), {}); });
}

Measurement Mismatch_loss(Measurement const& reflection) {
    return Worked_out("take the mismatch loss of a reflection of", reflection, C_DB, [&] {
        Band const band = Reflection_band(reflection);
        Check_below_one(band);
        return Increasing(band, [](Enclosed const& r) {
            return Is_one(r) ? Infinite(false) : Enclose(-10.0) * Logarithm((one - r) * (one + r));
        });
    });
}

namespace {

Band Mismatch(Measurement const& first, Measurement const& second) {
    Enclosed const product = Reflection_band(first).upper * Reflection_band(second).upper;
    Enclosed const step = Enclose(-20.0);
    Enclosed const upper = Is_one(product) ? Infinite(false) : step * Logarithm(one - product);
    return {step * Logarithm(one + product), Enclosed{}, upper, false};
}

} // namespace

Measurement Mismatch_gain(Measurement const& first, Measurement const& second) {
    try {
        return Rounded(Mismatch(first, second), C_DB);
    } catch (Refusal reason) {
        Refuse(reason, "take the mismatch between reflections of", first, "and", second);
    }
}

// ---- Noise

namespace {

Enclosed Ratio_of_powers(Enclosed const& decibels) {
    return Power_of_ten(decibels / Enclose(10.0));
}

Band Figure_band(Measurement const& x) {
    Band const band = Gain_band(x);
    if (Is_below_zero(band.lower)) {
        throw Refusal::not_passive;
    }
    return band;
}

// The figures go up, the gains down: each end of the whole is at an end of each of them.
Enclosed Cascade_end(Noise_stage const* stages, std::size_t count, Enclosed Band::*figure_end,
                     Enclosed Band::*gain_end) {
    Enclosed sum = Ratio_of_powers(Figure_band(stages[0].noise_figure).*figure_end);
    Enclosed gain_before;
    for (std::size_t k = 1; k < count; ++k) {
        gain_before = gain_before + Gain_band(stages[k - 1].gain).*gain_end;
        Enclosed const figure = Ratio_of_powers(Figure_band(stages[k].noise_figure).*figure_end);
        sum = sum + (figure - one) * Ratio_of_powers(-gain_before);
    }
    return Enclose(10.0) * Logarithm(sum);
}

Measurement Cascade(Noise_stage const* stages, std::size_t count) {
    if (count == 0) {
        throw Refusal::nothing_to_sum;
    }
    Gain_band(stages[count - 1].gain); // which the formula does not use
    return Rounded({Cascade_end(stages, count, &Band::lower, &Band::upper),
                    Cascade_end(stages, count, &Band::value, &Band::value),
                    Cascade_end(stages, count, &Band::upper, &Band::lower), false},
                   C_DB);
}

[[noreturn]] void Refuse_cascade(Refusal reason, Noise_stage const* stages, std::size_t count) {
    for (std::size_t k = 0; k < count; ++k) {
        Measurement const& figure = stages[k].noise_figure;
        if (Form_of(figure) != Form::gain || figure.Get_lower() < 0.0) {
            Refuse(reason, "take the noise of a chain with a noise figure of", figure);
        }
        if (Form_of(stages[k].gain) != Form::gain) {
            Refuse(reason, "take the noise of a chain with a gain of", stages[k].gain);
        }
    }
    Refuse(reason, "take the noise of such a chain");
}

} // namespace

Measurement Cascade_noise(Noise_stage const* stages, std::size_t count) {
    try {
        return Cascade(stages, count);
    } catch (Refusal reason) {
        Refuse_cascade(reason, stages, count);
    }
}

Measurement Cascade_noise(std::initializer_list<Noise_stage> stages) {
    return Cascade_noise(stages.begin(), stages.size());
}

namespace {

Band Kelvins(Measurement const& temperature) {
    Units const unit = temperature.Get_unit();
    if (!Is_temperature(unit)) {
        throw Refusal::kinds_differ;
    }
    if (temperature.Is_difference() && !Is_kelvin(unit)) {
        throw Refusal::temperature_role;
    }
    return Converted(temperature, C_Kelvin);
}

Measurement Noise_power(Measurement const& temperature, Measurement const& bandwidth) {
    Band const kelvins = Kelvins(temperature);
    if (Is_decibel(bandwidth.Get_unit())) {
        throw Refusal::level_as_factor;
    }
    Band const hertz = Converted(bandwidth, C_Hz);
    if (Is_below_zero(kelvins.lower) || Is_below_zero(hertz.lower)) {
        throw Refusal::negative_quantity;
    }
    // Boltzmann's constant, 1.380649e-23 J/K
    Band const power = kelvins * hertz * Single(Enclose(1380649.0));
    return Rounded(power * Powers_of_ten(-29), C_Watts);
}

Way_out Way_out_of_noise(Refusal reason) {
    return reason == Refusal::temperature_role  ? Way_out::take_as_point
           : reason == Refusal::level_as_factor ? Way_out::to_linear // a bandwidth in dB-Hz
                                                : Way_out::none;
}

} // namespace

Measurement Thermal_noise(Measurement const& temperature, Measurement const& bandwidth) {
    try {
        return Noise_power(temperature, bandwidth);
    } catch (Refusal reason) {
        Refuse(reason,
               "take the thermal noise at " + Described(temperature) + " in " +
                   Described(bandwidth),
               Way_out_of_noise(reason));
    }
}

} // namespace Varnix::Value
