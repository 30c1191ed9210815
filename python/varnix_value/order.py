"""What is certain of two quantities, and of one and its limits."""

import enum
from typing import NoReturn


class _Answer(enum.Enum):
    """An answer of more than two kinds, which `if` would take for yes."""

    def __bool__(self) -> NoReturn:
        names = ', '.join(type(self).__members__)
        raise TypeError(f'the answer is one of {names}: ask "is {type(self).__name__}.{self.name}"')


class Order(_Answer):
    """What is certain of two quantities, wherever in their bounds they are."""

    LESS = 'less'
    EQUAL = 'equal'
    GREATER = 'greater'
    UNDECIDED = 'undecided'


class Verdict(_Answer):
    """Whether a quantity keeps its limits, wherever in its bounds it is."""

    PASS = 'pass'
    FAIL = 'fail'
    UNDECIDED = 'undecided'
