// The rules of the conversions that no catalogue factor can express. Their tables are built while
// the library loads and are only read afterwards; the rules refer to the named units and copy
// nothing.

#ifndef VARNIX_VALUE_CONVERSION_RULES_H
#define VARNIX_VALUE_CONVERSION_RULES_H

#include <varnix/value/Value_converter.h>
#include <varnix/value/Value_object.h>

#include <vector>

namespace Varnix::Value {

// A rule for converting one value.
template <typename Number>
struct Units_conversion {
    Units const& from_unit;
    Units const& to_unit;
    Value_object<Number> (*conv_fn)(Value_object<Number> const& value, Units const& target);
};

// A rule for converting a value with the help of a second one.
template <typename Number>
struct Units_spl_conv_data {
    Units_special_conv spl_units;
    Value_object<Number> (*conv_fn)(Value_object<Number> const& value,
                                    Value_object<Number> const& with_value, Units const& target);
};

template <typename Number>
struct Units_conv {
    static std::vector<Units_conversion<Number>> const Unit_conv_vect;
};

template <typename Number>
struct Units_spl_conv {
    static std::vector<Units_spl_conv_data<Number>> const Unit_spl_conv_vect;
};

// A rule beside what its function does to a number. Derived from Unit_conv_vect while the library
// loads; a function that has no formula there ends the program at once.
struct Rule_with_formula {
    Units_conversion<double> const* rule;
    Value_detail::Conversion_steps::Formula formula;
};

[[gnu::visibility("hidden")]] extern std::vector<Rule_with_formula> const rules_with_formulas;

// Defined once, with the instantiation of Value_object<double>.
template <>
std::vector<Units_conversion<double>> const Units_conv<double>::Unit_conv_vect;
template <>
std::vector<Units_spl_conv_data<double>> const Units_spl_conv<double>::Unit_spl_conv_vect;

} // namespace Varnix::Value

#endif
