// Random descriptors, most of them right ones.

#ifndef VARNIX_VALUE_TESTS_RANDOM_UNITS_H
#define VARNIX_VALUE_TESTS_RANDOM_UNITS_H

#include "Test_support.h"

#include <iterator>
#include <random>

namespace Varnix::Value::Tests {

class Random_units {
  public:
    Units Any() {
        Units unit = {Pick(5) == 0 ? SPL_DB : SPL_NONE, Prefix(), {}};
        int const count = Pick(6);
        for (int k = 0; k < count; ++k) {
            unit.tuples[k] = {Pick(40) == 0 ? unknown_unit : static_cast<Units_list>(Pick(unknown_unit)), Exponent()};
        }
        return Pick(3) == 0 ? unit : Arranged_or_same(unit);
    }

    // In canonical order.
    Units Canonical() {
        for (;;) {
            Units const unit = Any();
            try {
                return Quantity(0.0, unit, 0.0, 0.0).Get_unit();
            } catch (Value_exception const&) { // the next one, then
            }
        }
    }

    // The same, without the decibel marker.
    Units Linear() {
        Units unit = Canonical();
        unit.spl_conv = SPL_NONE;
        return unit;
    }

    // Of the same dimensions as `unit`, mostly.
    Units Like(Units unit) {
        unit.si_prefix = Prefix();
        unit.spl_conv = Pick(5) == 0 ? SPL_DB : SPL_NONE;
        for (Unit_tuple& tuple : unit.tuples) {
            auto const other = static_cast<Units_list>(Pick(Value_detail::Unit_code_limit - 1) + 1);
            bool const known = tuple.unit != NO_UNIT && tuple.unit != unknown_unit;
            if (known && (Units_library::Get_dimension(other) == Units_library::Get_dimension(tuple.unit) || Pick(60) == 0)) {
                tuple.unit = other;
            }
            tuple.exponent = Pick(12) == 0 ? -tuple.exponent : tuple.exponent;
        }
        return unit;
    }

  private:
    int Pick(int count) { return static_cast<int>(generator() % static_cast<unsigned>(count)); }

    SI_units Prefix() {
        constexpr int prefixes[] = {0, 0, 0, -12, -3, 3, 6, 24, 10, 20, 80, 5, -30, 100};
        return static_cast<SI_units>(prefixes[Pick(std::size(prefixes))]);
    }

    std::int32_t Exponent() {
        constexpr int exponents[] = {1, 1, 1, -1, -1, 2, -2, 3, 0};
        return exponents[Pick(std::size(exponents))];
    }

    static Units Arranged_or_same(Units const& unit) {
        try {
            return Units_library::Arrange_tuple(unit);
        } catch (Value_exception const&) {
            return unit;
        }
    }

    std::mt19937 generator{20261122};
};

} // namespace Varnix::Value::Tests

#endif
