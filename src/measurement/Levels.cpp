// Gains, sums of powers and densities, as functions.

#include <varnix/value/Levels.h>

#include "Conversions.h"
#include "Level_arithmetic.h"
#include "Refusals.h"

namespace Varnix::Value {

using namespace Physics;

// ---- Gains

Measurement Amplify(Measurement const& x, Measurement const& gain) {
    try {
        return Amplified(x, 1, gain);
    } catch (Refusal reason) {
        Refuse(reason, "amplify", x, "by", gain);
    }
}

namespace {

Measurement Ratio_of(Measurement const& gain, int step) {
    try {
        if (Form_of(gain) != Form::gain) {
            throw Refusal::not_a_gain;
        }
        return Rounded(Scaled_power_of_ten(Band_of(gain), step, {}), C_Empty);
    } catch (Refusal reason) {
        Refuse(reason, "make a ratio of", gain);
    }
}

Measurement Gain_of(Measurement const& ratio, int step) {
    try {
        Units const unit = ratio.Get_unit();
        if (Is_decibel(unit)) {
            throw Refusal::level_as_factor;
        }
        if (Kind_of(unit) != Kind()) {
            throw Refusal::kinds_differ;
        }
        Scaled_band const numbers = Scaled_numbers_of(ratio);
        return Rounded(Scaled_logarithm(step, numbers.numbers, numbers.scale * Size_of(unit)),
                       C_DB);
    } catch (Refusal reason) {
        Refuse(reason, "make a gain of " + Described(ratio), Way_out::none);
    }
}

} // namespace

Measurement Power_ratio(Measurement const& gain) {
    return Ratio_of(gain, 10);
}

Measurement Field_ratio(Measurement const& gain) {
    return Ratio_of(gain, 20);
}

Measurement Gain_of_powers(Measurement const& ratio) {
    return Gain_of(ratio, 10);
}

Measurement Gain_of_fields(Measurement const& ratio) {
    return Gain_of(ratio, 20);
}

// ---- Sums of powers

namespace {

Band Level_in(Measurement const& x, Units const& unit) {
    if (Form_of(x) != Form::level) {
        throw Refusal::not_a_level;
    }
    return Converted(x, unit);
}

Enclosed Power_of(Enclosed const& level, Enclosed const& reference) {
    return Power_of_ten((level - reference) / Enclose(10.0));
}

Enclosed Level_of(Enclosed const& power, Enclosed const& reference) {
    return reference + Enclose(10.0) * Logarithm(power);
}

// The level of the sum of powers, over the greatest level, so that the powers do not overflow.
Enclosed Level_of_sum(Measurement const* levels, std::size_t count, Units const& unit, double share,
                      Enclosed Band::*end) {
    Enclosed greatest = Infinite(true);
    for (std::size_t k = 0; k < count; ++k) {
        Enclosed const level = Level_in(levels[k], unit).*end;
        greatest = Is_infinite(greatest) || Is_positive(level - greatest) ? level : greatest;
        if (Is_infinite(level) && Is_positive(level)) {
            return level;
        }
    }
    if (Is_infinite(greatest)) {
        return greatest; // no power at all
    }
    Enclosed sum;
    for (std::size_t k = 0; k < count; ++k) {
        sum = sum + Power_of(Level_in(levels[k], unit).*end, greatest);
    }
    return Level_of(sum / Enclose(share), greatest);
}

Measurement Sum_of_powers(Measurement const* levels, std::size_t count, double share) {
    if (count == 0) {
        throw Refusal::nothing_to_sum;
    }
    Units const unit = levels[0].Get_unit();
    return Rounded({Level_of_sum(levels, count, unit, share, &Band::lower),
                    Level_of_sum(levels, count, unit, share, &Band::value),
                    Level_of_sum(levels, count, unit, share, &Band::upper), false},
                   unit);
}

[[noreturn]] void Refuse_sum(Refusal reason, Measurement const* levels, std::size_t count) {
    if (count == 0) {
        Refuse(reason, "add the powers of no levels");
    }
    for (std::size_t k = 0; k < count; ++k) {
        bool const differs = Kind_of(levels[k].Get_unit()) != Kind_of(levels[0].Get_unit());
        if (differs || Form_of(levels[k]) != Form::level) {
            Refuse(reason, "add the powers of", levels[0], "and", levels[k]);
        }
    }
    Refuse(reason, "add the powers of levels like", levels[0]);
}

} // namespace

Measurement Power_sum(Measurement const* levels, std::size_t count) {
    try {
        return Sum_of_powers(levels, count, 1.0);
    } catch (Refusal reason) {
        Refuse_sum(reason, levels, count);
    }
}

Measurement Power_sum(std::initializer_list<Measurement> levels) {
    return Power_sum(levels.begin(), levels.size());
}

Measurement Power_mean(Measurement const* levels, std::size_t count) {
    try {
        return Sum_of_powers(levels, count, static_cast<double>(count));
    } catch (Refusal reason) {
        Refuse_sum(reason, levels, count);
    }
}

Measurement Power_mean(std::initializer_list<Measurement> levels) {
    return Power_mean(levels.begin(), levels.size());
}

namespace {

// The level of what remains of a power without a lesser one: x + 10 log10 (1 - 10^((y - x)/10)).
Enclosed Level_of_rest(Enclosed const& sum, Enclosed const& part, bool is_lower_end) {
    if (Is_infinite(sum) || Is_infinite(part)) {
        return sum;
    }
    Enclosed const rest = -Power_of_ten_less_one((part - sum) / Enclose(10.0));
    if (rest.error < 0x1p-40) {
        return Level_of(rest, sum);
    }
    // The levels differ by no more than the ratio of their references is uncertain by.
    return is_lower_end ? Infinite(true) : Level_of(Enclose(Round_up(rest)), sum);
}

} // namespace

Measurement Power_difference(Measurement const& sum, Measurement const& part) {
    try {
        Units const unit = sum.Get_unit();
        Band const whole = Level_in(sum, unit);
        Band const less = Level_in(part, unit);
        if (!Is_negative(less.upper - whole.lower)) {
            throw Refusal::no_level_of_zero;
        }
        return Rounded({Level_of_rest(whole.lower, less.upper, true),
                        Level_of_rest(whole.value, less.value, false),
                        Level_of_rest(whole.upper, less.lower, false), false},
                       unit);
    } catch (Refusal reason) {
        Refuse(reason, "take the power of", part, "from that of", sum);
    }
}

// ---- Densities

Measurement Total_power(Measurement const& density, Measurement const& bandwidth) {
    try {
        return Widened(density, 1, bandwidth);
    } catch (Refusal reason) {
        Refuse(reason, "take the total power of", density, "in", bandwidth);
    }
}

Measurement Density(Measurement const& total, Measurement const& bandwidth) {
    try {
        return Widened(total, -1, bandwidth);
    } catch (Refusal reason) {
        Refuse(reason, "spread", total, "over", bandwidth);
    }
}

} // namespace Varnix::Value
