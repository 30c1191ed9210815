// One row a unit: what it measures, and how large it is. The table is as long as the catalogue.

#include "Physical_units.h"

#include <cstdint>
#include <cstdlib>

namespace Varnix::Value::Physics {

namespace {

struct Row {
    Units_list unit;
    Dimension dimension; // the catalogue's
    Kind kind;           // what it measures: a month is not so much time
    Exact_factor size;   // in what the kind is measured in
};

constexpr Kind Of(Base base) {
    Kind kind;
    kind.powers[static_cast<std::size_t>(base)] = 1;
    return kind;
}

constexpr Kind Of(int volts, int amperes) {
    Kind kind;
    kind.powers[static_cast<std::size_t>(Base::voltage)] = static_cast<std::int16_t>(volts);
    kind.powers[static_cast<std::size_t>(Base::current)] = static_cast<std::int16_t>(amperes);
    return kind;
}

// clang-format off

constexpr Row rows[] = {
    // unit         dimension      kind                    size: powers of 2   3   5   7  11 127 463  pi
    {METER,         LENGTH,         Of(Base::length),      {{             0,  0,  0,  0,  0,  0,  0,  0}}},
    {INCH,          LENGTH,         Of(Base::length),      {{            -3,  0, -4,  0,  0,  1,  0,  0}}}, // 0.0254
    {FOOT,          LENGTH,         Of(Base::length),      {{            -1,  1, -4,  0,  0,  1,  0,  0}}}, // 12 in
    {YARD,          LENGTH,         Of(Base::length),      {{            -1,  2, -4,  0,  0,  1,  0,  0}}}, // 3 ft
    {MILE,          LENGTH,         Of(Base::length),      {{             4,  2, -3,  0,  1,  1,  0,  0}}}, // 5280 ft: 1609.344 m, where the catalogue has 1609.34
    {NAUTICAL_MILE, LENGTH,         Of(Base::length),      {{             2,  0,  0,  0,  0,  0,  1,  0}}}, // 1852

    {SECOND,        TIME,           Of(Base::time),        {{             0,  0,  0,  0,  0,  0,  0,  0}}},
    {MINUTE,        TIME,           Of(Base::time),        {{             2,  1,  1,  0,  0,  0,  0,  0}}},
    {HOUR,          TIME,           Of(Base::time),        {{             4,  2,  2,  0,  0,  0,  0,  0}}},
    {DAY,           TIME,           Of(Base::time),        {{             7,  3,  2,  0,  0,  0,  0,  0}}},
    {WEEK,          TIME,           Of(Base::time),        {{             7,  3,  2,  1,  0,  0,  0,  0}}},
    {MONTH,         TIME,           Of(Base::calendar),    {{             0,  0,  0,  0,  0,  0,  0,  0}}}, // 28 to 31 days
    {YEAR,          TIME,           Of(Base::calendar),    {{             2,  1,  0,  0,  0,  0,  0,  0}}}, // 12 months

    {RADIAN,        DIMENSIONLESS,  Of(Base::angle),       {{            -1,  0,  0,  0,  0,  0,  0, -1}}}, // 1 / 2 pi
    {DEGREE,        DIMENSIONLESS,  Of(Base::angle),       {{            -3, -2, -1,  0,  0,  0,  0,  0}}}, // 1 / 360

    {DEGREE_C,      TEMPERATURE,    Of(Base::temperature), {{             0,  0,  0,  0,  0,  0,  0,  0}}},
    {DEGREE_F,      TEMPERATURE,    Of(Base::temperature), {{             0, -2,  1,  0,  0,  0,  0,  0}}}, // 5 / 9
    {KELVIN,        TEMPERATURE,    Of(Base::temperature), {{             0,  0,  0,  0,  0,  0,  0,  0}}},

    {PERCENT,       DIMENSIONLESS,  Kind(),                {{            -2,  0, -2,  0,  0,  0,  0,  0}}},
    {PPM,           DIMENSIONLESS,  Kind(),                {{            -6,  0, -6,  0,  0,  0,  0,  0}}},
    {PPB,           DIMENSIONLESS,  Kind(),                {{            -9,  0, -9,  0,  0,  0,  0,  0}}},
    {SYMBOL,        DIMENSIONLESS,  Of(Base::symbols),     {{             0,  0,  0,  0,  0,  0,  0,  0}}},

    {GRAM,          MASS,           Of(Base::mass),        {{             0,  0,  0,  0,  0,  0,  0,  0}}},
    {VOLT,          VOLTAGE,        Of(1, 0),              {{             0,  0,  0,  0,  0,  0,  0,  0}}},
    {AMP,           CURRENT,        Of(0, 1),              {{             0,  0,  0,  0,  0,  0,  0,  0}}},
    {WATT,          POWER,          Of(1, 1),              {{             0,  0,  0,  0,  0,  0,  0,  0}}},
    {OHM,           RESISTANCE,     Of(1, -1),             {{             0,  0,  0,  0,  0,  0,  0,  0}}},

    {BIT,           DATA_SIZE,      Of(Base::data),        {{             0,  0,  0,  0,  0,  0,  0,  0}}},
    {NYBBLE,        DATA_SIZE,      Of(Base::data),        {{             2,  0,  0,  0,  0,  0,  0,  0}}},
    {BYTE,          DATA_SIZE,      Of(Base::data),        {{             3,  0,  0,  0,  0,  0,  0,  0}}},
    {OCTET,         DATA_SIZE,      Of(Base::data),        {{             3,  0,  0,  0,  0,  0,  0,  0}}},
    {WORD,          DATA_SIZE,      Of(Base::data),        {{             4,  0,  0,  0,  0,  0,  0,  0}}},
    {DWORD,         DATA_SIZE,      Of(Base::data),        {{             5,  0,  0,  0,  0,  0,  0,  0}}},
};

// clang-format on

// By the codes of the units, so that finding a row takes no search.
constexpr std::size_t Row_limit = Value_detail::Unit_code_limit;
static_assert(sizeof rows / sizeof rows[0] == Row_limit - 1, "every unit has its row");

struct Index {
    std::array<std::uint8_t, Row_limit> row_of{};
};

constexpr Index Made_index() {
    Index index;
    std::uint8_t place = 0;
    for (Row const& row : rows) {
        index.row_of[static_cast<std::size_t>(row.unit)] = place++;
    }
    return index;
}

constexpr Index row_index = Made_index();

Row const& Row_of(Units_list unit) {
    return rows[row_index.row_of[static_cast<std::size_t>(unit)]];
}

} // namespace

Dimension Dimension_of(Units_list unit) {
    return Row_of(unit).dimension;
}

namespace {

// kind times another to a power.
void Multiply(Kind& kind, Kind const& other, int power) {
    auto const factor = static_cast<std::int16_t>(power);
    for (std::size_t k = 0; k < kind.powers.size(); ++k) {
        kind.powers[k] = static_cast<std::int16_t>(kind.powers[k] + other.powers[k] * factor);
    }
}

} // namespace

Kind Kind_of(Units const& unit) {
    Kind kind;
    for (Unit_tuple const& tuple : unit.tuples) {
        if (tuple.unit == NO_UNIT) {
            break;
        }
        Multiply(kind, Row_of(tuple.unit).kind, tuple.exponent);
    }
    return kind;
}

Kind Combined(Kind left, int sign, Kind const& right) {
    Multiply(left, right, sign);
    return left;
}

Exact_factor Size_of(Units const& unit) {
    Exact_factor size = unit.si_prefix == NO_PREFIX ? Exact_factor() : Size_of(unit.si_prefix);
    for (Unit_tuple const& tuple : unit.tuples) {
        if (tuple.unit == NO_UNIT) {
            break;
        }
        size = size * Power(Row_of(tuple.unit).size, tuple.exponent);
    }
    return size;
}

bool Is_binary_prefix(SI_units prefix) {
    return prefix >= KIBI && prefix <= YOBI && prefix % 10 == 0;
}

bool Is_known_prefix(SI_units prefix) {
    return Is_binary_prefix(prefix) || (prefix >= -40 && prefix <= 40);
}

Exact_factor Size_of(SI_units prefix) {
    return Is_binary_prefix(prefix) ? Exact_factor{{prefix}} : Powers_of_ten(prefix);
}

} // namespace Varnix::Value::Physics
