// Gains, sums of powers and densities, as functions.

#include <varnix/value/Levels.h>

#include "Conversions.h"
#include "Level_arithmetic.h"
#include "Refusals.h"
#include "enclosing/Elementary_functions.h"

#include <algorithm>
#include <optional>

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
        return Rounded(Scaled_power_of_ten(Gain_band(gain), step, {}), C_Empty);
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
        return Rounded(Scaled_logarithm(step, numbers.numbers, numbers.Scale() * Size_of(unit)),
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

// Beyond so many decibels above its reference a sum gets another one, so that powers do not
// overflow.
constexpr double far_above = 1e5;

// A sum of powers over the power of a reference, which is the first level.
class Summed_powers {
  public:
    void Add(Enclosed const& level) {
        if (Is_infinite(level)) {
            is_infinite = is_infinite || Is_positive(level); // -inf has no power
            return;
        }
        if (is_empty || Round_to_nearest(level - reference) > far_above) {
            sum = sum * Power_of(reference, level);
            reference = level;
            is_empty = false;
        }
        sum = sum + Power_of(level, reference);
    }

    // The level of one of so many equal shares.
    Enclosed Level(double count) const {
        return is_infinite || is_empty ? Infinite(!is_infinite)
                                       : Level_of(sum / Enclose(count), reference);
    }

  private:
    Enclosed reference;
    Enclosed sum;
    bool is_empty = true; // but for levels of -inf
    bool is_infinite = false;
};

// The powers of levels, in the unit of the first.
class Levels_sum {
  public:
    void Add(Measurement const& level) {
        Measurement const& known = first ? *first : level;
        try {
            Add(Level_in(level, known.Get_unit()));
        } catch (Refusal reason) {
            if (!first) {
                Refuse(reason, "add the powers of", level);
            }
            Refuse(reason, "add the powers of", known, "and", level);
        }
        first = known;
        ++count;
    }

    std::uint64_t Get_count() const { return count; }

    // The level of one of so many equal shares.
    Measurement Level(double share) const {
        if (!first) {
            Refuse(Refusal::nothing_to_sum, "add the powers of no levels");
        }
        try {
            Enclosed const middle = value.Level(share);
            return Rounded({are_single ? middle : lower.Level(share), middle,
                            are_single ? middle : upper.Level(share), false},
                           first->Get_unit());
        } catch (Refusal reason) {
            Refuse(reason, "add the powers of levels like", *first);
        }
    }

    Measurement Mean_level() const { return Level(static_cast<double>(count)); }

  private:
    void Add(Band const& level) {
        if (are_single && !level.is_single) {
            lower = upper = value;
            are_single = false;
        }
        if (!are_single) {
            lower.Add(level.lower);
            upper.Add(level.upper);
        }
        value.Add(level.value);
    }

    std::optional<Measurement> first;
    std::uint64_t count = 0;
    bool are_single = true; // without bounds, so that `value` serves for all three
    Summed_powers lower;
    Summed_powers value;
    Summed_powers upper;
};

} // namespace

struct Power_accumulator::Powers {
    Levels_sum sum;
};

Power_accumulator::Power_accumulator() : powers(std::make_unique<Powers>()) {}
Power_accumulator::Power_accumulator(Power_accumulator&& other) noexcept = default;
Power_accumulator& Power_accumulator::operator=(Power_accumulator&& other) noexcept = default;
Power_accumulator::~Power_accumulator() = default;

void Power_accumulator::Add(Measurement const& level) {
    powers->sum.Add(level);
}

std::uint64_t Power_accumulator::Get_count() const noexcept {
    return powers->sum.Get_count();
}

Measurement Power_accumulator::Sum() const {
    return powers->sum.Level(1.0);
}

Measurement Power_accumulator::Mean() const {
    return powers->sum.Mean_level();
}

namespace {

Levels_sum Summed(Measurement const* levels, std::size_t count) {
    Levels_sum sum;
    std::for_each(levels, levels + count, [&](Measurement const& level) { sum.Add(level); });
    return sum;
}

} // namespace

Measurement Power_sum(Measurement const* levels, std::size_t count) {
    return Summed(levels, count).Level(1.0);
}

Measurement Power_sum(std::initializer_list<Measurement> levels) {
    return Power_sum(levels.begin(), levels.size());
}

Measurement Power_mean(Measurement const* levels, std::size_t count) {
    return Summed(levels, count).Mean_level();
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
