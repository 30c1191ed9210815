// The exception classes: their messages, however they are made, copied or exchanged.

#include "Test_support.h"

#include <type_traits>
#include <utility>

namespace Varnix::Value::Tests {
namespace {

template <typename Class>
void Check_copies(Class const& original) {
    std::string const message = original.what();
    EXPECT_EQ(Class(original).what(), message);
    Class other("other");
    std::string const other_message = other.what();
    Class first(original);
    first.swap(other);
    EXPECT_EQ(first.what(), other_message);
    EXPECT_EQ(other.what(), message);
    EXPECT_EQ((first = other).what(), message);
    Class const& same = first;
    EXPECT_EQ((first = same).what(), message);
}

template <typename Class>
void Check_class(std::string const& message) {
    SCOPED_TRACE(message);
    static_assert(std::is_nothrow_default_constructible_v<Class> && std::is_nothrow_constructible_v<Class, char const*> &&
                  std::is_nothrow_constructible_v<Class, std::string const&> && std::is_nothrow_copy_constructible_v<Class> &&
                  std::is_nothrow_copy_assignable_v<Class> && std::is_nothrow_destructible_v<Class> && std::is_nothrow_swappable_v<Class>);

    EXPECT_EQ(Class().what(), message);
    EXPECT_EQ(Class("detail").what(), message + ": detail");
    EXPECT_EQ(Class(std::string("detail")).what(), message + ": detail");
    EXPECT_EQ(Class(std::string("before\0after", 12)).what(), message + ": before");
    EXPECT_EQ(Class("").what(), message + ": ");
    EXPECT_EQ(Class(static_cast<char const*>(nullptr)).what(), message + ": ");
    Check_copies(Class("detail"));

    // A class that a program derives has the message of the class it is derived from.
    struct Derived : Class {
        using Class::Class;
    };
    EXPECT_EQ(Derived().what(), message);
    EXPECT_EQ(Derived("detail").what(), message + ": detail");
}

TEST(Exceptions, Have_the_texts_of_their_bases_and_their_own) {
    std::string const root = "Value exception";
    std::string const invalid = root + ": Operation is not valid";
    std::string const bad = invalid + ": Invalid Type - BAD_CONVERSION";
    std::string const range = root + ": Value is out of range";
    Check_class<Value_exception>(root);
    Check_class<OperationNotValid>(invalid);
    Check_class<BadConversion>(bad);
    Check_class<NoRuleToConvert>(bad + ": No rule to convert the given Units");
    Check_class<UnitDimensionNotSame>(bad + ": Dimension is not the same");
    Check_class<MissingUnitInFirstParameter>(invalid + ": No rule to convert the given Units");
    Check_class<OperationUndefined>(invalid + ": Operation is not valid on passed unit");
    Check_class<UnitDimensionNotProper>(invalid + ": Unit dimension not proper");
    Check_class<UnitExponentNotValid>(invalid + ": Exponent of the unit is not proper");
    Check_class<UnitNotDefined>(invalid + ": Unit not defined");
    Check_class<OutOfResources>(range);
    Check_class<OperationExceedingAllowedTuples>(range + ": Tuples exceed maximum limit");
}

TEST(Exceptions, Join_text_and_detail) {
    EXPECT_EQ(Value_exception::BuildErrorMessage("text", "detail"), "text: detail");
    EXPECT_EQ(Value_exception::BuildErrorMessage("text", nullptr), "text: ");
    EXPECT_EQ(Value_exception::BuildErrorMessage(nullptr, "detail"), "");
}

// A virtual base cannot be cast down from statically; an ordinary one can.
template <typename Derived, typename Base, typename = void>
constexpr bool has_virtual_base = true;
template <typename Derived, typename Base>
constexpr bool has_virtual_base<Derived, Base, std::void_t<decltype(static_cast<Derived*>(std::declval<Base*>()))>> = false;

static_assert(!has_virtual_base<OperationUndefined, OperationNotValid>);
static_assert(has_virtual_base<UnitNotDefined, OperationNotValid>);
static_assert(has_virtual_base<OperationExceedingAllowedTuples, OutOfResources>);
static_assert(has_virtual_base<Value_exception, std::exception>);

} // namespace
} // namespace Varnix::Value::Tests
