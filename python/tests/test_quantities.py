"""Quantities at the border between Python and C++: arguments, failures, copies, texts."""

import copy
import importlib.metadata
import math
import pickle
import subprocess
import sys
import threading
from decimal import Decimal
from fractions import Fraction

import numpy as np
import pytest

import varnix_value as vv
from varnix_value import Difference, Order, Quantity, RuleValue, Unit, Verdict

UNCOMMON = [
    Quantity('30 dBm [29, 31]'),
    Quantity(0.1, 'V'),
    Quantity('0.1 V'),
    Quantity(5.0, 'V', -math.inf, 6.0),
    Quantity(-0.0, 'kg*m/s^2'),
    Quantity(5e-324, 'µV', 0.0, 1.7976931348623157e308),
    Quantity('3 cm^2'),
    Quantity(7, ''),
    Quantity('20 dB'),
    Difference(10, '°C', 9, 11),
    Difference('5 mK'),
    Difference(5, 'm°C'),
    Quantity('5 Δm°F [4, 6]'),
    Difference(100, 'K').to('dBK'),
    Quantity('2 Δ°F'),
    Quantity('-174 dBm/Hz'),
    Quantity('1013.25 hPa [1013, 1013.5]'),
    Quantity(30.1, 'lb/gal'),
    Quantity('5 kN*m'),
    Quantity('3 qmol*rad/T'),
    Quantity('2 hm'),
    Quantity('50 dB(1/m)'),
    Quantity('0.5 Np'),
]


@pytest.mark.parametrize('q', UNCOMMON, ids=str)
def test_repr_pickle_and_copies_give_back_the_same(q):
    copies = [eval(repr(q)), copy.copy(q), copy.deepcopy(q)]
    copies += [pickle.loads(pickle.dumps(q, protocol)) for protocol in range(pickle.HIGHEST_PROTOCOL + 1)]
    for other in copies:
        assert other == q
        assert hash(other) == hash(q)
    assert pickle.loads(pickle.dumps(q.unit)) == q.unit == Unit(str(q.unit))
    assert eval(repr(q.unit)) == q.unit


def test_objects_without_their_constructor_have_no_leftovers():
    for made in (Quantity.__new__(Quantity), RuleValue.__new__(RuleValue)):
        assert (made.value, made.lower, made.upper, str(made.unit)) == (0.0, 0.0, 0.0, '')
    nothing = [0] * 6
    for state in [(0, 2**40, *[0] * 10), (0, 'k', *[0] * 10), (0,), (0, 0, 2**40, 1, 0, 0, 0, 0, *nothing[2:])]:
        with pytest.raises(ValueError, match='not the state'):
            Unit.__new__(Unit).__setstate__(state)
    for state, failure in [
        ((0, 0, 1000, 1, 0, 0, *nothing), vv.UnitNotDefined),
        ((0, 0, 1005, 1, 1999, 1, *nothing), vv.UnitNotDefined),
        ((0, 0, 1005, 1, 1006, 1, *nothing), vv.UnitDimensionNotProper),  # pascal and bar
    ]:
        with pytest.raises(failure):
            Unit.__new__(Unit).__setstate__(state)
    made = Unit.__new__(Unit)
    made.__setstate__((0, 2, 1005, 1, 0, 0, *nothing))
    assert made == Unit('hPa')


def test_rule_values_are_compared_by_their_rules():
    assert RuleValue('1 V') == RuleValue('1000 mV') and RuleValue('1 V') != RuleValue('2 V') and RuleValue('1 V') != 1
    assert RuleValue('35000 ft') == RuleValue('10668 m') and RuleValue('10668 m') != RuleValue('35000 ft')
    assert RuleValue('1 V') < RuleValue('2 V') and RuleValue('2 V') >= RuleValue('2 V [1, 3]')
    again = pickle.loads(pickle.dumps(RuleValue('1 V [0, 2]')))
    assert (again.value, again.lower, again.upper, str(again.unit)) == (1.0, 0.0, 2.0, 'V')


def test_equality_is_sameness():
    assert Quantity('1 km') != Quantity('1000 m')
    assert Quantity(1, 'V') != Quantity(1, 'V', 0, 1)
    assert Difference('1 K') != Quantity('1 K')
    assert Quantity(1, 'V') != 1 and Quantity(1, 'V') != 'V' and Quantity(1, 'V') is not None
    assert {Quantity(1, 'V'), Quantity(1.0, Unit('V'))} == {Quantity('1 V')}
    assert Quantity(2, 'm') in [Quantity(1, 'm'), Quantity(2, 'm')]
    assert Unit('km') != Unit('m') and Unit('km') != 'km'


