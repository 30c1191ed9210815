// The members of value objects that hand a question on to the unit algebra.

#include <varnix/value/Value_object.h>

namespace Varnix::Value {

template <typename Number>
Number Value_object<Number>::Get_conversion_factor(Units const& target, Units const& source) {
    return Units_library::Get_conversion_factor(target, source);
}

template <typename Number>
Number Value_object<Number>::Get_tuple_conversion_factor(Unit_tuple const& from,
                                                         Unit_tuple const& to) {
    return Units_library::Get_tuple_conversion_factor(from, to);
}

template <typename Number>
Dimension Value_object<Number>::Get_dimension(Units_list const& code) {
    return Units_library::Get_dimension(code);
}

template <typename Number>
Units Value_object<Number>::Multiply_units(Units const& first, Units const& second) const {
    return Units_library::Multiply_units(first, second);
}

template <typename Number>
Units Value_object<Number>::Divide_units(Units const& first, Units const& second) const {
    return Units_library::Divide_units(first, second);
}

template <typename Number>
Units Value_object<Number>::Get_base_unit(Units const& descriptor) const {
    return Units_library::Get_base_unit(descriptor);
}

template <typename Number>
std::string Value_object<Number>::Get_unit_string(Unit_string_type const& type) const {
    return Units_library::Get_unit_string(unit, type);
}

template <typename Number>
std::string Value_object<Number>::Get_unit_string_name(Unit_string_type const& type) const {
    return Get_unit_string(type);
}

// ---- The instantiations

template double Value_object<double>::Get_conversion_factor(Units const&, Units const&);
template double Value_object<double>::Get_tuple_conversion_factor(Unit_tuple const&,
                                                                  Unit_tuple const&);
template Dimension Value_object<double>::Get_dimension(Units_list const&);
template Units Value_object<double>::Multiply_units(Units const&, Units const&) const;
template Units Value_object<double>::Divide_units(Units const&, Units const&) const;
template Units Value_object<double>::Get_base_unit(Units const&) const;
template std::string Value_object<double>::Get_unit_string(Unit_string_type const&) const;
template std::string Value_object<double>::Get_unit_string_name(Unit_string_type const&) const;

} // namespace Varnix::Value
