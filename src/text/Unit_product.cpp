#include "Unit_product.h"

#include "Characters.h"
#include "Powers.h"
#include "Spellings.h"

#include <varnix/value/Text_formatting.h>

#include <limits>

namespace Varnix::Value {

namespace {

std::string Symbol(Units_list unit) {
    return Unit_text(unit, STR_SYMBOL);
}

// An exponent of ten that is the code of a power of two: 10, 20, ... 80.
bool Is_binary(std::int64_t code) {
    return code == static_cast<int>(code) && Catalogue::Is_binary(static_cast<int>(code));
}

bool Holds_power_of_ten(std::int64_t exponent) {
    return exponent >= -Largest_scale && exponent <= Largest_scale && !Is_binary(exponent);
}

} // namespace

// ---- Multiplying

void Unit_product::Multiply(Unit_product const& other, std::int64_t power) {
    for (Factor factor : other) {
        factor.power *= power;
        Multiply(factor);
    }
    cancelling = cancelling ? cancelling : other.cancelling;
    if (other.tens != 0 || other.twos != 0) {
        tens += other.tens * power;
        twos += other.twos * power;
        prefix_position = other.prefix_position;
    }
}

void Unit_product::Multiply_by_power_of_ten(std::int64_t power, std::size_t position) {
    tens += power;
    prefix_position = position;
}

bool Unit_product::Is_in_range() const {
    auto const fits = [](std::int64_t power) {
        return power >= -Largest_power && power <= Largest_power;
    };
    return fits(tens) && fits(twos) &&
           std::all_of(begin(), end(), [&](Factor const& own) { return fits(own.power); });
}

bool Unit_product::Has_above(Units_list unit) const {
    return std::any_of(begin(), end(),
                       [=](Factor const& own) { return own.unit == unit && own.power > 0; });
}

// ---- What has to be refused

namespace {

// A ratio of 10^exponent in per cent, parts per million or parts per billion; or empty.
std::string Ratio_text(std::int64_t exponent) {
    struct Ratio {
        std::int64_t scale;
        char const* symbol;
    };
    for (Ratio const ratio : {Ratio{-2, "%"}, Ratio{-6, "ppm"}, Ratio{-9, "ppb"}}) {
        if (exponent >= ratio.scale && exponent <= 0) {
            return '1' + std::string(static_cast<std::size_t>(exponent - ratio.scale), '0') + ' ' +
                   ratio.symbol;
        }
    }
    return std::string();
}

// The unit as it is written with its prefix, of whatever power of ten it is.
std::string Scaled_text(Units unit) {
    bool const named = !Prefix_text(unit.si_prefix, STR_NAME).empty();
    if (named || unit.si_prefix == NO_PREFIX) {
        return Format_unit(unit, STR_SYMBOL);
    }
    std::string const scale = "10^" + std::to_string(unit.si_prefix);
    unit.si_prefix = NO_PREFIX;
    return '(' + scale + ' ' + Format_unit(unit, STR_SYMBOL) + ')';
}

} // namespace

// The units without what cancels, if they are a unit.
std::string Unit_product::Remaining_text() const {
    Unit_product remaining;
    for (Factor const& factor : *this) {
        if (factor.power != 0) {
            remaining.Multiply(factor);
        }
    }
    if (remaining.count == 0) {
        return twos != 0 ? std::string() : Ratio_text(tens);
    }
    remaining.tens = tens;
    remaining.twos = twos;
    auto const unit = remaining.Descriptor(SPL_NONE);
    std::string text = unit ? Scaled_text(*unit) : std::string();
    return Try_parse_unit(text) ? text : std::string();
}

Text_fault Unit_product::Cancelling_fault() const {
    std::string const text = Remaining_text();
    return {cancelling->position,
            Quoted(Symbol(cancelling->unit)) + " stands above and below, and would cancel" +
                (text.empty() ? "" : ": write " + text),
            {}};
}

// "MW/cm^2": 10^10 would be the code of kibi, and 10 GW/m^2 says the same.
Text_fault Unit_product::Scale_fault(Units const& unit) const {
    std::string const scale = (tens == 0 ? "" : "10^" + std::to_string(tens)) +
                              (tens != 0 && twos != 0 ? " times " : "") +
                              (twos == 0 ? "" : "2^" + std::to_string(twos));
    std::string number;
    Units written = unit;
    if (twos == 0 && Is_binary(tens) && tens <= Largest_scale) {
        written.si_prefix = static_cast<SI_units>(tens - (tens == 20 ? 2 : 1));
        number = tens == 20 ? "100" : "10";
    } else if (twos > 0 && twos <= YOBI - 20 && Holds_power_of_ten(tens)) {
        written.si_prefix = static_cast<SI_units>(tens);
        number = std::to_string(std::uint64_t{1} << static_cast<unsigned>(twos));
    }
    // A level is not multiplied by a number.
    bool const says_what = !number.empty() && unit.spl_conv != SPL_DB;
    bool const too_large = twos == 0 && (tens < -Largest_scale || tens > Largest_scale);
    return {prefix_position,
            "the prefixes make " + scale + " together, " +
                (too_large ? "beyond 10^-40 to 10^40" : "which no unit holds") +
                (says_what ? ": write " + number + ' ' + Scaled_text(written) : ""),
            {}};
}

// ---- The descriptor

namespace {

// The factors of a product by ascending dimension, one of each.
struct In_canonical_order {
    std::array<Factor const*, Value_detail::Tuple_count> factors;
    std::size_t count = 0;

