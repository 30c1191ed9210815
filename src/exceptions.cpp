// The exception classes. What differs between them stands in one table; the bodies of their members
// are written once.

#include <varnix/value/exceptions.h>

namespace Varnix::Value {

namespace {

struct Class_message {
    std::type_info const& type;
    char const* message; // of the default-constructed object: the texts from the root down
};

// clang-format off
Class_message const class_messages[] = {
    {typeid(Value_exception),                 "Value exception"},
    {typeid(OperationNotValid),               "Value exception: Operation is not valid"},
    {typeid(BadConversion),                   "Value exception: Operation is not valid: Invalid Type - BAD_CONVERSION"},
    {typeid(NoRuleToConvert),                 "Value exception: Operation is not valid: Invalid Type - BAD_CONVERSION: No rule to convert the given Units"},
    {typeid(UnitDimensionNotSame),            "Value exception: Operation is not valid: Invalid Type - BAD_CONVERSION: Dimension is not the same"},
    {typeid(MissingUnitInFirstParameter),     "Value exception: Operation is not valid: No rule to convert the given Units"},
    {typeid(OperationUndefined),              "Value exception: Operation is not valid: Operation is not valid on passed unit"},
    {typeid(UnitDimensionNotProper),          "Value exception: Operation is not valid: Unit dimension not proper"},
    {typeid(UnitExponentNotValid),            "Value exception: Operation is not valid: Exponent of the unit is not proper"},
    {typeid(UnitNotDefined),                  "Value exception: Operation is not valid: Unit not defined"},
    {typeid(OutOfResources),                  "Value exception: Value is out of range"},
    {typeid(OperationExceedingAllowedTuples), "Value exception: Value is out of range: Tuples exceed maximum limit"},
};
// clang-format on

// The root's message for a class that a program has derived.
char const* Fixed_message(std::type_info const& type) noexcept {
    for (Class_message const& row : class_messages) {
        if (row.type == type) {
            return row.message;
        }
    }
    return class_messages[0].message;
}

// The result of `compose`, or nothing if there is no memory for it.
template <typename Compose>
std::string Text_or_nothing(Compose const& compose) noexcept {
    try {
        return compose();
    } catch (...) {
        return std::string();
    }
}

} // namespace

std::string Value_exception::BuildErrorMessage(char const* text, char const* detail) noexcept {
    return Text_or_nothing([text, detail] {
        if (text == nullptr) {
            return std::string();
        }
        return std::string(text) + ": " + (detail == nullptr ? "" : detail);
    });
}

void Value_exception::Set_message(std::type_info const& type) noexcept {
    message = Text_or_nothing([&type] { return std::string(Fixed_message(type)); });
}

void Value_exception::Set_message(std::type_info const& type, char const* detail) noexcept {
    message = BuildErrorMessage(Fixed_message(type), detail);
}

char const* Value_exception::what() const noexcept {
    return message.empty() ? Fixed_message(typeid(*this)) : message.c_str();
}

// ---- The root, which alone has a message to copy and to exchange

Value_exception::Value_exception() noexcept {
    Set_message(typeid(Value_exception));
}

Value_exception::Value_exception(char const* detail) noexcept {
    Set_message(typeid(Value_exception), detail);
}

Value_exception::Value_exception(Value_exception const& other) noexcept
    : std::exception(other), message(Text_or_nothing([&other] { return other.message; })) {}

Value_exception& Value_exception::operator=(Value_exception const& other) noexcept {
    Value_exception copy(other);
    swap(copy);
    return *this;
}

void Value_exception::swap(Value_exception& other) noexcept {
    message.swap(other.message);
}

Value_exception::~Value_exception() = default;

// ---- The other classes

#define VARNIX_VALUE_DEFINE_MEMBERS(Class)                                                         \
    Class::Class() noexcept {                                                                      \
        Set_message(typeid(Class));                                                                \
    }                                                                                              \
    Class::Class(char const* detail) noexcept {                                                    \
        Set_message(typeid(Class), detail);                                                        \
    }                                                                                              \
    Class::Class(Class const&) noexcept = default;                                                 \
    Class::~Class() = default;

VARNIX_VALUE_DEFINE_MEMBERS(OperationNotValid)
VARNIX_VALUE_DEFINE_MEMBERS(BadConversion)
VARNIX_VALUE_DEFINE_MEMBERS(NoRuleToConvert)
VARNIX_VALUE_DEFINE_MEMBERS(UnitDimensionNotSame)
VARNIX_VALUE_DEFINE_MEMBERS(MissingUnitInFirstParameter)
VARNIX_VALUE_DEFINE_MEMBERS(OperationUndefined)
VARNIX_VALUE_DEFINE_MEMBERS(UnitDimensionNotProper)
VARNIX_VALUE_DEFINE_MEMBERS(UnitExponentNotValid)
VARNIX_VALUE_DEFINE_MEMBERS(UnitNotDefined)
VARNIX_VALUE_DEFINE_MEMBERS(OutOfResources)
VARNIX_VALUE_DEFINE_MEMBERS(OperationExceedingAllowedTuples)

} // namespace Varnix::Value