# What is written, and what is raised: the class in the family, Python's class, words of the message.
FAILURES = [
    ("Quantity('5 µpinch')", vv.TextNotValid, ValueError, 'at position 2: '),
    ("Quantity('5 pinch')", vv.TextNotValid, ValueError, 'did you mean "picoinch"'),
    ("Quantity('')", vv.TextNotValid, ValueError, 'position 0'),
    ("Quantity('1\\0 V')", vv.TextNotValid, ValueError, 'position 1'),
    ("Quantity('V' * 70000)", vv.TextNotValid, ValueError, ''),
    ("Quantity('\\ud800')", UnicodeEncodeError, ValueError, 'surrogates'),
    ("Quantity('5 V [6, 7]')", vv.RefusedValue, ValueError, 'outside its bounds'),
    ("Quantity(math.nan, 'V')", vv.RefusedValue, ValueError, 'finite'),
    ("Quantity(1, 'V', 2, 0)", vv.RefusedValue, ValueError, 'above the upper one'),
    ("Quantity(1, 'V', 0)", TypeError, TypeError, 'two bounds or none'),
    ('Quantity(3)', TypeError, TypeError, 'a number and its unit'),
    ('Quantity(None)', TypeError, TypeError, 'from a text'),
    ("Quantity('1 V', lower=0, upper=2)", TypeError, TypeError, 'from a text'),
    ("Quantity(True, 'V')", TypeError, TypeError, 'expected a number'),
    ("Quantity(Decimal('0.1'), 'V')", TypeError, TypeError, 'expected a number'),
    ("Quantity(Fraction(1, 3), 'V')", ValueError, ValueError, 'no double'),
    ("Quantity(2**53 + 1, 'V')", ValueError, ValueError, 'no double'),
    ("Quantity(10**400, 'V')", ValueError, ValueError, 'no double'),
    ("Quantity(np.longdouble('0.1'), 'V')", ValueError, ValueError, 'no double'),
    ("Quantity(np.ones(1), 'V')", TypeError, TypeError, 'expected a number'),
    ("Quantity(1, 'V').to(3)", TypeError, TypeError, 'expected a Unit'),
    ("Quantity('5 m').to('m/s')", vv.RefusedKind, TypeError, 'the kinds differ'),
    ("Quantity('5 V').to('W')", vv.RefusedKind, TypeError, "with_='50 ohm'"),
    ("Quantity('20 °C').to('Δ°F')", vv.RefusedKind, TypeError, 'a point of a temperature scale'),
    ("Quantity('10 dBm') + Quantity('10 dBm')", vv.RefusedKind, TypeError, 'power_sum adds'),
    ("Quantity('20 °C') + Quantity('1 K')", vv.MeasurementRefused, TypeError, '5 ΔK'),
    ("Quantity('20 °C') + Quantity('1 °C')", vv.MeasurementRefused, TypeError, 'as_difference'),
    ("Quantity('1 V') / Quantity('0 A')", vv.RefusedArithmetic, ArithmeticError, 'may be zero'),
    ("Quantity('2 m') ** 65", vv.RefusedArithmetic, ArithmeticError, '-64 to 64'),
    ("Quantity('2 m') ** 10**30", vv.RefusedArithmetic, ArithmeticError, '-64 to 64'),
    ("Quantity('2 m') ** 0.5", TypeError, TypeError, 'unsupported'),
    ("pow(Quantity('2 m'), 2, 3)", TypeError, TypeError, ''),
    ("Quantity('1 V') + 1", TypeError, TypeError, 'unsupported'),
    ("1 + Quantity('1 V')", TypeError, TypeError, 'unsupported'),
    ("0.0 + Quantity('1 V')", TypeError, TypeError, 'unsupported'),
    ("True * Quantity('1 V')", TypeError, TypeError, 'unsupported'),
    ("np.ones(3) * Quantity('1 V')", TypeError, TypeError, 'ndarray'),
    ("Quantity('1 V') * np.ones(1)", TypeError, TypeError, ''),
    ("Quantity('1 V') < Quantity('2 V')", TypeError, TypeError, 'certainly_less'),
    ("sorted([Quantity('1 V'), Quantity('2 V')])", TypeError, TypeError, 'compare'),
    ("bool(Quantity('1 V'))", TypeError, TypeError, 'neither true nor false'),
    ("float(Quantity('1 V'))", TypeError, TypeError, ''),
    ("bool(vv.compare(Quantity('1 V'), Quantity('2 V')))", TypeError, TypeError, 'LESS'),
    ("f\"{Quantity('1 V'):.2e}\"", ValueError, ValueError, 'no format of quantities'),
    ("Difference('5 V')", vv.RefusedKind, TypeError, 'no temperature'),
    ("Difference(5, 'V')", vv.RefusedKind, TypeError, 'a difference in V'),
    ("Unit('Δ°C')", vv.TextNotValid, ValueError, 'Difference'),
    ("Quantity('2 m') ** -(10**30)", vv.RefusedArithmetic, ArithmeticError, 'to -1000'),
    ("Quantity('2 m') ** True", TypeError, TypeError, 'unsupported'),
    ("RuleValue('5 V', lower=1, upper=2)", TypeError, TypeError, 'from a text'),
    ("RuleValue(b'5 V')", TypeError, TypeError, 'from a text'),
    ("RuleValue('1 V').to('W', 5)", TypeError, TypeError, 'expected a text'),
    ("RuleValue('1 V') * np.ones(2)", TypeError, TypeError, ''),
    ("RuleValue('1 V') == RuleValue('1 m')", vv.UnitDimensionNotSame, TypeError, ''),
    ("Unit('foot dogs')", vv.TextNotValid, ValueError, ''),
    ('vv.power_sum([])', vv.RefusedValue, ValueError, 'nothing to add'),
    ("vv.power_sum(['10 dBm', None])", TypeError, TypeError, 'expected a Quantity'),
    ("vv.power_sum('10 dBm')", TypeError, TypeError, "expected several levels, as in a list, found <class 'str'>"),
    ('vv.power_mean(Quantity("10 dBm"))', TypeError, TypeError, 'expected several levels'),
    ("vv.cascade_noise([('10 dB',)])", ValueError, ValueError, 'gain and a noise figure'),
    ("vv.cascade_noise(['10 dB'])", TypeError, TypeError, 'gain and a noise figure'),
    ('vv.cascade_noise([5])', TypeError, TypeError, 'gain and a noise figure'),
    ('vv.cascade_noise(5)', TypeError, TypeError, 'expected several stages'),
    ("vv.compare('1 V', '2 A')", vv.RefusedKind, TypeError, 'cannot compare'),
    ("vv.hull('1 V', '2 qqq')", vv.TextNotValid, ValueError, 'qqq'),
    ("vv.compare('1 V', 2)", vv.RefusedKind, TypeError, 'the kinds differ'),
    ('vv.sqrt(2**53 + 1)', ValueError, ValueError, 'no double'),
    ("setattr(Unit('V'), '__class__', Quantity)", TypeError, TypeError, '__class__'),
    ("setattr(Quantity('1 V'), '__class__', RuleValue)", TypeError, TypeError, '__class__'),
    ("setattr(Unit('V'), '__class__', type('Slim', (Quantity,), {'__slots__': ()}))", TypeError, TypeError, '__class__'),
    ("setattr(type('Slim', (Unit,), {})('V'), '__class__', type('Slim', (Quantity,), {}))", TypeError, TypeError, '__class__'),
    ("setattr(Unit('V'), '__class__', type('Slim', (Unit.__base__,), {'__slots__': ()}))", TypeError, TypeError, '__class__'),
    ("RuleValue(5, 'hPa')", vv.UnitNotDefined, ValueError, 'do not have the unit hPa; a Quantity has'),
    ("RuleValue('5 m').to(Unit('mil'))", vv.UnitNotDefined, ValueError, 'do not have the unit mil; a Quantity has'),
    ("RuleValue('5 hPa')", vv.TextNotValid, ValueError, "'Pa' is a unit that measurements alone have; here write"),
    ("Quantity('5 hPa').to('N')", vv.RefusedKind, TypeError, '(pressure) to N (force): the kinds differ'),
    ("Quantity(5, 'dBPa')", vv.MeasurementRefused, TypeError, 'dBPa'),
    ("Quantity('0.2 dB/m')", vv.TextNotValid, ValueError, 'write dB(1/m)'),
    ("Unit('hft')", vv.TextNotValid, ValueError, ''),
    ("RuleValue('5 m').to('W')", vv.UnitDimensionNotSame, TypeError, 'Dimension is not the same'),
    ("RuleValue('1 V').to('W', RuleValue('1 m'))", vv.NoRuleToConvert, TypeError, 'No rule'),
    ("RuleValue('1 m') / 0", vv.OutOfRange, ArithmeticError, 'out of range'),
    ("RuleValue('3 dBm') + RuleValue(2, '')", vv.UnitDimensionNotProper, TypeError, ''),
    ("RuleValue('2 W') * RuleValue('3 dB')", vv.OperationNotValid, ValueError, ''),
    ("RuleValue('1 V*W*A*ohm*g') * RuleValue('1 m')", vv.OperationExceedingAllowedTuples, ArithmeticError, ''),
]


