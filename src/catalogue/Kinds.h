// The kinds of quantities: powers of what quantities are measured in.
//
// There are two views of a kind. Physics has a mass as V A s^3/m^2, so that a watt is a kg m^2/s^3, and
// takes ratios for plain numbers. The core tells units apart by their dimensions: mass is one, months are
// times, and angles and symbols are ratios.

#ifndef VARNIX_VALUE_CATALOGUE_KINDS_H
#define VARNIX_VALUE_CATALOGUE_KINDS_H

#include <array>
#include <cstddef>
#include <cstdint>

namespace Varnix::Value::Catalogue {

// What quantities are measured in.
enum class Base : std::size_t {
    voltage,            // V
    current,            // A
    length,             // m
    time,               // s
    temperature,        // K, as a difference
    calendar,           // months, which have no fixed length in days
    data,               // bits
    angle,              // rad
    luminous_intensity, // cd
    amount,             // mol
    symbols,            // sym
    gain,               // dB, of gains in nepers
    mass,               // kg; in the view of physics it follows from the others
    ratio,              // 1; likewise
};

// There is room for sixteen powers, so that compilers take eight of them in one step.
template <typename Power>
struct Powers {
    std::array<Power, 16> powers{};

    constexpr Power& operator[](Base base) { return powers[static_cast<std::size_t>(base)]; }
    constexpr auto operator[](Base base) const { return +powers[static_cast<std::size_t>(base)]; }

    friend bool operator==(Powers const& first, Powers const& second) {
        return first.powers == second.powers;
    }
    friend bool operator!=(Powers const& first, Powers const& second) { return !(first == second); }
};

// Of units with powers up to 64.
using Kind = Powers<std::int16_t>;

// Of units with any powers.
using Wide_kind = Powers<std::int64_t>;

// kind times another to a power.
template <typename Power>
constexpr void Multiply(Powers<Power>& kind, Kind const& other, std::int64_t power) {
    auto const factor = static_cast<Power>(power);
    for (std::size_t k = 0; k < kind.powers.size(); ++k) {
        kind.powers[k] = static_cast<Power>(kind.powers[k] + other.powers[k] * factor);
    }
}

constexpr Kind Of(Base base) {
    Kind kind;
    kind[base] = 1;
    return kind;
}

template <typename Power>
constexpr void Move(Powers<Power>& kind, Base from, Base to) {
    kind[to] = static_cast<Power>(kind[to] + kind[from]);
    kind[from] = 0;
}

template <typename Power>
constexpr Powers<Power> As_physics_has_it(Powers<Power> kind) {
    Kind mass = Of(Base::voltage);
    mass[Base::current] = 1;
    mass[Base::time] = 3;
    mass[Base::length] = -2;
    Power const power = kind[Base::mass];
    kind[Base::mass] = 0;
    kind[Base::ratio] = 0;
    Multiply(kind, mass, power);
    return kind;
}

template <typename Power>
constexpr Powers<Power> As_the_core_has_it(Powers<Power> kind) {
    Move(kind, Base::calendar, Base::time);
    Move(kind, Base::angle, Base::ratio);
    Move(kind, Base::symbols, Base::ratio);
    return kind;
}

} // namespace Varnix::Value::Catalogue

#endif
