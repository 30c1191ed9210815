// What arithmetic, comparison and prepared conversions share with `Convert_to`.

#ifndef VARNIX_VALUE_VALUE_CONVERTED_VALUE_H
#define VARNIX_VALUE_VALUE_CONVERTED_VALUE_H

#include "conversion/Conversion.h"

#include <varnix/value/Value_object.h>

namespace Varnix::Value {

// The steps from `from` to `target`, by a short way or by the definition. Returns the target in
// canonical order: itself, or an arranged copy in `storage`. @throws as `Value_object::Convert_to`
Units const& Decide_steps(Conversion_steps& steps, Units const& from, Units const& target,
                          Units& storage);

// The value in `target`, where factors alone do not do. @throws as `Value_object::Convert_to`
Value_object<double> Converted_in_steps(Value_object<double> const& value, Units const& target);

} // namespace Varnix::Value

#endif
