// ValueObject: the exceptions.
//
// Every failure is reported by one of these classes, or by the standard `std::out_of_range` with
// the text "Value is out of range" where a result would be infinite or not a number; a handler for
// `Value_exception` does not catch the latter.
//
//     #include <varnix/value/Value_object.h>
//     #include <iostream>
//     using namespace Varnix::Value;
//
//     try {
//         Value_object<double>(2.0, C_Meter, 2.0, 2.0).Convert_to(C_Sec);
//     } catch (BadConversion const& failure) {
//         std::cerr << failure.what() << '\n';
//     } // Value exception: Operation is not valid: Invalid Type - BAD_CONVERSION: Dimension is ...
//
// The message is made of the class's own text after those of its bases, joined by ": ", and of the
// detail that the constructor was given, if any. The library throws default-constructed objects.
//
//     Value_exception                       "Value exception"
//       OperationNotValid                   "Operation is not valid"
//         BadConversion                     "Invalid Type - BAD_CONVERSION"
//           NoRuleToConvert                 "No rule to convert the given Units"
//           UnitDimensionNotSame            "Dimension is not the same"
//         MissingUnitInFirstParameter       "No rule to convert the given Units"
//         OperationUndefined                "Operation is not valid on passed unit"
//         UnitDimensionNotProper            "Unit dimension not proper"
//         UnitExponentNotValid              "Exponent of the unit is not proper"
//         UnitNotDefined                    "Unit not defined"
//       OutOfResources                      "Value is out of range"
//         OperationExceedingAllowedTuples   "Tuples exceed maximum limit"
//
// No member throws. Where there is no memory to compose or to copy a message, `what()` returns the
// message of the class without the detail.
//
// Threads: the classes share no state; one object must not be changed while another thread reads
// it.

#ifndef VARNIX_VALUE_EXCEPTIONS_H
#define VARNIX_VALUE_EXCEPTIONS_H

#include <varnix/value/export.h>

#include <exception>
#include <string>
#include <typeinfo>

namespace Varnix::Value {

/// @addtogroup errors
/// @{

/// The root: everything that the library throws, `std::out_of_range` apart. Every class below has
/// the same members, each non-throwing:
/// - the default constructor: the class's fixed message;
/// - two constructors with a detail: the fixed message, ": " and the detail, which is empty for a
///   null pointer and ends at the first NUL character of a string;
/// - copy construction and assignment: the message of the other object;
/// - `swap`: exchanges the messages.
class VARNIX_VALUE_EXPORT Value_exception : public virtual std::exception {
  public:
    Value_exception() noexcept;                            ///< the message of the class
    explicit Value_exception(char const* detail) noexcept; ///< with ": " and the detail
    explicit Value_exception(std::string const& detail) noexcept
        : Value_exception(detail.c_str()) {}                           ///< as above
    Value_exception(Value_exception const& other) noexcept;            ///< the same message
    Value_exception& operator=(Value_exception const& other) noexcept; ///< the same message
    void swap(Value_exception& other) noexcept;                        ///< exchanges the messages
    ~Value_exception() override;

    /// The message. The pointer stays valid until the object is destroyed, assigned to or swapped.
    char const* what() const noexcept override;

    /// `text`, ": " and `detail`. A null `detail` leaves the text and ": "; a null `text` leaves
    /// nothing, and so does a lack of memory.
    static std::string BuildErrorMessage(char const* text, char const* detail) noexcept;

  protected:
    /// @cond the members of derived classes, written by a macro, are described above
    // Each constructor of each class sets the complete message of that class, after those of its
    // bases have set theirs: the message is right whichever class is the most derived.
    void Set_message(std::type_info const& type) noexcept;
    void Set_message(std::type_info const& type, char const* detail) noexcept;

    /// @endcond