@pytest.mark.parametrize('text, family, python_class, words', FAILURES, ids=[row[0] for row in FAILURES])
def test_failures(text, family, python_class, words):
    with pytest.raises(family) as caught:
        eval(text)
    assert isinstance(caught.value, python_class)
    assert words in str(caught.value)


def test_failures_have_their_parts_and_can_be_pickled():
    with pytest.raises(vv.TextNotValid) as text:
        Quantity('5.0 ± 0.1 qqq')
    with pytest.raises(vv.MeasurementRefused) as refused:
        Quantity('5 m').to('s')
    assert text.value.position == 10  # in bytes it would be 11
    assert text.value.suggestion == ''
    assert refused.value.reason == 'kinds_differ'
    for failure in (text.value, refused.value):
        again = pickle.loads(pickle.dumps(failure))
        assert type(again) is type(failure) and str(again) == str(failure)


# Expressions, and what they print.
ANSWERS = [
    ("2 * Quantity('3 V')", '6 V'),
    ("Quantity('3 V') / np.float32(2)", '1.5 V'),
    ("np.int16(2) * Quantity('3 V')", '6 V'),
    ("1 / Quantity('50 Hz')", '0.02 s'),
    ("-abs(-Quantity('3 V'))", '-3 V'),
    ("Quantity('-1 m [-2, 1]') ** 2", '1 m^2 [0, 4]'),
    ("sum([Quantity('1 V'), Quantity('500 mV')])", '1.5 V'),
    ("vv.sqrt(Quantity('9 m^2'))", '3 m'),
    ("Quantity.between(1, 2, 'V')", '1.5 V [1, 2]'),
    ("Quantity('20 Δ°C').to('Δ°F')", '36 Δ°F'),
    ("Quantity(Fraction(1, 4), 'V')", '0.25 V'),
    ("f\"{vv.power_sum(x for x in ['10 dBm', Quantity('10 dBm')]):.4f~}\"", '13.0103 dBm'),
    ("vv.hull(Quantity('1 V'), Quantity('2 V'))", '1 V [1, 2]'),
    ("vv.density(Quantity('-114 dBm'), Quantity('1 MHz'))", '-174 dBm/Hz'),
    ("RuleValue('60 mph') * RuleValue('2 s')", '432000 mi'),
    ("2 * RuleValue('2 W')", '4 W'),
    ("RuleValue('10 V').to('W', '5 ohm')", '20 W'),
    ("Quantity('2 m') ** np.int64(2)", '4 m^2'),
    ("Quantity(1013.25, 'hPa').to(Unit('Pa'))", '101325 Pa'),
    ("Quantity.between(1, 2, 'bar').to('kPa')", '150 kPa [100, 200]'),
    ("Quantity('2500 kg/h') * Quantity('3.5 h')", '8750 kg'),
    ("(Quantity('70 kg') * Quantity('9.81 m/s^2')).simplified()", '686.7 N'),
    ("Quantity('60 km/h').simplified(), Quantity('20 °C').simplified()", "(Quantity('60 km/h'), Quantity('20 °C'))"),
    ("Unit('hPa').kind, Unit('hPa').name, repr(Unit('hectopascals'))", "('pressure', 'hectopascals', \"Unit('hPa')\")"),
    ("Unit('lb/gal').kind, str(Unit('1')), str(Unit(''))", "('mass/volume', '', '')"),
    ("[vv.same_kind('N', x) for x in ('kg*m/s^2', 'lbf', 'Pa')]", '[True, True, False]'),
    ("vv.convert([1, 10], 'bar', 'kPa').tolist()", '[100.0, 1000.0]'),
    ("str(pickle.loads(pickle.dumps(vv.Converter('lb/gal', 'kg/l'))))", "<ufunc 'lb/gal to kg/l'>"),
]


