"""Physical quantities: a number, its unit, and bounds that are certain.

>>> from varnix_value import Quantity
>>> print(Quantity("10 V [9.5, 10.5]") * Quantity("2 A"))
20 W [19, 21]

What is typed is physically right, or refused. docs/python.md is the guide.
"""

from . import _native

_native.refuse_subinterpreter()

from . import failures
from ._native import (
    Difference,
    Quantity,
    RuleValue,
    Unit,
    amplify,
    cascade_noise,
    certainly_equal,
    certainly_less,
    check_limits,
    compare,
    density,
    field_ratio,
    gain_of_fields,
    gain_of_powers,
    hull,
    intersection,
    mismatch_gain,
    mismatch_loss,
    possibly_equal,
    possibly_less,
    power_difference,
    power_mean,
    power_ratio,
    power_sum,
    reflection_of_return_loss,
    reflection_of_vswr,
    return_loss,
    same_kind,
    sqrt,
    thermal_noise,
    total_power,
    vswr,
)
from .converters import Converter, convert
from .failures import (
    MeasurementRefused,
    NoRuleToConvert,
    OperationExceedingAllowedTuples,
    OperationNotValid,
    OutOfRange,
    RefusedArithmetic,
    RefusedKind,
    RefusedValue,
    TextNotValid,
    UnitDimensionNotProper,
    UnitDimensionNotSame,
    UnitNotDefined,
    Value_exception,
)
from .order import Order, Verdict

__version__: str = _native.__version__


__all__ = [
    'Converter',
    'Difference',
    'MeasurementRefused',
    'NoRuleToConvert',
    'OperationExceedingAllowedTuples',
    'OperationNotValid',
    'Order',
    'OutOfRange',
    'Quantity',
    'RefusedArithmetic',
    'RefusedKind',
    'RefusedValue',
    'RuleValue',
    'TextNotValid',
    'Unit',
    'UnitDimensionNotProper',
    'UnitDimensionNotSame',
    'UnitNotDefined',
    'Value_exception',
    'Verdict',
    'amplify',
    'cascade_noise',
    'certainly_equal',
    'certainly_less',
    'check_limits',
    'compare',
    'convert',
    'density',
    'failures',
    'field_ratio',
    'gain_of_fields',
    'gain_of_powers',
    'hull',
    'intersection',
    'mismatch_gain',
    'mismatch_loss',
    'possibly_equal',
    'possibly_less',
    'power_difference',
    'power_mean',
    'power_ratio',
    'power_sum',
    'reflection_of_return_loss',
    'reflection_of_vswr',
    'return_loss',
    'same_kind',
    'sqrt',
    'thermal_noise',
    'total_power',
    'vswr',
]