  private:
    std::string message; // empty only for want of memory
};

// The members of every other class. Only the root has something to exchange.
#define VARNIX_VALUE_EXCEPTION_MEMBERS(Class)                                                      \
    Class() noexcept;                                                                              \
    explicit Class(char const* detail) noexcept;                                                   \
    explicit Class(std::string const& detail) noexcept : Class(detail.c_str()) {}                  \
    Class(Class const& other) noexcept;                                                            \
    Class& operator=(Class const& other) noexcept {                                                \
        Class copy(other);                                                                         \
        swap(copy);                                                                                \
        return *this;                                                                              \
    }                                                                                              \
    void swap(Class& other) noexcept {                                                             \
        Value_exception::swap(other);                                                              \
    }                                                                                              \
    ~Class() override

/// An operation cannot be done with these units: thrown where a value's unit has an empty slot
/// ahead of an occupied one, and where a decibel value meets a value without unit in a product.
class VARNIX_VALUE_EXPORT OperationNotValid : public virtual Value_exception {
  public:
    VARNIX_VALUE_EXCEPTION_MEMBERS(OperationNotValid);
};

/// The category of failed conversions; not thrown itself.
class VARNIX_VALUE_EXPORT BadConversion : public virtual OperationNotValid {
  public:
    VARNIX_VALUE_EXCEPTION_MEMBERS(BadConversion);
};

/// No electrical relation leads from the two given units to the target.
class VARNIX_VALUE_EXPORT NoRuleToConvert : public virtual BadConversion {
  public:
    VARNIX_VALUE_EXCEPTION_MEMBERS(NoRuleToConvert);
};

/// Two units differ in dimension or in power.
class VARNIX_VALUE_EXPORT UnitDimensionNotSame : public virtual BadConversion {
  public:
    VARNIX_VALUE_EXCEPTION_MEMBERS(UnitDimensionNotSame);
};

/// For callers; not thrown by the library. Mind the text, which is that of `NoRuleToConvert`.
class VARNIX_VALUE_EXPORT MissingUnitInFirstParameter : public virtual OperationNotValid {
  public:
    VARNIX_VALUE_EXCEPTION_MEMBERS(MissingUnitInFirstParameter);
};

/// For callers; not thrown by the library. The one class whose base is not virtual.
class VARNIX_VALUE_EXPORT OperationUndefined : public OperationNotValid {
  public:
    VARNIX_VALUE_EXCEPTION_MEMBERS(OperationUndefined);
};

/// A descriptor has two units of one dimension, or exactly one of two values to be added has a
/// unit.
class VARNIX_VALUE_EXPORT UnitDimensionNotProper : public virtual OperationNotValid {
  public:
    VARNIX_VALUE_EXCEPTION_MEMBERS(UnitDimensionNotProper);
};

/// For callers; not thrown by the library.
class VARNIX_VALUE_EXPORT UnitExponentNotValid : public virtual OperationNotValid {
  public:
    VARNIX_VALUE_EXCEPTION_MEMBERS(UnitExponentNotValid);
};

/// A unit code has no row in the catalogue.
class VARNIX_VALUE_EXPORT UnitNotDefined : public virtual OperationNotValid {
  public:
    VARNIX_VALUE_EXCEPTION_MEMBERS(UnitNotDefined);
};

/// The category of exceeded limits; not thrown itself. Numbers out of range are reported with
/// `std::out_of_range`, in spite of the text.
class VARNIX_VALUE_EXPORT OutOfResources : public virtual Value_exception {
  public:
    VARNIX_VALUE_EXCEPTION_MEMBERS(OutOfResources);
};

/// A product or quotient of units would need a sixth tuple.
class VARNIX_VALUE_EXPORT OperationExceedingAllowedTuples : public virtual OutOfResources {
  public:
    VARNIX_VALUE_EXCEPTION_MEMBERS(OperationExceedingAllowedTuples);
};

#undef VARNIX_VALUE_EXCEPTION_MEMBERS

/// @}

} // namespace Varnix::Value

#endif