@pytest.mark.parametrize('text, printed', ANSWERS, ids=[row[0] for row in ANSWERS])
def test_answers(text, printed):
    assert str(eval(text)) == printed


# Each function of quantities, with arguments as texts and numbers.
FUNCTIONS = [
    ('compare', ['1 V', '2 V']),
    ('certainly_less', ['1 V', '2 V']),
    ('possibly_less', ['1 V', '2 V']),
    ('certainly_equal', ['1 V', '2 V']),
    ('possibly_equal', ['1 V', '2 V']),
    ('check_limits', ['1 V', '0 V', '2 V']),
    ('sqrt', ['9 m^2']),
    ('hull', ['1 V', '2 V']),
    ('intersection', ['1 ± 0.5 V', '1.25 V']),
    ('amplify', ['2 V', '20 dB']),
    ('power_ratio', ['20 dB']),
    ('field_ratio', ['20 dB']),
    ('gain_of_powers', [100]),
    ('gain_of_fields', [100.0]),
    ('power_difference', ['10 dBm', '7 dBm']),
    ('total_power', ['-174 dBm/Hz', '1 MHz']),
    ('density', ['10 dBm', '1 MHz']),
    ('reflection_of_vswr', [2]),
    ('reflection_of_return_loss', ['20 dB']),
    ('vswr', [0.5]),
    ('return_loss', [np.float64(0.5)]),
    ('mismatch_loss', ['0.5']),
    ('mismatch_gain', [0.25, '0.5']),
    ('thermal_noise', ['300 K', '1 Hz']),
]


