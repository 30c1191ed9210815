#!/usr/bin/env python3
"""python.py: what the Python package costs beside pint and numpy, in one run, as a table.

PYTHONPATH leads to the package as it was built. Times are the best of several rounds; an import is
a program of its own.
"""

import subprocess
import sys
import time
import timeit

import numpy as np
import pint

import varnix_value as vv

REGISTRY = pint.UnitRegistry()
NUMBERS = np.linspace(0.0, 1e4, 1_000_000)
NAMES = {
    'vv': vv,
    'np': np,
    'Q': REGISTRY.Quantity,
    'ours': vv.Quantity('3.5 ft'),
    'theirs': REGISTRY.Quantity(3.5, 'ft'),
    'metre': vv.Unit('m'),
    'to_metres': vv.Converter('ft', 'm'),
    'to_watts': vv.Converter('dBm', 'W'),
    'numbers': NUMBERS,
    'out': np.empty_like(NUMBERS),
    'quantities': REGISTRY.Quantity(NUMBERS, 'ft'),
}

# The job, ours, and the peer's; pint carries no bounds.
JOBS = [
    ('read a text', "vv.Quantity('3.5 ft')", 'pint', "Q('3.5 ft')"),
    ('convert', 'ours.to(metre)', 'pint', "theirs.to('m')"),
    ('convert, unit as text', "ours.to('m')", 'pint', "theirs.to('m')"),
    ('add', 'ours + ours', 'pint', 'theirs + theirs'),
    ('multiply', 'ours * ours', 'pint', 'theirs * theirs'),
    ('a million, ft to m', 'to_metres(numbers, out=out)', 'numpy', 'np.multiply(numbers, 0.3048, out=out)'),
    ('a million, ft to m', 'to_metres(numbers, out=out)', 'pint', "quantities.to('m')"),
    ('a thousand, dBm to W', 'to_watts(numbers[:1000], out=out[:1000])', 'numpy', 'np.power(10.0, numbers[:1000] / 10.0 - 3.0, out=out[:1000])'),
]


def seconds(statement):
    timer = timeit.Timer(statement, globals=NAMES)
    count, once = timer.autorange()
    return min([once, *timer.repeat(5, count)]) / count


def import_seconds(module):
    start = time.perf_counter()
    subprocess.run([sys.executable, '-c', f'import {module}'], check=True)
    return time.perf_counter() - start


print(f'{"job":24}{"ours us":>12} {"peer":8}{"peer us":>12}{"ratio":>9}')
for job, our_way, peer, their_way in JOBS:
    ours, theirs = seconds(our_way), seconds(their_way)
    print(f'{job:24}{ours * 1e6:12.2f} {peer:8}{theirs * 1e6:12.2f}{ours / theirs:9.3f}')
base, ours, theirs = (min(import_seconds(module) for _ in range(5)) for module in ('numpy', 'varnix_value', 'pint'))
print(f'import: numpy alone {base * 1e3:.0f} ms, ours {ours * 1e3:.0f} ms, pint {theirs * 1e3:.0f} ms')
