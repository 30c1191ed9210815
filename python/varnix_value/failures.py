"""What varnix_value raises: one family, under the names of the C++ library.

Each class is one of Python's own as well, so that `except ValueError` means what it always does.
"""


class Value_exception(Exception):
    """The root of the family."""


class OperationNotValid(Value_exception, ValueError):
    """An operation cannot be done with these units."""


class NoRuleToConvert(Value_exception, TypeError):
    """No electrical relation leads from the two given units to the target."""


class UnitDimensionNotSame(Value_exception, TypeError):
    """Two units differ in dimension or in power."""


class UnitDimensionNotProper(Value_exception, TypeError):
    """Two units of one dimension in a descriptor, or exactly one of two values has a unit."""


class UnitNotDefined(Value_exception, ValueError):
    """A unit code has no row in the catalogue."""


class OperationExceedingAllowedTuples(Value_exception, ArithmeticError):
    """A product would need a sixth unit."""


class OutOfRange(Value_exception, ArithmeticError):
    """A result of the core would be infinite or not a number."""


class TextNotValid(Value_exception, ValueError):
    """A text that cannot be read.

    `position` counts characters, from 0, to the first that cannot be accepted; `suggestion` is
    the nearest known unit, or empty.
    """

    def __init__(self, message: str, position: int, suggestion: str) -> None:
        super().__init__(message, position, suggestion)
        self.message = message
        self.position = position
        self.suggestion = suggestion

    def __str__(self) -> str:
        meant = f'; did you mean "{self.suggestion}"?' if self.suggestion else ''
        return f'at position {self.position}: {self.message}{meant}'


class MeasurementRefused(Value_exception):
    """An operation on quantities that has no physically right result.

    `reason` is the reason in one word, such as 'kinds_differ'. What is raised is one of the
    three classes below.
    """

    def __init__(self, message: str, reason: str) -> None:
        super().__init__(message, reason)
        self.message = message
        self.reason = reason

    def __str__(self) -> str:
        return self.message


class RefusedKind(MeasurementRefused, TypeError):
    """The units, levels or kinds of temperatures do not go together."""


class RefusedValue(MeasurementRefused, ValueError):
    """A number or a bound that cannot be one."""


class RefusedArithmetic(MeasurementRefused, ArithmeticError):
    """A divisor that may be zero, the level of zero, a result beyond the range of doubles."""
