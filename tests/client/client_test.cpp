// What only a client program of the library can see: exceptions that cross its boundary, its
// constants and tables before main(), what it allocates, and what it does when there is no memory.

#include "Named_constants.h"
#include "Test_support.h"

#include <varnix/value/Levels.h>
#include <varnix/value/Measurement.h>
#include <varnix/value/Measurement_converter.h>
#include <varnix/value/Measurement_text.h>
#include <varnix/value/text.h>

#include <cstdlib>
#include <new>

#include <dlfcn.h>

// ---- Every allocation of the process, the library's included, is counted and can be made to fail.

namespace {
long allocations = 0;
long live_blocks = 0;
long first_to_fail = 0; // counted as `allocations` is
long last_to_fail = -1;

bool Memory_is_full() {
    return first_to_fail <= allocations && allocations <= last_to_fail;
}

void* Allocate(std::size_t size) {
    ++allocations;
    void* const memory = Memory_is_full() ? nullptr : std::malloc(size);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    ++live_blocks;
    return memory;
}

void Free(void* memory) {
    live_blocks -= memory == nullptr ? 0 : 1;
    std::free(memory);
}
} // namespace

void* operator new(std::size_t size) {
    return Allocate(size);
}
void* operator new[](std::size_t size) {
    return Allocate(size);
}
void* operator new(std::size_t size, std::nothrow_t const&) noexcept { // for sorting, which does without
    try {
        return Allocate(size);
    } catch (std::bad_alloc const&) {
        return nullptr;
    }
}
void operator delete(void* memory) noexcept {
    Free(memory);
}
void operator delete[](void* memory) noexcept {
    Free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    Free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    Free(memory);
}

// The C++ runtime takes the memory of a thrown object from malloc, which fails as well. Not where
// clang's sanitizers may have a malloc of their own.
#ifndef __clang__
extern "C" void* malloc(std::size_t size) noexcept {
    static auto const next = reinterpret_cast<void* (*)(std::size_t)>(dlsym(RTLD_NEXT, "malloc"));
    return Memory_is_full() ? nullptr : next(size);
}
#endif

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

TEST(Client, Measurements_allocate_nothing) {
    Measurement const voltage(10.0, C_Volts, 9.9, 10.1);
    Measurement const resistance(50.0, C_Ohms, 49.0, 51.0);
    Measurement const gain(3.0, C_DB, 2.0, 4.0);
    Measurement const power = voltage.Convert_to(C_DBmW, resistance);
    EXPECT_EQ(Allocations_of([&] {
                  (void)(voltage + voltage * 3.0 - voltage / resistance * resistance);
                  (void)Sqrt(Pow(voltage, 2));
                  (void)voltage.Convert_to(C_MilliVolts).Convert_to(C_Watts, resistance);
                  (void)(power + gain).Convert_to(C_Watts);
                  (void)Power_sum({power, power});
                  (void)Compare(power, power.Convert_to(C_Watts));
                  (void)Measurement_converter(C_DgreeC, C_DgreeF).Convert_number(20.0);
              }),
              0);
}

// The first text that is read gathers the names. Where there is no memory for that, the next one does. No test
// before this one may read a text.
TEST(Client, Gathers_the_names_of_units_when_there_is_memory) {
    long const blocks = live_blocks;
    long failures = 0;
    for (bool done = false; !done;) {
        first_to_fail = allocations + failures + 1;
        last_to_fail = first_to_fail;
        try {
            done = Parse_unit("km/h").si_prefix == KILO;
        } catch (std::bad_alloc const&) {
            ++failures;
            EXPECT_EQ(live_blocks, blocks) << failures;
        }
    }
    last_to_fail = -1;
    EXPECT_GT(failures, 5);
}

TEST(Client, Reads_texts_without_allocation) {
    (void)Parse_unit("m"); // the first call gathers the names
    EXPECT_EQ(Allocations_of([] {
                  (void)Parse_unit("V^2/ohm");
                  (void)Parse_unit("(kilometers)/(second*kelvin)");
                  (void)Parse_quantity("30 dBm [29, 31]");
                  (void)Parse_number("-1.5e3");
              }),
              0);
}

// ---- Without memory

Quantity const two_meters(2.0, C_Meter, 1.0, 3.0);
Measurement const level(10.0, C_DBmW, 9.0, 11.0);
Units const five_units = Unit({{BIT, 1}, {AMP, -2}, {GRAM, 3}, {METER, -4}, {SECOND, 5}}, KIBI, SPL_DB);
std::string const detail(100, 'x');

// What the messages were. Without memory a test cannot report what it sees: it counts.
long whole_messages = 0;
long class_messages = 0;
long wrong_messages = 0;