@pytest.mark.parametrize('name, arguments', FUNCTIONS, ids=[row[0] for row in FUNCTIONS])
def test_functions_take_quantities_texts_and_numbers(name, arguments):
    function = getattr(vv, name)
    quantities = [Quantity(x) if isinstance(x, str) else Quantity(x, '') for x in arguments]
    assert function(*arguments) == function(*quantities)
    for wrong in (None, b'1 V', [1.0], np.ones(1), True, Unit('V')):
        for k in range(len(arguments)):
            with pytest.raises(TypeError) as caught:
                function(*arguments[:k], wrong, *arguments[k + 1 :])
            assert str(caught.value) == f'expected a Quantity, its text or a number, found {type(wrong)!r}'


def test_every_function_is_among_these():
    others = {'Converter', 'Difference', 'cascade_noise', 'convert', 'power_mean', 'power_sum', 'same_kind'}
    functions = {name for name in vv.__all__ if callable(getattr(vv, name)) and not isinstance(getattr(vv, name), type)}
    assert functions == others | {name for name, _ in FUNCTIONS}


# What is refused, the way out that the message names, and what it leads to.
WAYS_OUT = [
    ("Quantity(math.inf, 'V')", 'a lower bound may be -inf, an upper one inf', "Quantity(5, 'V', 5, math.inf)"),
    ("Quantity(5, 'V', 0.1, 0.1)", 'bounds are numbers in the unit and not distances', "Quantity(5, 'V', 4.9, 5.1)"),
    ("Quantity(5, 'V', 5.1, 4.9)", 'bounds are numbers in the unit and not distances', "Quantity(5, 'V', 4.9, 5.1)"),
    ("Quantity('5 V').to('W')", "convert with a resistance: to(unit, with_='50 ohm')", "Quantity('5 V').to('W', with_='50 ohm')"),
    ("Quantity('5 V') + Quantity('1 A')", "with_='50 ohm'", "Quantity('5 V') + Quantity('1 A').to('V', with_='50 ohm')"),
    ("Quantity('5 ohm').to('V')", "convert with a current: to(unit, with_='2 A')", "Quantity('5 ohm').to('V', with_='2 A')"),
    ("Quantity('5 ohm').to('A')", "convert with a voltage: to(unit, with_='5 V')", "Quantity('5 ohm').to('A', with_='5 V')"),
    ("Quantity('1 month').to('s')", 'write days, as in 30 days', "Quantity('30 days').to('s')"),
    ("Quantity('2 rad') * Quantity('3 sym')", 'divide one of them by its unit', "Quantity('2 rad') / Quantity('1 rad') * Quantity('3 sym')"),
    ("Quantity('5 m°C')", 'write it without, or in K', "Quantity('5 °C'), Quantity('5 mK')"),
    ("Quantity('20 °C') + Quantity('5 °C')", "(as_difference, or '5 ΔK')", "Quantity('20 °C') + Quantity('5 °C').as_difference()"),
    ("Quantity('5 Δ°C') - Quantity('20 °C')", "(as_difference, or '5 ΔK')", "Quantity('5 Δ°C') - Quantity('20 ΔK')"),
    ("vv.thermal_noise('20 Δ°C', '1 Hz')", '(as_point)', "vv.thermal_noise(Quantity('20 Δ°C').as_point(), '1 Hz')"),
    ("Quantity('20 °C') * 2", 'convert to K', "Quantity('20 °C').to('K') * 2"),
    ("Quantity('10 dBm') + Quantity('1 mW')", 'convert the level to a linear unit', "Quantity('10 dBm').to('mW') + Quantity('1 mW')"),
    ("Quantity('1 W').to('dB')", 'convert to a level, with its reference (dBm, dBV)', "Quantity('1 W').to('dBm')"),
    ("Quantity('10 dBm') + Quantity('10 dBm')", 'power_sum adds the powers', "vv.power_sum(['10 dBm', '10 dBm'])"),
    ("Quantity('10 dBm') * 2", 'convert to the linear unit, or add a gain in dB', "Quantity('10 dBm').to('W') * 2, Quantity('10 dBm') + Quantity('3 dB')"),
    ("Quantity('3 dB') - Quantity('10 dBm')", 'take the gain from the level', "Quantity('10 dBm') - Quantity('3 dB')"),
    ("Quantity('3 dB').to('W')", 'amplify applies it to one', "vv.amplify('1 W', '3 dB')"),
    ("Quantity('20 dB').to('')", 'field_ratio or power_ratio says which', "vv.field_ratio('20 dB'), vv.power_ratio('20 dB')"),
    ("Quantity('10 %').to('dB')", 'gain_of_fields or gain_of_powers says which', "vv.gain_of_fields('10 %'), vv.gain_of_powers('10 %')"),
]


