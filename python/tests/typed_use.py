"""How a program with types uses the package: mypy --strict passes over it."""

import numpy as np
import numpy.typing as npt

from varnix_value import Converter, Order, Quantity, Unit, compare, convert, power_sum


def heights(feet: npt.NDArray[np.float64]) -> npt.NDArray[np.float64]:
    metres: npt.NDArray[np.float64] = Converter('ft', 'm')(feet)
    return metres


def total(levels: list[Quantity]) -> Quantity:
    return power_sum(levels).to(Unit('W')) * 2.0


def is_louder(x: Quantity, y: Quantity) -> bool:
    return compare(x, y) is Order.GREATER


def in_newtons(mass: Quantity) -> Quantity:
    return (mass * Quantity(9.81, Unit('m/s^2'))).simplified()


convert([1.0], 'ft', 'm')
Quantity(np.float32(1), 'V') * np.int64(2)
Quantity('1 V') * np.ones(3)  # type: ignore[operator]
Quantity(np.ones(1), 'V')  # type: ignore[call-overload]
sum([Quantity('1 V'), Quantity(2, 'V', 1, 3)], start=Quantity('0 V'))
