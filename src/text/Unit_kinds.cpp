// The kinds of units: the powers of their dimensions.
//
// Power and resistance are written as products of voltage and current, so that a power is the same
// in watts, in volts times amperes and in volts squared per ohm. The text undoes this where the
// result is a power or a resistance again.

#include <varnix/value/Unit_kinds.h>

#include <varnix/value/Units_library.h>

#include <array>
#include <cstdint>

namespace Varnix::Value {

namespace {

// The power of each dimension. Exponents are 32-bit, so that sums of them fit.
struct Kind {
    std::array<std::int64_t, Value_detail::Dimension_limit> powers{};

    std::int64_t& operator[](Dimension dimension) {
        return powers[static_cast<std::size_t>(dimension)];
    }
};

Kind Kind_of(Units const& unit) {
    Kind kind;
    for (Unit_tuple const& tuple : unit.tuples) {
        Dimension const dimension = Units_library::Get_dimension(tuple.unit);
        if (dimension != NO_DIMENSION) {
            kind[dimension] += tuple.exponent;
        }
    }
    kind[VOLTAGE] += kind[POWER] + kind[RESISTANCE];
    kind[CURRENT] += kind[POWER] - kind[RESISTANCE];
    kind[POWER] = 0;
    kind[RESISTANCE] = 0;
    return kind;
}

bool Is_plain(Kind const& kind) {
    return kind.powers == Kind().powers;
}

// Voltage and current of equal or opposite powers are powers or resistances.
Kind With_electrical_names(Kind kind) {
    if (kind[VOLTAGE] == kind[CURRENT]) {
        kind[POWER] = kind[VOLTAGE];
    } else if (kind[VOLTAGE] == -kind[CURRENT]) {
        kind[RESISTANCE] = kind[VOLTAGE];
    } else {
        return kind;
    }
    kind[VOLTAGE] = 0;
    kind[CURRENT] = 0;
    return kind;
}

bool Has_angle(Units const& unit) {
    for (Unit_tuple const& tuple : unit.tuples) {
        if (tuple.unit == RADIAN || tuple.unit == DEGREE) {
            return true;
        }
    }
    return false;
}

// By the codes of the dimensions.
constexpr std::array<char const*, Value_detail::Dimension_limit> dimension_names = {
    "ratio",      "data size", "voltage", "power",       "current",
    "resistance", "mass",      "length",  "temperature", "time"};
static_assert(dimension_names.back() != nullptr, "every dimension has a name");

char const* Name_of(Dimension dimension, Units const& unit) {
    return dimension == DIMENSIONLESS && Has_angle(unit)
               ? "angle"
               : dimension_names[static_cast<std::size_t>(dimension)];
}

// The dimensions with a power of the sign `sign`, as a product.
std::string Product_text(Kind& kind, int sign, Units const& unit, int& count) {
    std::string text;
    for (int code = DIMENSIONLESS; code < Value_detail::Dimension_limit; ++code) {
        auto const dimension = static_cast<Dimension>(code);
        std::int64_t const power = sign * kind[dimension];
        if (power > 0) {
            text += (count == 0 ? "" : "*") + std::string(Name_of(dimension, unit));
            text += power == 1 ? "" : '^' + std::to_string(power);
            ++count;
        }
    }
    return text;
}

} // namespace

bool Same_kind(Units const& first, Units const& second) {
    return Kind_of(first).powers == Kind_of(second).powers;
}

std::string Kind_name(Units const& unit) {
    Kind kind = With_electrical_names(Kind_of(unit));
    if (Is_plain(kind)) {
        return unit.spl_conv == SPL_DB ? "plain ratio" : "plain number";
    }
    int above = 0;
    int below = 0;
    std::string numerator = Product_text(kind, 1, unit, above);
    std::string const denominator = Product_text(kind, -1, unit, below);
    if (below == 0) {
        return numerator;
    }
    return (above == 0 ? "1" : numerator) + '/' +
           (below == 1 ? denominator : '(' + denominator + ')');
}

} // namespace Varnix::Value