// Each class is made in each way; what it then says is its own text, with the detail or without.
template <typename Class>
void Make_exceptions() {
    std::size_t const own_length = std::strlen(Class().what());
    Class const original(detail);
    Class assigned(detail.c_str());
    assigned = original;
    Class copy(assigned);
    copy.swap(assigned);
    for (char const* text : {original.what(), assigned.what(), copy.what()}) {
        std::size_t const length_of_text = std::strlen(text);
        bool const is_own = std::strncmp(text, Class().what(), own_length) == 0;
        ++(is_own && length_of_text == own_length + 2 + detail.size() ? whole_messages
           : is_own && length_of_text == own_length                   ? class_messages
                                                                      : wrong_messages);
    }
    std::size_t const joined = Value_exception::BuildErrorMessage(detail.c_str(), "").size();
    wrong_messages += joined == 0 || joined == detail.size() + 2 ? 0 : 1;
    try {
        throw Class(copy);
    } catch (Value_exception const& failure) {
        wrong_messages += std::strncmp(failure.what(), Value_exception().what(), 15) == 0 ? 0 : 1;
    }
}

template <typename... Classes>
void Make_exceptions_of_each() {
    (Make_exceptions<Classes>(), ...);
}

template <Unit_string_type type>
void Make_texts() {
    for (Units const& unit : {five_units, C_MHz, C_DBmW}) {
        Quantity object;
        object.Set_unit(unit);
        (void)(object.Get_unit_string(type) + object.Get_unit_string_name(type));
        (void)(Units_library::Get_unit_string(unit, type) + Units_library::Get_unit_str(unit, type));
        (void)(Units_library::Get_unit_str_spl_map(unit, type) + Units_library::Get_unit_str_si_map(unit, type));
        (void)Units_library::Get_unit_str_info_map(unit, type);
    }
}

struct Failure_of_a_program : NoRuleToConvert {
    using NoRuleToConvert::NoRuleToConvert;
};

// clang-format off
void (*const operations_that_allocate[])() = {
    Make_exceptions_of_each<Value_exception, OperationNotValid, BadConversion, NoRuleToConvert, UnitDimensionNotSame, MissingUnitInFirstParameter,
                            OperationUndefined, UnitDimensionNotProper, UnitExponentNotValid, UnitNotDefined, OutOfResources,
                            OperationExceedingAllowedTuples>,
    Make_texts<STR_NAME>, Make_texts<STR_SYMBOL>, Make_texts<STR_LOWER_CASE>, Make_texts<STR_UPPER_CASE>,
    [] { throw Failure_of_a_program(detail); },
    [] { (void)two_meters.Convert_to(C_Sec); },
    [] { (void)two_meters.Convert_to_with_value(C_Sec, two_meters); },
    [] { (void)Value_converter<double>(C_Ft, C_Meter).Convert(two_meters); },
    [] { (void)Quantity(1.0, Unit({{METER, 1}, {FOOT, 1}}), 1.0, 1.0); },
    [] { (void)Quantity(1.0, Unit({{unknown_unit, 1}}), 1.0, 1.0); },
    [] { (void)(two_meters / 0.0); },
    [] { (void)(Quantity(two_meters) -= Quantity(1.0, C_Sec, 1.0, 1.0)); },
    [] { (void)Units_library::Multiply_units(five_units, C_Volts); },
    [] { (void)Parse_quantity("5 pinch"); },
    [] { (void)Try_parse_unit("V/cm/V"); },
    [] { (void)Parse_unit("meters per second"); },
    [] { (void)(Format(two_meters) + Format_unit(five_units) + Format_unit(C_NanoVolts, STR_NAME)); },
    [] { (void)(level + level); },
    [] { (void)level.Convert_to(C_Volts); },
    [] { (void)Power_sum(nullptr, 0); },
    [] { (void)Format(Parse_measurement("5.0 ± 0.1 V"), Read_text_format("bpk")); },
    [] { (void)Parse_measurement("5 V [6, 7]"); },
    [] { (void)Try_parse_measurement("5 dBohm"); },
    [] { (void)(Kind_name(five_units).size() + Named_units().size() + Catalogue_units().size() + Prefixes().size()); },
};
// clang-format on

// Runs `operation`; it must come to its end, fail as it does with memory, or say that there is none.
void Run_without_memory(void (*operation)()) {
    try {
        operation();
    } catch (Value_exception const& failure) {
        wrong_messages += std::strncmp(failure.what(), "Value exception", 15) == 0 ? 0 : 1;
    } catch (std::out_of_range const& failure) {
        wrong_messages += failure.what() == out_of_range ? 0 : 1;
    } catch (std::bad_alloc const&) {
    }
}

// With one allocation that fails, and with none that succeeds from there on.
TEST(Client, Survives_a_lack_of_memory_at_every_allocation) {
    for (auto const operation : operations_that_allocate) {
        long const needed = Allocations_of([operation] { Run_without_memory(operation); });
        for (long nth = 1; nth <= needed; ++nth) {
            for (long const failing : {1L, 1000000L}) {
                long const blocks = live_blocks;
                first_to_fail = allocations + nth;
                last_to_fail = first_to_fail + failing - 1;
                Run_without_memory(operation);
                last_to_fail = -1;
                EXPECT_EQ(live_blocks, blocks) << "allocation " << nth;
            }
        }
    }
    EXPECT_GT(whole_messages, 100);
    EXPECT_GT(class_messages, 100);
    EXPECT_EQ(wrong_messages, 0);
}

} // namespace
} // namespace Varnix::Value::Tests
