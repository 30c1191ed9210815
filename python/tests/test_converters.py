"""Converters as ufuncs: kinds of arrays, lifetimes, threads, copies."""

import gc
import pickle
import threading

import numpy as np
import pytest

import varnix_value as vv
from varnix_value import Converter, Quantity, convert

pandas = pytest.importorskip('pandas')
dask = pytest.importorskip('dask')

FEET = np.array([0.0, 1.0, -2.5, 1e300, np.nan, np.inf])
METRES = np.array([Quantity(x, 'ft').to('m').value for x in FEET[:4]] + [np.nan, np.inf])


@pytest.mark.parametrize('kind', ['f8', '>f8', 'f4', '>f4', 'f2'])
def test_floats_of_each_size_and_order(kind):
    numbers = np.array([0.0, 1.0, -2.5, 100.0], dtype=kind)
    wanted = np.float64 if kind.endswith('8') else np.float32
    converted = Converter('ft', 'm')(numbers)
    assert converted.dtype == wanted
    assert converted.tolist() == (numbers.astype('f8') * 0.3048).astype(wanted).tolist()


@pytest.mark.parametrize('kind', 'bBhHiIlLqQ')
def test_whole_numbers_become_doubles(kind):
    largest = np.array([0, 1, np.iinfo(kind).max], dtype=kind)
    assert Converter('km', 'm')(largest).tolist() == [0.0, 1000.0, float(np.iinfo(kind).max) * 1000.0]


def test_places_of_every_kind():
    to_metres = Converter('ft', 'm')
    wide = np.repeat(FEET, 3)
    unaligned = np.frombuffer(b'x' + FEET.tobytes(), dtype=np.uint8)[1:].view('f8')
    readonly = FEET.copy()
    readonly.flags.writeable = False
    with np.errstate(all='raise'):  # what is no number is no reason for a warning
        for numbers in (FEET, wide[::3], FEET[::-1][::-1], unaligned, readonly, FEET.reshape(2, 3)):
            np.testing.assert_array_equal(to_metres(numbers).ravel(), METRES)
        np.testing.assert_array_equal(to_metres(np.tile(FEET, 100)), np.tile(METRES, 100))
    out = np.full(6, 7.0)
    assert to_metres(FEET, out=out, where=[True, True, False, True, True, True]) is out
    np.testing.assert_array_equal(out, [*METRES[:2], 7.0, *METRES[3:]])
    here = FEET.copy()
    to_metres(here, out=here)
    np.testing.assert_array_equal(here, METRES)
    moved = np.append(FEET, 0.0)
    to_metres(moved[:-1], out=moved[1:])  # overlapping places
    np.testing.assert_array_equal(moved[1:], METRES)
    assert to_metres(np.empty((0, 3))).shape == (0, 3)


def test_other_peoples_arrays(tmp_path):
    to_metres = Converter('ft', 'm')
    masked = np.ma.masked_invalid(FEET)
    assert to_metres(masked).mask.tolist() == masked.mask.tolist()
    series = pandas.Series(FEET[:4], index=list('abcd'), name='height')
    assert to_metres(series).index.tolist() == list('abcd') and to_metres(series).name == 'height'
    frame = pandas.DataFrame({'low': [1.0], 'high': [2]})
    assert to_metres(frame).to_dict('list') == {'low': [0.3048], 'high': [0.6096]}
    FEET.tofile(tmp_path / 'feet')
    np.testing.assert_array_equal(to_metres(np.memmap(tmp_path / 'feet')[:].view('f8')), METRES)


@pytest.mark.parametrize('numbers', [1j, 'a', b'1', None, Quantity('1 ft'), np.longdouble(1), [np.datetime64(1, 's')]])
def test_what_is_no_double_is_refused(numbers):
    with pytest.raises(TypeError):
        Converter('ft', 'm')(numbers)


def test_units_that_do_not_go_together_are_refused():
    for failing in ('Converter("ft", "s")', 'convert(1.0, "Δ°C", "K")', 'Converter("ft", "mm/ss")', 'Converter("ft", None)'):
        with pytest.raises((TypeError, ValueError)):
            eval(failing)


def test_levels():
    with np.errstate(invalid='ignore', divide='ignore'):
        levels = Converter('mW', 'dBm')([100.0, 0.0, -1.0])
    np.testing.assert_array_equal(levels, [20.0, -np.inf, np.nan])
    with pytest.warns(RuntimeWarning, match='W to dBm'):
        Converter('W', 'dBm')(-1.0)
    with np.errstate(all='raise', under='ignore'):
        np.testing.assert_array_equal(convert([np.nan, np.inf, -np.inf, 3090.0], 'dBm', 'W'), [np.nan, np.inf, 0.0, 1e306])
        np.testing.assert_allclose(convert([1e308, 1e-310, np.nan], 'mW', 'dBW'), [3050.0, -3130.0, np.nan], rtol=1e-15)


def test_a_converter_outlives_its_name():
    arrays = [Converter('ft', unit)(np.ones(1000)) for unit in ('m', 'in', 'yd') for _ in range(200)]
    gc.collect()
    assert {array[0] for array in arrays} == {0.3048, 12.0, 1.0 / 3.0}


def test_copies_by_pickle():
    to_metres = pickle.loads(pickle.dumps(Converter('n.mi', 'ft')))
    assert to_metres(1.0) == Quantity('1 n.mi').to('ft').value
    assert pickle.loads(pickle.dumps(np.sin)) is np.sin


def test_pythons_lock_is_released():
    numbers, done, counted = np.ones(4_000_000), threading.Event(), []

    def work():
        Converter('W', 'dBm')(numbers)
        done.set()

    thread = threading.Thread(target=work)
    thread.start()
    while not done.is_set():
        counted.append(None)
    thread.join()
    assert len(counted) > 1000  # were the lock held, hardly one


def test_dask_runs_a_converter_unchanged():
    array = pytest.importorskip('dask.array').from_array(FEET, chunks=2)
    for scheduler in ('threads', 'processes'):
        metres = array.map_blocks(Converter('ft', 'm')).compute(scheduler=scheduler)
        np.testing.assert_array_equal(metres, METRES)
