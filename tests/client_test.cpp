// What only a client program of the library can see: exceptions that cross its boundary, its
// constants and tables before main(), and what it allocates.

#include "Named_constants.h"
#include "Test_support.h"

#include <cstdlib>
#include <new>

// ---- Every allocation of the process, the library's included, is counted and can be made to fail.

namespace {
long allocations = 0;
bool memory_is_full = false;

void* Allocate(std::size_t size) {
    ++allocations;
    void* const memory = memory_is_full ? nullptr : std::malloc(size);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}
} // namespace

void* operator new(std::size_t size) {
    return Allocate(size);
}
void* operator new[](std::size_t size) {
    return Allocate(size);
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete[](void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    std::free(memory);
}

namespace Varnix::Value::Tests {
namespace {

template <typename Base, typename Exception>
bool Is_caught_by(Exception const& exception) {
    try {
        throw exception;
    } catch (Base const& caught) {
        std::exception const& standard = caught;
        return std::string(standard.what()) == exception.what();
    } catch (...) {
        return false;
    }
}

template <typename... Bases, typename Exception>
void Expect_caught_by(Exception const& exception) {
    EXPECT_TRUE((Is_caught_by<Bases>(exception) && ...)) << exception.what();
}

TEST(Client, Catches_exceptions_by_each_base) {
    Expect_caught_by<NoRuleToConvert, BadConversion, OperationNotValid, Value_exception, std::exception>(NoRuleToConvert("x"));
    Expect_caught_by<MissingUnitInFirstParameter, OperationNotValid, Value_exception, std::exception>(MissingUnitInFirstParameter());
    Expect_caught_by<OperationUndefined, OperationNotValid, Value_exception, std::exception>(OperationUndefined());
    Expect_caught_by<UnitExponentNotValid, OperationNotValid, Value_exception, std::exception>(UnitExponentNotValid());
    Expect_caught_by<OutOfResources, Value_exception, std::exception>(OutOfResources());

    Quantity const length(2.0, C_Meter, 2.0, 2.0);
    Quantity const zero;
    EXPECT_THROW((void)length.Convert_to(C_Sec), UnitDimensionNotSame);
    EXPECT_THROW((void)length.Convert_to(C_Sec), BadConversion);
    EXPECT_THROW((void)length.Convert_to(Unit({{unknown_unit, 1}})), UnitNotDefined);
    EXPECT_THROW((void)length.Convert_to(Unit({{METER, 1}, {FOOT, 1}})), UnitDimensionNotProper);
    EXPECT_THROW((void)length.Convert_to_with_value(C_Sec, length), NoRuleToConvert);
    EXPECT_THROW((void)(length / 0.0), std::out_of_range);
    try {
        Units_library::Multiply_units(Unit({{BIT, 1}, {AMP, 1}, {GRAM, 1}, {METER, 1}, {SECOND, 1}}), C_Volts);
        FAIL();
    } catch (OperationNotValid const&) {
        FAIL() << "an exceeded limit is not an invalid operation";
    } catch (OutOfResources const& failure) {
        EXPECT_STREQ(failure.what(), OperationExceedingAllowedTuples().what());
    }
}

// ---- Before main()

Quantity const built_before_main = Quantity(1.0, C_KMeter, 1.0, 1.0).Convert_to(C_Ft);
std::string const text_before_main = Units_library::Get_unit_string(C_KMeter, STR_NAME);

TEST(Client, Uses_the_library_before_main) {
    EXPECT_EQ(built_before_main.Get_value(), 1.0 * ((1.0 / 0.3048) * 1000.0));
    EXPECT_EQ(text_before_main, "kilometers");
}

// ---- Memory

template <typename Operation>
long Allocations_of(Operation const& operation) {
    long const before = allocations;
    operation();
    return allocations - before;
}

TEST(Client, Operations_allocate_nothing) {
    for (Named_constant const& from : named_constants) {
        Quantity object(2.0, *from.unit, 1.0, 3.0);
        Quantity const other(5.0, *from.unit, 4.0, 6.0);
        Quantity const meter(5.0, C_Meter, 4.0, 6.0);
        EXPECT_EQ(Allocations_of([&] {
                      (void)object.Convert_to(*from.unit);
                      (void)(object < other);
                      object += other;
                      object -= meter.Get_unit().tuples[0].unit == from.unit->tuples[0].unit ? meter : other;
                      object *= 2.0;
                      object /= 2.0;
                  }),
                  0)
            << from.name;
    }
    Quantity product(2.0, C_Meter, 1.0, 3.0);
    Quantity const power(10.0, C_Watts, 8.0, 12.0);
    EXPECT_EQ(Allocations_of([&] {
                  product *= Quantity(3.0, C_Ft, 2.0, 4.0);
                  product /= Quantity(3.0, C_Sec, 2.0, 4.0);
                  (void)power.Convert_to_with_value(C_Volts, Quantity(2.0, C_Amps, 2.0, 2.0));
                  (void)power.Convert_to(C_DBmW).Convert_to(C_KiloWatts);
              }),
              0);
}

TEST(Client, Exceptions_without_memory_keep_their_class_text) {
    std::string const expected = NoRuleToConvert().what();
    std::string const detail(100, 'x');
    NoRuleToConvert const original(detail);
    NoRuleToConvert assigned("other");
    char text[6][128] = {};
    auto const keep = [&text](int row, std::exception const& failure) { std::strncpy(text[row], failure.what(), sizeof text[row] - 1); };
    memory_is_full = true;
    keep(0, NoRuleToConvert());
    keep(1, NoRuleToConvert(detail));
    keep(2, NoRuleToConvert(detail.c_str()));
    keep(3, NoRuleToConvert(original));
    keep(4, assigned = original);
    bool const no_text = Value_exception::BuildErrorMessage(detail.c_str(), "").empty();
    try {
        (void)Quantity(1.0, C_Watts, 1.0, 1.0).Convert_to_with_value(C_Watts, Quantity());
    } catch (BadConversion const& failure) {
        keep(5, failure);
    }
    memory_is_full = false;
    for (char const* row : text) {
        EXPECT_EQ(row, expected);
    }
    EXPECT_TRUE(no_text);
}

} // namespace
} // namespace Varnix::Value::Tests
