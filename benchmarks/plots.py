#!/usr/bin/env python3
"""plots.py BENCHMARKS_JSON VALUE_OBJECT: draws what was measured into docs/pictures.

costs.svg has the time of our jobs beside their peers, growth.svg how times grow with the factors of a
unit, the lines of a column and the numbers of an array. The grey is read on light and on dark pages.
"""

import pathlib
import re
import statistics
import subprocess
import sys
import tempfile
import time

import matplotlib

matplotlib.use('svg')
import matplotlib.pyplot as plt  # noqa: E402: after the choice of its output

from ratios import times_by_job  # noqa: E402: beside this file

PICTURES = pathlib.Path(__file__).resolve().parents[1] / 'docs' / 'pictures'
OURS, PEER, GREY = '#3b82c4', '#d08a2e', '#808080'
JOBS = {'ft_to_m': 'ft to m', 'kmh_to_ms': 'km/h to m/s', 'c_to_f': '°C to °F', 'dbm_to_w': 'dBm to W', 'parse_kmh': 'read "km/h"'}
plt.rcParams.update({'svg.fonttype': 'none', 'svg.hashsalt': 'valueobject', 'text.color': GREY, 'axes.edgecolor': GREY,
                     'axes.labelcolor': GREY, 'xtick.color': GREY, 'ytick.color': GREY, 'legend.frameon': False})


def save(figure, name):
    figure.tight_layout()
    figure.savefig(PICTURES / name, transparent=True, metadata={'Date': None, 'Creator': None})


def draw_costs(times):
    jobs = [job for job in JOBS if job in times and 'udunits' in times[job]]
    figure, axes = plt.subplots(figsize=(6.5, 3))
    for row, job in enumerate(reversed(jobs)):
        for shift, who, colour in ((.12, 'ours', OURS), (-.12, 'udunits', PEER)):
            median = statistics.median(times[job][who])
            axes.plot(median, row + shift, 'o', color=colour, label={'ours': 'ValueObject', 'udunits': 'UDUNITS-2'}[who] if row == 0 else None)
            axes.text(median * 1.15, row + shift, f'{median:.0f}', va='center', fontsize=8)
    axes.set_yticks(range(len(jobs)), [JOBS[job] for job in reversed(jobs)])
    axes.set_xscale('log')
    axes.set_xlim(1, 4000)
    axes.grid(axis='x', alpha=.3)
    axes.set_xlabel('nanoseconds: value and both bounds, units given at run time')
    axes.legend(loc='upper right', fontsize=8)
    save(figure, 'costs.svg')


def series(times, pattern, who):
    """Each count with its median, in nanoseconds."""
    found = ((re.fullmatch(pattern, job), sides) for job, sides in times.items())
    return zip(*sorted((int(match[1]), statistics.median(sides[who])) for match, sides in found if match))


def line_times(tool, units, counts):
    """Nanoseconds a line, the best of three runs."""
    with tempfile.TemporaryDirectory() as folder:
        column = pathlib.Path(folder, 'column.txt')
        for count in counts:
            column.write_text(''.join(f'{number * 0.25}\n' for number in range(count)), encoding='ascii')
            best = float('inf')
            for _ in range(3):
                with open(column, 'rb') as given:
                    start = time.perf_counter()
                    subprocess.run([tool, 'convert', '--from', units[0], '--to', units[1]], stdin=given,
                                   stdout=subprocess.DEVNULL, check=True)
                    best = min(best, time.perf_counter() - start)
            yield best / count * 1e9


def draw_growth(times, tool):
    figure, (factors, lines, numbers) = plt.subplots(1, 3, figsize=(9, 3))
    for who, name, colour in (('ours', 'Value_object', PEER), ('measurement', 'Measurement', OURS)):
        factors.plot(*series(times, r'growth_factors_(\d+)', who), 'o-', color=colour, label=name)
        counts, medians = series(times, r'growth_numbers_(\d+)', who)
        numbers.plot(counts, [median / count for count, median in zip(counts, medians)], 'o-', color=colour)
    counts = [10 ** power for power in range(2, 7)]
    lines.plot(counts, list(line_times(tool, ('ft', 'm'), counts)), 'o-', color=OURS)
    for axes, label, scale in ((factors, 'factors of the unit', 'linear'), (lines, 'lines of a column, with the tool', 'log'),
                               (numbers, 'numbers of an array', 'log')):
        axes.set_xlabel(label)
        axes.set_xscale(scale)
        axes.set_yscale('log' if scale == 'log' else 'linear')
    factors.set_ylim(bottom=0)
    factors.set_ylabel('ns a conversion')
    lines.set_ylabel('ns a line')
    numbers.set_ylabel('ns a number')
    factors.legend(fontsize=8)
    save(figure, 'growth.svg')


measured = times_by_job([sys.argv[1]])
draw_costs(measured)
draw_growth(measured, sys.argv[2])