@pytest.mark.parametrize('refused, words, followed', WAYS_OUT, ids=[row[0] for row in WAYS_OUT])
def test_ways_out_lead_there(refused, words, followed):
    with pytest.raises(vv.MeasurementRefused) as caught:
        eval(refused)
    assert words in str(caught.value)
    eval(followed)


SUBINTERPRETER = """
{first}
import _xxsubinterpreters as subinterpreters
subinterpreters.run_string(subinterpreters.create(), '''
try:
    import varnix_value
except ImportError as failure:
    print('refused:', failure)
''')
"""


@pytest.mark.parametrize('first', ['', 'import varnix_value'])
def test_subinterpreters_are_refused(first):
    pytest.importorskip('_xxsubinterpreters')
    program = [sys.executable, '-c', SUBINTERPRETER.format(first=first)]
    done = subprocess.run(program, capture_output=True, text=True, timeout=60, check=True)
    assert done.stdout.startswith('refused: ') and 'subinterpreter' in done.stdout


def test_package_is_known_by_its_name():
    assert importlib.metadata.version('varnix-value') == vv.__version__
    assert importlib.metadata.metadata('varnix-value')['Summary'].startswith('Physical quantities')


def test_order_and_limits():
    assert vv.compare(Quantity('20 dBm'), Quantity('100 mW')) is Order.EQUAL
    assert vv.compare(Quantity('30 dBm [29, 33]'), Quantity('32 dBm')) == Order.UNDECIDED
    assert vv.possibly_less(Quantity('1 V'), Quantity('2 V')) is True
    limits = (Quantity('4.75 V'), Quantity('5.25 V'))
    assert vv.check_limits(Quantity('5.02 V'), *limits) is Verdict.PASS
    assert vv.check_limits(Quantity('5.5 V'), *limits) is Verdict.FAIL


def test_threads_share_quantities():
    power, failures = Quantity('30 dBm [29, 31]'), []

    def work():
        for _ in range(500):
            if power.to('W').to('dBm').value != 30.0:
                failures.append('another value')

    threads = [threading.Thread(target=work) for _ in range(4)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    assert not failures
