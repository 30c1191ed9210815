// What the fuzzers share: units and numbers made of any bytes, and the checks that every operation
// is put to. A check that fails says which and ends the process, which the fuzzer reports.

#ifndef VARNIX_VALUE_TESTS_FUZZ_INPUT_H
#define VARNIX_VALUE_TESTS_FUZZ_INPUT_H

#include "Named_constants.h"

#include <varnix/value/Value_converter.h>
#include <varnix/value/Value_object.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <stdexcept>
#include <typeinfo>

namespace Varnix::Value::Tests {

using Quantity = Value_object<double>;

// ---- Input

class Input {
  public:
    Input(std::uint8_t const* data, std::size_t size) : next(data), left(size) {}

    bool Is_used_up() const { return left == 0; }

    // The next bytes as they are; zeros after the last.
    template <typename Record>
    Record Take() {
        Record record = {};
        std::size_t const count = std::min(left, sizeof record);
        std::memcpy(&record, next, count);
        next += count;
        left -= count;
        return record;
    }

    template <typename Item, std::size_t count>
    Item const& Take_from(Item const (&items)[count]) {
        return items[Take<std::uint8_t>() % count];
    }

    // A named unit, one of small codes and powers, one with codes beyond the core, or any 48 bytes.
    Units Take_unit() {
        std::size_t const kind = Take<std::uint8_t>();
        if (kind < std::size(named_constants)) {
            return *named_constants[kind].unit;
        }
        std::size_t const count = kind % (Value_detail::Tuple_count + 1);
        return kind < 240 ? Take_small_unit(count, false) : kind < 248 ? Take<Units>() : Take_small_unit(count, true);
    }

    double Take_number() {
        using Limits = std::numeric_limits<double>;
        constexpr double remarkable[] = {0.0, -0.0, 1.0, -40.0, 273.15, 1e-3, Limits::max(), Limits::infinity(), Limits::quiet_NaN()};
        std::size_t const kind = Take<std::uint8_t>();
        if (kind < std::size(remarkable)) {
            return remarkable[kind];
        }
        return kind < 128 ? Take<std::int16_t>() / 16.0 : Take<double>();
    }

    Quantity Take_quantity() {
        // One after the other: the order in which arguments are evaluated differs between compilers.
        double const value = Take_number();
        Units const unit = Take_unit();
        double const minus_err = Take_number();
        double const plus_err = Take_number();
        Quantity quantity;
        quantity.Set(value, unit, minus_err, plus_err);
        return quantity;
    }

  private:
    Units Take_small_unit(std::size_t count, bool beyond_core) {
        auto const marker = static_cast<Special_conversion>(Take<std::uint8_t>() % 3);
        Units unit = {marker, static_cast<SI_units>(Take_small_number()), {}};
        for (std::size_t k = 0; k < count; ++k) {
            int const taken = Take<std::uint8_t>();
            int const code = beyond_core && taken >= 128 ? 1001 + taken - 128 : taken % (Value_detail::Unit_code_limit + 1);
            unit.tuples[k] = {static_cast<Units_list>(code), Take_small_number()};
        }
        return unit;
    }

    // The ends of eight bits stand for those of all.
    std::int32_t Take_small_number() {
        using Limits = std::numeric_limits<std::int32_t>;
        auto const taken = Take<std::int8_t>();
        return taken == -128 ? Limits::min() : taken == 127 ? Limits::max() : taken;
    }

    std::uint8_t const* next;
    std::size_t left;
};

// ---- Checks

inline void Check(bool holds, char const* file, int line, char const* condition) {
    if (!holds) {
        std::fprintf(stderr, "%s:%d: not so: %s\n", file, line, condition);
        std::abort();
    }
}

#define CHECK(condition) Check(condition, __FILE__, __LINE__, #condition)

template <typename... Exceptions>
bool Is_one_of(std::exception const& failure) {
    return ((typeid(failure) == typeid(Exceptions)) || ...);
}

// What a function may throw, as its header says.
using Documented = bool (*)(std::exception const& failure);
constexpr Documented nothing = Is_one_of<>;
constexpr Documented limit = Is_one_of<OperationExceedingAllowedTuples>;
constexpr Documented not_in_catalogue = Is_one_of<UnitNotDefined>;
constexpr Documented range = Is_one_of<std::out_of_range>;
constexpr Documented cannot_be_arranged = Is_one_of<UnitDimensionNotProper, UnitNotDefined>;
constexpr Documented cannot_be_built = Is_one_of<UnitDimensionNotProper, UnitNotDefined, OperationNotValid>;
constexpr Documented no_factor = Is_one_of<UnitDimensionNotSame, UnitNotDefined, std::out_of_range>;
constexpr Documented no_relation = Is_one_of<NoRuleToConvert, std::out_of_range>;
constexpr Documented no_conversion = Is_one_of<UnitDimensionNotSame, UnitDimensionNotProper, UnitNotDefined, OperationNotValid, std::out_of_range>;
constexpr Documented no_product = [](std::exception const& failure) { return no_conversion(failure) || limit(failure); };

// Runs `operation`; returns whether it came to its end, and else sees that its failure is documented.
template <typename Operation>
bool Succeeds(Documented documented, Operation const& operation) {
    try {
        operation();
        return true;
    } catch (std::exception const& failure) {
        CHECK(documented(failure) && failure.what()[0] != '\0');
        return false;
    }
}

inline bool Same_number(double left, double right) {
    return (std::isnan(left) && std::isnan(right)) || (left == right && std::signbit(left) == std::signbit(right));
}

inline void Check_canonical(Units const& unit) {
    CHECK(Units_library::Arrange_tuple(unit) == unit);
    for (std::size_t k = 1; k < Value_detail::Tuple_count && unit.tuples[k].unit != NO_UNIT; ++k) {
        CHECK(Units_library::Get_dimension(unit.tuples[k - 1].unit) < Units_library::Get_dimension(unit.tuples[k].unit));
    }
}

} // namespace Varnix::Value::Tests

#endif
