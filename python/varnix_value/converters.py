"""Conversions of many numbers, prepared once."""

import copyreg
from typing import Any

import numpy as np

from . import _native


def Converter(from_: '_native.Unit | str', to: '_native.Unit | str') -> np.ufunc:
    """A conversion of many numbers, prepared once: a ufunc of numpy.

    >>> to_kelvin = Converter("°C", "K")
    >>> to_kelvin([-40, 20])
    array([233.15, 293.15])
    >>> to_kelvin
    <ufunc '°C to K'>

    It takes arrays of every kind that numpy has and everything that keeps to its protocols, `out=`
    and `where=` included. 32-bit floats stay such, whole numbers become doubles. Numbers alone have
    no bounds: each result is the double nearest to the right one, of levels within 4 units in the
    last place or 1e-13 dB. NaN stays NaN; the level of a negative number is NaN, with numpy's
    warning. Temperatures are points of their scales. Raises MeasurementRefused where the kinds
    differ.
    """
    return _native.make_converter(from_, to)


def convert(numbers: Any, from_: '_native.Unit | str', to: '_native.Unit | str') -> Any:
    """Converts numbers once, as Converter does.

    >>> convert([1, 2.5], "ft", "m")
    array([0.3048, 0.762 ])
    """
    return _native.make_converter(from_, to)(numbers)


def _reduce_ufunc(ufunc: np.ufunc) -> Any:
    """Converters are pickled by their units, other ufuncs by name, as numpy does it.

    Numpy has every ufunc looked up by its name, and that of a converter leads nowhere.
    """
    units = _native.units_of_converter(ufunc)
    return ufunc.__name__ if units is None else (Converter, units)


copyreg.pickle(np.ufunc, _reduce_ufunc)
