// The quantities that units measure: their names, dimensions and kinds.

#ifndef VARNIX_VALUE_CATALOGUE_QUANTITIES_H
#define VARNIX_VALUE_CATALOGUE_QUANTITIES_H

#include "catalogue/Kinds.h"

#include <varnix/value/Engineering_units.h>

#include <cstdint>
#include <iterator>

namespace Varnix::Value::Catalogue {

// A dimension of the core may hold several: angles, ratios and symbols; times and months.
enum class Quantity : std::uint8_t {
    RATIO,
    ANGLE,
    SYMBOLS,
    DATA_SIZE,
    VOLTAGE,
    POWER,
    CURRENT,
    RESISTANCE,
    MASS,
    LENGTH,
    TEMPERATURE,
    TIME,
    CALENDAR_TIME,
#define VARNIX_VALUE_QUANTITY(code, constant, ...) constant,
#include <varnix/value/Engineering_units.def>
};

struct Quantity_row {
    Dimension dimension;
    char const* name;
    Kind kind; // in neither view: masses and ratios are their own
};

// volt^v ampere^a metre^m second^s radian^r candela^c mole^n symbol^y decibel^d.
constexpr Kind Of_powers(int v, int a, int m, int s, int r, int c, int n, int y, int d) {
    Kind kind;
    kind.powers = {static_cast<std::int16_t>(v), static_cast<std::int16_t>(a),
                   static_cast<std::int16_t>(m), static_cast<std::int16_t>(s)};
    kind[Base::angle] = static_cast<std::int16_t>(r);
    kind[Base::luminous_intensity] = static_cast<std::int16_t>(c);
    kind[Base::amount] = static_cast<std::int16_t>(n);
    kind[Base::symbols] = static_cast<std::int16_t>(y);
    kind[Base::gain] = static_cast<std::int16_t>(d);
    return kind;
}

constexpr Kind Of_powers(int v, int a) {
    return Of_powers(v, a, 0, 0, 0, 0, 0, 0, 0);
}

// clang-format off

// By the codes of the quantities.
inline constexpr Quantity_row quantity_rows[] = {
    {DIMENSIONLESS, "ratio",       Of(Base::ratio)},
    {DIMENSIONLESS, "angle",       Of(Base::angle)},
    {DIMENSIONLESS, "ratio",       Of(Base::symbols)}, // the core counts symbols like per cent
    {DATA_SIZE,     "data size",   Of(Base::data)},
    {VOLTAGE,       "voltage",     Of_powers(1, 0)},
    {POWER,         "power",       Of_powers(1, 1)},
    {CURRENT,       "current",     Of_powers(0, 1)},
    {RESISTANCE,    "resistance",  Of_powers(1, -1)},
    {MASS,          "mass",        Of(Base::mass)},
    {LENGTH,        "length",      Of(Base::length)},
    {TEMPERATURE,   "temperature", Of(Base::temperature)},
    {TIME,          "time",        Of(Base::time)},
    {TIME,          "time",        Of(Base::calendar)},
#define VARNIX_VALUE_QUANTITY(code, constant, name, ...) {constant, name, Of_powers(__VA_ARGS__)},
#include <varnix/value/Engineering_units.def>
};

// clang-format on

constexpr Quantity_row const& Row_of(Quantity quantity) {
    return quantity_rows[static_cast<std::size_t>(quantity)];
}

// ---- Dimensions, counted without gaps: those of the core first, in canonical order

constexpr int Dimension_count =
    Value_detail::Dimension_limit +
    static_cast<int>(std::size(quantity_rows) - static_cast<std::size_t>(Quantity::FORCE));

// The place of a dimension among all, in canonical order.
constexpr std::size_t Place_of(Dimension dimension) {
    int const code = dimension;
    return static_cast<std::size_t>(
        code < Value_detail::Dimension_limit ? code : code - FORCE + Value_detail::Dimension_limit);
}

} // namespace Varnix::Value::Catalogue

#endif