    // The place of a dimension: that of a factor with it, or where one has to be put.
    std::size_t Place_of(Dimension dimension) const {
        std::size_t place = 0;
        while (place < count && Catalogue::Dimension_of(factors[place]->unit) < dimension) {
            ++place;
        }
        return place;
    }
    bool Has(Dimension dimension, std::size_t place) const {
        return place < count && Catalogue::Dimension_of(factors[place]->unit) == dimension;
    }
    void Insert(Factor const& factor, std::size_t place) {
        for (std::size_t k = count++; k > place; --k) {
            factors[k] = factors[k - 1];
        }
        factors[place] = &factor;
    }
};

} // namespace

std::optional<Text_fault> Unit_product::Place_units(Units& unit) const {
    In_canonical_order order;
    for (Factor const& factor : *this) {
        Dimension const dimension = Catalogue::Dimension_of(factor.unit);
        std::size_t const place = order.Place_of(dimension);
        if (order.Has(dimension, place)) {
            return Text_fault{factor.position,
                              Quoted(Symbol(order.factors[place]->unit)) + " and " +
                                  Quoted(Symbol(factor.unit)) +
                                  " are of one dimension, of which a unit holds one",
                              {}};
        }
        if (factor.power < std::numeric_limits<std::int32_t>::min() ||
            factor.power > std::numeric_limits<std::int32_t>::max()) {
            return Text_fault{factor.position, "the power is out of range", {}};
        }
        if (order.count == Value_detail::Tuple_count) {
            return Text_fault{
                factor.position, "a unit has at most five units with their powers", {}};
        }
        order.Insert(factor, place);
    }
    for (std::size_t k = 0; k < order.count; ++k) {
        Factor const& factor = *order.factors[k];
        unit.tuples[k] = {factor.unit, static_cast<std::int32_t>(factor.power)};
    }
    return std::nullopt;
}

bool Unit_product::Holds_scale() const {
    return twos == 0 ? Holds_power_of_ten(tens) : tens == 0 && Is_binary(twos);
}

Parse_result<Units> Unit_product::Descriptor(Special_conversion marker) const {
    if (cancelling) {
        return Cancelling_fault();
    }
    Units unit{};
    unit.spl_conv = marker;
    if (std::optional<Text_fault> fault = Place_units(unit)) {
        return std::move(*fault);
    }
    if (!Holds_scale()) {
        return Scale_fault(unit);
    }
    unit.si_prefix = static_cast<SI_units>(tens + twos); // one of the two is zero
    return unit;
}

} // namespace Varnix::Value
