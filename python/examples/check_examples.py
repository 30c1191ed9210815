#!/usr/bin/env python3
"""check_examples.py: the examples run, and print and draw what they should."""

import pathlib
import subprocess
import sys
import tempfile

HERE = pathlib.Path(__file__).resolve().parent
PICTURE = HERE.parents[1] / 'docs' / 'pictures' / 'series.svg'


def run(name, *arguments):
    return subprocess.run([sys.executable, HERE / name, *arguments], capture_output=True, text=True, check=True).stdout


with tempfile.TemporaryDirectory() as folder:
    drawn = pathlib.Path(folder, 'series.svg')
    assert run('plot_series.py', drawn) == '7 readings, the first 1.00 W [0.89, 1.13]\n'
    assert drawn.read_text() == PICTURE.read_text(), 'the picture in docs/ is another one: draw it again'

    for day in range(20):
        rows = ''.join(f'{sensor},{day + offset}\n' for sensor, offset in (('north', 0.5), ('south', -40)))
        pathlib.Path(folder, f'day{day}.csv').write_text('sensor,temperature\n' + rows)
    assert run('csv_files.py', folder) == 'north: 292.65 K\nsouth: 252.15 K\n'
