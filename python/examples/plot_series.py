#!/usr/bin/env python3
"""plot_series.py TO: a series of levels with bounds, in watts, as a picture."""

import sys

import matplotlib

matplotlib.use('svg')
import matplotlib.pyplot as plt

from varnix_value import Quantity

READINGS = [
    '30.0 ± 0.5 dBm',
    '30.4 ± 0.5 dBm',
    '31.1 ± 0.5 dBm',
    '31.3 +0.8/-0.4 dBm',
    '32.0 ± 1.0 dBm',
    '31.2 ± 0.5 dBm',
    '30.1 ± 0.5 dBm',
]

powers = [Quantity(text).to('W') for text in READINGS]
values = [power.value for power in powers]
below = [power.value - power.lower for power in powers]
above = [power.upper - power.value for power in powers]

# The same picture wherever and whenever it is drawn.
matplotlib.rcParams['svg.hashsalt'] = 'series'
figure, axes = plt.subplots(figsize=(6, 3.2), layout='constrained')
axes.errorbar(range(len(powers)), values, yerr=[below, above], fmt='o', capsize=4)
axes.set_xlabel('minute')
axes.set_ylabel('power / W')
axes.set_ylim(bottom=0)
axes.grid(alpha=0.3)
figure.savefig(sys.argv[1], metadata={'Date': None})
print(f'{len(powers)} readings, the first {powers[0]:b}')
